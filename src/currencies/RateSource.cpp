#include "currencies/RateSource.h"

#include <cstdio>

#include "common/Catalogue.h"
#include "currencies/RateServiceSettings.h"
#include "currencies/SoapClient.h"
#include "currencies/XmlNode.h"
#include "currencies/XmlNodeList.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelServices.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

// The first day the current service is the default.
const Date kCurrentServiceFrom = DateSerial(2015, 1, 1);

// The element children of `node` named `name` (prefix ignored), in order.
template <class F>
void ForEachNamed(const XmlNode& node, const std::string& name, F&& each) {
  XmlNodeList children = node.childNodes();
  for (int i = 0; i < children.Length(); ++i) {
    XmlNode child = children.Item(i);
    std::string childName = child.nodeName();
    auto colon = childName.find(':');
    if (colon != std::string::npos) childName.erase(0, colon + 1);
    if (childName == name) each(child);
  }
}

XmlNode FirstNamed(const XmlNode& node, const std::string& name) {
  XmlNode found;
  ForEachNamed(node, name, [&](const XmlNode& child) {
    if (found.IsNull()) found = child;
  });
  return found;
}

// The first element of a reply: the operation's result holds one container.
XmlNode Container(const XmlNodeList& reply, const std::string& name) {
  for (int i = 0; i < reply.Length(); ++i) {
    XmlNode node = reply.Item(i);
    std::string nodeName = node.nodeName();
    auto colon = nodeName.find(':');
    if (colon != std::string::npos) nodeName.erase(0, colon + 1);
    if (nodeName == name) return node;
  }
  return {};
}

std::string IsoDate(const Date& date) {
  int year = 0, month = 0, day = 0;
  SplitDate(date, year, month, day);
  char text[16];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
  return text;
}

// An operational error of the current service: FxRates > OprlErr > Err >
// (Prtry, Desc). Its description is what the user is shown.
void ThrowOnOperationalError(const XmlNode& container) {
  XmlNode error = FirstNamed(container, "OprlErr");
  if (error.IsNull()) return;
  XmlNode detail = FirstNamed(error, "Err");
  std::string description = FirstNamed(detail, "Desc").Text();
  std::string code = FirstNamed(detail, "Prtry").Text();
  if (description.empty()) description = "Paslaugos klaida " + code;
  throw RuntimeError(SoapClient::kServiceFailure, description);
}

}  // namespace

std::unique_ptr<RateSource> RateSource::ForDate(const Date& date) {
  std::string chosen;
  std::string type;
  if (auto environment = Services().Environment()) {
    chosen = environment->GetUserSetting(kSection, kSettingKey, "");
    type = environment->GetUserSetting(kSection, kTypeKey, "");
  }
  bool current = chosen == "FxRates" ||
                 (chosen != "ExchangeRates" && date.serial >= kCurrentServiceFrom.serial);
  if (!current) return std::make_unique<ExchangeRatesSource>();
  return std::make_unique<FxRatesSource>(type == "EU" ? "EU" : "LT");
}

RateSource::DayRates ExchangeRatesSource::Fetch(SoapClient& client, const Date& date) {
  client.Init(RateServiceSettings::WsdlUrl(), "", "", "");
  XmlNodeList ratesReply = client.Call("getExchangeRatesByDate", {CStr(Variant(date))});
  XmlNodeList currenciesReply = client.Call("getListOfCurrencies", {});

  DayRates day{std::make_shared<CodeDictionary>(), std::make_shared<CodeDictionary>()};
  XmlNodeList currencies = currenciesReply.Item(0).childNodes();
  for (int i = 0; i < currencies.Length(); ++i) {
    XmlNodeList row = currencies.Item(i).childNodes();
    if (row.Length() == 0) continue;
    std::string code = row.Item(0).Text();
    if (!day.names->Exists(code)) day.names->Add(code, Variant(row.Item(2).Text()));
  }
  XmlNodeList rates = ratesReply.Item(0).childNodes();
  for (int i = 0; i < rates.Length(); ++i) {
    XmlNodeList row = rates.Item(i).childNodes();
    if (row.Length() == 0) continue;
    std::string code = row.Item(1).Text();
    if (day.rates->Exists(code)) continue;
    Variant name = day.names->Exists(code) ? day.names->Item(code) : Variant(" ");
    day.rates->Add(code, Variant(Variant::Array{name, Variant(row.Item(2).Text()),
                                                Variant(row.Item(3).Text())}));
  }
  return day;
}

RateSource::DayRates FxRatesSource::Fetch(SoapClient& client, const Date& date) {
  client.Init(RateServiceSettings::FxRatesWsdlUrl(), "", "", "");
  XmlNode rates = Container(client.Call("getFxRates", {type_, IsoDate(date)}), "FxRates");
  ThrowOnOperationalError(rates);
  XmlNode table = Container(client.Call("getCurrencyList", {}), "CcyTbl");
  ThrowOnOperationalError(table);

  DayRates day{std::make_shared<CodeDictionary>(), std::make_shared<CodeDictionary>()};
  ForEachNamed(table, "CcyNtry", [&](const XmlNode& entry) {
    std::string code = FirstNamed(entry, "Ccy").Text();
    if (code.empty() || day.names->Exists(code)) return;
    std::string name;
    ForEachNamed(entry, "CcyNm", [&](const XmlNode& named) {
      if (name.empty() && named.Attribute("lang") == "LT") name = named.Text();
    });
    day.names->Add(code, Variant(name));
  });
  ForEachNamed(rates, "FxRate", [&](const XmlNode& row) {
    // The base currency's amount first, then the quoted currency's.
    std::vector<std::pair<std::string, std::string>> amounts;
    ForEachNamed(row, "CcyAmt", [&](const XmlNode& amount) {
      amounts.emplace_back(FirstNamed(amount, "Ccy").Text(), FirstNamed(amount, "Amt").Text());
    });
    if (amounts.size() != 2) return;
    const std::string& code = amounts[1].first;
    if (code.empty() || day.rates->Exists(code)) return;
    Variant name = day.names->Exists(code) ? day.names->Item(code) : Variant(" ");
    day.rates->Add(code, Variant(Variant::Array{name, Variant(amounts[1].second),
                                                Variant(amounts[0].second)}));
  });
  return day;
}

}  // namespace orvel
