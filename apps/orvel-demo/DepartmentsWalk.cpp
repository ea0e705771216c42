// Departments and destinations: a department linked to a firm branch and
// written; a destination whose inherited template cannot be deleted, and a
// template added to it through the template dialog.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelResult.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/ListItem.h"
#include "ui/ListItems.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

namespace demo {
namespace {

using orvel::Variant;

constexpr const char* kDepartments = "O0001604";
constexpr const char* kDestinations = "O0001615";
constexpr int kRightButton = 2;

std::shared_ptr<orvel::MemoryRecordset> Branches() {
  auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"ID", "Preview"});
  rs->AddRow({Variant(11), Variant("UAB „Medis“, Kauno filialas")});
  rs->AddRow({Variant(12), Variant("UAB „Medis“, Vilniaus filialas")});
  rs->MoveFirst();
  return rs;
}

void SeedDepartments(orvel::TestHost& host) {
  auto bo = host.BusinessObject(kDepartments);
  auto& table = bo->Table();
  table.SetFields({"ID", "Code", "Name", "ParentID", "GroupFlag", "FirmBranchID"});
  table.SetDefault("ParentID", Variant(0));
  table.SetDefault("GroupFlag", Variant(0));
  table.SetDefault("FirmBranchID", Variant::Null());
  table.Seed({{{"Name", Variant("Administracija")}, {"GroupFlag", Variant(1)}},
              {{"Name", Variant("Buhalterija")}, {"ParentID", Variant(1)}}});
  bo->ReplyRead("DO0001604_GetFirmBranches", Branches());
  host.ObjectManager()->OnCall("OrvelGroupSelect", [](const std::string&) {
    auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"ID", "Preview"});
    rs->AddRow({Variant(12), Variant("UAB „Medis“, Vilniaus filialas")});
    rs->MoveFirst();
    return orvel::OrvelResult{0, "", Variant(rs)};
  });
}

// The destinations' templates: the group's sales template, inherited, and
// whatever the walk adds.
struct TemplateStore {
  std::vector<std::vector<Variant>> own;
};

std::shared_ptr<orvel::MemoryRecordset> TemplateRows(const TemplateStore& store) {
  auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{
      "TemplateTypeOIDR", "TemplateTypeName", "ID", "ID2", "BRTemplateName", "BRTemplateOIDR",
      "DocumentGroupName", "DocumentGroupOIDR"});
  if (store.own.empty()) {
    rs->AddRow({Variant("O02015001"), Variant("Pardavimo šablonas"), Variant::Null(), Variant(1),
                Variant("Prekių pardavimas"), Variant("O02016001"), Variant("Sąskaitos faktūros"),
                Variant("O10002001")});
  }
  for (const auto& row : store.own) rs->AddRow(row);
  rs->MoveFirst();
  return rs;
}

void SeedDestinations(orvel::TestHost& host, const std::shared_ptr<TemplateStore>& store) {
  auto bo = host.BusinessObject(kDestinations);
  auto& table = bo->Table();
  table.SetFields({"ID", "Code", "Name", "ParentID", "GroupFlag"});
  table.SetDefault("ParentID", Variant(0));
  table.SetDefault("GroupFlag", Variant(0));
  table.Seed({{{"Name", Variant("Pardavimai")}, {"GroupFlag", Variant(1)}},
              {{"Name", Variant("Didmeninė prekyba")}, {"ParentID", Variant(1)}}});
  ReplyStructure(host, {{"ID", "ID", 4, 56, 0}, {"Name", "Pavadinimas", 100, 167, 1}});
  bo->OnRead("GetBRTemplates", [store](const std::string&) {
    return orvel::OrvelBoResult(0, "", TemplateRows(*store));
  });
  bo->OnAction("SaveUpdateDeleteTemplates", [store](const std::string& param, Variant::Array&) {
    std::cout << "  SaveUpdateDeleteTemplates " << param << "\n";
    if (param != "'O00016152','O02015001','O02016002','',0") {
      return orvel::OrvelStatus{777, "Netikėti parametrai: " + param};
    }
    // The record's own sales template, which replaces the inherited one.
    store->own.push_back({Variant("O02015001"), Variant("Pardavimo šablonas"), Variant(8),
                          Variant(8), Variant("Paslaugų pardavimas"), Variant("O02016002"),
                          Variant::Null(), Variant("")});
    return orvel::OrvelStatus{};
  });
}

template <class T>
T* Find(orvel::Form& form, const char* name) {
  return dynamic_cast<T*>(form.FindControl(name));
}

}  // namespace

int WalkDepartments(orvel::TestHost& host) {
  SeedDepartments(host);
  auto store = std::make_shared<TemplateStore>();
  SeedDestinations(host, store);
  auto departments = host.ObjectManager()->GetOrvelObjectUI(kDepartments);
  auto destinations = host.ObjectManager()->GetOrvelObjectUI(kDestinations);
  if (!departments || !destinations) {
    std::cout << "The module gave no adapter for departments or destinations\n";
    return 1;
  }

  Section("O0001604 Įmonės padaliniai: the department's card, linked to a branch");
  departments->GetMenu("O00016042", "T", "");
  auto card = ShowFromMenu(host, *departments, "O00016042", "0", "T");
  if (!card) return 1;
  if (!ClickButton(*card, "cmdFirmBranches") || !ClickButton(*card, "cmdWrite")) return 1;
  auto* branch = Find<orvel::TextBox>(*card, "txtFirmBranch");
  Variant stored = host.BusinessObject(kDepartments)->Table().Value(2, "FirmBranchID");
  std::cout << "  branch: " << (branch ? branch->Text() : "?")
            << ", stored FirmBranchID: " << orvel::ConcatText(stored) << "\n";
  ClickButton(*card, "SSCClose");
  if (stored.IsNull() || orvel::CLng(stored) != 12) return 1;

  Section("O0001615 Tikslai: the destination's templates, one inherited from its group");
  destinations->GetMenu("O00016152", "T", "");
  auto destination = ShowFromMenu(host, *destinations, "O00016152", "0", "T");
  if (!destination) return 1;
  auto grid = host.Ui()->Grids().back();
  auto& list = grid->TabList("BRTemplates");
  PrintTable(list);

  Section("O0001615: the inherited row offers no deletion");
  list.ListItems().Item(1).SetSelected(true);
  host.Ui()->QueuePopupPick("mnuTemplateDelete");
  grid->ListMouseUp("BRTemplates", 0, kRightButton);
  const bool refused = host.Ui()->Popups().back().picked.empty();
  host.Ui()->ClearAnswers();
  std::cout << "  delete " << (refused ? "not offered" : "offered!") << "\n";
  if (!refused) return 1;

  Section("O0001615: a template of its own added through the template dialog");
  bool written = false;
  host.Ui()->QueueModal([&](orvel::Form& dialog) {
    host.HostClasses()->QueueGroupSelect("O0201600O02016002", "Paslaugų pardavimas", "C");
    written = ClickButton(dialog, "cmdTemplate") && ClickButton(dialog, "cmdEnter");
  });
  list.ListItems().Item(1).SetSelected(true);
  host.Ui()->QueuePopupPick("mnuTemplateNew");
  grid->ListMouseUp("BRTemplates", 0, kRightButton);
  PrintTable(grid->TabList("BRTemplates"));
  ClickButton(*destination, "SSCClose");
  return written && store->own.size() == 1 ? 0 : 1;
}

}  // namespace demo
