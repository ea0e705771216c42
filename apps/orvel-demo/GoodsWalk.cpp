// The goods tree: menus by kind, a new good with its structured code, and the
// business calls other modules make on a good.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "DemoSupport.h"
#include "Walks.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Variant.h"
#include "testhost/CallLog.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/MemoryTable.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestSession.h"
#include "testhost/TestWindowManager.h"
#include "ui/Panel.h"

namespace demo {
namespace {

using orvel::Variant;

constexpr const char* kGoods = "O0000200";

int32_t ParentOf(const Variant& value) {
  return value.IsNull() || value.IsEmpty() ? 0 : orvel::CLng(value);
}

// Group 1 "Maisto prekės" (code 12) holds a delivery service 1206, bread 1207
// and subgroup 1208 "Pieno produktai".
void SeedGoods(orvel::TestHost& host) {
  auto bo = host.BusinessObject(kGoods);
  auto& table = bo->Table();
  table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "WithRest", "WithItems",
                   "OwnCode", "PreviewPath", "VAT", "PriceWithVAT", "Price", "AmountPrecision",
                   "MeasureID"});
  for (const char* field : {"ParentID", "VAT", "PriceWithVAT", "Price", "AmountPrecision",
                            "MeasureID", "WithItems", "PreviewPath"}) {
    table.SetDefault(field, Variant::Null());
  }
  table.SetDefault("GroupFlag", Variant(0));
  table.Seed({
      {{"Name", Variant("Maisto prekės")},
       {"Code", Variant("12")},
       {"GroupFlag", Variant(1)},
       {"OwnCode", Variant("12")},
       {"VAT", Variant(21)}},
      {{"Name", Variant("Ruginė duona")},
       {"Code", Variant("1207")},
       {"ParentID", Variant(1)},
       {"WithRest", Variant(true)},
       {"Price", Variant(1.85)},
       {"PreviewPath", Variant("Maisto prekės\\")}},
      {{"Name", Variant("Pieno produktai")},
       {"Code", Variant("1208")},
       {"GroupFlag", Variant(1)},
       {"ParentID", Variant(1)},
       {"OwnCode", Variant("12.1208")}},
      {{"Name", Variant("Pristatymo paslauga")},
       {"Code", Variant("1206")},
       {"ParentID", Variant(1)},
       {"WithRest", Variant(false)}},
  });

  // Measure 1, which a new good takes; it allows fractions.
  auto& measures = host.BusinessObject("O0001606")->Table();
  measures.SetFields({"ID", "Name", "MeasureType"});
  measures.Seed({{{"ID", Variant(1)}, {"Name", Variant("kg")}, {"MeasureType", Variant(0)}}});

  // Structured codes are on in this database.
  auto settings = std::make_shared<orvel::MemoryRecordset>(
      std::vector<std::string>{"StructuredCode", "PriceWithVAT"});
  settings->AddRow({Variant(true), Variant(true)});
  settings->MoveFirst();
  host.Session()->SetSettingObject("O00018021", settings);

  // The business layer's answer: the parent's code and the highest code
  // under it, worked out from the table. The handlers keep the table by
  // address: the business object owns them, so a shared pointer to it would
  // keep it alive forever.
  orvel::MemoryTable* stored = &table;
  bo->OnRead("GetStructuredCode", [stored](const std::string& param) {
    auto& goods = *stored;
    const auto parent = static_cast<int32_t>(orvel::Val(param));
    Variant parentCode = parent == 0 ? Variant::Null() : goods.Value(parent, "Code");
    Variant maxCode = Variant::Null();
    for (int32_t id : goods.Ids()) {
      if (ParentOf(goods.Value(id, "ParentID")) != parent) continue;
      std::string code = orvel::ConcatText(goods.Value(id, "Code"));
      if (maxCode.IsNull() || code > maxCode.String()) maxCode = Variant(code);
    }
    auto rs =
        std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"PARENTCODE", "MAXCODE"});
    rs->AddRow({parentCode, maxCode});
    return orvel::OrvelBoResult(0, "", rs);
  });
  bo->OnRead("CopyGood", [stored](const std::string&) {
    auto copy = stored->Seed({{{"Name", Variant("Ruginė duona (kopija)")},
                               {"ParentID", Variant(1)},
                               {"WithRest", Variant(true)}}});
    auto rs = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"OIDR"});
    rs->AddRow({Variant(copy.front())});
    return orvel::OrvelBoResult(0, "", rs);
  });
  bo->OnAction("UpdateGoodsPrice", [](const std::string&, Variant::Array&) {
    return orvel::OrvelStatus{0, ""};
  });
  bo->OnAction("UpdateGaranty", [](const std::string&, Variant::Array&) {
    return orvel::OrvelStatus{16, "Garantija jau nurodyta"};
  });
}

void PrintTabs(orvel::FakeOrvelGrid& grid) {
  std::cout << "  tabs:";
  for (const auto& tab : grid.Tabs()) std::cout << " " << tab.key;
  std::cout << "\n";
}

std::string Heading(orvel::Form& form) {
  auto* panel = dynamic_cast<orvel::Panel*>(form.FindControl("SOPanel"));
  return panel ? panel->Caption() : std::string();
}

}  // namespace

int WalkGoods(orvel::TestHost& host) {
  SeedGoods(host);
  auto goods = host.ObjectManager()->GetOrvelObjectUI(kGoods);
  if (!goods) return 1;

  Section("O0000200 " + goods->OName() + ": the menus of the root, group 1 and good 2");
  PrintMenu(kGoods, goods->GetMenu(kGoods, "", ""));
  PrintMenu("O00002001", goods->GetMenu("O00002001", "CGroup", ""));
  PrintMenu("O00002002", goods->GetMenu("O00002002", "C", ""));

  Section("O0000200: the list of group 1 with the user's list settings");
  PrintList(goods->GetOrvelObjectList("O00002001", "", ""));

  Section("O0000200: a new good under group 1 gets the next structured code");
  auto card = ShowFromMenu(host, *goods, "O00002001", "1", "CGroup");
  auto window = std::dynamic_pointer_cast<orvel::OrvelWindow>(card);
  if (!card || !window) return 1;
  auto fresh = window->OrvelObjectUIO();
  auto grid = host.Ui()->Grids().back();
  std::cout << "  heading: " << Heading(*card) << "\n";
  std::cout << "  proposed code: " << orvel::ConcatText(fresh->Fields("Code").Value())
            << ", VAT from the group: " << orvel::ConcatText(fresh->Fields("VAT").Value()) << "\n";
  PrintTabs(*grid);
  const bool proposed = orvel::ConcatText(fresh->Fields("Code").Value()) == "1209";
  grid->EditField("Name", Variant("Kvietinė duona"));
  ClickButton(*card, "cmdEnter");
  std::cout << "  saved as " << fresh->OIDR() << ", heading: " << Heading(*card) << "\n";

  Section("O0000200: a new top-level group continues the top series");
  auto group = ShowFromMenu(host, *goods, kGoods, "2");
  auto groupWindow = std::dynamic_pointer_cast<orvel::OrvelWindow>(group);
  if (!groupWindow) return 1;
  std::cout << "  proposed code: "
            << orvel::ConcatText(groupWindow->OrvelObjectUIO()->Fields("Code").Value()) << "\n";

  Section("O0000200: the business calls of good 2");
  auto bread = goods->GetOrvelObject("O00002002");
  if (!bread) return 1;
  for (const char* property : {"Rests", "Prices", "Measures"}) bread->Properties(property, "");
  bread->Properties("FindGoods", "duon");
  Variant::Array price{Variant("'O00002001',5,1")};
  auto priced = bread->Methods("UpdateGoodsPrice", price);
  Variant::Array guarantee{Variant("'O00002001',24")};
  auto guaranteed = bread->Methods("UpdateGaranty", guarantee);
  const auto& status = guaranteed.Value.ArrayValue();
  std::cout << "  UpdateGoodsPrice: " << priced.Number
            << ", UpdateGaranty: " << orvel::LogText(status.at(0)) << " "
            << orvel::LogText(status.at(1)) << "\n";

  Section("O0000200: copy good 2 from its menu");
  auto copy = goods->ClickMenu("O00002002", "C", "4", "");
  std::cout << "  action " << copy.Action << "\n";

  for (auto& form : {card, group}) ClickButton(*form, "SSCClose");
  return proposed ? 0 : 1;
}

}  // namespace demo
