#pragma once

#include <cstdint>

// The platform's constants that controls and their event handlers speak:
// mouse buttons, shift state, key codes, colours, and the error numbers the
// platform's controls raise.
namespace orvel {

// Mouse buttons of MouseUp/MouseDown.
enum MouseButtonConstants : int { vbLeftButton = 1, vbRightButton = 2, vbMiddleButton = 4 };

// Shift state of mouse and key events, added together.
enum ShiftConstants : int { vbShiftMask = 1, vbCtrlMask = 2, vbAltMask = 4 };

// The key codes the module tests for.
enum KeyCodeConstants : int {
  vbKeyBack = 8,
  vbKeyTab = 9,
  vbKeyReturn = 13,
  vbKeyEscape = 27,
  vbKeySpace = 32,
  vbKeyDelete = 46,
  vbKeyInsert = 45,
  vbKeyF2 = 113,
};

// Colours as the platform keeps them: 0x00BBGGRR.
enum ColorConstants : int32_t {
  vbBlack = 0x000000,
  vbRed = 0x0000FF,
  vbGreen = 0x00FF00,
  vbBlue = 0xFF0000,
  vbWhite = 0xFFFFFF,
};

// Error numbers of the platform's controls, carried by RuntimeError.
namespace control_error {
inline constexpr int32_t kInvalidPropertyValue = 380;  // "Neteisinga savybės reikšmė"
inline constexpr int32_t kInvalidArrayIndex = 381;     // "Neteisingas savybės masyvo indeksas"
inline constexpr int32_t kReadOnlyText = 383;          // "'Text' property is read-only"
inline constexpr int32_t kIndexOutOfBounds = 35600;    // "Indeksas už ribų"
inline constexpr int32_t kElementNotFound = 35601;     // "Elementas nerastas"
inline constexpr int32_t kKeyNotUnique = 35602;        // "Raktas kolekcijoje nėra unikalus"
}  // namespace control_error

}  // namespace orvel
