#include "refhost/TerminalUi.h"

#include <string>
#include <vector>

#include "refhost/Prompter.h"
#include "ui/Form.h"
#include "ui/Menu.h"

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

// The entries a popup shows: visible ones, submenus opened in place.
void Collect(Menu& menu, const std::string& prefix, std::vector<Menu*>& entries,
             std::vector<std::string>& captions) {
  for (const auto& item : menu.Items()) {
    if (!item->Visible() || item->Caption() == "-") continue;
    if (!item->Items().empty()) {
      Collect(*item, prefix + item->Caption() + " > ", entries, captions);
      continue;
    }
    if (!item->Enabled()) continue;
    entries.push_back(item.get());
    captions.push_back(prefix + item->Caption());
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
  if (modalRunner_ && form.Visible()) modalRunner_(form);
  // A runner that left the form open (the input ended) closes it.
  if (form.Visible()) form.Unload();
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
