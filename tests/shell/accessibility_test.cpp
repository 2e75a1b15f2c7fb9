#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QTest>
#include <set>

#include "plot/plot_state.h"
#include "shell/accessible_names.h"
#include "shell/frm_startup.h"
#include "shell/graph_menu_input.h"

// The program for people who can't see the screen.

namespace halvorne::testing {
namespace {

/// A window and the way to it: a command of the menus or of the graph's menu, then buttons of the
/// windows that it opens.
struct WayToWindow {
  const char* window;
  const char* command;
  std::vector<const char*> buttons = {};
};

const WayToWindow kWindows[] = {
    {"frmSizeEntry", "mnuInputSz"},
    {"frmElecTermEntry", "mnuInputElTerm"},
    {"frmAcoustLoad", "mnuInputLoad"},
    {"frmFreqEntry", "mnuInputFreqPts"},
    {"frmTimeEntry", "mnuInputTimePts"},
    {"frmElNetEntry", "mnuInputElNet"},
    {"frmExcite", "mnuOptionsItem(0)"},
    {"frmPlotScaleEntry", "mnuOptionsItem(1)"},
    {"frmDisplayOpt", "mnuOptionsItem(2)"},
    {"frmAbout", "mnuHelpItem(3)"},
    {"frmInputList", "mnuInputView"},
    {"frmHalvorneReport", "mnuFileItem(5)"},
    {"frmGoTo", "mnuGraphGoTo"},
};

class Accessibility : public GraphMenuInput {
 protected:
  void LookAt(const QWidget& window) {
    for (const std::string& fault : NamingFaults(window)) {
      ADD_FAILURE() << window.objectName().toStdString() << ": " << fault;
    }
  }

  /// What assistive programs are told of a control.
  std::string Told(const char* control, QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(Find<QWidget>(control))->text(kind).toStdString();
  }
};

TEST_F(Accessibility, EveryControlOfTheMainWindowHasAName) {
  StartWithDesign();
  LookAt(*main);
}

TEST_F(Accessibility, EveryControlOfEveryWindowHasAName) {
  StartWithDesign();
  for (const WayToWindow& way : kWindows) {
    SCOPED_TRACE(way.window);
    // Each window on the way is left by the next button, the last one by its close box.
    const std::vector<std::string> clicks(way.buttons.begin(), way.buttons.end());
    for (const std::string& click : clicks) {
      script.ExpectWindow("a window with " + click, [name = click](QWidget& window) {
        auto* const button = window.findChild<QAbstractButton*>(QString::fromStdString(name));
        ASSERT_NE(button, nullptr) << name;
        QTest::mouseClick(button, Qt::LeftButton);
      });
    }
    script.ExpectForm(way.window, [this](QWidget& window) {
      LookAt(window);
      window.close();
    });
    std::string_view(way.command).starts_with("mnuGraph") ? ChooseFromGraphMenu(way.command)
                                                          : ClickMenu(way.command);
    EXPECT_TRUE(script.Finished());
  }
}

TEST_F(Accessibility, EveryControlOfTheOtherWindowsHasAName) {
  StartWithDesign();
  Action("mnuGraphTune")->trigger();
  ClickMenu("mnuHelpItem(0)");
  std::set<QString> seen;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == QStringLiteral("frmHelp") ||
        window->objectName() == QStringLiteral("frmTune")) {
      seen.insert(window->objectName());
      LookAt(*window);
      window->close();
    }
  }
  EXPECT_EQ(seen.size(), 2U);
  const frmStartup startup([] {});
  EXPECT_EQ(startup.windowTitle(), "Halvorne");
  script.ExpectForm("MsgBox", [](QWidget& box) {
    for (const auto* button : box.findChildren<QAbstractButton*>()) {
      EXPECT_FALSE(button->text().isEmpty());
    }
    box.close();
  });
  messages().Show({.title = "ERROR in MainCalc of CALCS", .text = "Error: 6. Overflow"});
}

TEST(NamingFaults, FindsWhatLacksAName) {
  QWidget window;
  auto* const named = new QLineEdit(&window);
  named->setObjectName("txtNamed");
  named->setAccessibleName("Density");
  EXPECT_TRUE(NamingFaults(window).empty());
  auto* const page = new QWidget(&window);
  page->hide();
  auto* const nameless = new QLineEdit(page);
  nameless->setObjectName("txtNameless");
  EXPECT_EQ(NamingFaults(window), std::vector<std::string>{"txtNameless has no accessible name"});
  QLabel label("Density", page);
  label.setBuddy(nameless);
  EXPECT_EQ(NamingFaults(window),
            std::vector<std::string>{"txtNameless and txtNamed are both called Density"});
  label.setText("Velocity");
  EXPECT_TRUE(NamingFaults(window).empty());
  new QPushButton("OK", page);
  EXPECT_EQ(NamingFaults(window), std::vector<std::string>{"QPushButton has no objectName"});
}

TEST_F(Accessibility, GraphTellsItsTitleItsAxesAndWhatTheCursorReads) {
  StartWithDesign();
  EXPECT_EQ(Told("Picture1", QAccessible::Name), "Graph");
  const std::string axes = Told("Picture1", QAccessible::Description);
  EXPECT_EQ(axes,
            "Electrical Input Impedance. Frequency in MHz from 1.000 to 9.000. Left axis Z "
            "in " +
                scale.LeftPrefix + "Ohms from 0.000 to " + scale.LeftMaxText +
                ". Right axis Theta in Degrees from -90.000 to 90.000.");
  Click("Cursor1");
  EXPECT_TRUE(Told("Picture1", QAccessible::Description).ends_with(" Degrees at 5.000 MHz."));
  EXPECT_TRUE(Told("HScroll1", QAccessible::Description).ends_with(" Degrees at 5.000 MHz"));
  QTest::keyClick(Find<QWidget>("HScroll1"), Qt::Key_End);
  EXPECT_TRUE(Told("Picture1", QAccessible::Description).ends_with(" Degrees at 9.000 MHz."));
  EXPECT_TRUE(Told("HScroll1", QAccessible::Description).ends_with(" Degrees at 9.000 MHz"));
  Click("Cursor1");
  EXPECT_EQ(Told("Picture1", QAccessible::Description), axes);
  EXPECT_EQ(Told("HScroll1", QAccessible::Description), "");
}

TEST_F(Accessibility, GraphFollowsThePlotAndTellsThatThereIsNone) {
  StartWithDesign();
  ClickMenu("mnuView2WayItem(2)");
  EXPECT_TRUE(Told("Picture1", QAccessible::Description)
                  .starts_with("Pulse-Echo (Two-way) Impulse Response - V(Rx)/V(Tx). Time in "));
  ClickMenu("mnuFileItem(0)");
  EXPECT_EQ(Told("Picture1", QAccessible::Description), "No plot");
}

}  // namespace
}  // namespace halvorne::testing
