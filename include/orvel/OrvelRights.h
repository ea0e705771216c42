#pragma once

#include <cstdint>
#include <string>

#include "orvel/Object.h"

namespace orvel {

/// The user's rights by component key ("CBanks", "CFirmsCode", ...). The
/// second argument is always 0.
class OrvelRights : public Object {
 public:
  virtual bool CanRead(const std::string& key, int32_t zero) = 0;
  virtual bool CanUpdate(const std::string& key, int32_t zero) = 0;
  virtual bool CanDelete(const std::string& key, int32_t zero) = 0;
  virtual bool CanInsert(const std::string& key, int32_t zero) = 0;
  virtual bool Allowed(const std::string& key, int32_t zero) = 0;
  /// Registers a right for a newly stored component.
  virtual bool SetRight(const std::string& key, const std::string& value, int32_t zero) = 0;
};

}  // namespace orvel
