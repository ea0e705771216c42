#include "refhost/HostUi.h"

#include "hostkit/FieldSheet.h"
#include "refhost/HostPeriod.h"

namespace orvel {

Date HostUi::Today() const { return LocalToday(); }

std::shared_ptr<OrvelGrid> HostUi::NewOrvelGrid() {
  auto sheet = std::make_shared<FieldSheet>();
  std::erase_if(sheets_, [](const auto& weak) { return weak.expired(); });
  sheets_.push_back(sheet);
  return sheet;
}

std::shared_ptr<FieldSheet> HostUi::SheetOf(const std::shared_ptr<OrvelObjectUIO>& object) const {
  if (!object) return nullptr;
  for (auto it = sheets_.rbegin(); it != sheets_.rend(); ++it) {
    auto sheet = it->lock();
    if (sheet && sheet->ObjectUIO() == object) return sheet;
  }
  return nullptr;
}

}  // namespace orvel
