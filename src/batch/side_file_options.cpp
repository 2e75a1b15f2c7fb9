#include "batch/side_file_options.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <vector>

#include "batch/input_source.h"
#include "batch/stops.h"
#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "persistence/complex_load_file.h"
#include "persistence/excitation_file.h"
#include "platform/file_failure.h"
#include "platform/numbers.h"
#include "quantities/field_values.h"
#include "timedomain/excitation.h"

namespace halvorne::batch {
namespace {

constexpr std::int16_t kToneBurst = 1;
constexpr std::int16_t kDataFile = 2;
constexpr std::int16_t kSine = 1;
constexpr std::int16_t kSquare = 2;

/// The design keeps names with their folder, as the dialogs' file boxes give them.
std::string WithFolder(const std::string& fileName) {
  return fileName.empty() ? "" : std::filesystem::absolute(fileName).lexically_normal().string();
}

std::vector<std::string> Words(const std::string& text) {
  std::vector<std::string> words;
  std::size_t begin = 0;
  for (std::size_t comma = 0; comma != std::string::npos; begin = comma + 1) {
    comma = text.find(',', begin);
    words.push_back(text.substr(begin, comma - begin));
  }
  return words;
}

double SingleNumber(const std::string& text) {
  const double value = ReadNumber(text);
  if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) {
    throw WrongCommandLine("'" + text + "' is too large");
  }
  return value;
}

void ApplyLoads(const SideInputs& inputs) {
  if (inputs.frontLoad) {
    design.ZFrontComplex = true;
    design.ZFrontFile = WithFolder(*inputs.frontLoad);
    ReadFrontLoadFile(InputSource(design.ZFrontFile).Name());
  }
  if (inputs.backLoad) {
    design.ZBackComplex = true;
    design.ZBackFile = WithFolder(*inputs.backLoad);
    ReadRearLoadFile(InputSource(design.ZBackFile).Name());
  }
  if (inputs.frontLoad || inputs.backLoad) {
    CmplxLoad();
  }
}

void Commit(const std::string& fileName, const std::string& comment) {
  NormaliseExcite();
  StoreExcite(fileName, comment);
  EnableConvolve(design.ExciteType);
}

void ApplyExcitation(const std::string& fileName) {
  CopyExciteToTemp();
  draft.TmpExciteType = kDataFile;
  std::string comment;
  const InputSource source(fileName);
  try {
    ReadExciteFile(source.Name(), comment);
  } catch (...) {
    ReportFileFailure("OpenExciteFile_Click");
    return;
  }
  Commit(fileName, comment);
}

void ApplyBurst(const Burst& burst) {
  CopyExciteToTemp();
  draft.TmpExciteType = kToneBurst;
  draft.TmpExciteWave = burst.square ? kSquare : kSine;
  draft.TmpExciteFreq = BurstFreq(burst.hertz);
  draft.TmpExciteCycles = ToSingle(std::fabs(burst.cycles));
  draft.TmpExciteDelay = ToSingle(std::fabs(burst.seconds));
  draft.TmpExcitePhase = ToSingle(std::fabs(burst.degrees));
  draft.TmpExcitePoints = BurstPoints(burst.points);
  CalcExciteWfm();
  Commit("", "");
}

}  // namespace

Burst ReadBurst(const std::string& text) {
  constexpr std::size_t numbers = 5;
  const std::vector<std::string> words = Words(text);
  try {
    const bool square = words.size() == numbers + 1 && words.back() == "square";
    if (words.size() != numbers && !square) {
      throw WrongCommandLine("it is not of the form FREQ,CYCLES,DELAY,PHASE,POINTS[,square]");
    }
    return {SingleNumber(words[0]), SingleNumber(words[1]), SingleNumber(words[2]),
            SingleNumber(words[3]), SingleNumber(words[4]), square};
  } catch (const WrongCommandLine& wrong) {
    throw WrongCommandLine("--burst " + text + ": " + wrong.what());
  }
}

void ApplySideInputs(const SideInputs& inputs) {
  ApplyLoads(inputs);
  ApplyDispersion(inputs.dispersion);
  if (inputs.excitation) {
    ApplyExcitation(WithFolder(*inputs.excitation));
  }
  if (inputs.burst) {
    ApplyBurst(*inputs.burst);
  }
}

}  // namespace halvorne::batch
