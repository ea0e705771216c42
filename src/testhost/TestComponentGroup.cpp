#include "testhost/TestComponentGroup.h"

#include "testhost/CallLog.h"
#include "testhost/TestComponent.h"

namespace orvel {

TestComponentGroup::TestComponentGroup(std::shared_ptr<CallLog> log, std::string key,
                                       std::string iconKey, std::string caption,
                                       std::string rightKey)
    : log_(std::move(log)),
      key_(std::move(key)),
      iconKey_(std::move(iconKey)),
      caption_(std::move(caption)),
      rightKey_(std::move(rightKey)) {}

std::shared_ptr<OrvelComponent> TestComponentGroup::AddComponent(const std::string& otype,
                                                                 const std::string& caption,
                                                                 const std::string& rightKey) {
  log_->Add(Channel::Registry, "AddComponent", {otype, caption, rightKey});
  auto component = std::make_shared<TestComponent>(log_, otype, caption, rightKey);
  components_.push_back(component);
  return component;
}

}  // namespace orvel
