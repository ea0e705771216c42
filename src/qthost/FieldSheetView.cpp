#include "qthost/FieldSheetView.h"

#include <QHeaderView>
#include <QLabel>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>
#include <vector>

#include "hostkit/FieldSheet.h"
#include "hostkit/TextDragData.h"
#include "qthost/ListViewBinding.h"

namespace orvel {

namespace {
constexpr int kTwipsPerPixel = 15;
constexpr int kNameRole = Qt::UserRole + 1;
}  // namespace

// The sheet's own binding: its observer, its Enabled and Visible, and the
// form's focus for the field table.
class FieldSheetView::Binding : public ControlBinding {
 public:
  Binding(FieldSheetView& view, FieldSheet& sheet, BindingContext context)
      : ControlBinding(sheet, std::move(context)), view_(view) {}
  QWidget* Widget() const override { return &view_; }
  void Route(QWidget* widget) { RouteInput(widget); }
  using ControlBinding::Guard;

 protected:
  void Mirror(std::string_view property) override {
    if (property.empty() || property == "Tabs") view_.MirrorTabs();
    if (property.empty() || property == "Fields" || property == "ObjectUIO" || property == "Tabs") {
      view_.MirrorFields();
    }
  }

 private:
  FieldSheetView& view_;
};

struct FieldSheetView::State {
  State(FieldSheet& fieldSheet, BindingContext bindingContext)
      : sheet(fieldSheet), context(std::move(bindingContext)) {}

  FieldSheet& sheet;
  BindingContext context;
  std::unique_ptr<Binding> binding;
  QTableWidget* table = nullptr;
  QLabel* error = nullptr;
  QTabWidget* tabs = nullptr;
  std::vector<std::unique_ptr<ListViewBinding>> lists;
  std::vector<std::string> shownFields;  // the names of the table's rows
  int editing = 0;
  bool fieldsPending = false;
};

FieldSheetView::FieldSheetView(FieldSheet& sheet, BindingContext context, QWidget* parent)
    : QWidget(parent), state_(std::make_unique<State>(sheet, context)) {
  setObjectName(ToQt(sheet.Name()));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(4);

  auto* table = new QTableWidget(0, 2, this);
  table->setObjectName(ToQt(sheet.Name() + ".fields"));
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->horizontalHeader()->setStretchLastSection(true);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed | QAbstractItemView::SelectedClicked);
  table->setAlternatingRowColors(true);
  // The table is as high as its fields; the lists take the rest.
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  state_->table = table;

  auto* error = new QLabel(this);
  error->setObjectName(ToQt(sheet.Name() + ".error"));
  error->setTextFormat(Qt::PlainText);
  error->setWordWrap(true);
  QPalette palette = error->palette();
  palette.setColor(QPalette::WindowText, QColor(0xC0, 0, 0));
  error->setPalette(palette);
  error->hide();
  state_->error = error;

  auto* tabs = new QTabWidget(this);
  tabs->setObjectName(ToQt(sheet.Name() + ".tabs"));
  tabs->setDocumentMode(true);
  state_->tabs = tabs;

  // The fields and the lists share the height; the user may move the border.
  auto* splitter = new QSplitter(Qt::Vertical, this);
  auto* top = new QWidget(splitter);
  auto* topLayout = new QVBoxLayout(top);
  topLayout->setContentsMargins(0, 0, 0, 0);
  topLayout->addWidget(table, 1);
  topLayout->addWidget(error);
  table->setParent(top);
  error->setParent(top);
  splitter->addWidget(top);
  splitter->addWidget(tabs);
  splitter->setChildrenCollapsible(false);
  splitter->setStretchFactor(0, 0);
  splitter->setStretchFactor(1, 1);
  layout->addWidget(splitter, 1);

  state_->binding = std::make_unique<Binding>(*this, sheet, std::move(context));
  state_->binding->Route(table);
  QObject::connect(table, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
    if (item->column() == 1) FieldEdited(item->row());
  });
  state_->binding->MirrorAll();
}

FieldSheetView::~FieldSheetView() {
  // The tab lists let go of their controls before the sheet's binding does.
  state_->lists.clear();
  state_->binding.reset();
}

FieldSheet& FieldSheetView::Sheet() const { return state_->sheet; }
QTableWidget* FieldSheetView::FieldTable() const { return state_->table; }
QTabWidget* FieldSheetView::TabWidget() const { return state_->tabs; }
QLabel* FieldSheetView::ErrorLine() const { return state_->error; }

QTreeWidget* FieldSheetView::TabTree(const std::string& key) const {
  const auto& tabs = state_->sheet.Tabs();
  for (const auto& binding : state_->lists) {
    for (const auto& tab : tabs) {
      if (tab.key == key && &tab.list == &binding->List()) return binding->Tree();
    }
  }
  return nullptr;
}

void FieldSheetView::MirrorFields() {
  State& s = *state_;
  if (s.editing > 0) {
    // An edit is being committed by the table: the table is refreshed once
    // that is over.
    s.fieldsPending = true;
    return;
  }
  std::vector<std::string> names;
  for (const auto& field : s.sheet.Fields()) {
    if (field.visible) names.push_back(field.name);
  }
  const QSignalBlocker block(s.table);
  if (names != s.shownFields) {
    s.table->setRowCount(0);
    s.table->setRowCount(static_cast<int>(names.size()));
    int row = 0;
    for (const auto& field : s.sheet.Fields()) {
      if (!field.visible) continue;
      auto* caption = new QTableWidgetItem(ToQt(field.caption));
      caption->setFlags(Qt::ItemIsEnabled);
      QFont font = caption->font();
      font.setBold(true);
      caption->setFont(font);
      s.table->setItem(row, 0, caption);
      auto* value = new QTableWidgetItem();
      value->setData(kNameRole, ToQt(field.name));
      value->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
      s.table->setItem(row, 1, value);
      ++row;
    }
    s.shownFields = names;
    if (!names.empty()) s.table->setCurrentCell(0, 1, QItemSelectionModel::NoUpdate);
  }
  for (int row = 0; row < s.table->rowCount(); ++row) {
    QTableWidgetItem* value = s.table->item(row, 1);
    const QString text = ToQt(s.sheet.Text(s.shownFields[static_cast<size_t>(row)]));
    if (value->text() != text) value->setText(text);
  }
  const int labelWidth = s.sheet.LabelWidth() / kTwipsPerPixel;
  s.table->setColumnWidth(0, labelWidth > 0 ? labelWidth : 180);
  s.table->resizeRowsToContents();
  // A sheet that could not be built says why.
  if (names.empty() && !s.sheet.LastError().empty()) ShowError(ToQt(s.sheet.LastError()));
}

void FieldSheetView::MirrorTabs() {
  State& s = *state_;
  const auto& tabs = s.sheet.Tabs();
  // The lists still in the sheet are let go of; those gone with ClearTabs
  // are not touched. Old bindings and widgets go once the event that changed
  // the tabs is over, since it may be one of theirs.
  for (auto& binding : s.lists) {
    bool alive = false;
    for (const auto& tab : tabs) alive = alive || &tab.list == &binding->List();
    if (alive && binding->List().Observer() == binding.get()) binding->List().SetObserver(nullptr);
    binding->Forget();
    if (QWidget* tree = binding->Tree()) tree->deleteLater();
    ListViewBinding* retired = binding.release();
    retired->setParent(this);
    retired->deleteLater();
  }
  s.lists.clear();
  {
    const QSignalBlocker block(s.tabs);
    while (s.tabs->count() > 0) s.tabs->removeTab(0);
  }
  int index = 0;
  for (auto& tab : s.sheet.Tabs()) {
    ListViewBinding::Events events;
    const std::string key = tab.key;
    events.mouseUp = [this, key, index](int button, int shift) {
      state_->sheet.ListMouseUp(key, index, button, shift);
    };
    events.doubleClick = [this, index] { state_->sheet.ListDoubleClick(index); };
    events.dragOver = [this](const std::string& text, int effect) {
      return state_->sheet.ListDragOver(std::make_shared<TextDragData>(text), effect);
    };
    events.drop = [this](const std::string& text) {
      state_->sheet.ListDragDrop(std::make_shared<TextDragData>(text));
    };
    auto binding =
        std::make_unique<ListViewBinding>(tab.list, s.context, s.tabs, std::move(events));
    binding->SetFocusControl(&s.sheet);
    binding->MirrorAll();
    s.tabs->addTab(binding->Tree(), ToQt(tab.caption));
    s.lists.push_back(std::move(binding));
    ++index;
  }
  s.tabs->setVisible(!s.sheet.Tabs().empty());
}

void FieldSheetView::FieldEdited(int row) {
  State& s = *state_;
  QTableWidgetItem* value = s.table->item(row, 1);
  if (!value || row >= static_cast<int>(s.shownFields.size())) return;
  const std::string name = s.shownFields[static_cast<size_t>(row)];
  const std::string text = FromQt(value->text());
  if (text == s.sheet.Text(name)) return;
  bool taken = false;
  ++s.editing;
  s.binding->Guard([&] { taken = s.sheet.EditText(name, text); });
  --s.editing;
  if (taken) {
    ShowError(QString());
  } else {
    ShowError(ToQt(s.sheet.LastError()));
  }
  // The cell is still committing its text: the refused text is put back, and
  // what the edit changed shown, right after.
  s.fieldsPending = false;
  QMetaObject::invokeMethod(
      this,
      [this, name] {
        State& st = *state_;
        MirrorFields();
        for (int r = 0; r < st.table->rowCount(); ++r) {
          if (st.shownFields[static_cast<size_t>(r)] != name) continue;
          const QSignalBlocker block(st.table);
          st.table->item(r, 1)->setText(ToQt(st.sheet.Text(name)));
        }
      },
      Qt::QueuedConnection);
}

void FieldSheetView::ShowError(const QString& text) {
  state_->error->setText(text);
  state_->error->setVisible(!text.isEmpty());
}

}  // namespace orvel
