#pragma once

namespace halvorne {

/// Reads HALVORNESETUP of the program's folder and starts the session. A missing or short file
/// shows "ERROR in ReadHalvorneSetup of FILES", and the session starts with the shipped settings.
void ReadHalvorneSetup();

/// Writes HALVORNESETUP anew, beside the old one, which it then replaces at once. Failures
/// show "ERROR in writeHalvorneSetup of FILES" and leave the old one.
void writeHalvorneSetup();

}  // namespace halvorne
