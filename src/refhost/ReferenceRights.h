#pragma once

#include <cstdint>
#include <string>

#include "orvel/OrvelRights.h"

namespace orvel {

class Database;

// A user's rights from the user_rights table: one row per component key,
// with the row of key "*" standing for every key that has no row of its own.
// A user with neither may do nothing.
class ReferenceRights : public OrvelRights {
 public:
  ReferenceRights(Database& db, int64_t userId) : db_(db), userId_(userId) {}

  bool CanRead(const std::string& key, int32_t) override { return Has(key, "CanRead"); }
  bool CanUpdate(const std::string& key, int32_t) override { return Has(key, "CanUpdate"); }
  bool CanDelete(const std::string& key, int32_t) override { return Has(key, "CanDelete"); }
  bool CanInsert(const std::string& key, int32_t) override { return Has(key, "CanInsert"); }
  bool Allowed(const std::string& key, int32_t) override { return Has(key, "Allowed"); }
  // Gives the user every right on a newly stored component.
  bool SetRight(const std::string& key, const std::string& value, int32_t) override;

 private:
  bool Has(const std::string& key, const char* operation);

  Database& db_;
  int64_t userId_;
};

}  // namespace orvel
