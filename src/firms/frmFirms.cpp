#include "firms/frmFirms.h"

#include "common/Boundary.h"
#include "common/BusyPointer.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "firms/FirmDebtLine.h"
#include "host/Convert.h"
#include "orvel/DragData.h"
#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelShowObject.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kOid = "O0000100";
constexpr GroupedKind kFirmsKind{
    kOid,
    "CFirms",
    {"Įmonių grupė", "Nauja įmonių grupė", "Įmonės kortelė", "Nauja įmonė"},
    "Group GroupNA",
    "'C'",
    false};
// Where the note line's panel stands, in twips, under the field sheet.
constexpr int32_t kInfoPanelTop = 3360;
constexpr int32_t kInfoPanelHeight = 285;
// Handles 0 to 10 are released; the last one is left as it stands.
constexpr int kReleasedHandles = 11;
// A credit limit from this sum up means "no limit": the credit line is left
// as it stood.
constexpr double kNoLimit = 1000000;

enum ModalActions : int32_t {
  kNewDetail = 0,
  kEditDetail = 1,
  kNewFirmInfo = 2,
  kEditFirmInfo = 3,
};

OrvelRights& Rights() { return *Services().Rights(); }

bool TagSet(const ListItem* row) { return row && !ConcatText(row->Tag()).empty(); }

}  // namespace

frmFirms::frmFirms()
    : GroupedCard("frmFirms", "Įmonės kortelė", kFirmsKind),
      mnuAccountsNew(mnuAccounts.Add("mnuAccountsNew", "Sukurti &naują")),
      mnuAccountsEdit(mnuAccounts.Add("mnuAccountsEdit", "&Redaguoti")),
      mnuAccountsDelete(mnuAccounts.Add("mnuAccountsDelete", "&Panaikinti")),
      mnuToDesktop(mnuMain.Add("mnuToDesktop", "Padėti &ant darbo stalo")),
      mnuGoodsToDesktop(mnuMain.Add("mnuGoodsToDesktop", "Padėti &prekę ant darbo stalo")),
      mnuPreview(mnuMain.Add("mnuPreview", "&Peržiūros nustatymai")),
      mnuRefresh(mnuMain.Add("mnuRefresh", "&Atnaujinti")),
      mnuBlank(mnuMain.Add("mnuBlank", "-")),
      mnuFirmDelete(mnuMain.Add("mnuFirmDelete", "&Panaikinti")),
      mnuFirmParametersNew(mnuFirmParameters.Add("mnuFirmParametersNew", "Sukurti &naują")),
      mnuFirmParametersEdit(mnuFirmParameters.Add("mnuFirmParametersEdit", "&Redaguoti")),
      mnuFirmParametersDelete(mnuFirmParameters.Add("mnuFirmParametersDelete", "&Panaikinti")),
      mnuFirmInfoAdd(mnuFirmInfo.Add("mnuFirmInfoAdd", "Sukurti &naują")),
      mnuFirmInfoEdit(mnuFirmInfo.Add("mnuFirmInfoEdit", "&Redaguoti")),
      mnuFirmInfoDelete(mnuFirmInfo.Add("mnuFirmInfoDelete", "&Panaikinti")),
      mnuDiscountNew(mnuDiscount.Add("mnuDiscountNew", "Sukurti &naują")),
      mnuDiscountEdit(mnuDiscount.Add("mnuDiscountEdit", "&Redaguoti")),
      mnuBlank0(mnuDiscount.Add("mnuBlank0", "-")),
      mnuDiscountDelete(mnuDiscount.Add("mnuDiscountDelete", "&Panaikinti")),
      mnuBlank1(mnuDiscount.Add("mnuBlank1", "-")),
      mnuDiscountRefresh(mnuDiscount.Add("mnuDiscountRefresh", "&Atnaujinti")),
      mnuNewWithCopy(mnuNew.Add("mnuNewWithCopy", "Kopijoti")),
      mnuContractToDeskTop(mnuContracts.Add("mnuContractToDeskTop", "Padėti &ant darbo stalo")),
      mnuContractRefresh(mnuContracts.Add("mnuContractRefresh", "&Atnaujinti")) {
  lblCroup.SetCaption("Įmonių grupė:");
  pnlInfo.SetTop(kInfoPanelTop);
  pnlInfo.SetHeight(kInfoPanelHeight);
  pnlLists.SetTop(kInfoPanelTop + kInfoPanelHeight);
  for (Control* control : std::initializer_list<Control*>{
           &pnlInfo, &lblInfo, &pnlLists, &timerModal, &lblCroup, &txtGroup, &cmdParentGroup,
           &lblDebt, &lblCredit, &mnuAccounts, &mnuMain, &mnuFirmParameters, &mnuFirmInfo,
           &mnuDiscount, &mnuNew, &mnuContracts}) {
    Register(*control);
  }

  lblDebt.OnClick = [this] { lblDebt_Click(); };
  SSCNew.OnMouseUp = [this](int button, int shift) { SSCNew_MouseUp(button, shift); };
  WireMenus<frmFirms>({
      {&mnuAccountsNew, &frmFirms::mnuAccountsNew_Click},
      {&mnuAccountsEdit, &frmFirms::mnuAccountsEdit_Click},
      {&mnuAccountsDelete, &frmFirms::mnuAccountsDelete_Click},
      {&mnuFirmParametersNew, &frmFirms::mnuFirmParametersNew_Click},
      {&mnuFirmParametersEdit, &frmFirms::mnuFirmParametersEdit_Click},
      {&mnuFirmParametersDelete, &frmFirms::mnuFirmParametersDelete_Click},
      {&mnuFirmInfoAdd, &frmFirms::mnuFirmInfoAdd_Click},
      {&mnuFirmInfoEdit, &frmFirms::mnuFirmInfoEdit_Click},
      {&mnuFirmInfoDelete, &frmFirms::mnuFirmInfoDelete_Click},
      {&mnuDiscountNew, &frmFirms::mnuDiscountNew_Click},
      {&mnuDiscountEdit, &frmFirms::mnuDiscountEdit_Click},
      {&mnuDiscountDelete, &frmFirms::mnuDiscountDelete_Click},
      {&mnuDiscountRefresh, &frmFirms::mnuDiscountRefresh_Click},
      {&mnuContractRefresh, &frmFirms::mnuContractRefresh_Click},
      {&mnuToDesktop, &frmFirms::mnuToDesktop_Click},
      {&mnuContractToDeskTop, &frmFirms::mnuContractToDeskTop_Click},
      {&mnuGoodsToDesktop, &frmFirms::mnuGoodsToDesktop_Click},
      {&mnuRefresh, &frmFirms::mnuRefresh_Click},
      {&mnuPreview, &frmFirms::mnuPreview_Click},
      {&mnuFirmDelete, &frmFirms::mnuFirmDelete_Click},
      {&mnuNewWithCopy, &frmFirms::mnuNewWithCopy_Click},
  });
}

frmFirms::~frmFirms() = default;

// ---- list handles ----

ListView& frmFirms::List(int index) const {
  if (index < 0 || index >= kListHandles) {
    throw RuntimeError(RuntimeError::kSubscript, "Nėra sąrašo Nr. " + std::to_string(index));
  }
  const ListHandle& handle = lists_[index];
  if (!handle.view || handle.generation != generation_) {
    throw RuntimeError(RuntimeError::kObjectNotSet,
                       "Skirtuko " + std::to_string(index) + " sąrašas nepriskirtas");
  }
  return *handle.view;
}

bool frmFirms::HasListHandle(int index) const {
  return index >= 0 && index < kListHandles && lists_[index].view != nullptr;
}

void frmFirms::ReleaseLists() {
  // Stops before the last handle. A firm with every tab keeps its eleventh
  // list until the next AddTab replaces it; the release loop has always had
  // this bound and later start-ups depend only on handle 1, so it stays.
  for (int i = 0; i < kReleasedHandles; ++i) lists_[i] = ListHandle{};
}

int16_t frmFirms::AddTab(int16_t index, const std::string& key, const std::string& caption) {
  ListView& list = OrvelGrid->AddTab(key, caption);
  lists_[index] = ListHandle{&list, generation_};
  return index;
}

void frmFirms::ClearTabs() {
  OrvelGrid->ClearTabs();
  ++generation_;
}

bool frmFirms::Saved() { return OIDR().size() >= 9; }

ListItem* frmFirms::Selected(int index) const { return List(index).SelectedItem(); }

bool frmFirms::HasSelection(int index) const { return Selected(index) != nullptr; }

// ---- start-up ----

void frmFirms::Form_Unload() {
  ReleaseLists();
  CatalogueWindow::Form_Unload();
}

void frmFirms::AddFirmTabs(int16_t& counter) {
  // The tabs are made anew, so a tab this record does not get (the branches
  // of a firm made from one that had them) must not keep its old number and
  // send its list into the tab that now stands there.
  TrafficTab = GoodsTab = AccountsTab = FirmsTab = BranchTab = AddressesTab = ContactsTab =
      ServersTab = InfoTab = ActivityTab = DiscountsTab = ContractsTab = 0;
  const bool contracts = Rights().CanRead("CContracts", 0);
  const bool accounts = Rights().Allowed("CFirmsAC", 0);
  if (IsGroup) {
    FirmsTab = AddTab(counter, "Firms", "Įmonės");
    return;
  }
  TrafficTab = AddTab(counter, "Traffic", "Įmonės dokumentai");
  if (contracts) ContractsTab = AddTab(++counter, "FirmContracts", "Sutartys");
  GoodsTab = AddTab(++counter, "GOODS", "Įmonės pirktos prekės");
  if (accounts) AccountsTab = AddTab(++counter, "Accounts", "Atsiskaitomosios sąskaitos");
  AddressesTab = AddTab(++counter, "FirmAddresses", "Adresai");
  ContactsTab = AddTab(++counter, "FirmContacts", "Kontaktai");
  if (!OIDR().empty() && CLng(Uio().Fields("GroupFlag").Value()) == 0 &&
      CBool(Uio().Properties("CheckBranch", "").Value)) {
    BranchTab = AddTab(++counter, "FirmBRANCH", "Filialai");
  }
  ServersTab = AddTab(++counter, "FirmServers", "Vadybininkas atsakingas už įmonės aptarnavimą");
  InfoTab = AddTab(++counter, "FirmInfo", "Įmonės informacija");
  ActivityTab = AddTab(++counter, "FirmActivity", "Įmonės veikla");
}

void frmFirms::ReadCard() {
  auto& ui = Platform::Ui();
  Period = Services().ObjectManager()->Call("GetOldPeriod", "").Value;
  Loading = true;
  InitRunning = true;
  ui.SetMousePointer(vbHourglass);
  auto& object = Uio();
  ParentID = NullToLong(object.Fields("ParentID").Value());
  IsGroup = CLng(object.Fields("GroupFlag").Value()) == 1;
  int16_t counter = 1;
  OrvelGrid->SetServices(OrvelS());
  OrvelGrid->SetObjectUIO(OrvelObjectUIO());
  OrvelGrid->SetLabelWidth(2000);
  if (!HasListHandle(1)) AddFirmTabs(counter);
  if (IsGroup) {
    LoadFirmsList();
  } else {
    LoadDetail(DetailList::Branches);
    LoadDetail(DetailList::Addresses);
    LoadDetail(DetailList::Contacts);
    LoadDetail(DetailList::Managers);
    if (Rights().CanRead("CContracts", 0)) LoadContracts(false);
    LoadFirmInfo();
    LoadTraffic(false);
    if (Rights().Allowed("CFirmsAC", 0)) LoadDetail(DetailList::Accounts);
    LoadDetail(DetailList::Activity);
  }
  // Added outside the guard above. After cmdCancel the other tabs are kept
  // and the counter still stands at 1, so Discounts comes again at number 2
  // and takes over handle 2 from whichever tab held it. The window has
  // always behaved so after a cancel, and the Discounts menus follow that
  // number; keep the counter and the guard as they are.
  DiscountsTab = AddTab(++counter, "Discounts", "Nuolaidos");
  LoadDiscounts();
  OrvelGrid->FillFields();
  Initialized = true;
  IsNew = OIDR().empty();
  IsRoot = ParentID == 0;
  ParentObject =
      IsRoot ? nullptr : object.Properties("Parent", "").Value.ObjectAs<orvel::OrvelObjectUIO>();
  ShowGroupLine();
  lblDebt.SetCaption("Informacija...");
  SOPanel.SetToolTipText(CreatorLine(object));
  Loading = false;
  InitRunning = false;
  ui.SetMousePointer(vbDefault);
  SSCNew.SetEnabled(!OIDR().empty());
  if (OIDR().empty() && !IsGroup) ApplyTypeAndRegion();
  SetEditState(false);
}

void frmFirms::ApplyTypeAndRegion() {
  Variant::Array none;
  if (Uio().Methods("SetTypeAndRegion", none).Number != 0) return;
  OrvelGrid->RefreshField("FirmTypeID");
  OrvelGrid->RefreshField("RegionID");
}

// ---- writing ----

namespace {

void RestoreUnderlying(Field& field) {
  Variant stored = field.UnderlyingValue();
  if (!(field.Value() == stored)) field.SetValue(stored);
}

}  // namespace

bool frmFirms::CodeAccepted() {
  if (IsGroup) return true;
  // Sent as typed, blanks and all; only a code of blanks is not checked.
  const std::string code = ConcatText(Uio().Fields("Code").Value());
  if (Trim(code).empty()) return true;
  OrvelResult check = Uio().Properties("CheckCode", code);
  if (check.Number != 0) return false;
  if (check.Value.IsEmpty() || check.Value.IsNull() || !CBool(check.Value)) return true;
  const std::string repeated = "Įmonės kodas kartojasi!";
  auto& ui = Platform::Ui();
  if (!Rights().Allowed("CFirmsCode", 0)) {
    // A user without the right never writes the duplicate, whatever the box
    // returns.
    ui.MsgBox(repeated, vbExclamation, MsgTitle);
    return false;
  }
  return ui.MsgBox(repeated + "\nĮrašyti informacija?", vbYesNo + vbExclamation, MsgTitle) == vbYes;
}

void frmFirms::KeepUsedFirmIdentity() {
  auto& object = Uio();
  const bool moveRight = Rights().Allowed("CCatalogueCredits", 0);
  const bool renameRight = Rights().Allowed("CFirmsCH", 0);
  if (!moveRight && !renameRight) RestoreUnderlying(object.Fields("ParentID"));
  if (!renameRight) RestoreUnderlying(object.Fields("Name"));
}

void frmFirms::cmdEnter_Click() {
  Handle(MsgTitle, [&] {
    OrvelGrid->EndFieldEdit();
    if (!CodeAccepted()) return;
    // Asked for groups and new records too; the business layer gives their count.
    OrvelResult used = Uio().Properties("FirmIsUsedInDocuments", "");
    if (used.Number != 0) {
      SSCNew.SetEnabled(true);
      return;
    }
    // The rest of the edits are written; only the name and group go back.
    if (UsedInDocuments(used.Value) > 0) KeepUsedFirmIdentity();
    if (SaveSheet()) IsNew = false;
    SSCNew.SetEnabled(true);
    UnloadShowHost();
  });
}

void frmFirms::UnloadShowHost() {
  if (!ShowHost) return;
  try {
    if (auto child = std::dynamic_pointer_cast<OrvelShowObject>(ShowHost)) {
      child->UnloadShowOrvelObject();
    }
  } catch (...) {
    // The object that showed this window answers for its own unloading.
  }
  ShowHost.reset();
}

void frmFirms::cmdCancel_Click() {
  Handle(MsgTitle, [&] {
    auto& object = Uio();
    if (!ReadAgainOrClose(object, MsgTitle)) return;
    // The group flag is left as the read made it: a new group comes back as
    // the business layer's new record.
    if (OIDR().empty()) {
      object.Fields("ParentID").SetValue(ParentID == 0 ? Variant::Null() : Variant(ParentID));
    }
    InitForm();
  });
}

// ---- debt line ----

namespace {

// A balance figure; a Null sum (no ledger entries) reads as 0.
double SumOf(Recordset& rs, const char* name) {
  const Variant value = rs.Fields(name).Value();
  return value.IsNull() ? 0 : CDbl(value);
}

// Limit fields are not in every answer; a missing or unreadable one leaves
// `target` as it stood.
template <class T, class Convert>
void ReadOptional(Recordset& rs, const char* name, T& target, Convert convert) {
  try {
    target = convert(rs.Fields(name).Value());
  } catch (...) {
  }
}

}  // namespace

void frmFirms::lblDebt_Click() {
  Handle(MsgTitle, [&] {
    BusyPointer busy;
    RefreshDebt();
  });
}

bool frmFirms::IsOwnFirm() {
  try {
    auto environment = Services().Environment();
    auto session = environment ? environment->Session() : nullptr;
    auto own = session ? session->OwnFirm() : nullptr;
    return own && ConcatText(own->Fields("OIDR").Value()) == OIDR();
  } catch (...) {
    return false;
  }
}

void frmFirms::RefreshDebt() {
  lblDebt.SetCaption("");
  auto& object = Uio();
  if (OIDR().empty()) return;
  auto record = object.RsFields();
  if (!record || record->IsEOF()) return;
  if (NullToLong(record->Fields("GroupFlag").Value()) == 1) return;

  const bool own = IsOwnFirm();
  OrvelResult reply = object.Properties(own ? "OurDebt" : "FirmDebt", "");
  auto rs = reply.Number == 0 ? reply.Value.ObjectAs<Recordset>() : nullptr;
  if (rs && !(rs->IsBOF() && rs->IsEOF())) rs->MoveFirst();
  FirmDebtLine line;
  int32_t limitDays = 0;
  if (rs && !rs->IsEOF()) {
    line.Sum220 = SumOf(*rs, "Sum220");
    line.Sum240 = SumOf(*rs, "Sum240");
    line.Sum450 = SumOf(*rs, "Sum450");
    line.Sum460 = SumOf(*rs, "Sum460");
    if (!own) {
      Debt = line.Debt();
      auto toDouble = [](const Variant& v) { return CDbl(v); };
      ReadOptional(*rs, "Limit", Limit, toDouble);
      ReadOptional(*rs, "LimitTerm", LimitTerm, toDouble);
      ReadOptional(*rs, "LimitDays", limitDays, [](const Variant& v) { return CLng(v); });
      lblCredit.SetForeColor(vbBlack);
    }
  }

  std::string text = line.Text();
  if (!own) {
    // Limits warn and stop nothing. A limit of 0 is a limit; the red stays
    // for the life of the window, whatever later refreshes find.
    if (Limit < Debt) {
      lblDebt.SetForeColor(vbRed);
      text += FirmDebtLine::LimitExceeded(Limit);
    }
    if (LimitTerm > 0 && Debt > 0) {
      lblDebt.SetForeColor(vbRed);
      text += FirmDebtLine::TermExceeded(LimitTerm);
    }
  }
  lblDebt.SetCaption(text);
  if (Limit < kNoLimit && !own) lblCredit.SetCaption(FirmDebtLine::CreditLimits(Limit, limitDays));
}

// ---- frame ----

void frmFirms::SSCClose_MouseUp(int button, int) {
  Handle(MsgTitle,
         [&] { DeleteOnRightClick(button, SSCNew.Enabled(), DeleteVia::kObjectManager); });
}

void frmFirms::SSCNew_Click() {
  Handle(MsgTitle, [&] { NewFromCurrent(false); });
}

void frmFirms::SSCNew_MouseUp(int button, int) {
  // No test of SSCNew's own state: the menu opens whenever the event comes.
  Handle(MsgTitle, [&] {
    if (button == vbRightButton) Platform::Ui().PopupMenu(mnuNew);
  });
}

void frmFirms::mnuNewWithCopy_Click() { NewFromCurrent(true); }

void frmFirms::NewFromCurrent(bool copy) {
  auto& object = Uio();
  const std::string oldOidr = OIDR();
  const Variant oldFlag = object.Fields("GroupFlag").Value();
  const Variant oldName = object.Fields("Name").Value();
  auto windows = Services().WindowManager();
  if (windows->QueryRemove(oldOidr, true)) return;
  object.SetOIDR("");
  if (object.Read().Number != 0) return;
  object.Fields("ParentID").SetValue(ParentID == 0 ? Variant::Null() : Variant(ParentID));
  object.Fields("GroupFlag").SetValue(oldFlag);
  if (copy) object.Fields("Name").SetValue(oldName);
  ReleaseLists();
  ClearTabs();
  InitForm();
  if (!oldOidr.empty()) windows->Rekey(oldOidr, Self());
  SSCNew.SetEnabled(false);
}

// ---- lists ----

void frmFirms::OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button, int) {
  Handle(MsgTitle, [&] {
    if (button != vbRightButton) return;
    CurrentTab = static_cast<int16_t>(tabIndex + 1);
    for (Menu* item :
         {&mnuGoodsToDesktop, &mnuPreview, &mnuRefresh, &mnuFirmDelete, &mnuToDesktop}) {
      item->SetVisible(false);
    }
    auto& ui = Platform::Ui();
    const bool saved = Saved();
    if (tabKey == "Accounts") {
      // Shown or hidden, not enabled: Edit then copies an Enabled nobody set.
      mnuAccountsDelete.SetVisible(HasSelection(CurrentTab));
      mnuAccountsEdit.SetEnabled(mnuAccountsDelete.Enabled());
      mnuAccountsNew.SetEnabled(saved);
      ui.PopupMenu(mnuAccounts);
    } else if (tabKey == "GOODS") {
      mnuGoodsToDesktop.SetVisible(true);
      mnuPreview.SetVisible(true);
      mnuToDesktop.SetVisible(true);
      mnuToDesktop.SetEnabled(HasSelection(CurrentTab));
      mnuGoodsToDesktop.SetEnabled(mnuToDesktop.Enabled());
      mnuPreview.SetEnabled(saved);
      ui.PopupMenu(mnuMain);
    } else if (tabKey == "Firms") {
      mnuFirmDelete.SetVisible(true);
      mnuRefresh.SetVisible(true);
      mnuToDesktop.SetVisible(true);
      if (ListItem* row = Selected(CurrentTab)) mnuToDesktop.SetEnabled(row->Key() != "more");
      mnuFirmDelete.SetEnabled(mnuToDesktop.Enabled());
      mnuRefresh.SetEnabled(saved);
      ui.PopupMenu(mnuMain);
    } else if (tabKey == "Traffic") {
      mnuFirmDelete.SetVisible(true);
      mnuRefresh.SetVisible(true);
      mnuPreview.SetVisible(true);
      mnuToDesktop.SetVisible(true);
      mnuToDesktop.SetEnabled(TagSet(Selected(CurrentTab)));
      mnuFirmDelete.SetEnabled(mnuToDesktop.Enabled());
      mnuRefresh.SetEnabled(saved);
      mnuPreview.SetEnabled(saved);
      ui.PopupMenu(mnuMain);
    } else if (tabKey == "FirmParameters" || tabKey == "FirmContacts" ||
               tabKey == "FirmAddresses" || tabKey == "FirmServers" || tabKey == "FirmActivity") {
      mnuFirmParametersDelete.SetEnabled(HasSelection(CurrentTab));
      mnuFirmParametersEdit.SetEnabled(mnuFirmParametersDelete.Enabled());
      mnuFirmParametersNew.SetEnabled(saved);
      ui.PopupMenu(mnuFirmParameters);
    } else if (tabKey == "FirmInfo") {
      mnuFirmInfoDelete.SetEnabled(HasSelection(CurrentTab));
      mnuFirmInfoEdit.SetEnabled(mnuFirmInfoDelete.Enabled());
      mnuFirmInfoAdd.SetEnabled(saved);
      ui.PopupMenu(mnuFirmInfo);
    } else if (tabKey == "Discounts") {
      if (!Rights().Allowed("CCatalogueDiscounts", 0)) return;
      mnuDiscountDelete.SetEnabled(HasSelection(CurrentTab));
      mnuDiscountEdit.SetEnabled(mnuDiscountDelete.Enabled());
      mnuDiscountNew.SetEnabled(saved);
      ui.PopupMenu(mnuDiscount);
    } else if (tabKey == "FirmContracts") {
      mnuContractToDeskTop.SetEnabled(TagSet(Selected(CurrentTab)));
      ui.PopupMenu(mnuContracts);
    }
  });
}

void frmFirms::OrvelGrid_ListDoubleClick(int tabIndex) {
  Handle(MsgTitle, [&] {
    const int index = tabIndex + 1;
    ListItem* row = Selected(index);
    if (!row) return;
    CurrentTab = static_cast<int16_t>(index);
    if (index == AccountsTab) {
      EditAccount(false);
    } else if (index == TrafficTab) {
      if (row->SmallIcon() == "more") LoadTraffic(true);
    } else if (index == AddressesTab || index == ContactsTab || index == ServersTab ||
               index == ActivityTab) {
      EditDetail(false);
    } else if (index == InfoTab) {
      EditFirmInfo(false);
    } else if (index == DiscountsTab) {
      mnuDiscountEdit_Click();
    } else if (index == ContractsTab) {
      if (row->SmallIcon() == "more") LoadContracts(true);
    }
  });
}

bool frmFirms::RefuseUnsaved() {
  if (Saved()) return false;
  Platform::Ui().MsgBox("Išsaugokite naujai sukurtą įmonę", vbExclamation, MsgTitle);
  return true;
}

void frmFirms::timerModal_Timer() {
  timerModal.SetEnabled(false);
  switch (ModalAction) {
    case kNewDetail:
      EditDetail(true);
      break;
    case kEditDetail:
      EditDetail(false);
      break;
    case kNewFirmInfo:
      EditFirmInfo(true);
      break;
    case kEditFirmInfo:
      EditFirmInfo(false);
      break;
    default:
      break;
  }
}

// ---- menu actions ----

void frmFirms::mnuAccountsNew_Click() { EditAccount(true); }

void frmFirms::mnuAccountsEdit_Click() { EditAccount(false); }

void frmFirms::mnuAccountsDelete_Click() {
  ListItem* row = Selected(CurrentTab);
  if (!row) return;
  if (!ConfirmDelete("Ar tikrai norite panaikinti?", vbYesNo, MsgTitle, true)) return;
  DeleteThrough("O0000500", row->Key());
  LoadDetail(DetailList::Accounts);
}

void frmFirms::mnuFirmParametersNew_Click() {
  ModalAction = kNewDetail;
  timerModal.SetEnabled(true);
}

void frmFirms::mnuFirmParametersEdit_Click() {
  ModalAction = kEditDetail;
  timerModal.SetEnabled(true);
}

void frmFirms::mnuFirmInfoAdd_Click() {
  ModalAction = kNewFirmInfo;
  timerModal.SetEnabled(true);
}

void frmFirms::mnuFirmInfoEdit_Click() {
  ModalAction = kEditFirmInfo;
  timerModal.SetEnabled(true);
}

bool frmFirms::DeleteRowObject(const std::string& oidr, const std::string& prompt) {
  if (!ConfirmDelete(prompt, vbYesNo, MsgTitle, true)) return false;
  DeleteThrough(oidr, oidr);
  return true;
}

void frmFirms::mnuFirmParametersDelete_Click() {
  ListItem* row = Selected(CurrentTab);
  if (!row) return;
  const int tab = CurrentTab;
  if (DeleteRowObject(row->Key(), "Panaikinti?")) ReloadDetail(tab);
}

void frmFirms::mnuFirmInfoDelete_Click() {
  ListItem* row = Selected(InfoTab);
  if (!row) return;
  std::string id = std::to_string(static_cast<int64_t>(Val(row->Key())));
  if (!ConfirmDelete("Panaikinti?", vbYesNo, MsgTitle, true)) return;
  Variant::Array params{Variant(id)};
  Uio().Methods("DeleteFirmInfo", params);
  LoadFirmInfo();
}

void frmFirms::mnuDiscountNew_Click() {
  auto discount = Services().ObjectManager()->GetOrvelObject("O1000600");
  if (!discount) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra nuolaidų objekto");
  discount->Fields("FirmID").SetValue(Variant(Mid(OIDR(), 9)));
  auto form = discount->Properties("GetObjectForm", "").Value.ObjectAs<OrvelWindow>();
  Services().WindowManager()->ShowWindow(form);
}

void frmFirms::ToDesktop(const std::string& oidr) {
  if (auto adapter = Services().ObjectManager()->GetOrvelObjectUI(oidr)) {
    adapter->AddToDeskTopOrvelObject(oidr);
  }
}

void frmFirms::mnuDiscountEdit_Click() {
  ListItem* row = Selected(DiscountsTab);
  if (row) ToDesktop(ConcatText(row->Tag()));
}

void frmFirms::mnuDiscountDelete_Click() {
  ListItem* row = Selected(DiscountsTab);
  if (!row) return;
  std::string tag = ConcatText(row->Tag());
  DeleteRowObject(tag, "Ar tikrai norite panaikinti?");
  LoadDiscounts();
}

void frmFirms::mnuDiscountRefresh_Click() { LoadDiscounts(); }

void frmFirms::mnuContractRefresh_Click() { LoadContracts(true); }

void frmFirms::mnuToDesktop_Click() {
  if (ListItem* row = Selected(CurrentTab)) ToDesktop(ConcatText(row->Tag()));
}

void frmFirms::mnuContractToDeskTop_Click() { mnuToDesktop_Click(); }

void frmFirms::mnuGoodsToDesktop_Click() {
  if (ListItem* row = Selected(CurrentTab)) {
    ToDesktop(ConcatText(row->ListSubItems().Item("Number").Tag()));
  }
}

void frmFirms::mnuRefresh_Click() {
  if (CurrentTab == FirmsTab) {
    LoadFirmsList();
  } else if (CurrentTab == TrafficTab) {
    LoadTraffic(true);
  }
}

void frmFirms::mnuPreview_Click() {
  if (CurrentTab == GoodsTab) {
    LoadGoods(true);
    return;
  }
  if (TakeNewPeriod()) LoadTraffic(true);
}

void frmFirms::mnuFirmDelete_Click() {
  if (!ConfirmDelete("Ar tikrai norite panaikinti?", vbOKCancel, MsgTitle)) return;
  ListItem* row = Selected(CurrentTab);
  if (!row) throw RuntimeError(RuntimeError::kObjectNotSet, "Nepažymėta nė viena eilutė");
  std::string tag = ConcatText(row->Tag());
  if (DeleteThrough(tag, tag)) {
    List(CurrentTab).ListItems().Remove(tag);
  } else {
    Platform::Ui().MsgBox("Operacija uždrausta!", vbOKCancel + vbExclamation, MsgTitle);
  }
}

// ---- drag and drop ----

void frmFirms::OrvelGrid_ListDragOver(const std::shared_ptr<Object>& data, int& effect) {
  Handle(MsgTitle, [&] {
    auto drag = std::dynamic_pointer_cast<DragData>(data);
    std::string text = drag ? drag->GetText() : std::string();
    if (CLng(Uio().Fields("GroupFlag").Value()) == 0 || Left(text, 8) != kOid ||
        OIDR().size() < 9) {
      effect = 0;
    }
  });
}

void frmFirms::OrvelGrid_ListDragDrop(const std::shared_ptr<Object>& data) {
  Handle(MsgTitle, [&] {
    auto drag = std::dynamic_pointer_cast<DragData>(data);
    if (!drag) return;
    auto ui = Uio().UI();
    auto dragged = ui ? ui->GetOrvelObject(drag->GetText()) : nullptr;
    if (!dragged) return;
    if (WouldHoldItsOwnGroup(*dragged, CLng(dragged->Fields("GroupFlag").Value()))) return;
    TakeIntoGroup(*dragged, [&](Fields& fields) { AddFirmRow(fields); });
  });
}

void frmFirms::AddFirmRow(Fields& fields) {
  std::string oidr = fields.Exists("OIDR") ? ConcatText(fields.Item("OIDR").Value())
                                           : kOid + ConcatText(fields.Item("ID").Value());
  std::string preview = fields.Exists("Preview") ? ConcatText(fields.Item("Preview").Value())
                                                 : ConcatText(fields.Item("Name").Value());
  const bool group = CLng(fields.Item("GroupFlag").Value()) == 1;
  ListItem& row = List(FirmsTab).ListItems().Add(0, oidr, preview, group ? "stdClose" : "C0000100");
  row.SetTag(Variant(oidr));
  if (group) return;
  // A firm's columns; a field its record lacks (a dropped firm's own record
  // has not all of them) leaves its cell empty.
  for (const char* name : {"Code", "Street", "RegionName", "Tel", "Fax", "Director"}) {
    std::string text;
    try {
      text = ConcatText(fields.Item(name).Value());
    } catch (...) {
    }
    row.ListSubItems().Add(0, "", text);
  }
}

}  // namespace orvel
