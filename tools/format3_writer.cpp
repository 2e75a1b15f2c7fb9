#include "format3_writer.h"

#include "persistence/design_file_rows.h"

namespace halvorne::tools {

void WriteFormat3(const std::string& fileName) {
  ValueWriter file(fileName);
  file.Line("Halvorne for Windows Version 3.2.0");
  file.Line(design.CalcDateTime, design.DesignTitle);
  SweepRows(file);
  PiezoRows(file);
  CountRows(file);
  PlateRows(file);
  file.Label("[ Front load ]");
  Curve(file, design.ZFrontRe, design.ZFrontIm, "[ Zfront Re, Im ]");
  file.Label("[ Back load ]");
  Curve(file, design.ZBackRe, design.ZBackIm, "[ Zback Re, Im ]");
  NetworkRowsOf(file);
  CurveRows(file);
  ExcitationRows(file);
  file.Close();
}

}  // namespace halvorne::tools
