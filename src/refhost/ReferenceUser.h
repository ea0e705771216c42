#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelUser.h"

namespace orvel {

class MemoryRecordset;
class Database;

// The signed-in user, read from the database's users table.
class ReferenceUser : public OrvelUser {
 public:
  // RuntimeError when there is no such user.
  ReferenceUser(Database& db, const std::string& name);

  int64_t UserId() const { return id_; }

  std::string Name() override { return name_; }
  std::string Id() override { return std::to_string(id_); }
  std::shared_ptr<Recordset> Rs() override;

 private:
  int64_t id_ = 0;
  std::string name_;
  std::string fullName_;
};

}  // namespace orvel
