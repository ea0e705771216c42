#include "currencies/RateServiceSettings.h"

#include <cstdlib>

#include "common/ModuleState.h"

namespace orvel {

namespace {

constexpr std::chrono::milliseconds kDefaultTimeout{20000};

struct Overrides {
  std::optional<std::string> address;
  std::optional<std::chrono::milliseconds> timeout;
};

// What the process set, kept in the module's state; a change replaces it whole.
Overrides Held() {
  auto set = TheModuleState().Piece<Overrides>();
  return set ? *set : Overrides{};
}

template <class F>
void Change(F&& change) {
  Overrides overrides = Held();
  change(overrides);
  TheModuleState().SetPiece(std::make_shared<Overrides>(std::move(overrides)));
}

}  // namespace

namespace {
// The address set for the process, else the environment's, else `fallback`;
// without a trailing "/".
std::string AddressOr(const char* fallback) {
  std::string address = fallback;
  if (const auto set = Held().address) {
    address = *set;
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
  Change([&](Overrides& overrides) { overrides.address = std::move(address); });
}

std::chrono::milliseconds RateServiceSettings::Timeout() {
  return Held().timeout.value_or(kDefaultTimeout);
}

void RateServiceSettings::SetTimeout(std::optional<std::chrono::milliseconds> timeout) {
  Change([&](Overrides& overrides) { overrides.timeout = timeout; });
}

}  // namespace orvel
