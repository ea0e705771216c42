#pragma once

#include <string>

#include "orvel/OrvelBoResult.h"
#include "orvel/OrvelResult.h"

namespace orvel {

class OrvelObjectBO;

// How an instance adapter reports a business reply to a property: on Number 0
// the result's Value is `valueOnSuccess`; a Number above zero becomes the
// result's Number, with that number in decimal as its Text (the business text
// is dropped); a Number below zero is not reported (Number 0, Value empty).
OrvelResult PropertyResult(const OrvelBoResult& reply, Variant valueOnSuccess);

// The property read every instance adapter falls back on: GetCall of "Get"
// and the property's name, with `propertyPar`, or the object's OIDR when
// `propertyPar` is empty; the record set in Value.
OrvelResult GetProperty(OrvelObjectBO& bo, const std::string& propertyName,
                        const std::string& propertyPar, const std::string& oidr);

}  // namespace orvel
