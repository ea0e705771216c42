#include "currencies/frmCurrencyRate.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

frmCurrencyRate::frmCurrencyRate() : Form("frmCurrencyRate") {
  SetCaption("Valiutos kursai");
  SSPanel1.SetCaption(" Valiutos kursai");
  lblDate.SetCaption("Data");
  lblLt.SetCaption("Lt");
  cmdWrite.SetCaption("Įrašyti");
  cmdExit.SetCaption("Užbaigti");
  for (Control* control :
       std::initializer_list<Control*>{&SSPanel1, &lblDate, &pickerDate, &lblDayRate, &txtDayRate,
                                       &lblLt, &cmdWrite, &cmdExit}) {
    Register(*control);
  }
  pickerDate.OnChange = [this] { pickerDate_Change(); };
  txtDayRate.OnChange = [this] { txtDayRate_Change(); };
  txtDayRate.OnGotFocus = [this] { txtDayRate_GotFocus(); };
  txtDayRate.OnKeyPress = [this](int& key) { txtDayRate_KeyPress(key); };
  txtDayRate.OnLostFocus = [this] { txtDayRate_LostFocus(); };
  cmdWrite.OnClick = [this] { cmdWrite_Click(); };
  cmdExit.OnClick = [this] { cmdExit_Click(); };
}

frmCurrencyRate::~frmCurrencyRate() = default;

void frmCurrencyRate::Form_Load() {
  loading_ = true;
  Handle(msgTitle_, [&] {
    msgTitle_ = AppTitle();
    lblDayRate.SetCaption("1 " + CurrencyCode + " =");
    cmdWrite.SetCaption("&Išsaugoti");
    cmdExit.SetCaption("Uždaryti");
    pickerDate.SetValue(Variant(RateDate));
    LoadDayRate();
    cmdWrite.SetEnabled(false);
  });
  loading_ = false;
}

void frmCurrencyRate::LoadDayRate() {
  txtDayRate.SetText(FormatNumber(0, 8, true));
  if (!OrvelObjectUIO) return;
  try {
    auto result = OrvelObjectUIO->Properties("CurrencyList", CStr(pickerDate.Value()));
    auto rs = result.Value.ObjectAs<Recordset>();
    if (!rs) return;
    std::string filter = "Code = '";
    for (char c : CurrencyCode) {
      filter += c;
      if (c == '\'') filter += '\'';
    }
    rs->SetFilter(Variant(filter + "'"));
    if (!rs->IsEOF()) txtDayRate.SetText(FormatNumber(CDbl(rs->Fields("Rate").Value()), 8, false));
  } catch (const RuntimeError&) {
    // A failed read leaves the zero, without a word.
  }
}

void frmCurrencyRate::pickerDate_Change() {
  if (loading_) return;
  Handle(msgTitle_, [&] {
    LoadDayRate();
    cmdWrite.SetEnabled(false);
  });
}

void frmCurrencyRate::txtDayRate_Change() {
  if (loading_) return;
  cmdWrite.SetEnabled(true);
}

void frmCurrencyRate::txtDayRate_GotFocus() { txtDayRate.SelectAll(); }

void frmCurrencyRate::txtDayRate_KeyPress(int& keyAscii) {
  keyAscii = KeyFilterDecimal(keyAscii, txtDayRate.Text());
}

void frmCurrencyRate::txtDayRate_LostFocus() {
  Handle(msgTitle_, [&] { txtDayRate.SetText(FormatDecimalText(txtDayRate.Text(), 8, true)); });
}

void frmCurrencyRate::cmdWrite_Click() {
  Handle(msgTitle_, [&] {
    Variant text(txtDayRate.Text());
    double rate = IsNumeric(text) && !txtDayRate.Text().empty() ? CDbl(text) : 0;
    if (rate == 0) {
      Platform::Ui().MsgBox("Nenurodytas valiutos kursas !", vbExclamation, msgTitle_);
      return;
    }
    Variant::Array params{Variant(CurrencyCode), pickerDate.Value(), Variant(rate)};
    auto result = OrvelObjectUIO ? OrvelObjectUIO->Methods("SaveDayRate", params)
                                 : OrvelResult{RuntimeError::kObjectNotSet, "", {}};
    if (result.Number == 0) {
      cmdWrite.SetEnabled(false);
    } else {
      // The failure's text is not shown: the dialog only closes.
      Form::Unload();
    }
  });
}

void frmCurrencyRate::cmdExit_Click() {
  Handle(msgTitle_, [&] { Form::Unload(); });
}

}  // namespace orvel
