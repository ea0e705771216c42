#include "qthost/ControlBinding.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPixmap>
#include <QTimer>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <vector>

#include "orvel/Picture.h"
#include "hostkit/ComponentRegistry.h"
#include "ui/Button.h"
#include "ui/Control.h"
#include "ui/Form.h"

namespace orvel {

ControlBinding::ControlBinding(Control& control, BindingContext context)
    : control_(control), context_(std::move(context)) {
  control_.SetObserver(this);
}

ControlBinding::~ControlBinding() {
  if (!forgotten_ && control_.Observer() == this) control_.SetObserver(nullptr);
}

void ControlBinding::MirrorAll() { ControlChanged(control_, ""); }

void ControlBinding::ControlChanged(Control& control, std::string_view property) {
  (void)control;
  if (forgotten_) return;
  QWidget* widget = Widget();
  if (widget && (property.empty() || property == "Enabled")) widget->setEnabled(control_.Enabled());
  if (widget && !widget->isWindow() && (property.empty() || property == "Visible")) {
    // Only a change is passed on: showing a child of a window not shown yet
    // merely clears its hidden mark.
    if (widget->isHidden() == control_.Visible()) widget->setVisible(control_.Visible());
  }
  Mirror(property);
}

void ControlBinding::Fail(const std::string& text) {
  if (context_.showFailure) context_.showFailure(text);
}

void ControlBinding::RouteInput(QWidget* widget) {
  if (!widget) return;
  widget->installEventFilter(this);
  for (QWidget* child : widget->findChildren<QWidget*>()) child->installEventFilter(this);
}

bool ControlBinding::TakeFocus() {
  Form* form = context_.form;
  Control* wanted = focusControl_ ? focusControl_ : &control_;
  if (!form || forgotten_ || form->ActiveControl() == wanted) return true;
  bool moved = false;
  Guard([&] { moved = form->SetFocus(*wanted); });
  if (moved) return true;
  // Validate kept the focus where it was: the Qt focus goes back there.
  if (Control* active = form->ActiveControl(); active && context_.widgetOf) {
    if (QWidget* back = context_.widgetOf(active)) back->setFocus(Qt::OtherFocusReason);
  }
  return false;
}

bool ControlBinding::RouteKey(QObject* watched, QKeyEvent* event) {
  if (resending_ || forgotten_) return false;
  const int code = PlatformKeyCode(*event);
  // Tab moves the focus; the control sees no key of it.
  const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
  if (code != 0 && !tab) {
    int left = code;
    Guard([&] { left = KeyDown(code, PlatformShift(event->modifiers())); });
    if (left == 0) return true;
  }
  const QString text = event->text();
  Form* form = context_.form;
  if (!form || text.isEmpty() || tab) return false;
  if (!TakeFocus()) return true;
  const QList<uint> points = text.toUcs4();
  if (points.isEmpty()) return false;
  const int typed = static_cast<int>(points.front());
  int left = typed;
  Guard([&] { left = form->TypeKey(typed); });
  if (left == typed) return false;
  if (left <= 0 || left > 0x10FFFF) return true;  // swallowed (or nothing typable)
  // The handler typed another character: that one goes to the widget instead.
  const char32_t replacement = static_cast<char32_t>(left);
  QKeyEvent replaced(QEvent::KeyPress, 0, event->modifiers(), QString::fromUcs4(&replacement, 1));
  resending_ = true;
  QCoreApplication::sendEvent(watched, &replaced);
  resending_ = false;
  return true;
}

bool ControlBinding::eventFilter(QObject* watched, QEvent* event) {
  if (forgotten_) return false;
  switch (event->type()) {
    case QEvent::FocusIn:
      if (!TakeFocus()) {
        // A click gives the focus before its press arrives: that press is
        // then dropped without asking Validate again. The mark lasts only
        // while this event is being dispatched.
        focusRefused_ = true;
        QTimer::singleShot(0, this, [this] { focusRefused_ = false; });
      }
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      if (watched->isWidgetType() && static_cast<QWidget*>(watched)->focusPolicy() != Qt::NoFocus &&
          (focusRefused_ || !TakeFocus())) {
        focusRefused_ = false;
        // The press never happened for the control, nor does its release.
        pressEaten_ = true;
        return true;
      }
      break;
    case QEvent::MouseButtonRelease:
      if (pressEaten_) {
        pressEaten_ = false;
        return true;
      }
      break;
    case QEvent::KeyPress:
      if (RouteKey(watched, static_cast<QKeyEvent*>(event))) return true;
      break;
    default:
      break;
  }
  return Filter(watched, event);
}

int PlatformKeyCode(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;  // the same codes, 65..90
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;  // 48..57
  if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return 112 + (key - Qt::Key_F1);
  switch (key) {
    case Qt::Key_Backspace:
      return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return 13;
    case Qt::Key_Shift:
      return 16;
    case Qt::Key_Control:
      return 17;
    case Qt::Key_Alt:
      return 18;
    case Qt::Key_Escape:
      return 27;
    case Qt::Key_Space:
      return 32;
    case Qt::Key_PageUp:
      return 33;
    case Qt::Key_PageDown:
      return 34;
    case Qt::Key_End:
      return 35;
    case Qt::Key_Home:
      return 36;
    case Qt::Key_Left:
      return 37;
    case Qt::Key_Up:
      return 38;
    case Qt::Key_Right:
      return 39;
    case Qt::Key_Down:
      return 40;
    case Qt::Key_Insert:
      return 45;
    case Qt::Key_Delete:
      return 46;
    default:
      return 0;
  }
}

int PlatformShift(Qt::KeyboardModifiers modifiers) {
  int shift = 0;
  if (modifiers & Qt::ShiftModifier) shift |= 1;
  if (modifiers & Qt::ControlModifier) shift |= 2;
  if (modifiers & Qt::AltModifier) shift |= 4;
  return shift;
}

int PlatformButton(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return 1;
    case Qt::RightButton:
      return 2;
    case Qt::MiddleButton:
      return 4;
    default:
      return 0;
  }
}

bool IsFieldButton(const Control& control) {
  auto* button = dynamic_cast<const Button*>(&control);
  if (!button) return false;
  const std::string& caption = button->Caption();
  return caption.empty() || caption == "..." || caption == "…";
}

QColor ColorOf(int32_t color) {
  const auto bgr = static_cast<uint32_t>(color);
  return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                static_cast<int>((bgr >> 16) & 0xFF));
}

QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string FromQt(const QString& text) { return text.toUtf8().toStdString(); }

QString PlainCaption(const std::string& caption) {
  QString shown;
  const QString text = ToQt(caption);
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size()) ++i;
    shown += text[i];
  }
  return shown;
}

namespace {
// The four numbers that open an XPM (width, height, colours, characters a
// pixel); false when they are not there or do not fit an int.
bool ReadXpmHeader(const std::string& header, std::initializer_list<int*> numbers) {
  const char* at = header.data();
  const char* end = at + header.size();
  for (int* number : numbers) {
    while (at < end && *at == ' ') ++at;
    auto [next, error] = std::from_chars(at, end, *number);
    if (error != std::errc()) return false;
    at = next;
  }
  return true;
}
}  // namespace

QIcon IconOf(const std::shared_ptr<Object>& images, const std::string& key) {
  if (key.empty()) return {};
  auto* catalogue = dynamic_cast<const RegisteredCatalogue*>(images.get());
  if (!catalogue) return {};
  std::shared_ptr<Picture> picture = catalogue->ObjectIcon(key);
  if (!picture || picture->Xpm().empty()) return {};
  // The XPM reader trusts the header's counts: a picture with fewer rows than
  // it promises is not handed to it.
  int width = 0, height = 0, colours = 0, perPixel = 0;
  if (!ReadXpmHeader(picture->Xpm().front(), {&width, &height, &colours, &perPixel}) ||
      width <= 0 || height <= 0 || colours <= 0 || perPixel <= 0 ||
      picture->Xpm().size() < 1 + static_cast<size_t>(colours) + static_cast<size_t>(height)) {
    return {};
  }
  for (size_t i = 1 + static_cast<size_t>(colours); i < picture->Xpm().size(); ++i) {
    if (picture->Xpm()[i].size() < static_cast<size_t>(width) * static_cast<size_t>(perPixel)) {
      return {};
    }
  }
  std::vector<const char*> rows;
  rows.reserve(picture->Xpm().size());
  for (const std::string& row : picture->Xpm()) rows.push_back(row.c_str());
  // A malformed picture loads as a null pixmap, which draws nothing.
  QPixmap pixmap(rows.data());
  if (pixmap.isNull()) return {};
  return QIcon(pixmap);
}

QDate ToQDate(orvel::Date date) {
  return QDate(1899, 12, 30).addDays(static_cast<qint64>(std::floor(date.serial)));
}

orvel::Date FromQDate(const QDate& date) {
  return orvel::Date{static_cast<double>(QDate(1899, 12, 30).daysTo(date))};
}

}  // namespace orvel
