// The firm card on the in-memory host: group 1 "Tiekėjai" holds firm 2
// (code 302245871); firm 3 stands at the top; group 4 "Vietiniai" sits in
// group 1. Boxes are titled "Apskaita".
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "firms/frmFirms.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/CardTest.h"
#include "support/Controls.h"
#include "support/TextRecords.h"

namespace orvel {

using Lines = std::vector<std::string>;

inline Variant DayOf(int y, int m, int d) { return Variant(DateSerial(y, m, d)); }

class FirmCardTest : public CardTest<frmFirms> {
 protected:
  FirmCardTest() : CardTest("O0000100") {}

  void SetUp() override {
    CardTest::SetUp();
    auto& table = BO("O0000100").Table();
    table.SetFields({"ID", "Name", "Code", "ParentID", "GroupFlag", "Active", "OwnCode",
                     "PreviewPath", "FirmTypeId", "RegionID", "CreatedByUser", "CreationDate",
                     "UpdatedByUser", "UpdateDate"});
    table.SetDefault("GroupFlag", Variant(0));
    table.SetDefault("ParentID", Variant::Null());
    table.SetDefault("Code", Variant(""));
    table.Seed(SeedRows(
        "Name GroupFlag OwnCode Code ParentID",
        {"Tiekėjai|1|#001|G1", "UAB Šilas|||#302245871|1", "AB Vėjas", "Vietiniai|1|#001002||1"}));
    MakeAdapter();
  }

  // "CheckCode" finding the code on another firm.
  void CodeRepeats() { BO("O0000100").ReplyRead("CheckCode", TextRecords("Exist", "1")); }

  // The firms' answer to `call`: the fields named by blanks, a row a line.
  void Reply(const std::string& call, const std::string& fields, const std::string& rows) {
    BO("O0000100").ReplyRead(call, TextRecords(fields, rows.c_str()));
  }

  // The parameter strings of the firms' calls named `name`, in order.
  Lines Calls(const std::string& name) {
    Lines out;
    for (const auto& call : BO("O0000100").Calls(name)) out.push_back(call.param);
    return out;
  }

  // Write, Cancel and New, "1" when enabled.
  static std::string Buttons(frmFirms& w) { return OnOff({&w.cmdEnter, &w.cmdCancel, &w.SSCNew}); }
};

}  // namespace orvel
