#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "orvel/OrvelResult.h"

namespace orvel {

class Database;
class TableBusinessObject;

// The reference business layer: one database and a business object per
// object type, each answering the module's calls for its type, plus the
// host services that read the database ("Orvel_GetObjectStructureByOID",
// "Orvel_GetGroupPreviewField"). A host hands BusinessObject(oid) to the
// module as the type's OrvelObjectBO and routes its own Call here.
class BusinessLayer {
 public:
  explicit BusinessLayer(std::shared_ptr<orvel::Database> db);
  ~BusinessLayer();

  orvel::Database& Database() { return *db_; }
  // The business object of a type; null for a type the layer does not keep.
  std::shared_ptr<TableBusinessObject> BusinessObject(const std::string& oid) const;
  // The user whose name goes into the records written from now on.
  void SetUserName(const std::string& user);
  // Hears every business call of every type (op, name, parameter string).
  void SetCallObserver(
      const std::function<void(const char*, const std::string&, const std::string&)>& observer);

  // Hears how far each list of every type has been read: 0 as a list
  // starts, now and then the rows read, and the count with `done`.
  void SetFillObserver(const std::function<void(int64_t rows, bool done)>& observer);

  // A host service of the database; Number non-zero with a text for a name
  // it does not know or a failure.
  OrvelResult ServiceCall(const std::string& name, const std::string& param);

 private:
  void AddBankCalls(TableBusinessObject& banks);
  void AddReferenceBookCalls();

  std::shared_ptr<orvel::Database> db_;
  std::map<std::string, std::shared_ptr<TableBusinessObject>> objects_;
};

}  // namespace orvel
