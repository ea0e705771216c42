#include "qthost/ListViewBinding.h"

#include <QHeaderView>
#include <QDropEvent>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalBlocker>

#include "ui/ControlConstants.h"
#include "ui/ListView.h"

namespace orvel {

namespace {

// Twips as the module sizes columns, at the usual 15 twips a pixel.
constexpr int kTwipsPerPixel = 15;

Qt::Alignment AlignmentOf(int alignment) {
  switch (alignment) {
    case lvwColumnRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    case lvwColumnCenter:
      return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
      return Qt::AlignLeft | Qt::AlignVCenter;
  }
}

// The platform's drop effects: none, copy, move.
int EffectOf(Qt::DropActions actions) {
  if (actions & Qt::MoveAction) return 2;
  if (actions & Qt::CopyAction) return 1;
  return 0;
}

}  // namespace

ListViewBinding::ListViewBinding(ListView& list, BindingContext context, QWidget* parent,
                                 Events events)
    : ControlBinding(list, std::move(context)),
      list_(list),
      tree_(new QTreeWidget(parent)),
      events_(std::move(events)) {
  tree_->setObjectName(ToQt(list.Name()));
  tree_->setRootIsDecorated(false);
  tree_->setUniformRowHeights(true);
  tree_->setAlternatingRowColors(true);
  tree_->setSortingEnabled(false);
  tree_->setSelectionMode(QAbstractItemView::SingleSelection);
  tree_->setSelectionBehavior(QAbstractItemView::SelectRows);
  tree_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  tree_->setAllColumnsShowFocus(true);
  tree_->header()->setSectionsClickable(true);
  tree_->header()->setStretchLastSection(true);
  RouteInput(tree_);
  if (events_.dragOver) tree_->viewport()->setAcceptDrops(true);

  QObject::connect(tree_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int) {
    if (ListItem* row = RowOf(item)) Guard([&] { list_.ItemClick(*row); });
    MirrorSelection();
  });
  // Moving through the rows with the keys clicks them, as on the platform; a
  // mouse press moves the current row too, and its click follows on release.
  QObject::connect(tree_, &QTreeWidget::currentItemChanged, this,
                   [this](QTreeWidgetItem* current, QTreeWidgetItem*) {
                     if (pressing_) return;
                     ListItem* row = RowOf(current);
                     if (row && row != list_.SelectedItem()) {
                       Guard([&] { list_.ItemClick(*row); });
                     }
                   });
  QObject::connect(tree_, &QTreeWidget::itemChanged, this,
                   [this](QTreeWidgetItem* item, int column) {
                     ListItem* row = RowOf(item);
                     if (column != 0 || !row || !list_.Checkboxes()) return;
                     if ((item->checkState(0) == Qt::Checked) == row->Checked()) return;
                     // The item is in the middle of setting its data: the rows are rebuilt
                     // once that is over, not under it.
                     ++deferring_;
                     Guard([&] { list_.ItemCheck(*row); });
                     --deferring_;
                     // A refused tick (or one a handler undid) shows the model's.
                     rowsPending_ = true;
                     if (deferring_ == 0) {
                       rowsPending_ = false;
                       QMetaObject::invokeMethod(
                           this, [this] { MirrorRows(); }, Qt::QueuedConnection);
                     }
                   });
  QObject::connect(tree_->header(), &QHeaderView::sectionClicked, this,
                   [this](int section) { Guard([&] { list_.ColumnClick(section + 1); }); });
}

ListItem* ListViewBinding::RowOf(const QTreeWidgetItem* item) const {
  if (!item) return nullptr;
  const int at = tree_->indexOfTopLevelItem(const_cast<QTreeWidgetItem*>(item));
  if (at < 0 || at >= list_.ListItems().Count()) return nullptr;
  return &list_.ListItems().Item(at + 1);
}

void ListViewBinding::Mirror(std::string_view property) {
  if (property.empty() || property == "ColumnHeaders") {
    MirrorColumns();
    MirrorRows();
  } else if (property == "ListItems" || property == "SmallIcons" || property == "Checkboxes") {
    if (deferring_ > 0) {
      rowsPending_ = true;
    } else {
      MirrorRows();
    }
  } else if (property == "SelectedItem") {
    MirrorSelection();
  }
}

void ListViewBinding::MirrorColumns() {
  const QSignalBlocker block(tree_);
  const auto& columns = list_.ColumnHeaders();
  const int count = columns.Count();
  tree_->setColumnCount(count > 0 ? count : 1);
  tree_->setHeaderHidden(count == 0);
  auto* header = new QTreeWidgetItem();
  for (const auto& column : columns) {
    const int at = column->Index() - 1;
    header->setText(at, ToQt(column->Text()));
    header->setTextAlignment(at, AlignmentOf(column->Alignment()));
  }
  tree_->setHeaderItem(header);
  for (const auto& column : columns) {
    tree_->setColumnWidth(column->Index() - 1, column->Width() / kTwipsPerPixel);
  }
}

void ListViewBinding::MirrorRows() {
  const QSignalBlocker block(tree_);
  const QSignalBlocker blockSelection(tree_->selectionModel());
  tree_->clear();
  const auto& columns = list_.ColumnHeaders();
  const int columnCount = tree_->columnCount();
  QList<QTreeWidgetItem*> items;
  items.reserve(list_.ListItems().Count());
  for (const auto& row : list_.ListItems()) {
    auto* item = new QTreeWidgetItem();
    item->setText(0, ToQt(row->Text()));
    item->setIcon(0, IconOf(list_.SmallIcons(), row->SmallIcon()));
    QFont font = tree_->font();
    font.setBold(row->Bold());
    item->setFont(0, font);
    if (row->ForeColor() != 0) item->setForeground(0, ColorOf(row->ForeColor()));
    for (const auto& sub : row->ListSubItems()) {
      const int at = sub->Index();
      if (at >= columnCount) break;
      item->setText(at, ToQt(sub->Text()));
      if (!sub->ReportIcon().empty())
        item->setIcon(at, IconOf(list_.SmallIcons(), sub->ReportIcon()));
      QFont subFont = tree_->font();
      subFont.setBold(sub->Bold());
      item->setFont(at, subFont);
      if (sub->ForeColor() != 0) item->setForeground(at, ColorOf(sub->ForeColor()));
    }
    for (const auto& column : columns) {
      const int at = column->Index() - 1;
      if (at < columnCount) item->setTextAlignment(at, AlignmentOf(column->Alignment()));
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (list_.Checkboxes()) {
      flags |= Qt::ItemIsUserCheckable;
      item->setCheckState(0, row->Checked() ? Qt::Checked : Qt::Unchecked);
    }
    item->setFlags(flags);
    items.append(item);
  }
  tree_->addTopLevelItems(items);
  MirrorSelection();
}

void ListViewBinding::MirrorSelection() {
  const QSignalBlocker block(tree_);
  const QSignalBlocker blockSelection(tree_->selectionModel());
  ListItem* selected = list_.SelectedItem();
  QTreeWidgetItem* item = nullptr;
  if (selected && selected->Index() - 1 < tree_->topLevelItemCount()) {
    item = tree_->topLevelItem(selected->Index() - 1);
  }
  tree_->clearSelection();
  if (item) {
    tree_->setCurrentItem(item);
    item->setSelected(true);
    tree_->scrollToItem(item);
  } else {
    tree_->setCurrentItem(nullptr);
  }
  // The view repaints what the blocked selection model did not tell it.
  tree_->viewport()->update();
}

int ListViewBinding::KeyDown(int keyCode, int shift) { return list_.KeyDown(keyCode, shift); }

bool ListViewBinding::DragEvent(QEvent* event) {
  auto* drag = static_cast<QDropEvent*>(event);
  const QMimeData* data = drag->mimeData();
  const std::string text = data && data->hasText() ? FromQt(data->text()) : std::string();
  int effect = 0;
  if (!text.empty()) {
    effect = EffectOf(drag->possibleActions());
    Guard([&] { effect = events_.dragOver(text, effect); });
  }
  if (effect == 0) {
    drag->ignore();
    return true;
  }
  drag->setDropAction((effect & 2) ? Qt::MoveAction : Qt::CopyAction);
  drag->accept();
  if (event->type() == QEvent::Drop && events_.drop) Guard([&] { events_.drop(text); });
  return true;
}

bool ListViewBinding::Filter(QObject* watched, QEvent* event) {
  if (watched != tree_->viewport()) return false;
  const QEvent::Type type = event->type();
  if (events_.dragOver &&
      (type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop)) {
    return DragEvent(event);
  }
  if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonRelease &&
      type != QEvent::MouseButtonDblClick) {
    return false;
  }
  auto* mouse = static_cast<QMouseEvent*>(event);
  const int button = PlatformButton(mouse->button());
  const int shift = PlatformShift(mouse->modifiers());
  if (type == QEvent::MouseButtonDblClick) {
    Guard([&] {
      if (events_.doubleClick) {
        events_.doubleClick();
      } else {
        list_.DblClick();
      }
    });
    return false;
  }
  if (button == 0) return false;
  pressing_ = type == QEvent::MouseButtonPress;
  if (type == QEvent::MouseButtonPress) {
    // A right press selects the row under it, so that a popup acts on it.
    if (button == vbRightButton) {
      if (ListItem* row = RowOf(tree_->itemAt(mouse->position().toPoint()))) {
        Guard([&] { list_.SetSelectedItem(row); });
      }
    }
    Guard([&] { list_.MouseDown(button, shift); });
    return button == vbRightButton;
  }
  Guard([&] {
    if (events_.mouseUp) {
      events_.mouseUp(button, shift);
    } else {
      list_.MouseUp(button, shift);
    }
  });
  return button == vbRightButton;
}

}  // namespace orvel
