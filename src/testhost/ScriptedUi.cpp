#include "testhost/ScriptedUi.h"

#include "testhost/CallLog.h"
#include "testhost/FakeOrvelGrid.h"
#include "ui/Form.h"
#include "ui/Menu.h"

namespace orvel {

namespace {
// The button groups of the legacy message box, in the low bits of the flags.
constexpr int32_t kButtonsMask = 7;
constexpr int32_t kAbortRetryIgnore = 2;
constexpr int32_t kRetryCancel = 5;
constexpr int32_t kAbort = 3;
constexpr int32_t kRetry = 4;

// The entry of that name the user can reach in a popup: visible, under
// visible submenus. Null when there is none.
Menu* ShownEntry(const Menu& menu, const std::string& name) {
  for (const auto& entry : menu.Items()) {
    if (!entry->Visible()) continue;
    if (entry->Name() == name) return entry.get();
    if (Menu* found = ShownEntry(*entry, name)) return found;
  }
  return nullptr;
}

ScriptedUi::Complaint& ProcessComplaint() {
  static ScriptedUi::Complaint complaint;
  return complaint;
}

std::string Joined(const std::vector<std::string>& items) {
  std::string out;
  for (const auto& item : items) out += (out.empty() ? "" : ", ") + item;
  return out;
}
}  // namespace

ScriptedUi::ScriptedUi(std::shared_ptr<CallLog> log) : log_(std::move(log)) {}

ScriptedUi::~ScriptedUi() { Verify(); }

void ScriptedUi::SetComplaint(Complaint complaint) { ProcessComplaint() = std::move(complaint); }

void ScriptedUi::Complain(const std::string& what) const {
  if (const auto& complaint = ProcessComplaint()) complaint("ScriptedUi: " + what);
}

void ScriptedUi::Verify() {
  if (!answers_.empty()) {
    std::vector<std::string> left;
    for (int32_t answer : answers_) left.push_back(std::to_string(answer));
    Complain("answers queued but no message box asked for them: " + Joined(left));
  }
  if (!popupPicks_.empty()) {
    Complain("popup picks queued but no popup menu asked for them: " +
             Joined({popupPicks_.begin(), popupPicks_.end()}));
  }
  if (!modalScripts_.empty()) {
    Complain(std::to_string(modalScripts_.size()) +
             " modal scripts queued but no dialog was shown for them");
  }
  answers_.clear();
  popupPicks_.clear();
  modalScripts_.clear();
}

int32_t ScriptedUi::FirstButton(int32_t flags) {
  switch (flags & kButtonsMask) {
    case vbYesNoCancel:
    case vbYesNo:
      return vbYes;
    case kAbortRetryIgnore:
      return kAbort;
    case kRetryCancel:
      return kRetry;
    default:
      return vbOK;
  }
}

int32_t ScriptedUi::MsgBox(const std::string& prompt, int32_t flags, const std::string& title) {
  log_->Add(Channel::Message, "MsgBox", {std::to_string(flags), title, prompt});
  int32_t answer = FirstButton(flags);
  if (!answers_.empty()) {
    answer = answers_.front();
    answers_.pop_front();
  } else if (!allowUnscripted_) {
    Complain("message box nobody queued an answer for: \"" + prompt + "\" (flags " +
             std::to_string(flags) + ", title \"" + title + "\")");
  }
  boxes_.push_back({prompt, flags, title, answer});
  return answer;
}

void ScriptedUi::SetMousePointer(int32_t pointer) {
  pointer_ = pointer;
  pointers_.push_back(pointer);
}

void ScriptedUi::ShowModal(Form& form) {
  log_->Add(Channel::Window, "ShowModal", {form.Name()});
  form.Show();
  if (!form.Visible()) return;  // Form_Load unloaded it
  if (!modalScripts_.empty()) {
    // Taken off the queue first: the script may open a modal form of its own.
    ModalScript script = std::move(modalScripts_.front());
    modalScripts_.pop_front();
    script(form);
  }
  if (form.Visible()) form.Hide();
}

void ScriptedUi::PopupMenu(Menu& menu) {
  log_->Add(Channel::Window, "PopupMenu", {menu.Name()});
  Popup popup{menu.Name(), {}, {}};
  for (const auto& entry : menu.Items()) {
    if (entry->Visible()) popup.shown.push_back(entry->Name());
  }
  if (popup.shown.empty() || popupPicks_.empty()) {
    if (!popup.shown.empty() && !allowUnscripted_) {
      Complain("popup menu " + menu.Name() + " nobody queued a pick for (it shows " +
               Joined(popup.shown) + ")");
    }
    popups_.push_back(std::move(popup));
    return;
  }
  std::string pick = std::move(popupPicks_.front());
  popupPicks_.pop_front();
  Menu* entry = ShownEntry(menu, pick);
  if (entry && entry->Enabled()) popup.picked = pick;
  popups_.push_back(std::move(popup));
  if (!popups_.back().picked.empty()) entry->Click();
}

std::shared_ptr<OrvelGrid> ScriptedUi::NewOrvelGrid() {
  auto grid = std::make_shared<FakeOrvelGrid>();
  grids_.push_back(grid);
  return grid;
}

}  // namespace orvel
