#pragma once

#include <memory>
#include <string>

#include "orvel/OrvelObjectUIO.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

namespace orvel {

// What the two group dialogs of the goods tree share: one number box, the
// "also in sub-groups" check box, Write and Cancel. A write sends one action
// on the group's object with the single argument "<ID>,<0|1>,<value>": the
// group's number, the check box, and the number as typed with "." for the
// decimal comma.
//
// The number box takes digits, backspace and one decimal comma ("." types
// it). While it is empty both buttons are off, Cancel too: the dialog can
// then be left only by its close box. The dialog judges no value: "0", ","
// or "5," go out as typed, the comma made a point.
//
// The business status of the action comes back inside the result's Value;
// only a failed call (a non-zero Number) is shown, and the dialog stays.
class GroupChangeDialog : public Form {
 public:
  // The title of the dialog's boxes.
  static constexpr const char* kMsgTitle = "Orvelta";

  // The group, set by the caller before the dialog shows.
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO;

  CheckBox chkWithSubGroups{"chkWithSubGroups"};
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};

  // Both buttons take `enable`, which an empty number box turns False.
  void EnableButtons(bool enable);
  void cmdEnter_Click();
  void cmdCancel_Click();

  // The argument of the action for the box's text.
  std::string Parameter() const;

 protected:
  // `method` the action's name.
  GroupChangeDialog(std::string formName, std::string caption, std::string method);

  // Registers the dialog's own number box (after its other controls) and
  // wires the shared controls. Called once by the derived constructor.
  void Attach(TextBox& valueBox, Label& valueLabel);
  // The value as it goes out; a dialog that signs it overrides this.
  virtual std::string Signed(std::string value) const { return value; }

  void Form_Load() override;
  // The box's KeyPress.
  void FilterKey(int& keyAscii);

 private:
  TextBox* valueBox_ = nullptr;
  std::string method_;
};

}  // namespace orvel
