#pragma once

#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "currencies/CodeDictionary.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Recordset.h"
#include "orvel/Variant.h"
#include "ui/Button.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/Panel.h"

namespace orvel {

class OrvelObjectUIO;

// The day rates of the bank beside the rates stored in the suite, written
// for one currency or for all. cmdGo asks the bank's SOAP service (the
// RateSource of the user and the date; RateServiceSettings for its address)
// for the rates of dtpDate and its currency list, and the currency object for
// the stored currencies of that day; lvwRows then lists the bank's currencies in the bank's order
// and, at the end, the stored currencies the bank does not quote (the base currency never).
// cmdWrite stores every floating rate as the bank's rate divided by its quantity, unrounded.
//
// Everything runs on the window's thread; during a fetch the hourglass and
// the disabled buttons are the only guard. A service that cannot be reached
// leaves the list empty and the window usable.
class frmCurrencyRates : public Form,
                         public OrvelWindow,
                         public std::enable_shared_from_this<frmCurrencyRates> {
 public:
  frmCurrencyRates();
  ~frmCurrencyRates() override;

  // OrvelWindow
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return object_; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override;
  void Show() override { Form::Show(); }
  void QueryRemove(bool& cancel) override { cancel = false; }
  void Unload() override { Form::Unload(); }

  // Event handlers.
  void cmdGo_Click();
  void cmdWrite_Click();
  void SSCClose_Click();
  void lvwRows_MouseUp(int button, int shift = 0);
  // The panel took a new width (twips): the name columns share what is left.
  void SOPanel_Resize(int panelWidth);

  // State, readable by tests and renderers.
  // Code to (name, quantity text, rate text), in the bank's order.
  const std::shared_ptr<CodeDictionary>& BankRates() const { return bankRates_; }
  const std::shared_ptr<CodeDictionary>& BankNames() const { return bankNames_; }
  const std::shared_ptr<Recordset>& RsCurrencies() const { return rsCurrencies_; }
  const std::string& MenuKey() const { return menuKey_; }
  Date RateDate() const { return rateDate_; }

  // Controls.
  Panel SOPanel{"SOPanel"};
  Label lblPeriod{"lblPeriod"};
  DTPicker dtpDate{"dtpDate"};
  Button cmdGo{"cmdGo"};
  Button cmdWrite{"cmdWrite"};
  ListView lvwRows{"lvwRows"};
  Label lblStatus{"lblStatus"};
  Button SSCClose{"SSCClose"};
  Menu mnuMeniu{"mnuMeniu", "Meniu"};
  Menu& mnuOnDeskTop;
  Menu& mnuWriteSelected;
  Menu& mnuWriteAll;

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  void SetBusy(bool busy, const std::string& status);
  void SetButtons(bool busy, bool ok);
  void FetchRates();
  void LoadCurrencies();
  void FillRows();
  // What the list shows of a stored currency.
  struct StoredCurrency {
    std::string oidr;
    std::string name;
    double rate = -1;
  };
  // The stored currencies by code, the first record of a code winning, as
  // the filter "Code = '<code>'" would find them (text without regard to
  // case). One pass instead of a filter per bank row.
  std::unordered_map<std::string, StoredCurrency> StoredByCode();
  void AddBankRow(const std::string& code, const Variant::Array& bank,
                  const std::unordered_map<std::string, StoredCurrency>& stored);
  void AddStoredRow(Recordset& rs);
  // `oidr` "" (or any text of at most eight characters) writes every currency.
  void WriteRates(const std::string& oidr);
  void DoMenuAction();
  std::string DateText() const;
  orvel::OrvelObjectUIO& Uio();

  std::shared_ptr<orvel::OrvelObjectUIO> object_;
  std::shared_ptr<CodeDictionary> bankRates_;
  std::shared_ptr<CodeDictionary> bankNames_;
  std::shared_ptr<Recordset> rsCurrencies_;
  std::string selectedTag_;
  std::string menuKey_;
  std::string msgTitle_;
  Date rateDate_{};
};

}  // namespace orvel
