#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/MemoryRecordset.h"
#include "host/OrvelObjectUI.h"
#include "host/OrvelObjectUIO.h"

namespace orvel {

// A type adapter whose lists are given by the test, keyed by the list call's
// OIDR; it records each list call's arguments.
class ListedType : public OrvelObjectUI {
 public:
  std::string OID() override { return "O0000900"; }
  void SetOID(const std::string&) override {}
  std::string OName() override { return "Zinynas"; }
  std::optional<OrvelMenuItems> GetMenu(const std::string&, const std::string&,
                                        const std::string&) override {
    return std::nullopt;
  }
  OrvelMenuResult ClickMenu(const std::string&, const std::string&, const std::string&,
                            const std::string&) override {
    return {};
  }
  bool DragOK(const std::string&, const std::string&, const std::string&) override { return false; }
  bool DropOK(const std::string&) override { return false; }
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr, const std::string& a,
                                                const std::string& b) override {
    listCalls.push_back(oidr + "|" + a + "|" + b);
    auto found = lists.find(oidr);
    return found == lists.end() ? nullptr : found->second;
  }
  bool AddToDeskTopOrvelObject(const std::string&) override { return false; }
  std::shared_ptr<OrvelObjectUIO> GetOrvelObject(const std::string&) override { return nullptr; }
  std::shared_ptr<IconsTable> GetIconsTable() override { return nullptr; }
  int32_t DeleteOrvelObject(const std::string&) override { return 0; }
  void SetOrvelS(const std::shared_ptr<OrvelServices>&) override {}
  void SetBO(const std::shared_ptr<Object>&) override {}
  std::shared_ptr<OrvelObjectBO> BO() override { return nullptr; }

  std::map<std::string, std::shared_ptr<MemoryRecordset>> lists;
  std::vector<std::string> listCalls;
};

// The object a list window is opened on: its type's name and fields.
class ListedObject : public OrvelObjectUIO {
 public:
  ListedObject(std::shared_ptr<ListedType> type, std::vector<std::string> fieldNames,
               std::string oidr = "O0000900", std::string preview = "")
      : type_(std::move(type)),
        fields_(std::make_shared<MemoryRecordset>(std::move(fieldNames))),
        oidr_(std::move(oidr)),
        preview_(std::move(preview)) {}
  std::string GetGUID() override { return "listed"; }
  std::string OID() override { return oidr_.substr(0, 8); }
  void SetOID(const std::string&) override {}
  std::string OIDR() override { return oidr_; }
  void SetOIDR(const std::string& oidr) override { oidr_ = oidr; }
  std::string OName() override { return "Žinynas"; }
  std::string OType() override { return ""; }
  void SetOType(const std::string&) override {}
  std::string Preview() override { return preview_; }
  void SetPreview(const std::string&) override {}
  std::shared_ptr<Recordset> RsFields() override { return fields_; }
  OrvelResult Properties(const std::string&, const std::string&) override { return {}; }
  OrvelResult Methods(const std::string&, Variant::Array&) override { return {}; }
  OrvelStatus Read() override { return {}; }
  OrvelStatus Save(const std::shared_ptr<Recordset>&, const std::shared_ptr<Recordset>&) override {
    return {};
  }
  void SetUI(const std::shared_ptr<Object>&) override {}
  std::shared_ptr<OrvelObjectUI> UI() override { return type_; }
  std::shared_ptr<OrvelObjectBO> BO() override { return nullptr; }
  void CancelUpdate() override {}

 private:
  std::shared_ptr<ListedType> type_;
  std::shared_ptr<MemoryRecordset> fields_;
  std::string oidr_;
  std::string preview_;
};

}  // namespace orvel
