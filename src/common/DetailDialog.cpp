#include "common/DetailDialog.h"

#include <utility>

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "common/frmGoodProperty.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

std::shared_ptr<DetailDialog>& Installed() {
  static std::shared_ptr<DetailDialog> installed;
  return installed;
}

}  // namespace

DetailDialog::~DetailDialog() = default;

bool DetailDialog::Edit(const std::shared_ptr<OrvelObjectUIO>& detail, const std::string& caption,
                        const std::string& msgTitle) {
  frmGoodProperty dialog;
  dialog.MsgTitle = msgTitle;
  dialog.SetCaption(caption);
  dialog.OrvelGrid->SetServices(OrvelS());
  dialog.OrvelGrid->SetObjectUIO(detail);
  dialog.OrvelGrid->FillFields();
  Platform::Ui().ShowModal(dialog);
  dialog.Unload();
  return dialog.Saved;
}

DetailDialog& CurrentDetailDialog() {
  static DetailDialog sheet;
  auto& installed = Installed();
  return installed ? *installed : sheet;
}

std::shared_ptr<DetailDialog> InstallDetailDialog(std::shared_ptr<DetailDialog> dialog) {
  return std::exchange(Installed(), std::move(dialog));
}

}  // namespace orvel
