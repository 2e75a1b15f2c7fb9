#include "platform/qt/help_browser.h"

#include <QEvent>
#include <QTextCursor>

namespace halvorne {
namespace {

constexpr int kMargin = 16;  // pixels around a page
/// Difference in grey from which on a link is easy to read on its ground.
constexpr int kReadable = 90;

/// Words of the style sheet that stand for colours, so that pages follow light and dark desktops.
QString WithColours(QString sheet, const QPalette& palette) {
  const QColor ground = palette.color(QPalette::Base);
  const QColor ink = palette.color(QPalette::Text);
  const auto mixed = [&](double share) {
    const auto mix = [&](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(mix(ground.red(), ink.red()), mix(ground.green(), ink.green()),
                  mix(ground.blue(), ink.blue()))
        .name();
  };
  sheet.replace(QStringLiteral("$ink"), ink.name());
  sheet.replace(QStringLiteral("$faint"), mixed(0.62));
  sheet.replace(QStringLiteral("$line"), mixed(0.28));
  sheet.replace(QStringLiteral("$shade"), mixed(0.07));
  QColor link = palette.color(QPalette::Link);
  // A dark desktop may keep the blue that is meant for white paper.
  if (std::abs(qGray(link.rgb()) - qGray(ground.rgb())) < kReadable) {
    link = QColor(0x7a, 0xb8, 0xff);
  }
  sheet.replace(QStringLiteral("$link"), link.name());
  return sheet;
}

}  // namespace

HelpBrowser::HelpBrowser(const HelpCollection& collection) : collection_(collection) {
  document()->setDocumentMargin(kMargin);
  SetStyle();
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
  const QByteArray bytes = collection_.FileAt(source().resolved(name));
  if (type == QTextDocument::ImageResource) {
    return bytes;
  }
  return bytes.isEmpty() ? QStringLiteral("<p>This page is missing.</p>")
                         : QString::fromUtf8(bytes);
}

void HelpBrowser::SetStyle() {
  const QUrl sheet = collection_.ContentsPage().resolved(QUrl(QStringLiteral("help.css")));
  document()->setDefaultStyleSheet(
      WithColours(QString::fromUtf8(collection_.FileAt(sheet)), palette()));
}

void HelpBrowser::Mark(const QStringList& words) {
  QList<ExtraSelection> marks;
  for (const QString& word : words) {
    for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at)) {
      ExtraSelection mark;
      mark.cursor = at;
      mark.format.setBackground(palette().highlight());
      mark.format.setForeground(palette().highlightedText());
      marks.append(mark);
    }
  }
  setExtraSelections(marks);
  if (!marks.isEmpty()) {
    const auto first = std::min_element(
        marks.begin(), marks.end(),
        [](const auto& a, const auto& b) { return a.cursor.position() < b.cursor.position(); });
    QTextCursor start = first->cursor;
    start.clearSelection();
    setTextCursor(start);
  }
}

void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && source().isValid()) {
    SetStyle();
    reload();
  }
}

}  // namespace halvorne
