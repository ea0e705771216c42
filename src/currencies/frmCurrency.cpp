#include "currencies/frmCurrency.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// A stored OIDR has the OID's eight characters and at least one of the ID.
constexpr size_t kStoredOidrLength = 9;
constexpr int kHistoryDays = 30;

}  // namespace

frmCurrency::frmCurrency() : CatalogueFrame("frmCurrency") {
  SetCaption("Valiuta");
  SOPanel.SetCaption(" Valiuta");
  lblYear.SetCaption("Laikotarpis");
  lblNuoIki.SetCaption("<-->");
  cmdGo.SetCaption("Užpildyti");
  cmdWrite.SetCaption("Įrašyti");
  cmdDayRate.SetCaption("Kurso įrašymas");
  chkFixedRate.SetCaption("Pastovus kursas");
  lblState.SetCaption("Kokios šalies valiuta:");
  lblExampleCurr.SetCaption("Pavyzdys: Vokietijos");
  lblCode.SetCaption("Kodas:");
  Label1.SetCaption("Pagrindinis valiutos vienetas");
  Label2.SetCaption("Smulkioji valiutos dalis");
  lblTwoCurr.SetCaption("Du");
  lblTwoSmall.SetCaption("Du");
  lblTenCurr.SetCaption("Dešimt");
  lblTenSmall.SetCaption("Dešimt");
  lblOneCurrEx.SetCaption("Vienas euras");
  lblTwoCurrEx.SetCaption("Du eurai");
  lblTenCurrEx.SetCaption("Dešimt eurų");
  lblOneSmallEx.SetCaption("Vienas centas");
  lblTwoSmallEx.SetCaption("Du centai");
  lblTenSmallEx.SetCaption("Dešimt centų");
  lblComment.SetCaption(
      "Įrašykite valiutos vieneto pavadinimą ir tos valiutos dešimtosios dalies pavadinimą "
      "reikiamame linksnyje pagal pateiktą pavyzdį");
  txtCode.SetMaxLength(3);
  txtState.SetMaxLength(15);
  for (ComboBox* combo : {&cmbGenderCurr, &cmbGenderSmall}) {
    combo->SetStyle(vbComboDropdownList);
    combo->AddItem("Vienas");
    combo->AddItem("Viena");
  }
  lvwRates.ColumnHeaders().Add(0, "", "Data", 1200);
  lvwRates.ColumnHeaders().Add(0, "", "Kursas", 1400);
  TabStrip.AddTab(kDataTab, "Duomenys");
  TabStrip.AddTab(kRatesTab, "Valiutos kursai");
  // The data tab: the code and country, then the unit names with their
  // samples. The rates tab: the period and the history.
  frameCode.Hold({&chkFixedRate, &txtFixedRate, &lblState, &txtState, &lblExampleCurr, &lblCode,
                  &txtCode});
  frameName.Hold({&Label1, &cmbGenderCurr, &txtOneCurr, &lblTwoCurr, &txtTwoCurr, &lblTenCurr,
                  &txtTenCurr, &lblOneCurrEx, &lblTwoCurrEx, &lblTenCurrEx, &Label2,
                  &cmbGenderSmall, &txtOneSmall, &lblTwoSmall, &txtTwoSmall, &lblTenSmall,
                  &txtTenSmall, &lblOneSmallEx, &lblTwoSmallEx, &lblTenSmallEx, &lblComment});
  framePeriod.Hold({&lblYear, &dtpDateFrom, &lblNuoIki, &dtpDateTo});
  // In the order the window shows them, each label before its field.
  for (Control* control : std::initializer_list<Control*>{
           &SOPanel,      &TabStrip,     &frameCode,     &chkFixedRate,  &txtFixedRate,
           &lblState,     &txtState,     &lblExampleCurr, &lblCode,      &txtCode,
           &frameName,    &Label1,       &cmbGenderCurr, &txtOneCurr,    &lblTwoCurr,
           &txtTwoCurr,   &lblTenCurr,   &txtTenCurr,    &lblOneCurrEx,  &lblTwoCurrEx,
           &lblTenCurrEx, &Label2,       &cmbGenderSmall, &txtOneSmall,  &lblTwoSmall,
           &txtTwoSmall,  &lblTenSmall,  &txtTenSmall,   &lblOneSmallEx, &lblTwoSmallEx,
           &lblTenSmallEx, &lblComment,  &framePeriod,   &lblYear,       &dtpDateFrom,
           &lblNuoIki,    &dtpDateTo,    &lvwRates,      &cmdGo,         &cmdWrite,
           &cmdDayRate,   &SSCNew,       &SSCClose}) {
    Register(*control);
  }
  TabStrip.OnClick = [this] { TabStrip_Click(TabStrip.SelectedKey()); };

  cmdGo.OnClick = [this] { cmdGo_Click(); };
  cmdWrite.OnClick = [this] { cmdWrite_Click(); };
  cmdDayRate.OnClick = [this] { cmdDayRate_Click(); };
  SSCNew.OnClick = [this] { SSCNew_Click(); };
  SSCClose.OnClick = [this] { SSCClose_Click(); };
  SSCClose.OnMouseUp = [this](int button, int shift) { SSCClose_MouseUp(button, shift); };
  chkFixedRate.OnClick = [this] { chkFixedRate_Click(); };
  cmbGenderCurr.OnClick = [this] { cmbGenderCurr_Click(); };
  cmbGenderSmall.OnClick = [this] { cmbGenderSmall_Click(); };
  txtCode.OnChange = [this] { txtCode_Change(); };
  for (TextBox* box : {&txtState, &txtOneCurr, &txtTwoCurr, &txtTenCurr, &txtOneSmall, &txtTwoSmall,
                       &txtTenSmall, &txtFixedRate}) {
    box->OnChange = [this] { MarkChanged(); };
  }
  txtFixedRate.OnGotFocus = [this] { txtFixedRate_GotFocus(); };
  txtFixedRate.OnKeyPress = [this](int& key) { txtFixedRate_KeyPress(key); };
  txtFixedRate.OnLostFocus = [this] { txtFixedRate_LostFocus(); };
  dtpDateFrom.OnChange = [this] { dtpDateFrom_Change(); };
  dtpDateTo.OnChange = [this] { dtpDateTo_Change(); };
}

frmCurrency::~frmCurrency() = default;

void frmCurrency::Form_Load() {
  Handle(msgTitle_, [&] {
    msgTitle_ = AppTitle();
    LoadCard();
  });
}

void frmCurrency::Form_Unload() { CatalogueFrame::SetOrvelObjectUIO(nullptr); }

void frmCurrency::LoadCard() {
  changed_ = false;
  isNew_ = OIDR().size() < kStoredOidrLength;
  cmdDayRate.SetEnabled(!isNew_);
  TabStrip.Select(kDataTab);
  ShowFields();
  LoadRates();
  SetButtons();
}

void frmCurrency::ShowFields() {
  // Filling the boxes raises their change events; the card is as changed as
  // it was before.
  bool kept = changed_;
  SOPanel.SetCaption(isNew_ ? " &Nauja valiuta"
                            : " Valiuta: " + ConcatText(Uio().Fields("Code").Value()));
  Date today = Platform::Ui().Today();
  dtpDateTo.SetValue(Variant(today));
  dtpDateFrom.SetValue(Variant(Date{today.serial - kHistoryDays}));
  struct Bound {
    TextBox* box;
    const char* field;
  };
  const Bound bound[] = {{&txtCode, "Code"},         {&txtState, "State"},
                         {&txtOneCurr, "OneCurr"},   {&txtTwoCurr, "TwoCurr"},
                         {&txtTenCurr, "TenCurr"},   {&txtOneSmall, "OneSmall"},
                         {&txtTwoSmall, "TwoSmall"}, {&txtTenSmall, "TenSmall"}};
  if (isNew_) {
    for (const auto& b : bound) b.box->SetText("");
    txtFixedRate.SetText("");
    cmbGenderCurr.SetListIndex(0);
    cmbGenderCurr_Click();
    cmbGenderSmall.SetListIndex(0);
    cmbGenderSmall_Click();
  } else {
    for (const auto& b : bound) b.box->SetText(ConcatText(Uio().Fields(b.field).Value()));
    Variant fixed = Uio().Fields("FixedRate").Value();
    double rate = fixed.IsNull() ? 0 : CDbl(fixed);
    chkFixedRate.SetValue(rate == 0 ? vbUnchecked : vbChecked);
    txtFixedRate.SetText(FormatNumber(rate, 4, true));
    txtFixedRate.SetEnabled(rate > 0);
    cmbGenderCurr.SetListIndex(NullToLong(Uio().Fields("GenderCurr").Value()));
    cmbGenderCurr_Click();
    cmbGenderSmall.SetListIndex(NullToLong(Uio().Fields("GenderSmall").Value()));
    cmbGenderSmall_Click();
  }
  changed_ = kept;
}

void frmCurrency::LoadRates() {
  lvwRates.ListItems().Clear();
  std::string period = "'" + CStr(dtpDateFrom.Value()) + "','" + CStr(dtpDateTo.Value()) + "'";
  auto result = Uio().Properties("CurrencyRates", period);
  auto rs = result.Value.ObjectAs<Recordset>();
  if (result.Number != 0 || !rs || rs->RecordCount() == 0) return;
  std::string code = ConcatText(Uio().Fields("Code").Value());
  std::string filter = "Code = '";
  for (char c : code) {
    filter += c;
    if (c == '\'') filter += '\'';
  }
  rs->SetFilter(Variant(filter + "'"));
  for (; !rs->IsEOF(); rs->MoveNext()) {
    ListItem& row = lvwRates.ListItems().Add(0, "", CStr(rs->Fields("DateD").Value()));
    row.ListSubItems().Add(0, "", FormatNumber(CDbl(rs->Fields("Rate").Value()), 8, false));
  }
}

void frmCurrency::SetButtons() {
  cmdWrite.SetEnabled(selectedTab_ == kDataTab && changed_);
  cmdGo.SetEnabled(selectedTab_ == kRatesTab);
  if (isNew_) {
    SSCNew.SetEnabled(false);
    cmdDayRate.SetEnabled(Len(txtCode.Text()) == 3);
  } else {
    SSCNew.SetEnabled(!changed_);
  }
}

void frmCurrency::TabStrip_Click(const std::string& key) {
  Handle(msgTitle_, [&] {
    selectedTab_ = key;
    bool data = key == kDataTab;
    bool rates = key == kRatesTab;
    frameCode.SetVisible(data);
    frameName.SetVisible(data);
    lvwRates.SetVisible(rates);
    framePeriod.SetVisible(rates);
    SetButtons();
  });
}

void frmCurrency::MarkChanged() {
  Handle(msgTitle_, [&] {
    if (changed_) return;
    changed_ = true;
    SetButtons();
  });
}

void frmCurrency::txtCode_Change() {
  Handle(msgTitle_, [&] {
    changed_ = true;
    SetButtons();
  });
}

void frmCurrency::cmbGenderCurr_Click() {
  lblTwoCurr.SetCaption(cmbGenderCurr.ListIndex() == 0 ? "Du" : "Dvi");
}

void frmCurrency::cmbGenderSmall_Click() {
  lblTwoSmall.SetCaption(cmbGenderSmall.ListIndex() == 0 ? "Du" : "Dvi");
}

void frmCurrency::chkFixedRate_Click() {
  Handle(msgTitle_, [&] {
    if (chkFixedRate.Value() == vbUnchecked) {
      txtFixedRate.SetText(FormatNumber(0, 4, true));
      txtFixedRate.SetEnabled(false);
    } else {
      txtFixedRate.SetEnabled(true);
    }
  });
  MarkChanged();
}

void frmCurrency::txtFixedRate_GotFocus() { txtFixedRate.SelectAll(); }

void frmCurrency::txtFixedRate_KeyPress(int& keyAscii) {
  keyAscii = KeyFilterDecimal(keyAscii, txtFixedRate.Text());
}

void frmCurrency::txtFixedRate_LostFocus() {
  Handle(msgTitle_, [&] { txtFixedRate.SetText(FormatDecimalText(txtFixedRate.Text(), 4, true)); });
}

void frmCurrency::dtpDateFrom_Change() {
  Handle(msgTitle_, [&] {
    if (dtpDateFrom.Value().DateValue() > dtpDateTo.Value().DateValue()) {
      dtpDateTo.SetValue(dtpDateFrom.Value());
    }
  });
}

void frmCurrency::dtpDateTo_Change() {
  Handle(msgTitle_, [&] {
    if (dtpDateTo.Value().DateValue() < dtpDateFrom.Value().DateValue()) {
      dtpDateFrom.SetValue(dtpDateTo.Value());
    }
  });
}

void frmCurrency::cmdGo_Click() {
  Handle(msgTitle_, [&] { LoadRates(); });
}

void frmCurrency::cmdDayRate_Click() {
  Handle(msgTitle_, [&] {
    Variant::Array params{Variant(txtCode.Text()), Variant(Platform::Ui().Today())};
    Uio().Methods("CurrencyRates", params);
  });
}

bool frmCurrency::CheckCard() {
  bool ok = true;
  if (txtCode.Text().empty()) {
    Platform::Ui().MsgBox("Nenurodydas valiutos kodas !\n", vbExclamation, msgTitle_);
    ok = false;
  }
  if (txtOneCurr.Text().empty() || txtTwoCurr.Text().empty() || txtTenCurr.Text().empty()) {
    Platform::Ui().MsgBox("Būtina nurodyti valiutos pavadinimus !", vbOKOnly, msgTitle_);
    ok = false;
  }
  return ok;
}

void frmCurrency::cmdWrite_Click() {
  Handle(msgTitle_, [&] {
    if (!CheckCard()) return;
    auto& object = Uio();
    object.Fields("Code").SetValue(Variant(txtCode.Text()));
    object.Fields("GenderCurr").SetValue(Variant(int32_t{cmbGenderCurr.ListIndex()}));
    object.Fields("GenderSmall").SetValue(Variant(int32_t{cmbGenderSmall.ListIndex()}));
    object.Fields("State").SetValue(Variant(txtState.Text()));
    object.Fields("OneCurr").SetValue(Variant(txtOneCurr.Text()));
    object.Fields("TwoCurr").SetValue(Variant(txtTwoCurr.Text()));
    object.Fields("TenCurr").SetValue(Variant(txtTenCurr.Text()));
    object.Fields("OneSmall").SetValue(Variant(txtOneSmall.Text()));
    object.Fields("TwoSmall").SetValue(Variant(txtTwoSmall.Text()));
    object.Fields("TenSmall").SetValue(Variant(txtTenSmall.Text()));
    if (!txtFixedRate.Text().empty()) {
      object.Fields("FixedRate").SetValue(Variant(CDbl(Variant(txtFixedRate.Text()))));
    }
    auto status = object.Save(nullptr, nullptr);
    if (status.Number != 0) {
      Platform::Ui().MsgBox(status.Text + "\n\nĮrašymas neatliktas!", vbCritical, msgTitle_);
      return;
    }
    Services().WindowManager()->ObjectSaved(OIDR());
    changed_ = false;
    SetButtons();
  });
}

void frmCurrency::ReloadCard() {
  Handle(msgTitle_, [&] {
    if (ReadAgainOrClose(Uio(), msgTitle_)) LoadCard();
  });
}

void frmCurrency::SSCNew_Click() {
  Handle(msgTitle_, [&] {
    std::string kept = OIDR();
    auto windows = Services().WindowManager();
    if (windows->QueryRemove(kept, true)) return;
    Uio().SetOIDR("");
    if (Uio().Read().Number != 0) return;
    LoadCard();
    windows->Rekey(kept, Self());
  });
}

void frmCurrency::SSCClose_Click() {
  Handle(msgTitle_, [&] { CloseFrame(); });
}

void frmCurrency::SSCClose_MouseUp(int button, int) {
  Handle(msgTitle_, [&] {
    if (button != vbRightButton || !SSCClose.Enabled()) return;
    DeleteRecordAsked(kMsgTitle, DeleteVia::kObjectManager, false);
  });
}

}  // namespace orvel
