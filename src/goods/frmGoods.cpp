#include "goods/frmGoods.h"

#include <initializer_list>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "goods/GoodsDialogs.h"
#include "goods/GoodsSettings.h"
#include "host/Convert.h"
#include "orvel/DragData.h"
#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindow.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "ui/ListItem.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kOid = "O0000200";
constexpr const char* kRightKey = "CGoods";
constexpr GroupedKind kGoodsKind{
    kOid,
    kRightKey,
    {"Prekių grupė", "Nauja prekių grupė", "Prekės kortelė", "Nauja prekė"},
    "Group GroupNA Root",
    "'C','FirmNA','Service','ServiceNA','GEXIST'",
    true};
constexpr int kGroupFlag = 1;
// The placeholder row that waits for a double click before a heavy list loads.
constexpr const char* kMoreKey = "more";
// Summary rows of the business layer carry this OIDR.
constexpr const char* kSummaryKey = "O0000000";
constexpr const char* kMeasureRecordOid = "O0001606";
// A measure of this type counts whole units.
constexpr const char* kWholeUnits = "1";

struct DetailKind {
  int16_t frmGoods::*tab;
  const char* caption;
  const char* otype;
};

constexpr DetailKind kDetailKinds[] = {
    {&frmGoods::MeasuresTab, "Matavimo vienetas", "O0000400"},
    {&frmGoods::PricesTab, "Kainos", "O0000600"},
    {&frmGoods::MinTab, "Minimalus kiekis", "O0000700"},
    {&frmGoods::TemplatesTab, "Šablonai", "O0000800"},
};

OrvelRights& Rights() { return *Services().Rights(); }

bool HasField(OrvelObjectUIO& object, const char* name) {
  auto rs = object.RsFields();
  return rs && rs->Fields().Exists(name);
}

// A Boolean field; Null, empty and a missing field count as False.
bool FieldTrue(OrvelObjectUIO& object, const char* name) {
  if (!HasField(object, name)) return false;
  Variant value = object.Fields(name).Value();
  return !value.IsNull() && !value.IsEmpty() && CBool(value);
}

void DefaultIfNull(OrvelObjectUIO& object, const char* name, Variant value) {
  if (HasField(object, name) && object.Fields(name).Value().IsNull()) {
    object.Fields(name).SetValue(std::move(value));
  }
}

// The traffic rows after which the history of the good can be shown.
bool HasHistory(const ListItem& row) {
  for (const char* kind : {"PRICECHANGE", "WRITEOFF", "TRANSFER_OUT", "SALE", "PRODUCTION_OUT"}) {
    if (row.SmallIcon() == kind) return true;
  }
  return false;
}

}  // namespace

frmGoods::frmGoods()
    : GroupedCard("frmGoods", "Atsargos", kGoodsKind),
      mnuNew(mnuMain.Add("mnuNew", "Sukurti &naują")),
      mnuEdit(mnuMain.Add("mnuEdit", "&Redaguoti")),
      mnuDelete(mnuMain.Add("mnuDelete", "&Panaikinti")),
      mnuBlank(mnuMain.Add("mnuBlank", "-")),
      mnuMRefresh(mnuMain.Add("mnuMRefresh", "&Atnaujinti")),
      mnuToDesktop(mnuPopUp.Add("mnuToDesktop", "Padėti &ant darbo stalo")),
      mnuHistory(mnuPopUp.Add("mnuHistory", "&Istorija")),
      mnuByPurch(mnuPopUp.Add("mnuByPurch", "Pagal pirkimą")),
      mnuPreview(mnuPopUp.Add("mnuPreview", "&Peržiūros nustatymai")),
      mnuPrint(mnuPopUp.Add("mnuPrint", "Spausdinti")),
      mmuBlank(mnuPopUp.Add("mmuBlank", "-")),
      mnuRefresh(mnuPopUp.Add("mnuRefresh", "Atnaujinti")) {
  lblGroup.SetCaption("Prekių grupė:");
  txtGroup.SetLocked(true);
  mnuMain.SetVisible(false);
  mnuPopUp.SetVisible(false);
  for (Control* control : std::initializer_list<Control*>{&lblGroup, &txtGroup, &cmdParentGroup,
                                                          &timerModal, &mnuMain, &mnuPopUp}) {
    Register(*control);
  }

  WireMenus<frmGoods>({
      {&mnuNew, &frmGoods::mnuNew_Click},
      {&mnuEdit, &frmGoods::mnuEdit_Click},
      {&mnuDelete, &frmGoods::mnuDelete_Click},
      {&mnuMRefresh, &frmGoods::mnuMRefresh_Click},
      {&mnuToDesktop, &frmGoods::mnuToDesktop_Click},
      {&mnuHistory, &frmGoods::mnuHistory_Click},
      {&mnuByPurch, &frmGoods::mnuByPurch_Click},
      {&mnuPreview, &frmGoods::mnuPreview_Click},
      {&mnuPrint, &frmGoods::mnuPrint_Click},
      {&mnuRefresh, &frmGoods::mnuRefresh_Click},
  });
}

frmGoods::~frmGoods() = default;

// ---- tabs ----

ListView& frmGoods::List(int index) const {
  if (!HasList(index)) {
    throw RuntimeError(RuntimeError::kObjectNotSet,
                       "Skirtuko " + std::to_string(index) + " sąrašas nepriskirtas");
  }
  return *tabs_[index];
}

bool frmGoods::HasList(int index) const {
  return index > 0 && index < kTabHandles && tabs_[index] != nullptr;
}

ListItem* frmGoods::Selected(int index) const {
  return HasList(index) ? tabs_[index]->SelectedItem() : nullptr;
}

int16_t frmGoods::AddTab(int16_t& counter, const std::string& key, const std::string& caption) {
  ++counter;
  tabs_[counter] = &OrvelGrid->AddTab(key, caption);
  return counter;
}

void frmGoods::ClearTabs() {
  OrvelGrid->ClearTabs();
  tabs_.fill(nullptr);
  GoodsTab = TrafficTab = MeasuresTab = PricesTab = RestsTab = MinTab = SerialsTab = 0;
  DiscountsTab = TemplatesTab = 0;
}

void frmGoods::BuildTabs() {
  if (HasList(1)) ClearTabs();
  int16_t counter = 0;
  if (IsGroup) {
    GoodsTab = AddTab(counter, "Goods", "Atsargos");
  } else {
    TrafficTab = AddTab(counter, "Traffic", "Judėjimas");
    MeasuresTab = AddTab(counter, "Measures", "Matavimo vienetai");
    if (Rights().Allowed("CGoodsPT", 0)) PricesTab = AddTab(counter, "PRICES", "Kainos");
    if (WithRest) {
      RestsTab = AddTab(counter, "Rests", "Likučiai");
      if (Rights().Allowed("CGoodsMIN", 0)) {
        MinTab = AddTab(counter, "MinAmount", "Minimalus kiekis");
      }
    }
    if (FieldTrue(Uio(), "WithItems")) SerialsTab = AddTab(counter, "SN", "Serijiniai numeriai");
  }
  DiscountsTab = AddTab(counter, "Discounts", "Nuolaidos");
  if (Rights().Allowed("CGoodsBR", 0)) TemplatesTab = AddTab(counter, "BRTemplates", "Šablonai");
}

void frmGoods::FillAllLists() {
  if (IsGroup) {
    LoadGroupGoods();
  } else {
    LoadTraffic(false);
    LoadRests();
    LoadMeasures();
    LoadPrices();
    LoadSerials(false);
  }
  LoadTemplates();
  LoadDiscounts();
}

// ---- start-up ----

void frmGoods::SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) {
  CatalogueWindow::SetOrvelObjectUIO(std::move(object));
  if (OrvelObjectUIO()) InitForm();
}

void frmGoods::Form_Unload() {
  ReleaseLists();
  CatalogueWindow::Form_Unload();
}

void frmGoods::ReleaseLists() {
  tabs_.fill(nullptr);
  TrafficRs.reset();
}

void frmGoods::ReadCard() {
  Loading = true;
  InitRunning = true;
  Platform::Ui().SetMousePointer(vbHourglass);
  Period = Services().ObjectManager()->Call("GetOldPeriod", "").Value;
  auto& object = Uio();
  ParentID = NullToLong(object.Fields("ParentID").Value());
  IsGroup = NullToLong(object.Fields("GroupFlag").Value()) == kGroupFlag;
  IsNew = OIDR().empty();
  WithRest = false;
  if (IsNew) {
    RecordKey = object.OID();
    DefaultIfNull(object, "AmountPrecision", Variant(2));
    DefaultIfNull(object, "MeasureID", Variant(1));
  } else {
    RecordKey = OIDR();
    if (!IsGroup) WithRest = FieldTrue(object, "WithRest");
  }
  IsRoot = ParentID == 0;
  ParentObject = nullptr;
  if (!IsRoot) {
    ParentObject = object.Properties("Parent", "").Value.ObjectAs<orvel::OrvelObjectUIO>();
    if (IsNew) PrimeNewRecord();
  }
  OrvelGrid->SetServices(OrvelS());
  OrvelGrid->SetObjectUIO(OrvelObjectUIO());
  BuildTabs();
  FillAllLists();
  OrvelGrid->FillFields();
  Initialized = true;
  ShowGroupLine();
  ShowPriceLine();
  if (IsNew) ProposeCode();
  Loading = false;
  SSCNew.SetEnabled(!IsNew);
  // Also for a new record: cmdEnter and cmdCancel wake with the first change.
  SetEditState(false);
}

void frmGoods::PrimeNewRecord() {
  // A new child takes its group's VAT rate and the catalogue's price basis;
  // at the top it takes neither.
  auto& object = Uio();
  if (ParentObject && HasField(object, "VAT")) {
    object.Fields("VAT").SetValue(ParentObject->Fields("VAT").Value());
  }
  if (HasField(object, "PriceWithVAT")) {
    Variant priceWithVat = GoodsSetting("PriceWithVAT");
    if (!priceWithVat.IsNull()) object.Fields("PriceWithVAT").SetValue(priceWithVat);
  }
}

void frmGoods::ProposeCode() {
  Variant::Array none;
  if (Uio().Methods("GenerateUnicalStructuredCode", none).Number != 0) return;
  OrvelGrid->RefreshField("Code");
  SetEditState(true);
}

void frmGoods::OrvelGrid_FieldChanged() {
  Handle(MsgTitle, [&] {
    ShowPriceLine();
    SetEditState(true);
  });
}

bool frmGoods::Stored() { return Len(OIDR()) >= 9; }

// ---- frame ----

void frmGoods::SSCClose_MouseUp(int button, int) {
  Handle(MsgTitle, [&] { DeleteOnRightClick(button, SSCClose.Enabled(), DeleteVia::kRecord); });
}

// ---- lists ----

void frmGoods::OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button, int) {
  Handle(MsgTitle, [&] {
    if (button != vbRightButton || IsNew) return;
    CurrentTab = static_cast<int16_t>(tabIndex + 1);
    for (Menu* item : {&mnuByPurch, &mnuPreview, &mnuHistory, &mnuPrint}) item->SetVisible(false);
    MenuAction.clear();
    const bool stored = Stored();
    ListItem* row = Selected(CurrentTab);
    auto& ui = Platform::Ui();
    if (tabKey == "Traffic") {
      const bool opens = row && row->Key() != kMoreKey && !ConcatText(row->Tag()).empty();
      mnuByPurch.SetVisible(true);
      mnuToDesktop.SetVisible(opens);
      mnuPreview.SetVisible(stored);
      mnuPrint.SetVisible(opens);
      if (WithRest && row) mnuHistory.SetVisible(HasHistory(*row));
      ui.PopupMenu(mnuPopUp);
    } else if (tabKey == "Goods") {
      mnuToDesktop.SetVisible(row && row->Key() != kMoreKey);
      ui.PopupMenu(mnuPopUp);
    } else if (tabKey == "Rests") {
      mnuToDesktop.SetVisible(row && row->Key() != kSummaryKey && row->Key() != kMoreKey);
      ui.PopupMenu(mnuPopUp);
    } else if (tabKey == "SN") {
      mnuToDesktop.SetVisible(row != nullptr);
      mnuPreview.SetVisible(stored);
      ui.PopupMenu(mnuPopUp);
    } else {
      PopupMain(tabKey);
    }
  });
}

void frmGoods::PopupMain(const std::string& tabKey) {
  const ListItem* row = Selected(CurrentTab);
  const bool selected = row != nullptr;
  const bool canDelete = Rights().CanDelete(kRightKey, 0);
  if (tabKey == "BRTemplates") {
    // An inherited template row has no tag: it belongs to the group.
    mnuDelete.SetEnabled(selected && canDelete && !row->Tag().IsNull());
    mnuEdit.SetEnabled(selected);
    mnuNew.SetEnabled(false);
  } else if (tabKey == "Discounts") {
    if (!Rights().Allowed("CCatalogueDiscounts", 0)) return;
    mnuEdit.SetEnabled(selected);
    mnuDelete.SetEnabled(canDelete);
    mnuNew.SetEnabled(Stored());
  } else {
    mnuDelete.SetEnabled(selected);
    mnuEdit.SetEnabled(selected);
    mnuNew.SetEnabled(Stored());
  }
  Platform::Ui().PopupMenu(mnuMain);
  // New and Edit only note what to do; the row opens once the menu is gone.
  if (MenuAction.empty()) return;
  if (tabKey == "Discounts") {
    EditDiscount();
  } else {
    EditRow();
  }
}

void frmGoods::OrvelGrid_ListDoubleClick(int tabIndex) {
  Handle(MsgTitle, [&] {
    CurrentTab = static_cast<int16_t>(tabIndex + 1);
    if (IsGroup) {
      if (CurrentTab == TemplatesTab) {
        MenuAction = "101";
        EditRow();
      } else if (CurrentTab == DiscountsTab) {
        MenuAction = "101";
        EditDiscount();
      }
      return;
    }
    const ListItem* row = Selected(CurrentTab);
    if (row && row->Key() == kMoreKey) {
      // The heavy lists load only when asked.
      if (CurrentTab == TrafficTab) {
        LoadTraffic(true);
        return;
      }
      if (CurrentTab == RestsTab) {
        LoadRests();
        return;
      }
    }
    if (CurrentTab == DiscountsTab) {
      MenuAction = "101";
      EditDiscount();
    } else if (CurrentTab != SerialsTab) {
      MenuAction = "101";
      EditRow();
    }
  });
}

void frmGoods::timerModal_Timer() {
  timerModal.SetEnabled(false);
  const ListItem* row = Selected(CurrentTab);
  const int32_t documentId = row ? static_cast<int32_t>(Val(row->Key())) : 0;
  CurrentGoodsDialogs().ShowGoodsHistory(OrvelObjectUIO(), documentId);
}

// ---- menu actions ----

void frmGoods::mnuNew_Click() { MenuAction = "100"; }

void frmGoods::mnuEdit_Click() { MenuAction = "101"; }

void frmGoods::mnuDelete_Click() {
  if (!ConfirmDelete("Panaikinti?", vbYesNo, MsgTitle)) return;
  const ListItem* row = Selected(CurrentTab);
  if (!row) return;
  std::string key;
  if (CurrentTab == TemplatesTab || CurrentTab == DiscountsTab) {
    if (row->Tag().IsNull()) return;  // inherited from the group
    key = ConcatText(row->Tag());
  } else {
    key = row->Key();
  }
  DeleteThrough(key, key);
  if (CurrentTab == TemplatesTab) {
    LoadTemplates();
  } else if (CurrentTab == DiscountsTab) {
    Services().WindowManager()->RemoveWindow(key, true);
    LoadDiscounts();
  } else if (CurrentTab == MeasuresTab) {
    LoadMeasures();
  } else {
    LoadPrices();
  }
}

void frmGoods::mnuMRefresh_Click() {
  if (!Stored()) return;
  if (CurrentTab == TemplatesTab) {
    LoadTemplates();
  } else if (CurrentTab == DiscountsTab) {
    LoadDiscounts();
  } else if (CurrentTab == MeasuresTab) {
    LoadMeasures();
  } else {
    LoadPrices();
  }
}

void frmGoods::mnuToDesktop_Click() {
  const ListItem* row = Selected(CurrentTab);
  if (!row) return;
  std::string oidr = ConcatText(row->Tag());
  if (auto adapter = Services().ObjectManager()->GetOrvelObjectUI(oidr)) {
    adapter->AddToDeskTopOrvelObject(oidr);
  }
}

void frmGoods::mnuHistory_Click() {
  // The dialog opens from the timer, once the popup menu has closed.
  timerModal.SetEnabled(true);
}

void frmGoods::mnuByPurch_Click() {
  // On: the kept traffic is sorted and filtered, no call goes out. Off: it
  // is fetched anew, which also drops the filter.
  const bool former = mnuByPurch.Checked();
  mnuByPurch.SetChecked(!former);
  LoadTraffic(former);
}

void frmGoods::mnuPreview_Click() {
  if (CurrentTab == SerialsTab) {
    LoadSerials(true);
    return;
  }
  if (TakeNewPeriod()) LoadTraffic(true);
}

void frmGoods::mnuPrint_Click() { PrintTraffic(); }

void frmGoods::mnuRefresh_Click() {
  if (IsGroup) {
    LoadGroupGoods();
  } else if (CurrentTab == TrafficTab) {
    LoadTraffic(true);
  } else if (CurrentTab == RestsTab) {
    LoadRests();
  }
}

// ---- drag and drop ----

void frmGoods::OrvelGrid_ListDragOver(const std::shared_ptr<Object>& data, int& effect) {
  Handle(MsgTitle, [&] {
    auto drag = std::dynamic_pointer_cast<DragData>(data);
    std::string text = drag ? drag->GetText() : std::string();
    if (!IsGroup || Left(text, 8) != kOid) effect = 0;
  });
}

void frmGoods::OrvelGrid_ListDragDrop(const std::shared_ptr<Object>& data) {
  Handle(MsgTitle, [&] {
    auto drag = std::dynamic_pointer_cast<DragData>(data);
    if (!drag || !IsGroup) return;
    std::string text = drag->GetText();
    if (Left(text, 8) != kOid) return;
    auto ui = Uio().UI();
    auto dragged = ui ? ui->GetOrvelObject(text) : nullptr;
    if (!dragged) return;
    if (WouldHoldItsOwnGroup(*dragged, NullToLong(dragged->Fields("GroupFlag").Value()))) return;
    // A record at the top cannot be dragged at all.
    if (NullToLong(dragged->Fields("ParentID").Value()) == 0) return;
    TakeIntoGroup(*dragged, [&](Fields& fields) { AddGroupRow(fields); });
  });
}

// ---- the card's own rules ----

bool frmGoods::CheckGoodMeasure() {
  auto& object = Uio();
  const Variant measureId = object.Fields("MeasureID").Value();
  if (measureId.IsNull() || measureId.IsEmpty()) {
    ShowStop("Nenurodytas matavimo vienetas!", MsgTitle);
    return false;
  }
  OrvelResult reply = object.Properties("Measure", kMeasureRecordOid + ConcatText(measureId));
  auto measure = reply.Value.ObjectAs<orvel::OrvelObjectUIO>();
  // A measure that cannot be read stops the write with its error: whether
  // it counts whole units cannot be told.
  if (reply.Number != 0) throw RuntimeError(reply.Number, reply.Text);
  if (!measure) {
    throw RuntimeError(RuntimeError::kObjectNotSet,
                       "Matavimo vienetas " + ConcatText(measureId) + " neperskaitytas");
  }
  if (ConcatText(measure->Fields("MeasureType").Value()) == kWholeUnits &&
      NullToLong(object.Fields("AmountPrecision").Value()) != 0) {
    ShowStop("Kiekio tikslumas turi būti lygus 0!", MsgTitle);
    return false;
  }
  return true;
}

void frmGoods::cmdEnter_Click() {
  Handle(MsgTitle, [&] {
    if (!IsGroup && !CheckGoodMeasure()) return;
    OrvelGrid->EndFieldEdit();
    auto& object = Uio();
    Field& name = object.Fields("Name");
    if (ConcatText(name.Value()).empty()) return;
    if (!(name.Value() == name.UnderlyingValue()) && !Rights().Allowed("CGoodsCH", 0)) {
      OrvelResult used = object.Properties("GoodIsUsedInDocuments", "");
      if (used.Number != 0) return;
      // The user is not told: the rest of the edits are written.
      if (UsedInDocuments(used.Value) > 0) name.SetValue(name.UnderlyingValue());
    }
    if (SaveSheet() && IsNew) {
      // The first write of a new record fills its lists.
      IsNew = false;
      FillAllLists();
    }
    SSCNew.SetEnabled(true);
    UnloadChild();
  });
}

void frmGoods::cmdCancel_Click() {
  Handle(MsgTitle, [&] {
    if (!IsNew && ReadAgainOrClose(Uio(), MsgTitle)) InitForm();
  });
}

void frmGoods::SSCNew_Click() {
  Handle(MsgTitle, [&] {
    auto& object = Uio();
    const std::string kept = OIDR();
    const Variant groupFlag = object.Fields("GroupFlag").Value();
    const std::string name = ConcatText(object.Fields("Name").Value());
    const bool good = !IsGroup;
    const char* const copied[] = {"WithRest", "WithItems", "MeasureID", "AmountPrecision"};
    std::vector<std::pair<const char*, Variant>> values;
    if (good) {
      for (const char* field : copied) {
        if (HasField(object, field)) values.emplace_back(field, object.Fields(field).Value());
      }
    }
    auto windows = Services().WindowManager();
    if (windows->QueryRemove(kept, true)) return;
    SSCNew.SetEnabled(false);
    object.SetOIDR("");
    if (object.Read().Number != 0) return;
    object.Fields("GroupFlag").SetValue(groupFlag);
    object.Fields("ParentID").SetValue(Variant(ParentID));
    if (good) {
      object.Fields("Name").SetValue(Variant(name));
      for (auto& [field, value] : values) object.Fields(field).SetValue(std::move(value));
    }
    ReleaseLists();
    ClearTabs();
    InitForm();
    if (!kept.empty()) windows->Rekey(kept, Self());
  });
}

void frmGoods::ShowPriceLine() {
  SOPanel.SetToolTipText("");
  Platform::Ui().DoEvents();
  auto& object = Uio();
  const int16_t general = EnsureVatFactor(object);
  std::string line;
  try {
    const Variant price = object.Fields("Price").Value();
    if (IsNumeric(price)) {
      const double p = CDbl(price);
      const Variant vat = HasField(object, "VAT") ? object.Fields("VAT").Value() : Variant::Null();
      const double v = IsNumeric(vat) ? CDbl(vat) : general;
      const double f = v * 0.01 + 1;
      if (FieldTrue(object, "PriceWithVAT")) {
        line = " Kaina be PVM: " + FormatNumber(Round(p / f, 2), 2, true);
      } else {
        line = " Kaina su PVM: " + FormatNumber(Round(f * p, 2), 2, true);
      }
      line += " (Tarifas: " + CStr(Variant(v)) + "%)";
    }
  } catch (const RuntimeError&) {
    line.clear();  // a record without a price shows only who made it
  }
  try {
    line += CreatorLine(object);
  } catch (const RuntimeError&) {
    // A record set without the creator fields has no creator line.
  }
  SOPanel.SetToolTipText(line);
}

// ---- detail rows ----

void frmGoods::EditRow() {
  Handle(MsgTitle, [&] {
    if (MenuAction == "100" && OIDR().empty()) {
      Platform::Ui().MsgBox("Išsaugokite naujai sukurtą įmonę", vbExclamation, MsgTitle);
      return;
    }
    const DetailKind* kind = nullptr;
    for (const auto& k : kDetailKinds) {
      if (this->*k.tab != 0 && this->*k.tab == CurrentTab) kind = &k;
    }
    if (!kind) return;
    const bool templates = kind->tab == &frmGoods::TemplatesTab;
    const ListItem* row = nullptr;
    std::string oidr;
    if (MenuAction == "101") {
      row = Selected(CurrentTab);
      if (!row) return;
      oidr = templates ? ConcatText(row->Tag()) : row->Key();
    }
    // A template row without a record of its own is the group's: editing it
    // makes the good's own.
    const bool inherited = templates && row && row->Tag().IsNull();
    auto adapter = Services().ObjectManager()->GetOrvelObjectUI(kind->otype);
    auto detail = adapter ? adapter->GetOrvelObject(oidr) : nullptr;
    if (!detail) return;
    if (inherited) {
      detail->Fields("GoodBRTemplateTypeID").SetValue(Variant(Mid(row->Key(), 9)));
    }
    if (oidr.empty() || inherited) detail->Fields("GoodID").SetValue(Uio().Fields("ID").Value());
    const std::string caption = detail->Preview() + ": " + kind->caption;
    if (!CurrentGoodsDialogs().EditGoodProperty(detail, caption, MsgTitle)) return;
    if (kind->tab == &frmGoods::MeasuresTab) {
      LoadMeasures();
    } else if (templates) {
      LoadTemplates();
    } else {
      LoadPrices();
    }
  });
}

void frmGoods::EditDiscount() {
  Handle(MsgTitle, [&] {
    if (MenuAction == "101") {
      mnuToDesktop_Click();
      return;
    }
    auto discount = Services().ObjectManager()->GetOrvelObject("O1000600");
    if (!discount) return;
    discount->Fields("GoodID").SetValue(Variant(Mid(OIDR(), 9)));
    auto window = discount->Properties("GetObjectForm", "").Value.ObjectAs<OrvelWindow>();
    if (window) Services().WindowManager()->ShowWindow(window);
  });
}

}  // namespace orvel
