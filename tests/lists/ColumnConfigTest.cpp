// The configuration string of a list window: what it accepts, what it
// refuses, and that a string built from a parsed one reads back the same.
#include <gtest/gtest.h>

#include "common/Catalogue.h"
#include "host/Dictionary.h"
#include "lists/ColumnConfig.h"

namespace orvel {
namespace {

constexpr const char* kBanks =
    "Bankai;9;1;1;0;1;1;#WZWCode;Kodas;0;2,5;0#WZWName;Pavadinimas;0;7,0;1#WZWNote;Pastaba;2;4,0;"
    "999";

TEST(ColumnConfigTest, ParsesPrintParametersAndColumns) {
  auto config = ColumnConfig::Parse(kBanks);
  ASSERT_TRUE(config);
  EXPECT_EQ(config->printParams,
            (std::vector<std::string>{"Bankai", "9", "1", "1", "0", "1", "1", ""}));
  ASSERT_EQ(config->columns.size(), 3u);
  const ColumnEntry& name = config->columns[1];
  EXPECT_EQ(name.key + ";" + name.caption + ";" + std::to_string(name.align) + ";" + name.width +
                ";" + std::to_string(name.order),
            "WZWName;Pavadinimas;0;7,0;1");
  EXPECT_FALSE(config->columns[2].Shown());
  EXPECT_DOUBLE_EQ(config->ShownWidth(), 9.5);
}

// A built string reads back the same; separators are kept out of captions
// and the footer.
TEST(ColumnConfigTest, BuildGivesBackTheParsedString_SeparatorsKeptOut) {
  for (const std::string text :
       {kBanks, "Sąrašas;12;0;0;1;2;0;Parengė buhalterė", ";9;1;1;0;1;1;#WZWName;;1;27;999",
        "Prekės;6;1;0;0;0;0;#WZWPrice;Kaina;1;2.5;0"}) {
    auto config = ColumnConfig::Parse(text);
    ASSERT_TRUE(config) << text;
    EXPECT_EQ(config->Build(), text);
    auto again = ColumnConfig::Parse(config->Build());
    ASSERT_TRUE(again) << text;
    EXPECT_EQ(again->Build(), text);
  }
  auto config = ColumnConfig::Parse(kBanks);
  config->printParams[ColumnConfig::kFooter] = "A#B;C";
  config->columns[0].caption = "Kodas;#";
  auto again = ColumnConfig::Parse(config->Build());
  ASSERT_TRUE(again);
  EXPECT_EQ(again->printParams[ColumnConfig::kFooter], "A B C");
  EXPECT_EQ(again->columns[0].caption, "Kodas  ");
  EXPECT_EQ(again->columns.size(), 3u);
}

// Each string fails one check, named in the reason.
TEST(ColumnConfigTest, AMalformedStringIsRefusedWithAReason) {
  for (const auto& [text, reason] :
       {std::pair{"", "empty"},
        {"Bankai;9;1;1#WZWName;P;0;7,0;0", "print parameters"},
        {"Bankai;x;1;1;0;1;1;#WZWName;P;0;7,0;0", "font size"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;7,0", "five elements"},
        {"B;9;1;1;0;1;1;#Name;P;0;7,0;0", "WZW"},
        {"B;9;1;1;0;1;1;#WZW;P;0;7,0;0", "WZW"},
        {"B;9;1;1;0;1;1;#WZWName;P;3;7,0;0", "alignment"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;plati;0", "width"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;7,0,1;0", "width"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;7,0;pirma", "position"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;7,0;-1", "position"},
        {"B;9;1;1;0;1;1;#WZWName;P;0;7,0;0#WZWName;Q;0;2,5;1", "repeated"}}) {
    std::string error;
    EXPECT_FALSE(ColumnConfig::Parse(text, &error)) << text;
    EXPECT_NE(error.find(reason), std::string::npos) << text << ": " << error;
  }
}

// What ParseColumnConfig leaves in the dictionaries reads back the same;
// half-filled dictionaries give blanks and hidden columns.
TEST(ColumnConfigTest, ReadsTheDictionaries_HalfFilledGiveBlanksAndHiddenColumns) {
  Dictionary print;
  Dictionary columns;
  ParseColumnConfig(kBanks, print, columns);
  EXPECT_EQ(ColumnConfig::FromDictionaries(print, columns).Build(), kBanks);
  print.RemoveAll();
  columns.RemoveAll();
  print.Add("JPrintParams", Variant(Variant::Array{Variant("T"), Variant("9")}));
  columns.Add("WZWName", Variant(Variant::Array{Variant("WZWName"), Variant("P")}));
  ColumnConfig config = ColumnConfig::FromDictionaries(print, columns);
  EXPECT_EQ(config.printParams[1] + "|" + config.printParams[7], "9|");
  ASSERT_EQ(config.columns.size(), 1u);
  EXPECT_EQ(config.columns[0].order, ColumnEntry::kHidden);
  EXPECT_EQ(config.columns[0].width, "");
}

TEST(ColumnConfigTest, WidthsReadWithCommaOrPointAndWriteWithComma) {
  for (const auto& [text, width] : {std::pair{"2,5", 2.5}, {"2.5", 2.5}, {"27", 27.0}, {",5", 0.5}})
    EXPECT_EQ(ParseWidth(text), width) << text;
  for (const char* text : {",", " 2", "1e3"}) EXPECT_FALSE(ParseWidth(text)) << text;
  EXPECT_EQ(WidthText(17.0), "17,0");
  EXPECT_EQ(WidthText(9.5), "9,5");
}

}  // namespace
}  // namespace orvel
