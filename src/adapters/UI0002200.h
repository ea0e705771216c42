#pragma once

#include <memory>
#include <string>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"

namespace orvel {

class OrvelWindow;

// "O0002200", currencies: the type adapter. Its menu opens the day-rate
// download window, a currency's card, a new currency, and deletes; every
// window goes through OpenCurrencyWindow.
class UI0002200 final : public ObjectUIAdapter {
 public:
  // The menu entry (and window type) of the day-rate download.
  static constexpr const char* kRatesEntry = "Valiutų kursų įrašymas";

  UI0002200();

  // The window of a currency: the rate download when `otype` (or, when it is
  // empty, the object's own OType) is kRatesEntry, else the currency's card.
  // Null when the object cannot be read. The window is built, not shown.
  std::shared_ptr<OrvelWindow> OpenCurrencyWindow(const std::string& oidr,
                                                  const std::string& otype);

 protected:
  std::shared_ptr<OrvelObjectUIO> NewInstance() override;
  std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                          const std::string& settings) override;
  OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                              const std::string& sKey, const std::string& settings) override;
  // Shows the card without asking whether one is open already; always True.
  bool DoAddToDeskTopOrvelObject(const std::string& oidr) override;

 private:
  OrvelMenuResult Shown(const std::shared_ptr<OrvelWindow>& window);
  OrvelMenuResult DeleteAsked(const std::string& oidr);
};

// One currency; also what the rest of the suite asks for rates, currency
// lists and amounts in words.
//
// Properties (each one GetCall "Get<name>"; a non-zero business Number and
// Text become the result's):
//   "CurrencyList"   the date in quotes: "" is '1990.01.01'; a text the
//                    platform reads as a date goes as it came; anything else
//                    shows a box and becomes '1990.01.01'.
//   "CurrencyByCode" the code as given; an empty set is Number 777 with
//                    "Klaidingas valiutos kodas <code> !", shown in a box.
//   any other name   PropertyPar unchanged ("CurrencyRates": "'from','to'").
// Methods (a name not listed does nothing and returns Number 0):
//   "CurrencyRates"  (code, date as a Date): the rate dialog, modally.
//   "SaveDayRate"    (code, date as a Date, numeric rate): ExecCall
//                    "SaveDayRate" with "'<code>','<date>',<rate>".
//   "SumByWords"     (amount, optional withCents): the amount in words.
// Argument faults of the first two come back silently as Number 777 and a
// text; the caller decides whether the user sees them.
class UIO0002200 final : public ObjectUIOAdapter {
 public:
  // The date the currency list falls back on.
  static constexpr const char* kDefaultListDate = "1990.01.01";
  // The number of this adapter's own argument faults.
  static constexpr int32_t kArgumentFault = 777;

  // A double as it travels in a parameter string: the platform's shortest
  // text of it, with "." for the decimal separator whatever the locale.
  static std::string RateToParam(double rate);

 protected:
  OrvelResult DoProperties(const std::string& propertyName,
                           std::string& propertyPar) override;
  OrvelResult DoMethods(const std::string& name, Variant::Array& params) override;

 private:
  OrvelResult CurrencyList(const std::string& propertyPar);
  OrvelResult CurrencyByCode(const std::string& code);
  OrvelResult ReadProperty(const std::string& propertyName, const std::string& param);
  OrvelResult CurrencyRates(Variant::Array& params);
  OrvelResult OpenRateDialog(const std::string& code, Date date);
  OrvelResult SaveDayRate(Variant::Array& params);
  OrvelResult SumByWordsMethod(Variant::Array& params);
};

}  // namespace orvel
