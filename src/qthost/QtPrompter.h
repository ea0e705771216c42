#pragma once

#include <QPointer>
#include <QStatusBar>
#include <QWidget>
#include <ostream>
#include <string>
#include <vector>

#include "refhost/Prompter.h"

namespace orvel {

// Where the window host asks its user for the host's own pickers: a choice
// from a list dialog, a line of text from an input dialog. What is said
// goes to the main window's status bar and to the log, when there are.
class QtPrompter : public Prompter {
 public:
  explicit QtPrompter(std::ostream* log = nullptr) : log_(log) {}

  void SetParentWidget(QWidget* parent) { parent_ = parent; }
  void SetStatusBar(QStatusBar* bar) { statusBar_ = bar; }
  // What was said, oldest first.
  const std::vector<std::string>& Said() const { return said_; }

  void Say(const std::string& line) override;
  int Choose(const std::string& question, const std::vector<std::string>& choices) override;
  std::string AskText(const std::string& question) override;

 private:
  std::ostream* log_;
  QPointer<QWidget> parent_;
  QPointer<QStatusBar> statusBar_;
  std::vector<std::string> said_;
};

}  // namespace orvel
