#include "report/windows/frm_input_list.h"

#include <QScreen>
#include <QTextDocument>
#include <QTextOption>

#include "persistence/setup_state.h"
#include "report/text_exports.h"
#include "report/windows/details_frame.h"

namespace halvorne {
namespace {

constexpr double kTwipsPerPixel = 15;
constexpr int kMargin = 8;
/// What the text leaves of the window, pixels.
constexpr int kBelowText = qRound(1290 / kTwipsPerPixel);
constexpr int kBesideText = qRound(345 / kTwipsPerPixel);
/// Share of the screen that the window takes at first.
constexpr double kShare = 0.65;
constexpr QSize kSmallest(400, 300);

}  // namespace

frmInputList::frmInputList(QWidget* parent)
    : ModalDialog("frmInputList", QStringLiteral("Halvorne Input Parameters"), parent) {
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setMinimumSize(kSmallest);
  txtInputList = Named(new QPlainTextEdit(this), "txtInputList");
  txtInputList->setReadOnly(true);
  txtInputList->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  txtInputList->setTabChangesFocus(true);
  txtInputList->setLineWrapMode(QPlainTextEdit::NoWrap);
  txtInputList->setAccessibleName(QStringLiteral("Inputs of the design"));
  SetTabStops();
  fraDetails = Named(new QGroupBox(QStringLiteral("Details"), this), "fraDetails");
  FillDetailsFrame(fraDetails, Qt::Horizontal, optDetails);
  for (int i = 0; i < 2; ++i) {
    OnChoice(optDetails[i], &frmInputList::optDetails_Click, i);
  }
  cmdInputListOK = Named(new QPushButton(QStringLiteral("OK"), this), "cmdInputListOK");
  cmdInputListOK->setDefault(true);
  connect(cmdInputListOK, &QPushButton::clicked, this, &frmInputList::cmdInputListOK_Click);
  Form_Load();
  txtInputList->setFocus();
}

/// Columns that the labels, the names and the values of both tables fit into.
void frmInputList::SetTabStops() {
  const QFontMetricsF letters(txtInputList->font());
  const double label = letters.horizontalAdvance(QStringLiteral("Clamped dielectric const.   "));
  const double name = letters.horizontalAdvance(QStringLiteral("Matching layer 1, 8.92 MRayl   "));
  const double value = letters.horizontalAdvance(QStringLiteral("Lambdas   "));
  QList<QTextOption::Tab> stops;
  double x = 0;
  for (const double column :
       {label, name, name, value, value, value, value, value, value, value, value, value}) {
    x += column;
    stops.append(QTextOption::Tab(x, QTextOption::LeftTab));
  }
  QTextOption option = txtInputList->document()->defaultTextOption();
  option.setTabs(stops);
  txtInputList->document()->setDefaultTextOption(option);
}

void frmInputList::Centre() {
  const QRect area = screen()->geometry();
  resize((QSizeF(area.size()) * kShare).toSize().expandedTo(kSmallest));
  move(area.x() + (area.width() - width()) / 2, area.y() + (area.height() - height()) / 2);
}

void frmInputList::Form_Load() try {
  Centre();
  ChosenDetails(optDetails)->setChecked(true);  // fills the text
} catch (...) {
  ReportFailure("Form_Load", "frmInputList");
}

void frmInputList::resizeEvent(QResizeEvent* event) {
  ModalDialog::resizeEvent(event);
  Form_Resize();
}

void frmInputList::Form_Resize() try {
  const QSize text(width() - kBesideText, height() - kBelowText);
  txtInputList->setGeometry((width() - text.width()) / 2, kMargin, text.width(), text.height());
  const QRect below(txtInputList->x(), txtInputList->geometry().bottom() + kMargin, text.width(),
                    height() - txtInputList->geometry().bottom() - 2 * kMargin);
  fraDetails->setGeometry(QRect(below.topLeft(), fraDetails->sizeHint()).intersected(below));
  const QSize button = cmdInputListOK->sizeHint();
  cmdInputListOK->setGeometry(
      QRect(QPoint(below.right() + 1 - button.width(), below.center().y() - button.height() / 2),
            button));
} catch (...) {
  ReportFailure("Form_Resize", "frmInputList");
}

void frmInputList::optDetails_Click(int index) try {
  ChooseDetails(index);
  std::string text;
  ParasToClipboard(text, setup.ReportDetails);
  txtInputList->setPlainText(ToQString(text));
} catch (...) {
  ReportFailure("optDetails_Click", "frmInputList");
}

void frmInputList::cmdInputListOK_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdInputListOK_Click", "frmInputList");
}

}  // namespace halvorne
