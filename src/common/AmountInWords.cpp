#include "common/AmountInWords.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>

#include "host/Convert.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

// The word tables. Index 0 of the units is never reached: a zero triplet and
// a zero last digit never index them.
constexpr std::array<std::string_view, 10> kUnitsM{
    "0", "vienas", "du", "trys", "keturi", "penki", "šeši", "septyni", "aštuoni", "devyni"};
constexpr std::array<std::string_view, 10> kUnitsF{"0",         "viena",   "dvi",    "trys",
                                                   "keturios",  "penkios", "šešios", "septynios",
                                                   "aštuonios", "devynios"};
// Ten to nineteen, by value minus 10 (inside a hundreds triplet, by the last
// digit).
constexpr std::array<std::string_view, 10> kTeens{
    "dešimt",     "vienuolika", "dvylika",      "trylika",      "keturiolika",
    "penkiolika", "šešiolika",  "septyniolika", "aštuoniolika", "devyniolika"};
// Round tens, by the tens digit minus 2.
constexpr std::array<std::string_view, 8> kTens{
    "dvidešimt",    "trisdešimt",      "keturiasdešimt",  "penkiasdešimt",
    "šešiasdešimt", "septyniasdešimt", "aštuoniasdešimt", "devyniasdešimt"};
// Thousands, millions, milliards: three times the triplet number (the
// rightmost being 1) minus 7 plus the plural form of the triplet.
constexpr std::array<std::string_view, 9> kScales{"tūkstantis", "tūkstančiai", "tūkstančių",
                                                  "milijonas",  "milijonai",   "milijonų",
                                                  "milijardas", "milijardai",  "milijardų"};

constexpr std::string_view kZeroWords = "Nulis";
constexpr std::string_view kZeroAmount = "Nulis Lt 00 ct";
constexpr std::string_view kUnitMarker = " Lt";
constexpr size_t kMaxWholeDigits = 12;

// A whole number read from text: an optional sign and at least one digit.
struct WholeNumber {
  bool valid = false;
  bool negative = false;
  int32_t magnitude = 0;  // saturates at kSaturated
  std::string_view digits;
};

constexpr int32_t kSaturated = 1000000;

WholeNumber ReadWhole(std::string_view text) {
  WholeNumber n;
  size_t i = 0;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    n.negative = text[0] == '-';
    i = 1;
  }
  if (i == text.size()) return n;
  for (size_t k = i; k < text.size(); ++k) {
    const char c = text[k];
    if (c < '0' || c > '9') return n;
    if (n.magnitude < kSaturated) n.magnitude = n.magnitude * 10 + (c - '0');
  }
  if (n.magnitude > kSaturated) n.magnitude = kSaturated;
  n.digits = text.substr(i);
  n.valid = true;
  return n;
}

// The unit word of `digit` (1..9) in the asked gender.
std::string_view Unit(int digit, bool feminine) {
  return feminine ? kUnitsF[digit] : kUnitsM[digit];
}

// Appends the words of `n` (0..999) to `out`; zero appends nothing. The
// hundreds word follows the masculine unit whatever the gender: "šimtas" is
// masculine, so 101 feminine is "vienas šimtas viena".
void AppendTriplet(std::string& out, int n, bool feminine) {
  auto unitAfterTens = [&](int last) {
    if (last > 0) {
      out += ' ';
      out += Unit(last, feminine);
    }
  };
  if (n == 0) return;
  if (n <= 9) {
    out += Unit(n, feminine);
    return;
  }
  if (n <= 19) {
    out += kTeens[n - 10];
    return;
  }
  if (n <= 99) {
    out += kTens[n / 10 - 2];
    unitAfterTens(n % 10);
    return;
  }
  const int hundreds = n / 100;
  const int tens = n / 10 % 10;
  const int last = n % 10;
  out += kUnitsM[hundreds];
  out += hundreds == 1 ? " šimtas" : " šimtai";
  if (tens == 0 && last == 0) return;
  out += ' ';
  if (tens == 0) {
    out += Unit(last, feminine);
  } else if (tens == 1) {
    out += kTeens[last];
  } else {
    out += kTens[tens - 2];
    unitAfterTens(last);
  }
}

int TripletValue(std::string_view digits) {
  int n = 0;
  for (char c : digits) n = n * 10 + (c - '0');
  return n;
}

// The words of every number from 0 to 999 in both genders, each also with its
// first character upper-cased (as a character: "šeši" -> "Šeši"), built once
// from the word tables. An amount's words are at most four of these and the
// scale words between them.
class TripletWords {
 public:
  static const TripletWords& Instance() {
    static const TripletWords words;
    return words;
  }

  // PluralForm of the triplet: the same for "5", "05" and "005".
  int16_t Form(int n) const { return forms_[static_cast<size_t>(n)]; }

  std::string_view Words(int n, bool feminine, bool capital) const {
    const Span span = spans_[(feminine ? 1 : 0) + (capital ? 2 : 0)][static_cast<size_t>(n)];
    return std::string_view(text_).substr(span.offset, span.size);
  }

 private:
  struct Span {
    uint32_t offset = 0;
    uint32_t size = 0;
  };

  TripletWords() {
    for (int n = 0; n < 1000; ++n) {
      const char digits[3] = {static_cast<char>('0' + n / 100),
                              static_cast<char>('0' + n / 10 % 10),
                              static_cast<char>('0' + n % 10)};
      forms_[static_cast<size_t>(n)] = PluralForm(std::string_view(digits, 3));
    }
    std::string words;
    for (size_t slot = 0; slot < spans_.size(); ++slot) {
      const bool feminine = (slot & 1) != 0;
      const bool capital = (slot & 2) != 0;
      for (int n = 0; n < 1000; ++n) {
        words.clear();
        AppendTriplet(words, n, feminine);
        if (capital) words = UpperFirst(words);
        spans_[slot][static_cast<size_t>(n)] = {static_cast<uint32_t>(text_.size()),
                                                static_cast<uint32_t>(words.size())};
        text_ += words;
      }
    }
  }

  std::array<int16_t, 1000> forms_;
  std::string text_;
  std::array<std::array<Span, 1000>, 4> spans_;
};

// How an amount that has no words is shown in a message: as the runtime
// writes a double (15 significant digits, the locale's separator).
std::string Shown(double amount) {
  if (std::isnan(amount)) return "NaN";
  if (std::isinf(amount)) return amount > 0 ? "+begalybė" : "-begalybė";
  return CStr(Variant(amount));
}

std::string LargestShown() { return "999999999999" + ActiveLocale().decimalSeparator + "99"; }

AmountInWords Failure(std::string error) {
  AmountInWords result;
  result.error = std::move(error);
  return result;
}

// The words of an amount already rounded to cents, its sign dropped: `text`
// is its whole digits, one separator character and two cent digits, with at
// most kMaxWholeDigits whole digits. Appends to `out`; an amount whose whole
// part and cents are all zeros gets plain "Nulis" (and its cents).
void AppendWords(std::string& out, std::string_view text, bool feminine, bool withCents) {
  const size_t wholeDigits = text.size() - 3;

  // Triplets from the left. A zero triplet, or a zero count of thousands,
  // leaves no piece; pieces are joined by one blank. The pieces are gathered
  // first so that the words grow `out` once, by their exact size (plain
  // pointers, left uninitialised: only the first `count` are read).
  struct Piece {
    const char* number;
    size_t numberSize;
    const char* scale;  // null for the rightmost triplet
    size_t scaleSize;
  };
  const TripletWords& table = TripletWords::Instance();
  Piece pieces[4];
  size_t count = 0;
  size_t length = 0;
  const size_t triplets = (wholeDigits + 2) / 3;
  size_t start = 0;
  for (size_t i = triplets; i >= 1; --i) {
    const size_t size = i == triplets ? wholeDigits - 3 * (i - 1) : 3;
    const std::string_view triplet = text.substr(start, size);
    start += size;
    const int value = TripletValue(triplet);
    // The first piece takes the capital letter.
    const bool capital = count == 0;
    std::string_view number;
    std::string_view scale;
    if (i == 1) {
      if (value == 0) continue;
      number = table.Words(value, feminine, capital);
    } else {
      // Every scale word is masculine, whatever the gender asked.
      const int16_t form = table.Form(value);
      if (form == 0) continue;
      number = table.Words(value, false, capital);
      scale = kScales[3 * i - 7 + static_cast<size_t>(form)];
      length += 1 + scale.size();
    }
    length += (count > 0 ? 1 : 0) + number.size();
    pieces[count++] = {number.data(), number.size(), scale.empty() ? nullptr : scale.data(),
                       scale.size()};
  }

  if (count == 0) {
    pieces[count++] = {kZeroWords.data(), kZeroWords.size(), nullptr, 0};
    length = kZeroWords.size();
  }
  // The blanks between the pieces are there from the start; the pieces and
  // the cents are copied into place.
  const size_t before = out.size();
  out.resize(before + length + (withCents ? 9 : 0), ' ');
  char* at = out.data() + before;
  for (size_t k = 0; k < count; ++k) {
    if (k > 0) ++at;
    std::memcpy(at, pieces[k].number, pieces[k].numberSize);
    at += pieces[k].numberSize;
    if (pieces[k].scale != nullptr) {
      std::memcpy(at + 1, pieces[k].scale, pieces[k].scaleSize);
      at += 1 + pieces[k].scaleSize;
    }
  }
  if (withCents) {
    // " Lt 02 ct"
    std::memcpy(at, " Lt ", 4);
    std::memcpy(at + 4, text.data() + wholeDigits + 1, 2);
    std::memcpy(at + 6, " ct", 3);
  }
}

AmountInWords WordsOf(double amount, bool feminine, bool withCents) {
  if (amount == 0.0) return {std::string(kZeroAmount), {}};
  if (!std::isfinite(amount)) {
    return Failure("suma " + Shown(amount) + " nėra baigtinis skaičius, todėl žodžiais neužrašoma");
  }
  // Rounding to cents happens here and nowhere else; the separator is one
  // character, counted and never looked at.
  const std::string rounded = DecimalText(amount, 2);
  std::string_view text = rounded;
  if (amount < 0 && text.front() == '-') text.remove_prefix(1);
  if (text.size() - 3 > kMaxWholeDigits) {
    return Failure("suma " + Shown(amount) + " per didelė žodžiams: žodžiais užrašomos sumos iki " +
                   LargestShown() + " (be ženklo)");
  }
  AmountInWords result;
  AppendWords(result.words, text, feminine, withCents);
  return result;
}

// A field of the currency record; a missing or unreadable one is a
// RuntimeError that names it.
Variant ReadField(Fields& currency, std::string_view name) {
  try {
    return currency.Item(name).Value();
  } catch (const RuntimeError& e) {
    throw RuntimeError(e.Number(), "valiutos įraše neperskaitomas laukas „" + std::string(name) +
                                       "“ (" + e.Text() + ")");
  }
}

// Text fields join the words as the runtime's "&" joins them: Null as "".
std::string ReadText(Fields& currency, std::string_view name) {
  const Variant value = ReadField(currency, name);
  try {
    return ConcatText(value);
  } catch (const RuntimeError& e) {
    throw RuntimeError(e.Number(), "valiutos įrašo laukas „" + std::string(name) +
                                       "“ nėra tekstas (" + e.Text() + ")");
  }
}

std::string ShownParameter(const Variant& v) {
  return v.IsString() ? "„" + v.String() + "“" : Describe(v);
}

// The work of SumByWords; failures throw RuntimeError with the text to show.
OrvelResult SumByWordsOrThrow(const Variant::Array& params, Fields& currency) {
  OrvelResult result;
  result.Number = 777;
  result.Value = Variant("");
  if (params.empty()) {
    result.Text = "SumByWords: nenurodyta suma !";
    return result;
  }

  bool withCents = true;
  if (params.size() > 1) {
    try {
      withCents = CBool(params[1]);
    } catch (const RuntimeError& e) {
      throw RuntimeError(
          e.Number(), "antrasis parametras " + ShownParameter(params[1]) + " nėra loginė reikšmė");
    }
  }
  double amount = 0.0;
  try {
    amount = CDbl(params[0]);
  } catch (const RuntimeError& e) {
    throw RuntimeError(e.Number(), "suma " + ShownParameter(params[0]) + " nėra skaičius");
  }
  if (!std::isfinite(amount)) {
    throw RuntimeError(RuntimeError::kSubscript, AmountToWords(amount, false, withCents).error);
  }

  // The forms are chosen on the amount as written, its sign kept: "-21"
  // gives "-21" to PluralForm, a negative number, hence the plural.
  const std::string text = DecimalText(amount, 2);
  const std::string_view whole = std::string_view(text).substr(0, text.size() - 3);
  const std::string_view lastDigits = whole.size() > 3 ? whole.substr(whole.size() - 3) : whole;
  const int16_t unitForm = PluralForm(lastDigits);
  const char* const unitField = unitForm == 1 ? "OneCurr" : (unitForm == 2 ? "TwoCurr" : "TenCurr");
  std::string name = ReadText(currency, "State");
  name += ' ';
  name += ReadText(currency, unitField);
  const int16_t smallForm = PluralForm(std::string_view(text).substr(text.size() - 2));
  const char* const smallField =
      smallForm == 1 ? "OneSmall" : (smallForm == 2 ? "TwoSmall" : "TenSmall");
  const std::string small = ReadText(currency, smallField);

  int16_t gender = 0;
  const Variant genderValue = ReadField(currency, "GenderCurr");
  try {
    gender = CInt(genderValue);
  } catch (const RuntimeError& e) {
    throw RuntimeError(e.Number(), "valiutos įrašo laukas „GenderCurr“ " +
                                       ShownParameter(genderValue) + " nėra sveikasis skaičius");
  }

  AmountInWords words = AmountToWords(amount, gender != 0, withCents);
  if (!words.ok()) throw RuntimeError(RuntimeError::kSubscript, words.error);

  result.Number = 0;
  const size_t marker = words.words.find(kUnitMarker);
  if (marker == std::string::npos) {
    result.Value = Variant(std::move(words.words));
    return result;
  }
  // What follows the marker is a blank, the two cent digits and a blank.
  std::string value = words.words.substr(0, marker);
  value += ' ';
  value += name;
  value += std::string_view(words.words).substr(marker + kUnitMarker.size(), 4);
  value += small;
  result.Value = Variant(std::move(value));
  return result;
}

}  // namespace

int16_t PluralForm(std::string_view digits) {
  const WholeNumber n = ReadWhole(digits);
  if (!n.valid) return 0;
  const int32_t value = n.negative ? -n.magnitude : n.magnitude;
  if (value == 0) return 0;
  if (value == 1) return 1;
  if (value <= 9) return 2;
  const char last = digits.back();
  if (last == '0') return 3;
  const std::string_view lastTwo = digits.substr(digits.size() - 2);
  if (lastTwo >= "11" && lastTwo <= "19") return 3;
  return last == '1' ? 1 : 2;
}

std::string TripletToWords(std::string_view digits, bool feminine) {
  const WholeNumber n = ReadWhole(digits);
  std::string words;
  if (!n.valid || n.digits.size() > 3) return words;
  AppendTriplet(words, n.magnitude, feminine);
  return words;
}

bool AppendRoundedAmountWords(std::string& out, std::string_view rounded, bool feminine,
                              bool withCents) {
  const size_t size = rounded.size();
  if (size < 4 || size - 3 > kMaxWholeDigits || rounded[size - 3] != '.') return false;
  const auto digit = [](char c) { return c >= '0' && c <= '9'; };
  if (!digit(rounded[size - 2]) || !digit(rounded[size - 1])) return false;
  bool zero = rounded[size - 2] == '0' && rounded[size - 1] == '0';
  for (size_t i = 0; i < size - 3; ++i) {
    if (!digit(rounded[i]) || (i == 0 && rounded[i] == '0' && size > 4)) return false;
    zero = zero && rounded[i] == '0';
  }
  if (zero) {
    out += kZeroAmount;
  } else {
    AppendWords(out, rounded, feminine, withCents);
  }
  return true;
}

AmountInWords AmountToWords(double amount, bool feminine, bool withCents) {
  try {
    return WordsOf(amount, feminine, withCents);
  } catch (const std::exception& e) {
    return Failure(std::string("sumos nepavyko užrašyti žodžiais (") + e.what() + ")");
  }
}

OrvelResult SumByWords(const Variant::Array& params, Fields& currency) {
  try {
    return SumByWordsOrThrow(params, currency);
  } catch (const RuntimeError& e) {
    return OrvelResult{e.Number(), "SumByWords: " + e.Text() + " !", Variant("")};
  } catch (const std::exception& e) {
    return OrvelResult{RuntimeError::kInvalidCall, std::string("SumByWords: ") + e.what() + " !",
                       Variant("")};
  }
}

}  // namespace orvel
