#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <memory>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "AmountReading.h"
#include "common/AmountInWords.h"
#include "host/MemoryRecordset.h"
#include "host/Text.h"
#include "orvel/Locale.h"
#include "orvel/RuntimeError.h"

namespace orvel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kLargestWords =
    "Devyni šimtai devyniasdešimt devyni milijardai devyni šimtai devyniasdešimt devyni "
    "milijonai devyni šimtai devyniasdešimt devyni tūkstančiai devyni šimtai devyniasdešimt "
    "devyni";
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct FormCase {
  const char* digits;
  int16_t form;
};
void PrintTo(const FormCase& c, std::ostream* os) { *os << '"' << c.digits << '"'; }

class PluralFormTest : public testing::TestWithParam<FormCase> {};

TEST_P(PluralFormTest, GivesTheFormTheNounTakes) {
  EXPECT_EQ(PluralForm(GetParam().digits), GetParam().form);
}

// Text keeping the amount's minus sign: every negative number is "at most 9".
// Beyond a 16-bit integer the last digits still decide; text that is not a
// whole number asks for no form.
INSTANTIATE_TEST_SUITE_P(Triplets, PluralFormTest,
                         testing::Values(FormCase{"001", 1}, FormCase{"011", 3}, FormCase{"010", 3},
                                         FormCase{"102", 2}, FormCase{"000", 0}, FormCase{"1", 1},
                                         FormCase{"9", 2}, FormCase{"05", 2}, FormCase{"21", 1},
                                         FormCase{"111", 3}, FormCase{"-0", 0}, FormCase{"-1", 2},
                                         FormCase{"-11", 2}, FormCase{"32768", 2},
                                         FormCase{"1000000000000000000011", 3}, FormCase{"", 0},
                                         FormCase{"-", 0}, FormCase{"1a", 0}, FormCase{" 1", 0},
                                         FormCase{"1.5", 0}));

struct TripletCase {
  const char* digits;
  bool feminine;
  const char* words;
};
void PrintTo(const TripletCase& c, std::ostream* os) { *os << '"' << c.digits << '"'; }

class TripletToWordsTest : public testing::TestWithParam<TripletCase> {};

TEST_P(TripletToWordsTest, SpellsTheNumber) {
  EXPECT_EQ(TripletToWords(GetParam().digits, GetParam().feminine), GetParam().words);
}

// More than three digits, or no digits, has no words.
INSTANTIATE_TEST_SUITE_P(
    All, TripletToWordsTest,
    testing::Values(TripletCase{"000", true, ""}, TripletCase{"007", true, "septynios"},
                    TripletCase{"012", true, "dvylika"},
                    TripletCase{"051", true, "penkiasdešimt viena"},
                    TripletCase{"100", true, "vienas šimtas"},
                    TripletCase{"205", true, "du šimtai penkios"},
                    TripletCase{"310", false, "trys šimtai dešimt"},
                    TripletCase{"-5", false, "penki"}, TripletCase{"1000", false, ""},
                    TripletCase{"", false, ""}, TripletCase{"1x", false, ""},
                    TripletCase{"213", false, "du šimtai trylika"}));

struct WordsCase {
  double amount;
  bool feminine;
  bool withCents;
  const char* words;
};
void PrintTo(const WordsCase& c, std::ostream* os) {
  *os << std::setprecision(17) << c.amount << (c.feminine ? " feminine" : "")
      << (c.withCents ? "" : " without cents");
}

class AmountToWordsTest : public testing::TestWithParam<WordsCase> {};

TEST_P(AmountToWordsTest, WritesTheWords) {
  const WordsCase& c = GetParam();
  const AmountInWords result = AmountToWords(c.amount, c.feminine, c.withCents);
  EXPECT_TRUE(result.ok()) << result.error;
  EXPECT_EQ(result.words, c.words);
}

constexpr bool kM = false, kF = true;  // masculine, feminine
constexpr bool kCents = true, kNoCents = false;

// The first letter is upper-cased as a character ("Šeši"); "šimtas", the
// thousands and the scales above are masculine whatever the gender asked,
// which reaches only the rightmost triplet; all-zero triplets add no word.
INSTANTIATE_TEST_SUITE_P(
    Words, AmountToWordsTest,
    testing::Values(
        WordsCase{21.02, kM, kCents, "Dvidešimt vienas Lt 02 ct"},
        WordsCase{2, kF, kCents, "Dvi Lt 00 ct"},
        WordsCase{99, kF, kNoCents, "Devyniasdešimt devynios"},
        WordsCase{6, kF, kNoCents, "Šešios"}, WordsCase{16, kM, kCents, "Šešiolika Lt 00 ct"},
        WordsCase{40, kM, kCents, "Keturiasdešimt Lt 00 ct"},
        WordsCase{101, kF, kCents, "Vienas šimtas viena Lt 00 ct"},
        WordsCase{111, kM, kCents, "Vienas šimtas vienuolika Lt 00 ct"},
        WordsCase{1001, kF, kCents, "Vienas tūkstantis viena Lt 00 ct"},
        WordsCase{2002, kF, kCents, "Du tūkstančiai dvi Lt 00 ct"},
        WordsCase{6000, kM, kCents, "Šeši tūkstančiai Lt 00 ct"},
        WordsCase{11000, kM, kCents, "Vienuolika tūkstančių Lt 00 ct"},
        WordsCase{21000, kF, kCents, "Dvidešimt vienas tūkstantis Lt 00 ct"},
        WordsCase{100000, kM, kCents, "Vienas šimtas tūkstančių Lt 00 ct"},
        WordsCase{1000000, kM, kCents, "Vienas milijonas Lt 00 ct"},
        WordsCase{2002000, kM, kCents, "Du milijonai du tūkstančiai Lt 00 ct"},
        WordsCase{12000000, kM, kNoCents, "Dvylika milijonų"},
        WordsCase{1001000001, kF, kCents, "Vienas milijardas vienas milijonas viena Lt 00 ct"},
        WordsCase{999999999999.99, kM, kCents,
                  "Devyni šimtai devyniasdešimt devyni milijardai devyni šimtai devyniasdešimt "
                  "devyni milijonai devyni šimtai devyniasdešimt devyni tūkstančiai devyni šimtai "
                  "devyniasdešimt devyni Lt 99 ct"}));

// The exact 0 keeps the markers even without cents; the sign is dropped;
// cents round half away from zero on the decimal value a person reads, and a
// carry may reach a new triplet.
INSTANTIATE_TEST_SUITE_P(
    ZeroSignAndRounding, AmountToWordsTest,
    testing::Values(WordsCase{0.0, kF, kNoCents, "Nulis Lt 00 ct"},
                    WordsCase{-0.0, kM, kNoCents, "Nulis Lt 00 ct"},
                    WordsCase{0.001, kM, kCents, "Nulis Lt 00 ct"},
                    WordsCase{0.001, kM, kNoCents, "Nulis"},
                    WordsCase{0.10, kM, kCents, "Nulis Lt 10 ct"},
                    WordsCase{-21.5, kF, kCents, "Dvidešimt viena Lt 50 ct"},
                    WordsCase{2.675, kM, kCents, "Du Lt 68 ct"},
                    WordsCase{-2.675, kM, kCents, "Du Lt 68 ct"},
                    WordsCase{1.005, kM, kCents, "Vienas Lt 01 ct"},
                    WordsCase{0.995, kM, kCents, "Vienas Lt 00 ct"},
                    WordsCase{999.999, kM, kCents, "Vienas tūkstantis Lt 00 ct"},
                    WordsCase{-999999999999.994, kM, kNoCents, kLargestWords}));

struct NoWordsCase {
  double amount;
  const char* reason;
};
void PrintTo(const NoWordsCase& c, std::ostream* os) { *os << std::setprecision(17) << c.amount; }

class AmountWithoutWordsTest : public testing::TestWithParam<NoWordsCase> {};

TEST_P(AmountWithoutWordsTest, FailsWithAReason) {
  for (bool withCents : {true, false}) {
    const AmountInWords result = AmountToWords(GetParam().amount, false, withCents);
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(result.words, "");
    EXPECT_THAT(result.error, HasSubstr(GetParam().reason));
  }
}

// Thirteen integer digits or more, counted after rounding to cents.
INSTANTIATE_TEST_SUITE_P(
    All, AmountWithoutWordsTest,
    testing::Values(NoWordsCase{-1e12, "per didelė"}, NoWordsCase{999999999999.995, "per didelė"},
                    NoWordsCase{std::numeric_limits<double>::max(), "per didelė"},
                    NoWordsCase{kNaN, "baigtinis"}, NoWordsCase{-kInf, "baigtinis"},
                    NoWordsCase{kInf, "baigtinis"}));

// Words come only from the tables: whatever the amount, no digit of the
// amount, no table slot "0", no doubled or stray blank reaches the words.
TEST(AmountToWordsSweep, WordsAreCleanAcrossTheRange) {
  std::mt19937_64 gen(6202);
  std::vector<double> amounts;
  for (int n = 1; n < 3000; ++n) amounts.push_back(n);  // 0 keeps its markers
  for (int k = 0; k < 20000; ++k) {
    const double scale = std::pow(10.0, 1 + static_cast<int>(gen() % 12));
    amounts.push_back(std::floor(static_cast<double>(gen() % 1000000007) / 1000000007.0 * scale) +
                      static_cast<double>(gen() % 100) / 100.0);
  }
  for (double amount : amounts) {
    for (bool feminine : {false, true}) {
      const AmountInWords result = AmountToWords(amount, feminine, false);
      ASSERT_TRUE(result.ok()) << amount << ": " << result.error;
      const std::string& w = result.words;
      ASSERT_EQ(w.find_first_of("0123456789"), std::string::npos) << amount << ": " << w;
      ASSERT_EQ(w.find("  "), std::string::npos) << amount << ": " << w;
      ASSERT_NE(w.front(), ' ');
      ASSERT_NE(w.back(), ' ');
    }
  }
}

// The separator of the platform's locale is counted, never read: the words
// are the same under both.
class LocaleScope {
 public:
  explicit LocaleScope(Locale locale)
      : previous_(SetLocaleSource(std::make_shared<const Source>(std::move(locale)))) {}
  ~LocaleScope() { SetLocaleSource(previous_); }

 private:
  struct Source : LocaleSource {
    explicit Source(Locale l) : locale(std::move(l)) {}
    const Locale& CurrentLocale() const override { return locale; }
    Locale locale;
  };
  std::shared_ptr<const LocaleSource> previous_;
};

class WordsUnderLocaleTest : public testing::TestWithParam<Locale> {};

TEST_P(WordsUnderLocaleTest, WordsDoNotDependOnTheSeparator) {
  LocaleScope scope(GetParam());
  EXPECT_EQ(AmountToWords(1234.56, false, true).words,
            "Vienas tūkstantis du šimtai trisdešimt keturi Lt 56 ct");
  const AmountInWords tooLarge = AmountToWords(1234567890123.5, false, true);
  EXPECT_THAT(tooLarge.error, HasSubstr("1234567890123" + GetParam().decimalSeparator + "5"));
}

INSTANTIATE_TEST_SUITE_P(BothSeparators, WordsUnderLocaleTest,
                         testing::Values(Locale::Lithuanian(), Locale::Invariant()),
                         [](const testing::TestParamInfo<Locale>& info) {
                           return info.param.decimalSeparator == "," ? "Comma" : "Point";
                         });

struct Currency {
  const char* state;
  Variant gender;
  const char* one;
  const char* two;
  const char* ten;
  const char* oneSmall;
  const char* twoSmall;
  const char* tenSmall;
};

const Currency kEuro{"Vokietijos", 0, "euras", "eurai", "eurų", "centas", "centai", "centų"};
const Currency kKrona{"Švedijos", 1, "krona", "kronos", "kronų", "erė", "erės", "erių"};
// Any GenderCurr other than 0 is feminine, True (-1) as well.
const Currency kKronaTrue{"Švedijos", true, "krona", "kronos", "kronų", "erė", "erės", "erių"};

std::shared_ptr<MemoryRecordset> RecordOf(const Currency& c) {
  auto rs = std::make_shared<MemoryRecordset>(
      std::vector<std::string>{"Code", "State", "GenderCurr", "OneCurr", "TwoCurr", "TenCurr",
                               "OneSmall", "TwoSmall", "TenSmall", "GenderSmall"});
  rs->AddRow({"X", c.state, c.gender, c.one, c.two, c.ten, c.oneSmall, c.twoSmall, c.tenSmall, 1});
  return rs;
}

struct SumCase {
  const char* name;
  Variant::Array params;
  const char* value;
  const Currency* currency = &kEuro;
};
void PrintTo(const SumCase& c, std::ostream* os) { *os << c.name; }

class SumByWordsTest : public testing::TestWithParam<SumCase> {};

TEST_P(SumByWordsTest, PutsTheCurrencyWordsIn) {
  auto record = RecordOf(*GetParam().currency);
  const OrvelResult r = SumByWords(GetParam().params, record->Fields());
  EXPECT_EQ(r.Number, 0) << r.Text;
  EXPECT_EQ(r.Text, "");
  EXPECT_EQ(r.Value, Variant(GetParam().value));
}

std::string SumCaseName(const testing::TestParamInfo<SumCase>& info) { return info.param.name; }

// The small unit follows the two cent digits. Without cents no marker is
// found and the words stand bare, except for the exact 0. The form is chosen
// on the text that keeps the minus sign: one or two integer digits always
// take TwoCurr, longer ones their last three. A feminine currency: the units
// agree with it, the thousands and the hundreds stay masculine.
INSTANTIATE_TEST_SUITE_P(
    All, SumByWordsTest,
    testing::Values(
        SumCase{"WorkedExample", {21.02}, "Dvidešimt vienas Vokietijos euras 02 centai"},
        SumCase{"AmountAsLocaleText", {"21,02"}, "Dvidešimt vienas Vokietijos euras 02 centai"},
        SumCase{"OneHundredEleven", {111}, "Vienas šimtas vienuolika Vokietijos eurų 00 centų"},
        SumCase{"ThousandAndOne", {1001}, "Vienas tūkstantis vienas Vokietijos euras 00 centų"},
        SumCase{"Cents00", {3.00}, "Trys Vokietijos eurai 00 centų"},
        SumCase{"Cents01", {3.01}, "Trys Vokietijos eurai 01 centas"},
        SumCase{"Cents02", {3.02}, "Trys Vokietijos eurai 02 centai"},
        SumCase{"Cents10", {3.10}, "Trys Vokietijos eurai 10 centų"},
        SumCase{"Cents11", {3.11}, "Trys Vokietijos eurai 11 centų"},
        SumCase{"Cents21", {3.21}, "Trys Vokietijos eurai 21 centas"},
        SumCase{"Cents22", {3.22}, "Trys Vokietijos eurai 22 centai"},
        SumCase{"FlagAsText", {21.02, "False"}, "Dvidešimt vienas"},
        SumCase{"ExplicitTrue", {5, true}, "Penki Vokietijos eurai 00 centų"},
        SumCase{"ExactZero", {0, false}, "Nulis Vokietijos eurų 00 centų"},
        SumCase{"AlmostZero", {0.001, false}, "Nulis"},
        SumCase{"EmptyAmount", {Variant()}, "Nulis Vokietijos eurų 00 centų"},
        SumCase{"MinusOne", {-1}, "Vienas Vokietijos eurai 00 centų"},
        SumCase{"MinusEleven", {-11}, "Vienuolika Vokietijos eurai 00 centų"},
        SumCase{"MinusHalf", {-0.50}, "Nulis Vokietijos eurų 50 centų"},
        SumCase{"MinusHundredOne", {-101}, "Vienas šimtas vienas Vokietijos euras 00 centų"},
        SumCase{"FemTwo", {2.02}, "Dvi Švedijos kronos 02 erės", &kKrona},
        SumCase{
            "FemThousandAndOne", {1001}, "Vienas tūkstantis viena Švedijos krona 00 erių", &kKrona},
        SumCase{"GenderTrue", {32}, "Trisdešimt dvi Švedijos kronos 00 erių", &kKronaTrue}),
    SumCaseName);

struct SumFailureCase {
  const char* name;
  Variant::Array params;
  int32_t number;
  const char* text;  // a part of the text
};
void PrintTo(const SumFailureCase& c, std::ostream* os) { *os << c.name; }

class SumByWordsFailureTest : public testing::TestWithParam<SumFailureCase> {};

TEST_P(SumByWordsFailureTest, ReportsWithoutWords) {
  auto record = RecordOf(kEuro);
  const OrvelResult r = SumByWords(GetParam().params, record->Fields());
  EXPECT_EQ(r.Number, GetParam().number);
  EXPECT_THAT(r.Text, StartsWith("SumByWords: "));
  EXPECT_THAT(r.Text, HasSubstr(GetParam().text));
  EXPECT_EQ(r.Value, Variant(""));
}

INSTANTIATE_TEST_SUITE_P(
    All, SumByWordsFailureTest,
    testing::Values(SumFailureCase{"NoAmount", {}, 777, "SumByWords: nenurodyta suma !"},
                    SumFailureCase{"RoundsUpOutOfRange",
                                   {999999999999.995, false},
                                   RuntimeError::kSubscript,
                                   "per didelė"},
                    SumFailureCase{"Infinity", {kInf}, RuntimeError::kSubscript, "baigtinis"},
                    SumFailureCase{"TextAmount",
                                   {"abc"},
                                   RuntimeError::kTypeMismatch,
                                   "SumByWords: suma „abc“ nėra skaičius !"},
                    SumFailureCase{
                        "NullAmount", {Variant::Null()}, RuntimeError::kInvalidUseOfNull, "Null"},
                    SumFailureCase{"BadCentsFlag",
                                   {21.02, "gal"},
                                   RuntimeError::kTypeMismatch,
                                   "antrasis parametras „gal“"}),
    [](const testing::TestParamInfo<SumFailureCase>& info) { return info.param.name; });

// A missing field is named; a Null gender is an error while a Null text
// reads empty; no current record is reported.
TEST(SumByWordsRecord, MissingNullAndAbsentRecordFieldsAreNamed) {
  MemoryRecordset missing(
      {"State", "GenderCurr", "OneCurr", "TwoCurr", "TenCurr", "OneSmall", "TenSmall"});
  missing.AddRow({"Vokietijos", 0, "euras", "eurai", "eurų", "centas", "centų"});
  OrvelResult r = SumByWords({2.02}, missing.Fields());
  EXPECT_EQ(r.Number, RuntimeError::kItemNotFound);
  EXPECT_THAT(r.Text, HasSubstr("„TwoSmall“"));
  EXPECT_EQ(r.Value, Variant(""));

  MemoryRecordset record(
      {"State", "GenderCurr", "OneCurr", "TwoCurr", "TenCurr", "OneSmall", "TwoSmall", "TenSmall"});
  r = SumByWords({1}, record.Fields());
  EXPECT_EQ(r.Number, RuntimeError::kNoCurrentRecord);
  EXPECT_THAT(r.Text, HasSubstr("„State“"));

  record.AddRow({Variant::Null(), Variant::Null(), "euras", "eurai", "eurų", "centas", "centai",
                 Variant::Null()});
  r = SumByWords({1}, record.Fields());
  EXPECT_EQ(r.Number, RuntimeError::kInvalidUseOfNull);
  EXPECT_THAT(r.Text, HasSubstr("„GenderCurr“"));
  record.Fields("GenderCurr").SetValue(0);
  r = SumByWords({1}, record.Fields());
  EXPECT_EQ(r.Number, 0) << r.Text;
  EXPECT_EQ(r.Value, Variant("Vienas  euras 00 "));
}

// orvel-words reads plain amounts without a double and writes their words
// straight from the digits. Held to the general way (the amount read as a
// double, AmountToWords on it) line for line, in both genders, with and
// without cents, over typed amounts of every length, with leading zeros,
// either separator, signs and zeros; lines the quick way refuses must be
// ones it is not meant to take.
TEST(PlainAmount, GivesTheWordsOfTheGeneralWay) {
  std::vector<std::string> lines = Split(
      "0 -0 0,00 000 007 007.5 0.05 -0.5 12.3 12,30 100000 1000000 1001 21.02 999999999999.99 "
      "-999999999999,99 000000000000000000001.5",
      " ");
  std::mt19937_64 gen(2811);
  for (int k = 0; k < 200000; ++k) {
    const int digits = 1 + static_cast<int>(gen() % 12);
    std::string line = gen() % 8 == 0 ? "-" : "";
    if (gen() % 20 == 0) line.append(1 + gen() % 3, '0');
    for (int d = 0; d < digits; ++d) line += static_cast<char>('0' + gen() % 10);
    const int decimals = static_cast<int>(gen() % 3);
    if (decimals > 0) line += gen() % 2 == 0 ? '.' : ',';
    for (int d = 0; d < decimals; ++d) line += static_cast<char>('0' + gen() % 10);
    lines.push_back(line);
  }
  const std::vector<std::string> refused{
      "", " 5", "5 ", "+5", "5.", ".5", "1.234", "1e3", "1,000.00", "-", "1000000000000", "12a"};
  lines.insert(lines.end(), refused.begin(), refused.end());

  size_t quick = 0;
  for (const std::string& line : lines) {
    char rounded[words::kPlainAmountSize];
    const size_t size = words::PlainAmount(line, rounded);
    if (size == 0) continue;
    ++quick;
    const std::optional<double> amount = words::ReadAmount(line);
    ASSERT_TRUE(amount) << line;
    for (const bool feminine : {false, true}) {
      for (const bool withCents : {false, true}) {
        std::string text = "x";
        ASSERT_TRUE(
            AppendRoundedAmountWords(text, std::string_view(rounded, size), feminine, withCents))
            << line;
        const AmountInWords general = AmountToWords(*amount, feminine, withCents);
        ASSERT_TRUE(general.ok()) << line;
        ASSERT_EQ(text, "x" + general.words)
            << line << (feminine ? " feminine" : "") << (withCents ? "" : " without cents");
      }
    }
  }
  EXPECT_EQ(quick, lines.size() - refused.size());
  // Other shapes are no rounded amount.
  for (const char* shape : {"", "5", "5.0", "05.00", "1234567890123.00", "5,00", "5.0a", "-5.00"}) {
    std::string text;
    EXPECT_FALSE(AppendRoundedAmountWords(text, shape, false, true)) << shape;
    EXPECT_EQ(text, "");
  }
}

}  // namespace
}  // namespace orvel
