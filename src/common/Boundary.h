#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "orvel/OrvelResult.h"
#include "orvel/OrvelStatus.h"

// Where control goes back to the host, a run-time failure inside the module
// (a RuntimeError, or anything else thrown) must not cross: it becomes a
// non-zero Number with a clear text. Operations whose result carries no
// Number show the failure to the user instead, the way a failed service call
// is shown: "Klaida!", a line break and the text, with the stop icon.
namespace orvel {

// The number and text of the exception being handled.
struct Failure {
  int32_t number;
  std::string text;
};
Failure CurrentFailure() noexcept;

// Shows "Klaida!\n<text>" with the stop icon when the host lent a Ui. An
// empty title is the session's AppTitle.
void ShowFailure(const Failure& failure, const std::string& title = {}) noexcept;

template <class F>
OrvelStatus GuardedStatus(F&& body) noexcept {
  try {
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      return {};
    } else {
      return body();
    }
  } catch (...) {
    auto f = CurrentFailure();
    return OrvelStatus{f.number, f.text};
  }
}

template <class F>
OrvelResult GuardedResult(F&& body) noexcept {
  try {
    return body();
  } catch (...) {
    auto f = CurrentFailure();
    return OrvelResult{f.number, f.text, {}};
  }
}

// For results without a Number: the failure is shown under `title`, and
// `onFailure` returned.
template <class F, class R>
R Guarded(F&& body, R onFailure, const std::string& title = {}) noexcept {
  try {
    return body();
  } catch (...) {
    ShowFailure(CurrentFailure(), title);
    return onFailure;
  }
}

// For an event handler: a failure is shown and goes no further.
template <class F>
void Handle(F&& body) noexcept {
  Guarded([&] { return body(), true; }, false);
}
// The same under the window's own title (read when the failure is shown).
template <class F>
void Handle(const std::string& title, F&& body) noexcept {
  Guarded([&] { return body(), true; }, false, title);
}

}  // namespace orvel
