#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "firms/FirmCardFixture.h"
#include "support/CaseName.h"
#include "support/TextRecords.h"
#include "ui/ControlConstants.h"

namespace orvel {
namespace {

// One answer record: the four sums (0 unless given), the limit (1000000, no
// limit, unless given) and the given terms, as "name=value;...".
std::shared_ptr<MemoryRecordset> Record(const std::string& figures) {
  std::map<std::string, Variant> fields{
      {"Sum220", 0}, {"Sum240", 0}, {"Sum450", 0}, {"Sum460", 0}, {"Limit", 1000000}};
  for (auto& [name, value] : Assignments(figures)) fields[name] = value;
  auto rs = std::make_shared<MemoryRecordset>();
  std::vector<Variant> values;
  for (const auto& [name, value] : fields) {
    rs->AddField(name);
    values.push_back(value);
  }
  rs->AddRow(values);
  return rs;
}

class FirmDebtTest : public FirmCardTest {
 protected:
  // Opens firm 2 and answers "GetFirmDebt" (or "GetOurDebt") with one record.
  std::shared_ptr<frmFirms> OpenWithDebt(const std::string& figures,
                                         const char* call = "GetFirmDebt") {
    BO("O0000100").ReplyRead(call, Record(figures));
    return Open("O00001002");
  }
};

struct DebtCase {
  const char* name;
  const char* figures;
  const char* debt;         // lblDebt
  const char* credit = "";  // lblCredit; "" when left as it stood
  bool red = false;         // lblDebt's colour
  bool invariant = false;
};

// Each click reads under the hourglass and puts the pointer back.
TEST_F(FirmDebtTest, TextColourAndCreditLine) {
  for (const DebtCase& c : std::initializer_list<DebtCase>{
           {"AdvanceOnly", "Sum460=-50", "Skola: 0,00 Lt (avansas 50,00 Lt)"},
           {"BothSides", "Sum240=100;Sum450=-20", "Skola: 100,00 Lt ; Mūsų skola: 20,00 Lt "},
           {"OurAdvanceOnly", "Sum220=5", "Mūsų skola: 0,00 Lt (avansas 5,00 Lt)"},
           {"EveryPart", "Sum240=80.1234567;Sum460=-10;Sum450=-1.25;Sum220=2",
            "Skola: 80,123457 Lt (avansas 10,00 Lt); Mūsų skola: 1,25 Lt (avansas 2,00 Lt)"},
           {"NullSumsAreZero", "Sum240=~;Sum450=~", "Skola: 0,00 Lt "},
           // 0 is a limit, not the absence of one.
           {"ZeroLimitPassed", "Sum240=10;Limit=0;LimitDays=30",
            "Skola: 10,00 Lt (Viršytas kredito apribojimas !,0)",
            "Kredito apribojimai: Maksimali suma:0,00; Dienos:30", true},
           {"DebtEqualToLimit", "Sum240=500;Limit=500;LimitDays=14", "Skola: 500,00 Lt ",
            "Kredito apribojimai: Maksimali suma:500,00; Dienos:14"},
           {"AdvanceCountsAgainstTheLimit", "Sum240=700;Sum460=-300;Limit=500",
            "Skola: 700,00 Lt (avansas 300,00 Lt)",
            "Kredito apribojimai: Maksimali suma:500,00; Dienos:0"},
           {"LimitInItsPlainNumberText", "Sum240=2000;Limit=1500.5",
            "Skola: 2000,00 Lt (Viršytas kredito apribojimas !,1500,5)",
            "Kredito apribojimai: Maksimali suma:1500,50; Dienos:0", true},
           {"TermPassed", "Sum240=100;LimitTerm=0.5",
            "Skola: 100,00 Lt (,50Lt.  Viršytas kredito terminas ! )", "", true},
           {"BothWarningsInOrder", "Sum240=100;Limit=50;LimitTerm=20;LimitDays=10",
            "Skola: 100,00 Lt (Viršytas kredito apribojimas !,50)"
            "(20,00Lt.  Viršytas kredito terminas ! )",
            "Kredito apribojimai: Maksimali suma:50,00; Dienos:10", true},
           {"NegativeDebtNeverPassesTheTerm", "Sum240=-30;Limit=0;LimitTerm=10",
            "Skola: -30,00 Lt ", "Kredito apribojimai: Maksimali suma:0,00; Dienos:0"},
           {"PointSeparator", "Sum240=1234.5;Limit=1000.25;LimitTerm=0.5;LimitDays=7",
            "Skola: 1234.50 Lt (Viršytas kredito apribojimas !,1000.25)"
            "(.50Lt.  Viršytas kredito terminas ! )",
            "Kredito apribojimai: Maksimali suma:1000.25; Dienos:7", true, true}}) {
    SCOPED_TRACE(c.name);
    if (c.invariant) host_.Ui()->SetLocale(Locale::Invariant());
    auto w = OpenWithDebt(c.figures);
    w->lblCredit.SetForeColor(vbBlue);
    const size_t before = host_.Ui()->MousePointers().size();
    w->lblDebt.Click();
    const auto& pointers = host_.Ui()->MousePointers();
    EXPECT_EQ(std::vector<int32_t>(pointers.begin() + before, pointers.end()),
              (std::vector<int32_t>{vbHourglass, vbDefault}));
    EXPECT_EQ(w->lblDebt.Caption(), c.debt);
    EXPECT_EQ(w->lblDebt.ForeColor(), c.red ? vbRed : vbBlack);
    EXPECT_EQ(w->lblCredit.Caption(), c.credit);
    EXPECT_EQ(w->lblCredit.ForeColor(), vbBlack);
    EXPECT_EQ(BusinessLines(), Lines{"GetCall GetFirmDebt O00001002"});
    EXPECT_TRUE(host_.Ui()->Boxes().empty());
  }
}

// A failed or empty answer shows zero and no message; an unreadable sum is
// shown and the pointer comes back.
TEST_F(FirmDebtTest, AFailedEmptyOrUnreadableAnswer) {
  BO("O0000100").FailCallsNamed("GetFirmDebt", 5, "Nepavyko");
  auto w = Open("O00001002");
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 0,00 Lt ");
  BO("O0000100").ClearFailures();
  BO("O0000100").ReplyRead("GetFirmDebt", TextRecords("Sum240", ""));
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 0,00 Lt ");
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=daug"));
  host_.Ui()->QueueAnswer(vbOK);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "");
  ASSERT_EQ(host_.Ui()->Boxes().size(), 1u);
  EXPECT_EQ(host_.Ui()->Boxes()[0].flags, 16);
  EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
}

// Missing limit fields keep their former values; once red, the line stays red.
TEST_F(FirmDebtTest, MissingLimitFieldsKeepTheirFormerValuesAndTheLineStaysRed) {
  auto w = OpenWithDebt("Sum240=100;Limit=50;LimitTerm=5.0");
  w->lblDebt.Click();
  ASSERT_EQ(w->lblDebt.ForeColor(), vbRed);
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=60;Limit=~"));
  w->lblDebt.Click();
  EXPECT_EQ((std::vector<double>{w->Limit, w->LimitTerm, w->Debt}),
            (std::vector<double>{50, 5, 60}));
  EXPECT_EQ(w->lblDebt.Caption(),
            "Skola: 60,00 Lt (Viršytas kredito apribojimas !,50)"
            "(5,00Lt.  Viršytas kredito terminas ! )");
  BO("O0000100").ReplyRead("GetFirmDebt", Record("Sum240=5;Limit=10;LimitTerm=0"));
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 5,00 Lt ");
  EXPECT_EQ(w->lblDebt.ForeColor(), vbRed);
}

TEST_F(FirmDebtTest, TheOwnFirmShowsOurSideWithoutLimits) {
  host_.Session()->SetOwnFirm(TextRecords("OIDR", "O00001002"));
  auto w = OpenWithDebt("Sum240=100;Sum450=-7;Limit=0;LimitTerm=3", "GetOurDebt");
  w->lblCredit.SetCaption("ankstesnė");
  w->lblCredit.SetForeColor(vbBlue);
  w->lblDebt.Click();
  EXPECT_EQ(w->lblDebt.Caption(), "Skola: 100,00 Lt ; Mūsų skola: 7,00 Lt ");
  EXPECT_EQ(w->lblDebt.ForeColor(), vbBlack);
  EXPECT_EQ(w->lblCredit.Caption(), "ankstesnė");
  EXPECT_EQ(w->lblCredit.ForeColor(), vbBlue);
  EXPECT_EQ(BusinessLines(), Lines{"GetCall GetOurDebt O00001002"});
}

// A session without an own firm, or with one that cannot be read, is not
// this firm's.
TEST_F(FirmDebtTest, AnUnreadableOwnFirmIsNotThisOne) {
  for (auto own : {std::shared_ptr<MemoryRecordset>(), TextRecords("ID", "")}) {
    host_.Session()->SetOwnFirm(own);
    auto w = OpenWithDebt("Sum240=3");
    w->lblDebt.Click();
    EXPECT_EQ(w->lblDebt.Caption(), "Skola: 3,00 Lt ");
    EXPECT_EQ(BusinessLines(), Lines{"GetCall GetFirmDebt O00001002"});
  }
}

TEST_F(FirmDebtTest, GroupsAndNewFirmsHaveAnEmptyLineAndAskNothing) {
  for (const char* key : {"0", "1"}) {
    auto w = Open("O00001001", key);
    ASSERT_EQ(w->lblDebt.Caption(), "Informacija...");
    w->lblDebt.Click();
    EXPECT_EQ(w->lblDebt.Caption(), "");
    EXPECT_TRUE(BusinessLines().empty());
  }
}

}  // namespace
}  // namespace orvel
