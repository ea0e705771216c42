#pragma once

#include <string>

#include "common/CatalogueWindow.h"
#include "orvel/Recordset.h"
#include "ui/Menu.h"

namespace orvel {

// The card of one bank: its fields on the sheet and one tab, the firms that
// keep accounts in it.
class frmBanks : public CatalogueWindow {
 public:
  frmBanks();

  void OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button,
                             int shift) override;

  Menu mnuFirms{"mnuFirms"};
  Menu& mnuToDesktop;

 protected:
  void AddTabs() override;
  // "Naujas bankas" on a new record, "Banko kortelė" on a stored one.
  void SetCaption() override;
  void FillLists() override { FillFirms(); }

 private:
  // The firms of the bank, read through the property "Firms"; a new bank
  // lists none.
  void FillFirms();
  void AddFirmRow(Recordset& firm);
};

}  // namespace orvel
