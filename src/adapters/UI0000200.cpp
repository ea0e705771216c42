#include "adapters/UI0000200.h"

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "goods/GoodsDialogs.h"
#include "goods/GoodsSettings.h"
#include "goods/StructuredCode.h"
#include "goods/frmGoods.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelUser.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kOid = "O0000200";
constexpr const char* kRightKey = "CGoods";
constexpr const char* kPriceRightKey = "CGoodsPT";
constexpr int kPreviewFields = 7;
constexpr int kGroupFlag = 1;

// An OIDR of eight characters or fewer names a record not saved yet.
bool HasId(const std::string& oidr) { return Len(oidr) >= 9; }

OrvelMenuItem Separator() { return OrvelMenuItem{"-", "100", nullptr, 0}; }

}  // namespace

UI0000200::UI0000200()
    : ObjectUIAdapter({{"C", "C0000200"},
                       {"CGroup", "stdClose"},
                       {"OGroup", "stdOpen"},
                       {"CRoot", "stdClose"},
                       {"ORoot", "stdOpen"},
                       {"CGroupNA", "stdCloseNA"},
                       {"OGroupNA", "stdOpenNA"},
                       {"GEXIST", "GEXIST"},
                       {"GoodNA", "GoodNA"},
                       {"Service", "Service"},
                       {"ServiceNA", "ServiceNA"}}) {}

std::shared_ptr<OrvelObjectUIO> UI0000200::NewInstance() { return std::make_shared<UIO0000200>(); }

void UI0000200::DoSetOrvelS() {
  // Through the module-wide services, which the first caller set.
  msgTitle_ = AppTitle();
  std::string stored = Services().Environment()->GetUserSetting(kOid, "Preview", kDefaultPreview);
  // A warehouse name holding a comma fails this count too, and the default
  // then wins without a word; the stored value is left for the dialog to
  // replace.
  previewSettings_ =
      static_cast<int>(Split(stored, ",").size()) == kPreviewFields ? stored : kDefaultPreview;
}

UI0000200::NodeKind UI0000200::KindOf(const std::string& oidr, const std::string& otype) {
  if (oidr == OID()) return NodeKind::Root;
  if (otype == "Root" || InStr(1, otype, "Group", Compare::Text) > 0) return NodeKind::Folder;
  return NodeKind::Good;
}

std::optional<OrvelMenuItems> UI0000200::DoGetMenu(const std::string& oidr,
                                                   const std::string& otype, const std::string&) {
  OrvelMenuItems menu;
  auto add = [&](const char* caption, const char* key) {
    menu.push_back(MakeMenuItem(caption, key));
  };
  auto& rights = *Services().Rights();
  switch (KindOf(oidr, otype)) {
    case NodeKind::Root:
      add("Sukurti naują &grupę", "2");
      menu.push_back(Separator());
      add("&Atrinkti", "5");
      add("P&eržiūros nustatymai", "6");
      break;
    case NodeKind::Folder:
      add("Padėti &ant darbo stalo", "0");
      menu.push_back(Separator());
      add("Pridėti &naują prekę", "1");
      add("Sukurti naują &grupę", "2");
      add("Sukurti p&ogrupį", "3");
      menu.push_back(Separator());
      if (rights.CanRead(kPriceRightKey, 0)) {
        add("Kainų keitimas", "9");
        menu.push_back(Separator());
        add("Garantijos pridėjimas", "10");
        menu.push_back(Separator());
      }
      add("&Atrinkti", "5");
      add("P&eržiūros nustatymai", "6");
      menu.push_back(Separator());
      if (rights.CanDelete(kRightKey, 0)) add("&Panaikinti", "7");
      break;
    case NodeKind::Good:
      add("Padėti &ant darbo stalo", "0");
      menu.push_back(Separator());
      add("Pridėti &naują prekę", "1");
      menu.push_back(Separator());
      add("&Kopijuoti", "4");
      menu.push_back(Separator());
      add("&Atrinkti", "5");
      add("P&eržiūros nustatymai", "6");
      menu.push_back(Separator());
      if (rights.CanDelete(kRightKey, 0)) add("&Panaikinti", "7");
      break;
  }
  // Every menu ends in a separator: the host's tree has always shown it so.
  menu.push_back(Separator());
  add("Pagalba", "8");
  menu.push_back(Separator());
  return menu;
}

OrvelMenuResult UI0000200::DoClickMenu(const std::string& oidr, const std::string&,
                                       const std::string& sKey, const std::string&) {
  if (sKey == "0") return {OrvelMenuResult::kShowWindow, Variant(OpenGoodWindow(oidr, ""))};
  if (sKey == "1" || sKey == "2" || sKey == "3") return CreateRecord(oidr, sKey);
  if (sKey == "116S0") return ReplaceList();
  if (sKey == "6" || sKey == "82S2") return ChangePreview();
  if (sKey == "5" || sKey == "70S2") return Filter();
  if (sKey == "9" || sKey == "10") {
    // The group's dialogs need the group: a node that cannot be read opens none.
    if (auto group = GetOrvelObject(oidr)) {
      auto& dialogs = CurrentGoodsDialogs();
      if (sKey == "9") {
        dialogs.ChangePrices(group);
      } else {
        dialogs.AddGuarantee(group);
      }
    }
    return {};
  }
  if (sKey == "4") return CopyGoodWindow(oidr);
  if (sKey == "7") return DeleteAsked(oidr);
  if (sKey == "8") ShowHelp();
  return {};
}

OrvelMenuResult UI0000200::CreateRecord(const std::string& oidr, const std::string& sKey) {
  int32_t parentId = 0;
  if (oidr != OID()) {
    auto node = GetOrvelObject(oidr);
    if (!node) return {};
    const int32_t ownParent = NullToLong(node->Fields("ParentID").Value());
    const bool group = NullToLong(node->Fields("GroupFlag").Value()) == kGroupFlag;
    if (sKey == "2") {
      parentId = ownParent;  // a new group beside the node
    } else {
      parentId = group ? NullToLong(node->Fields("ID").Value()) : ownParent;
    }
  }
  auto window = OpenGoodWindow("", "");
  if (!window) return {};
  auto object = window->OrvelObjectUIO();
  object->Fields("ParentID").SetValue(Variant(parentId));
  object->Fields("GroupFlag").SetValue(Variant(sKey == "1" ? 0 : kGroupFlag));
  return {OrvelMenuResult::kShowWindow, Variant(window)};
}

OrvelMenuResult UI0000200::ReplaceList() {
  // Through this adapter's own list, so the list settings apply.
  Variant::Array value{Variant(GetOrvelObjectList("", "", "")), Variant("")};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0000200::ChangePreview() {
  std::string settings = previewSettings_;
  if (!CurrentGoodsDialogs().EditListSettings(settings)) return {};
  previewSettings_ = settings;
  return ReplaceList();
}

OrvelMenuResult UI0000200::Filter() {
  auto picker = Platform::Classes().NewObjectSelect();
  picker->SetMultiSelect(true);
  picker->SetOType(OID());
  std::string picked = picker->Show();
  if (picked.empty()) return {};
  auto a = Split(previewSettings_, ",");
  if (static_cast<int>(a.size()) != kPreviewFields) {
    throw RuntimeError(RuntimeError::kSubscript, "Sąrašo nustatymuose trūksta laukų");
  }
  std::string params = "'','" + picked + "'," + std::to_string(picker->SearchOption1()) + "," +
                       std::to_string(picker->SearchOption2());
  for (int i = 2; i < kPreviewFields; ++i) params += "," + a[i];
  Variant::Array value{Variant(Inner().GetOrvelObjectList(params, "", "")), Variant(picked)};
  return {OrvelMenuResult::kReplaceList, Variant(std::move(value))};
}

OrvelMenuResult UI0000200::DeleteAsked(const std::string& oidr) {
  if (Platform::Ui().MsgBox("Ar tikrai norite panaikinti?", vbOKCancel + vbExclamation,
                            msgTitle_) != vbOK) {
    return {};
  }
  if (DeleteOrvelObject(oidr) != 0) return {};
  return {OrvelMenuResult::kRemoved, Variant()};
}

void UI0000200::ShowHelp() {
  std::string path = Services().Environment()->Session()->AppPath() + "help\\atsargos.htm";
  Variant::Array args{Variant("Atsargos"), Variant(path)};
  Services().ObjectManager()->ExecCommand("ShowHelp", args);
}

std::shared_ptr<OrvelWindow> UI0000200::OpenGoodWindow(const std::string& oidr,
                                                       const std::string&) {
  auto object = GetOrvelObject(oidr);
  if (!object) return nullptr;
  auto window = std::make_shared<frmGoods>();
  window->SetOrvelObjectUIO(object);
  return window;
}

OrvelMenuResult UI0000200::CopyGoodWindow(const std::string& oidr) {
  auto catalogue = GetOrvelObject("");
  if (!catalogue) return {};
  Variant::Array params{Variant(oidr)};
  OrvelResult copied = catalogue->Methods("CopyGood", params);
  if (copied.Number != 0) return {};
  auto window = OpenGoodWindow(ConcatText(copied.Value), "");
  if (!window) return {};
  return {OrvelMenuResult::kShowWindow, Variant(window)};
}

std::shared_ptr<Recordset> UI0000200::DoGetOrvelObjectList(const std::string& oidr,
                                                           const std::string&, const std::string&) {
  return Inner().GetOrvelObjectList("'" + oidr + "',''," + previewSettings_, "", "");
}

bool UI0000200::DoAddToDeskTopOrvelObject(const std::string& oidr) {
  auto windows = Services().WindowManager();
  if (windows->IsOpen(oidr)) return true;
  if (auto window = OpenGoodWindow(oidr, "")) windows->ShowWindow(window);
  return true;
}

int32_t UI0000200::DoDeleteOrvelObject(const std::string& oidr) {
  if (!Services().Rights()->CanDelete(kRightKey, 0)) return 0;
  return Inner().DeleteOrvelObject(oidr);
}

// ---- UIO0000200 ----

namespace {

// A business reply as the goods properties report it: the object as Value on
// success, otherwise the Number and Text with no Value.
OrvelResult GoodsReply(const OrvelBoResult& reply) {
  if (reply.Number != 0 || !reply.Object) return {reply.Number, reply.Text, Variant()};
  return {0, "", Variant(reply.Object)};
}

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// The first argument; a call without one is the runtime's bounds error.
const Variant& FirstArgument(const Variant::Array& params, const std::string& method) {
  if (params.empty()) {
    throw RuntimeError(RuntimeError::kSubscript, method + ": trūksta argumento");
  }
  return params.front();
}

std::shared_ptr<Recordset> RecordsOf(const Variant& value) {
  auto rs = value.ObjectAs<Recordset>();
  if (!rs) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra įrašų rinkinio");
  if (rs->IsEOF()) throw RuntimeError(RuntimeError::kNoCurrentRecord, "Nėra įrašo");
  return rs;
}

}  // namespace

OrvelStatus UIO0000200::DoRead() {
  OrvelStatus status = ObjectUIOAdapter::DoRead();
  if (status.Number == 0 && !HasId(OIDR())) {
    Fields("Active").SetValue(Variant(true));
    Fields("WithRest").SetValue(Variant(true));
  }
  return status;
}

OrvelResult UIO0000200::DoProperties(const std::string& propertyName,
                                     std::string& propertyPar) {
  if (propertyName == "Parent") {
    // A record at the top has no parent group.
    Variant parentId = Fields("ParentID").Value();
    if (NullToLong(parentId) == 0) return {0, "", Variant(std::shared_ptr<Object>())};
    auto parent = UI()->GetOrvelObject(OID() + ConcatText(parentId));
    return {0, "", Variant(std::shared_ptr<Object>(parent))};
  }
  if (propertyName == "Measure") {
    auto measures = Services().ObjectManager()->GetOrvelObjectUI(Left(propertyPar, 8));
    if (!measures) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra matavimo vienetų tipo");
    return {0, "", Variant(std::shared_ptr<Object>(measures->GetOrvelObject(propertyPar)))};
  }
  auto& bo = RequireBO();
  if (propertyName == "Goods") return GoodsReply(bo.GetCall("GetGoods", propertyPar, 0));
  if (propertyName == "GetObjectForm") {
    auto window = std::make_shared<frmGoods>();
    window->SetOrvelObjectUIO(shared_from_this());
    return {0, "", Variant(std::shared_ptr<OrvelWindow>(window))};
  }
  if (propertyName == "FindGoods") {
    return GoodsReply(bo.GetCall("GetFindGoods", Quoted(OIDR()) + "," + Quoted(propertyPar), 0));
  }
  return GoodsReply(
      bo.GetCall("Get" + propertyName, propertyPar.empty() ? OIDR() : propertyPar, 0));
}

OrvelResult UIO0000200::DoMethods(const std::string& name, Variant::Array& params) {
  const std::string upper = UCase(name);
  if (upper == "GENERATEUNICALSTRUCTUREDCODE") return GenerateUnicalStructuredCode();
  if (upper == "COPYGOOD") return CopyGood(params);
  if (upper == "UPDATEGOODSPRICE") return ArrayCall("UpdateGoodsPrice", params);
  if (upper == "UPDATEGARANTY") return ArrayCall("UpdateGaranty", params);
  return {};
}

OrvelResult UIO0000200::GenerateUnicalStructuredCode() {
  Variant enabled = GoodsSetting("StructuredCode");
  if (enabled.IsNull() || enabled.IsEmpty() || !CBool(enabled)) return {};
  OrvelResult reply = Properties("StructuredCode", ConcatText(Fields("ParentID").Value()));
  if (reply.Number != 0) return reply;

  Variant parentCode, maxCode;
  std::optional<std::string> code;
  try {
    auto rs = RecordsOf(reply.Value);
    parentCode = rs->Fields().Item("PARENTCODE").Value();
    maxCode = rs->Fields().Item("MAXCODE").Value();
    code = ProposeStructuredCode(parentCode, maxCode);
  } catch (const RuntimeError&) {
    // An answer without the two codes leaves no width to work with.
    code = ConcatText(parentCode) + kUnknownCodeTail;
  }
  if (code) Fields("Code").SetValue(Variant(*code));
  return {0, "", Fields("Code").Value()};
}

OrvelResult UIO0000200::CopyGood(Variant::Array& params) {
  std::string source = ConcatText(FirstArgument(params, "CopyGood"));
  std::string userId = Services().Environment()->User()->Id();
  OrvelBoResult reply = RequireBO().GetCall("CopyGood", Quoted(source) + "," + Quoted(userId), 0);
  if (reply.Number != 0) return {reply.Number, reply.Text, Variant()};
  auto rs = RecordsOf(Variant(reply.Object));
  return {0, "", rs->Fields().Item("OIDR").Value()};
}

OrvelResult UIO0000200::ArrayCall(const std::string& name, Variant::Array& params) {
  Variant::Array args{FirstArgument(params, name)};
  OrvelStatus status = RequireBO().ExecArrayCall(name, "", args);
  Variant::Array value{Variant(status.Number), Variant(status.Text)};
  return {0, "", Variant(std::move(value))};
}

}  // namespace orvel
