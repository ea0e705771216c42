// The firm's detail tabs: the lists filled on opening, a note added with a
// priority, an account opened, and the documents read for a new period.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/Variant.h"
#include "testhost/CallLog.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestObjectManager.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"
#include "orvel/Ui.h"

namespace demo {
namespace {

using orvel::Variant;
using Rows = std::vector<std::vector<Variant>>;

constexpr const char* kFirm = "O000010030";
constexpr int kRightButton = 2;

std::shared_ptr<orvel::MemoryRecordset> Set(std::vector<std::string> fields, const Rows& rows) {
  auto rs = std::make_shared<orvel::MemoryRecordset>(std::move(fields));
  for (const auto& row : rows) rs->AddRow(row);
  return rs;
}

Variant Day(int y, int m, int d) { return Variant(orvel::DateSerial(y, m, d)); }

// The notes the business layer keeps for firm 30; the write call adds to them.
struct Notes {
  Rows rows;
  int next = 1;
};

void SeedFirmDetails(orvel::TestHost& host, const std::shared_ptr<Notes>& notes) {
  auto& bo = *host.BusinessObject("O0000100");
  bo.Table().Seed({{{"ID", Variant(30)},
                    {"Name", Variant("UAB „Kauno statyba“")},
                    {"Code", Variant("135792468")},
                    {"GroupFlag", Variant(0)},
                    {"ParentID", Variant::Null()}}});
  bo.ReplyRead(
      "GetAccounts",
      Set({"OIDR", "Number", "BankName"},
          {{Variant("O00005005"), Variant("LT12 7300 0101 2345 6789"), Variant("Swedbank")}}));
  bo.ReplyRead("GetFirmADDRESSES",
               Set({"OIDR", "AddressType", "Region", "PostCode", "Street", "Phone", "Fax", "EMail",
                    "FlagMain"},
                   {{Variant("O00020001"), Variant("Buveinės"), Variant("Kaunas"),
                     Variant("LT-44280"), Variant("Laisvės al. 10"), Variant("+370 37 200100"),
                     Variant::Null(), Variant("info@statyba.lt"), Variant(true)}}));
  bo.ReplyRead(
      "GetFirmCONTACTS",
      Set({"OIDR", "Name", "LastName", "Role", "Phone", "Fax", "EMail", "Note", "FlagMain"},
          {{Variant("O00021001"), Variant("Asta"), Variant("Kazlauskienė"), Variant("Direktorė"),
            Variant("+370 612 34567"), Variant::Null(), Variant::Null(), Variant::Null(),
            Variant(true)}}));
  bo.ReplyRead("GetFirmSERVERS",
               Set({"OIDR", "Name"}, {{Variant("O00024001"), Variant("Rūta Buhalterė")}}));
  bo.ReplyRead("GetFirmActivity",
               Set({"OIDR", "Preview"}, {{Variant("O00025001"), Variant("Statybos darbai")}}));
  bo.ReplyRead(
      "GetDiscounts",
      Set({"OIDR", "DiscountTypeName", "VariantName", "SumFrom", "SumTo", "Percent", "GoodName",
           "Valid", "FirmName"},
          {{Variant("O10006001"), Variant("Sezoninė"), Variant("Vasara"), Variant(100), Variant(0),
            Variant(2.5), Variant("Statybinės medžiagos"), Variant(false), Variant("Tiekėjai")}}));
  bo.OnRead("GetTraffic", [](const std::string&) {
    auto rs = Set({"OIDR", "OType", "DocName", "Number", "Date", "Suma", "Debt", "Sign", "GID"},
                  {{Variant("O10001007"), Variant("O1000100"), Variant("PVM sąskaita faktūra"),
                    Variant("PSF00007"), Day(2026, 7, 2), Variant(1210.0), Variant(605.0),
                    Variant(1), Variant(1)},
                   {Variant("O10002003"), Variant("O1000200"), Variant("Pirkimo sąskaita"),
                    Variant("PIR00003"), Day(2026, 9, 14), Variant(300.0), Variant(-300.0),
                    Variant(-1), Variant(2)}});
    return orvel::OrvelBoResult{0, "", rs};
  });
  bo.OnRead("GetFirmInfo", [notes](const std::string&) {
    auto rs = Set({"ID", "Info", "DateFrom", "DateTo", "UserName", "Priority"}, notes->rows);
    return orvel::OrvelBoResult{0, "", rs};
  });
  // <ID>,'<text>','<from>',<to>,<firm>,<user>,<priority>: a new note goes first.
  bo.OnAction("AddUpdateFirmInfo", [notes](const std::string& param, Variant::Array&) {
    const auto open = param.find('\'');
    const auto close = param.find("','");
    const std::string text = param.substr(open + 1, close - open - 1);
    const int priority = param.back() - '0';
    notes->rows.insert(notes->rows.begin(),
                       {Variant(notes->next++), Variant(text), Day(2026, 11, 23), Variant::Null(),
                        Variant("Jonas Jonaitis"), Variant(priority)});
    return orvel::OrvelStatus{};
  });
  auto& accounts = host.BusinessObject("O0000500")->Table();
  accounts.SetFields({"ID", "Name", "BankID", "FOIDR"});
  accounts.Seed({{{"ID", Variant(5)},
                  {"Name", Variant("LT12 7300 0101 2345 6789")},
                  {"BankID", Variant(1)},
                  {"FOIDR", Variant(kFirm)}}});
  // The host's period: the whole year, then its second half.
  host.ObjectManager()->ReplyToCall(
      "GetOldPeriod", {0, "",
                       Variant(Variant::Array{Day(2026, 1, 1), Day(2026, 12, 31), Variant(0),
                                              Variant(true), Variant(0)})});
  host.ObjectManager()->ReplyToCall(
      "GetNewPeriod", {0, "",
                       Variant(Variant::Array{Day(2026, 7, 1), Day(2026, 12, 31), Variant(0),
                                              Variant(true), Variant(0)})});
}

int TabIndex(orvel::FakeOrvelGrid& grid, const std::string& key) {
  for (size_t i = 0; i < grid.Tabs().size(); ++i) {
    if (grid.Tabs()[i].key == key) return static_cast<int>(i);
  }
  return -1;
}

void PrintTab(orvel::FakeOrvelGrid& grid, const std::string& key) {
  std::cout << "  [" << key << "]\n";
  PrintTable(grid.TabList(key));
}

void PrintInfoLine(orvel::Form& card) {
  auto* line = dynamic_cast<orvel::Label*>(card.FindControl("lblInfo"));
  if (!line) return;
  std::cout << "  lblInfo: "
            << (line->Visible() ? "\"" + line->Caption() + "\"" : std::string("(hidden)"))
            << (line->Visible() && line->ForeColor() == 0x0000FF ? " (red)" : "") << "\n";
}

}  // namespace

int WalkFirmDetails(orvel::TestHost& host) {
  auto notes = std::make_shared<Notes>();
  SeedFirmDetails(host, notes);
  auto firms = host.ObjectManager()->GetOrvelObjectUI("O0000100");
  if (!firms) return 1;

  Section("O0000100: firm 30 opens with its detail tabs filled");
  auto card = ShowFromMenu(host, *firms, kFirm, "0");
  if (!card) return 1;
  auto grid = host.Ui()->Grids().back();
  for (const char* tab : {"Traffic", "Accounts", "FirmAddresses", "FirmContacts", "FirmServers",
                          "FirmActivity", "Discounts"}) {
    PrintTab(*grid, tab);
  }
  PrintInfoLine(*card);

  Section("O0000100: a double click on the placeholder reads the documents of the period");
  const int traffic = TabIndex(*grid, "Traffic");
  auto& documents = grid->TabList("Traffic");
  documents.SetSelectedItem(&documents.ListItems().Item(1));
  grid->DoubleClickList(traffic);
  PrintTab(*grid, "Traffic");
  const bool readDocuments = documents.ListItems().Count() == 3;

  Section("O0000100: the period changes to the second half of the year");
  host.Ui()->QueuePopupPick("mnuPreview");
  grid->ClickList(traffic, kRightButton);
  PrintTab(*grid, "Traffic");

  Section("O0000100: a note added with the warning priority");
  host.Ui()->QueueModal([](orvel::Form& dialog) {
    auto* text = dynamic_cast<orvel::TextBox*>(dialog.FindControl("txtInfo"));
    auto* priority = dynamic_cast<orvel::ImageCombo*>(dialog.FindControl("imcPriority"));
    if (!text || !priority) return;
    text->Edit("Reikalauti išankstinio apmokėjimo");
    priority->Pick(priority->ComboItems().Item(3));
    ClickButton(dialog, "cmdWrite");
  });
  auto* infoMenu = dynamic_cast<orvel::Menu*>(card->FindControl("mnuFirmInfo"));
  auto* timer = dynamic_cast<orvel::Timer*>(card->FindControl("timerModal"));
  if (!infoMenu || !timer || !infoMenu->Find("mnuFirmInfoAdd")) return 1;
  infoMenu->Find("mnuFirmInfoAdd")->Click();
  timer->Tick();
  PrintTab(*grid, "FirmInfo");
  PrintInfoLine(*card);
  const bool noted = grid->TabList("FirmInfo").ListItems().Count() == 1;

  Section("O0000100: the settlement account opened from its list");
  std::string caption;
  host.Ui()->QueueModal([&caption](orvel::Form& dialog) {
    caption = dialog.Caption();
    ClickButton(dialog, "cmdEnter");
  });
  auto& accounts = grid->TabList("Accounts");
  accounts.SetSelectedItem(&accounts.ListItems().Item(1));
  grid->DoubleClickList(TabIndex(*grid, "Accounts"));
  std::cout << "  dialog: \"" << caption << "\"\n";

  const bool ok =
      readDocuments && noted && caption == "UAB „Kauno statyba“: Atsiskaitomoji sąskaita";
  return ok ? 0 : 1;
}

}  // namespace demo
