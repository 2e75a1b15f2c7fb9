#include "persistence/safe_overwrite.h"

#include <vector>

#include "persistence/file_fixture.h"
#include "persistence/refused_calls.h"

namespace halvorne::testing {
namespace {

using Lines = std::vector<std::string>;
namespace fs = std::filesystem;

class SafeOverwrite : public FileTest {
 protected:
  /// Writes over a file as a program would that finishes or not.
  void Overwrite(const std::string& name, const std::string& bytes, bool finishes) const {
    KeptOriginal original(Path(name));
    Put(name, bytes);
    if (finishes) {
      original.Discard();
    }
  }
};

constexpr bool kFinishes = true;
constexpr bool kFails = false;

TEST_F(SafeOverwrite, TheOldFileStandsBesideTheNewOneUntilThatIsWhole) {
  Put("a.dat", "old");
  KeptOriginal original(Path("a.dat"));
  EXPECT_EQ(Get("a.dat~"), "old");
  EXPECT_EQ(Get("a.dat"), "");
  Put("a.dat", "new");
  EXPECT_EQ(Get("a.dat~"), "old");
  original.Discard();
  EXPECT_EQ(Names(), Lines{"a.dat"});
  EXPECT_EQ(Get("a.dat"), "new");
}

TEST_F(SafeOverwrite, AFileThatIsNotThereHasNothingToKeep) {
  Overwrite("a.dat", "new", kFails);
  EXPECT_EQ(Names(), Lines{"a.dat"});
  const KeptOriginal device("/dev/null");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(FailureOf([&] { const KeptOriginal folder(Folder().string()); }), 0);
}

TEST_F(SafeOverwrite, AfterSeveralFailuresTheOldFileIsStillThere) {
  Put("a.dat", "old");
  Overwrite("a.dat", "half", kFails);
  Overwrite("a.dat", "another half", kFails);
  EXPECT_EQ(Get("a.dat~"), "old") << "what a failure left took the place of the last whole file";
  EXPECT_EQ(Names(), (Lines{"a.dat", "a.dat~"}));
  Overwrite("a.dat", "new", kFinishes);
  EXPECT_EQ(Names(), Lines{"a.dat"});
  EXPECT_EQ(Get("a.dat"), "new");
}

TEST_F(SafeOverwrite, WhatSomebodyMendedAfterAFailureIsKeptInItsTurn) {
  Put("a.dat", "old");
  Overwrite("a.dat", "half", kFails);
  Put("a.dat", "mended");
  fs::last_write_time(Path("a.dat"), fs::file_time_type::clock::now() + std::chrono::hours(1));
  Overwrite("a.dat", "half", kFails);
  EXPECT_EQ(Get("a.dat~"), "mended");
  EXPECT_EQ(Get("a.dat~~"), "old");
}

TEST_F(SafeOverwrite, AFileThatHasTheNameOfTheKeptOneComesBack) {
  Put("a.dat", "old");
  Put("a.dat~", "an editor's");
  Put("a.dat~~", "another's");
  Overwrite("a.dat", "new", kFinishes);
  EXPECT_EQ(Names(), (Lines{"a.dat", "a.dat~", "a.dat~~"}));
  EXPECT_EQ(Get("a.dat~"), "an editor's");
  EXPECT_EQ(Get("a.dat~~"), "another's");
}

TEST_F(SafeOverwrite, AFileThatHasTheNameOfTheKeptOneIsNotLostWithAFailure) {
  Put("a.dat", "old");
  Put("a.dat~", "an editor's");
  Overwrite("a.dat", "half", kFails);
  EXPECT_EQ(Get("a.dat~"), "old");
  EXPECT_EQ(Get("a.dat~~"), "an editor's");
}

TEST_F(SafeOverwrite, ALinkLeadsToTheNewFileAfterwards) {
  fs::create_directory(Path("far"));
  Put("far/a.dat", "old");
  fs::create_symlink(Path("far/a.dat"), Path("link.dat"));
  {
    const KeptOriginal original(Path("link.dat"));
    Put("link.dat", "half");
    EXPECT_EQ(Get("far/a.dat~"), "old");
  }
  Overwrite("link.dat", "new", kFinishes);
  EXPECT_TRUE(fs::is_symlink(Path("link.dat")));
  EXPECT_EQ(Get("far/a.dat"), "new");
  EXPECT_EQ(Names(), (Lines{"far", "link.dat"}));
}

TEST_F(SafeOverwrite, PermissionsStay) {
  Put("a.dat", "old");
  fs::permissions(Path("a.dat"), fs::perms::owner_read | fs::perms::owner_write);
  Overwrite("a.dat", "new", kFinishes);
  EXPECT_EQ(fs::status(Path("a.dat")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(SafeOverwrite, WhereNothingCanBeKeptBesideAFailureBringsTheOldBytesBack) {
  const std::string longest(255, 'x');  // one character more is too long for a name
  Put(longest, "old");
  Overwrite(longest, "half", kFails);
  EXPECT_EQ(Get(longest), "old");
  Overwrite(longest, "new", kFinishes);
  EXPECT_EQ(Get(longest), "new");
  EXPECT_EQ(Names(), Lines{longest});
}

TEST_F(SafeOverwrite, WhereTheNewFileCannotBeMadeTheOldOneComesBackToItsName) {
  Put("a.dat", "old");
  Put("a.dat~", "an editor's");
  {
    const NoNewFiles full;
    const KeptOriginal original(Path("a.dat"));
    EXPECT_EQ(Get("a.dat"), "old");
    EXPECT_EQ(Get("a.dat~"), "an editor's");
    EXPECT_EQ(Names(), (Lines{"a.dat", "a.dat~"}));
    Put("a.dat", "half");
  }
  EXPECT_EQ(Get("a.dat"), "old");
  EXPECT_EQ(Get("a.dat~"), "an editor's");
  EXPECT_EQ(Names(), (Lines{"a.dat", "a.dat~"}));
}

std::size_t OpenFiles() {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

TEST_F(SafeOverwrite, NoFileStaysOpen) {
  Put("a.dat", "old");
  const std::size_t before = OpenFiles();
  Overwrite("a.dat", "half", kFails);
  Overwrite("a.dat", "new", kFinishes);
  { const Successor successor(Path("a.dat")); }
  { const Successor successor(Path("b.dat")); }
  EXPECT_EQ(OpenFiles(), before);
}

TEST_F(SafeOverwrite, AProtectedFileIsNotReplaced) {
  Put("a.dat", "old");
  fs::permissions(Path("a.dat"), fs::perms::owner_read | fs::perms::others_read);
  fs::permissions(Folder(), fs::perms::all);
  const bool root = geteuid() == 0;  // who may write to any file, and steps down
  constexpr uid_t nobody = 65534;
  ASSERT_EQ(root ? seteuid(nobody) : 0, 0);
  const int ofOriginal = FailureOf([&] { const KeptOriginal original(Path("a.dat")); });
  const int ofSuccessor = FailureOf([&] { const Successor successor(Path("a.dat")); });
  ASSERT_EQ(root ? seteuid(0) : 0, 0);
  EXPECT_EQ(ofOriginal, 70);
  EXPECT_EQ(ofSuccessor, 70);
  EXPECT_EQ(Names(), Lines{"a.dat"});
  EXPECT_EQ(Get("a.dat"), "old");
}

TEST_F(SafeOverwrite, ASuccessorIsSeenOnlyWhenItTakesItsPlace) {
  Put("a", "old");
  fs::create_symlink("a", Path("link"));
  Successor successor(Path("link"));
  std::ofstream(successor.Name()) << "new";
  EXPECT_EQ(Get("a"), "old");
  successor.TakePlace();
  EXPECT_EQ(Get("a"), "new");
  EXPECT_TRUE(fs::is_symlink(Path("link")));
  EXPECT_EQ(Names(), (Lines{"a", "link"}));
}

TEST_F(SafeOverwrite, ASuccessorThatTakesNoPlaceGoes) {
  { const Successor successor(Path("a")); }
  EXPECT_EQ(Names(), Lines{});
}

TEST_F(SafeOverwrite, ASuccessorNeedsNoRoomForItsOwnName) {
  const std::string longest(255, 'x');
  Successor successor(Path(longest));
  EXPECT_EQ(successor.Name(), Path(longest));
  Put(longest, "new");
  successor.TakePlace();
  EXPECT_EQ(Get(longest), "new");
  EXPECT_EQ(Successor("/dev/null").Name(), "/dev/null");
}

TEST_F(SafeOverwrite, ASuccessorNeedsNoRoomForAnotherFile) {
  Put("a", "old");
  const NoNewFiles full;
  const Successor successor(Path("a"));
  EXPECT_EQ(successor.Name(), Path("a"));
  EXPECT_EQ(Get("a"), "old");
}

}  // namespace
}  // namespace halvorne::testing
