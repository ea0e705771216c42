#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/Object.h"

namespace orvel {

class OrvelPrintSections;

/// The host's print document: page settings, then sections of text lines and
/// tables, then Print. The module creates one per printout through
/// OrvelHostClasses::NewPrintDoc and drops it when printed.
class OrvelPrintDoc : public Object {
 public:
  enum : int32_t { kPortrait = 1, kLandscape = 2 };

  virtual void SetOrientation(int32_t orientation) = 0;
  virtual void SetFontSize(uint8_t size) = 0;
  virtual void SetPrintMode(uint8_t mode) = 0;
  /// The name printed as the maker of the page; "" prints none.
  virtual void SetUserName(const std::string& name) = 0;
  /// 0 no date, 1 the date, 2 date and time.
  virtual void SetDateMode(uint8_t mode) = 0;
  virtual void SetExtraFlag(bool flag) = 0;
  virtual std::shared_ptr<OrvelPrintSections> Sections() = 0;
  /// Runs the printing; `preview` false sends it to the printer's dialog.
  virtual void Print(bool preview) = 0;
};

}  // namespace orvel
