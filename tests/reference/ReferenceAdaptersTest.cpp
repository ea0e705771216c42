// The reference family's adapter pair: menus, the keys of the tree, the list
// and filter parameter strings, the books treated apart, and the properties
// and methods other windows and modules reach a record by.
#include <gtest/gtest.h>

#include <tuple>

#include "ReferenceBookFixture.h"
#include "adapters/UI0001600.h"
#include "lists/frmReferenceBookPreview.h"
#include "orvel/Ui.h"
#include "reference/frmReferenceBook.h"
#include "testhost/TestObjectSelect.h"

namespace orvel {
namespace {

struct MenuCase {
  const char *oidr, *otype, *settings, *keys;  // "" for an empty menu
};

// The family's root and an unclassified eight-character node have none; a
// book is no root (its OID does not end in "00"); only a stored record goes
// on the desktop; an unknown kind has no menu, not even help; the flags
// match by case, as the host writes them.
TEST_F(ReferenceBookTest, EntriesFollowTheNodeKindAndTheSettings) {
  for (const MenuCase& c : {MenuCase{"O0001600", "C", "", ""}, MenuCase{"O0001602", "", "", ""},
                            MenuCase{"O00016021", "Group", "GroupsDisabled", "0 5 1 6 4 100 7 100"},
                            MenuCase{"O00016022", "T", "", "0 1 6 4 100 7 100"},
                            MenuCase{"O0001602", "T", "", "1 6 4 100 7 100"},
                            MenuCase{"O0001602", "C", "", "2 5 1 4 100 7 100"},
                            MenuCase{"O0001602", "C", "x;ReadOnly", "5 4 100 7 100"},
                            MenuCase{"O0001602", "C", "GroupsDisabled", "5 1 4 100 7 100"},
                            MenuCase{"O00016021", "Group", "", "0 3 5 1 6 4 100 7 100"},
                            MenuCase{"O00016021", "Group", "ReadOnly", "0 5 4 100 7 100"},
                            MenuCase{"O00016022", "", "", "0 1 6 4 100 7 100"},
                            MenuCase{"O00016022", "T", "ReadOnly,GroupsDisabled", "0 4 100 7 100"},
                            MenuCase{"O0001602", "Group", "", "3 5 1 6 4 100 7 100"},
                            MenuCase{"O00016022", "X", "", ""},
                            MenuCase{"O00016022", "T", "readonly", "0 1 6 4 100 7 100"}}) {
    SCOPED_TRACE(std::string(c.oidr) + " " + c.otype + " " + c.settings);
    std::string oidr = c.oidr;
    auto menu = Adapter(oidr.substr(0, 8))->GetMenu(oidr, c.otype, c.settings);
    ASSERT_TRUE(menu);
    std::string keys;
    for (const auto& item : *menu) keys += (keys.empty() ? "" : " ") + item.Key;
    EXPECT_EQ(keys, c.keys);
    EXPECT_TRUE(Calls(kBook).empty());
  }
}

// "UI"/"UIO" and the family's OID 00016nn, nothing else.
TEST(ReferenceClass, EveryBookOfTheFamilyIsServedByThePair) {
  for (const auto& [name, made] :
       {std::pair{"UI0001600", "UI"}, {"UIO0001600", "UIO"}, {"UI0001605", "UI"},
        {"UIO0001615", "UIO"}, {"UI0001699", "UI"}, {"UI0001700", ""}, {"UI000160", ""},
        {"UI00016055", ""}, {"UI00016x5", ""}, {"UIO000160-", ""}, {"", ""}}) {
    auto object = ClassFactory::Create(name);
    std::string kind = std::dynamic_pointer_cast<UIO0001600>(object)  ? "UIO"
                       : std::dynamic_pointer_cast<UI0001600>(object) ? "UI"
                                                                      : "";
    EXPECT_EQ(kind, made) << name;
  }
}

// A record of the locations ends otherwise than the book: no user.
TEST_F(ReferenceBookTest, TheListCallCarriesTheUserOnlyForLocations) {
  for (const auto& [book, oidr, param] : {std::tuple{kBook, "", "'O0001602'"},
                                          {kBook, "O00016021", "'O00016021'"},
                                          {kLocations, "", "'u7', 'O0001605'"},
                                          {kLocations, "O0001605", "'u7', 'O0001605'"},
                                          {kLocations, "O00016051", "'O00016051'"}}) {
    ClearCalls();
    Adapter(book)->GetOrvelObjectList(oidr, "Group", "ReadOnly");
    EXPECT_EQ(Calls(book), std::vector<std::string>{std::string("Orvel_GetObjectList ") + param});
  }
}

TEST_F(ReferenceBookTest, AnEmptyOidrReadsANewRecordAndShowOpensTheListWindowOfTheNode) {
  auto object = Adapter(kBook)->GetOrvelObject("");
  ASSERT_NE(std::dynamic_pointer_cast<UIO0001600>(object), nullptr);
  EXPECT_EQ(Calls(kBook), std::vector<std::string>{"Orvel_NewObject 'O0001602'"});
  EXPECT_EQ(object->OIDR(), kBook);
  auto result = Adapter(kBook)->ClickMenu("O00016021", "Group", "5", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmReferenceBookPreview>();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->ObjectUIO->OIDR() + " " + window->ListArgument, "O00016021 O00016021");
  EXPECT_FALSE(window->Loaded());
}

// Key "0" opens the record, "1" a new entry, "2"/"3" a new group: in the
// node's group (an entry's own group beside it), with the read-only flag of
// the menu's settings.
// The card's "OIDR ParentID GroupFlag group name".
struct OpenCase {
  const char *key, *oidr, *otype, *settings, *opened;
};

TEST_F(ReferenceBookTest, TheCardStartsInTheRightGroupKindAndFlag) {
  for (const OpenCase& c : {OpenCase{"0", "O00016022", "T", "", "O00016022 1 0 Grupė A"},
                            OpenCase{"0", "O00016022", "T", "ReadOnly", "O00016022 1 0 Grupė A"},
                            OpenCase{"0", "O00016023", "T", "", "O00016023 0 0 "},
                            OpenCase{"0", "O00016021", "T", "", "O00016021 0 1 "},
                            OpenCase{"2", kBook, "C", "", "O0001602 0 1 "},
                            OpenCase{"3", "O00016021", "Group", "", "O0001602 1 1 Grupė A"},
                            OpenCase{"1", kBook, "C", "", "O0001602 0 0 "},
                            OpenCase{"1", "O00016021", "Group", "", "O0001602 1 0 Grupė A"},
                            OpenCase{"1", "O00016022", "T", "", "O0001602 1 0 Grupė A"},
                            OpenCase{"1", "O00016023", "", "", "O0001602 0 0 "}}) {
    SCOPED_TRACE(std::string(c.key) + " " + c.oidr + " " + c.settings);
    auto adapter = Adapter(kBook);
    adapter->GetMenu(c.oidr, c.otype, c.settings);
    auto result = adapter->ClickMenu(c.oidr, c.otype, c.key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
    auto window = result.Value.ObjectAs<frmReferenceBook>();
    ASSERT_NE(window, nullptr);
    auto& object = *window->OrvelObjectUIO();
    EXPECT_EQ(object.OIDR() + " " + ConcatText(object.Fields("ParentID").Value()) + " " +
                  ConcatText(object.Fields("GroupFlag").Value()) + " " + window->mGroupName,
              c.opened);
    EXPECT_EQ(window->boolReadOnly, std::string(c.settings) == "ReadOnly");
  }
}

TEST_F(ReferenceBookTest, NoWindowWhenTheRecordOrItsGroupIsGone) {
  constexpr const char* kObject = "Orvel Apskaita Objektas panaikintas !";
  constexpr const char* kGroup = "Orvel Apskaita Grupė panaikinta!";
  for (const auto& [key, oidr, otype, box] :
       {std::tuple{"5", "O00016028", "T", kObject}, {"0", "O00016028", "T", kObject},
        {"0", "O00016024", "T", kGroup}, {"3", "O00016028", "Group", kGroup},
        {"1", "O00016028", "Group", kGroup}, {"1", "O00016028", "T", kObject},
        {"1", "O00016024", "T", kGroup}}) {
    SCOPED_TRACE(std::string(key) + " " + oidr + " " + otype);
    host_.Ui()->ClearBoxes();
    host_.Ui()->QueueAnswer(vbOK);
    auto result = Adapter(kBook)->ClickMenu(oidr, otype, key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
    EXPECT_TRUE(result.Value.IsEmpty());
    EXPECT_EQ(BoxLines(*host_.Ui()), std::vector<std::string>{std::string("16 ") + box});
    EXPECT_EQ(BO(kBook).Calls("Orvel_NewObject").size(), 0u);
  }
}

TEST_F(ReferenceBookTest, DeleteAsksYesOrNo) {
  auto adapter = Adapter(kBook);
  for (const auto& [answer, action] :
       {std::pair{vbNo, OrvelMenuResult::kNothing}, {vbYes, OrvelMenuResult::kRemoved}}) {
    host_.Ui()->QueueAnswer(answer);
    EXPECT_EQ(adapter->ClickMenu("O00016023", "T", "6", "").Action, action);
    EXPECT_EQ(BO(kBook).Table().Contains(3), answer == vbNo);
  }
  EXPECT_EQ(Boxes(), std::vector<std::string>(2, "52 Ar tikrai norite panaikinti?"));
  // A refused delete leaves the node in the tree.
  BO(kBook).FailCallsNamed("Orvel_DeleteObject", 547, "Naudojamas");
  host_.Ui()->QueueAnswer(vbYes);
  EXPECT_EQ(adapter->ClickMenu("O00016022", "T", "6", "").Action, OrvelMenuResult::kNothing);
}

// By the menu and by the key chord; any node of the locations carries the
// user first.
TEST_F(ReferenceBookTest, TheFilterListsByTheTextAndHandsBackTheParameter) {
  for (const auto& [key, oidr, param] : {std::tuple{"4", "O00016021", "'vid','O00016021'"},
                                         {"70S2", kBook, "'vid','O0001602'"},
                                         {"4", "O00016051", "'u7','vid','O00016051'"},
                                         {"70S2", kLocations, "'u7','vid','O0001605'"}}) {
    SCOPED_TRACE(std::string(key) + " " + oidr);
    ClearCalls();
    std::string book = std::string(oidr).substr(0, 8);
    EXPECT_EQ(Adapter(book)->ClickMenu(oidr, "Group", key, "").Action, OrvelMenuResult::kNothing)
        << "no text, no list";
    host_.HostClasses()->QueueObjectSelect("vid");
    const size_t pointers = host_.Ui()->MousePointers().size();
    auto result = Adapter(book)->ClickMenu(oidr, "Group", key, "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
    const auto& value = result.Value.ArrayValue();
    ASSERT_EQ(value.size(), 2u);
    EXPECT_NE(value[0].ObjectAs<Recordset>(), nullptr);
    EXPECT_EQ(value[1], Variant(param));
    EXPECT_EQ(Calls(book), std::vector<std::string>{std::string("Orvel_GetObjectList ") + param});
    EXPECT_EQ(host_.HostClasses()->LastObjectSelect()->OType(), book);
    EXPECT_EQ(std::vector<int32_t>(host_.Ui()->MousePointers().begin() + pointers,
                                   host_.Ui()->MousePointers().end()),
              (std::vector<int32_t>{vbHourglass, vbDefault}));
  }
}

TEST_F(ReferenceBookTest, RefreshListsTheNodeAgainAndHelpOpensTheReferencePage) {
  for (const char* book : {kBook, kLocations}) {
    auto result = Adapter(book)->ClickMenu(book, "C", "116S0", "");
    EXPECT_EQ(result.Action, OrvelMenuResult::kReplaceList);
    ASSERT_EQ(result.Value.ArrayValue().size(), 2u);
    EXPECT_EQ(result.Value.ArrayValue()[1], Variant(""));
  }
  EXPECT_EQ(Calls(kBook), std::vector<std::string>{"Orvel_GetObjectList 'O0001602'"});
  EXPECT_EQ(Calls(kLocations), std::vector<std::string>{"Orvel_GetObjectList 'u7', 'O0001605'"});
  EXPECT_EQ(Adapter(kBook)->ClickMenu(kBook, "C", "7", "").Action, OrvelMenuResult::kNothing);
  const auto shown = host_.Log().Lines(Channel::Host);
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_TRUE(shown[0].starts_with("ExecCommand ShowHelp Žinynai ") &&
              shown[0].ends_with("help\\zinynai.htm")) << shown[0];
}

class ReferenceRecordTest : public ReferenceBookTest {
 protected:
  std::shared_ptr<OrvelObjectUIO> Record(const char* oidr) {
    auto object = Adapter(kBook)->GetOrvelObject(oidr);
    ClearCalls();
    return object;
  }
};

// No OIDR stands in for an empty parameter.
TEST_F(ReferenceRecordTest, APropertyIsAGetCallWithTheParameterAsGiven) {
  for (const auto& [name, par, call] :
       {std::tuple{"ExtPropertiesByOID", "'O00001005'", "GetExtPropertiesByOID 'O00001005'"},
        {"Structure", "", "GetStructure "}}) {
    BO(kBook).ReplyRead(std::string("Get") + name, TextRecords("X", ""));
    auto result = Record("O00016022")->Properties(name, par);
    EXPECT_EQ(result.Number, 0);
    EXPECT_NE(result.Value.ObjectAs<Recordset>(), nullptr);
    EXPECT_EQ(Calls(kBook), std::vector<std::string>{call});
  }
  // A failed property is shown and reported.
  BO(kBook).FailCallsNamed("GetRows", 13, "Netinkamas parametras");
  host_.Ui()->QueueAnswer(vbOK);
  auto result = Record("O00016022")->Properties("Rows", "x");
  EXPECT_EQ(std::to_string(result.Number) + " " + result.Text, "13 Netinkamas parametras");
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_EQ(BoxLines(*host_.Ui()),
            std::vector<std::string>{"48 Orvel Apskaita Netinkamas parametras"});
}

// A top record's parent is nothing without a call; a group that is gone is
// still Number 0, and nothing.
TEST_F(ReferenceRecordTest, ParentOfARecordIsItsGroupOrNothing) {
  auto top = Record("O00016023")->Properties("Parent", "");
  EXPECT_EQ(top.Number, 0);
  EXPECT_TRUE(top.Value.IsEmpty());
  EXPECT_TRUE(Calls(kBook).empty());
  auto result = Record("O00016022")->Properties("Parent", "");
  EXPECT_EQ(result.Number, 0);
  auto parent = result.Value.ObjectAs<OrvelObjectUIO>();
  ASSERT_NE(parent, nullptr);
  EXPECT_EQ(parent->OIDR() + " " + parent->Preview(), "O00016021 Grupė A");
  EXPECT_EQ(Calls(kBook), std::vector<std::string>{"Orvel_ReadObject 'O00016021'"});
  auto orphan = Record("O00016024")->Properties("Parent", "");
  EXPECT_EQ(orphan.Number, 0);
  EXPECT_EQ(orphan.Value.ObjectAs<OrvelObjectUIO>(), nullptr);
  // The cards are built without a call.
  auto record = Record("O00016022");
  auto onRecord = record->Properties("GetObjectForm", "").Value.ObjectAs<frmReferenceBook>();
  ASSERT_NE(onRecord, nullptr);
  EXPECT_EQ(onRecord->OrvelObjectUIO(), record);
  EXPECT_FALSE(onRecord->Loaded());
  Variant::Array none;
  auto bare = record->Methods("GetForm", none).Value.ObjectAs<frmReferenceBook>();
  ASSERT_NE(bare, nullptr);
  EXPECT_EQ(bare->OrvelObjectUIO(), nullptr);
  EXPECT_TRUE(Calls(kBook).empty());
}

// Numbers go with "." and further parameters are dropped.
TEST_F(ReferenceRecordTest, AMethodIsAnExecCallWithTheFirstParameterOnly) {
  using Case = std::tuple<const char*, Variant::Array, const char*>;
  for (auto [name, params, call] : std::vector<Case>{
           {"MoveRows", {}, "MoveRows "}, {"SetRate", {Variant(1.5), Variant("x")}, "SetRate 1.5"},
           {"MoveRows", {Variant("'O00016022',3")}, "MoveRows 'O00016022',3"}}) {
    EXPECT_EQ(Record("O00016022")->Methods(name, params).Number, 0);
    EXPECT_EQ(Calls(kBook), std::vector<std::string>{call});
  }
  // Only Number 777 is shown to the user.
  Variant::Array none;
  BO(kBook).FailCallsNamed("Close", 777, "Laikotarpis uždarytas");
  host_.Ui()->QueueAnswer(vbOK);
  auto shown = Record("O00016022")->Methods("Close", none);
  EXPECT_EQ(std::to_string(shown.Number) + " " + shown.Text, "777 Laikotarpis uždarytas");
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Laikotarpis uždarytas"});
  BO(kBook).FailCallsNamed("Open", 5, "Klaida");
  auto quiet = Record("O00016022")->Methods("Open", none);
  EXPECT_EQ(std::to_string(quiet.Number) + " " + quiet.Text, "5 Klaida");
}

}  // namespace
}  // namespace orvel
