#include "common/CatalogueWindow.h"

#include "common/Boundary.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "host/Convert.h"
#include "orvel/ErrorNumbers.h"
#include "orvel/OrvelObjectManager.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelShowObject.h"
#include "orvel/OrvelWindowManager.h"
#include "orvel/RuntimeError.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

CatalogueFrame::CatalogueFrame(std::string formName) : Form(std::move(formName)) {}

CatalogueFrame::~CatalogueFrame() = default;

void CatalogueFrame::SetOrvelObjectUIO(std::shared_ptr<orvel::OrvelObjectUIO> object) {
  object_ = std::move(object);
}

void CatalogueFrame::DeleteRecordAsked(const std::string& title, DeleteVia via, bool ask) {
  if (!ConfirmDelete("Ar tikrai norite panaikinti?\n" + Uio().Preview(), vbOKCancel, title)) return;
  std::string oidr = OIDR();
  auto adapter = via == DeleteVia::kRecord
                     ? Uio().UI()
                     : Services().ObjectManager()->GetOrvelObjectUI(Uio().OID());
  if (adapter && adapter->DeleteOrvelObject(oidr) == 0) {
    Services().WindowManager()->RemoveWindow(oidr, ask);
  }
}

void CatalogueFrame::CloseFrame() {
  SSCClose.SetEnabled(false);
  Platform::Ui().DoEvents();
  Services().WindowManager()->CloseWindow(Self());
}

bool CatalogueFrame::KeepUnsavedEdits(bool edited, const std::string& title) {
  if (!edited) return false;
  return Platform::Ui().MsgBox(SOPanel.Caption() + "\n\nUždaryti be išsaugojimo?",
                               vbYesNo + vbExclamation, title) != vbYes;
}

orvel::OrvelObjectUIO& CatalogueFrame::Uio() {
  if (!object_) {
    throw RuntimeError(RuntimeError::kObjectNotSet, "Langui " + Name() + " nepriskirtas objektas");
  }
  return *object_;
}

std::string CatalogueFrame::OIDR() { return Uio().OIDR(); }

std::shared_ptr<OrvelWindow> CatalogueFrame::Self() { return shared_from_this(); }

CatalogueWindow::CatalogueWindow(std::string formName, std::string heading)
    : CatalogueFrame(std::move(formName)) {
  SOPanel.SetCaption(std::move(heading));
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  Register(SOPanel);
  Register(cmdEnter);
  Register(cmdCancel);
  Register(SSCClose);
  Register(SSCNew);

  cmdEnter.OnClick = [this] { cmdEnter_Click(); };
  cmdCancel.OnClick = [this] { cmdCancel_Click(); };
  SSCNew.OnClick = [this] { SSCNew_Click(); };
  SSCClose.OnClick = [this] { SSCClose_Click(); };
  SSCClose.OnMouseUp = [this](int button, int shift) { SSCClose_MouseUp(button, shift); };

  OrvelGrid = Platform::Ui().NewOrvelGrid();
  if (OrvelGrid) {
    Register(*OrvelGrid);
    OrvelGrid->OnFieldChanged = [this] { OrvelGrid_FieldChanged(); };
    OrvelGrid->OnListMouseUp = [this](const std::string& key, int index, int button, int shift) {
      OrvelGrid_ListMouseUp(key, index, button, shift);
    };
    OrvelGrid->OnListDoubleClick = [this](int index) { OrvelGrid_ListDoubleClick(index); };
    OrvelGrid->OnListDragOver = [this](std::shared_ptr<Object> data, int& effect) {
      OrvelGrid_ListDragOver(data, effect);
    };
    OrvelGrid->OnListDragDrop = [this](std::shared_ptr<Object> data) {
      OrvelGrid_ListDragDrop(data);
    };
  }
}

CatalogueWindow::~CatalogueWindow() = default;

void CatalogueWindow::Form_Load() { InitForm(); }

void CatalogueWindow::InitForm() {
  InitRunning = true;
  SetEnabled(false);
  Handle(kMsgTitle, [&] {
    Platform::Ui().SetMousePointer(vbHourglass);
    OrvelGrid->SetServices(OrvelS());
    OrvelGrid->SetObjectUIO(OrvelObjectUIO());
    OrvelGrid->FillFields();
    Initialized = true;
    AddTabs();
    SetCaption();
    FillLists();
    SetButtons(false);
  });
  // Also after a failure: the window must not stay disabled under the hourglass.
  InitRunning = false;
  SetEnabled(true);
  Handle(kMsgTitle, [&] { Platform::Ui().SetMousePointer(vbDefault); });
}

void CatalogueWindow::SetButtons(bool changed) {
  cmdEnter.SetEnabled(changed);
  cmdCancel.SetEnabled(changed);
  SSCNew.SetEnabled(!changed);
}

void CatalogueWindow::OrvelGrid_FieldChanged() {
  Handle(kMsgTitle, [&] { SetButtons(true); });
}

void CatalogueWindow::cmdEnter_Click() {
  Handle(kMsgTitle, [&] {
    int32_t number = OrvelGrid->SaveObject();
    std::string text = OrvelGrid->LastError();
    if (number != 0) {
      Platform::Ui().MsgBox("Klaida!\n\n" + text, vbCritical, kMsgTitle);
      SetButtons(true);
      if (number == kChangedMeanwhile) cmdCancel_Click();
    } else {
      SetCaption();
      Services().WindowManager()->ObjectSaved(OIDR());
      SetButtons(false);
    }
    UnloadChild();
  });
}

void CatalogueWindow::cmdCancel_Click() {
  Handle(kMsgTitle, [&] {
    if (ReadAgainOrClose(Uio(), kMsgTitle)) InitForm();
  });
}

void CatalogueWindow::UnloadChild() {
  if (!ShowObject) return;
  try {
    if (auto child = std::dynamic_pointer_cast<OrvelShowObject>(ShowObject)) {
      child->UnloadShowOrvelObject();
    }
  } catch (...) {
    // The child's own failure does not concern this window.
  }
  ShowObject.reset();
}

void CatalogueWindow::SSCNew_Click() {
  Handle(kMsgTitle, [&] {
    std::string kept = OIDR();
    auto windows = Services().WindowManager();
    if (windows->QueryRemove(kept, true)) return;
    Uio().SetOIDR("");
    if (Uio().Read().Number != 0) return;
    InitForm();
    if (!kept.empty()) windows->Rekey(kept, Self());
  });
}

void CatalogueWindow::SSCClose_Click() {
  Handle(kMsgTitle, [&] { CloseFrame(); });
}

void CatalogueWindow::SSCClose_MouseUp(int button, int) {
  Handle(kMsgTitle, [&] {
    if (button != vbRightButton || !SSCClose.Enabled()) return;
    DeleteRecordAsked(kMsgTitle, DeleteVia::kObjectManager, false);
  });
}

void CatalogueWindow::QueryRemove(bool& cancel) {
  Handle(kMsgTitle, [&] {
    if (KeepUnsavedEdits(kMsgTitle)) cancel = true;
    // A user who refuses to close keeps a disabled close button: the click
    // disabled it, and nothing enables it again.
    SSCClose.SetEnabled(!cancel);
  });
}

void CatalogueWindow::Form_QueryUnload(bool&) {
  // The question was asked in QueryRemove; the window unloads itself.
}

void CatalogueWindow::Form_Unload() {
  UnloadChild();
  Lists.clear();
}

void CatalogueWindow::mnuToDesktop_Click() {
  Handle(kMsgTitle, [&] {
    if (ActiveList < 0) return;
    ListItem* row = Lists[ActiveList]->SelectedItem();
    if (!row) return;
    Services().ObjectManager()->AddToDesktop(ConcatText(row->Tag()));
  });
}

ListView& CatalogueWindow::AddList(const std::string& key, const std::string& caption) {
  ListView& list = OrvelGrid->AddTab(key, caption);
  Lists.push_back(&list);
  ActiveList = ListCount;
  ++ListCount;
  return list;
}

void CatalogueWindow::PopupOverSelectedRow(const std::string& tabKey, int button,
                                           const std::string& onTab, Menu& menu) {
  if (button != vbRightButton || tabKey != onTab || ActiveList < 0) return;
  if (!Lists[ActiveList]->SelectedItem()) return;
  Platform::Ui().PopupMenu(menu);
}

}  // namespace orvel
