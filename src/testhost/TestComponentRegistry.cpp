#include "testhost/TestComponentRegistry.h"

#include "orvel/Picture.h"
#include "testhost/CallLog.h"
#include "testhost/TestComponentGroup.h"

namespace orvel {

namespace {
std::string PictureName(const std::shared_ptr<Picture>& picture) {
  return picture ? picture->Name() : "Nothing";
}
}  // namespace

TestComponentRegistry::TestComponentRegistry(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

std::shared_ptr<OrvelComponentGroup> TestComponentRegistry::AddGroup(const std::string& key,
                                                                     const std::string& iconKey,
                                                                     const std::string& caption,
                                                                     const std::string& rightKey) {
  log_->Add(Channel::Registry, "AddGroup", {key, iconKey, caption, rightKey});
  auto group = std::make_shared<TestComponentGroup>(log_, key, iconKey, caption, rightKey);
  groups_.push_back(group);
  return group;
}

void TestComponentRegistry::AddObjectType(const std::string& module, const std::string& otype,
                                          const std::string& caption) {
  log_->Add(Channel::Registry, "AddObjectType", {module, otype, caption});
  objectTypes_.push_back({module, otype, caption});
}

void TestComponentRegistry::AddIcon(const std::string& key,
                                    const std::shared_ptr<Picture>& picture) {
  log_->Add(Channel::Registry, "AddIcon", {key, PictureName(picture)});
  icons_.push_back({key, picture});
}

void TestComponentRegistry::AddObjectIcon(const std::string& key,
                                          const std::shared_ptr<Picture>& picture) {
  log_->Add(Channel::Registry, "AddObjectIcon", {key, PictureName(picture)});
  objectIcons_.push_back({key, picture});
}


}  // namespace orvel
