#include "goods/GoodsDialogs.h"

#include "common/Catalogue.h"
#include "common/DetailDialog.h"
#include "common/ModuleState.h"
#include "common/Platform.h"
#include "goods/frmGaranty.h"
#include "goods/frmGoodPreview.h"
#include "goods/frmGoodsHistory.h"
#include "goods/frmPriceChange.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {

GoodsDialogs& Idle() {
  static GoodsDialogs idle;
  return idle;
}


}  // namespace

GoodsDialogs::~GoodsDialogs() = default;

bool GoodsDialogs::EditListSettings(std::string& settings) {
  frmGoodPreview preview;
  preview.Settings = settings;
  Platform::Ui().ShowModal(preview);
  preview.Unload();
  if (!preview.Confirmed) return false;
  settings = preview.Settings;
  return true;
}

void GoodsDialogs::ChangePrices(const std::shared_ptr<OrvelObjectUIO>& group) {
  frmPriceChange dialog;
  dialog.OrvelObjectUIO = group;
  Platform::Ui().ShowModal(dialog);
  dialog.Unload();
}

void GoodsDialogs::AddGuarantee(const std::shared_ptr<OrvelObjectUIO>& group) {
  frmGaranty dialog;
  dialog.OrvelObjectUIO = group;
  Platform::Ui().ShowModal(dialog);
  dialog.Unload();
}

bool GoodsDialogs::EditGoodProperty(const std::shared_ptr<OrvelObjectUIO>& detail,
                                    const std::string& caption, const std::string& msgTitle) {
  return CurrentDetailDialog().Edit(detail, caption, msgTitle);
}

void GoodsDialogs::ShowGoodsHistory(const std::shared_ptr<OrvelObjectUIO>& good,
                                    int32_t documentId) {
  frmGoodsHistory history;
  history.OrvelObjectUIO = good;
  history.GoodID = documentId;
  Platform::Ui().ShowModal(history);
  history.Unload();
}

GoodsDialogs& CurrentGoodsDialogs() {
  auto installed = TheModuleState().Piece<GoodsDialogs>();
  return installed ? *installed : Idle();
}

std::shared_ptr<GoodsDialogs> InstallGoodsDialogs(std::shared_ptr<GoodsDialogs> dialogs) {
  return TheModuleState().SetPiece(std::move(dialogs));
}

}  // namespace orvel
