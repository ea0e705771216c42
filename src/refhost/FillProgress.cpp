#include "refhost/FillProgress.h"

#include <string>

#include "host/Convert.h"

namespace orvel {

namespace {

constexpr int64_t kLineRows = 100000;  // a line each this many rows, off a terminal

}  // namespace

FillProgress::FillProgress(std::ostream& out, bool terminal, ProgressLine::Clock clock)
    : line_(out, terminal, kLineRows, std::move(clock)) {}

void FillProgress::operator()(int64_t rows, bool done) {
  if (rows == 0 && !done) return line_.Start();
  const std::string text = "Skaitomas sąrašas: " + std::to_string(rows) + " eil.";
  if (done) {
    line_.Finish(text + ", " + FormatNumber(line_.Seconds(), 1) + " s");
  } else {
    line_.Show(rows, text);
  }
}

}  // namespace orvel
