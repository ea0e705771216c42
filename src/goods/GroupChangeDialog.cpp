#include "goods/GroupChangeDialog.h"

#include <utility>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "ui/Ui.h"

namespace orvel {

namespace {

template <class F>
void Event(F&& body) {
  Guarded([&] { return body(), true; }, false, GroupChangeDialog::kMsgTitle);
}

// "12,5" typed gives "12.5"; a lone leading or trailing separator is dropped
// or filled ("5," -> "5", ",5" -> "0.5"). nullopt for anything else than
// digits with at most one separator, or for a value that is not above zero.
std::optional<std::string> PositiveDecimal(const std::string& text) {
  std::string value;
  bool point = false;
  bool nonZero = false;
  int digits = 0;
  for (char c : text) {
    if (c >= '0' && c <= '9') {
      ++digits;
      nonZero = nonZero || c != '0';
      value += c;
    } else if ((c == ',' || c == '.') && !point) {
      point = true;
      value += '.';
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0 || !nonZero) return std::nullopt;
  if (value.front() == '.') value.insert(value.begin(), '0');
  if (value.back() == '.') value.pop_back();
  return value;
}

}  // namespace

GroupChangeDialog::GroupChangeDialog(std::string formName, std::string caption, std::string method,
                                     std::string invalidPrompt)
    : Form(std::move(formName)),
      method_(std::move(method)),
      invalidPrompt_(std::move(invalidPrompt)) {
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
  valueBox.OnChange = [this] { Event([&] { EnableButtons(true); }); };
  chkWithSubGroups.OnClick = [this] { Event([&] { EnableButtons(true); }); };
  cmdEnter.OnClick = [this] { cmdEnter_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void GroupChangeDialog::Form_Load() {
  Event([&] { EnableButtons(true); });
}

void GroupChangeDialog::FilterKey(int& keyAscii) {
  keyAscii = KeyFilterDecimal(keyAscii, valueBox_->Text());
}

void GroupChangeDialog::EnableButtons(bool enable) {
  if (valueBox_->Text().empty()) enable = false;
  cmdEnter.SetEnabled(enable);
  cmdCancel.SetEnabled(enable);
}

std::optional<std::string> GroupChangeDialog::Parameter() const {
  auto value = PositiveDecimal(valueBox_->Text());
  if (!value) return std::nullopt;
  if (!OrvelObjectUIO) throw RuntimeError(RuntimeError::kObjectNotSet, "Nepriskirta grupė");
  return Mid(OrvelObjectUIO->OIDR(), 9) + "," + std::to_string(chkWithSubGroups.Value()) + "," +
         Signed(*value);
}

void GroupChangeDialog::cmdEnter_Click() {
  Event([&] {
    auto parameter = Parameter();
    if (!parameter) {
      Platform::Ui().MsgBox(invalidPrompt_, vbExclamation, kMsgTitle);
      return;
    }
    Variant::Array params{Variant(*parameter)};
    OrvelResult result = OrvelObjectUIO->Methods(method_, params);
    if (result.Number != 0) {
      ShowStop(result.Text, kMsgTitle);
      return;
    }
    Unload();
  });
}

void GroupChangeDialog::cmdCancel_Click() {
  Event([&] { Unload(); });
}

}  // namespace orvel
