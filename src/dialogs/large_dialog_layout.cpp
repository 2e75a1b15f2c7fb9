#include "dialogs/large_dialog_layout.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace halvorne {

QPushButton* MakePageButton(int index) {
  static constexpr std::array captions = {"Thickness", "Material", "Dispersion"};
  const QString caption = QString::fromLatin1(captions.at(static_cast<std::size_t>(index)));
  auto* const button = new QPushButton(caption);
  const QKeySequence key(QStringLiteral("Alt+") + caption.front());
  button->setShortcut(key);
  button->setToolTip(caption + QStringLiteral(" (") + key.toString(QKeySequence::NativeText) +
                     u')');
  return button;
}

LargePage MakeLargePage(const char* name, const QString& title) {
  auto* const frame = new QFrame;
  frame->setObjectName(QString::fromLatin1(name));
  auto* const outer = new QVBoxLayout(frame);
  outer->setContentsMargins(0, 0, 0, 0);
  auto* const group = new QGroupBox(title);
  outer->addWidget(group);
  return {frame, new QVBoxLayout(group)};
}

void LayOutLargeDialog(QDialog* dialog, std::span<QPushButton* const, 3> buttons,
                       const std::array<QFrame*, 3>& frames, FramePages& pages, QPushButton* ok,
                       QPushButton* cancel) {
  auto* const outer = new QVBoxLayout(dialog);
  auto* const row = new QHBoxLayout;
  auto* const place = new QGridLayout;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    row->addWidget(buttons[i]);
    place->addWidget(frames.at(i), 0, 0);
    pages.Add(buttons[i], frames.at(i));
  }
  outer->addLayout(row);
  outer->addLayout(place);
  pages.Show(0);  // one at a time even where loading fails
  ok->setDefault(true);
  auto* const closing = new QHBoxLayout;
  closing->addStretch();
  closing->addWidget(ok);
  closing->addWidget(cancel);
  outer->addLayout(closing);
}

void LayOutMaterialPage(QVBoxLayout* page, QWidget* layers, QGridLayout* fields, QWidget* derived,
                        QPushButton* browser) {
  auto* const columns = new QHBoxLayout;
  columns->setSpacing(18);
  fields->setHorizontalSpacing(8);
  fields->setVerticalSpacing(6);
  auto* const left = new QVBoxLayout;
  left->setSpacing(10);
  left->addWidget(layers);
  left->addLayout(fields);
  left->addStretch();
  columns->addLayout(left, 1);
  auto* const right = new QVBoxLayout;
  right->setSpacing(10);
  right->addWidget(derived);
  right->addWidget(browser, 0, Qt::AlignLeft);
  right->addStretch();
  columns->addLayout(right);
  page->addLayout(columns);
}

QGroupBox* OptionsFrame(const QString& caption, QRadioButton* const (&options)[2]) {
  auto* const frame = new QGroupBox(caption);
  auto* const row = new QHBoxLayout(frame);
  row->setSpacing(20);
  for (QRadioButton* option : options) {
    row->addWidget(option);
  }
  row->addStretch();
  return frame;
}

void LeadTabThrough(std::span<QWidget* const> order) {
  for (std::size_t i = 1; i < order.size(); ++i) {
    QWidget::setTabOrder(order[i - 1], order[i]);
  }
}

}  // namespace halvorne
