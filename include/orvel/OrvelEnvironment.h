#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class OrvelSession;
class OrvelUser;

/// Per-user settings and the session. The module's only stored settings are
/// strings under Section = an OType and Key "Preview".
class OrvelEnvironment : public Object {
 public:
  virtual void SaveUserSetting(const std::string& section, const std::string& key,
                               const std::string& value) = 0;
  /// The stored value, or `defaultValue` when there is none.
  virtual std::string GetUserSetting(const std::string& section, const std::string& key,
                                     const std::string& defaultValue) = 0;
  virtual std::shared_ptr<OrvelSession> Session() = 0;
  virtual std::shared_ptr<OrvelUser> User() = 0;
};

}  // namespace orvel
