#include "reference/frmDepartments.h"

#include <charconv>
#include <optional>

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/OrvelObjectBO.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelRights.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/Recordset.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// A stored OIDR has the OID's eight characters and at least one of the ID.
constexpr size_t kOidLength = 8;

constexpr const char* kBranchesCall = "DO0001604_GetFirmBranches";
constexpr const char* kBranchPicker = "DO0001604_GetFirmBranches(0);;Pasirinkite įmonės filialą";

// The record number an OIDR of the book carries after its OID; nullopt when
// the tail is not a plain number.
std::optional<int32_t> RecordNumber(const std::string& oidr) {
  if (oidr.size() <= kOidLength) return std::nullopt;
  int32_t id = 0;
  const char* first = oidr.data() + kOidLength;
  const char* end = oidr.data() + oidr.size();
  auto [ptr, ec] = std::from_chars(first, end, id);
  if (ec != std::errc() || ptr != end || id < 0) return std::nullopt;
  return id;
}

}  // namespace

frmDepartments::frmDepartments() : CatalogueFrame("frmDepartments") {
  Form::SetCaption("Įmonės padaliniai");
  lblName.SetCaption("Grupės pavadinimas");
  lblGroup.SetCaption("Aukštesnė grupė");
  lblFirmBranch.SetCaption("Įmonė");
  cmdParentGroup.SetCaption("...");
  cmdFirmBranches.SetCaption("...");
  cmdWrite.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  // The reference boxes change only through their buttons.
  txtGroup.SetLocked(true);
  txtFirmBranch.SetLocked(true);
  for (Control* control : std::initializer_list<Control*>{
           &SOPanel, &lblName, &txtName, &lblGroup, &txtGroup, &cmdParentGroup,
           &cmdParentGroupClean, &lblFirmBranch, &txtFirmBranch, &cmdFirmBranches,
           &cmdCleanFirmBranch, &cmdWrite, &cmdCancel, &SSCNew, &SSCClose}) {
    Register(*control);
  }

  txtName.OnChange = [this] { txtName_Change(); };
  cmdParentGroup.OnClick = [this] { cmdParentGroup_Click(); };
  cmdParentGroupClean.OnClick = [this] { cmdParentGroupClean_Click(); };
  cmdFirmBranches.OnClick = [this] { cmdFirmBranches_Click(); };
  cmdCleanFirmBranch.OnClick = [this] { cmdCleanFirmBranch_Click(); };
  cmdWrite.OnClick = [this] { cmdWrite_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
  SSCNew.OnClick = [this] { SSCNew_Click(); };
  SSCClose.OnClick = [this] { SSCClose_Click(); };
  SSCClose.OnMouseUp = [this](int button, int shift) { SSCClose_MouseUp(button, shift); };
}

frmDepartments::~frmDepartments() = default;

void frmDepartments::Form_Load() {
  Handle(msgTitle_, [&] {
    msgTitle_ = AppTitle();
    auto rights = Services().Rights();
    canUpdate_ = rights->CanUpdate(kRightKey, 0);
    canDelete_ = rights->CanDelete(kRightKey, 0);
    InitForm();
  });
}

void frmDepartments::Form_Unload() { rsBranches_.reset(); }

void frmDepartments::InitForm() {
  loading_ = true;
  Handle(msgTitle_, [&] {
    Platform::Ui().SetMousePointer(vbHourglass);
    changed_ = false;
    SSCClose.SetEnabled(true);
    LoadBranches();
    isNew_ = OIDR().size() <= kOidLength;
    isGroup_ = NullToLong(Uio().Fields("GroupFlag").Value()) != 0;
    ShowReference(std::string(kBook) + std::to_string(NullToLong(Uio().Fields("ParentID").Value())),
                  &txtGroup);
    txtName.SetText(ConcatText(Uio().Fields("Name").Value()));
    ShowBranch();
    cmdFirmBranches.SetEnabled(hasBranches_);
    cmdCleanFirmBranch.SetEnabled(hasBranches_);
    SetCaption();
    SSCNew.SetEnabled(!isNew_ && !boolReadOnly);
    cmdParentGroup.SetEnabled(!boolReadOnly);
    cmdParentGroupClean.SetEnabled(!boolReadOnly);
    SetButtons();
  });
  // Also after a failure: a card left loading would take no edit.
  loading_ = false;
  Handle(msgTitle_, [&] { Platform::Ui().SetMousePointer(vbDefault); });
}

void frmDepartments::LoadBranches() {
  rsBranches_.reset();
  hasBranches_ = false;
  auto bo = Uio().BO();
  if (!bo) return;
  // A failed call leaves the card without branches to pick from.
  auto reply = bo->RecordsetCall(kBranchesCall, "0", 0);
  if (reply.Number != 0) return;
  rsBranches_ = std::dynamic_pointer_cast<Recordset>(reply.Object);
  hasBranches_ = rsBranches_ && rsBranches_->RecordCount() > 0;
}

void frmDepartments::ShowBranch() {
  int32_t branchId = NullToLong(Uio().Fields("FirmBranchID").Value());
  if (FilterRecordset(rsBranches_, "ID = " + std::to_string(branchId))) {
    txtFirmBranch.SetText(ConcatText(rsBranches_->Fields("Preview").Value()));
    txtFirmBranch.SetTag(CStr(rsBranches_->Fields("ID").Value()));
    rsBranches_->SetFilter(Variant(0));
  } else {
    // A branch gone meanwhile shows as none, and the next write stores none.
    txtFirmBranch.SetText("");
    txtFirmBranch.SetTag("0");
  }
}

void frmDepartments::SetCaption() {
  const char* title = isGroup_ ? (isNew_ ? "Nauja padalinių grupė" : "Padalinių grupė")
                               : (isNew_ ? "Naujas padalinys" : "Padalinys");
  SOPanel.SetCaption(std::string(" ") + title);
  if (isGroup_) {
    lblGroup.SetCaption("Aukštesnė grupė");
    lblName.SetCaption("Grupės pavadinimas");
  } else {
    lblGroup.SetCaption("Grupė");
    lblName.SetCaption("Pavadinimas");
  }
}

void frmDepartments::SetButtons() {
  const bool editable = canUpdate_ && changed_ && !boolReadOnly;
  cmdWrite.SetEnabled(editable && !txtName.Text().empty());
  cmdCancel.SetEnabled(editable && !isNew_);
}

void frmDepartments::MarkChanged() {
  if (loading_) return;
  changed_ = true;
  SetButtons();
}

void frmDepartments::txtName_Change() {
  Handle(msgTitle_, [&] { MarkChanged(); });
}

void frmDepartments::cmdParentGroup_Click() {
  Handle(msgTitle_, [&] {
    std::string picked =
        SelectGroup(kBook, "Pasirinkite grupę", &txtGroup, std::string("Group"), "");
    if (picked.empty()) return;  // cancelled
    // The book's root only empties the box (the picker did): the record
    // keeps the group it had, as it does after the clean button.
    if (picked.size() > kOidLength) {
      auto id = RecordNumber(txtGroup.Tag());
      if (!id) return;
      Uio().Fields("ParentID").SetValue(Variant(*id));
    }
    MarkChanged();
  });
}

void frmDepartments::cmdParentGroupClean_Click() {
  Handle(msgTitle_, [&] {
    // Only the box: the record's group is not changed by it.
    ClearReference(&txtGroup);
    MarkChanged();
  });
}

void frmDepartments::cmdFirmBranches_Click() {
  Handle(msgTitle_, [&] {
    auto result = Services().ObjectManager()->Call("OrvelGroupSelect", kBranchPicker);
    if (result.Number != 0) {
      Platform::Ui().MsgBox("Klaida!\n" + result.Text, vbCritical, msgTitle_);
      return;
    }
    auto rs = result.Value.ObjectAs<Recordset>();
    if (!rs || rs->RecordCount() == 0 || rs->IsEOF()) return;
    txtFirmBranch.SetText(ConcatText(rs->Fields("Preview").Value()));
    txtFirmBranch.SetTag(CStr(rs->Fields("ID").Value()));
    MarkChanged();
  });
}

void frmDepartments::cmdCleanFirmBranch_Click() {
  Handle(msgTitle_, [&] {
    txtFirmBranch.SetText("");
    txtFirmBranch.SetTag("0");
    MarkChanged();
  });
}

void frmDepartments::cmdWrite_Click() {
  Handle(msgTitle_, [&] {
    auto& object = Uio();
    object.Fields("Name").SetValue(Variant(Trim(txtName.Text())));
    double branch = Val(txtFirmBranch.Tag());
    object.Fields("FirmBranchID")
        .SetValue(branch <= 0 ? Variant::Null() : Variant(CLng(Variant(branch))));
    auto status = object.Save(nullptr, nullptr);
    if (status.Number != 0) {
      Platform::Ui().MsgBox(status.Text + "\nĮrašymas neatliktas!", vbOKOnly, msgTitle_);
      return;
    }
    if (isNew_) {
      object.SetPreview(ConcatText(object.Fields("Name").Value()));
      Services().WindowManager()->ObjectSaved(OIDR());
      InitForm();
    } else {
      changed_ = false;
      SetButtons();
    }
  });
}

void frmDepartments::cmdCancel_Click() {
  Handle(msgTitle_, [&] {
    Uio().CancelUpdate();
    InitForm();
  });
}

void frmDepartments::SSCNew_Click() {
  Handle(msgTitle_, [&] {
    if (cmdWrite.Enabled()) {
      // The window manager's question below asks once more, through
      // QueryRemove, while the edits are still there.
      if (!AskCloseWithoutSaving(SOPanel.Caption())) return;
    }
    auto& object = Uio();
    const std::string kept = OIDR();
    const std::string otype = object.OType();
    const Variant parentId = object.Fields("ParentID").Value();
    const Variant groupFlag = object.Fields("GroupFlag").Value();
    auto windows = Services().WindowManager();
    if (windows->QueryRemove(kept, true)) return;
    object.SetOIDR("");
    auto status = object.Read();
    if (status.Number != 0) {
      Platform::Ui().MsgBox(status.Text, vbExclamation, msgTitle_);
      return;
    }
    object.SetOType(otype);
    object.Fields("ParentID").SetValue(parentId);
    object.Fields("GroupFlag").SetValue(groupFlag);
    InitForm();
    if (!kept.empty()) windows->Rekey(kept, Self());
  });
}

void frmDepartments::SSCClose_Click() {
  Handle(msgTitle_, [&] { CloseFrame(); });
}

void frmDepartments::SSCClose_MouseUp(int button, int) {
  Handle(msgTitle_, [&] {
    if (button != vbRightButton || !canDelete_) return;
    DeleteObjectAsked(Uio());
  });
}

void frmDepartments::QueryRemove(bool& cancel) {
  Handle(msgTitle_, [&] {
    if (cmdWrite.Enabled()) cancel = KeepUnsavedEdits(true, AppTitle());
    SSCClose.SetEnabled(!cancel);
  });
}

}  // namespace orvel
