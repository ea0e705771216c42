#pragma once

#include <memory>
#include <string>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"

namespace orvel {

class OrvelWindow;

// "O0000300", banks: the type adapter. Its menu opens a bank's card, makes a
// new bank, searches by text and deletes; its window is frmBanks.
class UI0000300 final : public ObjectUIAdapter {
 public:
  UI0000300();

 protected:
  std::shared_ptr<OrvelObjectUIO> NewInstance() override;
  std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                          const std::string& settings) override;
  OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                              const std::string& sKey, const std::string& settings) override;
  // Builds and shows the card unless a window of the bank is open already.
  bool DoAddToDeskTopOrvelObject(const std::string& oidr) override;

 private:
  // The bank's card on its object, or null when the bank cannot be read.
  std::shared_ptr<OrvelWindow> GetObjectWindow(const std::string& oidr, const std::string& otype);
  OrvelMenuResult SelectByText();
  OrvelMenuResult DeleteAsked(const std::string& oidr);
};

// One bank. Its properties: "Structure" (the sheet's structure of "Banks",
// the whole business reply in Value), "GetObjectForm" (a new card on this
// object), and any other name read by the shared property rule ("Firms":
// GetCall "GetFirms" with the bank's OIDR).
class UIO0000300 final : public ObjectUIOAdapter {
 protected:
  OrvelResult DoProperties(const std::string& propertyName,
                           std::string& propertyPar) override;
};

}  // namespace orvel
