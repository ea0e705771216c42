#include "firms/frmFirmInfo.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelUser.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

struct PriorityRow {
  const char* key;
  const char* text;
  int32_t color;
};

// In combo order: a row's 1-based index is the priority the business layer keeps.
constexpr PriorityRow kPriorities[] = {
    {"P1", "Svarbi informacija", vbBlack},
    {"P2", "Ypatingai svarbi informacija", vbBlue},
    {"P3", "Įspėjamoji informacija", vbRed},
};
constexpr int kPriorityCount = 3;

// A day as the write call carries it: "20060101".
std::string CompactDay(const Variant& day) { return Format(day, "yyyymmdd"); }

}  // namespace

frmFirmInfo::frmFirmInfo() : Form("frmFirmInfo") {
  SetCaption("Įmonės informacija");
  lblPriority.SetCaption("Svarbumas:");
  lblDateFrom.SetCaption("Galioja nuo:");
  lblDateTo.SetCaption("iki:");
  cmdWrite.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  // The end may stay empty: such a note never ends.
  dtpDateTo.SetCheckBox(true);
  for (Control* control : std::initializer_list<Control*>{
           &lblPriority, &imcPriority, &lblColor, &txtInfo, &lblDateFrom, &dtpDateFrom, &lblDateTo,
           &dtpDateTo, &cmdWrite, &cmdCancel}) {
    Register(*control);
  }
  dtpDateFrom.OnChange = [this] { Handle([&] { dtpDateFrom_Change(); }); };
  // Picking a row and typing a text both recolour.
  imcPriority.OnClick = [this] { Handle([&] { imcPriority_Change(); }); };
  imcPriority.OnChange = [this] { Handle([&] { imcPriority_Change(); }); };
  cmdWrite.OnClick = [this] { Handle([&] { cmdWrite_Click(); }); };
  cmdCancel.OnClick = [this] { Handle([&] { cmdCancel_Click(); }); };
}

frmFirmInfo::~frmFirmInfo() = default;

int32_t frmFirmInfo::PriorityColor(int priority) {
  if (priority < 1 || priority > kPriorityCount) return vbBlack;
  return kPriorities[priority - 1].color;
}

int frmFirmInfo::SelectedPriority() const {
  const ComboItem* item = imcPriority.SelectedItem();
  return item ? item->Index() : 0;
}

void frmFirmInfo::Form_Load() {
  Handle([&] {
    Saved = false;
    int priority = 1;
    if (ID != 0) {
      // A note that cannot be read (gone, or an answer without it) opens as
      // a new one.
      bool found = false;
      try {
        found = ID > 0 && ReadNote(priority);
      } catch (const RuntimeError&) {
      }
      if (!found) ID = 0;
    }
    // A note cannot end before it starts.
    dtpDateTo.SetMinDate(CDate(dtpDateFrom.Value()));
    if (imcPriority.ComboItems().Count() == 0) {
      for (const auto& row : kPriorities) imcPriority.ComboItems().Add(row.key, row.text);
    }
    imcPriority.SetSelectedItem(&imcPriority.ComboItems().Item(1));
    if (ID != 0) {
      // A priority the combo does not know shows as the first.
      if (priority >= 1 && priority <= kPriorityCount) {
        imcPriority.SetSelectedItem(&imcPriority.ComboItems().Item(priority));
      }
      imcPriority_Change();
      return;
    }
    dtpDateFrom.SetValue(Variant(Platform::Ui().Today()));
    dtpDateTo.SetValue(Variant::Null());
  });
}

bool frmFirmInfo::ReadNote(int& priority) {
  if (!OrvelObjectUIO) throw RuntimeError(RuntimeError::kObjectNotSet, "Pastabai nepriskirta įmonė");
  OrvelResult reply = OrvelObjectUIO->Properties("FirmInfo", "");
  auto rs = reply.Number == 0 ? reply.Value.ObjectAs<Recordset>() : nullptr;
  if (!rs) return false;
  rs->SetFilter(Variant(" ID = " + std::to_string(ID)));
  if (rs->IsBOF() && rs->IsEOF()) return false;
  txtInfo.SetText(ConcatText(rs->Fields("Info").Value()));
  const Variant from = rs->Fields("DateFrom").Value();
  // A note stored without a start starts today; the picker shows no empty start.
  dtpDateFrom.SetValue(from.IsNull() ? Variant(Platform::Ui().Today()) : Variant(CDate(from)));
  const Variant to = rs->Fields("DateTo").Value();
  if (to.IsNull()) {
    dtpDateTo.SetValue(Variant::Null());
  } else {
    // An end stored before the start is shown at the start, the earliest
    // the picker takes.
    const Date start = CDate(dtpDateFrom.Value());
    const Date end = CDate(to);
    dtpDateTo.SetValue(Variant(end < start ? start : end));
  }
  const Variant stored = rs->Fields("Priority").Value();
  priority = stored.IsNull() ? 1 : CInt(stored);
  return true;
}

void frmFirmInfo::dtpDateFrom_Change() {
  const Variant from = dtpDateFrom.Value();
  if (from.IsNull()) return;
  dtpDateTo.SetMinDate(CDate(from));
}

void frmFirmInfo::imcPriority_Change() {
  const int32_t color = PriorityColor(SelectedPriority());
  txtInfo.SetForeColor(color);
  lblColor.SetForeColor(color);
}

std::string frmFirmInfo::WriteParams() const {
  if (!OrvelObjectUIO) throw RuntimeError(RuntimeError::kObjectNotSet, "Pastabai nepriskirta įmonė");
  const Variant to = dtpDateTo.Value();
  const std::string end = to.IsNull() ? std::string("Null") : "'" + CompactDay(to) + "'";
  std::string user;
  auto environment = Services().Environment();
  auto person = environment ? environment->User() : nullptr;
  auto record = person ? person->Rs() : nullptr;
  if (!record) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra vartotojo įrašo");
  user = ConcatText(record->Fields("ID").Value());
  return std::to_string(ID) + ",'" + txtInfo.Text() + "','" + CompactDay(dtpDateFrom.Value()) +
         "'," + end + "," + ConcatText(OrvelObjectUIO->Fields("ID").Value()) + "," + user + "," +
         std::to_string(SelectedPriority());
}

void frmFirmInfo::cmdWrite_Click() {
  // The note travels between apostrophes and nothing is escaped on the way.
  txtInfo.SetText(Trim(Replace(txtInfo.Text(), "'", "\"")));
  Variant::Array params{Variant(WriteParams())};
  OrvelObjectUIO->Methods("AddUpdateFirmInfo", params);
  Saved = true;
  Unload();
}

void frmFirmInfo::cmdCancel_Click() { Unload(); }

}  // namespace orvel
