#pragma once

namespace halvorne::testing {

/// True where the processor has vector registers with upper halves, which the next two need.
bool HasUpperHalves();

/// Fills the upper halves of all sixteen vector registers, as painting leaves them.
void FillUpperHalves();

/// True when all of them are zero.
bool AreUpperHalvesClean();

}  // namespace halvorne::testing
