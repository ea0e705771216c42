#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "TempDatabase.h"
#include "bizlayer/BusinessLayer.h"
#include "bizlayer/Database.h"
#include "orvel/OrvelMenuResult.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "hostkit/FieldSheet.h"
#include "hostkit/WindowRegistry.h"
#include "refhost/Prompter.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceObjectManager.h"
#include "refhost/TerminalUi.h"
#include "support/Sql.h"
#include "ui/Button.h"
#include "ui/Form.h"

namespace orvel {

// Texts typed into fields, by the field's name.
using Typed = std::vector<std::pair<std::string, std::string>>;

// Answers from a list, keeps what was said.
class AnsweringPrompter : public Prompter {
 public:
  void Say(const std::string& line) override { said.push_back(line); }
  int Choose(const std::string&, const std::vector<std::string>& choices) override {
    if (answers.empty()) return -1;
    auto at = std::find(choices.begin(), choices.end(), Next(answers));
    return at == choices.end() ? -1 : static_cast<int>(at - choices.begin());
  }
  std::string AskText(const std::string&) override { return texts.empty() ? "" : Next(texts); }
  static std::string Next(std::deque<std::string>& queue) {
    std::string front = queue.front();
    queue.pop_front();
    return front;
  }

  std::deque<std::string> answers;
  std::deque<std::string> texts;
  std::vector<std::string> said;
};

// The real module, loaded from its library, over a fresh sample database, as
// orvel-host runs it; every business call is kept in calls_.
class RunningHost : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string error;
    ASSERT_TRUE(host_.Start({file_.Path(), ORVEL_MODULE_PATH, "admin", "/tmp"}, error)) << error;
    host_.Layer().SetCallObserver(
        [this](const char* op, const std::string& name, const std::string& param) {
          calls_.push_back(std::string(op) + " " + name + " " + param);
        });
  }

  // Opens the window of a menu entry of a record or type: its card, "0".
  std::shared_ptr<Form> OpenCard(const std::string& oidr, const std::string& otype = "C",
                                 const std::string& entry = "0") {
    auto type = host_.Objects().GetOrvelObjectUI(oidr);
    if (!type) return nullptr;
    auto result = type->ClickMenu(oidr, otype, entry, "");
    auto window = result.Value.ObjectAs<OrvelWindow>();
    if (!window) return nullptr;
    host_.Windows().ShowWindow(window);
    return std::dynamic_pointer_cast<Form>(window);
  }

  // Opens a card as OpenCard does, its field sheet in sheet_: null unless both are there.
  std::shared_ptr<Form> OpenSheet(const std::string& oidr, const std::string& otype = "C",
                                  const std::string& entry = "0") {
    auto card = OpenCard(oidr, otype, entry);
    sheet_ = SheetOf(card);
    return sheet_ ? card : nullptr;
  }

  // The terminal front end the host runs with here (modal dialogs are run by
  // the test through its modal runner).
  TerminalUi& Terminal() { return dynamic_cast<TerminalUi&>(host_.Ui()); }

  std::shared_ptr<FieldSheet> SheetOf(const std::shared_ptr<Form>& form) {
    auto window = std::dynamic_pointer_cast<OrvelWindow>(form);
    return window ? host_.Ui().SheetOf(window->OrvelObjectUIO()) : nullptr;
  }

  Variant Stored(const std::string& sql) { return FirstValue(host_.Database(), sql); }
  std::string StoredText(const std::string& sql) { return ConcatText(Stored(sql)); }

  static int TabIndex(FieldSheet& sheet, const std::string& key) {
    for (size_t i = 0; i < sheet.Tabs().size(); ++i) {
      if (sheet.Tabs()[i].key == key) return static_cast<int>(i);
    }
    return -1;
  }

  // A right click on a tab's list, its menu answered with `entries` in turn.
  void RightClick(FieldSheet& sheet, const std::string& tab,
                  std::initializer_list<const char*> entries) {
    for (const char* entry : entries) prompter_.answers.push_back(entry);
    sheet.ListMouseUp(tab, TabIndex(sheet, tab), 2);
  }

  // Types each text into its field of the sheet; every one must be taken.
  static void Fill(FieldSheet& sheet, const Typed& typed) {
    for (const auto& [name, text] : typed) {
      EXPECT_TRUE(sheet.EditText(name, text)) << name << ": " << sheet.LastError();
    }
  }

  // Types into a card's sheet and presses its Write.
  void Write(const std::shared_ptr<Form>& card, const Typed& typed) {
    auto sheet = SheetOf(card);
    ASSERT_NE(sheet, nullptr);
    Fill(*sheet, typed);
    Press(*card, "cmdEnter");
  }

  // The form's control of that name and type.
  template <class T>
  static T& Control(Form& form, const char* name) {
    auto* control = dynamic_cast<T*>(form.FindControl(name));
    EXPECT_NE(control, nullptr) << name;
    return *control;
  }

  // A click on one of the form's buttons.
  static void Press(Form& form, const char* button) {
    auto* control = dynamic_cast<Button*>(form.FindControl(button));
    ASSERT_NE(control, nullptr) << button;
    control->Click();
  }

  bool Said(const std::string& text) const {
    const auto& said = prompter_.said;
    return std::any_of(said.begin(), said.end(),
                       [&](const auto& line) { return line.find(text) != std::string::npos; });
  }

  TempDatabase file_;
  AnsweringPrompter prompter_;
  ReferenceHost host_{prompter_};
  std::vector<std::string> calls_;
  std::shared_ptr<FieldSheet> sheet_;
};

}  // namespace orvel
