// The renderer: forms drawn by FormView, the field sheet by FieldSheetView, driven as a user
// would (or by the widget's signal where there is no pointer), or changed from the model.
#include <gtest/gtest.h>

#include <QtTest>
#include <QtWidgets>
#include <functional>
#include <string>
#include <vector>

#include "currencies/frmCurrencyRate.h"
#include "currencies/frmCurrencyRates.h"
#include "firms/frmAccounts.h"
#include "firms/frmFirmInfo.h"
#include "firms/frmPreview.h"
#include "goods/frmGaranty.h"
#include "goods/frmGoodPreview.h"
#include "common/frmGoodProperty.h"
#include "goods/frmPriceChange.h"
#include "reference/frmTemplate.h"
#include "host/Convert.h"
#include "host/Text.h"
#include "host/MemoryRecordset.h"
#include "orvel/Picture.h"
#include "orvel/RuntimeError.h"
#include "hostkit/ComponentRegistry.h"
#include "hostkit/FieldSheet.h"
#include "qthost/FieldSheetView.h"
#include "qthost/FormView.h"
#include "support/BuiltForm.h"
#include "support/ModuleTest.h"
#include "support/StubObjectUIO.h"
#include "support/TextRecords.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/OptionButton.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {
namespace {

using std::to_string;

std::string Str(const QString& text) { return text.toStdString(); }

void Snap(QWidget& widget, const char* name) {
  QDir().mkpath(ORVEL_SCREENSHOT_DIR);
  widget.grab().save(QString(ORVEL_SCREENSHOT_DIR) + "/" + name + ".png");
}

// A small bookkeeping window with one control of every kind; its handlers write into `log`.
class LedgerForm : public BuiltForm {
 public:
  LedgerForm() : BuiltForm("frmLedger") {
    SetCaption("Sąskaitos kortelė");
    mnuFile.Add("mnuLine", "-");
    mnuFile.Add("mnuQuit", "Baigti");
    mnuPopup.Add("mnuCopy", "Kopijuoti");
    mnuPopup.SetVisible(false);
    OptionButton::Group({&optDebit, &optCredit});
    optDebit.SetValue(true);
    cmbKind.SetStyle(vbComboDropdownList);
    for (const char* kind : {"Aktyvai", "Pasyvai", "Pajamos"}) cmbKind.AddItem(kind);
    imgCurrency.ComboItems().Add("EUR", "Euras");
    imgCurrency.ComboItems().Add("USD", "JAV doleris");
    cmbSearch.AddItem("Šiaulių bankas");
    dtpDate.SetValue(Variant(DateSerial(2026, 11, 23)));
    for (auto [caption, width, alignment] : {std::tuple{"Sąskaita", 1200, lvwColumnLeft},
         {"Pavadinimas", 3600, lvwColumnLeft}, {"Likutis", 1500, lvwColumnRight}})
      lvwAccounts.ColumnHeaders().Add(0, "", caption, width, alignment);
    AddRow("K1", "2410", "Pirkėjų įsiskolinimas", "1 250,00");
    AddRow("K2", "4430", "Skolos tiekėjams", "830,50");
    AddRow("K3", "2710", "Pinigai banke", "12 004,10");
    const std::pair<std::function<void()>*, const char*> plain[] = {
        {&cmdOK.OnClick, "cmdOK.Click"}, {&cmdCancel.OnClick, "cmdCancel.Click"},
        {&optCredit.OnClick, "optCredit.Click"}, {&lvwAccounts.OnDblClick, "lvwAccounts.DblClick"},
        {&mnuSave.OnClick, "mnuSave.Click"}, {&tmrRefresh.OnTimer, "tmrRefresh.Timer"}};
    for (auto [slot, line] : plain) *slot = [this, line = std::string(line)] { Log(line); };
    cmdCancel.OnMouseUp = [this](int button, int) {
      if (button != vbLeftButton) Log("cmdCancel.MouseUp " + to_string(button));
    };
    txtCode.OnChange = [this] { Log("txtCode.Change " + txtCode.Text()); };
    // Codes are upper case: the box turns letters as they are typed.
    txtCode.OnKeyPress = [this](int& key) {
      if (key >= 'a' && key <= 'z') key -= 'a' - 'A';
      Log("txtCode.KeyPress " + to_string(key));
    };
    txtCode.OnValidate = [this](bool& cancel) {
      cancel = codeRequired && txtCode.Text().empty();
      if (cancel) Log("txtCode.Validate cancelled");
    };
    cmbKind.OnClick = [this] { Log("cmbKind.Click " + cmbKind.Text()); };
    cmbSearch.OnChange = [this] { Log("cmbSearch.Change " + cmbSearch.Text()); };
    imgCurrency.OnClick = [this] { Log("imgCurrency.Click " + imgCurrency.Text()); };
    dtpDate.OnChange = [this] { Log("dtpDate.Change " + ConcatText(dtpDate.Value())); };
    chkActive.OnClick = [this] { Log("chkActive.Click " + to_string(chkActive.Value())); };
    lvwAccounts.OnItemClick = [this](ListItem& row) { Log("lvwAccounts.ItemClick " + row.Key()); };
    lvwAccounts.OnMouseUp = [this](int button, int) {
      ListItem* row = lvwAccounts.SelectedItem();
      if (button != vbLeftButton)
        Log("lvwAccounts.MouseUp " + to_string(button) + " " + (row ? row->Key() : "-"));
    };
    lvwAccounts.OnKeyDown = [this](int& key, int) { Log("lvwAccounts.KeyDown " + to_string(key)); };
    lvwAccounts.OnColumnClick = [this](int i) { Log("lvwAccounts.ColumnClick " + to_string(i)); };
    lvwAccounts.OnItemCheck = [this](ListItem& row) {
      Log("lvwAccounts.ItemCheck " + row.Key() + " " + to_string(row.Checked()));
    };
  }

  void AddRow(const char* key, const char* code, const char* name, const char* balance) {
    ListItem& row = lvwAccounts.ListItems().Add(0, key, code);
    for (const char* text : {name, balance}) row.ListSubItems().Add(0, "", text);
  }

  Menu& mnuFile = Add<Menu>("mnuFile", "Failas");
  Menu& mnuSave = mnuFile.Add("mnuSave", "Įrašyti");
  Menu& mnuPopup = Add<Menu>("mnuPopup", "Veiksmai");
  Panel& SOPanel = Add<Panel>("SOPanel", "Sąskaitų planas");
  Label& lblCode = Add<Label>("lblCode", "Kodas:");
  TextBox& txtCode = Add<TextBox>("txtCode");
  Label& lblKind = Add<Label>("lblKind", "Rūšis:");
  ComboBox& cmbKind = Add<ComboBox>("cmbKind");
  Label& lblDate = Add<Label>("lblDate", "Data:");
  DTPicker& dtpDate = Add<DTPicker>("dtpDate");
  Label& lblCurrency = Add<Label>("lblCurrency", "Valiuta:");
  ImageCombo& imgCurrency = Add<ImageCombo>("imgCurrency");
  ComboBox& cmbSearch = Add<ComboBox>("cmbSearch");  // a drop-down combo that takes any text
  CheckBox& chkActive = Add<CheckBox>("chkActive", "Naudojama");
  OptionButton& optDebit = Add<OptionButton>("optDebit", "Debetinė");
  OptionButton& optCredit = Add<OptionButton>("optCredit", "Kreditinė");
  ListView& lvwAccounts = Add<ListView>("lvwAccounts");
  Label& lblNote = Add<Label>("lblNote", "Pastaba: įrašykite sąskaitos kodą");
  Button& cmdOK = Add<Button>("cmdOK", "Gerai");
  Button& cmdCancel = Add<Button>("cmdCancel", "Atšaukti");
  Timer& tmrRefresh = Add<Timer>("tmrRefresh");

  std::vector<std::string> log;
  bool cancelUnload = false;
  bool eatDigits = false;
  bool codeRequired = false;

 protected:
  void Form_QueryUnload(bool& cancel) override { cancel = cancelUnload; }
  void Form_KeyPress(int& key) override { key = eatDigits && key >= '0' && key <= '9' ? 0 : key; }

 private:
  void Log(std::string line) { log.push_back(std::move(line)); }
};

struct FormViewTest : public ::testing::Test {
  void SetUp() override {
    form_.Show();
    view_ = std::make_unique<FormView>(form_);
    view_->show();
    QApplication::processEvents();
    form_.log.clear();
  }

  QWidget* W(const char* name) const { return view_->WidgetNamed(name); }
  template <class X> X* As(const char* name) const { return qobject_cast<X*>(W(name)); }
  template <class X> X* Find(const char* name) const { return view_->findChild<X*>(name); }
  QTreeWidget* Tree() const { return As<QTreeWidget>("lvwAccounts"); }
  QPoint RowPoint(int i) const { return Tree()->visualItemRect(Tree()->topLevelItem(i)).center(); }

  LedgerForm form_;
  std::unique_ptr<FormView> view_;  // goes first
};

TEST_F(FormViewTest, TheWindowShowsTheFormsCaptionsTextsAndLayout) {
  Snap(*view_, "ledger");
  ASSERT_EQ(Tree()->topLevelItemCount(), 3);
  const QStringList texts{view_->windowTitle(), As<QLabel>("SOPanel")->text(),
                          As<QPushButton>("cmdCancel")->text(), As<QCheckBox>("chkActive")->text(),
                          As<QComboBox>("cmbKind")->itemText(2), Tree()->headerItem()->text(2),
                          Tree()->topLevelItem(0)->text(1)};
  EXPECT_EQ(Str(texts.join("|")), "Sąskaitos kortelė|Sąskaitų planas|Atšaukti|Naudojama|Pajamos|"
                                  "Likutis|Pirkėjų įsiskolinimas");
  EXPECT_EQ(view_->findChild<QDateEdit*>("dtpDate.date")->date(), QDate(2026, 11, 23));
  EXPECT_EQ(Tree()->columnWidth(1), 3600 / 15);
  // A label and the input after it make one form row; a lone label spans.
  for (const auto& [label, field] :
       {std::pair{"lblCode", "txtCode"}, {"lblKind", "cmbKind"}, {"lblDate", "dtpDate"}})
    EXPECT_EQ(As<QLabel>(label)->buddy(), W(field)) << field;
  // The bar holds the visible menu only; the popup has no entry.
  QStringList entries;
  for (QAction* a : Find<QMenuBar>("")->actions())
    entries << a->text() + (a->isVisible() ? "+" : "-");
  EXPECT_EQ(entries.join("|"), "Failas+|Veiksmai-");
  EXPECT_FALSE(W("mnuPopup") || W("tmrRefresh"));
  // Buttons sit under the list, to the right; the status panel under them.
  const QRect ok = W("cmdOK")->geometry();
  EXPECT_GT(ok.top(), Tree()->geometry().bottom());
  EXPECT_GT(ok.left(), view_->width() / 2);
  EXPECT_GT(W("SOPanel")->geometry().top(), ok.bottom());
  EXPECT_GE(view_->minimumWidth(), 500);
}


// The change, the widget (by name, "" for the window) and Qt property that show it, or a probe.
using F = LedgerForm;
using T = FormViewTest;
struct Mirroring {
  const char* name;
  std::function<void(F&)> change;
  const char* object;
  const char* property;
  QVariant value;
  std::function<bool(T&)> probe = nullptr;  // where no property shows the change
};

class FormViewMirrorTest : public FormViewTest, public ::testing::WithParamInterface<Mirroring> {};

TEST_P(FormViewMirrorTest, AModelChangeShowsInTheWidget) {
  const Mirroring& row = GetParam();
  auto shows = [&] {
    if (row.probe) return row.probe(*this);
    QObject* object = *row.object ? view_->findChild<QObject*>(row.object) : view_.get();
    return object && object->property(row.property) == row.value;
  };
  ASSERT_FALSE(shows()) << "shown before the change";
  row.change(form_);
  QApplication::processEvents();
  EXPECT_TRUE(shows());
}

QTreeWidgetItem* Row(T& t, int index) { return t.Tree()->topLevelItem(index); }
ListItem& Item(F& f, int index) { return f.lvwAccounts.ListItems().Item(index); }

INSTANTIATE_TEST_SUITE_P(
    Properties, FormViewMirrorTest,
    ::testing::ValuesIn(std::vector<Mirroring>{
        {"FormCaption", [](F& f) { f.SetCaption("Sąskaita"); }, "", "windowTitle", "Sąskaita"},
        {"FormEnabled", [](F& f) { f.SetEnabled(false); }, "", "enabled", false},
        {"Text", [](F& f) { f.txtCode.SetText("ŽŪ-1"); }, "txtCode", "text", "ŽŪ-1"},
        {"Locked", [](F& f) { f.txtCode.SetLocked(true); }, "txtCode", "readOnly", true},
        {"MaxLength", [](F& f) { f.txtCode.SetMaxLength(6); }, "txtCode", "maxLength", 6},
        {"ButtonCaption", [](F& f) { f.cmdOK.SetCaption("Įrašyti"); }, "cmdOK", "text", "Įrašyti"},
        {"Label", [](F& f) { f.lblNote.SetCaption("Įrašyta"); }, "lblNote", "text", "Įrašyta"},
        {"LabelColour", [](F& f) { f.lblNote.SetForeColor(vbRed); }, "", "", {},
         [](T& t) { return t.Find<QLabel>("lblNote")->palette().windowText().color() == Qt::red; }},
        {"PanelCaption", [](F& f) { f.SOPanel.SetCaption("Nauja"); }, "SOPanel", "text", "Nauja"},
        {"ToolTip", [](F& f) { f.SOPanel.SetToolTipText("Eilė"); }, "SOPanel", "toolTip", "Eilė"},
        {"CheckGrayed", [](F& f) { f.chkActive.SetValue(vbGrayed); }, "", "", {},
         [](T& t) { return t.Find<QCheckBox>("chkActive")->checkState() == Qt::PartiallyChecked; }},
        {"OptionPicked", [](F& f) { f.optCredit.SetValue(true); }, "optCredit", "checked", true},
        {"OptionGroup", [](F& f) { f.optCredit.SetValue(true); }, "optDebit", "checked", false},
        {"ComboPick", [](F& f) { f.cmbKind.SetListIndex(1); }, "cmbKind", "currentText", "Pasyvai"},
        {"ImageComboPick",
         [](F& f) { f.imgCurrency.SetSelectedItem(&f.imgCurrency.ComboItems().Item(2)); },
         "imgCurrency", "currentText", "JAV doleris"},
        {"ImageComboText", [](F& f) { f.imgCurrency.SetText("Lt"); }, "imgCurrency",
         "placeholderText", "Lt"},
        {"ImageComboRows", [](F& f) { f.imgCurrency.ComboItems().Add("GBP", "Svaras"); },
         "imgCurrency", "count", 3},
        {"Edit", [](F& f) { f.cmbSearch.SetText("Kita"); }, "cmbSearch", "currentText", "Kita"},
        {"ComboRows", [](F& f) { f.cmbKind.AddItem("Nebalansinės"); }, "cmbKind", "count", 4},
        {"Date", [](F& f) { f.dtpDate.SetValue(Variant(DateSerial(2027, 1, 31))); }, "dtpDate.date",
         "date", QDate(2027, 1, 31)},
        {"DateUnticked", [](F& f) {
           f.dtpDate.SetCheckBox(true);
           f.dtpDate.SetValue(Variant::Null());
         }, "", "", {}, [](T& t) {
           auto* tick = t.Find<QCheckBox>("dtpDate.tick");
           return tick->isVisible() && !tick->isChecked() &&
                  !t.Find<QDateEdit>("dtpDate.date")->isEnabled();
         }},
        {"ListRowAdded", [](F& f) { f.AddRow("K4", "6110", "Sąnaudos", "0,00"); }, "lvwAccounts",
         "topLevelItemCount", 4},
        {"ListSubItem", [](F& f) { Item(f, 2).ListSubItems().Item(2).SetText("900,00"); },
         "", "", {}, [](T& t) { return Row(t, 1)->text(2) == "900,00"; }},
        {"ListBold", [](F& f) { Item(f, 3).SetBold(true); }, "", "", {},
         [](T& t) { return Row(t, 2)->font(0).bold(); }},
        {"ListColumn", [](F& f) { f.lvwAccounts.ColumnHeaders().Item(3).SetText("Suma"); },
         "", "", {}, [](T& t) { return t.Tree()->headerItem()->text(2) == "Suma"; }},
        {"ListSelection", [](F& f) { f.lvwAccounts.SetSelectedItem(&Item(f, 2)); }, "", "", {},
         [](T& t) { return t.Tree()->currentItem() == Row(t, 1) && Row(t, 1)->isSelected(); }},
        {"ListSorted", [](F& f) {
           f.lvwAccounts.SetSortKey(1);
           f.lvwAccounts.SetSorted(true);
         }, "", "", {}, [](T& t) { return Row(t, 0)->text(1) == "Pinigai banke"; }},
        {"ListChecks", [](F& f) {
           f.lvwAccounts.SetCheckboxes(true);
           Item(f, 1).SetChecked(true);
         }, "", "", {}, [](T& t) { return Row(t, 0)->checkState(0) == Qt::Checked; }},
        {"Disabled", [](F& f) { f.cmdOK.SetEnabled(false); }, "cmdOK", "enabled", false},
        {"Hidden", [](F& f) { f.txtCode.SetVisible(false); }, "txtCode", "visible", false},
        {"MenuCaption", [](F& f) { f.mnuSave.SetCaption("Viską"); }, "mnuSave", "text", "Viską"},
        {"MenuDisabled", [](F& f) { f.mnuSave.SetEnabled(false); }, "mnuSave", "enabled", false},
        {"MenuEntryAdded", [](F& f) { f.mnuFile.Add("mnuExport", "Eksportuoti"); }, "mnuExport",
         "text", "Eksportuoti"},
        {"MenuShown", [](F& f) { f.mnuPopup.SetVisible(true); }, "", "", {},
         [](T& t) { return t.W("mnuPopup") && t.Find<QMenuBar>("")->actions()[1]->isVisible(); }},
        {"TimerRuns", [](F& f) { f.tmrRefresh.SetInterval(500); }, "", "", {}, [](T& t) {
           auto* timer = t.Find<QTimer>("tmrRefresh");
           return timer->interval() == 500 && timer->isActive();
         }}}),
    [](const auto& info) { return std::string(info.param.name); });


// The action and the events it raises, joined by "|"; the control is the first event's.
struct UserAction {
  const char* name;
  std::string raised;
  std::function<void(FormViewTest&)> act;
};

class FormViewEventTest : public FormViewTest, public ::testing::WithParamInterface<UserAction> {
 public:
  Control& Target() {
    const std::string name = GetParam().raised.substr(0, GetParam().raised.find('.'));
    Control* control = form_.FindControl(name);
    return control ? *control : *form_.mnuFile.Find(name);
  }
};

// Disabled, the control raises nothing; enabled again, it raises the event.
TEST_P(FormViewEventTest, TheUsersActionRaisesTheEventOnlyWhenEnabled) {
  for (bool enabled : {false, true}) {
    Target().SetEnabled(enabled);
    QApplication::processEvents();
    GetParam().act(*this);
    QApplication::processEvents();
    EXPECT_EQ(Join(form_.log, "|"), enabled ? GetParam().raised : "") << enabled;
  }
}

// Typing letters QTest has no key for (Lithuanian ones), as a keyboard layout delivers them.
void TypeText(QWidget* widget, const char* utf8) {
  for (QChar c : QString::fromUtf8(utf8)) {
    const int key = c.unicode() < 128 ? int{c.toUpper().unicode()} : int{Qt::Key_unknown};
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key(key), QString(c), Qt::NoModifier);
  }
}

// A click on the box of a check or option button (its row may be wide).
void ClickBox(QWidget* widget) {
  QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(8, widget->height() / 2));
}

void RightClick(QWidget* widget, QPoint at) {
  QTest::mousePress(widget, Qt::RightButton, {}, at);
  QTest::mouseRelease(widget, Qt::RightButton, {}, at);
}

void DoubleClick(QWidget* widget, QPoint at) {
  QMouseEvent dbl(QEvent::MouseButtonDblClick, QPointF(at), QPointF(widget->mapToGlobal(at)),
                  Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(widget, &dbl);
}

using Lines = std::vector<std::string>;
void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }

INSTANTIATE_TEST_SUITE_P(
    Actions, FormViewEventTest,
    ::testing::ValuesIn(std::vector<UserAction>{
        {"ButtonClick", "cmdOK.Click", [](T& t) { Click(t.W("cmdOK")); }},
        {"ButtonRightClick", "cmdCancel.MouseUp 2",
         [](T& t) { RightClick(t.W("cmdCancel"), t.W("cmdCancel")->rect().center()); }},
        {"Typing", "txtCode.KeyPress 65|txtCode.Change A|txtCode.KeyPress 66|txtCode.Change AB",
         [](T& t) { QTest::keyClicks(t.W("txtCode"), "ab"); }},
        {"Check", "chkActive.Click 1", [](T& t) { ClickBox(t.W("chkActive")); }},
        {"Option", "optCredit.Click", [](T& t) { ClickBox(t.W("optCredit")); }},
        {"ComboTyping", "cmbSearch.Change Š|cmbSearch.Change Šv",
         [](T& t) { TypeText(t.Find<QLineEdit>("cmbSearch.edit"), "Šv"); }},
        {"ImageComboPick", "imgCurrency.Click JAV doleris",
         [](T& t) { emit t.As<QComboBox>("imgCurrency")->activated(1); }},
        {"ComboPick", "cmbKind.Click Pajamos",
         [](T& t) { emit t.As<QComboBox>("cmbKind")->activated(2); }},
        {"DatePick", "dtpDate.Change 2026-12-31",
         [](T& t) { t.Find<QDateEdit>("dtpDate.date")->setDate(QDate(2026, 12, 31)); }},
        {"ListRowClick", "lvwAccounts.ItemClick K2",
         [](T& t) { QTest::mouseClick(t.Tree()->viewport(), Qt::LeftButton, {}, t.RowPoint(1)); }},
        {"ListRightClick", "lvwAccounts.MouseUp 2 K3",
         [](T& t) { RightClick(t.Tree()->viewport(), t.RowPoint(2)); }},
        // A double click lands on the row its first click selected.
        {"ListDoubleClick", "lvwAccounts.DblClick", [](T& t) {
           t.form_.lvwAccounts.SetSelectedItem(&Item(t.form_, 1));
           DoubleClick(t.Tree()->viewport(), t.RowPoint(0));
         }},
        // What the list shows afterwards is the model's tick.
        {"ListTick", "lvwAccounts.ItemCheck K3 1", [](T& t) {
           t.form_.lvwAccounts.SetCheckboxes(true);
           Row(t, 2)->setCheckState(0, Qt::Checked);
           QApplication::processEvents();
           EXPECT_EQ(Row(t, 2)->checkState(0) == Qt::Checked, Item(t.form_, 3).Checked());
         }},
        {"ListF5", "lvwAccounts.KeyDown 116", [](T& t) { QTest::keyClick(t.Tree(), Qt::Key_F5); }},
        {"ListColumnClick", "lvwAccounts.ColumnClick 3",
         [](T& t) { emit t.Tree()->header()->sectionClicked(2); }},
        {"MenuEntry", "mnuSave.Click", [](T& t) { t.Find<QAction>("mnuSave")->trigger(); }}}),
    [](const auto& info) { return std::string(info.param.name); });


TEST_F(FormViewTest, ATypedKeyGoesThroughTheFormAndItsControl_AValidateThatCancelsKeepsTheFocus) {
  // The box's handler replaced the letters; the form swallows digits first.
  form_.SetKeyPreview(true);
  form_.eatDigits = true;
  QTest::keyClicks(W("txtCode"), "a1b");
  EXPECT_EQ(Str(As<QLineEdit>("txtCode")->text()) + "|" + form_.txtCode.Text(), "AB|AB");
  EXPECT_EQ(form_.ActiveControl(), &form_.txtCode);
  // Without KeyPreview the form does not see the keys.
  form_.SetKeyPreview(false);
  QTest::keyClicks(W("txtCode"), "2");
  EXPECT_EQ(form_.txtCode.Text(), "AB2");
  // A click on the button, or Tab, neither moves the focus nor clicks until the code is there.
  form_.txtCode.SetText("");
  QApplication::setActiveWindow(view_.get());
  ASSERT_TRUE(QTest::qWaitForWindowActive(view_.get()));
  form_.codeRequired = true;
  W("txtCode")->setFocus();
  QApplication::processEvents();
  ASSERT_EQ(form_.ActiveControl(), &form_.txtCode);
  for (const auto& leave : std::vector<std::function<void()>>{
           [&] { Click(W("cmdOK")); }, [&] { QTest::keyClick(W("txtCode"), Qt::Key_Tab); }}) {
    form_.log.clear();
    leave();
    QApplication::processEvents();
    EXPECT_EQ(form_.ActiveControl(), &form_.txtCode);
    EXPECT_EQ(QApplication::focusWidget(), W("txtCode"));
    EXPECT_EQ(form_.log, Lines{"txtCode.Validate cancelled"});
  }
  QTest::keyClicks(W("txtCode"), "x");
  Click(W("cmdOK"));
  QApplication::processEvents();
  EXPECT_EQ(form_.ActiveControl(), &form_.cmdOK);
  EXPECT_EQ(form_.log.back(), "cmdOK.Click");
}

TEST_F(FormViewTest, AFailureIsShown_ATimerTicks_RowsShowIcons_ClosingAsksTheForm) {
  // A failure in a handler is shown, not thrown into Qt; an enabled timer ticks until disabled.
  form_.cmdOK.OnClick = [] { throw RuntimeError(RuntimeError::kInvalidCall, "Sąskaita užimta"); };
  QTest::mouseClick(W("cmdOK"), Qt::LeftButton);
  auto* failure = view_->findChild<QLabel*>("failure");
  ASSERT_TRUE(failure && failure->isVisible());
  EXPECT_TRUE(failure->text().contains("Sąskaita užimta"));
  form_.tmrRefresh.SetInterval(5);
  for (int waited = 0; waited < 2000 && form_.log.empty(); waited += 10) QTest::qWait(10);
  EXPECT_EQ(form_.log, Lines{"tmrRefresh.Timer"});
  form_.tmrRefresh.SetEnabled(false);
  EXPECT_FALSE(view_->findChild<QTimer*>("tmrRefresh")->isActive());
  // Rows name their icons by key in the host's catalogue; a key it lacks, or a picture that
  // does not hold what its header says, draws no icon (and nothing breaks).
  const std::vector<std::string> cross{"2 2 2 1", ". c #FFFFFF", "# c #0000FF", ".#", "#."};
  const std::tuple<std::vector<std::string>, const char*, bool> cases[] = {
      {cross, "C0000100", true}, {cross, "c0000100", true}, {cross, "C9", false},  // any case
      {{"2 9 2 1", ". c #FFFFFF", "# c #0000FF", ".#"}, "C0000100", false},  // rows missing
      {{"4 2 2 1", ". c #FFFFFF", "# c #0000FF", ".#", "#."}, "C0000100", false},  // too short
      {{"picture"}, "C0000100", false}};
  for (const auto& [xpm, key, drawn] : cases) {
    SCOPED_TRACE(key);
    auto catalogue = std::make_shared<RegisteredCatalogue>();
    catalogue->objectIcons.push_back({"C0000100", std::make_shared<Picture>("firm", xpm)});
    form_.lvwAccounts.SetSmallIcons(catalogue);
    form_.lvwAccounts.ListItems().Item(1).SetSmallIcon(key);
    EXPECT_EQ(!Row(*this, 0)->icon(0).isNull(), drawn);
    EXPECT_TRUE(Row(*this, 1)->icon(0).isNull());
  }
  // Closing asks the form, and a cancel keeps the window; the view says the form went once,
  // though Visible and Loaded both changed, and once for each hiding by the module after a
  // showing. Gone, the view lets go of the form.
  QSignalSpy hidden(view_.get(), &FormView::formHidden);
  for (bool cancel : {true, false}) {
    form_.cancelUnload = cancel;
    EXPECT_EQ(view_->close(), !cancel);
    EXPECT_EQ(form_.Loaded(), cancel);
    EXPECT_EQ(hidden.count(), cancel ? 0 : 1);
  }
  form_.Show();
  for (int twice = 0; twice < 2; ++twice) form_.Hide();
  EXPECT_EQ(hidden.count(), 2);
  form_.Show();
  form_.Unload();
  EXPECT_EQ(hidden.count(), 3);
  form_.Show();
  view_.reset();
  for (Control* control : form_.Controls()) EXPECT_EQ(control->Observer(), nullptr);
  EXPECT_EQ(form_.mnuSave.Observer(), nullptr);
  // Changes after the view went touch nothing.
  form_.txtCode.SetText("X");
  form_.AddRow("K9", "1", "2", "3");
  form_.SetCaption("Kita");
}

// Buttons with no caption: the standard ones show a picture for what their name says and no
// text, a picker its dots; a group field's picker, clearing button and label share its line.
TEST(FormViewCardButtonsTest, ACaptionlessButtonShowsAPictureOrThePickersDots) {
  BuiltForm form("frmCardButtons");
  form.Add<Label>("lblGroup", "Grupė:");
  form.Add<TextBox>("txtGroup");
  const std::pair<const char*, const char*> buttons[] = {
      {"cmdParentGroup", "..."}, {"cmdParentGroupClean", nullptr}, {"cmdWrite", "Įrašyti"},
      {"SSCNew", nullptr},       {"SSCClose", nullptr},            {"cmdUp", nullptr},
      {"cmdDown", nullptr},      {"cmdGroup", nullptr},            {"cmdFirmBranches", "..."}};
  for (const auto& [name, caption] : buttons) form.Add<Button>(name, caption);
  FormView view(form);
  view.show();
  QApplication::processEvents();
  for (const auto& [name, pictured] : {std::pair{"SSCNew", true}, {"SSCClose", true},
       {"cmdParentGroupClean", true}, {"cmdUp", true}, {"cmdDown", true},
       {"cmdParentGroup", false}, {"cmdFirmBranches", false}, {"cmdGroup", false}}) {
    auto* button = qobject_cast<QAbstractButton*>(view.WidgetNamed(name));
    ASSERT_NE(button, nullptr) << name;
    EXPECT_EQ(!button->icon().isNull(), pictured) << name;
    const std::string text = Str(button->text());
    EXPECT_TRUE(pictured ? text.empty() : text == "…" || text == "...") << name << " " << text;
    EXPECT_LE(button->maximumWidth(), 40) << name;
  }
  auto centreY = [&](const char* name) {
    QWidget* widget = view.WidgetNamed(name);
    return widget->mapTo(&view, widget->rect().center()).y();
  };
  const int field = centreY("txtGroup");
  for (const char* beside : {"cmdParentGroup", "cmdParentGroupClean", "lblGroup"})
    EXPECT_NEAR(centreY(beside), field, 3) << beside;
  EXPECT_GT(centreY("cmdWrite"), field + 10);
}


// An object with three fields: a text, a whole number and a date, plus one hidden.
class SheetObject : public StubObjectUIO {
 public:
  SheetObject() : StubObjectUIO("O00009001") {}
  std::shared_ptr<Recordset> RsFields() override { return record_; }
  using OrvelObjectUIO::Properties;
  OrvelResult Properties(const std::string& name, std::string&) override {
    OrvelResult result;
    if (name == "Structure") result.Value = Variant(std::shared_ptr<Object>(structure_));
    return result;
  }

 private:
  std::shared_ptr<MemoryRecordset> record_ =
      TextRecords("Name Number Opened Secret", "Kasa|12|@2026-01-05|x");
  std::shared_ptr<MemoryRecordset> structure_ =
      TextRecords("Name Caption xType Visible",
                  "Name|Pavadinimas|200|1\nNumber|Eilės nr.|56|1\nOpened|Atidaryta|61|1\n"
                  "Secret|Slaptas|200|0");
};

// The sheet shows the fields and the tabs, whose lists raise events. Each edit goes through
// EditText; a refusal is shown under the sheet, keeps the cell's value and is cleared by the
// next good edit. The sheet rebuilds on new tabs and fields; a disabled one takes no edit.
TEST(FieldSheetViewTest, ShowsFieldsAndTabs_AnEditGoesThroughEditText_RebuildsOnNewOnes) {
  FieldSheet sheet;
  std::vector<std::string> log;
  sheet.SetObjectUIO(std::make_shared<SheetObject>());
  ListView& lines = sheet.AddTab("Lines", "Eilutės");
  lines.ColumnHeaders().Add(0, "", "Dokumentas", 2400);
  lines.ListItems().Add(0, "D1", "Kasos pajamų orderis");
  lines.ListItems().Add(0, "D2", "Kasos išlaidų orderis");
  sheet.AddTab("Notes", "Pastabos");
  sheet.FillFields();
  sheet.OnFieldChanged = [&] { log.push_back("FieldChanged"); };
  sheet.OnListMouseUp = [&](const std::string& key, int i, int button, int) {
    ListItem* row = sheet.TabList(key)->SelectedItem();
    const std::string selected = row ? row->Key() : "-";
    log.push_back(Join({"ListMouseUp", key, to_string(i), to_string(button), selected}, " "));
  };
  sheet.OnListDoubleClick = [&](int i) { log.push_back("ListDoubleClick " + to_string(i)); };
  FieldSheetView view(sheet);
  view.resize(520, 420);
  view.show();
  QApplication::processEvents();
  QTableWidget* table = view.FieldTable();
  Snap(view, "fieldsheet");
  ASSERT_EQ(table->rowCount(), 3);
  QStringList cells{table->item(0, 0)->text()};  // the first caption, then every value
  for (int row = 0; row < 3; ++row) cells << table->item(row, 1)->text();
  EXPECT_EQ(Str(cells.join("|")), "Pavadinimas|Kasa|12|2026-01-05");
  EXPECT_FALSE(table->item(0, 0)->flags() & Qt::ItemIsEditable);
  ASSERT_EQ(view.TabWidget()->count(), 2);
  EXPECT_EQ(Str(view.TabWidget()->tabText(0)), "Eilutės");
  EXPECT_EQ(view.TabTree("Nope"), nullptr);
  QTreeWidget* tree = view.TabTree("Lines");
  EXPECT_EQ(Str(tree->topLevelItem(1)->text(0)), "Kasos išlaidų orderis");
  const QPoint second = tree->visualItemRect(tree->topLevelItem(1)).center();
  RightClick(tree->viewport(), second);
  DoubleClick(tree->viewport(), second);
  EXPECT_EQ(log, (std::vector<std::string>{"ListMouseUp Lines 0 2 D2", "ListDoubleClick 0"}));
  // The row, the text typed and the cell afterwards: another text is a refusal.
  const std::tuple<int, std::string, std::string> edits[] = {
      {0, "Kasa Nr. 2 – Šiauliai", "Kasa Nr. 2 – Šiauliai"}, {1, "15", "15"}, {1, "penki", "15"},
      {2, "2026-02-01", "2026-02-01"}, {1, "", ""}};
  for (const auto& [row, typed, shown] : edits) {
    SCOPED_TRACE(typed);
    log.clear();
    table->item(row, 1)->setText(QString::fromStdString(typed));
    QApplication::processEvents();
    EXPECT_EQ(Str(table->item(row, 1)->text()), shown);
    const bool taken = typed == shown;
    EXPECT_EQ(log, taken ? std::vector<std::string>{"FieldChanged"} : std::vector<std::string>{});
    EXPECT_EQ(view.ErrorLine()->isVisible(), !taken);
    if (taken) continue;
    Snap(view, "fieldsheet-refused");
    EXPECT_EQ(Str(view.ErrorLine()->text()), sheet.LastError());
    EXPECT_NE(sheet.LastError().find("Eilės nr."), std::string::npos);
  }
  sheet.ClearTabs();
  QApplication::processEvents();
  EXPECT_EQ(view.TabWidget()->count() + table->rowCount(), 0);
  sheet.AddTab("Again", "Vėl").ListItems().Add(0, "", "Eilutė");
  sheet.FillFields();
  QApplication::processEvents();
  EXPECT_EQ(to_string(view.TabWidget()->count()) + to_string(table->rowCount()), "13");
  EXPECT_EQ(Str(view.TabTree("Again")->topLevelItem(0)->text(0)), "Eilutė");
  sheet.SetEnabled(false);
  EXPECT_FALSE(view.isEnabled());
}

// The module's dialogs over the test host (given its services by a bank card opened first):
// every button tells what it does by its words or its picture. The pictures are to look at.
using MakeForm = std::unique_ptr<Form> (*)();
class DialogViewTest : public ModuleTest, public ::testing::WithParamInterface<MakeForm> {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    BO("O0000300").Table().Seed({{{"ID", Variant(5)}, {"Name", Variant("Šiaulių bankas")}}});
    ASSERT_TRUE(Adapter("O0000300")->ClickMenu("O00003005", "", "0", "").Value.ObjectAs<Form>());
  }
};

TEST_P(DialogViewTest, EveryButtonSaysWhatItDoes) {
  std::unique_ptr<Form> form = GetParam()();
  FormView view(*form);
  view.show();
  QApplication::processEvents();
  Snap(view, ("dialog-" + form->Name()).c_str());
  for (auto* button : view.findChildren<QPushButton*>()) {
    EXPECT_TRUE(!button->text().trimmed().isEmpty() || !button->icon().isNull())
        << Str(button->objectName());
  }
}

template <class F>
std::unique_ptr<Form> Make() { return std::make_unique<F>(); }

INSTANTIATE_TEST_SUITE_P(
    Dialogs, DialogViewTest,
    ::testing::Values(Make<frmCurrencyRates>, Make<frmPreview>, Make<frmFirmInfo>,
                      Make<frmAccounts>, Make<frmCurrencyRate>, Make<frmTemplate>,
                      Make<frmPriceChange>, Make<frmGaranty>, Make<frmGoodPreview>,
                      Make<frmGoodProperty>));

}  // namespace
}  // namespace orvel
