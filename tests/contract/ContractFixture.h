#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "ContractEngine.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/Recordset.h"

namespace orvel::contract {

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

  // A read call that must succeed: its set, on the first row; an empty set
  // when it answered none, so that a case goes on to fail rather than crash.
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

  // The OIDR of every row, sorted.
  static std::vector<std::string> Oidrs(Recordset& rs) {
    std::vector<std::string> out;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
      out.push_back(ConcatText(rs.Fields("OIDR").Value()));
    }
    std::sort(out.begin(), out.end());
    return out;
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
