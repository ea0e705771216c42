#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "common/GroupedCard.h"
#include "orvel/Variant.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {

class Fields;

// The window on one firm or firm group: the field sheet, the list tabs under
// it and the debt line. A group lists its member firms and takes firms dropped
// on it; a firm lists its documents, contracts, accounts and details.
//
// Tabs are numbered from 1 in the order they were added (the grid counts from
// 0, so its event index is one less); list handle 0 stays empty. Each tab's
// number is kept in its *Tab field, 0 when the tab was not made.
class frmFirms : public GroupedCard {
 public:
  static constexpr int kListHandles = 12;

  frmFirms();
  ~frmFirms() override;

  // Event handlers.
  // Writes the record by the firm's rules: a duplicate code is asked about
  // (and refused without CFirmsCode); a firm used in documents silently keeps
  // its name without CFirmsCH and its group without CFirmsCH or
  // CCatalogueCredits; a failed write is shown and the window stays, after
  // number 60000 re-read.
  void cmdEnter_Click() override;
  // Re-reads the record, discarding the edits. A record that can no longer be
  // read closes its window; a new record stays in its group.
  void cmdCancel_Click() override;
  void SSCNew_Click() override;
  void SSCNew_MouseUp(int button, int shift = 0);
  void SSCClose_MouseUp(int button, int shift = 0) override;
  void OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button,
                             int shift) override;
  void OrvelGrid_ListDoubleClick(int tabIndex) override;
  void OrvelGrid_ListDragOver(const std::shared_ptr<Object>& data, int& effect) override;
  void OrvelGrid_ListDragDrop(const std::shared_ptr<Object>& data) override;

  // The list of tab `index`; RuntimeError 91 when the handle is empty or its
  // tab was cleared.
  ListView& List(int index) const;
  // Whether handle `index` was set and not released (it may be stale).
  bool HasListHandle(int index) const;

  // Controls.
  Label lblInfo{"lblInfo"};
  // The panel of the note line, and the panel of the lists under it, which
  // moves up over the line while no note is shown.
  Panel pnlInfo{"pnlInfo"};
  Panel pnlLists{"pnlLists"};
  Label lblCroup{"lblCroup"};
  Label lblDebt{"lblDebt"};
  Label lblCredit{"lblCredit"};

  Menu mnuAccounts{"mnuAccounts"};
  Menu& mnuAccountsNew;
  Menu& mnuAccountsEdit;
  Menu& mnuAccountsDelete;
  Menu mnuMain{"mnuMain"};
  Menu& mnuToDesktop;
  Menu& mnuGoodsToDesktop;
  Menu& mnuPreview;
  Menu& mnuRefresh;
  Menu& mnuBlank;
  Menu& mnuFirmDelete;
  Menu mnuFirmParameters{"mnuFirmParameters"};
  Menu& mnuFirmParametersNew;
  Menu& mnuFirmParametersEdit;
  Menu& mnuFirmParametersDelete;
  Menu mnuFirmInfo{"mnuFirmInfo"};
  Menu& mnuFirmInfoAdd;
  Menu& mnuFirmInfoEdit;
  Menu& mnuFirmInfoDelete;
  Menu mnuDiscount{"mnuDiscount"};
  Menu& mnuDiscountNew;
  Menu& mnuDiscountEdit;
  Menu& mnuBlank0;
  Menu& mnuDiscountDelete;
  Menu& mnuBlank1;
  Menu& mnuDiscountRefresh;
  Menu mnuNew{"mnuNew"};
  Menu& mnuNewWithCopy;
  Menu mnuContracts{"mnuContracts"};
  Menu& mnuContractToDeskTop;
  Menu& mnuContractRefresh;

  // Window state.
  std::shared_ptr<Object> ShowHost;
  int16_t TrafficTab = 0;
  int16_t GoodsTab = 0;
  int16_t AccountsTab = 0;
  int16_t FirmsTab = 0;
  int16_t BranchTab = 0;
  int16_t AddressesTab = 0;
  int16_t ContactsTab = 0;
  int16_t ServersTab = 0;
  int16_t InfoTab = 0;
  int16_t ActivityTab = 0;
  int16_t DiscountsTab = 0;
  int16_t ContractsTab = 0;
  double Limit = 0;
  double LimitTerm = 0;
  double Debt = 0;
  int32_t ModalAction = 0;

  // The list loaders. Each builds its tab's columns once, then empties the
  // list and refills it from the firm's property; a record not saved yet
  // shows empty lists. A loader whose tab was not made does nothing, and
  // none reports a failure: a failed read leaves its list empty, or as far
  // as it got. The documents and the contracts are read only when asked
  // (`more`): until then they show the "more" placeholder row.
  void LoadFirmsList();
  // The lists whose rows show the record's fields as they stand. The
  // parameters go into the note tab's list; no menu reaches them.
  enum class DetailList { Parameters, Addresses, Contacts, Managers, Activity, Accounts, Branches };
  void LoadDetail(DetailList which);
  void LoadContracts(bool more);
  // Also the line lblInfo over the tabs, from the first note.
  void LoadFirmInfo();
  void LoadTraffic(bool more);
  void LoadDiscounts();
  void LoadGoods(bool more);
  // The editors, by the tab the user is on (CurrentTab). Each refuses a new
  // record on a firm not saved yet; editing with no row selected does
  // nothing. A saved dialog reloads its list.
  virtual void EditDetail(bool isNew);
  void EditAccount(bool isNew);
  virtual void EditFirmInfo(bool isNew);

 protected:
  void Form_Unload() override;
  void ReadCard() override;
  void timerModal_Timer() override;

 private:
  // Menu and label handlers, each wired to its control.
  void mnuAccountsNew_Click();
  void mnuContractRefresh_Click();
  void mnuPreview_Click();
  void lblDebt_Click();
  void mnuNewWithCopy_Click();
  void mnuAccountsEdit_Click();
  void mnuAccountsDelete_Click();
  void mnuFirmParametersNew_Click();
  void mnuFirmParametersEdit_Click();
  void mnuFirmParametersDelete_Click();
  void mnuFirmInfoAdd_Click();
  void mnuFirmInfoEdit_Click();
  void mnuFirmInfoDelete_Click();
  void mnuDiscountNew_Click();
  void mnuDiscountEdit_Click();
  void mnuDiscountDelete_Click();
  void mnuDiscountRefresh_Click();
  void mnuToDesktop_Click();
  void mnuContractToDeskTop_Click();
  void mnuGoodsToDesktop_Click();
  void mnuRefresh_Click();
  void mnuFirmDelete_Click();
  // The lists' panel below the note line when it is shown, over it when not.
  void PlaceNoteLine();
  struct DetailListShape;
  static const std::vector<DetailListShape>& DetailLists();
  void LoadDetail(const DetailListShape& shape);
  // The detail list whose editor EditDetail opens on `tab`; null for none.
  const DetailListShape* EditedOn(int tab) const;
  // Reloads the list of a detail tab after its dialog saved.
  void ReloadDetail(int tab);
  // "'<OIDR>','<from>','<to>'" of the documents list, by Period: its own
  // dates when it uses dates, otherwise DaysBack days before today up to
  // 9999-12-31, in the locale's short date.
  std::string TrafficParams();
  // Adds a member row to the Firms tab by the record's OIDR; a row of that
  // key already listed is the list's error.
  void AddFirmRow(Fields& fields);

  // Fetches the firm's balance into lblDebt, with the credit warnings, and
  // the limits into lblCredit. A group or a record not saved yet gets an
  // empty line. The own firm shows our side of the ledger and no limits.
  void RefreshDebt();

  // Makes a new record in this window: the parent group and the group flag
  // carry over, and with `copy` the name too.
  void NewFromCurrent(bool copy);

  // Clears list handles 0 to 10.
  void ReleaseLists();

  struct ListHandle {
    ListView* view = nullptr;
    int generation = 0;
  };

  // Whether the record is the session's own firm; false when that cannot be told.
  bool IsOwnFirm();
  // Puts back the name and group of a firm used in documents, where the
  // user's rights do not let them change.
  void KeepUsedFirmIdentity();
  // The duplicate-code question: false when the write must not go on.
  bool CodeAccepted();
  void UnloadShowHost();
  void ApplyTypeAndRegion();
  // Adds tab `key` at number `index` and keeps its list handle.
  int16_t AddTab(int16_t index, const std::string& key, const std::string& caption);
  void AddFirmTabs(int16_t& counter);
  void ClearTabs();
  bool Saved();
  bool HasSelection(int index) const;
  ListItem* Selected(int index) const;
  // "Išsaugokite naujai sukurtą įmonę" on a record not saved yet: false.
  bool RefuseUnsaved();
  // Asks `prompt`, Yes and No; unless No, deletes the object `oidr` names.
  // False when the user said No.
  bool DeleteRowObject(const std::string& oidr, const std::string& prompt);
  void ToDesktop(const std::string& oidr);

  std::array<ListHandle, kListHandles> lists_{};
  // Raised by every ClearTabs: a handle of an older generation is stale.
  int generation_ = 0;
};

}  // namespace orvel
