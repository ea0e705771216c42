#pragma once

#include "orvel/OrvelHeaderSecurity.h"

namespace orvel {

// Lists the components for which the administrator can grant rights.
class SecurityHeader : public OrvelHeaderSecurity {
 public:
  std::vector<SecurityRow> GetComponentList() override;
};

}  // namespace orvel
