#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orvel/OrvelRights.h"

namespace orvel {

class CallLog;

// The user's rights in the test host: everything granted unless denied.
// Keys compare exactly. Each query is logged in the Rights channel
// ("CanRead CBanks 0").
class TestRights : public OrvelRights {
 public:
  enum class Right { Read, Update, Delete, Insert, Allowed };

  explicit TestRights(std::shared_ptr<CallLog> log);

  // What keys without a grant or denial of their own answer.
  void GrantAll();
  void DenyAll();
  void Grant(const std::string& key, Right right);
  void Deny(const std::string& key, Right right);
  // Every right of one key.
  void Grant(const std::string& key);
  void Deny(const std::string& key);
  // The answer a query would give, without logging.
  bool Has(const std::string& key, Right right) const;

  // SetRight calls received, as (key, value).
  const std::vector<std::pair<std::string, std::string>>& SetRights() const { return setRights_; }

  // OrvelRights
  bool CanRead(const std::string& key, int32_t zero) override;
  bool CanUpdate(const std::string& key, int32_t zero) override;
  bool CanDelete(const std::string& key, int32_t zero) override;
  bool CanInsert(const std::string& key, int32_t zero) override;
  bool Allowed(const std::string& key, int32_t zero) override;
  // Logged "SetRight <key> <value> 0"; always succeeds.
  bool SetRight(const std::string& key, const std::string& value, int32_t zero) override;

 private:
  bool Query(const char* op, const std::string& key, int32_t zero, Right right);

  std::shared_ptr<CallLog> log_;
  bool grantedByDefault_ = true;
  std::map<std::pair<std::string, Right>, bool> decided_;
  std::vector<std::pair<std::string, std::string>> setRights_;
};

}  // namespace orvel
