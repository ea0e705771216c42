#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "common/GroupedCard.h"
#include "orvel/Variant.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {

class Fields;
class Recordset;

// The window on one good, service or goods group: the field sheet, and under
// it the tabs of what belongs to the record. A group lists its goods and takes
// goods dropped on it; a good lists its traffic, measures, prices, rests,
// minimum amounts, serial numbers, discounts and templates, as far as the
// user's rights and the good's own flags allow.
//
// Tabs are numbered from 1 in the order they were added (the grid counts from
// 0, so its event index is one less); list handle 0 stays empty. Each tab's number
// is kept in its *Tab field, 0 when the tab was not made, so the numbers
// differ from user to user. The window builds its tabs anew on every
// InitForm: a good saved with rests for the first time shows its rest tabs
// only then.
//
// The group line, the right-click delete and the write come with the grouped
// card; the list loaders and the traffic printing are in GoodsDetailLists.cpp.
class frmGoods : public GroupedCard {
 public:
  static constexpr int kTabHandles = 9;

  frmGoods();
  ~frmGoods() override;

  // OrvelWindow
  // Setting the record builds the window on it at once (InitForm); the load
  // of the window builds it again, after its opener had its say on the
  // record (the parent and kind of a new one).
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override;

  // Event handlers.
  // Writes the record: a good needs a measure, and whole units when its
  // measure is counted so; an empty name writes nothing and says nothing.
  // Without CGoodsCH a good used in documents keeps its stored name, silently.
  // A failed write is shown and the window stays (after 60000 re-read); the
  // first write of a new record fills its lists.
  void cmdEnter_Click() override;
  // Re-reads a stored record; a new one is left as it is. A record that can
  // no longer be read closes its window.
  void cmdCancel_Click() override;
  // A new record in this window, a copy of this one's kind, group, name,
  // measure and rest flags.
  void SSCNew_Click() override;
  void SSCClose_MouseUp(int button, int shift = 0) override;
  void OrvelGrid_FieldChanged() override;
  void OrvelGrid_ListMouseUp(const std::string& tabKey, int tabIndex, int button,
                             int shift) override;
  void OrvelGrid_ListDoubleClick(int tabIndex) override;
  void OrvelGrid_ListDragOver(const std::shared_ptr<Object>& data, int& effect) override;
  void OrvelGrid_ListDragDrop(const std::shared_ptr<Object>& data) override;

  void mnuNew_Click();
  void mnuEdit_Click();
  void mnuDelete_Click();
  void mnuMRefresh_Click();
  void mnuToDesktop_Click();
  void mnuHistory_Click();
  void mnuByPurch_Click();
  void mnuPreview_Click();
  void mnuPrint_Click();
  void mnuRefresh_Click();

  // False, after its box, when a good lacks a measure or keeps decimals of a
  // measure counted in whole units.
  bool CheckGoodMeasure();
  // "'<OIDR>','<from>','<to>'" of the period in force, dates in the short
  // date of the locale.
  std::string TrafficParams();
  // Forgets the list handles and the fetched traffic.
  void ReleaseLists();

  // The list of tab `index`; RuntimeError 91 when that tab was not made.
  ListView& List(int index) const;
  bool HasList(int index) const;

  // Controls.
  Label lblGroup{"lblGroup"};

  Menu mnuMain{"mnuMain"};
  Menu& mnuNew;
  Menu& mnuEdit;
  Menu& mnuDelete;
  Menu& mnuBlank;
  Menu& mnuMRefresh;
  Menu mnuPopUp{"mnuPopUp"};
  Menu& mnuToDesktop;
  Menu& mnuHistory;
  Menu& mnuByPurch;
  Menu& mnuPreview;
  Menu& mnuPrint;
  Menu& mmuBlank;
  Menu& mnuRefresh;

  // Window state.
  // The good keeps rests; always False while the record is new.
  bool WithRest = false;
  std::string RecordKey;
  int16_t GoodsTab = 0;
  int16_t TrafficTab = 0;
  int16_t MeasuresTab = 0;
  int16_t PricesTab = 0;
  int16_t RestsTab = 0;
  int16_t MinTab = 0;
  int16_t SerialsTab = 0;
  int16_t DiscountsTab = 0;
  int16_t TemplatesTab = 0;
  // "100" a new row, "101" the selected row, "" no row action.
  std::string MenuAction;

  // The document lines of the good as last fetched; kept so that a change of
  // view (by purchase or by date) costs no call.
  std::shared_ptr<Recordset> TrafficRs;

  // The detail lists and editors.
  // The Goods tab: one AddGroupRow for each member of the group.
  virtual void LoadGroupGoods();
  // The Traffic tab. The first call builds the columns and the "more" row;
  // with `reload` the lines are fetched anew. Under the by-purchase view
  // only purchases and the sales of each purchase show, each purchase in bold
  // ending with what is left of its cost.
  virtual void LoadTraffic(bool reload);
  // The Rests tab, for a stored good kept in rests: the first call builds the
  // columns and the "more" row, later ones fetch the lots.
  virtual void LoadRests();
  virtual void LoadMeasures();
  // Fills the minimum amounts too.
  virtual void LoadPrices();
  // The SN tab: the first call builds the columns; with `ask` the user is
  // asked for a serial number and its lines are listed.
  virtual void LoadSerials(bool ask);
  // Errors are ignored: a good may have no templates at all.
  virtual void LoadTemplates();
  virtual void LoadDiscounts();
  // The Traffic tab on paper: the columns wider than 0.9 cm.
  virtual void PrintTraffic();
  // The price information line in the heading's tool tip: the price with or
  // without VAT at the good's rate (the general rate when it has none), and
  // who created and last changed the record.
  virtual void ShowPriceLine();
  // Opens the row of the current tab by MenuAction in the detail dialog, and
  // reloads the tab when the row was saved.
  virtual void EditRow();
  virtual void EditDiscount();
  // Adds a member row to the Goods tab; a row of that key already listed is
  // the list's error (RuntimeError), and the drop is then not made.
  virtual void AddGroupRow(Fields& fields);

 protected:
  void Form_Unload() override;
  void ReadCard() override;
  void timerModal_Timer() override;

 private:
  void BuildTabs();
  int16_t AddTab(int16_t& counter, const std::string& key, const std::string& caption);
  void ClearTabs();
  void FillAllLists();
  void PrimeNewRecord();
  void ProposeCode();
  bool Stored();
  ListItem* Selected(int index) const;
  void PopupMain(const std::string& tabKey);

  void BuildTrafficColumns();
  void AddTrafficRows(ListView& list);
  void AddMoreRow(ListView& list, int blanks);

  std::array<ListView*, kTabHandles> tabs_{};
};

}  // namespace orvel
