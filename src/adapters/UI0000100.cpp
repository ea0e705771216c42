#include "adapters/UI0000100.h"

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "firms/frmFirmInfo.h"
#include "firms/frmFirms.h"
#include "firms/frmPreview.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelWindowManager.h"
#include "host/Text.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kOid = "O0000100";
constexpr const char* kRightKey = "CFirms";
constexpr const char* kDefaultPreview = "1,0,1";
constexpr int kGroupFlag = 1;

// An OIDR of eight characters or fewer names a record not saved yet.
bool HasId(const std::string& oidr) { return oidr.size() >= 9; }

}  // namespace

UI0000100::UI0000100()
    : ObjectUIAdapter({{"C", "C0000100"},
                       {"CGroup", "stdClose"},
                       {"OGroup", "stdOpen"},
                       {"CGroupNA", "stdCloseNA"},
                       {"OGroupNA", "stdOpenNA"},
                       {"FirmNA", "FirmNA"}}) {}

std::shared_ptr<OrvelObjectUIO> UI0000100::NewInstance() { return std::make_shared<UIO0000100>(); }

void UI0000100::DoSetOrvelS() {
  // Through the module-wide services, which the first caller set: a later
  // caller's argument is not the one read.
  msgTitle_ = AppTitle();
  previewSettings_ = Services().Environment()->GetUserSetting(kOid, "Preview", kDefaultPreview);
}

std::optional<OrvelMenuItems> UI0000100::DoGetMenu(const std::string& oidr,
                                                   const std::string& otype, const std::string&) {
  OrvelMenuItems menu;
  if (oidr == OID()) {
    menu.push_back(MakeMenuItem("Sukurti naują &grupę", "2"));
    menu.push_back(MakeMenuItem("-", "100"));
    menu.push_back(MakeMenuItem("&Atrinkti", "4"));
    menu.push_back(MakeMenuItem("P&eržiūros nustatymai", "5"));
  } else {
    menu.push_back(MakeMenuItem("Padėti &ant darbo stalo", "0"));
    menu.push_back(MakeMenuItem("-", "100"));
    menu.push_back(MakeMenuItem("Pridėti &naują įmonę", "1"));
    if (otype != "C" && otype != "Firm") {
      menu.push_back(MakeMenuItem("Sukurti naują &grupę", "2"));
      menu.push_back(MakeMenuItem("Sukurti p&ogrupį", "3"));
    }
    menu.push_back(MakeMenuItem("-", "100"));
    menu.push_back(MakeMenuItem("&Atrinkti", "4"));
    menu.push_back(MakeMenuItem("P&eržiūros nustatymai", "5"));
    menu.push_back(MakeMenuItem("-", "100"));
    if (Services().Rights()->CanDelete(kRightKey, 0)) {
      menu.push_back(MakeMenuItem("&Panaikinti", "6"));
    }
  }
  // Without the delete right the separators before and after the missing
  // entry stand together, and the menu ends in one: the host's tree has
  // always shown it so, and users know the menu by its shape.
  menu.push_back(MakeMenuItem("-", "100"));
  menu.push_back(MakeMenuItem("Pagalba", "7"));
  menu.push_back(MakeMenuItem("-", "100"));
  return menu;
}

OrvelMenuResult UI0000100::DoClickMenu(const std::string& oidr, const std::string& otype,
                                       const std::string& sKey, const std::string&) {
  if (sKey == "0") {
    return {OrvelMenuResult::kShowWindow, Variant(GetFirmForm(oidr, ""))};
  }
  if (sKey == "1" || sKey == "2" || sKey == "3") return CreateRecord(oidr, otype, sKey);
  if (sKey == "4" || sKey == "70S2") return Filter();
  if (sKey == "5" || sKey == "82S2") return ChangePreview();
  if (sKey == "116S0") {
    // The refresh key asks the inner list with no parameters, so it ignores
    // PreviewSettings where key 5 honours them. Hosts rely on F5 giving the
    // unfiltered list; keep the two apart.
    Variant::Array value{Variant(Inner().GetOrvelObjectList("", "", "")), Variant("")};
    return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
  }
  if (sKey == "6") return DeleteAsked(oidr);
  if (sKey == "7") ShowHelp();
  return {};
}

OrvelMenuResult UI0000100::CreateRecord(const std::string& oidr, const std::string& otype,
                                        const std::string& sKey) {
  int32_t parentId = 0;
  if (oidr != OID()) {
    auto clicked = GetOrvelObject(oidr);
    if (!clicked) {
      Platform::Ui().MsgBox(otype == "C" ? "Įmonė panaikinta!" : "Įmonių grupė panaikinta!",
                            vbCritical, msgTitle_);
      return {};
    }
    double ownParent = Val(ConcatText(clicked->Fields("ParentID").Value()));
    if (sKey == "2") {
      parentId = static_cast<int32_t>(ownParent);
    } else if (CLng(clicked->Fields("GroupFlag").Value()) == kGroupFlag) {
      parentId = CLng(clicked->Fields("ID").Value());
    } else {
      parentId = static_cast<int32_t>(ownParent);
    }
  }
  auto window = GetFirmForm("", "");
  if (!window) return {};
  auto object = window->OrvelObjectUIO();
  object->Fields("ParentID").SetValue(parentId == 0 ? Variant::Null() : Variant(parentId));
  if (Val(sKey) != 1) object->Fields("GroupFlag").SetValue(Variant(kGroupFlag));
  return {OrvelMenuResult::kShowWindow, Variant(window)};
}

OrvelMenuResult UI0000100::Filter() {
  auto dialog = Platform::Classes().NewObjectSelect();
  dialog->SetMultiSelect(true);
  dialog->SetOType(OID());
  std::string answer = dialog->Show();
  if (answer.empty()) return {};
  std::string params = "'','" + answer + "'," + std::to_string(dialog->SearchOption1()) + "," +
                       std::to_string(dialog->SearchOption2());
  Variant::Array value{Variant(Inner().GetOrvelObjectList(params, "", "")), Variant(answer)};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0000100::ChangePreview() {
  frmPreview dialog;
  dialog.Settings = previewSettings_;
  dialog.OType = OID();
  dialog.ShowModal(Platform::Ui());
  if (!dialog.Accepted) return {};
  previewSettings_ = dialog.Settings;
  Variant::Array value{Variant(GetOrvelObjectList("", "", "")), Variant("")};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0000100::DeleteAsked(const std::string& oidr) {
  if (Platform::Ui().MsgBox("Ar tikrai norite panaikinti?", vbOKCancel + vbExclamation,
                            msgTitle_) != vbOK) {
    return {};
  }
  if (DeleteOrvelObject(oidr) != 0) return {};
  return {OrvelMenuResult::kRemoved, Variant()};
}

void UI0000100::ShowHelp() {
  std::string path = Services().Environment()->Session()->AppPath() + "help\\imones.htm";
  Variant::Array args{Variant("Įmonės"), Variant(path)};
  Services().ObjectManager()->ExecCommand("ShowHelp", args);
}

std::shared_ptr<OrvelWindow> UI0000100::GetFirmForm(const std::string& oidr,
                                                    const std::string& otype) {
  auto object = GetOrvelObject(oidr);
  if (!object) {
    bool group = !otype.empty() && otype != "C";
    Platform::Ui().MsgBox(group ? "Įmonių grupė panaikinta!" : "Įmonė panaikinta!", vbCritical,
                          msgTitle_);
    return nullptr;
  }
  if (!Services().Rights()->CanRead(kRightKey, 0)) return nullptr;
  auto window = std::make_shared<frmFirms>();
  window->SetOrvelObjectUIO(object);
  return window;
}

std::shared_ptr<Recordset> UI0000100::DoGetOrvelObjectList(const std::string& oidr,
                                                           const std::string&, const std::string&) {
  std::string params = oidr;
  if (oidr.find('\'') == std::string::npos) {
    params = "'" + oidr + "',''," + previewSettings_;
  }
  return Inner().GetOrvelObjectList(params, "", "");
}

bool UI0000100::DoAddToDeskTopOrvelObject(const std::string& oidr) {
  auto windows = Services().WindowManager();
  if (windows->IsOpen(oidr)) return true;
  auto window = GetFirmForm(oidr, "");
  if (!window) return false;
  windows->ShowWindow(window);
  return true;
}

int32_t UI0000100::DoDeleteOrvelObject(const std::string& oidr) {
  if (!Services().Rights()->CanDelete(kRightKey, 0)) return 0;
  return Inner().DeleteOrvelObject(oidr);
}

// ---- UIO0000100 ----

namespace {

// A business reply as the firm's properties report it: a failure's Number
// and Text, and `value` whatever happened.
OrvelResult FirmReply(const OrvelBoResult& reply, Variant value) {
  return OrvelResult{reply.Number, reply.Number != 0 ? reply.Text : std::string(),
                     std::move(value)};
}

std::shared_ptr<Recordset> RecordsOf(const OrvelBoResult& reply) {
  return std::dynamic_pointer_cast<Recordset>(reply.Object);
}

// Field "Exist" of the reply's first record, above zero.
bool Exists(const OrvelBoResult& reply) {
  auto rs = RecordsOf(reply);
  if (!rs || rs->IsEOF()) return false;
  return CDbl(rs->Fields("Exist").Value()) > 0;
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

}  // namespace

OrvelStatus UIO0000100::DoRead() {
  OrvelStatus status = ObjectUIOAdapter::DoRead();
  if (status.Number == 0 && !HasId(OIDR())) Fields("Active").SetValue(Variant(true));
  return status;
}

OrvelResult UIO0000100::DoProperties(const std::string& propertyName,
                                     std::string& propertyPar) {
  auto& bo = RequireBO();
  const std::string name = LCase(propertyName);
  if (name == "parent") {
    Variant parentId = Fields("ParentID").Value();
    if (parentId.IsNull() || parentId.IsEmpty()) return {0, "", Variant(std::shared_ptr<Object>())};
    auto parent = UI()->GetOrvelObject(OID() + CStr(parentId));
    return {0, "", Variant(std::shared_ptr<Object>(parent))};
  }
  if (name == "accounts" || name == "firms") {
    auto reply = bo.GetCall("Get" + propertyName, OIDR(), 0);
    return FirmReply(reply, Variant(reply.Object));
  }
  if (name == "findgoods") {
    auto reply = bo.GetCall("GetFindGoods", Quoted(OIDR()) + "," + Quoted(propertyPar), 0);
    return FirmReply(reply, Variant(reply.Object));
  }
  if (name == "firminfo") {
    // An empty parameter is "0", and so it stays for the caller.
    if (propertyPar.empty()) propertyPar = "0";
    auto reply = bo.GetCall("GetFirmInfo", Quoted(OIDR()) + "," + propertyPar, 0);
    return FirmReply(reply, Variant(reply.Object));
  }
  if (name == "checkcode") {
    auto reply = bo.GetCall("CheckCode", Quoted(OIDR()) + "," + Quoted(propertyPar), 0);
    return FirmReply(reply, reply.Number == 0 ? Variant(Exists(reply)) : Variant());
  }
  if (name == "checkbranch") {
    auto reply = bo.GetCall("CheckBranch", Quoted(OIDR()), 0);
    return FirmReply(reply, Variant(reply.Number == 0 && Exists(reply)));
  }
  if (name == "saldobyaccountcode") {
    auto reply = bo.GetCall("GetSaldoByAccountCode", propertyPar, 0);
    if (reply.Number != 0) return FirmReply(reply, Variant(0));
    auto rs = RecordsOf(reply);
    Variant saldo = rs && !rs->IsEOF() ? rs->Fields("Saldo").Value() : Variant(0);
    return FirmReply(reply, saldo);
  }
  if (name == "getobjectform") {
    auto window = std::make_shared<frmFirms>();
    window->SetOrvelObjectUIO(shared_from_this());
    return {0, "", Variant(std::shared_ptr<OrvelWindow>(window))};
  }
  auto reply = bo.GetCall("Get" + propertyName, propertyPar.empty() ? OIDR() : propertyPar, 0);
  return FirmReply(reply, Variant(reply.Object));
}

OrvelResult UIO0000100::DoMethods(const std::string& name, Variant::Array& params) {
  const std::string lower = LCase(name);
  if (lower == "settypeandregion") return SetTypeAndRegion();
  if (lower == "showfirminfo") {
    // Params(0): the note's ID, 0 for a new note; it comes back as the
    // dialog left it (0 when the note was gone). Value: whether it saved.
    if (OIDR().empty()) return {};
    frmFirmInfo dialog;
    dialog.OrvelObjectUIO = shared_from_this();
    dialog.ID = params.empty() ? 0 : CLng(params[0]);
    dialog.ShowModal(Platform::Ui());
    if (!params.empty()) params[0] = Variant(dialog.ID);
    dialog.OrvelObjectUIO.reset();
    return {0, "", Variant(dialog.Saved)};
  }
  std::string param = params.empty() ? std::string() : CStr(params[0]);
  OrvelStatus status = RequireBO().ExecCall(name, param, 0);
  return {status.Number, status.Text, Variant()};
}

OrvelResult UIO0000100::SetTypeAndRegion() {
  int32_t parentId = NullToLong(Fields("ParentID").Value());
  OrvelResult result = Properties("TypeAndRegion", std::to_string(parentId));
  if (result.Number == 0) {
    try {
      auto rs = result.Value.ObjectAs<Recordset>();
      if (rs && !rs->IsEOF()) {
        Fields("FirmTypeId").SetValue(rs->Fields("FirmTypeId").Value());
        Fields("RegionID").SetValue(rs->Fields("RegionID").Value());
      }
    } catch (...) {
      // A group without a type or region gives the new firm none.
    }
  }
  return {result.Number, result.Text, Variant()};
}

}  // namespace orvel
