#pragma once

#include <functional>

#include "refhost/HostUi.h"

namespace orvel {

class Prompter;

// The Ui seam of the terminal host. Message boxes and popup menus become
// questions of the Prompter (buttons by their Lithuanian names, menu
// entries by caption); a modal form is handed to the host's modal runner,
// which drives it until it is hidden or unloaded.
class TerminalUi : public HostUi {
 public:
  using ModalRunner = std::function<void(Form& form)>;

  explicit TerminalUi(Prompter& prompter) : prompter_(prompter) {}

  void SetModalRunner(ModalRunner runner) { modalRunner_ = std::move(runner); }

  int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) override;
  void SetMousePointer(int32_t pointer) override { pointer_ = pointer; }
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override {}
  int32_t ScreenWidth() const override { return 1920 * 15; }
  void ShowModal(Form& form) override;
  void PopupMenu(Menu& menu) override;

 private:
  Prompter& prompter_;
  int32_t pointer_ = vbDefault;
  ModalRunner modalRunner_;
};

}  // namespace orvel
