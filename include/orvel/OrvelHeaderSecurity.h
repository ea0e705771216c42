#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

/// One row of the rights editor's component list.
struct SecurityRow {
  std::string Parent;  ///< empty at top level
  std::string Key;
  std::string Caption;
  int32_t Kind = 0;  ///< 10: the module's own row; 2: a component

  friend bool operator==(const SecurityRow&, const SecurityRow&) = default;
};

/// The module's rights header: the components the administrator can grant.
class OrvelHeaderSecurity : public Object {
 public:
  /// A new list at each call.
  virtual std::vector<SecurityRow> GetComponentList() = 0;
};

}  // namespace orvel
