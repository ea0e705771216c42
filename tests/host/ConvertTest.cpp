#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "host/Convert.h"
#include "host/Text.h"
#include "orvel/RuntimeError.h"
#include "orvel/Variant.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

// ---- the Variant ----

// The kinds a value answers to, by their predicates' names.
std::string Kinds(const Variant& v) {
  std::string kinds;
  for (const auto& [is, name] : {std::pair{v.IsEmpty(), "Empty"}, {v.IsNull(), "Null"},
                                 {v.IsNumber(), "Number"}, {v.IsString(), "String"},
                                 {v.IsObject(), "Object"}, {v.IsNothing(), "Nothing"}}) {
    if (is) kinds += kinds.empty() ? name : std::string(" ") + name;
  }
  return kinds;
}

TEST(Variant, EmptyAndNullAreDistinctAndNeitherANumberTextNorObject) {
  EXPECT_EQ(Kinds(Variant()), "Empty");
  EXPECT_EQ(Kinds(Variant::Null()), "Null");
  EXPECT_FALSE(Variant() == Variant::Null());
  EXPECT_EQ(Variant::Null(), Variant(NullValue{}));
}

TEST(Variant, AWideIntegerStaysIntegerWhenItFits32Bits) {
  constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
  constexpr int64_t kMin = std::numeric_limits<int32_t>::min();
  constexpr VarType kInteger = VarType::Integer, kDouble = VarType::Double;
  for (const auto& [value, type] :
       {std::pair{int64_t{0}, kInteger}, {-5, kInteger}, {kMax, kInteger}, {kMin, kInteger},
        {kMax + 1, kDouble}, {kMin - 1, kDouble}, {int64_t{1} << 53, kDouble}}) {
    const Variant v(value);
    ASSERT_EQ(v.Type(), type) << value;
    EXPECT_EQ(type == kInteger ? v.Integer() : v.Double(), static_cast<double>(value));
  }
}

TEST(Variant, AccessorOfAnotherTypeIsATypeMismatch) {
  const Variant text("5");
  std::string error;
  EXPECT_EQ(ErrorOf([&] { (void)text.Integer(); }, &error), RuntimeError::kTypeMismatch);
  EXPECT_NE(error.find("String '5'"), std::string::npos) << error;
  EXPECT_THROW((void)Variant().String(), RuntimeError);
  EXPECT_THROW((void)Variant::Null().Double(), RuntimeError);
  EXPECT_THROW((void)Variant(1.5).Boolean(), RuntimeError);
}

class Shape : public Object {};
class Circle : public Shape {};
class Unrelated : public Object {};

TEST(Variant, ObjectAsCastsOnlyToWhatTheObjectIs) {
  const auto circle = std::make_shared<Circle>();
  const Variant v(circle);
  EXPECT_EQ(Kinds(v), "Object");
  EXPECT_EQ(v.ObjectAs<Shape>(), circle);
  EXPECT_EQ(v.ObjectAs<Circle>(), circle);
  EXPECT_EQ(v.ObjectAs<Unrelated>(), nullptr);

  const Variant nothing(std::shared_ptr<Object>{});
  EXPECT_EQ(Kinds(nothing), "Object Nothing");
  EXPECT_EQ(nothing.ObjectAs<Shape>(), nullptr);
  EXPECT_EQ(Variant("text").ObjectAs<Shape>(), nullptr);

  // Objects compare by identity.
  EXPECT_EQ(v, Variant(circle));
  EXPECT_FALSE(v == Variant(std::make_shared<Circle>()));
}

TEST(Variant, DescribeNamesTypeAndValue) {
  for (const auto& [value, expected] : std::initializer_list<std::pair<Variant, const char*>>{
           {Variant(), "Empty"}, {Variant::Null(), "Null"}, {true, "Boolean True"},
           {int32_t{5}, "Integer 5"}, {2.5, "Double 2.5"}, {Date{45292.5}, "Date 45292.5"},
           {"a", "String 'a'"}, {Variant(std::shared_ptr<Object>{}), "Nothing"},
           {Variant(Variant::Array{1, 2}), "Array(2)"}}) {
    EXPECT_EQ(Describe(value), expected);
  }
}

// ---- conversions ----

constexpr int32_t kOverflow = RuntimeError::kOverflow;
constexpr int32_t kMismatch = RuntimeError::kTypeMismatch;
constexpr int32_t kNull = RuntimeError::kInvalidUseOfNull;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();  // no number, no date

struct LocaleCase {
  const char* name;
  Locale locale;
};

const LocaleCase kLocales[] = {{"Lithuanian", Locale::Lithuanian()},
                               {"Invariant", Locale::Invariant()}};

// Expected and input texts are written with "{d}" for the locale's decimal
// separator and "{g}" for its thousands separator.
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

Variant InValue(const Locale& locale, const Variant& value) {
  return value.IsString() ? Variant(In(locale, value.String())) : value;
}

// Every locale-dependent row is checked under both locales.
template <class Rows, class Check>
void UnderBothLocales(const Rows& rows, Check check) {
  for (const LocaleCase& lc : kLocales) {
    for (size_t i = 0; i < std::size(rows); ++i) {
      SCOPED_TRACE(std::string(lc.name) + " row " + std::to_string(i));
      check(rows[i], lc.locale);
    }
  }
}

// `call` answers `expected` when `error` is 0, else fails with that runtime error.
template <class Call, class T>
void ExpectValueOrError(Call call, const T& expected, int32_t error) {
  if (error != 0) {
    EXPECT_EQ(ErrorOf(call), error);
  } else if constexpr (std::is_floating_point_v<T>) {
    EXPECT_DOUBLE_EQ(call(), expected);
  } else {
    EXPECT_EQ(call(), expected);
  }
}

// CInt and CLng round half to even, then check their range; text is read as a
// locale decimal first.
TEST(Convert, WholeNumbersRoundHalfToEvenThenCheckTheRange) {
  const struct {
    Variant value;
    int64_t expected;
    int32_t cintError, clngError;
  } rows[] = {
      {0.5, 0, 0, 0}, {1.5, 2, 0, 0}, {2.5, 2, 0, 0}, {-2.5, -2, 0, 0}, {2.5000001, 3, 0, 0},
      {32767.49, 32767, 0, 0}, {32767.5, 32768, kOverflow, 0},
      {-32768.5, -32768, 0, 0},  // rounds to even, still fits
      {-32768.51, -32769, kOverflow, 0}, {2147483646.5, 2147483646, kOverflow, 0},
      {2147483647.5, 0, kOverflow, kOverflow}, {kNone, 0, kOverflow, kOverflow},
      {Variant(int32_t{40000}), 40000, kOverflow, 0}, {true, -1, 0, 0}, {Variant(), 0, 0, 0},
      {Date{45292.5}, 45292, kOverflow, 0}, {"2{d}5", 2, 0, 0}, {"1e400", 0, kOverflow, kOverflow},
      {"", 0, kMismatch, kMismatch}, {"12abc", 0, kMismatch, kMismatch},
      {Variant::Null(), 0, kNull, kNull}, {Variant(Variant::Array{}), 0, kMismatch, kMismatch}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    ExpectValueOrError([&] { return CInt(InValue(l, c.value), l); }, c.expected, c.cintError);
    ExpectValueOrError([&] { return CLng(InValue(l, c.value), l); }, c.expected, c.clngError);
  });
}

// IsNumeric agrees with whether CDbl reads the text (kNone: not a number there).
TEST(Convert, NumericTextFollowsTheLocalesRules) {
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"1{d}5", 1.5}, {"  -1{d}5  ", -1.5}, {"1{d}5-", -1.5}, {"+2", 2}, {"(1{d}5)", -1.5},
      {"{d}5", 0.5}, {"5{d}", 5}, {"1{g}234{g}567{d}5", 1234567.5}, {"1e3", 1000},
      {"2{d}5E-2", 0.025}, {"0000123", 123}, {"1e-400", 0}, {"", kNone}, {"   ", kNone},
      {"-", kNone}, {"{d}", kNone}, {"{g}123", kNone},  // grouping before a digit
      {"1{d}5{g}3", kNone},                              // grouping in the fraction
      {"1{d}2{d}3", kNone}, {"12abc", kNone}, {"-1-", kNone}, {"-(1)", kNone}, {"(1", kNone},
      {"1 2", kNone}, {"1e", kNone}, {"1e400", kNone}, {"&H10", kNone}, {"1\n", kNone}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    const Variant text(In(l, c.text));
    EXPECT_EQ(IsNumeric(text, l), !std::isnan(c.value));
    if (std::isnan(c.value)) {
      EXPECT_NE(ErrorOf([&] { CDbl(text, l); }), 0);
    } else {
      EXPECT_DOUBLE_EQ(CDbl(text, l), c.value);
    }
  });
}

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
    ExpectValueOrError([&v = value] { return CDbl(v); }, cdbl, cdblError);
  }
}

// Fifteen digits with the locale's separator, never grouped; dates as the
// short date, the time when there is one, only the time on day 0.
TEST(Convert, CStrWritesFifteenDigitsAndDates) {
  const struct {
    Variant value;
    const char* expected;
  } rows[] = {
      {1.0 / 3.0, "0{d}333333333333333"}, {1e15, "1E+15"}, {123456789012345.0, "123456789012345"},
      {0.1 + 0.2, "0{d}3"}, {1234567.5, "1234567{d}5"},
      {2.0 / 3.0 * 1e20, "6{d}66666666666667E+19"}, {1e-5, "1E-05"}, {0.0001, "0{d}0001"},
      {-0.0, "0"}, {999999999999999.4, "999999999999999"},
      {999999999999999.6, "1E+15"}, {Variant(int32_t{-42}), "-42"}, {true, "True"}, {Variant(), ""},
      {"as is", "as is"}, {Date{45292}, "2024-01-01"}, {Date{45292.5}, "2024-01-01 12:00:00"},
      {Date{0.75}, "18:00:00"}, {Date{0}, "00:00:00"}, {Date{-1.25}, "1899-12-29 06:00:00"},
      {Date{45292.0 + 86399.6 / 86400}, "2024-01-02"}};  // seconds round up to midnight
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    EXPECT_EQ(CStr(c.value, l), In(l, c.expected));
  });
}

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

TEST(Convert, CBoolReadsWordsAndNumbers) {
  const struct {
    Variant value;
    bool expected;
    int32_t error;
  } rows[] = {{Variant(), false, 0}, {0.0, false, 0}, {0.001, true, 0},
              {Variant(int32_t{-1}), true, 0}, {"True", true, 0}, {" true ", true, 0},
              {"0{d}0", false, 0}, {"2{d}5", true, 0}, {"yes", false, kMismatch},
              {Variant::Null(), false, kNull}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    ExpectValueOrError([&] { return CBool(InValue(l, c.value), l); }, c.expected, c.error);
  });
}

TEST(Convert, CDateReadsTextNumbersAndRefusesTheRest) {
  const struct {
    Variant value;
    double serial;
    int32_t error;
  } rows[] = {{"2024-01-01", 45292, 0}, {"1990.01.01", 32874, 0}, {45292.5, 45292.5, 0},
              {Variant(), 0, 0}, {"2023-02-29", 0, kMismatch}, {"45292", 0, kMismatch},
              {Variant::Null(), 0, kNull}, {1e9, 0, kOverflow}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    ExpectValueOrError([&] { return CDate(c.value, l).serial; }, c.serial, c.error);
    const Date withTime{45292.0 + 13.5 / 24};
    EXPECT_EQ(CDate(CStr(withTime, l), l), withTime);
  });
}

// Val reads the leading number whatever the locale; &H is a 16-bit Integer
// up to four digits, a 32-bit Long beyond.
TEST(Convert, ValReadsTheLeadingNumber) {
  for (const auto& [text, expected] : std::initializer_list<std::pair<const char*, double>>{
           {"24 and 57", 24}, {" 2 45 7", 2457}, {"\t1\n2", 12}, {"&HFF", 255}, {"&O17", 15},
           {"&HFFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&HG", 0}, {"12abc", 12},
           {"", 0}, {"1e3", 1000}, {"1.5e", 1.5}, {"2D2", 200}, {"1,234.5", 1}, {"$12", 0},
           {"12$", 12}, {"- 3", -3}, {"+.5", 0.5}, {"1.2.3", 1.2}, {"--1", 0}, {".", 0},
           {"1e-999", 0}}) {
    EXPECT_DOUBLE_EQ(Val(text), expected) << text;
  }
}

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

// Text: numbers read under the locale and formatted, other text as it is.
// Dates through date masks; "m" straight after an hour means minutes.
TEST(Convert, FormatFollowsTheMask) {
  const struct {
    Variant value;
    const char* mask;
    const char* expected;
  } rows[] = {
      {1.5, "#0.00######", "1{d}50"}, {2.0 / 3.0, "#0.00######", "0{d}66666667"},
      {0.17, "#.00", "{d}17"}, {1.0, "0.00000000", "1{d}00000000"}, {2.675, "0.00", "2{d}68"},
      {1.005, "0.00", "1{d}01"}, {0.125, "0.00", "0{d}13"}, {2.5, "0", "3"}, {7.0, "000", "007"},
      {5.5, ".00", "5{d}50"}, {1.0, "#.##", "1{d}"}, {0.0, "#", ""}, {-0.001, "0.00", "0{d}00"},
      {1234567.891, "#,##0.00", "1{g}234{g}567{d}89"}, {999.999, "#,##0.00", "1{g}000{d}00"},
      {0.125, "0.00%", "12{d}50%"}, {-1.5, "0.00;(0.00)", "(1{d}50)"},
      {0.0, "0.00;(0.00);\"nulis\"", "nulis"},
      {3.0, "\"Kaina: \"0.00 \\E\\U\\R", "Kaina: 3{d}00 EUR"},
      {Variant(int32_t{42}), "0.0", "42{d}0"}, {true, "0", "-1"}, {1.5, "", "1{d}5"},
      {1234.5, "Standard", "1{g}234{d}50"}, {Date{45382.75}, "Short Date", "2024-03-31"},
      {Date{45382.75}, "long time", "18:00:00"}, {Variant(), "0.00", "0{d}00"},
      {"1{d}5", "0.00", "1{d}50"}, {"abc", "0.00", "abc"}, {Variant::Null(), "0.00", ""},
      {Date{45382.5}, "yyyy.mm.dd", "2024.03.31"}, {Date{45382.5}, "dd/mm/yyyy", "31-03-2024"},
      {Date{45382.0 + 13.0 / 24 + 5.0 / 1440}, "hh:mm", "13:05"},
      {Date{45382.0 + 13.0 / 24 + 5.0 / 1440 + 7.0 / 86400}, "yy-m-d h:nn:ss",
       "24-3-31 13:05:07"},
      {Date{45382}, "y", "91"}, {Date{45382}, "\"Data\" yyyy", "Data 2024"},
      {"2024-03-31", "yyyy", "2024"}, {Variant(int32_t{45382}), "yyyy-mm-dd", "2024-03-31"},
      {Date{45382.25}, "0.00", "45382{d}25"}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    EXPECT_EQ(Format(InValue(l, c.value), c.mask, l), In(l, c.expected)) << c.mask;
  });
}

// FormatNumber rounds as money and groups digits when asked.
TEST(Convert, FormatNumberRoundsAsMoneyGroupsWhenAsked) {
  const struct {
    double x;
    int decimals;
    bool group;
    const char* expected;
  } rows[] = {{1234.5, 2, false, "1234{d}50"}, {-0.5, 2, false, "-0{d}50"},
              {1234567.5, 2, true, "1{g}234{g}567{d}50"}, {-1234.0, 0, true, "-1{g}234"},
              {999.995, 2, true, "1{g}000{d}00"}, {0.125, 2, false, "0{d}13"},
              {-0.004, 2, false, "0{d}00"}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    EXPECT_EQ(FormatNumber(c.x, c.decimals, c.group, l), In(l, c.expected));
  });
}

// Months and days out of range roll over.
TEST(Convert, DateSerialCountsDaysFrom18991230) {
  using Row = std::tuple<int, int, int, double>;
  for (const auto& [year, month, day, serial] : std::initializer_list<Row>{
           {1899, 12, 30, 0}, {1900, 3, 1, 61}, {2024, 1, 1, 45292},
           {2024, 13, 1, 45658},   // 2025-01-01
           {2024, 3, 0, 45351},    // 2024-02-29
           {2024, 0, 1, 45261},    // 2023-12-01
           {2024, -11, 1, 44927},  // 2023-01-01
           {24, 1, 1, 45292}, {99, 1, 1, 36161}, {100, 1, 1, -657434}, {9999, 12, 31, 2958465}}) {
    EXPECT_EQ(DateSerial(year, month, day).serial, serial) << year << "-" << month << "-" << day;
  }
}

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


// The three forms only, and the locale's own short form.
TEST(Convert, ParseDateAcceptsTheThreeFormsOnly) {
  const struct {
    const char* text;
    double serial;
  } rows[] = {{"2024-01-01", 45292}, {"1990.01.01", 32874}, {" 2024-3-5 ", 45356},
              {"2024-02-29", 45351}, {"2024-01-01 12:00:00", 45292.5},
              {"2024-01-01 06:30", 45292.0 + 6.5 / 24}, {"18:00:00", 0.75}, {"2023-02-29", kNone},
              {"2024-13-01", kNone}, {"2024/01/01", kNone}, {"01.01.2024", kNone},
              {"2024-01-01x", kNone}, {"2024-01-01 25:00", kNone}, {"0099-01-01", kNone},
              {"", kNone}, {"20240101", kNone}, {"2024-01", kNone}};
  UnderBothLocales(rows, [](const auto& c, const Locale& l) {
    const auto d = ParseDate(c.text, l);
    ASSERT_EQ(d.has_value(), !std::isnan(c.serial)) << c.text;
    if (d) {
      EXPECT_DOUBLE_EQ(d->serial, c.serial);
    }
  });
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
