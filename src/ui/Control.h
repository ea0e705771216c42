#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace orvel {

class ControlObserver;

// Base of the headless controls: a name, Enabled, Visible and Tag, and one
// observer told of every change. Controls are members of their form and
// never copied.
//
// Events are std::function slots (OnClick, OnChange, ...) that the form wires
// to its handlers in its constructor; a renderer or a test raises an event
// through the control's raising method (Click(), Change(), ...). A control
// that is disabled or invisible raises no user events, as on the platform.
class Control {
 public:
  explicit Control(std::string name) : name_(std::move(name)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled) { Assign(enabled_, enabled, "Enabled"); }
  bool Visible() const { return visible_; }
  void SetVisible(bool visible) { Assign(visible_, visible, "Visible"); }
  const std::string& Tag() const { return tag_; }
  void SetTag(std::string tag) { Assign(tag_, std::move(tag), "Tag"); }
  // The frame the control sits in; null for one on the form itself. A
  // control in a hidden or disabled frame takes no input, whatever its own
  // Visible and Enabled say (Frame::Hold sets it).
  Control* Container() const { return container_; }
  void SetContainer(Control* frame) { container_ = frame; }

  // The one observer of this control; null detaches it. Controls that own
  // parts (menus) hand it down to them.
  virtual void SetObserver(ControlObserver* observer) { observer_ = observer; }
  ControlObserver* Observer() const { return observer_; }

  // Raised before the focus leaves the control; a handler that sets cancel
  // keeps the focus where it is.
  std::function<void(bool& cancel)> OnValidate;

  // Focus and typing as the form routes them (Form::SetFocus, Form::TypeKey).
  // Controls without such events ignore them; KeyTyped returns the character
  // after the control's handler (0: swallowed).
  virtual void FocusEntered() {}
  virtual void FocusLeft() {}
  virtual int KeyTyped(int keyAscii) { return keyAscii; }
  // Raises Validate; returns whether the handler cancelled the move.
  bool Validate() {
    bool cancel = false;
    if (OnValidate) Raise(OnValidate, cancel);
    return cancel;
  }

  // Tells the observer that `property` changed. The parts of a control (list
  // rows, column headers) call it on their control's behalf.
  void Notify(std::string_view property);

 protected:
  // Whether user events reach the control: enabled and visible, and so is
  // the frame it sits in.
  bool Active() const {
    return enabled_ && visible_ && (!container_ || container_->Active());
  }

  // Sets a property and notifies when the value differs; returns whether it did.
  template <class T, class U>
  bool Assign(T& field, U&& value, std::string_view property) {
    if (field == value) return false;
    field = std::forward<U>(value);
    Notify(property);
    return true;
  }

  // Calls an event slot if it is wired. The slot is copied first, so a
  // handler may rewire or clear it while it runs.
  template <class... Params, class... Args>
  static void Raise(const std::function<void(Params...)>& slot, Args&&... args) {
    if (!slot) return;
    auto handler = slot;
    handler(std::forward<Args>(args)...);
  }

 private:
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string tag_;
  Control* container_ = nullptr;
  ControlObserver* observer_ = nullptr;
};

}  // namespace orvel
