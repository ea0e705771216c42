// The goods card's own rules: the price line with its VAT figures, the
// measure checks, the rename guard, a failed write, the first write that
// opens the lists, a new record in the same window, and the row editors.
#include <gtest/gtest.h>

#include <tuple>

#include "goods/GoodsCardFixture.h"
#include "orvel/Locale.h"
#include "support/Controls.h"
#include "testhost/TestRights.h"

namespace orvel {
namespace {

using Right = TestRights::Right;

// The price part of the line, before the creator line.
std::string PricePart(const frmGoods& w) {
  const std::string& line = w.SOPanel.ToolTipText();
  return line.substr(0, line.find("Sukūrė:"));
}

// The rate and the price typed ("name=value;..."); the price part of the line after.
TEST_F(GoodsCardTest, ShowsTheOtherPriceAndTheRate) {
  for (const auto& [name, oidr, edits, line] :
       std::initializer_list<std::tuple<const char*, const char*, const char*, const char*>>{
           // No rate of its own: the general rate of the database.
           {"GeneralRateWithVat", "O00002002", "Price=121", " Kaina be PVM: 100,00 (Tarifas: 21%)"},
           {"OwnRateWithoutVat", "O00002003", "Price=10", " Kaina su PVM: 10,90 (Tarifas: 9%)"},
           {"FractionalRate", "O00002003", "VAT=9.5;Price=100",
            " Kaina su PVM: 109,50 (Tarifas: 9,5%)"},
           // 22.345 is a half: it rounds to the even cent, as half a cent does.
           {"PriceAsText", "O00002003", "Price=20,5", " Kaina su PVM: 22,34 (Tarifas: 9%)"},
           {"HalfToEven", "O00002003", "VAT=0;Price=0.125", " Kaina su PVM: 0,12 (Tarifas: 0%)"},
           {"Grouped", "O00002002", "Price=12100", " Kaina be PVM: 10\u00a0000,00 (Tarifas: 21%)"},
           {"NotANumberLeavesOnlyTheCreator", "O00002003", "Price=brangu", ""},
           {"NullPriceLeavesOnlyTheCreator", "O00002003", "Price=~", ""}}) {
    SCOPED_TRACE(name);
    auto w = Open(oidr);
    ASSERT_TRUE(w);
    for (const auto& [field, value] : Assignments(edits)) Grid(*w).EditField(field, value);
    EXPECT_EQ(PricePart(*w), line);
    EXPECT_NE(w->SOPanel.ToolTipText().find("Sukūrė:Jonas"), std::string::npos);
  }
}

// The fields edited after the name ("name=value;...") and whether the write fails; whether the
// name was written, and the one box shown ("" none). A group has no measure to check; an empty
// name is refused without a word. The edits stay in the record, and a refused write keeps Write
// and New on.
struct WriteCase {
  const char *name, *oidr, *edits;
  bool fails, saved;
  const char* box;
};

TEST_F(GoodsCardTest, AGoodNeedsANameAMeasureAndWholeUnitsWhereCounted) {
  for (const WriteCase& c : std::initializer_list<WriteCase>{
           {"WholeUnitsWithDecimals", "O00002003", "AmountPrecision=2", false, false,
            "16 Apskaita Kiekio tikslumas turi būti lygus 0!"},
           {"WholeUnits", "O00002003", "AmountPrecision=0", false, true, ""},
           {"DecimalMeasure", "O00002002", "AmountPrecision=3", false, true, ""},
           {"NoMeasure", "O00002002", "MeasureID=~", false, false,
            "16 Apskaita Nenurodytas matavimo vienetas!"},
           {"UnreadableMeasure", "O00002002", "MeasureID=9", false, false,
            "16 Apskaita Klaida!\nMatavimo vienetas 9 neperskaitytas"},
           {"Group", "O00002001", "MeasureID=~", false, true, ""},
           {"EmptyName", "O00002002", "Name=#", false, false, ""},
           {"FailedWrite", "O00002003", "Price=11", true, false,
            "16 Apskaita Klaida!\n\nPažeistas ryšys"}}) {
    SCOPED_TRACE(c.name);
    if (c.fails) BO("O0000200").FailCallsNamed("Orvel_SaveObject", 547, "Pažeistas ryšys");
    auto w = Open(c.oidr);
    Grid(*w).EditField("Name", Variant(c.name));
    for (const auto& [field, value] : Assignments(c.edits)) Grid(*w).EditField(field, value);
    Clear();
    if (*c.box) host_.Ui()->QueueAnswer(vbOK);
    w->cmdEnter_Click();
    EXPECT_EQ(Stored(c.oidr[8] - '0', "Name") == Variant(c.name), c.saved);
    EXPECT_EQ(Boxes(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>{});
    EXPECT_EQ(BO("O0000200").Calls("Orvel_SaveObject").size(), c.saved || c.fails ? 1u : 0u);
    for (const auto& [field, value] : Assignments(c.edits)) {
      EXPECT_EQ(w->OrvelObjectUIO()->Fields(field).Value(), value) << field;
    }
    EXPECT_EQ(OnOff({&w->cmdEnter, &w->SSCNew}), c.saved ? "01" : "11");
  }
}

// With or without the right CGoodsCH, the documents using the good, the name stored after.
struct RenameCase {
  const char* name;
  bool right;
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
    std::vector<std::string> names;
    for (const auto& call : BO("O0000200").Calls()) names.push_back(call.name + " " + call.param);
    EXPECT_EQ(names, c.calls);
  }
}

// A cancel on a new record does nothing.
TEST_F(GoodsCardTest, TheFirstWriteOfANewGoodOpensItsListsANewOneCopiesTheGood) {
  auto w = Open("O00002001", "1");
  ASSERT_TRUE(w->IsNew);
  Grid(*w).EditField("Name", Variant("Sviestas"));
  Clear();
  w->cmdCancel_Click();
  EXPECT_TRUE(BO("O0000200").Calls().empty());
  EXPECT_EQ(w->OrvelObjectUIO()->Fields("Name").Value(), Variant("Sviestas"));
  w->cmdEnter_Click();
  EXPECT_FALSE(w->IsNew);
  EXPECT_EQ(w->OrvelObjectUIO()->OIDR(), "O00002004");
  EXPECT_FALSE(BO("O0000200").Calls("GetMeasures").empty());
  EXPECT_TRUE(w->SSCNew.Enabled());
  // A new good made in another good's window copies its kind, group, name and measure.
  w = Open("O00002003");
  w->SSCNew_Click();
  auto& object = *w->OrvelObjectUIO();
  std::string fields = object.OIDR();
  for (const char* field : {"Name", "MeasureID", "AmountPrecision", "ParentID", "WithRest"}) {
    fields += "|" + ConcatText(object.Fields(field).Value());
  }
  EXPECT_EQ(fields, "|Pienas|2|0|1|False");
  EXPECT_TRUE(w->IsNew && !w->SSCNew.Enabled());
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
  // A new row on a good not saved is refused.
  dialogs->opened.clear();
  auto fresh = Open("O00002001", "1");
  fresh->CurrentTab = 2;
  fresh->MenuAction = "100";
  host_.Ui()->QueueAnswer(vbOK);
  fresh->EditRow();
  EXPECT_EQ(Boxes(), (std::vector<std::string>{"48 Apskaita Išsaugokite naujai sukurtą įmonę"}));
  EXPECT_TRUE(dialogs->opened.empty());
}

}  // namespace
}  // namespace orvel
