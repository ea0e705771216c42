#include "host/Utf8.h"

namespace orvel {

Utf8Char DecodeUtf8(std::string_view s, size_t i) {
  const auto b0 = static_cast<unsigned char>(s[i]);
  if (b0 < 0x80) return {b0, 1, true};
  const Utf8Char bad{0, 1, false};
  size_t size;
  char32_t cp;
  char32_t min;
  if (b0 >= 0xC2 && b0 <= 0xDF) {
    size = 2, cp = b0 & 0x1F, min = 0x80;
  } else if (b0 >= 0xE0 && b0 <= 0xEF) {
    size = 3, cp = b0 & 0x0F, min = 0x800;
  } else if (b0 >= 0xF0 && b0 <= 0xF4) {
    size = 4, cp = b0 & 0x07, min = 0x10000;
  } else {
    return bad;
  }
  if (s.size() - i < size) return bad;
  for (size_t k = 1; k < size; ++k) {
    const auto b = static_cast<unsigned char>(s[i + k]);
    if ((b & 0xC0) != 0x80) return bad;
    cp = (cp << 6) | (b & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return bad;
  return {cp, size, true};
}

}  // namespace orvel
