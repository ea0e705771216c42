#include "refhost/HostObjectUI.h"

#include "host/Identifiers.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "refhost/HostCard.h"
#include "refhost/HostObjectUIO.h"

namespace orvel {

std::shared_ptr<OrvelWindow> HostObjectUI::NewCard(const std::shared_ptr<OrvelObjectUIO>& object) {
  if (!ui_) return nullptr;
  auto card = std::make_shared<HostCard>(*ui_, type_.editable, Services());
  card->SetOrvelObjectUIO(object);
  return card;
}

std::optional<OrvelMenuItems> HostObjectUI::GetMenu(const std::string& oidr, const std::string&,
                                                    const std::string&) {
  if (!RefersToRecord(oidr)) return std::nullopt;
  return OrvelMenuItems{OrvelMenuItem{"Padėti &ant darbo stalo", "0", nullptr, 0}};
}

OrvelMenuResult HostObjectUI::ClickMenu(const std::string& oidr, const std::string&,
                                        const std::string& sKey, const std::string&) {
  if (sKey != "0" || !RefersToRecord(oidr)) return {};
  auto object = GetOrvelObject(oidr);
  auto card = object ? NewCard(object) : nullptr;
  if (!card) return {};
  return OrvelMenuResult{OrvelMenuResult::kShowWindow, Variant(card)};
}

std::shared_ptr<Recordset> HostObjectUI::GetOrvelObjectList(const std::string& oidr,
                                                            const std::string&,
                                                            const std::string&) {
  if (!bo_) return nullptr;
  const std::string param = oidr.find('\'') != std::string::npos ? oidr : "'" + oidr + "'";
  auto result = bo_->GetCall("Orvel_GetObjectList", param, 0);
  return result.Number == 0 ? std::dynamic_pointer_cast<Recordset>(result.Object) : nullptr;
}

bool HostObjectUI::AddToDeskTopOrvelObject(const std::string& oidr) {
  auto services = Services();
  auto windows = services ? services->WindowManager() : nullptr;
  if (!windows) return false;
  if (windows->IsOpen(oidr)) return true;
  auto object = GetOrvelObject(oidr);
  auto card = object ? NewCard(object) : nullptr;
  if (!card) return false;
  windows->ShowWindow(card);
  return true;
}

std::shared_ptr<OrvelObjectUIO> HostObjectUI::GetOrvelObject(const std::string& oidr) {
  auto object = std::make_shared<HostObjectUIO>(shared_from_this());
  object->SetOIDR(oidr);
  return object->Read().Number == 0 ? object : nullptr;
}

int32_t HostObjectUI::DeleteOrvelObject(const std::string& oidr) {
  if (!bo_) return HostObjectUIO::kNoBusinessObject;
  return bo_->ExecCall("Orvel_DeleteObject", "'" + oidr + "'", 0).Number;
}

void HostObjectUI::SetBO(const std::shared_ptr<Object>& bo) {
  bo_ = std::dynamic_pointer_cast<OrvelObjectBO>(bo);
}

}  // namespace orvel
