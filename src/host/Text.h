#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orvel/Variant.h"

// The legacy runtime's text functions over UTF-8 text. Every position and
// length counts characters (code points), never bytes, so "šeši" has four.
// Positions are 1-based as in the legacy runtime. Case mapping covers ASCII
// and the Latin letters of Lithuanian and its neighbours (ą č ę ė į š ų ū ž
// and the rest of Latin-1 and Latin Extended-A).
namespace orvel {

enum class Compare { Binary = 0, Text = 1 };

int Len(std::string_view s);
std::string Left(std::string_view s, int length);   // length < 0: invalid call
std::string Right(std::string_view s, int length);  // length < 0: invalid call
// Mid from `start` (1-based; 0 or less is an invalid call), `length`
// characters or to the end when length < 0.
std::string Mid(std::string_view s, int start, int length = -1);

// 1-based position of `match` in `s` from `start`, 0 when not found.
int InStr(int start, std::string_view s, std::string_view match, Compare compare = Compare::Binary);
int InStr(std::string_view s, std::string_view match, Compare compare = Compare::Binary);
// Searches backwards: the match must end at or before `start` (-1: the end).
// A start beyond the length gives 0.
int InStrRev(std::string_view s, std::string_view match, int start = -1,
             Compare compare = Compare::Binary);

std::string UCase(std::string_view s);
std::string LCase(std::string_view s);
// Every letter in the one form text comparisons use (ſ, S and s as "s"):
// texts equal as text have equal folds, and a text starts with another as
// text exactly when its fold starts with the other's, byte for byte.
std::string FoldText(std::string_view s);
// The first character upper-cased, the rest untouched: "šeši" -> "Šeši".
std::string UpperFirst(std::string_view s);
std::string Trim(std::string_view s);
std::string LTrim(std::string_view s);
std::string RTrim(std::string_view s);
std::string Replace(std::string_view s, std::string_view find, std::string_view with);
std::vector<std::string> Split(std::string_view s, std::string_view separator);
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// Compares as the runtime's StrComp: -1, 0 or 1. Text compare ignores case.
int StrComp(std::string_view a, std::string_view b, Compare compare = Compare::Binary);
bool TextEquals(std::string_view a, std::string_view b);  // case-insensitive equality

// Null-propagating forms: Null in gives Null out, Empty reads as "".
// Any other non-text value is first converted with CStr.
Variant Len(const Variant& v);
Variant Left(const Variant& v, int length);
Variant Mid(const Variant& v, int start, int length = -1);
Variant UCase(const Variant& v);
Variant Trim(const Variant& v);

// Text arguments go to the text forms above; without these a literal or a
// std::string would convert as readily to std::string_view as to Variant.
inline int Len(const char* s) { return Len(std::string_view(s)); }
inline int Len(const std::string& s) { return Len(std::string_view(s)); }
inline std::string Left(const char* s, int length) { return Left(std::string_view(s), length); }
inline std::string Left(const std::string& s, int length) {
  return Left(std::string_view(s), length);
}
inline std::string Mid(const char* s, int start, int length = -1) {
  return Mid(std::string_view(s), start, length);
}
inline std::string Mid(const std::string& s, int start, int length = -1) {
  return Mid(std::string_view(s), start, length);
}
inline std::string UCase(const char* s) { return UCase(std::string_view(s)); }
inline std::string UCase(const std::string& s) { return UCase(std::string_view(s)); }
inline std::string Trim(const char* s) { return Trim(std::string_view(s)); }
inline std::string Trim(const std::string& s) { return Trim(std::string_view(s)); }

}  // namespace orvel
