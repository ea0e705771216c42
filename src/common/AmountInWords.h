#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orvel/OrvelResult.h"
#include "orvel/Variant.h"

// Amounts in Lithuanian words, for the sum line of printed payment documents.
//
// Two layers. AmountToWords knows one currency shape only: it writes the
// markers " Lt " and " ct" around the cents ("Dvidešimt vienas Lt 02 ct").
// SumByWords, the routine behind the currency object's method of that name,
// calls it and exchanges the markers for the words of the currency record
// ("Dvidešimt vienas Vokietijos euras 02 centai"). Cents are always two
// digits, never words.
//
// Amounts are rounded to cents half away from zero on the decimal value a
// person reads (2.675 is 2.68), the sign is dropped, and the words reach up to
// 999 999 999 999.99. Nothing here throws: an amount without words comes back
// as a failure with a Lithuanian text.
namespace orvel {

class Fields;

// What AmountToWords gives back: the words, or why the amount has none.
struct AmountInWords {
  std::string words;  // never empty on success ("Nulis" at least)
  std::string error;  // empty on success; else a Lithuanian text, lower-case first

  bool ok() const { return error.empty(); }
};

// The grammatical form that a number written in `digits` demands of the noun
// after it: 0 none (zero), 1 singular ("vienas euras", "dvidešimt vienas
// euras"), 2 plural ("du eurai"), 3 genitive plural ("dešimt eurų",
// "vienuolika eurų"). Leading zeros are allowed ("001" gives 1, "011" gives
// 3) and so is a sign: a negative number counts as "at most 9" and gives 2,
// which the currency words of negative amounts rely on ("-21" asks for the
// plural). Digits beyond a 16-bit integer are judged by their last two digits;
// text that is not a whole number (empty, other characters) gives 0.
int16_t PluralForm(std::string_view digits);

// The words of a number of one to three digits, leading zeros allowed, its sign
// ignored: "" for zero, "vienas šimtas dvidešimt vienas" for "121" (or "...
// viena" when feminine; the hundreds stay masculine). Other text has no words
// and gives "".
std::string TripletToWords(std::string_view digits, bool feminine);

// The amount in words with the currency markers: "Dvidešimt vienas Lt 02 ct",
// or only "Dvidešimt vienas" without cents. `feminine` puts the units of the
// last triplet in the feminine gender; thousands, millions and milliards are
// masculine nouns and keep their own gender.
//
// Kept on purpose, as printed documents depend on them:
//   - exactly 0 gives "Nulis Lt 00 ct" even without cents;
//   - an amount that rounds to zero cents but is not 0 (0.001) gives
//     "Nulis Lt 00 ct", or plain "Nulis" without cents;
//   - the sign is dropped: -5 reads as 5.
// An amount whose rounded integer part has thirteen digits or more, NaN and
// the infinities have no words: the result then holds an error.
AmountInWords AmountToWords(double amount, bool feminine, bool withCents);

// AmountToWords for an amount that its caller already holds as the text
// DecimalText(amount, 2) writes, without the sign: whole digits with no
// leading zero (a lone "0" for none), ".", two cent digits ("21.02", "0.50").
// Appends the same words as AmountToWords gives for that amount (or for its
// negative) to `out`; "0.00" is taken as exactly 0. A program that reads
// amounts as text skips the double and its rounding this way. Returns false,
// appending nothing, for text of any other shape or with more than twelve
// whole digits.
bool AppendRoundedAmountWords(std::string& out, std::string_view rounded, bool feminine,
                              bool withCents);

// The currency object's "SumByWords" method: `params` are (amount, optional
// withCents, True by default), `currency` the fields of the currency record:
// State, GenderCurr (0 masculine, else feminine), OneCurr, TwoCurr, TenCurr,
// OneSmall, TwoSmall, TenSmall. A Null text field reads as "".
//
// Success: Number 0 and the words in Value, the currency markers replaced by
// "<State> <unit word>" and the cents by " <cents> <small unit word>". The word
// forms are chosen from the amount as written with its sign, so -11 and -21
// both take TwoCurr; the words themselves drop the sign. Without cents no
// marker is found and Value is the bare words (except for 0, whose words always
// carry the markers).
//
// Failures: no amount gives Number 777 and "SumByWords: nenurodyta suma !"; an
// amount without words gives Number 9 (the old routine's subscript failure);
// an amount or flag that does not convert, or a field missing or unreadable,
// gives the conversion's or the record's number. Every failure text begins
// with "SumByWords: " and is in Lithuanian; Value stays "".
OrvelResult SumByWords(const Variant::Array& params, Fields& currency);

}  // namespace orvel
