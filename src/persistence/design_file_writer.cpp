#include "persistence/design_file.h"
#include "persistence/design_file_rows.h"
#include "persistence/overwrite_question.h"
#include "persistence/safe_overwrite.h"
#include "persistence/version.h"
#include "platform/failure.h"
#include "platform/messages.h"

namespace halvorne {

void WriteDesignFile(const std::string& fileName) try {
  if (!MayOverwrite(fileName, "Halvorne Save File")) {
    return;
  }
  KeptOriginal original(fileName);
  ValueWriter file(fileName);
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
  file.Close();
  if (file.IsWhole()) {
    original.Discard();
  }
  design.DesignNew = 0;
} catch (...) {
  Message box;
  box.title = "Halvorne Save File";
  box.text = "Error occurred trying to close file.";
  box.icon = MessageIcon::kExclamation;
  messages().Show(box);
}

}  // namespace halvorne
