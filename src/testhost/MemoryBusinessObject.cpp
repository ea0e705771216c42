#include "testhost/MemoryBusinessObject.h"

#include <exception>

#include "host/MemoryRecordset.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "testhost/CallLog.h"
#include "host/ParamList.h"

namespace orvel {

namespace {

constexpr const char* kNewObject = "Orvel_NewObject";
constexpr const char* kReadObject = "Orvel_ReadObject";
constexpr const char* kSaveObject = "Orvel_SaveObject";
constexpr const char* kGetObjectList = "Orvel_GetObjectList";
constexpr const char* kDeleteObject = "Orvel_DeleteObject";

bool IsStandardRead(const std::string& name) {
  return name == kNewObject || name == kReadObject || name == kGetObjectList;
}

bool IsStandardCall(const std::string& name) {
  return IsStandardRead(name) || name == kSaveObject || name == kDeleteObject;
}

// The road each standard call takes, for the error of one taken wrongly.
const char* RoadOf(const std::string& name) {
  if (name == kSaveObject) return "ExecArrayCall";
  if (name == kDeleteObject) return "ExecCall";
  return "GetCall";
}

std::string NotFound(const std::string& oidr) { return "Įrašas nerastas: " + oidr; }

// A call whose parameter string cannot be read, as the business layer says it.
std::string BadParams(const char* name, const std::string& param, const char* expected) {
  return std::string(name) + ": neteisingi parametrai [" + param + "], laukta " + expected;
}

std::shared_ptr<Object> FreshCopy(const std::shared_ptr<Object>& object) {
  if (auto rs = std::dynamic_pointer_cast<MemoryRecordset>(object)) {
    auto copy = rs->Clone();
    copy->MoveFirst();
    return copy;
  }
  return object;
}

// Runs `body`, turning anything it throws into a Number and Text.
template <class Result, class Body>
Result Guarded(const std::string& name, Body&& body) {
  try {
    return body();
  } catch (const RuntimeError& e) {
    return Result{e.Number(), name + ": " + e.Text()};
  } catch (const std::exception& e) {
    return Result{MemoryBusinessObject::kBadCall, name + ": " + e.what()};
  } catch (...) {
    return Result{MemoryBusinessObject::kBadCall, name + ": nežinoma klaida"};
  }
}

}  // namespace

const char* OpName(MemoryBusinessObject::Op op) {
  switch (op) {
    case MemoryBusinessObject::Op::GetCall:
      return "GetCall";
    case MemoryBusinessObject::Op::ExecCall:
      return "ExecCall";
    case MemoryBusinessObject::Op::ExecArrayCall:
      return "ExecArrayCall";
    case MemoryBusinessObject::Op::RecordsetCall:
      return "RecordsetCall";
  }
  return "?";
}

MemoryBusinessObject::MemoryBusinessObject(std::string oid, std::shared_ptr<CallLog> log)
    : log_(std::move(log)), table_(std::make_shared<MemoryTable>(std::move(oid))) {}

MemoryBusinessObject::MemoryBusinessObject(std::shared_ptr<MemoryTable> shared,
                                           std::shared_ptr<CallLog> log)
    : log_(std::move(log)), table_(std::move(shared)) {}

std::optional<OrvelStatus> MemoryBusinessObject::ChangedMeanwhile(int32_t id,
                                                                  const std::string& oidr) {
  auto known = versions_.find(id);
  if (known == versions_.end() || known->second == table_->Version(id)) return std::nullopt;
  versions_.erase(known);  // told once; the window reads the record again
  return OrvelStatus{kChangedMeanwhile,
                     "Įrašą pakeitė kitas vartotojas po to, kai jį perskaitėte: " + oidr};
}

void MemoryBusinessObject::ReplyRead(const std::string& name, OrvelBoResult reply) {
  reads_[name] = [reply](const std::string&) {
    OrvelBoResult copy = reply;
    copy.Object = FreshCopy(reply.Object);
    return copy;
  };
}

void MemoryBusinessObject::ReplyRead(const std::string& name, std::shared_ptr<Recordset> rs) {
  ReplyRead(name, OrvelBoResult(0, "", std::move(rs)));
}

void MemoryBusinessObject::OnRead(const std::string& name, ReadHandler handler) {
  reads_[name] = std::move(handler);
}

void MemoryBusinessObject::ReplyAction(const std::string& name, OrvelStatus reply) {
  actions_[name] = [reply](const std::string&, Variant::Array&) { return reply; };
}

void MemoryBusinessObject::OnAction(const std::string& name, ActionHandler handler) {
  actions_[name] = std::move(handler);
}

void MemoryBusinessObject::ClearScripts() {
  reads_.clear();
  actions_.clear();
}

void MemoryBusinessObject::FailCallsNamed(const std::string& name, int32_t number,
                                          std::string text) {
  namedFailures_[name] = Failure{number, std::move(text)};
}

void MemoryBusinessObject::ClearFailures() {
  namedFailures_.clear();
}

std::vector<MemoryBusinessObject::Call> MemoryBusinessObject::Calls(const std::string& name) const {
  std::vector<Call> out;
  for (const auto& call : calls_) {
    if (call.name == name) out.push_back(call);
  }
  return out;
}

std::optional<MemoryBusinessObject::Failure> MemoryBusinessObject::Record(
    Op op, const std::string& name, const std::string& param, const Variant::Array* array) {
  Call call{op, name, param, array ? *array : Variant::Array()};
  log_->Add(Channel::Business, OpName(op), {name, param}, call.array);
  calls_.push_back(std::move(call));

  if (auto named = namedFailures_.find(name); named != namedFailures_.end()) return named->second;
  return std::nullopt;
}

OrvelBoResult MemoryBusinessObject::GetCall(const std::string& name, const std::string& param,
                                            int32_t) {
  return Read(Op::GetCall, name, param);
}

OrvelBoResult MemoryBusinessObject::RecordsetCall(const std::string& name, const std::string& param,
                                                  int32_t) {
  return Read(Op::RecordsetCall, name, param);
}

OrvelStatus MemoryBusinessObject::ExecCall(const std::string& name, const std::string& param,
                                           int32_t) {
  Variant::Array none;
  return Action(Op::ExecCall, name, param, none);
}

OrvelStatus MemoryBusinessObject::ExecArrayCall(const std::string& name, const std::string& param,
                                                Variant::Array& args) {
  return Action(Op::ExecArrayCall, name, param, args);
}

OrvelBoResult MemoryBusinessObject::Read(Op op, const std::string& name, const std::string& param) {
  if (auto failure = Record(op, name, param, nullptr)) {
    return OrvelBoResult(failure->number, failure->text);
  }
  return Guarded<OrvelBoResult>(name, [&]() -> OrvelBoResult {
    if (auto script = reads_.find(name); script != reads_.end()) return script->second(param);
    if (IsStandardCall(name)) {
      if (op != Op::GetCall || !IsStandardRead(name)) {
        return OrvelBoResult(kBadCall,
                             name + " kviečiamas per " + RoadOf(name) + ", ne per " + OpName(op));
      }
      if (name == kNewObject) return NewObject(param);
      if (name == kReadObject) return ReadObject(param);
      return GetObjectList(param);
    }
    return OrvelBoResult(0, "", std::make_shared<MemoryRecordset>());
  });
}

OrvelStatus MemoryBusinessObject::Action(Op op, const std::string& name, const std::string& param,
                                         Variant::Array& args) {
  if (auto failure = Record(op, name, param, op == Op::ExecArrayCall ? &args : nullptr)) {
    return OrvelStatus{failure->number, failure->text};
  }
  return Guarded<OrvelStatus>(name, [&]() -> OrvelStatus {
    if (auto script = actions_.find(name); script != actions_.end()) {
      return script->second(param, args);
    }
    if (IsStandardCall(name)) {
      if (name == kSaveObject && op == Op::ExecArrayCall) return SaveObject(param, args);
      if (name == kDeleteObject && op == Op::ExecCall) return DeleteObject(param);
      return OrvelStatus{kBadCall,
                         name + " kviečiamas per " + RoadOf(name) + ", ne per " + OpName(op)};
    }
    return OrvelStatus{};
  });
}

OrvelBoResult MemoryBusinessObject::NewObject(const std::string& param) {
  auto args = SplitParams(param);
  if (!args || args->empty() || (*args)[0].empty()) {
    return OrvelBoResult(kBadCall, BadParams(kNewObject, param, "'<OID>'"));
  }
  return OrvelBoResult(0, "", table_->NewRecord());
}

OrvelBoResult MemoryBusinessObject::ReadObject(const std::string& param) {
  auto args = SplitParams(param);
  if (!args || args->empty() || (*args)[0].empty()) {
    return OrvelBoResult(kBadCall, BadParams(kReadObject, param, "'<OIDR>'"));
  }
  const std::string& oidr = (*args)[0];
  auto id = table_->IdOf(oidr);
  auto rs = id ? table_->ReadRecord(*id) : nullptr;
  if (!rs) return OrvelBoResult(kRecordNotFound, NotFound(oidr));
  versions_[*id] = table_->Version(*id);
  return OrvelBoResult(0, "", rs);
}

OrvelBoResult MemoryBusinessObject::GetObjectList(const std::string& param) {
  auto args = SplitParams(param);
  if (!args) {
    return OrvelBoResult(kBadCall, BadParams(kGetObjectList, param, "'<OIDR>'[,'<text>'...]"));
  }
  // A reference book's search sends the text first, '<text>','<node>', and
  // looks through the whole book from the book's own node; the locations
  // name the user before either form.
  const std::string& oid = table_->OID();
  if (oid.rfind("O00016", 0) == 0 && oid != "O0001600") {
    if (oid == "O0001605" && !args->empty()) args->erase(args->begin());
    if (args->size() == 2) {
      std::swap((*args)[0], (*args)[1]);
      if ((*args)[0] == oid) (*args)[0].clear();
    }
  }
  // A search (no OIDR) looks through the whole type, a record lists what it
  // holds, and anything else (the type's own OID) the top level.
  std::vector<int32_t> ids;
  const std::string oidr = args->empty() ? std::string() : (*args)[0];
  if (oidr.empty()) {
    ids = table_->Ids();
  } else if (auto parent = table_->IdOf(oidr)) {
    ids = table_->Children(*parent);
  } else {
    ids = table_->TopLevel();
  }
  if (args->size() > 1 && !(*args)[1].empty()) {
    const std::string& text = (*args)[1];
    std::vector<int32_t> matching;
    for (int32_t id : ids) {
      if (InStr(table_->Preview(id), text, Compare::Text) > 0) matching.push_back(id);
    }
    ids = std::move(matching);
  }
  return OrvelBoResult(0, "", table_->List(ids));
}

OrvelStatus MemoryBusinessObject::SaveObject(const std::string& param, Variant::Array& args) {
  auto params = SplitParams(param);
  if (!params || params->empty()) {
    return OrvelStatus{kBadCall, BadParams(kSaveObject, param, "'<OID>','<OIDR>'")};
  }
  std::shared_ptr<Recordset> rs = args.empty() ? nullptr : args[0].ObjectAs<Recordset>();
  if (!rs) {
    return OrvelStatus{RuntimeError::kTypeMismatch,
                       std::string(kSaveObject) + ": masyvo pradžioje turi būti įrašo rinkinys"};
  }
  std::string oidr = params->size() > 1 ? (*params)[1] : std::string();
  std::optional<int32_t> id;
  if (!oidr.empty()) {
    id = table_->IdOf(oidr);
    if (!id || !table_->Contains(*id)) return OrvelStatus{kRecordNotFound, NotFound(oidr)};
    if (auto changed = ChangedMeanwhile(*id, oidr)) return *changed;
  }
  int32_t stored = table_->Store(id, *rs);
  versions_[stored] = table_->Version(stored);
  if (!id) {
    // The caller learns the new record's identity from its own set.
    if (rs->Fields().Exists("ID")) rs->Fields("ID").SetValue(Variant(stored));
    if (rs->Fields().Exists("OIDR")) rs->Fields("OIDR").SetValue(Variant(table_->OidrOf(stored)));
  }
  if (auto memory = std::dynamic_pointer_cast<MemoryRecordset>(rs)) memory->AcceptChanges();
  return OrvelStatus{};
}

OrvelStatus MemoryBusinessObject::DeleteObject(const std::string& param) {
  auto args = SplitParams(param);
  if (!args || args->empty() || (*args)[0].empty()) {
    return OrvelStatus{kBadCall, BadParams(kDeleteObject, param, "'<OIDR>'")};
  }
  const std::string& oidr = (*args)[0];
  auto id = table_->IdOf(oidr);
  if (id && !table_->Children(*id).empty()) {
    return OrvelStatus{kBadCall, "Grupėje yra įrašų: jos panaikinti negalima"};
  }
  if (!id || !table_->Contains(*id)) return OrvelStatus{kRecordNotFound, NotFound(oidr)};
  if (auto changed = ChangedMeanwhile(*id, oidr)) return *changed;
  table_->Remove(*id);
  versions_.erase(*id);
  return OrvelStatus{};
}

}  // namespace orvel
