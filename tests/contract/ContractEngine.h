#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "orvel/OrvelObjectBO.h"
#include "orvel/Variant.h"

namespace orvel::contract {

// Field name and value pairs of one stored row; "ID" names its record.
using Row = std::vector<std::pair<std::string, Variant>>;

// One business layer held to the module's contract: the business object of each object type, over a
// store that a case fills with what it is given. Every engine starts empty and answers the same
// calls the same way; the in-memory host answers the catalogues' own calls only as a test scripts
// them, so it is held to the standard object calls (keepsCatalogueCalls).
class ContractEngine {
 public:
  virtual ~ContractEngine() = default;

  // The business object of a type the engine keeps.
  virtual OrvelObjectBO& Object(const std::string& oid) = 0;
  // The same type's business object of a second workstation over the same
  // store, as another bookkeeper's host has it.
  virtual OrvelObjectBO& OtherSession(const std::string& oid) = 0;
  // Stores records of an object type, each under the ID its row names.
  virtual void Given(const std::string& oid, const std::vector<Row>& rows) = 0;
  // Stores rows of a table that no object type keeps (documents, their
  // lines, branches); only engines that keep the catalogue calls have them.
  virtual void GivenTable(const std::string& table, const std::vector<Row>& rows) = 0;
  // The sample office a new database starts with: firms in groups with their documents, goods with
  // their lots and prices, the currencies with a year of rates, the reference books. Only engines
  // that keep the catalogue calls have it.
  virtual void GivenSampleOffice() = 0;
  // The rights of the second workstation's user (OtherSession), replacing
  // those it had: each row a component and whether every right on it is
  // held. Only engines that keep the catalogue calls keep rights.
  virtual void GivenOtherUsersRights(const std::vector<std::pair<std::string, bool>>& rights) = 0;
  // Everything the engine stores, as text: equal digests mean nothing changed.
  virtual std::string Digest() = 0;
};

struct EngineKind {
  const char* name;
  bool keepsCatalogueCalls;
  std::function<std::unique_ptr<ContractEngine>()> make;
};

// Every engine the contract runs on.
const std::vector<EngineKind>& Engines();

}  // namespace orvel::contract
