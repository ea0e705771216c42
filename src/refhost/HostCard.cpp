#include "refhost/HostCard.h"

#include "orvel/OrvelEnvironment.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelServices.h"
#include "orvel/OrvelSession.h"
#include "orvel/OrvelWindowManager.h"
#include "ui/ControlConstants.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

// A click runs to its end: what fails inside shows as a box.
void Guard(Ui& ui, const std::string& title, const std::function<void()>& body) {
  try {
    body();
  } catch (const std::exception& e) {
    ui.MsgBox(std::string("Klaida!\n") + e.what(), vbCritical, title);
  }
}

}  // namespace

HostCard::HostCard(Ui& ui, bool editable, std::shared_ptr<OrvelServices> services)
    : Form("frmHostCard"), ui_(ui), editable_(editable), services_(std::move(services)) {
  cmdEnter.SetCaption("Įrašyti");
  cmdCancel.SetCaption("Atšaukti");
  SSCClose.SetCaption("Uždaryti");
  cmdEnter.SetVisible(editable_);
  cmdCancel.SetVisible(editable_);
  Register(SOPanel);
  OrvelGrid = ui_.NewOrvelGrid();
  if (OrvelGrid) Register(*OrvelGrid);
  Register(cmdEnter);
  Register(cmdCancel);
  Register(SSCClose);
  cmdEnter.OnClick = [this] { Guard(ui_, Title(), [this] { cmdEnter_Click(); }); };
  cmdCancel.OnClick = [this] { Guard(ui_, Title(), [this] { cmdCancel_Click(); }); };
  SSCClose.OnClick = [this] { Guard(ui_, Title(), [this] { SSCClose_Click(); }); };
}

HostCard::~HostCard() = default;

std::string HostCard::Title() const {
  auto environment = services_ ? services_->Environment() : nullptr;
  auto session = environment ? environment->Session() : nullptr;
  return session ? session->AppTitle() : "Orvel Apskaita";
}

void HostCard::Form_Load() {
  if (!OrvelGrid || !object_) return;
  OrvelGrid->SetServices(services_);
  OrvelGrid->SetObjectUIO(object_);
  OrvelGrid->SetLabelWidth(2500);
  OrvelGrid->SetEnabled(editable_);
  ShowRecord();
}

void HostCard::ShowRecord() {
  SOPanel.SetCaption(" " + object_->OName());
  const std::string preview = object_->Preview();
  SetCaption(object_->OName() + ": " + (preview.empty() ? "Naujas įrašas" : preview));
  OrvelGrid->Init();
}

void HostCard::cmdEnter_Click() {
  const std::string before = object_->OIDR();
  if (OrvelGrid->SaveObject() != 0) {
    ui_.MsgBox("Klaida!\n\n" + OrvelGrid->LastError(), vbCritical, Title());
    return;
  }
  auto windows = services_ ? services_->WindowManager() : nullptr;
  if (windows) {
    if (object_->OIDR() != before) windows->Rekey(before, shared_from_this());
    windows->ObjectSaved(object_->OIDR());
  }
  ShowRecord();
}

void HostCard::cmdCancel_Click() {
  OrvelStatus status = object_->Read();
  if (status.Number != 0) {
    ui_.MsgBox(status.Text, vbExclamation, Title());
    if (auto windows = services_ ? services_->WindowManager() : nullptr) {
      windows->RemoveWindow(object_->OIDR(), true);
    }
    return;
  }
  ShowRecord();
}

void HostCard::SSCClose_Click() {
  auto windows = services_ ? services_->WindowManager() : nullptr;
  if (windows) {
    windows->CloseWindow(shared_from_this());
  } else {
    Form::Unload();
  }
}

}  // namespace orvel
