#include "testhost/MemoryTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "host/MemoryRecordset.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "testhost/CallLog.h"

namespace orvel {

namespace {

constexpr std::string_view kId = "ID";
constexpr std::string_view kOidr = "OIDR";
constexpr std::string_view kPreview = "Preview";
constexpr std::string_view kParentId = "ParentID";

// A whole number held as a number or as decimal text; nullopt otherwise.
std::optional<int64_t> WholeNumber(const Variant& v) {
  switch (v.Type()) {
    case VarType::Integer:
      return v.Integer();
    case VarType::Double: {
      double d = v.Double();
      if (std::isfinite(d) && d == std::floor(d) && std::fabs(d) < 9e15) {
        return static_cast<int64_t>(d);
      }
      return std::nullopt;
    }
    case VarType::String: {
      const std::string& s = v.String();
      int64_t n = 0;
      auto res = std::from_chars(s.data(), s.data() + s.size(), n);
      if (res.ec == std::errc() && res.ptr == s.data() + s.size() && !s.empty()) return n;
      return std::nullopt;
    }
    default:
      return std::nullopt;
  }
}

std::string DefaultPreview(const MemoryTable::FieldReader& field) {
  Variant name = field("Name");
  return name.IsNull() ? std::string() : LogText(name);
}

}  // namespace

MemoryTable::MemoryTable(std::string oid) : oid_(std::move(oid)), preview_(DefaultPreview) {
  fields_.emplace_back(kId);
  defaults_.emplace_back();
}

std::optional<size_t> MemoryTable::FieldIndex(std::string_view name) const {
  for (size_t i = 0; i < fields_.size(); ++i) {
    if (TextEquals(fields_[i], name)) return i;
  }
  return std::nullopt;
}

void MemoryTable::SetFields(const std::vector<std::string>& names) {
  std::vector<std::string> fields;
  auto declared = [&fields](std::string_view name) {
    return std::any_of(fields.begin(), fields.end(),
                       [name](const std::string& f) { return TextEquals(f, name); });
  };
  for (const auto& name : names) {
    if (!declared(name)) fields.push_back(name);
  }
  if (!declared(kId)) fields.insert(fields.begin(), std::string(kId));
  // Fields that hold data already are never dropped: they follow the declared ones.
  for (const auto& name : fields_) {
    if (!declared(name)) fields.push_back(name);
  }

  // Where each new field's values come from among the old ones.
  std::vector<std::optional<size_t>> from;
  std::vector<Variant> defaults;
  for (const auto& name : fields) {
    auto old = FieldIndex(name);
    from.push_back(old);
    defaults.push_back(old ? defaults_[*old] : Variant());
  }
  for (auto& [id, values] : records_) {
    std::vector<Variant> moved(fields.size());
    for (size_t i = 0; i < fields.size(); ++i) {
      if (from[i] && *from[i] < values.size()) moved[i] = std::move(values[*from[i]]);
    }
    values = std::move(moved);
  }
  fields_ = std::move(fields);
  defaults_ = std::move(defaults);
}

size_t MemoryTable::AddField(std::string_view name) {
  if (auto index = FieldIndex(name)) return *index;
  fields_.emplace_back(name);
  defaults_.emplace_back();
  return fields_.size() - 1;
}

void MemoryTable::SetDefault(std::string_view field, Variant value) {
  defaults_[AddField(field)] = std::move(value);
}

Variant MemoryTable::Default(std::string_view field) const {
  auto index = FieldIndex(field);
  return index ? defaults_[*index] : Variant();
}

void MemoryTable::SetPreviewRule(PreviewRule rule) {
  preview_ = rule ? std::move(rule) : PreviewRule(DefaultPreview);
}

std::vector<std::string> MemoryTable::Seed(const std::vector<Row>& rows) {
  std::vector<std::string> oidrs;
  for (const auto& row : rows) {
    for (const auto& [name, value] : row) AddField(name);
    std::vector<Variant> values = DefaultValues();
    int32_t id = NextId();
    for (const auto& [name, value] : row) {
      if (TextEquals(name, kId)) {
        auto chosen = WholeNumber(value);
        if (!chosen || *chosen < 1 || *chosen > std::numeric_limits<int32_t>::max()) {
          throw RuntimeError(RuntimeError::kInvalidCall,
                             "Seed: an ID must be a whole number from 1, got " + LogText(value));
        }
        id = static_cast<int32_t>(*chosen);
      } else {
        values[*FieldIndex(name)] = value;
      }
    }
    Put(id, std::move(values));
    oidrs.push_back(OidrOf(id));
  }
  return oidrs;
}

std::vector<int32_t> MemoryTable::Ids() const {
  std::vector<int32_t> ids;
  ids.reserve(records_.size());
  for (const auto& [id, values] : records_) ids.push_back(id);
  return ids;
}

Variant MemoryTable::Value(int32_t id, std::string_view field) const {
  auto record = records_.find(id);
  auto index = FieldIndex(field);
  if (record == records_.end() || !index || *index >= record->second.size()) return Variant();
  return record->second[*index];
}

std::string MemoryTable::Preview(int32_t id) const {
  if (!Contains(id)) return std::string();
  return preview_([this, id](std::string_view name) { return Value(id, name); });
}

std::string MemoryTable::OidrOf(int32_t id) const { return oid_ + std::to_string(id); }

std::optional<int32_t> MemoryTable::IdOf(std::string_view oidr) const {
  if (oidr.size() <= oid_.size() || oidr.substr(0, oid_.size()) != oid_) return std::nullopt;
  std::string_view digits = oidr.substr(oid_.size());
  if (digits.front() == '0') return std::nullopt;
  int32_t id = 0;
  auto res = std::from_chars(digits.data(), digits.data() + digits.size(), id);
  if (res.ec != std::errc() || res.ptr != digits.data() + digits.size() || id < 1) {
    return std::nullopt;
  }
  return id;
}

std::vector<int32_t> MemoryTable::Children(int32_t id) const {
  std::vector<int32_t> children;
  auto parentField = FieldIndex(kParentId);
  if (!parentField) return children;
  for (const auto& [childId, values] : records_) {
    if (*parentField < values.size() && WholeNumber(values[*parentField]) == id) {
      children.push_back(childId);
    }
  }
  return children;
}

std::vector<int32_t> MemoryTable::TopLevel() const {
  auto parentField = FieldIndex(kParentId);
  if (!parentField) return Ids();
  std::vector<int32_t> top;
  for (const auto& [id, values] : records_) {
    const Variant none;
    const Variant& parent = *parentField < values.size() ? values[*parentField] : none;
    if (parent.IsEmpty() || parent.IsNull() || WholeNumber(parent) == 0) top.push_back(id);
  }
  return top;
}

std::shared_ptr<MemoryRecordset> MemoryTable::NewRecord() const {
  auto rs = std::make_shared<MemoryRecordset>(fields_);
  rs->AddRow(DefaultValues());
  rs->MoveFirst();
  return rs;
}

std::shared_ptr<MemoryRecordset> MemoryTable::ReadRecord(int32_t id) const {
  if (!Contains(id)) return nullptr;
  std::vector<std::string> names = fields_;
  names.emplace_back(kOidr);
  names.emplace_back(kPreview);
  auto rs = std::make_shared<MemoryRecordset>(std::move(names));
  std::vector<Variant> row = RowOf(id);
  row.emplace_back(OidrOf(id));
  row.emplace_back(Preview(id));
  rs->AddRow(std::move(row));
  rs->MoveFirst();
  return rs;
}

std::shared_ptr<MemoryRecordset> MemoryTable::List(const std::vector<int32_t>& ids) const {
  std::vector<std::string> names{std::string(kOidr), std::string(kPreview)};
  names.insert(names.end(), fields_.begin(), fields_.end());
  auto rs = std::make_shared<MemoryRecordset>(std::move(names));
  rs->Reserve(ids.size());
  for (int32_t id : ids) {
    if (!Contains(id)) continue;
    std::vector<Variant> row{Variant(OidrOf(id)), Variant(Preview(id))};
    std::vector<Variant> values = RowOf(id);
    row.insert(row.end(), std::make_move_iterator(values.begin()),
               std::make_move_iterator(values.end()));
    rs->AddRow(std::move(row));
  }
  rs->MoveFirst();
  return rs;
}

int32_t MemoryTable::Store(std::optional<int32_t> id, Recordset& rs) {
  if (id && !Contains(*id)) {
    throw RuntimeError(RuntimeError::kNoCurrentRecord, "Įrašas nerastas: " + OidrOf(*id));
  }
  // Read first: a set without a current record throws before anything changes.
  std::vector<std::pair<std::string, Variant>> incoming;
  Fields& fields = rs.Fields();
  for (int i = 0; i < fields.Count(); ++i) {
    Field& field = fields.Item(i);
    const std::string& name = field.Name();
    if (TextEquals(name, kId) || TextEquals(name, kOidr) || TextEquals(name, kPreview)) continue;
    incoming.emplace_back(name, field.Value());
  }

  for (const auto& [name, value] : incoming) AddField(name);
  int32_t target = id ? *id : NextId();
  std::vector<Variant> values = id ? RowOf(*id) : DefaultValues();
  for (auto& [name, value] : incoming) values[*FieldIndex(name)] = std::move(value);
  Put(target, std::move(values));
  return target;
}

bool MemoryTable::Remove(int32_t id) {
  versions_.erase(id);
  return records_.erase(id) != 0;
}

int64_t MemoryTable::Version(int32_t id) const {
  auto it = versions_.find(id);
  return it == versions_.end() ? 0 : it->second;
}

void MemoryTable::Clear() {
  records_.clear();
  versions_.clear();
  lastId_ = 0;
}

int32_t MemoryTable::NextId() const {
  if (lastId_ == std::numeric_limits<int32_t>::max()) {
    throw RuntimeError(RuntimeError::kOverflow, "No IDs left in " + oid_);
  }
  return lastId_ + 1;
}

void MemoryTable::Put(int32_t id, std::vector<Variant> values) {
  values.resize(fields_.size());
  values[*FieldIndex(kId)] = Variant(id);
  records_[id] = std::move(values);
  ++versions_[id];
  lastId_ = std::max(lastId_, id);
}

std::vector<Variant> MemoryTable::DefaultValues() const {
  std::vector<Variant> values = defaults_;
  values[*FieldIndex(kId)] = Variant();
  return values;
}

std::vector<Variant> MemoryTable::RowOf(int32_t id) const {
  std::vector<Variant> values = records_.at(id);
  values.resize(fields_.size());
  return values;
}

}  // namespace orvel
