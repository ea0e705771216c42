#pragma once

#include <array>
#include <string>
#include <string_view>

// Text order for record set sorts: the order of StrComp(a, b, Compare::Text)
// from host/Text.h, made cheap to compare many times. Each row's text is
// turned into a collation key once; keys then compare byte by byte. ASCII
// text, which is nearly all a record set holds, is its own key (its letters
// are folded while comparing); only other text is folded into a copy.
namespace orvel {

bool IsAsciiText(std::string_view s);

// false: the text is its own collation key.
bool NeedsCollationKey(std::string_view s);
// Every character case-folded as the text compare folds it, re-encoded in
// UTF-8; a byte that is not well-formed UTF-8 becomes the code point the text
// compare gives it, so that byte order is the text compare's order.
std::string CollationKey(std::string_view s);

namespace collation_detail {
// ASCII letters folded to lower case, as the text compare folds them (which
// puts "_" before letters); every other byte stays as it is.
inline constexpr std::array<unsigned char, 256> kFold = [] {
  std::array<unsigned char, 256> t{};
  for (int i = 0; i < 256; ++i) {
    t[i] = static_cast<unsigned char>((i >= 'A' && i <= 'Z') ? i - 'A' + 'a' : i);
  }
  return t;
}();
}  // namespace collation_detail

// -1, 0 or 1 for two collation keys. Inline: a sort calls it some twenty
// times a row.
inline int CompareCollationKeys(std::string_view a, std::string_view b) {
  const size_t n = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < n; ++i) {
    unsigned char x = collation_detail::kFold[static_cast<unsigned char>(a[i])];
    unsigned char y = collation_detail::kFold[static_cast<unsigned char>(b[i])];
    if (x != y) return x < y ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace orvel
