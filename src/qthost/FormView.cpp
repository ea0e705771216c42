#include "qthost/FormView.h"

#include <QCloseEvent>
#include <QDebug>
#include <QFormLayout>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <map>
#include <vector>

#include "hostkit/FieldSheet.h"
#include "qthost/ControlBinding.h"
#include "qthost/FieldSheetView.h"
#include "qthost/ListViewBinding.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/FormObserver.h"
#include "ui/ImageCombo.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/OrvelGrid.h"
#include "ui/Panel.h"
#include "ui/TextBox.h"

namespace orvel {

namespace {

// A control drawn as an empty sunken frame: a host's grid that is not a field
// sheet. It still shows Enabled and Visible.
class FrameBinding : public ControlBinding {
 public:
  FrameBinding(Control& control, BindingContext context, QWidget* parent)
      : ControlBinding(control, std::move(context)), frame_(new QFrame(parent)) {
    frame_->setObjectName(ToQt(control.Name()));
    frame_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  }
  QWidget* Widget() const override { return frame_; }

 protected:
  void Mirror(std::string_view) override {}

 private:
  QFrame* frame_;
};

bool TakesALabel(const Control& control) {
  return dynamic_cast<const TextBox*>(&control) || dynamic_cast<const ComboBox*>(&control) ||
         dynamic_cast<const ImageCombo*>(&control) || dynamic_cast<const DTPicker*>(&control);
}

// A label names the control after it when that is a field, a picker, or a
// label showing a value and the label's caption ends in a colon.
bool NamesTheNext(const Label& label, const Control& next) {
  if (TakesALabel(next) || IsFieldButton(next)) return true;
  if (!dynamic_cast<const Label*>(&next)) return false;
  std::string caption = label.Caption();
  while (!caption.empty() && caption.back() == ' ') caption.pop_back();
  return !caption.empty() && caption.back() == ':';
}

}  // namespace

struct FormView::State {
  class Watcher : public FormObserver {
   public:
    explicit Watcher(FormView& view) : view_(view) {}
    void FormChanged(Form&, std::string_view property) override { view_.FormChanged(property); }

   private:
    FormView& view_;
  };

  explicit State(FormView& view) : watcher(view) {}

  Watcher watcher;
  std::vector<std::unique_ptr<ControlBinding>> bindings;
  FieldSheetView* sheetView = nullptr;
  std::map<const Control*, QWidget*> widgets;
  QMenuBar* bar = nullptr;
  QLabel* failure = nullptr;
  bool hiddenSent = false;
};

FormView::FormView(Form& form, QWidget* parent)
    : QWidget(parent), form_(form), state_(std::make_unique<State>(*this)) {
  setObjectName(ToQt(form.Name()));
  Build();
  form_.SetObserver(&state_->watcher);
  setWindowTitle(ToQt(form_.Caption()));
  setEnabled(form_.Enabled());
}

FormView::~FormView() {
  form_.SetObserver(nullptr);
  state_->bindings.clear();
  delete state_->sheetView;
}

Form& FormView::ViewedForm() const { return form_; }

QWidget* FormView::WidgetOf(const Control& control) const {
  if (const auto* menu = dynamic_cast<const Menu*>(&control)) {
    // A top-level menu is its bar entry; a popup has none.
    if (!menu->Visible() || menu->Parent()) return nullptr;
    return findChild<QMenu*>(ToQt(menu->Name()), Qt::FindDirectChildrenOnly);
  }
  auto found = state_->widgets.find(&control);
  return found == state_->widgets.end() ? nullptr : found->second;
}

QWidget* FormView::WidgetNamed(std::string_view name) const {
  Control* control = form_.FindControl(name);
  return control ? WidgetOf(*control) : nullptr;
}

void FormView::Build() {
  State& s = *state_;
  auto* outer = new QVBoxLayout(this);
  outer->setContentsMargins(10, 8, 10, 8);
  outer->setSpacing(8);

  const auto& controls = form_.Controls();
  for (Control* control : controls) {
    if (dynamic_cast<Menu*>(control)) {
      s.bar = new QMenuBar(this);
      outer->setMenuBar(s.bar);
      break;
    }
  }

  BindingContext context;
  context.form = &form_;
  context.showFailure = [this](const std::string& text) { ShowFailure(ToQt(text)); };
  context.widgetOf = [this](const Control* control) {
    return control ? WidgetOf(*control) : nullptr;
  };

  // One binding (or sheet view) a control, in registration order.
  for (Control* control : controls) {
    QWidget* widget = nullptr;
    if (auto* sheet = dynamic_cast<FieldSheet*>(control)) {
      s.sheetView = new FieldSheetView(*sheet, context, this);
      widget = s.sheetView;
    } else if (dynamic_cast<OrvelGrid*>(control)) {
      auto binding = std::make_unique<FrameBinding>(*control, context, this);
      binding->MirrorAll();
      widget = binding->Widget();
      s.bindings.push_back(std::move(binding));
    } else if (auto* list = dynamic_cast<ListView*>(control)) {
      auto binding = std::make_unique<ListViewBinding>(*list, context, this);
      binding->MirrorAll();
      widget = binding->Widget();
      s.bindings.push_back(std::move(binding));
    } else if (auto binding = MakeSimpleBinding(*control, context, this, s.bar)) {
      widget = binding->Widget();
      s.bindings.push_back(std::move(binding));
    }
    if (widget) s.widgets[control] = widget;
  }

  // The layout by kind, of the form's own controls and, inside each frame's
  // box, of what the frame holds.
  std::vector<QWidget*> buttons;
  std::vector<QWidget*> panels;
  bool stretched = false;
  std::function<void(QVBoxLayout*, Control*)> layOut = [&](QVBoxLayout* target, Control* frame) {
    std::vector<Control*> members;
    for (Control* control : controls) {
      if (control->Container() == frame) members.push_back(control);
    }
    QFormLayout* rows = nullptr;
    auto addRows = [&] {
      if (rows) return rows;
      rows = new QFormLayout();
      rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
      rows->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
      rows->setHorizontalSpacing(10);
      target->addLayout(rows);
      return rows;
    };
    // A field and the field buttons registered right after it (its picker,
    // its clearing button) share a row.
    auto fieldGroup = [&](size_t& i) -> QLayout* {
      auto* group = new QHBoxLayout();
      group->setSpacing(4);
      const bool buttonsOnly = IsFieldButton(*members[i]);
      group->addWidget(WidgetOf(*members[i]), buttonsOnly ? 0 : 1);
      while (i + 1 < members.size() && IsFieldButton(*members[i + 1]) &&
             WidgetOf(*members[i + 1])) {
        group->addWidget(WidgetOf(*members[++i]));
      }
      if (buttonsOnly) group->addStretch(1);
      return group;
    };
    std::vector<QWidget*> frameButtons;
    for (size_t i = 0; i < members.size(); ++i) {
      Control* control = members[i];
      QWidget* widget = WidgetOf(*control);
      if (!widget || dynamic_cast<Menu*>(control)) continue;
      auto* label = dynamic_cast<Label*>(control);
      if (label && i + 1 < members.size() && WidgetOf(*members[i + 1]) &&
          NamesTheNext(*label, *members[i + 1])) {
        auto* caption = static_cast<QLabel*>(widget);
        caption->setBuddy(WidgetOf(*members[++i]));
        caption->setWordWrap(false);
        addRows()->addRow(caption, fieldGroup(i));
      } else if (TakesALabel(*control)) {
        addRows()->addRow(fieldGroup(i));
      } else if (dynamic_cast<Button*>(control)) {
        (frame ? frameButtons : buttons).push_back(widget);
      } else if (dynamic_cast<Panel*>(control) && !frame) {
        panels.push_back(widget);
      } else if (dynamic_cast<Frame*>(control)) {
        auto* inside = new QVBoxLayout(widget);
        inside->setContentsMargins(8, 6, 8, 6);
        layOut(inside, control);
        target->addWidget(widget);
        rows = nullptr;
      } else if (dynamic_cast<ListView*>(control) || dynamic_cast<OrvelGrid*>(control)) {
        target->addWidget(widget, 1);
        rows = nullptr;
        stretched = true;
      } else {
        addRows()->addRow(widget);
      }
    }
    if (!frameButtons.empty()) {
      auto* row = new QHBoxLayout();
      row->addStretch(1);
      for (QWidget* button : frameButtons) row->addWidget(button);
      target->addLayout(row);
    }
  };
  layOut(outer, nullptr);
  if (!stretched) outer->addStretch(1);

  s.failure = new QLabel(this);
  s.failure->setObjectName("failure");
  s.failure->setTextFormat(Qt::PlainText);
  s.failure->setWordWrap(true);
  QPalette palette = s.failure->palette();
  palette.setColor(QPalette::WindowText, QColor(0xC0, 0, 0));
  s.failure->setPalette(palette);
  s.failure->hide();
  outer->addWidget(s.failure);

  if (!buttons.empty()) {
    auto* row = new QHBoxLayout();
    row->addStretch(1);
    for (QWidget* button : buttons) row->addWidget(button);
    outer->addLayout(row);
  }
  if (!panels.empty()) {
    auto* row = new QHBoxLayout();
    row->setSpacing(2);
    for (QWidget* panel : panels) row->addWidget(panel, 1);
    outer->addLayout(row);
  }

  setMinimumSize(stretched ? QSize(560, 380) : QSize(380, 150));
  const QSize hint = sizeHint();
  resize(std::max(hint.width(), stretched ? 760 : 440),
         std::max(hint.height(), stretched ? 520 : 0));
}

void FormView::FormChanged(std::string_view property) {
  if (property == "Caption") {
    setWindowTitle(ToQt(form_.Caption()));
  } else if (property == "Enabled") {
    setEnabled(form_.Enabled());
  } else if (property == "Visible" || property == "Loaded") {
    const bool on = property == "Visible" ? form_.Visible() : form_.Loaded();
    if (on) {
      state_->hiddenSent = false;
    } else if (!state_->hiddenSent) {
      state_->hiddenSent = true;
      emit formHidden();
    }
  }
}

void FormView::closeEvent(QCloseEvent* event) {
  bool unloaded = true;
  try {
    unloaded = form_.Unload();
  } catch (const std::exception& e) {
    ShowFailure(ToQt(e.what()));
    unloaded = false;
  } catch (...) {
    ShowFailure("Nežinoma klaida");
    unloaded = false;
  }
  if (unloaded) {
    event->accept();
  } else {
    event->ignore();
  }
}

void FormView::ShowFailure(const QString& text) {
  qWarning().noquote() << windowTitle() << ":" << text;
  if (!state_->failure) return;
  state_->failure->setText(text);
  state_->failure->setVisible(!text.isEmpty());
}

}  // namespace orvel
