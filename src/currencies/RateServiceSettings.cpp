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

std::string RateServiceSettings::Address() {
  std::string address = kDefaultAddress;
  if (Held().address) {
    address = *Held().address;
  } else if (const char* variable = std::getenv(kAddressVariable); variable && *variable) {
    address = variable;
  }
  while (!address.empty() && address.back() == '/') address.pop_back();
  return address;
}

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
