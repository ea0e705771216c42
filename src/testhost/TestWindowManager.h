#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "hostkit/WindowRegistry.h"

namespace orvel {

class CallLog;

// The open windows of the test host: the host's window registry, each call
// logged in the Window channel ("ShowWindow O00003005"), and the OIDRs that
// were reported saved kept for the tests.
class TestWindowManager : public WindowRegistry {
 public:
  explicit TestWindowManager(std::shared_ptr<CallLog> log);

  size_t Count() const { return OpenWindows().size(); }
  // The OIDRs that ObjectSaved was told, in order.
  const std::vector<std::string>& Saved() const { return saved_; }

  void ObjectSaved(const std::string& oidr) override;

 private:
  std::shared_ptr<CallLog> log_;
  std::vector<std::string> saved_;
};

}  // namespace orvel
