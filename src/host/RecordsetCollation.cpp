#include "host/RecordsetCollation.h"

#include <cstdint>
#include <cstring>

#include "host/Text.h"
#include "host/Utf8.h"

namespace orvel {

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
    const Utf8Char c = DecodeUtf8(folded, i);
    size_t length = c.wellFormed ? c.size : 0;
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
