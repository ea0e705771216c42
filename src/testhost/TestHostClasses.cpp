#include "testhost/TestHostClasses.h"

#include "testhost/CallLog.h"
#include "testhost/TestComponentRegistry.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestObjectSelect.h"
#include "testhost/TestPrintDoc.h"

namespace orvel {

TestHostClasses::TestHostClasses(std::shared_ptr<CallLog> log)
    : log_(std::move(log)), answers_(std::make_shared<PickerAnswers>()) {}

void TestHostClasses::QueueGroupSelect(std::string resultOIDR, std::string resultName,
                                       std::string resultOType) {
  answers_->groups.push_back(
      {std::move(resultOIDR), std::move(resultName), std::move(resultOType)});
}

void TestHostClasses::QueueObjectSelect(std::string text, uint8_t option1, uint8_t option2) {
  answers_->searches.push_back({std::move(text), option1, option2});
}

void TestHostClasses::ClearQueues() {
  answers_->groups.clear();
  answers_->searches.clear();
}

std::shared_ptr<OrvelComponentRegistry> TestHostClasses::NewComponentRegistry() {
  lastRegistry_ = std::make_shared<TestComponentRegistry>(log_);
  return lastRegistry_;
}

std::shared_ptr<OrvelGroupSelect> TestHostClasses::NewGroupSelect() {
  lastGroupSelect_ = std::make_shared<TestGroupSelect>(log_, answers_);
  return lastGroupSelect_;
}

std::shared_ptr<OrvelObjectSelect> TestHostClasses::NewObjectSelect() {
  lastObjectSelect_ = std::make_shared<TestObjectSelect>(log_, answers_);
  return lastObjectSelect_;
}

std::shared_ptr<OrvelPrintDoc> TestHostClasses::NewPrintDoc() {
  lastPrintDoc_ = std::make_shared<TestPrintDoc>();
  return lastPrintDoc_;
}

}  // namespace orvel
