// The currency card and the rate dialog: hand-bound fields, editing state,
// the rate history, the write, and the dialog's one-day rate.
#include <gtest/gtest.h>

#include "currencies/CurrencyTestBase.h"
#include "currencies/frmCurrency.h"
#include "currencies/frmCurrencyRate.h"
#include "support/Controls.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

const Date kDay = DateSerial(2010, 12, 30);

class FrmCurrencyTest : public CurrencyTestBase {
 protected:
  void SetUp() override {
    CurrencyTestBase::SetUp();
    auto history = TextRecords("Code DateD Rate", {"USD|@2026-11-02|2.5", "EUR|@2026-11-02|3.4528",
                                                   "EUR|@2026-11-03|0.3333333333333333"});
    BO(kOid).ReplyRead("GetCurrencyRates", history);
    BO(kOid).ReplyRead("GetCurrencyList", CurrencyList(DefaultStored()));
  }

  std::shared_ptr<frmCurrency> Open(const std::string& oidr) {
    const char* key = oidr.empty() ? "&Nauja valiuta" : "Padėti &ant darbo stalo";
    auto window = currencies_->ClickMenu(oidr.empty() ? "O00022005" : oidr, "C", key, "")
                      .Value.ObjectAs<frmCurrency>();
    EXPECT_NE(window, nullptr);
    if (window) host_.WindowManager()->ShowWindow(window);
    host_.Log().Clear();
    host_.Ui()->ClearBoxes();
    return window;
  }

  // Write, Go, New and the day rate, 1 when enabled.
  static std::string ButtonsOf(frmCurrency& w) {
    return OnOff({&w.cmdWrite, &w.cmdGo, &w.SSCNew, &w.cmdDayRate});
  }
  // The code, name and period frames and the rate list, 1 when visible.
  static std::string Shown(frmCurrency& w) {
    std::string shown;
    const Control* shownControls[] = {&w.frameCode, &w.frameName, &w.framePeriod, &w.lvwRates};
    for (const Control* c : shownControls) shown += c->Visible() ? "1" : "0";
    return shown;
  }
};

TEST_F(FrmCurrencyTest, AStoredCardShowsItsFieldsAndTheLastThirtyDaysOfItsRates) {
  auto w = Open("O00022005");
  ASSERT_TRUE(w);
  w->Show();
  EXPECT_EQ(Join({w->SOPanel.Caption(), w->txtCode.Text(), w->txtState.Text(),
                  w->txtTenCurr.Text(), w->txtTwoSmall.Text(), w->txtFixedRate.Text(),
                  w->lblTwoCurr.Caption(), w->SelectedTab()},
                 "|"),
            " Valiuta: EUR|EUR|Europos|eurų|centai|0,0000|Du|Data");
  EXPECT_EQ(w->chkFixedRate.Value(), vbUnchecked);
  EXPECT_EQ(w->cmbGenderCurr.ListIndex(), 0);
  EXPECT_FALSE(w->Changed());
  EXPECT_EQ(OnOff({&w->txtFixedRate}) + Shown(*w) + " " + ButtonsOf(*w), "01100 0011");

  EXPECT_EQ(w->dtpDateFrom.Value(), Variant(DateSerial(2026, 10, 24)));
  EXPECT_EQ(w->dtpDateTo.Value(), Variant(DateSerial(2026, 11, 23)));
  ASSERT_EQ(w->lvwRates.ListItems().Count(), 2);
  EXPECT_EQ(w->lvwRates.ListItems().Item(1).Text() + " " +
                w->lvwRates.ListItems().Item(2).ListSubItems().Item(1).Text(),
            "2026-11-02 0,33333333");
}

TEST_F(FrmCurrencyTest, TheHistoryAsksForThePeriodInQuotes) {
  auto w = Open("O00022005");
  w->TabStrip_Click("Rates");
  EXPECT_EQ(ButtonsOf(*w) + " " + Shown(*w), "0111 0011");
  w->dtpDateFrom.SetValue(Variant(DateSerial(2026, 11, 3)));
  w->cmdGo.Click();
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"GetCall GetCurrencyRates '2026-11-03','2026-11-23'"});
  EXPECT_EQ(w->lvwRates.ListItems().Count(), 2) << "the period is the business layer's to apply";
  // The period's dates pull each other.
  w->dtpDateFrom.SetValue(Variant(DateSerial(2026, 12, 5)));
  EXPECT_EQ(w->dtpDateTo.Value(), Variant(DateSerial(2026, 12, 5)));
  w->dtpDateTo.SetValue(Variant(DateSerial(2026, 1, 2)));
  EXPECT_EQ(w->dtpDateFrom.Value(), Variant(DateSerial(2026, 1, 2)));
  w->dtpDateTo.SetValue(Variant(DateSerial(2026, 1, 9)));
  EXPECT_EQ(w->dtpDateFrom.Value(), Variant(DateSerial(2026, 1, 2)));
}

TEST_F(FrmCurrencyTest, AFixedRateShowsFourDecimalsAndClearingItFloatsTheCurrency) {
  auto w = Open("O00022008");
  EXPECT_EQ(w->chkFixedRate.Value(), vbChecked);
  EXPECT_EQ(w->txtFixedRate.Text() + OnOff({&w->txtFixedRate}), "0,46311");
  EXPECT_FALSE(w->Changed());

  w->chkFixedRate.Click();
  EXPECT_EQ(w->txtFixedRate.Text() + OnOff({&w->txtFixedRate}), "0,00000");
  EXPECT_TRUE(w->Changed());
  w->cmdWrite.Click();
  EXPECT_EQ(BO(kOid).Table().Value(8, "FixedRate"), Variant(0.0));

  w->chkFixedRate.Click();
  EXPECT_TRUE(w->txtFixedRate.Enabled());
  EXPECT_EQ(w->txtFixedRate.Text(), "0,0000") << "checking leaves the text as it is";
}

TEST_F(FrmCurrencyTest, EveryTextEditMarksTheCard) {
  for (const char* name : {"txtCode", "txtState", "txtOneCurr", "txtTwoCurr", "txtTenCurr",
                           "txtOneSmall", "txtTwoSmall", "txtTenSmall", "txtFixedRate"}) {
    SCOPED_TRACE(name);
    auto w = Open("O00022005");
    auto* box = dynamic_cast<TextBox*>(w->FindControl(name));
    ASSERT_NE(box, nullptr);
    w->chkFixedRate.SetEnabled(true);
    box->SetEnabled(true);
    ASSERT_TRUE(box->Edit("1"));
    EXPECT_TRUE(w->Changed());
    EXPECT_EQ(ButtonsOf(*w), "1001");
    w->TabStrip_Click("Rates");
    EXPECT_EQ(ButtonsOf(*w), "0101") << "cmdWrite only on Data";
    w->Unload();
  }
}

TEST_F(FrmCurrencyTest, AGenderPickAloneLeavesTheCardUnchanged) {
  auto w = Open("O00022005");
  w->cmbGenderCurr.Pick(1);
  w->cmbGenderSmall.Pick(1);
  EXPECT_EQ(w->lblTwoCurr.Caption() + w->lblTwoSmall.Caption(), "DviDvi");
  EXPECT_FALSE(w->Changed() || w->cmdWrite.Enabled());
  // The next real edit writes the gender too.
  w->txtState.Edit("Airijos");
  w->cmdWrite.Click();
  EXPECT_EQ(ConcatText(BO(kOid).Table().Value(5, "GenderCurr")) + " " +
                ConcatText(BO(kOid).Table().Value(5, "State")),
            "1 Airijos");
}

TEST_F(FrmCurrencyTest, ANewCardOffersTheDayRateOnceTheCodeHasThreeCharacters) {
  auto w = Open("");
  EXPECT_TRUE(w->IsNew());
  EXPECT_EQ(w->SOPanel.Caption(), " &Nauja valiuta");
  EXPECT_EQ(ButtonsOf(*w), "0000");
  for (const auto& [code, buttons] :
       {std::pair{"GB", "1000"}, {"GBP", "1001"}, {"GB", "1000"}, {"GBP", "1001"}}) {
    w->txtCode.Edit(code);
    EXPECT_EQ(ButtonsOf(*w), buttons) << code;
  }

  host_.Ui()->QueueModal([](Form& form) {
    auto& dialog = dynamic_cast<frmCurrencyRate&>(form);
    EXPECT_EQ(dialog.lblDayRate.Caption(), "1 GBP =");
    EXPECT_EQ(dialog.pickerDate.Value(), Variant(DateSerial(2026, 11, 23)));
  });
  w->cmdDayRate.Click();
  EXPECT_EQ(host_.Log().Lines(Channel::Window),
            std::vector<std::string>{"ShowModal frmCurrencyRate"});
}

TEST_F(FrmCurrencyTest, AWriteChecksTheCardStoresTheFieldsAndTellsTheHostButKeepsTheNewHeading) {
  auto w = Open("");
  w->txtOneCurr.Edit("svaras");
  for (int box = 0; box < 2; ++box) host_.Ui()->QueueAnswer(vbOK);
  w->cmdWrite.Click();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"48 Apskaita 2010 Nenurodydas valiutos kodas !\n",
                                               "0 Apskaita 2010 Būtina nurodyti valiutos "
                                               "pavadinimus !"}));
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_TRUE(w->Changed());
  // Completed, the write stores the fields.
  w = Open("");
  w->txtCode.Edit("GBP");
  w->txtState.Edit("Didžiosios Britanijos");
  w->txtOneCurr.Edit("svaras");
  w->txtTwoCurr.Edit("svarai");
  w->txtTenCurr.Edit("svarų");
  w->chkFixedRate.SetValue(vbChecked);
  w->txtFixedRate.Edit("4,1");
  w->cmbGenderSmall.Pick(1);
  w->cmdWrite.Click();
  std::string stored;
  for (const char* field : {"Code", "FixedRate", "GenderSmall", "TenCurr"}) {
    stored += ConcatText(BO(kOid).Table().Value(BO(kOid).Table().Ids().back(), field)) + "|";
  }
  EXPECT_EQ(stored, "GBP|4,1|1|svarų|");
  EXPECT_EQ(host_.WindowManager()->Saved().back(), w->OrvelObjectUIO()->OIDR());
  EXPECT_FALSE(w->Changed() || w->SSCNew.Enabled());
  EXPECT_EQ(w->SOPanel.Caption(), " &Nauja valiuta");
}

TEST_F(FrmCurrencyTest, AFailedWriteSaysSoAndKeepsTheEdits) {
  auto w = Open("O00022005");
  w->txtState.Edit("Euro zonos");
  BO(kOid).FailCallsNamed("Orvel_SaveObject", 99, "Dublikatas");
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdWrite.Click();
  EXPECT_EQ(Boxes(),
            std::vector<std::string>{"16 Apskaita 2010 Dublikatas\n\nĮrašymas neatliktas!"});
  EXPECT_TRUE(w->Changed() && w->cmdWrite.Enabled());
  EXPECT_TRUE(host_.WindowManager()->Saved().empty());
  // The fixed rate box filters keys and formats on leaving.
  w = Open("O00022008");
  EXPECT_EQ(w->txtFixedRate.KeyPress('.'), 0) << "the text has a comma already";
  w->txtFixedRate.Edit("12");
  EXPECT_EQ(w->txtFixedRate.KeyPress('.'), ',');
  EXPECT_EQ(w->txtFixedRate.KeyPress('a'), 0);
  w->txtFixedRate.Edit("12,5");
  w->txtFixedRate.LostFocus();
  EXPECT_EQ(w->txtFixedRate.Text(), "12,5000");
  w->txtFixedRate.GotFocus();
  EXPECT_EQ(w->txtFixedRate.SelLength(), 7);
}

// New rekeys the window and loads an empty card; a reload that fails closes
// the card.
TEST_F(FrmCurrencyTest, NewRekeysTheWindowAndAFailedReloadClosesIt) {
  auto w = Open("O00022005");
  w->SSCNew.Click();
  EXPECT_TRUE(w->IsNew());
  EXPECT_EQ(w->txtCode.Text(), "");
  EXPECT_EQ(host_.Log().Lines(Channel::Window),
            (std::vector<std::string>{"QueryRemove O00022005 True", "Rekey O00022005"}));
  auto other = Open("O00022006");
  BO(kOid).FailCallsNamed("Orvel_ReadObject", 3021, "Įrašas panaikintas");
  host_.Ui()->QueueAnswer(vbOK);
  other->ReloadCard();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Apskaita 2010 Įrašas panaikintas"});
  EXPECT_EQ(host_.Log().Lines(Channel::Window).front(), "RemoveWindow O00022006 True");
}

class FrmCurrencyRateTest : public FrmCurrencyTest {
 protected:
  void Load(const std::string& code) {
    euro_ = currencies_->GetOrvelObject("O00022005");
    dialog_.OrvelObjectUIO = euro_;
    dialog_.RateDate = kDay;
    dialog_.CurrencyCode = code;
    dialog_.Load();
    dialog_.Show();
    host_.Log().Clear();
  }

  std::shared_ptr<OrvelObjectUIO> euro_;
  frmCurrencyRate dialog_;
};

TEST_F(FrmCurrencyRateTest, TheDialogShowsTheStoredRateOfTheDay) {
  Load("EUR");
  EXPECT_EQ(dialog_.lblDayRate.Caption(), "1 EUR =");
  EXPECT_EQ(dialog_.txtDayRate.Text(), "3,45280000");
  EXPECT_FALSE(dialog_.cmdWrite.Enabled());
  dialog_.txtDayRate.GotFocus();
  EXPECT_EQ(dialog_.txtDayRate.SelStart(), 0);
  EXPECT_EQ(dialog_.txtDayRate.SelLength(), 10);
  // The rate box takes a point as a comma, once.
  dialog_.txtDayRate.Edit("3");
  EXPECT_EQ(dialog_.txtDayRate.KeyPress('.'), ',');
  dialog_.txtDayRate.Edit("3,1");
  EXPECT_EQ(dialog_.txtDayRate.KeyPress('.'), 0);
  dialog_.txtDayRate.LostFocus();
  EXPECT_EQ(dialog_.txtDayRate.Text(), "3,10000000");
  // A saved rate keeps the dialog open for another day.
  dialog_.txtDayRate.Edit("3,5");
  EXPECT_TRUE(dialog_.cmdWrite.Enabled());
  dialog_.cmdWrite.Click();
  EXPECT_EQ(BusinessLines(),
            std::vector<std::string>{"ExecCall SaveDayRate 'EUR','2010-12-30',3.5"});
  EXPECT_FALSE(dialog_.cmdWrite.Enabled());
  host_.Log().Clear();
  dialog_.pickerDate.SetValue(Variant(DateSerial(2010, 12, 31)));
  EXPECT_EQ(BusinessLines(), std::vector<std::string>{"GetCall GetCurrencyList '2010-12-31'"});
  EXPECT_FALSE(dialog_.cmdWrite.Enabled());
  EXPECT_TRUE(dialog_.Loaded());
  dialog_.cmdExit.Click();
  EXPECT_FALSE(dialog_.Loaded());
}

TEST_F(FrmCurrencyRateTest, NoRateOfTheDayShowsZeroAndRefusesToSaveIt) {
  Load("GBP");
  EXPECT_EQ(dialog_.txtDayRate.Text(), "0,00000000");
  dialog_.cmdWrite.SetEnabled(true);
  host_.Ui()->QueueAnswer(vbOK);
  dialog_.cmdWrite.Click();
  EXPECT_EQ(Boxes(), std::vector<std::string>{"48 Apskaita 2010 Nenurodytas valiutos kursas !"});
  EXPECT_TRUE(BusinessLines().empty());
  EXPECT_TRUE(dialog_.Loaded());
}

// A failed save closes the dialog without a word.
TEST_F(FrmCurrencyRateTest, AFailedSaveClosesTheDialogSilently) {
  Load("EUR");
  BO(kOid).ReplyAction("SaveDayRate", OrvelStatus{60, "Užrakinta"});
  dialog_.txtDayRate.Edit("3,6");
  dialog_.cmdWrite.Click();
  EXPECT_FALSE(dialog_.Loaded());
}

}  // namespace
}  // namespace orvel
