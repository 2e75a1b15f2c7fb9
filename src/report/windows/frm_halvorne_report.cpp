#include "report/windows/frm_halvorne_report.h"

#include <QKeyEvent>
#include <QScreen>
#include <algorithm>

#include "report/windows/details_frame.h"
#include "report/windows/print_command.h"

namespace halvorne {
namespace {

constexpr double kTwipsPerPixel = 15;
constexpr int kGap = 8;
constexpr double kKeyStep = 1.25;

int Pixels(double twips) {
  return qRound(twips / kTwipsPerPixel);
}

/// Size of the picture in a window of that height, pixels.
QSize PictureSize(int windowHeight) {
  const double height = windowHeight * kTwipsPerPixel - 600;
  return {Pixels(height * 4695 / 6735), Pixels(height)};
}

}  // namespace

frmHalvorneReport::frmHalvorneReport(CommonDialog& printDialog, QWidget* parent)
    : ModalDialog("frmHalvorneReport", QStringLiteral("Halvorne Report:  Print Preview"), parent),
      printDialog_(printDialog) {
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  Picture1 = Named(new PreviewPicture(this), "Picture1");
  cmdPreviewPrint = Named(new QPushButton(QStringLiteral("Print"), this), "cmdPreviewPrint");
  cmdPreviewPrint->setDefault(true);
  cmdPreviewCancel = Named(new QPushButton(QStringLiteral("Cancel"), this), "cmdPreviewCancel");
  fraDetails = Named(new QGroupBox(QStringLiteral("Details"), this), "fraDetails");
  FillDetailsFrame(fraDetails, Qt::Vertical, optDetails);
  for (int i = 0; i < 2; ++i) {
    OnChoice(optDetails[i], &frmHalvorneReport::optDetails_Click, i);
  }
  cmdPreviewPrevious = PageButton("cmdPreviewPrevious", Qt::UpArrow, "Previous page (Page Up)");
  cmdPreviewNext = PageButton("cmdPreviewNext", Qt::DownArrow, "Next page (Page Down)");
  lblPreviewPage = Named(new QLabel(this), "lblPreviewPage");
  connect(cmdPreviewPrint, &QPushButton::clicked, this, &frmHalvorneReport::cmdPreviewPrint_Click);
  connect(cmdPreviewCancel, &QPushButton::clicked, this,
          &frmHalvorneReport::cmdPreviewCancel_Click);
  connect(cmdPreviewPrevious, &QToolButton::clicked, this,
          [this] { Picture1->ShowPage(Picture1->Page() - 1); });
  connect(cmdPreviewNext, &QToolButton::clicked, this,
          [this] { Picture1->ShowPage(Picture1->Page() + 1); });
  Picture1->SetPageListener([this] { ShowPageButtons(); });
  Form_Load();
  cmdPreviewPrint->setFocus();
}

QToolButton* frmHalvorneReport::PageButton(const char* name, Qt::ArrowType arrow, const char* tip) {
  auto* const button = Named(new QToolButton(this), name);
  button->setArrowType(arrow);
  button->setToolTip(QLatin1String(tip));
  button->setAccessibleName(button->toolTip());
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

void frmHalvorneReport::Form_Load() try {
  Centre();
  PlaceControls();
  ChosenDetails(optDetails)->setChecked(true);
} catch (...) {
  ReportFailure("Form_Load", "frmHalvorneReport");
}

QSize frmHalvorneReport::SizeOnScreen() const {
  const QSize area = screen()->geometry().size();
  const int height = qRound(0.815 * area.height());
  // On a narrow screen the buttons beside the centred picture would lie outside.
  const int beside = Pixels(225 - 120) + fraDetails->sizeHint().width() + kGap;
  const int needed = PictureSize(height).width() + 2 * beside;
  return {std::max(qRound(0.511 * area.width()), std::min(needed, area.width())), height};
}

void frmHalvorneReport::Centre() {
  const QRect area = screen()->geometry();
  resize(SizeOnScreen());
  move(area.x() + (area.width() - width()) / 2, area.y() + (area.height() - height()) / 2);
}

void frmHalvorneReport::resizeEvent(QResizeEvent* event) {
  ModalDialog::resizeEvent(event);
  Form_Resize();
}

void frmHalvorneReport::Form_Resize() try {
  const bool normal = !isMaximized() && !isFullScreen();
  if (normal && size() != SizeOnScreen() && asksLeft_ > 0) {
    --asksLeft_;
    Centre();
    return;
  }
  PlaceControls();
  Picture1->Draw();
} catch (...) {
  ReportFailure("Form_Resize", "frmHalvorneReport");
}

void frmHalvorneReport::PlaceControls() {
  const QSize picture = PictureSize(height());
  Picture1->setGeometry((width() - picture.width()) / 2, Pixels(120), picture.width(),
                        picture.height());
  const int left = Picture1->x() + Picture1->width() + Pixels(225);
  const int buttonWidth =
      std::max(cmdPreviewPrint->sizeHint().width(), cmdPreviewCancel->sizeHint().width());
  const int buttonHeight = cmdPreviewPrint->sizeHint().height();
  cmdPreviewPrint->setGeometry(left, Picture1->y(), buttonWidth, buttonHeight);
  cmdPreviewCancel->setGeometry(left, cmdPreviewPrint->geometry().bottom() + kGap, buttonWidth,
                                buttonHeight);
  fraDetails->setGeometry(
      QRect(QPoint(left - Pixels(120), cmdPreviewCancel->geometry().bottom() + 2 * kGap),
            fraDetails->sizeHint()));
  const QSize arrow = cmdPreviewNext->sizeHint();
  const int row = fraDetails->geometry().bottom() + 2 * kGap;
  cmdPreviewPrevious->setGeometry(QRect(QPoint(left, row), arrow));
  cmdPreviewNext->setGeometry(QRect(QPoint(left + arrow.width() + kGap, row), arrow));
  lblPreviewPage->setGeometry(left, row + arrow.height() + kGap / 2, buttonWidth,
                              lblPreviewPage->sizeHint().height());
}

void frmHalvorneReport::ShowPageButtons() {
  const int page = Picture1->Page();
  const int pages = Picture1->Pages();
  cmdPreviewPrevious->setVisible(pages > 1);
  cmdPreviewNext->setVisible(pages > 1);
  cmdPreviewPrevious->setEnabled(page > 1);
  cmdPreviewNext->setEnabled(page < pages);
  lblPreviewPage->setVisible(pages > 1);
  lblPreviewPage->setText(QStringLiteral("Page %1 of %2").arg(page).arg(pages));
}

void frmHalvorneReport::keyPressEvent(QKeyEvent* event) {
  const bool control = event->modifiers().testFlag(Qt::ControlModifier);
  const QPoint middle = Picture1->rect().center();
  if (event->key() == Qt::Key_PageDown) {
    Picture1->ShowPage(Picture1->Page() + 1);
  } else if (event->key() == Qt::Key_PageUp) {
    Picture1->ShowPage(Picture1->Page() - 1);
  } else if (control && (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)) {
    Picture1->Enlarge(kKeyStep, middle);
  } else if (control && event->key() == Qt::Key_Minus) {
    Picture1->Enlarge(1 / kKeyStep, middle);
  } else {
    ModalDialog::keyPressEvent(event);
  }
}

void frmHalvorneReport::optDetails_Click(int index) try {
  ChooseDetails(index);
  Picture1->Draw();
} catch (...) {
  ReportFailure("optDetails_Click", "frmHalvorneReport");
}

void frmHalvorneReport::cmdPreviewPrint_Click() try {
  PrintReport(printDialog_, this);
} catch (...) {
  ReportFailure("cmdPreviewPrint_Click", "frmHalvorneReport");
}

void frmHalvorneReport::cmdPreviewCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdPreviewCancel_Click", "frmHalvorneReport");
}

}  // namespace halvorne
