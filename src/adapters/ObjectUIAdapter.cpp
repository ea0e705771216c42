#include "adapters/ObjectUIAdapter.h"

#include "adapters/StandardObjectUI.h"
#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"

namespace orvel {

namespace {
// Only changed rows travel back to the business layer.
constexpr int kMarshalModifiedOnly = 1;
}  // namespace

ObjectUIAdapter::ObjectUIAdapter(std::initializer_list<IconRow> iconRows)
    : inner_(std::make_shared<StandardObjectUI>()) {
  if (iconRows.size() == 0) return;
  iconsTable_ = std::make_shared<IconsTable>();
  for (const auto& [key, item] : iconRows) iconsTable_->Add(item, key);
}

ObjectUIAdapter::~ObjectUIAdapter() = default;

std::string ObjectUIAdapter::OID() {
  return Guarded([&] { return inner_->OID(); }, std::string());
}

void ObjectUIAdapter::SetOID(const std::string& oid) {
  Guarded([&] { return inner_->SetOID(oid), true; }, false);
}

std::string ObjectUIAdapter::OName() {
  return Guarded([&] { return inner_->OName(); }, std::string());
}

std::optional<OrvelMenuItems> ObjectUIAdapter::GetMenu(const std::string& oidr,
                                                       const std::string& otype,
                                                       const std::string& settings) {
  return Guarded([&] { return DoGetMenu(oidr, otype, settings); }, std::optional<OrvelMenuItems>());
}

OrvelMenuResult ObjectUIAdapter::ClickMenu(const std::string& oidr, const std::string& otype,
                                           const std::string& sKey, const std::string& settings) {
  return Guarded([&] { return DoClickMenu(oidr, otype, sKey, settings); }, OrvelMenuResult());
}

bool ObjectUIAdapter::DragOK(const std::string& oidr, const std::string& otype,
                             const std::string& settings) {
  return Guarded([&] { return DoDragOK(oidr, otype, settings); }, false);
}

bool ObjectUIAdapter::DropOK(const std::string& oidr) {
  return Guarded([&] { return DoDropOK(oidr); }, false);
}

std::shared_ptr<Recordset> ObjectUIAdapter::GetOrvelObjectList(const std::string& oidr,
                                                               const std::string& otype,
                                                               const std::string& settings) {
  return Guarded([&] { return DoGetOrvelObjectList(oidr, otype, settings); },
                 std::shared_ptr<Recordset>());
}

bool ObjectUIAdapter::AddToDeskTopOrvelObject(const std::string& oidr) {
  return Guarded([&] { return DoAddToDeskTopOrvelObject(oidr); }, false);
}

std::shared_ptr<OrvelObjectUIO> ObjectUIAdapter::GetOrvelObject(const std::string& oidr) {
  return Guarded([&] { return DoGetOrvelObject(oidr); }, std::shared_ptr<OrvelObjectUIO>());
}

int32_t ObjectUIAdapter::DeleteOrvelObject(const std::string& oidr) {
  try {
    return DoDeleteOrvelObject(oidr);
  } catch (...) {
    return CurrentFailure().number;
  }
}

void ObjectUIAdapter::SetOrvelS(const std::shared_ptr<OrvelServices>& services) {
  orvel::SetOrvelS(services);
  Guarded([&] { return DoSetOrvelS(), true; }, false);
}

void ObjectUIAdapter::SetBO(const std::shared_ptr<Object>& bo) {
  Guarded([&] { return inner_->SetBO(bo), true; }, false);
}

std::shared_ptr<OrvelObjectBO> ObjectUIAdapter::BO() {
  return Guarded([&] { return inner_->BO(); }, std::shared_ptr<OrvelObjectBO>());
}

std::optional<OrvelMenuItems> ObjectUIAdapter::DoGetMenu(const std::string&, const std::string&,
                                                         const std::string&) {
  return std::nullopt;
}

OrvelMenuResult ObjectUIAdapter::DoClickMenu(const std::string&, const std::string&,
                                             const std::string&, const std::string&) {
  return {};
}

bool ObjectUIAdapter::DoDragOK(const std::string&, const std::string&, const std::string&) {
  return true;
}

bool ObjectUIAdapter::DoDropOK(const std::string&) { return false; }

std::shared_ptr<Recordset> ObjectUIAdapter::DoGetOrvelObjectList(const std::string& oidr,
                                                                 const std::string&,
                                                                 const std::string&) {
  return inner_->GetOrvelObjectList(oidr, "", "");
}

bool ObjectUIAdapter::DoAddToDeskTopOrvelObject(const std::string&) { return false; }

std::shared_ptr<OrvelObjectUIO> ObjectUIAdapter::DoGetOrvelObject(const std::string& oidr) {
  auto object = NewInstance();
  object->SetUI(shared_from_this());
  object->SetOIDR(oidr);
  if (object->Read().Number != 0) return nullptr;
  if (auto rs = object->RsFields()) rs->SetMarshalOptions(kMarshalModifiedOnly);
  return object;
}

int32_t ObjectUIAdapter::DoDeleteOrvelObject(const std::string& oidr) {
  return inner_->DeleteOrvelObject(oidr);
}

OrvelMenuItem ObjectUIAdapter::MakeMenuItem(const std::string& caption, const std::string& key) {
  return OrvelMenuItem{caption, key, nullptr, 0};
}

}  // namespace orvel
