#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "adapters/ObjectUIAdapter.h"
#include "adapters/ObjectUIOAdapter.h"
#include "orvel/Object.h"

namespace orvel {

class frmReferenceBook;

// Every reference book of the suite, "O0001600" ("Žinynai") and the books
// "O00016nn" under it: the type adapter. It keeps no list of books; the host
// gives it the book's OID. A book is a flat or grouped list of records
// (ParentID the group, 0 at the top; GroupFlag 1 for a group).
//
// The tree's node kinds arrive in OType: "C" a book, "Group" a group, "T" or
// "" an entry. Settings of GetMenu holding "ReadOnly" drop every entry that
// creates or deletes; "GroupsDisabled" drops the group entries. ClickMenu
// works with the flags of the last GetMenu.
//
// Books treated apart: "O0001605" (locations) lists per user and registers
// a lock right for a new record; "O0001615" (destinations) has its own card;
// "O0001604" (firm branches) and "O0001606" (measures) are read by other
// windows through the ordinary properties.
class UI0001600 final : public ObjectUIAdapter {
 public:
  UI0001600();

  // The record's card on its object, not shown; null when the record cannot
  // be read. An empty `otype` is taken from the object.
  std::shared_ptr<frmReferenceBook> OpenReferenceWindow(const std::string& oidr,
                                                        const std::string& otype);

  bool ReadOnly() const { return readOnly_; }
  bool GroupsDisabled() const { return groupsDisabled_; }
  const std::string& MsgTitle() const { return msgTitle_; }

 protected:
  std::shared_ptr<OrvelObjectUIO> NewInstance() override;
  void DoSetOrvelS() override;
  std::optional<OrvelMenuItems> DoGetMenu(const std::string& oidr, const std::string& otype,
                                          const std::string& settings) override;
  OrvelMenuResult DoClickMenu(const std::string& oidr, const std::string& otype,
                              const std::string& sKey, const std::string& settings) override;
  // An empty OIDR lists the whole book; the locations' list carries the user.
  std::shared_ptr<Recordset> DoGetOrvelObjectList(const std::string& oidr, const std::string& otype,
                                                  const std::string& settings) override;
  // An empty OIDR reads a new record of the book.
  std::shared_ptr<OrvelObjectUIO> DoGetOrvelObject(const std::string& oidr) override;

 private:
  OrvelMenuResult ShowList(const std::string& oidr);
  OrvelMenuResult OpenRecord(const std::string& oidr);
  OrvelMenuResult NewGroup(const std::string& oidr, const std::string& otype);
  OrvelMenuResult NewEntry(const std::string& oidr, const std::string& otype);
  // The card of a new record of the book of `oidr`, in group `parentId`.
  OrvelMenuResult NewRecordFrame(const std::string& oidr, int32_t parentId,
                                 const std::string& parentName, int groupFlag);
  OrvelMenuResult DeleteAsked(const std::string& oidr);
  OrvelMenuResult Filter(const std::string& oidr);
  OrvelMenuResult Refresh(const std::string& oidr);
  void ShowHelp();
  void ShowStopBox(const std::string& prompt);

  bool readOnly_ = false;
  bool groupsDisabled_ = false;
  std::string msgTitle_;
};

// One record of a reference book. Properties: "Parent" (the group's object,
// nothing at the top), "GetObjectForm" (a new card on this record, not
// shown), and any other name read as GetCall "Get<name>" with the parameter
// as given. Methods: "GetForm" (a new card without an object), and any other
// name sent as ExecCall with the first parameter as text. A failed read is
// told to the user; a method's Number 777 is the business layer's message for
// the user and is shown.
class UIO0001600 final : public ObjectUIOAdapter {
 protected:
  OrvelResult DoProperties(const std::string& propertyName,
                           std::string& propertyPar) override;
  OrvelResult DoMethods(const std::string& name, Variant::Array& params) override;
};

// The adapter of a class name of the reference family: "UI00016nn" gives a
// UI0001600, "UIO00016nn" a UIO0001600 (nn two digits); null for other names.
std::shared_ptr<Object> CreateReferenceBookAdapter(std::string_view className);

}  // namespace orvel
