#include <gtest/gtest.h>

#include "module/DLLHeader.h"
#include "support/ModuleTest.h"
#include "testhost/TestComponent.h"
#include "testhost/TestComponentGroup.h"
#include "testhost/TestComponentRegistry.h"

namespace orvel {
namespace {

class DLLHeaderTest : public ModuleTest {
 protected:
  std::vector<std::string> Registered(const std::string& op) {
    std::vector<std::string> lines;
    for (const auto& entry : host_.Log().Entries(Channel::Registry)) {
      if (entry.op == op) lines.push_back(entry.text);
    }
    return lines;
  }
};

TEST_F(DLLHeaderTest, RegistersTheGroupAndItsFiveComponentsEachWithItsType) {
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);

  EXPECT_EQ(Registered("AddGroup"),
            std::vector<std::string>{
                "AddGroup L00001011 L00001011 Įmonės, Bankai, Valiutos, Žinynai COMLayout"});
  const std::vector<std::string> components{
      "AddComponent O0000100 Įmonės CFirms",
      "OType O0000100",
      "AddComponent O0000300 Bankai CBanks",
      "OType O0000300",
      "AddComponent O0002200 Valiutos CCurrency",
      "OType O0002200",
      "AddComponent O0001600 Žinynai CReference",
      "OType O0001600",
      "AddComponent O0100300 Švenčių dienos CPersonalHolidays",
      "OType O0100300",
  };
  auto lines = host_.Log().Lines(Channel::Registry);
  ASSERT_GE(lines.size(), 11u);
  EXPECT_EQ(std::vector<std::string>(lines.begin() + 1, lines.begin() + 11), components);
}

TEST_F(DLLHeaderTest, RegistersFifteenObjectTypesInOrderKeepingTheTrailingBlank) {
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);
  EXPECT_EQ(Registered("AddObjectType"),
            (std::vector<std::string>{
                "AddObjectType OrvelCommonUI O0000100 Įmonės",
                "AddObjectType OrvelCommonUI O0000300 Bankai",
                "AddObjectType OrvelCommonUI O0002200 Valiutos",
                "AddObjectType OrvelCommonUI O0000500 Sąskaita",
                "AddObjectType OrvelCommonUI O0000600 Kainos",
                "AddObjectType OrvelCommonUI O0000700 Minimalus kiekis",
                "AddObjectType OrvelCommonUI O0001600 Žinynai",
                "AddObjectType OrvelCommonUI O0000200 Atsargos",
                "AddObjectType OrvelCommonUI O0000400 Atsargų matavimo vienetai",
                "AddObjectType OrvelCommonUI O0000800 Atsargų šablonų tipai",
                "AddObjectType OrvelCommonUI O0002000 Įmonių adresai",
                "AddObjectType OrvelCommonUI O0002100 Įmonių kontaktai",
                "AddObjectType OrvelCommonUI O0002300 Įmonių parametrai",
                "AddObjectType OrvelCommonUI O0002400 Vadybininkai atsakingi už įmonės "
                "aptarnavimą ",
                "AddObjectType OrvelCommonUI O0002500 Įmonių veiklos rūšys",
            }));
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes()[13].caption,
            "Vadybininkai atsakingi už įmonės aptarnavimą ");
}

TEST_F(DLLHeaderTest, RegistersTwelveObjectIconsThenThirteenIconsLedByTheGroupsFirmIcon) {
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);
  const std::vector<std::string> objectIcons{
      "AddObjectIcon C0000100 C0000100", "AddObjectIcon FirmNA FIRMNA",
      "AddObjectIcon C0000300 C0000300", "AddObjectIcon C0000500 C0000500",
      "AddObjectIcon C0002200 C0002200", "AddObjectIcon C0001600 C0001600",
      "AddObjectIcon C0001601 C0001601", "AddObjectIcon C0000200 C0000200",
      "AddObjectIcon GoodNA GOODNA",     "AddObjectIcon GEXIST GEXIST",
      "AddObjectIcon Service SERVICE",   "AddObjectIcon ServiceNA SERVICENA",
  };
  EXPECT_EQ(Registered("AddObjectIcon"), objectIcons);

  auto icons = Registered("AddIcon");
  ASSERT_EQ(icons.size(), 13u);
  EXPECT_EQ(icons.front(), "AddIcon L00001011 C0000100");
  for (size_t i = 1; i < icons.size(); ++i) {
    EXPECT_EQ(icons[i], "AddIcon" + objectIcons[i - 1].substr(13)) << i;
  }

  // The object icons all come before the first AddIcon.
  auto lines = host_.Log().Lines(Channel::Registry);
  EXPECT_EQ(lines[lines.size() - 14].rfind("AddObjectIcon ServiceNA", 0), 0u);
}

TEST_F(DLLHeaderTest, UsesANewRegistryEachTimeAndKeepsNothing) {
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);
  auto first = host_.HostClasses()->LastRegistry();
  DLLHeader header;
  ASSERT_EQ(header.DllInicialize().Number, 0);
  EXPECT_NE(host_.HostClasses()->LastRegistry(), first);
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes().size(), 15u);
}

TEST(DLLHeaderWithoutHost, ReportsTheMissingRegistrationThroughNumber) {
  Platform::Detach();
  auto status = DLLHeader().DllInicialize();
  EXPECT_NE(status.Number, 0);
  EXPECT_FALSE(status.Text.empty());
}

}  // namespace
}  // namespace orvel
