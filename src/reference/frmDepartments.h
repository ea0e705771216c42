#pragma once

#include <memory>
#include <string>

#include "common/CatalogueWindow.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"

namespace orvel {

class Recordset;

// The card of a company department or department group, a record of the
// book "O0001604". No field sheet: a name, the group above and a link to one
// of the suite's firm branches, each a plain box. The reference boxes show a
// name in Text and hold the reference in Tag: txtGroup the group's OIDR,
// txtFirmBranch the branch's ID ("0" for none).
//
// Rights come from the key "CReference": without the update right no edit
// enables cmdWrite or cmdCancel. cmdWrite needs a name (blanks count, and are
// trimmed away on write). A write of a new record tells the host and reloads
// the card; a write of a stored one only settles the buttons, without telling
// the host, as the suite has always done for this card.
//
// Closing, the right-click delete and the question before unsaved edits are
// given up follow the catalogue windows.
class frmDepartments : public CatalogueFrame {
 public:
  static constexpr const char* kBook = "O0001604";
  static constexpr const char* kRightKey = "CReference";

  frmDepartments();
  ~frmDepartments() override;

  // OrvelWindow
  // Asks "<heading>\n\nUždaryti be išsaugojimo?" while cmdWrite is on; the
  // close button is then enabled exactly when the window may go.
  void QueryRemove(bool& cancel) override;

  // Reads the record into the boxes: branches, group, name, caption, buttons.
  void InitForm();

  // Event handlers.
  void txtName_Change();
  void cmdParentGroup_Click();
  void cmdParentGroupClean_Click();
  void cmdFirmBranches_Click();
  void cmdCleanFirmBranch_Click();
  void cmdWrite_Click();
  void cmdCancel_Click();
  void SSCNew_Click();
  void SSCClose_Click();
  void SSCClose_MouseUp(int button, int shift = 0);

  // The tree's "ReadOnly": no edit is written and no new record is made,
  // whatever the rights say. Set by the opener before the window shows.
  bool boolReadOnly = false;

  // The card's state, as tests read it.
  bool Changed() const { return changed_; }
  bool IsGroup() const { return isGroup_; }
  bool IsNew() const { return isNew_; }
  bool HasBranches() const { return hasBranches_; }
  bool CanUpdate() const { return canUpdate_; }
  bool CanDelete() const { return canDelete_; }
  const std::string& MsgTitle() const { return msgTitle_; }

  // Controls.
  Label lblName{"lblName"};
  TextBox txtName{"txtName"};
  Label lblGroup{"lblGroup"};
  TextBox txtGroup{"txtGroup"};
  Button cmdParentGroup{"cmdParentGroup"};
  Button cmdParentGroupClean{"cmdParentGroupClean"};
  Label lblFirmBranch{"lblFirmBranch"};
  TextBox txtFirmBranch{"txtFirmBranch"};
  Button cmdFirmBranches{"cmdFirmBranches"};
  Button cmdCleanFirmBranch{"cmdCleanFirmBranch"};
  Button cmdWrite{"cmdWrite"};
  Button cmdCancel{"cmdCancel"};

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void LoadBranches();
  void ShowBranch();
  void SetCaption();
  void SetButtons();
  void MarkChanged();
  std::shared_ptr<Recordset> rsBranches_;
  std::string msgTitle_;
  bool changed_ = false;
  bool loading_ = false;
  bool canUpdate_ = false;
  bool canDelete_ = false;
  bool isGroup_ = false;
  bool isNew_ = false;
  bool hasBranches_ = false;
};

}  // namespace orvel
