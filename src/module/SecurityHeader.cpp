#include "module/SecurityHeader.h"

#include "common/Registration.h"

namespace orvel {

std::vector<SecurityRow> SecurityHeader::GetComponentList() {
  auto table = SecurityTable();
  return std::vector<SecurityRow>(table.begin(), table.end());
}

}  // namespace orvel
