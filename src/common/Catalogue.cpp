#include "common/Catalogue.h"

#include "host/OrvelServices.h"

namespace orvel {

namespace {
std::shared_ptr<OrvelServices>& Stored() {
  static std::shared_ptr<OrvelServices> services;
  return services;
}
}  // namespace

std::shared_ptr<OrvelServices> OrvelS() { return Stored(); }

bool SetOrvelS(const std::shared_ptr<OrvelServices>& services) {
  if (Stored()) return false;
  Stored() = services;
  return true;
}

void ResetOrvelS() { Stored().reset(); }

}  // namespace orvel
