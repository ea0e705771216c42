#include <gtest/gtest.h>

#include "orvel/IconsTable.h"
#include "host/Identifiers.h"
#include "host/ParamList.h"

namespace orvel {
namespace {

TEST(Identifiers, ARecordsOidrIsNineCharactersOrMoreWithANinthOtherThanZero) {
  for (const auto& [oidr, refersToRecord] :
       {std::pair{"", false}, {"O0000300", false}, {"O00003005", true}, {"O00003000", false},
        {"O000030012", true}, {"O000030001", false}}) {
    EXPECT_EQ(RefersToRecord(oidr), refersToRecord) << oidr;
  }
}

// The OID is the first eight characters; the icon key "C" and characters two
// to eight; the last OIDR of a picker path is found from the right ignoring case.
TEST(Identifiers, OidIconKeyAndLastOidrAreCutFromTheText) {
  using Row = std::tuple<std::string (*)(std::string_view), const char*, const char*>;
  for (const auto& [cut, text, expected] : std::initializer_list<Row>{
           {OidOf, "O00003005", "O0000300"}, {OidOf, "O0000300", "O0000300"}, {OidOf, "O00", "O00"},
           {IconKeyOf, "O00003005", "C0000300"}, {IconKeyOf, "O0000100123", "C0000100"},
           {IconKeyOf, "", "C"}, {LastOidr, "O00001001O00001007", "O00001007"},
           {LastOidr, "x\\o00001007", "o00001007"}, {LastOidr, "12345", ""}, {LastOidr, "", ""}}) {
    EXPECT_EQ(cut(text), expected) << text;
  }
}

TEST(IconsTable, KeysAreUniqueAndFoundWithoutRegardToCase) {
  IconsTable table;
  EXPECT_TRUE(table.Add("C0000100", "C"));
  EXPECT_TRUE(table.Add("FirmNA", "FirmNA"));
  EXPECT_FALSE(table.Add("other", "firmna"));
  EXPECT_EQ(table.Count(), 2);
  EXPECT_EQ(table.Item("FIRMNA"), "FirmNA");
  EXPECT_EQ(table.Item("X"), std::nullopt);
}

// Arguments split at commas outside quotes; nothing is escaped: a text ends at
// the apostrophe that ends the argument.
TEST(ParamList, SplitsArgumentsAndRefusesAnOpenText) {
  using Args = std::vector<std::string>;
  using Row = std::pair<const char*, std::optional<Args>>;
  for (const auto& [param, args] : std::initializer_list<Row>{
           {"", Args{}}, {"   ", Args{}}, {"'O00003005'", Args{"O00003005"}},
           {"O00003005", Args{"O00003005"}}, {"'O0000300',''", Args{"O0000300", ""}},
           {"'O0000300','seb',1,0", Args{"O0000300", "seb", "1", "0"}},
           {" 'a' , 12 ,'b' ", Args{"a", "12", "b"}}, {"'O'Brien'", Args{"O'Brien"}},
           {"'a,b','c'", Args{"a,b", "c"}}, {"'Šiaulių'", Args{"Šiaulių"}}, {"1,", Args{"1", ""}},
           {"'open", std::nullopt}, {"'a'b", std::nullopt}, {"'", std::nullopt}}) {
    EXPECT_EQ(SplitParams(param), args) << param;
  }
}

}  // namespace
}  // namespace orvel
