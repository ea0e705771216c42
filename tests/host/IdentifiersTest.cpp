#include <gtest/gtest.h>

#include "orvel/IconsTable.h"
#include "host/Identifiers.h"

namespace orvel {
namespace {

struct RecordCase {
  const char* oidr;
  bool refersToRecord;
};

class RefersToRecordTest : public ::testing::TestWithParam<RecordCase> {};

TEST_P(RefersToRecordTest, NineCharactersAndANinthOtherThanZero) {
  EXPECT_EQ(RefersToRecord(GetParam().oidr), GetParam().refersToRecord) << GetParam().oidr;
}

INSTANTIATE_TEST_SUITE_P(Identifiers, RefersToRecordTest,
                         ::testing::Values(RecordCase{"", false}, RecordCase{"O0000300", false},
                                           RecordCase{"O00003005", true},
                                           RecordCase{"O00003000", false},
                                           RecordCase{"O000030012", true},
                                           RecordCase{"O000030001", false}));

TEST(Identifiers, OidIsTheFirstEightCharacters) {
  EXPECT_EQ(OidOf("O00003005"), "O0000300");
  EXPECT_EQ(OidOf("O0000300"), "O0000300");
  EXPECT_EQ(OidOf("O00"), "O00");
}

TEST(Identifiers, IconKeyIsCAndCharactersTwoToEight) {
  EXPECT_EQ(IconKeyOf("O00003005"), "C0000300");
  EXPECT_EQ(IconKeyOf("O0000100123"), "C0000100");
  EXPECT_EQ(IconKeyOf(""), "C");
}

TEST(Identifiers, LastOidrOfAPickerPathIsFoundFromTheRightIgnoringCase) {
  EXPECT_EQ(LastOidr("O00001001O00001007"), "O00001007");
  EXPECT_EQ(LastOidr("x\\o00001007"), "o00001007");
  EXPECT_EQ(LastOidr("12345"), "");
  EXPECT_EQ(LastOidr(""), "");
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

}  // namespace
}  // namespace orvel
