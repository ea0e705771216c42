#include "host/Text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "host/Convert.h"
#include "orvel/RuntimeError.h"
#include "host/Utf8.h"

namespace orvel {

namespace {

// One character of UTF-8 text: its code point and how many bytes it takes.
// A byte that does not start a well-formed sequence (a stray continuation
// byte, a truncated or overlong sequence, an encoded surrogate, anything above
// U+10FFFF) is one character of its own. It gets a code point in the low
// surrogate range (U+DC80..U+DCFF), which well-formed UTF-8 can never produce,
// so a bad byte only ever equals the same bad byte and is never case-mapped.
struct Char {
  char32_t cp;
  size_t size;
};

constexpr char32_t kBadByteBase = 0xDC00;

bool IsBadByte(char32_t cp) { return cp >= kBadByteBase + 0x80 && cp <= kBadByteBase + 0xFF; }

Char DecodeAt(std::string_view s, size_t i) {
  const Utf8Char c = DecodeUtf8(s, i);
  if (!c.wellFormed) return {kBadByteBase + static_cast<unsigned char>(s[i]), 1};
  return {c.cp, c.size};
}

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Latin Extended-A pairs its letters as upper/lower neighbours; which of the
// two is the capital flips at U+0139 and U+0179 and back at U+014A. U+0130,
// U+0131, U+0138, U+0149 and U+017F are not part of a pair and are handled by
// the callers.
bool InExtendedAPairs(char32_t cp, bool& upperIsEven) {
  if (cp >= 0x0100 && cp <= 0x0137 && cp != 0x0130 && cp != 0x0131) {
    upperIsEven = true;
  } else if (cp >= 0x0139 && cp <= 0x0148) {
    upperIsEven = false;
  } else if (cp >= 0x014A && cp <= 0x0177) {
    upperIsEven = true;
  } else if (cp >= 0x0179 && cp <= 0x017E) {
    upperIsEven = false;
  } else {
    return false;
  }
  return true;
}

char32_t ToUpper(char32_t cp) {
  if (cp < 0x80) return (cp >= 'a' && cp <= 'z') ? cp - 0x20 : cp;
  if (cp >= 0xE0 && cp <= 0xFE && cp != 0xF7) return cp - 0x20;
  if (cp == 0xFF) return 0x0178;  // ÿ -> Ÿ
  if (cp == 0x0131) return 'I';   // dotless ı
  if (cp == 0x017F) return 'S';   // long ſ
  bool upperIsEven;
  if (InExtendedAPairs(cp, upperIsEven)) {
    const bool isEven = (cp % 2) == 0;
    return isEven == upperIsEven ? cp : cp - 1;
  }
  return cp;
}

char32_t ToLower(char32_t cp) {
  if (cp < 0x80) return (cp >= 'A' && cp <= 'Z') ? cp + 0x20 : cp;
  if (cp >= 0xC0 && cp <= 0xDE && cp != 0xD7) return cp + 0x20;
  if (cp == 0x0178) return 0xFF;  // Ÿ -> ÿ
  if (cp == 0x0130) return 'i';   // dotted İ
  bool upperIsEven;
  if (InExtendedAPairs(cp, upperIsEven)) {
    const bool isEven = (cp % 2) == 0;
    return isEven == upperIsEven ? cp + 1 : cp;
  }
  return cp;
}

// The key text comparisons use: every case form of a letter folds to one
// code point (ſ, S and s to "s"; ı, I, İ and i to "i").
char32_t Fold(char32_t cp) { return ToLower(ToUpper(cp)); }

struct AsciiFoldTable {
  unsigned char map[128];
  constexpr AsciiFoldTable() : map() {
    for (int c = 0; c < 128; ++c) {
      map[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + 0x20 : c);
    }
  }
};
constexpr AsciiFoldTable kAsciiFold;

// Eight bytes at a time for the ASCII stretch of a comparison: a record-set
// filter compares a million rows this way.
constexpr uint64_t kHighBits = 0x8080808080808080ull;

uint64_t Load8(const char* p) {
  uint64_t v;
  std::memcpy(&v, p, sizeof v);
  return v;
}

// Lower-cases eight ASCII bytes at once (every high bit must be clear): a byte
// gets 0x20 added when it is at least 'A' and not above 'Z'.
uint64_t AsciiLower8(uint64_t x) {
  const uint64_t atLeastA = x + 0x3F3F3F3F3F3F3F3Full;   // 0x80 - 'A' per byte
  const uint64_t aboveZ = x + 0x2525252525252525ull;     // 0x7F - 'Z' per byte
  return x | (((atLeastA & ~aboveZ) & kHighBits) >> 2);  // 0x80 >> 2 == 0x20
}

// Skips the leading run of whole 8-byte words that are ASCII and equal but
// for case; returns where the byte-wise comparison has to go on.
size_t SkipEqualAsciiWords(std::string_view a, std::string_view b) {
  const size_t n = std::min(a.size(), b.size());
  size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    const uint64_t x = Load8(a.data() + i);
    const uint64_t y = Load8(b.data() + i);
    if (((x | y) & kHighBits) != 0) break;
    if (x != y && AsciiLower8(x) != AsciiLower8(y)) break;
  }
  return i;
}

// Case mapping that copies unchanged characters (bad bytes included) as they
// are and re-encodes only those that change.
template <class Map>
std::string MapCase(std::string_view s, Map map) {
  std::string out;
  out.reserve(s.size());
  for (size_t i = 0; i < s.size();) {
    const Char c = DecodeAt(s, i);
    const char32_t m = map(c.cp);
    if (m == c.cp) {
      out.append(s.substr(i, c.size));
    } else {
      AppendUtf8(out, m);
    }
    i += c.size;
  }
  return out;
}

// Byte offset just after the first `count` characters (or the end).
size_t OffsetOfChar(std::string_view s, int64_t count) {
  size_t i = 0;
  for (int64_t n = 0; n < count && i < s.size(); ++n) i += DecodeAt(s, i).size;
  return i;
}

// Whether `match` occurs in `s` at byte offset `at`, character by character.
// Returns the byte offset just after the occurrence, or npos.
size_t MatchAt(std::string_view s, size_t at, std::string_view match, Compare compare) {
  size_t i = at;
  size_t j = 0;
  while (j < match.size()) {
    if (i >= s.size()) return std::string_view::npos;
    const Char a = DecodeAt(s, i);
    const Char b = DecodeAt(match, j);
    const bool same = compare == Compare::Text ? Fold(a.cp) == Fold(b.cp) : a.cp == b.cp;
    if (!same) return std::string_view::npos;
    i += a.size;
    j += b.size;
  }
  return i;
}

// Byte offset of the first occurrence of `match` at or after byte `from`
// (a character boundary), or npos.
size_t FindFrom(std::string_view s, size_t from, std::string_view match, Compare compare) {
  for (size_t i = from; i < s.size(); i += DecodeAt(s, i).size) {
    if (MatchAt(s, i, match, compare) != std::string_view::npos) return i;
  }
  return std::string_view::npos;
}

[[noreturn]] void InvalidCall(const std::string& text) {
  throw RuntimeError(RuntimeError::kInvalidCall, "Neteisingas procedūros kvietimas arba argumentas: " + text);
}

int Sign(int64_t d) { return d < 0 ? -1 : (d > 0 ? 1 : 0); }

// Text compare of two strings from byte `i` on; both are already equal
// before it.
int CompareFolded(std::string_view a, std::string_view b, size_t i) {
  size_t j = i;
  while (i < a.size() && j < b.size()) {
    const auto ba = static_cast<unsigned char>(a[i]);
    const auto bb = static_cast<unsigned char>(b[j]);
    if ((ba | bb) < 0x80) {
      const unsigned char fa = kAsciiFold.map[ba];
      const unsigned char fb = kAsciiFold.map[bb];
      if (fa != fb) return fa < fb ? -1 : 1;
      ++i;
      ++j;
      continue;
    }
    const Char ca = DecodeAt(a, i);
    // The same bytes of a well-formed character decode the same: no need to
    // decode or fold them twice. (A bad byte of `a` may begin a whole
    // character in `b`.)
    if (ba == bb && !IsBadByte(ca.cp) && b.size() - j >= ca.size &&
        std::memcmp(a.data() + i, b.data() + j, ca.size) == 0) {
      i += ca.size;
      j += ca.size;
      continue;
    }
    const Char cb = DecodeAt(b, j);
    if (ca.cp != cb.cp) {
      const char32_t fa = Fold(ca.cp);
      const char32_t fb = Fold(cb.cp);
      if (fa != fb) return fa < fb ? -1 : 1;
    }
    i += ca.size;
    j += cb.size;
  }
  return Sign(static_cast<int64_t>(a.size() - i) - static_cast<int64_t>(b.size() - j));
}

}  // namespace

int Len(std::string_view s) {
  int n = 0;
  for (size_t i = 0; i < s.size(); i += DecodeAt(s, i).size) ++n;
  return n;
}

std::string Left(std::string_view s, int length) {
  if (length < 0) InvalidCall("Left length " + std::to_string(length) + " is negative");
  return std::string(s.substr(0, OffsetOfChar(s, length)));
}

std::string Right(std::string_view s, int length) {
  if (length < 0) InvalidCall("Right length " + std::to_string(length) + " is negative");
  const int total = Len(s);
  if (length >= total) return std::string(s);
  return std::string(s.substr(OffsetOfChar(s, total - length)));
}

std::string Mid(std::string_view s, int start, int length) {
  if (start <= 0) InvalidCall("Mid start " + std::to_string(start) + " must be 1 or more");
  const size_t from = OffsetOfChar(s, static_cast<int64_t>(start) - 1);
  const std::string_view rest = s.substr(from);
  if (length < 0) return std::string(rest);
  return std::string(rest.substr(0, OffsetOfChar(rest, length)));
}

int InStr(int start, std::string_view s, std::string_view match, Compare compare) {
  if (start <= 0) InvalidCall("InStr start " + std::to_string(start) + " must be 1 or more");
  if (start > Len(s)) return 0;
  if (match.empty()) return start;
  size_t i = OffsetOfChar(s, start - 1);
  for (int pos = start; i < s.size(); ++pos) {
    if (MatchAt(s, i, match, compare) != std::string_view::npos) return pos;
    i += DecodeAt(s, i).size;
  }
  return 0;
}

int InStr(std::string_view s, std::string_view match, Compare compare) {
  return InStr(1, s, match, compare);
}

int InStrRev(std::string_view s, std::string_view match, int start, Compare compare) {
  if (start == 0 || start < -1) {
    InvalidCall("InStrRev start " + std::to_string(start) + " must be -1 or 1 or more");
  }
  const int total = Len(s);
  if (total == 0) return 0;
  if (start == -1) start = total;
  if (start > total) return 0;
  if (match.empty()) return start;
  // Characters match one for one, so an occurrence takes Len(match)
  // characters of `s` and must begin by `start - Len(match) + 1`.
  const int last = start - Len(match) + 1;
  int found = 0;
  size_t i = 0;
  for (int pos = 1; pos <= last; ++pos) {
    if (MatchAt(s, i, match, compare) != std::string_view::npos) found = pos;
    i += DecodeAt(s, i).size;
  }
  return found;
}

std::string UCase(std::string_view s) { return MapCase(s, ToUpper); }

std::string LCase(std::string_view s) { return MapCase(s, ToLower); }

std::string FoldText(std::string_view s) { return MapCase(s, Fold); }

std::string UpperFirst(std::string_view s) {
  if (s.empty()) return std::string();
  const size_t first = DecodeAt(s, 0).size;
  std::string out = UCase(s.substr(0, first));
  out.append(s.substr(first));
  return out;
}

std::string Trim(std::string_view s) { return LTrim(RTrim(s)); }

std::string LTrim(std::string_view s) {
  const size_t i = s.find_first_not_of(' ');
  return i == std::string_view::npos ? std::string() : std::string(s.substr(i));
}

std::string RTrim(std::string_view s) {
  const size_t i = s.find_last_not_of(' ');
  return i == std::string_view::npos ? std::string() : std::string(s.substr(0, i + 1));
}

std::string Replace(std::string_view s, std::string_view find, std::string_view with) {
  if (find.empty()) return std::string(s);
  std::string out;
  out.reserve(s.size());
  size_t i = 0;
  while (i < s.size()) {
    const size_t at = FindFrom(s, i, find, Compare::Binary);
    if (at == std::string_view::npos) break;
    out.append(s.substr(i, at - i));
    out.append(with);
    i = MatchAt(s, at, find, Compare::Binary);
  }
  out.append(s.substr(std::min(i, s.size())));
  return out;
}

std::vector<std::string> Split(std::string_view s, std::string_view separator) {
  std::vector<std::string> parts;
  if (s.empty()) return parts;
  if (separator.empty()) {
    parts.emplace_back(s);
    return parts;
  }
  size_t i = 0;
  for (;;) {
    const size_t at = FindFrom(s, i, separator, Compare::Binary);
    if (at == std::string_view::npos) break;
    parts.emplace_back(s.substr(i, at - i));
    i = MatchAt(s, at, separator, Compare::Binary);
  }
  parts.emplace_back(s.substr(i));
  return parts;
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
  std::string out;
  for (size_t k = 0; k < parts.size(); ++k) {
    if (k > 0) out.append(separator);
    out.append(parts[k]);
  }
  return out;
}

int StrComp(std::string_view a, std::string_view b, Compare compare) {
  if (compare == Compare::Binary) {
    const int c = a.compare(b);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
  }
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = SkipEqualAsciiWords(a, b); i < n; ++i) {
    const auto ca = static_cast<unsigned char>(a[i]);
    const auto cb = static_cast<unsigned char>(b[i]);
    if ((ca | cb) >= 0x80) return CompareFolded(a, b, i);
    const unsigned char fa = kAsciiFold.map[ca];
    const unsigned char fb = kAsciiFold.map[cb];
    if (fa != fb) return fa < fb ? -1 : 1;
  }
  return Sign(static_cast<int64_t>(a.size()) - static_cast<int64_t>(b.size()));
}

bool TextEquals(std::string_view a, std::string_view b) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = SkipEqualAsciiWords(a, b); i < n; ++i) {
    const auto ca = static_cast<unsigned char>(a[i]);
    const auto cb = static_cast<unsigned char>(b[i]);
    if ((ca | cb) >= 0x80) return CompareFolded(a, b, i) == 0;
    if (kAsciiFold.map[ca] != kAsciiFold.map[cb]) return false;
  }
  return a.size() == b.size();
}

namespace {
// The text of a non-Null Variant: Empty is "", text as it is, anything else
// through CStr.
std::string TextOf(const Variant& v) {
  if (v.IsEmpty()) return std::string();
  if (v.IsString()) return v.String();
  return CStr(v);
}
}  // namespace

Variant Len(const Variant& v) {
  if (v.IsNull()) return Variant::Null();
  return Variant(static_cast<int32_t>(Len(std::string_view(TextOf(v)))));
}

Variant Left(const Variant& v, int length) {
  if (v.IsNull()) return Variant::Null();
  return Variant(Left(std::string_view(TextOf(v)), length));
}

Variant Mid(const Variant& v, int start, int length) {
  if (v.IsNull()) return Variant::Null();
  return Variant(Mid(std::string_view(TextOf(v)), start, length));
}

Variant UCase(const Variant& v) {
  if (v.IsNull()) return Variant::Null();
  return Variant(UCase(std::string_view(TextOf(v))));
}

Variant Trim(const Variant& v) {
  if (v.IsNull()) return Variant::Null();
  return Variant(Trim(std::string_view(TextOf(v))));
}

}  // namespace orvel
