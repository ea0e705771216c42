// The goods card's own rules: the price line with its VAT figures, the
// measure checks, the rename guard, a failed write, the first write that
// opens the lists, a new record in the same window, and the row editors.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "goods/GoodsCardFixture.h"
#include "host/Convert.h"
#include "orvel/Locale.h"
#include "support/CaseName.h"
#include "testhost/TestRights.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

// The price part of the line, before the creator line.
std::string PricePart(const frmGoods& w) {
  const std::string& line = w.SOPanel.ToolTipText();
  return line.substr(0, line.find("Sukūrė:"));
}

struct VatCase {
  const char* name;
  const char* oidr;
  Variant price;
  Variant withVat;  // Empty: as stored
  Variant vat;      // Empty: as stored
  const char* line;
};

TEST_F(GoodsCardTest, ShowsTheOtherPriceAndTheRate) {
  for (const VatCase& c :
       std::initializer_list<VatCase>{// No rate of its own: the general rate of the database.
                                      {"GeneralRateWithVat", "O00002002", Variant(121), Variant(),
                                       Variant(), " Kaina be PVM: 100,00 (Tarifas: 21%)"},
                                      {"OwnRateWithoutVat", "O00002003", Variant(10), Variant(),
                                       Variant(), " Kaina su PVM: 10,90 (Tarifas: 9%)"},
                                      {"FractionalRate", "O00002003", Variant(100), Variant(),
                                       Variant(9.5), " Kaina su PVM: 109,50 (Tarifas: 9,5%)"},
                                      // 22.345 is a half: it rounds to the even cent.
                                      {"PriceAsText", "O00002003", Variant("20,5"), Variant(),
                                       Variant(), " Kaina su PVM: 22,34 (Tarifas: 9%)"},
                                      // Half a cent rounds to even.
                                      {"HalfToEven", "O00002003", Variant(0.125), Variant(),
                                       Variant(0), " Kaina su PVM: 0,12 (Tarifas: 0%)"},
                                      {"Grouped", "O00002002", Variant(12100), Variant(), Variant(),
                                       " Kaina be PVM: 10\u00a0000,00 (Tarifas: 21%)"},
                                      {"NotANumberLeavesOnlyTheCreator", "O00002003",
                                       Variant("brangu"), Variant(), Variant(), ""},
                                      {"NullPriceLeavesOnlyTheCreator", "O00002003",
                                       Variant::Null(), Variant(), Variant(), ""}}) {
    SCOPED_TRACE(c.name);
    auto w = Open(c.oidr);
    ASSERT_TRUE(w);
    if (!c.withVat.IsEmpty()) Grid(*w).EditField("PriceWithVAT", c.withVat);
    if (!c.vat.IsEmpty()) Grid(*w).EditField("VAT", c.vat);
    Grid(*w).EditField("Price", c.price);
    EXPECT_EQ(PricePart(*w), c.line);
    EXPECT_NE(w->SOPanel.ToolTipText().find("Sukūrė:Jonas"), std::string::npos);
  }
}

struct MeasureCase {
  const char* name;
  const char* oidr;
  Variant measure;    // Empty: as stored
  Variant precision;  // Empty: as stored
  bool saved;
  const char* box;  // the one box shown, "" for none
};

class GoodsCardMeasureCaseTest : public GoodsCardTest,
                                 public ::testing::WithParamInterface<MeasureCase> {};

TEST_P(GoodsCardMeasureCaseTest, AGoodNeedsAMeasureAndWholeUnitsWhereCounted) {
  const MeasureCase& c = GetParam();
  auto w = Open(c.oidr);
  if (!c.measure.IsEmpty()) Grid(*w).EditField("MeasureID", c.measure);
  if (!c.precision.IsEmpty()) Grid(*w).EditField("AmountPrecision", c.precision);
  Grid(*w).EditField("Name", Variant("Kitas"));
  Clear();
  if (*c.box) host_.Ui()->QueueAnswer(vbOK);
  w->cmdEnter_Click();
  const int32_t id = c.oidr[8] - '0';
  EXPECT_EQ(Stored(id, "Name") == Variant("Kitas"), c.saved);
  EXPECT_EQ(Boxes(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(
    Cases, GoodsCardMeasureCaseTest,
    ::testing::Values(MeasureCase{"WholeUnitsWithDecimals", "O00002003", Variant(), Variant(2),
                                  false, "16 Apskaita Kiekio tikslumas turi būti lygus 0!"},
                      MeasureCase{"WholeUnits", "O00002003", Variant(), Variant(0), true, ""},
                      MeasureCase{"DecimalMeasure", "O00002002", Variant(), Variant(3), true, ""},
                      MeasureCase{"NoMeasure", "O00002002", Variant::Null(), Variant(), false,
                                  "16 Apskaita Nenurodytas matavimo vienetas!"},
                      MeasureCase{"UnreadableMeasure", "O00002002", Variant(9), Variant(), false,
                                  "16 Apskaita Klaida!\nMatavimo vienetas 9 neperskaitytas"},
                      // A group has no measure to check.
                      MeasureCase{"Group", "O00002001", Variant::Null(), Variant(), true, ""}),
    ByName());

TEST_F(GoodsCardTest, AnEmptyNameWritesNothingAndSaysNothing) {
  auto w = Open("O00002002");
  Grid(*w).EditField("Name", Variant(""));
  Clear();
  w->cmdEnter_Click();
  EXPECT_TRUE(Boxes().empty());
  EXPECT_TRUE(BO("O0000200").Calls("Orvel_SaveObject").empty());
  EXPECT_TRUE(w->cmdEnter.Enabled());
}

struct RenameCase {
  const char* name;
  bool right;  // CGoodsCH
  int used;
  const char* stored;
  std::vector<std::string> calls;
};

const char* const kUsed = "GetGoodIsUsedInDocuments O00002002";
const char* const kSave = "Orvel_SaveObject 'O0000200','O00002002'";
const char* const kRead = "Orvel_ReadObject 'O00002002'";

TEST_F(GoodsCardTest, AGoodUsedInDocumentsKeepsItsNameWithoutTheRight) {
  for (const RenameCase& c : std::initializer_list<RenameCase>{
           {"UsedWithoutRight", false, 3, "Duona", {kUsed, kSave, kRead}},
           {"NotUsed", false, 0, "Ruginė duona", {kUsed, kSave, kRead}},
           {"RightNeedsNoQuestion", true, 3, "Ruginė duona", {kSave, kRead}}}) {
    SCOPED_TRACE(c.name);
    if (!c.right) host_.Rights()->Deny("CGoodsCH", Right::Allowed);
    BO("O0000200")
        .ReplyRead("GetGoodIsUsedInDocuments", TextRecords("Used", {std::to_string(c.used)}));
    auto w = Open("O00002002");
    Grid(*w).EditField("Name", Variant("Ruginė duona"));
    Grid(*w).EditField("Price", Variant(2.5));
    Clear();
    w->cmdEnter_Click();
    EXPECT_EQ(Stored(2, "Name"), Variant(c.stored));
    // The rest of the edits are written, and nobody is told.
    EXPECT_EQ(Stored(2, "Price"), Variant(2.5));
    EXPECT_TRUE(Boxes().empty());
    std::vector<std::string> names;
    for (const auto& call : BO("O0000200").Calls()) names.push_back(call.name + " " + call.param);
    EXPECT_EQ(names, c.calls);
  }
}

TEST_F(GoodsCardTest, AFailedWriteIsShownAndTheEditsStay) {
  BO("O0000200").FailCallsNamed("Orvel_SaveObject", 547, "Pažeistas ryšys");
  auto w = Open("O00002003");
  Grid(*w).EditField("Price", Variant(11));
  Clear();
  host_.Ui()->QueueAnswer(vbOK);
  w->cmdEnter_Click();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"16 Apskaita Klaida!\n\nPažeistas ryšys"}));
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Price").Value(), Variant(11));
  EXPECT_TRUE(w->cmdEnter.Enabled());
  EXPECT_TRUE(w->SSCNew.Enabled());
}

TEST_F(GoodsCardTest, TheFirstWriteOfANewGoodOpensItsLists) {
  auto w = Open("O00002001", "1");
  ASSERT_TRUE(w->IsNew);
  Grid(*w).EditField("Name", Variant("Sviestas"));
  Clear();
  w->cmdEnter_Click();
  EXPECT_FALSE(w->IsNew);
  EXPECT_EQ(w->OrvelObjectUIO()->OIDR(), "O00002004");
  EXPECT_FALSE(BO("O0000200").Calls("GetMeasures").empty());
  EXPECT_TRUE(w->SSCNew.Enabled());
}

TEST_F(GoodsCardTest, ANewGoodInTheWindowCopiesKindGroupNameAndMeasure) {
  auto w = Open("O00002003");
  w->SSCNew_Click();
  auto& object = *w->OrvelObjectUIO();
  EXPECT_EQ(object.OIDR(), "");
  EXPECT_EQ(object.Fields("Name").Value(), Variant("Pienas"));
  EXPECT_EQ(NullToLong(object.Fields("MeasureID").Value()), 2);
  EXPECT_EQ(NullToLong(object.Fields("AmountPrecision").Value()), 0);
  EXPECT_EQ(NullToLong(object.Fields("ParentID").Value()), 1);
  EXPECT_FALSE(CBool(object.Fields("WithRest").Value()));
  EXPECT_TRUE(w->IsNew);
  EXPECT_FALSE(w->SSCNew.Enabled());
}

TEST_F(GoodsCardTest, CancelOnANewRecordDoesNothing) {
  auto w = Open("O00002001", "1");
  Grid(*w).EditField("Name", Variant("Sviestas"));
  Clear();
  w->cmdCancel_Click();
  EXPECT_TRUE(BO("O0000200").Calls().empty());
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("Sviestas"));
}

class RecordingDialogs : public GoodsDialogs {
 public:
  bool EditGoodProperty(const std::shared_ptr<OrvelObjectUIO>& detail, const std::string& caption,
                        const std::string& title) override {
    opened.push_back(detail->OID() + " [" + detail->OIDR() + "] " + caption + " / " + title +
                     " GoodID=" + ConcatText(detail->Fields("GoodID").Value()));
    return save;
  }
  std::vector<std::string> opened;
  bool save = true;
};

TEST_F(GoodsCardTest, NewRowsGetTheGoodAndTheListReloads) {
  auto dialogs = std::make_shared<RecordingDialogs>();
  InstallGoodsDialogs(dialogs);
  BO("O0000400").Table().SetFields({"ID", "GoodID", "MeasureID"});
  BO("O0000600").Table().SetFields({"ID", "GoodID", "Price"});
  auto w = Open("O00002002");
  w->CurrentTab = w->MeasuresTab;
  w->MenuAction = "100";
  w->EditRow();
  w->CurrentTab = w->PricesTab;
  w->EditRow();
  EXPECT_EQ(dialogs->opened,
            (std::vector<std::string>{"O0000400 [] : Matavimo vienetas / Apskaita GoodID=2",
                                      "O0000600 [] : Kainos / Apskaita GoodID=2"}));
  EXPECT_EQ(BO("O0000200").Calls("GetMeasures").size(), 1u);
  EXPECT_EQ(BO("O0000200").Calls("GetPrices").size(), 1u);
}

TEST_F(GoodsCardTest, ANewRowOnAGoodNotSavedIsRefused) {
  auto dialogs = std::make_shared<RecordingDialogs>();
  InstallGoodsDialogs(dialogs);
  auto w = Open("O00002001", "1");
  w->CurrentTab = 2;
  w->MenuAction = "100";
  host_.Ui()->QueueAnswer(vbOK);
  w->EditRow();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"48 Apskaita Išsaugokite naujai sukurtą įmonę"}));
  EXPECT_TRUE(dialogs->opened.empty());
}

}  // namespace
}  // namespace orvel
