// The firm card's debt line: balances, the credit warnings and the credit
// line, in both decimal separators; the own firm; what a refresh keeps.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "firms/FirmCardFixture.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

using Figures = std::map<std::string, Variant>;

// One answer record: the four sums (0 unless given) and the given limits.
std::shared_ptr<MemoryRecordset> Record(Figures figures) {
  for (const char* sum : {"Sum220", "Sum240", "Sum450", "Sum460"}) figures.emplace(sum, 0);
  std::vector<std::string> names;
  std::vector<Variant> values;
  for (const auto& [name, value] : figures) {
    names.push_back(name);
    values.push_back(value);
  }
  auto rs = std::make_shared<MemoryRecordset>(names);
  rs->AddRow(values);
  return rs;
}

class FirmDebtTest : public FirmCardTest {
 protected:
  // Opens firm 2 and answers "GetFirmDebt" (or "GetOurDebt") with one record.
  std::shared_ptr<frmFirms> OpenWithDebt(const Figures& figures, const char* call = "GetFirmDebt") {
    BO("O0000100").ReplyRead(call, Record(figures));
    return Open("O00001002");
  }
};

// ---- the line for one answer ----

struct DebtCase {
  const char* name;
  Figures figures;
  const char* debt;    // lblDebt
  bool red;            // lblDebt's colour
  const char* credit;  // lblCredit; "" when left as it stood
  bool invariant = false;
};

class FirmDebtLineTest : public FirmDebtTest, public ::testing::WithParamInterface<DebtCase> {};

TEST_P(FirmDebtLineTest, TextColourAndCreditLine) {
  const DebtCase& c = GetParam();
  if (c.invariant) host_.Ui()->SetLocale(Locale::Invariant());
  auto w = OpenWithDebt(c.figures);
  w->lblCredit.SetForeColor(vbBlue);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), c.debt);
  EXPECT_EQ(w->lblDebt.ForeColor(), c.red ? vbRed : vbBlack);
  EXPECT_EQ(w->lblCredit.Caption(), c.credit);
  EXPECT_EQ(w->lblCredit.ForeColor(), vbBlack);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetFirmDebt O00001002"});
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
}

const Variant kNone(1000000);  // a limit this high is no limit

INSTANTIATE_TEST_SUITE_P(
    Answers, FirmDebtLineTest,
    ::testing::Values(
        DebtCase{"PositiveDebtNoLimit",
                 {{"Sum240", Variant(100)}, {"Limit", kNone}},
                 "Skola: 100,00 Lt ",
                 false,
                 ""},
        DebtCase{"AdvanceOnly",
                 {{"Sum240", Variant(0)}, {"Sum460", Variant(-50)}, {"Limit", kNone}},
                 "Skola: 0,00 Lt (avansas 50,00 Lt)",
                 false,
                 ""},
        DebtCase{"BothSides",
                 {{"Sum240", Variant(100)}, {"Sum450", Variant(-20)}, {"Limit", kNone}},
                 "Skola: 100,00 Lt ; Mūsų skola: 20,00 Lt ",
                 false,
                 ""},
        DebtCase{"OurAdvanceOnly",
                 {{"Sum220", Variant(5)}, {"Limit", kNone}},
                 "Mūsų skola: 0,00 Lt (avansas 5,00 Lt)",
                 false,
                 ""},
        DebtCase{"EveryPart",
                 {{"Sum240", Variant(80.1234567)},
                  {"Sum460", Variant(-10)},
                  {"Sum450", Variant(-1.25)},
                  {"Sum220", Variant(2)},
                  {"Limit", kNone}},
                 "Skola: 80,123457 Lt (avansas 10,00 Lt); Mūsų skola: 1,25 Lt (avansas 2,00 Lt)",
                 false,
                 ""},
        DebtCase{"NullSumsAreZero",
                 {{"Sum240", Variant::Null()}, {"Sum450", Variant::Null()}, {"Limit", kNone}},
                 "Skola: 0,00 Lt ",
                 false,
                 ""},
        // 0 is a limit, not the absence of one.
        DebtCase{"ZeroLimitPassed",
                 {{"Sum240", Variant(10)}, {"Limit", Variant(0)}, {"LimitDays", Variant(30)}},
                 "Skola: 10,00 Lt (Viršytas kredito apribojimas !,0)",
                 true,
                 "Kredito apribojimai: Maksimali suma:0,00; Dienos:30"},
        DebtCase{"DebtEqualToLimit",
                 {{"Sum240", Variant(500)}, {"Limit", Variant(500)}, {"LimitDays", Variant(14)}},
                 "Skola: 500,00 Lt ",
                 false,
                 "Kredito apribojimai: Maksimali suma:500,00; Dienos:14"},
        DebtCase{"AdvanceCountsAgainstTheLimit",
                 {{"Sum240", Variant(700)}, {"Sum460", Variant(-300)}, {"Limit", Variant(500)}},
                 "Skola: 700,00 Lt (avansas 300,00 Lt)",
                 false,
                 "Kredito apribojimai: Maksimali suma:500,00; Dienos:0"},
        DebtCase{"LimitInItsPlainNumberText",
                 {{"Sum240", Variant(2000)}, {"Limit", Variant(1500.5)}},
                 "Skola: 2000,00 Lt (Viršytas kredito apribojimas !,1500,5)",
                 true,
                 "Kredito apribojimai: Maksimali suma:1500,50; Dienos:0"},
        DebtCase{"TermPassed",
                 {{"Sum240", Variant(100)}, {"Limit", kNone}, {"LimitTerm", Variant(0.5)}},
                 "Skola: 100,00 Lt (,50Lt.  Viršytas kredito terminas ! )",
                 true,
                 ""},
        DebtCase{"BothWarningsInOrder",
                 {{"Sum240", Variant(100)},
                  {"Limit", Variant(50)},
                  {"LimitTerm", Variant(20)},
                  {"LimitDays", Variant(10)}},
                 "Skola: 100,00 Lt (Viršytas kredito apribojimas !,50)"
                 "(20,00Lt.  Viršytas kredito terminas ! )",
                 true,
                 "Kredito apribojimai: Maksimali suma:50,00; Dienos:10"},
        DebtCase{"NegativeDebtNeverPassesTheTerm",
                 {{"Sum240", Variant(-30)}, {"Limit", Variant(0)}, {"LimitTerm", Variant(10)}},
                 "Skola: -30,00 Lt ",
                 false,
                 "Kredito apribojimai: Maksimali suma:0,00; Dienos:0"},
        DebtCase{"PointSeparator",
                 {{"Sum240", Variant(1234.5)},
                  {"Limit", Variant(1000.25)},
                  {"LimitTerm", Variant(0.5)},
                  {"LimitDays", Variant(7)}},
                 "Skola: 1234.50 Lt (Viršytas kredito apribojimas !,1000.25)"
                 "(.50Lt.  Viršytas kredito terminas ! )",
                 true,
                 "Kredito apribojimai: Maksimali suma:1000.25; Dienos:7",
                 true}),
    [](const auto& info) { return std::string(info.param.name); });

// ---- answers that carry less ----

struct ShortCase {
  const char* name;
  bool fail;  // the call fails
  bool empty;
};

class FirmDebtShortTest : public FirmDebtTest, public ::testing::WithParamInterface<ShortCase> {};

TEST_P(FirmDebtShortTest, NoFiguresShowZeroAndNoMessage) {
  const ShortCase& c = GetParam();
  if (c.fail) {
    BO("O0000100").FailCallsNamed("GetFirmDebt", 5, "Nepavyko");
  } else if (c.empty) {
    BO("O0000100")
        .ReplyRead("GetFirmDebt",
                   std::make_shared<MemoryRecordset>(std::vector<std::string>{"Sum240"}));
  }
  auto w = Open("O00001002");
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 0,00 Lt ");
  EXPECT_TRUE(host_.Ui()->Boxes().empty());
}

INSTANTIATE_TEST_SUITE_P(Cases, FirmDebtShortTest,
                         ::testing::Values(ShortCase{"CallFails", true, false},
                                           ShortCase{"EmptyAnswer", false, true}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(FirmDebtTest, MissingLimitFieldsKeepTheirFormerValues) {
  auto w = OpenWithDebt({{"Sum240", Variant(100)}, {"Limit", Variant(50)}, {"LimitTerm", 5.0}});
  w->lblDebt.Click();
  ASSERT_EQ(w->Limit, 50);
  BO("O0000100")
      .ReplyRead("GetFirmDebt", Record({{"Sum240", Variant(60)}, {"Limit", Variant::Null()}}));
  w->lblDebt.Click();
  EXPECT_EQ(w->Limit, 50);
  EXPECT_EQ(w->LimitTerm, 5);
  EXPECT_EQ(w->Debt, 60);
  EXPECT_EQ(w->lblDebt.Caption(),
            "Skola: 60,00 Lt (Viršytas kredito apribojimas !,50)"
            "(5,00Lt.  Viršytas kredito terminas ! )");
}

TEST_F(FirmDebtTest, OnceRedTheLineStaysRed) {
  auto w = OpenWithDebt({{"Sum240", Variant(100)}, {"Limit", Variant(10)}});
  w->lblDebt.Click();
  ASSERT_EQ(w->lblDebt.ForeColor(), vbRed);
  BO("O0000100").ReplyRead("GetFirmDebt", Record({{"Sum240", Variant(5)}, {"Limit", Variant(10)}}));
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 5,00 Lt ");
  EXPECT_EQ(w->lblDebt.ForeColor(), vbRed);
}

TEST_F(FirmDebtTest, TheOwnFirmShowsOurSideWithoutLimits) {
  auto own = std::make_shared<MemoryRecordset>(std::vector<std::string>{"OIDR"});
  own->AddRow({Variant("O00001002")});
  host_.Session()->SetOwnFirm(own);
  auto w = OpenWithDebt({{"Sum240", Variant(100)},
                         {"Sum450", Variant(-7)},
                         {"Limit", Variant(0)},
                         {"LimitTerm", Variant(3)}},
                        "GetOurDebt");
  w->lblCredit.SetCaption("ankstesnė");
  w->lblCredit.SetForeColor(vbBlue);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 100,00 Lt ; Mūsų skola: 7,00 Lt ");
  EXPECT_EQ(w->lblDebt.ForeColor(), vbBlack);
  EXPECT_EQ(w->lblCredit.Caption(), "ankstesnė");
  EXPECT_EQ(w->lblCredit.ForeColor(), vbBlue);
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetOurDebt O00001002"});
}

// A session without an own firm, or with one that cannot be read, is not
// this firm's.
class FirmDebtOwnFirmTest : public FirmDebtTest, public ::testing::WithParamInterface<bool> {};

TEST_P(FirmDebtOwnFirmTest, AnUnreadableOwnFirmIsNotThisOne) {
  if (GetParam()) {
    host_.Session()->SetOwnFirm(nullptr);
  } else {
    host_.Session()->SetOwnFirm(std::make_shared<MemoryRecordset>(std::vector<std::string>{"ID"}));
  }
  auto w = OpenWithDebt({{"Sum240", Variant(3)}, {"Limit", kNone}});
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 3,00 Lt ");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetFirmDebt O00001002"});
}

INSTANTIATE_TEST_SUITE_P(NoneOrUnreadable, FirmDebtOwnFirmTest, ::testing::Bool());

struct NoLineCase {
  const char* oidr;
  const char* key;
};

class FirmDebtNoLineTest : public FirmDebtTest, public ::testing::WithParamInterface<NoLineCase> {};

TEST_P(FirmDebtNoLineTest, GroupsAndNewFirmsHaveAnEmptyLineAndAskNothing) {
  auto w = Open(GetParam().oidr, GetParam().key);
  ASSERT_EQ(w->lblDebt.Caption(), "Informacija...");
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "");
  EXPECT_TRUE(BusinessLines().empty());
}

INSTANTIATE_TEST_SUITE_P(Records, FirmDebtNoLineTest,
                         ::testing::Values(NoLineCase{"O00001001", "0"},
                                           NoLineCase{"O00001001", "1"}));

TEST_F(FirmDebtTest, AClickShowsTheHourglassWhileItReads) {
  auto w = OpenWithDebt({{"Sum240", Variant(1)}, {"Limit", kNone}});
  host_.Ui()->SetMousePointer(vbDefault);
  const size_t before = host_.Ui()->MousePointers().size();
  w->lblDebt.Click();
  const auto& pointers = host_.Ui()->MousePointers();
  ASSERT_EQ(pointers.size(), before + 2);
  EXPECT_EQ(pointers[before], vbHourglass);
  EXPECT_EQ(pointers[before + 1], vbDefault);
}

TEST_F(FirmDebtTest, AnUnreadableSumIsShownAndThePointerComesBack) {
  auto w = OpenWithDebt({{"Sum240", Variant("daug")}, {"Limit", kNone}});
  host_.Ui()->QueueAnswer(vbOK);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "");
  ASSERT_EQ(host_.Ui()->Boxes().size(), 1u);
  EXPECT_EQ(host_.Ui()->Boxes()[0].flags, 16);
  EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
}

}  // namespace
}  // namespace orvel
