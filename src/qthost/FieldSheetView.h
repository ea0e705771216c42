#pragma once

#include <QWidget>
#include <memory>
#include <string>

#include "qthost/ControlBinding.h"

class QLabel;
class QTabWidget;
class QTableWidget;
class QTreeWidget;

namespace orvel {

class FieldSheet;

// The host's field sheet drawn: a two-column table of the visible fields
// (caption | value, values as FieldSheet::Text shows them), a red line under
// it for the last refused edit, and a tab row of the sheet's lists, each
// drawn as a list view. Typing into a value cell goes to EditText; a refused
// text is put back and its reason shown. The tab lists raise the grid's list
// events (ListMouseUp with the tab's key and index, ListDoubleClick, and
// ListDragOver and ListDragDrop for a node of the tree dropped on them)
// besides their own row clicks, ticks and keys. "Fields" refreshes the values (the
// table is rebuilt when the fields themselves changed), "Tabs" the tab row.
//
// The view is the sheet's observer while it lives, and the sheet must outlive
// it. In a form it takes the form's focus for the grid.
class FieldSheetView : public QWidget {
  Q_OBJECT
 public:
  explicit FieldSheetView(FieldSheet& sheet, BindingContext context = {},
                          QWidget* parent = nullptr);
  ~FieldSheetView() override;

  FieldSheet& Sheet() const;
  QTableWidget* FieldTable() const;
  QTabWidget* TabWidget() const;
  // The line that tells why the last edit was refused; hidden while none was.
  QLabel* ErrorLine() const;
  // The drawn list of a tab; null for an unknown key.
  QTreeWidget* TabTree(const std::string& key) const;

 private:
  class Binding;
  friend class Binding;

  void MirrorFields();
  void MirrorTabs();
  void FieldEdited(int row);
  void ShowError(const QString& text);

  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orvel
