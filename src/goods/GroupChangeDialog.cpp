#include "goods/GroupChangeDialog.h"

#include <utility>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "orvel/Ui.h"

namespace orvel {

GroupChangeDialog::GroupChangeDialog(std::string formName, std::string caption, std::string method)
    : Form(std::move(formName)), method_(std::move(method)) {
  SetCaption(std::move(caption));
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
}

void GroupChangeDialog::Attach(TextBox& valueBox, Label& valueLabel) {
  valueBox_ = &valueBox;
  Register(valueLabel);
  Register(valueBox);
  Register(chkWithSubGroups);
  Register(cmdEnter);
  Register(cmdCancel);
  valueBox.OnKeyPress = [this](int& keyAscii) { FilterKey(keyAscii); };
  valueBox.OnChange = [this] { Handle(kMsgTitle, [&] { EnableButtons(true); }); };
  chkWithSubGroups.OnClick = [this] { Handle(kMsgTitle, [&] { EnableButtons(true); }); };
  cmdEnter.OnClick = [this] { cmdEnter_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void GroupChangeDialog::Form_Load() {
  Handle(kMsgTitle, [&] { EnableButtons(true); });
}

void GroupChangeDialog::FilterKey(int& keyAscii) {
  keyAscii = KeyFilterDecimal(keyAscii, valueBox_->Text());
}

void GroupChangeDialog::EnableButtons(bool enable) {
  if (valueBox_->Text().empty()) enable = false;
  cmdEnter.SetEnabled(enable);
  cmdCancel.SetEnabled(enable);
}

std::string GroupChangeDialog::Parameter() const {
  if (!OrvelObjectUIO) throw RuntimeError(RuntimeError::kObjectNotSet, "Nepriskirta grupė");
  // The text goes as it stands, with "." for the decimal comma; what the
  // value may be is the business layer's to judge, and it answers in Value.
  return Mid(OrvelObjectUIO->OIDR(), 9) + "," + std::to_string(chkWithSubGroups.Value()) + "," +
         Signed(Replace(valueBox_->Text(), ",", "."));
}

void GroupChangeDialog::cmdEnter_Click() {
  Handle(kMsgTitle, [&] {
    Variant::Array params{Variant(Parameter())};
    OrvelResult result = OrvelObjectUIO->Methods(method_, params);
    if (result.Number != 0) {
      ShowStop(result.Text, kMsgTitle);
      return;
    }
    Unload();
  });
}

void GroupChangeDialog::cmdCancel_Click() {
  Handle(kMsgTitle, [&] { Unload(); });
}

}  // namespace orvel
