#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "ui/ListView.h"
#include "ui/OrvelGrid.h"

namespace orvel {

class Recordset;

// The host's field sheet as a model, whatever draws it: the fields of one
// object in the order and with the captions of its structure record set,
// and under them a row of list tabs. A renderer shows Fields() and Tabs(),
// and the user's typing comes back through EditText, which converts the
// text by the field's server type in the locale in force (numbers with the
// locale's separator, "Taip"/"Ne" for yes and no, dates in the short form)
// and raises FieldChanged. Nothing the module calls throws.
class FieldSheet : public OrvelGrid {
 public:
  struct Field {
    std::string name;
    std::string caption;
    int32_t xType = 0;  // the server type code of the structure record
    bool visible = true;
  };
  struct Tab {
    Tab(std::string tabKey, std::string tabCaption)
        : key(std::move(tabKey)), caption(std::move(tabCaption)), list(key) {}
    std::string key;
    std::string caption;
    ListView list;
  };

  static constexpr int32_t kNoObject = 91;

  // OrvelGrid
  void SetServices(std::shared_ptr<OrvelServices> services) override;
  void SetObjectUIO(std::shared_ptr<OrvelObjectUIO> object) override;
  std::shared_ptr<OrvelObjectUIO> ObjectUIO() const override { return object_; }
  void SetLabelWidth(int twips) override { labelWidth_ = twips; }
  ListView& AddTab(const std::string& key, const std::string& caption) override;
  void FillFields() override { Build(); }
  void RefreshField(const std::string& name) override;
  void EndFieldEdit() override {}
  int32_t SaveObject() override;
  std::string LastError() const override { return lastError_; }
  void ClearTabs() override;
  void Init() override { Build(); }

  int LabelWidth() const { return labelWidth_; }
  const std::vector<Field>& Fields() const { return fields_; }
  const std::deque<Tab>& Tabs() const { return tabs_; }
  std::deque<Tab>& Tabs() { return tabs_; }
  // The list of a tab; null for an unknown key.
  ListView* TabList(const std::string& key);
  // A field's value as the sheet shows it; "" for Null or an unknown field.
  std::string Text(const std::string& name) const;
  // The user typed `text` into a field: false (with LastError) when the
  // sheet takes no input, the field is unknown or the text is not of its
  // type; otherwise the value is stored and FieldChanged raised.
  bool EditText(const std::string& name, const std::string& text);

 private:
  void Build();
  std::shared_ptr<Recordset> TypeStructure() const;
  const Field* FindField(const std::string& name) const;

  std::shared_ptr<OrvelServices> services_;
  std::shared_ptr<OrvelObjectUIO> object_;
  int labelWidth_ = 0;
  std::vector<Field> fields_;
  std::deque<Tab> tabs_;
  std::string lastError_;
};

}  // namespace orvel
