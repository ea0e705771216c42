#include "goods/GoodsDialogs.h"

#include <utility>

#include "common/Platform.h"
#include "goods/frmGoodsHistory.h"
#include "ui/Ui.h"

namespace orvel {

namespace {

GoodsDialogs& Idle() {
  static GoodsDialogs idle;
  return idle;
}

std::shared_ptr<GoodsDialogs>& Installed() {
  static std::shared_ptr<GoodsDialogs> installed;
  return installed;
}

}  // namespace

GoodsDialogs::~GoodsDialogs() = default;

bool GoodsDialogs::EditListSettings(std::string&) { return false; }

void GoodsDialogs::ChangePrices(const std::shared_ptr<OrvelObjectUIO>&) {}

void GoodsDialogs::AddGuarantee(const std::shared_ptr<OrvelObjectUIO>&) {}

bool GoodsDialogs::EditGoodProperty(const std::shared_ptr<OrvelObjectUIO>&, const std::string&,
                                    const std::string&) {
  return false;
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
  auto& installed = Installed();
  return installed ? *installed : Idle();
}

std::shared_ptr<GoodsDialogs> InstallGoodsDialogs(std::shared_ptr<GoodsDialogs> dialogs) {
  return std::exchange(Installed(), std::move(dialogs));
}

}  // namespace orvel
