#include "refhost/FillProgress.h"

#include <string>

#include "host/Convert.h"

namespace orvel {

namespace {

constexpr int64_t kLineRows = 100000;  // a line each this many rows, off a terminal

}  // namespace

FillProgress::FillProgress(std::ostream& out, bool terminal, Clock clock)
    : out_(out), terminal_(terminal), clock_(std::move(clock)) {}

void FillProgress::operator()(int64_t rows, bool done) {
  const auto now = clock_();
  if (rows == 0 && !done) {
    start_ = now;
    shown_ = -1;
    return;
  }
  const std::string line = "Skaitomas sąrašas: " + std::to_string(rows) + " eil.";
  if (done) {
    if (shown_ < 0) return;
    const double seconds = std::chrono::duration<double>(now - start_).count();
    out_ << (terminal_ ? "\r" : "") << line << ", " << FormatNumber(seconds, 1) << " s\n";
    out_.flush();
    shown_ = -1;
    return;
  }
  if (now - start_ < std::chrono::seconds(1)) return;
  if (!terminal_ && shown_ >= 0 && rows / kLineRows == shown_ / kLineRows) return;
  out_ << (terminal_ ? "\r" + line : line + "\n");
  out_.flush();
  shown_ = rows;
}

}  // namespace orvel
