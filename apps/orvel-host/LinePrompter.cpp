#include "LinePrompter.h"

#include "host/Text.h"

namespace orvel {

void LinePrompter::Say(const std::string& line) { out_ << line << "\n"; }

bool LinePrompter::ReadLine(std::string& line) {
  // Everything said so far is out before the host waits: a program driving
  // it through a pipe sees a command's whole answer before sending the next.
  out_.flush();
  if (!std::getline(in_, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  if (echo_) out_ << "> " << line << "\n";
  return true;
}

int LinePrompter::Choose(const std::string& question, const std::vector<std::string>& choices) {
  out_ << question << ":\n";
  for (size_t i = 0; i < choices.size(); ++i) out_ << "  " << i + 1 << ") " << choices[i] << "\n";
  std::string answer;
  while (ReadLine(answer)) {
    answer = Trim(answer);
    for (size_t i = 0; i < choices.size(); ++i) {
      if (answer == std::to_string(i + 1) || LCase(answer) == LCase(Trim(choices[i]))) {
        return static_cast<int>(i);
      }
    }
    out_ << "Pasirinkite numerį nuo 1 iki " << choices.size() << "\n";
  }
  return -1;
}

std::string LinePrompter::AskText(const std::string& question) {
  out_ << question << ":\n";
  std::string answer;
  return ReadLine(answer) ? answer : std::string();
}

}  // namespace orvel
