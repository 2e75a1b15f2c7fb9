#pragma once

namespace halvorne {

/// Turns the exception that is being handled into the box of the file commands: the critical icon,
/// `title`, "The following error occured: ", the number and the description.
/// To be called in a handler only; lets nothing escape.
void ReportFileFailure(const char* title) noexcept;

}  // namespace halvorne
