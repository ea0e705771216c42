#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "orvel/Locale.h"
#include "orvel/Variant.h"

namespace orvel {

class Form;
class Menu;
class OrvelGrid;

/// Buttons and icon of a message box, as the module writes them: numbers
/// added together (49 = OK and Cancel with the exclamation icon).
enum MsgBoxStyle : int32_t {
  vbOKOnly = 0,
  vbOKCancel = 1,
  vbYesNoCancel = 3,
  vbYesNo = 4,
  vbCritical = 16,  ///< the stop icon
  vbQuestion = 32,
  vbExclamation = 48,
  vbInformation = 64,
};

/// The button a message box was closed with.
enum MsgBoxResult : int32_t { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

/// The mouse pointers the module sets.
enum MousePointer : int32_t { vbDefault = 0, vbHourglass = 11 };

/// Everything a window of the module asks of the platform. The host supplies
/// one (Qt in the reference host, a scripted one in tests); the module never
/// talks to a toolkit itself. The locale in force is the Ui's.
class Ui : public LocaleSource {
 public:
  /// Shows a box and returns the button pressed.
  virtual int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) = 0;
  virtual void SetMousePointer(int32_t pointer) = 0;
  virtual int32_t GetMousePointer() const = 0;
  /// Lets pending events run (a repaint, a queued click).
  virtual void DoEvents() = 0;
  /// The screen's width in twips (1/1440 inch), as windows place themselves.
  virtual int32_t ScreenWidth() const = 0;
  virtual orvel::Date Today() const = 0;
  /// Loads and shows the form modally; returns once it is hidden or unloaded.
  virtual void ShowModal(Form& form) = 0;
  /// Pops up the menu's visible entries; the user's pick raises that entry's
  /// Click before this returns. No pick, no Click.
  virtual void PopupMenu(Menu& menu) = 0;
  /// The host's field-sheet control for a new form.
  virtual std::shared_ptr<OrvelGrid> NewOrvelGrid() = 0;
};

}  // namespace orvel
