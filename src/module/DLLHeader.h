#pragma once

#include "orvel/OrvelHeader.h"

namespace orvel {

// The module's header. DllInicialize registers, in this order, the catalogue
// group with its right components, the object types and the icons, through a
// registration object the host lends for the call. Nothing is kept afterwards.
class DLLHeader : public OrvelHeader {
 public:
  OrvelStatus DllInicialize() override;

 private:
  static void Register();
};

}  // namespace orvel
