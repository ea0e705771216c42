#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "orvel/Variant.h"

namespace orvel {

class TableBusinessObject;

// Reading the arguments of a catalogue's own business call. Each reader
// throws RuntimeError with TableBusinessObject::kBadCall and a Lithuanian
// text that names the argument; the business object puts the call's name
// before it and answers with that Number and Text. Nothing is guessed from a
// malformed argument.
namespace callargs {

// The argument at `index`, or "" when the call sent fewer.
const std::string& At(const std::vector<std::string>& args, size_t index);
// Fails unless at least `count` arguments came.
void Require(const std::vector<std::string>& args, size_t count, const char* expected);
// Fails unless exactly `count` arguments came.
void RequireExactly(const std::vector<std::string>& args, size_t count, const char* expected);
// A whole number: "15", "-3". Blanks around are allowed; nothing else is.
int64_t Integer(const std::string& text, const char* what);
// A number with "." for decimals, as parameter strings carry it: "-2.5", and
// "9E-05" as a small number is written out.
double Number(const std::string& text, const char* what);
// A day: "2026-11-23", "2026.11.23" or the active locale's short date; a time
// after the day is ignored.
Date Day(const std::string& text, const char* what);
// An ID to bind, Null for none.
Variant IdOrNull(const std::optional<int64_t>& id);
// The ID of a record of the object's type; "" and the bare type name (a new
// record, the catalogue root) give nullopt, anything else that is not an
// OIDR of the type fails.
std::optional<int64_t> OptionalRecord(const TableBusinessObject& object, const std::string& oidr);
// The same, where a record must be named.
int64_t Record(const TableBusinessObject& object, const std::string& oidr);

}  // namespace callargs
}  // namespace orvel
