// The host's Qt shell: boxes, menus, dialogs, the PDF printout, the main window over the real
// module and a sample database. A button is pressed by its text, a menu entry by keyboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtPrintSupport>
#include <QtTest>
#include <QtWidgets>
#include <algorithm>
#include <deque>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "TempDatabase.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/Database.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelPrintColumns.h"
#include "orvel/OrvelPrintRow.h"
#include "orvel/OrvelPrintRows.h"
#include "orvel/OrvelPrintSection.h"
#include "orvel/OrvelPrintSections.h"
#include "orvel/OrvelWindow.h"
#include "hostkit/ComponentRegistry.h"
#include "hostkit/PrintDocument.h"
#include "hostkit/WindowRegistry.h"
#include "orvel/OrvelModule.h"
#include "qthost/FieldSheetView.h"
#include "qthost/FormView.h"
#include "qthost/MainWindow.h"
#include "qthost/PdfPrint.h"
#include "qthost/QtPrompter.h"
#include "qthost/QtUi.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceHostClasses.h"
#include "refhost/ReferenceObjectManager.h"
#include "support/BuiltForm.h"
#include "support/Sql.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Menu.h"

namespace orvel {
namespace {

using ::testing::AllOf;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAreArray;

QString Plain(QString text) { return text.remove('&'); }

void Shot(QWidget& widget, const char* name) {
  QDir().mkpath(ORVEL_SCREENSHOT_DIR);
  widget.grab().save(QString(ORVEL_SCREENSHOT_DIR "/") + name + ".png");
}

// Runs what is pending, frames deleted later included, as before the user's next action.
void Settle() {
  QApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
}

void Key(QWidget& target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(&target, &press);
  QKeyEvent release(QEvent::KeyRelease, key, modifiers);
  QApplication::sendEvent(&target, &release);
}

// Acts on the boxes, dialogs and popup menus that come up, one step for each in turn. One no
// step expects is closed with Esc and fails the test, as does a step left when the driver goes.
class ModalDriver {
 public:
  using Step = std::function<void(QWidget&)>;

  ModalDriver() {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start(10);
  }
  ~ModalDriver() { EXPECT_TRUE(steps_.empty()) << steps_.size() << " step(s) not taken"; }

  void Then(Step step) { steps_.push_back(std::move(step)); }

 private:

  void Poll() {
    QWidget* top = QApplication::activePopupWidget();
    if (!top) top = QApplication::activeModalWidget();
    if (!top || !top->isVisible() || std::count(seen_.begin(), seen_.end(), top)) return;
    seen_.emplace_back(top);
    if (steps_.empty()) {
      auto* box = qobject_cast<QMessageBox*>(top);
      ADD_FAILURE() << (top->windowTitle() + ": " + (box ? box->text() : "")).toStdString();
      return Key(*top, Qt::Key_Escape);
    }
    Step step = std::move(steps_.front());
    steps_.pop_front();
    step(*top);
  }

  QTimer timer_;
  std::deque<Step> steps_;
  std::vector<QPointer<QWidget>> seen_;
};

QAbstractButton* ButtonIn(QWidget& widget, const QString& text) {
  for (auto* button : widget.findChildren<QAbstractButton*>()) {
    if (Plain(button->text()) == text && button->isVisible()) return button;
  }
  return nullptr;
}

// Presses the box's button or picks the menu's entry of that text.
ModalDriver::Step Press(const QString& text) {
  return [text](QWidget& widget) {
    auto* menu = qobject_cast<QMenu*>(&widget);
    for (QAction* action : menu ? menu->actions() : QList<QAction*>()) {
      if (Plain(action->text()) != text) continue;
      menu->setActiveAction(action);
      return Key(*menu, Qt::Key_Return);
    }
    if (QAbstractButton* button = menu ? nullptr : ButtonIn(widget, text)) return button->click();
    ADD_FAILURE() << "no button or entry " << text.toStdString();
    Key(widget, Qt::Key_Escape);
  };
}


// Each box shows its flags' buttons and icon, its title and text, and answers the one pressed.
TEST(QtUiTest, EachBoxShowsTheButtonsAndIconOfItsFlags_TheHourglassWaits_ThePrompterChooses) {
  const char* kQuestion = "Ar tikrai norite panaikinti?\nAB Šiaulių bankas";
  const QString ok = "Gerai", cancel = "Atšaukti", yes = "Taip", no = "Ne";
  // The flags, the buttons shown, the icon, the button pressed and the answer.
  const std::tuple<int32_t, std::vector<QString>, QMessageBox::Icon, QString, int32_t> cases[] = {
      {vbOKOnly, {ok}, QMessageBox::NoIcon, ok, vbOK},
      {vbOKOnly + vbInformation, {ok}, QMessageBox::Information, "", vbOK},
      {vbOKCancel + vbExclamation, {ok, cancel}, QMessageBox::Warning, ok, vbOK},
      {vbOKCancel + vbCritical, {ok, cancel}, QMessageBox::Critical, "", vbCancel},
      {vbYesNoCancel + vbQuestion, {yes, no, cancel}, QMessageBox::Question, no, vbNo},
      {vbYesNo + vbQuestion, {yes, no}, QMessageBox::Question, yes, vbYes},
      {vbYesNo + vbExclamation, {yes, no}, QMessageBox::Warning, "", vbNo}};
  QtUi ui;
  for (const auto& [flags, buttons, icon, press, result] : cases) {
    SCOPED_TRACE(flags);
    ModalDriver driver;
    std::vector<QString> shown;
    driver.Then([&, icon = icon, press = press](QWidget& widget) {
      auto* box = qobject_cast<QMessageBox*>(&widget);
      for (auto* button : box->buttons()) shown.push_back(button->text());
      EXPECT_EQ(box->icon(), icon);
      EXPECT_EQ(box->windowTitle() + "|" + box->text(), QString("Orvel Apskaita|") + kQuestion);
      press.isEmpty() ? Key(widget, Qt::Key_Escape) : Press(press)(widget);
    });
    EXPECT_EQ(ui.MsgBox(kQuestion, flags, "Orvel Apskaita"), result);
    EXPECT_THAT(shown, UnorderedElementsAreArray(buttons));
  }
  // The hourglass is the wait cursor until the default comes back.
  ASSERT_EQ(QApplication::overrideCursor(), nullptr);
  for (int twice = 0; twice < 2; ++twice) ui.SetMousePointer(vbHourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  EXPECT_EQ(ui.GetMousePointer(), vbHourglass);
  ui.SetMousePointer(vbDefault);
  // Set twice, restored once: nothing is left over.
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(ui.GetMousePointer(), vbDefault);
  EXPECT_TRUE(ui.ScreenWidth() > 0 && ui.ScreenWidth() % 15 == 0) << ui.ScreenWidth();
  // The prompter's choices are listed, the answer the row taken or -1 (cancelled, or none and
  // no dialog). What is said goes to the status bar on one line and to the log as it is.
  std::ostringstream log;
  QtPrompter prompter(&log);
  for (int row : {1, -1}) {
    ModalDriver driver;
    QStringList listed;
    driver.Then([&](QWidget& dialog) {
      auto* list = dialog.findChild<QListView*>();
      ASSERT_NE(list, nullptr);
      for (int i = 0; i < list->model()->rowCount(); ++i)
        listed << list->model()->index(i, 0).data().toString();
      if (row >= 0) list->setCurrentIndex(list->model()->index(row, 0));
      Press(row < 0 ? "Atšaukti" : "Gerai")(dialog);
    });
    EXPECT_EQ(prompter.Choose("Grupė", {"Centrinis sandėlis", "Kauno sandėlis", "Parduotuvės"}),
              row);
    EXPECT_EQ(listed.join("|"), QString("Centrinis sandėlis|Kauno sandėlis|Parduotuvės"));
  }
  EXPECT_EQ(prompter.Choose("Grupė", {}), -1);
  QStatusBar bar;
  prompter.SetStatusBar(&bar);
  prompter.Say("Spaudinys įrašytas:\n/tmp/a.pdf");
  EXPECT_EQ(bar.currentMessage(), QString("Spaudinys įrašytas: /tmp/a.pdf"));
  EXPECT_EQ(log.str(), "Spaudinys įrašytas:\n/tmp/a.pdf\n");
  EXPECT_EQ(prompter.Said().size(), 1u);
}


class ModalForm : public BuiltForm {
 public:
  ModalForm() : BuiltForm("frmModal") {
    SetCaption("Langas");
    Add<Button>("cmdHide", "Paslėpti").OnClick = [this] { Hide(); };
    Add<Button>("cmdUnload", "Uždaryti").OnClick = [this] { Unload(); };
  }
  int refusals = 0;  // unloads to refuse before one is let through
  int unloads = 0;

 protected:
  void Form_QueryUnload(bool& cancel) override { cancel = refusals-- > 0; }
  void Form_Unload() override { ++unloads; }
};

// ShowModal returns once the form is hidden or unloaded; a refused close leaves it up.
TEST(QtUiTest, ShowModalReturnsOnceTheFormIsHiddenOrUnloaded_APopupsPickRaisesItsClick) {
  const struct {
    int refusals;
    std::vector<const char*> actions;  // a button's caption, or "close" for the frame
    int unloads;                       // afterwards: loaded when none
  } cases[] = {{0, {"Paslėpti"}, 0}, {0, {"Uždaryti"}, 1}, {0, {"close"}, 1},
               {1, {"close", "Paslėpti"}, 0}};
  QtUi ui;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.actions.front());
    ModalForm form;
    form.refusals = c.refusals;
    ModalDriver driver;
    QString title;
    driver.Then([&](QWidget& dialog) {
      title = dialog.windowTitle();
      ASSERT_NE(dialog.findChild<FormView*>(), nullptr);
      for (const char* action : c.actions)
        std::string(action) == "close" ? (void)dialog.close() : ButtonIn(dialog, action)->click();
    });
    form.ShowModal(ui);
    EXPECT_EQ(title, QString("Langas"));
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(form.Loaded(), c.unloads == 0);
    EXPECT_EQ(form.unloads, c.unloads);
  }
  // A form's popup: an entry, a separator, a submenu, a hidden and a disabled ("!") entry. The
  // pick, down a submenu too, raises its Click and nothing else; a dismissed menu raises none.
  const std::pair<std::vector<QString>, std::vector<std::string>> picks[] = {
      {{"Atidaryti"}, {"mnuOpen"}}, {{"Naujas", "Kopija"}, {"mnuCopy"}}, {{}, {}}};
  for (const auto& [path, clicks] : picks) {
    Menu root("mnuPopup", "Meniu");
    root.Add("mnuOpen", "&Atidaryti");
    root.Add("mnuSep", "-");
    Menu& fresh = root.Add("mnuNew", "Naujas");
    fresh.Add("mnuEmpty", "Tuščias");
    fresh.Add("mnuCopy", "Kopija");
    root.Add("mnuHidden", "Paslėptas").SetVisible(false);
    root.Add("mnuOff", "Išjungtas").SetEnabled(false);
    std::vector<std::string> clicked;
    for (const char* name : {"mnuOpen", "mnuEmpty", "mnuCopy", "mnuHidden", "mnuOff"})
      root.Find(name)->OnClick = [&clicked, name] { clicked.push_back(name); };
    ModalDriver driver;
    QStringList entries;
    driver.Then([&, &path = path](QWidget& widget) {
      for (QAction* action : qobject_cast<QMenu*>(&widget)->actions()) {
        entries << (action->isEnabled() ? "" : "!") +
                       (action->isSeparator() ? "-" : Plain(action->text()));
      }
      path.empty() ? Key(widget, Qt::Key_Escape) : Press(path[0])(widget);
    });
    for (size_t i = 1; i < path.size(); ++i) driver.Then(Press(path[i]));
    ui.PopupMenu(root);
    EXPECT_EQ(entries.join("|"), QString("Atidaryti|-|Naujas|!Išjungtas"));
    EXPECT_EQ(clicked, clicks);
  }
}


// A title line and a table of `rows` rows, as the list windows print.
void FillDocument(PrintDocument& doc, int rows, int32_t orientation) {
  doc.SetOrientation(orientation);
  doc.SetFontSize(9);
  auto sections = doc.Sections();
  sections->Add(0)->Rows()->AddText("Bankai ir jų kodai", true, 14, 2);
  auto table = sections->Add(1);
  table->SetVerticalLines(true);
  table->SetHorizontalLines(true);
  table->Columns()->Add("Pavadinimas", 7.5, 0);
  table->Columns()->Add("Kodas", 2.5, 2);
  table->Columns()->Add("SWIFT kodas", 3.5, 1);
  for (int i = 0; i < rows; ++i) {
    auto row = table->Rows()->AddRow();
    row->AddCell(0, "AB Šiaulių bankas Nr. " + std::to_string(i), i == 0);
    row->AddCell(1, std::to_string(70000 + i), false);
    row->AddCell(2, "CBSBLT26XXX", false);
  }
  sections->Add(0)->Rows()->AddText("Sudarė: Ąžuolas Čiūžė", false, 0, 0);
}

QByteArray ReadAll(const std::string& path) {
  QFile file(QString::fromStdString(path));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Every page carries its box, A4 in points as the orientation turns it.
TEST(PdfPrintTest, WritesAPdfOfTheDocumentInItsOrientation_ThePreviewShowsItsPages) {
  const char* portrait = "/MediaBox [0 0 595.000000 842.000000]";
  for (const auto& [rows, orientation, mediaBox] :
       {std::tuple{6, OrvelPrintDoc::kPortrait, portrait},
        {6, OrvelPrintDoc::kLandscape, "/MediaBox [0 0 842.000000 595.000000]"},
        {150, OrvelPrintDoc::kPortrait, portrait}}) {
    QTemporaryDir folder;
    PdfPrint printout((folder.path() + "/spaudiniai").toStdString());
    PrintDocument doc([&](const PrintDocument::Content& content, bool preview) {
      EXPECT_FALSE(preview);
      EXPECT_FALSE(printout.WritePdf(content).empty());
    });
    FillDocument(doc, rows, orientation);
    doc.Print(false);
    EXPECT_EQ(printout.LastFile().rfind(printout.Folder(), 0), 0u);
    QByteArray pdf = ReadAll(printout.LastFile());
    EXPECT_TRUE(pdf.startsWith("%PDF-"));
    EXPECT_TRUE(pdf.contains(mediaBox)) << pdf.mid(pdf.indexOf("/MediaBox"), 40).toStdString();
    EXPECT_EQ(pdf.count("/MediaBox") > 1, rows > 100);  // one page, or several
  }
  // The preview shows the pages of the same painting.
  QTemporaryDir folder;
  PdfPrint printout(folder.path().toStdString());
  ModalDriver driver;
  int pages = 0;
  driver.Then([&](QWidget& dialog) {
    ASSERT_NE(qobject_cast<QPrintPreviewDialog*>(&dialog), nullptr);
    QApplication::processEvents();
    if (auto* preview = dialog.findChild<QPrintPreviewWidget*>()) pages = preview->pageCount();
    Shot(dialog, "printout-preview");
    Key(dialog, Qt::Key_Escape);
  });
  PrintDocument doc(printout.Renderer());
  FillDocument(doc, 60, OrvelPrintDoc::kPortrait);
  doc.Print(true);
  EXPECT_EQ(pages, 2);
  EXPECT_FALSE(printout.LastFile().empty());
}


class ShellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string error;
    ASSERT_TRUE(host_.Start({file_.Path(), ORVEL_MODULE_PATH, "admin", "/tmp"}, error)) << error;
    host_.Layer().SetCallObserver([this](const char* op, auto& name, auto& param) {
      calls_.push_back(std::string(op) + " " + name + " " + param);
    });
    host_.HostClasses().SetPrintRenderer(printout_.Renderer());
    window_ = std::make_unique<MainWindow>(host_, *ui_, prompter_, file_.Path(), "admin");
    window_->resize(1280, 800);
    window_->show();
    Settle();
  }

  // A member's node, its type opened first.
  QTreeWidgetItem* Node(const std::string& oidr) {
    if (QTreeWidgetItem* type = window_->NodeOf(oidr.substr(0, 8))) type->setExpanded(true);
    return window_->NodeOf(oidr);
  }

  void MenuOf(QTreeWidgetItem* node) {
    QTreeWidget* tree = window_->Tree();
    tree->setCurrentItem(node);
    window_->ShowNodeMenu(node, tree->viewport()->mapToGlobal(tree->visualItemRect(node).center()));
  }

  std::vector<std::string> Captions(QTreeWidgetItem* node) {
    std::vector<std::string> captions;
    for (int i = 0; i < node->childCount(); ++i)
      captions.push_back(node->child(i)->text(0).toStdString());
    return captions;
  }

  FormView* ActiveView() {
    QMdiSubWindow* sub = window_->Area()->activeSubWindow();
    return sub ? sub->findChild<FormView*>() : nullptr;
  }

  // The view of the window a member's menu key opens.
  FormView* Open(const std::string& oidr, const std::string& key) {
    QTreeWidgetItem* node = Node(oidr);
    if (!node || !window_->ClickNode(node, key)) return nullptr;
    Settle();
    return ActiveView();
  }

  QTableWidget* FieldTable(FormView* v) { return v->findChild<FieldSheetView*>()->FieldTable(); }
  Variant Stored(const std::string& sql) { return FirstValue(host_.Database(), sql); }
  bool Called(const std::string& call) const { return std::ranges::count(calls_, call) > 0; }
  qsizetype SubWindows() const { return window_->Area()->subWindowList().size(); }

  TempDatabase file_;
  QtPrompter prompter_;
  std::shared_ptr<QtUi> ui_ = std::make_shared<QtUi>();
  QTemporaryDir prints_;
  PdfPrint printout_{prints_.path().toStdString()};
  ReferenceHost host_{prompter_, ui_};
  std::vector<std::string> calls_;
  ModalDriver driver_;
  std::unique_ptr<MainWindow> window_;  // goes first
};

QAbstractButton* ButtonOf(FormView* view, const char* name) {
  return qobject_cast<QAbstractButton*>(view->WidgetNamed(name));
}

// The registered group, then other modules' types that have a menu; nothing read unopened.
TEST_F(ShellTest, TheTreeShowsTheRegisteredCatalogueAndReadsMembersWhenOpened_KeysAreChords) {
  QTreeWidget* tree = window_->Tree();
  ASSERT_EQ(tree->topLevelItemCount(), static_cast<int>(host_.Catalogue().groups.size()) + 1);
  QTreeWidgetItem* others = tree->topLevelItem(tree->topLevelItemCount() - 1);
  EXPECT_EQ(others->text(0), QString("Kiti objektai"));
  EXPECT_THAT(Captions(others), ElementsAre("Atsargos"));
  QTreeWidgetItem* group = tree->topLevelItem(0);
  EXPECT_EQ(group->text(0).toStdString(), host_.Catalogue().groups[0].caption);
  std::vector<std::string> registered;
  for (const auto& component : host_.Catalogue().groups[0].components)
    registered.push_back(component.caption);
  EXPECT_EQ(Captions(group), registered);
  EXPECT_THAT(registered, Contains("Bankai"));
  EXPECT_THAT(calls_, IsEmpty());
  QTreeWidgetItem* banks = window_->NodeOf("O0000300");
  ASSERT_NE(banks, nullptr);
  banks->setExpanded(true);
  EXPECT_EQ(calls_, std::vector<std::string>{"GetCall Orvel_GetObjectList 'O0000300'"});
  ASSERT_EQ(banks->childCount(), 6);
  EXPECT_THAT(Captions(banks), Contains("AB Šiaulių bankas"));
  EXPECT_FALSE(banks->child(0)->icon(0).isNull());
  // The firm groups hold firms of their own.
  QTreeWidgetItem* firms = window_->NodeOf("O0000100");
  firms->setExpanded(true);
  ASSERT_GT(firms->childCount(), 0);
  EXPECT_EQ(firms->child(0)->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);
  firms->child(0)->setExpanded(true);
  EXPECT_GT(firms->child(0)->childCount(), 0);
  firms->setExpanded(false);
  tree->setCurrentItem(banks);
  Shot(*window_, "main-window");
  // Keys become the module's chords; letters alone search the tree, they are no chord.
  const std::tuple<int, Qt::KeyboardModifiers, const char*> cases[] = {
      {Qt::Key_F5, Qt::NoModifier, "116S0"}, {Qt::Key_F, Qt::ControlModifier, "70S2"},
      {Qt::Key_R, Qt::ControlModifier, "82S2"}, {Qt::Key_F1, Qt::AltModifier, "112S4"},
      {Qt::Key_F5, Qt::ShiftModifier | Qt::ControlModifier, "116S3"},
      {Qt::Key_F, Qt::NoModifier, ""}, {Qt::Key_F, Qt::ShiftModifier, ""},
      {Qt::Key_Return, Qt::ControlModifier, ""}};
  for (const auto& [key, modifiers, chord] : cases)
    EXPECT_EQ(MainWindow::ChordOf(key, modifiers), chord) << key;
}

// Enter or the menu opens a member's card once, titled by its heading and the bank's name.
// Closing a card with edits not written asks: "Ne" keeps it open, "Taip" closes without writing.
TEST_F(ShellTest, TheBankCardIsOpenedEditedWrittenAndClosed_TheCurrencyCardsTabsShowTheirFrames) {
  QTreeWidgetItem* bank = Node("O00003001");
  ASSERT_NE(bank, nullptr);
  window_->Tree()->setCurrentItem(bank);
  for (int twice = 0; twice < 2; ++twice) Key(*window_->Tree(), Qt::Key_Return);
  driver_.Then(Press("Padėti ant darbo stalo"));
  MenuOf(bank);
  EXPECT_EQ(SubWindows(), 1);
  FormView* view = ActiveView();
  ASSERT_NE(view, nullptr);
  Form& card = view->ViewedForm();
  // Kept here: the host lets the window go once it is closed.
  ASSERT_EQ(host_.Windows().OpenWindows().size(), 1u);
  auto held = host_.Windows().OpenWindows()[0].window;
  EXPECT_EQ(WindowRegistry::KeyOf(held), "O00003001");
  const std::string name = ConcatText(Stored("SELECT Name FROM banks WHERE ID = 1"));
  const std::string title = window_->Area()->activeSubWindow()->windowTitle().toStdString();
  EXPECT_THAT(title, AllOf(HasSubstr("Banko kortelė"), HasSubstr(name)));
  EXPECT_EQ(window_->WindowsMenu()->actions().back()->text().toStdString(), title);
  QTableWidget* table = FieldTable(view);
  EXPECT_FALSE(table->findItems(QString::fromStdString(name), Qt::MatchExactly).isEmpty()) << name;
  const auto swiftCaption = table->findItems("SWIFT", Qt::MatchStartsWith);
  ASSERT_FALSE(swiftCaption.isEmpty());
  const int swift = swiftCaption[0]->row();
  table->item(swift, 1)->setText("CBVILT2XXXX");
  ASSERT_TRUE(ButtonOf(view, "cmdEnter") && ButtonOf(view, "cmdEnter")->isEnabled());
  Shot(*window_, "bank-card");
  ButtonOf(view, "cmdEnter")->click();
  EXPECT_TRUE(Called("ExecArrayCall Orvel_SaveObject 'O0000300','O00003001'"));
  EXPECT_EQ(Stored("SELECT SWIFT FROM banks WHERE ID = 1"), Variant("CBVILT2XXXX"));
  EXPECT_EQ(table->item(swift, 1)->text(), "CBVILT2XXXX");
  // The card's own close button closes its sub-window through the host.
  ButtonOf(view, "SSCClose")->click();
  Settle();
  EXPECT_TRUE(host_.Windows().OpenWindows().empty());
  EXPECT_EQ(SubWindows(), 0);
  EXPECT_FALSE(card.Loaded());
  EXPECT_EQ(window_->WindowsMenu()->actions().size(), 3);  // the two layouts and a separator
  view = Open("O00003002", "0");
  ASSERT_NE(view, nullptr);
  FieldTable(view)->item(0, 1)->setText("Bankas be įrašo");
  for (const auto& [answer, closed] : {std::pair{"Ne", false}, {"Taip", true}}) {
    QString question;
    driver_.Then([&, answer = answer](QWidget& box) {
      question = qobject_cast<QMessageBox*>(&box)->text();
      Press(answer)(box);
    });
    window_->Area()->activeSubWindow()->close();
    Settle();
    EXPECT_TRUE(question.contains("Uždaryti be išsaugojimo?"));
    EXPECT_EQ(host_.Windows().OpenWindows().empty(), closed);
    EXPECT_EQ(SubWindows() == 0, closed);
  }
  EXPECT_NE(Stored("SELECT Name FROM banks WHERE ID = 2"), Variant("Bankas be įrašo"));
  // The currency card shows its data or rate history by the tab; the other tab's frames go.
  view = Open("O00022002", "Padėti &ant darbo stalo");
  ASSERT_NE(view, nullptr);
  auto* tabs = qobject_cast<QTabBar*>(view->WidgetNamed("TabStrip"));
  ASSERT_EQ(tabs->count(), 2);
  EXPECT_EQ(tabs->tabText(1), QString("Valiutos kursai"));
  // Which of the code, the rates and the rates' first date are shown, as "1" or "0".
  auto shown = [&] {
    std::string out;
    for (const char* name : {"txtCode", "lvwRates", "dtpDateFrom"})
      out += view->WidgetNamed(name) && view->WidgetNamed(name)->isVisibleTo(view) ? "1" : "0";
    return out;
  };
  EXPECT_EQ(shown(), "100");
  QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
  Settle();
  EXPECT_EQ(tabs->currentIndex(), 1);
  EXPECT_EQ(shown(), "011");
  EXPECT_GT(qobject_cast<QTreeWidget*>(view->WidgetNamed("lvwRates"))->topLevelItemCount(), 0);
  Shot(*window_, "currency-rates-tab");
}

// Deleting from a member's menu asks; a cancel keeps both. Ctrl+F asks a text to search by.
TEST_F(ShellTest, DeletingFromTheMenuAsks_CtrlFReplacesTheMembers_TheListWindowShowsAndPrints) {
  QTreeWidgetItem* bank = Node("O00003006");
  ASSERT_NE(bank, nullptr);
  QTreeWidgetItem* banks = bank->parent();
  for (const auto& [answer, removed] : {std::pair{"Atšaukti", false}, {"Gerai", true}}) {
    driver_.Then(Press("Panaikinti"));
    driver_.Then(Press(answer));
    MenuOf(bank);
    EXPECT_EQ(banks->childCount(), removed ? 5 : 6);
    EXPECT_EQ(window_->NodeOf("O00003006") == nullptr, removed);
    EXPECT_EQ(Stored("SELECT COUNT(*) FROM banks WHERE ID = 6"), Variant(removed ? 0 : 1));
  }
  window_->Tree()->setCurrentItem(banks);
  driver_.Then([](QWidget& dialog) {
    dialog.findChild<QLineEdit*>()->setText("Šiaulių");
    Press("Gerai")(dialog);
  });
  Key(*window_->Tree(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_TRUE(Called("GetCall Orvel_GetObjectList '','Šiaulių'"));
  EXPECT_EQ(Captions(banks), std::vector<std::string>{"AB Šiaulių bankas"});
  // The banks' list: its modal column dialog's buttons have words or pictures; Cancel leaves.
  auto list = std::dynamic_pointer_cast<OrvelWindow>(
      host_.Module().CreateObject("frmReferenceBookPreview"));
  list->SetOrvelObjectUIO(host_.Objects().GetOrvelObjectUI("O0000300")->GetOrvelObject("O0000300"));
  host_.Windows().ShowWindow(list);
  Settle();
  QMdiSubWindow* sub = window_->SubWindowOf(*std::dynamic_pointer_cast<Form>(list));
  ASSERT_NE(sub, nullptr);
  auto* view = sub->findChild<FormView*>();
  auto* rows = qobject_cast<QTreeWidget*>(view->WidgetNamed("lvwRec"));
  ASSERT_EQ(rows->topLevelItemCount(), 5);  // the one deleted above is gone
  EXPECT_GE(rows->columnCount(), 3);
  EXPECT_EQ(rows->topLevelItem(0)->text(0).toStdString(),
            ConcatText(Stored("SELECT Name FROM banks ORDER BY Name LIMIT 1")));
  sub->showMaximized();
  Shot(*window_, "banks-list");
  QString dialogTitle;
  driver_.Then([&](QWidget& dialog) {
    dialogTitle = dialog.windowTitle();
    auto* config = dialog.findChild<FormView*>();
    Settle();
    Shot(dialog, "column-dialog");
    EXPECT_FALSE(ButtonOf(config, "cmdUp")->icon().isNull());
    EXPECT_FALSE(ButtonOf(config, "cmdDown")->icon().isNull());
    EXPECT_EQ(ButtonOf(config, "cmdOK")->text() + "|" + ButtonOf(config, "cmdCancel")->text(),
              QString("Gerai|Atšaukti"));
    ButtonOf(config, "cmdCancel")->click();
  });
  ButtonOf(view, "cmdConfig")->click();
  EXPECT_EQ(dialogTitle.trimmed(), QString("Vaizdo parametrai"));
  ButtonOf(view, "cmdPrint")->click();
  EXPECT_TRUE(ReadAll(printout_.LastFile()).startsWith("%PDF-"));
}

// A drag of `text` entering and moving over a widget and let go there: whether it was taken.
bool DragOnto(QWidget& target, const QString& text) {
  QMimeData data;
  data.setText(text);
  const QPoint at = target.rect().center();
  const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
  QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(&target, &enter);
  QDragMoveEvent move(at, actions, &data, Qt::LeftButton, Qt::NoModifier);
  move.ignore();
  QCoreApplication::sendEvent(&target, &move);
  if (!move.isAccepted()) return false;
  QDropEvent release(QPointF(at), actions, &data, Qt::LeftButton, Qt::NoModifier);
  release.ignore();
  QCoreApplication::sendEvent(&target, &release);
  return release.isAccepted();
}

// A firm dragged onto another group card's firm list moves into it; what is not a firm doesn't.
TEST_F(ShellTest, AFirmDraggedOntoAGroupsCardMovesIntoIt_ALongListIsShownAPageAtATime) {
  QTreeWidget* tree = window_->Tree();
  QTreeWidgetItem* source = Node("O00001002");
  ASSERT_NE(source, nullptr);
  source->setExpanded(true);
  QTreeWidgetItem* target = window_->NodeOf("O00001003");
  QTreeWidgetItem* firm = window_->NodeOf("O0000100158");
  ASSERT_TRUE(target && firm);
  EXPECT_TRUE(window_->TypeLetsGo(firm));
  EXPECT_FALSE(window_->TypeTakesDrop(target));
  // The text it is dragged as, asked from the tree's model as a drag would ask it.
  tree->setCurrentItem(firm);
  std::unique_ptr<QMimeData> dragged(tree->model()->mimeData({tree->currentIndex()}));
  ASSERT_EQ(dragged->text(), QString("O0000100158"));
  ASSERT_TRUE(window_->ClickNode(target, "0"));
  Settle();
  QTreeWidget* list = ActiveView()->findChild<FieldSheetView*>()->TabTree("Firms");
  ASSERT_NE(list, nullptr);
  const int listed = list->topLevelItemCount();
  EXPECT_FALSE(DragOnto(*list->viewport(), "O00003001"));
  EXPECT_EQ(list->topLevelItemCount(), listed);
  ASSERT_TRUE(DragOnto(*list->viewport(), "O0000100158"));
  Settle();
  EXPECT_EQ(ConcatText(Stored("SELECT ParentID FROM firms WHERE ID = 158")), "3");
  EXPECT_EQ(list->topLevelItemCount(), listed + 1);
  // A long list is shown a page at a time: each scroll to the end brings the next page.
  host_.Database().Exec(
      "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 450)"
      " INSERT INTO banks (Name, Code) SELECT 'Bankas ' || (1000 + i), 80000 + i FROM n");
  QTreeWidgetItem* banks = window_->NodeOf("O0000300");
  banks->setExpanded(true);
  EXPECT_EQ(banks->childCount(), MainWindow::kMembersPage);
  EXPECT_TRUE(window_->HasUnshownMembers(banks));
  QScrollBar* bar = window_->Tree()->verticalScrollBar();
  for (int page = 0; page < 3 && window_->HasUnshownMembers(banks); ++page)
    bar->setValue(bar->maximum());
  EXPECT_FALSE(window_->HasUnshownMembers(banks));
  EXPECT_EQ(banks->childCount(), 456);
}

// Each catalogue window opens as a sub-window from its node's menu key (pictures to look at).
struct WindowCase {
  const char* name;
  std::vector<std::string> open;  // nodes to open on the way, in order
  std::string node;
  std::string key;
};

class ShellWindowsTest : public ShellTest, public ::testing::WithParamInterface<WindowCase> {};

TEST_P(ShellWindowsTest, OpensAsASubWindowFromTheTree) {
  const auto& c = GetParam();
  for (const auto& oidr : c.open) {
    ASSERT_NE(window_->NodeOf(oidr), nullptr) << oidr;
    window_->NodeOf(oidr)->setExpanded(true);
  }
  QTreeWidgetItem* node = window_->NodeOf(c.node);
  ASSERT_NE(node, nullptr);
  window_->Tree()->setCurrentItem(node);
  ASSERT_TRUE(window_->ClickNode(node, c.key));
  Settle();
  QMdiSubWindow* sub = window_->Area()->activeSubWindow();
  ASSERT_TRUE(SubWindows() == 1 && sub) << SubWindows();
  EXPECT_FALSE(sub->windowTitle().trimmed().isEmpty());
  Shot(*window_, (std::string("window-") + c.name).c_str());
}

INSTANTIATE_TEST_SUITE_P(
    Catalogues, ShellWindowsTest,
    ::testing::ValuesIn(std::vector<WindowCase>{
        {"firm", {"O0000100"}, "O000010069", "0"}, {"new_bank", {}, "O0000300", "1"},
        {"firm_group", {"O0000100", "O00001001"}, "O00001005", "0"},
        {"good", {"O0000200", "O00002001"}, "O00002002", "0"},
        {"goods_group", {"O0000200"}, "O00002001", "0"},
        {"rates", {}, "O0002200", "Valiutų kursų įrašymas"},
        {"warehouses", {"O0001600"}, "O0001605", "5"},
        {"departments", {"O0001600"}, "O0001604", "5"},
        {"warehouse", {"O0001600", "O0001605"}, "O00016053", "0"},
        {"department", {"O0001600", "O0001604"}, "O00016046", "0"},
        {"destinations", {"O0001600"}, "O0001615", "5"}}),
    [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace orvel
