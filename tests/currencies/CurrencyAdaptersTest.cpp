// The currency adapters as the host and the other modules use them: menus,
// the windows they build, and the properties and methods of a currency.
#include <gtest/gtest.h>

#include <tuple>

#include "adapters/UI0002200.h"
#include "currencies/CurrencyTestBase.h"
#include "currencies/frmCurrency.h"
#include "currencies/frmCurrencyRate.h"
#include "currencies/frmCurrencyRates.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

class CurrencyAdaptersTest : public CurrencyTestBase {
 protected:
  std::shared_ptr<OrvelObjectUIO> Euro() {
    auto euro = currencies_->GetOrvelObject("O00022005");
    EXPECT_NE(euro, nullptr);
    host_.Log().Clear();
    return euro;
  }
};

// The entries as "key|caption", each untagged and without flags.
const char* kRates = "Valiutų kursų įrašymas|Valiutų kursų įrašymas";
const char* kNew = "&Nauja valiuta|&Nauja valiuta";
const char* kSep = "100|-";

TEST_F(CurrencyAdaptersTest, MenuEntriesAndTheirOrder) {
  using Row = std::tuple<const char*, const char*, std::vector<std::string>>;
  for (const auto& [oidr, otype, expected] : std::vector<Row>{
           {"O0002200", "", {kRates, kNew, kSep}}, {"O00022005", "", {kRates, kNew, kSep}},
           {"O00022005", "C", {"Padėti &ant darbo stalo|Padėti &ant darbo stalo", kNew,
                               "&Panaikinti|&Panaikinti", kSep, kRates, kSep}},
           // The bare OID does not compare greater than itself: no record entries.
           {"O0002200", "C", {kNew, kSep, kRates, kSep}}, {"", "C", {kNew, kSep, kRates, kSep}}}) {
    auto menu = currencies_->GetMenu(oidr, otype, "ignored");
    ASSERT_TRUE(menu);
    std::vector<std::string> entries;
    for (const auto& item : *menu) {
      entries.push_back(item.Key + "|" + item.Caption + (item.Tag || item.Flags ? "|tagged" : ""));
    }
    EXPECT_EQ(entries, expected) << oidr << " " << otype;
  }
}

TEST_F(CurrencyAdaptersTest, MenuEntriesBuildTheirWindowsAndAnUnreadableCurrencyNone) {
  auto result = currencies_->ClickMenu("O00022005", "C", "Valiutų kursų įrašymas", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kShowWindow);
  auto window = result.Value.ObjectAs<frmCurrencyRates>();
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(window->Loaded());
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_NewObject 'O0002200'"});

  for (const auto& [key, oidr] :
       {std::pair{"Padėti &ant darbo stalo", "O00022005"}, {"&Nauja valiuta", ""}}) {
    auto card = currencies_->ClickMenu("O00022005", "C", key, "");
    EXPECT_EQ(card.Action, OrvelMenuResult::kShowWindow);
    ASSERT_NE(card.Value.ObjectAs<frmCurrency>(), nullptr);
    EXPECT_EQ(card.Value.ObjectAs<frmCurrency>()->OrvelObjectUIO()->OIDR(), oidr);
  }
  // An unreadable currency gives no window, and other keys action zero.
  result = currencies_->ClickMenu("O00022099", "C", "Padėti &ant darbo stalo", "");
  EXPECT_EQ(result.Action, OrvelMenuResult::kNothing);
  EXPECT_TRUE(result.Value.IsNothing());
  for (const char* key : {"0", "1", "6", "100", "-", ""}) {
    EXPECT_EQ(currencies_->ClickMenu("O00022005", "C", key, "").Action, OrvelMenuResult::kNothing);
  }
}

TEST_F(CurrencyAdaptersTest, DeleteAsksYesOrNoUnderTheSessionTitle) {
  // A delete that fails leaves the node.
  for (const auto& [answer, action, kept] :
       {std::tuple{vbNo, OrvelMenuResult::kNothing, true},
        {vbYes, OrvelMenuResult::kRemoved, false}, {vbYes, OrvelMenuResult::kNothing, false}}) {
    host_.Ui()->QueueAnswer(answer);
    EXPECT_EQ(currencies_->ClickMenu("O00022005", "C", "&Panaikinti", "").Action, action);
    EXPECT_EQ(BO(kOid).Table().Contains(5), kept);
  }
  EXPECT_EQ(Boxes(), std::vector<std::string>(3, "52 Apskaita 2010 Ar tikrai norite panaikinti?"));
}

TEST_F(CurrencyAdaptersTest, AddToDesktopShowsACardEveryTimeWithoutAsking) {
  EXPECT_TRUE(currencies_->AddToDeskTopOrvelObject("O00022005"));
  EXPECT_TRUE(currencies_->AddToDeskTopOrvelObject("O00022005"));
  EXPECT_TRUE(currencies_->AddToDeskTopOrvelObject("O00022099"));
  auto lines = host_.Log().Lines(Channel::Window);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "ShowWindow O00022005"), 2);
  EXPECT_TRUE(currencies_->DragOK("O00022005", "C", ""));
  EXPECT_FALSE(currencies_->DropOK("O00022005"));
  EXPECT_EQ(currencies_->GetIconsTable()->Item("C"), "C0002200");
  // The list drops type and settings.
  host_.Log().Clear();
  currencies_->GetOrvelObjectList("O0002200", "C", "x,y");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall Orvel_GetObjectList 'O0002200'"});
}

// A date that is no date is replaced, with a box; there is no lower bound,
// and the text form is kept.
TEST_F(CurrencyAdaptersTest, TheCurrencyListsDateIsQuotedOrReplaced) {
  for (const auto& [given, sent, boxed] : {std::tuple{"", "'1990.01.01'", false},
                                           {"rytoj", "'1990.01.01'", true},
                                           {"2010.13.45", "'1990.01.01'", true},
                                           {"1985.06.01", "'1985.06.01'", false},
                                           {"2010-12-30", "'2010-12-30'", false}}) {
    auto euro = Euro();
    host_.Ui()->ClearBoxes();
    if (boxed) host_.Ui()->QueueAnswer(vbOK);
    auto result = euro->Properties("CurrencyList", given);
    EXPECT_EQ(result.Number, 0);
    EXPECT_NE(result.Value.ObjectAs<Recordset>(), nullptr);
    EXPECT_EQ(BusinessLines(),
              std::vector<std::string>{std::string("GetCall GetCurrencyList ") + sent});
    EXPECT_EQ(Join(Boxes(), ""),
              boxed ? std::string("48 Apskaita 2010 Wrong parameter Date to CurrencyList "
                                  "properties...\n") +
                          given + " is changed to 1990.01.01"
                    : "")
        << given;
  }
}

TEST_F(CurrencyAdaptersTest, CurrencyByCodeFlagsAnEmptySetWith777AndABox) {
  auto euro = Euro();
  BO(kOid).ReplyRead("GetCurrencyByCode", TextRecords("Code", ""));
  host_.Ui()->QueueAnswer(vbOK);
  auto result = euro->Properties("CurrencyByCode", "XYZ");
  EXPECT_EQ(std::to_string(result.Number) + " " + result.Text,
            "777 Klaidingas valiutos kodas XYZ !");
  EXPECT_NE(result.Value.ObjectAs<Recordset>(), nullptr) << "the empty set stays in Value";
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Apskaita 2010 Klaidingas valiutos kodas XYZ !"});

  BO(kOid).ReplyRead("GetCurrencyByCode", TextRecords("Code", "EUR"));
  result = euro->Properties("CurrencyByCode", "'EUR'");
  EXPECT_EQ(result.Number, 0);
  EXPECT_EQ(BusinessLines(), (std::vector<std::string>{"GetCall GetCurrencyByCode XYZ",
                                                       "GetCall GetCurrencyByCode 'EUR'"}));
  // Business failures pass their number and text, for the caller to show.
  for (const char* name : {"CurrencyList", "CurrencyByCode", "CurrencyRates"}) {
    BO(kOid).ReplyRead(std::string("Get") + name, OrvelBoResult(42, "Nėra ryšio"));
    auto result = euro->Properties(
        name, name == std::string("CurrencyList") ? "2010-01-01" : "'2010-01-01','2010-01-31'");
    EXPECT_EQ(Outcome(result), "42|Nėra ryšio|Nothing") << name;
  }
  EXPECT_EQ(BusinessLines().back(), "GetCall GetCurrencyRates '2010-01-01','2010-01-31'");
}

const Date kDay = DateSerial(2010, 12, 30);

TEST_F(CurrencyAdaptersTest, ArgumentFaultsAreSilent777) {
  auto euro = Euro();
  const auto fault = [](const char* method, Variant::Array params, const char* text) {
    return std::tuple{method, params, text};
  };
  for (auto [method, params, text] :
       {fault("CurrencyRates", {Variant("EUR")}, "Wrong parameters count for CurrencyRates!"),
        fault("SaveDayRate", {Variant("EUR"), Variant("2004.05.01"), Variant(1)},
              "Second parameter for SaveDayRate not date!"),
        fault("CurrencyRates", {Variant("EUR"), Variant("2010.12.30")},
              "Second parameter for CurrencyRates not date!"),
        fault("SaveDayRate", {}, "Wrong parameters count for SaveDayRate!"),
        fault("SaveDayRate", {Variant("EUR"), Variant(kDay.serial), Variant(1)},
              "Second parameter for SaveDayRate not date!"),
        fault("SaveDayRate", {Variant("EUR"), Variant(kDay), Variant("3.45.6")},
              "Third parameter for SaveDayRate not numeric!")}) {
    EXPECT_EQ(Outcome(euro->Methods(method, params)), std::string("777|") + text + "|False");
  }
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_TRUE(host_.Log().Lines(Channel::Window).empty());
}

// Unrounded, and with a point whatever the locale.
TEST_F(CurrencyAdaptersTest, TheRateTravelsWithAPointInAnyLocale) {
  for (const auto& [locale, rate, param] :
       {std::tuple{Locale::Lithuanian(), Variant(3.4528), "'EUR','2010-12-30',3.4528"},
        {Locale::Invariant(), Variant(3.4528), "'EUR','2010-12-30',3.4528"},
        {Locale::Lithuanian(), Variant("3,45"), "'EUR','2010-12-30',3.45"},
        {Locale::Lithuanian(), Variant(1.0 / 3), "'EUR','2010-12-30',0.333333333333333"},
        {Locale::Lithuanian(), Variant(int32_t{4}), "'EUR','2010-12-30',4"}}) {
    host_.Ui()->SetLocale(locale);
    Variant::Array params{Variant("EUR"), Variant(kDay), rate};
    EXPECT_EQ(Outcome(Euro()->Methods("SaveDayRate", params)), "0||True");
    EXPECT_EQ(BusinessLines(),
              std::vector<std::string>{std::string("ExecCall SaveDayRate ") + param});
  }
  // A failed save keeps Value True and passes the status.
  auto euro = Euro();
  BO(kOid).ReplyAction("SaveDayRate", OrvelStatus{55, "Užrakinta"});
  Variant::Array params{Variant("EUR"), Variant(kDay), Variant(1.5)};
  EXPECT_EQ(Outcome(euro->Methods("SaveDayRate", params)), "55|Užrakinta|True");
  // Unknown methods do nothing.
  host_.Log().Clear();
  auto result = euro->Methods("Recalculate", params);
  EXPECT_EQ(Outcome(result), "0||");
  EXPECT_TRUE(result.Value.IsEmpty());
  EXPECT_TRUE(host_.Log().Lines().empty());
  EXPECT_NE(std::dynamic_pointer_cast<UIO0002200>(euro), nullptr);
}

TEST_F(CurrencyAdaptersTest, SumByWordsUsesTheCurrencyRecordAndShowsFailures) {
  auto euro = Euro();
  Variant::Array params{Variant(21.02)};
  EXPECT_EQ(Outcome(euro->Methods("SumByWords", params)),
            "0||Dvidešimt vienas Europos euras 02 centai");

  Variant::Array none;
  host_.Ui()->QueueAnswer(vbOK);
  auto result = euro->Methods("SumByWords", none);
  EXPECT_EQ(result.Number, 777);
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Apskaita 2010 " + result.Text});
  // CurrencyRates shows the dialog modally and always succeeds.
  host_.Log().Clear();
  BO(kOid).ReplyRead("GetCurrencyList", CurrencyList(DefaultStored()));
  std::string shownRate;
  host_.Ui()->QueueModal([&](Form& form) {
    auto& dialog = dynamic_cast<frmCurrencyRate&>(form);
    shownRate = dialog.txtDayRate.Text();
    EXPECT_EQ(dialog.lblDayRate.Caption(), "1 USD =");
  });
  params = {Variant("USD"), Variant(kDay)};
  EXPECT_EQ(Outcome(euro->Methods("CurrencyRates", params)), "0||True");
  EXPECT_EQ(shownRate, "2,50000000");
  EXPECT_EQ(host_.Log().Lines(Channel::Window),
            std::vector<std::string>{"ShowModal frmCurrencyRate"});
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetCurrencyList '2010-12-30'"});
}

}  // namespace
}  // namespace orvel
