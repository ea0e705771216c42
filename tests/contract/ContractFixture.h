#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/Recordset.h"
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
  // The same type's business object of another bookkeeper's workstation over the same store.
  virtual OrvelObjectBO& OtherSession(const std::string& oid) = 0;
  // Stores records of an object type, each under the ID its row names.
  virtual void Given(const std::string& oid, const std::vector<Row>& rows) = 0;
  // The sample office a new database starts with: firms in groups with their documents, goods with
  // their lots and prices, the currencies with a year of rates, the reference books. Only engines
  // that keep the catalogue calls have it.
  virtual void GivenSampleOffice() { throw std::logic_error("this engine keeps no sample office"); }
  // The rights of the OtherSession user, replaced: a component and whether every right on it is
  // held. Only engines that keep the catalogue calls keep rights.
  virtual void GivenOtherUsersRights(const std::vector<std::pair<std::string, bool>>&) {
    throw std::logic_error("this engine keeps no rights");
  }
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

// What a case holds the answer's fields to, by the letter a case names it with.
enum class Kind : char { Number = 'N', Text = 'T', Date = 'D', Boolean = 'B' };

inline bool IsKind(const Variant& value, Kind kind) {
  if (value.IsNull()) return true;  // no data fits every kind
  switch (kind) {
    case Kind::Number:
      return value.Type() == VarType::Integer || value.Type() == VarType::Double;
    case Kind::Text:  // what a window shows as text: any plain value
      return value.Type() != VarType::Empty && value.Type() != VarType::Object &&
             value.Type() != VarType::Array;
    case Kind::Date:
      return value.Type() == VarType::Date;
    case Kind::Boolean:
      return value.Type() == VarType::Boolean;
  }
  return false;
}

// A fresh engine per test; helpers to call it and read what it answers.
class ContractFixture {
 protected:
  explicit ContractFixture(const EngineKind& kind) : engine_(kind.make()) {}

  ContractEngine& Engine() { return *engine_; }

  OrvelBoResult Get(const std::string& oid, const std::string& name, const std::string& param) {
    return engine_->Object(oid).GetCall(name, param, 0);
  }

  // A read call that must succeed: its set on the first row (an empty one when none: no crash).
  std::shared_ptr<Recordset> Read(const std::string& oid, const std::string& name,
                                  const std::string& param) {
    auto reply = Get(oid, name, param);
    EXPECT_EQ(reply.Number, 0) << name << " " << param << ": " << reply.Text;
    auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
    EXPECT_NE(rs, nullptr) << name << " " << param << " answered no set";
    if (!rs) return std::make_shared<MemoryRecordset>();
    if (rs->RecordCount() > 0) rs->MoveFirst();
    return rs;
  }

  OrvelStatus Save(const std::string& param, const std::shared_ptr<Recordset>& rs) {
    Variant::Array array{Variant(rs)};
    return engine_->Object(param.substr(1, 8)).ExecArrayCall("Orvel_SaveObject", param, array);
  }

  // A reply as "<Number> <Text>": a refusal compared in one line.
  template <class Reply>
  static std::string Told(const Reply& reply) {
    return std::to_string(reply.Number) + " " + reply.Text;
  }


  std::unique_ptr<ContractEngine> engine_;
};

// The engines a suite runs on: every one, or those that keep the catalogue calls.
inline std::vector<const EngineKind*> EngineParams(bool catalogueCalls = false) {
  std::vector<const EngineKind*> out;
  for (const auto& kind : Engines()) {
    if (kind.keepsCatalogueCalls || !catalogueCalls) out.push_back(&kind);
  }
  return out;
}

}  // namespace orvel::contract
