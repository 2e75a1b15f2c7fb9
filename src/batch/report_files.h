#pragma once

#include <string>

#include "batch/commands.h"

namespace halvorne::batch {

/// The kinds of report file, by the ending of their name.
enum class ReportFormat { kPdf, kPng, kRecord };

/// The format of a file's name. Raises WrongCommandLine for any ending but .pdf, .png and .json.
ReportFormat ReportFormatOf(const std::string& fileName);

/// Prints the report of the plot on show to the request's output. The pages of a PNG are files of
/// their own, numbered before the ending when there are several. Files are written whole or not at
/// all. Raises CommandFailed, and WrongCommandLine when that would overwrite the design.
void WriteReport(const Session& session, ReportFormat format);

}  // namespace halvorne::batch
