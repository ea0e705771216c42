#pragma once

#include <memory>
#include <string>

#include "common/CatalogueWindow.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Panel.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"

namespace orvel {

class OrvelObjectUIO;

// The card of one currency: code, country word, the declined names of its
// main and small units (what amounts in words print), the fixed rate if it
// has one, and a tab with its rate history. The fields are plain controls
// bound here by hand; there is no field sheet.
//
// Editing state: Changed is set by every edit except a gender pick (the new
// gender is written with the next real edit). cmdWrite works on the "Data"
// tab of a changed card, cmdGo on the "Rates" tab. A new card (an OIDR of
// fewer than nine characters when loaded) offers cmdDayRate once its code
// has three characters, so a rate can be written for a code not stored yet.
class frmCurrency : public CatalogueFrame {
 public:
  static constexpr const char* kDataTab = "Data";
  static constexpr const char* kRatesTab = "Rates";

  frmCurrency();
  ~frmCurrency() override;

  // OrvelWindow
  // The card closes without a question about unsaved edits.
  void QueryRemove(bool& cancel) override { cancel = false; }

  // The reload entry: Read, then LoadCard; a failed read closes the window.
  void ReloadCard();

  // Event handlers.
  void TabStrip_Click(const std::string& key);
  void cmdGo_Click();
  void cmdWrite_Click();
  void cmdDayRate_Click();
  void SSCNew_Click();
  void SSCClose_Click();
  void SSCClose_MouseUp(int button, int shift = 0);
  void chkFixedRate_Click();
  void cmbGenderCurr_Click();
  void cmbGenderSmall_Click();
  void txtCode_Change();
  void txtFixedRate_GotFocus();
  void txtFixedRate_KeyPress(int& keyAscii);
  void txtFixedRate_LostFocus();
  void dtpDateFrom_Change();
  void dtpDateTo_Change();

  bool Changed() const { return changed_; }
  bool IsNew() const { return isNew_; }
  const std::string& SelectedTab() const { return selectedTab_; }

  // Controls.
  orvel::TabStrip TabStrip{"TabStrip"};
  Frame frameCode{"frameCode"};
  Frame frameName{"frameName"};
  Frame framePeriod{"framePeriod"};
  Label lblYear{"lblYear"};
  DTPicker dtpDateFrom{"dtpDateFrom"};
  Label lblNuoIki{"lblNuoIki"};
  DTPicker dtpDateTo{"dtpDateTo"};
  ListView lvwRates{"lvwRates"};
  Button cmdGo{"cmdGo"};
  Button cmdWrite{"cmdWrite"};
  Button cmdDayRate{"cmdDayRate"};
  CheckBox chkFixedRate{"chkFixedRate"};
  TextBox txtFixedRate{"txtFixedRate"};
  Label lblState{"lblState"};
  TextBox txtState{"txtState"};
  Label lblExampleCurr{"lblExampleCurr"};
  Label lblCode{"lblCode"};
  TextBox txtCode{"txtCode"};
  Label Label1{"Label1"};
  Label Label2{"Label2"};
  ComboBox cmbGenderCurr{"cmbGenderCurr"};
  TextBox txtOneCurr{"txtOneCurr"};
  Label lblTwoCurr{"lblTwoCurr"};
  TextBox txtTwoCurr{"txtTwoCurr"};
  Label lblTenCurr{"lblTenCurr"};
  TextBox txtTenCurr{"txtTenCurr"};
  ComboBox cmbGenderSmall{"cmbGenderSmall"};
  TextBox txtOneSmall{"txtOneSmall"};
  Label lblTwoSmall{"lblTwoSmall"};
  TextBox txtTwoSmall{"txtTwoSmall"};
  Label lblTenSmall{"lblTenSmall"};
  TextBox txtTenSmall{"txtTenSmall"};
  Label lblOneCurrEx{"lblOneCurrEx"};
  Label lblTwoCurrEx{"lblTwoCurrEx"};
  Label lblTenCurrEx{"lblTenCurrEx"};
  Label lblOneSmallEx{"lblOneSmallEx"};
  Label lblTwoSmallEx{"lblTwoSmallEx"};
  Label lblTenSmallEx{"lblTenSmallEx"};
  Label lblComment{"lblComment"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void LoadCard();
  void ShowFields();
  void LoadRates();
  void SetButtons();
  void MarkChanged();
  bool CheckCard();
  std::string msgTitle_;
  std::string selectedTab_ = kDataTab;
  bool changed_ = false;
  bool isNew_ = false;
};

}  // namespace orvel
