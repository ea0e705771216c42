#include "qthost/MainWindow.h"

#include <algorithm>

#include <QAction>
#include <QCloseEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmap>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QStyle>
#include <QTimer>
#include <QTreeWidget>
#include <exception>
#include <functional>
#include <map>
#include <set>

#include "host/Convert.h"
#include "orvel/IconsTable.h"
#include "orvel/OrvelMenuResult.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Picture.h"
#include "orvel/Recordset.h"
#include "hostkit/ComponentRegistry.h"
#include "hostkit/WindowRegistry.h"
#include "qthost/FormView.h"
#include "qthost/QtPrompter.h"
#include "qthost/QtUi.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceObjectManager.h"
#include "ui/Form.h"
#include "ui/Panel.h"

namespace orvel {

namespace {

constexpr int kOidrRole = Qt::UserRole;
constexpr int kOTypeRole = Qt::UserRole + 1;
constexpr int kKindRole = Qt::UserRole + 2;
constexpr int kLoadedRole = Qt::UserRole + 3;

QString Q(const std::string& text) { return QString::fromStdString(text); }

QIcon IconFromPicture(const std::shared_ptr<Picture>& picture) {
  if (!picture || picture->Xpm().empty()) return {};
  std::vector<const char*> rows;
  for (const auto& row : picture->Xpm()) rows.push_back(row.c_str());
  QPixmap pixmap(rows.data());
  return pixmap.isNull() ? QIcon() : QIcon(pixmap);
}

// The catalogue tree as a drag source: a member the type lets go (DragOK)
// is dragged as its OIDR in text, which the lists of a card take. A node
// is a drop target only when its type says so (DropOK); no type of the
// module takes drops on the tree, so a drop there changes nothing.
class CatalogueTree : public QTreeWidget {
 public:
  std::function<bool(QTreeWidgetItem*)> mayDrag;
  std::function<bool(QTreeWidgetItem*)> mayDrop;

 protected:
  QStringList mimeTypes() const override { return {QStringLiteral("text/plain")}; }
  QMimeData* mimeData(const QList<QTreeWidgetItem*>& items) const override {
    if (items.isEmpty()) return nullptr;
    auto* data = new QMimeData;
    data->setText(Q(MainWindow::OidrOf(items.first())));
    return data;
  }
  Qt::DropActions supportedDropActions() const override {
    return Qt::MoveAction | Qt::CopyAction;
  }
  void startDrag(Qt::DropActions actions) override {
    QTreeWidgetItem* item = currentItem();
    if (MainWindow::KindOf(item) != MainWindow::kMemberNode || !mayDrag || !mayDrag(item)) return;
    QTreeWidget::startDrag(actions);
  }
  void dragMoveEvent(QDragMoveEvent* event) override {
    QTreeWidgetItem* target = itemAt(event->position().toPoint());
    if (MainWindow::KindOf(target) == MainWindow::kMemberNode && mayDrop && mayDrop(target)) {
      event->acceptProposedAction();
    } else {
      event->ignore();
    }
  }
  void dropEvent(QDropEvent* event) override { event->ignore(); }
};

std::string FieldText(Recordset& rs, const char* name) {
  if (!rs.Fields().Exists(name)) return "";
  return ConcatText(rs.Fields().Item(name).Value());
}

// A member row that holds members of its own: a group of a grouped
// catalogue, or a sub-catalogue named by a type's OID (eight characters).
bool HoldsMembers(Recordset& rs, const std::string& oidr) {
  if (rs.Fields().Exists("GroupFlag") && Val(FieldText(rs, "GroupFlag")) != 0) return true;
  return oidr.size() == 8;
}

// A sub-window holding a FormView of one of the module's windows. It keeps
// the window alive while the view lives; the view goes first. Closing the
// frame asks the host to close the window (the window may refuse).
class FormSubWindow : public QMdiSubWindow {
 public:
  FormSubWindow(std::shared_ptr<OrvelWindow> window, Form& form, std::function<void()> askClose)
      : window_(std::move(window)), form_(form), askClose_(std::move(askClose)) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    view_ = new FormView(form_, this);
    setWidget(view_);
  }
  ~FormSubWindow() override { delete view_.data(); }

  FormView* View() const { return view_; }
  // The title when the window names itself nothing: the node it came from.
  QString fallbackTitle;
  Form& ShownForm() const { return form_; }
  bool Done() const { return done_; }
  void Finish() {
    if (done_) return;
    done_ = true;
    hide();
    deleteLater();
  }

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (done_) {
      event->accept();
      return;
    }
    event->ignore();
    askClose_();
    if (!form_.Visible()) Finish();
  }

 private:
  std::shared_ptr<OrvelWindow> window_;
  Form& form_;
  std::function<void()> askClose_;
  QPointer<FormView> view_;
  bool done_ = false;
};

// A window's title: the form's caption; for a card without one, its heading
// (the first panel with a caption) and the record's name.
QString TitleOf(OrvelWindow& window, const Form& form) {
  if (!Q(form.Caption()).trimmed().isEmpty()) return Q(form.Caption()).trimmed();
  std::string title;
  for (Control* control : form.Controls()) {
    auto* panel = dynamic_cast<Panel*>(control);
    if (panel && panel->Visible() && !Q(panel->Caption()).trimmed().isEmpty()) {
      title = Q(panel->Caption()).trimmed().toStdString();
      break;
    }
  }
  try {
    auto object = window.OrvelObjectUIO();
    std::string name = object && !object->OIDR().empty() ? object->Preview() : std::string();
    if (!name.empty()) title += (title.empty() ? "" : " - ") + name;
  } catch (const std::exception&) {
    // The heading alone.
  }
  return Q(title);
}

}  // namespace

MainWindow::MainWindow(ReferenceHost& host, QtUi& ui, QtPrompter& prompter,
                       const std::string& database, const std::string& user, QWidget* parent)
    : QMainWindow(parent), host_(host), ui_(ui), prompter_(prompter) {
  setWindowTitle(QString::fromUtf8("Orvel Apskaita"));
  resize(1280, 800);

  auto* tree = new CatalogueTree;
  tree->mayDrag = [this](QTreeWidgetItem* node) { return TypeLetsGo(node); };
  tree->mayDrop = [this](QTreeWidgetItem* node) { return TypeTakesDrop(node); };
  tree->setDragEnabled(true);
  tree->setAcceptDrops(true);
  tree->setDragDropMode(QAbstractItemView::DragDrop);
  tree_ = tree;
  tree_->setHeaderHidden(true);
  // Every row is one line with a small icon: the tree need not measure each.
  tree_->setUniformRowHeights(true);
  tree_->setContextMenuPolicy(Qt::CustomContextMenu);
  tree_->setMinimumWidth(260);
  tree_->installEventFilter(this);
  area_ = new QMdiArea;
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  auto* splitter = new QSplitter;
  splitter->addWidget(tree_);
  splitter->addWidget(area_);
  splitter->setStretchFactor(1, 1);
  splitter->setSizes({300, 980});
  setCentralWidget(splitter);

  windowsMenu_ = menuBar()->addMenu(QString::fromUtf8("&Langai"));
  connect(windowsMenu_, &QMenu::aboutToShow, this, [this] { RebuildWindowsMenu(); });
  RebuildWindowsMenu();

  where_ = new QLabel(QString::fromUtf8("Duomenų bazė: ") + Q(database) +
                      QString::fromUtf8("    Naudotojas: ") + Q(user));
  statusBar()->addPermanentWidget(where_);
  prompter_.SetStatusBar(statusBar());
  prompter_.SetParentWidget(this);
  ui_.SetParentWidget(this);

  connect(tree_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* node) {
    if (!node->data(0, kLoadedRole).toBool()) LoadMembers(node);
    ShowMembersInView();
  });
  connect(tree_->verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this] { ShowMembersInView(); });
  connect(tree_, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint& pos) {
    if (QTreeWidgetItem* node = tree_->itemAt(pos)) {
      tree_->setCurrentItem(node);
      ShowNodeMenu(node, tree_->viewport()->mapToGlobal(pos));
    }
  });
  connect(tree_, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* node, int) {
    if (KindOf(node) == kMemberNode) ClickNode(node, "0");
  });

  host_.Windows().SetObserver([this](const std::string& op, const std::vector<std::string>&) {
    if (op == "IsOpen" || op == "QueryRemove" || syncQueued_) return;
    // The registry tells before it acts: look once it is done.
    syncQueued_ = true;
    QTimer::singleShot(0, this, [this] {
      syncQueued_ = false;
      SyncWindows();
    });
  });
  BuildTree();
}

MainWindow::~MainWindow() {
  host_.Windows().SetObserver(nullptr);
  ui_.SetParentWidget(nullptr);
  prompter_.SetStatusBar(nullptr);
  prompter_.SetParentWidget(nullptr);
  // The views go before the windows they show.
  for (QMdiSubWindow* sub : area_->subWindowList()) delete sub;
}

std::string MainWindow::OidrOf(const QTreeWidgetItem* node) {
  return node ? node->data(0, kOidrRole).toString().toStdString() : std::string();
}

std::string MainWindow::OTypeOf(const QTreeWidgetItem* node) {
  return node ? node->data(0, kOTypeRole).toString().toStdString() : std::string();
}

int MainWindow::KindOf(const QTreeWidgetItem* node) {
  return node ? node->data(0, kKindRole).toInt() : kGroupNode;
}

void MainWindow::BuildTree() {
  const auto& catalogue = host_.Catalogue();
  std::set<std::string> shown;
  auto addType = [&](QTreeWidgetItem* groupNode, const std::string& otype,
                     const std::string& caption) {
    auto* node = new QTreeWidgetItem(groupNode, {Q(caption)});
    node->setData(0, kOidrRole, Q(otype));
    node->setData(0, kOTypeRole, QString());
    node->setData(0, kKindRole, kTypeNode);
    node->setIcon(0, IconOf(otype, "C"));
    node->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    shown.insert(otype);
  };
  for (const auto& group : catalogue.groups) {
    auto* groupNode = new QTreeWidgetItem(tree_, {Q(group.caption)});
    groupNode->setData(0, kKindRole, kGroupNode);
    for (const auto& icon : catalogue.icons) {
      if (icon.key == group.iconKey) groupNode->setIcon(0, IconFromPicture(icon.picture));
    }
    for (const auto& component : group.components) {
      addType(groupNode, component.otype, component.caption);
    }
    groupNode->setExpanded(true);
  }
  // The types a module registered for other modules' catalogues (the goods
  // of the stock module): in this host there is no such module, so those a
  // user can act on, the ones with a menu of their own, get a group here.
  QTreeWidgetItem* others = nullptr;
  for (const auto& type : catalogue.objectTypes) {
    if (shown.count(type.otype) || !HasMenu(type.otype)) continue;
    if (!others) {
      others = new QTreeWidgetItem(tree_, {QString::fromUtf8("Kiti objektai")});
      others->setData(0, kKindRole, kGroupNode);
    }
    addType(others, type.otype, type.caption);
  }
}

bool MainWindow::HasMenu(const std::string& otype) const {
  try {
    auto type = host_.Objects().GetOrvelObjectUI(otype);
    if (!type) return false;
    auto menu = type->GetMenu(otype, "", "");
    return menu && !menu->empty();
  } catch (const std::exception&) {
    return false;
  }
}

QIcon MainWindow::IconOf(const std::string& typeOidr, const std::string& kind) const {
  const std::string cacheKey = typeOidr.substr(0, 8) + "/" + kind;
  if (auto it = icons_.find(cacheKey); it != icons_.end()) return it->second;
  QIcon icon;
  try {
    auto type = host_.Objects().GetOrvelObjectUI(typeOidr);
    auto table = type ? type->GetIconsTable() : nullptr;
    auto item = table ? table->Item(kind) : std::nullopt;
    if (item) icon = IconFromPicture(host_.Catalogue().ObjectIcon(*item));
  } catch (const std::exception&) {
    // No icon: the node shows its caption alone.
  }
  icons_[cacheKey] = icon;
  return icon;
}

bool MainWindow::TypeLetsGo(QTreeWidgetItem* node) {
  return AskType(node, [&](OrvelObjectUI& type, const std::string& oidr) {
    return type.DragOK(oidr, OTypeOf(node), "");
  });
}

bool MainWindow::TypeTakesDrop(QTreeWidgetItem* node) {
  return AskType(node, [](OrvelObjectUI& type, const std::string& oidr) {
    return type.DropOK(oidr);
  });
}

bool MainWindow::AskType(QTreeWidgetItem* node,
                         const std::function<bool(OrvelObjectUI&, const std::string&)>& ask) {
  const std::string oidr = OidrOf(node);
  try {
    auto type = host_.Objects().GetOrvelObjectUI(oidr);
    return type && ask(*type, oidr);
  } catch (const std::exception&) {
    return false;
  }
}

void MainWindow::LoadMembers(QTreeWidgetItem* node) {
  if (!node || KindOf(node) == kGroupNode) return;
  node->setData(0, kLoadedRole, true);
  const std::string oidr = OidrOf(node);
  // The hourglass while the members are read, whatever pointer was before.
  struct Hourglass {
    explicit Hourglass(QtUi& ui) : ui(ui), before(ui.GetMousePointer()) {
      ui.SetMousePointer(vbHourglass);
    }
    ~Hourglass() { ui.SetMousePointer(before); }
    QtUi& ui;
    int32_t before;
  } hourglass(ui_);
  try {
    auto type = host_.Objects().GetOrvelObjectUI(oidr);
    auto rs = type ? type->GetOrvelObjectList(oidr, OTypeOf(node), "") : nullptr;
    FillMembers(node, rs);
  } catch (const std::exception& e) {
    ShowFailure(e.what());
  } catch (...) {
    ShowFailure("Nežinoma klaida");
  }
}

void MainWindow::Forget(QTreeWidgetItem* node) {
  unshown_.erase(node);
  for (int i = 0; i < node->childCount(); ++i) Forget(node->child(i));
}

void MainWindow::FillMembers(QTreeWidgetItem* node, const std::shared_ptr<Recordset>& rs) {
  for (QTreeWidgetItem* child : node->takeChildren()) {
    Forget(child);
    delete child;
  }
  unshown_.erase(node);
  node->setData(0, kLoadedRole, true);
  const std::string typeOidr = OidrOf(node);
  if (rs) {
    rs->MoveFirst();
    // Under a sub-catalogue (a reference book) the records are its entries.
    unshown_[node] = {rs, typeOidr, KindOf(node) == kMemberNode && typeOidr.size() == 8};
    ShowMoreMembers(node);
  }
  node->setChildIndicatorPolicy(node->childCount() > 0
                                    ? QTreeWidgetItem::ShowIndicator
                                    : QTreeWidgetItem::DontShowIndicatorWhenChildless);
}

void MainWindow::ShowMembersInView() {
  const int bottom = tree_->viewport()->height();
  std::vector<QTreeWidgetItem*> nodes;
  for (const auto& [node, rows] : unshown_) nodes.push_back(node);
  for (QTreeWidgetItem* node : nodes) {
    while (unshown_.contains(node) && node->isExpanded() && node->childCount() > 0) {
      const QRect last = tree_->visualItemRect(node->child(node->childCount() - 1));
      if (!last.isValid() || last.top() >= bottom) break;
      ShowMoreMembers(node);
    }
  }
}

void MainWindow::ShowMoreMembers(QTreeWidgetItem* node) {
  auto unshown = unshown_.find(node);
  if (unshown == unshown_.end()) return;
  const MemberRows rows = unshown->second;
  Recordset& rs = *rows.rs;
  // A page's items are made apart and added at once: the tree lays itself
  // out once a page, not once an item. Each layout walks every row shown, so
  // a page is as long as what is shown already (kMembersPage at least): a
  // list scrolled to its end is laid out a few times, not once per 200 rows.
  const int pageSize = std::max(kMembersPage, node->childCount());
  QList<QTreeWidgetItem*> page;
  const auto addPage = [&] {
    node->addChildren(page);
    page.clear();
  };
  try {
    for (int shown = 0; shown < pageSize && !rs.IsEOF(); rs.MoveNext()) {
      const std::string oidr = FieldText(rs, "OIDR");
      if (oidr.empty()) continue;
      const bool holds = HoldsMembers(rs, oidr);
      std::string otype = FieldText(rs, "OType");
      if (otype.empty()) otype = holds ? "Group" : rows.entries ? "T" : "C";
      auto* child = new QTreeWidgetItem(QStringList{Q(FieldText(rs, "Preview"))});
      page.append(child);
      child->setData(0, kOidrRole, Q(oidr));
      child->setData(0, kOTypeRole, Q(otype));
      child->setData(0, kKindRole, kMemberNode);
      QIcon icon = IconOf(rows.typeOidr.empty() ? oidr : rows.typeOidr, otype);
      if (icon.isNull() && holds) icon = style()->standardIcon(QStyle::SP_DirIcon);
      child->setIcon(0, icon);
      if (holds) child->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
      ++shown;
    }
    addPage();
    if (rs.IsEOF()) unshown_.erase(node);
  } catch (const std::exception& e) {
    addPage();
    unshown_.erase(node);
    ShowFailure(e.what());
  }
}

QTreeWidgetItem* MainWindow::NodeOf(const std::string& oidr) const {
  const QString key = Q(oidr);
  for (QTreeWidgetItemIterator it(tree_); *it; ++it) {
    if ((*it)->data(0, kOidrRole).toString() == key) return *it;
  }
  return nullptr;
}

void MainWindow::ShowNodeMenu(QTreeWidgetItem* node, const QPoint& at) {
  if (!node || KindOf(node) == kGroupNode) return;
  const std::string oidr = OidrOf(node);
  std::optional<OrvelMenuItems> items;
  try {
    auto type = host_.Objects().GetOrvelObjectUI(oidr);
    if (type) items = type->GetMenu(oidr, OTypeOf(node), "");
  } catch (const std::exception& e) {
    ShowFailure(e.what());
    return;
  }
  if (!items || items->empty()) return;
  QMenu menu(this);
  std::map<QAction*, std::string> keys;
  for (const auto& item : *items) {
    if (item.Caption == "-") {
      menu.addSeparator();
    } else {
      keys[menu.addAction(Q(item.Caption))] = item.Key;
    }
  }
  QAction* picked = menu.exec(at);
  if (!picked) return;
  // The node may be gone by now (a window shown meanwhile refreshed it).
  QTreeWidgetItem* still = NodeOf(oidr);
  if (still != node) node = still;
  if (node) ClickNode(node, keys[picked]);
}

bool MainWindow::ClickNode(QTreeWidgetItem* node, const std::string& key) {
  if (!node || KindOf(node) == kGroupNode) return false;
  const std::string oidr = OidrOf(node);
  try {
    auto type = host_.Objects().GetOrvelObjectUI(oidr);
    if (!type) return false;
    OrvelMenuResult result = type->ClickMenu(oidr, OTypeOf(node), key, "");
    Carry(node, result);
    return true;
  } catch (const std::exception& e) {
    ShowFailure(e.what());
  } catch (...) {
    ShowFailure("Nežinoma klaida");
  }
  return false;
}

void MainWindow::Carry(QTreeWidgetItem* node, const OrvelMenuResult& result) {
  switch (result.Action) {
    case OrvelMenuResult::kShowWindow: {
      auto window = result.Value.ObjectAs<OrvelWindow>();
      if (!window) return;
      // A record whose window is open already: that window comes forward
      // rather than a second one over the same record.
      const std::string key = WindowRegistry::KeyOf(window);
      if (auto open = key.empty() ? nullptr : host_.Windows().Window(key); open && open != window) {
        auto form = std::dynamic_pointer_cast<Form>(open);
        if (QMdiSubWindow* sub = form ? SubWindowOf(*form) : nullptr) {
          area_->setActiveSubWindow(sub);
          return;
        }
      }
      openedFrom_ = node ? node->text(0) : QString();
      host_.Windows().ShowWindow(window);
      SyncWindows();
      openedFrom_.clear();
      if (auto form = std::dynamic_pointer_cast<Form>(window)) {
        if (QMdiSubWindow* sub = SubWindowOf(*form)) area_->setActiveSubWindow(sub);
      }
      return;
    }
    case OrvelMenuResult::kRemoved:
      if (KindOf(node) == kMemberNode) {
        Forget(node);
        delete node;
      }
      return;
    case OrvelMenuResult::kReplaceList: {
      if (!result.Value.IsArray() || result.Value.ArrayValue().empty()) return;
      auto rs = result.Value.ArrayValue()[0].ObjectAs<Recordset>();
      // A member without members of its own stands for its list.
      QTreeWidgetItem* target = node;
      if (KindOf(node) == kMemberNode &&
          node->childIndicatorPolicy() != QTreeWidgetItem::ShowIndicator && node->parent()) {
        target = node->parent();
      }
      FillMembers(target, rs);
      target->setExpanded(true);
      tree_->setCurrentItem(target);
      return;
    }
    default:
      return;
  }
}

QMdiSubWindow* MainWindow::SubWindowOf(const Form& form) const {
  for (QMdiSubWindow* sub : area_->subWindowList()) {
    auto* shown = static_cast<FormSubWindow*>(sub);
    if (!shown->Done() && &shown->ShownForm() == &form) return sub;
  }
  return nullptr;
}

void MainWindow::SyncWindows() {
  for (const auto& entry : host_.Windows().OpenWindows()) {
    auto form = std::dynamic_pointer_cast<Form>(entry.window);
    if (!form || !form->Visible()) continue;
    if (QMdiSubWindow* sub = SubWindowOf(*form)) {
      QString title = TitleOf(*entry.window, *form);
      sub->setWindowTitle(title.isEmpty() ? static_cast<FormSubWindow*>(sub)->fallbackTitle
                                          : title);
      continue;
    }
    OpenSubWindow(entry.window, *form);
  }
  RebuildWindowsMenu();
}

void MainWindow::OpenSubWindow(const std::shared_ptr<OrvelWindow>& window, Form& form) {
  auto askClose = [this, weak = std::weak_ptr<OrvelWindow>(window), &form] {
    try {
      auto held = weak.lock();
      if (held && host_.Windows().Window(WindowRegistry::KeyOf(held)) == held) {
        host_.Windows().CloseWindow(held);
      } else {
        form.Unload();
      }
    } catch (const std::exception& e) {
      ShowFailure(e.what());
    }
  };
  auto* sub = new FormSubWindow(window, form, askClose);
  sub->fallbackTitle = openedFrom_;
  QString title = TitleOf(*window, form);
  sub->setWindowTitle(title.isEmpty() ? openedFrom_ : title);
  connect(sub->View(), &FormView::formHidden, sub, [this, sub] {
    sub->Finish();
    QTimer::singleShot(0, this, [this] { RebuildWindowsMenu(); });
  });
  area_->addSubWindow(sub);
  sub->resize(sub->sizeHint().expandedTo(QSize(640, 520)).boundedTo(area_->size()));
  sub->show();
  area_->setActiveSubWindow(sub);
}

void MainWindow::RebuildWindowsMenu() {
  windowsMenu_->clear();
  windowsMenu_->addAction(QString::fromUtf8("Išdėstyti pakopomis"), area_,
                          &QMdiArea::cascadeSubWindows);
  windowsMenu_->addAction(QString::fromUtf8("Išdėstyti greta"), area_, &QMdiArea::tileSubWindows);
  windowsMenu_->addSeparator();
  for (QMdiSubWindow* sub : area_->subWindowList()) {
    if (static_cast<FormSubWindow*>(sub)->Done()) continue;
    QAction* action = windowsMenu_->addAction(sub->windowTitle());
    action->setCheckable(true);
    action->setChecked(sub == area_->activeSubWindow());
    QPointer<QMdiSubWindow> target(sub);
    connect(action, &QAction::triggered, area_, [this, target] {
      if (target) area_->setActiveSubWindow(target);
    });
  }
}

void MainWindow::ShowFailure(const std::string& what) {
  QMessageBox::critical(this, QString::fromUtf8("Klaida"), QString::fromUtf8(what.c_str()));
}

std::string MainWindow::ChordOf(int qtKey, Qt::KeyboardModifiers modifiers) {
  int mask = 0;
  if (modifiers & Qt::ShiftModifier) mask |= 1;
  if (modifiers & Qt::ControlModifier) mask |= 2;
  if (modifiers & Qt::AltModifier) mask |= 4;
  int virtualKey = 0;
  if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) {
    virtualKey = 112 + (qtKey - Qt::Key_F1);
  } else if ((mask & 6) && ((qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) ||
                            (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9))) {
    // Letters and digits are chords only with Ctrl or Alt; alone they search
    // the tree.
    virtualKey = qtKey;
  }
  if (virtualKey == 0) return "";
  return std::to_string(virtualKey) + "S" + std::to_string(mask);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == tree_ && event->type() == QEvent::KeyPress) {
    auto* key = static_cast<QKeyEvent*>(event);
    QTreeWidgetItem* node = tree_->currentItem();
    if (node && KindOf(node) != kGroupNode) {
      if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
          KindOf(node) == kMemberNode) {
        ClickNode(node, "0");
        return true;
      }
      std::string chord = ChordOf(key->key(), key->modifiers());
      if (!chord.empty()) {
        ClickNode(node, chord);
        return true;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  // Each open window is asked to close, last first; one that refuses (its
  // changes not written) keeps the program running.
  auto open = host_.Windows().OpenWindows();
  for (auto it = open.rbegin(); it != open.rend(); ++it) {
    try {
      host_.Windows().CloseWindow(it->window);
    } catch (const std::exception& e) {
      ShowFailure(e.what());
    }
  }
  if (!host_.Windows().OpenWindows().empty()) {
    event->ignore();
    return;
  }
  event->accept();
}

}  // namespace orvel
