#pragma once

#include <QWidget>
#include <memory>
#include <string_view>

class QCloseEvent;

namespace orvel {

class Control;
class Form;

// One headless form of the module drawn as a Qt window body: a widget per
// registered control, laid out by kind (controls carry no geometry):
//   - visible top-level menus on a menu bar (an invisible one is a popup
//     only and has no entry there);
//   - a label followed by a text box, combo or date picker makes a form row;
//     other labels, check boxes and option buttons rows of their own;
//   - list views and the field sheet share the spare height;
//   - buttons in a row at the bottom, to the right; panels under them as
//     status texts;
//   - timers tick, without a widget.
// The title is the form's caption. Every change of the form and its controls
// shows at once; the user's actions raise the controls' events through the
// form (focus with Validate, typed keys with KeyPreview). A failure thrown
// out of the module shows as a red line above the buttons.
//
// The view observes the form and every control while it lives; the form must
// outlive it. A host deletes a view with deleteLater when it closes its frame
// from formHidden, since the signal may come from inside a control's event.
class FormView : public QWidget {
  Q_OBJECT
 public:
  explicit FormView(Form& form, QWidget* parent = nullptr);
  ~FormView() override;  // detaches itself from the form and every control
  Form& ViewedForm() const;
  QWidget* WidgetOf(const Control& control) const;    // null when none
  QWidget* WidgetNamed(std::string_view name) const;  // by the control's name; null when none

 signals:
  void formHidden();  // the form became invisible or was unloaded

 protected:
  void closeEvent(
      QCloseEvent* event) override;  // asks Form::Unload(); ignores the close if cancelled

 private:
  struct State;
  void Build();
  void FormChanged(std::string_view property);
  void ShowFailure(const QString& text);

  Form& form_;
  std::unique_ptr<State> state_;
};

}  // namespace orvel
