#include "goods/frmGoodsHistory.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/Boundary.h"
#include "common/BusyPointer.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/ImageList.h"
#include "orvel/OrvelMainForm.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "ui/ColumnHeader.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// A cell the list shows empty but present.
constexpr const char* kBlank = " ";
// The list's own width for a column added without one.
constexpr int kListDefaultWidth = 1440;

struct ColumnSpec {
  const char* caption;
  int width;
  int alignment;
};

constexpr std::array<ColumnSpec, frmGoodsHistory::kColumnCount> kColumns{{
    {"Dok. grupė", 2000, lvwColumnLeft},
    {"Dok. Nr.", 1000, lvwColumnLeft},
    {"Data", 1200, lvwColumnLeft},
    {"Tiekėjas/Gavėjas", 2000, lvwColumnLeft},
    {"Kiekis", 1000, lvwColumnRight},
    {"M.vnt.", 700, lvwColumnLeft},
    {"Kaina", 1000, lvwColumnRight},
    {"Suma", 1000, lvwColumnRight},
    {"Sandėlis", 2000, lvwColumnLeft},
    {"Valiuta", 700, lvwColumnLeft},
    {"Kursas", 1000, lvwColumnLeft},
    {"Kaina val.", kListDefaultWidth, lvwColumnLeft},
    {"Suma val.", kListDefaultWidth, lvwColumnLeft},
}};

// A value as it stands in a cell: Null and Empty show nothing.
std::string Shown(const Variant& v) { return v.IsString() ? v.String() : ConcatText(v); }

// The value multiplied by the rate, formatted; a Null value stays Null, which
// formats to nothing.
std::string Scaled(const Variant& value, double rate, const char* mask) {
  if (value.IsNull()) return {};
  return Format(Variant(CDbl(value) * rate), mask);
}

// The money cells of one row, from the document's own figures.
struct MoneyCells {
  std::string price;
  std::string sum;
  std::string currency = kBlank;
  std::string rate = kBlank;
  std::string currencyPrice = kBlank;
  std::string currencySum = kBlank;
};

MoneyCells CurrencyFigures(const Variant& currencyRate, const Variant& code, const Variant& price,
                           const Variant& sum) {
  // A document without a rate, or in the base currency, is shown as it is.
  bool foreign = !currencyRate.IsNull();
  if (foreign) foreign = Shown(code) != frmGoodsHistory::kBaseCurrency;
  const double rate = foreign ? CDbl(currencyRate) : 1.0;

  MoneyCells cells;
  cells.price = Scaled(price, rate, frmGoodsHistory::kPriceFormat);
  cells.sum = Scaled(sum, rate, frmGoodsHistory::kSumFormat);
  if (foreign) {
    cells.currency = Shown(code);
    cells.rate = Shown(currencyRate);
    cells.currencyPrice = Scaled(price, 1.0, frmGoodsHistory::kPriceFormat);
    cells.currencySum = Scaled(sum, 1.0, frmGoodsHistory::kSumFormat);
  }
  return cells;
}

// Rows marked 0 and 2 stand out in bold. Null marks nothing.
bool BoldSign(const Variant& sign) {
  if (sign.IsNull()) return false;
  const double value = CDbl(sign);
  return value == 0 || value == 2;
}

// The host's image list of catalogue icons; null when its main window has none.
std::shared_ptr<Object> CatalogueIcons() {
  auto mainForm = std::dynamic_pointer_cast<OrvelMainForm>(Services().MainForm());
  return mainForm ? mainForm->ImgCatalogue() : nullptr;
}

}  // namespace

// The fields of the history set, found once for the whole walk, and what the
// icons can be checked against.
struct frmGoodsHistory::RowFields {
  explicit RowFields(Recordset& rs)
      : fields(rs.Fields()),
        name(fields.Item("Name")),
        oidr(fields.Item("OIDR")),
        otype(fields.Item("OType")),
        sign(fields.Item("Sign")),
        number(fields.Item("Number")),
        date(fields.Item("Date")),
        addressee(fields.Item("Addressee")),
        amount(fields.Item("Amount")),
        measure(fields.Item("Measure")),
        currencyRate(fields.Item("CurrencyRate")),
        code(fields.Item("CODE")),
        price(fields.Item("Price")),
        sum(fields.Item("Suma")),
        warehouse(fields.Item("LName")) {}

  Fields& fields;
  Field& name;
  Field& oidr;
  Field& otype;
  Field& sign;
  Field& number;
  Field& date;
  Field& addressee;
  Field& amount;
  Field& measure;
  Field& currencyRate;
  Field& code;
  Field& price;
  Field& sum;
  Field& warehouse;
  bool hasIcons = false;
  const ImageList* keyedIcons = nullptr;  // null: every key is taken as known
};

frmGoodsHistory::frmGoodsHistory()
    : Form("frmGoodsHistory"),
      mnuToDesktop(mnuMain.Add("mnuToDesktop", "Padėti &ant darbo stalo")) {
  SetCaption("Istorija");
  Register(lswHistory);
  Register(cmdClose);
  Register(mnuMain);
  cmdClose.SetCaption("Uždaryti");
  mnuMain.SetVisible(false);
  lswHistory.OnMouseUp = [this](int button, int shift) { lswHistory_MouseUp(button, shift); };
  mnuToDesktop.OnClick = [this] { mnuToDesktop_Click(); };
  cmdClose.OnClick = [this] { cmdClose_Click(); };
}

void frmGoodsHistory::Form_Load() {
  auto& ui = Platform::Ui();
  Width = std::max(0, ui.ScreenWidth() - kScreenMargin);
  BusyPointer busy;
  Handle([&] {
    // A window loaded again starts from empty controls, as a new one would.
    lswHistory.ListItems().Clear();
    lswHistory.ColumnHeaders().Clear();
    lswHistory.SetSmallIcons(CatalogueIcons());
    AddColumns();
    FillHistory();
  });
}

void frmGoodsHistory::AddColumns() {
  for (const auto& c : kColumns)
    lswHistory.ColumnHeaders().Add(0, "", c.caption, c.width, c.alignment);
}

void frmGoodsHistory::FillHistory() {
  if (!OrvelObjectUIO) return;
  auto result = OrvelObjectUIO->Properties("GoodHistory", std::to_string(GoodID));
  if (result.Number != 0) return;
  auto rs = result.Value.ObjectAs<Recordset>();
  if (!rs || rs->IsEOF()) return;
  RowFields fields(*rs);
  const auto& icons = lswHistory.SmallIcons();
  fields.hasIcons = icons != nullptr;
  fields.keyedIcons = dynamic_cast<const ImageList*>(icons.get());
  for (; !rs->IsEOF(); rs->MoveNext()) AddHistoryRow(fields);
}

void frmGoodsHistory::AddHistoryRow(const RowFields& f) {
  // Every value is read and converted before the row goes in, so that a
  // record that cannot be shown leaves no half-filled row behind.
  const bool bold = BoldSign(f.sign.Value());
  std::array<std::string, kColumnCount> cells;
  cells[kDocumentGroup - 1] = Shown(f.name.Value());
  cells[kNumber - 1] = Shown(f.number.Value());
  cells[kDate - 1] = Shown(f.date.Value());
  cells[kAddressee - 1] = Shown(f.addressee.Value());
  cells[kAmount - 1] = Shown(f.amount.Value());
  cells[kMeasure - 1] = Shown(f.measure.Value());
  MoneyCells money =
      CurrencyFigures(f.currencyRate.Value(), f.code.Value(), f.price.Value(), f.sum.Value());
  cells[kPrice - 1] = std::move(money.price);
  cells[kSum - 1] = std::move(money.sum);
  cells[kWarehouse - 1] = Shown(f.warehouse.Value());
  cells[kCurrency - 1] = std::move(money.currency);
  cells[kRate - 1] = std::move(money.rate);
  cells[kCurrencyPrice - 1] = std::move(money.currencyPrice);
  cells[kCurrencySum - 1] = std::move(money.currencySum);

  Variant tag = f.oidr.Value();
  // A document type the image list has no icon for leaves the row without
  // one, and so does a type that is no key at all.
  std::string icon;
  try {
    const Variant otype = f.otype.Value();
    if (!otype.IsNull()) icon = Shown(otype);
    if (!f.hasIcons || (f.keyedIcons && !icon.empty() && !f.keyedIcons->HasImage(icon))) {
      icon.clear();
    }
  } catch (const RuntimeError&) {
    icon.clear();
  }

  auto& rows = lswHistory.ListItems();
  ListItem& row = rows.Add(0, std::to_string(rows.Count() + 1) + "_K",
                           std::move(cells[kDocumentGroup - 1]), std::move(icon));
  row.SetTag(std::move(tag));
  if (bold) row.SetBold(true);
  auto& subItems = row.ListSubItems();
  for (int column = kNumber; column <= kColumnCount; ++column) {
    subItems.Add(0, "", std::move(cells[static_cast<size_t>(column - 1)]));
  }
}

void frmGoodsHistory::Form_Resize(int32_t scaleWidth) {
  lswHistoryWidth = std::max(0, scaleWidth - 2 * lswHistoryLeft - kListSlack);
}

void frmGoodsHistory::lswHistory_MouseUp(int button, int) {
  Handle([&] {
    if (button != vbRightButton || !lswHistory.SelectedItem()) return;
    Platform::Ui().PopupMenu(mnuMain);
  });
}

void frmGoodsHistory::mnuToDesktop_Click() {
  Handle([&] {
    const ListItem* row = lswHistory.SelectedItem();
    if (!row) return;
    const std::string oidr = ConcatText(row->Tag());
    if (auto adapter = Services().ObjectManager()->GetOrvelObjectUI(oidr)) {
      adapter->AddToDeskTopOrvelObject(oidr);
    }
  });
}

void frmGoodsHistory::cmdClose_Click() {
  Handle([&] { Unload(); });
}

}  // namespace orvel
