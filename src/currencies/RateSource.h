#pragma once

#include <memory>
#include <string>

#include "currencies/CodeDictionary.h"
#include "orvel/Variant.h"

namespace orvel {

class SoapClient;

// Where the rate window gets the bank's day rates. A source asks its service
// through a SOAP client and hands back, in the service's order and each code
// once:
//   names: code -> the currency's name in the service's list
//   rates: code -> Array{name, quantity text, rate text}
// where rate / quantity is the price of one unit of the currency in the base
// currency. Texts keep "." as the decimal point, as the services write them.
//
// Fetch initialises the client on the source's own WSDL and throws
// RuntimeError (SoapClient::kServiceFailure) with the reason when the service
// cannot be read or answers with an error of its own; the window shows that
// text in its "unreachable" box. An answer without rows is no failure: the
// dictionaries are then empty.
class RateSource {
 public:
  struct DayRates {
    std::shared_ptr<CodeDictionary> names;
    std::shared_ptr<CodeDictionary> rates;
  };

  virtual ~RateSource() = default;
  virtual DayRates Fetch(SoapClient& client, const Date& date) = 0;

  // The source a user gets for `date`: the per-user setting kSettingKey under
  // the currencies' section names it ("ExchangeRates" the litas-era service,
  // "FxRates" the current one); without a setting, or with one this version
  // does not know, dates from 2015 on go to the current service and earlier
  // ones to the old. The current service's rate type is the setting
  // kTypeKey: "EU" the rates by date of publication, anything else "LT", the
  // rates for accounting.
  static std::unique_ptr<RateSource> ForDate(const Date& date);

  static constexpr const char* kSection = "O0002200";
  static constexpr const char* kSettingKey = "RateSource";
  static constexpr const char* kTypeKey = "FxRatesType";
};

// The litas-era service (getExchangeRatesByDate with the date as "yyyy.mm.dd",
// getListOfCurrencies). Its rate is in litas for `quantity` units; the name is
// the list's third cell, as the window has always shown it.
class ExchangeRatesSource final : public RateSource {
 public:
  DayRates Fetch(SoapClient& client, const Date& date) override;
};

// The current service, FxRates: getFxRates(tp, dt) with dt "YYYY-MM-DD", and
// getCurrencyList for the Lithuanian names. A rate row is a pair of amounts,
// the base currency first ("EUR 1", "USD 1.0825": one euro buys 1.0825
// dollars), so the row is handed over inverted: quantity 1.0825, rate 1.
class FxRatesSource final : public RateSource {
 public:
  explicit FxRatesSource(std::string type) : type_(std::move(type)) {}
  const std::string& Type() const { return type_; }
  DayRates Fetch(SoapClient& client, const Date& date) override;

 private:
  std::string type_;
};

}  // namespace orvel
