#include "common/Boundary.h"

#include <new>

#include "common/Catalogue.h"
#include "common/Platform.h"
#include "orvel/RuntimeError.h"
#include "orvel/Ui.h"

namespace orvel {

namespace {
// The legacy runtime's "internal error", for failures that carry no number.
constexpr int32_t kInternalError = 51;
constexpr int32_t kOutOfMemory = 7;
}  // namespace

Failure CurrentFailure() noexcept {
  try {
    throw;
  } catch (const RuntimeError& e) {
    return {e.Number(), e.Text()};
  } catch (const std::bad_alloc&) {
    return {kOutOfMemory, "Trūksta atminties"};
  } catch (const std::exception& e) {
    return {kInternalError, e.what()};
  } catch (...) {
    return {kInternalError, "Nežinoma klaida"};
  }
}

namespace {
// The session's title; the suite's name while the host has given no session.
std::string SessionTitle() noexcept {
  try {
    if (OrvelS()) return AppTitle();
  } catch (...) {
  }
  return "Orvel Apskaita";
}
}  // namespace

void ShowFailure(const Failure& failure, const std::string& title) noexcept {
  try {
    if (!Platform::Attached()) return;
    Platform::Ui().MsgBox("Klaida!\n" + failure.text, vbCritical,
                          title.empty() ? SessionTitle() : title);
  } catch (...) {
    // Nothing more can be done: the failure was in showing a failure.
  }
}

}  // namespace orvel
