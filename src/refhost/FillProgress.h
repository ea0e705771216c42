#pragma once

#include <cstdint>
#include <ostream>

#include "host/ProgressLine.h"

namespace orvel {

// The terminal host's line for a long read. Once a list has been reading for
// a second, "Skaitomas sąrašas: N eil." tells how far it is: on a terminal one
// line written over as it grows, elsewhere a line at each 100,000 rows. When
// the list is read, a shown line ends with the count and the seconds it took;
// a read under a second shows nothing.
class FillProgress {
 public:
  FillProgress(std::ostream& out, bool terminal,
               ProgressLine::Clock clock = std::chrono::steady_clock::now);

  // The layer's fill observer: 0 as a read starts, the rows so far, and the
  // count with `done`.
  void operator()(int64_t rows, bool done);

 private:
  ProgressLine line_;
};

}  // namespace orvel
