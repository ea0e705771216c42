#pragma once

#include <stdexcept>
#include <string>

namespace orvel {

// A failure of the embedded database inside the business layer: its SQLite
// result code and message. It never leaves the layer: each business call
// catches it and answers with a non-zero Number and the message.
class SqliteError : public std::runtime_error {
 public:
  SqliteError(int code, const std::string& message) : std::runtime_error(message), code_(code) {}
  int Code() const { return code_; }

 private:
  int code_;
};

}  // namespace orvel
