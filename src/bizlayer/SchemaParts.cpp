#include "bizlayer/SchemaParts.h"

#include "bizlayer/SchemaPart.h"

namespace orvel {

const std::vector<SchemaPart>& SchemaParts() {
  // Append new parts at the end; a part's place fixes the order it is made in.
  static const std::vector<SchemaPart> parts{
      FirmDetailSchema(),
      ReferenceBookSchema(),
      GoodsDetailSchema(),
      GoodsRecordSchema(),
      GoodsRecordCascadeSchema(),
      GoodsWithItemsSchema(),
      DocumentDebtSignSchema(),
      GoodsMeasureSchema(),
      GoodsSaleLotSchema(),
      OtherTypesSchema(),
      RecordVersionSchema(),
      SearchKeySchema(),
  };
  return parts;
}

}  // namespace orvel
