#include "qthost/QtUi.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QCursor>
#include <QDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <exception>
#include <map>
#include <vector>

#include "qthost/FormView.h"
#include "ui/Form.h"
#include "ui/Menu.h"

namespace orvel {

namespace {

QString Q(const std::string& text) { return QString::fromStdString(text); }

struct BoxButton {
  const char* caption;
  int32_t result;
  QMessageBox::ButtonRole role;
};

std::vector<BoxButton> ButtonsOf(int32_t flags) {
  switch (flags & 7) {
    case vbOKCancel:
      return {{"Gerai", vbOK, QMessageBox::AcceptRole},
              {"Atšaukti", vbCancel, QMessageBox::RejectRole}};
    case vbYesNoCancel:
      return {{"Taip", vbYes, QMessageBox::YesRole},
              {"Ne", vbNo, QMessageBox::NoRole},
              {"Atšaukti", vbCancel, QMessageBox::RejectRole}};
    case vbYesNo:
      return {{"Taip", vbYes, QMessageBox::YesRole}, {"Ne", vbNo, QMessageBox::NoRole}};
    default:
      return {{"Gerai", vbOK, QMessageBox::AcceptRole}};
  }
}

QMessageBox::Icon IconOf(int32_t flags) {
  switch (flags & 0x70) {
    case vbCritical:
      return QMessageBox::Critical;
    case vbQuestion:
      return QMessageBox::Question;
    case vbExclamation:
      return QMessageBox::Warning;
    case vbInformation:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

// The frame of a modal form. Closing it (the frame's button or Esc) asks
// the form to unload; the form decides, and the dialog ends when the form
// is hidden or unloaded, whoever did it.
class ModalFrame : public QDialog {
 public:
  ModalFrame(Form& form, QWidget* parent) : QDialog(parent), form_(form) {}

  void reject() override { AskUnload(); }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->ignore();
    AskUnload();
  }

 private:
  void AskUnload() {
    try {
      form_.Unload();
    } catch (const std::exception& e) {
      QMessageBox::critical(this, Q(form_.Caption()), QString::fromUtf8(e.what()));
    }
    if (!form_.Visible()) done(QDialog::Rejected);
  }

  Form& form_;
};

void AddEntries(QMenu& target, Menu& menu, std::map<QAction*, Menu*>& picks) {
  for (const auto& item : menu.Items()) {
    if (!item->Visible()) continue;
    if (item->IsSeparator()) {
      target.addSeparator();
      continue;
    }
    if (!item->Items().empty()) {
      QMenu* sub = target.addMenu(Q(item->Caption()));
      sub->setEnabled(item->Enabled());
      AddEntries(*sub, *item, picks);
      continue;
    }
    QAction* action = target.addAction(Q(item->Caption()));
    action->setEnabled(item->Enabled());
    if (item->Checked()) {
      action->setCheckable(true);
      action->setChecked(true);
    }
    picks[action] = item.get();
  }
}

}  // namespace

QtUi::~QtUi() {
  if (waitCursor_ && qApp) QApplication::restoreOverrideCursor();
}

int32_t QtUi::MsgBox(const std::string& prompt, int32_t flags, const std::string& title) {
  QMessageBox box(IconOf(flags), Q(title), Q(prompt), QMessageBox::NoButton, parent_);
  std::vector<std::pair<QAbstractButton*, int32_t>> buttons;
  for (const auto& b : ButtonsOf(flags)) {
    buttons.emplace_back(box.addButton(QString::fromUtf8(b.caption), b.role), b.result);
  }
  // Esc (or the frame's close button) answers as the last button: Cancel,
  // No, or the only OK.
  box.setEscapeButton(buttons.back().first);
  box.setDefaultButton(qobject_cast<QPushButton*>(buttons.front().first));
  // A box asked under the hourglass shows the arrow while it waits.
  if (waitCursor_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  box.exec();
  if (waitCursor_) QApplication::restoreOverrideCursor();
  for (const auto& [button, result] : buttons) {
    if (box.clickedButton() == button) return result;
  }
  return buttons.back().second;
}

void QtUi::SetMousePointer(int32_t pointer) {
  pointer_ = pointer;
  const bool wait = pointer == vbHourglass;
  if (wait == waitCursor_) return;
  if (wait) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
  waitCursor_ = wait;
}

void QtUi::DoEvents() { QCoreApplication::processEvents(); }

int32_t QtUi::ScreenWidth() const {
  constexpr int32_t kTwipsPerPixel = 15;
  QScreen* screen = QGuiApplication::primaryScreen();
  int pixels = screen ? screen->size().width() : 1920;
  return pixels * kTwipsPerPixel;
}

void QtUi::ShowModal(Form& form) {
  form.Show();
  // Form_Load may have unloaded it again: nothing to run.
  if (!form.Visible()) return;
  ModalFrame frame(form, parent_);
  frame.setWindowTitle(Q(form.Caption()));
  auto* layout = new QVBoxLayout(&frame);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* view = new FormView(form, &frame);
  layout->addWidget(view);
  QObject::connect(view, &FormView::formHidden, &frame,
                   [&frame] { frame.done(QDialog::Accepted); });
  frame.setWindowTitle(view->windowTitle().isEmpty() ? Q(form.Caption()) : view->windowTitle());
  // Room for the lists of a dialog, which ask little of their own.
  frame.resize(frame.sizeHint().expandedTo(QSize(620, 600)));
  if (!form.Visible()) return;
  frame.exec();
  // A dialog ended by the application quitting leaves the form open.
  if (form.Visible()) form.Unload();
}

void QtUi::PopupMenu(Menu& menu) {
  QMenu popup(parent_);
  std::map<QAction*, Menu*> picks;
  AddEntries(popup, menu, picks);
  if (picks.empty()) return;
  QAction* picked = popup.exec(QCursor::pos());
  if (!picked) return;
  auto it = picks.find(picked);
  if (it != picks.end()) it->second->Click();
}

}  // namespace orvel
