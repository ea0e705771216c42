// The goods catalogue on the in-memory host, for the card, its lists and the
// goods dialogs: group 1 "Maistas" (VAT 21) holds good 2 "Duona" (rests,
// price 121 with VAT, VAT Null) and good 3 "Pienas" (no rests, measure 2,
// price 10 without VAT, VAT 9). Boxes are titled "Apskaita".
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "goods/GoodsDialogs.h"
#include "goods/GoodsSettings.h"
#include "goods/frmGoods.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUIO.h"
#include "support/CardTest.h"
#include "support/TextRecords.h"
#include "ui/TextBox.h"

namespace orvel {

class GoodsCardTest : public CardTest<frmGoods> {
 protected:
  GoodsCardTest() : CardTest("O0000200") {}

  void SetUp() override {
    CardTest::SetUp();
    ResetVatFactor();
    auto& table = BO("O0000200").Table();
    const std::string nullable = "ParentID VAT PriceWithVAT Price AmountPrecision MeasureID "
                                 "WithItems CreatedByUser CreationDate UpdatedByUser UpdateDate";
    table.SetFields(Split("ID Name Code GroupFlag Active WithRest OwnCode PreviewPath " + nullable,
                          " "));
    for (const auto& field : Split(nullable, " ")) table.SetDefault(field, Variant::Null());
    table.SetDefault("GroupFlag", Variant(0));
    table.Seed(SeedRows(
        "Name GroupFlag OwnCode VAT ParentID WithRest Price PriceWithVAT AmountPrecision MeasureID "
        "CreatedByUser",
        {"Maistas|1|#001|21", "Duona||||1|true|121|true|2|1|Jonas",
         "Pienas|||9|1|false|10|false|0|2|Jonas"}));
    // The measures the goods name: 1 by weight, 2 counted in whole units.
    auto& measures = BO("O0001606").Table();
    measures.SetFields({"ID", "Name", "MeasureType"});
    measures.Seed(SeedRows("Name MeasureType", {"kg|0", "vnt.|1"}));
    BO("O0000200").ReplyRead("GetVatFactor", TextRecords("Value", "21"));
    MakeAdapter();
  }

  void TearDown() override {
    InstallGoodsDialogs(nullptr);
    ResetVatFactor();
    ModuleTest::TearDown();
  }

  // The user typing into a box: each key through the box's key filter, a
  // backspace taking the last character.
  static void Type(TextBox& box, const std::string& keys) {
    for (char key : keys) {
      const int typed = box.KeyPress(static_cast<unsigned char>(key));
      const std::string text = box.Text();
      if (typed == 8) box.Edit(text.substr(0, text.empty() ? 0 : text.size() - 1));
      if (typed != 0 && typed != 8) box.Edit(text + static_cast<char>(typed));
    }
  }
};

}  // namespace orvel
