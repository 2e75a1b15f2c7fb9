#include <array>

#include "engine/acoustic_sections.h"
#include "engine/design_model.h"
#include "fuzz/fuzzed_program.h"
#include "fuzz/harnesses.h"
#include "persistence/complex_load_file.h"
#include "persistence/dispersion_file.h"
#include "persistence/excitation_file.h"
#include "platform/failure.h"
#include "support/program_state.h"

namespace halvorne::fuzz {
namespace {

void PromiseBoxes(const FuzzedProgram& program, int refused) {
  Promise(static_cast<int>(program.messages.boxes.size()) == refused,
          "a file that is refused has one box, any other none");
}

}  // namespace

void FuzzComplexLoadFile(std::string_view bytes) {
  const FuzzedProgram program;
  testing::MakeSimpleDesign();
  const std::string file = program.Put("load", bytes);
  PromiseBoxes(program, (ReadFrontLoadFile(file) ? 0 : 1) + (ReadRearLoadFile(file) ? 0 : 1));
  design.ZFrontComplex = design.ZBackComplex = true;
  CmplxLoad();
}

void FuzzDispersionFile(std::string_view bytes) {
  const FuzzedProgram program;
  testing::MakeSimpleDesign();
  constexpr std::array slots{0, kBackSlot};
  const bool read = ReadDispersionFile(program.Put("dispersion", bytes), "title", slots);
  PromiseBoxes(program, read ? 0 : 1);
  for (long point = 0; point <= kLastFreqPoint; ++point) {
    Promise(design.VelDisp(0, point) == design.VelDisp(kBackSlot, point),
            "both slots get the same factors");
  }
}

void FuzzExcitationFile(std::string_view bytes) {
  const FuzzedProgram program;
  const std::string file = program.Put("excitation", bytes);
  std::string comment = "old";
  draft.TmpExcitePoints = 7;
  try {
    ReadExciteFile(file, comment);
    Promise(draft.TmpExcitePoints >= 1 && draft.TmpExcitePoints <= kLastFreqPoint + 1,
            "an excitation has 1 to 16001 points");
  } catch (const Failure&) {
    Promise(comment == "old" && draft.TmpExcitePoints == 7, "a refused file changes nothing");
  }
}

}  // namespace halvorne::fuzz
