#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "orvel/Locale.h"
#include "orvel/Variant.h"

// The legacy runtime's conversions, kept exactly: the module's arithmetic,
// display text and comparisons depend on them. Failures throw RuntimeError
// with the runtime's number (13 type mismatch, 6 overflow, 94 invalid use of
// Null); the module catches them where control returns to the host.
namespace orvel {

// Round half to even, then range-check: CInt(2.5) = 2, CInt(32767.5) overflows.
// Text is read as a locale decimal first; "" is a type mismatch.
int16_t CInt(const Variant& v, const Locale& locale = ActiveLocale());
int32_t CLng(const Variant& v, const Locale& locale = ActiveLocale());
// Empty is 0, True is -1; text is read by the locale's rules (see IsNumeric).
double CDbl(const Variant& v, const Locale& locale = ActiveLocale());
// Numbers: non-zero is True; text: "True"/"False" in any case, or a number.
bool CBool(const Variant& v, const Locale& locale = ActiveLocale());
// Doubles with 15 significant digits and the locale's decimal separator, no
// grouping (1/3 -> "0,333333333333333", 1E15 -> "1E+15"); Booleans "True" and
// "False"; dates in the locale's short date (and time when it has one).
std::string CStr(const Variant& v, const Locale& locale = ActiveLocale());
Date CDate(const Variant& v, const Locale& locale = ActiveLocale());
// The text a value gives when joined to text with "&": Null gives "" (the
// runtime's concatenation forgives Null), anything else as CStr.
std::string ConcatText(const Variant& v, const Locale& locale = ActiveLocale());

// Reads a number from the start of text, ignoring blanks, tabs and line feeds
// anywhere; "." only is the decimal point, and "," or "$" ends the number as
// any other character does ("1,5" is 1); "&H"/"&O" prefixes. Unreadable text is 0; only a value beyond a Double throws (overflow).
double Val(std::string_view text);
// Text that CDbl reads under the locale: blanks around, a leading or trailing
// sign, parentheses for negative, the locale's separators. Empty is numeric,
// Null is not.
bool IsNumeric(const Variant& v, const Locale& locale = ActiveLocale());

// Round half to even at `decimals` places (0..99), as the runtime's Round. The
// half is judged on the value written with 15 significant digits, so
// Round(2.675, 2) = 2.68 and Round(0.125, 2) = 0.12.
double Round(double x, int decimals = 0);

// x written with 15 significant digits, then that decimal text rounded half
// away from zero to `decimals` places, with "." and no grouping:
// 2.675 -> "2.68", 1.005 -> "1.01", -2.675 -> "-2.68". The money rule, and the
// form of numbers in parameter strings.
std::string DecimalText(double x, int decimals);

// The runtime's Format with the masks the module uses: digit placeholders
// "0" and "#", "." (the locale's decimal separator) and "," (grouping with its
// thousands separator), "%", literal characters ("quoted", \escaped), up to
// three ";"-separated sections (positive, negative, zero), the date parts
// y yy yyyy m mm dd hh nn ss ("m" after an hour is minutes, "/" the locale's
// date separator), and the named formats General Number, Fixed, Standard,
// Percent, Short Date, Short Time and Long Time. Numbers round as DecimalText;
// text that reads as a number (or a date, under a date mask) is formatted,
// other text comes back as it is. Null gives "".
std::string Format(const Variant& v, std::string_view mask, const Locale& locale = ActiveLocale());
// `decimals` places, the locale's separator, grouping only when asked.
std::string FormatNumber(double x, int decimals, bool groupDigits = false,
                         const Locale& locale = ActiveLocale());

// Dates. DateSerial rolls months and days over (month 13, day 0) and reads
// years 0..29 as 20xx, 30..99 as 19xx; outside 100..9999 is an invalid call.
Date DateSerial(int year, int month, int day);
void SplitDate(Date d, int& year, int& month, int& day);
// The locale's short date ("2024-03-31").
std::string FormatDate(Date d, const Locale& locale = ActiveLocale());
// Reads yyyy-MM-dd, yyyy.MM.dd and the locale's short form; nullopt otherwise.
std::optional<Date> ParseDate(std::string_view text, const Locale& locale = ActiveLocale());

}  // namespace orvel
