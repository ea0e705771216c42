#pragma once

#include <memory>
#include <string>

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/OrvelGrid.h"

namespace orvel {

class OrvelObjectUIO;

// One detail record in its field sheet: a good's measure, price, minimum
// amount or template, and the firm's detail records too. The caller gives the
// grid its services and object, fills it, shows the dialog modally and reads
// Saved.
//
// Before a write each kind of good's record is checked: a measure needs its
// measure and a ratio that is not zero (a ratio of zero becomes 1, shown, and
// the user presses Write again), a price its type and price, a minimum amount
// its warehouse and amount, a template a template that is not a template
// group. A record that lacks its key fields is not written and nothing is
// said; a bad template is told. A failed write is shown and the dialog stays.
class frmGoodProperty : public Form {
 public:
  // The business layer's number for a record that repeats a unique key.
  static constexpr int32_t kDuplicateRecord = 2627;
  static constexpr int kLabelWidth = 2000;

  frmGoodProperty();

  std::string MsgTitle;
  // True once a write succeeded; False after Cancel.
  bool Saved = false;

  std::shared_ptr<orvel::OrvelGrid> OrvelGrid;
  Button cmdEnter{"cmdEnter"};
  Button cmdCancel{"cmdCancel"};

  void cmdEnter_Click();
  void cmdCancel_Click();

  // False when the measure row may not be written yet (see the class).
  bool CheckMeasure(OrvelObjectUIO& object);

 protected:
  void Form_Load() override;

 private:
  bool ReadyToSave(OrvelObjectUIO& object);
  bool TemplateAccepted(OrvelObjectUIO& object);
};

}  // namespace orvel
