// The list window: default columns from the type's structure, the grouped
// and indented table, the configuration, a bad configuration and printing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Text.h"
#include "lists/ListedType.h"
#include "lists/frmPreviewConfig.h"
#include "lists/frmReferenceBookPreview.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestGroupSelect.h"
#include "testhost/TestPrintDoc.h"
#include "testhost/TestServices.h"
#include "testhost/TestUser.h"
#include "testhost/TestWindowManager.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;

constexpr const char* kDefault =
    "Žinynas ;9;1;1;0;1;1;#WZWCode;Kodas;0;2,5;0#WZWName;Pavadinimas;0;9,5;1"
    "#WZWAmount;Suma;1;2,5;2#WZWActive;Aktyvus;0;2,5;3#WZWNote;Pastaba;0;4,0;999";

constexpr const char* kDefaultHeaders =
    "Kodas 1250 0|Pavadinimas 4750 0|Suma 1250 1|Aktyvus 1250 0";
constexpr const char* kFields = "Code Name Amount Active Note GroupFlag OIDR";

// The reply of a call whose value is a record set.
OrvelResult Reply(const char* fields, const char* rows) {
  return OrvelResult{0, "", Variant(std::static_pointer_cast<Object>(TextRecords(fields, rows)))};
}

class FrmReferenceBookPreviewTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    SetOrvelS(host_.Services());
    type_ = std::make_shared<ListedType>();
    host_.ObjectManager()->ReplyToCall(
        "Orvel_GetObjectStructureByOID",
        Reply("Name Caption Length xType Visible",
              "Code|Kodas|20|167|1\nName|Pavadinimas|100|231|1\nAmount|Suma|8|60|1\n"
              "Active|Aktyvus|1|104|1\nNote|Pastaba|255|231|0"));
    host_.ObjectManager()->ReplyToCall(
        "Orvel_GetGroupPreviewField",
        Reply("GroupPreviewFieldName GroupPreviewFieldCaption", "Name|~"));
    type_->lists[""] = TextRecords(
        kFields, "G1|Grupė|~|~|pastaba|1|O00009001\nA|Alfa|12.5|true|pastaba|0|O00009005");
    type_->lists["O00009001"] = TextRecords(
        kFields, "G2|Pogrupis|~|~|pastaba|1|O00009002\nB|Beta|3|False|pastaba|0|O00009006");
    type_->lists["O00009002"] = TextRecords(kFields, "C|Gama|0|false|pastaba|0|O00009007");
  }

  std::shared_ptr<frmReferenceBookPreview> Open(const std::string& config = "",
                                                const std::string& argument = "") {
    auto w = std::make_shared<frmReferenceBookPreview>();
    w->ObjectUIO = std::make_shared<ListedObject>(
        type_, std::vector<std::string>{"ID", "Code", "Name", "GroupFlag"}, "O00009001", "Grupė");
    w->ListArgument = argument;
    w->InitialConfig = config;
    w->Show();
    return w;
  }

  // "text|sub|sub" of each row, "*" in front of a bold one.
  static std::vector<std::string> Rows(const frmReferenceBookPreview& w) {
    std::vector<std::string> rows;
    for (const auto& item : w.lvwRec.ListItems()) {
      std::string row = (item->Bold() ? "*" : "") + item->Text();
      for (const auto& sub : item->ListSubItems()) row += "|" + sub->Text();
      rows.push_back(row);
    }
    return rows;
  }

  static std::vector<std::string> Headers(const frmReferenceBookPreview& w) {
    std::vector<std::string> headers;
    for (const auto& h : w.lvwRec.ColumnHeaders()) {
      headers.push_back(h->Text() + " " + std::to_string(h->Width()) + " " +
                        std::to_string(h->Alignment()));
    }
    return headers;
  }

  // "<flags> <title>|<prompt>" of the boxes shown, by blank lines.
  std::string Boxes() {
    std::vector<std::string> boxes;
    for (const auto& box : host_.Ui()->Boxes()) {
      boxes.push_back(std::to_string(box.flags) + " " + box.title + "|" + box.prompt);
    }
    return Join(boxes, "\n\n");
  }

  std::shared_ptr<ListedType> type_;
};

TEST_F(FrmReferenceBookPreviewTest, DefaultColumnsComeFromTheTypesStructure) {
  auto w = Open();
  // The group column grew to fill 17 cm; the hidden one is not a list column.
  EXPECT_EQ(Join(Headers(*w), "|"), kDefaultHeaders);
  EXPECT_EQ(w->SOPanel.Caption() + "|" + w->cmdPrint.Caption() + "|" + w->lblJournalName.Caption() +
                "|" + w->txtGroupName.Text() + "|" + w->lblStatus.Caption(),
            "Žinynas |Spausdinti|Žinynas ||");
  EXPECT_EQ(w->GroupField() + "|" + w->GroupCaption() + "|" + std::to_string(w->HasGroups()),
            "Name||1");
  EXPECT_EQ(w->Config(), kDefault);
  EXPECT_EQ(w->PrintDict().Item("JRegName"), Variant("Žinynas "));
  EXPECT_EQ(w->PrintDict().Item("JParams"), Variant(""));
  EXPECT_EQ(Join(w->ColumnKeys(), " "), "WZWCode WZWName WZWAmount WZWActive");
  // Each shown column's list index is written back into its piece.
  EXPECT_EQ(w->ColumnDict().Item("WZWAmount").ArrayValue()[5], Variant("3"));
  EXPECT_EQ(w->ColumnDict().Item("WZWNote").ArrayValue()[5], Variant("5"));
  EXPECT_EQ(host_.Ui()->GetMousePointer(), vbDefault);
  EXPECT_EQ(Join(host_.Log().Lines(Channel::Host), "|"),
            "Call Orvel_GetGroupPreviewField O0000900|Call Orvel_GetObjectStructureByOID O0000900");
  EXPECT_EQ(Join(type_->listCalls, " "), "|| O00009001|| O00009002||");
}

// Groups nest and indent ten blanks a level; a group holding itself is
// listed once.
TEST_F(FrmReferenceBookPreviewTest, GroupsNestAndIndentTenBlanksALevel) {
  EXPECT_EQ(Join(Rows(*Open()), " / "),
            "*G1|Grupė| |  / *G2|          Pogrupis| |  / C|                    Gama|0|Ne / "
            "B|          Beta|3|Ne / A|Alfa|12,5|Taip");
  type_->lists["O00009002"] = TextRecords(kFields, "G1|Grupė|~|~|pastaba|1|O00009001");
  const auto rows = Rows(*Open());
  EXPECT_EQ(rows[2] + " / " + std::to_string(rows.size()), "*G1|                    Grupė| |  / 5");
  // An empty list says so, and has nothing to print: no document is made.
  type_->lists[""] = TextRecords(kFields, "");
  host_.Ui()->QueueAnswer(vbOK);
  auto w = Open();
  EXPECT_EQ(Boxes(), "0 Orvel Apskaita|Nėra informacijos!");
  EXPECT_EQ(w->lvwRec.ListItems().Count(), 0);
  w->cmdPrint.Click();
  EXPECT_EQ(host_.HostClasses()->LastPrintDoc(), nullptr);
}

// A stored configuration is used, its columns finding their fields without regard to case
// ("name" is Name); a malformed one gives way to the default, and says so.
TEST_F(FrmReferenceBookPreviewTest, AStoredConfigurationIsUsedAMalformedOneFallsBack) {
  const std::string bad =
      "48 Orvel Apskaita|Netinkami sąrašo stulpelių parametrai. Rodomi numatytieji stulpeliai.";
  for (const auto& [config, box, headers, journal, row] :
       {std::tuple{"Mano;9;1;1;0;1;1;#WZWname;Vardas;2;5,0;0#WZWActive;Ar;0;1,0;1", std::string(),
                   "Vardas 2500 2|Ar 500 0", "Mano", "*Grupė| "},
        {"#", bad, kDefaultHeaders, "Žinynas ", "*G1|Grupė| | "},
        {"Mano;9;1;1;0;1;1;#WZWName;V;0;platus;0", bad, kDefaultHeaders, "Žinynas ",
         "*G1|Grupė| | "}}) {
    SCOPED_TRACE(config);
    host_.Ui()->ClearBoxes();
    if (!box.empty()) host_.Ui()->QueueAnswer(vbOK);
    auto w = Open(config);
    EXPECT_EQ(Boxes(), box);
    EXPECT_EQ(w->ConfigError().empty(), box.empty());
    EXPECT_EQ(w->Config(), box.empty() ? config : kDefault);
    EXPECT_EQ(Join(Headers(*w), "|") + "|" + w->lblJournalName.Caption(),
              std::string(headers) + "|" + journal);
    EXPECT_EQ(Rows(*w)[0], row);
    EXPECT_EQ(w->lvwRec.ListItems().Count(), 5);
  }
}

TEST_F(FrmReferenceBookPreviewTest, PrintsTheWholeTable) {
  host_.User()->SetName("Jonas Jonaitis");
  auto w = Open(
      "Sąrašas;10;0;1;1;2;0;Parengė buhalterija#WZWCode;Kodas;0;2,5;0#WZWName;Pavadinimas;2;9,5;1"
      "#WZWAmount;Suma;1;2,5;2#WZWNote;Pastaba;0;4,0;999",
      "O00009001");
  w->cmdPrint.Click();
  auto doc = host_.HostClasses()->LastPrintDoc();
  ASSERT_TRUE(doc);
  EXPECT_EQ(Join(doc->Lines(), "|"),
            "Orientation 1|FontSize 10|PrintMode 1|UserName Jonas Jonaitis|DateMode 2|"
            "ExtraFlag False|Section Text|Text Bold 12 Center Sąrašas|Text Plain 0 Left  |"
            "Text Plain 10 Left Grupė|Text Plain 0 Left  |Section Table|VerticalLines True|"
            "HorizontalLines False|Column Kodas 2,5 Left|Column Pavadinimas 9,5 Center|"
            "Column Suma 2,5 Right|Row|Cell 0 Bold G2|Cell 1 Bold Pogrupis|Row|Cell 0 Plain C|"
            "Cell 1 Plain           Gama|Cell 2 Plain 0|Row|Cell 0 Plain B|Cell 1 Plain Beta|"
            "Cell 2 Plain 3|Section Text|Text Plain 0 Left  |"
            "Text Plain 0 Left Parengė buhalterija|Print False");
  EXPECT_EQ(w->lblStatus.Caption(), "");
}

TEST_F(FrmReferenceBookPreviewTest, PrintsPortraitUpTo17CentimetresLandscapeAbove) {
  for (const auto& [code, name, orientation] : {std::tuple{"8,5", "8,5", "Orientation 1"},
                                                {"0,1", "16,9", "Orientation 1"},
                                                {"8,6", "8,5", "Orientation 2"},
                                                {"27", "0,1", "Orientation 2"}}) {
    auto w = Open(std::string("T;9;1;1;0;0;1;#WZWCode;K;0;") + code + ";0#WZWName;P;0;" + name +
                  ";1#WZWNote;N;0;20,0;999");
    w->cmdPrint.Click();
    auto doc = host_.HostClasses()->LastPrintDoc();
    ASSERT_TRUE(doc);
    EXPECT_EQ(doc->Lines()[0], orientation) << code << " " << name;
    EXPECT_EQ(doc->Lines()[3], "UserName ");
    EXPECT_EQ(doc->Lines()[5], "ExtraFlag True");
  }
}

// A cancelled choice keeps the list.
TEST_F(FrmReferenceBookPreviewTest, ChoosingAGroupListsItsMembers) {
  auto w = Open();
  type_->listCalls.clear();
  w->cmdSelect.Click();
  EXPECT_EQ(w->ListArgument + " / " + Join(type_->listCalls, " ") + " / " + Join(Rows(*w), " "),
            " /  / *G1|Grupė| |  *G2|          Pogrupis| |  C|                    Gama|0|Ne "
            "B|          Beta|3|Ne A|Alfa|12,5|Taip");
  host_.HostClasses()->QueueGroupSelect("C0000900\\O00009002", "Pogrupis", "O0000900");
  w->cmdSelect.Click();
  EXPECT_EQ(w->ListArgument + " / " + w->txtGroupName.Text() + " / " +
                Join(type_->listCalls, " ") + " / " + Join(Rows(*w), " "),
            "O00009002 / Pogrupis / O00009002|| / C|Gama|0|Ne");
}

// A cancelled configuration changes nothing.
TEST_F(FrmReferenceBookPreviewTest, ChangedColumnsRebuildTheTableAndCloseAsksNothing) {
  auto w = Open();
  host_.Ui()->QueueModal(
      [](Form& form) { dynamic_cast<frmPreviewConfig&>(form).cmdCancel.Click(); });
  w->cmdConfig.Click();
  EXPECT_EQ(w->Config(), kDefault);
  EXPECT_EQ(w->lvwRec.ColumnHeaders().Count(), 4);
  host_.Ui()->QueueModal([](Form& form) {
    auto& d = dynamic_cast<frmPreviewConfig&>(form);
    d.lvwColumns_ItemCheck(d.lvwColumns.ListItems().Item(2), false);  // Pavadinimas
    d.txtJournalName.Edit("Naujas");
    d.cmdOK.Click();
  });
  w->cmdConfig.Click();
  EXPECT_EQ(w->Config(),
            "Naujas;9;1;1;0;1;1;#WZWCode;Kodas;0;2,5;0#WZWName;Pavadinimas;0;9,5;999"
            "#WZWAmount;Suma;1;2,5;1#WZWActive;Aktyvus;0;2,5;2#WZWNote;Pastaba;0;4,0;999");
  EXPECT_EQ(w->lblJournalName.Caption() + " / " + Join(Headers(*w), "|") + " / " + Rows(*w)[4],
            "Naujas / Kodas 1250 0|Suma 1250 1|Aktyvus 1250 0 / A|12,5|Taip");
  EXPECT_TRUE(w->cmdPrint.Enabled());
  // Close goes through the host without a question.
  host_.WindowManager()->ShowWindow(w);
  host_.Log().Clear();
  w->SSCClose.Click();
  EXPECT_FALSE(w->Loaded());
  EXPECT_THAT(host_.Log().Lines(Channel::Window), ElementsAre("CloseWindow O00009001"));
}

}  // namespace
}  // namespace orvel
