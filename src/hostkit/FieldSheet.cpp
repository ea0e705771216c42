#include "hostkit/FieldSheet.h"

#include <strings.h>

#include <exception>

#include "host/Convert.h"
#include "orvel/OrvelBoResult.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

constexpr const char* kNoObjectText = "Laukų lapui nepriskirtas objektas";

enum class Kind { Text, Whole, Decimal, YesNo, Day };

Kind KindOf(int32_t xType) {
  switch (xType) {
    case 48:
    case 52:
    case 56:
    case 127:
      return Kind::Whole;
    case 59:
    case 60:
    case 62:
    case 106:
    case 108:
    case 122:
      return Kind::Decimal;
    case 104:
      return Kind::YesNo;
    case 58:
    case 61:
      return Kind::Day;
    default:
      return Kind::Text;
  }
}

// The structure set out of a Structure reply: the set itself, or the
// business layer's whole reply record holding it.
std::shared_ptr<Recordset> StructureSet(const OrvelResult& reply) {
  if (auto rs = reply.Value.ObjectAs<Recordset>()) return rs;
  if (auto bo = reply.Value.ObjectAs<OrvelBoResult>()) {
    return std::dynamic_pointer_cast<Recordset>(bo->Object);
  }
  return nullptr;
}

Variant ValueOf(const std::string& text, Kind kind) {
  if (text.empty()) return Variant::Null();
  switch (kind) {
    case Kind::Whole:
      if (!IsNumeric(Variant(text))) throw RuntimeError(RuntimeError::kTypeMismatch, "Ne skaičius");
      return Variant(CLng(Variant(text)));
    case Kind::Decimal:
      if (!IsNumeric(Variant(text))) throw RuntimeError(RuntimeError::kTypeMismatch, "Ne skaičius");
      return Variant(CDbl(Variant(text)));
    case Kind::YesNo:
      if (text == "Taip" || text == "1") return Variant(true);
      if (text == "Ne" || text == "0") return Variant(false);
      throw RuntimeError(RuntimeError::kTypeMismatch, "Galima tik „Taip“ arba „Ne“");
    case Kind::Day:
      if (auto date = ParseDate(text)) return Variant(*date);
      throw RuntimeError(RuntimeError::kTypeMismatch, "Ne data");
    case Kind::Text:
      break;
  }
  return Variant(text);
}

}  // namespace

void FieldSheet::SetServices(std::shared_ptr<OrvelServices> services) {
  services_ = std::move(services);
}

void FieldSheet::SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) {
  object_ = std::move(object);
  Notify("ObjectUIO");
}

ListView& FieldSheet::AddTab(const std::string& key, const std::string& caption) {
  ListView& list = tabs_.emplace_back(key, caption).list;
  Notify("Tabs");
  return list;
}

void FieldSheet::ClearTabs() {
  tabs_.clear();
  fields_.clear();
  Notify("Tabs");
}

ListView* FieldSheet::TabList(const std::string& key) {
  for (auto& tab : tabs_) {
    if (tab.key == key) return &tab.list;
  }
  return nullptr;
}

void FieldSheet::RefreshField(const std::string&) { Notify("Fields"); }

void FieldSheet::Build() {
  fields_.clear();
  lastError_.clear();
  if (!object_) {
    lastError_ = kNoObjectText;
    return;
  }
  try {
    auto record = object_->RsFields();
    auto structure = StructureSet(object_->Properties("Structure", ""));
    if (!structure) structure = TypeStructure();
    if (structure) {
      for (structure->MoveFirst(); !structure->IsEOF(); structure->MoveNext()) {
        Field field;
        field.name = ConcatText(structure->Fields("Name").Value());
        field.caption = ConcatText(structure->Fields("Caption").Value());
        field.xType = static_cast<int32_t>(structure->Fields("xType").Value().NumberValue());
        field.visible = structure->Fields("Visible").Value().NumberValue() != 0;
        if (record && !record->Fields().Exists(field.name)) continue;
        fields_.push_back(std::move(field));
      }
    } else if (record) {
      auto& fields = record->Fields();
      for (int i = 0; i < fields.Count(); ++i) {
        fields_.push_back({fields.Item(i).Name(), fields.Item(i).Name(), 0, true});
      }
    }
  } catch (const std::exception& e) {
    lastError_ = e.what();
  }
  Notify("Fields");
}

// The adapters of the small catalogues answer no "Structure" property; the
// business layer still knows their fields' types, and without them a price
// typed with the decimal comma would be kept as text.
std::shared_ptr<Recordset> FieldSheet::TypeStructure() const {
  if (!services_ || !object_) return nullptr;
  auto manager = services_->ObjectManager();
  if (!manager) return nullptr;
  OrvelResult reply = manager->Call("Orvel_GetObjectStructureByOID", object_->OID());
  if (reply.Number != 0) return nullptr;
  auto structure = StructureSet(reply);
  if (!structure || structure->IsEOF()) return nullptr;
  return structure;
}

const FieldSheet::Field* FieldSheet::FindField(const std::string& name) const {
  for (const auto& field : fields_) {
    if (strcasecmp(field.name.c_str(), name.c_str()) == 0) return &field;
  }
  return nullptr;
}

std::string FieldSheet::Text(const std::string& name) const {
  const Field* field = FindField(name);
  if (!field || !object_) return "";
  try {
    Variant value = object_->Fields(field->name).Value();
    if (value.IsNull() || value.IsEmpty()) return "";
    if (value.Type() == VarType::Boolean) return value.Boolean() ? "Taip" : "Ne";
    if (value.Type() == VarType::Date) return FormatDate(value.DateValue());
    return CStr(value);
  } catch (...) {
    return "";
  }
}

bool FieldSheet::EditText(const std::string& name, const std::string& text) {
  lastError_.clear();
  if (!Active()) return false;
  const Field* field = FindField(name);
  if (!field || !object_) {
    lastError_ = "Nėra lauko " + name;
    return false;
  }
  try {
    object_->Fields(field->name).SetValue(ValueOf(text, KindOf(field->xType)));
  } catch (const RuntimeError& e) {
    lastError_ = field->caption + ": " + e.Text();
    return false;
  } catch (const std::exception& e) {
    lastError_ = field->caption + ": " + e.what();
    return false;
  }
  Notify("Fields");
  FieldChanged();
  return true;
}

int32_t FieldSheet::SaveObject() {
  lastError_.clear();
  if (!object_) {
    lastError_ = kNoObjectText;
    return kNoObject;
  }
  try {
    OrvelStatus status = object_->Save(nullptr, nullptr);
    if (status.Number != 0) lastError_ = status.Text;
    Notify("Fields");
    return status.Number;
  } catch (const RuntimeError& e) {
    lastError_ = e.Text();
    return e.Number() != 0 ? e.Number() : RuntimeError::kInvalidCall;
  } catch (const std::exception& e) {
    lastError_ = e.what();
    return RuntimeError::kInvalidCall;
  }
}

}  // namespace orvel
