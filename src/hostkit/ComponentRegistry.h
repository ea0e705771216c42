#pragma once

#include <memory>
#include <string>
#include <vector>

#include "orvel/ImageList.h"
#include "orvel/OrvelComponentRegistry.h"

namespace orvel {

// What a module registered with its host: the catalogue groups with their
// right components, the object types of the tree, and the icons. The host
// keeps one and hands a fresh ComponentRegistry over it to each
// DllInicialize. It is also the catalogue's image list that the host's main
// window hands to the module's list views (ImgCatalogue).
struct RegisteredCatalogue : public ImageList {
  struct Component {
    std::string otype;
    std::string caption;
    std::string rightKey;
  };
  struct Group {
    std::string key;
    std::string iconKey;
    std::string caption;
    std::string rightKey;
    std::vector<Component> components;
  };
  struct ObjectType {
    std::string module;
    std::string otype;
    std::string caption;
  };
  struct Icon {
    std::string key;
    std::shared_ptr<Picture> picture;  // may be null
  };

  std::vector<Group> groups;
  std::vector<ObjectType> objectTypes;
  std::vector<Icon> icons;
  std::vector<Icon> objectIcons;

  // The picture of an icon key, case-insensitively; null when none.
  std::shared_ptr<Picture> ObjectIcon(const std::string& key) const;
  // ImageList: an object icon is registered under the key.
  bool HasImage(std::string_view key) const override;
};

// The registration class a host lends the module: everything goes into the
// host's RegisteredCatalogue.
class ComponentRegistry : public OrvelComponentRegistry {
 public:
  explicit ComponentRegistry(std::shared_ptr<RegisteredCatalogue> catalogue)
      : catalogue_(std::move(catalogue)) {}

  std::shared_ptr<OrvelComponentGroup> AddGroup(const std::string& key, const std::string& iconKey,
                                                const std::string& caption,
                                                const std::string& rightKey) override;
  void AddObjectType(const std::string& module, const std::string& otype,
                     const std::string& caption) override;
  void AddIcon(const std::string& key, const std::shared_ptr<Picture>& picture) override;
  void AddObjectIcon(const std::string& key, const std::shared_ptr<Picture>& picture) override;

 private:
  std::shared_ptr<RegisteredCatalogue> catalogue_;
};

}  // namespace orvel
