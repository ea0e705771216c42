#include "refhost/HostObjectUIO.h"

#include "host/Convert.h"
#include "host/Identifiers.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelWindow.h"
#include "refhost/HostObjectUI.h"

namespace orvel {

namespace {

std::string Quoted(const std::string& s) { return "'" + s + "'"; }

// Runs a body and turns whatever it throws into a Number and a text.
template <class Result, class Body>
Result Guarded(Body&& body) noexcept {
  Result failed{};
  failed.Number = HostObjectUIO::kNoBusinessObject;
  try {
    return body();
  } catch (const std::exception& e) {
    failed.Text = e.what();
  } catch (...) {
    failed.Text = "Nenumatyta klaida";
  }
  return failed;
}

}  // namespace

std::string HostObjectUIO::OID() { return ui_->OID(); }

std::string HostObjectUIO::OName() { return ui_->OName(); }

std::shared_ptr<OrvelObjectUI> HostObjectUIO::UI() { return ui_; }

std::shared_ptr<OrvelObjectBO> HostObjectUIO::BO() { return ui_->BO(); }

std::string HostObjectUIO::Preview() {
  if (!record_ || record_->IsBOF() || record_->IsEOF()) return {};
  for (const char* name : {"Preview", "Name"}) {
    if (!record_->Fields().Exists(name)) continue;
    Variant value = record_->Fields(name).Value();
    if (!value.IsNull() && !value.IsEmpty()) return ConcatText(value);
  }
  return {};
}

OrvelResult HostObjectUIO::Properties(const std::string& propertyName,
                                      std::string& propertyPar) {
  if (propertyName == "GetObjectForm") {
    return OrvelResult{0, "", Variant(ui_->NewCard(shared_from_this()))};
  }
  auto bo = BO();
  if (!bo) return OrvelResult{kNoBusinessObject, "Nėra verslo objekto: " + OID(), Variant()};
  auto reply = bo->GetCall("Get" + propertyName, propertyPar.empty() ? oidr_ : propertyPar, 0);
  if (reply.Number != 0) return OrvelResult{reply.Number, reply.Text, Variant()};
  return OrvelResult{0, "", Variant(reply.Object)};
}

OrvelResult HostObjectUIO::Methods(const std::string& name, Variant::Array& params) {
  return Guarded<OrvelResult>([&] {
    auto bo = BO();
    if (!bo) return OrvelResult{kNoBusinessObject, "Nėra verslo objekto: " + OID(), Variant()};
    const std::string param = params.empty() ? "" : CStr(params.front(), Locale::Invariant());
    auto status = bo->ExecCall(name, param, 0);
    return OrvelResult{status.Number, status.Text, Variant()};
  });
}

OrvelStatus HostObjectUIO::Read() {
  if (RefersToRecord(oidr_)) return ReadRecord("Orvel_ReadObject", Quoted(oidr_));
  return ReadRecord("Orvel_NewObject", Quoted(OID()));
}

OrvelStatus HostObjectUIO::ReadRecord(const std::string& callName, const std::string& param) {
  return Guarded<OrvelStatus>([&] {
    auto bo = BO();
    if (!bo) return OrvelStatus{kNoBusinessObject, "Nėra verslo objekto: " + OID()};
    auto reply = bo->GetCall(callName, param, 0);
    if (reply.Number != 0) return OrvelStatus{reply.Number, reply.Text};
    auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
    if (!rs || rs->RecordCount() == 0) {
      return OrvelStatus{kRecordNotFound, "Įrašas nerastas: " + (oidr_.empty() ? OID() : oidr_)};
    }
    rs->MoveFirst();
    record_ = std::move(rs);
    return OrvelStatus{};
  });
}

OrvelStatus HostObjectUIO::Save(const std::shared_ptr<Recordset>& rs2,
                                const std::shared_ptr<Recordset>& rs3) {
  return Guarded<OrvelStatus>([&] {
    auto bo = BO();
    if (!bo || !record_) return OrvelStatus{kNoBusinessObject, "Nėra įrašo, kurį būtų galima išsaugoti"};
    const bool isNew = !RefersToRecord(oidr_);
    Variant::Array args{Variant(record_), Variant(rs2), Variant(rs3)};
    auto status = bo->ExecArrayCall("Orvel_SaveObject",
                                    Quoted(OID()) + "," + Quoted(isNew ? "" : oidr_), args);
    if (status.Number != 0) return status;
    if (isNew) oidr_ = OID() + ConcatText(record_->Fields("ID").Value());
    return Read();
  });
}

void HostObjectUIO::CancelUpdate() {
  if (!record_ || record_->IsBOF() || record_->IsEOF()) return;
  auto& fields = record_->Fields();
  for (int i = 0; i < fields.Count(); ++i) fields.Item(i).SetValue(fields.Item(i).UnderlyingValue());
}

}  // namespace orvel
