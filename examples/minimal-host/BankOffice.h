#pragma once

// The host's own business side, as small as it can be: one table of banks in
// memory, answered through record sets of its own.
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelObjectBO.h"
#include "orvel/Recordset.h"

namespace office {

// One row of named values.
using Row = std::vector<std::pair<std::string, orvel::Variant>>;

// A record set over copies of rows: read forward, edit fields in place. A
// missing field is the contract's RuntimeError (kItemNotFound).
std::shared_ptr<orvel::Recordset> MakeRecordset(std::vector<Row> rows);

// The banks' business object: "Orvel_GetObjectList", "Orvel_ReadObject",
// "Orvel_NewObject", "Orvel_SaveObject", "Orvel_DeleteObject". Every other
// call is refused with its name.
class BankOffice : public orvel::OrvelObjectBO {
 public:
  BankOffice();
  orvel::OrvelBoResult GetCall(const std::string& name, const std::string& param,
                               int32_t zero) override;
  orvel::OrvelStatus ExecCall(const std::string& name, const std::string& param,
                              int32_t zero) override;
  orvel::OrvelStatus ExecArrayCall(const std::string& name, const std::string& param,
                                   orvel::Variant::Array& args) override;
  orvel::OrvelBoResult RecordsetCall(const std::string& name, const std::string& param,
                                     int32_t zero) override;

 private:
  std::map<int, Row> banks_;
  int next_ = 1;
};

}  // namespace office
