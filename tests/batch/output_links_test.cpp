#include <filesystem>

#include "batch/batch_run.h"

// Outputs that are symbolic links.

namespace halvorne::testing {
namespace {

namespace fs = std::filesystem;

class BatchOutputLinks : public BatchTest {
 protected:
  BatchOutputLinks() { fs::create_directory(Path("below")); }

  /// Makes a link in the folder and returns its path.
  std::string Link(const std::string& name, const std::string& target) const {
    fs::create_symlink(target, Path(name));
    return Path(name);
  }
  void ExpectLeftAlone(const std::string& out) const {
    const Outcome refused = Run({"convert", file, "-o", out});
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("exists and is left alone"), std::string::npos) << refused.err;
    EXPECT_TRUE(fs::is_symlink(out));
  }

  const std::string file = Shipped("imaging_5mhz_two_layer");
};

TEST_F(BatchOutputLinks, ALinkLeadsToTheFileThatIsWritten) {
  Write("below/target.dat", "older");
  const std::string out = Link("out.dat", "between.dat");
  Link("between.dat", "below/target.dat");
  ExpectLeftAlone(out);
  EXPECT_EQ(ReadFile(Path("below/target.dat")), "older");
  Output({"convert", file, "-o", out, "--force"});
  EXPECT_TRUE(fs::is_symlink(out));
  EXPECT_TRUE(fs::is_symlink(Path("between.dat")));
  EXPECT_EQ(ReadFile(Path("below/target.dat")), ReadFile(file));
}

TEST_F(BatchOutputLinks, ALinkToNothingIsANameThatIsTaken) {
  const std::string out = Link("out.dat", Path("below/new.dat"));
  ExpectLeftAlone(out);
  EXPECT_FALSE(fs::exists(Path("below/new.dat")));
  Output({"convert", file, "-o", out, "--force"});
  EXPECT_TRUE(fs::is_symlink(out));
  EXPECT_EQ(ReadFile(Path("below/new.dat")), ReadFile(file));
}

TEST_F(BatchOutputLinks, ALinkIntoAMissingFolderIsTold) {
  const std::string out = Link("out.dat", Path("no/folder.dat"));
  const Outcome run = Run({"convert", file, "-o", out, "--force"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("No such file or directory"), std::string::npos) << run.err;
  EXPECT_TRUE(fs::is_symlink(out));
}

TEST_F(BatchOutputLinks, ALinkInACircleIsReplacedLikeAnyFile) {
  const std::string out = Link("out.dat", "back.dat");
  Link("back.dat", "out.dat");
  ExpectLeftAlone(out);
  Output({"convert", file, "-o", out, "--force"});
  EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(out)));
  EXPECT_EQ(ReadFile(out), ReadFile(file));

  const std::string itself = Link("itself.csv", "itself.csv");
  Output({"raw", file, "--plot", "11", "-o", itself});
  EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(itself)));
}

TEST_F(BatchOutputLinks, AFolderBehindACircleIsTold) {
  Link("round", "round");
  const Outcome run = Run({"convert", file, "-o", Path("round/out.dat"), "--force"});
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.err.find("could not be written"), std::string::npos) << run.err;
}

TEST_F(BatchOutputLinks, AResultNeverReplacesTheDesignBehindALinkOrASecondName) {
  const std::string bytes = ReadFile(file);
  const std::string mine = Write("design.dat", bytes);
  fs::create_hard_link(mine, Path("second.dat"));
  for (const std::string& out : {Link("link.dat", mine), Path("second.dat")}) {
    EXPECT_EQ(Run({"info", mine, "-o", out}).status, 2) << out;
    EXPECT_EQ(ReadFile(mine), bytes) << out;
  }
}

}  // namespace
}  // namespace halvorne::testing
