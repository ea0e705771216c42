#include "host/RecordsetCollation.h"

#include <cstdint>
#include <cstring>

#include "host/Text.h"

namespace orvel {

namespace {

// The length of the well-formed UTF-8 character at `s[i]`, or 0 when the
// byte there does not start one (the same test the text functions apply).
size_t WellFormedLength(std::string_view s, size_t i) {
  const auto b0 = static_cast<unsigned char>(s[i]);
  size_t size;
  uint32_t cp;
  uint32_t min;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    size = 2, cp = b0 & 0x1F, min = 0x80;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    size = 3, cp = b0 & 0x0F, min = 0x800;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    size = 4, cp = b0 & 0x07, min = 0x10000;
  } else {
    return 0;
  }
  if (s.size() - i < size) return 0;
  for (size_t k = 1; k < size; ++k) {
    const auto b = static_cast<unsigned char>(s[i + k]);
    if ((b & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (b & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return size;
}

}  // namespace

bool IsAsciiText(std::string_view s) {
  const char* p = s.data();
  size_t n = s.size();
  // Eight bytes at a time: any high bit set means a non-ASCII byte.
  while (n >= 8) {
    uint64_t word;
    std::memcpy(&word, p, 8);
    if (word & 0x8080808080808080ULL) return false;
    p += 8;
    n -= 8;
  }
  for (; n > 0; --n, ++p) {
    if (static_cast<unsigned char>(*p) >= 0x80) return false;
  }
  return true;
}

bool NeedsCollationKey(std::string_view s) { return !IsAsciiText(s); }

std::string CollationKey(std::string_view s) {
  // Upper then lower case is the text compare's fold (ſ, S and s all give s).
  // Both mappings copy a malformed byte through untouched.
  const std::string folded = LCase(UCase(s));
  std::string key;
  key.reserve(folded.size());
  for (size_t i = 0; i < folded.size();) {
    const auto b = static_cast<unsigned char>(folded[i]);
    if (b < 0x80) {
      key += static_cast<char>(b);
      ++i;
      continue;
    }
    size_t length = WellFormedLength(folded, i);
    if (length > 0) {
      key.append(folded, i, length);
      i += length;
      continue;
    }
    // The text compare reads a malformed byte as U+DC00 + byte (U+DC80 to
    // U+DCFF); its UTF-8 form sorts where that code point does.
    const uint32_t cp = 0xDC00 + b;
    key += static_cast<char>(0xE0 | (cp >> 12));
    key += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    key += static_cast<char>(0x80 | (cp & 0x3F));
    ++i;
  }
  return key;
}

}  // namespace orvel
