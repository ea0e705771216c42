#include "orvel/Locale.h"

#include <utility>

namespace orvel {

Locale Locale::Lithuanian() { return Locale{",", "\u00A0", "yyyy-MM-dd", "HH:mm:ss"}; }

Locale Locale::Invariant() { return Locale{".", ",", "yyyy-MM-dd", "HH:mm:ss"}; }

namespace {
std::shared_ptr<const LocaleSource>& Source() {
  static std::shared_ptr<const LocaleSource> source;
  return source;
}
}  // namespace

const Locale& ActiveLocale() {
  static const Locale lithuanian = Locale::Lithuanian();
  const auto& source = Source();
  return source ? source->CurrentLocale() : lithuanian;
}

std::shared_ptr<const LocaleSource> SetLocaleSource(std::shared_ptr<const LocaleSource> source) {
  return std::exchange(Source(), std::move(source));
}

}  // namespace orvel
