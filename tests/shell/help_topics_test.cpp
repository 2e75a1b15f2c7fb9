// That the help tells of everything the program has, and leads nowhere astray.

#include <QAbstractButton>
#include <QHelpEngine>
#include <QMenu>
#include <QRegularExpression>
#include <QTableWidget>
#include <QTextBlock>
#include <QTextDocument>
#include <filesystem>

#include "platform/qt/help_collection.h"
#include "plot/plot_select.h"
#include "shell/help_test.h"
#include "shell/menu_table.h"
#include "tutorial_design.h"

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

class HelpTopics : public HelpTest {
 protected:
  ~HelpTopics() override { collection_.Settle(); }

  bool HasTopic(const std::string& name) const {
    return collection_.TopicOf(QString::fromStdString(name)).isValid();
  }
  QString PageText(const QUrl& page) const {
    return QString::fromUtf8(collection_.FileAt(page.adjusted(QUrl::RemoveFragment)));
  }
  QString PageText(const char* file) const {
    return PageText(collection_.ContentsPage().resolved(QUrl(QLatin1String(file))));
  }
  QList<QUrl> Pages() const {
    return collection_.Engine().files(QStringLiteral("halvorne"), QString(),
                                      QStringLiteral("html"));
  }

  HelpCollection collection_{QStringLiteral(HALVORNE_BINARY_DIR "/program/HALVORNE.HLP")};
};

TEST_F(HelpTopics, TellOfEveryEntryOfTheMenus) {
  for (const MenuRow& row : MenuTable()) {
    if (std::string(row.caption) != "-") {
      EXPECT_TRUE(HasTopic(row.name)) << row.name << " " << row.caption;
    }
  }
  EXPECT_TRUE(HasTopic("mnuFileArray(0)")) << "the files of the session";
}

TEST_F(HelpTopics, TellOfTheEntriesThatHelpToReadTheGraph) {
  for (const char* entry : {"mnuGraphGrid", "mnuGraphBand", "mnuGraphMark", "mnuGraphGoTo",
                            "mnuGraphZoom", "mnuGraphAutomatic"}) {
    EXPECT_TRUE(HasTopic(entry)) << entry;
  }
}

TEST_F(HelpTopics, TellOfEveryEntryOfTheGraphsMenu) {
  StartProgram();
  int entries = 0;
  for (const QAction* entry : Find<QMenu>("mnuGraph")->actions()) {
    if (!entry->isSeparator()) {
      ++entries;
      EXPECT_TRUE(HasTopic(entry->objectName().toStdString())) << entry->text().toStdString();
    }
  }
  EXPECT_GT(entries, 11);
}

TEST_F(HelpTopics, TellOfEveryButtonOfTheToolbar) {
  StartProgram();
  const auto tools = Find<QWidget>("Picture2")->findChildren<QAbstractButton*>();
  EXPECT_EQ(tools.size(), 8);
  for (const QAbstractButton* tool : tools) {
    EXPECT_TRUE(HasTopic(tool->objectName().toStdString())) << tool->objectName().toStdString();
  }
}

/// Names of the windows that the sources declare.
std::vector<std::string> DeclaredWindows() {
  std::vector<std::string> names;
  static const QRegularExpression window(QStringLiteral(R"(\bclass (frm\w+)\b[^;{]*\{)"));
  for (const auto& entry : fs::recursive_directory_iterator(HALVORNE_SOURCE_DIR "/src")) {
    if (entry.path().extension() == ".h") {
      const QString text = QString::fromStdString(ReadFile(entry.path()));
      for (const QRegularExpressionMatch& match : window.globalMatch(text)) {
        names.push_back(match.captured(1).toStdString());
      }
    }
  }
  return names;
}

TEST_F(HelpTopics, TellOfEveryWindow) {
  std::vector<std::string> windows = DeclaredWindows();
  EXPECT_GT(windows.size(), 7);
  windows.insert(windows.end(), {"frmHelp", "MsgBox", "CMDialog1"});
  for (const std::string& window : windows) {
    EXPECT_TRUE(HasTopic(window)) << window;
  }
}

TEST_F(HelpTopics, OpenWithF1InEveryWindowThatACommandOpens) {
  StartWithDesign();
  int windows = 0;
  for (const MenuRow& row : MenuTable()) {
    const std::string name = row.name;
    const bool opens = name.starts_with("mnuInput") || name.starts_with("mnuOptionsItem") ||
                       name == "mnuFileItem(5)" || name == "mnuHelpItem(3)";
    if (!opens || name == "mnuInput" || !Action(name)->isEnabled()) {
      continue;
    }
    script.ExpectWindow("the window of " + name, [&](QWidget& window) {
      ++windows;
      QTest::keyClick(&window, Qt::Key_F1);
      EXPECT_EQ(Text()->source(), collection_.TopicOf(window.objectName()))
          << window.objectName().toStdString();
      window.close();
    });
    Action(name)->trigger();
  }
  EXPECT_GT(windows, 4);
}

TEST_F(HelpTopics, TellOfAPlotWhatItShowsItsFormulaItsUnitAndHowToReadIt) {
  int plots = 0;
  for (const MenuRow& row : MenuTable()) {
    if (row.plot == 0) {
      continue;
    }
    ++plots;
    const QString text = PageText(collection_.TopicOf(QLatin1String(row.name)));
    for (const char* heading : {"What it shows", "Formula", "Unit", "How to read it"}) {
      EXPECT_TRUE(text.contains(QStringLiteral("<h2>%1</h2>").arg(QLatin1String(heading))))
          << row.name << " lacks " << heading;
    }
    EXPECT_TRUE(text.contains(QStringLiteral("<p class=\"formula\">"))) << row.name;
    EXPECT_TRUE(text.contains(QStringLiteral("pictures/%1.png").arg(QLatin1String(row.name))))
        << row.name << " is not shown";
  }
  EXPECT_EQ(plots, 23);
}

/// Where a page leads and what it shows.
struct Leads {
  QStringList links;
  QStringList anchors;
  QStringList pictures;
};

Leads LeadsOf(const QString& html) {
  QTextDocument page;
  page.setHtml(html);
  Leads leads;
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextCharFormat format = piece.fragment().charFormat();
      leads.anchors += format.anchorNames();
      if (!format.anchorHref().isEmpty()) {
        leads.links.append(format.anchorHref());
      }
      if (format.isImageFormat()) {
        leads.pictures.append(format.toImageFormat().name());
      }
    }
  }
  return leads;
}

TEST_F(HelpTopics, LeadToPagesAndPicturesThatAreThere) {
  int links = 0;
  for (const QUrl& page : Pages()) {
    const Leads leads = LeadsOf(PageText(page));
    for (const QString& link : leads.links) {
      ++links;
      const QUrl target = page.resolved(QUrl(link));
      const QString text = PageText(target);
      EXPECT_FALSE(text.isEmpty()) << page.fileName().toStdString() << ": " << link.toStdString();
      if (target.hasFragment()) {
        EXPECT_TRUE(LeadsOf(text).anchors.contains(target.fragment())) << link.toStdString();
      }
    }
    for (const QString& picture : leads.pictures) {
      const QByteArray bytes = collection_.FileAt(page.resolved(QUrl(picture)));
      EXPECT_FALSE(QImage::fromData(bytes).isNull()) << picture.toStdString();
    }
  }
  EXPECT_GT(links, 60);
}

// F1 scrolls to the place of a command on its page.
TEST_F(HelpTopics, StandAtTheirPlaceOnThePage) {
  int places = 0;
  for (const MenuRow& row : MenuTable()) {
    const QUrl topic = collection_.TopicOf(QLatin1String(row.name));
    if (topic.hasFragment()) {
      ++places;
      EXPECT_TRUE(LeadsOf(PageText(topic)).anchors.contains(topic.fragment())) << row.name;
    }
  }
  EXPECT_GT(places, 8);
}

TEST_F(HelpTopics, HoldWhatTheBatchProgramSaysOfItself) {
  const QString text = PageText("batch.html");
  EXPECT_TRUE(text.contains(QStringLiteral("recalc IN -o OUT")));
  EXPECT_TRUE(text.contains(QStringLiteral("Exit status")));
  EXPECT_TRUE(PageText("batch_fields.html").contains(QStringLiteral("FrontThick")));
  for (const QUrl& page : Pages()) {
    EXPECT_FALSE(PageText(page).contains(QStringLiteral(".txt@"))) << page.fileName().toStdString();
  }
}

/// The tutorial, done by hand: what it says that the frames read, in its order.
class HelpTutorial : public HelpTopics {
 protected:
  void Band(int row, std::initializer_list<int> columns) {
    ClickMenu("mnuView2WayItem(0)");
    for (const int column : columns) {
      numbers_.push_back(Cell("FlexgrdCFBW", row, column));
    }
  }
  void Pulse(int first, int last) {
    ClickMenu("mnuView2WayItem(2)");
    ChooseForm(2);
    for (int row = first; row <= last; ++row) {
      numbers_.push_back(Cell("FlexgrdPulseWidth", row, 1));
    }
  }
  void Peak() {
    const QString label = QString::fromStdString(Caption("lblPkAmpl"));
    numbers_.push_back(label.section(u' ', 3, 3).toStdString());
  }

  std::vector<std::string> numbers_;
};

TEST_F(HelpTutorial, ReadsWhatTheProgramShows) {
  StartProgram();
  const std::string name = std::string(tools::kTutorialDesign) + ".dat";
  fs::copy(fs::path(HALVORNE_SOURCE_DIR) / "share" / "DATA" / name, Data(name));
  OpenFile(Data(name).string());
  Band(3, {1, 2, 3});
  Band(5, {3});
  const std::string skirtsBefore = numbers_.back();
  numbers_.pop_back();
  Pulse(2, 4);
  Peak();
  numbers_.insert(numbers_.end(), {"0.125", "0.115"});
  tools::ThinTutorialPlates();
  Recalc();
  Pulse(2, 3);
  tools::BackTutorialLoad();
  Recalc();
  Pulse(2, 4);
  Peak();
  Band(3, {1, 3});
  numbers_.push_back(skirtsBefore);
  Band(5, {3});

  std::vector<std::string> told;
  static const QRegularExpression number(QStringLiteral(R"(<b>(-?\d+\.\d+)</b>)"));
  for (const QRegularExpressionMatch& match : number.globalMatch(PageText("tutorial.html"))) {
    told.push_back(match.captured(1).toStdString());
  }
  EXPECT_EQ(told, numbers_);
}

}  // namespace
}  // namespace halvorne::testing
