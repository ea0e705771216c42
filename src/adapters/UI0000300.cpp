#include "adapters/UI0000300.h"

#include "adapters/PropertyCall.h"
#include "banks/frmBanks.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

UI0000300::UI0000300() : ObjectUIAdapter({{"C", "C0000300"}}) {}

std::shared_ptr<OrvelObjectUIO> UI0000300::NewInstance() { return std::make_shared<UIO0000300>(); }

std::optional<OrvelMenuItems> UI0000300::DoGetMenu(const std::string& oidr, const std::string&,
                                                   const std::string&) {
  bool isType = oidr == OID();
  OrvelMenuItems menu;
  if (!isType) menu.push_back(MakeMenuItem("Padėti &ant darbo stalo", "0"));
  menu.push_back(MakeMenuItem("&Naujas bankas", "1"));
  if (!isType) menu.push_back(MakeMenuItem("&Panaikinti", "6"));
  menu.push_back(MakeMenuItem("&Atrinkti", "4"));
  return menu;
}

OrvelMenuResult UI0000300::DoClickMenu(const std::string& oidr, const std::string&,
                                       const std::string& sKey, const std::string&) {
  if (sKey == "0") return {OrvelMenuResult::kShowWindow, Variant(GetObjectWindow(oidr, ""))};
  if (sKey == "1") return {OrvelMenuResult::kShowWindow, Variant(GetObjectWindow("", ""))};
  if (sKey == "4" || sKey == "70S2") return SelectByText();
  if (sKey == "6") return DeleteAsked(oidr);
  return {};
}

OrvelMenuResult UI0000300::SelectByText() {
  auto dialog = Platform::Classes().NewObjectSelect();
  dialog->SetMultiSelect(false);
  dialog->SetOType(OID());
  std::string answer = dialog->Show();
  if (answer.empty()) return {};
  std::string arguments = "'','" + answer + "'";
  dialog.reset();
  Variant::Array value{Variant(Inner().GetOrvelObjectList(arguments, "", "")), Variant(answer)};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0000300::DeleteAsked(const std::string& oidr) {
  std::string title = AppTitle();
  if (Platform::Ui().MsgBox("Ar tikrai norite panaikinti?", vbOKCancel + vbExclamation, title) !=
      vbOK) {
    return {};
  }
  if (DeleteOrvelObject(oidr) != 0) return {};
  return {OrvelMenuResult::kRemoved, Variant()};
}

std::shared_ptr<OrvelWindow> UI0000300::GetObjectWindow(const std::string& oidr,
                                                        const std::string&) {
  auto object = GetOrvelObject(oidr);
  if (!object) return nullptr;
  auto window = std::make_shared<frmBanks>();
  window->SetOrvelObjectUIO(object);
  return window;
}

bool UI0000300::DoAddToDeskTopOrvelObject(const std::string& oidr) {
  auto windows = Services().WindowManager();
  // A bank that cannot be read still goes to ShowWindow, with no window:
  // the host is told of the request and shows nothing.
  if (!windows->IsOpen(oidr)) windows->ShowWindow(GetObjectWindow(oidr, ""));
  return true;
}

OrvelResult UIO0000300::DoProperties(const std::string& propertyName,
                                     std::string& propertyPar) {
  if (propertyName == "Structure") {
    auto reply = RequireBO().RecordsetCall("Orvel_GetObjectStructure", "Banks", 0);
    return PropertyResult(reply, Variant(std::make_shared<OrvelBoResult>(reply)));
  }
  if (propertyName == "GetObjectForm") {
    auto window = std::make_shared<frmBanks>();
    window->SetOrvelObjectUIO(shared_from_this());
    return OrvelResult{0, "", Variant(std::shared_ptr<OrvelWindow>(window))};
  }
  return GetProperty(RequireBO(), propertyName, propertyPar, OIDR());
}

}  // namespace orvel
