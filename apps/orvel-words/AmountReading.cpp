#include "AmountReading.h"

#include <cstring>
#include <exception>
#include <string>

#include "host/Convert.h"
#include "orvel/Locale.h"
#include "host/Text.h"

namespace orvel::words {

std::optional<double> ReadAmount(std::string_view input) {
  std::string text = orvel::Trim(input);
  const bool hasPoint = text.find('.') != std::string::npos;
  const size_t comma = text.find(',');
  if (comma != std::string::npos) {
    if (hasPoint || text.find(',', comma + 1) != std::string::npos) return std::nullopt;
    text[comma] = '.';
  }
  // The invariant locale reads "." as the decimal point; no thousands
  // separator is left in the text.
  const orvel::Locale invariant = orvel::Locale::Invariant();
  const orvel::Variant value(text);
  if (text.empty() || !orvel::IsNumeric(value, invariant)) return std::nullopt;
  try {
    return orvel::CDbl(value, invariant);
  } catch (const std::exception&) {
    return std::nullopt;  // beyond a double
  }
}

size_t PlainAmount(std::string_view line, char (&rounded)[kPlainAmountSize]) {
  constexpr size_t kMaxTyped = 30;  // leading zeros included
  size_t i = line.empty() || line[0] != '-' ? 0 : 1;
  const size_t wholeStart = i;
  while (i < line.size() && line[i] >= '0' && line[i] <= '9') ++i;
  size_t wholeEnd = i;
  if (wholeEnd == wholeStart || wholeEnd - wholeStart > kMaxTyped) return 0;
  char cents[2] = {'0', '0'};
  if (i < line.size()) {
    if (line[i] != '.' && line[i] != ',') return 0;
    const size_t decimals = line.size() - i - 1;
    if (decimals < 1 || decimals > 2) return 0;
    for (size_t k = 0; k < decimals; ++k) {
      const char c = line[i + 1 + k];
      if (c < '0' || c > '9') return 0;
      cents[k] = c;
    }
  }
  size_t first = wholeStart;
  while (first + 1 < wholeEnd && line[first] == '0') ++first;
  const size_t whole = wholeEnd - first;
  if (whole > kPlainAmountSize - 4) return 0;
  std::memcpy(rounded, line.data() + first, whole);
  rounded[whole] = '.';
  rounded[whole + 1] = cents[0];
  rounded[whole + 2] = cents[1];
  return whole + 3;
}

}  // namespace orvel::words
