#include "platform/main_window.h"

#include "platform/failure.h"

namespace halvorne {
namespace {
MainWindow* inForce = nullptr;
}  // namespace

MainWindow& mainWindow() {
  if (inForce == nullptr) {
    throw Failure(failure_number::kInvalidCall);
  }
  return *inForce;
}

MainWindow* SetMainWindow(MainWindow* window) {
  MainWindow* const before = inForce;
  inForce = window;
  return before;
}

}  // namespace halvorne
