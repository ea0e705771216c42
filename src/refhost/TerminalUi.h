#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "host/Locale.h"
#include "ui/Ui.h"

namespace orvel {

class FieldSheet;
class OrvelObjectUIO;
class Prompter;

// The Ui seam of the terminal host. Message boxes and popup menus become
// questions of the Prompter (buttons by their Lithuanian names, menu
// entries by caption); a modal form is handed to the host's modal runner,
// which drives it until it is hidden or unloaded; the field sheet is the
// host kit's FieldSheet. The locale is Lithuanian.
class TerminalUi : public Ui {
 public:
  using ModalRunner = std::function<void(Form& form)>;

  explicit TerminalUi(Prompter& prompter) : prompter_(prompter) {}

  void SetModalRunner(ModalRunner runner) { modalRunner_ = std::move(runner); }

  const Locale& CurrentLocale() const override { return locale_; }
  int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) override;
  void SetMousePointer(int32_t pointer) override { pointer_ = pointer; }
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override {}
  int32_t ScreenWidth() const override { return 1920 * 15; }
  Date Today() const override;
  void ShowModal(Form& form) override;
  void PopupMenu(Menu& menu) override;
  std::shared_ptr<OrvelGrid> NewOrvelGrid() override;

  // The field sheet that shows `object`; null when none does.
  std::shared_ptr<FieldSheet> SheetOf(const std::shared_ptr<OrvelObjectUIO>& object) const;

 private:
  Prompter& prompter_;
  Locale locale_ = Locale::Lithuanian();
  int32_t pointer_ = vbDefault;
  ModalRunner modalRunner_;
  std::vector<std::weak_ptr<FieldSheet>> sheets_;
};

}  // namespace orvel
