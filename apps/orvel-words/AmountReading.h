#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

// How orvel-words reads an amount from a line of text.
namespace orvel::words {

// An amount as a person types it: digits with one "." or "," as the decimal
// separator, an optional sign, blanks around. Returns nothing for any other
// text.
std::optional<double> ReadAmount(std::string_view input);

// The longest text PlainAmount writes: twelve whole digits, ".", two cents.
constexpr size_t kPlainAmountSize = 16;

// The common case read without a double: an optional "-", one to thirty
// digits, and optionally "." or "," with one or two digits, nothing else (no
// blanks). Writes the amount as DecimalText(ReadAmount(line), 2) writes it,
// without the sign ("007,5" gives "7.50"), and returns its length; returns 0
// for any other text and for more than twelve whole digits, which go the
// general way. Exact because such a text has at most fourteen significant
// digits: the double read from it gives the same fifteen digits back, and
// with at most two decimals the rounding to cents changes nothing.
size_t PlainAmount(std::string_view line, char (&rounded)[kPlainAmountSize]);

}  // namespace orvel::words
