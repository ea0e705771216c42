// The reference-book card: its group line and picker, the read-only card,
// and the rules of writing, cancelling and starting a new record.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "ReferenceBookFixture.h"
#include "orvel/Ui.h"
#include "reference/frmReferenceBook.h"
#include "support/Controls.h"
#include "support/TextRecords.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestRights.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

class FrmReferenceBookTest : public ReferenceBookTest {
 protected:
  void SetUp() override {
    ReferenceBookTest::SetUp();
    for (const char* book : {kBook, kLocations}) {
      BO(book).Table().Seed(SeedRows("ID GroupFlag Name", {"5|1|Grupė B"}));
    }
    host_.Log().Clear();
  }

  // Opens a card the way the host does: the menu builds it, the window
  // manager shows it.
  std::shared_ptr<frmReferenceBook> Open(const std::string& oidr, const std::string& otype,
                                         const std::string& key = "0",
                                         const std::string& settings = "") {
    auto adapter = Adapter(oidr.substr(0, 8));
    adapter->GetMenu(oidr, otype, settings);
    auto window = adapter->ClickMenu(oidr, otype, key, "").Value.ObjectAs<frmReferenceBook>();
    EXPECT_NE(window, nullptr);
    if (window) host_.WindowManager()->ShowWindow(window);
    ClearCalls();
    return window;
  }

  FakeOrvelGrid& Grid(frmReferenceBook& window) {
    return dynamic_cast<FakeOrvelGrid&>(*window.OrvelGrid);
  }

  // Write, Cancel and New, 1 when enabled.
  static std::string ButtonsOf(frmReferenceBook& w) {
    return OnOff({&w.cmdWrite, &w.cmdCancel, &w.SSCNew});
  }
  static constexpr const char* kClean = "001";
  static constexpr const char* kDirty = "110";

  std::vector<std::string> WindowLines() { return host_.Log().Lines(Channel::Window); }
};

TEST_F(FrmReferenceBookTest, ACardInAGroupShowsTheGroupStartsCleanAndWritesItBack) {
  auto w = Open("O00016022", "T");
  ASSERT_TRUE(w);
  EXPECT_EQ(w->txtGroup.Text() + "|" + w->lblGroup.Caption() + "|" + std::to_string(w->GroupID()) +
                "|" + w->BookOID() + "|" + ButtonsOf(*w) + OnOff({&w->cmdGroup}),
            "Grupė A|Grupės pavadinimas|1|O0001602|0011");
  EXPECT_EQ(w->SOPanel.Caption(), " " + w->OrvelObjectUIO()->OName());
  EXPECT_FALSE(w->IsNew());
  EXPECT_EQ(Grid(*w).LabelWidth(), frmReferenceBook::kLabelWidth);
  // An edit enables the write, which stores the group.
  Grid(*w).EditField("Name", Variant("Vidinis 2"));
  EXPECT_EQ(ButtonsOf(*w), kDirty);
  w->cmdWrite.Click();
  EXPECT_EQ(ButtonsOf(*w), kClean);
  EXPECT_EQ(BO(kBook).Table().Value(2, "Name"), Variant("Vidinis 2"));
  EXPECT_EQ(CLng(BO(kBook).Table().Value(2, "ParentID")), 1);
  EXPECT_EQ(Calls(kBook)[0], "Orvel_SaveObject 'O0001602','O00016022'");
  EXPECT_EQ(WindowLines(), std::vector<std::string>{"ObjectSaved O00016022"});
  EXPECT_TRUE(host_.Rights()->SetRights().empty());
}

TEST_F(FrmReferenceBookTest, ARecordAtTheTopShowsNoGroupWhateverItIsGiven) {
  auto w = Adapter(kBook)->ClickMenu("O00016023", "T", "0", "").Value.ObjectAs<frmReferenceBook>();
  ASSERT_TRUE(w);
  w->mGroupName = "Pasenęs pavadinimas";
  host_.WindowManager()->ShowWindow(w);
  EXPECT_EQ(w->txtGroup.Text(), "");
  EXPECT_EQ(ButtonsOf(*w), kClean);
  // A read-only card takes no edit and offers no new record.
  w = Open("O00016022", "T", "0", "ReadOnly");
  ASSERT_TRUE(w && w->boolReadOnly);
  EXPECT_EQ(OnOff({&w->SSCNew, &w->cmdGroup}), "00");
  Grid(*w).EditField("Name", Variant("Kitas"));
  w->txtGroup.SetText("ranka");
  EXPECT_EQ(ButtonsOf(*w), "000");
}

// A failed write keeps the values and the write button; closing then asks.
TEST_F(FrmReferenceBookTest, AFailedWriteKeepsTheValuesAndTheWriteButton) {
  auto w = Open("O00016022", "T");
  BO(kBook).FailCallsNamed("Orvel_SaveObject", 3604, "Toks pavadinimas jau yra");
  Grid(*w).EditField("Name", Variant("Grupė A"));
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdWrite.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"16 Įrašymas neatliktas!\nToks pavadinimas jau yra"});
  EXPECT_EQ(host_.Ui()->Boxes()[0].title, w->MsgTitle());
  EXPECT_EQ(ButtonsOf(*w), kDirty);
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("Grupė A"));
  EXPECT_EQ(BO(kBook).Table().Value(2, "Name"), Variant("Vidinis"));
  EXPECT_TRUE(WindowLines().empty());
  host_.Ui()->ClearBoxes();
  host_.Ui()->QueueAnswer(vbNo);
  w->SSCClose.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"52 " + w->SOPanel.Caption() +
                                              "\n\nUždaryti be išsaugojimo?"});
  EXPECT_TRUE(w->Loaded());
}

// The card, the picker's answer and the group after the pick.
struct PickCase {
  const char *oidr, *resultOIDR, *resultName;
  int groupId;
  const char* text;
  bool changed;
};

class FrmReferenceBookPickTest : public FrmReferenceBookTest,
                                 public ::testing::WithParamInterface<PickCase> {};

TEST_P(FrmReferenceBookPickTest, ThePickedGroupMovesTheRecord) {
  const PickCase& c = GetParam();
  auto w = Open(c.oidr, "T");
  ASSERT_TRUE(w);
  host_.HostClasses()->QueueGroupSelect(c.resultOIDR, c.resultName, "Group");
  w->cmdGroup.Click();
  auto picker = host_.HostClasses()->LastGroupSelect();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(picker->OType() + "|" + picker->RootOType() + "|" + picker->SelectKind() + "|" +
                picker->Caption(),
            "O0001602|O0001602|Group|Parinkite objektą");
  EXPECT_EQ(std::to_string(w->GroupID()) + " " + w->txtGroup.Text() + " " + ButtonsOf(*w),
            std::to_string(c.groupId) + " " + c.text + " " + (c.changed ? kDirty : kClean));
  if (!c.changed) return;  // the text shown is then the group's before the pick
  w->cmdWrite.Click();
  EXPECT_EQ(
      NullToLong(BO(kBook).Table().Value(std::stoi(std::string(c.oidr).substr(8)), "ParentID")),
      c.groupId);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, FrmReferenceBookPickTest,
    ::testing::Values(
        // Another group, reached through a path of the tree.
        PickCase{"O00016022", "O0001600O0001602O00016025", "Grupė B", 5, "Grupė B", true},
        // The last identifier is found without regard to case.
        PickCase{"O00016022", "O0001600O0001602o00016025", "Grupė B", 5, "Grupė B", true},
        // The same group again changes nothing, whatever name comes back.
        PickCase{"O00016022", "O00016021", "Kitas vardas", 1, "Grupė A", false},
        // The book's root: to the top.
        PickCase{"O00016022", "O0001600O0001602", "Žinynas", 0, "", true},
        // The root for a record already at the top changes nothing.
        PickCase{"O00016023", "O0001602", "Žinynas", 0, "", false},
        // Cancelled, or an answer naming no record.
        PickCase{"O00016022", "", "", 1, "Grupė A", false},
        PickCase{"O00016022", "O0001602x7", "x", 1, "Grupė A", false}));

// The book and key of the new record's menu, the record written and the
// rights registered so far: only a new location registers its lock, and a
// second write of the stored record registers nothing more.
TEST_F(FrmReferenceBookTest, OnlyANewLocationRegistersItsLock) {
  const char* locks = "CLocationLock6 1111|CLocationLock7 1111|";
  using Row = std::tuple<const char*, const char*, const char*, const char*>;
  for (const auto& [book, key, oidr, rights] :
       std::vector<Row>{{kLocations, "1", "O00016056", "CLocationLock6 1111|"},
                        {kLocations, "2", "O00016057", locks}, {kBook, "1", "O00016026", locks}}) {
    auto w = Open(book, "C", key);
    ASSERT_TRUE(w && w->IsNew());
    for (const char* name : {"Naujas", "Naujas 2"}) {
      Grid(*w).EditField("Name", Variant(name));
      w->cmdWrite.Click();
      std::string set = w->OrvelObjectUIO()->OIDR() + (w->IsNew() ? " new|" : "|");
      for (const auto& [lock, on] : host_.Rights()->SetRights()) set += lock + " " + on + "|";
      EXPECT_EQ(set, oidr + std::string("|") + rights);
    }
  }
}

TEST_F(FrmReferenceBookTest, ANewRecordIsWrittenInItsGroupAndKindWhichACancelKeeps) {
  auto w = Open("O00016021", "Group", "3");
  ASSERT_TRUE(w);
  EXPECT_EQ(w->txtGroup.Text() + "|" + w->lblGroup.Caption(), "Grupė A|Aukštesnio lygio grupė");
  // New on a new record does nothing at all.
  w->SSCNew.Click();
  EXPECT_TRUE(Calls(kBook).empty());
  EXPECT_TRUE(WindowLines().empty());
  // A cancel keeps its group and kind.
  Grid(*w).EditField("Name", Variant("Pogrupis"));
  w->cmdCancel.Click();
  EXPECT_EQ(ButtonsOf(*w), kClean);
  auto& object = *w->OrvelObjectUIO();
  EXPECT_EQ(ConcatText(object.Fields("ParentID").Value()) +
                ConcatText(object.Fields("GroupFlag").Value()) + " " + w->txtGroup.Text(),
            "11 Grupė A");
  EXPECT_NE(object.Fields("Name").Value(), Variant("Pogrupis"));
  Grid(*w).EditField("Name", Variant("Pogrupis"));
  w->cmdWrite.Click();
  EXPECT_EQ(ConcatText(BO(kBook).Table().Value(6, "ParentID")) +
                ConcatText(BO(kBook).Table().Value(6, "GroupFlag")),
            "11");
  EXPECT_EQ(WindowLines(), std::vector<std::string>{"ObjectSaved O00016026"});
  EXPECT_EQ(w->mGroupName, "Grupė A");
}

// The card's known quirk: after a cancel it shows the old group and the
// next write moves the record to the group picked before.
TEST_F(FrmReferenceBookTest, CancelAfterAMoveShowsTheOldGroupAndWritesThePickedOne) {
  auto w = Open("O00016022", "T");
  host_.HostClasses()->QueueGroupSelect("O00016025", "Grupė B", "Group");
  w->cmdGroup.Click();
  w->cmdCancel.Click();
  EXPECT_EQ(std::to_string(w->GroupID()) + " " + w->txtGroup.Text(), "5 Grupė A");
  Grid(*w).EditField("Name", Variant("Vidinis 2"));
  w->cmdWrite.Click();
  EXPECT_EQ(CLng(BO(kBook).Table().Value(2, "ParentID")), 5);
  // A cancel that cannot read closes the card.
  ClearCalls();
  Grid(*w).EditField("Name", Variant("x"));
  BO(kBook).FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas nerastas");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdCancel.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Įrašas nerastas"});
  EXPECT_EQ(WindowLines(), std::vector<std::string>{"RemoveWindow O00016022 True"});
}

TEST_F(FrmReferenceBookTest, NewBesideAStoredRecordKeepsItsGroupAndKind) {
  auto w = Open("O00016021", "Group");
  ASSERT_TRUE(w);
  w->SSCNew.Click();
  auto& object = *w->OrvelObjectUIO();
  EXPECT_TRUE(w->IsNew());
  EXPECT_EQ(object.OIDR() + " " + ConcatText(object.Fields("ParentID").Value()) +
                ConcatText(object.Fields("GroupFlag").Value()),
            "O0001602 01");
  // The sheet is drawn again from the book's structure.
  EXPECT_EQ(Calls(kBook),
            (std::vector<std::string>{"Orvel_NewObject 'O0001602'", "GetStructure "}));
  EXPECT_THAT(WindowLines(), ::testing::ElementsAre("QueryRemove O00016021 True",
                                                    ::testing::StartsWith("Rekey O00016021")));
  EXPECT_THAT(Grid(*w).Operations(), ::testing::Contains("ClearTabs"));
}

}  // namespace
}  // namespace orvel
