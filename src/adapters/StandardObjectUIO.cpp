#include "adapters/StandardObjectUIO.h"

#include <cstdio>
#include <random>

#include "adapters/PropertyCall.h"
#include "adapters/StandardObjectUI.h"
#include "common/Boundary.h"
#include "common/Registration.h"
#include "host/Convert.h"
#include "orvel/ErrorNumbers.h"
#include "host/Identifiers.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

std::string Quoted(const std::string& s) { return "'" + s + "'"; }

// The text of a field when the record has it and it holds something.
std::optional<std::string> FieldText(Recordset& rs, std::string_view name) {
  if (rs.IsBOF() || rs.IsEOF() || !rs.Fields().Exists(name)) return std::nullopt;
  Variant v = rs.Fields(name).Value();
  if (v.IsNull() || v.IsEmpty()) return std::nullopt;
  return CStr(v);
}
}  // namespace

std::string StandardObjectUIO::GetGUID() {
  static thread_local std::mt19937_64 random{std::random_device{}()};
  uint64_t hi = random(), lo = random();
  char buf[40];
  std::snprintf(buf, sizeof buf, "{%08X-%04X-4%03X-%04X-%012llX}", static_cast<unsigned>(hi >> 32),
                static_cast<unsigned>((hi >> 16) & 0xFFFF), static_cast<unsigned>(hi & 0xFFF),
                static_cast<unsigned>(0x8000 | ((lo >> 48) & 0x3FFF)),
                static_cast<unsigned long long>(lo & 0xFFFFFFFFFFFFull));
  return buf;
}

std::string StandardObjectUIO::OID() {
  if (!oid_.empty()) return oid_;
  return ui_ ? ui_->OID() : std::string();
}

std::string StandardObjectUIO::OName() { return TypeName(OID()); }

std::string StandardObjectUIO::OType() { return otype_ ? *otype_ : OID(); }

std::string StandardObjectUIO::Preview() {
  if (preview_) return *preview_;
  if (!record_) return {};
  try {
    if (auto text = FieldText(*record_, "Preview")) return *text;
    if (auto text = FieldText(*record_, "Name")) return *text;
  } catch (const RuntimeError&) {
    // A value that has no text shows as nothing.
  }
  return {};
}

OrvelResult StandardObjectUIO::Properties(const std::string& propertyName,
                                          std::string& propertyPar) {
  return GuardedResult([&] { return GetProperty(*RequireBO(), propertyName, propertyPar, oidr_); });
}

OrvelResult StandardObjectUIO::Methods(const std::string& name, Variant::Array& params) {
  return GuardedResult([&] {
    std::string param = params.empty() ? std::string() : CStr(params.front(), Locale::Invariant());
    auto status = RequireBO()->ExecCall(name, param, 0);
    return OrvelResult{status.Number, status.Text, {}};
  });
}

OrvelStatus StandardObjectUIO::Read() {
  return GuardedStatus([&] {
    if (RefersToRecord(oidr_)) return ReadRecord("Orvel_ReadObject", Quoted(oidr_));
    return ReadRecord("Orvel_NewObject", Quoted(OID()));
  });
}

OrvelStatus StandardObjectUIO::ReadRecord(const std::string& callName, const std::string& param) {
  auto reply = RequireBO()->GetCall(callName, param, 0);
  if (reply.Number != 0) return OrvelStatus{reply.Number, reply.Text};
  auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
  if (!rs || rs->RecordCount() == 0) {
    return OrvelStatus{kNoCurrentRecord, "Įrašas nerastas: " + (oidr_.empty() ? OID() : oidr_)};
  }
  rs->MoveFirst();
  record_ = std::move(rs);
  return OrvelStatus{};
}

OrvelStatus StandardObjectUIO::Save(const std::shared_ptr<Recordset>& rs2,
                                    const std::shared_ptr<Recordset>& rs3) {
  return GuardedStatus([&] {
    if (!record_) {
      return OrvelStatus{RuntimeError::kObjectNotSet, "Nėra įrašo, kurį būtų galima išsaugoti"};
    }
    bool isNew = !RefersToRecord(oidr_);
    Variant::Array args{Variant(record_), Variant(rs2), Variant(rs3)};
    auto status = RequireBO()->ExecArrayCall(
        "Orvel_SaveObject", Quoted(OID()) + "," + Quoted(isNew ? "" : oidr_), args);
    if (status.Number != 0) return status;
    if (isNew) {
      Variant id = record_->Fields("ID").Value();
      if (id.IsEmpty() || id.IsNull() || CLng(id) <= 0) {
        return OrvelStatus{kNoCurrentRecord, "Išsaugotas įrašas negavo ID: " + OID()};
      }
      oidr_ = OID() + std::to_string(CLng(id));
    }
    return Read();
  });
}

void StandardObjectUIO::SetUI(const std::shared_ptr<Object>& ui) {
  ui_ = std::dynamic_pointer_cast<OrvelObjectUI>(ui);
}

std::shared_ptr<OrvelObjectBO> StandardObjectUIO::BO() { return ui_ ? ui_->BO() : nullptr; }

void StandardObjectUIO::CancelUpdate() {
  if (!record_ || record_->IsBOF() || record_->IsEOF()) return;
  auto& fields = record_->Fields();
  for (int i = 0; i < fields.Count(); ++i) {
    auto& field = fields.Item(i);
    field.SetValue(field.UnderlyingValue());
  }
}

std::shared_ptr<OrvelObjectBO> StandardObjectUIO::RequireBO() {
  auto bo = BO();
  if (!bo) {
    throw RuntimeError(RuntimeError::kObjectNotSet, "Objektui " + (oidr_.empty() ? OID() : oidr_) +
                                                        " nepriskirtas verslo objektas");
  }
  return bo;
}

}  // namespace orvel
