#include "testhost/ScriptedUi.h"

#include "testhost/CallLog.h"

namespace orvel {

namespace {
// The button groups of the legacy message box, in the low bits of the flags.
constexpr int32_t kButtonsMask = 7;
constexpr int32_t kAbortRetryIgnore = 2;
constexpr int32_t kRetryCancel = 5;
constexpr int32_t kAbort = 3;
constexpr int32_t kRetry = 4;
}  // namespace

ScriptedUi::ScriptedUi(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

int32_t ScriptedUi::FirstButton(int32_t flags) {
  switch (flags & kButtonsMask) {
    case vbYesNoCancel:
    case vbYesNo:
      return vbYes;
    case kAbortRetryIgnore:
      return kAbort;
    case kRetryCancel:
      return kRetry;
    default:
      return vbOK;
  }
}

int32_t ScriptedUi::MsgBox(const std::string& prompt, int32_t flags, const std::string& title) {
  log_->Add(Channel::Message, "MsgBox", {std::to_string(flags), title, prompt});
  int32_t answer = FirstButton(flags);
  if (!answers_.empty()) {
    answer = answers_.front();
    answers_.pop_front();
  }
  boxes_.push_back({prompt, flags, title, answer});
  return answer;
}

void ScriptedUi::SetMousePointer(int32_t pointer) {
  pointer_ = pointer;
  pointers_.push_back(pointer);
}

}  // namespace orvel
