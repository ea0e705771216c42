#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/StubObjectUI.h"
#include "support/StubObjectUIO.h"

namespace orvel {

// A type adapter whose lists are given by the test, keyed by the list call's
// OIDR; it records each list call's arguments.
class ListedType : public StubObjectUI {
 public:
  std::string OID() override { return "O0000900"; }
  std::string OName() override { return "Zinynas"; }
  std::shared_ptr<Recordset> GetOrvelObjectList(const std::string& oidr, const std::string& a,
                                                const std::string& b) override {
    listCalls.push_back(oidr + "|" + a + "|" + b);
    auto found = lists.find(oidr);
    return found == lists.end() ? nullptr : found->second;
  }

  std::map<std::string, std::shared_ptr<MemoryRecordset>> lists;
  std::vector<std::string> listCalls;
};

// The object a list window is opened on: its type's name and fields.
class ListedObject : public StubObjectUIO {
 public:
  ListedObject(std::shared_ptr<ListedType> type, std::vector<std::string> fieldNames,
               std::string oidr = "O0000900", std::string preview = "")
      : StubObjectUIO(std::move(oidr)),
        type_(std::move(type)),
        fields_(std::make_shared<MemoryRecordset>(std::move(fieldNames))),
        preview_(std::move(preview)) {}
  std::string OName() override { return "Žinynas"; }
  std::string Preview() override { return preview_; }
  std::shared_ptr<Recordset> RsFields() override { return fields_; }
  std::shared_ptr<OrvelObjectUI> UI() override { return type_; }

 private:
  std::shared_ptr<ListedType> type_;
  std::shared_ptr<MemoryRecordset> fields_;
  std::string preview_;
};

}  // namespace orvel
