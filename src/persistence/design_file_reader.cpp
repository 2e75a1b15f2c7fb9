#include <algorithm>

#include "engine/acoustic_sections.h"
#include "engine/piezo_section.h"
#include "persistence/design_file.h"
#include "persistence/design_file_rows.h"
#include "platform/failure.h"
#include "platform/main_window.h"
#include "platform/messages.h"
#include "timedomain/excitation.h"
#include "timedomain/plot_points.h"
#include "timedomain/sample_rate.h"
#include "timedomain/view.h"
#include "timedomain/zero.h"

namespace halvorne {
namespace {

void ClearPlotPoints() {
  std::ranges::fill(points.RawData, PlotPoint{});
  std::ranges::fill(points.PlotData, PlotPoint{});
  std::ranges::fill(points.PlotDataImpulse, PlotPoint{});
  std::ranges::fill(points.PlotDataExcite, PlotPoint{});
}

bool UserWantsSavedFile() {
  Message question;
  question.title = "File Open";
  question.text = "Revert to the saved file ?";
  question.icon = MessageIcon::kQuestion;
  question.buttons = MessageButtons::kYesNo;
  question.defaultAnswer = MessageAnswer::kNo;
  return messages().Show(question) == MessageAnswer::kYes;
}

/// First digit of the version that wrote the file: behind the last blank of its version text.
float FormatOfVersion(const std::string& versionText) {
  const std::size_t word = versionText.rfind(' ') + 1;  // 0 where there is no blank
  if (word == versionText.size() || versionText[word] < '0' || versionText[word] > '9') {
    RaiseTypeMismatch();
  }
  return static_cast<float>(versionText[word] - '0');
}

/// One side's load as format 3 has it: a real one, whose curve the loads in force replace.
void OldLoadRows(ValueReader& file, FreqCurve& re, FreqCurve& im, bool& isComplex,
                 std::string& name, std::string& comment) {
  std::string scratch;
  file.Line(scratch);
  AryInput2(file, design.NoFreqPts, re, im, scratch);
  isComplex = false;
  name = "blank";
  comment = "none";
}

void ResetDispersion() {
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    std::ranges::fill(design.VelDisp.rows(slot), 1.0);
    std::ranges::fill(design.VelDispNames.rows(slot), "blank");
  }
}

void ReadRows(const std::string& fileName) {
  ValueReader file(fileName);
  file.Line(design.FileVersionText, design.CalcDateTime, design.DesignTitle);
  design.FileFormat = FormatOfVersion(design.FileVersionText);
  if (design.FileFormat != 3) {
    file.Line(design.FileFormat);
  }
  SweepRows(file);
  PiezoRows(file);
  CountRows(file);
  PlateRows(file);
  if (design.FileFormat == 3) {
    OldLoadRows(file, design.ZFrontRe, design.ZFrontIm, design.ZFrontComplex, design.ZFrontFile,
                design.ZFrontComment);
    OldLoadRows(file, design.ZBackRe, design.ZBackIm, design.ZBackComplex, design.ZBackFile,
                design.ZBackComment);
  } else {
    LoadRows(file);
  }
  CmplxLoad();
  ResetDispersion();
  if (design.FileFormat >= 4) {
    DispersionRows(file);
  }
  NetworkRowsOf(file);
  CurveRows(file);
  ExcitationRows(file);
  if (design.ExciteType >= 1) {
    Zero(design.ExciteLength + 1L, kLastTimePoint, wave.ExciteRe);
  }
}

}  // namespace

void ReadDesignFile(const std::string& fileName) try {
  ClearPlotPoints();
  if (mainWindow().Caption() == "Halvorne: " + fileName && !UserWantsSavedFile()) {
    return;
  }
  ReadRows(fileName);
  view.AmplAuto = view.FreqAuto = view.TimeAuto = true;
  SampleRate();
  PiezoConstants();
  PiezoLayers();
  design.DesignNew = 0;
  mainWindow().EnableItems(true);
  EnableConvolve(design.ExciteType);
  mainWindow().UpdateMenu();
  // The report takes part of the excitation from the copies, whatever plot is on show.
  CopyExciteToTemp();
} catch (...) {
  Message box;
  box.title = "Halvorne";
  box.text = "Error encountered while trying to open file, please retry.";
  box.icon = MessageIcon::kExclamation;
  messages().Show(box);
}

}  // namespace halvorne
