#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/BoxLines.h"
#include "support/ModuleTest.h"
#include "support/TextRecords.h"
#include "testhost/TestUser.h"

namespace orvel {

// An ordinary book, and the locations, which list per user.
inline constexpr const char* kBook = "O0001602";
inline constexpr const char* kLocations = "O0001605";

// Two books of the reference family, each with a group "Grupė A" (1), an
// entry inside it (2), an entry at the top (3) and an entry whose group is
// gone (4, in group 9). The user's identifier is "u7".
class ReferenceBookTest : public ModuleTest {
 protected:
  void SetUp() override {
    ModuleTest::SetUp();
    host_.User()->SetId("u7");
    for (const char* book : {kBook, kLocations}) {
      auto& table = BO(book).Table();
      table.SetFields({"ID", "ParentID", "GroupFlag", "Name"});
      table.SetDefault("ParentID", Variant(0));
      table.SetDefault("GroupFlag", Variant(0));
      table.Seed(SeedRows("GroupFlag Name ParentID",
                          {"1|Grupė A", "|Vidinis|1", "|Viršuje", "|Našlaitis|9"}));
    }
    host_.Log().Clear();
  }

  // The calls a book's business object received, as "<name> <param>".
  std::vector<std::string> Calls(const std::string& book) {
    std::vector<std::string> out;
    for (const auto& call : BO(book).Calls()) out.push_back(call.name + " " + call.param);
    return out;
  }
  void ClearCalls() {
    for (const char* book : {kBook, kLocations}) BO(book).ClearCalls();
    host_.Log().Clear();
    host_.Ui()->ClearBoxes();
  }

  // "<flags> <prompt>" of each box shown.
  std::vector<std::string> Boxes() { return BoxLines(*host_.Ui(), false); }
};

}  // namespace orvel
