#pragma once

#include <string>

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/OptionButton.h"
#include "ui/TextBox.h"

namespace orvel {

// "Peržiūros nustatymai": what the goods catalogue's list shows and in which
// order. Settings holds the seven comma-separated fields of the list setting:
//   0 active goods, 1 inactive goods, 2 code column, 3 warehouse OIDR in
//   apostrophes, 4 only that warehouse, 5 order (1 by code, 0 by name),
//   6 only goods with a rest.
// The caller sets SectionOID and Settings, shows the dialog modally and reads
// Confirmed and Settings. "Gerai" keeps the new settings for the session,
// "Išsaugoti" stores them for the user as well, "Atšaukti" keeps nothing.
class frmGoodPreview : public Form {
 public:
  // The settings of a text that has not seven fields.
  static constexpr const char* kDefaultSettings = "1,0,1,'',0,1,0";
  static constexpr const char* kDefaultSection = "O0000200";
  static constexpr const char* kWarehouseOid = "O0001605";

  frmGoodPreview();

  // The user-setting section; empty means the goods catalogue's.
  std::string SectionOID;
  std::string Settings;
  bool Confirmed = false;

  Frame fraSort{"fraSort"};
  Frame fraShow{"fraShow"};
  Frame fraView{"fraView"};
  CheckBox chkActive{"chkActive"};
  CheckBox chkNotActive{"chkNotActive"};
  CheckBox chkCode{"chkCode"};
  TextBox txtLocation{"txtLocation"};
  Button cmdLocation{"cmdLocation"};
  CheckBox chkByLocation{"chkByLocation"};
  OptionButton optByCode{"optByCode"};
  OptionButton OptByName{"OptByName"};
  CheckBox chkOnlyWithRest{"chkOnlyWithRest"};
  Button cmdOK{"cmdOK"};
  Button cmdSave{"cmdSave"};
  Button cmdCancel{"cmdCancel"};

  void chkByLocation_Click();
  void cmdLocation_Click();
  void cmdOK_Click();
  void cmdSave_Click();
  void cmdCancel_Click();

  // Settings from the controls; Confirmed becomes True. With neither active
  // nor inactive goods asked for, active goods are switched on.
  void BuildSettings();

 protected:
  void Form_Load() override;

 private:
  void EnableLocation();
};

}  // namespace orvel
