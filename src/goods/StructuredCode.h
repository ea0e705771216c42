#pragma once

#include <optional>
#include <string>

#include "orvel/Locale.h"
#include "orvel/Variant.h"

// Structured goods codes: a child's code begins with its parent group's code
// and ends in a running number. The business layer reports the parent's code
// and the highest code now used under it; the arithmetic on the text is done
// here. Nothing keeps counters.
namespace orvel {

// The tail of a proposed code whose width is not known (the parent has no
// children yet, or the numbers could not be worked out): the user types the
// tail by hand.
inline constexpr const char* kUnknownCodeTail = "???";

// The code proposed for a new record from its parent's code `parentCode` (P)
// and the highest code under the parent `maxCode` (M), either of them Null.
// The first case that holds:
//   A  P and M numeric: P, then the last Len(M) - Len(P) characters of
//      Len(M) zeros followed by M + 1 read as a double. The series wraps when
//      it overflows its width (the leading digit is cut); the business
//      layer's uniqueness rule answers for a clash when the record is saved.
//   B  P Null, M numeric: the last Len(M) characters of Len(M) zeros followed
//      by M + 1 as a 32-bit integer (a top-level series).
//   C, D  P numeric, M Null or "": P followed by "???".
//   E  otherwise: nullopt, the code is left as it is.
// When A or B cannot be worked out (M shorter than P, M beyond a 32-bit
// integer, a number out of range) the result is P followed by "???", which is
// "???" alone for a Null P. "Numeric" is the runtime's test under `locale`: a
// sign, blanks and the decimal separator are accepted.
std::optional<std::string> ProposeStructuredCode(const Variant& parentCode, const Variant& maxCode,
                                                 const Locale& locale = ActiveLocale());

// The text of a number in case A: a whole value in plain digits with no
// exponent (a double holds exact digits up to fifteen; beyond, the digits are
// those of the double), any other value as the runtime writes it.
std::string CodeNumberText(double value, const Locale& locale = ActiveLocale());

}  // namespace orvel
