#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "testhost/CallLog.h"
#include "testhost/ScriptedUi.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

struct DefaultCase {
  int32_t flags;
  int32_t answer;
};

class ScriptedUiDefaultTest : public ::testing::TestWithParam<DefaultCase> {};

TEST_P(ScriptedUiDefaultTest, EmptyQueue_AnswersFirstButton) {
  ScriptedUi ui(std::make_shared<CallLog>());
  EXPECT_EQ(ui.MsgBox("Tekstas", GetParam().flags, "Orvel Apskaita"), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(Flags, ScriptedUiDefaultTest,
                         ::testing::Values(DefaultCase{vbOKOnly, vbOK},
                                           DefaultCase{vbOKOnly + vbCritical, vbOK},
                                           DefaultCase{vbOKCancel + vbExclamation, vbOK},  // 49
                                           DefaultCase{vbYesNo + vbQuestion, vbYes},
                                           DefaultCase{vbYesNoCancel + vbExclamation, vbYes},
                                           DefaultCase{vbYesNo + vbInformation, vbYes}));

TEST(ScriptedUi, MsgBox_AnswersQueueInOrder_ThenDefaults_AndKeepsEachBox) {
  auto log = std::make_shared<CallLog>();
  ScriptedUi ui(log);
  ui.QueueAnswer(vbNo);
  ui.QueueAnswer(vbCancel);

  EXPECT_EQ(ui.MsgBox("Ar tikrai norite panaikinti?", 49, "Orvel Apskaita"), vbNo);
  EXPECT_EQ(ui.MsgBox("Išsaugoti?", vbYesNoCancel, "Orvel Apskaita"), vbCancel);
  EXPECT_EQ(ui.MsgBox("Išsaugoti?", vbYesNoCancel, "Orvel Apskaita"), vbYes);

  EXPECT_EQ(ui.PendingAnswers(), 0u);
  ASSERT_EQ(ui.Boxes().size(), 3u);
  EXPECT_EQ(ui.Boxes()[0].prompt, "Ar tikrai norite panaikinti?");
  EXPECT_EQ(ui.Boxes()[0].flags, 49);
  EXPECT_EQ(ui.Boxes()[0].title, "Orvel Apskaita");
  EXPECT_EQ(ui.Boxes()[0].answer, vbNo);
  EXPECT_EQ(log->Lines(Channel::Message)[0],
            "MsgBox 49 Orvel Apskaita Ar tikrai norite panaikinti?");
}

TEST(ScriptedUi, Defaults_AndSettings) {
  ScriptedUi ui(std::make_shared<CallLog>());

  EXPECT_EQ(ui.Today(), Date{46349});
  EXPECT_EQ(ui.ScreenWidth(), 15360);
  EXPECT_EQ(ui.CurrentLocale().decimalSeparator, ",");
  EXPECT_EQ(ui.GetMousePointer(), vbDefault);

  ui.SetLocale(Locale::Invariant());
  ui.SetToday(Date{45000});
  ui.SetScreenWidth(19200);
  ui.SetMousePointer(vbHourglass);
  ui.SetMousePointer(vbDefault);
  ui.DoEvents();
  ui.DoEvents();

  EXPECT_EQ(ui.CurrentLocale().decimalSeparator, ".");
  EXPECT_EQ(ui.Today(), Date{45000});
  EXPECT_EQ(ui.ScreenWidth(), 19200);
  EXPECT_THAT(ui.MousePointers(), ElementsAre(vbHourglass, vbDefault));
  EXPECT_EQ(ui.DoEventsCount(), 2);
}

}  // namespace
}  // namespace orvel
