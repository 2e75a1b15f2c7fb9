#include "platform/qt/help_window.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHelpContentModel>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

namespace halvorne {
namespace {

/// Place of a page in the items of the list of what was found.
constexpr int kPageRole = Qt::UserRole;
/// More hits than anybody reads.
constexpr int kMostHits = 100;

QStringList WordsOf(const QString& text) {
  return text.split(u' ', Qt::SkipEmptyParts);
}

/// The words as the search takes them: each quoted, so that no character of it has a meaning of its
/// own, and as the begin of a word, so that typing narrows what was found.
QString QueryOf(const QString& text) {
  QStringList query;
  for (QString word : WordsOf(text)) {
    query.append(u'"' + word.remove(u'"') + QStringLiteral("\"*"));
  }
  return query.join(u' ');
}

/// A button and its key, which acts at once where a button's own would show it going down first.
QToolButton* MakeTool(const char* name, const QString& text, QStyle::StandardPixmap icon,
                      const QKeySequence& key, QWidget* window) {
  auto* const button = new QToolButton;
  QObject::connect(new QShortcut(key, window), &QShortcut::activated, button,
                   [button] { button->click(); });
  button->setObjectName(QLatin1String(name));
  button->setText(text);
  button->setIcon(button->style()->standardIcon(icon));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip(text + QStringLiteral(" (") + key.toString(QKeySequence::NativeText) + u')');
  return button;
}

}  // namespace

HelpWindow::HelpWindow(const QString& file)
    : collection_(file),
      contents_(collection_.Engine().contentWidget()),
      index_(collection_.Engine().indexWidget()) {
  setAttribute(Qt::WA_DeleteOnClose);
  setObjectName(QStringLiteral("frmHelp"));
  setWindowTitle(QStringLiteral("Halvorne Help"));
  contents_->setObjectName(QStringLiteral("lstHelpContents"));
  contents_->setAccessibleName(QStringLiteral("Contents"));
  text_->setObjectName(QStringLiteral("txtHelp"));
  text_->setAccessibleName(QStringLiteral("Page"));

  pages_->setObjectName(QStringLiteral("tabHelp"));
  pages_->addTab(contents_, QStringLiteral("&Contents"));
  pages_->addTab(MakeIndexPage(), QStringLiteral("&Index"));
  pages_->addTab(MakeSearchPage(), QStringLiteral("&Search"));
  auto* const halves = new QSplitter;
  halves->addWidget(pages_);
  halves->addWidget(text_);
  halves->setStretchFactor(1, 1);
  halves->setSizes({270, 680});
  halves->setChildrenCollapsible(false);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(6, 4, 6, 6);
  column->setSpacing(4);
  column->addWidget(MakeTools());
  column->addWidget(halves, 1);

  ConnectContents();
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this,
          &QWidget::close);
  if (!collection_.IsOpen()) {
    text_->setPlainText(QStringLiteral("The help file is missing or damaged."));
  }
  resize(QSize(950, 640).boundedTo(screen()->availableSize()));
}

/// The views go before the collection that they show.
HelpWindow::~HelpWindow() {
  // Events run while the search settles: a window that was closed just now must not end twice.
  QCoreApplication::removePostedEvents(this, QEvent::DeferredDelete);
  collection_.Settle();
  collection_.Engine().searchEngine()->disconnect(this);
  collection_.Engine().contentModel()->disconnect(this);
  qDeleteAll(findChildren<QWidget*>(Qt::FindDirectChildrenOnly));
}

QWidget* HelpWindow::MakeTools() {
  auto* const tools = new QWidget;
  auto* const row = new QHBoxLayout(tools);
  row->setContentsMargins(0, 0, 0, 0);
  back_ = MakeTool("cmdHelpBack", QStringLiteral("Back"), QStyle::SP_ArrowBack,
                   QKeySequence(Qt::ALT | Qt::Key_Left), this);
  forward_ = MakeTool("cmdHelpForward", QStringLiteral("Forward"), QStyle::SP_ArrowForward,
                      QKeySequence(Qt::ALT | Qt::Key_Right), this);
  home_ = MakeTool("cmdHelpHome", QStringLiteral("Contents"), QStyle::SP_DirHomeIcon,
                   QKeySequence(Qt::ALT | Qt::Key_Home), this);
  for (QToolButton* tool : {back_, forward_, home_}) {
    row->addWidget(tool);
  }
  row->addStretch(1);
  back_->setEnabled(false);
  forward_->setEnabled(false);
  connect(back_, &QToolButton::clicked, text_, &QTextBrowser::backward);
  connect(forward_, &QToolButton::clicked, text_, &QTextBrowser::forward);
  connect(home_, &QToolButton::clicked, this, [this] { ShowPage(collection_.ContentsPage()); });
  connect(text_, &QTextBrowser::backwardAvailable, back_, &QWidget::setEnabled);
  connect(text_, &QTextBrowser::forwardAvailable, forward_, &QWidget::setEnabled);
  return tools;
}

QWidget* HelpWindow::MakeIndexPage() {
  indexKey_->setObjectName(QStringLiteral("txtHelpIndex"));
  indexKey_->setPlaceholderText(QStringLiteral("Word of the index"));
  indexKey_->setClearButtonEnabled(true);
  indexKey_->installEventFilter(this);
  index_->setObjectName(QStringLiteral("lstHelpIndex"));
  index_->setAccessibleName(QStringLiteral("Index"));
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  column->addWidget(indexKey_);
  column->addWidget(index_);
  connect(indexKey_, &QLineEdit::textChanged, index_,
          [this](const QString& text) { index_->filterIndices(text); });
  connect(indexKey_, &QLineEdit::returnPressed, index_, &QHelpIndexWidget::activateCurrentItem);
  connect(index_, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& document) { ShowPage(document.url); });
  connect(index_, &QHelpIndexWidget::documentsActivated, this,
          [this](const QList<QHelpLink>& documents) { ShowDocuments(documents); });
  return page;
}

QWidget* HelpWindow::MakeSearchPage() {
  key_->setObjectName(QStringLiteral("txtHelpKey"));
  key_->setPlaceholderText(QStringLiteral("Words to search for"));
  key_->setClearButtonEnabled(true);
  key_->installEventFilter(this);
  found_->setObjectName(QStringLiteral("lstHelpFound"));
  found_->setAccessibleName(QStringLiteral("Pages found"));
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  column->addWidget(key_);
  column->addWidget(found_);
  QHelpSearchEngine* const engine = collection_.Engine().searchEngine();
  connect(key_, &QLineEdit::textChanged, this, [this] { Search(); });
  connect(engine, &QHelpSearchEngine::searchingFinished, this, [this] { ShowFound(); });
  connect(found_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
    if (item != nullptr) {
      ShowPage(item->data(kPageRole).toUrl());
      text_->Mark(WordsOf(key_->text()));
    }
  });
  return page;
}

void HelpWindow::ConnectContents() {
  contents_->setHeaderHidden(true);
  const QHelpContentModel* const model = collection_.Engine().contentModel();
  connect(model, &QHelpContentModel::contentsCreated, this, [this] {
    contents_->expandToDepth(0);
    SelectInContents(text_->source());
  });
  connect(contents_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this, model](const QModelIndex& current) {
            const QHelpContentItem* const item = model->contentItemAt(current);
            if (item != nullptr && item->url() != text_->source().adjusted(QUrl::RemoveFragment)) {
              ShowPage(item->url());
            }
          });
  // The browser's own source is still the page before.
  connect(text_, &QTextBrowser::sourceChanged, this,
          [this](const QUrl& page) { SelectInContents(page); });
}

void HelpWindow::SelectInContents(const QUrl& page) {
  shown_ = page.adjusted(QUrl::RemoveFragment);
  const QModelIndex place = page.isEmpty() ? QModelIndex() : contents_->indexOf(shown_);
  if (place.isValid() && place != contents_->currentIndex()) {
    contents_->setCurrentIndex(place);
    contents_->scrollTo(place);
  }
}

void HelpWindow::ShowPage(const QUrl& page) {
  if (page.isValid()) {
    text_->setSource(page);
  }
}

/// A word of the index with several places: the user chooses, unless all are the same place, named
/// by a window and the commands that lead to it.
void HelpWindow::ShowDocuments(const QList<QHelpLink>& documents) {
  auto* const choice = new QMenu(this);
  choice->setObjectName(QStringLiteral("mnuHelpPages"));
  choice->setAttribute(Qt::WA_DeleteOnClose);
  QList<QUrl> offered;
  for (const QHelpLink& document : documents) {
    if (!offered.contains(document.url)) {
      offered.append(document.url);
      choice->addAction(document.title, this, [this, page = document.url] { ShowPage(page); });
    }
  }
  if (offered.size() == 1) {
    delete choice;
    ShowPage(offered.constFirst());
    return;
  }
  const QRect word = index_->visualRect(index_->currentIndex());
  choice->popup(index_->viewport()->mapToGlobal(word.bottomLeft()));
}

void HelpWindow::Search() {
  if (WordsOf(key_->text()).isEmpty()) {
    found_->clear();
    return;
  }
  collection_.Search(QueryOf(key_->text()));
}

void HelpWindow::ShowFound() {
  const QHelpSearchEngine* const engine = collection_.Engine().searchEngine();
  if (engine->searchInput() != QueryOf(key_->text())) {
    return;  // the answer to what stood there before
  }
  found_->clear();
  for (const QHelpSearchResult& hit : engine->searchResults(0, kMostHits)) {
    auto* const item = new QListWidgetItem(hit.title(), found_);
    item->setData(kPageRole, hit.url());
  }
  found_->setCurrentRow(0);
}

void HelpWindow::ShowContents() {
  pages_->setCurrentWidget(contents_);
  ShowPage(collection_.ContentsPage());
  contents_->setFocus();
}

void HelpWindow::ShowSearch(const QString& key) {
  pages_->setCurrentIndex(2);
  key_->setText(key);
  key_->setFocus();
}

void HelpWindow::ShowTopic(const QString& name) {
  const QUrl topic = collection_.TopicOf(name);
  pages_->setCurrentWidget(contents_);
  ShowPage(topic.isValid() ? topic : collection_.ContentsPage());
  text_->setFocus();
}

/// Leads the arrow keys of a line of words to the list beneath it.
bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown) {
      QAbstractItemView* const list =
          watched == key_ ? static_cast<QAbstractItemView*>(found_) : index_;
      QCoreApplication::sendEvent(list, event);
      return true;
    }
  }
  return QWidget::eventFilter(watched, event);
}

bool HelpWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowBlocked) {
    // Not within the event: the toolkit is still telling every window.
    QTimer::singleShot(0, this, [this] { StandBesideModalWindow(); });
  }
  return QWidget::event(event);
}

void HelpWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  StandBesideModalWindow();
}

/// A window that belongs to the modal one in front of all others is not blocked by it.
void HelpWindow::StandBesideModalWindow() {
  QWindow* const own = windowHandle();
  QWindow* const modal = QGuiApplication::modalWindow();
  if (own == nullptr || modal == own->transientParent()) {
    return;
  }
  own->setTransientParent(modal);
  if (modal != nullptr) {
    connect(modal, &QWindow::visibleChanged, this, [this](bool visible) {
      if (!visible) {
        windowHandle()->setTransientParent(nullptr);
        StandBesideModalWindow();
      }
    });
  }
}

}  // namespace halvorne
