#pragma once

#include <cstddef>
#include <iosfwd>
#include <set>
#include <string>
#include <vector>

#include "orvel/Variant.h"
#include "testhost/CallEntry.h"

namespace orvel {

// The journal every fake of the test host writes to, in call order. Tests
// assert on it exactly; the demo echoes it live.
class CallLog {
 public:
  // Adds an entry (joining its text) and echoes it when asked to.
  void Add(Channel channel, std::string op, std::vector<std::string> args,
           Variant::Array values = {});

  const std::vector<CallEntry>& Entries() const { return entries_; }
  std::vector<CallEntry> Entries(Channel channel) const;
  // The texts of one channel's entries, in order.
  std::vector<std::string> Lines(Channel channel) const;
  // The texts of all entries, in order.
  std::vector<std::string> Lines() const;
  size_t Size() const { return entries_.size(); }
  void Clear() { entries_.clear(); }

  // Prints each new entry of these channels to `out` as one line,
  // "<Channel>: <text>" (or the text alone without `withChannel`), line breaks
  // inside the text written as \r and \n. A null stream stops the echo; no
  // channels means all of them.
  void SetEcho(std::ostream* out, std::set<Channel> channels = {}, bool withChannel = true);

  // The one-line form the echo prints.
  static std::string EchoLine(const CallEntry& entry, bool withChannel = true);

 private:
  std::vector<CallEntry> entries_;
  std::ostream* echo_ = nullptr;
  std::set<Channel> echoChannels_;
  bool echoWithChannel_ = true;
};

// Text of a value for the journal: text as it is, numbers with ".", Booleans
// "True"/"False", Empty "", Null "Null", dates yyyy-MM-dd, objects "Object" or
// "Nothing", arrays "Array(n)". Never throws.
std::string LogText(const Variant& value);

}  // namespace orvel
