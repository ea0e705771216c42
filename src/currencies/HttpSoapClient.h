#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "currencies/SoapClient.h"

namespace httplib {
class Client;
}

namespace orvel {

// SOAP 1.1 over HTTP, document/literal, on cpp-httplib and pugixml. Init
// reads the WSDL once: the target namespace, the SOAP 1.1 port's address
// (the endpoint), each operation's SOAP action and its arguments' element
// names (from the schema element named after the operation). Call posts an
// envelope with the operation element in the target namespace and one child
// per argument, and returns the children of the reply's result element (the
// first element inside the operation's response); a reply without one gives
// an empty list. One HTTP connection is kept for the WSDL and the calls when
// they go to the same host.
class HttpSoapClient final : public SoapClient {
 public:
  explicit HttpSoapClient(std::chrono::milliseconds timeout);
  ~HttpSoapClient() override;

  void Init(const std::string& wsdlUrl, const std::string& serviceName, const std::string& portName,
            const std::string& mappingFile) override;
  XmlNodeList Call(const std::string& operation,
                   const std::vector<std::string>& arguments) override;

  const std::string& TargetNamespace() const { return targetNamespace_; }
  const std::string& Endpoint() const { return endpoint_; }

 private:
  struct Operation {
    std::string soapAction;
    std::vector<std::string> arguments;  // element names, in order
  };

  // The connection for "scheme://host[:port]", made on first use.
  httplib::Client& ClientFor(const std::string& origin);

  std::chrono::milliseconds timeout_;
  std::string targetNamespace_;
  std::string endpoint_;
  std::map<std::string, Operation> operations_;
  std::string origin_;
  std::unique_ptr<httplib::Client> client_;
};

}  // namespace orvel
