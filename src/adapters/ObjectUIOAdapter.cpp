#include "adapters/ObjectUIOAdapter.h"

#include "adapters/StandardObjectUIO.h"
#include "common/Boundary.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectUI.h"

namespace orvel {

ObjectUIOAdapter::ObjectUIOAdapter() : inner_(std::make_shared<StandardObjectUIO>()) {}

ObjectUIOAdapter::~ObjectUIOAdapter() = default;

std::string ObjectUIOAdapter::OID() {
  return Guarded([&] { return inner_->OID(); }, std::string());
}

void ObjectUIOAdapter::SetOID(const std::string& oid) {
  Guarded([&] { return inner_->SetOID(oid), true; }, false);
}

std::string ObjectUIOAdapter::OIDR() {
  return Guarded([&] { return inner_->OIDR(); }, std::string());
}

void ObjectUIOAdapter::SetOIDR(const std::string& oidr) {
  Guarded([&] { return inner_->SetOIDR(oidr), true; }, false);
}

std::string ObjectUIOAdapter::OName() {
  return Guarded([&] { return inner_->OName(); }, std::string());
}

std::string ObjectUIOAdapter::OType() {
  return Guarded([&] { return inner_->OType(); }, std::string());
}

void ObjectUIOAdapter::SetOType(const std::string& otype) {
  Guarded([&] { return inner_->SetOType(otype), true; }, false);
}

std::string ObjectUIOAdapter::Preview() {
  return Guarded([&] { return inner_->Preview(); }, std::string());
}

void ObjectUIOAdapter::SetPreview(const std::string& preview) {
  Guarded([&] { return inner_->SetPreview(preview), true; }, false);
}

std::shared_ptr<Recordset> ObjectUIOAdapter::RsFields() {
  return Guarded([&] { return inner_->RsFields(); }, std::shared_ptr<Recordset>());
}

OrvelResult ObjectUIOAdapter::Properties(const std::string& propertyName,
                                         std::string& propertyPar) {
  return GuardedResult([&] { return DoProperties(propertyName, propertyPar); });
}

OrvelResult ObjectUIOAdapter::Methods(const std::string& name, Variant::Array& params) {
  return GuardedResult([&] { return DoMethods(name, params); });
}

OrvelStatus ObjectUIOAdapter::Read() {
  return GuardedStatus([&] { return DoRead(); });
}

OrvelStatus ObjectUIOAdapter::Save(const std::shared_ptr<Recordset>& rs2,
                                   const std::shared_ptr<Recordset>& rs3) {
  return GuardedStatus([&] { return inner_->Save(rs2, rs3); });
}

void ObjectUIOAdapter::SetUI(const std::shared_ptr<Object>& ui) {
  Guarded([&] { return inner_->SetUI(ui), true; }, false);
}

std::shared_ptr<OrvelObjectUI> ObjectUIOAdapter::UI() {
  return Guarded([&] { return inner_->UI(); }, std::shared_ptr<OrvelObjectUI>());
}

std::shared_ptr<OrvelObjectBO> ObjectUIOAdapter::BO() {
  return Guarded([&] { return inner_->BO(); }, std::shared_ptr<OrvelObjectBO>());
}

void ObjectUIOAdapter::CancelUpdate() {
  Guarded([&] { return inner_->CancelUpdate(), true; }, false);
}

OrvelResult ObjectUIOAdapter::DoProperties(const std::string&, std::string&) { return {}; }

OrvelResult ObjectUIOAdapter::DoMethods(const std::string&, Variant::Array&) { return {}; }

OrvelStatus ObjectUIOAdapter::DoRead() { return inner_->Read(); }

}  // namespace orvel
