#include <gtest/gtest.h>

#include <set>

#include "module/IconResources.h"

namespace orvel {
namespace {

class IconResourceTest : public ::testing::TestWithParam<const char*> {};

// Every key registration asks for, in the spelling it uses, finds a
// well-formed 16x16 picture stored under the upper-case name.
TEST_P(IconResourceTest, LoadsByNameWithoutRegardToCase) {
  auto picture = LoadIconResource(GetParam());
  ASSERT_NE(picture, nullptr) << GetParam();
  EXPECT_EQ(picture->Width(), 16);
  EXPECT_EQ(picture->Height(), 16);
  std::string upper = GetParam();
  for (auto& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  EXPECT_EQ(picture->Name(), upper);
  // Header, one row per colour, sixteen rows of sixteen pixels, each pixel a
  // colour of the table.
  const auto& xpm = picture->Xpm();
  int colours = 0;
  ASSERT_EQ(std::sscanf(xpm.front().c_str(), "%*d %*d %d", &colours), 1);
  ASSERT_EQ(xpm.size(), static_cast<size_t>(1 + colours + 16));
  std::set<char> table;
  for (int i = 1; i <= colours; ++i) table.insert(xpm[i][0]);
  for (size_t row = 1 + colours; row < xpm.size(); ++row) {
    ASSERT_EQ(xpm[row].size(), 16u);
    for (char pixel : xpm[row]) EXPECT_TRUE(table.count(pixel)) << GetParam();
  }
}

INSTANTIATE_TEST_SUITE_P(Registered, IconResourceTest,
                         ::testing::Values("C0000100", "FirmNA", "C0000300", "C0000500", "C0002200",
                                           "C0001600", "C0001601", "C0000200", "GoodNA", "GEXIST",
                                           "Service", "ServiceNA", "A00001000001", "s"));

TEST(IconResources, HoldsFourteenPicturesAndNothingElse) {
  EXPECT_EQ(IconResourceNames().size(), 14u);
  EXPECT_EQ(LoadIconResource("C0000999"), nullptr);
  EXPECT_EQ(LoadIconResource(""), nullptr);
}

}  // namespace
}  // namespace orvel
