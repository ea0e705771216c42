#include "hostkit/ComponentRegistry.h"

#include <strings.h>

namespace orvel {

namespace {

// A right component of one group; the module may name its object type later.
class RegisteredComponent : public OrvelComponent {
 public:
  RegisteredComponent(std::shared_ptr<RegisteredCatalogue> catalogue, size_t group, size_t index)
      : catalogue_(std::move(catalogue)), group_(group), index_(index) {}
  void SetOType(const std::string& otype) override {
    catalogue_->groups[group_].components[index_].otype = otype;
  }

 private:
  std::shared_ptr<RegisteredCatalogue> catalogue_;
  size_t group_;
  size_t index_;
};

class RegisteredGroup : public OrvelComponentGroup {
 public:
  RegisteredGroup(std::shared_ptr<RegisteredCatalogue> catalogue, size_t group)
      : catalogue_(std::move(catalogue)), group_(group) {}
  std::shared_ptr<OrvelComponent> AddComponent(const std::string& otype, const std::string& caption,
                                               const std::string& rightKey) override {
    auto& components = catalogue_->groups[group_].components;
    components.push_back({otype, caption, rightKey});
    return std::make_shared<RegisteredComponent>(catalogue_, group_, components.size() - 1);
  }

 private:
  std::shared_ptr<RegisteredCatalogue> catalogue_;
  size_t group_;
};

}  // namespace

std::shared_ptr<Picture> RegisteredCatalogue::ObjectIcon(const std::string& key) const {
  for (const auto& icon : objectIcons) {
    if (strcasecmp(icon.key.c_str(), key.c_str()) == 0) return icon.picture;
  }
  return nullptr;
}

bool RegisteredCatalogue::HasImage(std::string_view key) const {
  for (const auto& icon : objectIcons) {
    if (icon.key.size() == key.size() &&
        strncasecmp(icon.key.data(), key.data(), key.size()) == 0) {
      return true;
    }
  }
  return false;
}

std::shared_ptr<OrvelComponentGroup> ComponentRegistry::AddGroup(const std::string& key,
                                                                 const std::string& iconKey,
                                                                 const std::string& caption,
                                                                 const std::string& rightKey) {
  catalogue_->groups.push_back({key, iconKey, caption, rightKey, {}});
  return std::make_shared<RegisteredGroup>(catalogue_, catalogue_->groups.size() - 1);
}

void ComponentRegistry::AddObjectType(const std::string& module, const std::string& otype,
                                      const std::string& caption) {
  catalogue_->objectTypes.push_back({module, otype, caption});
}

void ComponentRegistry::AddIcon(const std::string& key, const std::shared_ptr<Picture>& picture) {
  catalogue_->icons.push_back({key, picture});
}

void ComponentRegistry::AddObjectIcon(const std::string& key,
                                      const std::shared_ptr<Picture>& picture) {
  catalogue_->objectIcons.push_back({key, picture});
}

}  // namespace orvel
