#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace orvel {

class OrvelObjectUIO;

// The dialogs that the goods menus open, behind one seam: the catalogue's
// list settings, the price change and the guarantee of a group, a good's
// detail record and its movement history. The goods adapters and the goods
// window call them here. This class is the module's own set: each entry
// builds its dialog (frmGoodPreview, frmPriceChange, frmGaranty,
// frmGoodProperty, frmGoodsHistory) and shows it through the Ui seam. A
// host's tests may install another set, to answer for the user.
//
// All of them are modal: each returns once the user closed its dialog.
class GoodsDialogs {
 public:
  virtual ~GoodsDialogs();

  // The catalogue's list settings (seven fields, see UI0000200), shown with
  // `settings`. True when the user confirmed, the new text then in `settings`;
  // false leaves it as it was.
  virtual bool EditListSettings(std::string& settings);
  // A price change over the goods of a group, on the group's object.
  virtual void ChangePrices(const std::shared_ptr<OrvelObjectUIO>& group);
  // A guarantee added to the goods of a group, on the group's object.
  virtual void AddGuarantee(const std::shared_ptr<OrvelObjectUIO>& group);
  // A detail record of a good (a measure, price, minimum amount or template)
  // in its property sheet, captioned `caption`, boxes titled `msgTitle`.
  // True when the record was saved.
  virtual bool EditGoodProperty(const std::shared_ptr<OrvelObjectUIO>& detail,
                                const std::string& caption, const std::string& msgTitle);
  // The movement history of a good from the document numbered `documentId`:
  // frmGoodsHistory, modal, on the good's object.
  virtual void ShowGoodsHistory(const std::shared_ptr<OrvelObjectUIO>& good, int32_t documentId);
};

// The dialogs in force.
GoodsDialogs& CurrentGoodsDialogs();
// Installs `dialogs` in the module's state; null puts back the module's own.
// Returns the ones it replaced (null for the module's own).
std::shared_ptr<GoodsDialogs> InstallGoodsDialogs(std::shared_ptr<GoodsDialogs> dialogs);

}  // namespace orvel
