// Makes the design files and side files of share/ from readable sources:
//
//   make_designs SHARE SOURCE.txt...
//
// A line of a source is NAME=VALUE as `halvorne-batch --set` takes it, a comment behind "#", or a
// law, which is worked out when all values are there:
//
//   law dispersion SLOT FILE.csv           velocity of the plate in a dispersion slot by its loss
//   law piston RADIUS VELOCITY FILE.lac    front load of a disk in a baffle
//   law excitation FILE.xct                the sampled tone burst as a side file
//   law format3 FILE.dat                   the design once more as older versions wrote it

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "batch/batch_messages.h"
#include "engine/frequency_sweep.h"
#include "format3_writer.h"
#include "load_and_dispersion_laws.h"
#include "persistence/design_file.h"
#include "platform/messages.h"
#include "platform/number_text.h"
#include "platform/numbers.h"
#include "quantities/derived_values.h"
#include "quantities/settings.h"
#include "timedomain/view.h"
#include "timedomain/wave_state.h"

namespace halvorne::tools {
namespace {

namespace fs = std::filesystem;

/// What the side files hold: six decimals are more than any measurement gives.
double SixDecimals(double value) {
  return std::round(value * 1e6) / 1e6;
}

double PointFreq(long point) {
  return design.FreqStart +
         static_cast<double>(point) * (design.FreqStop - design.FreqStart) / design.NoFreqPts;
}

/// A file of one comment and one line for each index from 0 to `last`.
template <class LineOf>
void WriteSideFile(const fs::path& path, const std::string& comment, long last, LineOf lineOf) {
  fs::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << comment << "\r\n";
  for (long index = 0; index <= last; ++index) {
    file << lineOf(index) << "\r\n";
  }
  if (!file.flush()) {
    throw std::runtime_error(path.string() + " could not be written");
  }
}

const AcousticMaterial& PlateInSlot(int slot) {
  return slot < kBackSlot ? design.FaceMatl(slot) : design.BackMatl(slot - kBackSlot);
}

void Disperse(int slot, const fs::path& path) {
  const AcousticMaterial& plate = PlateInSlot(slot);
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    design.VelDisp(slot, point) = SixDecimals(VelocityFactor(plate, PointFreq(point)));
  }
  design.VelDispNames(slot, 0) = path.filename().string();
  design.VelDispNames(slot, 1) =
      plate.Name + ": velocity that belongs to a loss of " + NumberText(plate.Loss) + " dB/cm at " +
      NumberText(plate.LossFreq) + " MHz, " + NumberText(design.FreqStart / design.FreqScale) +
      " to " + NumberText(design.FreqStop / design.FreqScale) + " " + design.FreqUnit + ", " +
      std::to_string(design.NoFreqPts + 1) + " points";
  WriteSideFile(path, design.VelDispNames(slot, 1), design.NoFreqPts,
                [slot](long point) { return NumberText(design.VelDisp(slot, point)); });
}

void RadiateAsPiston(double radius, double velocity, const fs::path& path) {
  for (long point = 0; point <= design.NoFreqPts; ++point) {
    const PistonImpedance load = PistonRadiation(radius, velocity, PointFreq(point));
    design.ZFrontNormRe(point) = SixDecimals(load.re);
    design.ZFrontNormIm(point) = SixDecimals(load.im);
  }
  design.ZFrontFile = path.filename().string();
  design.ZFrontComment = "Radiation impedance of a baffled disk of " + NumberText(radius * 2000) +
                         " mm in a medium of " + NumberText(velocity) + " m/s, " +
                         std::to_string(design.NoFreqPts + 1) + " points";
  WriteSideFile(path, design.ZFrontComment, design.NoFreqPts, [](long point) {
    return NumberText(design.ZFrontNormRe(point)) + "," + NumberText(design.ZFrontNormIm(point));
  });
}

/// Scales the sampled burst to a peak of 1, as the preview of the excitation dialog does.
void NormaliseExcitation() {
  const double peak =
      std::abs(*std::ranges::max_element(wave.ExciteRe, {}, [](double v) { return std::abs(v); }));
  for (double& sample : wave.ExciteRe) {
    sample = peak == 0 ? 0 : sample / peak;
  }
}

/// Up to the last sample that isn't 0: a reader zeroes what lies behind.
void SaveExcitation(const fs::path& path) {
  long last = design.ExciteLength;
  while (last > 0 && wave.ExciteRe(last) == 0) {
    --last;
  }
  const double microseconds = SixDecimals(1e6 * static_cast<double>(design.ExciteDelay));
  const std::string comment = "Tone burst of " + NumberText(design.ExciteCycles) + " cycles at " +
                              NumberText(design.ExciteFreq / design.FreqScale) + " " +
                              design.FreqUnit + " behind " + NumberText(microseconds) +
                              " usec, sampled at " +
                              NumberText(design.SampleRateHz / design.FreqScale) + " " +
                              design.FreqUnit + ", " + std::to_string(last + 1) + " points";
  WriteSideFile(path, comment, last,
                [](long sample) { return NumberText(SixDecimals(wave.ExciteRe(sample))); });
}

/// The design before its source is read: nothing but the neutral values.
void StartDesign() {
  Reset(design);
  Reset(curves);
  Reset(wave);
  design.ZFrontFile = design.ZBackFile = "blank";
  design.ZFrontComment = design.ZBackComment = "none";
  for (int slot = 0; slot < kDispersionSlots; ++slot) {
    std::ranges::fill(design.VelDisp.rows(slot), 1.0);
    design.VelDispNames(slot, 0) = design.VelDispNames(slot, 1) = "blank";
  }
  view.TimeWindowPercent = 50;
}

/// The values of a source are stored at once; its laws are returned.
std::vector<std::string> ReadSource(const fs::path& source) {
  std::ifstream file(source);
  if (!file) {
    throw std::runtime_error(source.string() + " could not be read");
  }
  std::vector<std::string> laws;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("law ")) {
      laws.push_back(line.substr(4));
    } else if (!line.empty() && !line.starts_with('#')) {
      const Setting setting = ReadSetting(line);
      StoreFieldValue(setting.place, setting.value);
    }
  }
  return laws;
}

std::string RestOf(std::istream& words) {
  std::string rest;
  std::getline(words >> std::ws, rest);
  return rest;
}

void MakeDesign(const fs::path& share, const fs::path& source) {
  StartDesign();
  const std::vector<std::string> laws = ReadSource(source);
  std::string olderFile;
  std::string excitationFile;
  for (const std::string& law : laws) {
    std::istringstream words(law);
    std::string kind;
    words >> kind;
    if (int slot = 0; kind == "dispersion" && words >> slot) {
      Disperse(slot, share / "Velocity dispersion" / RestOf(words));
    } else if (double radius = 0, velocity = 0; kind == "piston" && words >> radius >> velocity) {
      RadiateAsPiston(radius, velocity, share / "Acoustic loads" / RestOf(words));
    } else if (kind == "format3") {
      olderFile = RestOf(words);
    } else if (kind == "excitation") {
      excitationFile = RestOf(words);
    } else {
      throw std::runtime_error(source.string() + ": no such law: " + law);
    }
  }
  MakeDerivedValues(kPiezo | kSampling | kLoads);
  NormaliseExcitation();
  if (!excitationFile.empty()) {
    SaveExcitation(share / "EXCITE" / excitationFile);
  }
  const std::string date = design.CalcDateTime;  // the sweep stamps the time of now
  PrelimCalc();
  MainCalc();
  design.CalcDateTime = date;
  const fs::path data = share / "DATA";
  fs::create_directories(data);
  WriteDesignFile((data / source.stem()).string() + ".dat");
  if (!olderFile.empty()) {
    WriteFormat3((data / olderFile).string());
  }
}

int Main(const std::vector<std::string>& arguments) {
  if (arguments.size() < 2) {
    std::fputs("make_designs SHARE SOURCE.txt...\n", stderr);
    return EXIT_FAILURE;
  }
  batch::BatchMessages boxes(/*overwrite=*/true, /*acceptAliasing=*/false);
  SetMessages(&boxes);
  for (std::size_t k = 1; k < arguments.size(); ++k) {
    MakeDesign(arguments[0], arguments[k]);
  }
  boxes.Tell();
  SetMessages(nullptr);
  return boxes.FailureCount() == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace halvorne::tools

int main(int argc, char** argv) try {
  return halvorne::tools::Main({argv + 1, argv + argc});
} catch (const std::exception& failure) {
  std::fprintf(stderr, "make_designs: %s\n", failure.what());
  return EXIT_FAILURE;
}
