#include "support/fresh_program.h"

namespace halvorne::testing {

FreshProgram::FreshProgram() {
  ResetProgram();
  SetMessages(&shownMessages);
  SetMainWindow(&window);
}

FreshProgram::~FreshProgram() {
  SetMainWindow(nullptr);
  SetMessages(nullptr);
}

}  // namespace halvorne::testing
