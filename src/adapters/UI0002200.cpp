#include "adapters/UI0002200.h"

#include "common/AmountInWords.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "currencies/frmCurrency.h"
#include "currencies/frmCurrencyRate.h"
#include "currencies/frmCurrencyRates.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kToDesktop = "Padėti &ant darbo stalo";
constexpr const char* kNew = "&Nauja valiuta";
constexpr const char* kDelete = "&Panaikinti";
constexpr const char* kSeparatorKey = "100";

// The title of the adapters' boxes; "" while the host has lent no services,
// so that a box can still be shown.
std::string MsgTitle() {
  try {
    return AppTitle();
  } catch (const RuntimeError&) {
    return {};
  }
}

bool IsDateValue(const Variant& v) { return v.Type() == VarType::Date; }

}  // namespace

UI0002200::UI0002200() : ObjectUIAdapter({{"C", "C0002200"}}) {}

std::shared_ptr<OrvelObjectUIO> UI0002200::NewInstance() { return std::make_shared<UIO0002200>(); }

std::optional<OrvelMenuItems> UI0002200::DoGetMenu(const std::string& oidr,
                                                   const std::string& otype, const std::string&) {
  OrvelMenuItems menu;
  auto entry = [&](const char* text) { menu.push_back(MakeMenuItem(text, text)); };
  auto separator = [&] { menu.push_back(MakeMenuItem("-", kSeparatorKey)); };
  if (otype.empty()) {
    entry(kRatesEntry);
    entry(kNew);
    separator();
    return menu;
  }
  // Compared as text: any OIDR longer than the bare OID names a stored record.
  bool stored = oidr > OID();
  if (stored) entry(kToDesktop);
  entry(kNew);
  if (stored) entry(kDelete);
  separator();
  entry(kRatesEntry);
  separator();
  return menu;
}

OrvelMenuResult UI0002200::DoClickMenu(const std::string& oidr, const std::string&,
                                       const std::string& sKey, const std::string&) {
  if (sKey == kRatesEntry) return Shown(OpenCurrencyWindow("O0002200", kRatesEntry));
  if (sKey == kToDesktop) return Shown(OpenCurrencyWindow(oidr, ""));
  if (sKey == kNew) return Shown(OpenCurrencyWindow("", ""));
  if (sKey == kDelete) return DeleteAsked(oidr);
  return {};
}

OrvelMenuResult UI0002200::Shown(const std::shared_ptr<OrvelWindow>& window) {
  OrvelMenuResult result;
  result.Value = Variant(window);
  if (window) result.Action = OrvelMenuResult::kShowWindow;
  return result;
}

OrvelMenuResult UI0002200::DeleteAsked(const std::string& oidr) {
  int answer =
      Platform::Ui().MsgBox("Ar tikrai norite panaikinti?", vbYesNo + vbExclamation, MsgTitle());
  if (answer != vbYes) return {};
  if (DeleteOrvelObject(oidr) != 0) return {};
  return {OrvelMenuResult::kRemoved, Variant()};
}

std::shared_ptr<OrvelWindow> UI0002200::OpenCurrencyWindow(const std::string& oidr,
                                                           const std::string& otype) {
  auto object = GetOrvelObject(oidr);
  if (!object) return nullptr;
  std::string type = otype.empty() ? object->OType() : otype;
  std::shared_ptr<OrvelWindow> window;
  if (type == kRatesEntry) {
    window = std::make_shared<frmCurrencyRates>();
  } else {
    window = std::make_shared<frmCurrency>();
  }
  window->SetOrvelObjectUIO(object);
  return window;
}

bool UI0002200::DoAddToDeskTopOrvelObject(const std::string& oidr) {
  if (auto window = OpenCurrencyWindow(oidr, "")) Services().WindowManager()->ShowWindow(window);
  return true;
}

std::string UIO0002200::RateToParam(double rate) {
  std::string text = CStr(Variant(rate));
  for (char& c : text) {
    if (c == ',') c = '.';
  }
  return text;
}

OrvelResult UIO0002200::DoProperties(const std::string& propertyName,
                                     std::string& propertyPar) {
  if (propertyName == "CurrencyList") return CurrencyList(propertyPar);
  if (propertyName == "CurrencyByCode") return CurrencyByCode(propertyPar);
  return ReadProperty(propertyName, propertyPar);
}

OrvelResult UIO0002200::ReadProperty(const std::string& propertyName, const std::string& param) {
  OrvelResult result;
  auto bo = BO();
  if (!bo) throw RuntimeError(RuntimeError::kObjectNotSet, "Valiutų objektas neturi BO");
  auto reply = bo->GetCall("Get" + propertyName, param, 0);
  if (reply.Number != 0) {
    result.Number = reply.Number;
    result.Text = reply.Text;
  }
  result.Value = Variant(reply.Object);
  return result;
}

OrvelResult UIO0002200::CurrencyList(const std::string& propertyPar) {
  std::string date = kDefaultListDate;
  if (!propertyPar.empty()) {
    if (ParseDate(propertyPar)) {
      date = propertyPar;
    } else {
      Platform::Ui().MsgBox("Wrong parameter Date to CurrencyList properties...\n" + propertyPar +
                                " is changed to " + kDefaultListDate,
                            vbExclamation, MsgTitle());
    }
  }
  return ReadProperty("CurrencyList", "'" + date + "'");
}

OrvelResult UIO0002200::CurrencyByCode(const std::string& code) {
  OrvelResult result = ReadProperty("CurrencyByCode", code);
  if (result.Number != 0) return result;
  auto rs = result.Value.ObjectAs<Recordset>();
  if (rs && rs->RecordCount() == 0) {
    result.Number = kArgumentFault;
    result.Text = "Klaidingas valiutos kodas " + code + " !";
    Platform::Ui().MsgBox(result.Text, vbExclamation, MsgTitle());
  }
  return result;
}

OrvelResult UIO0002200::DoMethods(const std::string& name, Variant::Array& params) {
  if (name == "CurrencyRates") return CurrencyRates(params);
  if (name == "SaveDayRate") return SaveDayRate(params);
  if (name == "SumByWords") return SumByWordsMethod(params);
  return {};
}

OrvelResult UIO0002200::CurrencyRates(Variant::Array& params) {
  OrvelResult result{kArgumentFault, "", Variant(false)};
  if (params.size() != 2) {
    result.Text = "Wrong parameters count for CurrencyRates!";
    return result;
  }
  if (!IsDateValue(params[1])) {
    result.Text = "Second parameter for CurrencyRates not date!";
    return result;
  }
  return OpenRateDialog(ConcatText(params[0]), params[1].DateValue());
}

OrvelResult UIO0002200::OpenRateDialog(const std::string& code, Date date) {
  {
    frmCurrencyRate dialog;
    dialog.OrvelObjectUIO = shared_from_this();
    dialog.RateDate = date;
    dialog.CurrencyCode = code;
    try {
      dialog.ShowModal(Platform::Ui());
    } catch (const RuntimeError&) {
      // Whatever happened in the dialog, the caller is told it was shown.
    }
    Platform::Ui().DoEvents();
    if (dialog.Loaded()) dialog.Unload();
  }
  return OrvelResult{0, "", Variant(true)};
}

OrvelResult UIO0002200::SaveDayRate(Variant::Array& params) {
  OrvelResult result{kArgumentFault, "", Variant(false)};
  if (params.size() != 3) {
    result.Text = "Wrong parameters count for SaveDayRate!";
    return result;
  }
  if (!IsDateValue(params[1])) {
    result.Text = "Second parameter for SaveDayRate not date!";
    return result;
  }
  if (!IsNumeric(params[2])) {
    result.Text = "Third parameter for SaveDayRate not numeric!";
    return result;
  }
  double rate = CDbl(params[2]);
  result.Value = Variant(true);
  std::string param =
      "'" + ConcatText(params[0]) + "','" + CStr(params[1]) + "'," + RateToParam(rate);
  auto bo = BO();
  if (!bo) throw RuntimeError(RuntimeError::kObjectNotSet, "Valiutų objektas neturi BO");
  auto status = bo->ExecCall("SaveDayRate", param, 0);
  result.Number = status.Number;
  result.Text = status.Text;
  return result;
}

OrvelResult UIO0002200::SumByWordsMethod(Variant::Array& params) {
  auto rs = RsFields();
  if (!rs) throw RuntimeError(RuntimeError::kObjectNotSet, "SumByWords: valiuta neperskaityta");
  OrvelResult result = SumByWords(params, rs->Fields());
  if (result.Number != 0) Platform::Ui().MsgBox(result.Text, vbExclamation, MsgTitle());
  return result;
}

}  // namespace orvel
