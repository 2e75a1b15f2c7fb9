#include "platform/failure.h"
#include "platform/qt/clipboard.h"
#include "report/text_exports.h"
#include "report/windows/frm_halvorne_report.h"
#include "report/windows/frm_input_list.h"
#include "report/windows/print_command.h"
#include "shell/frm_halvorne_main.h"

// Commands of the report. Those that stand in the menu and on the toolbar are told the event
// procedure that they run in.

namespace halvorne {

void frmHalvorneMain::mnuEditCopyInputs_Click() try {
  constexpr std::int16_t fullDetail = 1;  // Kept: whatever detail is chosen
  std::string text;
  ParasToClipboard(text, fullDetail);
  Clipboard::Clear();
  Clipboard::SetText(text);
} catch (...) {
  ReportFailure("mnuEditCopyInputs_Click", "frmHalvorneMain");
}

void frmHalvorneMain::ViewInputs(const char* procedure) try {
  frmInputList(this).exec();
} catch (...) {
  ReportFailure(procedure, "frmHalvorneMain");
}

void frmHalvorneMain::PreviewReport(const char* procedure) try {
  frmHalvorneReport(CMDialog1, this).exec();
} catch (...) {
  ReportFailure(procedure, "frmHalvorneMain");
}

void frmHalvorneMain::PrintReport(const char* procedure) try {
  halvorne::PrintReport(CMDialog1, this);
} catch (...) {
  ReportFailure(procedure, "frmHalvorneMain");
}

}  // namespace halvorne
