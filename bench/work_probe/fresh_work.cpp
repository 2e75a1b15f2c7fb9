#include "timed_sweep.h"

// The sweep in a process that knows nothing of the toolkit.

int main() {
  halvorne::bench::PrintSweepTime([] {});
}
