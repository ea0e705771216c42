#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "RunningHost.h"
#include "host/Convert.h"
#include "refhost/HostPeriod.h"
#include "ui/Menu.h"

namespace orvel {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

// The period after an answer, as "read|useDates|daysBack|from|to"; one not
// read leaves thirty days back and the dates it had.
TEST(HostPeriodRead, AnAnswerIsDaysBackOrTwoDaysAndAnythingElseChangesNothing) {
  const std::string kept = "0|0|30|2026-01-01|2026-01-31";
  const Locale lt = Locale::Lithuanian();
  for (const auto& [answer, after] : std::vector<std::pair<std::string, std::string>>{
           {"90", "1|0|90|2026-01-01|2026-01-31"}, {" 0 ", "1|0|0|2026-01-01|2026-01-31"},
           {"2025-10-01 2025-12-31", "1|1|30|2025-10-01|2025-12-31"},
           {"2025.10.01 2025.10.01", "1|1|30|2025-10-01|2025-10-01"},
           // the later day before the earlier
           {"2025-12-31 2025-10-01", kept}, {"-5", kept}, {"30 dienų", kept},
           {"2025-10-01", kept}, {"1 2 3", kept}, {"", kept}}) {
    HostPeriod period;
    period.dateFrom = DateSerial(2026, 1, 1);
    period.dateTo = DateSerial(2026, 1, 31);
    const bool read = period.Read(answer);
    EXPECT_EQ(std::to_string(read) + "|" + std::to_string(period.useDates) + "|" +
                  std::to_string(period.daysBack) + "|" + FormatDate(period.dateFrom, lt) + "|" +
                  FormatDate(period.dateTo, lt),
              after) << answer;
  }
}

// The period through the reference host's object manager, stored per user in
// the database.
class HostPeriodRoadTest : public RunningHost {
 protected:
  Variant::Array Period(const std::string& call) {
    OrvelResult result = host_.Objects().Call(call, "");
    EXPECT_EQ(result.Number, 0) << result.Text;
    return result.Value.IsArray() ? result.Value.ArrayValue() : Variant::Array{};
  }
};

// A user who never chose lists the last thirty days; an unreadable answer
// keeps the period and says so; a new one is stored and handed out after.
TEST_F(HostPeriodRoadTest, ThePeriodIsThirtyDaysUntilANewOneIsAskedAndStored) {
  Variant::Array before = Period("GetOldPeriod");
  ASSERT_EQ(before.size(), 5u);
  EXPECT_EQ(ConcatText(before[2]) + "|" + ConcatText(CBool(before[3])) + "|" +
                (CDate(before[1]).serial == LocalToday().serial ? "today" : "another day"),
            "30|False|today");
  prompter_.texts = {"vakar", ""};
  EXPECT_EQ(Period("GetNewPeriod"), before);
  EXPECT_THAT(prompter_.said, Contains("Laikotarpis nepakeistas: vakar"));
  EXPECT_EQ(Period("GetNewPeriod"), before);

  prompter_.texts = {"2025-10-01 2025-12-31"};
  Variant::Array chosen = Period("GetNewPeriod");
  ASSERT_EQ(chosen.size(), 5u);
  EXPECT_EQ(ConcatText(CBool(chosen[3])) + "|" + FormatDate(CDate(chosen[0]), Locale::Lithuanian()),
            "True|2025-10-01");
  EXPECT_EQ(Period("GetOldPeriod"), chosen);
  EXPECT_EQ(StoredText("SELECT Value FROM user_settings WHERE Name = 'OrvelHost/PeriodTo'"),
            "2025-12-31");
}

TEST_F(HostPeriodRoadTest, AFirmsDocumentsAreListedAgainForTheChosenDays) {
  const std::string oidr = "O0000100" + StoredText("SELECT MIN(ID) FROM firms WHERE GroupFlag = 0");
  auto card = OpenCard(oidr);
  ASSERT_TRUE(card);
  Menu* preview = Control<Menu>(*card, "mnuMain").Find("mnuPreview");
  ASSERT_TRUE(preview);
  prompter_.texts = {"2025-10-01 2025-12-31"};
  calls_.clear();
  preview->Click();
  EXPECT_THAT(calls_, Contains(HasSubstr("GetTraffic '" + oidr + "','2025-10-01','2025-12-31'")));
}

}  // namespace
}  // namespace orvel
