#include "BankOffice.h"

#include <algorithm>
#include <cctype>

#include "orvel/RuntimeError.h"

namespace office {

namespace {

bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) ==
           std::tolower(static_cast<unsigned char>(y));
  });
}

class RowField : public orvel::Field {
 public:
  RowField(std::string name, orvel::Variant value)
      : name_(std::move(name)), value_(value), underlying_(std::move(value)) {}
  const std::string& Name() const override { return name_; }
  orvel::OrvelStatus Get(orvel::Variant& value) const override {
    value = value_;
    return {};
  }
  orvel::OrvelStatus Put(const orvel::Variant& value) override {
    value_ = value;
    return {};
  }
  orvel::OrvelStatus GetUnderlying(orvel::Variant& value) const override {
    value = underlying_;
    return {};
  }

 private:
  std::string name_;
  orvel::Variant value_, underlying_;
};

class RowFields : public orvel::Fields {
 public:
  std::vector<RowField> fields;
  int Count() const override { return static_cast<int>(fields.size()); }
  orvel::Field* Find(std::string_view name) override {
    for (auto& f : fields)
      if (SameName(f.Name(), name)) return &f;
    return nullptr;
  }
  orvel::Field* At(int index) override {
    return index < 0 || index >= Count() ? nullptr : &fields[static_cast<size_t>(index)];
  }
  bool Exists(std::string_view name) const override {
    return std::any_of(fields.begin(), fields.end(),
                       [&](auto& f) { return SameName(f.Name(), name); });
  }
};

class RowRecordset : public orvel::Recordset {
 public:
  explicit RowRecordset(std::vector<Row> rows) {
    for (auto& row : rows) {
      RowFields fields;
      for (auto& [name, value] : row) fields.fields.emplace_back(name, value);
      rows_.push_back(std::move(fields));
    }
  }
  bool IsBOF() const override { return rows_.empty(); }
  bool IsEOF() const override { return at_ >= rows_.size(); }
  orvel::Fields& Fields() override { return at_ < rows_.size() ? rows_[at_] : none_; }
  int RecordCount() const override { return static_cast<int>(rows_.size()); }
  void MoveFirst() override { at_ = 0; }
  orvel::OrvelStatus Next() override {
    if (at_ >= rows_.size()) return orvel::NoCurrentRecordRefusal();
    ++at_;
    return {};
  }
  // This office's lists are short and shown as they come: it neither
  // filters nor sorts, and says so rather than pretend.
  orvel::Variant Filter() const override { return orvel::Variant(""); }
  orvel::OrvelStatus ApplyFilter(const orvel::Variant& criteria) override {
    const bool clears = criteria.IsEmpty() || (criteria.IsString() && criteria.String().empty()) ||
                        (criteria.IsNumber() && criteria.NumberValue() == 0);
    if (clears) return {};
    return {orvel::RuntimeError::kBadFilter, "Šis sąrašas nefiltruojamas"};
  }
  std::string Sort() const override { return ""; }
  orvel::OrvelStatus ApplySort(std::string_view keys) override {
    if (keys.empty()) return {};
    return {orvel::RuntimeError::kItemNotFound, "Šis sąrašas nerikiuojamas"};
  }
  int MarshalOptions() const override { return 0; }
  void SetMarshalOptions(int) override {}

 private:
  std::vector<RowFields> rows_;
  RowFields none_;  // past the last row: no fields to find
  size_t at_ = 0;
};

// The record's ID from an OIDR "O0000300<ID>" in apostrophes; 0 for none.
int IdOf(const std::string& param) {
  const auto quote = param.find('\'', 1);
  const std::string oidr = param.substr(1, quote == std::string::npos ? 0 : quote - 1);
  return oidr.size() > 8 ? std::atoi(oidr.c_str() + 8) : 0;
}

}  // namespace

std::shared_ptr<orvel::Recordset> MakeRecordset(std::vector<Row> rows) {
  return std::make_shared<RowRecordset>(std::move(rows));
}

BankOffice::BankOffice() {
  banks_[next_] = {
      {"ID", next_}, {"Name", "AB Pirmasis bankas"}, {"Code", "70440"}, {"SWIFT", "PIRMLT2X"}};
  ++next_;
}

orvel::OrvelBoResult BankOffice::GetCall(const std::string& name, const std::string& param,
                                         int32_t) {
  if (name == "Orvel_GetObjectList") {
    std::vector<Row> rows;
    for (auto& [id, bank] : banks_) {
      rows.push_back({{"OIDR", "O0000300" + std::to_string(id)}, {"Preview", bank[1].second}});
    }
    return {0, "", MakeRecordset(std::move(rows))};
  }
  if (name == "Orvel_ReadObject") {
    auto bank = banks_.find(IdOf(param));
    if (bank == banks_.end()) return {0, "", MakeRecordset({})};
    return {0, "", MakeRecordset({bank->second})};
  }
  if (name == "Orvel_NewObject") {
    return {0, "", MakeRecordset({{{"ID", 0}, {"Name", ""}, {"Code", ""}, {"SWIFT", ""}}})};
  }
  return {1, "Nežinomas kvietimas " + name};
}

orvel::OrvelStatus BankOffice::ExecCall(const std::string& name, const std::string& param,
                                        int32_t) {
  if (name == "Orvel_DeleteObject" && banks_.erase(IdOf(param)) == 1) return {};
  return {1, "Nežinomas kvietimas " + name};
}

orvel::OrvelStatus BankOffice::ExecArrayCall(const std::string& name, const std::string& param,
                                             orvel::Variant::Array& args) {
  if (name != "Orvel_SaveObject") return {1, "Nežinomas kvietimas " + name};
  auto record = args.empty() ? nullptr : args[0].ObjectAs<orvel::Recordset>();
  if (!record || record->IsEOF()) return {2, "Nėra įrašo"};
  int id = IdOf(param.substr(param.find(',') + 1));
  if (id == 0) {
    id = next_++;
    record->Fields("ID").SetValue(orvel::Variant(id));
  }
  Row row;
  auto& fields = record->Fields();
  for (int i = 0; i < fields.Count(); ++i)
    row.emplace_back(fields.Item(i).Name(), fields.Item(i).Value());
  banks_[id] = std::move(row);
  return {};
}

orvel::OrvelBoResult BankOffice::RecordsetCall(const std::string& name, const std::string&,
                                               int32_t) {
  return {1, "Nežinomas kvietimas " + name};
}

}  // namespace office
