#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/OrvelHostClasses.h"
#include "testhost/PickerAnswers.h"

namespace orvel {

class CallLog;
class TestComponentRegistry;
class TestGroupSelect;
class TestObjectSelect;
class TestPrintDoc;

// The creatable classes of the test host. Pickers answer from the queues
// here, in order; an empty queue means the user cancelled. The last object
// of each kind is kept for tests to inspect.
class TestHostClasses : public OrvelHostClasses {
 public:
  explicit TestHostClasses(std::shared_ptr<CallLog> log);

  void QueueGroupSelect(std::string resultOIDR, std::string resultName, std::string resultOType);
  void QueueObjectSelect(std::string text, uint8_t option1 = 0, uint8_t option2 = 0);
  const PickerAnswers& Answers() const { return *answers_; }
  void ClearQueues();

  // Null until one was created.
  std::shared_ptr<TestComponentRegistry> LastRegistry() const { return lastRegistry_; }
  std::shared_ptr<TestGroupSelect> LastGroupSelect() const { return lastGroupSelect_; }
  std::shared_ptr<TestObjectSelect> LastObjectSelect() const { return lastObjectSelect_; }
  std::shared_ptr<TestPrintDoc> LastPrintDoc() const { return lastPrintDoc_; }

  // OrvelHostClasses
  std::shared_ptr<OrvelComponentRegistry> NewComponentRegistry() override;
  std::shared_ptr<OrvelGroupSelect> NewGroupSelect() override;
  std::shared_ptr<OrvelObjectSelect> NewObjectSelect() override;
  std::shared_ptr<OrvelPrintDoc> NewPrintDoc() override;

 private:
  std::shared_ptr<CallLog> log_;
  std::shared_ptr<PickerAnswers> answers_;
  std::shared_ptr<TestComponentRegistry> lastRegistry_;
  std::shared_ptr<TestGroupSelect> lastGroupSelect_;
  std::shared_ptr<TestObjectSelect> lastObjectSelect_;
  std::shared_ptr<TestPrintDoc> lastPrintDoc_;
};

}  // namespace orvel
