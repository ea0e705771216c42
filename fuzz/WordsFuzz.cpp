// Amounts in words on arbitrary input: every double (NaN, infinities,
// subnormals, the largest values), every text into PluralForm and
// TripletToWords. Nothing may throw, crash or hang, and the answers must keep
// their shape:
//   - AmountToWords gives words or an error, never both nor neither; it fails
//     exactly when the integer part rounded to cents has more than twelve
//     digits, or the amount is not finite;
//   - the words are built of the word tables only: no digit of the amount
//     (the cents aside), no doubled or stray blank, a capital first letter;
//   - the cents are the two digits DecimalText rounds to, and the words
//     without cents are the words with cents minus the markers;
//   - PluralForm answers 0 to 3;
//   - the currency layer (SumByWords) agrees with the words it wraps.
//
// The input is read as: 8 bytes of a double (raw bits), then text. With
// fewer than 8 bytes the whole input is text only.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "common/AmountInWords.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"

namespace {

[[noreturn]] void Fail() { std::abort(); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The integer part of the amount after rounding to cents, without a sign.
size_t WholeDigits(double amount) {
  const std::string text = orvel::DecimalText(amount, 2);
  return text.size() - 3 - (text[0] == '-' ? 1 : 0);
}

void CheckWords(const std::string& words) {
  if (words.empty() || words.front() == ' ' || words.back() == ' ') Fail();
  if (words.find("  ") != std::string::npos) Fail();
  for (char c : words) {
    if (IsDigit(c)) Fail();
  }
  // Upper-case first letter: ASCII, or "Š" (C5 A0) for the words that begin
  // with "š".
  const auto lead = static_cast<unsigned char>(words[0]);
  if (!((lead >= 'A' && lead <= 'Z') || words.compare(0, 2, "\xC5\xA0") == 0)) Fail();
}

orvel::MemoryRecordset& Currency() {
  static orvel::MemoryRecordset record = [] {
    orvel::MemoryRecordset rs({"State", "GenderCurr", "OneCurr", "TwoCurr", "TenCurr", "OneSmall",
                               "TwoSmall", "TenSmall"});
    rs.AddRow({"Vokietijos", 0, "euras", "eurai", "eurų", "centas", "centai", "centų"});
    return rs;
  }();
  return record;
}

void CheckAmount(double amount, bool feminine) {
  const orvel::AmountInWords withCents = orvel::AmountToWords(amount, feminine, true);
  const orvel::AmountInWords bare = orvel::AmountToWords(amount, feminine, false);
  if (withCents.ok() == withCents.words.empty()) Fail();
  if (withCents.ok() != bare.ok()) Fail();
  const bool hasWords = std::isfinite(amount) && WholeDigits(amount) <= 12;
  if (withCents.ok() != hasWords) Fail();

  const orvel::OrvelResult sum = orvel::SumByWords({amount, true}, Currency().Fields());
  if (!withCents.ok()) {
    if (withCents.error.empty() || bare.error.empty()) Fail();
    if (sum.Number != 9 || sum.Text.empty()) Fail();
    return;
  }
  if (sum.Number != 0 || !sum.Value.IsString()) Fail();

  if (amount == 0.0) {
    if (withCents.words != "Nulis Lt 00 ct" || bare.words != withCents.words) Fail();
    return;
  }
  // "<words> Lt <cents> ct" with the cents DecimalText gives.
  const std::string& w = withCents.words;
  if (w.size() < 10 || w.compare(w.size() - 3, 3, " ct") != 0) Fail();
  const std::string cents = w.substr(w.size() - 5, 2);
  const std::string text = orvel::DecimalText(amount, 2);
  if (cents != text.substr(text.size() - 2)) Fail();
  if (w.compare(w.size() - 9, 4, " Lt ") != 0) Fail();
  if (w.substr(0, w.size() - 9) != bare.words) Fail();
  CheckWords(bare.words);
  // The method puts the currency between the same words and cents; the
  // record's currency is masculine.
  const std::string masculine =
      feminine ? orvel::AmountToWords(amount, false, false).words : bare.words;
  if (!sum.Value.String().starts_with(masculine + " Vokietijos ")) Fail();
}

void CheckText(std::string_view text) {
  const int16_t form = orvel::PluralForm(text);
  if (form < 0 || form > 3) Fail();
  const std::string words = orvel::TripletToWords(text, text.size() % 2 == 1);
  if (!words.empty()) {
    if (words.find("  ") != std::string::npos || words.front() == ' ' || words.back() == ' ') {
      Fail();
    }
    for (char c : words) {
      if (IsDigit(c)) Fail();
    }
  }
  // A digit string read as an amount, when it is one.
  if (!text.empty() && text.size() <= 40) {
    bool digits = true;
    for (char c : text) digits = digits && IsDigit(c);
    if (digits) CheckAmount(std::strtod(std::string(text).c_str(), nullptr), false);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
  if (size >= sizeof(double)) {
    double amount;
    std::memcpy(&amount, bytes, sizeof amount);
    CheckAmount(amount, (bytes[0] & 1) != 0);
    bytes += sizeof amount;
    size -= sizeof amount;
  }
  CheckText(std::string_view(reinterpret_cast<const char*>(bytes), size));
  return 0;
}
