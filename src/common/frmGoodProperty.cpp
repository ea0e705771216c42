#include "common/frmGoodProperty.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

constexpr const char* kMeasureOid = "O0000400";
constexpr const char* kPriceOid = "O0000600";
constexpr const char* kMinAmountOid = "O0000700";
constexpr const char* kTemplateOid = "O0000800";
// The measure records and the stock templates the detail rows point to.
constexpr const char* kMeasureRecordOid = "O0001606";
constexpr const char* kStockTemplateOid = "O0201600";

// Null, Empty and "" count as not filled in.
bool Blank(const Variant& value) {
  return value.IsNull() || value.IsEmpty() || (value.IsString() && value.String().empty());
}

bool Filled(OrvelObjectUIO& object, const char* field) {
  return !Blank(object.Fields(field).Value());
}

}  // namespace

frmGoodProperty::frmGoodProperty() : Form("frmGoodProperty") {
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  OrvelGrid = Platform::Ui().NewOrvelGrid();
  if (OrvelGrid) Register(*OrvelGrid);
  Register(cmdEnter);
  Register(cmdCancel);
  cmdEnter.OnClick = [this] { cmdEnter_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
}

void frmGoodProperty::Form_Load() {
  Handle([&] { OrvelGrid->SetLabelWidth(kLabelWidth); });
}

bool frmGoodProperty::CheckMeasure(OrvelObjectUIO& object) {
  const Variant measureId = object.Fields("MeasureID").Value();
  if (Blank(measureId)) {
    ShowStop("Nenurodytas matavimo vienetas!", MsgTitle);
    return false;
  }
  bool bothZero = true;
  try {
    bothZero =
        CDbl(object.Fields("Scale").Value()) == 0 && CDbl(object.Fields("Scale2").Value()) == 0;
  } catch (const RuntimeError&) {
    // An unreadable ratio is set like a missing one.
  }
  if (bothZero) {
    object.Fields("Scale").SetValue(Variant(1));
    OrvelGrid->RefreshField("Scale");
    return false;
  }
  GetObjectUIO(kMeasureRecordOid + ConcatText(measureId));
  return true;
}

bool frmGoodProperty::TemplateAccepted(OrvelObjectUIO& object) {
  if (!Filled(object, "BRTemplateID") || !Filled(object, "GoodBRTemplateTypeID")) return false;
  auto stockTemplate =
      GetObjectUIO(kStockTemplateOid + ConcatText(object.Fields("BRTemplateID").Value()));
  return stockTemplate && NullToLong(stockTemplate->Fields("GroupFlag").Value()) != 1;
}

bool frmGoodProperty::ReadyToSave(OrvelObjectUIO& object) {
  const std::string oid = object.OID();
  if (oid == kMeasureOid) return CheckMeasure(object);
  if (oid == kPriceOid) return Filled(object, "GoodPriceTypeID") && Filled(object, "Price");
  if (oid == kMinAmountOid) return Filled(object, "LocationId") && Filled(object, "MinAmount");
  if (oid == kTemplateOid) {
    if (TemplateAccepted(object)) return true;
    Platform::Ui().MsgBox("Blogas šablonas!", vbExclamation, MsgTitle);
    return false;
  }
  return true;
}

void frmGoodProperty::cmdEnter_Click() {
  Handle([&] {
    auto object = OrvelGrid->ObjectUIO();
    if (!object) throw RuntimeError(RuntimeError::kObjectNotSet, "Langui nepriskirtas įrašas");
    if (!ReadyToSave(*object)) return;
    const int32_t number = OrvelGrid->SaveObject();
    if (number != 0) {
      std::string text = OrvelGrid->LastError();
      if (number == kDuplicateRecord) text = "Panašus įrašas jau yra duomenų bazėje!";
      ShowStop("Klaida!\n\n" + text, MsgTitle);
      return;
    }
    Saved = true;
    Unload();
  });
}

void frmGoodProperty::cmdCancel_Click() {
  Handle([&] {
    Saved = false;
    Unload();
  });
}

}  // namespace orvel
