#pragma once

#include <QTreeWidget>
#include <functional>
#include <string>
#include <string_view>

#include "qthost/ControlBinding.h"

namespace orvel {

class ListItem;
class ListView;

// A report-style list view as a QTreeWidget: its columns (widths from
// twips), rows with their icons from the view's image list, sub-items,
// colours, bold, check boxes and the selected row. The model sorts; the
// widget never reorders rows itself.
//
// The user's actions raise the view's events: a row click (ItemClick), a
// tick (ItemCheck), a double click, mouse buttons down and up (a right press
// over a row selects it first, so that a popup acts on it), keys down and
// column clicks. A list that belongs to the field sheet sends its mouse-up
// and double click to the grid instead (Events), and takes drops: a drag of
// text over it asks dragOver for the drop effect (0 refuses it), and the
// drop goes to drop.
class ListViewBinding : public ControlBinding {
 public:
  struct Events {
    std::function<void(int button, int shift)> mouseUp;
    std::function<void()> doubleClick;
    std::function<int(const std::string& text, int effect)> dragOver;
    std::function<void(const std::string& text)> drop;
  };

  ListViewBinding(ListView& list, BindingContext context, QWidget* parent, Events events = {});
  QWidget* Widget() const override { return tree_; }
  QTreeWidget* Tree() const { return tree_; }
  ListView& List() const { return list_; }

 protected:
  void Mirror(std::string_view property) override;
  int KeyDown(int keyCode, int shift) override;
  bool Filter(QObject* watched, QEvent* event) override;

 private:
  void MirrorColumns();
  void MirrorRows();
  void MirrorSelection();
  // A drag over the rows or a drop on them; true when the event was taken.
  bool DragEvent(QEvent* event);
  // The model row a tree item stands for; null when the rows moved on.
  ListItem* RowOf(const QTreeWidgetItem* item) const;

  ListView& list_;
  QTreeWidget* tree_;
  Events events_;
  int deferring_ = 0;
  bool rowsPending_ = false;
  bool pressing_ = false;  // a mouse button is down over the rows
};

}  // namespace orvel
