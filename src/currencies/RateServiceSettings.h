#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace orvel {

// Where the day rates come from. The address of the bank's rate service is
// http://webservices.lb.lt unless the environment variable
// ORVEL_RATES_ADDRESS names another (a mirror, a loopback test service); a
// program may also set it for the process (tests, the demo), which wins over
// both. The WSDL document is read at <address>/ExchangeRates/
// ExchangeRates.asmx?wsdl. Every HTTP exchange gives up after Timeout (20
// seconds unless set), so that a service that never answers cannot hold the
// window.
class RateServiceSettings {
 public:
  static constexpr const char* kDefaultAddress = "http://webservices.lb.lt";
  static constexpr const char* kAddressVariable = "ORVEL_RATES_ADDRESS";
  static constexpr const char* kWsdlPath = "/ExchangeRates/ExchangeRates.asmx?wsdl";

  // The address without a trailing "/".
  static std::string Address();
  // nullopt goes back to the environment and the default.
  static void SetAddress(std::optional<std::string> address);
  static std::string WsdlUrl() { return Address() + kWsdlPath; }

  static std::chrono::milliseconds Timeout();
  static void SetTimeout(std::optional<std::chrono::milliseconds> timeout);
};

}  // namespace orvel
