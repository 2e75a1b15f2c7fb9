#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <optional>
#include <regex>
#include <string>
#include <string_view>

#include "house/source_tree.h"

namespace halvorne::testing {
namespace {

/// A room of the house: its folder below src/, its libraries and the floor it stands on.
struct Room {
  std::string_view folder;
  std::array<std::string_view, 2> targets;
  int floor;
};

/// The first floor on which the toolkit may be used.
constexpr int kLine = 10;

constexpr std::array kRooms = {
    Room{"statistics", {"statistics"}, 0},
    Room{"platform", {"platform"}, 0},
    Room{"engine", {"engine"}, 1},
    Room{"timedomain", {"timedomain"}, 2},
    Room{"persistence", {"persistence"}, 3},
    Room{"plot", {"plot"}, 4},
    Room{"report", {"report"}, 5},
    Room{"quantities", {"quantities"}, 5},
    Room{"platform/files", {"files"}, kLine},
    Room{"platform/qt", {"qt", "windows"}, kLine},
    Room{"plot/windows", {"plot_windows", "plot_pictures"}, 11},
    Room{"report/windows", {"report_windows", "report_pages"}, 12},
    Room{"dialogs", {"dialogs"}, 13},
    Room{"materials", {"materials", "material_stores"}, 14},
    Room{"studies", {"studies"}, 14},
    Room{"shell", {"shell"}, 15},
    Room{"batch", {"batch"}, 15},
};

/// The room that a path below src/ lies in; the most special one, plot/windows before plot.
const Room* RoomOf(std::string_view path) {
  const Room* found = nullptr;
  for (const Room& room : kRooms) {
    const bool inside = path.starts_with(room.folder) && path.size() > room.folder.size() &&
                        path[room.folder.size()] == '/';
    if (inside && (found == nullptr || room.folder.size() > found->folder.size())) {
      found = &room;
    }
  }
  return found;
}

const Room* RoomOfTarget(std::string_view target) {
  const auto* const found = std::find_if(kRooms.begin(), kRooms.end(), [&](const Room& room) {
    return std::ranges::count(room.targets, target) > 0;
  });
  return found == kRooms.end() ? nullptr : found;
}

/// The room's own files and those of lower floors; two rooms on one floor do not know each other.
bool MayUse(const Room& user, const Room& used) {
  return &user == &used || used.floor < user.floor;
}

struct Include {
  std::string header;
  bool quoted;
};

std::optional<Include> IncludeOf(const std::string& line) {
  static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
  std::smatch match;
  if (!std::regex_search(line, match, pattern)) {
    return std::nullopt;
  }
  return Include{match[2], match[1] == "\""};
}

std::string BelowSource(const SourceFile& file) {
  return file.path.substr(sizeof "src/" - 1);
}

TEST(Layering, EveryFileStandsInARoom) {
  for (const SourceFile& file : SourceFiles("src")) {
    EXPECT_TRUE(file.path == "src/CMakeLists.txt" || RoomOf(BelowSource(file)) != nullptr)
        << file.path;
  }
}

TEST(Layering, NoRoomIncludesAHigherOne) {
  int includes = 0;
  for (const SourceFile& file : SourceFiles("src")) {
    const Room* const user = RoomOf(BelowSource(file));
    for (const std::string& line : file.Lines()) {
      const auto include = IncludeOf(line);
      if (user == nullptr || !include || !include->quoted) {
        continue;
      }
      ++includes;
      // A header beside the file belongs to the file's own room, as do those made by the build.
      const Room* const used = RoomOf(include->header);
      EXPECT_TRUE(used == nullptr || MayUse(*user, *used))
          << file.path << " includes " << include->header;
    }
  }
  EXPECT_GT(includes, 50) << "the includes were not found, so nothing was looked at";
}

TEST(Layering, TheCoreNeedsNothingButTheStandardLibrary) {
  // <emmintrin.h> is the compiler's own, for what every x86-64 has; its user has a plain loop
  // beside it.
  static const std::regex standard(R"([a-z_0-9]+|emmintrin\.h)");
  int includes = 0;
  for (const SourceFile& file : SourceFiles("src")) {
    const Room* const user = RoomOf(BelowSource(file));
    for (const std::string& line : file.Lines()) {
      const auto include = IncludeOf(line);
      if (user == nullptr || user->floor >= kLine || !include) {
        continue;
      }
      ++includes;
      if (include->quoted) {
        EXPECT_NE(RoomOf(include->header), nullptr) << file.path << " includes " << include->header;
      } else {
        EXPECT_TRUE(std::regex_match(include->header, standard))
            << file.path << " includes " << include->header;
      }
    }
  }
  EXPECT_GT(includes, 100) << "the includes were not found, so nothing was looked at";
}

TEST(Layering, LibrariesAreLinkedDownwardsOnly) {
  static const std::regex library(R"((Halvorne::|Qt6::|halvorne_)([A-Za-z_]+))");
  int links = 0;
  for (const SourceFile& file : SourceFiles("src")) {
    const Room* const user = RoomOf(BelowSource(file));
    if (user == nullptr || std::filesystem::path(file.path).filename() != "CMakeLists.txt") {
      continue;
    }
    for (auto match = std::sregex_iterator(file.text.begin(), file.text.end(), library);
         match != std::sregex_iterator(); ++match) {
      if ((*match)[1] == "Qt6::") {
        EXPECT_GE(user->floor, kLine) << file.path << " links " << match->str();
      } else if (const Room* const used = RoomOfTarget((*match)[2].str())) {
        ++links;
        EXPECT_TRUE(MayUse(*user, *used)) << file.path << " links " << match->str();
      }
    }
  }
  EXPECT_GE(links, 5) << "the link lines were not found, so nothing was looked at";
}

TEST(Layering, TestsAndSourcesAgreeOnTheRooms) {
  const std::filesystem::path tests = std::filesystem::path(HALVORNE_SOURCE_DIR) / "tests";
  for (const Room& room : kRooms) {
    if (room.floor < kLine) {
      EXPECT_TRUE(std::filesystem::exists(tests / room.folder / "CMakeLists.txt")) << room.folder;
    }
  }
}

}  // namespace
}  // namespace halvorne::testing
