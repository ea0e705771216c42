// The day-rate window against the bank's service on a loopback port: the
// fill, the rate arithmetic of the write, the context menu, the layout, and
// every way the service can fail.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <tuple>

#include "currencies/CurrencyTestBase.h"
#include "currencies/RateServiceSettings.h"
#include "currencies/SoapClient.h"
#include "currencies/frmCurrencyRates.h"
#include "hostkit/LoopbackRateService.h"
#include "support/Controls.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using Behaviour = LoopbackRateService::Behaviour;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
const Date kDay = DateSerial(2010, 12, 30);

class FrmCurrencyRatesTest : public CurrencyTestBase {
 protected:
  void SetUp() override {
    CurrencyTestBase::SetUp();
    RateServiceSettings::SetAddress(service_.Address());
    RateServiceSettings::SetTimeout(std::chrono::milliseconds(700));
    stored_ = DefaultStored();
    // A small business layer: the list of stored currencies, and day rates
    // that land in it (or fail for one code).
    BO(kOid).OnRead("GetCurrencyList", [this](const std::string&) {
      return OrvelBoResult(0, "", CurrencyList(stored_));
    });
    BO(kOid).OnAction("SaveDayRate", [this](const std::string& param, Variant::Array&) {
      std::string code = param.substr(1, param.find('\'', 1) - 1);
      if (code == failOn_) return OrvelStatus{60, "Kursas užrakintas"};
      for (auto& s : stored_) {
        if (s.code == code) s.rate = Variant(Val(param.substr(param.rfind(',') + 1)));
      }
      return OrvelStatus{};
    });
    auto result = currencies_->ClickMenu("O0002200", "", "Valiutų kursų įrašymas", "");
    window_ = result.Value.ObjectAs<frmCurrencyRates>();
    ASSERT_NE(window_, nullptr);
    host_.WindowManager()->ShowWindow(window_);
    host_.Log().Clear();
    host_.Ui()->ClearBoxes();
  }

  void TearDown() override {
    RateServiceSettings::SetAddress(std::nullopt);
    RateServiceSettings::SetTimeout(std::nullopt);
    SoapClient::SetFactory(nullptr);
    window_.reset();
    CurrencyTestBase::TearDown();
  }

  void Fill(Date day = kDay) {
    window_->dtpDate.SetValue(Variant(day));
    window_->cmdGo.Click();
  }

  ListItem* RowOf(const std::string& code) {
    for (const auto& row : window_->lvwRows.ListItems()) {
      if (row->ListSubItems().Item("Code").Text() == code) return row.get();
    }
    return nullptr;
  }

  // "text|Quantity|Code|BankRate|Rate|Name|Tag"
  std::string Line(const std::string& code) {
    ListItem* row = RowOf(code);
    if (!row) return "none";
    std::string line = row->Text();
    for (const char* key : {"Quantity", "Code", "BankRate", "Rate", "Name"}) {
      line += "|" + row->ListSubItems().Item(key).Text();
    }
    return line + "|" + ConcatText(row->Tag());
  }

  std::vector<std::string> Saves() {
    std::vector<std::string> saves;
    for (const auto& line : BusinessLines()) {
      if (line.rfind("ExecCall SaveDayRate ", 0) == 0) saves.push_back(line.substr(21));
    }
    return saves;
  }

  int Rows() { return window_->lvwRows.ListItems().Count(); }

  LoopbackRateService service_;
  std::vector<Stored> stored_;
  std::string failOn_;
  std::shared_ptr<frmCurrencyRates> window_;
};

TEST_F(FrmCurrencyRatesTest, TheFillListsTheBankInItsOrderThenStoredCurrenciesItDoesNotQuote) {
  EXPECT_EQ(window_->dtpDate.Value(), Variant(host_.Ui()->Today()));
  EXPECT_EQ(window_->SOPanel.Caption() + OnOff({&window_->cmdWrite}) +
                std::to_string(service_.WsdlReads()),
            " LVB valiutų kursų įrašymas iš INTERNET00");
  Fill();
  // 39 quoted by the bank, then XAU; the base currency LTL never shows.
  ASSERT_EQ(Rows(), 40);
  EXPECT_EQ(window_->lvwRows.ListItems().Item(1).ListSubItems().Item("Code").Text(), "AED");
  EXPECT_EQ(Line("EUR"), "Euro|1|EUR|3,4528|3,45280000|Europos euras|O00022005");
  // A bank code with no stored currency: no rate, no name, no tag.
  EXPECT_EQ(Line("CZK"), "Czech koruna|100|CZK|13,7635| | |");
  // Quoted by the bank but missing from its currency list: one blank as name.
  EXPECT_EQ(Line("XDR"), " |1|XDR|4,0103| | |");
  EXPECT_EQ(Line("XAU"), " |1|XAU| |4000,00000000|Aukso uncija|O00022009");
  EXPECT_EQ(Line("LTL"), "none");
  EXPECT_EQ(window_->lvwRows.ListItems().Item(40).ListSubItems().Item("Code").Text(), "XAU");

  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetCurrencyList '2010-12-30'"});
  EXPECT_THAT(service_.LastBody("getExchangeRatesByDate"), HasSubstr("<Date>2010-12-30</Date>"));
  EXPECT_EQ(std::to_string(service_.WsdlReads()) + OnOff({&window_->cmdWrite}), "11");
  // After the load's default: the hourglass during the fill, then the default.
  EXPECT_EQ(host_.Ui()->MousePointers(), (std::vector<int32_t>{vbDefault, vbHourglass, vbDefault}));
  EXPECT_EQ(window_->lblStatus.Caption(), "");

  // A second fill starts from an empty list.
  Fill();
  EXPECT_EQ(Rows(), 40);
}

TEST_F(FrmCurrencyRatesTest, NumbersFollowTheLocaleAndQuantitiesTheirShortestText) {
  host_.Ui()->SetLocale(Locale::Invariant());
  service_.SetRates({{"2010.12.30", "EUR", "1.50", "3.45281"}, {"2010.12.30", "USD", "x", "2"}});
  Fill();
  EXPECT_EQ(Line("EUR"), "Euro|1.5|EUR|3.4528|3.45280000|Europos euras|O00022005");
  EXPECT_EQ(Line("USD"), "US dollar|0|USD|2.0000|2.50000000|JAV doleris|O00022006");
}

TEST_F(FrmCurrencyRatesTest, AFutureDateClearsTheListAndAsksNothing) {
  Fill();
  ASSERT_GT(Rows(), 0);
  host_.Log().Clear();
  Fill(Date{host_.Ui()->Today().serial + 1});
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(service_.WsdlReads(), 1) << "only the first fill asked";
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_EQ(OnOff({&window_->cmdWrite, &window_->cmdGo}), "01");

  Fill(host_.Ui()->Today());
  EXPECT_EQ(service_.WsdlReads(), 2) << "today is asked as usual";
}

const Date kEuroDay = DateSerial(2025, 3, 14);

// The current service's own error reply is shown the same way. The service then recovers and
// the user presses cmdGo again.
TEST_F(FrmCurrencyRatesTest, AServiceFailureIsToldAndTheWindowStaysUsable) {
  for (const auto& [what, behaviour, detail, day, rows] :
       {std::tuple{"wsdl", Behaviour::kHttp500, "HTTP 500", kDay, 40},
        {"getExchangeRatesByDate", Behaviour::kSilent, "getExchangeRatesByDate", kDay, 40},
        {"getListOfCurrencies", Behaviour::kSoapFault, "SOAP Fault", kDay, 40},
        {"getFxRates", Behaviour::kOperationError, "\nNeteisingi parametrai: nėra duomenų",
         kEuroDay, 20}}) {
    SCOPED_TRACE(what);
    service_.SetBehaviour(what, behaviour);
    host_.Ui()->ClearBoxes();
    host_.Log().Clear();
    host_.Ui()->QueueAnswer(vbOK);
    Fill(day);
    EXPECT_THAT(Boxes(), ElementsAre(AllOf(StartsWith(std::string("0 ") + kTitle +
                                                      " Lietuvos Banko INTERNET svetainė "
                                                      "nepasiekiama!\n"),
                                           HasSubstr(detail))));
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(window_->BankRates(), nullptr);
    EXPECT_EQ(OnOff({&window_->cmdWrite, &window_->cmdGo, &window_->SSCClose}), "011");
    EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
    EXPECT_TRUE(BusinessLines().empty());
    service_.SetBehaviour(what, Behaviour::kAnswer);
    Fill(day);
    EXPECT_EQ(Rows(), rows);
  }
}

TEST_F(FrmCurrencyRatesTest, AMissingClientIsToldAsMissingSoftware) {
  SoapClient::SetFactory([]() -> std::unique_ptr<SoapClient> { return nullptr; });
  host_.Ui()->QueueAnswer(vbOK);
  Fill();
  EXPECT_THAT(Boxes(), ElementsAre(StartsWith("0 Apskaita 2010 Neinstaliuota programinė įranga "
                                              "'SOAP ToolKit 3.0' !\n")));
  EXPECT_EQ(service_.WsdlReads(), 0);
  EXPECT_FALSE(window_->cmdWrite.Enabled());
}

// Either service.
TEST_F(FrmCurrencyRatesTest, AReplyWithoutRowsEnablesAWriteThatDoesNothing) {
  for (const auto& [operation, day] :
       {std::pair{"getExchangeRatesByDate", kDay}, {"getFxRates", kEuroDay}}) {
    service_.SetBehaviour(operation, Behaviour::kNoRows);
    Fill(day);
    ASSERT_NE(window_->BankRates(), nullptr);
    EXPECT_EQ(window_->BankRates()->Count() + Rows(), 0);
    EXPECT_TRUE(window_->cmdWrite.Enabled());
    host_.Log().Clear();
    window_->cmdWrite.Click();
    EXPECT_TRUE(BusinessLines().empty());
  }
}

// In the order of the stored list; DKK has a fixed rate, LTL and XAU are not
// quoted. Rates are divided by the quantity, unrounded; a quantity of zero or
// no number writes nothing for that code; a write that fails half way keeps
// what was written. The list is read again after, with its rows.
TEST_F(FrmCurrencyRatesTest, WritingAllStoresTheRatePerUnitOfEveryFloatingCurrency) {
  const auto write = [&](const std::vector<std::string>& saves, const char* box = nullptr) {
    Fill();
    host_.Log().Clear();
    if (box) host_.Ui()->QueueAnswer(vbOK);
    window_->cmdWrite.Click();
    EXPECT_EQ(Saves(), saves);
    EXPECT_EQ(Boxes(), box ? std::vector<std::string>{box} : std::vector<std::string>{});
    EXPECT_EQ(BusinessLines().back(), "GetCall GetCurrencyList '2010-12-30'");
    host_.Ui()->ClearBoxes();
  };
  stored_.push_back({"CZK", "O000220010", "Čekijos", "krona", Variant::Null(), 0, 0});
  stored_.push_back({"JPY", "O000220011", "Japonijos", "jena", Variant(0.03), 0, 0});
  write({"'EUR','2010-12-30',3.4528", "'USD','2010-12-30',2.606", "'CZK','2010-12-30',0.137635",
         "'JPY','2010-12-30',0.032088"});
  EXPECT_EQ(Line("CZK"), "Czech koruna|100|CZK|13,7635|0,13763500|Čekijos krona|O000220010");
  EXPECT_EQ(Line("DKK").substr(0, 29), "Danish krone|1|DKK|0,4631|0,4");
  stored_ = DefaultStored();
  failOn_ = "USD";
  write({"'EUR','2010-12-30',3.4528", "'USD','2010-12-30',2.606"},
        "48 Apskaita 2010 Kursas užrakintas\nĮrašymas neatliktas!");
  EXPECT_EQ(Rows(), 40);
  EXPECT_EQ(Line("USD"), "US dollar|1|USD|2,6060|2,50000000|JAV doleris|O00022006");
  service_.SetRates({{"2010.12.30", "EUR", "0", "3.4528"},
                     {"2010.12.30", "USD", "vienas", "2.606"},
                     {"2010.12.30", "XAU", "100", "275"}});
  write({"'XAU','2010-12-30',2.75"});
}

TEST_F(FrmCurrencyRatesTest, TheContextMenuOffersRowActionsOnlyOnAStoredRow) {
  Fill();
  host_.Log().Clear();
  // A right click on the row of that code ("" none selected), picking that entry.
  const auto rightClick = [&](const char* code, const char* pick) {
    if (*code) window_->lvwRows.ItemClick(*RowOf(code));
    host_.Ui()->QueuePopupPick(pick);
    window_->lvwRows.MouseUp(vbRightButton);
  };
  // No row selected: "write all" shows but does nothing.
  rightClick("", "mnuWriteAll");
  ASSERT_EQ(host_.Ui()->Popups().size(), 1u);
  EXPECT_EQ(host_.Ui()->Popups()[0].shown, std::vector<std::string>{"mnuWriteAll"});
  EXPECT_EQ(window_->MenuKey(), "103");
  EXPECT_TRUE(Saves().empty());

  // A bank row without a stored currency: the same.
  rightClick("CZK", "");
  EXPECT_EQ(host_.Ui()->Popups()[1].shown, std::vector<std::string>{"mnuWriteAll"});
  EXPECT_EQ(window_->MenuKey(), "") << "no pick, no action";

  // A stored row: all three; "write selected" writes that currency alone.
  rightClick("USD", "mnuWriteSelected");
  EXPECT_EQ(host_.Ui()->Popups()[2].shown,
            (std::vector<std::string>{"mnuOnDeskTop", "mnuWriteSelected", "mnuWriteAll"}));
  EXPECT_EQ(Saves(), std::vector<std::string>{"'USD','2010-12-30',2.606"});
  // A fixed rate is never overwritten, even when picked; the list reloads all the same.
  host_.Log().Clear();
  rightClick("DKK", "mnuWriteSelected");
  EXPECT_EQ(window_->MenuKey(), "102");
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetCurrencyList '2010-12-30'"});

  rightClick("XAU", "mnuOnDeskTop");
  EXPECT_EQ(host_.Log().Lines(Channel::Host).back(), "AddToDesktop O00022009");

  // The left button pops nothing up.
  window_->lvwRows.MouseUp(vbLeftButton);
  EXPECT_EQ(host_.Ui()->Popups().size(), 5u);
}

// The other columns take 3800 twips, the margins 530. Close disables itself,
// then asks the window manager.
TEST_F(FrmCurrencyRatesTest, TheNameColumnsShareTheRestAndCloseAsksTheWindowManager) {
  for (const auto& [panel, nameWidth] : {std::pair{10001, 2836}, {8330, 2000}, {2000, 2000}}) {
    window_->SOPanel_Resize(panel);
    auto& col = window_->lvwRows.ColumnHeaders();
    EXPECT_EQ((std::vector{col.Item(1).Width(), col.Item(6).Width(), col.Item(2).Width()}),
              (std::vector{nameWidth, nameWidth, 800})) << panel;
  }
  window_->SSCClose.Click();
  EXPECT_FALSE(window_->SSCClose.Enabled());
  EXPECT_EQ(host_.Log().Lines(Channel::Window), std::vector<std::string>{"CloseWindow O0002200"});
  EXPECT_FALSE(window_->Loaded());
}

// The current service, FxRates: the source a day and a user get, the inverted
// pair of its rows, its own error reply and an empty day.
class FxRatesTest : public FrmCurrencyRatesTest {
 protected:
  void SetUp() override {
    FrmCurrencyRatesTest::SetUp();
    // The euro era: the euro is the base currency, the lats is gone.
    stored_ = {{"EUR", "O00022005", "Europos", "euras", Variant(1.0), 0, 1},
               {"USD", "O00022006", "JAV", "doleris", Variant(0.9), 0, 0},
               {"GBP", "O00022007", "Didžiosios Britanijos", "svaras", Variant::Null(), 0, 0},
               {"DKK", "O00022008", "Danijos", "krona", Variant(0.134), 0.134, 0},
               {"LTL", "O00022009", "Lietuvos", "litas", Variant(0.28962), 0.28962, 0}};
  }
  void Choose(const std::string& source, const std::string& type = "") {
    if (!source.empty()) host_.Environment()->PresetSetting("O0002200", "RateSource", source);
    if (!type.empty()) host_.Environment()->PresetSetting("O0002200", "FxRatesType", type);
  }
};

TEST_F(FxRatesTest, AEuroEraDayAsksTheCurrentServiceForTheAccountingRates) {
  Fill(kEuroDay);
  EXPECT_EQ(service_.Calls("getExchangeRatesByDate"), 0);
  EXPECT_THAT(service_.LastBody("getFxRates"),
              AllOf(HasSubstr("<tp>LT</tp>"), HasSubstr("<dt>2025-03-14</dt>")));
  EXPECT_EQ(service_.LastSoapAction("getFxRates"),
            "\"http://www.lb.lt/WebServices/FxRates/getFxRates\"");
  EXPECT_EQ(service_.Calls("getCurrencyList"), 1);
  // 18 quoted, in the service's order; the base currency never shows, and
  // the litas is no longer quoted but stays listed as a stored currency.
  ASSERT_EQ(Rows(), 19);
  EXPECT_EQ(window_->lvwRows.ListItems().Item(1).ListSubItems().Item("Code").Text(), "USD");
  // One euro buys 1.08411 dollars: quantity 1.08411 at the rate of one euro.
  EXPECT_EQ(Line("USD"), "JAV doleris|1,08411|USD|1,0000|0,90000000|JAV doleris|O00022006");
  EXPECT_EQ(Line("GBP"),
            "Didžiosios Britanijos svaras sterlingų|0,835121|GBP|1,0000| |"
            "Didžiosios Britanijos svaras|O00022007");
  EXPECT_EQ(Line("LTL"), " |1|LTL| |0,28962000|Lietuvos litas|O00022009");

  // The write stores the price of one unit in euro: 1 / 1.08411 and
  // 1 / 0.835121, unrounded; DKK is fixed, LTL not quoted.
  host_.Log().Clear();
  window_->cmdWrite.Click();
  EXPECT_EQ(Saves(), (std::vector<std::string>{"'USD','2025-03-14',0.922415622030975",
                                               "'GBP','2025-03-14',1.19743127043865"}));
}

// The user's source and rate type settings (each kept until set again; "" sets
// none) and the day; the operation asked for the rates and the rate type sent
// ("" for the old service).
TEST_F(FxRatesTest, TheUsersSettingAndTheDayPickTheService) {
  const auto both = [&] {
    return service_.Calls("getFxRates") + service_.Calls("getExchangeRatesByDate");
  };
  using Row = std::tuple<const char*, const char*, Date, const char*, const char*>;
  for (const auto& [source, type, day, asked, tp] : std::vector<Row>{
           {"", "", DateSerial(2014, 12, 31), "getExchangeRatesByDate", ""},
           {"", "", DateSerial(2015, 1, 1), "getFxRates", "LT"},
           {"", "EU", kEuroDay, "getFxRates", "EU"},
           {"", "eu", kEuroDay, "getFxRates", "LT"},
           {"ExchangeRates", "", kEuroDay, "getExchangeRatesByDate", ""},
           {"FxRates", "EU", kDay, "getFxRates", "EU"},
           {"Kita", "", DateSerial(2010, 12, 30), "getExchangeRatesByDate", ""}}) {
    SCOPED_TRACE(std::string(source) + " " + type + " " + asked);
    const int before = service_.Calls(asked), all = both();
    Choose(source, type);
    Fill(day);
    EXPECT_EQ(std::to_string(service_.Calls(asked) - before) + std::to_string(both() - all), "11");
    if (*tp) {
      EXPECT_THAT(service_.LastBody("getFxRates"), HasSubstr(std::string("<tp>") + tp + "</tp>"));
    }
    // The publication rates differ from the accounting ones.
    if (std::string(tp) == "EU" && day.serial == kEuroDay.serial) {
      EXPECT_EQ(Line("USD").substr(0, 21), "JAV doleris|1,08251|U");
    }
  }
}

TEST_F(FxRatesTest, ARowThatIsNotAPairAndARepeatedCodeAreLeftOut) {
  service_.SetFxRates({{"LT", "2025-03-14", "USD", "1.0841"},
                       {"LT", "2025-03-14", "USD", "9.9999"},
                       {"LT", "2025-03-14", "", "2"}});
  Fill(kEuroDay);
  EXPECT_EQ(window_->BankRates()->Count(), 1);
  EXPECT_EQ(Line("USD").substr(0, 26), "JAV doleris|1,0841|USD|1,0");
}

}  // namespace
}  // namespace orvel
