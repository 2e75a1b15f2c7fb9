#include "persistence/refused_calls.h"

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <unistd.h>

namespace {

bool noNewFiles = false;
int closeError = 0;

}  // namespace

// The linker leads every call of fopen and fclose in this test here.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
extern "C" {

std::FILE* __real_fopen(const char* name, const char* mode);
int __real_fclose(std::FILE* file);

std::FILE* __wrap_fopen(const char* name, const char* mode) {
  if (noNewFiles && std::string_view(mode).starts_with('w') && access(name, F_OK) != 0) {
    errno = ENOSPC;
    return nullptr;
  }
  return __real_fopen(name, mode);
}

int __wrap_fclose(std::FILE* file) {
  const int result = __real_fclose(file);
  if (closeError == 0) {
    return result;
  }
  errno = closeError;
  return EOF;
}

}  // extern "C"
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)

namespace halvorne::testing {

NoNewFiles::NoNewFiles() {
  noNewFiles = true;
}
NoNewFiles::~NoNewFiles() {
  noNewFiles = false;
}

FailingCloses::FailingCloses(int error) {
  closeError = error;
}
FailingCloses::~FailingCloses() {
  closeError = 0;
}

}  // namespace halvorne::testing
