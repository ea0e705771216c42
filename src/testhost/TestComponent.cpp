#include "testhost/TestComponent.h"

#include "testhost/CallLog.h"

namespace orvel {

TestComponent::TestComponent(std::shared_ptr<CallLog> log, std::string otype, std::string caption,
                             std::string rightKey)
    : log_(std::move(log)),
      addedOType_(std::move(otype)),
      caption_(std::move(caption)),
      rightKey_(std::move(rightKey)) {}

void TestComponent::SetOType(const std::string& otype) {
  otype_ = otype;
  log_->Add(Channel::Registry, "OType", {otype});
}

}  // namespace orvel
