#include "lists/frmPreviewConfig.h"

#include <algorithm>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
constexpr int kCaptionWidth = 4000;
constexpr int kCaptionWidthScrolled = 3700;
constexpr int kWidthColumnWidth = 960;
constexpr int kSmallestFont = 6;
constexpr int kLargestFont = 20;
constexpr int kEnter = 13;

std::string Flag(bool on) { return on ? "1" : "0"; }
bool IsOn(const std::string& flag) { return !flag.empty() && flag != "0"; }
}  // namespace

frmPreviewConfig::frmPreviewConfig() : Form("frmPreviewConfig") {
  SetCaption(" Vaizdo parametrai");
  // In the order the window shows them, each label before its field.
  for (Control* c : std::initializer_list<Control*>{
           &lvwColumns,  &txtColumnCaption, &txtWidth,        &cmbAlignment,   &cmdUp,
           &cmdDown,     &lblTotalWidth,    &lblJournalName,  &txtJournalName, &lblFontSize,
           &cmbFontSize, &chbGridlinesHor,  &chbGridlinesVer, &chbUserName,    &chbDate,
           &chbTime,     &lblFooter,        &txtFooter,       &lblRegName,     &txtRegName,
           &cmdOK,       &cmdCancel}) {
    Register(*c);
  }
  lblJournalName.SetCaption("Pavadinimas:");
  lblFontSize.SetCaption("Šrifto dydis");
  chbGridlinesHor.SetCaption("Lentelės horizontalios linijos");
  chbGridlinesVer.SetCaption("Lentelės vertikalios linijos");
  chbUserName.SetCaption("Jūsų vardas, pavardė");
  chbDate.SetCaption("Žurnalo sudarymo data");
  chbTime.SetCaption("Laikas");
  lblFooter.SetCaption("Baigtinė informacija po žurnalo lentele:");
  lblRegName.SetCaption("Registracinis pavadinimas:");
  // The same words as the list settings dialog; the arrows carry a picture.
  cmdOK.SetCaption("Gerai");
  cmdCancel.SetCaption("Atšaukti");
  cmbAlignment.SetStyle(vbComboDropdownList);
  cmbFontSize.SetStyle(vbComboDropdownList);

  lvwColumns.OnItemClick = [this](ListItem& row) { lvwColumns_ItemClick(row); };
  lvwColumns.SetCheckboxes(true);
  lvwColumns.OnItemCheck = [this](ListItem& row) { lvwColumns_ItemCheck(row, row.Checked()); };
  cmdUp.OnClick = [this] { cmdUp_Click(); };
  cmdDown.OnClick = [this] { cmdDown_Click(); };
  cmbAlignment.OnClick = [this] { cmbAlignment_Click(); };
  txtColumnCaption.OnLostFocus = [this] { txtColumnCaption_LostFocus(); };
  txtWidth.OnKeyPress = [this](int& key) { txtWidth_KeyPress(key); };
  txtWidth.OnLostFocus = [this] { txtWidth_LostFocus(); };
  txtRegName.OnValidate = [this](bool& cancel) { txtRegName_Validate(cancel); };
  SetKeyPreview(true);
  cmdOK.OnClick = [this] { cmdOK_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmPreviewConfig::Form_Load() {
  Handle([&] {
    loading_ = true;
    Status = kCancelled;
    NewConfig.clear();
    given_ = ColumnConfig::FromDictionaries(PrintDict, ColumnDict);

    // Shown columns by position (ties keep the order of the pieces), hidden
    // ones after them in the order of the pieces.
    rows_.clear();
    for (const auto& c : given_.columns) {
      if (c.Shown()) rows_.push_back({c, true});
    }
    std::stable_sort(rows_.begin(), rows_.end(),
                     [](const Row& a, const Row& b) { return a.column.order < b.column.order; });
    for (const auto& c : given_.columns) {
      if (!c.Shown()) rows_.push_back({c, false});
    }

    lvwColumns.ColumnHeaders().Clear();
    int captionWidth =
        static_cast<int>(rows_.size()) >= kScrollColumns ? kCaptionWidthScrolled : kCaptionWidth;
    lvwColumns.ColumnHeaders().Add(0, "", "Stulpelių pavadinimai", captionWidth);
    lvwColumns.ColumnHeaders().Add(0, "", "Plotis, cm", kWidthColumnWidth);

    cmbAlignment.Clear();
    cmbAlignment.AddItem("Iš kairės");
    cmbAlignment.AddItem("Iš dešinės");
    cmbAlignment.AddItem("Per centrą");
    cmbFontSize.Clear();
    for (int size = kSmallestFont; size <= kLargestFont; ++size) {
      cmbFontSize.AddItem(std::to_string(size));
    }

    FillColumns();
    current_ = -1;
    if (!rows_.empty()) {
      lvwColumns.SetSelectedItem(&lvwColumns.ListItems().Item(1));
      LoadRow(0);
    }

    const auto& p = given_.printParams;
    txtJournalName.SetText(p[ColumnConfig::kJournalName]);
    int font = 0;
    try {
      font = std::stoi(p[ColumnConfig::kFontSize]);
    } catch (...) {
      font = 0;
    }
    if (font >= kSmallestFont && font <= kLargestFont)
      cmbFontSize.SetListIndex(font - kSmallestFont);
    chbGridlinesHor.SetValue(IsOn(p[ColumnConfig::kHorizontalLines]) ? vbChecked : vbUnchecked);
    chbGridlinesVer.SetValue(IsOn(p[ColumnConfig::kVerticalLines]) ? vbChecked : vbUnchecked);
    chbUserName.SetValue(IsOn(p[ColumnConfig::kUserName]) ? vbChecked : vbUnchecked);
    const std::string& date = p[ColumnConfig::kDateMode];
    chbDate.SetValue(IsOn(date) ? vbChecked : vbUnchecked);
    chbTime.SetValue(date == "2" ? vbChecked : vbUnchecked);
    txtFooter.SetText(p[ColumnConfig::kFooter]);
    txtRegName.SetText(PrintDict.Exists("JRegName") ? CStr(PrintDict.Item("JRegName")) : "");
    ShowTotal();
    // What OK would write with nothing touched: positions renumbered from 0 in
    // display order, so gaps in the given positions do not count as a change.
    loadedConfig_ = BuildConfig().Build();
  });
  loading_ = false;
}

void frmPreviewConfig::Form_Unload() {
  rows_.clear();
  current_ = -1;
}

void frmPreviewConfig::FillColumns() {
  lvwColumns.ListItems().Clear();
  for (const auto& r : rows_) {
    ListItem& item = lvwColumns.ListItems().Add(0, r.column.key, r.column.caption);
    item.ListSubItems().Add(0, "", r.column.width);
    item.SetChecked(r.visible);
  }
}

void frmPreviewConfig::LoadRow(int index) {
  if (index < 0 || index >= static_cast<int>(rows_.size())) return;
  bool wasLoading = loading_;
  loading_ = true;
  current_ = index;
  const ColumnEntry& c = rows_[index].column;
  txtColumnCaption.SetText(c.caption);
  txtWidth.SetText(c.width);
  cmbAlignment.SetListIndex(c.align >= 0 && c.align < cmbAlignment.ListCount() ? c.align : 0);
  loading_ = wasLoading;
}

void frmPreviewConfig::StoreCaption() {
  if (current_ < 0 || current_ >= static_cast<int>(rows_.size())) return;
  rows_[current_].column.caption = txtColumnCaption.Text();
  lvwColumns.ListItems().Item(current_ + 1).SetText(txtColumnCaption.Text());
}

int frmPreviewConfig::RowOf(const ListItem& row) const {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].column.key == row.Key()) return static_cast<int>(i);
  }
  return -1;
}

bool frmPreviewConfig::ColumnChecked(const std::string& key) const {
  for (const auto& r : rows_) {
    if (r.column.key == key) return r.visible;
  }
  return false;
}

void frmPreviewConfig::ShowTotal() {
  double total = 0;
  for (const auto& r : rows_) {
    if (r.visible) total += ParseWidth(r.column.width).value_or(0);
  }
  lblTotalWidth.SetCaption(WidthText(total));
}

void frmPreviewConfig::lvwColumns_ItemClick(ListItem& row) {
  if (loading_) return;
  Handle([&] {
    StoreCaption();
    LoadRow(RowOf(row));
  });
}

void frmPreviewConfig::lvwColumns_ItemCheck(ListItem& row, bool checked) {
  if (loading_) return;
  Handle([&] {
    int index = RowOf(row);
    if (index < 0) return;
    rows_[index].visible = checked;
    ShowTotal();
  });
}

void frmPreviewConfig::Swap(int index, int other) {
  StoreCaption();
  std::swap(rows_[index], rows_[other]);
  loading_ = true;
  FillColumns();
  lvwColumns.SetSelectedItem(&lvwColumns.ListItems().Item(other + 1));
  loading_ = false;
  current_ = other;
}

void frmPreviewConfig::cmdUp_Click() {
  Handle([&] {
    if (current_ <= 0) return;
    Swap(current_, current_ - 1);
  });
}

void frmPreviewConfig::cmdDown_Click() {
  Handle([&] {
    if (current_ < 0 || current_ + 1 >= static_cast<int>(rows_.size())) return;
    Swap(current_, current_ + 1);
  });
}

void frmPreviewConfig::cmbAlignment_Click() {
  if (loading_ || current_ < 0) return;
  if (cmbAlignment.ListIndex() >= 0) rows_[current_].column.align = cmbAlignment.ListIndex();
}

void frmPreviewConfig::txtColumnCaption_LostFocus() {
  if (loading_) return;
  Handle([&] { StoreCaption(); });
}

void frmPreviewConfig::txtWidth_KeyPress(int& keyAscii) {
  keyAscii = KeyFilterDecimal(keyAscii, txtWidth.Text());
}

void frmPreviewConfig::txtWidth_LostFocus() {
  if (loading_ || current_ < 0) return;
  Handle([&] {
    Row& row = rows_[current_];
    std::string text = txtWidth.Text();
    if (!text.empty()) text = FormatDecimalText(text, 1, true);
    double value = ParseWidth(text).value_or(0);
    if (value == 0) {
      // Zero or nothing readable: the former width stays.
      txtWidth.SetText(row.column.width);
      return;
    }
    if (value > kMaxWidth) text = "27";
    txtWidth.SetText(text);
    row.column.width = text;
    lvwColumns.ListItems().Item(current_ + 1).ListSubItems().Item(1).SetText(text);
    ShowTotal();
  });
}

void frmPreviewConfig::txtRegName_Validate(bool& cancel) {
  if (txtRegName.Text().empty()) cancel = true;
}

void frmPreviewConfig::Form_KeyPress(int& keyAscii) {
  if (keyAscii != kEnter || ActiveControl() == &txtFooter) return;
  keyAscii = 0;
  cmdOK_Click();
}

ColumnConfig frmPreviewConfig::BuildConfig() const {
  ColumnConfig config;
  auto& p = config.printParams;
  p[ColumnConfig::kJournalName] = txtJournalName.Text();
  p[ColumnConfig::kFontSize] = cmbFontSize.ListIndex() >= 0
                                   ? std::to_string(cmbFontSize.ListIndex() + kSmallestFont)
                                   : given_.printParams[ColumnConfig::kFontSize];
  p[ColumnConfig::kHorizontalLines] = Flag(chbGridlinesHor.Value() == vbChecked);
  p[ColumnConfig::kVerticalLines] = Flag(chbGridlinesVer.Value() == vbChecked);
  p[ColumnConfig::kUserName] = Flag(chbUserName.Value() == vbChecked);
  const char dateMode =
      chbDate.Value() != vbChecked ? '0' : (chbTime.Value() == vbChecked ? '2' : '1');
  p[ColumnConfig::kDateMode] = std::string(1, dateMode);
  p[ColumnConfig::kExtraFlag] = given_.printParams[ColumnConfig::kExtraFlag];
  p[ColumnConfig::kFooter] = txtFooter.Text();
  int position = 0;
  for (const auto& r : rows_) {
    ColumnEntry c = r.column;
    c.order = r.visible ? position++ : ColumnEntry::kHidden;
    config.columns.push_back(std::move(c));
  }
  return config;
}

void frmPreviewConfig::cmdOK_Click() {
  Handle([&] {
    StoreCaption();
    Status = kAccepted;
    bool anyChecked =
        std::any_of(rows_.begin(), rows_.end(), [](const Row& r) { return r.visible; });
    if (!anyChecked) {
      // Status is 1 already; a Cancel after this box puts it back to 0.
      Platform::Ui().MsgBox("Nepažymėtas nei vienas stulpelis!", vbInformation, AppTitle());
      return;
    }
    ColumnConfig config = BuildConfig();
    NewConfig = config.Build();
    if (NewConfig != loadedConfig_) Status = kColumnsChanged;
    PrintDict.SetItem("JRegName", Variant(txtRegName.Text()));
    Unload();
  });
}

void frmPreviewConfig::cmdCancel_Click() {
  Handle([&] {
    Status = kCancelled;
    Unload();
  });
}

}  // namespace orvel
