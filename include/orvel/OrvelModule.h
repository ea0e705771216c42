#pragma once

#include <memory>
#include <string>

#include "orvel/Object.h"
#include "orvel/Version.h"

namespace orvel {

class OrvelHostClasses;
class Ui;

/// The module as a loaded library offers it to its host: the one object that
/// the C entry point hands out. A host loads the library, gets this object,
/// lends it its classes and Ui, then creates the exported classes by name,
/// starting with "DLLHeader" and "SecurityHeader".
class OrvelModule {
 public:
  /// The version of this interface, from the project's major and minor
  /// version: the entry point refuses a host built for another.
  static constexpr int kAbiVersion = ORVEL_VERSION_MAJOR * 1000 + ORVEL_VERSION_MINOR;

  virtual ~OrvelModule() = default;
  /// What the host lends the module until Detach: its creatable classes and the
  /// Ui seam (whose locale becomes the one in force).
  virtual void Attach(std::shared_ptr<OrvelHostClasses> classes, std::shared_ptr<Ui> ui) = 0;
  /// A new object of an exported class, or null for an unknown name.
  virtual std::shared_ptr<Object> CreateObject(const std::string& className) = 0;
  /// Releases the module-wide services reference and what the host lent.
  virtual void Detach() = 0;
};

}  // namespace orvel

/// The name of the C entry point, for dlsym.
#define ORVEL_MODULE_ENTRY_POINT "OrvelCommonUI_Module"
/// The name of the module's version ("1.0.0"), for dlsym: what a host names
/// when the entry point refuses it.
#define ORVEL_MODULE_VERSION_POINT "OrvelCommonUI_Version"

/// The entry point: the module object for a host built against kAbiVersion,
/// or null for another version. The object lives as long as the library.
extern "C" orvel::OrvelModule* OrvelCommonUI_Module(int abiVersion);

/// The version the library was built as, "major.minor.patch".
extern "C" const char* OrvelCommonUI_Version();
