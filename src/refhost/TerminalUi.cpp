#include "refhost/TerminalUi.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "orvel/OrvelWindow.h"
#include "hostkit/WindowRegistry.h"
#include "refhost/Prompter.h"
#include "ui/Form.h"
#include "ui/Menu.h"
#include "ui/Timer.h"

namespace orvel {

namespace {

struct Button {
  const char* caption;
  int32_t result;
};

std::vector<Button> ButtonsOf(int32_t flags) {
  switch (flags & 7) {
    case vbOKCancel:
      return {{"Gerai", vbOK}, {"Atšaukti", vbCancel}};
    case vbYesNoCancel:
      return {{"Taip", vbYes}, {"Ne", vbNo}, {"Atšaukti", vbCancel}};
    case vbYesNo:
      return {{"Taip", vbYes}, {"Ne", vbNo}};
    default:
      return {{"Gerai", vbOK}};
  }
}

// A caption as shown: "&" marks the access key, "&&" is an ampersand.
std::string Shown(const std::string& caption) {
  std::string shown;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

// The entries a popup shows: visible ones, submenus opened in place.
void Collect(Menu& menu, const std::string& prefix, std::vector<Menu*>& entries,
             std::vector<std::string>& captions) {
  for (const auto& item : menu.Items()) {
    if (!item->Visible() || item->Caption() == "-") continue;
    if (!item->Items().empty()) {
      Collect(*item, prefix + Shown(item->Caption()) + " > ", entries, captions);
      continue;
    }
    if (!item->Enabled()) continue;
    entries.push_back(item.get());
    captions.push_back(prefix + Shown(item->Caption()));
  }
}

}  // namespace

int32_t TerminalUi::MsgBox(const std::string& prompt, int32_t flags, const std::string& title) {
  auto buttons = ButtonsOf(flags);
  prompter_.Say("[" + title + "] " + prompt);
  if (buttons.size() == 1) return buttons[0].result;
  std::vector<std::string> captions;
  for (const auto& b : buttons) captions.push_back(b.caption);
  int picked = prompter_.Choose(title, captions);
  // No answer (the input ended) is the last button: No or Cancel.
  if (picked < 0) return buttons.back().result;
  return buttons[static_cast<size_t>(picked)].result;
}

void TerminalUi::ShowModal(Form& form) {
  form.Show();
  modal_.push_back(&form);
  struct Pop {
    std::vector<Form*>& stack;
    ~Pop() { stack.pop_back(); }
  } pop{modal_};
  if (modalRunner_ && form.Visible()) modalRunner_(form);
  // A runner that left the form open (the input ended) closes it.
  if (form.Visible()) form.Unload();
}

int TerminalUi::RunTimers() {
  std::vector<Timer*> fired;
  for (;;) {
    // Looked for again before each one: a timer's event may open or close
    // windows. The open windows are held until the event is over.
    std::vector<std::shared_ptr<OrvelWindow>> held;
    Timer* due = nullptr;
    auto look = [&](const Form* form) {
      if (due || !form || !form->Loaded()) return;
      for (Control* control : form->Controls()) {
        auto* timer = dynamic_cast<Timer*>(control);
        if (timer && timer->Enabled() && timer->Interval() > 0 &&
            std::find(fired.begin(), fired.end(), timer) == fired.end() &&
            std::find(ticking_.begin(), ticking_.end(), timer) == ticking_.end()) {
          due = timer;
          return;
        }
      }
    };
    if (windows_) {
      for (const auto& entry : windows_->OpenWindows()) {
        held.push_back(entry.window);
        look(dynamic_cast<const Form*>(entry.window.get()));
      }
    }
    for (const Form* form : modal_) look(form);
    if (!due) return static_cast<int>(fired.size());
    fired.push_back(due);
    ticking_.push_back(due);
    struct Done {
      std::vector<Timer*>& ticking;
      ~Done() { ticking.pop_back(); }
    } done{ticking_};
    due->Tick();
  }
}

void TerminalUi::PopupMenu(Menu& menu) {
  std::vector<Menu*> entries;
  std::vector<std::string> captions;
  Collect(menu, "", entries, captions);
  if (entries.empty()) return;
  int picked = prompter_.Choose("Meniu", captions);
  if (picked >= 0) entries[static_cast<size_t>(picked)]->Click();
}

}  // namespace orvel
