#pragma once

namespace halvorne {

/// Clears the upper halves of the wide vector registers, where the processor has them; nothing that
/// a procedure may rely on is in them. To be called where work on numbers begins.
///
/// The toolkit's painting leaves these halves filled. Some processors then take a switch of modes
/// for each old vector instruction that meets a new one, and a call of the mathematical library
/// has both: exponentials and powers become thirty times slower, until somebody clears the halves.
void CleanVectorRegisters() noexcept;

}  // namespace halvorne
