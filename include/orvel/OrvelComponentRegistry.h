#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"
#include "orvel/Picture.h"

namespace orvel {

/// The object of one right component, as registration hands it back.
class OrvelComponent : public Object {
 public:
  virtual void SetOType(const std::string& otype) = 0;
};

/// A catalogue group of the host's tree, holding right components.
class OrvelComponentGroup : public Object {
 public:
  virtual std::shared_ptr<OrvelComponent> AddComponent(const std::string& otype,
                                                       const std::string& caption,
                                                       const std::string& rightKey) = 0;
};

/// The host's registration class; the module creates one per DllInicialize.
class OrvelComponentRegistry : public Object {
 public:
  virtual std::shared_ptr<OrvelComponentGroup> AddGroup(const std::string& key,
                                                        const std::string& iconKey,
                                                        const std::string& caption,
                                                        const std::string& rightKey) = 0;
  virtual void AddObjectType(const std::string& module, const std::string& otype,
                             const std::string& caption) = 0;
  virtual void AddIcon(const std::string& key, const std::shared_ptr<Picture>& picture) = 0;
  virtual void AddObjectIcon(const std::string& key, const std::shared_ptr<Picture>& picture) = 0;
};

}  // namespace orvel
