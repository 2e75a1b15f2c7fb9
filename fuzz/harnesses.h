#pragma once

#include <span>
#include <string_view>

// What is fed with bytes that nobody thought of: by a fuzzer, which looks for new ones, and by the
// tests, which replay those that were found.

namespace halvorne::fuzz {

/// Feeds bytes to one reader. Raises when the reader breaks a promise; what it refuses by a box or a
/// failure of its own is well.
struct Harness {
  const char* name;  ///< also that of its folder in the corpus
  void (*run)(std::string_view bytes);
};

/// A design file: read, one of its plots shown, written and read again. The last byte chooses the
/// plot, the one before it the data form; a reader never gets so far.
void FuzzDesignFile(std::string_view bytes);
/// The settings: read, a plot shown with them, written and read again.
void FuzzSetupFile(std::string_view bytes);
/// A complex load file, on either side.
void FuzzComplexLoadFile(std::string_view bytes);
/// A velocity dispersion file.
void FuzzDispersionFile(std::string_view bytes);
/// An excitation file.
void FuzzExcitationFile(std::string_view bytes);
/// Numbers to text and back: eight bytes are a number, the next one the length of a pattern, then
/// the pattern and a text to be read as a number.
void FuzzNumberText(std::string_view bytes);
/// A command line of halvorne-batch, its words parted by line feeds.
void FuzzCommandLine(std::string_view bytes);

/// The harnesses of the library that is linked.
std::span<const Harness> Harnesses();

}  // namespace halvorne::fuzz
