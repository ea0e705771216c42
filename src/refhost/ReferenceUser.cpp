#include "refhost/ReferenceUser.h"

#include "bizlayer/Database.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

ReferenceUser::ReferenceUser(Database& db, const std::string& name) : name_(name) {
  auto find = db.Prepare("SELECT ID, FullName FROM users WHERE Name = ?");
  find.Bind(1, Variant(name));
  if (!find.Step()) {
    throw RuntimeError(RuntimeError::kInvalidCall, "Nėra tokio naudotojo: " + name);
  }
  id_ = static_cast<int64_t>(find.Column(0).NumberValue());
  Variant full = find.Column(1);
  fullName_ = full.IsString() ? full.String() : name;
}

std::shared_ptr<Recordset> ReferenceUser::Rs() {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"ID", "Name", "FullName"});
  rs->AddRow({Variant(id_), Variant(name_), Variant(fullName_)});
  rs->MoveFirst();
  return rs;
}

}  // namespace orvel
