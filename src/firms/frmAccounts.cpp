#include "firms/frmAccounts.h"

#include "common/Boundary.h"
#include "common/Platform.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

frmAccounts::frmAccounts() : Form("frmAccounts") {
  // Replaced by the opener with the firm's name and the account's role.
  SetCaption("Account");
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  Register(cmdEnter);
  Register(cmdCancel);
  OrvelGrid = Platform::Ui().NewOrvelGrid();
  if (OrvelGrid) Register(*OrvelGrid);
  cmdEnter.OnClick = [this] { Handle(MsgTitle, [&] { cmdEnter_Click(); }); };
  cmdCancel.OnClick = [this] { Handle(MsgTitle, [&] { cmdCancel_Click(); }); };
}

frmAccounts::~frmAccounts() = default;

void frmAccounts::cmdEnter_Click() {
  if (!OrvelGrid) throw RuntimeError(RuntimeError::kObjectNotSet, "Langas neturi laukų lapo");
  // No EndFieldEdit here: the sheet commits the cell being edited itself.
  if (OrvelGrid->SaveObject() != 0) {
    Platform::Ui().MsgBox("Klaida!\n\n" + OrvelGrid->LastError(), vbCritical, MsgTitle);
    return;
  }
  Saved = true;
  Unload();
}

void frmAccounts::cmdCancel_Click() {
  Saved = false;
  Unload();
}

}  // namespace orvel
