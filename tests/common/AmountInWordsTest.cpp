#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <iomanip>
#include <limits>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "AmountReading.h"
#include "common/AmountInWords.h"
#include "host/MemoryRecordset.h"
#include "host/Text.h"
#include "orvel/Locale.h"
#include "orvel/RuntimeError.h"
#include "support/TextRecords.h"

namespace orvel {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kLargestWords =
    "Devyni šimtai devyniasdešimt devyni milijardai devyni šimtai devyniasdešimt devyni "
    "milijonai devyni šimtai devyniasdešimt devyni tūkstančiai devyni šimtai devyniasdešimt "
    "devyni";
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

// Text keeping the amount's minus sign: every negative number is "at most 9".
// Beyond a 16-bit integer the last digits still decide; text that is not a
// whole number asks for no form.
TEST(PluralForm, GivesTheFormTheNounTakes) {
  for (const auto& [digits, form] : std::vector<std::pair<const char*, int16_t>>{
           {"001", 1}, {"011", 3}, {"010", 3}, {"102", 2}, {"000", 0}, {"1", 1}, {"9", 2},
           {"05", 2}, {"21", 1}, {"111", 3}, {"-0", 0}, {"-1", 2}, {"-11", 2}, {"32768", 2},
           {"1000000000000000000011", 3}, {"", 0}, {"-", 0}, {"1a", 0}, {" 1", 0}, {"1.5", 0}}) {
    EXPECT_EQ(PluralForm(digits), form) << '"' << digits << '"';
  }
}

// More than three digits, or no digits, has no words.
TEST(TripletToWords, SpellsTheNumber) {
  for (const auto& [digits, feminine, words] :
       std::vector<std::tuple<const char*, bool, const char*>>{
           {"000", true, ""}, {"007", true, "septynios"}, {"012", true, "dvylika"},
           {"051", true, "penkiasdešimt viena"}, {"100", true, "vienas šimtas"},
           {"205", true, "du šimtai penkios"}, {"310", false, "trys šimtai dešimt"},
           {"-5", false, "penki"}, {"1000", false, ""}, {"", false, ""}, {"1x", false, ""},
           {"213", false, "du šimtai trylika"}}) {
    EXPECT_EQ(TripletToWords(digits, feminine), words) << '"' << digits << '"';
  }
}

struct WordsCase {
  double amount;
  bool feminine, withCents;
  std::string words;
};
constexpr bool kM = false, kF = true;  // masculine, feminine
constexpr bool kCents = true, kNoCents = false;

// The first letter is upper-cased as a character ("Šeši"); "šimtas", the
// thousands and the scales above are masculine whatever the gender asked,
// which reaches only the rightmost triplet; all-zero triplets add no word.
// The exact 0 keeps the markers even without cents; the sign is dropped;
// cents round half away from zero on the decimal value a person reads, and a
// carry may reach a new triplet.
TEST(AmountToWords, WritesTheWords) {
  for (const WordsCase& c : std::vector<WordsCase>{
           {21.02, kM, kCents, "Dvidešimt vienas Lt 02 ct"}, {2, kF, kCents, "Dvi Lt 00 ct"},
           {99, kF, kNoCents, "Devyniasdešimt devynios"}, {6, kF, kNoCents, "Šešios"},
           {16, kM, kCents, "Šešiolika Lt 00 ct"}, {40, kM, kCents, "Keturiasdešimt Lt 00 ct"},
           {101, kF, kCents, "Vienas šimtas viena Lt 00 ct"},
           {111, kM, kCents, "Vienas šimtas vienuolika Lt 00 ct"},
           {1001, kF, kCents, "Vienas tūkstantis viena Lt 00 ct"},
           {2002, kF, kCents, "Du tūkstančiai dvi Lt 00 ct"},
           {6000, kM, kCents, "Šeši tūkstančiai Lt 00 ct"},
           {11000, kM, kCents, "Vienuolika tūkstančių Lt 00 ct"},
           {21000, kF, kCents, "Dvidešimt vienas tūkstantis Lt 00 ct"},
           {100000, kM, kCents, "Vienas šimtas tūkstančių Lt 00 ct"},
           {1000000, kM, kCents, "Vienas milijonas Lt 00 ct"},
           {2002000, kM, kCents, "Du milijonai du tūkstančiai Lt 00 ct"},
           {12000000, kM, kNoCents, "Dvylika milijonų"},
           {1001000001, kF, kCents, "Vienas milijardas vienas milijonas viena Lt 00 ct"},
           {999999999999.99, kM, kCents, std::string(kLargestWords) + " Lt 99 ct"},
           {0.0, kF, kNoCents, "Nulis Lt 00 ct"}, {-0.0, kM, kNoCents, "Nulis Lt 00 ct"},
           {0.001, kM, kCents, "Nulis Lt 00 ct"}, {0.001, kM, kNoCents, "Nulis"},
           {0.10, kM, kCents, "Nulis Lt 10 ct"}, {-21.5, kF, kCents, "Dvidešimt viena Lt 50 ct"},
           {2.675, kM, kCents, "Du Lt 68 ct"}, {-2.675, kM, kCents, "Du Lt 68 ct"},
           {1.005, kM, kCents, "Vienas Lt 01 ct"}, {0.995, kM, kCents, "Vienas Lt 00 ct"},
           {999.999, kM, kCents, "Vienas tūkstantis Lt 00 ct"},
           {-999999999999.994, kM, kNoCents, kLargestWords}}) {
    const AmountInWords result = AmountToWords(c.amount, c.feminine, c.withCents);
    EXPECT_EQ(result.error + result.words, c.words)
        << std::setprecision(17) << c.amount << (c.feminine ? " feminine" : "")
        << (c.withCents ? "" : " without cents");
  }
}

// Thirteen integer digits or more, counted after rounding to cents.
TEST(AmountToWords, FailsWithAReasonWhenItHasNoWords) {
  for (const auto& [amount, reason] : std::vector<std::pair<double, const char*>>{
           {-1e12, "per didelė"}, {999999999999.995, "per didelė"},
           {std::numeric_limits<double>::max(), "per didelė"}, {kNaN, "baigtinis"},
           {-kInf, "baigtinis"}, {kInf, "baigtinis"}}) {
    for (bool withCents : {true, false}) {
      const AmountInWords result = AmountToWords(amount, false, withCents);
      EXPECT_EQ(result.words, "");
      EXPECT_THAT(result.error, HasSubstr(reason)) << std::setprecision(17) << amount;
    }
  }
}

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
      ASSERT_TRUE(w.front() != ' ' && w.back() != ' ') << amount << ": " << w;
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

TEST(AmountToWords, WordsDoNotDependOnTheSeparator) {
  for (const Locale& locale : {Locale::Lithuanian(), Locale::Invariant()}) {
    LocaleScope scope(locale);
    EXPECT_EQ(AmountToWords(1234.56, false, true).words,
              "Vienas tūkstantis du šimtai trisdešimt keturi Lt 56 ct");
    const AmountInWords tooLarge = AmountToWords(1234567890123.5, false, true);
    EXPECT_THAT(tooLarge.error, HasSubstr("1234567890123" + locale.decimalSeparator + "5"));
  }
}

// The currency records: Code State GenderCurr, the three forms of the unit,
// the three of the small unit, GenderSmall. Any GenderCurr other than 0 is
// feminine, True (-1) as well.
const char* kEuro = "X|Vokietijos|0|euras|eurai|eurų|centas|centai|centų|1";
const char* kKrona = "X|Švedijos|1|krona|kronos|kronų|erė|erės|erių|1";
const char* kKronaTrue = "X|Švedijos|true|krona|kronos|kronų|erė|erės|erių|1";

std::shared_ptr<MemoryRecordset> RecordOf(const char* currency) {
  return TextRecords(
      "Code State GenderCurr OneCurr TwoCurr TenCurr OneSmall TwoSmall TenSmall GenderSmall",
      {currency});
}

struct SumCase {
  const char* name;
  Variant::Array params;
  const char* value;
  const char* currency = kEuro;
};

// The small unit follows the two cent digits. Without cents no marker is
// found and the words stand bare, except for the exact 0. The form is chosen
// on the text that keeps the minus sign: one or two integer digits always
// take TwoCurr, longer ones their last three. A feminine currency: the units
// agree with it, the thousands and the hundreds stay masculine.
TEST(SumByWords, PutsTheCurrencyWordsIn) {
  for (const SumCase& c : std::vector<SumCase>{
           {"WorkedExample", {21.02}, "Dvidešimt vienas Vokietijos euras 02 centai"},
           {"AmountAsLocaleText", {"21,02"}, "Dvidešimt vienas Vokietijos euras 02 centai"},
           {"OneHundredEleven", {111}, "Vienas šimtas vienuolika Vokietijos eurų 00 centų"},
           {"ThousandAndOne", {1001}, "Vienas tūkstantis vienas Vokietijos euras 00 centų"},
           {"Cents00", {3.00}, "Trys Vokietijos eurai 00 centų"},
           {"Cents01", {3.01}, "Trys Vokietijos eurai 01 centas"},
           {"Cents02", {3.02}, "Trys Vokietijos eurai 02 centai"},
           {"Cents10", {3.10}, "Trys Vokietijos eurai 10 centų"},
           {"Cents11", {3.11}, "Trys Vokietijos eurai 11 centų"},
           {"Cents21", {3.21}, "Trys Vokietijos eurai 21 centas"},
           {"Cents22", {3.22}, "Trys Vokietijos eurai 22 centai"},
           {"FlagAsText", {21.02, "False"}, "Dvidešimt vienas"},
           {"ExplicitTrue", {5, true}, "Penki Vokietijos eurai 00 centų"},
           {"ExactZero", {0, false}, "Nulis Vokietijos eurų 00 centų"},
           {"AlmostZero", {0.001, false}, "Nulis"},
           {"EmptyAmount", {Variant()}, "Nulis Vokietijos eurų 00 centų"},
           {"MinusOne", {-1}, "Vienas Vokietijos eurai 00 centų"},
           {"MinusEleven", {-11}, "Vienuolika Vokietijos eurai 00 centų"},
           {"MinusHalf", {-0.50}, "Nulis Vokietijos eurų 50 centų"},
           {"MinusHundredOne", {-101}, "Vienas šimtas vienas Vokietijos euras 00 centų"},
           {"FemTwo", {2.02}, "Dvi Švedijos kronos 02 erės", kKrona},
           {"FemThousandAndOne", {1001}, "Vienas tūkstantis viena Švedijos krona 00 erių", kKrona},
           {"GenderTrue", {32}, "Trisdešimt dvi Švedijos kronos 00 erių", kKronaTrue}}) {
    SCOPED_TRACE(c.name);
    const OrvelResult r = SumByWords(c.params, RecordOf(c.currency)->Fields());
    EXPECT_EQ(std::to_string(r.Number) + "|" + r.Text, "0|");
    EXPECT_EQ(r.Value, Variant(c.value));
  }
}

// The number and a part of the text; no words.
TEST(SumByWords, ReportsFailuresWithoutWords) {
  for (const auto& [params, number, text] :
       std::vector<std::tuple<Variant::Array, int32_t, const char*>>{
           {{}, 777, "SumByWords: nenurodyta suma !"},
           {{999999999999.995, false}, RuntimeError::kSubscript, "per didelė"},
           {{kInf}, RuntimeError::kSubscript, "baigtinis"},
           {{"abc"}, RuntimeError::kTypeMismatch, "SumByWords: suma „abc“ nėra skaičius !"},
           {{Variant::Null()}, RuntimeError::kInvalidUseOfNull, "Null"},
           {{21.02, "gal"}, RuntimeError::kTypeMismatch, "antrasis parametras „gal“"}}) {
    const OrvelResult r = SumByWords(params, RecordOf(kEuro)->Fields());
    EXPECT_EQ(r.Number, number) << text;
    EXPECT_THAT(r.Text, AllOf(StartsWith("SumByWords: "), HasSubstr(text)));
    EXPECT_EQ(r.Value, Variant(""));
  }
}

// A missing field is named; a Null gender is an error while a Null text
// reads empty; no current record is reported.
TEST(SumByWordsRecord, MissingNullAndAbsentRecordFieldsAreNamed) {
  const std::string all = "State GenderCurr OneCurr TwoCurr TenCurr OneSmall TwoSmall TenSmall";
  using Case = std::tuple<std::string, std::vector<std::string>, double, int32_t, const char*>;
  for (const auto& [fields, rows, amount, number, named] : std::vector<Case>{
           {"State GenderCurr OneCurr TwoCurr TenCurr OneSmall TenSmall",
            {"Vokietijos|0|euras|eurai|eurų|centas|centų"}, 2.02, RuntimeError::kItemNotFound,
            "„TwoSmall“"},
           {all, {}, 1, RuntimeError::kNoCurrentRecord, "„State“"},
           {all, {"~|~|euras|eurai|eurų|centas|centai|~"}, 1, RuntimeError::kInvalidUseOfNull,
            "„GenderCurr“"}}) {
    const OrvelResult r = SumByWords({amount}, TextRecords(fields, rows)->Fields());
    EXPECT_EQ(r.Number, number) << named;
    EXPECT_THAT(r.Text, HasSubstr(named));
    EXPECT_EQ(r.Value, Variant(""));
  }
  const OrvelResult r =
      SumByWords({1}, TextRecords(all, {"~|0|euras|eurai|eurų|centas|centai|~"})->Fields());
  EXPECT_EQ(std::to_string(r.Number) + "|" + r.Text + "|" + ConcatText(r.Value),
            "0||Vienas  euras 00 ");
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
