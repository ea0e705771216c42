#include "adapters/StandardObjectUI.h"

#include "adapters/StandardObjectUIO.h"
#include "common/Catalogue.h"
#include "common/Registration.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {
// A list request may carry its whole argument string in the OIDR.
std::string ListParam(const std::string& oidr) {
  return oidr.find('\'') != std::string::npos ? oidr : "'" + oidr + "'";
}
}  // namespace

std::string TypeName(const std::string& oid) {
  if (auto name = ObjectTypeName(oid)) return std::string(*name);
  try {
    auto services = OrvelS();
    auto manager = services ? services->ObjectManager() : nullptr;
    if (!manager) return {};
    OrvelResult named = manager->Call("Orvel_GetObjectName", oid);
    return named.Number == 0 && named.Value.IsString() ? named.Value.String() : std::string();
  } catch (...) {
    return {};
  }
}

std::string StandardObjectUI::OName() { return TypeName(oid_); }

std::optional<OrvelMenuItems> StandardObjectUI::GetMenu(const std::string&, const std::string&,
                                                        const std::string&) {
  return std::nullopt;
}

OrvelMenuResult StandardObjectUI::ClickMenu(const std::string&, const std::string&,
                                            const std::string&, const std::string&) {
  return {};
}

bool StandardObjectUI::DragOK(const std::string&, const std::string&, const std::string&) {
  return true;
}

bool StandardObjectUI::DropOK(const std::string&) { return false; }

std::shared_ptr<Recordset> StandardObjectUI::GetOrvelObjectList(const std::string& oidr,
                                                                const std::string&,
                                                                const std::string&) {
  if (!bo_) return nullptr;
  auto result = bo_->GetCall("Orvel_GetObjectList", ListParam(oidr), 0);
  if (result.Number != 0) return nullptr;
  return std::dynamic_pointer_cast<Recordset>(result.Object);
}

bool StandardObjectUI::AddToDeskTopOrvelObject(const std::string& oidr) {
  auto services = OrvelS();
  if (!services) return false;
  auto manager = services->ObjectManager();
  if (!manager) return false;
  manager->AddToDesktop(oidr);
  return true;
}

std::shared_ptr<OrvelObjectUIO> StandardObjectUI::GetOrvelObject(const std::string& oidr) {
  auto object = std::make_shared<StandardObjectUIO>();
  object->SetUI(shared_from_this());
  object->SetOIDR(oidr);
  return object->Read().Number == 0 ? object : nullptr;
}

int32_t StandardObjectUI::DeleteOrvelObject(const std::string& oidr) {
  if (!bo_) return RuntimeError::kObjectNotSet;
  return bo_->ExecCall("Orvel_DeleteObject", "'" + oidr + "'", 0).Number;
}

void StandardObjectUI::SetOrvelS(const std::shared_ptr<OrvelServices>& services) {
  orvel::SetOrvelS(services);
}

void StandardObjectUI::SetBO(const std::shared_ptr<Object>& bo) {
  bo_ = std::dynamic_pointer_cast<OrvelObjectBO>(bo);
}

}  // namespace orvel
