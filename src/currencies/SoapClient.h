#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "currencies/XmlNodeList.h"

namespace orvel {

// A SOAP client that learns a service from its WSDL document at run time and
// calls its operations by name. The rate window needs nothing more: Init with
// the WSDL address (service, port and mapping file are left empty), then Call
// by operation name with the arguments in order, each a string. A reply
// comes back as the children of the operation's result element.
//
// Failures (no connection, a timeout, an HTTP error, a SOAP Fault, a reply
// that is not XML, an operation the WSDL does not name) throw RuntimeError
// with kServiceFailure and a text that tells which.
//
// The client is made through Create, which asks the factory set in the
// module's state (tests and the demo set one; the default is HttpSoapClient with
// the timeout of RateServiceSettings). A factory that cannot make a client
// returns null or throws: the window tells the user the client is missing.
class SoapClient {
 public:
  static constexpr int32_t kServiceFailure = 440;
  using Factory = std::function<std::unique_ptr<SoapClient>()>;

  virtual ~SoapClient() = default;

  virtual void Init(const std::string& wsdlUrl, const std::string& serviceName,
                    const std::string& portName, const std::string& mappingFile) = 0;
  virtual XmlNodeList Call(const std::string& operation,
                           const std::vector<std::string>& arguments) = 0;

  // A new client; RuntimeError when the factory gives none.
  static std::unique_ptr<SoapClient> Create();
  // Null goes back to the default factory.
  static void SetFactory(Factory factory);
};

}  // namespace orvel
