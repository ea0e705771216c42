#include <gtest/gtest.h>

#include <random>
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

struct SliceCase {
  const char* text;
  int start;   // Mid start; unused by Left/Right
  int length;  // Left/Right length or Mid length
  const char* left;
  const char* right;
  const char* mid;
};

class TextSlice : public testing::TestWithParam<SliceCase> {};

TEST_P(TextSlice, CountsCharactersNotBytes) {
  const SliceCase& c = GetParam();
  EXPECT_EQ(Left(c.text, c.length), c.left);
  EXPECT_EQ(Right(c.text, c.length), c.right);
  EXPECT_EQ(Mid(c.text, c.start, c.length), c.mid);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TextSlice,
    testing::Values(SliceCase{"šeši", 2, 2, "še", "ši", "eš"},
                    SliceCase{"test", 5, 2, "te", "st", ""},      // start just past the end
                    SliceCase{"test", 9, 5, "test", "test", ""},  // beyond the end is fine
                    SliceCase{"ąčę", 3, 0, "", "", ""}, SliceCase{"", 1, 3, "", "", ""},
                    // A stray byte is one character and is kept as it is.
                    SliceCase{"a\xFFž\x80", 2, 2, "a\xFF", "ž\x80", "\xFFž"}));

TEST(Text, LenCountsCodePointsAndBadBytes) {
  EXPECT_EQ(Len("šeši"), 4);
  EXPECT_EQ(Mid("Žąsų", 2), "ąsų");
  EXPECT_EQ(Len(""), 0);
  EXPECT_EQ(Len("€𝄞"), 2);
  EXPECT_EQ(Len(kLower), Len(kUpper));
  // Truncated, overlong and surrogate sequences: every byte counts once.
  EXPECT_EQ(Len("\xC5"), 1);
  EXPECT_EQ(Len("\xE2\x82"), 2);
  EXPECT_EQ(Len("\xC0\xAF"), 2);
  EXPECT_EQ(Len("\xED\xA0\x80"), 3);
}

struct InvalidCallCase {
  const char* name;
  std::string (*call)();
};

class TextInvalidCall : public testing::TestWithParam<InvalidCallCase> {};

TEST_P(TextInvalidCall, ThrowsInvalidCallWithText) {
  std::string text;
  EXPECT_EQ(ErrorOf(GetParam().call, &text), RuntimeError::kInvalidCall);
  EXPECT_NE(text.find("Neteisingas procedūros kvietimas"), std::string::npos) << text;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TextInvalidCall,
    testing::Values(
        InvalidCallCase{"MidZero", [] { return Mid("abc", 0); }},
        InvalidCallCase{"MidNegative", [] { return Mid("abc", -2, 1); }},
        InvalidCallCase{"LeftNegative", [] { return Left("abc", -1); }},
        InvalidCallCase{"RightNegative", [] { return Right("abc", -1); }},
        InvalidCallCase{"InStrZero", [] { return std::to_string(InStr(0, "abc", "b")); }},
        InvalidCallCase{"InStrRevZero", [] { return std::to_string(InStrRev("abc", "b", 0)); }},
        InvalidCallCase{"InStrRevBelowMinusOne",
                        [] { return std::to_string(InStrRev("abc", "b", -2)); }}),
    [](const auto& info) { return info.param.name; });

struct InStrCase {
  int start;
  const char* text;
  const char* match;
  Compare compare;
  int expected;
};

class TextInStr : public testing::TestWithParam<InStrCase> {};

TEST_P(TextInStr, FindsCharacterPosition) {
  const InStrCase& c = GetParam();
  EXPECT_EQ(InStr(c.start, c.text, c.match, c.compare), c.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TextInStr,
    testing::Values(
        InStrCase{1, "abcabc", "bc", Compare::Binary, 2},
        InStrCase{3, "abcabc", "bc", Compare::Binary, 5},
        InStrCase{1, "abc", "B", Compare::Binary, 0}, InStrCase{1, "abc", "B", Compare::Text, 2},
        InStrCase{1, "šešių", "ŠIŲ", Compare::Text, 3},  // position in characters
        InStrCase{2, "ąą", "ą", Compare::Binary, 2}, InStrCase{1, "abc", "", Compare::Binary, 1},
        InStrCase{3, "abc", "", Compare::Binary, 3},
        InStrCase{4, "abc", "", Compare::Binary, 0},  // start beyond the text
        InStrCase{1, "", "a", Compare::Binary, 0}, InStrCase{1, "ab", "abc", Compare::Binary, 0},
        // A lone lead byte must not match the start of a whole character.
        InStrCase{1, "é", "\xC3", Compare::Binary, 0},
        InStrCase{1, "x\xC3y", "\xC3", Compare::Binary, 2}));

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
  EXPECT_EQ(UpperFirst("šeši"), "Šeši");
  EXPECT_EQ(UpperFirst("ąŽUOLAS"), "ĄŽUOLAS");
  EXPECT_EQ(UpperFirst("1a"), "1a");
  EXPECT_EQ(UpperFirst(""), "");
  EXPECT_EQ(UpperFirst("\xFFz"), "\xFFz");
}

struct CompareCase {
  const char* a;
  const char* b;
  int binary;
  int text;
};

class TextCompare : public testing::TestWithParam<CompareCase> {};

TEST_P(TextCompare, StrCompAndTextEqualsAgree) {
  const CompareCase& c = GetParam();
  EXPECT_EQ(StrComp(c.a, c.b, Compare::Binary), c.binary);
  EXPECT_EQ(StrComp(c.b, c.a, Compare::Binary), -c.binary);
  EXPECT_EQ(StrComp(c.a, c.b, Compare::Text), c.text);
  EXPECT_EQ(StrComp(c.b, c.a, Compare::Text), -c.text);
  EXPECT_EQ(TextEquals(c.a, c.b), c.text == 0);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TextCompare,
    testing::Values(CompareCase{"abc", "abc", 0, 0}, CompareCase{"ABC", "abc", -1, 0},
                    CompareCase{"abc", "abd", -1, -1}, CompareCase{"ab", "abc", -1, -1},
                    CompareCase{"", "", 0, 0}, CompareCase{"", "a", -1, -1},
                    CompareCase{"EUR", "eur", -1, 0},
                    // Mixed ASCII then non-ASCII: the fast path hands over mid-string.
                    CompareCase{"VILNIUS ŠEŠIAI", "vilnius šešiai", -1, 0},
                    CompareCase{"ŽĄSIS", "žąsis", -1, 0}, CompareCase{"ą", "Ą", 1, 0},
                    CompareCase{"š", "t", 1, 1},  // by code point: š comes after z
                    // "_" sorts before letters in either case when case is ignored.
                    CompareCase{"_", "a", -1, -1}, CompareCase{"_", "A", 1, -1},
                    // Longer than a word: the eight-byte ASCII stretch must fold letters
                    // only ("@" and "`", "[" and "{" differ by the same bit as case).
                    CompareCase{"Supplier 500 Vilnius", "SUPPLIER 500 VILNIUS", 1, 0},
                    CompareCase{"@@@@[[[[x", "````{{{{x", -1, -1},
                    CompareCase{"ZZZZZZZZa", "zzzzzzzzB", -1, -1},
                    CompareCase{"abcdefghą", "ABCDEFGHĄ", 1, 0},
                    // Bad bytes equal only themselves.
                    CompareCase{"a\xFF", "a\xFF", 0, 0}, CompareCase{"a\xFF", "A\xFE", 1, 1},
                    CompareCase{"\xC3", "é", -1, 1}));

TEST(Text, TextEqualsFoldsEveryCaseFormToOne) {
  EXPECT_TRUE(TextEquals("ſ", "S"));
  EXPECT_TRUE(TextEquals("ı", "I"));
  EXPECT_TRUE(TextEquals("ÿ", "Ÿ"));
  EXPECT_FALSE(TextEquals("a", "ą"));
  EXPECT_FALSE(TextEquals("abc", "ab"));
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
  EXPECT_EQ(Trim("  a b  "), "a b");
  EXPECT_EQ(LTrim("  a "), "a ");
  EXPECT_EQ(RTrim(" a  "), " a");
  EXPECT_EQ(Trim("   "), "");
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

TEST(Text, VariantFormsPropagateNullReadEmptyAsEmptyTextAndConvertOthers) {
  const Variant null = Variant::Null();
  EXPECT_TRUE(Len(null).IsNull());
  EXPECT_TRUE(Left(null, 2).IsNull());
  EXPECT_TRUE(Mid(null, 1, 2).IsNull());
  EXPECT_TRUE(UCase(null).IsNull());
  EXPECT_TRUE(Trim(null).IsNull());
  {
    const Variant empty;
    EXPECT_EQ(Len(empty), Variant(0));
    EXPECT_EQ(UCase(empty), Variant(""));
    EXPECT_EQ(Len(Variant("šeši")), Variant(4));
    EXPECT_EQ(Left(Variant("šeši"), 2), Variant("še"));
    EXPECT_EQ(Mid(Variant(12345), 2, 3), Variant("234"));
    EXPECT_EQ(UCase(Variant(true)), Variant("TRUE"));
    EXPECT_EQ(Trim(Variant("  ž ")), Variant("ž"));
    EXPECT_THROW(Mid(Variant("abc"), 0), RuntimeError);
  }
}

}  // namespace
}  // namespace orvel
