#pragma once

#include <memory>

namespace orvel {

class OrvelServices;

// The module-wide reference to the host's services. The first adapter that
// receives one stores it; later ones leave it as it is. Every form and routine
// reads it from here.
std::shared_ptr<OrvelServices> OrvelS();
// Stores `services` when none is stored yet; returns whether it did.
bool SetOrvelS(const std::shared_ptr<OrvelServices>& services);
// Forgets the stored reference: at module unload, and between tests.
void ResetOrvelS();

}  // namespace orvel
