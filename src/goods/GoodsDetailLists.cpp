// The detail lists under the goods card: traffic, rests, measures, prices,
// minimum amounts, serial numbers, discounts, templates and a group's goods,
// and the printing of the traffic tab.
#include <memory>
#include <string>
#include <vector>

#include "common/Boundary.h"
#include "common/BusyPointer.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "goods/frmGoods.h"
#include "host/Convert.h"
#include "orvel/IconsTable.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelMainForm.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelPrintColumns.h"
#include "orvel/OrvelPrintDoc.h"
#include "orvel/OrvelPrintRow.h"
#include "orvel/OrvelPrintRows.h"
#include "orvel/OrvelPrintSection.h"
#include "orvel/OrvelPrintSections.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ColumnHeader.h"
#include "ui/ListItem.h"
#include "ui/ListSubItem.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kMoreKey = "more";
constexpr const char* kMoreText = "Atnaujinkite... ";
constexpr const char* kSummaryKey = "O0000000";
constexpr const char* kBlank = " ";
// The literal base currency of the traffic list.
constexpr const char* kBaseCurrency = "LTL";
constexpr const char* kPriceMask = "#0.00######";
constexpr const char* kSumMask = "#0.00";
// Twips in a centimetre; columns this narrow or narrower stay off the paper.
constexpr double kTwipsPerCm = 567;
constexpr double kNarrowestPrinted = 0.9;
// The rate a group's list takes for a good without its own.
constexpr int kGroupListVat = 18;

struct ColumnSpec {
  const char* caption;
  int width;
  bool right;
};

// Runs `body`, ignoring a run-time failure: the legacy list code did so
// for the steps it marked.
template <class F>
void Quietly(F&& body) {
  try {
    body();
  } catch (const RuntimeError&) {
  }
}

std::shared_ptr<Object> CatalogueIcons() {
  auto mainForm = std::dynamic_pointer_cast<OrvelMainForm>(Services().MainForm());
  return mainForm ? mainForm->ImgCatalogue() : nullptr;
}

void AddColumns(ListView& list, const std::vector<ColumnSpec>& columns) {
  for (const auto& c : columns) {
    list.ColumnHeaders().Add(0, "", c.caption, c.width, c.right ? lvwColumnRight : lvwColumnLeft);
  }
}

// First call: the columns. Later calls: the rows go, the columns stay.
// Whether this was the first call.
bool PrepareList(ListView& list, const std::vector<ColumnSpec>& columns) {
  if (list.ColumnHeaders().Count() == 0) {
    AddColumns(list, columns);
    return true;
  }
  list.ListItems().Clear();
  return false;
}

std::string Text(Recordset& rs, const char* field) { return ConcatText(rs.Fields(field).Value()); }

std::string Formatted(Recordset& rs, const char* field, const char* mask) {
  return Format(rs.Fields(field).Value(), mask);
}

void Add(ListItem& row, std::string text, bool bold = false) {
  ListSubItem& cell = row.ListSubItems().Add(0, "", std::move(text));
  if (bold) cell.SetBold(true);
}

void AddBlanks(ListItem& row, int count) {
  for (int i = 0; i < count; ++i) Add(row, kBlank);
}

std::shared_ptr<Recordset> RecordsOf(const OrvelResult& reply) {
  if (reply.Number != 0) return nullptr;
  return reply.Value.ObjectAs<Recordset>();
}

bool Walkable(const std::shared_ptr<Recordset>& rs) { return rs && !rs->IsEOF(); }

}  // namespace

// ---- traffic ----

std::string frmGoods::TrafficParams() {
  Date from{};
  Date to = DateSerial(9999, 12, 31);
  bool useDates = false;
  int daysBack = 0;
  if (Period.IsArray() && Period.ArrayValue().size() >= 4) {
    const auto& parts = Period.ArrayValue();
    Quietly([&] {
      useDates = CBool(parts[3]);
      if (useDates) {
        from = CDate(parts[0]);
        to = CDate(parts[1]);
      } else {
        daysBack = CInt(parts[2]);
      }
    });
  }
  if (!useDates) from = Date{Platform::Ui().Today().serial - daysBack};
  return "'" + OIDR() + "','" + FormatDate(from) + "','" + FormatDate(to) + "'";
}

void frmGoods::AddMoreRow(ListView& list, int blanks) {
  ListItem& more = list.ListItems().Add(0, kMoreKey, kMoreText, kMoreKey);
  AddBlanks(more, blanks);
}

void frmGoods::BuildTrafficColumns() {
  ListView& list = List(TrafficTab);
  std::vector<ColumnSpec> columns{{"Dok. grupė", 1000, false}, {"Dok. Nr.", 1000, false},
                                  {"Data", 1200, false},       {"Tiekėjas/Gavėjas", 2000, false},
                                  {"Kiekis", 1000, true},      {"M.vnt.", 700, false},
                                  {"Kaina", 1000, true},       {"Suma", 1000, true},
                                  {"Komentaras", 2000, false}};
  if (WithRest) columns.push_back({"Sandėlis", 2000, false});
  for (const ColumnSpec& c : std::vector<ColumnSpec>{{"Valiuta", 700, false},
                                                     {"Kursas", 1000, true},
                                                     {"Kaina val.", 1000, true},
                                                     {"Suma val.", 1000, true},
                                                     {"Prekės tiekėjas", 2000, false}}) {
    columns.push_back(c);
  }
  columns.push_back({WithRest ? "Lik.Suma/Savikaina" : "", 2000, true});
  if (PrepareList(list, columns)) {
    list.SetSmallIcons(CatalogueIcons());
    AddMoreRow(list, WithRest ? 14 : 13);
  }
}

void frmGoods::LoadTraffic(bool reload) {
  Handle(MsgTitle, [&] {
    if (!HasList(TrafficTab)) return;
    BuildTrafficColumns();
    BusyPointer busy;
    if (reload) {
      TrafficRs.reset();
      TrafficRs = RecordsOf(Uio().Properties("Traffic", TrafficParams()));
    }
    if (!TrafficRs) return;
    if (mnuByPurch.Checked()) {
      TrafficRs->SetSort("PurchDate,PurchaseID,Sign,Date,ID,Number");
      TrafficRs->SetFilter(Variant("PurchaseID>0"));
    } else {
      TrafficRs->SetSort("Date DESC,ID,Number");
    }
    AddTrafficRows(List(TrafficTab));
  });
}

void frmGoods::AddTrafficRows(ListView& list) {
  Recordset& rs = *TrafficRs;
  Fields& f = rs.Fields();
  Field& oidr = f.Item("OIDR");
  Field& docName = f.Item("DocName");
  Field& amount = f.Item("Amount");
  Field& measure = f.Item("Measure");
  Field& saleId = f.Item("SaleID");
  Field& sign = f.Item("Sign");
  Field& otype = f.Item("OType");
  Field& rate = f.Item("CurrencyRate");
  Field& code = f.Item("CODE");
  Field& price = f.Item("Price");
  Field& sum = f.Item("Suma");
  Field& cost = f.Item("Cost");
  const bool byPurchase = mnuByPurch.Checked();
  auto& rows = list.ListItems();
  ListItem* purchase = nullptr;
  for (; !rs.IsEOF(); rs.MoveNext()) {
    const Variant rowOidr = oidr.Value();
    if (ConcatText(rowOidr) == kSummaryKey) {
      if (!WithRest) continue;
      ListItem& total = rows.Add(0, kSummaryKey, "");
      total.SetBold(true);
      AddBlanks(total, 2);
      Add(total, ConcatText(docName.Value()), true);
      Add(total, ConcatText(amount.Value()), true);
      Add(total, ConcatText(measure.Value()), true);
      AddBlanks(total, 3 + 4 + 1);
      continue;
    }
    ListItem& row =
        rows.Add(0, ConcatText(saleId.Value()) + "_K" + std::to_string(rows.Count() + 1),
                 ConcatText(docName.Value()));
    row.SetTag(rowOidr);
    bool bold = false;
    if (byPurchase) {
      const Variant s = sign.Value();
      bold = !s.IsNull() && (CDbl(s) == 0 || CDbl(s) == 2);
    }
    if (bold) {
      row.SetBold(true);
      purchase = &row;
    }
    // From here to the remainder a value that cannot be read is passed over:
    // its cell stays blank and the row, and the list, go on.
    auto cell = [](auto&& text) -> std::string {
      try {
        return text();
      } catch (const RuntimeError&) {
        return {};
      }
    };
    Add(row, cell([&] { return Text(rs, "Number"); }));
    Add(row, cell([&] { return Text(rs, "Date"); }));
    Add(row, cell([&] { return Text(rs, "Addressee"); }));
    Add(row, cell([&] { return ConcatText(amount.Value()); }));
    Add(row, cell([&] { return ConcatText(measure.Value()); }));
    double r = 1;
    bool foreign = false;
    Quietly([&] {
      if (!rate.Value().IsNull() && ConcatText(code.Value()) != kBaseCurrency) {
        r = CDbl(rate.Value());
        foreign = true;
      }
    });
    Quietly([&] {
      // Sales under their purchase stand one step in: their icon goes to the
      // document number.
      const std::string icon = ConcatText(otype.Value());
      if (!byPurchase || bold) {
        row.SetSmallIcon(icon);
      } else {
        row.ListSubItems().Item(1).SetReportIcon(icon);
      }
    });
    Add(row, cell([&] {
          return price.Value().IsNull() ? ""
                                        : Format(Variant(CDbl(price.Value()) * r), kPriceMask);
        }));
    Add(row, cell([&] {
          return sum.Value().IsNull() ? "" : Format(Variant(CDbl(sum.Value()) * r), kSumMask);
        }));
    Add(row, cell([&] { return Text(rs, "Comment"); }));
    if (WithRest) Add(row, cell([&] { return Text(rs, "LName"); }));
    if (foreign) {
      Add(row, cell([&] { return ConcatText(code.Value()); }));
      Add(row, cell([&] { return ConcatText(rate.Value()); }));
      Add(row, cell([&] { return Format(price.Value(), kPriceMask); }));
      Add(row, cell([&] { return Format(sum.Value(), kSumMask); }));
    } else {
      AddBlanks(row, 4);
    }
    Add(row, cell([&] { return Text(rs, "SourcerName"); }));
    Add(row, cell([&] { return Format(cost.Value(), kSumMask); }));
    if (bold) row.ListSubItems().Item(1).SetBold(true);
    // What is left of the purchase: each sale's cost comes off the purchase
    // row's last cell. A list without that cell (no rests) has no remainder.
    if (!bold && purchase && purchase->ListSubItems().Count() >= 15) {
      Quietly([&] {
        ListSubItem& left = purchase->ListSubItems().Item(15);
        const double rest = CDbl(Variant(left.Text())) - CDbl(cost.Value());
        left.SetText(CStr(Variant(rest)));
      });
    }
  }
}

// ---- rests ----

void frmGoods::LoadRests() {
  Handle(MsgTitle, [&] {
    if (!Stored() || !WithRest || !HasList(RestsTab)) return;
    ListView& list = List(RestsTab);
    const std::vector<ColumnSpec> columns{{"Dok. grupė", 1000, false},
                                          {"Dok. Nr.", 1000, false},
                                          {"Data", 1200, false},
                                          {"Tiekėjas", 2000, false},
                                          {"Pirkta", 1000, true},
                                          {"M.vnt.", 700, false},
                                          {"Kaina", 1000, true},
                                          {"Parduota", 1000, true},
                                          {"Likutis/Rezervuota", 1000, true},
                                          {"Sandėlis", 2000, false},
                                          {"Pardavimo kaina", 1500, true}};
    if (PrepareList(list, columns)) {
      list.SetSmallIcons(CatalogueIcons());
      AddMoreRow(list, 10);
      return;
    }
    BusyPointer busy;
    auto rs = RecordsOf(Uio().Properties("Rests", ""));
    if (!Walkable(rs)) return;
    auto& rows = list.ListItems();
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const Variant rest = rs->Fields("Rest").Value();
      // A reservation below one unit is not shown, fractions included.
      auto withReserved = [&](const Variant& shown) {
        std::string text = ConcatText(shown);
        Quietly([&] {
          const Variant reserved = rs->Fields("Reserved").Value();
          if (!reserved.IsNull() && CDbl(reserved) >= 1) text += "/" + ConcatText(reserved);
        });
        return text;
      };
      const std::string oidr = Text(*rs, "OIDR");
      if (oidr == kSummaryKey) {
        ListItem& total = rows.Add(0, kSummaryKey, "");
        total.SetBold(true);
        AddBlanks(total, 2);
        Add(total, Text(*rs, "DocName"), true);
        Add(total, kBlank);
        Add(total, Text(*rs, "Measure"), true);
        AddBlanks(total, 2);
        Add(total, withReserved(rs->Fields("Amount").Value()), true);
        continue;
      }
      ListItem& row = rows.Add(0, oidr + Text(*rs, "ID"), Text(*rs, "DocName"));
      row.SetTag(Variant(oidr));
      Quietly([&] { row.SetSmallIcon(Text(*rs, "OType")); });
      Add(row, Text(*rs, "Number"));
      Add(row, Text(*rs, "Date"));
      Add(row, Text(*rs, "Addressee"));
      Add(row, Text(*rs, "Amount"));
      Add(row, Text(*rs, "Measure"));
      Add(row, Formatted(*rs, "Price", "#0.00####"));
      Add(row, CStr(Variant(CDbl(rs->Fields("Amount").Value()) - CDbl(rest))));
      Add(row, withReserved(rest));
      Add(row, Text(*rs, "LName"));
      const Variant sale = rs->Fields("PriceSale").Value();
      Add(row, sale.IsNull() ? kBlank : Format(sale, "#0.00####"));
    }
  });
}

// ---- measures, prices, minimum amounts ----

void frmGoods::LoadMeasures() {
  Handle(MsgTitle, [&] {
    if (!HasList(MeasuresTab)) return;
    ListView& list = List(MeasuresTab);
    PrepareList(list, {{"Matavimo vienetas", 2000, false},
                       {"Kaina", 2000, false},
                       {"Santykis", 2000, false},
                       {"1 / Santykis", 2000, false}});
    if (!Stored()) return;
    auto rs = RecordsOf(Uio().Properties("Measures", ""));
    if (!Walkable(rs)) return;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      ListItem& row = list.ListItems().Add(0, Text(*rs, "OIDR"), Text(*rs, "MeasureName"));
      Add(row, Text(*rs, "Price"));
      Add(row, Text(*rs, "Scale"));
      Add(row, Text(*rs, "Scale2"));
    }
  });
}

void frmGoods::LoadPrices() {
  Handle(MsgTitle, [&] {
    if (HasList(PricesTab)) {
      ListView& list = List(PricesTab);
      PrepareList(list, {{"Kainos tipas", 2000, false},
                         {"Valiuta", 1000, false},
                         {"Kaina", 1000, true},
                         {"Įmonė", 3000, false}});
      auto rs = Stored() ? RecordsOf(Uio().Properties("Prices", "")) : nullptr;
      for (; Walkable(rs); rs->MoveNext()) {
        ListItem& row = list.ListItems().Add(0, Text(*rs, "OIDR"), Text(*rs, "Preview"));
        Add(row, Text(*rs, "Code"));
        Add(row, Formatted(*rs, "Price", "#0.00#"));
        Add(row, Text(*rs, "FirmName"));
      }
    }
    if (!WithRest || !HasList(MinTab)) return;
    ListView& list = List(MinTab);
    PrepareList(list, {{"Min. kiekis", 1000, false}, {"Sandėlis", 6000, false}});
    auto rs = Stored() ? RecordsOf(Uio().Properties("MinAmount", "")) : nullptr;
    for (; Walkable(rs); rs->MoveNext()) {
      ListItem& row = list.ListItems().Add(0, Text(*rs, "OIDR"), Text(*rs, "MinAmount"));
      Add(row, Text(*rs, "Location"));
    }
  });
}

// ---- serial numbers ----

void frmGoods::LoadSerials(bool ask) {
  Handle(MsgTitle, [&] {
    if (!HasList(SerialsTab)) return;
    ListView& list = List(SerialsTab);
    if (PrepareList(list, {{"S.Numeris", 1000, false},
                           {"Dok. grupė", 1000, false},
                           {"Dok. Nr.", 1000, false},
                           {"Data", 1200, false},
                           {"Tiekėjas/Gavėjas", 2000, false},
                           {"Kaina", 1000, true},
                           {"Sandėlis", 2000, false},
                           {"Valiuta", 700, false},
                           {"Kursas", 1000, true},
                           {"Kaina val.", 1000, false}})) {
      list.SetSmallIcons(CatalogueIcons());
      return;
    }
    if (!ask) return;
    auto picker = Platform::Classes().NewObjectSelect();
    picker->SetColumnCaption("Serijinis numeris");
    picker->SetOType("O0000200");
    const std::string serial = picker->Show();
    if (serial.empty()) return;
    BusyPointer busy;
    auto rs = RecordsOf(Uio().Properties("FindGoods", serial));
    for (; Walkable(rs); rs->MoveNext()) {
      const std::string doc = Text(*rs, "DocOIDR");
      ListItem& row = list.ListItems().Add(0, doc + Text(*rs, "PID"), Text(*rs, "SN"));
      row.SetTag(Variant(doc));
      Quietly([&] { row.SetSmallIcon(Text(*rs, "OType")); });
      const Variant rate = rs->Fields("CurrencyRate").Value();
      const Variant base = rs->Fields("BaseCurrency").Value();
      const bool foreign = !rate.IsNull() && !(!base.IsNull() && CDbl(base) == 1);
      const double r = foreign ? CDbl(rate) : 1;
      Add(row, Text(*rs, "GName"));
      Add(row, Text(*rs, "Number"));
      Add(row, Text(*rs, "Date"));
      Add(row, Text(*rs, "FName"));
      // The raw price as well as the converted one: the columns behind
      // "Kaina" run one place later than their captions, as they always did.
      Add(row, Text(*rs, "Price"));
      Add(row, Text(*rs, "LName"));
      const Variant price = rs->Fields("Price").Value();
      Add(row, price.IsNull() ? "" : Format(Variant(CDbl(price) * r), kPriceMask));
      if (foreign) {
        Add(row, Text(*rs, "CODE"));
        Add(row, ConcatText(rate));
        Add(row, Format(price, kPriceMask));
      } else {
        AddBlanks(row, 3);
      }
    }
  });
}

// ---- discounts and templates ----

void frmGoods::LoadDiscounts() {
  Handle(MsgTitle, [&] {
    if (!HasList(DiscountsTab)) return;
    ListView& list = List(DiscountsTab);
    PrepareList(list, {{"Pavadinimas", 3000, false},
                       {"Variantas", 3000, false},
                       {"Procentas", 800, false},
                       {"", 2000, false},
                       {"Įmonė", 4000, false}});
    if (!Stored()) return;
    auto rs = RecordsOf(Uio().Properties("Discounts", ""));
    for (; Walkable(rs); rs->MoveNext()) {
      const std::string oidr = Text(*rs, "OIDR");
      ListItem& row = list.ListItems().Add(0, oidr, Text(*rs, "DiscountTypeName"));
      row.SetTag(Variant(oidr));
      std::string variant;
      const Variant variantName = rs->Fields("VariantName").Value();
      if (!variantName.IsNull()) {
        variant = ConcatText(variantName) + " (nuo:" + Text(*rs, "SumFrom");
        const Variant to = rs->Fields("SumTo").Value();
        if (!to.IsNull() && CDbl(to) > 0) variant += ", iki:" + ConcatText(to);
        variant += ")";
      }
      std::string origin;
      const std::string group = Text(*rs, "GoodName");
      if (!group.empty()) origin = "Paveldeta iš grupės:" + group;
      const Variant valid = rs->Fields("Valid").Value();
      if (!valid.IsNull() && !valid.IsEmpty() && !CBool(valid)) origin += "(negalioja)";
      Add(row, variant);
      Add(row, Text(*rs, "Percent") + "%");
      Add(row, origin);
      Add(row, Text(*rs, "FirmName"));
    }
  });
}

void frmGoods::LoadTemplates() {
  // The call may find nothing, and a group may have no templates at all.
  Quietly([&] {
    if (!HasList(TemplatesTab)) return;
    ListView& list = List(TemplatesTab);
    PrepareList(list, {{"Atsargų šablono tipas", 3000, false}, {"Šablonas", 3000, false}});
    if (!Stored()) return;
    auto rs = RecordsOf(Uio().Properties("GoodBRTemplates", ""));
    for (; Walkable(rs); rs->MoveNext()) {
      ListItem& row = list.ListItems().Add(0, Text(*rs, "GoodBRTemplateTypeOIDR"),
                                           Text(*rs, "GoodBRTemplateTypeName"));
      row.SetTag(rs->Fields("OIDR").Value());
      std::string text = Text(*rs, "BRTemplateName");
      if (rs->Fields("ID").Value().IsNull() && !rs->Fields("ID2").Value().IsNull()) {
        text += " (šablonas paveldėtas)";
      }
      Add(row, text);
    }
  });
}

// ---- a group's goods ----

void frmGoods::LoadGroupGoods() {
  Handle(MsgTitle, [&] {
    if (!HasList(GoodsTab)) return;
    ListView& list = List(GoodsTab);
    if (PrepareList(list, {{"Pavadinimas", 5000, false},
                           {"Likutis", 1000, false},
                           {"Kaina", 1000, false},
                           {"Kaina su PVM", 1000, false}})) {
      list.SetSmallIcons(CatalogueIcons());
    }
    if (!Stored()) return;
    BusyPointer busy;
    auto ui = Uio().UI();
    auto rs = ui ? ui->GetOrvelObjectList(OIDR(), "", "") : nullptr;
    for (; Walkable(rs); rs->MoveNext()) AddGroupRow(rs->Fields());
  });
}

void frmGoods::AddGroupRow(Fields& fields) {
  const std::string oidr = fields.Exists("OIDR")
                               ? ConcatText(fields.Item("OIDR").Value())
                               : "O0000200" + ConcatText(fields.Item("ID").Value());
  const std::string preview = fields.Exists("Preview") ? ConcatText(fields.Item("Preview").Value())
                                                       : ConcatText(fields.Item("Name").Value());
  ListItem& row = List(GoodsTab).ListItems().Add(0, oidr, preview);
  row.SetTag(Variant(oidr));
  Quietly([&] {
    const bool group = NullToLong(fields.Item("GroupFlag").Value()) == 1;
    if (group) {
      row.SetSmallIcon("stdClose");
    } else {
      std::string kind = fields.Exists("Otype") ? ConcatText(fields.Item("Otype").Value()) : "";
      if (kind.empty()) kind = "C";
      auto ui = Uio().UI();
      auto icons = ui ? ui->GetIconsTable() : nullptr;
      auto icon = icons ? icons->Item(kind) : std::nullopt;
      if (icon) row.SetSmallIcon(*icon);
    }
    std::string rest = "?";
    Quietly([&] { rest = ConcatText(fields.Item("Rest").Value()); });
    Add(row, rest);
    const Variant price = fields.Item("Price").Value();
    if (price.IsNull() || group) return;
    const Variant vat = fields.Item("VAT").Value();
    const double factor = 1 + (vat.IsNull() ? kGroupListVat : CInt(vat)) / 100.0;
    const Variant withVat = fields.Item("PriceWithVAT").Value();
    if (!withVat.IsNull() && CBool(withVat)) {
      Add(row, Format(Variant(CDbl(price) / factor), kSumMask));
      Add(row, ConcatText(price));
    } else {
      Add(row, ConcatText(price));
      Add(row, Format(Variant(CDbl(price) * factor), kSumMask));
    }
  });
}

// ---- printing ----

void frmGoods::PrintTraffic() {
  Handle(MsgTitle, [&] {
    if (!HasList(TrafficTab)) return;
    auto& ui = Platform::Ui();
    BusyPointer busy;
    ui.DoEvents();
    ListView& list = List(TrafficTab);
    auto doc = Platform::Classes().NewPrintDoc();
    if (!doc) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra spausdinimo dokumento");
    auto sections = doc->Sections();
    auto title = sections->Add(OrvelPrintSections::kText)->Rows();
    title->AddText("Prekės judėjimas", true, 12, lvwColumnLeft);
    title->AddText(Uio().Preview(), true, 12, lvwColumnLeft);
    title->AddText(" ", false, 0, lvwColumnLeft);
    auto table = sections->Add(OrvelPrintSections::kTable);
    auto columns = table->Columns();
    // The list's column number (1-based) of each printed column, in order.
    std::vector<int> printed;
    for (const auto& column : list.ColumnHeaders()) {
      const double cm = column->Width() / kTwipsPerCm;
      if (cm <= kNarrowestPrinted) continue;
      columns->Add(column->Text(), cm, column->Alignment());
      printed.push_back(column->Index());
    }
    auto rows = table->Rows();
    for (const auto& item : list.ListItems()) {
      auto row = rows->AddRow();
      for (size_t i = 0; i < printed.size(); ++i) {
        const int column = printed[i];
        if (column == 1) {
          row->AddCell(static_cast<int32_t>(i), item->Text(), item->Bold());
        } else if (column - 1 <= item->ListSubItems().Count()) {
          const ListSubItem& cell = item->ListSubItems().Item(column - 1);
          row->AddCell(static_cast<int32_t>(i), cell.Text(), item->Bold() || cell.Bold());
        }
      }
    }
    doc->Print(false);
    ui.DoEvents();
  });
}

}  // namespace orvel
