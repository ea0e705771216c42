#include "host/ProgressLine.h"

namespace orvel {

ProgressLine::ProgressLine(std::ostream& out, bool terminal, int64_t every, Clock clock)
    : out_(out), terminal_(terminal), every_(every > 0 ? every : 1), clock_(std::move(clock)) {
  Start();
}

void ProgressLine::Start() {
  start_ = clock_();
  shown_ = -1;
}

void ProgressLine::Show(int64_t value, const std::string& text) {
  if (value == shown_ || clock_() - start_ < std::chrono::seconds(1)) return;
  if (!terminal_ && shown_ >= 0 && value / every_ == shown_ / every_) return;
  out_ << (terminal_ ? "\r" + text : text + "\n");
  out_.flush();
  shown_ = value;
}

void ProgressLine::Finish(const std::string& text) {
  if (shown_ < 0) return;
  if (terminal_) {
    out_ << "\r" << text << "\n";
  } else if (!text.empty()) {
    out_ << text << "\n";
  }
  out_.flush();
  shown_ = -1;
}

double ProgressLine::Seconds() const {
  return std::chrono::duration<double>(clock_() - start_).count();
}

}  // namespace orvel
