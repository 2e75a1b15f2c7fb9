#include "platform/qt/help_viewer.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <system_error>

#include "platform/paths.h"
#include "platform/qt/text.h"

namespace halvorne {
namespace {

/// Place of a topic's page in the items of both lists.
constexpr int kPageRole = Qt::UserRole;

QString ReadText(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// A window with the list of topics and the search on its left and the page on its right.
class HelpWindow final : public QSplitter {
 public:
  explicit HelpWindow(const QString& contents);

  void ShowContents();
  void ShowSearch(const QString& key);

 private:
  void LoadContents(const QString& contents);
  void ShowPage(const QListWidgetItem* item);
  void Search();

  QTabWidget* pages_ = new QTabWidget;
  QListWidget* topics_ = new QListWidget;
  QLineEdit* key_ = new QLineEdit;
  QListWidget* found_ = new QListWidget;
  QTextBrowser* text_ = new QTextBrowser;
};

HelpWindow::HelpWindow(const QString& contents) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(QStringLiteral("Halvorne Help"));
  topics_->setObjectName(QStringLiteral("lstHelpContents"));
  key_->setObjectName(QStringLiteral("txtHelpKey"));
  key_->setPlaceholderText(QStringLiteral("Words to search for"));
  key_->setClearButtonEnabled(true);
  found_->setObjectName(QStringLiteral("lstHelpFound"));
  text_->setObjectName(QStringLiteral("txtHelp"));
  text_->document()->setDocumentMargin(14);

  auto* const search = new QWidget;
  auto* const column = new QVBoxLayout(search);
  column->addWidget(key_);
  column->addWidget(found_);
  pages_->addTab(topics_, QStringLiteral("&Contents"));
  pages_->addTab(search, QStringLiteral("&Search"));
  addWidget(pages_);
  addWidget(text_);
  setStretchFactor(1, 1);
  setSizes({230, 530});

  for (QListWidget* list : {topics_, found_}) {
    connect(list, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* item) { ShowPage(item); });
  }
  connect(key_, &QLineEdit::textChanged, this, [this] { Search(); });
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
          &QWidget::close);
  LoadContents(contents);
  resize(QSize(760, 520).boundedTo(screen()->availableSize()));
}

void HelpWindow::LoadContents(const QString& contents) {
  const QString folder = QFileInfo(contents).absolutePath();
  const QStringList lines = ReadText(contents).split(u'\n', Qt::SkipEmptyParts);
  for (const QString& line : lines) {
    auto* const item = new QListWidgetItem(line.section(u'|', 1).trimmed(), topics_);
    item->setData(kPageRole, QString(folder + u'/' + line.section(u'|', 0, 0).trimmed()));
  }
  if (topics_->count() == 0) {
    text_->setPlainText(QStringLiteral("The help collection is missing."));
  }
}

void HelpWindow::ShowPage(const QListWidgetItem* item) {
  if (item == nullptr) {
    return;
  }
  text_->setSource(QUrl::fromLocalFile(item->data(kPageRole).toString()));
  if (item->listWidget() == found_) {
    text_->find(key_->text().section(u' ', 0, 0, QString::SectionSkipEmpty));
  }
}

void HelpWindow::Search() {
  found_->clear();
  const QStringList words = key_->text().split(u' ', Qt::SkipEmptyParts);
  for (int row = 0; row < topics_->count() && !words.isEmpty(); ++row) {
    const QListWidgetItem* const topic = topics_->item(row);
    QTextDocument page;
    page.setHtml(ReadText(topic->data(kPageRole).toString()));
    const QString text = page.toPlainText();
    const bool holdsAll = std::all_of(words.begin(), words.end(), [&](const QString& word) {
      return text.contains(word, Qt::CaseInsensitive);
    });
    if (holdsAll) {
      found_->addItem(topic->clone());
    }
  }
  found_->setCurrentRow(0);
}

void HelpWindow::ShowContents() {
  pages_->setCurrentIndex(0);
  if (topics_->currentRow() < 0) {
    topics_->setCurrentRow(0);
  }
  topics_->setFocus();
}

void HelpWindow::ShowSearch(const QString& key) {
  pages_->setCurrentIndex(1);
  key_->setText(key);
  key_->setFocus();
}

}  // namespace

bool HelpViewerInstalled() {
  std::error_code none;
  return std::filesystem::exists(ProgramPath("\\HALVORNE.HLP"), none) &&
         std::filesystem::is_directory(ProgramPath("\\help"), none);
}

void ShowHelpWindow(const std::string& contents, bool search, const std::string& key) {
  static QPointer<HelpWindow> window;
  if (window == nullptr) {
    window = new HelpWindow(QFile::decodeName(QByteArray::fromStdString(contents)));
  }
  window->show();
  window->raise();
  window->activateWindow();
  if (search) {
    window->ShowSearch(ToQString(key));
  } else {
    window->ShowContents();
  }
}

}  // namespace halvorne
