#pragma once

#include <string>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

// The rooms of the test host a call goes to.
enum class Channel { Registry, Business, Window, Message, Rights, Settings, Host };

// "Registry", "Business", ...
const char* ChannelName(Channel channel);

// One call the module made to the host, as the journal keeps it.
struct CallEntry {
  Channel channel = Channel::Host;
  // The call's name: "AddObjectType", "GetCall", "ShowWindow", "MsgBox".
  std::string op;
  // Its arguments as text, in order. For a business call: the call name and
  // the parameter string.
  std::vector<std::string> args;
  // Values that do not read as text: ExecArrayCall's array, ExecCommand's
  // arguments. Objects in it are shared, not copied.
  Variant::Array values;
  // op and args joined by single blanks; trailing empty arguments are left out
  // of the text (not of args) so that "Call GetOldPeriod" has no dangling blank.
  std::string text;
};

}  // namespace orvel
