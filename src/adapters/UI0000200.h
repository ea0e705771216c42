#pragma once

#include <memory>
#include <string>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"

namespace orvel {

class OrvelWindow;

// "O0000200", goods, services and goods groups: the type adapter. Its menu
// depends on the node: the catalogue root, a folder (a group, or the "Root"
// type) or a good. It opens a good's window (frmGoods), creates goods,
// groups and subgroups, copies a good, filters the list, sets what the list
// shows, opens the price change and guarantee dialogs of a group and deletes.
//
// PreviewSettings is the user's list setting, seven comma-separated fields:
//   0 active goods (0/1), 1 inactive goods (0/1), 2 code column (0/1),
//   3 warehouse OIDR in apostrophes ('' for none), 4 only that warehouse
//   (0/1), 5 order (1 by code, 0 by name), 6 only goods with a rest (0/1).
// It is read whenever the services are set; a stored value of any other
// number of fields gives way to the default (and stays stored as it was).
class UI0000200 final : public ObjectUIAdapter {
 public:
  static constexpr const char* kDefaultPreview = "1,0,1,'',0,1,0";

  UI0000200();

  const std::string& PreviewSettings() const { return previewSettings_; }
  const std::string& MsgTitle() const { return msgTitle_; }

  // A window on the record (not shown); null when it cannot be read.
  std::shared_ptr<OrvelWindow> OpenGoodWindow(const std::string& oidr, const std::string& otype);
  // Copies the good through the catalogue's "CopyGood" and opens the copy:
  // Action 1 with its window, else Action 0.
  OrvelMenuResult CopyGoodWindow(const std::string& oidr);

 protected:
  std::shared_ptr<OrvelObjectUIO> NewInstance() override;
  void DoSetOrvelS() override;
  std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                          const std::string& settings) override;
  OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                              const std::string& sKey, const std::string& settings) override;
  // "'<OIDR>','',<PreviewSettings>"; OType and Settings are not used.
  std::shared_ptr<Recordset> DoGetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                  const std::string& settings) override;
  // Shows the window unless one is open; True in every case.
  bool DoAddToDeskTopOrvelObject(const std::string& oidr) override;
  // Only with the delete right; without it 0 and nothing done.
  int32_t DoDeleteOrvelObject(const std::string& oidr) override;

 private:
  enum class NodeKind { Root, Folder, Good };

  NodeKind KindOf(const std::string& oidr, const std::string& otype);
  OrvelMenuResult CreateRecord(const std::string& oidr, const std::string& sKey);
  OrvelMenuResult ReplaceList();
  OrvelMenuResult ChangePreview();
  OrvelMenuResult Filter();
  OrvelMenuResult DeleteAsked(const std::string& oidr);
  void ShowHelp();

  std::string msgTitle_;
  std::string previewSettings_ = kDefaultPreview;
};

// One good, service or goods group. Its properties and methods are how the
// goods windows, the goods dialogs and other modules reach the business
// object; see DoProperties and DoMethods for the names.
class UIO0000200 final : public ObjectUIOAdapter {
 protected:
  // Inner's Read; a new record (OIDR without an ID) then starts active and
  // kept in rests.
  OrvelStatus DoRead() override;
  // Names compare exactly:
  //   "Parent"          the parent group's object (nothing at the top)
  //   "Measure"         the measure object of the OIDR in PropertyPar
  //   "Goods"           GetCall "GetGoods" with PropertyPar as it is
  //   "GetObjectForm"   a frmGoods on this object, not shown
  //   "FindGoods"       GetCall "GetFindGoods" '<OIDR>','<PropertyPar>'
  //   any other         GetCall "Get<name>" with PropertyPar, or the OIDR
  //                     when PropertyPar is empty ("Rests", "Traffic",
  //                     "Prices", "MinAmount", "Measures", "Discounts",
  //                     "GoodBRTemplates", "StructuredCode", "VatFactor",
  //                     "GoodIsUsedInDocuments")
  // A failed call or one without a returned object passes its Number and
  // Text on with no Value.
  OrvelResult DoProperties(const std::string& propertyName,
                           std::string& propertyPar) override;
  // Names compare in any case:
  //   "GenerateUnicalStructuredCode"  []        proposes Code (StructuredCode.h)
  //   "CopyGood"                      [OIDR]    Value: the copy's OIDR
  //   "UpdateGoodsPrice"              [params]  ExecArrayCall with the one
  //   "UpdateGaranty"                 [params]  argument; Value: the business
  //                                             status as Array(Number, Text),
  //                                             the result's Number stays 0
  // An argument missing is RuntimeError 9 (reported in the result); other
  // names do nothing.
  OrvelResult DoMethods(const std::string& name, Variant::Array& params) override;

 private:
  OrvelResult GenerateUnicalStructuredCode();
  OrvelResult CopyGood(Variant::Array& params);
  OrvelResult ArrayCall(const std::string& name, Variant::Array& params);
};

}  // namespace orvel
