// The bindings of the module's simple controls: buttons, labels, panels, text
// boxes, check and option buttons, combos, date pickers, timers and the menus
// of the menu bar. Each mirrors its control's properties into one widget and
// raises the control's events from the user's actions on it.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTabBar>
#include <QTimer>
#include <map>
#include <optional>

#include "qthost/ControlBinding.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Frame.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/OptionButton.h"
#include "ui/Panel.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"
#include "ui/Timer.h"

namespace orvel {

namespace {

// Black (0) is the module's "no colour": the theme's text colour is kept.
void SetForeColor(QWidget* widget, QPalette::ColorRole role, int32_t color) {
  QPalette palette = widget->palette();
  palette.setColor(role, color == 0 ? QApplication::palette(widget).color(role) : ColorOf(color));
  widget->setPalette(palette);
}

class ButtonBinding : public ControlBinding {
 public:
  ButtonBinding(Button& button, BindingContext context, QWidget* parent)
      : ControlBinding(button, std::move(context)),
        button_(button),
        widget_(new QPushButton(parent)) {
    widget_->setObjectName(ToQt(button.Name()));
    widget_->setAutoDefault(false);
    RouteInput(widget_);
    QObject::connect(widget_, &QPushButton::clicked, this,
                     [this] { Guard([this] { button_.Click(); }); });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    if (!property.empty() && property != "Caption") return;
    // The module's picture buttons carry no caption: the toolkit's picture
    // for what their name says (SSCNew, SSCClose, the clearing buttons, the
    // column dialog's arrows), and the pickers beside a field the usual "…".
    const bool pictured = button_.Caption().empty();
    const QIcon picture = pictured ? PictureOf(button_.Name()) : QIcon();
    widget_->setIcon(picture);
    widget_->setText(pictured && picture.isNull() ? QString::fromUtf8("…")
                                                  : ToQt(button_.Caption()));
    const bool narrow = IsFieldButton(button_);
    widget_->setMinimumWidth(narrow ? 36 : 90);
    widget_->setMaximumWidth(narrow ? 40 : QWIDGETSIZE_MAX);
  }

  // Null for a picker.
  QIcon PictureOf(const std::string& name) const {
    const QString lower = ToQt(name).toLower();
    std::optional<QStyle::StandardPixmap> picture;
    if (lower.contains("close")) {
      picture = QStyle::SP_DialogCloseButton;
    } else if (lower.contains("clean")) {
      picture = QStyle::SP_LineEditClearButton;
    } else if (lower.contains("new")) {
      picture = QStyle::SP_FileIcon;
    } else if (lower.contains("delete")) {
      picture = QStyle::SP_TrashIcon;
    } else if (lower.contains("print")) {
      picture = QStyle::SP_FileDialogDetailedView;
    } else if (lower == "cmdup") {
      picture = QStyle::SP_ArrowUp;
    } else if (lower == "cmddown") {
      picture = QStyle::SP_ArrowDown;
    }
    return picture ? widget_->style()->standardIcon(*picture, nullptr, widget_) : QIcon();
  }
  bool Filter(QObject* watched, QEvent* event) override {
    if (watched != widget_) return false;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
      auto* mouse = static_cast<QMouseEvent*>(event);
      const int button = PlatformButton(mouse->button());
      const int shift = PlatformShift(mouse->modifiers());
      if (button == 0) return false;
      if (event->type() == QEvent::MouseButtonPress) {
        Guard([&] { button_.MouseDown(button, shift); });
      } else {
        Guard([&] { button_.MouseUp(button, shift); });
      }
    }
    return false;
  }

 private:
  Button& button_;
  QPushButton* widget_;
};

class LabelBinding : public ControlBinding {
 public:
  LabelBinding(Label& label, BindingContext context, QWidget* parent)
      : ControlBinding(label, std::move(context)), label_(label), widget_(new QLabel(parent)) {
    widget_->setObjectName(ToQt(label.Name()));
    widget_->setTextFormat(Qt::PlainText);
    widget_->setWordWrap(true);
    widget_->installEventFilter(this);
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    if (property.empty() || property == "Caption") widget_->setText(PlainCaption(label_.Caption()));
    if (property.empty() || property == "ForeColor") {
      SetForeColor(widget_, QPalette::WindowText, label_.ForeColor());
    }
  }
  bool Filter(QObject* watched, QEvent* event) override {
    if (watched == widget_ && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
      Guard([this] { label_.Click(); });
    }
    return false;
  }

 private:
  Label& label_;
  QLabel* widget_;
};

// A panel is a status text along the bottom of the window.
class PanelBinding : public ControlBinding {
 public:
  PanelBinding(Panel& panel, BindingContext context, QWidget* parent)
      : ControlBinding(panel, std::move(context)), panel_(panel), widget_(new QLabel(parent)) {
    widget_->setObjectName(ToQt(panel.Name()));
    widget_->setTextFormat(Qt::PlainText);
    widget_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    widget_->setMargin(3);
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    if (property.empty() || property == "Caption") {
      widget_->setText(PlainCaption(panel_.Caption()).trimmed());
    }
    if (property.empty() || property == "ForeColor") {
      SetForeColor(widget_, QPalette::WindowText, panel_.ForeColor());
    }
    if (property.empty() || property == "ToolTipText")
      widget_->setToolTip(ToQt(panel_.ToolTipText()));
  }

 private:
  Panel& panel_;
  QLabel* widget_;
};

// A frame: a group box titled by its caption. The view lays out what the
// frame holds inside it, so hiding or disabling the box does the same to them.
class GroupBoxBinding : public ControlBinding {
 public:
  GroupBoxBinding(Frame& frame, BindingContext context, QWidget* parent)
      : ControlBinding(frame, std::move(context)), frame_(frame), widget_(new QGroupBox(parent)) {
    widget_->setObjectName(ToQt(frame.Name()));
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    if (property.empty() || property == "Caption") {
      widget_->setTitle(PlainCaption(frame_.Caption()));
    }
  }

 private:
  Frame& frame_;
  QGroupBox* widget_;
};

// Tabs: the user's pick raises the strip's Click; what the strip selects
// (from code, or a pick the strip did not take) is shown.
class TabStripBinding : public ControlBinding {
 public:
  TabStripBinding(TabStrip& strip, BindingContext context, QWidget* parent)
      : ControlBinding(strip, std::move(context)), strip_(strip), widget_(new QTabBar(parent)) {
    widget_->setObjectName(ToQt(strip.Name()));
    widget_->setExpanding(false);
    widget_->setDrawBase(true);
    RouteInput(widget_);
    QObject::connect(widget_, &QTabBar::tabBarClicked, this, [this](int index) {
      const auto& tabs = strip_.Tabs();
      if (index < 0 || index >= static_cast<int>(tabs.size())) return;
      const std::string key = tabs[static_cast<size_t>(index)].key;
      Guard([&] { strip_.Click(key); });
      // The tab bar moves on its own after the click: show the strip's.
      QTimer::singleShot(0, widget_, [this] { Mirror("SelectedItem"); });
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    const auto& tabs = strip_.Tabs();
    if (property.empty() || property == "Tabs") {
      while (widget_->count() > 0) widget_->removeTab(0);
      for (const auto& tab : tabs) widget_->addTab(PlainCaption(tab.caption));
    }
    for (size_t i = 0; i < tabs.size(); ++i) {
      if (tabs[i].key == strip_.SelectedKey()) widget_->setCurrentIndex(static_cast<int>(i));
    }
  }

 private:
  TabStrip& strip_;
  QTabBar* widget_;
};

class TextBoxBinding : public ControlBinding {
 public:
  TextBoxBinding(TextBox& box, BindingContext context, QWidget* parent)
      : ControlBinding(box, std::move(context)), box_(box), widget_(new QLineEdit(parent)) {
    widget_->setObjectName(ToQt(box.Name()));
    RouteInput(widget_);
    QObject::connect(widget_, &QLineEdit::textEdited, this, [this](const QString& text) {
      bool taken = false;
      Guard([&] { taken = box_.Edit(FromQt(text)); });
      // A refused edit, or a handler that rewrote the text, shows the model's.
      if (!taken || ToQt(box_.Text()) != widget_->text()) Mirror("Text");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    if (property.empty() || property == "Text") {
      const QString text = ToQt(box_.Text());
      // Only a different text is set, so that the cursor stays where the user
      // is typing.
      if (widget_->text() != text) widget_->setText(text);
    }
    if (property.empty() || property == "Locked") widget_->setReadOnly(box_.Locked());
    if (property.empty() || property == "MaxLength") {
      widget_->setMaxLength(box_.MaxLength() > 0 ? box_.MaxLength() : 32767);
    }
    if (property.empty() || property == "ForeColor") {
      SetForeColor(widget_, QPalette::Text, box_.ForeColor());
    }
  }
  int KeyDown(int keyCode, int shift) override { return box_.KeyDown(keyCode, shift); }
  bool Filter(QObject* watched, QEvent* event) override {
    if (watched == widget_ && event->type() == QEvent::MouseButtonDblClick) {
      Guard([this] { box_.DblClick(); });
    }
    return false;
  }

 private:
  TextBox& box_;
  QLineEdit* widget_;
};

class CheckBoxBinding : public ControlBinding {
 public:
  CheckBoxBinding(CheckBox& box, BindingContext context, QWidget* parent)
      : ControlBinding(box, std::move(context)), box_(box), widget_(new QCheckBox(parent)) {
    widget_->setObjectName(ToQt(box.Name()));
    RouteInput(widget_);
    QObject::connect(widget_, &QCheckBox::clicked, this, [this] {
      Guard([this] { box_.Click(); });
      // The widget toggled itself; the model's value is the one shown.
      Mirror("Value");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    if (property.empty() || property == "Caption") widget_->setText(ToQt(box_.Caption()));
    if (property.empty() || property == "Value") {
      widget_->setTristate(box_.Value() == vbGrayed);
      widget_->setCheckState(box_.Value() == vbChecked  ? Qt::Checked
                             : box_.Value() == vbGrayed ? Qt::PartiallyChecked
                                                        : Qt::Unchecked);
    }
  }

 private:
  CheckBox& box_;
  QCheckBox* widget_;
};

// Options group in the model, not by their parents: Qt's own exclusivity is
// off and every option shows its control's value.
class OptionBinding : public ControlBinding {
 public:
  OptionBinding(OptionButton& option, BindingContext context, QWidget* parent)
      : ControlBinding(option, std::move(context)),
        option_(option),
        widget_(new QRadioButton(parent)) {
    widget_->setObjectName(ToQt(option.Name()));
    widget_->setAutoExclusive(false);
    RouteInput(widget_);
    QObject::connect(widget_, &QRadioButton::clicked, this, [this] {
      Guard([this] { option_.Click(); });
      Mirror("Value");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    if (property.empty() || property == "Caption") widget_->setText(ToQt(option_.Caption()));
    if (property.empty() || property == "Value") widget_->setChecked(option_.Value());
  }

 private:
  OptionButton& option_;
  QRadioButton* widget_;
};

class ComboBinding : public ControlBinding {
 public:
  ComboBinding(ComboBox& combo, BindingContext context, QWidget* parent)
      : ControlBinding(combo, std::move(context)), combo_(combo), widget_(new QComboBox(parent)) {
    widget_->setObjectName(ToQt(combo.Name()));
    widget_->setInsertPolicy(QComboBox::NoInsert);
    widget_->setMinimumContentsLength(12);
    RouteInput(widget_);
    QObject::connect(widget_, &QComboBox::activated, this, [this](int index) {
      Guard([&] { combo_.Pick(index); });
      Mirror("ListIndex");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    if (property.empty() || property == "Style") {
      const bool editable = combo_.Style() == vbComboDropdown;
      if (widget_->isEditable() != editable) {
        widget_->setEditable(editable);
        if (QLineEdit* line = widget_->lineEdit()) {
          line->setObjectName(ToQt(combo_.Name() + ".edit"));
          RouteInput(line);
          QObject::connect(line, &QLineEdit::textEdited, this, [this](const QString& text) {
            bool taken = false;
            Guard([&] { taken = combo_.Edit(FromQt(text)); });
            if (!taken) Mirror("Text");
          });
        }
      }
    }
    if (property.empty() || property == "Style" || property == "List") {
      widget_->clear();
      for (int i = 0; i < combo_.ListCount(); ++i) widget_->addItem(ToQt(combo_.List(i)));
    }
    if (property.empty() || property == "Style" || property == "List" || property == "ListIndex" ||
        property == "Text") {
      widget_->setCurrentIndex(combo_.ListIndex());
      if (QLineEdit* line = widget_->lineEdit()) {
        const QSignalBlocker blockLine(line);
        const QString text = ToQt(combo_.Text());
        if (line->text() != text) line->setText(text);
      }
    }
  }

 private:
  ComboBox& combo_;
  QComboBox* widget_;
};

// The image combo picks rows only; a text that is no row's shows greyed while
// nothing is picked.
class ImageComboBinding : public ControlBinding {
 public:
  ImageComboBinding(ImageCombo& combo, BindingContext context, QWidget* parent)
      : ControlBinding(combo, std::move(context)), combo_(combo), widget_(new QComboBox(parent)) {
    widget_->setObjectName(ToQt(combo.Name()));
    widget_->setMinimumContentsLength(12);
    RouteInput(widget_);
    QObject::connect(widget_, &QComboBox::activated, this, [this](int index) {
      Guard([&] {
        if (index >= 0 && index < combo_.ComboItems().Count()) {
          combo_.Pick(combo_.ComboItems().Item(index + 1));
        }
      });
      Mirror("SelectedItem");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker block(widget_);
    if (property.empty() || property == "ComboItems" || property == "ImageList") {
      widget_->clear();
      for (const auto& item : combo_.ComboItems()) {
        widget_->addItem(IconOf(combo_.ImageList(), item->Image()), ToQt(item->Text()));
      }
    }
    ComboItem* selected = combo_.SelectedItem();
    widget_->setCurrentIndex(selected ? selected->Index() - 1 : -1);
    widget_->setPlaceholderText(selected ? QString() : ToQt(combo_.Text()));
  }

 private:
  ImageCombo& combo_;
  QComboBox* widget_;
};

// A date picker: the date, and before it the tick box when the picker has one
// (unticked: no date, Null).
class DatePickerBinding : public ControlBinding {
 public:
  DatePickerBinding(DTPicker& picker, BindingContext context, QWidget* parent)
      : ControlBinding(picker, std::move(context)),
        picker_(picker),
        widget_(new QWidget(parent)),
        tick_(new QCheckBox(widget_)),
        date_(new QDateEdit(widget_)) {
    widget_->setObjectName(ToQt(picker.Name()));
    tick_->setObjectName(ToQt(picker.Name() + ".tick"));
    date_->setObjectName(ToQt(picker.Name() + ".date"));
    auto* layout = new QHBoxLayout(widget_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tick_);
    layout->addWidget(date_, 1);
    date_->setCalendarPopup(true);
    date_->setDisplayFormat("yyyy-MM-dd");
    widget_->setFocusProxy(date_);
    // A date is short: its row does not stretch it across the window.
    widget_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    RouteInput(widget_);
    QObject::connect(date_, &QDateEdit::dateChanged, this, [this](const QDate& date) {
      bool taken = false;
      Guard([&] { taken = picker_.Pick(Variant(FromQDate(date))); });
      if (!taken) Mirror("Value");
    });
    QObject::connect(tick_, &QCheckBox::clicked, this, [this](bool ticked) {
      Guard([&] { picker_.Pick(ticked ? Variant(FromQDate(date_->date())) : Variant::Null()); });
      Mirror("Value");
    });
  }
  QWidget* Widget() const override { return widget_; }

 protected:
  void Mirror(std::string_view property) override {
    const QSignalBlocker blockDate(date_);
    const QSignalBlocker blockTick(tick_);
    if (property.empty() || property == "MinDate") {
      if (picker_.MinDate()) date_->setMinimumDate(ToQDate(*picker_.MinDate()));
    }
    if (property.empty() || property == "CheckBox") tick_->setVisible(picker_.CheckBox());
    const Variant value = picker_.Value();
    tick_->setChecked(!value.IsNull());
    date_->setEnabled(!value.IsNull());
    if (value.Type() == VarType::Date) date_->setDate(ToQDate(value.DateValue()));
  }

 private:
  DTPicker& picker_;
  QWidget* widget_;
  QCheckBox* tick_;
  QDateEdit* date_;
};

// A timer ticks its control while enabled with an interval; it has no widget.
class TimerBinding : public ControlBinding {
 public:
  TimerBinding(Timer& timer, BindingContext context, QWidget* parent)
      : ControlBinding(timer, std::move(context)), timer_(timer), qtimer_(new QTimer(parent)) {
    qtimer_->setObjectName(ToQt(timer.Name()));
    QObject::connect(qtimer_, &QTimer::timeout, this, [this] { Guard([this] { timer_.Tick(); }); });
  }
  ~TimerBinding() override { delete qtimer_.data(); }
  QWidget* Widget() const override { return nullptr; }

 protected:
  void Mirror(std::string_view) override {
    if (!qtimer_) return;
    if (timer_.Enabled() && timer_.Interval() > 0) {
      if (qtimer_->interval() != timer_.Interval() || !qtimer_->isActive()) {
        qtimer_->start(timer_.Interval());
      }
    } else {
      qtimer_->stop();
    }
  }

 private:
  Timer& timer_;
  QPointer<QTimer> qtimer_;
};

// A top-level menu on the menu bar, with its entries (and theirs) as actions.
// An invisible top-level menu is a popup only and has no bar entry. The
// actions are rebuilt when entries are added; the old ones go once the event
// that changed them is over, since an entry's own Click may add entries.
class MenuBinding : public ControlBinding {
 public:
  MenuBinding(Menu& menu, BindingContext context, QWidget* parent, QMenuBar* bar)
      : ControlBinding(menu, std::move(context)),
        menu_(menu),
        bar_(bar),
        qmenu_(new QMenu(parent)) {
    qmenu_->setObjectName(ToQt(menu.Name()));
    if (bar_) bar_->addMenu(qmenu_);
    Rebuild();
  }
  ~MenuBinding() override { delete qmenu_.data(); }
  QWidget* Widget() const override { return nullptr; }
  QMenu* BarMenu() const { return qmenu_; }

  void ControlChanged(Control& control, std::string_view property) override {
    if (&control == &menu_ || property == "Items") {
      if (&control == &menu_) ControlBinding::ControlChanged(control, property);
      if (property == "Items") Rebuild();
      return;
    }
    auto found = actions_.find(&control);
    if (found == actions_.end() || !found->second) {
      Rebuild();
      return;
    }
    MirrorEntry(static_cast<Menu&>(control), found->second);
  }

 protected:
  void Mirror(std::string_view property) override {
    if (!qmenu_) return;
    if (property.empty() || property == "Caption") qmenu_->setTitle(ToQt(menu_.Caption()));
    if (property.empty() || property == "Enabled") qmenu_->setEnabled(menu_.Enabled());
    if (property.empty() || property == "Visible") {
      qmenu_->menuAction()->setVisible(menu_.Visible());
      if (bar_) bar_->setVisible(AnyVisible(*bar_));
    }
  }

 private:
  static bool AnyVisible(const QMenuBar& bar) {
    for (QAction* action : bar.actions()) {
      if (action->isVisible()) return true;
    }
    return false;
  }

  void Rebuild() {
    if (!qmenu_) return;
    for (QAction* old : qmenu_->actions()) {
      qmenu_->removeAction(old);
      old->deleteLater();
    }
    actions_.clear();
    AddEntries(menu_, qmenu_);
  }

  void AddEntries(const Menu& menu, QMenu* into) {
    for (const auto& entry : menu.Items()) {
      QAction* action = nullptr;
      if (entry->IsSeparator()) {
        action = into->addSeparator();
      } else if (!entry->Items().empty()) {
        auto* sub = new QMenu(into);
        action = into->addMenu(sub);
        AddEntries(*entry, sub);
      } else {
        action = into->addAction(QString());
        Menu* target = entry.get();
        QObject::connect(action, &QAction::triggered, this,
                         [this, target] { Guard([target] { target->Click(); }); });
      }
      action->setObjectName(ToQt(entry->Name()));
      actions_[entry.get()] = action;
      MirrorEntry(*entry, action);
    }
  }

  static void MirrorEntry(const Menu& entry, QAction* action) {
    if (!entry.IsSeparator()) action->setText(ToQt(entry.Caption()));
    action->setEnabled(entry.Enabled());
    action->setVisible(entry.Visible());
    action->setCheckable(entry.Checked());
    action->setChecked(entry.Checked());
  }

  Menu& menu_;
  QPointer<QMenuBar> bar_;
  QPointer<QMenu> qmenu_;
  std::map<const Control*, QPointer<QAction>> actions_;
};

}  // namespace

std::unique_ptr<ControlBinding> MakeSimpleBinding(Control& control, BindingContext context,
                                                  QWidget* parent, QMenuBar* bar) {
  std::unique_ptr<ControlBinding> binding;
  if (auto* button = dynamic_cast<Button*>(&control)) {
    binding = std::make_unique<ButtonBinding>(*button, std::move(context), parent);
  } else if (auto* label = dynamic_cast<Label*>(&control)) {
    binding = std::make_unique<LabelBinding>(*label, std::move(context), parent);
  } else if (auto* panel = dynamic_cast<Panel*>(&control)) {
    binding = std::make_unique<PanelBinding>(*panel, std::move(context), parent);
  } else if (auto* frame = dynamic_cast<Frame*>(&control)) {
    binding = std::make_unique<GroupBoxBinding>(*frame, std::move(context), parent);
  } else if (auto* strip = dynamic_cast<TabStrip*>(&control)) {
    binding = std::make_unique<TabStripBinding>(*strip, std::move(context), parent);
  } else if (auto* box = dynamic_cast<TextBox*>(&control)) {
    binding = std::make_unique<TextBoxBinding>(*box, std::move(context), parent);
  } else if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    binding = std::make_unique<CheckBoxBinding>(*check, std::move(context), parent);
  } else if (auto* option = dynamic_cast<OptionButton*>(&control)) {
    binding = std::make_unique<OptionBinding>(*option, std::move(context), parent);
  } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
    binding = std::make_unique<ComboBinding>(*combo, std::move(context), parent);
  } else if (auto* imageCombo = dynamic_cast<ImageCombo*>(&control)) {
    binding = std::make_unique<ImageComboBinding>(*imageCombo, std::move(context), parent);
  } else if (auto* picker = dynamic_cast<DTPicker*>(&control)) {
    binding = std::make_unique<DatePickerBinding>(*picker, std::move(context), parent);
  } else if (auto* timer = dynamic_cast<Timer*>(&control)) {
    binding = std::make_unique<TimerBinding>(*timer, std::move(context), parent);
  } else if (auto* menu = dynamic_cast<Menu*>(&control)) {
    binding = std::make_unique<MenuBinding>(*menu, std::move(context), parent, bar);
  }
  if (binding) binding->MirrorAll();
  return binding;
}

}  // namespace orvel
