#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>

namespace orvel {

// The terminal host's line for a long read. Once a list has been reading for
// a second, "Skaitomas sąrašas: N eil." tells how far it is: on a terminal one
// line written over as it grows, elsewhere a line at each 100,000 rows. When
// the list is read, a shown line ends with the count and the seconds it took;
// a read under a second shows nothing.
class FillProgress {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  FillProgress(std::ostream& out, bool terminal, Clock clock = std::chrono::steady_clock::now);

  // The layer's fill observer: 0 as a read starts, the rows so far, and the
  // count with `done`.
  void operator()(int64_t rows, bool done);

 private:
  std::ostream& out_;
  bool terminal_;
  Clock clock_;
  std::chrono::steady_clock::time_point start_;
  int64_t shown_ = -1;  // the rows last written; -1 for none in this read
};

}  // namespace orvel
