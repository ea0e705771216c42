#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/Text.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

// Every locale-dependent case runs under both locales. Expected and input
// texts are written with "{d}" for the locale's decimal separator and "{g}"
// for its thousands separator.
struct LocaleCase {
  const char* name;
  Locale locale;
};

const LocaleCase kLocales[] = {{"Lithuanian", Locale::Lithuanian()},
                               {"Invariant", Locale::Invariant()}};

std::string In(const Locale& locale, std::string_view pattern) {
  std::string out;
  for (size_t i = 0; i < pattern.size(); ++i) {
    if (pattern.substr(i, 3) == "{d}") {
      out += locale.decimalSeparator;
      i += 2;
    } else if (pattern.substr(i, 3) == "{g}") {
      out += locale.thousandsSeparator;
      i += 2;
    } else {
      out += pattern[i];
    }
  }
  return out;
}

// A table of cases crossed with both locales.
template <class Case>
class LocaleTest : public testing::TestWithParam<std::tuple<Case, LocaleCase>> {
 protected:
  const Case& C() const { return std::get<0>(this->GetParam()); }
  const Locale& L() const { return std::get<1>(this->GetParam()).locale; }
  std::string In(std::string_view pattern) const { return orvel::In(L(), pattern); }
};

#define ORVEL_LOCALE_CASES(Suite, ...)                                                           \
  INSTANTIATE_TEST_SUITE_P(                                                                      \
      Cases, Suite, testing::Combine(testing::Values(__VA_ARGS__), testing::ValuesIn(kLocales)), \
      [](const auto& info) {                                                                     \
        return std::string(std::get<1>(info.param).name) + std::to_string(info.index);           \
      })

struct WholeCase {
  Variant value;  // String values are patterns for In()
  int64_t expected;
  int32_t cintError;  // 0 or the runtime error number
  int32_t clngError;
};

class ConvertWhole : public LocaleTest<WholeCase> {
 protected:
  Variant Value() const {
    return C().value.IsString() ? Variant(In(C().value.String())) : C().value;
  }
};

TEST_P(ConvertWhole, RoundsHalfToEvenThenChecksRange) {
  if (C().cintError == 0) {
    EXPECT_EQ(CInt(Value(), L()), C().expected);
  } else {
    EXPECT_EQ(ErrorOf([&] { CInt(Value(), L()); }), C().cintError);
  }
  if (C().clngError == 0) {
    EXPECT_EQ(CLng(Value(), L()), C().expected);
  } else {
    EXPECT_EQ(ErrorOf([&] { CLng(Value(), L()); }), C().clngError);
  }
}

constexpr int32_t kOverflow = RuntimeError::kOverflow;
constexpr int32_t kMismatch = RuntimeError::kTypeMismatch;
constexpr int32_t kNull = RuntimeError::kInvalidUseOfNull;

ORVEL_LOCALE_CASES(
    ConvertWhole, WholeCase{0.5, 0, 0, 0}, WholeCase{1.5, 2, 0, 0}, WholeCase{2.5, 2, 0, 0},
    WholeCase{-2.5, -2, 0, 0}, WholeCase{2.5000001, 3, 0, 0}, WholeCase{32767.49, 32767, 0, 0},
    WholeCase{32767.5, 32768, kOverflow, 0},
    WholeCase{-32768.5, -32768, 0, 0},  // rounds to even, still fits
    WholeCase{-32768.51, -32769, kOverflow, 0}, WholeCase{2147483646.5, 2147483646, kOverflow, 0},
    WholeCase{2147483647.5, 0, kOverflow, kOverflow},
    WholeCase{std::numeric_limits<double>::quiet_NaN(), 0, kOverflow, kOverflow},
    WholeCase{Variant(int32_t{40000}), 40000, kOverflow, 0}, WholeCase{true, -1, 0, 0},
    WholeCase{Variant(), 0, 0, 0}, WholeCase{Date{45292.5}, 45292, kOverflow, 0},
    // Text is read as a locale decimal first, then rounded the same way.
    WholeCase{"2{d}5", 2, 0, 0}, WholeCase{"1e400", 0, kOverflow, kOverflow},
    WholeCase{"", 0, kMismatch, kMismatch}, WholeCase{"12abc", 0, kMismatch, kMismatch},
    WholeCase{Variant::Null(), 0, kNull, kNull},
    WholeCase{Variant(Variant::Array{}), 0, kMismatch, kMismatch});

struct NumericCase {
  const char* text;  // pattern for In()
  bool numeric;
  double value;
};

class ConvertNumericText : public LocaleTest<NumericCase> {};

TEST_P(ConvertNumericText, IsNumericAgreesWithCDbl) {
  const Variant text(In(C().text));
  EXPECT_EQ(IsNumeric(text, L()), C().numeric) << C().text;
  if (C().numeric) {
    EXPECT_DOUBLE_EQ(CDbl(text, L()), C().value);
  } else {
    EXPECT_NE(ErrorOf([&] { CDbl(text, L()); }), 0);
  }
}

ORVEL_LOCALE_CASES(ConvertNumericText, NumericCase{"1{d}5", true, 1.5},
                   NumericCase{"  -1{d}5  ", true, -1.5}, NumericCase{"1{d}5-", true, -1.5},
                   NumericCase{"+2", true, 2}, NumericCase{"(1{d}5)", true, -1.5},
                   NumericCase{"{d}5", true, 0.5}, NumericCase{"5{d}", true, 5},
                   NumericCase{"1{g}234{g}567{d}5", true, 1234567.5},
                   NumericCase{"1e3", true, 1000}, NumericCase{"2{d}5E-2", true, 0.025},
                   NumericCase{"0000123", true, 123}, NumericCase{"1e-400", true, 0},
                   // Not numbers under the locale's rules.
                   NumericCase{"", false, 0}, NumericCase{"   ", false, 0},
                   NumericCase{"-", false, 0}, NumericCase{"{d}", false, 0},
                   NumericCase{"{g}123", false, 0},     // grouping before a digit
                   NumericCase{"1{d}5{g}3", false, 0},  // grouping in the fraction
                   NumericCase{"1{d}2{d}3", false, 0}, NumericCase{"12abc", false, 0},
                   NumericCase{"-1-", false, 0}, NumericCase{"-(1)", false, 0},
                   NumericCase{"(1", false, 0}, NumericCase{"1 2", false, 0},
                   NumericCase{"1e", false, 0}, NumericCase{"1e400", false, 0},
                   NumericCase{"&H10", false, 0}, NumericCase{"1\n", false, 0});

TEST(Convert, DecimalSeparatorIsTheLocalesOnly) {
  EXPECT_FALSE(IsNumeric("1.5", Locale::Lithuanian()));
  EXPECT_DOUBLE_EQ(CDbl("1.5", Locale::Invariant()), 1.5);
  EXPECT_DOUBLE_EQ(CDbl("1,5", Locale::Lithuanian()), 1.5);
  EXPECT_DOUBLE_EQ(CDbl("1,5", Locale::Invariant()), 15);  // "," groups there
  EXPECT_DOUBLE_EQ(CDbl("1\u00A0234,5", Locale::Lithuanian()), 1234.5);
}

// Empty is zero and numeric, Null and objects are refused.
TEST(Convert, NonTextValuesEmptyIsZeroNullRefuses) {
  for (const auto& [value, numeric, cdbl, cdblError] :
       {std::tuple<Variant, bool, double, int32_t>{Variant(), true, 0, 0},
        {Variant::Null(), false, 0, kNull}, {true, true, -1, 0}, {false, true, 0, 0},
        {Variant(int32_t{-7}), true, -7, 0}, {2.25, true, 2.25, 0},
        {Date{45292.25}, false, 45292.25, 0},
        {Variant(Variant::Array{}), false, 0, kMismatch}}) {
    EXPECT_EQ(IsNumeric(value), numeric) << Describe(value);
    if (cdblError == 0) {
      EXPECT_DOUBLE_EQ(CDbl(value), cdbl) << Describe(value);
    } else {
      EXPECT_EQ(ErrorOf([&v = value] { CDbl(v); }), cdblError) << Describe(value);
    }
  }
}

struct CStrCase {
  Variant value;
  const char* expected;  // pattern for In()
};

class ConvertCStr : public LocaleTest<CStrCase> {};

TEST_P(ConvertCStr, WritesFifteenDigitsWithLocaleSeparator) {
  EXPECT_EQ(CStr(C().value, L()), In(C().expected));
}

ORVEL_LOCALE_CASES(ConvertCStr, CStrCase{1.0 / 3.0, "0{d}333333333333333"}, CStrCase{1e15, "1E+15"},
                   CStrCase{123456789012345.0, "123456789012345"}, CStrCase{0.1 + 0.2, "0{d}3"},
                   CStrCase{1234567.5, "1234567{d}5"},  // never grouped
                   CStrCase{2.0 / 3.0 * 1e20, "6{d}66666666666667E+19"}, CStrCase{1e-5, "1E-05"},
                   CStrCase{0.0001, "0{d}0001"}, CStrCase{-0.0, "0"},
                   CStrCase{999999999999999.4, "999999999999999"},
                   CStrCase{999999999999999.6, "1E+15"}, CStrCase{Variant(int32_t{-42}), "-42"},
                   CStrCase{true, "True"}, CStrCase{Variant(), ""}, CStrCase{"as is", "as is"},
                   // Dates: the short date, the time when there is one, only the time on day 0.
                   CStrCase{Date{45292}, "2024-01-01"},
                   CStrCase{Date{45292.5}, "2024-01-01 12:00:00"}, CStrCase{Date{0.75}, "18:00:00"},
                   CStrCase{Date{0}, "00:00:00"}, CStrCase{Date{-1.25}, "1899-12-29 06:00:00"},
                   CStrCase{Date{45292.0 + 86399.6 / 86400},
                            "2024-01-02"});  // seconds round up to midnight

TEST(Convert, CStrAndCDblRoundTripUnderBothLocales) {
  for (const LocaleCase& lc : kLocales) {
    for (const double x : {0.1, -2.675, 1.0 / 7.0, 1e15, 1.5e-7, 123456.789, -9.87654321e100}) {
      const std::string text = CStr(x, lc.locale);
      const double back = CDbl(text, lc.locale);
      EXPECT_EQ(CStr(back, lc.locale), text) << lc.name;
      EXPECT_NEAR(back, x, std::abs(x) * 1e-14) << lc.name << " " << text;
    }
  }
}

struct BoolCase {
  Variant value;
  bool expected;
  int32_t error;
};

class ConvertCBool : public LocaleTest<BoolCase> {};

TEST_P(ConvertCBool, ReadsWordsAndNumbers) {
  const Variant v = C().value.IsString() ? Variant(In(C().value.String())) : C().value;
  if (C().error == 0) {
    EXPECT_EQ(CBool(v, L()), C().expected) << Describe(v);
  } else {
    EXPECT_EQ(ErrorOf([&] { CBool(v, L()); }), C().error) << Describe(v);
  }
}

ORVEL_LOCALE_CASES(ConvertCBool, BoolCase{Variant(), false, 0}, BoolCase{0.0, false, 0},
                   BoolCase{0.001, true, 0}, BoolCase{Variant(int32_t{-1}), true, 0},
                   BoolCase{"True", true, 0}, BoolCase{" true ", true, 0},
                   BoolCase{"0{d}0", false, 0}, BoolCase{"2{d}5", true, 0},
                   BoolCase{"yes", false, kMismatch}, BoolCase{Variant::Null(), false, kNull});

TEST(Convert, CDateReadsTextNumbersAndRefusesTheRest) {
  for (const LocaleCase& lc : kLocales) {
    EXPECT_EQ(CDate("2024-01-01", lc.locale), Date{45292}) << lc.name;
    EXPECT_EQ(CDate("1990.01.01", lc.locale), DateSerial(1990, 1, 1)) << lc.name;
    EXPECT_EQ(CDate(45292.5, lc.locale), Date{45292.5});
    EXPECT_EQ(CDate(Variant(), lc.locale), Date{0});
    EXPECT_EQ(ErrorOf([&] { CDate("2023-02-29", lc.locale); }), kMismatch);
    EXPECT_EQ(ErrorOf([&] { CDate("45292", lc.locale); }), kMismatch);
    EXPECT_EQ(ErrorOf([&] { CDate(Variant::Null(), lc.locale); }), kNull);
    EXPECT_EQ(ErrorOf([&] { CDate(1e9, lc.locale); }), kOverflow);
    const Date withTime{45292.0 + 13.5 / 24};
    EXPECT_EQ(CDate(CStr(withTime, lc.locale), lc.locale), withTime);
  }
}

struct ValCase {
  const char* text;
  double expected;
};

class ConvertVal : public testing::TestWithParam<ValCase> {};

TEST_P(ConvertVal, ReadsLeadingNumberWhateverTheLocale) {
  EXPECT_DOUBLE_EQ(Val(GetParam().text), GetParam().expected) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ConvertVal,
    testing::Values(ValCase{"24 and 57", 24}, ValCase{" 2 45 7", 2457}, ValCase{"\t1\n2", 12},
                    ValCase{"&HFF", 255}, ValCase{"&O17", 15},
                    ValCase{"&HFFFF", -1},                                 // a 16-bit Integer
                    ValCase{"&H10000", 65536}, ValCase{"&HFFFFFFFF", -1},  // a 32-bit Long
                    ValCase{"&HG", 0}, ValCase{"12abc", 12}, ValCase{"", 0}, ValCase{"1e3", 1000},
                    ValCase{"1.5e", 1.5}, ValCase{"2D2", 200}, ValCase{"1,234.5", 1},
                    ValCase{"$12", 0}, ValCase{"12$", 12}, ValCase{"- 3", -3}, ValCase{"+.5", 0.5},
                    ValCase{"1.2.3", 1.2}, ValCase{"--1", 0}, ValCase{".", 0},
                    ValCase{"1e-999", 0}));

// Round is half to even, DecimalText half away from zero.
TEST(Convert, RoundIsHalfEvenDecimalTextHalfAway) {
  for (const auto& [x, decimals, round, decimalText] :
       {std::tuple<double, int, double, const char*>{2.5, 0, 2, "3"},
        {-2.5, 0, -2, "-3"}, {0.5, 0, 0, "1"}, {2.675, 2, 2.68, "2.68"},
        {-2.675, 2, -2.68, "-2.68"}, {1.005, 2, 1.0, "1.01"}, {0.125, 2, 0.12, "0.13"},
        {1.2251, 2, 1.23, "1.23"}, {9.995, 2, 10.0, "10.00"}, {-0.001, 2, 0, "0.00"},
        {1.5, 3, 1.5, "1.500"}, {1e-7, 2, 0, "0.00"}, {1234.5678, 0, 1235, "1235"},
        {1e20, 0, 1e20, "100000000000000000000"},
        {1.0 / 3.0, 20, 1.0 / 3.0, "0.33333333333333300000"}}) {
    EXPECT_DOUBLE_EQ(Round(x, decimals), round) << x << " " << decimals;
    EXPECT_EQ(DecimalText(x, decimals), decimalText) << x << " " << decimals;
  }
}

struct FormatCase {
  Variant value;  // String values are patterns for In()
  const char* mask;
  const char* expected;  // pattern for In()
};

class ConvertFormat : public LocaleTest<FormatCase> {};

TEST_P(ConvertFormat, FollowsTheMask) {
  const Variant v = C().value.IsString() ? Variant(In(C().value.String())) : C().value;
  EXPECT_EQ(Format(v, C().mask, L()), In(C().expected)) << Describe(v) << " " << C().mask;
}

ORVEL_LOCALE_CASES(
    ConvertFormat, FormatCase{1.5, "#0.00######", "1{d}50"},
    FormatCase{2.0 / 3.0, "#0.00######", "0{d}66666667"}, FormatCase{0.17, "#.00", "{d}17"},
    FormatCase{1.0, "0.00000000", "1{d}00000000"}, FormatCase{2.675, "0.00", "2{d}68"},
    FormatCase{1.005, "0.00", "1{d}01"}, FormatCase{0.125, "0.00", "0{d}13"},
    FormatCase{2.5, "0", "3"}, FormatCase{7.0, "000", "007"}, FormatCase{5.5, ".00", "5{d}50"},
    FormatCase{1.0, "#.##", "1{d}"}, FormatCase{0.0, "#", ""}, FormatCase{-0.001, "0.00", "0{d}00"},
    FormatCase{1234567.891, "#,##0.00", "1{g}234{g}567{d}89"},
    FormatCase{999.999, "#,##0.00", "1{g}000{d}00"}, FormatCase{0.125, "0.00%", "12{d}50%"},
    FormatCase{-1.5, "0.00;(0.00)", "(1{d}50)"}, FormatCase{0.0, "0.00;(0.00);\"nulis\"", "nulis"},
    FormatCase{3.0, "\"Kaina: \"0.00 \\E\\U\\R", "Kaina: 3{d}00 EUR"},
    FormatCase{Variant(int32_t{42}), "0.0", "42{d}0"}, FormatCase{true, "0", "-1"},
    FormatCase{1.5, "", "1{d}5"}, FormatCase{1234.5, "Standard", "1{g}234{d}50"},
    FormatCase{Date{45382.75}, "Short Date", "2024-03-31"},
    FormatCase{Date{45382.75}, "long time", "18:00:00"}, FormatCase{Variant(), "0.00", "0{d}00"},
    // Text: numbers read under the locale and formatted, other text as it is.
    FormatCase{"1{d}5", "0.00", "1{d}50"}, FormatCase{"abc", "0.00", "abc"},
    FormatCase{Variant::Null(), "0.00", ""},
    // Dates through date masks; "m" straight after an hour means minutes.
    FormatCase{Date{45382.5}, "yyyy.mm.dd", "2024.03.31"},
    FormatCase{Date{45382.5}, "dd/mm/yyyy", "31-03-2024"},
    FormatCase{Date{45382.0 + 13.0 / 24 + 5.0 / 1440}, "hh:mm", "13:05"},
    FormatCase{Date{45382.0 + 13.0 / 24 + 5.0 / 1440 + 7.0 / 86400}, "yy-m-d h:nn:ss",
               "24-3-31 13:05:07"},
    FormatCase{Date{45382}, "y", "91"}, FormatCase{Date{45382}, "\"Data\" yyyy", "Data 2024"},
    FormatCase{"2024-03-31", "yyyy", "2024"},
    FormatCase{Variant(int32_t{45382}), "yyyy-mm-dd", "2024-03-31"},
    FormatCase{Date{45382.25}, "0.00", "45382{d}25"});

struct FormatNumberCase {
  double x;
  int decimals;
  bool group;
  const char* expected;  // pattern for In()
};

class ConvertFormatNumber : public LocaleTest<FormatNumberCase> {};

TEST_P(ConvertFormatNumber, RoundsAsMoneyGroupsWhenAsked) {
  EXPECT_EQ(FormatNumber(C().x, C().decimals, C().group, L()), In(C().expected));
}

ORVEL_LOCALE_CASES(ConvertFormatNumber, FormatNumberCase{1234.5, 2, false, "1234{d}50"},
                   FormatNumberCase{-0.5, 2, false, "-0{d}50"},
                   FormatNumberCase{1234567.5, 2, true, "1{g}234{g}567{d}50"},
                   FormatNumberCase{-1234.0, 0, true, "-1{g}234"},
                   FormatNumberCase{999.995, 2, true, "1{g}000{d}00"},
                   FormatNumberCase{0.125, 2, false, "0{d}13"},
                   FormatNumberCase{-0.004, 2, false, "0{d}00"});

struct SerialCase {
  int year, month, day;
  double serial;
};

class ConvertDateSerial : public testing::TestWithParam<SerialCase> {};

TEST_P(ConvertDateSerial, CountsDaysFrom18991230) {
  const SerialCase& c = GetParam();
  EXPECT_EQ(DateSerial(c.year, c.month, c.day).serial, c.serial);
}

INSTANTIATE_TEST_SUITE_P(Cases, ConvertDateSerial,
                         testing::Values(SerialCase{1899, 12, 30, 0}, SerialCase{1900, 3, 1, 61},
                                         SerialCase{2024, 1, 1, 45292},
                                         SerialCase{2024, 13, 1, 45658},   // 2025-01-01
                                         SerialCase{2024, 3, 0, 45351},    // 2024-02-29
                                         SerialCase{2024, 0, 1, 45261},    // 2023-12-01
                                         SerialCase{2024, -11, 1, 44927},  // 2023-01-01
                                         SerialCase{24, 1, 1, 45292}, SerialCase{99, 1, 1, 36161},
                                         SerialCase{100, 1, 1, -657434},
                                         SerialCase{9999, 12, 31, 2958465}));

// What no routine can convert, or asks outside its range, is the runtime's error.
TEST(Convert, RefusalsAreTheRuntimesErrors) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr int32_t kInvalidCall = RuntimeError::kInvalidCall;
  const std::vector<std::pair<std::function<void()>, int32_t>> calls{
      {[] { CStr(Variant::Null()); }, kNull}, {[] { CStr(Variant(Variant::Array{})); }, kMismatch},
      {[] { CStr(kInf); }, kOverflow}, {[] { Val("1e999"); }, kOverflow},
      {[] { Round(1.5, -1); }, kInvalidCall}, {[] { DecimalText(1.5, -1); }, kInvalidCall},
      {[] { DecimalText(kInf, 2); }, kOverflow}, {[] { FormatNumber(1.5, 100); }, kInvalidCall},
      {[] { Format(Variant(Variant::Array{}), "0"); }, kMismatch},
      {[] { DateSerial(10000, 1, 1); }, kInvalidCall},
      {[] { DateSerial(9999, 12, 32); }, kInvalidCall},
      {[] { DateSerial(2024, 1, std::numeric_limits<int>::min()); }, kInvalidCall}};
  for (size_t i = 0; i < calls.size(); ++i)
    EXPECT_EQ(ErrorOf(calls[i].first), calls[i].second) << i;
}

TEST(Convert, SplitDateInvertsDateSerialOverTwoCenturies) {
  int year = 0, month = 0, day = 0;
  for (int y = 1899; y <= 2101; ++y) {
    for (int m = 1; m <= 12; ++m) {
      for (int d = 1; d <= 31; ++d) {
        const Date date = DateSerial(y, m, d);
        SplitDate(date, year, month, day);
        if (d > 28 && month != m) continue;  // rolled over into the next month
        ASSERT_EQ(year * 10000 + month * 100 + day, y * 10000 + m * 100 + d);
      }
    }
  }
  SplitDate(Date{-1.75}, year, month, day);
  EXPECT_EQ(year * 10000 + month * 100 + day, 18991229);
  EXPECT_EQ(ErrorOf([&] { SplitDate(Date{1e12}, year, month, day); }), kOverflow);
}

struct ParseCase {
  const char* text;
  std::optional<double> serial;
};

class ConvertParseDate : public LocaleTest<ParseCase> {};

TEST_P(ConvertParseDate, AcceptsTheThreeFormsOnly) {
  const auto d = ParseDate(C().text, L());
  ASSERT_EQ(d.has_value(), C().serial.has_value()) << C().text;
  if (d) {
    EXPECT_DOUBLE_EQ(d->serial, *C().serial);
  }
}

ORVEL_LOCALE_CASES(ConvertParseDate, ParseCase{"2024-01-01", 45292}, ParseCase{"1990.01.01", 32874},
                   ParseCase{" 2024-3-5 ", 45356}, ParseCase{"2024-02-29", 45351},
                   ParseCase{"2024-01-01 12:00:00", 45292.5},
                   ParseCase{"2024-01-01 06:30", 45292.0 + 6.5 / 24}, ParseCase{"18:00:00", 0.75},
                   ParseCase{"2023-02-29", std::nullopt}, ParseCase{"2024-13-01", std::nullopt},
                   ParseCase{"2024/01/01", std::nullopt}, ParseCase{"01.01.2024", std::nullopt},
                   ParseCase{"2024-01-01x", std::nullopt},
                   ParseCase{"2024-01-01 25:00", std::nullopt},
                   ParseCase{"0099-01-01", std::nullopt}, ParseCase{"", std::nullopt},
                   ParseCase{"20240101", std::nullopt}, ParseCase{"2024-01", std::nullopt});

TEST(Convert, ParseDateAcceptsTheLocalesOwnShortForm) {
  Locale dotted = Locale::Lithuanian();
  dotted.shortDateFormat = "dd.MM.yyyy";
  EXPECT_EQ(ParseDate("31.03.2024", dotted), DateSerial(2024, 3, 31));
  EXPECT_EQ(ParseDate("2024-03-31", dotted), DateSerial(2024, 3, 31));
  EXPECT_EQ(ParseDate("31.02.2024", dotted), std::nullopt);
  EXPECT_EQ(FormatDate(DateSerial(2024, 3, 31), dotted), "31.03.2024");
  EXPECT_EQ(FormatDate(DateSerial(2024, 3, 31), Locale::Lithuanian()), "2024-03-31");
}

// Random text from the characters number and date readers care about: nothing
// may crash or throw anything but RuntimeError, and IsNumeric must agree with
// whether CDbl succeeds.
TEST(Convert, ArbitraryTextNeverBreaksTheReaders) {
  const std::vector<std::string> alphabet = {
      "0", "1", "9", ".", ",", "-",  "+",        "(",    ")",    " ", "e",    "E",
      "&", "H", "O", "$", ":", "\t", "\xC2\xA0", "\xC2", "\xFF", "ą", "yyyy", "#"};
  std::mt19937 random(12345);
  for (int n = 0; n < 3000; ++n) {
    std::string text;
    const int size = static_cast<int>(random() % 12);
    for (int k = 0; k < size; ++k) text += alphabet[random() % alphabet.size()];
    for (const LocaleCase& lc : kLocales) {
      const bool numeric = IsNumeric(text, lc.locale);
      EXPECT_EQ(ErrorOf([&] { CDbl(text, lc.locale); }) == 0, numeric) << text;
      EXPECT_NO_THROW(ParseDate(text, lc.locale)) << text;
      ErrorOf([&] { Format(text, text, lc.locale); });
      ErrorOf([&] { Format(Val(text), text, lc.locale); });
    }
    ErrorOf([&] { Val(text); });
    EXPECT_EQ(Len(UCase(text)), Len(text)) << text;
  }
}

}  // namespace
}  // namespace orvel
