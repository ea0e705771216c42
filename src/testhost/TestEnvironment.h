#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "orvel/OrvelEnvironment.h"

namespace orvel {

class CallLog;

// Per-user settings in a map keyed by (section, key); each save is logged in
// the Settings channel ("SaveUserSetting O0000300 Preview Code"). Session and
// User are whatever was set (null by default; TestHost sets both).
class TestEnvironment : public OrvelEnvironment {
 public:
  explicit TestEnvironment(std::shared_ptr<CallLog> log);

  void SetSession(std::shared_ptr<OrvelSession> session) { session_ = std::move(session); }
  void SetUser(std::shared_ptr<OrvelUser> user) { user_ = std::move(user); }
  // Stores a value without logging it, as if saved in an earlier session.
  void PresetSetting(const std::string& section, const std::string& key, std::string value);
  // The stored value; nullopt when there is none.
  std::optional<std::string> StoredSetting(const std::string& section,
                                           const std::string& key) const;
  const std::map<std::pair<std::string, std::string>, std::string>& Settings() const {
    return settings_;
  }

  // OrvelEnvironment
  void SaveUserSetting(const std::string& section, const std::string& key,
                       const std::string& value) override;
  std::string GetUserSetting(const std::string& section, const std::string& key,
                             const std::string& defaultValue) override;
  std::shared_ptr<OrvelSession> Session() override { return session_; }
  std::shared_ptr<OrvelUser> User() override { return user_; }

 private:
  std::shared_ptr<CallLog> log_;
  std::map<std::pair<std::string, std::string>, std::string> settings_;
  std::shared_ptr<OrvelSession> session_;
  std::shared_ptr<OrvelUser> user_;
};

}  // namespace orvel
