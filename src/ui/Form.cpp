#include "ui/Form.h"

#include <algorithm>

#include "ui/Control.h"
#include "ui/FormObserver.h"
#include "orvel/Ui.h"

namespace orvel {

Form::Form(std::string name) : name_(std::move(name)) {}

Form::~Form() = default;

void Form::SetCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  Notify("Caption");
}

void Form::SetEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  Notify("Enabled");
}

Control* Form::FindControl(std::string_view name) const {
  for (Control* control : controls_) {
    if (control->Name() == name) return control;
  }
  return nullptr;
}

void Form::Register(Control& control) {
  if (std::find(controls_.begin(), controls_.end(), &control) != controls_.end()) return;
  controls_.push_back(&control);
}

bool Form::SetFocus(Control& control) {
  if (activeControl_ == &control) return true;
  if (!control.Enabled() || !control.Visible()) return false;
  if (std::find(controls_.begin(), controls_.end(), &control) == controls_.end()) return false;
  if (Control* leaving = activeControl_) {
    if (leaving->Validate()) return false;
    leaving->FocusLeft();
  }
  activeControl_ = &control;
  control.FocusEntered();
  return true;
}

int Form::TypeKey(int keyAscii) {
  if (keyPreview_) Form_KeyPress(keyAscii);
  if (keyAscii != 0 && activeControl_) keyAscii = activeControl_->KeyTyped(keyAscii);
  return keyAscii;
}

void Form::Load() {
  if (loaded_) return;
  // Loaded before Form_Load runs, so that Form_Load may show or unload it.
  loaded_ = true;
  Notify("Loaded");
  Form_Load();
}

void Form::Show() {
  Load();
  if (!loaded_ || visible_) return;
  visible_ = true;
  Notify("Visible");
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  Notify("Visible");
}

bool Form::Unload() {
  if (!loaded_) return true;
  // Form_Unload unloading the form again changes nothing more.
  if (unloading_) return true;
  bool cancel = false;
  Form_QueryUnload(cancel);
  if (cancel) return false;
  unloading_ = true;
  struct Reset {
    bool& flag;
    ~Reset() { flag = false; }
  } reset{unloading_};
  Form_Unload();
  Hide();
  loaded_ = false;
  Notify("Loaded");
  return true;
}

void Form::ShowModal(Ui& ui) { ui.ShowModal(*this); }

void Form::Notify(std::string_view property) {
  if (observer_) observer_->FormChanged(*this, property);
}

}  // namespace orvel
