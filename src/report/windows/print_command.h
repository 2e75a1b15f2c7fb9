#pragma once

#include "platform/qt/file_dialogs.h"

class QWidget;

namespace halvorne {

/// Flags of the print dialog: no page numbers, no selection.
inline constexpr int kPrintFlags = 12;

/// Shows the desktop's print dialog, for the default printer at first, and prints the report as it
/// says: on a printer, or to a PDF file that is written whole or not at all.
///
/// Raises 32755 when the dialog is cancelled, 75 when the file cannot be written, 482 when the
/// printer fails.
/// @param dialog  the program's common dialog, whose flags stay those of the print dialog
void PrintReport(CommonDialog& dialog, QWidget* owner);

}  // namespace halvorne
