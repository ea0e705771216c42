#pragma once

#include <cstdint>
#include <string>

#include "common/CatalogueWindow.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/TextBox.h"

namespace orvel {

// The card of one record of any reference book: the record's fields on the
// sheet, drawn from the book's structure, and one line naming the group the
// record belongs to, with a picker to move it to another group.
//
// Closing, the right-click delete, the question before unsaved changes are
// given up and the child unload are the catalogue window's. What differs:
// the write button (cmdWrite, the pattern's cmdEnter) stores the chosen group
// in ParentID before it saves; a read-only card never becomes changed and
// offers no new record; a new record keeps its group and kind across a
// cancel and across SSCNew, because a read of a new record empties them.
class frmReferenceBook : public CatalogueWindow {
 public:
  // The caption column of the sheet, in twips.
  static constexpr int kLabelWidth = 2500;

  frmReferenceBook();

  // Set by the adapter before the window is shown.
  std::string mGroupName;
  bool boolReadOnly = false;

  Label lblCard{"lblCard"};
  Label lblGroup{"lblGroup"};
  TextBox txtGroup{"txtGroup"};
  Button cmdGroup{"cmdGroup"};
  Button& cmdWrite;

  void InitForm() override;

  // Event handlers; those of the pattern that differ here replace its own.
  void cmdWrite_Click();
  void cmdEnter_Click() override { cmdWrite_Click(); }
  void cmdCancel_Click() override;
  void SSCNew_Click() override;
  void cmdGroup_Click();
  void OrvelGrid_FieldChanged() override;
  void txtGroup_Change();

  // The card's state, as the builder and the tests read it.
  int32_t GroupID() const { return groupId_; }
  bool IsGroup() const { return isGroup_; }
  const std::string& BookOID() const { return bookOid_; }
  bool AtTop() const { return atTop_; }
  bool IsNew() const { return isNew_; }
  const std::string& MsgTitle() const { return msgTitle_; }

 protected:
  // For a card that builds on this one.
  explicit frmReferenceBook(std::string formName);

  void Form_Load() override;
  // A blank and the book's name in the heading.
  void SetCaption() override;

 private:
  // The read-only flag overrides a change; SSCNew only on an unchanged,
  // editable card.
  void SetButtons(bool changed);
  // The group and kind a read of a new record has emptied.
  void RestoreNewRecordFields();
  // The creator's right on a new location or project.
  void RegisterLock();

  int32_t groupId_ = 0;
  bool isGroup_ = false;
  std::string bookOid_;
  bool atTop_ = true;
  bool isNew_ = false;
  std::string msgTitle_;
};

}  // namespace orvel
