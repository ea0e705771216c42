#include "refhost/ReferenceSession.h"

#include "bizlayer/Database.h"
#include "host/MemoryRecordset.h"

namespace orvel {

std::shared_ptr<Recordset> ReferenceSession::OwnFirm() {
  auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR", "Name"});
  try {
    auto first = db_.Prepare(
        "SELECT 'O0000100' || ID, Name FROM firms WHERE GroupFlag = 0 ORDER BY ID LIMIT 1");
    if (first.Step()) rs->AddRow({first.Column(0), first.Column(1)});
  } catch (...) {
    // No firm: an empty record.
  }
  rs->MoveFirst();
  return rs;
}

std::shared_ptr<Object> ReferenceSession::SettingObject(const std::string& oid) {
  if (oid != "O00018021") return nullptr;
  // Goods are numbered by the tree and priced without VAT in the sample books.
  auto rs =
      std::make_shared<MemoryRecordset>(std::vector<std::string>{"StructuredCode", "PriceWithVAT"});
  rs->AddRow({Variant(true), Variant(false)});
  rs->MoveFirst();
  return rs;
}

}  // namespace orvel
