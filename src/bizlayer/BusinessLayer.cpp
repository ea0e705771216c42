#include "bizlayer/BusinessLayer.h"

#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/CatalogueTable.h"
#include "bizlayer/Database.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/MemoryRecordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

BusinessLayer::BusinessLayer(std::shared_ptr<orvel::Database> db) : db_(std::move(db)) {
  for (const auto& catalogue : Catalogues()) {
    objects_[catalogue.oid] = std::make_shared<TableBusinessObject>(db_, catalogue);
  }
  AddBankCalls(*objects_.at("O0000300"));
  AddFirmCalls(*objects_.at("O0000100"));
  AddGoodsCalls(*objects_.at("O0000200"));
  AddCurrencyCalls(*objects_.at("O0002200"));
  AddReferenceBookCalls();
  AddFirmDetailCalls(*objects_.at("O0000100"));
  AddDepartmentCalls(*objects_.at("O0001604"), *objects_.at("O0001615"));
  AddGoodsDetailCalls(*objects_.at("O0000200"));
}

void BusinessLayer::AddReferenceBookCalls() {
  // The root lists the books: each row's OIDR is the book's own OID.
  auto& books = *objects_.at("O0001600");
  books.OnRead("Orvel_GetObjectList", [&books](const TableBusinessObject::Args&) {
    return books.Query(
        "SELECT BookOID AS OIDR, Name AS Preview, 'C' AS OType FROM reference_books"
        " ORDER BY Name",
        {});
  });
  // A book lists a node: '<OIDR>'. Its search sends the typed text first:
  // '<text>','<OIDR>', and finds in the whole book when the OIDR is the
  // book's own, in the group otherwise. The locations' calls name the user
  // before the rest: '<user>','<OIDR>' and '<user>','<text>','<OIDR>'.
  for (auto& [oid, object] : objects_) {
    if (oid.rfind("O00016", 0) != 0 || oid == "O0001600") continue;
    const bool withUser = oid == "O0001605";
    TableBusinessObject& book = *object;
    book.OnRead("Orvel_GetObjectList", [&book, withUser](const TableBusinessObject::Args& args) {
      const size_t first = withUser && !args.empty() ? 1 : 0;
      const size_t count = args.size() - first;
      if (count == 0) return book.GetObjectList(book.Catalogue().oid, "", {});
      if (count == 1) return book.GetObjectList(args[first], "", {});
      if (count > 2) {
        throw RuntimeError(TableBusinessObject::kBadCall,
                           withUser ? "laukta '<vartotojas>'[,'<tekstas>'],'<OIDR>'"
                                    : "laukta ['<tekstas>',]'<OIDR>'");
      }
      const std::string& node = args[first + 1];
      return book.GetObjectList(node == book.Catalogue().oid ? "" : node, args[first], {});
    });
  }
}

BusinessLayer::~BusinessLayer() = default;

std::shared_ptr<TableBusinessObject> BusinessLayer::BusinessObject(const std::string& oid) const {
  auto it = objects_.find(oid);
  return it == objects_.end() ? nullptr : it->second;
}

void BusinessLayer::SetUserName(const std::string& user) {
  for (auto& [oid, object] : objects_) object->SetUserName(user);
}

void BusinessLayer::SetCallObserver(
    const std::function<void(const char*, const std::string&, const std::string&)>& observer) {
  for (auto& [oid, object] : objects_) object->SetCallObserver(observer);
}

void BusinessLayer::SetFillObserver(const std::function<void(int64_t rows, bool done)>& observer) {
  for (auto& [oid, object] : objects_) object->SetFillObserver(observer);
}

void BusinessLayer::AddBankCalls(TableBusinessObject& banks) {
  // The firms that keep their account in the bank: "OIDR" and "Preview".
  banks.OnRead("GetFirms", [&banks](const TableBusinessObject::Args& args) {
    auto id = args.empty() ? std::nullopt : banks.IdOf(args[0]);
    return banks.Query(
        "SELECT 'O0000100' || ID AS OIDR, Name AS Preview FROM firms WHERE BankID = ?"
        " ORDER BY Name",
        {id ? Variant(*id) : Variant::Null()});
  });
}

OrvelResult BusinessLayer::ServiceCall(const std::string& name, const std::string& param) {
  try {
    if (name == "Orvel_GetObjectStructureByOID") {
      auto object = BusinessObject(param);
      if (!object) return OrvelResult{5, name + ": no type " + param, Variant()};
      auto structure = object->RecordsetCall("Orvel_GetObjectStructure", "", 0);
      return OrvelResult{structure.Number, structure.Text, Variant(structure.Object)};
    }
    if (name == "Orvel_GetGroupPreviewField") {
      auto object = BusinessObject(param);
      auto rs = std::make_shared<MemoryRecordset>(
          std::vector<std::string>{"GroupPreviewFieldName", "GroupPreviewFieldCaption"});
      if (object && object->Catalogue().grouped)
        rs->AddRow({Variant("Name"), Variant("Pavadinimas")});
      rs->MoveFirst();
      return OrvelResult{0, "", Variant(rs)};
    }
    return OrvelResult{5, "Nežinoma paslauga: " + name, Variant()};
  } catch (const std::exception& e) {
    return OrvelResult{TableBusinessObject::kDatabaseError, name + ": " + e.what(), Variant()};
  }
}

}  // namespace orvel
