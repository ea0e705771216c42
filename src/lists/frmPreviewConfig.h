#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Dictionary.h"
#include "lists/ColumnConfig.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

namespace orvel {

// The modal dialog " Vaizdo parametrai" in which the user tailors a list
// window: which columns it shows, in what order, how wide and aligned, and
// how it prints. The caller writes PrintDict and ColumnDict (as
// ParseColumnConfig fills them), shows the dialog modally and reads Status;
// on a non-zero Status, NewConfig holds the new configuration string.
class frmPreviewConfig : public Form {
 public:
  enum : int16_t { kCancelled = 0, kAccepted = 1, kColumnsChanged = 2 };
  static constexpr double kMaxWidth = 27.0;
  // From this many columns on, the caption column leaves room for a scroll bar.
  static constexpr int kScrollColumns = 16;

  frmPreviewConfig();

  Dictionary PrintDict;
  Dictionary ColumnDict;
  int16_t Status = kCancelled;
  std::string NewConfig;

  ListView lvwColumns{"lvwColumns"};
  TextBox txtColumnCaption{"txtColumnCaption"};
  TextBox txtWidth{"txtWidth"};
  ComboBox cmbAlignment{"cmbAlignment"};
  Button cmdUp{"cmdUp"};
  Button cmdDown{"cmdDown"};
  Label lblTotalWidth{"lblTotalWidth"};
  TextBox txtJournalName{"txtJournalName"};
  ComboBox cmbFontSize{"cmbFontSize"};
  CheckBox chbGridlinesHor{"chbGridlinesHor"};
  CheckBox chbGridlinesVer{"chbGridlinesVer"};
  CheckBox chbUserName{"chbUserName"};
  CheckBox chbDate{"chbDate"};
  CheckBox chbTime{"chbTime"};
  TextBox txtFooter{"txtFooter"};
  TextBox txtRegName{"txtRegName"};
  Button cmdOK{"cmdOK"};
  Button cmdCancel{"cmdCancel"};
  Label lblJournalName{"lblJournalName"};
  Label lblFontSize{"lblFontSize"};
  Label lblFooter{"lblFooter"};
  Label lblRegName{"lblRegName"};

  // Event handlers, as the platform raises them.
  void lvwColumns_ItemClick(ListItem& row);
  // The list's check box of a row changed.
  void lvwColumns_ItemCheck(ListItem& row, bool checked);
  void cmdUp_Click();
  void cmdDown_Click();
  void cmbAlignment_Click();
  void txtColumnCaption_LostFocus();
  void txtWidth_KeyPress(int& keyAscii);
  void txtWidth_LostFocus();
  void txtRegName_Validate(bool& cancel);
  void Form_KeyPress(int& keyAscii) override;
  void cmdOK_Click();
  void cmdCancel_Click();

  // Whether the list's check box of the row with this key is ticked.
  bool ColumnChecked(const std::string& key) const;

 protected:
  void Form_Load() override;
  void Form_Unload() override;

 private:
  struct Row {
    ColumnEntry column;
    bool visible = false;
  };

  void FillColumns();
  void LoadRow(int index);  // 0-based into rows_
  void StoreCaption();
  void Swap(int index, int other);
  void ShowTotal();
  int RowOf(const ListItem& row) const;
  ColumnConfig BuildConfig() const;

  ColumnConfig given_;
  std::string loadedConfig_;
  std::vector<Row> rows_;  // in display order
  int current_ = -1;
  bool loading_ = false;
};

}  // namespace orvel
