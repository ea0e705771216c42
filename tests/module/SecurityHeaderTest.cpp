#include <gtest/gtest.h>

#include "module/SecurityHeader.h"

namespace orvel {
namespace {

TEST(SecurityHeader, ListsTheComponentsInOrderWithTheirOwnSpellings) {
  const std::vector<SecurityRow> expected{
      {"", "DLL|L00001011", "Įmonės, Bankai, Valiutos, Žinynai", 10},
      {"", "COMLayout", "Aplinkos peržūra", 2},
      {"", "CGoods", "Prekės", 2},
      {"CGoods", "CGoodsCH", "Pavadinimo keitimas", 2},
      {"CGoods", "CGoodsMIN", "Minimalaus kiekio tvarkymas", 2},
      {"CGoods", "CGoodsPT", "Kainos tvarkymas", 2},
      {"CGoods", "CGoodsBR", "Buchalterinių šablonų tvarkymas", 2},
      {"", "CFirms", "Įmonės", 2},
      {"CFirms", "CFirmsCode", "Įmomės kodo įvedimo kartojimas", 2},
      {"CFirms", "CFirmsCH", "Pavadinimo keitimas", 2},
      {"CFirms", "CFirmsAC", "Sąskaitų tvarkymas", 2},
      {"", "CBanks", "Bankai", 2},
      {"", "CCurrency", "Valiuta", 2},
      {"", "CReference", "Žyninai", 2},
  };
  EXPECT_EQ(SecurityHeader().GetComponentList(), expected);
}

TEST(SecurityHeader, BuildsANewListAtEachCall) {
  SecurityHeader header;
  auto first = header.GetComponentList();
  first.clear();
  auto second = header.GetComponentList();
  ASSERT_EQ(second.size(), 14u);
  EXPECT_EQ(second.front().Key, "DLL|L00001011");
  EXPECT_EQ(second.front().Kind, 10);
}

}  // namespace
}  // namespace orvel
