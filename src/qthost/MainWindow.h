#pragma once

#include <QIcon>
#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

namespace orvel {

class Form;
class OrvelObjectUI;
class OrvelWindow;
class PdfPrint;
class QtPrompter;
class QtUi;
class Recordset;
class ReferenceHost;
struct OrvelMenuResult;

// The main window of the window host. Left, the catalogue tree of what the
// module registered: its groups, their components (the object types) and
// each type's members, read when a node is first opened. A node's context
// menu, its key chords and a double click on a member go to the type's
// ClickMenu, and the result is carried out: a window shown, the node
// dropped, or its members replaced. A member is dragged, as its OIDR, onto
// the lists of a card. Right, the module's windows as
// sub-windows, each a FormView of the window's form, kept in step with the
// host's window registry. A record whose window is open already brings that
// window forward instead of opening a second one. A window is titled by its
// form's caption, else by its heading panel and record name, else by the
// node it was opened from.
//
// A node's members are read at once but shown a page at a time (each page as
// long as what is shown already): the next page comes as the last member
// shown scrolls into view, so that a group of 200,000 goods opens as quickly
// as its first screen is read, and the hourglass shows while a node's
// members are read.
class MainWindow : public QMainWindow {
 public:
  // Node kinds in the tree.
  enum NodeKind { kGroupNode = 0, kTypeNode = 1, kMemberNode = 2 };

  MainWindow(ReferenceHost& host, QtUi& ui, QtPrompter& prompter, const std::string& database,
             const std::string& user, QWidget* parent = nullptr);
  ~MainWindow() override;

  QTreeWidget* Tree() const { return tree_; }
  QMdiArea* Area() const { return area_; }
  QMenu* WindowsMenu() const { return windowsMenu_; }

  // The first node of an OIDR among the nodes read so far; null when none.
  QTreeWidgetItem* NodeOf(const std::string& oidr) const;
  static std::string OidrOf(const QTreeWidgetItem* node);
  static std::string OTypeOf(const QTreeWidgetItem* node);
  static int KindOf(const QTreeWidgetItem* node);

  // Reads a node's members now (as opening it does).
  void LoadMembers(QTreeWidgetItem* node);
  // The members shown at a time.
  static constexpr int kMembersPage = 200;
  // Whether a node has members read but not shown yet.
  bool HasUnshownMembers(QTreeWidgetItem* node) const { return unshown_.contains(node); }
  // Whether the node's type lets the member be dragged (DragOK), or takes a
  // drop on it (DropOK); false when the type cannot be reached.
  bool TypeLetsGo(QTreeWidgetItem* node);
  bool TypeTakesDrop(QTreeWidgetItem* node);
  // The node's context menu at a screen point; the pick is sent to the type.
  void ShowNodeMenu(QTreeWidgetItem* node, const QPoint& at);
  // Sends a menu key (or chord) of a node to its type and carries out what
  // comes back. False when the node has no type or the call failed.
  bool ClickNode(QTreeWidgetItem* node, const std::string& key);
  // Opens a sub-window for every shown window of the host that has none.
  void SyncWindows();
  // The sub-window showing a form; null when none.
  QMdiSubWindow* SubWindowOf(const Form& form) const;

  // A key chord as the module's ClickMenu takes it, "<virtual key>S<shift
  // mask>" (F5 = "116S0", Ctrl+F = "70S2"); "" for keys that are no chord.
  static std::string ChordOf(int qtKey, Qt::KeyboardModifiers modifiers);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildTree();
  void FillMembers(QTreeWidgetItem* node, const std::shared_ptr<Recordset>& rs);
  void ShowMoreMembers(QTreeWidgetItem* node);
  // Shows pages until the last member shown of every open node lies below
  // the view.
  void ShowMembersInView();
  // Drops what is kept for a node and the nodes under it, before it goes.
  void Forget(QTreeWidgetItem* node);
  void Carry(QTreeWidgetItem* node, const OrvelMenuResult& result);
  void OpenSubWindow(const std::shared_ptr<OrvelWindow>& window, Form& form);
  void RebuildWindowsMenu();
  void ShowFailure(const std::string& what);
  QIcon IconOf(const std::string& typeOidr, const std::string& kind) const;
  bool HasMenu(const std::string& otype) const;
  bool AskType(QTreeWidgetItem* node,
               const std::function<bool(OrvelObjectUI&, const std::string&)>& ask);

  ReferenceHost& host_;
  QtUi& ui_;
  QtPrompter& prompter_;
  QTreeWidget* tree_ = nullptr;
  QMdiArea* area_ = nullptr;
  QMenu* windowsMenu_ = nullptr;
  QLabel* where_ = nullptr;
  bool syncQueued_ = false;
  QString openedFrom_;  // the caption of the node a window is being opened from
  mutable std::map<std::string, QIcon> icons_;
  // A node's members not shown yet: the set stands on the first of them.
  struct MemberRows {
    std::shared_ptr<Recordset> rs;
    std::string typeOidr;
    bool entries = false;  // records of a reference book, under the book's node
  };
  std::map<QTreeWidgetItem*, MemberRows> unshown_;
};

}  // namespace orvel
