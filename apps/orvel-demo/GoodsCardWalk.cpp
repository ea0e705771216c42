// The goods card: a good opened from the tree, its traffic fetched by date and
// by purchase, a group price change sent as typed, and the good saved with its
// VAT line.
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
#include "testhost/FakeOrvelGrid.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/MemoryTable.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestObjectManager.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/ListItem.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"

namespace demo {
namespace {

using orvel::Variant;

constexpr const char* kGoods = "O0000200";

// Group 501 "Kanceliarija" (VAT 21) holds paper (502), kept in rests, 6.05 with VAT.
void SeedCard(orvel::TestHost& host) {
  auto& table = host.BusinessObject(kGoods)->Table();
  table.SetFields({"ID", "Name", "ParentID", "GroupFlag", "Active", "WithRest", "WithItems",
                   "OwnCode", "VAT", "PriceWithVAT", "Price", "AmountPrecision", "MeasureID",
                   "CreatedByUser", "CreationDate", "UpdatedByUser", "UpdateDate"});
  for (const char* field : {"ParentID", "VAT", "WithItems", "CreationDate", "UpdatedByUser",
                            "UpdateDate", "CreatedByUser"}) {
    table.SetDefault(field, Variant::Null());
  }
  table.SetDefault("GroupFlag", Variant(0));
  table.Seed({{{"ID", Variant(501)},
               {"Name", Variant("Kanceliarija")},
               {"GroupFlag", Variant(1)},
               {"VAT", Variant(21)}},
              {{"ID", Variant(502)},
               {"Name", Variant("Popierius A4")},
               {"ParentID", Variant(501)},
               {"WithRest", Variant(true)},
               {"PriceWithVAT", Variant(true)},
               {"Price", Variant(6.05)},
               {"AmountPrecision", Variant(0)},
               {"MeasureID", Variant(1)},
               {"CreatedByUser", Variant("Ona")}}});
  auto vat = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{"Value"});
  vat->AddRow({Variant(21)});
  host.BusinessObject(kGoods)->ReplyRead("GetVatFactor", vat);

  auto traffic = std::make_shared<orvel::MemoryRecordset>(std::vector<std::string>{
      "OIDR",      "OType",        "SaleID",      "ID",    "DocName", "Number",    "Date",
      "Addressee", "Amount",       "Measure",     "Price", "Suma",    "Comment",   "LName",
      "CODE",      "CurrencyRate", "SourcerName", "Cost",  "Sign",    "PurchDate", "PurchaseID"});
  auto line = [&](int id, const char* name, const char* date, double amount, double price, int sign,
                  int purchase, const char* bought) {
    traffic->AddRow({Variant("O0001200" + std::to_string(id)),
                     Variant(sign ? "SALE" : "PURCHASE"),
                     Variant(id),
                     Variant(id),
                     Variant(name),
                     Variant("N" + std::to_string(id)),
                     Variant(*orvel::ParseDate(date)),
                     Variant("UAB Biuras"),
                     Variant(amount),
                     Variant("pak."),
                     Variant(price),
                     Variant(amount * price),
                     Variant::Null(),
                     Variant("Centrinis"),
                     Variant("LTL"),
                     Variant::Null(),
                     Variant("UAB Biuras"),
                     Variant(amount * (sign ? 4.0 : price)),
                     Variant(sign),
                     Variant(*orvel::ParseDate(bought)),
                     Variant(purchase)});
  };
  line(1, "Pirkimas", "2026-10-01", 100, 4, 0, 1, "2026-10-01");
  line(2, "Pardavimas", "2026-10-05", 30, 6.05, 1, 1, "2026-10-01");
  line(3, "Pardavimas", "2026-11-02", 20, 6.05, 1, 1, "2026-10-01");
  host.BusinessObject(kGoods)->ReplyRead("GetTraffic", traffic);
}

template <class T>
T* Control(orvel::Form& form, const char* name) {
  return dynamic_cast<T*>(form.FindControl(name));
}

}  // namespace

int WalkGoodsCard(orvel::TestHost& host) {
  SeedCard(host);
  auto goods = host.ObjectManager()->GetOrvelObjectUI(kGoods);
  if (!goods) return 1;

  Section("O0000200: good 502 opened; its traffic waits for a double click");
  auto card = ShowFromMenu(host, *goods, "O0000200502", "0", "C");
  auto window = std::dynamic_pointer_cast<orvel::OrvelWindow>(card);
  if (!card || !window) return 1;
  auto grid = host.Ui()->Grids().back();
  auto* heading = Control<orvel::Panel>(*card, "SOPanel");
  if (!heading) return 1;
  std::cout << "  price line:" << heading->ToolTipText() << "\n";
  auto& traffic = grid->TabList("Traffic");
  PrintTable(traffic);
  traffic.SetSelectedItem(&traffic.ListItems().Item("more"));
  grid->DoubleClickList(0);
  std::cout << "  by date:\n";
  PrintTable(traffic);
  host.Ui()->QueuePopupPick("mnuByPurch");
  grid->ClickList(0, 2);
  std::cout << "  by purchase (the purchase ends with what is left of it):\n";
  PrintTable(traffic);
  const bool left = traffic.ListItems().Item(1).ListSubItems().Item(15).Text() == "200";

  Section("O0000200: a price change of group 501 by 2,5, sent as typed with a point");
  bool closed = false;
  host.Ui()->QueueModal([&](orvel::Form& dialog) {
    auto* box = Control<orvel::TextBox>(dialog, "txtPrice");
    if (!box) return;
    box->Edit("2,5");
    ClickButton(dialog, "cmdEnter");
    closed = !dialog.Loaded();
  });
  goods->ClickMenu("O0000200501", "CGroup", "9", "");
  const auto sent = host.BusinessObject(kGoods)->Calls("UpdateGoodsPrice");
  const bool changed = closed && !sent.empty() && !sent.back().array.empty() &&
                       orvel::ConcatText(sent.back().array[0]) == "501,0,2.5";
  if (changed) std::cout << "  sent: 501,0,2.5\n";

  Section("O0000200: good 502 saved at 7,26 with VAT");
  grid->EditField("Price", Variant(7.26));
  std::cout << "  price line:" << heading->ToolTipText() << "\n";
  ClickButton(*card, "cmdEnter");
  const bool saved = host.BusinessObject(kGoods)->Table().Value(502, "Price") == Variant(7.26);
  return left && changed && saved ? 0 : 1;
}

}  // namespace demo
