// The first roads: a small catalogue, the bank card and the firm tree.
#include <iostream>
#include <memory>
#include <string>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Variant.h"
#include "testhost/CallLog.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "hostkit/TextDragData.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"
#include "ui/Button.h"
#include "ui/ListView.h"

namespace demo {
namespace {

using orvel::Variant;

void SeedMeasures(orvel::TestHost& host) {
  auto& table = host.BusinessObject("O0000400")->Table();
  table.SetFields({"ID", "Name", "Code"});
  table.Seed({
      {{"Name", Variant("vienetas")}, {"Code", Variant("vnt.")}},
      {{"Name", Variant("kilogramas")}, {"Code", Variant("kg")}},
      {{"Name", Variant("metras")}, {"Code", Variant("m")}},
  });
}

void SeedBanks(orvel::TestHost& host) {
  auto& table = host.BusinessObject("O0000300")->Table();
  table.SetFields({"ID", "Name", "Code", "SWIFT"});
  table.Seed({
      {{"Name", Variant("AB SEB bankas")},
       {"Code", Variant("70440")},
       {"SWIFT", Variant("CBVILT2X")}},
      {{"ID", Variant(5)},
       {"Name", Variant("Šiaulių bankas")},
       {"Code", Variant("71800")},
       {"SWIFT", Variant("CBSBLT26")}},
  });
  auto firms =
      std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"OIDR", "Preview"});
  firms->AddRow({Variant("O00001007"), Variant("UAB „Medienos centras“")});
  firms->AddRow({Variant("O00001012"), Variant("AB „Šiaulių duona“")});
  host.BusinessObject("O0000300")->ReplyRead("GetFirms", firms);
}

void SeedFirms(orvel::TestHost& host) {
  auto& table = host.BusinessObject("O0000100")->Table();
  table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "OwnCode",
                   "CreatedByUser", "CreationDate", "UpdatedByUser", "UpdateDate"});
  table.SetDefault("GroupFlag", Variant(0));
  for (const char* field : {"ParentID", "CreationDate", "UpdatedByUser", "UpdateDate"}) {
    table.SetDefault(field, Variant::Null());
  }
  table.Seed({
      {{"Name", Variant("Tiekėjai")}, {"GroupFlag", Variant(1)}, {"OwnCode", Variant("001")}},
      {{"Name", Variant("UAB „Medienos centras“")},
       {"Code", Variant("302245871")},
       {"ParentID", Variant(1)}},
      {{"Name", Variant("AB „Šiaulių duona“")}, {"Code", Variant("144523896")}},
  });
}

}  // namespace

int WalkMeasures(orvel::TestHost& host) {
  SeedMeasures(host);
  auto adapter = host.ObjectManager()->GetOrvelObjectUI("O0000400");
  if (!adapter) {
    std::cout << "The module gave no adapter for O0000400\n";
    return 1;
  }

  Section("O0000400 " + adapter->OName() + ": the list");
  PrintList(adapter->GetOrvelObjectList("O0000400", "", ""));

  Section("O0000400: read, edit and save O00004002");
  auto object = adapter->GetOrvelObject("O00004002");
  if (!object) return 1;
  std::cout << "  Preview: " << object->Preview() << "\n";
  object->Fields("Name").SetValue(Variant("kilogramai"));
  auto status = object->Save(nullptr, nullptr);
  std::cout << "  Save: " << status.Number << ", Preview: " << object->Preview() << "\n";

  Section("O0000400: a new record");
  auto fresh = adapter->GetOrvelObject("");
  if (!fresh) return 1;
  fresh->Fields("Name").SetValue(Variant("litras"));
  fresh->Fields("Code").SetValue(Variant("l"));
  status = fresh->Save(nullptr, nullptr);
  std::cout << "  Save: " << status.Number << ", OIDR: " << fresh->OIDR() << "\n";

  Section("O0000400: a record that does not exist");
  bool found = adapter->GetOrvelObject("O00004009") != nullptr;
  std::cout << "  GetOrvelObject: " << (found ? "an object" : "Nothing") << "\n";
  return status.Number == 0 ? 0 : 1;
}

int WalkBank(orvel::TestHost& host) {
  SeedBanks(host);
  auto banks = host.ObjectManager()->GetOrvelObjectUI("O0000300");
  if (!banks) return 1;

  Section("O0000300 Bankai: the menus of the root and of bank 5");
  PrintMenu("O0000300", banks->GetMenu("O0000300", "", ""));
  PrintMenu("O00003005", banks->GetMenu("O00003005", "C", ""));

  Section("O0000300: menu 0 on bank 5 opens its card");
  auto result = banks->ClickMenu("O00003005", "C", "0", "");
  auto window = result.Value.ObjectAs<orvel::OrvelWindow>();
  if (result.Action != orvel::OrvelMenuResult::kShowWindow || !window) return 1;
  host.WindowManager()->ShowWindow(window);
  auto grid = host.Ui()->Grids().back();
  std::cout << "  firms of bank 5:\n";
  auto& firms = grid->TabList("Firms");
  for (int i = 1; i <= firms.ListItems().Count(); ++i) {
    auto& row = firms.ListItems().Item(i);
    std::cout << "    " << row.Key() << " " << row.Text() << "\n";
  }

  Section("O0000300: change the SWIFT code and write");
  grid->EditField("SWIFT", Variant("CBSBLT26XXX"));
  auto form = std::dynamic_pointer_cast<orvel::Form>(window);
  auto* write = form ? dynamic_cast<orvel::Button*>(form->FindControl("cmdEnter")) : nullptr;
  if (!write) return 1;
  write->Click();

  Section("O0000300: close the card");
  if (auto* close = dynamic_cast<orvel::Button*>(form->FindControl("SSCClose"))) close->Click();
  return host.WindowManager()->IsOpen("O00003005") ? 1 : 0;
}

int WalkFirms(orvel::TestHost& host) {
  SeedFirms(host);
  auto firms = host.ObjectManager()->GetOrvelObjectUI("O0000100");
  if (!firms) return 1;

  Section("O0000100 Įmonės: the menus of the root and of group 1");
  PrintMenu("O0000100", firms->GetMenu("O0000100", "", ""));
  PrintMenu("O00001001", firms->GetMenu("O00001001", "CGroup", ""));

  Section("O0000100: a new firm under group 1");
  auto card = ShowFromMenu(host, *firms, "O00001001", "1");
  if (!card) return 1;
  host.Ui()->Grids().back()->EditField("Name", Variant("UAB „Naujas tiekėjas“"));
  ClickButton(*card, "cmdEnter");

  Section("O0000100: drag firm 3 into group 1");
  auto group = ShowFromMenu(host, *firms, "O00001001", "0");
  if (!group) return 1;
  host.Ui()->Grids().back()->ListDragDrop(std::make_shared<orvel::TextDragData>("O00001003"));
  return 0;
}

}  // namespace demo
