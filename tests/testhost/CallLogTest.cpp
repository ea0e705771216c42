#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "testhost/CallLog.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

// The echo prints the chosen channels (none chosen: all) one line each,
// with or without the channel's name, until given no stream.
TEST(CallLog, Echo_PrintsTheChosenChannelsOneLineEach) {
  CallLog log;
  std::ostringstream out;
  log.SetEcho(&out, {Channel::Message, Channel::Business});
  log.Add(Channel::Business, "ExecCall", {"Orvel_DeleteObject", "'O00003005'"});
  log.Add(Channel::Rights, "CanRead", {"CBanks", "0"});
  log.Add(Channel::Message, "MsgBox", {"48", "Orvel Apskaita", "Pirma eilutė\r\nantra"});
  log.SetEcho(&out);
  log.Add(Channel::Settings, "SaveUserSetting", {"O0000300", "Preview", "Code"});
  log.SetEcho(&out, {Channel::Window}, /*withChannel=*/false);
  log.Add(Channel::Window, "ShowWindow", {"O00003005"});
  log.SetEcho(nullptr);
  log.Add(Channel::Window, "ShowWindow", {"O00003006"});
  EXPECT_EQ(out.str(),
            "Business: ExecCall Orvel_DeleteObject 'O00003005'\n"
            "Message: MsgBox 48 Orvel Apskaita Pirma eilutė\\r\\nantra\n"
            "Settings: SaveUserSetting O0000300 Preview Code\n"
            "ShowWindow O00003005\n");
  // The journal itself keeps the text as it was.
  EXPECT_EQ(log.Entries()[2].args[2], "Pirma eilutė\r\nantra");
  EXPECT_EQ(log.Size(), 6u);
}

struct LogTextCase {
  Variant value;
  std::string text;
};

class LogTextTest : public ::testing::TestWithParam<LogTextCase> {};

TEST_P(LogTextTest, WritesValueWithoutLocale) {
  EXPECT_EQ(LogText(GetParam().value), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, LogTextTest,
    ::testing::Values(LogTextCase{Variant(), ""}, LogTextCase{Variant::Null(), "Null"},
                      LogTextCase{Variant(true), "True"}, LogTextCase{Variant(-7), "-7"},
                      LogTextCase{Variant(2.5), "2.5"}, LogTextCase{Variant("žodis"), "žodis"},
                      LogTextCase{Variant(Date{46349}), "2026-11-23"},
                      LogTextCase{Variant(std::shared_ptr<Object>()), "Nothing"},
                      LogTextCase{Variant(Variant::Array{Variant(1), Variant(2)}), "Array(2)"}));

}  // namespace
}  // namespace orvel
