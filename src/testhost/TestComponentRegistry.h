#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelComponentRegistry.h"

namespace orvel {

class CallLog;
class TestComponentGroup;

// The registration class of the test host: logs each call in the Registry
// channel and keeps what was registered, in order, for tests to inspect.
class TestComponentRegistry : public OrvelComponentRegistry {
 public:
  struct ObjectType {
    std::string module;
    std::string otype;
    std::string caption;
    friend bool operator==(const ObjectType&, const ObjectType&) = default;
  };
  struct Icon {
    std::string key;
    std::shared_ptr<Picture> picture;  // may be null
  };

  explicit TestComponentRegistry(std::shared_ptr<CallLog> log);

  // Logs "AddGroup <key> <iconKey> <caption> <rightKey>".
  std::shared_ptr<OrvelComponentGroup> AddGroup(const std::string& key, const std::string& iconKey,
                                                const std::string& caption,
                                                const std::string& rightKey) override;
  // Logs "AddObjectType <module> <otype> <caption>".
  void AddObjectType(const std::string& module, const std::string& otype,
                     const std::string& caption) override;
  // Log "AddIcon <key> <picture name>" / "AddObjectIcon <key> <picture name>";
  // a missing picture is named "Nothing".
  void AddIcon(const std::string& key, const std::shared_ptr<Picture>& picture) override;
  void AddObjectIcon(const std::string& key, const std::shared_ptr<Picture>& picture) override;

  const std::vector<std::shared_ptr<TestComponentGroup>>& Groups() const { return groups_; }
  const std::vector<ObjectType>& ObjectTypes() const { return objectTypes_; }
  const std::vector<Icon>& Icons() const { return icons_; }
  const std::vector<Icon>& ObjectIcons() const { return objectIcons_; }

 private:
  std::shared_ptr<CallLog> log_;
  std::vector<std::shared_ptr<TestComponentGroup>> groups_;
  std::vector<ObjectType> objectTypes_;
  std::vector<Icon> icons_;
  std::vector<Icon> objectIcons_;
};

}  // namespace orvel
