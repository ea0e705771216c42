// orvel-words: amounts in Lithuanian words, as printed payment documents carry
// them.
//
//   orvel-words [--feminine] [--no-cents] [AMOUNT...]
//
// Each amount gets one line of words on standard output, with the currency
// markers " Lt " and " ct" around the cents unless --no-cents is given.
// --feminine puts the units in the feminine gender (for a feminine currency
// noun). An amount may use "." or "," as its decimal separator. Without amount
// arguments every line of standard input is one amount. A text that is not an
// amount, or an amount without words, gets a message on standard error; the
// others are still answered, and the exit status is then 1.

#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/AmountInWords.h"
#include "host/Convert.h"
#include "host/Locale.h"
#include "host/Text.h"

namespace {

constexpr std::string_view kProgram = "orvel-words";

constexpr std::string_view kUsage =
    "Naudojimas: orvel-words [--feminine] [--no-cents] [SUMA...]\n"
    "Užrašo sumas lietuviškais žodžiais, kiekvieną atskiroje eilutėje.\n"
    "Be sumų argumentų skaito po vieną sumą iš kiekvienos standartinės įvesties eilutės.\n"
    "  --feminine  vienetai moteriškąja gimine (pvz., „viena“, „dvi“)\n"
    "  --no-cents  tik žodžiai, be „Lt“ ir centų\n"
    "  --help      ši pagalba\n"
    "Sumos dešimtainis skirtukas gali būti „.“ arba „,“: 21.02 ir 21,02 yra tas pats.\n";

struct Options {
  bool feminine = false;
  bool withCents = true;
};

// An amount as a person types it: digits with one "." or "," as the decimal
// separator, an optional sign, blanks around. Returns nothing for any other
// text.
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

// Answers one amount; returns false (after a message) when it has no words.
bool Answer(std::string_view input, std::string_view where, const Options& options) {
  const std::optional<double> amount = ReadAmount(input);
  if (!amount) {
    std::cerr << kProgram << ": " << where;
    if (orvel::Trim(input).empty()) {
      std::cerr << "tuščia, o ne suma\n";
    } else {
      std::cerr << "„" << input << "“ nėra suma (rašykite skaičių, pvz., 21.02 arba 21,02)\n";
    }
    return false;
  }
  const orvel::AmountInWords words =
      orvel::AmountToWords(*amount, options.feminine, options.withCents);
  if (!words.ok()) {
    std::cerr << kProgram << ": " << where << words.error << '\n';
    return false;
  }
  std::cout << words.words << '\n';
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  std::vector<std::string_view> amounts;
  bool optionsEnd = false;
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (optionsEnd || arg.size() < 2 || arg[0] != '-' || (arg[1] != '-' && arg != "-h")) {
      amounts.push_back(arg);  // "-5" is an amount
    } else if (arg == "--") {
      optionsEnd = true;
    } else if (arg == "--feminine") {
      options.feminine = true;
    } else if (arg == "--no-cents") {
      options.withCents = false;
    } else if (arg == "--help" || arg == "-h") {
      std::cout << kUsage;
      return 0;
    } else {
      std::cerr << kProgram << ": nežinoma parinktis „" << arg << "“\n" << kUsage;
      return 2;
    }
  }

  bool allAnswered = true;
  if (!amounts.empty()) {
    for (const std::string_view amount : amounts) {
      allAnswered = Answer(amount, "", options) && allAnswered;
    }
  } else {
    std::string line;
    long lineNumber = 0;
    while (std::getline(std::cin, line)) {
      ++lineNumber;
      if (!line.empty() && line.back() == '\r') line.pop_back();
      const std::string where = std::to_string(lineNumber) + " eilutė: ";
      allAnswered = Answer(line, where, options) && allAnswered;
    }
  }
  std::cout.flush();
  return allAnswered ? 0 : 1;
}
