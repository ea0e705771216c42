#include "common/GroupedCard.h"

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelGroupSelect.h"
#include "orvel/OrvelHostClasses.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
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
// Long enough for a popup menu to close before a modal dialog opens.
constexpr int kModalDelay = 10;
}  // namespace

GroupedCard::GroupedCard(std::string formName, std::string heading, const GroupedKind& kind)
    : CatalogueWindow(std::move(formName), std::move(heading)), kind_(kind) {
  timerModal.SetEnabled(false);
  timerModal.SetInterval(kModalDelay);
  cmdParentGroup.OnClick = [this] { cmdParentGroup_Click(); };
  timerModal.OnTimer = [this] { Handle(MsgTitle, [&] { timerModal_Timer(); }); };
}

void GroupedCard::Form_Load() {
  InitForm();
  Handle(MsgTitle, [&] { MsgTitle = AppTitle(); });
}

void GroupedCard::InitForm() {
  Handle(MsgTitle, [&] { ReadCard(); });
  Loading = false;
  InitRunning = false;
  Handle(MsgTitle, [&] { Platform::Ui().SetMousePointer(vbDefault); });
}

void GroupedCard::QueryRemove(bool& cancel) {
  Handle(MsgTitle, [&] {
    if (KeepUnsavedEdits(MsgTitle)) cancel = true;
    SSCClose.SetEnabled(cancel);
  });
}

void GroupedCard::SetEditState(bool enable) {
  if (enable) {
    auto& rights = *Services().Rights();
    enable = IsNew ? rights.CanInsert(kind_.rightKey, 0) : rights.CanUpdate(kind_.rightKey, 0);
  }
  cmdEnter.SetEnabled(enable);
  cmdCancel.SetEnabled(enable);
}

void GroupedCard::OrvelGrid_FieldChanged() {
  Handle(MsgTitle, [&] { SetEditState(true); });
}

void GroupedCard::UpdateCaption() {
  const bool stored = !OIDR().empty();
  SOPanel.SetCaption(kind_.captions[(IsGroup ? 0 : 2) + (stored ? 0 : 1)]);
}

void GroupedCard::ShowGroupLine() {
  if (IsRoot) {
    txtGroup.SetText("");
  } else if (auto line = GroupLine(ParentObject)) {
    txtGroup.SetText(*line);
  }
  // A parent that cannot be shown leaves the line as it stood.
  UpdateCaption();
}

void GroupedCard::cmdParentGroup_Click() {
  Handle(MsgTitle, [&] {
    auto picker = Platform::Classes().NewGroupSelect();
    picker->SetOType(kind_.oid);
    picker->SetRootOType(kind_.oid);
    picker->SetSelectKind(kind_.selectKind);
    picker->SetCaption("Pažymėkite norimą grupę");
    picker->SetExcludeTypes(kind_.excludeTypes);
    picker->Show();
    std::string result = picker->ResultOIDR();
    int at = InStrRev(result, "O", -1, Compare::Text);
    if (at == 0) return;
    std::string choice = Mid(result, at);
    if (choice == OIDR()) return;
    if (choice.size() < 9) {
      // The catalogue root: the record goes to the top.
      if (kind_.newRecordFollowsPick) ParentID = 0;
      Uio().Fields("ParentID").SetValue(Variant(0));
      txtGroup.SetText("");
    } else {
      auto adapter = Services().ObjectManager()->GetOrvelObjectUI(kind_.oid);
      auto group = adapter ? adapter->GetOrvelObject(choice) : nullptr;
      if (!group) return;
      Variant id = group->Fields("ID").Value();
      if (kind_.newRecordFollowsPick) ParentID = NullToLong(id);
      Uio().Fields("ParentID").SetValue(id);
      try {
        txtGroup.SetText(ConcatText(group->Fields("PreviewPath").Value()) + group->Preview());
      } catch (...) {
        // The path is only shown; the choice is made.
      }
    }
    SetEditState(true);
  });
}

void GroupedCard::DeleteOnRightClick(int button, bool allowed, DeleteVia via) {
  // A hidden gesture that users of the catalogues know, kept on purpose.
  if (button != vbRightButton || !allowed) return;
  DeleteRecordAsked(MsgTitle, via, true);
}

bool GroupedCard::SaveSheet() {
  const int32_t number = OrvelGrid->SaveObject();
  const std::string text = OrvelGrid->LastError();
  if (number != 0) {
    Platform::Ui().MsgBox("Klaida!\n\n" + text, vbCritical, MsgTitle);
    SetEditState(true);
    if (number == kChangedMeanwhile) cmdCancel_Click();
    return false;
  }
  UpdateCaption();
  Services().WindowManager()->ObjectSaved(OIDR());
  SetEditState(false);
  return true;
}

bool GroupedCard::TakeNewPeriod() {
  Variant period = Services().ObjectManager()->Call("GetNewPeriod", "").Value;
  if (period == Period) return false;
  Period = std::move(period);
  return true;
}

bool GroupedCard::WouldHoldItsOwnGroup(orvel::OrvelObjectUIO& dragged, int32_t draggedGroupFlag) {
  const std::string draggedCode = ConcatText(dragged.Fields("OwnCode").Value());
  const std::string ownCode = ConcatText(Uio().Fields("OwnCode").Value());
  return draggedGroupFlag == 1 && Left(ownCode, Len(draggedCode)) == draggedCode;
}

void GroupedCard::TakeIntoGroup(orvel::OrvelObjectUIO& dragged,
                                const std::function<void(Fields&)>& addRow) {
  try {
    auto rs = dragged.RsFields();
    if (!rs) throw RuntimeError(RuntimeError::kObjectNotSet, "Nėra laukų");
    addRow(rs->Fields());
  } catch (...) {
    return;  // already listed here
  }
  dragged.Fields("ParentID").SetValue(Uio().Fields("ID").Value());
  dragged.Save(nullptr, nullptr);
}

}  // namespace orvel
