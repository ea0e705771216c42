#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelEnvironment.h"

namespace orvel {

class Database;

// Per-user settings kept in the database (user_settings, named
// "<section>/<key>"), and the session and user of this run.
class ReferenceEnvironment : public OrvelEnvironment {
 public:
  ReferenceEnvironment(Database& db, int64_t userId, std::shared_ptr<OrvelSession> session,
                       std::shared_ptr<OrvelUser> user)
      : db_(db), userId_(userId), session_(std::move(session)), user_(std::move(user)) {}

  void SaveUserSetting(const std::string& section, const std::string& key,
                       const std::string& value) override;
  std::string GetUserSetting(const std::string& section, const std::string& key,
                             const std::string& defaultValue) override;
  std::shared_ptr<OrvelSession> Session() override { return session_; }
  std::shared_ptr<OrvelUser> User() override { return user_; }

 private:
  Database& db_;
  int64_t userId_;
  std::shared_ptr<OrvelSession> session_;
  std::shared_ptr<OrvelUser> user_;
};

}  // namespace orvel
