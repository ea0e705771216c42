// The list tabs of the firm window: their loaders, the documents' period and
// the dialogs that edit a row.
#include <cmath>
#include <initializer_list>

#include "common/BusyPointer.h"
#include "common/Catalogue.h"
#include "common/DetailDialog.h"
#include "common/Platform.h"
#include "firms/frmAccounts.h"
#include "firms/frmFirmInfo.h"
#include "firms/frmFirms.h"
#include "host/Convert.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelMainForm.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectSelect.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

struct Column {
  const char* caption;
  int width;
  int alignment = lvwColumnLeft;
  const char* key = "";
};

// A placeholder row waits here until the user asks for the real list.
constexpr const char* kMoreKey = "more";
constexpr const char* kMoreText = "Atnaujinkite... ";
// The OIDR of the summary rows the business layer sends: they name no record.
constexpr const char* kSummaryOidr = "O0000000";
constexpr const char* kSumMask = "#0.00";
constexpr const char* kDocumentGroupsType = "O1000100";

// Runs a loader's body; a failure stops the loader where it is, unreported.
template <class F>
void Quietly(F&& body) {
  try {
    body();
  } catch (...) {
  }
}

// Builds the columns of a list that has none; otherwise empties its rows.
// Returns whether the columns were built.
bool PrepareList(ListView& list, const std::vector<Column>& columns) {
  if (list.ColumnHeaders().Count() == 0) {
    for (const Column& column : columns) {
      list.ColumnHeaders().Add(0, column.key, column.caption, column.width, column.alignment);
    }
    return true;
  }
  list.ListItems().Clear();
  return false;
}

// The host's catalogue icons, which the lists with icons show.
std::shared_ptr<Object> CatalogueIcons() {
  auto mainForm = std::dynamic_pointer_cast<OrvelMainForm>(Services().MainForm());
  return mainForm ? mainForm->ImgCatalogue() : nullptr;
}

// The record set of a property; null when the call failed or gave none.
std::shared_ptr<Recordset> RecordsOf(const OrvelResult& reply) {
  if (reply.Number != 0) return nullptr;
  auto rs = reply.Value.ObjectAs<Recordset>();
  if (rs && !(rs->IsBOF() && rs->IsEOF())) rs->MoveFirst();
  return rs;
}

// A read under the hourglass (with the events let through first, when
// `pumpEvents`); the pointer comes back whatever the read does.
template <class F>
std::shared_ptr<Recordset> UnderHourglass(bool pumpEvents, F&& read) {
  BusyPointer busy(pumpEvents);
  return read();
}

// A field as list text: Null shows as an empty cell.
std::string Text(Recordset& rs, const char* field) { return ConcatText(rs.Fields(field).Value()); }

std::string Sum(const Variant& value) { return Format(value, kSumMask); }

double NumberOr0(const Variant& value) { return value.IsNull() ? 0 : CDbl(value); }

// A date field as the locale's short date, "" for Null.
std::string ShortDate(const Variant& value) {
  return value.IsNull() ? std::string() : FormatDate(CDate(value));
}

void AddSubItems(ListItem& row, std::initializer_list<std::string> texts) {
  for (const auto& text : texts) row.ListSubItems().Add(0, "", text);
}

// The Tag that opens a row: its OIDR, none on the business layer's summary rows.
void TagRow(ListItem& row, const std::string& oidr) {
  if (oidr != kSummaryOidr) row.SetTag(Variant(oidr));
}

// "Taip" in the main-record column.
std::string MainFlag(const Variant& flag) {
  return !flag.IsNull() && !flag.IsEmpty() && CBool(flag) ? "Taip" : "";
}

ListItem& AddPlaceholder(ListView& list, int subItems) {
  ListItem& row = list.ListItems().Add(0, kMoreKey, kMoreText, kMoreKey);
  for (int i = 0; i < subItems; ++i) row.ListSubItems().Add(0, "", " ");
  return row;
}

// The rows of a long list are added with errors ignored: a repeated OIDR
// adds no row, and the rest of that record goes into the row before it.
ListItem* AddLongListRow(ListView& list, ListItem* previous, const std::string& key,
                         const std::string& text) {
  try {
    return &list.ListItems().Add(0, key, text);
  } catch (const RuntimeError&) {
    return previous;
  }
}

void SetIconQuietly(ListItem& row, const std::string& icon) {
  Quietly([&] { row.SetSmallIcon(icon); });
}

// The host's list period as the object manager hands it over: DateFrom,
// DateTo, DaysBack, UseDates and Extra, in that order. Anything else reads
// as no dates and no days back.
struct ListPeriod {
  Date dateFrom{};
  Date dateTo{};
  int daysBack = 0;
  bool useDates = false;
};

ListPeriod ReadPeriod(const Variant& period) {
  ListPeriod read;
  if (!period.IsArray()) return read;
  const auto& parts = period.ArrayValue();
  if (parts.size() < 4) return read;
  Quietly([&] {
    ListPeriod whole;
    whole.dateFrom = CDate(parts[0]);
    whole.dateTo = CDate(parts[1]);
    whole.daysBack = CInt(parts[2]);
    whole.useDates = CBool(parts[3]);
    read = whole;
  });
  return read;
}

// The variant of a discount: "Didmena (nuo:100, iki:500)", without the
// upper bound when it is 0; "" for a discount without variants.
std::string DiscountVariantText(Recordset& rs) {
  const Variant name = rs.Fields("VariantName").Value();
  if (name.IsNull()) return "";
  std::string text = ConcatText(name) + " (nuo:" + Text(rs, "SumFrom");
  const Variant to = rs.Fields("SumTo").Value();
  if (!to.IsNull() && CDbl(to) > 0) text += ", iki:" + ConcatText(to);
  return text + ")";
}

// Where a discount comes from, in words; the inheritance itself is the
// business layer's.
std::string DiscountOriginText(Recordset& rs) {
  std::string text;
  const std::string group = Text(rs, "GoodName");
  if (!group.empty()) text = "Paveldeta iš grupės:" + group;
  const Variant valid = rs.Fields("Valid").Value();
  if (!valid.IsNull() && !valid.IsEmpty() && !CBool(valid)) text += "(negalioja)";
  return text;
}

// What EditDetail opens on each tab.
struct DetailKind {
  const char* otype;
  const char* captionExisting;
  const char* captionNew;
};

constexpr DetailKind kParameter{"O0002300", "Naujas įmonės parametras", ""};
constexpr DetailKind kAddress{"O0002000", "Adresai", "Naujas adresas"};
constexpr DetailKind kContact{"O0002100", "Kontaktai", "Naujas kontaktas"};
constexpr DetailKind kManager{"O0002400", "Vadybininkas atsakingas už įmonės aptarnavimą",
                              "Naujas vadybininkas atsakingas už įmonės aptarnavimą"};
constexpr DetailKind kActivity{"O0002500", "Įmonės veikla", "Nauja veiklos rūšis"};

// The object of a row (its OIDR) or a new one of the type; null when the
// host has no such type or the record cannot be read.
std::shared_ptr<OrvelObjectUIO> DetailObject(const std::string& otype, const std::string& oidr) {
  auto adapter = Services().ObjectManager()->GetOrvelObjectUI(otype);
  return adapter ? adapter->GetOrvelObject(oidr) : nullptr;
}

}  // namespace

// ---- the documents' period ----

std::string frmFirms::TrafficParams() {
  const ListPeriod period = ReadPeriod(Period);
  std::string from;
  std::string to;
  if (period.useDates) {
    from = FormatDate(period.dateFrom);
    to = FormatDate(period.dateTo);
  } else {
    from = FormatDate(Date{Platform::Ui().Today().serial - period.daysBack});
    to = FormatDate(DateSerial(9999, 12, 31));
  }
  return "'" + OIDR() + "','" + from + "','" + to + "'";
}

// ---- the deferred lists ----

void frmFirms::LoadTraffic(bool more) {
  if (TrafficTab == 0) return;
  Quietly([&] {
    ListView& list = List(TrafficTab);
    auto prepare = [&] {
      if (PrepareList(list, {{"Dok. grupė", 2000},
                             {"Dok. Nr.", 1500},
                             {"Data", 1200},
                             {"Suma", 1500, lvwColumnRight},
                             {"Skola", 1500, lvwColumnRight}})) {
        list.SetSmallIcons(CatalogueIcons());
      }
    };
    if (!more) {
      prepare();
      AddPlaceholder(list, 4);
      return;
    }
    auto rs = UnderHourglass(true, [&] {
      RefreshDebt();
      return RecordsOf(Uio().Properties("Traffic", TrafficParams()));
    });
    if (OIDR().size() < 9 || !rs) return;
    prepare();
    auto& rights = *Services().Rights();
    double total = 0;
    ListItem* row = nullptr;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const std::string oidr = Text(*rs, "OIDR");
      row = AddLongListRow(list, row, oidr, Text(*rs, "DocName"));
      if (!row) continue;
      const std::string gid = Text(*rs, "GID");
      const bool open = Left(oidr, 8) == kDocumentGroupsType
                            ? rights.Allowed("CDocumentGroupLock" + gid, 0)
                            : rights.Allowed("CBROperRights" + gid, 0);
      if (open) TagRow(*row, oidr);
      SetIconQuietly(*row, Text(*rs, "OType"));
      const Variant debt = rs->Fields("Debt").Value();
      AddSubItems(*row, {Text(*rs, "Number"), Text(*rs, "Date"), Sum(rs->Fields("Suma").Value()),
                         Sum(Variant(std::fabs(NumberOr0(debt))))});
      total += NumberOr0(debt) * NumberOr0(rs->Fields("Sign").Value());
    }
    if (list.ListItems().Count() == 0) return;
    ListItem& sum = list.ListItems().Add(0, "", " ");
    AddSubItems(sum, {" ", " ", " "});
    sum.ListSubItems().Add(0, "", Sum(Variant(std::fabs(total)))).SetBold(true);
  });
}

void frmFirms::LoadContracts(bool more) {
  if (ContractsTab == 0) return;
  Quietly([&] {
    ListView& list = List(ContractsTab);
    auto prepare = [&] {
      if (PrepareList(list, {{"Numeris", 2000},
                             {"Galioja nuo", 1500},
                             {"Galioja iki", 1200},
                             {"Suma", 1500, lvwColumnRight},
                             {"Būklė", 1200},
                             {"Vadybininkas", 2000}})) {
        list.SetSmallIcons(CatalogueIcons());
      }
    };
    if (!more) {
      prepare();
      AddPlaceholder(list, 5);
      return;
    }
    auto rs =
        UnderHourglass(true, [&] { return RecordsOf(Uio().Properties("ContractsList", "")); });
    if (OIDR().size() < 9 || !rs) return;
    prepare();
    double total = 0;
    ListItem* row = nullptr;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const std::string oidr = Text(*rs, "OIDR");
      row = AddLongListRow(list, row, oidr, Text(*rs, "ContractNumber"));
      if (!row) continue;
      TagRow(*row, oidr);
      SetIconQuietly(*row, Text(*rs, "OType"));
      const Variant sum = rs->Fields("SumA").Value();
      AddSubItems(*row, {Text(*rs, "DateFrom"), Text(*rs, "DateTo"), Sum(sum), Text(*rs, "State"),
                         Text(*rs, "Responsible")});
      total += NumberOr0(sum);
    }
    if (list.ListItems().Count() == 0) return;
    ListItem& sum = list.ListItems().Add(0, "", " ");
    AddSubItems(sum, {" ", " "});
    sum.ListSubItems().Add(0, "", Sum(Variant(std::fabs(total)))).SetBold(true);
    AddSubItems(sum, {"", ""});
  });
}

void frmFirms::LoadGoods(bool more) {
  if (GoodsTab == 0) return;
  Quietly([&] {
    ListView& list = List(GoodsTab);
    if (list.ColumnHeaders().Count() == 0) {
      PrepareList(list, {{"Prekės pavadinimas", 3000, lvwColumnLeft, "Name"},
                         {"Komentaras", 2000, lvwColumnLeft, "Comment"},
                         {"Dok. Numeris", 1200, lvwColumnLeft, "Number"},
                         {"Data", 1200, lvwColumnLeft, "Date"},
                         {"Kiekis", 2000, lvwColumnRight, "Amount"}});
      list.SetSmallIcons(CatalogueIcons());
    }
    if (!more) return;
    auto search = Platform::Classes().NewObjectSelect();
    search->SetColumnCaption("Prekės pavadinimas");
    search->SetOType("O0000200");
    const std::string text = search->Show();
    if (text.empty()) return;
    list.ListItems().Clear();
    if (OIDR().size() < 9) return;
    auto rs = UnderHourglass(false, [&] { return RecordsOf(Uio().Properties("FindGoods", text)); });
    if (!rs) return;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      ListItem& row =
          list.ListItems().Add(0, Text(*rs, "GOIDR"), Text(*rs, "GoodName"), Text(*rs, "OType"));
      TagRow(row, Text(*rs, "DocOIDR"));
      row.ListSubItems().Add(0, "Comment", Text(*rs, "Comment"));
      row.ListSubItems().Add(0, "Number", Text(*rs, "Number")).SetTag(Variant(Text(*rs, "OIDR")));
      row.ListSubItems().Add(0, "Date", Text(*rs, "Date"));
      row.ListSubItems().Add(0, "Amount", Text(*rs, "Amount"));
    }
  });
}

// ---- the detail lists ----

// A detail list whose rows show the fields as they stand: the tab it fills,
// the firm's property that reads it, its columns, the field of each column
// ("FlagMain" shows "Taip" on the main record), whether a row keeps its OIDR
// as the Tag that opens it, and what EditDetail opens on it (none where the
// tab has its own editor or none at all).
struct frmFirms::DetailListShape {
  int16_t frmFirms::*tab;
  const char* property;
  std::vector<Column> columns;
  std::vector<const char*> fields;
  bool tagged;
  const DetailKind* editor;
};

// In the order of DetailList.
const std::vector<frmFirms::DetailListShape>& frmFirms::DetailLists() {
  static const std::vector<DetailListShape> lists{
      {&frmFirms::InfoTab, "FirmParameters",
       {{"Parametro tipas", 2000}, {"Reikšmė", 4000}},
       {"ParameterTypeName", "Value"}, false, &kParameter},
      {&frmFirms::AddressesTab, "FirmADDRESSES",
       {{"Tipas", 2000}, {"Regionas", 1000}, {"Indeksas", 1000}, {"Gatvė", 2000},
        {"Telefonas", 1000}, {"Faksas", 1000}, {"El. paštas", 1500}, {"Pagrindinis", 1500}},
       {"AddressType", "Region", "PostCode", "Street", "Phone", "Fax", "EMail", "FlagMain"},
       false, &kAddress},
      {&frmFirms::ContactsTab, "FirmCONTACTS",
       {{"Vardas", 1000}, {"Pavarde", 1000}, {"Pareigos", 2000}, {"Telefonas", 1000},
        {"Faksas", 1000}, {"El. paštas", 1500}, {"Pastaba", 1500}, {"Pagrindinis", 1500}},
       {"Name", "LastName", "Role", "Phone", "Fax", "EMail", "Note", "FlagMain"}, false,
       &kContact},
      {&frmFirms::ServersTab, "FirmSERVERS", {{"Vadybininkas", 3000}}, {"Name"}, false,
       &kManager},
      {&frmFirms::ActivityTab, "FirmActivity", {{"Veiklos pavadinimas", 5000}}, {"Preview"},
       true, &kActivity},
      {&frmFirms::AccountsTab, "Accounts", {{"Numeris", 2000}, {"Bankas", 4000}},
       {"Number", "BankName"}, false, nullptr},
      {&frmFirms::BranchTab, "FirmBranch",
       {{"Pavadinimas", 2000}, {"Kodas", 1000}, {"Regionas", 1000}, {"Gatvė", 2000},
        {"Telefonas", 1000}, {"Faksas", 1000}, {"El. paštas", 1500}},
       {"Name", "Code", "Region", "Street", "Tel", "Fax", "EMail"}, true, nullptr},
  };
  return lists;
}

void frmFirms::LoadDetail(DetailList which) {
  LoadDetail(DetailLists().at(static_cast<size_t>(which)));
}

void frmFirms::LoadDetail(const DetailListShape& shape) {
  const int tab = this->*shape.tab;
  if (tab == 0) return;
  Quietly([&] {
    ListView& list = List(tab);
    PrepareList(list, shape.columns);
    if (OIDR().size() < 9) return;
    auto rs = RecordsOf(Uio().Properties(shape.property, ""));
    if (!rs) return;
    auto cell = [&rs](const char* field) {
      return std::string(field) == "FlagMain" ? MainFlag(rs->Fields(field).Value())
                                              : Text(*rs, field);
    };
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const std::string oidr = Text(*rs, "OIDR");
      ListItem& row = list.ListItems().Add(0, oidr, cell(shape.fields.front()));
      if (shape.tagged) TagRow(row, oidr);
      for (size_t i = 1; i < shape.fields.size(); ++i) {
        row.ListSubItems().Add(0, "", cell(shape.fields[i]));
      }
    }
  });
}

const frmFirms::DetailListShape* frmFirms::EditedOn(int tab) const {
  if (tab == 0) return nullptr;
  for (const auto& shape : DetailLists()) {
    if (shape.editor && this->*shape.tab == tab) return &shape;
  }
  return nullptr;
}

void frmFirms::LoadFirmInfo() {
  lblInfo.SetVisible(false);
  PlaceNoteLine();
  if (InfoTab == 0) return;
  Quietly([&] {
    ListView& list = List(InfoTab);
    PrepareList(
        list,
        {{"Informacija", 4000}, {"Galioja nuo", 2000}, {"Galioja iki", 2000}, {"Autorius", 4000}});
    if (OIDR().size() < 9) return;
    auto rs = RecordsOf(Uio().Properties("FirmInfo", ""));
    if (!rs) return;
    const Date today = Platform::Ui().Today();
    bool first = true;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const Variant to = rs->Fields("DateTo").Value();
      const Variant priority = rs->Fields("Priority").Value();
      const int32_t color =
          priority.IsNull() ? vbBlack : frmFirmInfo::PriorityColor(CInt(priority));
      const std::string info = Text(*rs, "Info");
      const std::string user = Text(*rs, "UserName");
      if (first) {
        // The business layer sends the note to show first: in force, most
        // important, newest. A note past its end stays in the list only.
        first = false;
        if (to.IsNull() || CDate(to) >= today) {
          // Only the two raised priorities colour the line; an ordinary
          // note leaves it in the colour it has.
          if (!priority.IsNull() && CInt(priority) >= 2) lblInfo.SetForeColor(color);
          lblInfo.SetCaption(info + " (" + user + ")");
          lblInfo.SetVisible(true);
        }
      }
      // A key may not be a bare number: "17K", and Val gives 17 back.
      ListItem& row = list.ListItems().Add(0, Text(*rs, "ID") + "K", info);
      row.SetForeColor(color);
      AddSubItems(row, {ShortDate(rs->Fields("DateFrom").Value()), ShortDate(to), user});
    }
  });
  PlaceNoteLine();
}

void frmFirms::PlaceNoteLine() {
  pnlLists.SetTop(lblInfo.Visible() ? pnlInfo.Top() + pnlInfo.Height() : pnlInfo.Top());
}

void frmFirms::LoadDiscounts() {
  if (DiscountsTab == 0) return;
  Quietly([&] {
    // A firm not saved yet has no discounts, and its tab not even columns.
    if (OIDR().size() < 9) return;
    ListView& list = List(DiscountsTab);
    PrepareList(list, {{"Pavadinimas", 3000},
                       {"Variantas", 3000},
                       {"Procentas", 800},
                       {"", 2000},
                       {"Įmonė", 4000}});
    auto rs = RecordsOf(Uio().Properties("Discounts", ""));
    if (!rs) return;
    for (; !rs->IsEOF(); rs->MoveNext()) {
      const std::string oidr = Text(*rs, "OIDR");
      ListItem& row = list.ListItems().Add(0, oidr, Text(*rs, "DiscountTypeName"));
      TagRow(row, oidr);
      AddSubItems(row, {DiscountVariantText(*rs), Text(*rs, "Percent") + "%",
                        DiscountOriginText(*rs), Text(*rs, "FirmName")});
    }
  });
}

void frmFirms::LoadFirmsList() {
  if (FirmsTab == 0) return;
  Quietly([&] {
    BusyPointer busy;
    auto rs = RecordsOf(Uio().Properties("Firms", ""));
    ListView& list = List(FirmsTab);
    if (PrepareList(list, {{"Pavadinimas", 3000},
                           {"Įm. kodas", 1000},
                           {"Gatvė", 1000},
                           {"Regionas", 1000},
                           {"Telefonas", 1000},
                           {"Faksas", 1000},
                           {"Direktorius", 3000}})) {
      list.SetSmallIcons(CatalogueIcons());
    }
    if (rs && OIDR().size() > 8) {
      for (; !rs->IsEOF(); rs->MoveNext()) AddFirmRow(rs->Fields());
    }
  });
}

// ---- editing a row ----

void frmFirms::ReloadDetail(int tab) {
  if (const DetailListShape* shape = EditedOn(tab)) LoadDetail(*shape);
}

void frmFirms::EditDetail(bool isNew) {
  if (isNew && RefuseUnsaved()) return;
  const int tab = CurrentTab;
  const DetailListShape* shape = EditedOn(tab);
  if (!shape) return;
  const DetailKind* kind = shape->editor;
  std::string oidr;
  if (!isNew) {
    ListItem* row = Selected(tab);
    if (!row) return;
    oidr = row->Key();
  }
  auto detail = DetailObject(kind->otype, oidr);
  if (!detail) return;
  if (isNew) detail->Fields("FirmID").SetValue(Uio().Fields("ID").Value());
  const std::string caption =
      Uio().Preview() + ": " + (isNew ? kind->captionNew : kind->captionExisting);
  if (CurrentDetailDialog().Edit(detail, caption, MsgTitle)) ReloadDetail(tab);
}

void frmFirms::EditAccount(bool isNew) {
  if (RefuseUnsaved()) return;
  std::string oidr;
  if (!isNew) {
    ListItem* row = AccountsTab == 0 ? nullptr : Selected(AccountsTab);
    if (!row) return;
    oidr = row->Key();
  }
  auto account = DetailObject("O0000500", oidr);
  if (!account) return;
  if (isNew) account->Fields("FOIDR").SetValue(Variant(OIDR()));
  frmAccounts dialog;
  dialog.MsgTitle = MsgTitle;
  dialog.SetCaption(Uio().Preview() + ": " +
                    (isNew ? "Nauja atsiskaitomoji sąskaita" : "Atsiskaitomoji sąskaita"));
  if (!dialog.OrvelGrid) throw RuntimeError(RuntimeError::kObjectNotSet, "Langas neturi laukų lapo");
  dialog.OrvelGrid->SetServices(OrvelS());
  dialog.OrvelGrid->SetObjectUIO(account);
  dialog.OrvelGrid->FillFields();
  dialog.ShowModal(Platform::Ui());
  if (dialog.Saved) LoadDetail(DetailList::Accounts);
}

void frmFirms::EditFirmInfo(bool isNew) {
  if (RefuseUnsaved()) return;
  int32_t id = 0;
  if (!isNew) {
    ListItem* row = InfoTab == 0 ? nullptr : Selected(InfoTab);
    if (!row) return;
    id = static_cast<int32_t>(Val(row->Key()));
  }
  Variant::Array params{Variant(id)};
  OrvelResult shown = Uio().Methods("ShowFirmInfo", params);
  if (!shown.Value.IsEmpty() && !shown.Value.IsNull() && CBool(shown.Value)) LoadFirmInfo();
}

}  // namespace orvel
