// The firm card on the in-memory host: group 1 "Tiekėjai" holds firm 2
// (code 302245871); firm 3 stands at the top; group 4 "Vietiniai" sits in
// group 1. Boxes are titled "Apskaita".
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "firms/frmFirms.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/ModuleTest.h"
#include "testhost/FakeOrvelGrid.h"
#include "testhost/TestSession.h"
#include "testhost/TestWindowManager.h"

namespace orvel {

class FirmCardTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    host_.Session()->SetAppTitle("Apskaita");
    auto& table = BO("O0000100").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "OwnCode",
                     "PreviewPath", "FirmTypeId", "RegionID", "CreatedByUser", "CreationDate",
                     "UpdatedByUser", "UpdateDate"});
    table.SetDefault("GroupFlag", Variant(0));
    table.SetDefault("ParentID", Variant::Null());
    table.SetDefault("Code", Variant(""));
    table.Seed(
        {{{"Name", Variant("Tiekėjai")},
          {"GroupFlag", Variant(1)},
          {"OwnCode", Variant("001")},
          {"Code", Variant("G1")}},
         {{"Name", Variant("UAB Šilas")}, {"ParentID", Variant(1)}, {"Code", Variant("302245871")}},
         {{"Name", Variant("AB Vėjas")}},
         {{"Name", Variant("Vietiniai")},
          {"GroupFlag", Variant(1)},
          {"ParentID", Variant(1)},
          {"OwnCode", Variant("001002")}}});
    firms_ = Adapter("O0000100");
  }

  // Opens a window by the type's menu (key "0" a record, "1" a new firm
  // under a group) and clears the journal.
  std::shared_ptr<frmFirms> Open(const std::string& oidr, const char* key = "0") {
    auto window = firms_->ClickMenu(oidr, "", key, "").Value.ObjectAs<frmFirms>();
    EXPECT_NE(window, nullptr);
    if (window) host_.WindowManager()->ShowWindow(window);
    Clear();
    return window;
  }

  void Clear() {
    host_.Log().Clear();
    host_.Ui()->ClearBoxes();
    BO("O0000100").ClearCalls();
  }

  FakeOrvelGrid& Grid(frmFirms& window) { return dynamic_cast<FakeOrvelGrid&>(*window.OrvelGrid); }

  // The business layer's answer to "GetFirmIsUsedInDocuments": one record
  // whose first field is the count.
  void UsedInDocuments(Variant count) {
    auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"Cnt"});
    rs->AddRow({std::move(count)});
    BO("O0000100").ReplyRead("GetFirmIsUsedInDocuments", rs);
  }

  // "CheckCode" finding the code on another firm.
  void CodeRepeats() {
    auto rs = std::make_shared<MemoryRecordset>(std::vector<std::string>{"Exist"});
    rs->AddRow({Variant(1)});
    BO("O0000100").ReplyRead("CheckCode", rs);
  }

  Variant Stored(int32_t id, const char* field) { return BO("O0000100").Table().Value(id, field); }

  std::vector<std::string> Boxes() {
    std::vector<std::string> lines;
    for (const auto& box : host_.Ui()->Boxes()) {
      lines.push_back(std::to_string(box.flags) + " " + box.title + " " + box.prompt);
    }
    return lines;
  }

  std::shared_ptr<OrvelObjectUI> firms_;
};

}  // namespace orvel
