#include "platform/work_room.h"

namespace halvorne {
namespace {

alignas(64) std::byte room[kWorkRoom];

}  // namespace

std::span<std::byte, kWorkRoom> WorkRoom() {
  return room;
}

}  // namespace halvorne
