#pragma once

#include <functional>
#include <memory>

#include "orvel/Object.h"
#include "ui/ColumnHeaders.h"
#include "ui/Control.h"
#include "ui/ListItems.h"

namespace orvel {

enum ListSortOrder : int { lvwAscending = 0, lvwDescending = 1 };

// A report-style list view: column headers, rows with further columns, one
// selected row, and an image list of small icons that rows name by key.
//
// With Sorted on, the rows are ordered by the text of column SortKey (0 the
// row's own text, n its n-th sub-item) without regard to case, in SortOrder;
// the rows are put in order when Sorted, SortKey or SortOrder is set while
// Sorted is on, and keep their place when added afterwards (set Sorted again
// after filling). The sort is stable.
class ListView : public Control {
 public:
  explicit ListView(std::string name);

  orvel::ColumnHeaders& ColumnHeaders() { return columns_; }
  const orvel::ColumnHeaders& ColumnHeaders() const { return columns_; }
  orvel::ListItems& ListItems() { return rows_; }
  const orvel::ListItems& ListItems() const { return rows_; }

  // The selected row, null when none.
  ListItem* SelectedItem() const { return selected_; }
  // Selects a row of this view, or none with null. A row of another view is
  // RuntimeError 380.
  void SetSelectedItem(ListItem* row);

  const std::shared_ptr<Object>& SmallIcons() const { return smallIcons_; }
  void SetSmallIcons(std::shared_ptr<Object> images);

  // Whether each row shows a check box.
  bool Checkboxes() const { return checkboxes_; }
  void SetCheckboxes(bool checkboxes);

  bool Sorted() const { return sorted_; }
  void SetSorted(bool sorted);
  int SortKey() const { return sortKey_; }
  void SetSortKey(int column);  // below 0 is RuntimeError 380
  int SortOrder() const { return sortOrder_; }
  void SetSortOrder(int order);  // lvwAscending or lvwDescending, else 380

  std::function<void(ListItem& row)> OnItemClick;
  std::function<void(ListItem& row)> OnItemCheck;
  std::function<void()> OnDblClick;
  std::function<void(int button, int shift)> OnMouseDown;
  std::function<void(int button, int shift)> OnMouseUp;
  std::function<void(int& keyCode, int shift)> OnKeyDown;
  std::function<void(int columnIndex)> OnColumnClick;  // 1-based

  // The user clicking a row: selects it, then raises ItemClick. Nothing while
  // the view is disabled or hidden, or for a row of another view.
  void ItemClick(ListItem& row);
  // The user toggling a row's check box: flips Checked, then raises
  // ItemCheck. Nothing without Checkboxes, while the view is disabled or
  // hidden, or for a row of another view.
  void ItemCheck(ListItem& row);
  void DblClick();
  void MouseDown(int button, int shift = 0);
  void MouseUp(int button, int shift = 0);
  // Returns the key code after the handler (0: swallowed, or no input taken).
  int KeyDown(int keyCode, int shift = 0);
  void ColumnClick(int columnIndex);

 private:
  friend class ListItems;

  void ApplySort();

  orvel::ColumnHeaders columns_{*this};
  orvel::ListItems rows_{*this};
  ListItem* selected_ = nullptr;
  std::shared_ptr<Object> smallIcons_;
  bool checkboxes_ = false;
  bool sorted_ = false;
  int sortKey_ = 0;
  int sortOrder_ = lvwAscending;
};

}  // namespace orvel
