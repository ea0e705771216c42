#include "common/Boundary.h"

#include <new>

#include "common/Platform.h"
#include "host/RuntimeError.h"
#include "ui/Ui.h"

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
    return {kOutOfMemory, "Out of memory"};
  } catch (const std::exception& e) {
    return {kInternalError, e.what()};
  } catch (...) {
    return {kInternalError, "Unknown failure"};
  }
}

void ShowFailure(const Failure& failure) noexcept {
  try {
    if (!Platform::Attached()) return;
    Platform::Ui().MsgBox("Klaida!\n" + failure.text, vbCritical, "Orvel Apskaita");
  } catch (...) {
    // Nothing more can be done: the failure was in showing a failure.
  }
}

}  // namespace orvel
