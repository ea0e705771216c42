#pragma once

#include <functional>
#include <vector>

#include "refhost/HostUi.h"

namespace orvel {

class Prompter;
class Timer;
class WindowRegistry;

// The Ui seam of the terminal host. Message boxes and popup menus become
// questions of the Prompter (buttons by their Lithuanian names, menu
// entries by caption without their access-key marks); a modal form is
// handed to the host's modal runner, which drives it until it is hidden or
// unloaded.
//
// The terminal has no clock: a timer that is due (enabled, with an
// interval) fires once when the host runs the timers, after each command
// and whenever the module lets events run, so a script sees what a window
// put off until its menu closed happen before its next line.
class TerminalUi : public HostUi {
 public:
  using ModalRunner = std::function<void(Form& form)>;

  explicit TerminalUi(Prompter& prompter) : prompter_(prompter) {}

  void SetModalRunner(ModalRunner runner) { modalRunner_ = std::move(runner); }
  // The open windows whose timers run besides those of the modal forms.
  void SetWindows(WindowRegistry* windows) { windows_ = windows; }

  // Fires each due timer once: those of the open windows, in the order they
  // were shown, then those of the modal forms being run. A timer whose own
  // event is still running is left alone. Returns how many fired.
  int RunTimers();

  int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) override;
  void SetMousePointer(int32_t pointer) override { pointer_ = pointer; }
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override { RunTimers(); }
  int32_t ScreenWidth() const override { return 1920 * 15; }
  void ShowModal(Form& form) override;
  void PopupMenu(Menu& menu) override;

 private:
  Prompter& prompter_;
  int32_t pointer_ = vbDefault;
  ModalRunner modalRunner_;
  WindowRegistry* windows_ = nullptr;
  std::vector<Form*> modal_;
  std::vector<Timer*> ticking_;
};

}  // namespace orvel
