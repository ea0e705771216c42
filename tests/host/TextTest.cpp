#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <tuple>
#include <string>
#include <vector>

#include "host/Text.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

// Lithuanian letters and a few from the rest of Latin-1 / Latin Extended-A,
// in lower and upper case. Every position counts one character.
constexpr const char* kLower = "ąčęėįšųūž àéöøþ āćđğłňőřţŷźÿ";
constexpr const char* kUpper = "ĄČĘĖĮŠŲŪŽ ÀÉÖØÞ ĀĆĐĞŁŇŐŘŢŶŹŸ";

// Left, Right and Mid count characters, not bytes; a stray byte is one
// character and is kept as it is.
TEST(Text, SlicesCountCharactersNotBytes) {
  for (const auto& [text, start, length, left, right, mid] :
       {std::tuple<const char*, int, int, const char*, const char*, const char*>{
            "šeši", 2, 2, "še", "ši", "eš"},
        {"test", 5, 2, "te", "st", ""},      // start just past the end
        {"test", 9, 5, "test", "test", ""},  // beyond the end is fine
        {"ąčę", 3, 0, "", "", ""}, {"", 1, 3, "", "", ""},
        {"a\xFFž\x80", 2, 2, "a\xFF", "ž\x80", "\xFFž"}}) {
    EXPECT_EQ(Left(text, length), left) << text;
    EXPECT_EQ(Right(text, length), right) << text;
    EXPECT_EQ(Mid(text, start, length), mid) << text;
  }
}

TEST(Text, LenCountsCodePointsAndBadBytes) {
  EXPECT_EQ(Len("šeši"), 4);
  EXPECT_EQ(Mid("Žąsų", 2), "ąsų");
  EXPECT_EQ(Len(""), 0);
  EXPECT_EQ(Len("€𝄞"), 2);
  EXPECT_EQ(Len(kLower), Len(kUpper));
  // Truncated, overlong and surrogate sequences: every byte counts once.
  EXPECT_EQ(std::vector({Len("\xC5"), Len("\xE2\x82"), Len("\xC0\xAF"), Len("\xED\xA0\x80")}),
            std::vector({1, 2, 2, 3}));
}

TEST(Text, PositionsBelowOneAreInvalidCallsWithText) {
  const std::vector<std::function<void()>> calls{
      [] { Mid("abc", 0); }, [] { Mid("abc", -2, 1); }, [] { Left("abc", -1); },
      [] { Right("abc", -1); }, [] { InStr(0, "abc", "b"); }, [] { InStrRev("abc", "b", 0); },
      [] { InStrRev("abc", "b", -2); }};
  for (size_t i = 0; i < calls.size(); ++i) {
    std::string text;
    EXPECT_EQ(ErrorOf(calls[i], &text), RuntimeError::kInvalidCall) << i;
    EXPECT_NE(text.find("Neteisingas procedūros kvietimas"), std::string::npos) << text;
  }
}

// Positions in characters; a lone lead byte must not match the start of a
// whole character.
TEST(Text, InStrFindsTheCharacterPosition) {
  constexpr Compare kBinary = Compare::Binary, kText = Compare::Text;
  for (const auto& [start, text, match, compare, expected] :
       {std::tuple{1, "abcabc", "bc", kBinary, 2}, {3, "abcabc", "bc", kBinary, 5},
        {1, "abc", "B", kBinary, 0}, {1, "abc", "B", kText, 2}, {1, "šešių", "ŠIŲ", kText, 3},
        {2, "ąą", "ą", kBinary, 2}, {1, "abc", "", kBinary, 1}, {3, "abc", "", kBinary, 3},
        {4, "abc", "", kBinary, 0},  // start beyond the text
        {1, "", "a", kBinary, 0}, {1, "ab", "abc", kBinary, 0}, {1, "é", "\xC3", kBinary, 0},
        {1, "x\xC3y", "\xC3", kBinary, 2}}) {
    EXPECT_EQ(InStr(start, text, match, compare), expected) << text << " " << match;
  }
}

// The match ends at or before the start; a start beyond the length finds nothing.
TEST(Text, InStrRevMatchEndsAtOrBeforeStart) {
  constexpr Compare kBinary = Compare::Binary, kText = Compare::Text;
  for (const auto& [text, match, start, compare, expected] :
       {std::tuple{"abcd", "bc", 2, kBinary, 0},
        {"abcd", "bc", 3, kBinary, 2}, {"abcd", "Ab", -1, kText, 1}, {"abcd", "Ab", -1, kBinary, 0},
        {"abcd", "b", 5, kBinary, 0}, {"a.b.c", ".", -1, kBinary, 4}, {"a.b.c", ".", 3, kBinary, 2},
        {"ąžuolas.ąžuolas", "Ž", -1, kText, 10}, {"", "a", -1, kBinary, 0},
        {"abc", "", -1, kBinary, 3},
        {"abc", "", 2, kBinary, 2}}) {
    EXPECT_EQ(InStrRev(text, match, start, compare), expected)
        << text << " " << match << " " << start;
  }
}

TEST(Text, CaseMappingCoversLithuanianAndLatinBlocks) {
  EXPECT_EQ(UCase(kLower), kUpper);
  EXPECT_EQ(LCase(kUpper), kLower);
  EXPECT_EQ(UCase("Ąžuolų giria 42"), "ĄŽUOLŲ GIRIA 42");
  // ß, ×, ÷, ĸ, ŉ and µ have no case partner inside these blocks; other
  // scripts and bad bytes pass through untouched.
  const std::string caseless = "ß×÷ĸŉµ€Ж\xFF\xC3";
  EXPECT_EQ(UCase(caseless), caseless);
  EXPECT_EQ(LCase(caseless), caseless);
  // UpperFirst touches only the first character.
  for (const auto& [text, expected] : {std::pair{"šeši", "Šeši"}, {"ąŽUOLAS", "ĄŽUOLAS"},
                                       {"1a", "1a"}, {"", ""}, {"\xFFz", "\xFFz"}}) {
    EXPECT_EQ(UpperFirst(text), expected);
  }
}

// StrComp both ways round and TextEquals agree. Mixed ASCII then non-ASCII:
// the fast path hands over mid-string; longer than a word: the eight-byte
// ASCII stretch must fold letters only ("@" and "`", "[" and "{" differ by the
// same bit as case). "_" sorts before letters in either case when case is
// ignored; š comes after z by code point; bad bytes equal only themselves;
// every case form folds to one (ſ and S, ı and I, ÿ and Ÿ).
TEST(Text, StrCompAndTextEqualsAgree) {
  for (const auto& [a, b, binary, text] : std::initializer_list<
           std::tuple<const char*, const char*, int, int>>{
           {"abc", "abc", 0, 0}, {"ABC", "abc", -1, 0}, {"abc", "abd", -1, -1},
           {"ab", "abc", -1, -1}, {"", "", 0, 0}, {"", "a", -1, -1}, {"EUR", "eur", -1, 0},
           {"VILNIUS ŠEŠIAI", "vilnius šešiai", -1, 0}, {"ŽĄSIS", "žąsis", -1, 0},
           {"ą", "Ą", 1, 0}, {"š", "t", 1, 1}, {"_", "a", -1, -1}, {"_", "A", 1, -1},
           {"Supplier 500 Vilnius", "SUPPLIER 500 VILNIUS", 1, 0},
           {"@@@@[[[[x", "````{{{{x", -1, -1}, {"ZZZZZZZZa", "zzzzzzzzB", -1, -1},
           {"abcdefghą", "ABCDEFGHĄ", 1, 0}, {"a\xFF", "a\xFF", 0, 0}, {"a\xFF", "A\xFE", 1, 1},
           {"\xC3", "é", -1, 1}, {"ſ", "S", 1, 0}, {"ı", "I", 1, 0}, {"ÿ", "Ÿ", -1, 0},
           {"a", "ą", -1, -1}, {"abc", "ab", 1, 1}}) {
    EXPECT_EQ(StrComp(a, b, Compare::Binary), binary) << a << " | " << b;
    EXPECT_EQ(StrComp(b, a, Compare::Binary), -binary) << a << " | " << b;
    EXPECT_EQ(StrComp(a, b, Compare::Text), text) << a << " | " << b;
    EXPECT_EQ(StrComp(b, a, Compare::Text), -text) << a << " | " << b;
    EXPECT_EQ(TextEquals(a, b), text == 0) << a << " | " << b;
  }
}

// Random text mixing ASCII, letters of both cases, bytes that do and do not
// join into characters, and stretches longer than the eight-byte fast path.
TEST(Text, CaseInsensitiveCompareIsConsistentOnArbitraryText) {
  const std::vector<std::string> pieces = {"a",    "Z",    "@", "`",    "[", "{", "ą",       "Ą",
                                           "š",    "Š",    "ß", "ı",    "I", "ſ", "s",       "\xC4",
                                           "\x85", "\xFF", "é", "\xC3", " ", "0", "abcdefgh"};
  std::mt19937 random(2024);
  auto text = [&] {
    std::string t;
    for (int k = static_cast<int>(random() % 12); k > 0; --k) t += pieces[random() % pieces.size()];
    return t;
  };
  for (int n = 0; n < 5000; ++n) {
    const std::string a = text();
    const std::string b = random() % 4 == 0 ? UCase(a) : text();
    const int ab = StrComp(a, b, Compare::Text);
    ASSERT_EQ(ab, -StrComp(b, a, Compare::Text)) << a << " | " << b;
    ASSERT_EQ(TextEquals(a, b), ab == 0) << a << " | " << b;
    ASSERT_TRUE(TextEquals(LCase(a), UCase(a))) << a;
    ASSERT_EQ(Len(UCase(a)), Len(a)) << a;
    // A proper prefix sorts first (the blank keeps a trailing bad byte of
    // `a` from joining the first bytes of `b` into one character).
    ASSERT_EQ(StrComp(a, a + " " + b, Compare::Text), -1) << a << " | " << b;
  }
}

TEST(Text, TrimRemovesSpacesOnly) {
  EXPECT_EQ(Trim("  a b  ") + "|" + LTrim("  a ") + "|" + RTrim(" a  ") + "|" + Trim("   "),
            "a b|a | a|");
  EXPECT_EQ(Trim("\ta\t"), "\ta\t");
  EXPECT_EQ(Trim("\u00A0a\u00A0"), "\u00A0a\u00A0");
}

// Every occurrence, left to right, comparing bytes as they are.
TEST(Text, ReplaceReplacesEveryOccurrenceLeftToRight) {
  for (const auto& [text, find, with, expected] : {std::tuple{"a,b,,c", ",", ";", "a;b;;c"},
                                                   {"aaa", "aa", "b", "ba"},
                                                   {"O'Malley", "'", "''", "O''Malley"},
                                                   {"abc", "", "x", "abc"}, {"ąčą", "ą", "", "č"},
                                                   {"abc", "B", "x", "abc"},
                                                   {"é", "\xC3", "x", "é"}}) {
    EXPECT_EQ(Replace(text, find, with), expected) << text << " " << find;
  }
}

TEST(Text, SplitAndJoinRoundTrip) {
  const std::vector<std::string> parts = Split("a;;b;", ";");
  EXPECT_EQ(parts, (std::vector<std::string>{"a", "", "b", ""}));
  EXPECT_EQ(Join(parts, ";"), "a;;b;");
  EXPECT_EQ(Split("a||b", "||"), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(Split("abc", ""), (std::vector<std::string>{"abc"}));
  EXPECT_TRUE(Split("", ",").empty());
  EXPECT_EQ(Join({}, ","), "");
}

// Null propagates, Empty is empty text, other values are converted.
TEST(Text, VariantFormsPropagateNullReadEmptyAsEmptyTextAndConvertOthers) {
  const Variant null = Variant::Null(), empty;
  for (const auto& [got, expected] :
       {std::pair{Len(null), null}, {Left(null, 2), null}, {Mid(null, 1, 2), null},
        {UCase(null), null}, {Trim(null), null}, {Len(empty), Variant(0)},
        {UCase(empty), Variant("")}, {Len(Variant("šeši")), Variant(4)},
        {Left(Variant("šeši"), 2), Variant("še")}, {Mid(Variant(12345), 2, 3), Variant("234")},
        {UCase(Variant(true)), Variant("TRUE")}, {Trim(Variant("  ž ")), Variant("ž")}}) {
    EXPECT_EQ(got, expected);
  }
  EXPECT_THROW(Mid(Variant("abc"), 0), RuntimeError);
}

}  // namespace
}  // namespace orvel
