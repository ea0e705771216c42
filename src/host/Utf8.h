#pragma once

#include <cstddef>
#include <string_view>

namespace orvel {

// One character of UTF-8 text: its code point and how many bytes it takes.
// A byte that does not start a well-formed sequence (a stray continuation
// byte, a truncated or overlong sequence, an encoded surrogate, anything above
// U+10FFFF) is not well formed and counts as one byte.
struct Utf8Char {
  char32_t cp;
  size_t size;
  bool wellFormed;
};

// The character starting at byte `i` of `s` (i < s.size()).
Utf8Char DecodeUtf8(std::string_view s, size_t i);

}  // namespace orvel
