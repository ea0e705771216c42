#include "goods/GoodsSettings.h"

#include <memory>

#include "common/Catalogue.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {
int16_t vatFactor = 0;
}  // namespace

Variant GoodsSetting(const std::string& field) {
  auto session = Services().Environment()->Session();
  if (!session) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra sesijos");
  auto settings = session->SettingObject(kGoodsSettingOid);
  if (!settings) return Variant::Null();
  // The host hands the settings either as the type's object or as its record.
  if (auto object = std::dynamic_pointer_cast<OrvelObjectUIO>(settings)) {
    return object->Fields(field).Value();
  }
  if (auto record = std::dynamic_pointer_cast<Recordset>(settings)) {
    if (record->IsEOF() || record->IsBOF()) {
      throw RuntimeError(RuntimeError::kNoCurrentRecord, "Nėra prekių nustatymų įrašo");
    }
    return record->Fields().Item(field).Value();
  }
  throw RuntimeError(RuntimeError::kTypeMismatch, "Prekių nustatymai nėra įrašas");
}

int16_t VatFactor() { return vatFactor; }

int16_t EnsureVatFactor(OrvelObjectUIO& good) {
  if (vatFactor != 0) return vatFactor;
  try {
    OrvelResult reply = good.Properties("VatFactor", "");
    if (reply.Number != 0) return vatFactor;
    auto rs = reply.Value.ObjectAs<Recordset>();
    if (!rs || rs->IsEOF()) return vatFactor;
    vatFactor = CInt(rs->Fields().Item("Value").Value());
  } catch (const RuntimeError&) {
    // The rate stays unknown; the next window asks again.
  }
  return vatFactor;
}

void ResetVatFactor() { vatFactor = 0; }

}  // namespace orvel
