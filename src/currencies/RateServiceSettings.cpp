#include "currencies/RateServiceSettings.h"

#include <cstdlib>

namespace orvel {

namespace {

constexpr std::chrono::milliseconds kDefaultTimeout{20000};

struct Overrides {
  std::optional<std::string> address;
  std::optional<std::chrono::milliseconds> timeout;
};

Overrides& Held() {
  static Overrides overrides;
  return overrides;
}

}  // namespace

namespace {
// The address set for the process, else the environment's, else `fallback`;
// without a trailing "/".
std::string AddressOr(const char* fallback) {
  std::string address = fallback;
  if (Held().address) {
    address = *Held().address;
  } else if (const char* variable = std::getenv(RateServiceSettings::kAddressVariable);
             variable && *variable) {
    address = variable;
  }
  while (!address.empty() && address.back() == '/') address.pop_back();
  return address;
}
}  // namespace

std::string RateServiceSettings::Address() { return AddressOr(kDefaultAddress); }

std::string RateServiceSettings::FxRatesAddress() { return AddressOr(kFxRatesAddress); }

void RateServiceSettings::SetAddress(std::optional<std::string> address) {
  Held().address = std::move(address);
}

std::chrono::milliseconds RateServiceSettings::Timeout() {
  return Held().timeout.value_or(kDefaultTimeout);
}

void RateServiceSettings::SetTimeout(std::optional<std::chrono::milliseconds> timeout) {
  Held().timeout = timeout;
}

}  // namespace orvel
