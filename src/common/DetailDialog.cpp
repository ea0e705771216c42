#include "common/DetailDialog.h"

#include "common/Catalogue.h"
#include "common/ModuleState.h"
#include "common/Platform.h"
#include "common/frmGoodProperty.h"
#include "orvel/Ui.h"

namespace orvel {

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
  auto installed = TheModuleState().Piece<DetailDialog>();
  return installed ? *installed : sheet;
}

std::shared_ptr<DetailDialog> InstallDetailDialog(std::shared_ptr<DetailDialog> dialog) {
  return TheModuleState().SetPiece(std::move(dialog));
}

}  // namespace orvel
