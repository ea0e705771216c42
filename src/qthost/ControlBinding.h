#pragma once

#include <QColor>
#include <QDate>
#include <QIcon>
#include <QObject>
#include <QWidget>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "orvel/Object.h"
#include "orvel/Variant.h"
#include "ui/ControlObserver.h"

class QEvent;
class QKeyEvent;
class QMenuBar;

namespace orvel {

class Control;
class Form;

// What a binding needs of the window it lives in: the form that routes focus
// and typed keys (null for none), where a failure is shown, and the widget of
// another control (to put the focus back when Validate keeps it there).
struct BindingContext {
  Form* form = nullptr;
  std::function<void(const std::string&)> showFailure;
  std::function<QWidget*(const Control*)> widgetOf;
};

// One control of the module mirrored into one Qt widget, and the user's
// actions on that widget raised as the control's events. The binding is the
// control's one observer from construction until it is destroyed (or told
// that the control is gone, Forget()).
//
// Mirroring blocks the widget's signals, so that nothing set from the model
// comes back as a user event. Every call into the module runs through Guard:
// nothing thrown reaches Qt's event loop; the failure is shown instead.
//
// Focus and typing go through the form as on the platform: a widget taking
// the focus (a click or Tab) asks Form::SetFocus for its control (or the
// control it stands for, FocusControl), and when Validate keeps the focus
// elsewhere the press is dropped and the Qt focus goes back. A character
// typed goes to KeyDown, then Form::TypeKey; 0 swallows the key, another
// character replaces it.
class ControlBinding : public QObject, public ControlObserver {
 public:
  ControlBinding(Control& control, BindingContext context);
  ~ControlBinding() override;
  ControlBinding(const ControlBinding&) = delete;
  ControlBinding& operator=(const ControlBinding&) = delete;

  Control& Bound() const { return control_; }
  // The widget shown for the control; null for one without (a timer, a popup
  // menu).
  virtual QWidget* Widget() const = 0;

  // Mirrors the whole state of the control (after the widget is built).
  void MirrorAll();
  // The control is being destroyed by its owner: the binding no longer
  // touches it, and its widget stays until the binding goes.
  void Forget() { forgotten_ = true; }

  // The control that takes the form's focus for this widget (the grid for
  // its tab lists); the bound control by default.
  void SetFocusControl(Control* control) { focusControl_ = control; }

  // ControlObserver
  void ControlChanged(Control& control, std::string_view property) override;

  // Runs `call` into the module; a failure is shown, never thrown.
  template <class F>
  void Guard(F&& call) {
    try {
      call();
    } catch (const std::exception& e) {
      Fail(e.what());
    } catch (...) {
      Fail("Nežinoma klaida");
    }
  }

 protected:
  // Mirrors one property ("" for all of them). Enabled and Visible are
  // mirrored by the base on Widget().
  virtual void Mirror(std::string_view property) = 0;
  // Routes focus, presses and typed keys of `widget` and all its children
  // through the form. Widgets that take no focus need none of it.
  void RouteInput(QWidget* widget);
  // A key going down on the widget (a platform key code and shift state);
  // returns the key code left (0 swallows the key). No key down by default.
  virtual int KeyDown(int keyCode, int shift) {
    (void)shift;
    return keyCode;
  }
  // Further events of the widget's children, after the routing; true eats it.
  virtual bool Filter(QObject* watched, QEvent* event) {
    (void)watched, (void)event;
    return false;
  }
  BindingContext& Context() { return context_; }
  void Fail(const std::string& text);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // Asks the form for the focus; false (and the Qt focus put back) when
  // Validate kept it on another control.
  bool TakeFocus();
  bool RouteKey(QObject* watched, QKeyEvent* event);

  Control& control_;
  BindingContext context_;
  Control* focusControl_ = nullptr;
  bool forgotten_ = false;
  bool resending_ = false;
  bool pressEaten_ = false;
  bool focusRefused_ = false;
};

// The platform's key code and shift state of a Qt key event; 0 for a key
// the platform has no code for.
int PlatformKeyCode(const QKeyEvent& event);
int PlatformShift(Qt::KeyboardModifiers modifiers);
int PlatformButton(Qt::MouseButton button);

// A button that belongs beside a field rather than in the window's row of
// buttons: one with no caption (a picture) or with the dots of a picker.
bool IsFieldButton(const Control& control);

// Colours as the module keeps them (0x00BBGGRR).
QColor ColorOf(int32_t color);

QString ToQt(const std::string& text);
// A caption without its access-key marks ("&Gerai" reads "Gerai", "&&" "&").
QString PlainCaption(const std::string& caption);
// The icon of `key` in an image list the host handed to a control (the
// catalogue's); an empty icon when the list has no picture for it.
QIcon IconOf(const std::shared_ptr<Object>& images, const std::string& key);
// Dates as the module keeps them (day serials from 1899-12-30).
QDate ToQDate(orvel::Date date);
orvel::Date FromQDate(const QDate& date);
std::string FromQt(const QString& text);

// A binding made for a control of a kind the renderer knows, its widget
// parented to `parent`; a top-level menu puts its entry on `bar`. Null for a
// control it does not know (the caller decides). List views and the field
// sheet have their own bindings.
std::unique_ptr<ControlBinding> MakeSimpleBinding(Control& control, BindingContext context,
                                                  QWidget* parent, QMenuBar* bar);

}  // namespace orvel
