#pragma once

#include <gtest/gtest.h>

#include <string>

#include "testhost/ScriptedUi.h"

namespace orvel {

// Included by every test holding the in-memory host: a message box or popup
// menu the test queued no answer for, or an answer it queued and nothing
// asked, fails the running test with the box's text.
inline void FailTheRunningTest(const std::string& what) { ADD_FAILURE() << what; }

inline const bool kStrictScriptedUi = [] {
  ScriptedUi::SetComplaint(FailTheRunningTest);
  return true;
}();

}  // namespace orvel
