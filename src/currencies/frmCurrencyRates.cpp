#include "currencies/frmCurrencyRates.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <vector>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "currencies/RateSource.h"
#include "currencies/SoapClient.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kPreparing = "Vyksta duomenų paruošimas ...";
// An OIDR longer than this names a stored record.
constexpr size_t kBareOidLength = 8;
constexpr int kMinNameWidth = 2000;

// The key a filter "Code = '<code>'" would match: text without regard to
// case. Codes are ASCII as a rule; others go through the full upper-casing.
std::string CodeKey(const std::string& code) {
  std::string key = code;
  for (char& c : key) {
    if (static_cast<unsigned char>(c) >= 0x80) return UCase(code);
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return key;
}

// The platform's shortest text of a number (CStr); whole numbers, the
// bank's quantities, without the general formatting.
std::string NumberText(double x) {
  if (x == std::trunc(x) && std::fabs(x) < 1e15) {
    char buf[24];
    auto end = std::to_chars(buf, buf + sizeof buf, static_cast<long long>(x)).ptr;
    return std::string(buf, end);
  }
  return CStr(Variant(x));
}

// A stored number: Null (no value) reads as `ifNull`.
double NumberOr(const Variant& v, double ifNull) { return v.IsNull() ? ifNull : CDbl(v); }

std::string StoredName(Recordset& rs) {
  return ConcatText(rs.Fields("State").Value()) + " " + ConcatText(rs.Fields("OneCurr").Value());
}

}  // namespace

frmCurrencyRates::frmCurrencyRates()
    : Form("frmCurrencyRates"),
      mnuOnDeskTop(mnuMeniu.Add("mnuOnDeskTop", "Padėti ant darbo stalo")),
      mnuWriteSelected(mnuMeniu.Add("mnuWriteSelected", "Įrašyti pažymėtos valiutos kursą")),
      mnuWriteAll(mnuMeniu.Add("mnuWriteAll", "Įrašyti visų valiutų kursus")) {
  SetCaption("Valiutų kursų įrašymas");
  SOPanel.SetCaption(" LVB valiutų kursų įrašymas iš INTERNET");
  lblPeriod.SetCaption("Data:");
  cmdGo.SetCaption("Užpildyti");
  cmdWrite.SetCaption("Įrašyti");
  lblStatus.SetCaption(kPreparing);
  mnuMeniu.SetVisible(false);
  for (Control* control :
       std::initializer_list<Control*>{&SOPanel, &lblPeriod, &dtpDate, &cmdGo, &cmdWrite, &lvwRows,
                                       &lblStatus, &SSCClose, &mnuMeniu}) {
    Register(*control);
  }
  auto& columns = lvwRows.ColumnHeaders();
  columns.Add(0, "", "Pavadinimas", 2500);
  columns.Add(0, "", "Kiekis", 800);
  columns.Add(0, "", "Kodas", 600);
  columns.Add(0, "", "Santykis", 1000);
  columns.Add(0, "", "Įrašytas kursas", 1400);
  columns.Add(0, "", "Įrašytas pavadinimas", 1600);

  cmdGo.OnClick = [this] { cmdGo_Click(); };
  cmdWrite.OnClick = [this] { cmdWrite_Click(); };
  SSCClose.OnClick = [this] { SSCClose_Click(); };
  lvwRows.OnMouseUp = [this](int button, int shift) { lvwRows_MouseUp(button, shift); };
  mnuOnDeskTop.OnClick = [this] { menuKey_ = "101"; };
  mnuWriteSelected.OnClick = [this] { menuKey_ = "102"; };
  mnuWriteAll.OnClick = [this] { menuKey_ = "103"; };
}

frmCurrencyRates::~frmCurrencyRates() = default;

void frmCurrencyRates::SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) {
  object_ = std::move(object);
}

orvel::OrvelObjectUIO& frmCurrencyRates::Uio() {
  if (!object_) {
    throw RuntimeError(RuntimeError::kObjectNotSet, "Langui " + Name() + " nepriskirtas objektas");
  }
  return *object_;
}

void frmCurrencyRates::Form_Load() {
  Handle(msgTitle_, [&] {
    SetBusy(false, "");
    msgTitle_ = AppTitle();
    rateDate_ = Platform::Ui().Today();
    dtpDate.SetValue(Variant(rateDate_));
    SetButtons(false, false);
  });
}

void frmCurrencyRates::Form_Unload() { rsCurrencies_.reset(); }

void frmCurrencyRates::SetBusy(bool busy, const std::string& status) {
  Platform::Ui().SetMousePointer(busy ? vbHourglass : vbDefault);
  lblStatus.SetCaption(status);
  Platform::Ui().DoEvents();
}

void frmCurrencyRates::SetButtons(bool busy, bool ok) {
  cmdGo.SetEnabled(!busy);
  SSCClose.SetEnabled(!busy);
  cmdWrite.SetEnabled(!busy && ok);
}

std::string frmCurrencyRates::DateText() const { return CStr(dtpDate.Value()); }

void frmCurrencyRates::cmdGo_Click() {
  Handle(msgTitle_, [&] {
    SetBusy(true, kPreparing);
    SetButtons(true, false);
  });
  Handle(msgTitle_, [&] {
    FetchRates();
    FillRows();
  });
  // Also after a failure: the window must not stay busy.
  Handle(msgTitle_, [&] {
    SetBusy(false, "");
    SetButtons(false, rsCurrencies_ && bankRates_);
  });
}

void frmCurrencyRates::FetchRates() {
  if (lvwRows.ListItems().Count() > 0) {
    lvwRows.ListItems().Clear();
    Platform::Ui().DoEvents();
  }
  bankRates_.reset();
  bankNames_.reset();
  rsCurrencies_.reset();

  Date asked = dtpDate.Value().DateValue();
  if (std::floor(asked.serial) > std::floor(Platform::Ui().Today().serial)) return;

  std::unique_ptr<SoapClient> client;
  try {
    client = SoapClient::Create();
  } catch (const std::exception& e) {
    Platform::Ui().MsgBox(
        std::string("Neinstaliuota programinė įranga 'SOAP ToolKit 3.0' !\n") + e.what(), vbOKOnly,
        msgTitle_);
    return;
  }
  RateSource::DayRates day;
  try {
    day = RateSource::ForDate(asked)->Fetch(*client, asked);
  } catch (const std::exception& e) {
    Platform::Ui().MsgBox(
        std::string("Lietuvos Banko INTERNET svetainė nepasiekiama!\n") + e.what(), vbOKOnly,
        msgTitle_);
    return;
  }
  client.reset();
  bankNames_ = std::move(day.names);
  bankRates_ = std::move(day.rates);
  LoadCurrencies();
}

void frmCurrencyRates::LoadCurrencies() {
  rsCurrencies_.reset();
  auto result = Uio().Properties("CurrencyList", DateText());
  if (result.Number == 0) rsCurrencies_ = result.Value.ObjectAs<Recordset>();
}

void frmCurrencyRates::FillRows() {
  if (!rsCurrencies_ || !bankRates_ || bankRates_->Count() == 0) return;
  auto stored = StoredByCode();
  for (const auto& code : bankRates_->Keys()) {
    AddBankRow(code, bankRates_->Item(code).ArrayValue(), stored);
  }
  Recordset& rs = *rsCurrencies_;
  if (rs.IsEOF()) return;
  Field& code = rs.Fields("Code");
  Field& base = rs.Fields("BaseCurrency");
  for (; !rs.IsEOF(); rs.MoveNext()) {
    if (bankRates_->Exists(ConcatText(code.Value()))) continue;
    if (NumberOr(base.Value(), 0) != 0) continue;
    AddStoredRow(rs);
  }
}

std::unordered_map<std::string, frmCurrencyRates::StoredCurrency> frmCurrencyRates::StoredByCode() {
  std::unordered_map<std::string, StoredCurrency> stored;
  Recordset& rs = *rsCurrencies_;
  if (rs.RecordCount() == 0) return stored;
  // A field follows the current record: looked up once, read on every row.
  Field& code = rs.Fields("Code");
  Field& oidr = rs.Fields("OIDR");
  Field& state = rs.Fields("State");
  Field& one = rs.Fields("OneCurr");
  Field& rate = rs.Fields("Rate");
  stored.reserve(static_cast<size_t>(rs.RecordCount()));
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    Variant value = code.Value();
    if (value.IsNull()) continue;
    auto [it, fresh] = stored.try_emplace(CodeKey(ConcatText(value)));
    if (!fresh) continue;
    it->second = StoredCurrency{ConcatText(oidr.Value()),
                                ConcatText(state.Value()) + " " + ConcatText(one.Value()),
                                NumberOr(rate.Value(), -1)};
  }
  // Back at the first record, where a cleared filter leaves the set.
  rs.MoveFirst();
  return stored;
}

void frmCurrencyRates::AddBankRow(const std::string& code, const Variant::Array& bank,
                                  const std::unordered_map<std::string, StoredCurrency>& stored) {
  std::string name = ConcatText(bank[0]);
  double quantity = Val(ConcatText(bank[1]));
  double rate = Val(ConcatText(bank[2]));
  StoredCurrency none{"", " ", -1};
  auto found = stored.find(CodeKey(code));
  const StoredCurrency& currency = found == stored.end() ? none : found->second;
  ListItem& row = lvwRows.ListItems().Add(0, "", name);
  row.SetTag(Variant(currency.oidr));
  auto& items = row.ListSubItems();
  items.Add(0, "Quantity", NumberText(quantity));
  items.Add(0, "Code", code);
  items.Add(0, "BankRate", FormatNumber(rate, 4, false));
  items.Add(0, "Rate",
            currency.rate < 0 ? std::string(" ") : FormatNumber(currency.rate, 8, false));
  items.Add(0, "Name", currency.name);
}

void frmCurrencyRates::AddStoredRow(Recordset& rs) {
  ListItem& row = lvwRows.ListItems().Add(0, "", " ");
  row.SetTag(Variant(ConcatText(rs.Fields("OIDR").Value())));
  auto& items = row.ListSubItems();
  items.Add(0, "Quantity", "1");
  items.Add(0, "Code", ConcatText(rs.Fields("Code").Value()));
  items.Add(0, "BankRate", " ");
  Variant rate = rs.Fields("Rate").Value();
  items.Add(0, "Rate", rate.IsNull() ? std::string(" ") : FormatNumber(CDbl(rate), 8, false));
  items.Add(0, "Name", StoredName(rs));
}

void frmCurrencyRates::WriteRates(const std::string& oidr) {
  if (!rsCurrencies_ || !bankRates_) return;
  if (rsCurrencies_->RecordCount() == 0 || bankRates_->Count() == 0) return;
  std::optional<std::string> failure;
  try {
    Recordset& rs = *rsCurrencies_;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
      std::string code = ConcatText(rs.Fields("Code").Value());
      bool floating = NumberOr(rs.Fields("FixedRate").Value(), 0) == 0;
      bool picked = oidr.size() <= kBareOidLength || ConcatText(rs.Fields("OIDR").Value()) == oidr;
      if (!floating || !picked || !bankRates_->Exists(code)) continue;
      const auto& bank = bankRates_->Item(code).ArrayValue();
      double quantity = Val(ConcatText(bank[1]));
      if (!(quantity > 0)) continue;
      double rate = Val(ConcatText(bank[2]));
      Variant::Array params{Variant(code), dtpDate.Value(), Variant(rate / quantity)};
      auto result = Uio().Methods("SaveDayRate", params);
      if (result.Number != 0) {
        failure = result.Text;
        break;
      }
    }
  } catch (const RuntimeError& e) {
    failure = e.Text();
  }
  if (failure) {
    Platform::Ui().MsgBox(*failure + "\nĮrašymas neatliktas!", vbExclamation, msgTitle_);
  }
  // The list shows what is stored now, the rows written before a failure too.
  lvwRows.ListItems().Clear();
  LoadCurrencies();
  FillRows();
}

void frmCurrencyRates::cmdWrite_Click() {
  Handle(msgTitle_, [&] { WriteRates(""); });
}

void frmCurrencyRates::SSCClose_Click() {
  Handle(msgTitle_, [&] {
    SSCClose.SetEnabled(false);
    Platform::Ui().DoEvents();
    Services().WindowManager()->CloseWindow(shared_from_this());
  });
}

void frmCurrencyRates::lvwRows_MouseUp(int button, int) {
  Handle(msgTitle_, [&] {
    if (button != vbRightButton) return;
    menuKey_.clear();
    ListItem* selected = lvwRows.SelectedItem();
    bool onStored = lvwRows.ListItems().Count() > 0 && selected &&
                    ConcatText(selected->Tag()).size() > kBareOidLength;
    mnuOnDeskTop.SetVisible(onStored);
    mnuWriteSelected.SetVisible(onStored);
    Platform::Ui().PopupMenu(mnuMeniu);
    if (!menuKey_.empty()) DoMenuAction();
  });
}

void frmCurrencyRates::DoMenuAction() {
  ListItem* selected = lvwRows.SelectedItem();
  if (!selected) return;
  selectedTag_ = ConcatText(selected->Tag());
  if (menuKey_ == "102") {
    WriteRates(selectedTag_);
  } else if (menuKey_ == "103") {
    WriteRates("");
  } else if (menuKey_ == "101" && selectedTag_.size() > kBareOidLength) {
    Services().ObjectManager()->AddToDesktop(selectedTag_);
  }
}

void frmCurrencyRates::SOPanel_Resize(int panelWidth) {
  Handle(msgTitle_, [&] {
    auto& columns = lvwRows.ColumnHeaders();
    int others = 0;
    for (int i = 2; i <= columns.Count() - 1; ++i) others += columns.Item(i).Width();
    double half = (static_cast<double>(panelWidth) - others - 350 - 180) / 2;
    int width = std::max(static_cast<int>(CLng(Variant(half))), kMinNameWidth);
    columns.Item(1).SetWidth(width);
    columns.Item(columns.Count()).SetWidth(width);
  });
}

}  // namespace orvel
