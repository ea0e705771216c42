#include "refhost/TerminalUi.h"

#include <ctime>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "hostkit/FieldSheet.h"
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

Date TerminalUi::Today() const {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
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

std::shared_ptr<OrvelGrid> TerminalUi::NewOrvelGrid() {
  auto sheet = std::make_shared<FieldSheet>();
  std::erase_if(sheets_, [](const auto& weak) { return weak.expired(); });
  sheets_.push_back(sheet);
  return sheet;
}

std::shared_ptr<FieldSheet> TerminalUi::SheetOf(
    const std::shared_ptr<OrvelObjectUIO>& object) const {
  if (!object) return nullptr;
  for (auto it = sheets_.rbegin(); it != sheets_.rend(); ++it) {
    auto sheet = it->lock();
    if (sheet && sheet->ObjectUIO() == object) return sheet;
  }
  return nullptr;
}

}  // namespace orvel
