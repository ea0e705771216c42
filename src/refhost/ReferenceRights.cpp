#include "refhost/ReferenceRights.h"

#include "bizlayer/Database.h"

namespace orvel {

bool ReferenceRights::Has(const std::string& key, const char* operation) {
  try {
    // The operation is one of five fixed column names, never user text.
    auto query = db_.Prepare(std::string("SELECT ") + operation +
                             " FROM user_rights WHERE UserID = ? AND Component IN (?, '*')"
                             " ORDER BY Component = '*' LIMIT 1");
    query.BindAll(userId_, key);
    return query.Step() && query.Column(0).NumberValue() != 0;
  } catch (...) {
    return false;
  }
}

bool ReferenceRights::SetRight(const std::string& key, const std::string&, int32_t) {
  try {
    auto grant = db_.Prepare(
        "INSERT OR REPLACE INTO user_rights (UserID, Component, CanRead, CanInsert, CanUpdate,"
        " CanDelete, Allowed) VALUES (?, ?, 1, 1, 1, 1, 1)");
    grant.BindAll(userId_, key).Run();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace orvel
