#pragma once

#include <string>

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Form.h"
#include "ui/OptionButton.h"
#include "ui/Frame.h"

namespace orvel {

// "Peržiūros nustatymai": what a catalogue list shows. The three choices
// travel as one string "<Active>,<NotActive>,<CodeMode>": records in use,
// records not in use, and 0 (no code, by name), 1 (code, by name) or 2
// (code, by code). cmdOK applies the choice, cmdSave also stores it for the
// user under OType, key "Preview".
class frmPreview : public Form {
 public:
  frmPreview();

  // True once the user left with cmdOK or cmdSave.
  bool Accepted = false;
  // The section of the stored setting; "O0000100" when left empty.
  std::string OType;
  // The setting given in and, when accepted, handed out.
  std::string Settings;

  void chkCode_Click();
  void cmdOK_Click();
  void cmdSave_Click();
  void cmdCancel_Click();

  Frame fraPreview{"fraPreview"};
  Frame fraSort{"fraSort"};
  Frame fraShow{"fraShow"};
  CheckBox chkActive{"chkActive"};
  CheckBox chkNotActive{"chkNotActive"};
  CheckBox chkCode{"chkCode"};
  OptionButton OptByName{"OptByName"};
  OptionButton optByCode{"optByCode"};
  Button cmdOK{"cmdOK"};
  Button cmdSave{"cmdSave"};
  Button cmdCancel{"cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  // Accepts and builds Settings from the boxes.
  void Accept();
};

}  // namespace orvel
