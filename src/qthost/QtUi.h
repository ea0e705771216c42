#pragma once

#include <QPointer>
#include <QWidget>

#include "refhost/HostUi.h"

namespace orvel {

// The Ui seam of the window host: message boxes and popup menus are Qt's,
// a modal form runs in a dialog of its own holding a FormView, and the
// hourglass is the application's override cursor. Boxes and dialogs are
// parented to the widget set here (the main window), or stand alone.
class QtUi : public HostUi {
 public:
  QtUi() = default;
  ~QtUi() override;

  void SetParentWidget(QWidget* parent) { parent_ = parent; }
  QWidget* ParentWidget() const { return parent_; }

  int32_t MsgBox(const std::string& prompt, int32_t flags, const std::string& title) override;
  // vbHourglass sets the wait cursor once; vbDefault restores it. Any other
  // value is kept and shows the default cursor.
  void SetMousePointer(int32_t pointer) override;
  int32_t GetMousePointer() const override { return pointer_; }
  void DoEvents() override;
  int32_t ScreenWidth() const override;
  void ShowModal(Form& form) override;
  void PopupMenu(Menu& menu) override;

 private:
  QPointer<QWidget> parent_;
  int32_t pointer_ = vbDefault;
  bool waitCursor_ = false;
};

}  // namespace orvel
