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

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "AmountReading.h"
#include "common/AmountInWords.h"
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

// Standard output, gathered into large writes. What has been gathered goes
// out before the program waits for input and before any message on standard
// error, so that a person at a terminal, or a program driving orvel-words
// through a pipe, has each answer as soon as its line is read, and the
// answers and the messages keep their order on a shared terminal.
class Output {
 public:
  static constexpr size_t kChunk = 1 << 16;

  Output() { text_.reserve(2 * kChunk); }
  ~Output() { Flush(); }

  std::string& Text() { return text_; }

  // Writes out once a chunk has gathered.
  void Line() {
    text_ += '\n';
    if (text_.size() >= kChunk) Flush();
  }

  void Flush() {
    const char* at = text_.data();
    size_t left = text_.size();
    while (left > 0) {
      const ssize_t written = ::write(STDOUT_FILENO, at, left);
      if (written < 0) {
        if (errno == EINTR) continue;
        break;  // nobody is reading (a closed pipe): the answers have nowhere to go
      }
      at += written;
      left -= static_cast<size_t>(written);
    }
    text_.clear();
  }

 private:
  std::string text_;
};

// Answers one amount; returns false (after a message) when it has no words.
// `line` is the number of the input line, 0 for an argument.
bool Answer(std::string_view input, long line, const Options& options, Output& out) {
  char rounded[orvel::words::kPlainAmountSize];
  const size_t plain = orvel::words::PlainAmount(input, rounded);
  if (plain > 0 &&
      orvel::AppendRoundedAmountWords(out.Text(), std::string_view(rounded, plain),
                                      options.feminine, options.withCents)) {
    out.Line();
    return true;
  }

  const std::string where = line > 0 ? std::to_string(line) + " eilutė: " : std::string();
  const std::optional<double> amount = orvel::words::ReadAmount(input);
  if (!amount) {
    out.Flush();
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
    out.Flush();
    std::cerr << kProgram << ": " << where << words.error << '\n';
    return false;
  }
  out.Text() += words.words;
  out.Line();
  return true;
}

// Every line of standard input, as std::getline splits it: a last line
// without its line feed counts, an empty end does not; a carriage return
// before the line feed is dropped.
bool AnswerInput(const Options& options, Output& out) {
  bool allAnswered = true;
  long lineNumber = 0;
  std::vector<char> buffer(1 << 20);
  size_t kept = 0;  // the start of a line whose end is not read yet
  for (;;) {
    out.Flush();
    if (kept == buffer.size()) buffer.resize(buffer.size() * 2);
    const ssize_t got = ::read(STDIN_FILENO, buffer.data() + kept, buffer.size() - kept);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    const char* const end = buffer.data() + kept + got;
    const char* line = buffer.data();
    for (const char* at = buffer.data() + kept; at < end; ++at) {
      if (*at != '\n') continue;
      std::string_view text(line, static_cast<size_t>(at - line));
      if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
      allAnswered = Answer(text, ++lineNumber, options, out) && allAnswered;
      line = at + 1;
    }
    kept = static_cast<size_t>(end - line);
    std::memmove(buffer.data(), line, kept);
  }
  if (kept > 0) {
    std::string_view text(buffer.data(), kept);
    if (text.back() == '\r') text.remove_suffix(1);
    allAnswered = Answer(text, ++lineNumber, options, out) && allAnswered;
  }
  return allAnswered;
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

  Output out;
  bool allAnswered = true;
  if (!amounts.empty()) {
    for (const std::string_view amount : amounts) {
      allAnswered = Answer(amount, 0, options, out) && allAnswered;
    }
  } else {
    allAnswered = AnswerInput(options, out);
  }
  out.Flush();
  return allAnswered ? 0 : 1;
}
