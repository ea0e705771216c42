#pragma once

#include <string>
#include <vector>

namespace orvel {

// Where the terminal host asks its user: a question with numbered choices,
// answered by the number or the text of one. The terminal reads standard
// input or a script; a test answers from a list.
class Prompter {
 public:
  virtual ~Prompter() = default;
  // Shows a line of output.
  virtual void Say(const std::string& line) = 0;
  // Asks; returns the index of the choice taken, or -1 for none (end of input).
  virtual int Choose(const std::string& question, const std::vector<std::string>& choices) = 0;
  // Asks for a line of text; "" at the end of input.
  virtual std::string AskText(const std::string& question) = 0;
};

}  // namespace orvel
