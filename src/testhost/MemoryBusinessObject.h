#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelObjectBO.h"
#include "testhost/MemoryTable.h"

namespace orvel {

class CallLog;
class Recordset;

// The business object of one object type in the test host. Every call is
// logged in the Business channel as "<Op> <Name> <Param>" and kept here.
// A call is answered by, in this order:
//   1. an injected failure (the Nth call, or every call of a name);
//   2. a script for its name (a fixed reply or a handler);
//   3. the standard object calls, served from the type's MemoryTable:
//        GetCall       Orvel_NewObject     '<OID>'
//        GetCall       Orvel_ReadObject    '<OIDR>'
//        ExecArrayCall Orvel_SaveObject    '<OID>','<OIDR>'  [Recordset, Rs2, Rs3]
//        GetCall       Orvel_GetObjectList '<OIDR>'[,'<text>'[,...]]
//        ExecCall      Orvel_DeleteObject  '<OIDR>'
//   4. otherwise Number 0, with an empty MemoryRecordset for the read calls.
// Nothing is thrown out: bad parameters, unknown records and failures of a
// handler come back as a non-zero Number with a clear Text.
class MemoryBusinessObject : public OrvelObjectBO {
 public:
  enum class Op { GetCall, ExecCall, ExecArrayCall, RecordsetCall };
  struct Call {
    Op op = Op::GetCall;
    std::string name;
    std::string param;
    Variant::Array array;  // ExecArrayCall only
  };
  // Answers GetCall and RecordsetCall of a name.
  using ReadHandler = std::function<OrvelBoResult(const std::string& param)>;
  // Answers ExecCall (with an empty array) and ExecArrayCall of a name.
  using ActionHandler = std::function<OrvelStatus(const std::string& param, Variant::Array& args)>;

  // Record not found, as the business layer reports it.
  static constexpr int32_t kRecordNotFound = kNoCurrentRecord;
  // Parameters the standard calls cannot read, or a call through the wrong road.
  static constexpr int32_t kBadCall = 5;

  MemoryBusinessObject(std::string oid, std::shared_ptr<CallLog> log);
  // Another workstation's object over the same records: each session keeps
  // its own knowledge of the versions it read.
  MemoryBusinessObject(std::shared_ptr<MemoryTable> shared, std::shared_ptr<CallLog> log);

  // Number of a write or delete of a record changed since this session read it.
  static constexpr int32_t kChangedMeanwhile = orvel::kChangedMeanwhile;

  const std::string& OID() const { return table_->OID(); }
  MemoryTable& Table() { return *table_; }
  const MemoryTable& Table() const { return *table_; }
  const std::shared_ptr<MemoryTable>& SharedTable() const { return table_; }

  // Scripts: each replaces an earlier script of the name, standard calls included.
  // A fixed reply holding a MemoryRecordset hands out a fresh copy each time,
  // as a business layer returns a new set per call.
  void ReplyRead(const std::string& name, OrvelBoResult reply);
  void ReplyRead(const std::string& name, std::shared_ptr<Recordset> rs);
  void OnRead(const std::string& name, ReadHandler handler);
  void ReplyAction(const std::string& name, OrvelStatus reply);
  void OnAction(const std::string& name, ActionHandler handler);
  void ClearScripts();

  // Failure injection: every call of that name fails until cleared. A failed
  // call is still logged; it changes nothing.
  void FailCallsNamed(const std::string& name, int32_t number, std::string text);
  void ClearFailures();

  const std::vector<Call>& Calls() const { return calls_; }
  std::vector<Call> Calls(const std::string& name) const;
  void ClearCalls() { calls_.clear(); }

  // OrvelObjectBO
  OrvelBoResult GetCall(const std::string& name, const std::string& param, int32_t zero) override;
  OrvelStatus ExecCall(const std::string& name, const std::string& param, int32_t zero) override;
  OrvelStatus ExecArrayCall(const std::string& name, const std::string& param,
                            Variant::Array& args) override;
  OrvelBoResult RecordsetCall(const std::string& name, const std::string& param,
                              int32_t zero) override;

 private:
  struct Failure {
    int32_t number = 0;
    std::string text;
  };

  // Logs and counts the call; returns the failure it must give, if any.
  std::optional<Failure> Record(Op op, const std::string& name, const std::string& param,
                                const Variant::Array* array);
  OrvelBoResult Read(Op op, const std::string& name, const std::string& param);
  OrvelStatus Action(Op op, const std::string& name, const std::string& param,
                     Variant::Array& args);

  OrvelBoResult NewObject(const std::string& param);
  OrvelBoResult ReadObject(const std::string& param);
  OrvelBoResult GetObjectList(const std::string& param);
  OrvelStatus SaveObject(const std::string& param, Variant::Array& args);
  OrvelStatus DeleteObject(const std::string& param);
  // A write or delete of `id` may go on: the record has not moved on since
  // this session read it (or the session never read it).
  std::optional<OrvelStatus> ChangedMeanwhile(int32_t id, const std::string& oidr);

  std::shared_ptr<CallLog> log_;
  std::shared_ptr<MemoryTable> table_;
  std::map<int32_t, int64_t> versions_;  // as this session last read or wrote them
  std::map<std::string, ReadHandler> reads_;
  std::map<std::string, ActionHandler> actions_;
  std::map<std::string, Failure> namedFailures_;
  std::vector<Call> calls_;
};

// "GetCall", "ExecCall", "ExecArrayCall", "RecordsetCall".
const char* OpName(MemoryBusinessObject::Op op);

}  // namespace orvel
