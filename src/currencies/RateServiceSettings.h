#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace orvel {

// Where the day rates come from. The address of the bank's rate service is
// http://webservices.lb.lt for the litas-era service and https://www.lb.lt for
// the current one, FxRates, unless the environment variable
// ORVEL_RATES_ADDRESS names another (a mirror or a loopback test service,
// which then serves both); a host or a test may also set it in the module's
// state (the demo does), which wins over both. The WSDL documents are read at
// <address>/ExchangeRates/ExchangeRates.asmx?wsdl and
// <address>/webservices/FxRates/FxRates.asmx?wsdl. Every HTTP exchange gives up after Timeout (20
// seconds unless set), so that a service that never answers cannot hold the
// window.
class RateServiceSettings {
 public:
  static constexpr const char* kDefaultAddress = "http://webservices.lb.lt";
  static constexpr const char* kAddressVariable = "ORVEL_RATES_ADDRESS";
  static constexpr const char* kWsdlPath = "/ExchangeRates/ExchangeRates.asmx?wsdl";
  static constexpr const char* kFxRatesAddress = "https://www.lb.lt";
  static constexpr const char* kFxRatesWsdlPath = "/webservices/FxRates/FxRates.asmx?wsdl";

  // The address without a trailing "/".
  static std::string Address();
  // nullopt goes back to the environment and the default.
  static void SetAddress(std::optional<std::string> address);
  static std::string WsdlUrl() { return Address() + kWsdlPath; }
  // The current service's address: the one set or named by the environment,
  // else kFxRatesAddress.
  static std::string FxRatesAddress();
  static std::string FxRatesWsdlUrl() { return FxRatesAddress() + kFxRatesWsdlPath; }

  static std::chrono::milliseconds Timeout();
  static void SetTimeout(std::optional<std::chrono::milliseconds> timeout);
};

}  // namespace orvel
