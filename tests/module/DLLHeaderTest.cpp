// What the module registers with the host: its group, its components, its
// object types and icons, in the order the host shows them; the rights
// header's components.
#include <gtest/gtest.h>

#include <set>

#include "common/Platform.h"
#include "host/Text.h"
#include "module/DLLHeader.h"
#include "module/IconResources.h"
#include "module/SecurityHeader.h"
#include "orvel/RuntimeError.h"
#include "support/ModuleTest.h"
#include "testhost/CallLog.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestComponentRegistry.h"

namespace orvel {
namespace {

class DLLHeaderTest : public ModuleTest {
 protected:
  // The lines of one kind of registration, each without its operation name
  // and the given prefix, joined by "|".
  std::string Registered(const std::string& op, const std::string& prefix = "") {
    std::string joined;
    for (const auto& entry : host_.Log().Entries(Channel::Registry)) {
      if (entry.op != op) continue;
      std::string text = entry.text.substr(op.size() + 1);
      if (text.rfind(prefix, 0) == 0) text = text.substr(prefix.size());
      joined += (joined.empty() ? "" : "|") + text;
    }
    return joined;
  }
};

TEST_F(DLLHeaderTest, RegistersTheGroupItsComponentsTypesAndIconsInOrder) {
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);
  EXPECT_EQ(Registered("AddGroup"),
            "L00001011 L00001011 Įmonės, Bankai, Valiutos, Žinynai COMLayout");
  EXPECT_EQ(Registered("AddComponent"),
            "O0000100 Įmonės CFirms|O0000300 Bankai CBanks|O0002200 Valiutos CCurrency|"
            "O0001600 Žinynai CReference|O0100300 Švenčių dienos CPersonalHolidays");
  // Each component is followed by its type.
  auto lines = host_.Log().Lines(Channel::Registry);
  ASSERT_GE(lines.size(), 3u);
  EXPECT_EQ(lines[2], "OType O0000100");
  // Fifteen types, the caption of the fourteenth keeping its trailing blank.
  std::string types = Registered("AddObjectType", "OrvelCommonUI ");
  EXPECT_EQ(types.rfind("O0000100 Įmonės|O0000300 Bankai|O0002200 Valiutos|O0000500 Sąskaita|", 0),
            0u)
      << types;
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes().size(), 15u);
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes()[13].caption,
            "Vadybininkai atsakingi už įmonės aptarnavimą ");
  // Twelve object icons, then the same again as icons led by the group's.
  std::string objectIcons = Registered("AddObjectIcon");
  EXPECT_EQ(objectIcons,
            "C0000100 C0000100|FirmNA FIRMNA|C0000300 C0000300|C0000500 C0000500|"
            "C0002200 C0002200|C0001600 C0001600|C0001601 C0001601|C0000200 C0000200|"
            "GoodNA GOODNA|GEXIST GEXIST|Service SERVICE|ServiceNA SERVICENA");
  EXPECT_EQ(Registered("AddIcon"), "L00001011 C0000100|" + objectIcons);
  EXPECT_EQ(lines[lines.size() - 14].rfind("AddObjectIcon ServiceNA", 0), 0u);
  // Registering again uses a new registry and keeps nothing of the first.
  auto first = host_.HostClasses()->LastRegistry();
  ASSERT_EQ(DLLHeader().DllInicialize().Number, 0);
  EXPECT_NE(host_.HostClasses()->LastRegistry(), first);
  EXPECT_EQ(host_.HostClasses()->LastRegistry()->ObjectTypes().size(), 15u);
}

// No host at all, a host that hands out no registry, a registry that makes no group, or a
// group that makes no component: registration is refused with the reason,
// and nothing is half-registered past the refusal.
class RefusingHost : public TestHostClasses,
                     public TestComponentRegistry,
                     public OrvelComponentGroup,
                     public std::enable_shared_from_this<RefusingHost> {
 public:
  explicit RefusingHost(int level)
      : TestHostClasses(std::make_shared<CallLog>()),
        TestComponentRegistry(std::make_shared<CallLog>()),
        level_(level) {}
  std::shared_ptr<OrvelComponentRegistry> NewComponentRegistry() override {
    return level_ > 0 ? shared_from_this() : nullptr;
  }
  std::shared_ptr<OrvelComponentGroup> AddGroup(const std::string&, const std::string&,
                                                const std::string&, const std::string&) override {
    return level_ > 1 ? shared_from_this() : nullptr;
  }
  std::shared_ptr<OrvelComponent> AddComponent(const std::string&, const std::string&,
                                               const std::string&) override {
    return nullptr;
  }

 private:
  int level_;
};

TEST(DLLHeaderWithARefusingHost, ReportsWhatTheHostDidNotMake) {
  const char* reasons[] = {"Pagrindinė programa nepateikė registracijos objekto",
                           "Pagrindinė programa nesukūrė komponentų grupės L00001011",
                           "Pagrindinė programa nesukūrė komponento O0000100"};
  Platform::Detach();
  EXPECT_EQ(DLLHeader().DllInicialize().Text, "Pagrindinė programa nepateikė moduliui savo klasių");
  for (int level = 0; level < 3; ++level) {
    auto host = std::make_shared<RefusingHost>(level);
    Platform::Attach(host, std::make_shared<ScriptedUi>(std::make_shared<CallLog>()));
    auto status = DLLHeader().DllInicialize();
    EXPECT_EQ(status.Number, RuntimeError::kInvalidCall);
    EXPECT_EQ(status.Text, reasons[level]);
    EXPECT_TRUE(host->ObjectTypes().empty());
    Platform::Detach();
  }
}

// The module's own row first, then each component after its parent, with
// the spellings the rights already granted in an office are stored under.
TEST(SecurityHeader, ListsTheComponentsUnderTheirParentsAtEachCall) {
  SecurityHeader header;
  auto first = header.GetComponentList();
  first.clear();
  auto rows = header.GetComponentList();
  ASSERT_EQ(rows.size(), 14u);
  EXPECT_EQ(rows[0], (SecurityRow{"", "DLL|L00001011", "Įmonės, Bankai, Valiutos, Žinynai", 10}));
  std::string keys;
  for (const auto& row : rows) keys += (row.Parent.empty() ? " " : "/") + row.Key;
  EXPECT_EQ(keys,
            " DLL|L00001011 COMLayout CGoods/CGoodsCH/CGoodsMIN/CGoodsPT/CGoodsBR CFirms"
            "/CFirmsCode/CFirmsCH/CFirmsAC CBanks CCurrency CReference");
  EXPECT_EQ(rows[8], (SecurityRow{"CFirms", "CFirmsCode", "Įmomės kodo įvedimo kartojimas", 2}));
  EXPECT_EQ(rows[13], (SecurityRow{"", "CReference", "Žyninai", 2}));
}

// Every key registration asks for, in the spelling it uses, finds a
// well-formed 16x16 picture stored under the upper-case name: a header, one
// row per colour, sixteen rows of sixteen pixels, each pixel a colour of the
// table. Nothing else is stored.
TEST(IconResources, LoadByNameWithoutRegardToCaseAndHoldNothingElse) {
  for (const std::string name : {"C0000100", "FirmNA", "C0000300", "C0000500", "C0002200",
                                 "C0001600", "C0001601", "C0000200", "GoodNA", "GEXIST", "Service",
                                 "ServiceNA", "A00001000001", "s"}) {
    SCOPED_TRACE(name);
    auto picture = LoadIconResource(name);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Width(), 16);
    EXPECT_EQ(picture->Height(), 16);
    EXPECT_EQ(picture->Name(), UCase(name));
    const auto& xpm = picture->Xpm();
    int colours = 0;
    ASSERT_EQ(std::sscanf(xpm.front().c_str(), "%*d %*d %d", &colours), 1);
    ASSERT_EQ(xpm.size(), static_cast<size_t>(1 + colours + 16));
    std::set<char> table;
    for (int i = 1; i <= colours; ++i) table.insert(xpm[i][0]);
    for (size_t row = 1 + colours; row < xpm.size(); ++row) {
      ASSERT_EQ(xpm[row].size(), 16u);
      for (char pixel : xpm[row]) EXPECT_TRUE(table.count(pixel));
    }
  }
  EXPECT_EQ(IconResourceNames().size(), 14u);
  EXPECT_EQ(LoadIconResource("C0000999"), nullptr);
  EXPECT_EQ(LoadIconResource(""), nullptr);
}

}  // namespace
}  // namespace orvel
