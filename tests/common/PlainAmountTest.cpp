#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <vector>

#include "AmountReading.h"
#include "common/AmountInWords.h"

namespace orvel {
namespace {

// orvel-words reads plain amounts without a double and writes their words
// straight from the digits. Held to the general way (the amount read as a
// double, AmountToWords on it) line for line, in both genders, with and
// without cents, over typed amounts of every length, with leading zeros,
// either separator, signs and zeros; lines the quick way refuses must be
// ones it is not meant to take.
TEST(PlainAmount, GivesTheWordsOfTheGeneralWay) {
  std::vector<std::string> lines{"0",    "-0",    "0,00",  "000",    "007",     "007.5", "0.05",
                                 "-0.5", "12.3",  "12,30", "100000", "1000000", "1001",  "21.02",
                                 "999999999999.99", "-999999999999,99", "000000000000000000001.5"};
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
  const std::vector<std::string> refused{"", " 5", "5 ", "+5", "5.", ".5", "1.234", "1e3",
                                         "1,000.00", "-", "1000000000000", "12a"};
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
        ASSERT_TRUE(AppendRoundedAmountWords(text, std::string_view(rounded, size), feminine,
                                             withCents))
            << line;
        const AmountInWords general = AmountToWords(*amount, feminine, withCents);
        ASSERT_TRUE(general.ok()) << line;
        ASSERT_EQ(text, "x" + general.words) << line << (feminine ? " feminine" : "")
                                             << (withCents ? "" : " without cents");
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
