#include "adapters/PropertyCall.h"

#include "orvel/OrvelObjectBO.h"

namespace orvel {

OrvelResult PropertyResult(const OrvelBoResult& reply, Variant valueOnSuccess) {
  OrvelResult result;
  if (reply.Number > 0) {
    result.Number = reply.Number;
    result.Text = std::to_string(reply.Number);
  } else if (reply.Number == 0) {
    result.Value = std::move(valueOnSuccess);
  }
  return result;
}

OrvelResult GetProperty(OrvelObjectBO& bo, const std::string& propertyName,
                        const std::string& propertyPar, const std::string& oidr) {
  auto reply = bo.GetCall("Get" + propertyName, propertyPar.empty() ? oidr : propertyPar, 0);
  return PropertyResult(reply, Variant(reply.Object));
}

}  // namespace orvel
