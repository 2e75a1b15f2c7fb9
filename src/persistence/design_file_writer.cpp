#include "persistence/design_file.h"
#include "persistence/design_file_rows.h"
#include "persistence/overwrite_question.h"
#include "persistence/safe_overwrite.h"
#include "persistence/version.h"
#include "platform/failure.h"
#include "platform/messages.h"

namespace halvorne {
namespace {

void WriteRows(ValueWriter& file) {
  file.Line(ProgramVersionText());
  file.Line(design.CalcDateTime, design.DesignTitle);
  design.FileFormat = 4;
  file.Line(design.FileFormat);
  SweepRows(file);
  PiezoRows(file);
  CountRows(file);
  PlateRows(file);
  LoadRows(file);
  DispersionRows(file);
  NetworkRowsOf(file);
  CurveRows(file);
  ExcitationRows(file);
}

/// The same words whatever the cause; to be called in a handler.
void ReportSaveFailure() {
  Message box;
  box.title = kSaveDesignTitle;
  box.text = "Error occurred trying to close file.";
  box.icon = MessageIcon::kExclamation;
  messages().Show(box);
}

}  // namespace

void WriteDesignFile(const std::string& fileName) try {
  if (!MayOverwrite(fileName, kSaveDesignTitle)) {
    return;
  }
  KeptOriginal original(fileName);
  ValueWriter file(fileName);
  WriteRows(file);
  file.Close();
  if (file.IsWhole()) {
    original.Discard();
  }
  design.DesignNew = 0;
} catch (...) {
  ReportSaveFailure();
}

std::string DesignFileText() {
  ValueWriter file;
  try {
    WriteRows(file);
  } catch (...) {
    ReportSaveFailure();
  }
  return file.Text();
}

}  // namespace halvorne
