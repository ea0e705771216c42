#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <tuple>

#include "adapters/SmallAdapters.h"
#include "adapters/UI0000200.h"
#include "common/frmGoodProperty.h"
#include "goods/GoodsCardFixture.h"
#include "goods/frmGaranty.h"
#include "goods/frmGoodPreview.h"
#include "goods/frmPriceChange.h"
#include "support/CaseName.h"
#include "support/Controls.h"
#include "support/StubObjectUIO.h"
#include "testhost/TestEnvironment.h"
#include "testhost/TestGroupSelect.h"

namespace orvel {
namespace {

enum class Kind { Price, Garanty };

// The keys typed into the number box, "Mažinti" and the subgroups ticked, the text shown and
// the parameter sent (null: Cancel clicked, nothing sent). The business status comes back in the
// result's Value, so a refused change closes the dialog like a done one, silently.
struct GroupChangeCase {
  const char* name;
  Kind kind;
  const char* keys;
  bool down, subGroups;
  const char *shown, *sent;
  bool refused = false;
};

class GroupChangeTest : public GoodsCardTest {
 protected:
  // Opens the group's dialog from the tree menu; `user` plays the dialog.
  void Run(Kind kind, std::function<void(GroupChangeDialog&)> user) {
    host_.Ui()->QueueModal([&](Form& form) {
      auto* dialog = dynamic_cast<GroupChangeDialog*>(&form);
      ASSERT_NE(dialog, nullptr);
      loadedAfterUser = false;
      user(*dialog);
      loadedAfterUser = dialog->Loaded();
    });
    adapter_->ClickMenu("O00002001", "", kind == Kind::Price ? "9" : "10", "");
  }

  static TextBox& Box(GroupChangeDialog& dialog) {
    if (auto* price = dynamic_cast<frmPriceChange*>(&dialog)) return price->txtPrice;
    return dynamic_cast<frmGaranty&>(dialog).txtGaranty;
  }

  std::vector<std::string> Sent(const char* call) {
    std::vector<std::string> sent;
    for (const auto& c : BO("O0000200").Calls(call)) {
      sent.push_back(c.param + "|" + (c.array.empty() ? "-" : ConcatText(c.array[0])));
    }
    return sent;
  }

  bool loadedAfterUser = false;
};

TEST_F(GroupChangeTest, TypedValueGoesOutWithPointAndSign) {
  for (const GroupChangeCase& c : std::initializer_list<GroupChangeCase>{
           {"PointTypesComma", Kind::Price, "1.5", false, true, "1,5", "1,1,1.5"},
           {"LoweringIsSigned", Kind::Price, "2,5", true, false, "2,5", "1,0,-2.5"},
           {"SecondCommaAndLettersDropped", Kind::Price, "1.2,3x", false, false, "1,23",
            "1,0,1.23"},
           {"BackspaceEdits", Kind::Price, "17\b0", false, false, "10", "1,0,10"},
           // The dialog judges no value: the text goes as typed, the comma a point.
           {"LeadingComma", Kind::Price, ",5", true, false, ",5", "1,0,-.5"},
           {"LonelyComma", Kind::Garanty, ",", false, false, ",", "1,0,."},
           {"WarrantyMonths", Kind::Garanty, "12", false, true, "12", "1,1,12"},
           {"WarrantyHasNoSign", Kind::Garanty, "-6.5", false, false, "6,5", "1,0,6.5"},
           {"PriceCancelled", Kind::Price, "4", false, false, "4", nullptr},
           {"WarrantyCancelled", Kind::Garanty, "4", false, false, "4", nullptr},
           // Emptied again, the box turns both buttons off: only the close box leaves.
           {"EmptiedBox", Kind::Price, "3\b", false, true, "", nullptr},
           {"Refused", Kind::Price, "150", false, false, "150", "1,0,150", true}}) {
    SCOPED_TRACE(c.name);
    BO("O0000200").ClearCalls();
    if (c.refused) {
      BO("O0000200").ReplyAction("UpdateGoodsPrice", OrvelStatus{5, "kaina negali tapti neigiama"});
    }
    std::string shown;
    Run(c.kind, [&](GroupChangeDialog& dialog) {
      EXPECT_EQ(OnOff({&dialog.cmdEnter, &dialog.cmdCancel}), "00");
      Type(Box(dialog), c.keys);
      if (auto* price = dynamic_cast<frmPriceChange*>(&dialog)) {
        EXPECT_TRUE(price->optUp.Value());
        if (c.down) price->OptDown.Click();
      }
      if (c.subGroups) dialog.chkWithSubGroups.Click();
      shown = Box(dialog).Text();
      EXPECT_EQ(OnOff({&dialog.cmdEnter, &dialog.cmdCancel}), shown.empty() ? "00" : "11");
      (c.sent ? dialog.cmdEnter : dialog.cmdCancel).Click();
    });
    EXPECT_EQ(shown, c.shown);
    const char* call = c.kind == Kind::Price ? "UpdateGoodsPrice" : "UpdateGaranty";
    EXPECT_EQ(Sent(call), c.sent ? std::vector<std::string>{std::string("|") + c.sent}
                                 : std::vector<std::string>{});
    EXPECT_EQ(loadedAfterUser, shown.empty());
  }
}

class FailingGroup : public StubObjectUIO {
 public:
  FailingGroup() : StubObjectUIO("O000020015") {}
  OrvelResult Methods(const std::string& name, Variant::Array& params) override {
    calls.push_back(name + " " + ConcatText(params.at(0)));
    return {9, "Subscript out of range", Variant()};
  }
  std::vector<std::string> calls;
};

TEST_F(GroupChangeTest, AFailedCallIsShownAndTheDialogStaysUnderItsOwnCaptions) {
  auto group = std::make_shared<FailingGroup>();
  frmGaranty dialog;
  dialog.Show();
  Type(dialog.txtGaranty, "24");
  // A failure inside the dialog (no group) is shown under the dialog's own title too.
  for (const auto& [object, box] :
       {std::pair<std::shared_ptr<OrvelObjectUIO>, const char*>{group,
                                                               "16 Orvelta Subscript out of range"},
        {nullptr, "16 Orvelta Klaida!\nNepriskirta grupė"}}) {
    Clear();
    dialog.OrvelObjectUIO = object;
    host_.Ui()->QueueAnswer(vbOK);
    dialog.cmdEnter.Click();
    EXPECT_EQ(Boxes(), (std::vector<std::string>{box}));
    EXPECT_TRUE(dialog.Loaded());
  }
  EXPECT_EQ(group->calls, (std::vector<std::string>{"UpdateGaranty 15,0,24"}));
  frmPriceChange p;
  frmGaranty g;
  EXPECT_EQ(Join({p.Caption(), p.chkWithSubGroups.Caption(), p.OptDown.Caption(), g.Caption(),
                  g.Label1.Caption(), g.cmdEnter.Caption()},
                 "|"),
            "Pardavimo kainų keitimas|Keisti ir pogrupiuose|Mažinti|Garantijos pridėjimas|"
            "Garantija, mėn:|Įrašyti");
}

class GoodPreviewTest : public GoodsCardTest {
 protected:
  void SetUp() override {
    GoodsCardTest::SetUp();
    // Warehouses are listed by the host; a small adapter stands in for theirs.
    host_.SetAdapterSource([](const std::string& oid) -> std::shared_ptr<OrvelObjectUI> {
      if (oid == "O0001605") return std::make_shared<UI0000800>();
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
    MakeAdapter();
    auto& warehouses = BO("O0001605").Table();
    warehouses.SetFields({"ID", "Name", "Preview"});
    warehouses.Seed(SeedRows("Name Preview", {"Centrinis|Centrinis", "Vilnius|Vilniaus sandėlis"}));
  }

  // Opens the dialog on `settings`, lets `user` play it; the settings after.
  std::string Edit(const std::string& settings, std::function<void(frmGoodPreview&)> user,
                   bool* confirmed = nullptr) {
    host_.Ui()->QueueModal([&](Form& form) { user(dynamic_cast<frmGoodPreview&>(form)); });
    std::string edited = settings;
    const bool ok = CurrentGoodsDialogs().EditListSettings(edited);
    if (confirmed) *confirmed = ok;
    return edited;
  }
};

// The controls clicked, by blanks, and the warehouse the picker answers with ("" none, null: not
// queued) as "key name"; the settings after, the confirmation, the location's text at the end
// (null: the host's name of the warehouse, not checked here) and what is stored ("" nothing). Where
// given, the boxes Active, NotActive, Code, ByLocation, OnlyWithRest and ByCode as loaded, 1 or
// 0, and the location's tag.
struct PreviewCase {
  const char *settings, *clicks, *picked, *after;
  bool confirmed;
  const char *text, *stored, *boxes = nullptr, *tag = "";
};

// The fields go to the controls and back unchanged (too few give the default). Neither active
// nor inactive means active; without the location the warehouse is dropped; Save stores the
// settings for the user; Cancel confirms nothing; the picker's root clears the warehouse.
TEST_F(GoodPreviewTest, TheFieldsLoadAndTheButtonsConfirmStoreOrDropTheEdits) {
  for (const PreviewCase& c : std::initializer_list<PreviewCase>{
           {"1,0,1,'',0,1,0", "cmdOK", nullptr, "1,0,1,'',0,1,0", true, "", "", "101001"},
           {"0,1,0,'O00016052',1,0,1", "cmdOK", nullptr, "0,1,0,'O00016052',1,0,1", true, nullptr,
            "", "010110", "O00016052"},
           {"1,1,1,'O0001605',1,1,0", "cmdOK", nullptr, "1,1,1,'O0001605',1,1,0", true,
            "Visi sandeliai", "", "111101", "O0001605"},
           {"1,0,1", "cmdOK", nullptr, "1,0,1,'',0,1,0", true, "", "", "101001"},
           {"1,0,0,'',0,0,0", "chkActive cmdOK", nullptr, "1,0,0,'',0,0,0", true, "", ""},
           {"1,0,1,'O00016051',1,1,0", "chkByLocation cmdOK", nullptr, "1,0,1,'',0,1,0", true, "",
            ""},
           {"1,0,1,'',0,1,0", "chkCode cmdCancel", nullptr, "1,0,1,'',0,1,0", false,
            "Visi sandeliai", ""},
           {"1,0,1,'',1,1,0", "cmdLocation cmdOK", "", "1,0,1,'',1,1,0", true, "Visi sandeliai",
            ""},
           {"1,0,1,'',1,1,0", "cmdLocation cmdOK", "O0001605 Sandėliai", "1,0,1,'',1,1,0", true, "",
            ""},
           {"1,0,1,'',1,1,0", "cmdLocation cmdOK", "O00016052 Vilnius", "1,0,1,'O00016052',1,1,0",
            true, "Vilnius", ""},
           {"1,0,1,'',0,1,0", "OptByName chkOnlyWithRest cmdSave", nullptr, "1,0,1,'',0,0,1", true,
            "", "1,0,1,'',0,0,1"}}) {
    SCOPED_TRACE(std::string(c.settings) + " " + c.clicks + " " + (c.picked ? c.picked : ""));
    if (c.picked) {
      const auto picked = Split(std::string(c.picked) + " ", " ");
      host_.HostClasses()->QueueGroupSelect(picked[0], picked[1], "O0001605");
    }
    bool ok = !c.confirmed;
    const auto play = [&](frmGoodPreview& d) {
      if (c.boxes) {
        std::string boxes;
        for (int value : {d.chkActive.Value(), d.chkNotActive.Value(), d.chkCode.Value(),
                          d.chkByLocation.Value(), d.chkOnlyWithRest.Value(),
                          static_cast<int>(d.optByCode.Value())}) {
          boxes += std::to_string(value);
        }
        EXPECT_EQ(boxes + " " + d.txtLocation.Tag(), std::string(c.boxes) + " " + c.tag);
        EXPECT_NE(d.OptByName.Value(), d.optByCode.Value());
        EXPECT_EQ(d.txtLocation.Enabled(), c.boxes[3] == '1');
      }
      for (const auto& name : Split(c.clicks, " ")) {
        Control* control = d.FindControl(name);
        if (auto* box = dynamic_cast<CheckBox*>(control)) box->Click();
        if (auto* option = dynamic_cast<OptionButton*>(control)) option->Click();
        if (auto* button = dynamic_cast<Button*>(control)) button->Click();
        EXPECT_EQ(d.cmdLocation.Enabled(), d.chkByLocation.Value() == vbChecked);
      }
      if (c.text) {
        EXPECT_EQ(d.txtLocation.Text(), c.text);
      }
    };
    EXPECT_EQ(Edit(c.settings, play, &ok), c.after);
    EXPECT_EQ(ok, c.confirmed);
    EXPECT_EQ(host_.Environment()->StoredSetting("O0000200", "Preview").value_or(""), c.stored);
    EXPECT_TRUE(*c.stored || host_.Log().Lines(Channel::Settings).empty());
  }
  auto picker = host_.HostClasses()->LastGroupSelect();
  ASSERT_TRUE(picker);
  EXPECT_EQ(picker->OType() + " " + picker->RootOType(), "O0001605 O0001605");
}

class GoodPropertyTest : public GoodsCardTest {
 protected:
  void SetUp() override {
    GoodsCardTest::SetUp();
    // The stock templates belong to another module; a small adapter stands in.
    host_.SetAdapterSource([](const std::string& oid) -> std::shared_ptr<OrvelObjectUI> {
      if (oid == "O0201600") return std::make_shared<UI0000800>();
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
    BO("O0000400").Table().SetFields({"ID", "GoodID", "MeasureID", "Price", "Scale", "Scale2"});
    BO("O0000600").Table().SetFields({"ID", "GoodID", "GoodPriceTypeID", "Price"});
    BO("O0000700").Table().SetFields({"ID", "GoodID", "LocationId", "MinAmount"});
    BO("O0000800").Table().SetFields({"ID", "GoodID", "GoodBRTemplateTypeID", "BRTemplateID"});
    BO("O0201600").Table().SetFields({"ID", "Name", "GroupFlag"});
    BO("O0201600").Table().Seed(SeedRows("Name GroupFlag", {"Grupė|1", "Pirkimas|0"}));
  }

  // A new record of `oid` with the fields set, edited in the sheet; `presses`
  // clicks of Write. Whether the dialog reported it saved.
  bool EditNew(const std::string& oid, const std::string& fields, int presses = 1,
               bool cancel = false) {
    auto record = Adapter(oid)->GetOrvelObject("");
    EXPECT_TRUE(record);
    for (const auto& [name, value] : Assignments(fields)) record->Fields(name).SetValue(value);
    host_.Ui()->QueueModal([&](Form& form) {
      auto& dialog = dynamic_cast<frmGoodProperty&>(form);
      shownCaption = dialog.Caption();
      labelWidth = dynamic_cast<FakeOrvelGrid&>(*dialog.OrvelGrid).LabelWidth();
      for (int i = 0; i < presses; ++i) dialog.cmdEnter.Click();
      if (cancel) dialog.cmdCancel.Click();
      grid = dynamic_cast<FakeOrvelGrid&>(*dialog.OrvelGrid).Operations();
    });
    Clear();
    return CurrentGoodsDialogs().EditGoodProperty(record, "Duona: Kainos", "Apskaita");
  }

  size_t Rows(const std::string& oid) { return BO(oid).Table().Count(); }

  std::string shownCaption;
  int labelWidth = 0;
  std::vector<std::string> grid;
};

// The fields set, "name=value;...", and the presses of Write; whether it was saved; the one box
// shown, "" for none. A zero or unreadable ratio becomes one, shown on the first press and
// written on the second.
struct PropertyCase {
  const char *name, *oid, *fields;
  int presses;
  bool saved;
  const char* box;
};

constexpr const char* kBadTemplate = "48 Apskaita Blogas šablonas!";

TEST_F(GoodPropertyTest, EachKindIsCheckedBeforeTheWrite) {
  for (const PropertyCase& c : std::initializer_list<PropertyCase>{
           {"MeasureMissing", "O0000400", "Scale=2", 1, false,
            "16 Apskaita Nenurodytas matavimo vienetas!"},
           {"MeasureWithRatio", "O0000400", "MeasureID=1;Scale=0;Scale2=0.5", 1, true, ""},
           {"PriceComplete", "O0000600", "GoodPriceTypeID=1;Price=0", 1, true, ""},
           {"PriceWithoutType", "O0000600", "Price=3.5", 1, false, ""},
           {"PriceTypeAsEmptyText", "O0000600", "GoodPriceTypeID=;Price=3.5", 1, false, ""},
           {"MinimumComplete", "O0000700", "LocationId=1;MinAmount=5", 1, true, ""},
           {"MinimumWithoutAmount", "O0000700", "LocationId=1", 1, false, ""},
           {"TemplateComplete", "O0000800", "GoodBRTemplateTypeID=3;BRTemplateID=2", 1, true, ""},
           {"TemplateGroup", "O0000800", "GoodBRTemplateTypeID=3;BRTemplateID=1", 1, false,
            kBadTemplate},
           {"TemplateUnknown", "O0000800", "GoodBRTemplateTypeID=3;BRTemplateID=9", 1, false,
            kBadTemplate},
           {"TemplateWithoutType", "O0000800", "BRTemplateID=2", 1, false, kBadTemplate},
           {"ZeroRatiosFirstPress", "O0000400", "MeasureID=1;Scale=0;Scale2=0", 1, false, ""},
           {"ZeroRatiosSecondPress", "O0000400", "MeasureID=1;Scale=0;Scale2=0", 2, true, ""},
           {"UnreadableRatio", "O0000400", "MeasureID=1;Scale=~", 2, true, ""},
           // Other records (the firm's details) are written as they stand.
           {"OtherKind", "O0002000", "", 1, true, ""}}) {
    SCOPED_TRACE(c.name);
    const size_t before = Rows(c.oid);
    if (*c.box) host_.Ui()->QueueAnswer(vbOK);
    EXPECT_EQ(EditNew(c.oid, c.fields, c.presses), c.saved);
    EXPECT_EQ(Rows(c.oid), before + (c.saved ? 1 : 0));
    if (c.name == std::string("ZeroRatiosFirstPress")) {
      EXPECT_EQ(std::count(grid.begin(), grid.end(), "RefreshField Scale"), 1);
    }
    if (c.presses == 2) {
      EXPECT_EQ(BO(c.oid).Table().Value(BO(c.oid).Table().Ids().back(), "Scale"), Variant(1));
    }
    EXPECT_EQ(Boxes(), *c.box ? std::vector<std::string>{c.box} : std::vector<std::string>{});
  }
}

TEST_F(GoodPropertyTest, AFailedWriteIsShownAndTheDialogStaysACancelSavesNothing) {
  for (const auto& [number, box] :
       {std::pair{2627, "16 Apskaita Klaida!\n\nPanašus įrašas jau yra duomenų bazėje!"},
        {2601, "16 Apskaita Klaida!\n\nUNIQUE constraint failed"}}) {
    BO("O0000600").FailCallsNamed("Orvel_SaveObject", number, "UNIQUE constraint failed");
    host_.Ui()->QueueAnswer(vbOK);
    EXPECT_FALSE(EditNew("O0000600", "GoodPriceTypeID=1;Price=2", 1, /*cancel=*/true));
    EXPECT_EQ(Boxes(), (std::vector<std::string>{box}));
  }
  EXPECT_FALSE(EditNew("O0000600", "GoodPriceTypeID=1;Price=2", 0, /*cancel=*/true));
  EXPECT_EQ(shownCaption + " " + std::to_string(labelWidth), "Duona: Kainos 2000");
  EXPECT_EQ(grid.front(), "SetServices");
  EXPECT_EQ(Rows("O0000600"), 0u);
}

}  // namespace
}  // namespace orvel
