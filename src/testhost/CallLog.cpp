#include "testhost/CallLog.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <ostream>

#include "host/Convert.h"

namespace orvel {

namespace {


std::string JoinText(const std::string& op, const std::vector<std::string>& args) {
  size_t used = args.size();
  while (used > 0 && args[used - 1].empty()) --used;
  std::string text = op;
  for (size_t i = 0; i < used; ++i) {
    text += ' ';
    text += args[i];
  }
  return text;
}

// A date as yyyy-MM-dd; a serial no calendar holds shows as "Date ?".
std::string DateText(Date date) {
  try {
    return FormatDate(date, Locale::Invariant());
  } catch (const std::exception&) {
    return "Date ?";
  }
}

}  // namespace

const char* ChannelName(Channel channel) {
  switch (channel) {
    case Channel::Registry:
      return "Registry";
    case Channel::Business:
      return "Business";
    case Channel::Window:
      return "Window";
    case Channel::Message:
      return "Message";
    case Channel::Rights:
      return "Rights";
    case Channel::Settings:
      return "Settings";
    case Channel::Host:
      return "Host";
  }
  return "?";
}


void CallLog::Add(Channel channel, std::string op, std::vector<std::string> args,
                  Variant::Array values) {
  CallEntry entry;
  entry.channel = channel;
  entry.text = JoinText(op, args);
  entry.op = std::move(op);
  entry.args = std::move(args);
  entry.values = std::move(values);
  entries_.push_back(std::move(entry));
  const CallEntry& added = entries_.back();
  if (echo_ && (echoChannels_.empty() || echoChannels_.count(channel))) {
    *echo_ << EchoLine(added, echoWithChannel_) << '\n' << std::flush;
  }
}

std::vector<CallEntry> CallLog::Entries(Channel channel) const {
  std::vector<CallEntry> out;
  for (const auto& e : entries_) {
    if (e.channel == channel) out.push_back(e);
  }
  return out;
}

std::vector<std::string> CallLog::Lines(Channel channel) const {
  std::vector<std::string> out;
  for (const auto& e : entries_) {
    if (e.channel == channel) out.push_back(e.text);
  }
  return out;
}

std::vector<std::string> CallLog::Lines() const {
  std::vector<std::string> out;
  out.reserve(entries_.size());
  for (const auto& e : entries_) out.push_back(e.text);
  return out;
}

void CallLog::SetEcho(std::ostream* out, std::set<Channel> channels, bool withChannel) {
  echo_ = out;
  echoChannels_ = std::move(channels);
  echoWithChannel_ = withChannel;
}

std::string CallLog::EchoLine(const CallEntry& entry, bool withChannel) {
  std::string line;
  if (withChannel) {
    line += ChannelName(entry.channel);
    line += ": ";
  }
  for (char c : entry.text) {
    if (c == '\n') {
      line += "\\n";
    } else if (c == '\r') {
      line += "\\r";
    } else {
      line += c;
    }
  }
  return line;
}

std::string LogText(const Variant& value) {
  switch (value.Type()) {
    case VarType::Empty:
      return "";
    case VarType::Null:
      return "Null";
    case VarType::Boolean:
      return value.Boolean() ? "True" : "False";
    case VarType::Integer:
      return std::to_string(value.Integer());
    case VarType::Double: {
      char buf[64];
      auto res = std::to_chars(buf, buf + sizeof buf, value.Double());
      return std::string(buf, res.ptr);
    }
    case VarType::Date:
      return DateText(value.DateValue());
    case VarType::String:
      return value.String();
    case VarType::Object:
      return value.IsNothing() ? "Nothing" : "Object";
    case VarType::Array:
      return "Array(" + std::to_string(value.ArrayValue().size()) + ")";
  }
  return "?";
}

}  // namespace orvel
