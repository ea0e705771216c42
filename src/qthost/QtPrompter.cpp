#include "qthost/QtPrompter.h"

#include <QApplication>
#include <QInputDialog>
#include <QStringList>

namespace orvel {

namespace {

constexpr int kStatusMilliseconds = 15000;

QString Q(const std::string& text) { return QString::fromStdString(text); }

void Buttons(QInputDialog& dialog) {
  dialog.setOkButtonText(QString::fromUtf8("Gerai"));
  dialog.setCancelButtonText(QString::fromUtf8("Atšaukti"));
}

// The question's first line is the title, the whole of it the label.
QString TitleOf(const std::string& question) { return Q(question.substr(0, question.find('\n'))); }

}  // namespace

void QtPrompter::Say(const std::string& line) {
  said_.push_back(line);
  if (log_) *log_ << line << std::endl;
  if (statusBar_) statusBar_->showMessage(Q(line).replace('\n', ' '), kStatusMilliseconds);
}

int QtPrompter::Choose(const std::string& question, const std::vector<std::string>& choices) {
  if (choices.empty()) return -1;
  QStringList items;
  for (const auto& choice : choices) items << Q(choice);
  QInputDialog dialog(parent_);
  dialog.setWindowTitle(TitleOf(question));
  dialog.setLabelText(Q(question));
  dialog.setComboBoxItems(items);
  dialog.setOption(QInputDialog::UseListViewForComboBoxItems);
  dialog.setTextValue(items.front());
  Buttons(dialog);
  if (dialog.exec() != QDialog::Accepted) return -1;
  // A text listed twice answers as its first place.
  return static_cast<int>(items.indexOf(dialog.textValue()));
}

std::string QtPrompter::AskText(const std::string& question) {
  QInputDialog dialog(parent_);
  dialog.setWindowTitle(TitleOf(question));
  dialog.setLabelText(Q(question));
  dialog.setInputMode(QInputDialog::TextInput);
  Buttons(dialog);
  if (dialog.exec() != QDialog::Accepted) return "";
  return dialog.textValue().toStdString();
}

}  // namespace orvel
