#pragma once

#include <string>

#include "orvel/Object.h"

namespace orvel {

/// The host's group picker; the module creates one per question through
/// OrvelHostClasses.
class OrvelGroupSelect : public Object {
 public:
  virtual std::string ResultName() = 0;
  virtual void SetCaption(const std::string& caption) = 0;
  /// Runs modally.
  virtual void Show() = 0;
  virtual void SetRootOType(const std::string& otype) = 0;
  /// "Group" limits the choice to groups.
  virtual void SetSelectKind(const std::string& kind) = 0;
  /// The chosen identifier (possibly a path); empty or without an "O" when cancelled.
  virtual std::string ResultOIDR() = 0;
  virtual std::string ResultOType() = 0;
  virtual void SetOType(const std::string& otype) = 0;
  /// Quoted icon words left out: "'C','FirmNA','Service','ServiceNA','GEXIST'".
  virtual void SetExcludeTypes(const std::string& types) = 0;
};

}  // namespace orvel
