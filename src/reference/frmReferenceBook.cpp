#include "reference/frmReferenceBook.h"

#include <charconv>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "host/Identifiers.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// An OIDR with the record's ID has at least nine characters.
constexpr size_t kOidLength = 8;

std::string BookOf(const std::string& oidr) { return oidr.substr(0, kOidLength); }

// The right key a new record of a book with creator locks registers, "" for
// the other books.
std::string LockKeyOf(const std::string& bookOid) {
  if (bookOid == "O3000204") return "CCRMProjectLock";
  if (bookOid == "O0001605") return "CLocationLock";
  return {};
}

// Read, insert, update and delete, all granted.
constexpr const char* kAllRights = "1111";

// A number field of the record; 0 when it is Null or the book has no such
// field.
int32_t NumberField(OrvelObjectUIO& object, std::string_view name) {
  auto rs = object.RsFields();
  if (!rs || rs->IsBOF() || rs->IsEOF() || !rs->Fields().Exists(name)) return 0;
  return NullToLong(rs->Fields(name).Value());
}

}  // namespace

frmReferenceBook::frmReferenceBook() : frmReferenceBook("frmReferenceBook") {}

frmReferenceBook::frmReferenceBook(std::string formName)
    : CatalogueWindow(std::move(formName), "Tikslai"), cmdWrite(cmdEnter) {
  cmdGroup.SetCaption("...");
  Register(lblCard);
  Register(lblGroup);
  Register(txtGroup);
  Register(cmdGroup);

  cmdGroup.OnClick = [this] { cmdGroup_Click(); };
  txtGroup.OnChange = [this] { txtGroup_Change(); };
}

void frmReferenceBook::Form_Load() {
  Handle(msgTitle_, [&] {
    msgTitle_ = AppTitle();
    groupId_ = NumberField(Uio(), "ParentID");
    isGroup_ = NumberField(Uio(), "GroupFlag") != 0;
    bookOid_ = BookOf(OIDR());
    InitForm();
  });
}

void frmReferenceBook::InitForm() {
  atTop_ = groupId_ == 0;
  InitRunning = true;
  Handle(msgTitle_, [&] {
    isNew_ = OIDR().size() <= kOidLength;
    OrvelGrid->SetServices(OrvelS());
    OrvelGrid->SetObjectUIO(OrvelObjectUIO());
    OrvelGrid->SetLabelWidth(kLabelWidth);
    // The tabs of a card that has lists come before the sheet is built.
    AddTabs();
    OrvelGrid->Init();
    Initialized = true;
    SSCNew.SetEnabled(!boolReadOnly);
    cmdGroup.SetEnabled(!boolReadOnly);
    txtGroup.SetText(atTop_ ? std::string() : mGroupName);
    SetCaption();
    lblGroup.SetCaption(isGroup_ ? "Aukštesnio lygio grupė" : "Grupės pavadinimas");
  });
  // Also after a failure: a card left in its initialising state would take
  // no edit.
  InitRunning = false;
  Handle(msgTitle_, [&] { SetButtons(false); });
}

void frmReferenceBook::SetCaption() { SOPanel.SetCaption(" " + Uio().OName()); }

void frmReferenceBook::SetButtons(bool changed) {
  if (boolReadOnly) changed = false;
  cmdWrite.SetEnabled(changed);
  cmdCancel.SetEnabled(changed);
  SSCNew.SetEnabled(!changed && !boolReadOnly);
}

void frmReferenceBook::OrvelGrid_FieldChanged() {
  if (!InitRunning) Handle(msgTitle_, [&] { SetButtons(true); });
}

void frmReferenceBook::txtGroup_Change() {
  if (!InitRunning) Handle(msgTitle_, [&] { SetButtons(true); });
}

void frmReferenceBook::cmdGroup_Click() {
  Handle(msgTitle_, [&] {
    auto picker = Platform::Classes().NewGroupSelect();
    picker->SetOType(bookOid_);
    picker->SetRootOType(bookOid_);
    picker->SetSelectKind("Group");
    picker->SetCaption("Parinkite objektą");
    picker->Show();
    std::string path = picker->ResultOIDR();
    size_t last = LastOPosition(path);
    if (last == std::string::npos) return;  // cancelled
    std::string picked = path.substr(last);

    if (picked.size() > kOidLength && picked != bookOid_ + std::to_string(groupId_)) {
      int32_t id = 0;
      const char* first = picked.data() + kOidLength;
      const char* end = picked.data() + picked.size();
      auto [ptr, ec] = std::from_chars(first, end, id);
      // A reference that does not end in a record number names no group.
      if (ec != std::errc() || ptr != end || id < 0) return;
      groupId_ = id;
      txtGroup.SetText(picker->ResultName());
      // Two groups may share a name: the move is a change even when the
      // text stays.
      SetButtons(true);
    } else if (picked.size() == kOidLength && groupId_ >= 1) {
      groupId_ = 0;
      txtGroup.SetText("");
      SetButtons(true);
    }
    // Nothing stops a group from being put under itself here: the business
    // layer decides.
  });
}

void frmReferenceBook::cmdWrite_Click() {
  Handle(msgTitle_, [&] {
    // The cell being typed into belongs to the record that is written.
    OrvelGrid->EndFieldEdit();
    Uio().Fields("ParentID").SetValue(Variant(groupId_));
    bool wasNew = OIDR().size() <= kOidLength;
    auto status = Uio().Save(nullptr, nullptr);
    if (status.Number != 0) {
      Platform::Ui().MsgBox("Įrašymas neatliktas!\n" + status.Text, vbCritical, msgTitle_);
      SetButtons(true);
      return;
    }
    if (wasNew) RegisterLock();
    Services().WindowManager()->ObjectSaved(OIDR());
    SetButtons(false);
    mGroupName = txtGroup.Text();
    InitForm();
    UnloadChild();
  });
}

void frmReferenceBook::RegisterLock() {
  std::string key = LockKeyOf(BookOf(OIDR()));
  if (key.empty()) return;
  std::string id = CStr(Uio().Fields("ID").Value());
  Services().Rights()->SetRight(key + id, kAllRights, 0);
}

void frmReferenceBook::cmdCancel_Click() {
  Handle(msgTitle_, [&] {
    if (!ReadAgainOrClose(Uio(), msgTitle_)) return;
    // A group picked before the cancel stays picked: the card shows the
    // group it was opened with (mGroupName) and the next write still moves
    // the record to the picked one. The suite's users know the card so.
    if (isNew_) RestoreNewRecordFields();
    InitForm();
  });
}

void frmReferenceBook::RestoreNewRecordFields() {
  Uio().Fields("ParentID").SetValue(Variant(groupId_));
  Uio().Fields("GroupFlag").SetValue(Variant(isGroup_ ? 1 : 0));
}

void frmReferenceBook::SSCNew_Click() {
  Handle(msgTitle_, [&] {
    std::string kept = OIDR();
    // A card on a new record has nothing to leave.
    if (kept.size() <= kOidLength) return;
    auto windows = Services().WindowManager();
    if (windows->QueryRemove(kept, true)) return;
    Uio().SetOIDR(BookOf(kept));
    if (Uio().Read().Number != 0) return;
    RestoreNewRecordFields();
    // The lists go with the tabs: no reference to them may outlive ClearTabs.
    Lists.clear();
    ListCount = 0;
    ActiveList = -1;
    OrvelGrid->ClearTabs();
    InitForm();
    windows->Rekey(kept, Self());
  });
}

}  // namespace orvel
