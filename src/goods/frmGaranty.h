#pragma once

#include "goods/GroupChangeDialog.h"

namespace orvel {

// "Garantijos pridėjimas": gives the goods of a group (and with the check box
// of its sub-groups) the warranty months typed, through the group's
// "UpdateGaranty".
class frmGaranty : public GroupChangeDialog {
 public:
  frmGaranty();

  Label Label1{"Label1"};
  TextBox txtGaranty{"txtGaranty"};
};

}  // namespace orvel
