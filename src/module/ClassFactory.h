#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orvel/Object.h"

namespace orvel {

// Creates the module's exported classes by name: "DLLHeader",
// "SecurityHeader", the adapter pairs ("UI0000400", "UIO0000400", ...) and
// the list window "frmReferenceBookPreview", which shows any type's table
// once its OrvelObjectUIO is set. Every reference book "UI00016nn" /
// "UIO00016nn" is the reference-book pair.
class ClassFactory {
 public:
  // A new object of the class, or null for a name the module does not export.
  static std::shared_ptr<Object> Create(std::string_view className);
  static std::vector<std::string> ClassNames();
};

}  // namespace orvel
