#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "ui/Button.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

namespace orvel {

class OrvelObjectUIO;

// The modal dialog of one dated note on a firm. The note's priority colours
// it here, in the firm's note list and in the line above the firm's tabs:
// 1 "Svarbi informacija" black, 2 "Ypatingai svarbi informacija" blue,
// 3 "Įspėjamoji informacija" red.
//
// The opener sets the firm's object and the note's ID (0 for a new note),
// shows the dialog modally and reads Saved afterwards. A note that another
// user removed meanwhile opens as a new one. Writing always closes the
// dialog as saved: the business layer's answer is not examined.
class frmFirmInfo : public Form {
 public:
  frmFirmInfo();
  ~frmFirmInfo() override;

  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO;
  int32_t ID = 0;
  bool Saved = false;

  // The colour of a priority (1 to 3); black for any other.
  static int32_t PriorityColor(int priority);
  // The parameter string of "AddUpdateFirmInfo":
  // <ID>,'<text>','<yyyymmdd>',<'yyyymmdd' or Null>,<firm ID>,<user ID>,<priority>.
  std::string WriteParams() const;

  // Event handlers.
  void dtpDateFrom_Change();
  void imcPriority_Change();
  void cmdWrite_Click();
  void cmdCancel_Click();

  // Controls.
  Label lblPriority{"lblPriority"};
  ImageCombo imcPriority{"imcPriority"};
  Label lblColor{"lblColor"};
  TextBox txtInfo{"txtInfo"};
  Label lblDateFrom{"lblDateFrom"};
  DTPicker dtpDateFrom{"dtpDateFrom"};
  Label lblDateTo{"lblDateTo"};
  DTPicker dtpDateTo{"dtpDateTo"};
  Button cmdWrite{"cmdWrite"};
  Button cmdCancel{"cmdCancel"};

 protected:
  void Form_Load() override;

 private:
  // Reads the note into the boxes and its priority; false when it is gone.
  bool ReadNote(int& priority);
  int SelectedPriority() const;
};

}  // namespace orvel
