#include "designs/shipped_design.h"

#include <fstream>
#include <sstream>

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "engine/frequency_sweep.h"
#include "engine/piezo_section.h"
#include "persistence/design_file.h"
#include "persistence/setup_file.h"
#include "platform/paths.h"
#include "timedomain/sample_rate.h"

namespace halvorne::testing {

std::string SharedFile(const std::string& path) {
  return std::string(HALVORNE_SOURCE_DIR "/share/") + path;
}

void ShippedDesign::Open(const std::string& name) {
  SetProgramFolder(SharedFile(""));
  ReadHalvorneSetup();
  ReadDesignFile(SharedFile("DATA/" + name + ".dat"));
}

void ShippedDesign::Sweep() {
  CmplxLoad();
  SampleRate();
  PiezoConstants();
  PiezoLayers();
  PrelimCalc();
  MainCalc();
}

void ShippedDesign::SweepFrom(double freq) {
  design.FreqStart = freq;
  design.FreqStop = 1.5 * freq;
  design.NoFreqPts = 1;
  Sweep();
}

void ShippedDesign::MakeLossless() {
  for (PiezoMaterial& matl : design.PZMatl) {
    matl.TanDe = 1e-9;
    matl.TanDm = 0;
  }
  for (AcousticMaterial& plate : design.FaceMatl) {
    plate.Loss = 0;
  }
}

std::vector<ReferenceRow> ReferenceTable(const std::string& name) {
  std::ifstream file(HALVORNE_SOURCE_DIR "/tests/data/" + name);
  std::string line;
  std::getline(file, line);  // comment
  std::getline(file, line);  // header
  std::vector<ReferenceRow> rows;
  while (std::getline(file, line)) {
    std::istringstream words(line);
    ReferenceRow row;
    std::getline(words, row.design, ',');
    for (std::string number; std::getline(words, number, ',');) {
      row.values.push_back(std::stod(number));
    }
    rows.push_back(row);
  }
  return rows;
}

}  // namespace halvorne::testing
