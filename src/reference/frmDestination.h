#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "reference/frmReferenceBook.h"
#include "ui/Menu.h"

namespace orvel {

class ListItem;
class ListView;
class Recordset;

// The card of a destination, a record of the book "O0001615": the common
// reference-book card with one more tab, "Šablonai", that lists the
// accounting templates attached to the record, with a menu to add, edit and
// delete them (each through frmTemplate and the one business method
// "SaveUpdateDeleteTemplates").
//
// The tab exists only for a user holding the right "CTemplatesLock". A row
// that the record inherits from a group above (ID Null, ID2 not) is marked
// " (šablonas paveldėtas)" and has an empty Tag: it opens for a look, but it
// cannot be deleted here. Each list row's key is the template type's OIDR
// (nine characters) followed by the row's ID.
class frmDestination : public frmReferenceBook {
 public:
  static constexpr const char* kTemplatesTab = "BRTemplates";
  static constexpr const char* kInheritedMark = " (šablonas paveldėtas)";
  static constexpr int kColumnWidth = 3000;

  // The picked entry of mnuTemplate.
  enum Action : int32_t { kNone = 0, kNew = 1, kEdit = 2, kDelete = 3 };

  frmDestination();

  // Event handlers.
  void OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button,
                             int shift) override;
  void OrvelGrid_ListDoubleClick(int tabIndex) override;
  void mnuTemplateNew_Click() { templateAction_ = kNew; }
  void mnuTemplateEdit_Click() { templateAction_ = kEdit; }
  void mnuTemplateDelete_Click() { templateAction_ = kDelete; }

  // The templates' list; null without the tab.
  ListView* TemplatesList() const;
  const std::string& TemplateKey() const { return templateKey_; }
  int32_t TemplateAction() const { return templateAction_; }
  // The rows of "BRTemplates" the list was drawn from.
  const std::shared_ptr<Recordset>& RsTemplates() const { return rsTemplates_; }

  Menu mnuTemplate{"mnuTemplate"};
  Menu& mnuTemplateNew;
  Menu& mnuTemplateEdit;
  Menu& mnuTemplateDelete;

 protected:
  // The templates' tab, once, for a user with the right; its rows.
  void AddTabs() override;

 private:
  void FillTemplates();
  void DoTemplateAction();
  void OpenTemplate(const std::string& typeOidr, bool isNewRow);
  ListItem* SelectedRow() const;

  std::shared_ptr<Recordset> rsTemplates_;
  std::string templateKey_;
  int32_t templateAction_ = kNone;
};

}  // namespace orvel
