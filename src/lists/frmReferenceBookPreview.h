#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "host/Dictionary.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Recordset.h"
#include "lists/ColumnConfig.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"

namespace orvel {

// The list of all records of one object type, as a table, with printing.
// Its columns come from the type's structure (the default configuration)
// or from a configuration string the user tailored in frmPreviewConfig.
// When the type has groups, groups and their members form an indented tree,
// group rows in bold. The host shows it and closes it like every object
// window; it keeps no edits, so it never asks before it goes.
class frmReferenceBookPreview : public Form,
                                public OrvelWindow,
                                public std::enable_shared_from_this<frmReferenceBookPreview> {
 public:
  // The part of a line each nesting level of groups indents by.
  static constexpr int kIndentPerLevel = 10;
  // Tables up to this width in centimetres print in portrait.
  static constexpr double kPortraitWidth = 17.0;
  // List columns are this many twips per centimetre of configured width.
  static constexpr int kTwipsPerCentimetre = 500;

  frmReferenceBookPreview();

  // The object whose type is listed; set before the window loads.
  std::shared_ptr<orvel::OrvelObjectUIO> ObjectUIO;
  // The OIDR of the list call, "" for the whole type.
  std::string ListArgument;
  // A configuration string to use instead of the default one (a stored one);
  // "" for the default. A malformed one is reported and the default used.
  std::string InitialConfig;

  Panel SOPanel{"SOPanel"};
  TextBox txtGroupName{"txtGroupName"};
  Button cmdSelect{"cmdSelect"};
  Button cmdConfig{"cmdConfig"};
  Button cmdPrint{"cmdPrint"};
  ListView lvwRec{"lvwRec"};
  Button SSCClose{"SSCClose"};
  Label lblJournalName{"lblJournalName"};
  Label lblStatus{"lblStatus"};
  Label lblName{"lblName"};
  Label lblOperSelect{"lblOperSelect"};
  Label lblConfig{"lblConfig"};

  // OrvelWindow
  std::shared_ptr<orvel::OrvelObjectUIO> OrvelObjectUIO() const override { return ObjectUIO; }
  void SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) override {
    ObjectUIO = std::move(object);
  }
  void Show() override { Form::Show(); }
  void QueryRemove(bool& cancel) override;
  void Unload() override { Form::Unload(); }

  void cmdSelect_Click();
  void cmdConfig_Click();
  void cmdPrint_Click();
  void SSCClose_Click();

  // Takes a configuration string: checks it, and on a fault says so and
  // falls back to the default configuration. Returns whether `config` was
  // taken as given. Does not refill the table.
  bool ApplyConfig(const std::string& config);

  const std::string& Config() const { return config_; }
  // Why the last configuration given was refused; "" when it was taken.
  const std::string& ConfigError() const { return configError_; }
  const std::string& DefaultConfig() const { return defaultConfig_; }
  const Dictionary& PrintDict() const { return printDict_; }
  const Dictionary& ColumnDict() const { return columnDict_; }
  const std::vector<std::string>& ColumnKeys() const { return columnKeys_; }
  bool HasGroups() const { return hasGroups_; }
  const std::string& GroupField() const { return groupField_; }
  const std::string& GroupCaption() const { return groupCaption_; }

 protected:
  void Form_Load() override;

 private:
  void BuildDefaultConfig();
  void SetConfig(const std::string& config, const std::string& regName);
  void ReadColumns();
  void SetColumns();
  void SetJournalName();
  void LoadRows();
  void FillTable();
  void AddRows(Recordset& rs, int level);
  void AddRow(Recordset& rs, const std::vector<int>& fieldIndex, const std::string& indent,
              bool group);
  void EnableControls(bool enabled);
  std::string PrintParam(int index) const;
  std::shared_ptr<OrvelObjectUI> TypeAdapter() const;

  std::string appTitleCopy_;
  Dictionary printDict_;
  Dictionary columnDict_;
  std::string config_;
  std::string defaultConfig_;
  std::string configError_;
  bool hasGroups_ = false;
  std::string groupField_;
  std::string groupCaption_;
  std::string groupKey_;  // "WZW" and the group column's field; "" for none
  std::vector<std::string> columnKeys_;
  std::vector<ColumnEntry> shown_;  // the columns of columnKeys_, in that order
  std::shared_ptr<Recordset> rows_;
  std::set<std::string> openGroups_;  // groups on the path being filled
};

}  // namespace orvel
