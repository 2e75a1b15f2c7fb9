#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "dialogs/entry_layout.h"
#include "dialogs/frm_excite.h"
#include "engine/design_model.h"
#include "platform/qt/eliding_label.h"
#include "platform/qt/picture_box.h"
#include "timedomain/view.h"

// Where the controls of frmExcite stand.

namespace halvorne {
namespace {

constexpr QSize kPreviewSize(440, 130);

QLabel* Words(const char* text) {
  return new QLabel(QString::fromLatin1(text));
}

}  // namespace

frmExcite::frmExcite(QWidget* parent)
    : ModalDialog("frmExcite", QStringLiteral("Excitation Waveforms"), parent) {
  auto* const outer = new QVBoxLayout(this);
  outer->setSizeConstraint(QLayout::SetFixedSize);  // the preview is drawn once for its size
  outer->addWidget(MakeSources());
  auto* const place = new QGridLayout;
  place->addWidget(MakeToneBurst(), 0, 0);
  MakeFileParameters();
  place->addWidget(filePage, 0, 0);
  outer->addLayout(place);
  outer->addWidget(MakePreview());
  cmdExciteOK = Named(new QPushButton(QStringLiteral("OK")), "cmdExciteOK");
  cmdExciteCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdExciteCancel");
  outer->addLayout(ClosingRow(cmdExciteOK, cmdExciteCancel));
  for (QWidget* control :
       {static_cast<QWidget*>(fraToneBurst), filePage, static_cast<QWidget*>(lblXPreview)}) {
    KeepPlaceWhenHidden(control);
    control->hide();
  }
  ConnectEvents();
  Form_Load();
  for (QRadioButton* option : optXwfmSource) {
    if (option->isChecked()) {
      option->setFocus();
    }
  }
}

QGroupBox* frmExcite::MakeSources() {
  const char* const captions[] = {"None - Use impulse", "Calculated tone burst", "Data file"};
  auto* const frame = new QGroupBox(QStringLiteral("Waveform"));
  auto* const row = new QHBoxLayout(frame);
  for (int i = 0; i < 3; ++i) {
    optXwfmSource[i] =
        Named(new QRadioButton(QString::fromLatin1(captions[i])), "optXwfmSource", i);
    row->addWidget(optXwfmSource[i]);
  }
  return frame;
}

QGroupBox* frmExcite::MakeToneBurst() {
  fraToneBurst = Named(new QGroupBox(QStringLiteral("Tone burst")), "fraToneBurst");
  auto* const columns = new QHBoxLayout(fraToneBurst);
  auto* const grid = new QGridLayout;
  txtExciteFreq = Named(new QLineEdit, "txtExciteFreq");
  txtExciteCycles = Named(new QLineEdit, "txtExciteCycles");
  txtExciteDelay = Named(new QLineEdit, "txtExciteDelay");
  txtExcitePhase = Named(new QLineEdit, "txtExcitePhase");
  txtExcitePoints = Named(new QLineEdit, "txtExcitePoints");
  auto* const freqUnit = Named(new QLabel(ToQString(design.FreqUnit)), "lblExciteFreqUnit");
  lblExciteTimeUnit = Named(new QLabel, "lblExciteTimeUnit");
  AddEntryRow(grid, 0, Words("Frequency"), txtExciteFreq, freqUnit);
  AddEntryRow(grid, 1, Words("Number of cycles"), txtExciteCycles, nullptr);
  AddEntryRow(grid, 2, Words("Delay"), txtExciteDelay, lblExciteTimeUnit);
  AddEntryRow(grid, 3, Words("Phase"), txtExcitePhase, Words("degrees"));
  AddEntryRow(grid, 4, Words("Number of points"), txtExcitePoints, nullptr);
  columns->addLayout(grid);
  columns->addSpacing(16);
  auto* const waves = new QVBoxLayout;
  const char* const captions[] = {"Sine wave", "Square wave"};
  for (int i = 0; i < 2; ++i) {
    optSineSquare[i] =
        Named(new QRadioButton(QString::fromLatin1(captions[i])), "optSineSquare", i);
    waves->addWidget(optSineSquare[i]);
  }
  waves->addStretch();
  columns->addLayout(waves);
  columns->addStretch();
  return fraToneBurst;
}

void frmExcite::MakeFileParameters() {
  filePage = new QWidget;
  auto* const column = new QVBoxLayout(filePage);
  column->setContentsMargins(0, 0, 0, 0);
  cmdOpenExciteFile = Named(new QPushButton(QStringLiteral("Select File")), "cmdOpenExciteFile");
  fraExciteFileParas = Named(new QGroupBox(QStringLiteral("Data file")), "fraExciteFileParas");
  auto* const lines = new QVBoxLayout(fraExciteFileParas);
  lblExciteFileName = Named(new ElidingLabel(Qt::ElideMiddle), "lblExciteFileName");
  lblExciteLength = Named(new QLabel, "lblExciteLength");
  lblExciteFileHeader = Named(new ElidingLabel(Qt::ElideRight), "lblExciteFileHeader");
  for (QLabel* label : {lblExciteFileName, lblExciteLength, lblExciteFileHeader}) {
    lines->addWidget(label);
  }
  column->addWidget(cmdOpenExciteFile, 0, Qt::AlignLeft);
  column->addWidget(fraExciteFileParas);
  column->addStretch();
}

QWidget* frmExcite::MakePreview() {
  auto* const page = new QWidget;
  auto* const column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  lblXPreview = Named(new QLabel(QStringLiteral("Preview:")), "lblXPreview");
  lblSampleRate = Named(new QLabel, "lblSampleRate");
  picExcite = Named(new PictureBox(page), "picExcite");
  picExcite->setMinimumSize(kPreviewSize);
  picExcite->setAccessibleName(QStringLiteral("Preview of the waveform"));
  auto* const head = new QHBoxLayout;
  head->addWidget(lblXPreview);
  head->addStretch();
  head->addWidget(lblSampleRate);
  column->addLayout(head);
  column->addWidget(picExcite);
  return page;
}

}  // namespace halvorne
