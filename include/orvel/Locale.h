#pragma once

#include <memory>
#include <string>

namespace orvel {

/// How numbers and dates are written for the user. Never read from the
/// machine: the host's Ui seam carries it, and tests choose it.
struct Locale {
  std::string decimalSeparator;
  std::string thousandsSeparator;
  std::string shortDateFormat;  ///< "yyyy-MM-dd"
  std::string timeFormat;       ///< "HH:mm:ss"

  /// "," for decimals, a non-breaking space (U+00A0) for thousands,
  /// yyyy-MM-dd dates, HH:mm:ss times.
  static Locale Lithuanian();
  /// "." for decimals, "," for thousands, yyyy-MM-dd dates: the shape of
  /// parameter strings, and the second locale tests run under.
  static Locale Invariant();
};

/// Whoever decides the locale in force (the Ui seam) implements this.
class LocaleSource {
 public:
  virtual ~LocaleSource() = default;
  virtual const Locale& CurrentLocale() const = 0;
};

/// The locale in force: the registered source's, or Lithuanian when none is.
const Locale& ActiveLocale();
/// Registers the source of the locale in force (null returns to Lithuanian)
/// and gives back the one it replaces. The module registers its own, which
/// reads the Ui the host attached.
std::shared_ptr<const LocaleSource> SetLocaleSource(std::shared_ptr<const LocaleSource> source);

}  // namespace orvel
