#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

class Control;
class FormObserver;
class Ui;

// Base of every window and dialog of the module. The derived form holds its
// controls as members named as the module names them, registers them in its
// constructor (so that a renderer can enumerate them, in that order), and
// wires their event slots to its public handlers.
//
// Life cycle, as on the platform:
//   Load      runs Form_Load once; a loaded form stays loaded until unloaded.
//   Show      loads when needed, then makes the form visible (unless
//             Form_Load unloaded it).
//   Hide      makes it invisible; it stays loaded.
//   Unload    asks Form_QueryUnload, and unless that cancels runs Form_Unload
//             and leaves the form hidden and unloaded. A later Show loads it
//             again (Form_Load runs again); the members keep their values,
//             so Form_Load sets up what it needs.
//   ShowModal hands the form to the Ui, which returns once the form is hidden
//             or unloaded.
// The form knows nothing of the module's objects: windows bound to one add
// that themselves.
class Form {
 public:
  explicit Form(std::string name);
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  bool Loaded() const { return loaded_; }

  // The registered controls, in registration order.
  const std::vector<Control*>& Controls() const { return controls_; }
  // The registered control of that name; null when none.
  Control* FindControl(std::string_view name) const;

  // One observer of the form's own state; null detaches it.
  void SetObserver(FormObserver* observer) { observer_ = observer; }

  // The control that has the focus; null until one takes it.
  Control* ActiveControl() const { return activeControl_; }
  // Moves the focus to a registered control. The control losing it raises
  // Validate first and keeps the focus when that cancels; then it raises
  // LostFocus and the new one GotFocus. A disabled or invisible control takes
  // no focus. Returns whether the focus is on `control` afterwards.
  bool SetFocus(Control& control);
  // With KeyPreview the form sees each typed character before its controls.
  bool KeyPreview() const { return keyPreview_; }
  void SetKeyPreview(bool preview) { keyPreview_ = preview; }
  // A character typed while the form is active: Form_KeyPress first when
  // KeyPreview is on, then the focused control's KeyPress unless the form
  // swallowed it. Returns the character left after both (0: swallowed).
  int TypeKey(int keyAscii);

  void Load();
  void Show();
  void Hide();
  // Returns whether the form is unloaded afterwards (false: cancelled).
  bool Unload();
  void ShowModal(Ui& ui);

 protected:
  // Adds a control to Controls(); a control registered before is ignored.
  void Register(Control& control);

  virtual void Form_Load() {}
  // Set cancel to keep the form loaded.
  virtual void Form_QueryUnload(bool& cancel) { (void)cancel; }
  virtual void Form_Unload() {}
  // Set keyAscii to 0 to swallow the character.
  virtual void Form_KeyPress(int& keyAscii) { (void)keyAscii; }

 private:
  void Notify(std::string_view property);

  std::string name_;
  std::string caption_;
  bool enabled_ = true;
  bool visible_ = false;
  bool loaded_ = false;
  bool unloading_ = false;
  bool keyPreview_ = false;
  Control* activeControl_ = nullptr;
  std::vector<Control*> controls_;
  FormObserver* observer_ = nullptr;
};

}  // namespace orvel
