#pragma once

#include <cstddef>
#include <span>

namespace halvorne {

inline constexpr std::size_t kWorkRoom = (1 << 20) + 4096;

/// Room for what a procedure needs until it returns: the same bytes for all, so that a megabyte
/// that one of them has taken serves the next as well. Whoever works in it calls nobody else who
/// does, and finds nothing of what he left there.
/// @return  bytes that begin a line of the caches and cost nothing until they are touched
std::span<std::byte, kWorkRoom> WorkRoom();

}  // namespace halvorne
