#include <cmath>
#include <cstddef>
#include <vector>

#include "bench_designs.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "engine/instruction_sets.h"
#include "platform/numbers.h"
#include "quiet_program.h"
#include "subjects.h"

namespace halvorne::bench {
namespace {

/// Arguments of the library calls that one lossy line needs at each point.
struct Line {
  double delay;
  double loss;
  double lossFreq;
  double lossExp;
};

/// All library calls of a sweep; what stands between them is left out as far as it can be.
struct Calls {
  std::vector<Line> lines;   ///< cosine, sine, power, exponential
  int layers;                ///< two sines each
  std::vector<Line> cables;  ///< cosine, sine, exponential
};

void AddLine(Calls& calls, bool front, int k) {
  calls.lines.push_back(front ? Line{design.FrontDelay(k), design.FrontLoss(k),
                                     1 / design.FrontLossFreq(k), design.FrontLossExp(k)}
                              : Line{design.BackDelay(k), design.BackLoss(k),
                                     1 / design.BackLossFreq(k), design.BackLossExp(k)});
}

Calls CallsOfSweep() {
  Calls calls;
  for (int k = 0; k <= design.NoBack; ++k) {
    AddLine(calls, false, k);
  }
  for (int k = 0; k <= design.NoFace; ++k) {
    AddLine(calls, true, k);
  }
  if (design.NoPiezo == 2) {
    AddLine(calls, true, 0);
    AddLine(calls, false, 0);
  }
  calls.layers = design.NoPiezo;
  constexpr double kCable = 7;
  for (int row = 1; row <= kNetworkRows; ++row) {
    if (design.ElNet(row, 1) == kCable) {
      calls.cables.push_back({design.ElNet(row, 3) / 2.1e8, design.ElNet(row, 4) * 1e-4, 1, 1});
    }
  }
  return calls;
}

/// The calls at one point; their sum keeps the compiler from leaving them out.
double CallLibrary(const Calls& calls, double freq) {
  const double omega = freq * kTwoPi;
  double sum = 0;
  for (const Line& line : calls.lines) {
    const double phase = omega * line.delay;
    sum += std::cos(phase) + std::sin(phase);
    sum += std::exp(std::pow(freq * line.lossFreq, line.lossExp) * line.loss);
  }
  for (int layer = 0; layer < calls.layers; ++layer) {
    sum += std::sin(freq * 3e-7) + std::sin(freq * 6e-7);
  }
  for (const Line& cable : calls.cables) {
    const double phase = omega * cable.delay;
    sum += std::cos(phase) + std::sin(phase) + std::exp(phase * cable.loss);
  }
  return sum;
}

void LibraryCalls(benchmark::State& state) {
  const Calls calls = CallsOfSweep();
  const double step = (design.FreqStop - design.FreqStart) / design.NoFreqPts;
  for ([[maybe_unused]] auto once : state) {
    for (int point = 0; point <= design.NoFreqPts; ++point) {
      benchmark::DoNotOptimize(CallLibrary(calls, design.FreqStart + point * step));
    }
  }
}

void Sweep(benchmark::State& state) {
  for ([[maybe_unused]] auto once : state) {
    MainCalc();
    benchmark::ClobberMemory();
  }
  CheckQuiet(state);
}

/// Sweeps by the n-th narrowest instruction set, whatever wider ones the processor has.
template <std::size_t kNumber>
void NarrowSweep(benchmark::State& state) {
  const InstructionSet* const widest = SweepInstructions();
  const auto sets = InstructionSets();
  SetSweepInstructions(kNumber < sets.size() ? sets[kNumber] : widest);
  Sweep(state);
  SetSweepInstructions(widest);
}
constexpr auto kBaselineSweep = NarrowSweep<0>;
constexpr auto kAvx2Sweep = NarrowSweep<1>;

template <void (*kMake)(), void (*kWork)(benchmark::State&)>
void With(benchmark::State& state) {
  kMake();
  kWork(state);
}

}  // namespace

std::vector<Row> SweepRows() {
  return {{"sweep, largest", 4, 0.5, With<MakeLargestDesign, LibraryCalls>,
           With<MakeLargestDesign, Sweep>},
          {"sweep, largest, AVX2", 4, 0.5, With<MakeLargestDesign, LibraryCalls>,
           With<MakeLargestDesign, kAvx2Sweep>},
          {"sweep, largest, baseline", 4, 1.2, With<MakeLargestDesign, LibraryCalls>,
           With<MakeLargestDesign, kBaselineSweep>},
          {"sweep, typical", 4.5, 0.5, With<MakeTypicalDesign, LibraryCalls>,
           With<MakeTypicalDesign, Sweep>},
          {"sweep, typical, AVX2", 4.5, 0.5, With<MakeTypicalDesign, LibraryCalls>,
           With<MakeTypicalDesign, kAvx2Sweep>},
          {"sweep, typical, baseline", 4.5, 1.2, With<MakeTypicalDesign, LibraryCalls>,
           With<MakeTypicalDesign, kBaselineSweep>}};
}

}  // namespace halvorne::bench
