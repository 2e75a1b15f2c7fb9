#include "dialogs/frm_freq_entry.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "dialogs/entry_layout.h"
#include "dialogs/time_record.h"
#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/piezo_section.h"
#include "persistence/setup_file.h"
#include "platform/messages.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "plot/plot_select.h"
#include "timedomain/sample_rate.h"
#include "timedomain/view.h"

namespace halvorne {
namespace {

constexpr const char* kPattern = "#0.000";

struct Unit {
  const char* option;  ///< name of its button
  const char* text;
  float scale;  ///< Hz
};

constexpr Unit kUnits[] = {
    {"optKHz", "kHz", 1000.0F}, {"optMHz", "MHz", 1e6F}, {"optGHz", "GHz", 1e9F}};

/// Raises a number below `lowest` to it and shows three decimals.
void CorrectFrequency(QLineEdit* box, double lowest) {
  SetBoxText(box, Format(std::max(BoxValue(box), lowest), kPattern));
}

}  // namespace

frmFreqEntry::frmFreqEntry(QWidget* parent)
    : ModalDialog("frmFreqEntry", QStringLiteral("Frequency Scale"), parent) {
  auto* const outer = new QVBoxLayout(this);
  auto* const grid = new QGridLayout;
  MakeBoxes(grid);
  outer->addLayout(grid);

  auto* const frame = Named(new QGroupBox(QStringLiteral("Frequency units:")), "Frame1");
  auto* const row = new QHBoxLayout(frame);
  for (int i = 0; i < 3; ++i) {
    options[i] = Named(new QRadioButton(QString::fromLatin1(kUnits[i].text)), kUnits[i].option);
    row->addWidget(options[i]);
    OnChoice(options[i], &frmFreqEntry::optUnit_Click, i);
  }
  outer->addWidget(frame);

  cmdFreqOK = Named(new QPushButton(QStringLiteral("OK")), "cmdFreqOK");
  cmdFreqCancel = Named(new QPushButton(QStringLiteral("Cancel")), "cmdFreqCancel");
  outer->addLayout(ClosingRow(cmdFreqOK, cmdFreqCancel));
  OnClick(cmdFreqOK, &frmFreqEntry::cmdFreqOK_Click);
  OnClick(cmdFreqCancel, &frmFreqEntry::cmdFreqCancel_Click);
  SetCancelButton(cmdFreqCancel);
  Form_Load();
  txtStartFreq->setFocus();
}

void frmFreqEntry::MakeBoxes(QGridLayout* grid) {
  txtStartFreq = Named(new QLineEdit, "txtStartFreq");
  txtStopFreq = Named(new QLineEdit, "txtStopFreq");
  txtNoPts = Named(new QLineEdit, "txtNoPts");
  txtDesFreq = Named(new QLineEdit, "txtDesFreq");
  lblStartFreqUnit = Named(new QLabel, "lblStartFreqUnit");
  lblStopFreqUnit = Named(new QLabel, "lblStopFreqUnit");
  lblDesFreqUnit = Named(new QLabel, "lblDesFreqUnit");
  const auto caption = [this](const char* name, const char* words) {
    return Named(new QLabel(QString::fromLatin1(words)), name);
  };
  AddEntryRow(grid, 0, caption("lblStartFreq", "Start frequency: "), txtStartFreq,
              lblStartFreqUnit);
  AddEntryRow(grid, 1, caption("lblStopFreq", "Stop frequency:"), txtStopFreq, lblStopFreqUnit);
  AddEntryRow(grid, 2, caption("lblNoCalcPts", "Number of calculated points:"), txtNoPts, nullptr);
  AddEntryRow(grid, 3, caption("lblDesFreq", "Design center frequency Fd:"), txtDesFreq,
              lblDesFreqUnit);
  OnLeave(txtStartFreq, &frmFreqEntry::txtStartFreq_LostFocus);
  OnLeave(txtStopFreq, &frmFreqEntry::txtStopFreq_LostFocus);
  OnLeave(txtNoPts, &frmFreqEntry::txtNoPts_LostFocus);
  OnLeave(txtDesFreq, &frmFreqEntry::txtDesFreq_LostFocus);
}

void frmFreqEntry::Form_Load() try {
  Centre();
  unit = design.FreqUnit;  // stays when it is none of the three
  for (int i = 0; i < 3; ++i) {
    if (unit == kUnits[i].text) {
      options[i]->setChecked(true);
    }
  }
  FreqLoad();
  SetBoxText(txtNoPts, std::to_string(design.NoFreqPts));
} catch (...) {
  ReportFailure("Form_Load", "frmFreqEntry");
}

void frmFreqEntry::FreqLoad() {
  for (const auto& [box, frequency] : {std::pair{txtStartFreq, design.FreqStart},
                                       {txtStopFreq, design.FreqStop},
                                       {txtDesFreq, design.DesignFreq}}) {
    SetBoxText(box, Format(Quotient(frequency, design.FreqScale), kPattern));
  }
  unit = design.FreqUnit;
  scale = design.FreqScale;
  ShowUnits();
}

void frmFreqEntry::ShowUnits() {
  for (QLabel* label : {lblStartFreqUnit, lblStopFreqUnit, lblDesFreqUnit}) {
    label->setText(ToQString(unit));
  }
}

void frmFreqEntry::FreqLabel() {
  for (QLineEdit* box : {txtStartFreq, txtStopFreq, txtDesFreq}) {
    const double hertz = static_cast<double>(oldScale) * BoxValue(box);
    SetBoxText(box, Format(hertz / static_cast<double>(scale), kPattern));
  }
  ShowUnits();
}

void frmFreqEntry::optUnit_Click(int index) try {
  oldScale = scale;
  scale = kUnits[index].scale;
  unit = kUnits[index].text;
  FreqLabel();
} catch (...) {
  ReportFailure((std::string(kUnits[index].option) + "_Click").c_str(), "frmFreqEntry");
}

void frmFreqEntry::txtStartFreq_LostFocus() try { CorrectFrequency(txtStartFreq, 0); } catch (...) {
  ReportFailure("txtStartFreq_LostFocus", "frmFreqEntry");
}

void frmFreqEntry::txtStopFreq_LostFocus() try { CorrectFrequency(txtStopFreq, 0); } catch (...) {
  ReportFailure("txtStopFreq_LostFocus", "frmFreqEntry");
}

void frmFreqEntry::txtDesFreq_LostFocus() try { CorrectFrequency(txtDesFreq, 0.001); } catch (...) {
  ReportFailure("txtDesFreq_LostFocus", "frmFreqEntry");
}

void frmFreqEntry::txtNoPts_LostFocus() try {
  const double points = Int(std::fabs(BoxValue(txtNoPts)));
  SetBoxText(txtNoPts, NumberText(std::clamp(points, 2.0, static_cast<double>(kLastFreqPoint))));
} catch (...) {
  ReportFailure("txtNoPts_LostFocus", "frmFreqEntry");
}

void frmFreqEntry::ApplyTextRules() {
  txtStartFreq_LostFocus();
  txtStopFreq_LostFocus();
  txtDesFreq_LostFocus();
  txtNoPts_LostFocus();
}

void frmFreqEntry::StoreLimits() {
  design.FreqUnit = unit;
  design.FreqScale = scale;
  design.FreqStart = Finite(BoxValue(txtStartFreq) * scale);
  if (design.FreqStart == 0) {
    design.FreqStart = 1e-05;  // a transmission line can't run at frequency zero
  }
  design.FreqStop = Finite(BoxValue(txtStopFreq) * scale);
  if (design.FreqStart > design.FreqStop) {
    std::swap(design.FreqStart, design.FreqStop);
  }
  design.NoFreqPts = ToInt32(BoxValue(txtNoPts));
}

void frmFreqEntry::FitTimePoints() {
  const double needed = NeededTimePoints();
  if (design.NoTimePts < needed) {
    design.NoTimePts = ToInt32(std::min(PowerOfTwoAbove(needed), kMostTimePoints));
  }
}

void frmFreqEntry::AvoidAliasing() {
  if (design.NoTimePts <= kMostTimePoints) {
    return;
  }
  // Kept: 4096 is right for at most 8192 points, while the size is compared with 65536.
  design.FreqStop = Quotient(design.FreqStart, 1 - design.NoFreqPts / 4096.0);
  const double freqScale = design.FreqScale;
  // Up to the next thousandth that is shown, with one more for safety.
  design.FreqStop = Finite(Int(Quotient(design.FreqStop * 1000, freqScale) + 2) * freqScale / 1000);
  design.NoTimePts = ToInt32(PowerOfTwoAbove(NeededTimePoints()));
  FreqLoad();  // Kept: it puts the old design frequency back, which is then the one stored
  messages().Show(
      {.title = "Error in Frequency Entry",
       .text = "Current frequency values will result in aliasing of the time waveform.\r\n"
               "To eliminate the aliasing, the stop frequency has been increased to: \r\n"
               "Stop frequency = " +
               Format(Quotient(design.FreqStop, freqScale), "0.000 ") + design.FreqUnit,
       .icon = MessageIcon::kExclamation});
}

void frmFreqEntry::StoreDesignFrequency() {
  const double value = BoxValue(txtDesFreq);
  if (value <= 0) {
    return;
  }
  const double old = design.DesignFreq;
  design.DesignFreq = Finite(value * design.FreqScale);
  for (int k = 1; k <= design.NoPiezo; ++k) {
    // A layer of a half wave stays one.
    design.PZThick(k) = Finite(Quotient(old * design.PZThick(k), design.DesignFreq));
  }
}

void frmFreqEntry::cmdFreqOK_Click() try {
  ApplyTextRules();
  StoreLimits();
  FitTimePoints();
  AvoidAliasing();
  StoreDesignFrequency();
  PiezoConstants();
  PiezoLayers();
  SampleRate();
  // A manual window does not outlive a change of the grid.
  view.FreqAuto = true;
  view.TimeAuto = true;
  ComplexLoad();  // Kept: a complex load becomes flat, its flag and its file's name stay
  writeHalvorneSetup();
  Recalc();
  Unload();
} catch (...) {
  ReportFailure("cmdFreqOK_Click", "frmFreqEntry");
}

void frmFreqEntry::cmdFreqCancel_Click() try { Unload(); } catch (...) {
  ReportFailure("cmdFreqCancel_Click", "frmFreqEntry");
}

}  // namespace halvorne
