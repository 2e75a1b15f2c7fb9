#include "dialogs/frm_excite.h"

#include <QGroupBox>
#include <QLabel>
#include <algorithm>
#include <cmath>

#include "engine/design_model.h"
#include "persistence/excitation_file.h"
#include "platform/file_failure.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "platform/qt/picture_box.h"
#include "plot/plot_select.h"
#include "timedomain/excitation.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne {
namespace {

constexpr int kNone = 0;
constexpr int kToneBurst = 1;
constexpr int kDataFile = 2;
constexpr const char* kPattern = "#0.0000";

/// Shows the number in force in a box whose own was corrected.
void ShowCorrected(QLineEdit* box, double scale, float inForce) {
  if (static_cast<float>(BoxValue(box) * scale) != inForce) {
    SetBoxText(box, Format(Quotient(inForce, scale), kPattern));
  }
}

}  // namespace

void frmExcite::ConnectEvents() {
  for (int i = 0; i < 3; ++i) {
    OnChoice(optXwfmSource[i], &frmExcite::optXwfmSource_Click, i);
  }
  for (int i = 0; i < 2; ++i) {
    OnChoice(optSineSquare[i], &frmExcite::optSineSquare_Click, i);
  }
  OnChange(txtExciteFreq, &frmExcite::txtExciteFreq_Change);
  OnChange(txtExciteCycles, &frmExcite::txtExciteCycles_Change);
  OnChange(txtExciteDelay, &frmExcite::txtExciteDelay_Change);
  OnChange(txtExcitePhase, &frmExcite::txtExcitePhase_Change);
  OnChange(txtExcitePoints, &frmExcite::txtExcitePoints_Change);
  for (QLineEdit* box :
       {txtExciteFreq, txtExciteCycles, txtExciteDelay, txtExcitePhase, txtExcitePoints}) {
    OnLeave(box, &frmExcite::LeaveBoxes);
  }
  OnClick(cmdOpenExciteFile, &frmExcite::cmdOpenExciteFile_Click);
  OnClick(cmdExciteOK, &frmExcite::cmdExciteOK_Click);
  OnClick(cmdExciteCancel, &frmExcite::cmdExciteCancel_Click);
  SetCancelButton(cmdExciteCancel);
}

void frmExcite::Form_Load() try {
  Centre();
  CopyExciteToTemp();
  lblSampleRate->setText(ToQString(
      "Sample rate = " + Format(Quotient(design.SampleRateHz, design.FreqScale), "#0.000 ") +
      design.FreqUnit));
  optXwfmSource[Bounded<int, 0, 2>::Offset(draft.TmpExciteType)]->setChecked(true);
  FillBoxes();
  if (draft.TmpExciteType == kDataFile) {
    FillFile();
  }
} catch (...) {
  ReportFailure("Form_Load", "frmExcite");
}

void frmExcite::FillBoxes() {
  SetBoxText(txtExciteFreq, Format(Quotient(draft.TmpExciteFreq, design.FreqScale), kPattern));
  SetBoxText(txtExciteCycles, Format(draft.TmpExciteCycles, kPattern));
  lblExciteTimeUnit->setText(ToQString(view.TimeUnit));
  SetBoxText(txtExciteDelay, Format(Quotient(draft.TmpExciteDelay, view.TimeScale), kPattern));
  SetBoxText(txtExcitePhase, Format(draft.TmpExcitePhase, kPattern));
  SetBoxText(txtExcitePoints, std::to_string(BurstPoints(design.ExcitePoints)));
}

void frmExcite::FillFile() {
  fileName = design.ExciteFileName;
  comment = design.ExciteComment;
  draft.TmpExcitePoints = design.ExciteLength;
  std::ranges::copy(wave.ExciteRe, draft.TmpExciteWfm.begin());
  ShowFileLabels();
}

void frmExcite::ShowFileLabels() {
  lblExciteFileName->setText(ToQString("File name: " + fileName));
  lblExciteLength->setText(
      ToQString("File length: " + std::to_string(draft.TmpExcitePoints) + " points"));
  lblExciteFileHeader->setText(ToQString("File text: " + comment));
}

void frmExcite::showEvent(QShowEvent* event) {
  ModalDialog::showEvent(event);
  if (loading) {
    loading = false;
    picExcite->FitPicture();
    Form_Activate();
  }
}

void frmExcite::Form_Activate() try {
  if (draft.TmpExciteType != kNone) {
    CalcAndPreview();
  }
} catch (...) {
  ReportFailure("Form_Activate", "frmExcite");
}

void frmExcite::CalcAndPreview() {
  if (loading) {
    return;
  }
  CalcExciteWfm();
  PreviewExcite(picExcite->Picture());
}

void frmExcite::ShowControlsOf(int source) {
  fraToneBurst->setVisible(source == kToneBurst);
  filePage->setVisible(source == kDataFile);
  lblXPreview->setVisible(source != kNone);
}

void frmExcite::optXwfmSource_Click(int index) try {
  const bool wasChosen = draft.TmpExciteType == index;
  draft.TmpExciteType = static_cast<std::int16_t>(index);
  ShowControlsOf(index);
  switch (index) {
    case kNone:
      picExcite->Picture().Cls();
      draft.TmpExcitePoints = -1;
      break;
    case kToneBurst:
      if (!loading) {
        TakePoints();  // those of another source are none of the burst's
      }
      // A design that never had a burst has no wave yet.
      optSineSquare[std::clamp<int>(draft.TmpExciteWave, 1, 2) - 1]->setChecked(true);
      CalcAndPreview();
      break;
    default:
      if (!wasChosen) {
        cmdOpenExciteFile_Click();
      }
      break;
  }
} catch (...) {
  ReportFailure("optXwfmSource_Click", "frmExcite");
}

void frmExcite::optSineSquare_Click(int index) try {
  draft.TmpExciteWave = static_cast<std::int16_t>(index + 1);
  CalcAndPreview();
} catch (...) {
  ReportFailure("optSineSquare_Click", "frmExcite");
}

void frmExcite::txtExciteFreq_Change() try {
  draft.TmpExciteFreq = BurstFreq(BoxValue(txtExciteFreq) * design.FreqScale);
  CalcAndPreview();
} catch (...) {
  ReportFailure("txtExciteFreq_Change", "frmExcite");
}

void frmExcite::txtExciteCycles_Change() try {
  draft.TmpExciteCycles = ToSingle(std::fabs(BoxValue(txtExciteCycles)));
  CalcAndPreview();
} catch (...) {
  ReportFailure("txtExciteCycles_Change", "frmExcite");
}

void frmExcite::txtExciteDelay_Change() try {
  draft.TmpExciteDelay = ToSingle(std::fabs(BoxValue(txtExciteDelay)) * view.TimeScale);
  CalcAndPreview();
} catch (...) {
  ReportFailure("txtExciteDelay_Change", "frmExcite");
}

void frmExcite::txtExcitePhase_Change() try {
  draft.TmpExcitePhase = ToSingle(std::fabs(BoxValue(txtExcitePhase)));
  CalcAndPreview();
} catch (...) {
  ReportFailure("txtExcitePhase_Change", "frmExcite");
}

void frmExcite::txtExcitePoints_Change() try {
  if (draft.TmpExciteType == kToneBurst) {
    TakePoints();
  }
  CalcAndPreview();
} catch (...) {
  ReportFailure("txtExcitePoints_Change", "frmExcite");
}

void frmExcite::TakePoints() {
  draft.TmpExcitePoints = BurstPoints(BoxValue(txtExcitePoints));
}

/// While a number is typed only the value in force is corrected; a box that is left shows it.
void frmExcite::LeaveBoxes() try {
  ShowCorrected(txtExciteFreq, design.FreqScale, draft.TmpExciteFreq);
  ShowCorrected(txtExciteCycles, 1, draft.TmpExciteCycles);
  ShowCorrected(txtExciteDelay, view.TimeScale, draft.TmpExciteDelay);
  ShowCorrected(txtExcitePhase, 1, draft.TmpExcitePhase);
  SetBoxText(txtExcitePoints, std::to_string(BurstPoints(BoxValue(txtExcitePoints))));
} catch (...) {
  ReportFailure("LeaveBoxes", "frmExcite");
}

void frmExcite::cmdOpenExciteFile_Click() try {
  CmDialogX.InitDir = ProgramPath("\\EXCITE").string();
  CmDialogX.Filter = "Excite Files (*.xct)|*.xct|All Files (*.*)|*.*";
  CmDialogX.FilterIndex = 1;
  CmDialogX.DialogTitle = "File Open";
  CmDialogX.FileName.clear();
  CmDialogX.ShowOpen(this);
  ReadExciteFile(CmDialogX.FileName, comment);
  fileName = CmDialogX.FileName;
  PreviewExcite(picExcite->Picture());
  ShowFileLabels();
} catch (...) {
  ReportFileFailure("OpenExciteFile_Click");
}

void frmExcite::cmdExciteOK_Click() try {
  StoreExcite(fileName, comment);
  Unload();
  EnableConvolve(design.ExciteType);
  PlotSelect(view.CurrentPlot);
} catch (...) {
  ReportFailure("cmdExciteOK_Click", "frmExcite");
}

void frmExcite::cmdExciteCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdExciteCancel_Click", "frmExcite");
}

}  // namespace halvorne
