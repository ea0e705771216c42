#include "testhost/TestRights.h"

#include "testhost/CallLog.h"

namespace orvel {

namespace {
constexpr TestRights::Right kAllRights[] = {TestRights::Right::Read, TestRights::Right::Update,
                                            TestRights::Right::Delete, TestRights::Right::Insert,
                                            TestRights::Right::Allowed};
}  // namespace

TestRights::TestRights(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

void TestRights::GrantAll() {
  grantedByDefault_ = true;
  decided_.clear();
}

void TestRights::DenyAll() {
  grantedByDefault_ = false;
  decided_.clear();
}

void TestRights::Grant(const std::string& key, Right right) { decided_[{key, right}] = true; }

void TestRights::Deny(const std::string& key, Right right) { decided_[{key, right}] = false; }

void TestRights::Grant(const std::string& key) {
  for (Right right : kAllRights) Grant(key, right);
}

void TestRights::Deny(const std::string& key) {
  for (Right right : kAllRights) Deny(key, right);
}

bool TestRights::Has(const std::string& key, Right right) const {
  auto it = decided_.find({key, right});
  return it == decided_.end() ? grantedByDefault_ : it->second;
}

bool TestRights::Query(const char* op, const std::string& key, int32_t zero, Right right) {
  log_->Add(Channel::Rights, op, {key, std::to_string(zero)});
  return Has(key, right);
}

bool TestRights::CanRead(const std::string& key, int32_t zero) {
  return Query("CanRead", key, zero, Right::Read);
}

bool TestRights::CanUpdate(const std::string& key, int32_t zero) {
  return Query("CanUpdate", key, zero, Right::Update);
}

bool TestRights::CanDelete(const std::string& key, int32_t zero) {
  return Query("CanDelete", key, zero, Right::Delete);
}

bool TestRights::CanInsert(const std::string& key, int32_t zero) {
  return Query("CanInsert", key, zero, Right::Insert);
}

bool TestRights::Allowed(const std::string& key, int32_t zero) {
  return Query("Allowed", key, zero, Right::Allowed);
}

bool TestRights::SetRight(const std::string& key, const std::string& value, int32_t zero) {
  log_->Add(Channel::Rights, "SetRight", {key, value, std::to_string(zero)});
  setRights_.emplace_back(key, value);
  return true;
}

}  // namespace orvel
