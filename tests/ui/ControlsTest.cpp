#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <type_traits>

#include "support/RuntimeErrors.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Frame.h"
#include "ui/ImageCombo.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/OptionButton.h"
#include "ui/Panel.h"
#include "ui/RecordingObserver.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A user event of one control: `raise` sets the control up with `state` applied (disabling or
// hiding it), raises the event and returns how often the handler ran, or -1 when the control's
// own effect (a selection, a value) disagrees with whether the event was raised.
using State = std::function<void(Control&)>;
struct UserEventCase {
  const char* name;
  std::function<int(const State& state)> raise;
};

// A case on a fresh control: `act` raises the event of `slot`; `effect`, if given, is its own.
template <class C, class R>
using Step = std::type_identity_t<std::function<R(C&)>>;
template <class C, class Slot>
UserEventCase On(const char* name, Slot C::*slot, Step<C, void> act,
                 Step<C, bool> effect = nullptr) {
  return {name, [=](const State& state) {
            C control(name);
            int n = 0;
            control.*slot = [&n](auto&&...) { ++n; };
            state(control);
            act(control);
            return !effect || effect(control) == (n == 1) ? n : -1;
          }};
}

void PrintTo(const UserEventCase& c, std::ostream* os) { *os << c.name; }

class UserEventTest : public ::testing::TestWithParam<UserEventCase> {};

// Only an enabled visible control raises it; a frame passes its state on to
// what it holds, two frames deep too.
TEST_P(UserEventTest, ReachesOnlyAnEnabledVisibleControlInShownEnabledFrames) {
  EXPECT_EQ(GetParam().raise([](Control&) {}), 1);
  EXPECT_EQ(GetParam().raise([](Control& c) { c.SetEnabled(false); }), 0);
  EXPECT_EQ(GetParam().raise([](Control& c) { c.SetVisible(false); }), 0);
  Frame outer("fraOuter");
  Frame inner("fraInner");
  outer.Hold({&inner});
  auto inFrames = [&](Control& c) { inner.Hold({&c}); };
  EXPECT_EQ(GetParam().raise(inFrames), 1);
  outer.SetVisible(false);
  EXPECT_EQ(GetParam().raise(inFrames), 0);
  outer.SetVisible(true);
  inner.SetEnabled(false);
  EXPECT_EQ(GetParam().raise(inFrames), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Controls, UserEventTest,
    ::testing::Values(
        On("ButtonClick", &Button::OnClick, [](Button& b) { b.Click(); }),
        On("ButtonMouseUp", &Button::OnMouseUp, [](Button& b) { b.MouseUp(vbRightButton); }),
        // The key comes back in the tag: a refused one comes back as 0.
        On("TextBoxKeyPress", &TextBox::OnKeyPress,
           [](TextBox& t) { t.SetTag(std::to_string(t.KeyPress('a'))); },
           [](TextBox& t) { return t.Tag() != "0"; }),
        On("TextBoxEdit", &TextBox::OnChange, [](TextBox& t) { t.Edit("LT"); }),
        On("CheckBoxClick", &CheckBox::OnClick, [](CheckBox& c) { c.Click(); },
           [](CheckBox& c) { return c.Value() == vbChecked; }),
        On("ComboPick", &ComboBox::OnClick, [](ComboBox& c) { c.Pick(c.AddItem("Pirkėjas", 1)); }),
        On("ListViewItemClick", &ListView::OnItemClick,
           [](ListView& v) { v.ItemClick(v.ListItems().Add(0, "a", "A")); },
           [](ListView& v) { return v.SelectedItem() != nullptr; }),
        On("ListViewMouseUp", &ListView::OnMouseUp, [](ListView& v) { v.MouseUp(vbRightButton); }),
        On("MenuClick", &Menu::OnClick, [](Menu& m) { m.Click(); }),
        On("DTPickerPick", &DTPicker::OnChange, [](DTPicker& d) { d.Pick(Variant(Date{46000})); }),
        On("TabStripClick", &TabStrip::OnClick,
           [](TabStrip& t) {
             t.AddTab("Data", "Duomenys");
             t.AddTab("Rates", "Valiutos kursai");
             t.Click("Rates");
           },
           [](TabStrip& t) { return t.SelectedKey() == "Rates"; })),
    [](const auto& info) { return std::string(info.param.name); });

TEST(Controls, ValuesSetByCode_RaiseTheirEventsEvenWhenDisabled_HandlerMayClearItsSlot) {
  TextBox text("txtName");
  CheckBox check("chkActive");
  ComboBox combo("cboKind");
  combo.AddItem("A", 0);
  int events = 0;
  text.OnChange = [&] { ++events; };
  check.OnClick = [&] { ++events; };
  combo.OnClick = [&] { ++events; };
  for (Control* c : std::initializer_list<Control*>{&text, &check, &combo}) c->SetEnabled(false);
  for (int twice = 0; twice < 2; ++twice) text.SetText("UAB Ąžuolas");  // unchanged: no Change
  check.SetValue(vbChecked);
  combo.SetListIndex(0);
  EXPECT_EQ(events, 3);
  // A handler may clear its own slot while it runs.
  Button button("cmdEnter");
  std::string seen;
  // Too large for the slot's inline buffer: run in place, it would be freed by its own clearing.
  button.OnClick = [&button, &seen, caption = std::string(200, 'x')] {
    button.OnClick = nullptr;
    seen += caption;
  };
  for (int twice = 0; twice < 2; ++twice) button.Click();
  EXPECT_EQ(seen, std::string(200, 'x'));
}

TEST(Controls, Observer_IsToldOfRealChangesOnly_MaxLengthCutsByCharacters) {
  RecordingObserver observer;
  Button button("cmdEnter");
  Panel panel("SOPanel");
  TextBox text("txtName");
  for (Control* c : std::initializer_list<Control*>{&button, &panel, &text})
    c->SetObserver(&observer);
  for (int twice = 0; twice < 2; ++twice) button.SetEnabled(false);
  button.SetCaption("Įrašyti");
  for (int twice = 0; twice < 2; ++twice) panel.SetCaption("Bankai");
  text.SetText("x");
  text.SetTag("O00003001");
  button.SetObserver(nullptr);
  button.SetVisible(false);
  EXPECT_THAT(observer.changes, ElementsAre("cmdEnter.Enabled", "cmdEnter.Caption",
                                            "SOPanel.Caption", "txtName.Text", "txtName.Tag"));
  // A menu's observer reaches entries added before and after it was set.
  observer.changes.clear();
  Menu popup("mnuNew");
  Menu& before = popup.Add("mnuA", "A");
  popup.SetObserver(&observer);
  Menu& after = popup.Add("mnuB", "B");
  before.SetEnabled(false);
  after.SetChecked(true);
  EXPECT_THAT(observer.changes, ElementsAre("mnuNew.Items", "mnuA.Enabled", "mnuB.Checked"));
  // MaxLength cuts by characters; Locked refuses the user only.
  TextBox code("txtCode");
  code.SetMaxLength(3);
  code.SetText("Šiauliai");
  EXPECT_EQ(code.Text(), "Šia");
  EXPECT_EQ(ErrorOf([&] { code.SetMaxLength(-1); }), 380);
  code.SetLocked(true);
  EXPECT_FALSE(code.Edit("abc"));
  EXPECT_EQ(code.Text() + std::to_string(code.MaxLength()), "Šia3");
  code.SetText("ąčę");
  EXPECT_EQ(code.Text(), "ąčę");
}

TEST(CheckOptionAndComboBox, ValuesRefusedOrPicked_OptionsClearTheirGroup_ListIndexPicks) {
  CheckBox check("chkActive");
  int checks = 0;
  check.OnClick = [&] { ++checks; };
  check.SetValue(vbGrayed);
  EXPECT_EQ(ErrorOf([&] { check.SetValue(3); }), 380);
  EXPECT_EQ(check.Value(), vbGrayed);
  check.Click();  // a grayed box clicked becomes unchecked
  EXPECT_EQ(std::to_string(check.Value()) + std::to_string(checks), "02");
  // Selecting an option button clears its group; Click only on the selected.
  OptionButton a("optAll"), b("optDebt"), c("optCredit");
  OptionButton::Group({&a, &b, &c});
  std::string picks;
  a.OnClick = [&] { picks += "a"; };
  b.OnClick = [&] { picks += "b"; };
  a.SetValue(true);
  b.Click();
  EXPECT_EQ(std::vector({a.Value(), b.Value(), c.Value()}), std::vector({false, true, false}));
  EXPECT_EQ(picks, "ab");
  ComboBox combo("cboCurrency");
  combo.AddItem("EUR", 1);
  EXPECT_EQ(combo.AddItem("USD", 2), 1);
  int clicks = 0, changes = 0;
  combo.OnClick = [&] { ++clicks; };
  combo.OnChange = [&] { ++changes; };
  combo.SetListIndex(1);
  EXPECT_EQ(combo.Text() + std::to_string(combo.ItemData(combo.ListIndex())), "USD2");
  EXPECT_EQ(std::to_string(clicks) + std::to_string(changes), "10");
  EXPECT_EQ(ErrorOf([&] { combo.SetListIndex(2); }), 380);
  EXPECT_EQ(ErrorOf([&] { combo.ItemData(5); }), 381);
  EXPECT_EQ(combo.List(5) + std::to_string(combo.ListIndex()), "1");
  std::string indexes;
  for (const char* text : {"EUR", "GBP"}) {
    combo.SetText(text);
    indexes += std::to_string(combo.ListIndex());
  }
  EXPECT_EQ(indexes + " " + std::to_string(changes), "0-1 2");
  combo.SetStyle(vbComboDropdownList);
  combo.SetText("USD");
  EXPECT_EQ(ErrorOf([&] { combo.SetText("Kitas"); }), 383);
  EXPECT_EQ(combo.ListIndex(), 1);
  EXPECT_FALSE(combo.Edit("EUR"));
  combo.RemoveItem(0);
  EXPECT_EQ(combo.ListIndex(), 0);  // the picked row moved up
  combo.Clear();
  EXPECT_EQ(std::to_string(combo.ListCount()) + std::to_string(combo.ListIndex()) + combo.Text(),
            "0-1");
}

TEST(ImageComboAndDTPicker, RowKeysUnique_SelectionGoesWithItsRow_NullOnlyWithCheckBox) {
  ImageCombo combo("icbGroup");
  combo.ComboItems().Add("G1", "Pirkėjai", "folder");
  ComboItem& suppliers = combo.ComboItems().Add("G2", "Tiekėjai", "folder");
  EXPECT_EQ(ErrorOf([&] { combo.ComboItems().Add("G1", "Kiti"); }), 35602);
  EXPECT_EQ(combo.ComboItems().Count(), 2);
  int clicks = 0;
  combo.OnClick = [&] { ++clicks; };
  combo.Pick(suppliers);
  EXPECT_EQ(combo.SelectedItem(), &suppliers);
  combo.SetText("Pirkėjai");  // the row that reads the same, without Click
  EXPECT_EQ(combo.SelectedItem(), &combo.ComboItems().Item("G1"));
  EXPECT_EQ(combo.Text() + " " + std::to_string(clicks), "Pirkėjai 1");
  combo.ComboItems().Remove("G1");
  EXPECT_EQ(combo.SelectedItem(), nullptr);
  DTPicker picker("dtpFrom");
  int changes = 0;
  picker.OnChange = [&] { ++changes; };
  picker.SetValue(Variant(Date{46349}));
  for (Variant refused : {Variant::Null(), Variant("2026-11-23")})
    EXPECT_EQ(ErrorOf([&] { picker.SetValue(refused); }), 380);
  EXPECT_EQ(picker.Value(), Variant(Date{46349}));
  picker.SetCheckBox(true);
  picker.SetValue(Variant::Null());
  EXPECT_TRUE(picker.Value().IsNull());
  picker.SetCheckBox(false);  // the last date comes back
  EXPECT_EQ(picker.Value(), Variant(Date{46349}));
  EXPECT_EQ(changes, 2);
}

TEST(TabStripTimerAndMenu, CodeSelectsATab_ATimerTicksWhileEnabled_MenuNamesUniqueAtAnyDepth) {
  TabStrip t("TabStrip");
  std::vector<std::string> clicks;
  t.OnClick = [&] { clicks.push_back(t.SelectedKey()); };
  t.AddTab("Data", "Duomenys");
  t.AddTab("Rates", "Valiutos kursai");
  EXPECT_EQ(t.SelectedKey(), "");
  t.SetEnabled(false);
  for (int twice = 0; twice < 2; ++twice) t.Select("Data");
  EXPECT_THAT(clicks, ElementsAre("Data", "Data"));
  EXPECT_EQ(ErrorOf([&] { t.Select("Other"); }), 35601);
  EXPECT_EQ(ErrorOf([&] { t.AddTab("Rates", "Kursai"); }), 35602);
  EXPECT_EQ(t.SelectedKey() + std::to_string(t.Tabs().size()), "Data2");
  Timer timer("timerModal");
  int ticks = 0;
  timer.OnTimer = [&] { ++ticks; };
  timer.SetInterval(100);
  timer.Tick();
  timer.SetEnabled(false);
  timer.Tick();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(ErrorOf([&] { timer.SetInterval(65536); }), 380);
  Menu popup("mnuList");
  popup.SetVisible(false);  // a popup kept off the menu bar still works
  Menu& send = popup.Add("mnuSend", "Siųsti");
  Menu& desktop = send.Add("mnuToDesktop", "Į darbalaukį");
  int hits = 0;
  desktop.OnClick = [&] { ++hits; };
  EXPECT_EQ(std::vector({popup.Find("mnuToDesktop"), popup.Find("mnuNone"), desktop.Parent()}),
            std::vector<Menu*>({&desktop, nullptr, &send}));
  EXPECT_EQ(ErrorOf([&] { popup.Add("mnuToDesktop", "Dar"); }), 35602);
  EXPECT_EQ(popup.Items().size(), 1u);
  popup.Find("mnuToDesktop")->Click();
  EXPECT_EQ(hits, 1);
}

}  // namespace
}  // namespace orvel
