#include "host/Convert.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

// ---------------------------------------------------------------------------
// Errors

[[noreturn]] void NullError(const char* function) {
  throw RuntimeError(RuntimeError::kInvalidUseOfNull,
                     std::string("Netinkamas Null naudojimas: ") + function + " negali paversti Null");
}

[[noreturn]] void Mismatch(const char* function, const Variant& v) {
  throw RuntimeError(RuntimeError::kTypeMismatch,
                     std::string("Netinkamas tipas: ") + function + " negali paversti " + Describe(v));
}

[[noreturn]] void Overflow(const std::string& text) {
  throw RuntimeError(RuntimeError::kOverflow, "Perpildymas: " + text);
}

[[noreturn]] void InvalidCall(const std::string& text) {
  throw RuntimeError(RuntimeError::kInvalidCall, "Neteisingas procedūros kvietimas arba argumentas: " + text);
}

std::string Shown(double x) {
  char buf[32];
  const auto r = std::to_chars(buf, buf + sizeof buf, x);
  return std::string(buf, r.ptr);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || c == '\t'; }
char AsciiLower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 0x20) : c; }

// ---------------------------------------------------------------------------
// Reading numbers

enum class ReadStatus { Ok, NotNumber, Overflow };

struct ReadResult {
  ReadStatus status = ReadStatus::NotNumber;
  double value = 0.0;
};

// Turns plain ASCII number text ("123.45", ".5", "7.") with a separate decimal
// exponent into a double without touching the C library's locale. Text too
// small for a double reads as 0, too large is an overflow.
ReadResult DigitsToDouble(std::string mantissa, int64_t exponent, bool negative) {
  if (mantissa.empty() || mantissa == ".") return {};
  if (mantissa.front() == '.') mantissa.insert(mantissa.begin(), '0');
  if (mantissa.back() == '.') mantissa.pop_back();
  std::string text = std::move(mantissa);
  if (exponent != 0) text += 'e' + std::to_string(exponent);
  double value = 0.0;
  const auto r = std::from_chars(text.data(), text.data() + text.size(), value);
  if (r.ec == std::errc::result_out_of_range) {
    // Tell a vanishing value from a huge one by where its first significant
    // digit stands.
    const size_t point = std::min(text.find('.'), text.find('e'));
    const size_t first = text.find_first_of("123456789");
    if (first == std::string::npos || first >= text.find('e')) return {ReadStatus::Ok, 0.0};
    const int64_t magnitude = (point == std::string::npos ? static_cast<int64_t>(text.size())
                                                          : static_cast<int64_t>(point)) -
                              static_cast<int64_t>(first) + exponent;
    if (magnitude <= 0) return {ReadStatus::Ok, 0.0};
    return {ReadStatus::Overflow, 0.0};
  }
  if (r.ec != std::errc() || r.ptr != text.data() + text.size()) return {};
  if (value == 0.0) negative = false;
  return {ReadStatus::Ok, negative ? -value : value};
}

// Reads [eEdD][+-]digits at `i`; leaves `i` untouched when there is no
// complete exponent there. Huge exponents are clamped: they overflow or
// vanish anyway.
bool ReadExponent(std::string_view s, size_t& i, int64_t& exponent) {
  if (i >= s.size()) return false;
  const char e = AsciiLower(s[i]);
  if (e != 'e' && e != 'd') return false;
  size_t j = i + 1;
  bool negative = false;
  if (j < s.size() && (s[j] == '+' || s[j] == '-')) negative = s[j++] == '-';
  if (j >= s.size() || !IsDigit(s[j])) return false;
  int64_t value = 0;
  for (; j < s.size() && IsDigit(s[j]); ++j) {
    value = std::min<int64_t>(value * 10 + (s[j] - '0'), 100000);
  }
  exponent = negative ? -value : value;
  i = j;
  return true;
}

// Number text under the locale: blanks around, a leading or a trailing sign
// or parentheses for negative, the locale's decimal separator, its thousands
// separator anywhere after the first digit of the whole part, an optional
// exponent. All of the text must be used.
ReadResult ReadLocaleNumber(std::string_view s, const Locale& locale) {
  const std::string_view decimal = locale.decimalSeparator;
  const std::string_view thousands = locale.thousandsSeparator;
  size_t i = 0;
  auto skipBlanks = [&] {
    while (i < s.size() && IsBlank(s[i])) ++i;
  };
  skipBlanks();
  bool negative = false;
  bool parenthesis = false;
  bool leadingSign = false;
  if (i < s.size() && s[i] == '(') {
    parenthesis = negative = true;
    ++i;
    skipBlanks();
  } else if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
    leadingSign = true;
    negative = s[i] == '-';
    ++i;
    skipBlanks();
  }
  std::string mantissa;
  bool digit = false;
  bool point = false;
  while (i < s.size()) {
    if (IsDigit(s[i])) {
      mantissa += s[i++];
      digit = true;
    } else if (!point && !decimal.empty() && s.substr(i).starts_with(decimal)) {
      mantissa += '.';
      point = true;
      i += decimal.size();
    } else if (!point && digit && !thousands.empty() && s.substr(i).starts_with(thousands)) {
      i += thousands.size();
    } else {
      break;
    }
  }
  if (!digit) return {};
  int64_t exponent = 0;
  ReadExponent(s, i, exponent);
  skipBlanks();
  if (parenthesis) {
    if (i >= s.size() || s[i] != ')') return {};
    ++i;
    skipBlanks();
  } else if (!leadingSign && i < s.size() && (s[i] == '+' || s[i] == '-')) {
    negative = s[i] == '-';
    ++i;
    skipBlanks();
  }
  if (i != s.size()) return {};
  return DigitsToDouble(std::move(mantissa), exponent, negative);
}

// The number in a Variant for CDbl, CInt and CLng.
double NumberOf(const Variant& v, const Locale& locale, const char* function) {
  switch (v.Type()) {
    case VarType::Empty:
      return 0.0;
    case VarType::Null:
      NullError(function);
    case VarType::Boolean:
      return v.Boolean() ? -1.0 : 0.0;
    case VarType::Integer:
      return v.Integer();
    case VarType::Double:
      return v.Double();
    case VarType::Date:
      return v.DateValue().serial;
    case VarType::String: {
      const ReadResult r = ReadLocaleNumber(v.String(), locale);
      if (r.status == ReadStatus::Overflow) {
        Overflow(std::string(function) + " of '" + v.String() + "'");
      }
      if (r.status != ReadStatus::Ok) Mismatch(function, v);
      return r.value;
    }
    case VarType::Object:
    case VarType::Array:
      break;
  }
  Mismatch(function, v);
}

// Nearest whole number, an exact half to the even one.
double RoundHalfEven(double x) {
  const double floor = std::floor(x);
  const double diff = x - floor;
  if (diff > 0.5) return floor + 1.0;
  if (diff < 0.5) return floor;
  return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1.0;
}

template <class Int>
Int ToWhole(const Variant& v, const Locale& locale, const char* function) {
  if (v.Type() == VarType::Integer) {
    const int32_t i = v.Integer();
    if (i < std::numeric_limits<Int>::min() || i > std::numeric_limits<Int>::max()) {
      Overflow(std::string(function) + " of " + std::to_string(i));
    }
    return static_cast<Int>(i);
  }
  const double x = NumberOf(v, locale, function);
  const double r = RoundHalfEven(x);
  // The range is checked on the rounded value: 32767.49 fits an Integer,
  // 32767.5 rounds to 32768 and does not. NaN fails both comparisons.
  if (!(r >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        r <= static_cast<double>(std::numeric_limits<Int>::max()))) {
    Overflow(std::string(function) + " of " + Shown(x));
  }
  return static_cast<Int>(r);
}

// ---------------------------------------------------------------------------
// Writing numbers

[[noreturn]] void NotFinite(double x) { Overflow(Shown(x) + " is not a finite number"); }

// A finite double as the decimal text of its 15 significant digits: the
// whole part ("0" when there is none) and the fraction without trailing zeros.
struct DecimalDigits {
  bool negative = false;
  std::string whole = "0";
  std::string fraction;
};

// The 15 significant digits of |x| (trailing zeros removed) and the decimal
// exponent of the first of them; x must be finite and non-zero.
void Significant15(double x, std::string& digits, int& exponent) {
  char buf[64];
  const auto r =
      std::to_chars(buf, buf + sizeof buf, std::fabs(x), std::chars_format::scientific, 14);
  const std::string_view text(buf, r.ptr - buf);  // d.ddddddddddddddde[+-]XX
  const size_t e = text.find('e');
  digits.clear();
  for (size_t k = 0; k < e; ++k) {
    if (text[k] != '.') digits += text[k];
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::from_chars(text.data() + e + (text[e + 1] == '+' ? 2 : 1), text.data() + text.size(),
                  exponent);
}

DecimalDigits ToDecimal15(double x) {
  if (!std::isfinite(x)) NotFinite(x);
  DecimalDigits d;
  if (x == 0.0) return d;
  d.negative = x < 0.0;
  std::string digits;
  int exponent = 0;
  Significant15(x, digits, exponent);
  if (exponent >= 0) {
    const size_t wholeSize = static_cast<size_t>(exponent) + 1;
    if (digits.size() <= wholeSize) {
      d.whole = digits + std::string(wholeSize - digits.size(), '0');
    } else {
      d.whole = digits.substr(0, wholeSize);
      d.fraction = digits.substr(wholeSize);
    }
  } else {
    d.whole = "0";
    d.fraction = std::string(static_cast<size_t>(-exponent - 1), '0') + digits;
  }
  return d;
}

enum class Half { AwayFromZero, ToEven };

// Rounds the decimal digits to `decimals` places; the fraction comes back
// exactly `decimals` long.
void RoundDigits(DecimalDigits& d, int decimals, Half half) {
  const size_t keep = static_cast<size_t>(decimals);
  if (d.fraction.size() <= keep) {
    d.fraction.append(keep - d.fraction.size(), '0');
    return;
  }
  const char next = d.fraction[keep];
  bool up = next > '5';
  if (next == '5') {
    const bool beyondHalf = d.fraction.find_first_not_of('0', keep + 1) != std::string::npos;
    if (half == Half::AwayFromZero || beyondHalf) {
      up = true;
    } else {
      const char last = keep > 0 ? d.fraction[keep - 1] : d.whole.back();
      up = (last - '0') % 2 == 1;
    }
  }
  d.fraction.resize(keep);
  if (up) {
    std::string all = d.whole + d.fraction;
    size_t k = all.size();
    while (k > 0 && all[k - 1] == '9') all[--k] = '0';
    if (k == 0) {
      all.insert(all.begin(), '1');
    } else {
      ++all[k - 1];
    }
    d.whole = all.substr(0, all.size() - keep);
    d.fraction = all.substr(all.size() - keep);
  }
  if (d.whole.find_first_not_of('0') == std::string::npos &&
      d.fraction.find_first_not_of('0') == std::string::npos) {
    d.negative = false;  // nothing left to be negative: "0.00", never "-0.00"
  }
}

void CheckDecimals(int decimals, const char* function) {
  if (decimals < 0 || decimals > 99) {
    InvalidCall(std::string(function) + " decimals " + std::to_string(decimals) +
                " must be from 0 to 99");
  }
}

std::string Grouped(const std::string& whole, std::string_view separator) {
  std::string out;
  for (size_t k = 0; k < whole.size(); ++k) {
    if (k > 0 && (whole.size() - k) % 3 == 0) out.append(separator);
    out += whole[k];
  }
  return out;
}

// printf "%.15G": fixed notation for decimal exponents -5 to 14, otherwise
// "d.dddE+XX"; trailing zeros removed; the given decimal separator.
std::string General15(double x, std::string_view decimal) {
  if (!std::isfinite(x)) NotFinite(x);
  if (x == 0.0) return "0";
  std::string digits;
  int exponent = 0;
  Significant15(x, digits, exponent);
  std::string out = x < 0.0 ? "-" : "";
  if (exponent >= -4 && exponent < 15) {
    const DecimalDigits d = ToDecimal15(std::fabs(x));
    out += d.whole;
    if (!d.fraction.empty()) {
      out.append(decimal);
      out += d.fraction;
    }
    return out;
  }
  out += digits[0];
  if (digits.size() > 1) {
    out.append(decimal);
    out.append(digits, 1, std::string::npos);
  }
  out += exponent < 0 ? "E-" : "E+";
  const int magnitude = exponent < 0 ? -exponent : exponent;
  if (magnitude < 10) out += '0';
  out += std::to_string(magnitude);
  return out;
}

// ---------------------------------------------------------------------------
// Dates

constexpr int64_t kMinSerialDay = -657434;  // 100-01-01
constexpr int64_t kMaxSerialDay = 2958465;  // 9999-12-31
constexpr int64_t kSerialEpoch = 25569;     // days from 1899-12-30 to 1970-01-01

// Days since 1970-01-01 of a proleptic Gregorian date (month 1..12).
int64_t DaysFromCivil(int64_t y, int m, int d) {
  y -= m <= 2;
  const int64_t era = (y >= 0 ? y : y - 399) / 400;
  const int64_t yoe = y - era * 400;
  const int64_t doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

void CivilFromDays(int64_t z, int& year, int& month, int& day) {
  z += 719468;
  const int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const int64_t doe = z - era * 146097;
  const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const int64_t mp = (5 * doy + 2) / 153;
  day = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  month = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  year = static_cast<int>(yoe + era * 400 + (month <= 2));
}

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[month - 1];
}

// A date split into the calendar day and the time of day. The runtime keeps
// the time as the fraction's magnitude even before 1899-12-30: -1.25 is
// 1899-12-29 06:00, so the day is the serial truncated toward zero.
struct DateParts {
  int64_t day = 0;  // serial day number
  int year = 1899, month = 12, dayOfMonth = 30;
  int hour = 0, minute = 0, second = 0;
  bool hasTime = false;
};

DateParts SplitSerial(double serial) {
  if (!(serial > static_cast<double>(kMinSerialDay - 1) &&
        serial < static_cast<double>(kMaxSerialDay + 1))) {
    Overflow("date serial " + Shown(serial) + " is outside 100-01-01 to 9999-12-31");
  }
  DateParts p;
  p.day = static_cast<int64_t>(std::trunc(serial));
  int64_t seconds = std::llround(std::fabs(serial - static_cast<double>(p.day)) * 86400.0);
  if (seconds >= 86400) {
    seconds -= 86400;
    ++p.day;
  }
  p.hasTime = seconds != 0;
  p.hour = static_cast<int>(seconds / 3600);
  p.minute = static_cast<int>(seconds / 60 % 60);
  p.second = static_cast<int>(seconds % 60);
  CivilFromDays(p.day - kSerialEpoch, p.year, p.month, p.dayOfMonth);
  return p;
}

double SerialOf(int64_t day, int seconds) {
  const double time = seconds / 86400.0;
  return day >= 0 ? static_cast<double>(day) + time : static_cast<double>(day) - time;
}

void AppendNumber(std::string& out, int64_t value, int width) {
  const std::string digits = std::to_string(value < 0 ? -value : value);
  if (value < 0) out += '-';
  if (static_cast<int>(digits.size()) < width) out.append(width - digits.size(), '0');
  out += digits;
}

// A locale pattern (yyyy yy MM M dd d HH H mm m ss s; anything else literal).
std::string FormatPattern(const DateParts& p, std::string_view pattern) {
  std::string out;
  for (size_t i = 0; i < pattern.size();) {
    const char c = pattern[i];
    size_t run = 1;
    while (i + run < pattern.size() && pattern[i + run] == c) ++run;
    const int width = run >= 2 ? 2 : 1;
    switch (c) {
      case 'y':
        if (run >= 3) {
          AppendNumber(out, p.year, 4);
        } else {
          AppendNumber(out, p.year % 100, 2);
        }
        break;
      case 'M':
        AppendNumber(out, p.month, width);
        break;
      case 'd':
        AppendNumber(out, p.dayOfMonth, width);
        break;
      case 'H':
        AppendNumber(out, p.hour, width);
        break;
      case 'm':
        AppendNumber(out, p.minute, width);
        break;
      case 's':
        AppendNumber(out, p.second, width);
        break;
      default:
        out.append(run, c);
        break;
    }
    i += run;
  }
  return out;
}

// Reads 1..maxDigits digits (exactly `exact` when non-zero).
bool ReadField(std::string_view s, size_t& i, int exact, int maxDigits, int& value) {
  int n = 0;
  value = 0;
  while (i < s.size() && IsDigit(s[i]) && n < maxDigits) {
    value = value * 10 + (s[i++] - '0');
    ++n;
  }
  return n > 0 && (exact == 0 || n == exact);
}

// Reads a date by a pattern of yyyy/yy, MM/M, dd/d and literal characters.
bool ReadDateByPattern(std::string_view s, size_t& i, std::string_view pattern, int& year,
                       int& month, int& day) {
  year = month = day = -1;
  for (size_t k = 0; k < pattern.size();) {
    const char c = pattern[k];
    size_t run = 1;
    while (k + run < pattern.size() && pattern[k + run] == c) ++run;
    k += run;
    if (c == 'y') {
      if (run >= 3) {
        if (!ReadField(s, i, 4, 4, year)) return false;
      } else {
        // Two-digit years read into 1930..2029, as the runtime's window.
        if (!ReadField(s, i, 2, 2, year)) return false;
        year += year < 30 ? 2000 : 1900;
      }
    } else if (c == 'M') {
      if (!ReadField(s, i, 0, 2, month)) return false;
    } else if (c == 'd') {
      if (!ReadField(s, i, 0, 2, day)) return false;
    } else {
      for (size_t r = 0; r < run; ++r) {
        if (i >= s.size() || s[i] != c) return false;
        ++i;
      }
    }
  }
  return year >= 0 && month >= 0 && day >= 0;
}

// H:mm or H:mm:ss.
bool ReadTime(std::string_view s, size_t& i, int& seconds) {
  int h = 0, m = 0, sec = 0;
  if (!ReadField(s, i, 0, 2, h) || i >= s.size() || s[i] != ':') return false;
  ++i;
  if (!ReadField(s, i, 2, 2, m)) return false;
  if (i < s.size() && s[i] == ':') {
    ++i;
    if (!ReadField(s, i, 2, 2, sec)) return false;
  }
  if (h > 23 || m > 59 || sec > 59) return false;
  seconds = h * 3600 + m * 60 + sec;
  return true;
}

bool ValidDate(int year, int month, int day) {
  return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month);
}

// The separator between the parts of the locale's short date ("-" in
// "yyyy-MM-dd"); a "/" in a Format mask prints as it.
std::string DateSeparator(const Locale& locale) {
  for (const char c : locale.shortDateFormat) {
    if (c != 'y' && c != 'M' && c != 'd') return std::string(1, c);
  }
  return "/";
}

// ---------------------------------------------------------------------------
// Format masks

// Splits a mask at ";" outside quotes and escapes.
std::vector<std::string_view> MaskSections(std::string_view mask) {
  std::vector<std::string_view> sections;
  size_t start = 0;
  bool quoted = false;
  for (size_t i = 0; i < mask.size(); ++i) {
    if (mask[i] == '"') {
      quoted = !quoted;
    } else if (!quoted && mask[i] == '\\') {
      ++i;
    } else if (!quoted && mask[i] == ';') {
      sections.push_back(mask.substr(start, i - start));
      start = i + 1;
    }
  }
  sections.push_back(mask.substr(start));
  return sections;
}

// Calls `literal(text)` for quoted and escaped text and `token(c)` for every
// other mask character.
template <class Literal, class Token>
void WalkMask(std::string_view mask, Literal literal, Token token) {
  for (size_t i = 0; i < mask.size(); ++i) {
    const char c = mask[i];
    if (c == '"') {
      const size_t end = mask.find('"', i + 1);
      const size_t stop = end == std::string_view::npos ? mask.size() : end;
      literal(mask.substr(i + 1, stop - i - 1));
      i = stop;
    } else if (c == '\\') {
      if (i + 1 < mask.size()) literal(mask.substr(++i, 1));
    } else {
      token(c);
    }
  }
}

bool HasDigitPlaceholder(std::string_view mask) {
  bool found = false;
  WalkMask(
      mask, [](std::string_view) {}, [&](char c) { found = found || c == '0' || c == '#'; });
  return found;
}

bool HasDatePart(std::string_view mask) {
  bool found = false;
  WalkMask(
      mask, [](std::string_view) {},
      [&](char c) {
        const char l = AsciiLower(c);
        found = found || l == 'y' || l == 'm' || l == 'd' || l == 'h' || l == 'n' || l == 's';
      });
  return found;
}

// A number through one mask section. `withSign`: write "-" for a negative
// value (the second section of a mask carries its own form instead).
std::string FormatNumberMask(double x, std::string_view mask, bool withSign, const Locale& locale) {
  // First pass: the shape of the mask.
  int wholePlaceholders = 0;
  int firstWholeZero = -1;
  int fractionZeros = 0;
  int fractionPlaceholders = 0;
  bool point = false;
  bool grouping = false;
  bool percent = false;
  WalkMask(
      mask, [](std::string_view) {},
      [&](char c) {
        if (c == '0' || c == '#') {
          if (point) {
            ++fractionPlaceholders;
            if (c == '0') ++fractionZeros;
          } else {
            if (c == '0' && firstWholeZero < 0) firstWholeZero = wholePlaceholders;
            ++wholePlaceholders;
          }
        } else if (c == '.') {
          point = true;
        } else if (c == ',' && !point) {
          grouping = true;
        } else if (c == '%') {
          percent = true;
        }
      });

  DecimalDigits d = ToDecimal15(percent ? x * 100.0 : x);
  RoundDigits(d, fractionPlaceholders, Half::AwayFromZero);
  // Optional ("#") places drop their trailing zeros.
  while (static_cast<int>(d.fraction.size()) > fractionZeros && d.fraction.back() == '0') {
    d.fraction.pop_back();
  }
  std::string whole = d.whole == "0" ? std::string() : d.whole;
  const int required = firstWholeZero < 0 ? 0 : wholePlaceholders - firstWholeZero;
  if (static_cast<int>(whole.size()) < required) {
    whole.insert(0, static_cast<size_t>(required) - whole.size(), '0');
  }
  if (grouping) whole = Grouped(whole, locale.thousandsSeparator);

  // Second pass: digits into the placeholders, literals as they stand. The
  // whole part's digits beyond the placeholders all go to the first one;
  // with grouping the whole part is written there at once.
  std::string out = withSign && d.negative ? "-" : "";
  int wholeIndex = 0;
  size_t wholeNext = 0;  // next digit of `whole` to write
  size_t fractionNext = 0;
  bool pointWritten = false;
  WalkMask(
      mask, [&](std::string_view text) { out.append(text); },
      [&](char c) {
        if ((c == '0' || c == '#') && !pointWritten) {
          const size_t after = static_cast<size_t>(wholePlaceholders - wholeIndex - 1);
          ++wholeIndex;
          if (grouping) {
            if (wholeIndex == 1) out += whole;
            return;
          }
          // This placeholder writes every digit that the placeholders after it
          // cannot take.
          while (wholeNext < whole.size() && whole.size() - wholeNext > after) {
            out += whole[wholeNext++];
          }
        } else if (c == '0' || c == '#') {
          if (fractionNext < d.fraction.size()) out += d.fraction[fractionNext++];
        } else if (c == '.' && !pointWritten) {
          if (wholePlaceholders == 0) out += whole;
          out.append(locale.decimalSeparator);
          pointWritten = true;
        } else if (c == ',' && !pointWritten) {
          // grouping, written with the digits
        } else {
          out += c;
        }
      });
  return out;
}

// A date through a mask: y (day of year), yy, yyyy, m, mm (month, or minutes
// straight after an hour), d, dd, h, hh, n, nn, s, ss, "/" as the locale's
// date separator; letters in any case; other characters literal.
std::string FormatDateMask(const DateParts& p, std::string_view mask, const Locale& locale) {
  std::string out;
  bool afterHour = false;
  for (size_t i = 0; i < mask.size();) {
    const char c = mask[i];
    if (c == '"') {
      const size_t end = std::min(mask.find('"', i + 1), mask.size());
      out.append(mask.substr(i + 1, end - i - 1));
      i = end + 1;
      continue;
    }
    if (c == '\\') {
      if (i + 1 < mask.size()) out += mask[i + 1];
      i += 2;
      continue;
    }
    const char l = AsciiLower(c);
    size_t run = 1;
    while (i + run < mask.size() && AsciiLower(mask[i + run]) == l) ++run;
    const int width = run >= 2 ? 2 : 1;
    switch (l) {
      case 'y':
        if (run == 1) {
          AppendNumber(out, p.day - DaysFromCivil(p.year, 1, 1) - kSerialEpoch + 1, 1);
        } else if (run == 2) {
          AppendNumber(out, p.year % 100, 2);
        } else {
          AppendNumber(out, p.year, 4);
        }
        break;
      case 'm':
        AppendNumber(out, afterHour ? p.minute : p.month, width);
        break;
      case 'd':
        AppendNumber(out, p.dayOfMonth, width);
        break;
      case 'h':
        AppendNumber(out, p.hour, width);
        break;
      case 'n':
        AppendNumber(out, p.minute, width);
        break;
      case 's':
        AppendNumber(out, p.second, width);
        break;
      case '/':
        for (size_t r = 0; r < run; ++r) out += DateSeparator(locale);
        break;
      default:
        out.append(mask.substr(i, run));
        break;
    }
    if (l == 'h') {
      afterHour = true;
    } else if (l == 'm' || l == 'y' || l == 'd' || l == 'n' || l == 's') {
      afterHour = false;
    }
    i += run;
  }
  return out;
}

std::string FormatDouble(double x, std::string_view mask, const Locale& locale) {
  if (mask.empty()) return General15(x, locale.decimalSeparator);
  const auto sections = MaskSections(mask);
  std::string_view section = sections[0];
  bool withSign = true;
  if (x < 0.0 && sections.size() >= 2 && !sections[1].empty()) {
    section = sections[1];
    withSign = false;
  } else if (x == 0.0 && sections.size() >= 3 && !sections[2].empty()) {
    section = sections[2];
  }
  if (!HasDigitPlaceholder(section) && HasDatePart(section)) {
    return FormatDateMask(SplitSerial(x), section, locale);
  }
  return FormatNumberMask(x, section, withSign, locale);
}

// The runtime's named formats the module may pass instead of a mask.
bool NamedFormat(std::string_view name, const Locale& locale, std::string& mask) {
  struct Named {
    const char* name;
    const char* mask;
  };
  static constexpr Named kNamed[] = {
      {"general number", ""}, {"fixed", "0.00"},       {"standard", "#,##0.00"},
      {"percent", "0.00%"},   {"short time", "hh:nn"}, {"long time", "hh:nn:ss"},
  };
  for (const Named& n : kNamed) {
    std::string_view candidate = n.name;
    if (candidate.size() != name.size()) continue;
    bool same = true;
    for (size_t k = 0; k < name.size() && same; ++k) same = AsciiLower(name[k]) == candidate[k];
    if (same) {
      mask = n.mask;
      return true;
    }
  }
  if (name.size() == 10) {
    std::string lower;
    for (const char c : name) lower += AsciiLower(c);
    if (lower == "short date") {
      // The locale's pattern read as a mask: "yyyy-MM-dd" -> "yyyy-mm-dd".
      for (const char c : locale.shortDateFormat) mask += AsciiLower(c);
      return true;
    }
  }
  return false;
}

}  // namespace

// ---------------------------------------------------------------------------
// Conversions

int16_t CInt(const Variant& v, const Locale& locale) { return ToWhole<int16_t>(v, locale, "CInt"); }

int32_t CLng(const Variant& v, const Locale& locale) { return ToWhole<int32_t>(v, locale, "CLng"); }

double CDbl(const Variant& v, const Locale& locale) { return NumberOf(v, locale, "CDbl"); }

bool CBool(const Variant& v, const Locale& locale) {
  switch (v.Type()) {
    case VarType::Empty:
      return false;
    case VarType::Null:
      NullError("CBool");
    case VarType::Boolean:
      return v.Boolean();
    case VarType::Integer:
      return v.Integer() != 0;
    case VarType::Double:
      return v.Double() != 0.0;
    case VarType::Date:
      return v.DateValue().serial != 0.0;
    case VarType::String: {
      std::string_view s = v.String();
      while (!s.empty() && IsBlank(s.front())) s.remove_prefix(1);
      while (!s.empty() && IsBlank(s.back())) s.remove_suffix(1);
      std::string lower;
      for (const char c : s) lower += AsciiLower(c);
      if (lower == "true") return true;
      if (lower == "false") return false;
      const ReadResult r = ReadLocaleNumber(s, locale);
      if (r.status == ReadStatus::Ok) return r.value != 0.0;
      // An overflowing number is still not zero.
      if (r.status == ReadStatus::Overflow) return true;
      Mismatch("CBool", v);
    }
    case VarType::Object:
    case VarType::Array:
      break;
  }
  Mismatch("CBool", v);
}

std::string CStr(const Variant& v, const Locale& locale) {
  switch (v.Type()) {
    case VarType::Empty:
      return std::string();
    case VarType::Null:
      NullError("CStr");
    case VarType::Boolean:
      return v.Boolean() ? "True" : "False";
    case VarType::Integer:
      return std::to_string(v.Integer());
    case VarType::Double:
      return General15(v.Double(), locale.decimalSeparator);
    case VarType::Date: {
      const DateParts p = SplitSerial(v.DateValue().serial);
      if (p.day == 0) return FormatPattern(p, locale.timeFormat);
      std::string out = FormatPattern(p, locale.shortDateFormat);
      if (p.hasTime) out += ' ' + FormatPattern(p, locale.timeFormat);
      return out;
    }
    case VarType::String:
      return v.String();
    case VarType::Object:
    case VarType::Array:
      break;
  }
  Mismatch("CStr", v);
}

std::string ConcatText(const Variant& v, const Locale& locale) {
  return v.IsNull() ? std::string() : CStr(v, locale);
}

Date CDate(const Variant& v, const Locale& locale) {
  switch (v.Type()) {
    case VarType::Empty:
      return Date{};
    case VarType::Null:
      NullError("CDate");
    case VarType::Date:
      return v.DateValue();
    case VarType::Boolean:
    case VarType::Integer:
    case VarType::Double: {
      const double serial = NumberOf(v, locale, "CDate");
      SplitSerial(serial);  // range check
      return Date{serial};
    }
    case VarType::String: {
      const auto d = ParseDate(v.String(), locale);
      if (!d) Mismatch("CDate", v);
      return *d;
    }
    case VarType::Object:
    case VarType::Array:
      break;
  }
  Mismatch("CDate", v);
}

double Val(std::string_view text) {
  // Blanks, tabs and line feeds go wherever they stand; any other character
  // that is not part of a number, "," and "$" among them, ends the number.
  std::string s;
  s.reserve(text.size());
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\n') s += c;
  }
  size_t i = 0;
  if (s.size() >= 2 && s[0] == '&' && (AsciiLower(s[1]) == 'h' || AsciiLower(s[1]) == 'o')) {
    const bool hex = AsciiLower(s[1]) == 'h';
    double value = 0.0;
    for (i = 2; i < s.size(); ++i) {
      const char c = AsciiLower(s[i]);
      int digit;
      if (c >= '0' && c <= (hex ? '9' : '7')) {
        digit = c - '0';
      } else if (hex && c >= 'a' && c <= 'f') {
        digit = c - 'a' + 10;
      } else {
        break;
      }
      value = value * (hex ? 16.0 : 8.0) + digit;
    }
    // The runtime reads these as its 16-bit Integer when they fit 16 bits and
    // as its 32-bit Long when they fit 32, so "&HFFFF" is -1.
    if (value <= 0xFFFF) return static_cast<int16_t>(static_cast<uint16_t>(value));
    if (value <= 0xFFFFFFFFu) return static_cast<int32_t>(static_cast<uint32_t>(value));
    return value;
  }
  bool negative = false;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) negative = s[i++] == '-';
  std::string mantissa;
  bool point = false;
  for (; i < s.size(); ++i) {
    if (IsDigit(s[i])) {
      mantissa += s[i];
    } else if (s[i] == '.' && !point) {
      mantissa += '.';
      point = true;
    } else {
      break;
    }
  }
  if (mantissa.find_first_of("0123456789") == std::string::npos) return 0.0;
  int64_t exponent = 0;
  ReadExponent(s, i, exponent);
  const ReadResult r = DigitsToDouble(std::move(mantissa), exponent, negative);
  if (r.status == ReadStatus::Overflow) {
    Overflow("Val of '" + std::string(text) + "' is beyond a Double");
  }
  return r.value;
}

bool IsNumeric(const Variant& v, const Locale& locale) {
  switch (v.Type()) {
    case VarType::Empty:
    case VarType::Boolean:
    case VarType::Integer:
    case VarType::Double:
      return true;
    case VarType::String:
      return ReadLocaleNumber(v.String(), locale).status == ReadStatus::Ok;
    case VarType::Null:
    case VarType::Date:
    case VarType::Object:
    case VarType::Array:
      break;
  }
  return false;
}

// ---------------------------------------------------------------------------
// Numbers to text

double Round(double x, int decimals) {
  CheckDecimals(decimals, "Round");
  if (!std::isfinite(x) || x == 0.0) return x;
  // Halves are judged on the decimal value a person reads (15 significant
  // digits), so Round(2.675, 2) is 2.68 however the double falls.
  DecimalDigits d = ToDecimal15(x);
  // Rounding beyond the 15 digits would only lose the double's last bits.
  if (d.fraction.size() <= static_cast<size_t>(decimals)) return x;
  RoundDigits(d, decimals, Half::ToEven);
  const ReadResult r = DigitsToDouble(d.whole + "." + d.fraction, 0, d.negative);
  return r.value;
}

std::string DecimalText(double x, int decimals) {
  // The money rule is on the hot path of amounts in words and of every
  // parameter string, so it works in place on the fifteen digits instead of
  // going through the general decimal text.
  CheckDecimals(decimals, "DecimalText");
  if (!std::isfinite(x)) NotFinite(x);
  char scientific[32];  // d.dddddddddddddde[+-]XX
  const auto written = std::to_chars(scientific, scientific + sizeof scientific, std::fabs(x),
                                     std::chars_format::scientific, 14);
  char digits[15];
  int count = 0;
  const char* p = scientific;
  for (; p < written.ptr && *p != 'e'; ++p) {
    if (*p != '.') digits[count++] = *p;
  }
  int exponent = 0;
  std::from_chars(p + (p[1] == '+' ? 2 : 1), written.ptr, exponent);

  // The digits kept: those before the point and `decimals` after it.
  int whole = exponent + 1;
  const int keep = whole + decimals;
  std::string kept;
  if (keep > 0) {
    kept.assign(digits, std::min(keep, count));
    kept.append(static_cast<size_t>(std::max(0, keep - count)), '0');
  }
  if (keep >= 0 && keep < count && digits[keep] >= '5') {
    int i = keep - 1;
    for (; i >= 0 && kept[i] == '9'; --i) kept[i] = '0';
    if (i >= 0) {
      ++kept[i];
    } else {
      kept.insert(kept.begin(), '1');
      ++whole;
    }
  }

  std::string out;
  out.reserve(static_cast<size_t>(std::max(whole, 1) + decimals + 2));
  if (x < 0.0 && kept.find_first_not_of('0') != std::string::npos) out += '-';
  if (whole <= 0) {
    out += '0';
    if (decimals > 0) {
      out += '.';
      out.append(std::min(static_cast<size_t>(-whole), static_cast<size_t>(decimals)), '0');
      out += kept;
      out.resize(out.size() + decimals - std::min(decimals, -whole + static_cast<int>(kept.size())),
                 '0');
    }
  } else {
    out.append(kept, 0, static_cast<size_t>(whole));
    if (decimals > 0) {
      out += '.';
      out.append(kept, static_cast<size_t>(whole), std::string::npos);
    }
  }
  return out;
}

std::string Format(const Variant& v, std::string_view mask, const Locale& locale) {
  std::string named;
  if (NamedFormat(mask, locale, named)) mask = named;
  switch (v.Type()) {
    case VarType::Null:
      return std::string();
    case VarType::Empty:
      return mask.empty() ? std::string() : FormatDouble(0.0, mask, locale);
    case VarType::Boolean:
      return mask.empty() ? CStr(v, locale) : FormatDouble(v.Boolean() ? -1.0 : 0.0, mask, locale);
    case VarType::Integer:
      return FormatDouble(v.Integer(), mask, locale);
    case VarType::Double:
      return FormatDouble(v.Double(), mask, locale);
    case VarType::Date: {
      if (mask.empty() || HasDigitPlaceholder(mask)) {
        return mask.empty() ? CStr(v, locale) : FormatDouble(v.DateValue().serial, mask, locale);
      }
      return FormatDateMask(SplitSerial(v.DateValue().serial), mask, locale);
    }
    case VarType::String: {
      if (mask.empty()) return v.String();
      if (!HasDigitPlaceholder(mask) && HasDatePart(mask)) {
        if (const auto d = ParseDate(v.String(), locale)) {
          return FormatDateMask(SplitSerial(d->serial), mask, locale);
        }
      }
      const ReadResult r = ReadLocaleNumber(v.String(), locale);
      if (r.status == ReadStatus::Ok) return FormatDouble(r.value, mask, locale);
      return v.String();
    }
    case VarType::Object:
    case VarType::Array:
      break;
  }
  Mismatch("Format", v);
}

std::string FormatNumber(double x, int decimals, bool groupDigits, const Locale& locale) {
  CheckDecimals(decimals, "FormatNumber");
  DecimalDigits d = ToDecimal15(x);
  RoundDigits(d, decimals, Half::AwayFromZero);
  std::string out = d.negative ? "-" : "";
  out += groupDigits ? Grouped(d.whole, locale.thousandsSeparator) : d.whole;
  if (decimals > 0) {
    out += locale.decimalSeparator;
    out += d.fraction;
  }
  return out;
}

// ---------------------------------------------------------------------------
// Dates

Date DateSerial(int year, int month, int day) {
  // Two-digit years fall in 1930..2029 as in the runtime; months and days
  // beyond their range roll over (month 13 is January of the next year,
  // day 0 the last day of the month before).
  int64_t y = year;
  if (y >= 0 && y < 30) y += 2000;
  if (y >= 30 && y < 100) y += 1900;
  const int64_t m0 = static_cast<int64_t>(month) - 1;
  y += m0 >= 0 ? m0 / 12 : (m0 - 11) / 12;
  const int m = static_cast<int>(((m0 % 12) + 12) % 12) + 1;
  if (y < 100 || y > 9999) {
    InvalidCall("DateSerial(" + std::to_string(year) + ", " + std::to_string(month) + ", " +
                std::to_string(day) + ") is outside 100-01-01 to 9999-12-31");
  }
  const int64_t serial = DaysFromCivil(y, m, 1) + kSerialEpoch + static_cast<int64_t>(day) - 1;
  if (serial < kMinSerialDay || serial > kMaxSerialDay) {
    InvalidCall("DateSerial(" + std::to_string(year) + ", " + std::to_string(month) + ", " +
                std::to_string(day) + ") is outside 100-01-01 to 9999-12-31");
  }
  return Date{static_cast<double>(serial)};
}

void SplitDate(Date d, int& year, int& month, int& day) {
  const DateParts p = SplitSerial(d.serial);
  year = p.year;
  month = p.month;
  day = p.dayOfMonth;
}

std::string FormatDate(Date d, const Locale& locale) {
  return FormatPattern(SplitSerial(d.serial), locale.shortDateFormat);
}

std::optional<Date> ParseDate(std::string_view text, const Locale& locale) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  const std::string_view patterns[] = {"yyyy-MM-dd", "yyyy.MM.dd", locale.shortDateFormat};
  for (const std::string_view pattern : patterns) {
    size_t i = 0;
    int year, month, day;
    if (!ReadDateByPattern(text, i, pattern, year, month, day)) continue;
    int seconds = 0;
    if (i < text.size()) {
      // A time may follow after blanks, as CStr writes it.
      const size_t before = i;
      while (i < text.size() && IsBlank(text[i])) ++i;
      if (i == before || !ReadTime(text, i, seconds) || i != text.size()) continue;
    }
    if (!ValidDate(year, month, day)) return std::nullopt;
    const int64_t day0 = DaysFromCivil(year, month, day) + kSerialEpoch;
    return Date{SerialOf(day0, seconds)};
  }
  // A time alone is a time on day 0, as CStr writes it.
  size_t i = 0;
  int seconds = 0;
  if (ReadTime(text, i, seconds) && i == text.size()) return Date{SerialOf(0, seconds)};
  return std::nullopt;
}

}  // namespace orvel
