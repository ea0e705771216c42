#include "HostShell.h"

#include <sstream>

#include "LinePrompter.h"
#include "host/Convert.h"
#include "orvel/OrvelMenuResult.h"
#include "orvel/OrvelObjectUI.h"
#include "orvel/OrvelObjectUIO.h"
#include "orvel/OrvelWindow.h"
#include "orvel/Recordset.h"
#include "host/Text.h"
#include "hostkit/ComponentRegistry.h"
#include "hostkit/FieldSheet.h"
#include "hostkit/TextDragData.h"
#include "hostkit/WindowRegistry.h"
#include "refhost/ReferenceHost.h"
#include "refhost/ReferenceObjectManager.h"
#include "refhost/TerminalUi.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/Menu.h"
#include "ui/Panel.h"
#include "ui/TabStrip.h"
#include "ui/TextBox.h"

namespace orvel {

namespace {

// Words split at blanks; a word in double quotes keeps its blanks (a menu
// key such as "Valiutų kursų įrašymas").
std::vector<std::string> Words(const std::string& line) {
  std::istringstream in(line);
  std::vector<std::string> words;
  for (std::string word; in >> word;) {
    if (word.size() > 1 && word.front() == '"') {
      std::string rest;
      while (word.back() != '"' && in >> rest) word += " " + rest;
      if (word.back() == '"') word = word.substr(1, word.size() - 2);
    }
    words.push_back(word);
  }
  return words;
}

std::string Arg(const std::vector<std::string>& args, size_t i) {
  return i < args.size() ? args[i] : std::string();
}

// The rest of a line after its first `count` words.
std::string RestAfter(const std::string& line, size_t count) {
  size_t pos = 0;
  for (size_t i = 0; i < count; ++i) {
    pos = line.find_first_not_of(' ', pos);
    pos = line.find(' ', pos);
    if (pos == std::string::npos) return "";
  }
  return line.substr(pos + 1);
}

// The rows of a list under its column captions; `numbered` puts each row's
// number in front, as `row` takes it.
void PrintRows(std::ostream& out, const ListView& list, const std::string& indent,
               bool numbered = false) {
  std::string header;
  for (const auto& column : list.ColumnHeaders())
    header += (header.empty() ? "" : " | ") + column->Text();
  if (!header.empty()) out << indent << header << "\n";
  int number = 0;
  for (const auto& item : list.ListItems()) {
    std::string row = numbered ? std::to_string(++number) + ") " + item->Text() : item->Text();
    for (const auto& sub : item->ListSubItems()) row += " | " + sub->Text();
    out << indent << row << "\n";
  }
}

// A caption without its access-key marks.
std::string Plain(const std::string& caption) {
  std::string plain;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

bool SameName(const std::string& a, const std::string& b) {
  return LCase(Plain(a)) == LCase(Plain(b));
}

constexpr int kRightButton = 2;
// A member dragged from the catalogue tree is moved where it is dropped.
constexpr int kMoveEffect = 2;

Menu* FindMenu(Menu& menu, const std::string& name) {
  if (menu.Name() == name) return &menu;
  for (const auto& item : menu.Items()) {
    if (Menu* found = FindMenu(*item, name)) return found;
  }
  return nullptr;
}

}  // namespace

HostShell::HostShell(ReferenceHost& host, LinePrompter& prompter, std::ostream& out)
    : host_(host), prompter_(prompter), out_(out) {
  host_.Windows().SetObserver([this](const std::string& op, const std::vector<std::string>& args) {
    if (op == "IsOpen" || op == "QueryRemove") return;
    out_ << op;
    for (const auto& arg : args) out_ << " " << arg;
    out_ << "\n";
  });
  terminal_ = dynamic_cast<TerminalUi*>(&host_.Ui());
  if (terminal_) {
    terminal_->SetModalRunner([this](Form& form) { RunModal(form); });
    terminal_->SetWindows(&host_.Windows());
  }
}

int HostShell::Run() {
  int failed = 0;
  std::string line;
  while (!quit_ && prompter_.ReadLine(line)) {
    if (!Execute(line)) ++failed;
  }
  return failed;
}

bool HostShell::Execute(const std::string& line) {
  auto words = Words(line);
  if (words.empty() || words[0][0] == '#') return true;
  std::vector<std::string> args(words.begin() + 1, words.end());
  bool done = Dispatch(words[0], args, line);
  // What a window put off until its menu closed (a dialog opened from its
  // timer) happens before the next line.
  if (terminal_ && !quit_) terminal_->RunTimers();
  return done;
}

bool HostShell::Dispatch(const std::string& command, const std::vector<std::string>& args,
                         const std::string& line) {
  if (command == "help") return Help();
  if (command == "tree") return Tree();
  if (command == "list") return List(args);
  if (command == "menu") return Menu(args);
  if (command == "click") return Click(args);
  if (command == "windows") return Windows();
  if (command == "show") return Show();
  if (command == "set") return Set(args, line);
  if (command == "press") return Press(args);
  if (command == "tab") return Tab(args);
  if (command == "row") return Row(args);
  if (command == "dblclick") return DoubleClick(args);
  if (command == "rclick") return RightClick(args);
  if (command == "drag") return Drag(args);
  if (command == "label") return ClickLabel(args);
  if (command == "close") return Press({"SSCClose"});
  if (command == "quit") {
    quit_ = true;
    return true;
  }
  return Fail("nežinoma komanda: " + command);
}

bool HostShell::Help() {
  out_ << "  tree                     užregistruoti katalogai\n"
          "  list OIDR [TEKSTAS]      mazgo įrašai\n"
          "  menu OIDR [OTYPE]        mazgo meniu\n"
          "  click OIDR RAKTAS [OTYPE] meniu punktas\n"
          "  windows                  atidaryti langai\n"
          "  show                     dabartinis langas\n"
          "  set LAUKAS TEKSTAS       lauko reikšmė\n"
          "  press VALDIKLIS          mygtukas ar meniu punktas\n"
          "  tab KORTELĖ              kortelės pasirinkimas, sąrašo eilutės\n"
          "  row SĄRAŠAS EILUTĖ       eilutės pasirinkimas\n"
          "  dblclick SĄRAŠAS [EILUTĖ] dvigubas spragtelėjimas\n"
          "  rclick VALDIKLIS [EILUTĖ] dešinysis pelės klavišas\n"
          "  drag OIDR [SĄRAŠAS]      įrašo nutempimas į langą\n"
          "  label UŽRAŠAS            užrašo spragtelėjimas\n"
          "  close                    uždaryti langą\n"
          "  quit                     baigti\n";
  return true;
}

bool HostShell::Fail(const std::string& reason) {
  out_ << "Klaida: " << reason << "\n";
  return false;
}

bool HostShell::Tree() {
  const auto& catalogue = host_.Catalogue();
  for (const auto& group : catalogue.groups) {
    out_ << group.caption << " [" << group.key << "]\n";
    for (const auto& component : group.components) {
      out_ << "  " << component.caption << " (" << component.rightKey << ")\n";
    }
  }
  for (const auto& type : catalogue.objectTypes) {
    out_ << type.otype << " " << type.caption << "\n";
  }
  return true;
}

bool HostShell::List(const std::vector<std::string>& args) {
  std::string oidr = Arg(args, 0);
  auto type = host_.Objects().GetOrvelObjectUI(oidr);
  if (!type) return Fail("nėra tipo " + oidr);
  auto rs = type->GetOrvelObjectList(oidr, "", "");
  if (!rs) return Fail("sąrašo nėra");
  std::string text = Arg(args, 1);
  for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
    std::string preview = ConcatText(rs->Fields("Preview").Value());
    if (!text.empty() && InStr(preview, text, Compare::Text) == 0) continue;
    out_ << "  " << ConcatText(rs->Fields("OIDR").Value()) << " " << preview << "\n";
  }
  return true;
}

bool HostShell::Menu(const std::vector<std::string>& args) {
  std::string oidr = Arg(args, 0);
  auto type = host_.Objects().GetOrvelObjectUI(oidr);
  if (!type) return Fail("nėra tipo " + oidr);
  auto menu = type->GetMenu(oidr, Arg(args, 1), "");
  if (!menu) {
    out_ << "  (meniu nėra)\n";
    return true;
  }
  for (const auto& item : *menu) out_ << "  " << item.Key << " " << item.Caption << "\n";
  return true;
}

bool HostShell::Click(const std::vector<std::string>& args) {
  std::string oidr = Arg(args, 0);
  auto type = host_.Objects().GetOrvelObjectUI(oidr);
  if (!type) return Fail("nėra tipo " + oidr);
  auto result = type->ClickMenu(oidr, Arg(args, 2), Arg(args, 1), "");
  if (result.Action == OrvelMenuResult::kShowWindow) {
    auto window = result.Value.ObjectAs<OrvelWindow>();
    if (!window) return Fail("langas nesukurtas");
    host_.Windows().ShowWindow(window);
    return true;
  }
  out_ << "  Action " << result.Action << "\n";
  return true;
}

bool HostShell::Windows() {
  for (const auto& entry : host_.Windows().OpenWindows()) {
    auto form = std::dynamic_pointer_cast<Form>(entry.window);
    out_ << "  " << (entry.oidr.empty() ? "(naujas)" : entry.oidr) << " "
         << (form ? form->Caption() : std::string()) << "\n";
  }
  return true;
}

Form* HostShell::CurrentForm() {
  if (!modal_.empty()) return modal_.back();
  const auto& open = host_.Windows().OpenWindows();
  if (open.empty()) return nullptr;
  return dynamic_cast<Form*>(open.back().window.get());
}

bool HostShell::Show() {
  Form* form = CurrentForm();
  if (!form) return Fail("atidarytų langų nėra");
  out_ << "[" << form->Name() << "] " << form->Caption() << "\n";
  for (Control* control : form->Controls()) {
    // A control in a hidden frame is not on the screen either.
    bool shown = true;
    for (Control* c = control; c && shown; c = c->Container()) shown = c->Visible();
    if (!shown) continue;
    std::string state = control->Enabled() ? "" : " (neaktyvus)";
    if (auto* panel = dynamic_cast<Panel*>(control)) {
      out_ << "  " << panel->Name() << ": " << panel->Caption() << "\n";
    } else if (auto* button = dynamic_cast<Button*>(control)) {
      out_ << "  [" << button->Name() << "] " << button->Caption() << state << "\n";
    } else if (auto* label = dynamic_cast<Label*>(control)) {
      if (label->OnClick) {
        out_ << "  (" << label->Name() << ") " << label->Caption() << "\n";
      } else if (!label->Caption().empty()) {
        out_ << "  " << label->Caption() << "\n";
      }
    } else if (auto* strip = dynamic_cast<TabStrip*>(control)) {
      out_ << "  " << strip->Name() << ":";
      for (const auto& tab : strip->Tabs()) {
        out_ << " " << (tab.key == strip->SelectedKey() ? "*" : "") << Plain(tab.caption) << " ["
             << tab.key << "]";
      }
      out_ << "\n";
    } else if (auto* box = dynamic_cast<TextBox*>(control)) {
      out_ << "  " << box->Name() << " = " << box->Text() << state << "\n";
    } else if (auto* check = dynamic_cast<CheckBox*>(control)) {
      out_ << "  " << check->Name() << " = " << check->Value() << state << "\n";
    } else if (auto* list = dynamic_cast<ListView*>(control)) {
      out_ << "  " << list->Name() << ":\n";
      PrintRows(out_, *list, "    ");
    }
  }
  if (FieldSheet* sheet = SheetOf(form)) {
    for (const auto& field : sheet->Fields()) {
      if (field.visible)
        out_ << "  " << field.caption << " (" << field.name << "): " << sheet->Text(field.name)
             << "\n";
    }
    for (const auto& tab : sheet->Tabs()) {
      out_ << "  Kortelė " << tab.caption << " [" << tab.key << "]:\n";
      PrintRows(out_, tab.list, "    ");
    }
  }
  return true;
}

bool HostShell::Set(const std::vector<std::string>& args, const std::string& line) {
  Form* form = CurrentForm();
  FieldSheet* sheet = SheetOf(form);
  std::string name = Arg(args, 0);
  std::string text = RestAfter(line, 2);
  if (sheet && sheet->EditText(name, text)) return true;
  if (form) {
    if (auto* box = dynamic_cast<TextBox*>(form->FindControl(name))) {
      if (box->Edit(text)) return true;
      return Fail(name + " nepriima teksto");
    }
  }
  return Fail(sheet ? sheet->LastError() : "lange nėra laukų lapo");
}

bool HostShell::Press(const std::vector<std::string>& args) {
  Form* form = CurrentForm();
  if (!form) return Fail("atidarytų langų nėra");
  std::string name = Arg(args, 0);
  Control* control = form->FindControl(name);
  if (auto* button = dynamic_cast<Button*>(control)) {
    if (!button->Enabled() || !button->Visible()) return Fail(name + " neaktyvus");
    button->Click();
    return true;
  }
  for (Control* candidate : form->Controls()) {
    if (auto* menu = dynamic_cast<orvel::Menu*>(candidate)) {
      if (auto* entry = FindMenu(*menu, name)) {
        entry->Click();
        return true;
      }
    }
  }
  return Fail("lange nėra " + name);
}

FieldSheet* HostShell::SheetOf(Form* form) {
  if (!form) return nullptr;
  for (Control* control : form->Controls()) {
    if (auto* sheet = dynamic_cast<FieldSheet*>(control)) return sheet;
  }
  auto window = dynamic_cast<OrvelWindow*>(form);
  return window ? host_.Ui().SheetOf(window->OrvelObjectUIO()).get() : nullptr;
}

bool HostShell::FindList(const std::string& name, ListTarget& target) {
  Form* form = CurrentForm();
  if (!form) return Fail("atidarytų langų nėra");
  if (FieldSheet* sheet = SheetOf(form)) {
    auto& tabs = sheet->Tabs();
    for (size_t i = 0; i < tabs.size(); ++i) {
      if (SameName(tabs[i].key, name) || SameName(tabs[i].caption, name)) {
        target = {sheet, static_cast<int>(i), &tabs[i].list};
        return true;
      }
    }
  }
  if (auto* list = dynamic_cast<ListView*>(form->FindControl(name))) {
    target = {nullptr, -1, list};
    return true;
  }
  return Fail("lange nėra sąrašo " + name);
}

bool HostShell::PickRow(ListView& list, const std::string& name) {
  ListItem* row = list.ListItems().Find(name);
  const auto& rows = list.ListItems();
  if (!row && !name.empty() && name.find_first_not_of("0123456789") == std::string::npos) {
    const long number = std::stol(name);
    if (number >= 1 && number <= rows.Count()) row = &rows.Item(static_cast<int>(number));
  }
  for (const auto& item : rows) {
    if (row) break;
    if (SameName(item->Text(), name)) row = item.get();
  }
  if (!row) return Fail(list.Name() + " neturi eilutės " + name);
  list.ItemClick(*row);
  if (list.SelectedItem() != row) return Fail(list.Name() + " neaktyvus");
  return true;
}

bool HostShell::Tab(const std::vector<std::string>& args) {
  Form* form = CurrentForm();
  if (!form) return Fail("atidarytų langų nėra");
  const std::string name = Arg(args, 0);
  for (Control* control : form->Controls()) {
    auto* strip = dynamic_cast<TabStrip*>(control);
    if (!strip) continue;
    for (const auto& tab : strip->Tabs()) {
      if (!SameName(tab.key, name) && !SameName(tab.caption, name)) continue;
      strip->Click(tab.key);
      if (strip->SelectedKey() != tab.key) return Fail(strip->Name() + " neaktyvus");
      return true;
    }
  }
  ListTarget target;
  if (!FindList(name, target)) return false;
  PrintRows(out_, *target.list, "  ", true);
  return true;
}

bool HostShell::Row(const std::vector<std::string>& args) {
  ListTarget target;
  if (args.size() < 2) return Fail("nurodykite sąrašą ir eilutę");
  return FindList(args[0], target) && PickRow(*target.list, args[1]);
}

bool HostShell::DoubleClick(const std::vector<std::string>& args) {
  Form* form = CurrentForm();
  const std::string name = Arg(args, 0);
  if (auto* box = form ? dynamic_cast<TextBox*>(form->FindControl(name)) : nullptr) {
    box->DblClick();
    return true;
  }
  ListTarget target;
  if (!FindList(name, target)) return false;
  if (args.size() > 1 && !PickRow(*target.list, args[1])) return false;
  if (target.sheet) {
    target.sheet->ListDoubleClick(target.tab);
  } else {
    target.list->DblClick();
  }
  return true;
}

bool HostShell::RightClick(const std::vector<std::string>& args) {
  Form* form = CurrentForm();
  const std::string name = Arg(args, 0);
  if (auto* button = form ? dynamic_cast<Button*>(form->FindControl(name)) : nullptr) {
    if (!button->Enabled() || !button->Visible()) return Fail(name + " neaktyvus");
    button->MouseUp(kRightButton);
    return true;
  }
  ListTarget target;
  if (!FindList(name, target)) return false;
  if (args.size() > 1 && !PickRow(*target.list, args[1])) return false;
  if (target.sheet) {
    target.sheet->ListMouseUp(target.sheet->Tabs()[static_cast<size_t>(target.tab)].key,
                              target.tab, kRightButton);
  } else {
    target.list->MouseDown(kRightButton);
    target.list->MouseUp(kRightButton);
  }
  return true;
}

bool HostShell::Drag(const std::vector<std::string>& args) {
  const std::string oidr = Arg(args, 0);
  auto type = host_.Objects().GetOrvelObjectUI(oidr);
  if (!type) return Fail("nėra tipo " + oidr);
  // A member its type holds back, or a window that takes no members, is
  // refused alike: the drag comes to nothing.
  const std::string refused = "negalima nutempti " + oidr + " į šį langą";
  if (!type->DragOK(oidr, "", "")) return Fail(refused);
  ListTarget target;
  if (args.size() > 1) {
    if (!FindList(args[1], target)) return false;
  } else if (Form* form = CurrentForm()) {
    target.sheet = SheetOf(form);
  }
  if (!target.sheet) return Fail(refused);
  auto data = std::make_shared<TextDragData>(oidr);
  if (target.sheet->ListDragOver(data, kMoveEffect) == 0) return Fail(refused);
  target.sheet->ListDragDrop(data);
  return true;
}

bool HostShell::ClickLabel(const std::vector<std::string>& args) {
  Form* form = CurrentForm();
  const std::string name = Arg(args, 0);
  auto* label = form ? dynamic_cast<Label*>(form->FindControl(name)) : nullptr;
  if (!label) return Fail("lange nėra užrašo " + name);
  if (!label->Enabled() || !label->Visible()) return Fail(name + " neaktyvus");
  label->Click();
  return true;
}

void HostShell::RunModal(Form& form) {
  modal_.push_back(&form);
  Show();
  std::string line;
  while (form.Visible() && !quit_ && prompter_.ReadLine(line)) Execute(line);
  modal_.pop_back();
}

}  // namespace orvel
