#pragma once

namespace halvorne {

/// Reads HALVORNESETUP of the program's folder and starts the session. A missing or short file
/// shows "ERROR in ReadHalvorneSetup of FILES" and leaves the unread fields as they are.
void ReadHalvorneSetup();

/// Writes HALVORNESETUP anew. Failures show "ERROR in writeHalvorneSetup of FILES".
void writeHalvorneSetup();

}  // namespace halvorne
