#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "refhost/Prompter.h"

namespace orvel {

// The terminal's Prompter: questions and their numbered choices go to the
// output, answers are read a line at a time from the input. An answer is a
// choice's number or its text; in a script the answer is echoed, so the
// output reads as a whole conversation.
class LinePrompter : public Prompter {
 public:
  LinePrompter(std::istream& in, std::ostream& out, bool echo) : in_(in), out_(out), echo_(echo) {}

  void Say(const std::string& line) override;
  int Choose(const std::string& question, const std::vector<std::string>& choices) override;
  std::string AskText(const std::string& question) override;
  // The next line of input; false at its end.
  bool ReadLine(std::string& line);

 private:
  std::istream& in_;
  std::ostream& out_;
  bool echo_;
};

}  // namespace orvel
