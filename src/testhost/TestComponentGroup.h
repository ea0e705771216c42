#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelComponentRegistry.h"

namespace orvel {

class CallLog;
class TestComponent;

// A catalogue group as registration created it, with its components in order.
class TestComponentGroup : public OrvelComponentGroup {
 public:
  TestComponentGroup(std::shared_ptr<CallLog> log, std::string key, std::string iconKey,
                     std::string caption, std::string rightKey);

  // Logs "AddComponent <otype> <caption> <rightKey>".
  std::shared_ptr<OrvelComponent> AddComponent(const std::string& otype, const std::string& caption,
                                               const std::string& rightKey) override;

  const std::string& Key() const { return key_; }
  const std::string& IconKey() const { return iconKey_; }
  const std::string& Caption() const { return caption_; }
  const std::string& RightKey() const { return rightKey_; }
  const std::vector<std::shared_ptr<TestComponent>>& Components() const { return components_; }

 private:
  std::shared_ptr<CallLog> log_;
  std::string key_;
  std::string iconKey_;
  std::string caption_;
  std::string rightKey_;
  std::vector<std::shared_ptr<TestComponent>> components_;
};

}  // namespace orvel
