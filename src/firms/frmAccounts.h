#pragma once

#include <memory>
#include <string>

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/OrvelGrid.h"

namespace orvel {

// The modal dialog of one settlement account of a firm, in the host's field
// sheet. The opener gives the sheet its services and the account's object,
// fills the fields, sets the caption and MsgTitle and shows the dialog; it
// reads Saved afterwards. A failed write is shown and the dialog stays.
class frmAccounts : public Form {
 public:
  frmAccounts();
  ~frmAccounts() override;

  std::string MsgTitle;
  bool Saved = false;

  // Event handlers.
  void cmdEnter_Click();
  void cmdCancel_Click();

  // Controls.
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};
  std::shared_ptr<orvel::OrvelGrid> OrvelGrid;
};

}  // namespace orvel
