#include "ui/ListView.h"

#include "host/Text.h"

namespace orvel {

namespace {
// The text a row sorts by: its own for column 0, else that sub-item's ("" when
// the row has fewer).
const std::string& SortText(const ListItem& row, int column) {
  static const std::string kNone;
  if (column == 0) return row.Text();
  const auto& subItems = row.ListSubItems();
  return column <= subItems.Count() ? subItems.Item(column).Text() : kNone;
}
}  // namespace

ListView::ListView(std::string name) : Control(std::move(name)) {}

void ListView::SetSelectedItem(ListItem* row) {
  if (row && &row->View() != this) {
    throw RuntimeError(control_error::kInvalidPropertyValue,
                       "Neteisinga savybės reikšmė: eilutės „" + row->Text() + "“ nėra sąraše " + Name());
  }
  if (selected_ == row) return;
  selected_ = row;
  Notify("SelectedItem");
}

void ListView::SetSmallIcons(std::shared_ptr<Object> images) {
  if (smallIcons_ == images) return;
  smallIcons_ = std::move(images);
  Notify("SmallIcons");
}

void ListView::SetSorted(bool sorted) {
  Assign(sorted_, sorted, "Sorted");
  if (sorted_) ApplySort();
}

void ListView::SetSortKey(int column) {
  if (column < 0) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: SortKey " + std::to_string(column) + " (" + Name() + ")");
  }
  if (Assign(sortKey_, column, "SortKey") && sorted_) ApplySort();
}

void ListView::SetSortOrder(int order) {
  if (order != lvwAscending && order != lvwDescending) {
    throw RuntimeError(
        control_error::kInvalidPropertyValue,
        "Neteisinga savybės reikšmė: SortOrder " + std::to_string(order) + " (" + Name() + ")");
  }
  if (Assign(sortOrder_, order, "SortOrder") && sorted_) ApplySort();
}

void ListView::ApplySort() {
  const int column = sortKey_;
  const bool descending = sortOrder_ == lvwDescending;
  rows_.rows_.StableSort([&](const ListItem& a, const ListItem& b) {
    int order = StrComp(SortText(a, column), SortText(b, column), Compare::Text);
    return descending ? order > 0 : order < 0;
  });
  Notify("ListItems");
}

void ListView::ItemClick(ListItem& row) {
  if (!Active() || &row.View() != this) return;
  SetSelectedItem(&row);
  Raise(OnItemClick, row);
}

void ListView::ItemCheck(ListItem& row) {
  if (!Active() || !checkboxes_ || &row.View() != this) return;
  row.SetChecked(!row.Checked());
  Raise(OnItemCheck, row);
}

void ListView::SetCheckboxes(bool checkboxes) { Assign(checkboxes_, checkboxes, "Checkboxes"); }

void ListView::DblClick() {
  if (Active()) Raise(OnDblClick);
}

void ListView::MouseDown(int button, int shift) {
  if (Active()) Raise(OnMouseDown, button, shift);
}

void ListView::MouseUp(int button, int shift) {
  if (Active()) Raise(OnMouseUp, button, shift);
}

int ListView::KeyDown(int keyCode, int shift) {
  if (!Active()) return 0;
  Raise(OnKeyDown, keyCode, shift);
  return keyCode;
}

void ListView::ColumnClick(int columnIndex) {
  if (Active()) Raise(OnColumnClick, columnIndex);
}

}  // namespace orvel
