#pragma once

#include <cstdint>
#include <string>

#include "engine/design_model.h"
#include "persistence/value_reader.h"
#include "persistence/value_writer.h"

// The arrays of a design file: a label, then the elements 0 to count, one line each. A failure
// shows the common box under the procedure's own name, and its caller carries on with the next
// field; elements behind the failing one stay as they were.

namespace halvorne {

/// Reads a label into `scratch` and count + 1 values.
void AryInput(ValueReader& file, std::int16_t count, ChainValues& values, std::string& scratch);
/// Reads a label into `scratch` and count + 1 pairs, `first` before `second`.
void AryInput2(ValueReader& file, std::int32_t count, FreqCurve& first, FreqCurve& second,
               std::string& scratch);

/// Writes a label and count + 1 values.
void AryOutput(ValueWriter& file, std::int16_t count, const ChainValues& values,
               const std::string& label);
/// Writes a label and count + 1 pairs.
void AryOutput2(ValueWriter& file, std::int32_t count, const FreqCurve& first,
                const FreqCurve& second, const std::string& label);

}  // namespace halvorne
