#include "goods/frmPriceChange.h"

namespace orvel {

frmPriceChange::frmPriceChange()
    : GroupChangeDialog("frmPriceChange", "Pardavimo kainų keitimas", "UpdateGoodsPrice") {
  optUp.SetCaption("Didinti");
  OptDown.SetCaption("Mažinti");
  Label2.SetCaption("Keitimas:");
  chkWithSubGroups.SetCaption("Keisti ir pogrupiuose");
  OptionButton::Group({&optUp, &OptDown});
  Register(optUp);
  Register(OptDown);
  Attach(txtPrice, Label2);
  optUp.OnClick = [this] { optUp_Click(); };
  OptDown.OnClick = [this] { OptDown_Click(); };
}

void frmPriceChange::Form_Load() {
  optUp.SetValue(true);
  GroupChangeDialog::Form_Load();
}

void frmPriceChange::optUp_Click() { EnableButtons(true); }

void frmPriceChange::OptDown_Click() { EnableButtons(true); }

std::string frmPriceChange::Signed(std::string value) const {
  return OptDown.Value() ? "-" + value : value;
}

}  // namespace orvel
