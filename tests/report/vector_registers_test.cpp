#include "platform/vector_registers.h"

#include <filesystem>
#include <functional>
#include <ostream>
#include <unistd.h>

#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "persistence/value_reader.h"
#include "persistence/value_writer.h"
#include "platform/headless_surface.h"
#include "plot/graph.h"
#include "plot/plot_select.h"
#include "plot/trace.h"
#include "report/report_content.h"
#include "report/text_exports.h"
#include "support/fresh_program.h"
#include "support/upper_halves.h"
#include "timedomain/excitation.h"
#include "timedomain/plot_points.h"
#include "timedomain/responses.h"
#include "timedomain/transform.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

// Work that begins right behind the toolkit's painting runs at full speed: it finds the upper
// halves of the vector registers filled and clears them.

namespace halvorne::testing {
namespace {

struct Work {
  const char* name;
  std::function<void()> run;
};

void PrintTo(const Work& work, std::ostream* out) {
  *out << work.name;
}

class VectorRegisters : public FreshProgram {
 protected:
  VectorRegisters() {
    if (HasUpperHalves()) {
      MakeSimpleDesign();
      PrelimCalc();
      MainCalc();
    }
  }
};

TEST(UpperHalves, AreClearedWithoutTouchingTheLowerOnes) {
  if (!HasUpperHalves()) {
    CleanVectorRegisters();
    GTEST_SKIP() << "the processor has none";
  }
  FillUpperHalves();
  ASSERT_FALSE(AreUpperHalvesClean());
  volatile double kept = 0.1;
  const double before = kept;
  CleanVectorRegisters();
  EXPECT_TRUE(AreUpperHalvesClean());
  EXPECT_EQ(before, kept);
}

class WorkOnNumbers : public VectorRegisters, public ::testing::WithParamInterface<Work> {};

TEST_P(WorkOnNumbers, LeavesTheRegistersClean) {
  if (!HasUpperHalves()) {
    GTEST_SKIP() << "the processor has no upper halves";
  }
  FillUpperHalves();
  GetParam().run();
  EXPECT_TRUE(AreUpperHalvesClean());
}

/// Leaves the upper halves filled behind each trace, as the toolkit's painting does, and counts the
/// panes that begin with clean ones.
class PaintedPanes : public HeadlessSurface {
 public:
  void Scale(double x1, double y1, double x2, double y2) override {
    clean += AreUpperHalvesClean() ? 1 : 0;
    HeadlessSurface::Scale(x1, y1, x2, y2);
  }
  void Polyline(std::span<const Point> points) override {
    HeadlessSurface::Polyline(points);
    FillUpperHalves();
  }
  int clean = 0;
};

TEST_F(VectorRegisters, AreCleanWhereAnyPaneOfAGraphBegins) {
  if (!HasUpperHalves()) {
    GTEST_SKIP() << "the processor has no upper halves";
  }
  design.ExciteType = 1;
  view.CurrentPlot = 17;
  PlotSelect(17);
  PaintedPanes surface;
  FillUpperHalves();
  PlotGraphOn(surface);
  EXPECT_EQ(surface.clean, 3);
}

std::string ScratchFile() {
  return (std::filesystem::temp_directory_path() /
          ("halvorne-registers-" + std::to_string(getpid())))
      .string();
}

void ReadAFile() {
  const ValueReader file(HALVORNE_SOURCE_DIR "/share/HALVORNESETUP");
}

void WriteAFile() {
  ValueWriter(ScratchFile()).Close();
  std::filesystem::remove(ScratchFile());
}

void DrawATrace() {
  HeadlessSurface surface(SurfaceKind::kMainPicture);
  DrawTrace(surface, {.array = points.PlotData,
                      .channel = &PlotPoint::Y1,
                      .start = 0,
                      .origin = 0,
                      .intervals = 1,
                      .min = 0,
                      .max = 1});
}

void PreviewABurst() {
  HeadlessSurface surface;
  PreviewExcite(surface);
}

void PrintTheInputs() {
  HeadlessSurface surface(SurfaceKind::kPreview);
  PrintParasOn(surface);
}

INSTANTIATE_TEST_SUITE_P(
    Work, WorkOnNumbers,
    ::testing::Values(Work{"PrelimCalc", PrelimCalc}, Work{"MainCalc", MainCalc},
                      Work{"FFTSolve", [] { FFTSolve(wave.ImpulseRe, wave.ImpulseIm, 2, 0); }},
                      Work{"Waveform", Waveform}, Work{"Convolve", Convolve},
                      Work{"CalcExciteWfm", CalcExciteWfm}, Work{"PreviewExcite", PreviewABurst},
                      Work{"PrintParasOn", PrintTheInputs},
                      Work{"PlotSelect", [] { PlotSelect(11); }},
                      Work{"PlotConvertDataType", [] { PlotConvertDataType(11); }},
                      Work{"DrawTrace", DrawATrace},
                      Work{"GraphDataToClipboard",
                           [] {
                             std::string text;
                             GraphDataToClipboard(text);
                           }},
                      Work{"ValueReader", ReadAFile}, Work{"ValueWriter", WriteAFile},
                      Work{"ValueWriterInMemory", [] { const ValueWriter memory; }}),
    [](const auto& work) { return std::string(work.param.name); });

}  // namespace
}  // namespace halvorne::testing
