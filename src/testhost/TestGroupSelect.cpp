#include "testhost/TestGroupSelect.h"

#include "testhost/CallLog.h"

namespace orvel {

TestGroupSelect::TestGroupSelect(std::shared_ptr<CallLog> log,
                                 std::shared_ptr<PickerAnswers> answers)
    : log_(std::move(log)), answers_(std::move(answers)) {}

void TestGroupSelect::LogProperty(const char* property, const std::string& value) {
  log_->Add(Channel::Host, std::string("OrvelGroupSelect.") + property, {value});
}

void TestGroupSelect::SetCaption(const std::string& caption) {
  caption_ = caption;
  LogProperty("Caption", caption);
}

void TestGroupSelect::SetRootOType(const std::string& otype) {
  rootOType_ = otype;
  LogProperty("RootOType", otype);
}

void TestGroupSelect::SetSelectKind(const std::string& kind) {
  selectKind_ = kind;
  LogProperty("SelectKind", kind);
}

void TestGroupSelect::SetOType(const std::string& otype) {
  otype_ = otype;
  LogProperty("OType", otype);
}

void TestGroupSelect::SetExcludeTypes(const std::string& types) {
  excludeTypes_ = types;
  LogProperty("ExcludeTypes", types);
}

void TestGroupSelect::Show() {
  log_->Add(Channel::Host, "OrvelGroupSelect.Show", {});
  ++showCount_;
  result_ = PickerAnswers::Group{};
  if (answers_ && !answers_->groups.empty()) {
    result_ = std::move(answers_->groups.front());
    answers_->groups.pop_front();
  }
}

}  // namespace orvel
