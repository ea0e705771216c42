#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <ostream>
#include <string>

namespace orvel {

// A line on standard error for work that may run long. Nothing shows for the
// first second. After that, on a terminal, one line is written over as the
// work goes; elsewhere (a log, a pipe) a new line is written each time the
// value passes a multiple of `every`, so a log keeps a few lines, not
// thousands. Used for reading a long list and for making a large database.
class ProgressLine {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;

  ProgressLine(std::ostream& out, bool terminal, int64_t every,
               Clock clock = std::chrono::steady_clock::now);

  // The work begins again: the first second counts from now.
  void Start();
  // `text` tells where the work stands at `value` (rows read, percent done).
  void Show(int64_t value, const std::string& text);
  // The work ended. A shown line is finished with `text` (an empty text only
  // ends it on a terminal); when nothing was shown (the work took under a
  // second) nothing is written.
  void Finish(const std::string& text);
  // Seconds since the work began.
  double Seconds() const;

 private:
  std::ostream& out_;
  bool terminal_;
  int64_t every_;
  Clock clock_;
  std::chrono::steady_clock::time_point start_;
  int64_t shown_ = -1;  // the value last written; -1 for none since Start
};

}  // namespace orvel
