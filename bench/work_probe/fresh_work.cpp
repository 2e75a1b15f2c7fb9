#include "timed_work.h"

// Work in a process that knows nothing of the toolkit: halvorne-bench-fresh-work NAME.

int main(int argc, char** argv) {
  halvorne::bench::PrintTimeOf(argc == 2 ? argv[1] : "", [] {});
}
