#pragma once

#include <string>

#include "goods/GroupChangeDialog.h"
#include "ui/OptionButton.h"

namespace orvel {

// "Pardavimo kainų keitimas": raises or lowers the sale prices of the goods
// of a group (and with the check box of its sub-groups) by the value typed,
// through the group's "UpdateGoodsPrice". The value is a change, signed "-"
// for a lowering; how it applies to a price is the business layer's matter.
class frmPriceChange : public GroupChangeDialog {
 public:
  frmPriceChange();

  OptionButton optUp{"optUp"};
  OptionButton OptDown{"OptDown"};
  Label Label2{"Label2"};
  TextBox txtPrice{"txtPrice"};

  void optUp_Click();
  void OptDown_Click();

 protected:
  void Form_Load() override;
  std::string Signed(std::string value) const override;
};

}  // namespace orvel
