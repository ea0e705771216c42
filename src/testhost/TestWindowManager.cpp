#include "testhost/TestWindowManager.h"

#include "testhost/CallLog.h"

namespace orvel {

TestWindowManager::TestWindowManager(std::shared_ptr<CallLog> log) : log_(std::move(log)) {
  SetObserver([this](const std::string& op, const std::vector<std::string>& args) {
    log_->Add(Channel::Window, op, args);
  });
}

void TestWindowManager::ObjectSaved(const std::string& oidr) {
  WindowRegistry::ObjectSaved(oidr);
  saved_.push_back(oidr);
}

}  // namespace orvel
