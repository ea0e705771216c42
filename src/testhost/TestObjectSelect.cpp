#include "testhost/TestObjectSelect.h"

#include "testhost/CallLog.h"

namespace orvel {

TestObjectSelect::TestObjectSelect(std::shared_ptr<CallLog> log,
                                   std::shared_ptr<PickerAnswers> answers)
    : log_(std::move(log)), answers_(std::move(answers)) {}

void TestObjectSelect::SetColumnCaption(const std::string& caption) {
  columnCaption_ = caption;
  log_->Add(Channel::Host, "OrvelObjectSelect.ColumnCaption", {caption});
}

void TestObjectSelect::SetOType(const std::string& otype) {
  otype_ = otype;
  log_->Add(Channel::Host, "OrvelObjectSelect.OType", {otype});
}

void TestObjectSelect::SetMultiSelect(bool multiSelect) {
  multiSelect_ = multiSelect;
  log_->Add(Channel::Host, "OrvelObjectSelect.MultiSelect", {multiSelect ? "True" : "False"});
}

std::string TestObjectSelect::Show() {
  log_->Add(Channel::Host, "OrvelObjectSelect.Show", {});
  ++showCount_;
  result_ = PickerAnswers::Search{};
  if (answers_ && !answers_->searches.empty()) {
    result_ = std::move(answers_->searches.front());
    answers_->searches.pop_front();
  }
  return result_.text;
}

}  // namespace orvel
