#include "lists/frmReferenceBookPreview.h"

#include <algorithm>
#include <cmath>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelPrintColumns.h"
#include "orvel/OrvelPrintDoc.h"
#include "orvel/OrvelPrintRow.h"
#include "orvel/OrvelPrintRows.h"
#include "orvel/OrvelPrintSection.h"
#include "orvel/OrvelPrintSections.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelUser.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "lists/frmPreviewConfig.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
constexpr const char* kPreparing = "Vyksta duomenų paruošimas ...";
constexpr const char* kFilling = "Vyksta lentelės užpildymas ...";
constexpr const char* kGroupFlag = "GroupFlag";
constexpr const char* kKeyPrefix = "WZW";
constexpr size_t kKeyPrefixLength = 3;
constexpr double kGroupWidth = 7.0;
constexpr double kWideWidth = 4.0;
constexpr double kNarrowWidth = 2.5;
constexpr int32_t kWideField = 50;
// The server's numeric column types: their columns are right-aligned.
constexpr int32_t kNumericTypes[] = {127, 56, 52, 48, 106, 108, 60, 122};

std::string TextOf(const Variant& v) {
  if (v.IsNull() || v.IsEmpty()) return {};
  return v.IsString() ? v.String() : CStr(v);
}

bool Empty(Recordset& rs) { return rs.IsBOF() && rs.IsEOF(); }

// The width's tenths, so that sums compare without binary fractions.
long Tenths(double centimetres) { return std::lround(centimetres * 10); }

int Byte(const std::string& text) {
  auto n = ParseWidth(text);
  return n && *n <= 255 ? static_cast<int>(*n) : 0;
}
}  // namespace

frmReferenceBookPreview::frmReferenceBookPreview() : Form("frmReferenceBookPreview") {
  // In the order the window shows them: each label before what it names.
  for (Control* c : std::initializer_list<Control*>{
           &SOPanel, &lblName, &lblJournalName, &lblOperSelect, &txtGroupName, &cmdSelect,
           &lblConfig, &cmdConfig, &lvwRec, &lblStatus, &cmdPrint, &SSCClose}) {
    Register(*c);
  }
  cmdPrint.SetCaption("Spausdinti");
  lblStatus.SetCaption(kPreparing);
  lblName.SetCaption("Pavadinimas:");
  lblOperSelect.SetCaption("Atranka :");
  lblConfig.SetCaption("Parametrai :");
  cmdSelect.OnClick = [this] { cmdSelect_Click(); };
  cmdConfig.OnClick = [this] { cmdConfig_Click(); };
  cmdPrint.OnClick = [this] { cmdPrint_Click(); };
  SSCClose.OnClick = [this] { SSCClose_Click(); };
}

std::shared_ptr<OrvelObjectUI> frmReferenceBookPreview::TypeAdapter() const {
  auto ui = ObjectUIO ? ObjectUIO->UI() : nullptr;
  if (!ui) throw RuntimeError(RuntimeError::kObjectNotSet, "Sąrašui nepriskirtas objekto tipas");
  return ui;
}

void frmReferenceBookPreview::Form_Load() {
  auto& ui = Platform::Ui();
  try {
    if (!ObjectUIO)
      throw RuntimeError(RuntimeError::kObjectNotSet, "Sąrašui nepriskirtas objektas");
    appTitleCopy_ = AppTitle();
    SOPanel.SetCaption(ObjectUIO->OName() + " ");
    txtGroupName.SetText("");
    cmdPrint.SetCaption("Spausdinti");
    ui.SetMousePointer(vbHourglass);
    lblStatus.SetCaption("");
    BuildDefaultConfig();
    if (!InitialConfig.empty()) ApplyConfig(InitialConfig);
    ReadColumns();
    SetColumns();
    SetJournalName();
    LoadRows();
    FillTable();
  } catch (...) {
    // The window stays open with what it could show.
  }
  ui.SetMousePointer(vbDefault);
}

void frmReferenceBookPreview::BuildDefaultConfig() {
  auto& manager = *Services().ObjectManager();
  hasGroups_ = false;
  groupField_.clear();
  groupCaption_.clear();
  groupKey_.clear();
  if (auto fields = ObjectUIO->RsFields()) {
    for (int i = 0; i < fields->Fields().Count(); ++i) {
      if (fields->Fields().Item(i).Name() == kGroupFlag) hasGroups_ = true;
    }
  }
  if (hasGroups_) {
    auto result = manager.Call("Orvel_GetGroupPreviewField", ObjectUIO->OID());
    auto rs = result.Value.ObjectAs<Recordset>();
    if (result.Number == 0 && rs && !rs->IsBOF() && !rs->IsEOF()) {
      groupField_ = TextOf(rs->Fields().Item("GroupPreviewFieldName").Value());
      groupCaption_ = TextOf(rs->Fields().Item("GroupPreviewFieldCaption").Value());
    }
  }

  const std::string caption = SOPanel.Caption();
  ColumnConfig config;
  config.printParams = {caption, "9", "1", "1", "0", "1", "1", ""};
  auto result = manager.Call("Orvel_GetObjectStructureByOID", Left(ObjectUIO->OIDR(), 8));
  auto structure = result.Value.ObjectAs<Recordset>();
  double total = 0;
  int next = 0;
  if (structure && !Empty(*structure)) {
    for (structure->MoveFirst(); !structure->IsEOF(); structure->MoveNext()) {
      auto& f = structure->Fields();
      ColumnEntry column;
      std::string name = TextOf(f.Item("Name").Value());
      column.key = kKeyPrefix + name;
      column.caption = TextOf(f.Item("Caption").Value());
      double width = kNarrowWidth;
      if (CLng(f.Item("Length").Value()) > kWideField) {
        if (name == "Name" || name == groupField_) {
          width = kGroupWidth;
          groupKey_ = column.key;
        } else {
          width = kWideWidth;
        }
      } else {
        int32_t type = CLng(f.Item("xType").Value());
        if (std::find(std::begin(kNumericTypes), std::end(kNumericTypes), type) !=
            std::end(kNumericTypes)) {
          column.align = 1;
        }
      }
      column.width = WidthText(width);
      if (CLng(f.Item("Visible").Value()) == 1) {
        column.order = next++;
        total += width;
      }
      config.columns.push_back(std::move(column));
    }
  }
  // The group column takes what the page has left over, so the table fills it.
  if (!groupKey_.empty() && Tenths(total) <= Tenths(kPortraitWidth)) {
    for (auto& c : config.columns) {
      if (c.key == groupKey_) c.width = WidthText(kPortraitWidth - total + kGroupWidth);
    }
  }
  defaultConfig_ = config.Build();
  SetConfig(defaultConfig_, caption);
  txtGroupName.SetText(Len(ListArgument) >= 9 ? ObjectUIO->Preview() : "");
}

void frmReferenceBookPreview::SetConfig(const std::string& config, const std::string& regName) {
  config_ = config;
  ParseColumnConfig(config_, printDict_, columnDict_);
  printDict_.Add("JRegName", Variant(regName));
  printDict_.Add("JParams", Variant(""));
}

bool frmReferenceBookPreview::ApplyConfig(const std::string& config) {
  std::string regName = printDict_.Exists("JRegName") ? TextOf(printDict_.Item("JRegName")) : "";
  std::string error;
  if (ColumnConfig::Parse(config, &error)) {
    configError_.clear();
    SetConfig(config, regName);
    return true;
  }
  // The reason stays for the caller (it names elements in the developer's
  // terms); the user is told in the language of every other box.
  configError_ = error;
  Platform::Ui().MsgBox("Netinkami sąrašo stulpelių parametrai. Rodomi numatytieji stulpeliai.",
                        vbExclamation, appTitleCopy_);
  SetConfig(defaultConfig_, regName);
  return false;
}

std::string frmReferenceBookPreview::PrintParam(int index) const {
  ColumnConfig c = ColumnConfig::FromDictionaries(printDict_, Dictionary());
  return c.printParams[static_cast<size_t>(index)];
}

void frmReferenceBookPreview::ReadColumns() {
  ColumnConfig config = ColumnConfig::FromDictionaries(printDict_, columnDict_);
  shown_.clear();
  for (const auto& c : config.columns) {
    if (c.Shown()) shown_.push_back(c);
  }
  std::stable_sort(shown_.begin(), shown_.end(),
                   [](const ColumnEntry& a, const ColumnEntry& b) { return a.order < b.order; });
  columnKeys_.clear();
  for (const auto& c : shown_) columnKeys_.push_back(c.key);
  if (columnKeys_.empty()) columnKeys_.push_back("");
}

void frmReferenceBookPreview::SetColumns() {
  lvwRec.ListItems().Clear();
  lvwRec.ColumnHeaders().Clear();
  for (const auto& c : shown_) {
    int twips =
        static_cast<int>(std::lround(ParseWidth(c.width).value_or(0) * kTwipsPerCentimetre));
    ColumnHeader& header = lvwRec.ColumnHeaders().Add(0, "", c.caption, twips, c.align);
    Variant piece = columnDict_.Item(c.key);
    auto& elements = piece.ArrayValue();
    if (elements.size() < 6) elements.resize(6);
    elements[5] = Variant(std::to_string(header.Index()));
    columnDict_.SetItem(c.key, std::move(piece));
  }
}

void frmReferenceBookPreview::SetJournalName() {
  lblJournalName.SetCaption(PrintParam(ColumnConfig::kJournalName));
}

void frmReferenceBookPreview::LoadRows() {
  auto& ui = Platform::Ui();
  lblStatus.SetCaption(kPreparing);
  ui.SetMousePointer(vbHourglass);
  rows_ = TypeAdapter()->GetOrvelObjectList(ListArgument, "", "");
  if (rows_ && Empty(*rows_)) {
    lvwRec.ListItems().Clear();
    ui.MsgBox("Nėra informacijos!", vbOKOnly, appTitleCopy_);
  }
  ui.SetMousePointer(vbDefault);
}

void frmReferenceBookPreview::EnableControls(bool enabled) {
  cmdSelect.SetEnabled(enabled);
  cmdConfig.SetEnabled(enabled);
  cmdPrint.SetEnabled(enabled);
}

void frmReferenceBookPreview::FillTable() {
  if (!rows_ || Empty(*rows_)) return;
  lblStatus.SetCaption(kFilling);
  EnableControls(true);
  lvwRec.ListItems().Clear();
  openGroups_.clear();
  AddRows(*rows_, 0);
  lblStatus.SetCaption("");
}

void frmReferenceBookPreview::AddRows(Recordset& rs, int level) {
  if (Empty(rs)) return;
  const std::string indent =
      hasGroups_ ? std::string(static_cast<size_t>(level) * kIndentPerLevel, ' ') : "";
  // The fields are the same in every record: find each column's once.
  auto& fields = rs.Fields();
  std::vector<int> fieldIndex;
  for (const auto& key : columnKeys_) {
    int found = -1;
    std::string name = key.size() > kKeyPrefixLength ? key.substr(kKeyPrefixLength) : "";
    for (int i = 0; i < fields.Count() && found < 0; ++i) {
      // As the record set names its fields: without regard to case.
      if (LCase(fields.Item(i).Name()) == LCase(name)) found = i;
    }
    fieldIndex.push_back(found);
  }
  const bool hasFlag = hasGroups_ && fields.Exists(kGroupFlag);
  for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
    bool group = false;
    if (hasFlag) {
      Variant flag = rs.Fields().Item(kGroupFlag).Value();
      group = !flag.IsNull() && !flag.IsEmpty() && CDbl(flag) != 0;
    }
    AddRow(rs, fieldIndex, indent, group);
    if (!group) continue;
    std::string oidr =
        rs.Fields().Exists("OIDR") ? TextOf(rs.Fields().Item("OIDR").Value()) : std::string();
    // A group that holds itself, directly or further down, is listed once.
    if (!openGroups_.insert(oidr).second) continue;
    auto members = TypeAdapter()->GetOrvelObjectList(oidr, "", "");
    if (!members) {
      openGroups_.erase(oidr);
      return;
    }
    AddRows(*members, level + 1);
    openGroups_.erase(oidr);
  }
}

void frmReferenceBookPreview::AddRow(Recordset& rs, const std::vector<int>& fieldIndex,
                                     const std::string& indent, bool group) {
  std::vector<std::string> texts(columnKeys_.size());
  auto& fields = rs.Fields();
  for (size_t i = 0; i < columnKeys_.size(); ++i) {
    if (fieldIndex[i] < 0) continue;
    try {
      Variant v = fields.Item(fieldIndex[i]).Value();
      if (v.Type() == VarType::Boolean) {
        texts[i] = v.Boolean() ? "Taip" : "Ne";
      } else {
        texts[i] = TextOf(v);
        if (texts[i] == "True") texts[i] = "Taip";
        if (texts[i] == "False") texts[i] = "Ne";
      }
    } catch (...) {
      texts[i].clear();  // a value that cannot be read leaves its cell blank
    }
    if (!groupKey_.empty() && columnKeys_[i] == groupKey_) texts[i] = indent + texts[i];
  }
  ListItem& item = lvwRec.ListItems().Add(0, "", texts[0]);
  if (group) item.SetBold(true);
  for (size_t i = 1; i < texts.size(); ++i) {
    ListSubItem& sub = item.ListSubItems().Add(0, "", texts[i].empty() ? " " : texts[i]);
    if (group) sub.SetBold(true);
  }
}

void frmReferenceBookPreview::cmdSelect_Click() {
  Handle([&] {
    auto select = Platform::Classes().NewGroupSelect();
    std::string oid = Left(ObjectUIO->OIDR(), 8);
    select->SetOType(oid);
    select->SetRootOType(oid);
    select->SetSelectKind("Group");
    select->SetCaption("Pažymėkite norimą grupę");
    select->Show();
    std::string result = select->ResultOIDR();
    int at = InStrRev(result, "O", -1, Compare::Text);
    if (at <= 0) return;
    ListArgument = Mid(result, at);
    txtGroupName.SetText(select->ResultName());
    LoadRows();
    FillTable();
  });
}

void frmReferenceBookPreview::cmdConfig_Click() {
  Handle([&] {
    frmPreviewConfig dialog;
    dialog.PrintDict = printDict_;
    dialog.ColumnDict = columnDict_;
    Platform::Ui().ShowModal(dialog);
    if (dialog.Status == frmPreviewConfig::kCancelled) return;
    std::string regName = dialog.PrintDict.Exists("JRegName")
                              ? TextOf(dialog.PrintDict.Item("JRegName"))
                              : std::string();
    printDict_.SetItem("JRegName", Variant(regName));
    ApplyConfig(dialog.NewConfig);
    if (dialog.Status != frmPreviewConfig::kColumnsChanged) return;
    EnableControls(false);
    SetJournalName();
    ReadColumns();
    SetColumns();
    LoadRows();
    FillTable();
  });
}

void frmReferenceBookPreview::cmdPrint_Click() {
  Handle([&] {
    if (lvwRec.ListItems().Count() == 0) return;
    lblStatus.SetCaption(kPreparing);
    ColumnConfig config = ColumnConfig::FromDictionaries(printDict_, Dictionary());
    const auto& p = config.printParams;

    std::vector<double> widths;
    double total = 0;
    for (const auto& c : shown_) {
      widths.push_back(ParseWidth(c.width).value_or(0));
      total += widths.back();
    }
    auto doc = Platform::Classes().NewPrintDoc();
    if (!doc) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra spausdinimo dokumento");
    doc->SetOrientation(Tenths(total) <= Tenths(kPortraitWidth) ? OrvelPrintDoc::kPortrait
                                                                : OrvelPrintDoc::kLandscape);
    doc->SetFontSize(static_cast<uint8_t>(Byte(p[ColumnConfig::kFontSize])));
    doc->SetPrintMode(1);
    doc->SetUserName(p[ColumnConfig::kUserName] != "0" ? Services().Environment()->User()->Name()
                                                       : std::string());
    doc->SetDateMode(static_cast<uint8_t>(Byte(p[ColumnConfig::kDateMode])));
    doc->SetExtraFlag(p[ColumnConfig::kExtraFlag] != "0");

    auto sections = doc->Sections();
    auto title = sections->Add(OrvelPrintSections::kText)->Rows();
    title->AddText(p[ColumnConfig::kJournalName], true, 12, lvwColumnCenter);
    title->AddText(" ", false, 0, lvwColumnLeft);
    if (!txtGroupName.Text().empty()) {
      title->AddText(txtGroupName.Text(), false, 10, lvwColumnLeft);
      title->AddText(" ", false, 0, lvwColumnLeft);
    }

    auto table = sections->Add(OrvelPrintSections::kTable);
    table->SetVerticalLines(p[ColumnConfig::kVerticalLines] != "0");
    table->SetHorizontalLines(p[ColumnConfig::kHorizontalLines] != "0");
    auto columns = table->Columns();
    for (size_t i = 0; i < shown_.size(); ++i) {
      columns->Add(shown_[i].caption, widths[i], shown_[i].align);
    }
    auto rows = table->Rows();
    for (const auto& item : lvwRec.ListItems()) {
      auto row = rows->AddRow();
      for (size_t i = 0; i < shown_.size(); ++i) {
        const std::string* text = &item->Text();
        if (i > 0) {
          if (static_cast<int>(i) > item->ListSubItems().Count()) break;
          text = &item->ListSubItems().Item(static_cast<int>(i)).Text();
        }
        if (*text == " ") continue;
        row->AddCell(static_cast<int32_t>(i), *text, item->Bold());
      }
    }

    if (!p[ColumnConfig::kFooter].empty()) {
      auto footer = sections->Add(OrvelPrintSections::kText)->Rows();
      footer->AddText(" ", false, 0, lvwColumnLeft);
      footer->AddText(p[ColumnConfig::kFooter], false, 0, lvwColumnLeft);
    }
    doc->Print(false);
  });
  lblStatus.SetCaption("");
}

void frmReferenceBookPreview::SSCClose_Click() {
  Handle([&] {
    // Off first, so that a second click cannot come in while events run.
    SSCClose.SetEnabled(false);
    Platform::Ui().DoEvents();
    Services().WindowManager()->CloseWindow(weak_from_this().lock());
  });
}

void frmReferenceBookPreview::QueryRemove(bool& cancel) {
  // Nothing to lose: the window may always go.
  SSCClose.SetEnabled(!cancel);
}

}  // namespace orvel
