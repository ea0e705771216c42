#pragma once

#include <memory>
#include <string>

#include "orvel/Variant.h"
#include "ui/Button.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"

namespace orvel {

class OrvelObjectUIO;

// The modal dialog that shows and writes the rate of one currency on one
// day: the price of one unit, eight decimals. The caller sets the three
// public members before showing it. A successful write keeps the dialog
// open for another day; a failed one closes it without a word, as the
// dialog always did.
class frmCurrencyRate : public Form {
 public:
  frmCurrencyRate();
  ~frmCurrencyRate() override;

  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO;
  Date RateDate{};
  std::string CurrencyCode;

  // Event handlers.
  void pickerDate_Change();
  void txtDayRate_Change();
  void txtDayRate_GotFocus();
  void txtDayRate_KeyPress(int& keyAscii);
  void txtDayRate_LostFocus();
  void cmdWrite_Click();
  void cmdExit_Click();

  // Controls.
  Panel SSPanel1{"SSPanel1"};
  Label lblDate{"lblDate"};
  DTPicker pickerDate{"pickerDate"};
  Label lblDayRate{"lblDayRate"};
  TextBox txtDayRate{"txtDayRate"};
  Label lblLt{"lblLt"};
  Button cmdWrite{"cmdWrite"};
  Button cmdExit{"cmdExit"};

 protected:
  void Form_Load() override;

 private:
  void LoadDayRate();

  std::string msgTitle_;
  bool loading_ = false;
};

}  // namespace orvel
