#pragma once

#include <cstdint>
#include <memory>

#include "orvel/OrvelObjectUIO.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/ListView.h"
#include "ui/Menu.h"

namespace orvel {

// The movement history of one good ("Istorija"): every document that moved
// it, one row a document, as the business layer sends them in the set
// "GoodHistory". Each row shows the document's figures in the base currency
// and, for a document in a foreign currency, in that currency as well.
//
// The base currency is the literal code "LTL" here: a row in "LTL", or one
// without a rate, shows its figures as they are and leaves the four currency
// columns blank (" "). Otherwise the base figures are the document's own
// multiplied by its rate.
//
// Modal; the goods window opens it with the good's object and number. It
// keeps nothing and asks nothing before it goes.
class frmGoodsHistory : public Form {
 public:
  // The columns, in order, 1-based as the list numbers them.
  enum Column : int {
    kDocumentGroup = 1,
    kNumber,
    kDate,
    kAddressee,
    kAmount,
    kMeasure,
    kPrice,
    kSum,
    kWarehouse,
    kCurrency,
    kRate,
    kCurrencyPrice,
    kCurrencySum,
    kColumnCount = kCurrencySum,
  };
  // The base currency's code.
  static constexpr const char* kBaseCurrency = "LTL";
  // Prices keep up to eight decimals, sums two.
  static constexpr const char* kPriceFormat = "#0.00######";
  static constexpr const char* kSumFormat = "#0.00";
  // The window is this much narrower than the screen (twips).
  static constexpr int32_t kScreenMargin = 1000;
  // The list's left margin and the room it leaves on its right (twips).
  static constexpr int32_t kListLeft = 120;
  static constexpr int32_t kListSlack = 100;

  frmGoodsHistory();

  // Set by the caller before the window loads.
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO;
  int32_t GoodID = 0;

  ListView lswHistory{"lswHistory"};
  Button cmdClose{"cmdClose"};
  Menu mnuMain{"mnuMain"};
  Menu& mnuToDesktop;

  // The window's width and the list's place in it, in twips: the form and
  // its controls keep no geometry of their own, the renderer reads these.
  int32_t Width = 0;
  int32_t lswHistoryLeft = kListLeft;
  int32_t lswHistoryWidth = 0;

  // The renderer tells the window its new inner width.
  void Form_Resize(int32_t scaleWidth);
  void lswHistory_MouseUp(int button, int shift);
  void mnuToDesktop_Click();
  void cmdClose_Click();

 protected:
  void Form_Load() override;

 private:
  void AddColumns();
  void FillHistory();
  struct RowFields;
  // One row from the record in hand: read whole first, then added whole.
  void AddHistoryRow(const RowFields& fields);
};

}  // namespace orvel
