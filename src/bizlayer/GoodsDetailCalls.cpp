// A good's detail lists, on the goods (O0000200): each call takes the good's
// OIDR as the card sends it and answers the fields its list reads.
#include <string>

#include "bizlayer/CallArgs.h"
#include "bizlayer/CatalogueCalls.h"
#include "bizlayer/TableBusinessObject.h"
#include "host/MemoryRecordset.h"
#include "orvel/Variant.h"

namespace orvel {

namespace {

using Args = TableBusinessObject::Args;

void AddGoodList(TableBusinessObject& goods, const std::string& call, std::string sql) {
  goods.OnRead(call, [&goods, call, sql = std::move(sql)](const Args& args) {
    const int64_t id = callargs::Record(goods, callargs::At(args, 0));
    return goods.Query(sql, {Variant(id)});
  });
}

}  // namespace

void AddGoodsDetailCalls(TableBusinessObject& goods) {
  // The good's measure rows (O0000400), each with its unit of the book
  // (O0001606), its price and its ratios to the good's own unit.
  AddGoodList(goods, "GetMeasures",
              "SELECT 'O0000400' || gm.ID AS OIDR, gm.ID, gm.GoodID, gm.MeasureID,"
              " m.Name AS MeasureName, m.Code AS MeasureCode, gm.Price, gm.Scale, gm.Scale2"
              " FROM goods_measures gm JOIN measures m ON m.ID = gm.MeasureID"
              " WHERE gm.GoodID = ? ORDER BY gm.ID");
  // Minimum amounts by warehouse.
  AddGoodList(goods, "GetMinAmount",
              "SELECT 'O0000700' || a.ID AS OIDR, a.MinAmount, l.Name AS Location"
              " FROM goods_min_amounts a LEFT JOIN book_locations l ON l.ID = a.LocationID"
              " WHERE a.GoodID = ? ORDER BY l.Name, a.ID");
  // Every template type, with the good's own template or else its group's
  // (ID Null and ID2 set: inherited, no record of the good's own).
  AddGoodList(
      goods, "GetGoodBRTemplates",
      "SELECT 'O0000800' || t.ID AS GoodBRTemplateTypeOIDR, t.Name AS"
      " GoodBRTemplateTypeName, CASE WHEN own.ID IS NOT NULL THEN 'O0000800' || own.ID"
      " END AS OIDR, own.ID AS ID, inh.ID AS ID2,"
      " COALESCE(bo.Name, bi.Name) AS BRTemplateName FROM br_template_types t"
      " JOIN goods g ON g.ID = ?1"
      " LEFT JOIN goods_templates own ON own.GoodID = g.ID AND own.GoodBRTemplateTypeID = t.ID"
      " LEFT JOIN goods_templates inh ON inh.GoodID = g.ParentID"
      " AND inh.GoodBRTemplateTypeID = t.ID"
      " LEFT JOIN br_templates bo ON bo.ID = own.BRTemplateID"
      " LEFT JOIN br_templates bi ON bi.ID = inh.BRTemplateID"
      " WHERE own.ID IS NOT NULL OR inh.ID IS NOT NULL ORDER BY t.Name");
  // The good's own discounts, then those of its group, named.
  AddGoodList(goods, "GetDiscounts",
              "SELECT 'O1000600' || d.ID AS OIDR, d.DiscountTypeName, d.VariantName, d.SumFrom,"
              " d.SumTo, d.Percent, CASE WHEN d.GoodID = g.ID THEN '' ELSE p.Name END AS"
              " GoodName, d.Valid, f.Name AS FirmName FROM goods g"
              " JOIN goods_discounts d ON d.GoodID = g.ID OR d.GoodID = g.ParentID"
              " LEFT JOIN goods p ON p.ID = d.GoodID LEFT JOIN firms f ON f.ID = d.FirmID"
              " WHERE g.ID = ? ORDER BY d.GoodID = g.ID DESC, d.DiscountTypeName, d.ID");
}

}  // namespace orvel
