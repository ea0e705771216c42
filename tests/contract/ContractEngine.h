#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/OrvelObjectBO.h"
#include "host/Variant.h"

namespace orvel::contract {

// Field name and value pairs of one stored row; "ID" names its record.
using Row = std::vector<std::pair<std::string, Variant>>;

// One business layer held to the module's contract: the business object of
// each object type, over a store that a case fills with what it is given.
// Every engine starts empty and answers the same calls the same way; the
// in-memory host answers the catalogues' own calls only as a test scripts
// them, so it is held to the standard object calls.
class ContractEngine {
 public:
  virtual ~ContractEngine() = default;

  // Whether the catalogues' own calls ("GetFirmDebt", "GetMeasures", ...)
  // are answered from the store.
  virtual bool KeepsCatalogueCalls() const = 0;
  // The business object of a type the engine keeps.
  virtual OrvelObjectBO& Object(const std::string& oid) = 0;
  // Stores records of an object type, each under the ID its row names.
  virtual void Given(const std::string& oid, const std::vector<Row>& rows) = 0;
  // Stores rows of a table that no object type keeps (documents, their
  // lines, branches); only engines that keep the catalogue calls have them.
  virtual void GivenTable(const std::string& table, const std::vector<Row>& rows) = 0;
};

struct EngineKind {
  const char* name;
  std::function<std::unique_ptr<ContractEngine>()> make;
};

// Every engine the contract runs on.
const std::vector<EngineKind>& Engines();

}  // namespace orvel::contract
