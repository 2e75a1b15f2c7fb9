// What is shipped beside the designs: the settings of a first start and the folders of samples.

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

#include "designs/shipped_design.h"
#include "persistence/setup_file.h"
#include "platform/paths.h"
#include "plot/catalogue.h"
#include "plot/plot_state.h"

namespace halvorne::testing {
namespace {

class ShippedSettings : public ShippedDesign {};

TEST_F(ShippedSettings, AreReadWithoutAWordAndStartOnAPlotOfTheCatalogue) {
  Open("burst_3mhz_dispersive");
  EXPECT_TRUE(shownMessages.Lines().empty());
  EXPECT_EQ(view.CurrentPlot, 11);
  EXPECT_EQ(setup.ReportDetails, 1);
  EXPECT_EQ(setup.DispFaceLayer, 1);
  EXPECT_EQ(setup.DispBackLayer, 12) << "the chain index of the first back plate";
  EXPECT_EQ(setup.LogRange, 60);
  EXPECT_EQ(view.TimeWindowPercent, 50);
  EXPECT_EQ(setup.AmplWindowPercent, 100);
}

TEST_F(ShippedSettings, RememberFormsThatTheirPlotsHave) {
  Open("burst_3mhz_dispersive");
  for (const CataloguePlot& shown : Catalogue()) {
    if (shown.number <= setup.PlotFormMemory.last) {
      PlotTypeLoad(static_cast<std::int16_t>(shown.forms));
      EXPECT_GE(setup.PlotFormMemory(shown.number), 0) << "plot " << shown.number;
      EXPECT_LT(setup.PlotFormMemory(shown.number), window.PlotTypeCount())
          << "plot " << shown.number;
    }
  }
}

TEST_F(ShippedSettings, AreWrittenAsTheProgramWritesThem) {
  const std::filesystem::path before = ProgramFolder();
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "halvorne_settings";
  std::filesystem::create_directory(folder);
  SetProgramFolder(SharedFile(""));
  ReadHalvorneSetup();
  SetProgramFolder(folder);
  window.SetKeepsSession(true);
  writeHalvorneSetup();
  SetProgramFolder(before);
  const auto bytes = [](const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  EXPECT_EQ(bytes(folder / "HALVORNESETUP"), bytes(SharedFile("HALVORNESETUP")));
  std::filesystem::remove_all(folder);
}

class ShippedFolder : public ::testing::TestWithParam<const char*> {};

TEST_P(ShippedFolder, HoldsASampleToStartFrom) {
  const std::filesystem::path folder = SharedFile(GetParam());
  ASSERT_TRUE(std::filesystem::is_directory(folder));
  EXPECT_FALSE(std::filesystem::is_empty(folder));
}

TEST_P(ShippedFolder, StandsInTheProgramFolderToo) {
  const std::filesystem::path programFolder = HALVORNE_BINARY_DIR "/program";
  if (!std::filesystem::is_directory(programFolder)) {
    GTEST_SKIP() << "the core alone is built without programs";
  }
  for (const auto& entry : std::filesystem::directory_iterator(SharedFile(GetParam()))) {
    EXPECT_TRUE(std::filesystem::exists(programFolder / GetParam() / entry.path().filename()))
        << entry.path();
  }
}

INSTANTIATE_TEST_SUITE_P(All, ShippedFolder,
                         ::testing::Values("DATA", "EXCITE", "Acoustic loads",
                                           "Velocity dispersion", "Database"));

}  // namespace
}  // namespace halvorne::testing
