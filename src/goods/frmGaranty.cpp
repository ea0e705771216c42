#include "goods/frmGaranty.h"

namespace orvel {

frmGaranty::frmGaranty()
    : GroupChangeDialog("frmGaranty", "Garantijos pridėjimas", "UpdateGaranty") {
  Label1.SetCaption("Garantija, mėn:");
  chkWithSubGroups.SetCaption(" Pridėti ir pogrupiuose");
  Attach(txtGaranty, Label1);
}

}  // namespace orvel
