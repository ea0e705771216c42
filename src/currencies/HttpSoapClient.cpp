#include "currencies/HttpSoapClient.h"

#include <httplib.h>

#include <cstring>
#include <sstream>

#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

constexpr const char* kSoap11BindingNs = "http://schemas.xmlsoap.org/wsdl/soap/";
constexpr const char* kEnvelopeNs = "http://schemas.xmlsoap.org/soap/envelope/";

[[noreturn]] void Fail(const std::string& text) {
  throw RuntimeError(SoapClient::kServiceFailure, text);
}

// The part of a qualified name after its prefix.
const char* LocalName(const char* name) {
  const char* colon = std::strchr(name, ':');
  return colon ? colon + 1 : name;
}

std::string PrefixOf(const char* name) {
  const char* colon = std::strchr(name, ':');
  return colon ? std::string(name, colon) : std::string();
}

// The namespace URI an element's prefix stands for, looked up the tree.
std::string NamespaceOf(const pugi::xml_node& element) {
  std::string prefix = PrefixOf(element.name());
  std::string attribute = prefix.empty() ? "xmlns" : "xmlns:" + prefix;
  for (auto node = element; node; node = node.parent()) {
    if (auto declared = node.attribute(attribute.c_str())) return declared.value();
  }
  return {};
}

bool Is(const pugi::xml_node& node, const char* localName) {
  return node.type() == pugi::node_element && std::strcmp(LocalName(node.name()), localName) == 0;
}

pugi::xml_node Child(const pugi::xml_node& parent, const char* localName) {
  for (auto child : parent.children()) {
    if (Is(child, localName)) return child;
  }
  return {};
}

pugi::xml_node FirstElement(const pugi::xml_node& parent) {
  for (auto child : parent.children()) {
    if (child.type() == pugi::node_element) return child;
  }
  return {};
}

struct Url {
  std::string origin;  // scheme://host[:port]
  std::string target;  // path and query, "/" at least
};

Url SplitUrl(const std::string& url) {
  auto scheme = url.find("://");
  if (scheme == std::string::npos) Fail("Neteisingas adresas: " + url);
  auto path = url.find('/', scheme + 3);
  if (path == std::string::npos) return {url, "/"};
  return {url.substr(0, path), url.substr(path)};
}

std::string Describe(const httplib::Result& result) { return httplib::to_string(result.error()); }

std::shared_ptr<pugi::xml_document> Parse(const std::string& body, const std::string& what) {
  auto document = std::make_shared<pugi::xml_document>();
  auto parsed = document->load_buffer(body.data(), body.size());
  if (!parsed) {
    Fail(what + " ne XML: " + std::string(parsed.description()) + " (" +
         std::to_string(parsed.offset) + ")");
  }
  return document;
}

}  // namespace

HttpSoapClient::HttpSoapClient(std::chrono::milliseconds timeout) : timeout_(timeout) {}

HttpSoapClient::~HttpSoapClient() = default;

httplib::Client& HttpSoapClient::ClientFor(const std::string& origin) {
  if (!client_ || origin != origin_) {
    client_ = std::make_unique<httplib::Client>(origin);
    if (!client_->is_valid()) {
      client_.reset();
      Fail("Neteisingas adresas: " + origin);
    }
    origin_ = origin;
    auto seconds = std::chrono::duration_cast<std::chrono::seconds>(timeout_);
    auto micros = std::chrono::duration_cast<std::chrono::microseconds>(timeout_ - seconds);
    client_->set_connection_timeout(seconds.count(), micros.count());
    client_->set_read_timeout(seconds.count(), micros.count());
    client_->set_write_timeout(seconds.count(), micros.count());
    client_->set_keep_alive(true);
    client_->set_tcp_nodelay(true);
  }
  return *client_;
}

void HttpSoapClient::Init(const std::string& wsdlUrl, const std::string&, const std::string&,
                          const std::string&) {
  operations_.clear();
  endpoint_.clear();
  Url url = SplitUrl(wsdlUrl);
  auto reply = ClientFor(url.origin).Get(url.target.c_str());
  if (!reply) Fail("WSDL neperskaitytas (" + wsdlUrl + "): " + Describe(reply));
  if (reply->status != 200) {
    Fail("WSDL neperskaitytas (" + wsdlUrl + "): HTTP " + std::to_string(reply->status));
  }
  auto document = Parse(reply->body, "WSDL");
  auto definitions = document->document_element();
  if (!Is(definitions, "definitions")) Fail("WSDL be <definitions>");
  targetNamespace_ = definitions.attribute("targetNamespace").value();

  // The arguments of each operation: the schema element named after it.
  std::map<std::string, std::vector<std::string>> arguments;
  for (auto schema : Child(definitions, "types").children()) {
    if (!Is(schema, "schema")) continue;
    for (auto element : schema.children()) {
      if (!Is(element, "element")) continue;
      auto& names = arguments[element.attribute("name").value()];
      auto sequence = Child(Child(element, "complexType"), "sequence");
      for (auto part : sequence.children()) {
        if (Is(part, "element")) names.push_back(part.attribute("name").value());
      }
    }
  }
  // The SOAP 1.1 binding's actions.
  for (auto binding : definitions.children()) {
    if (!Is(binding, "binding")) continue;
    auto soapBinding = Child(binding, "binding");
    if (!soapBinding || NamespaceOf(soapBinding) != kSoap11BindingNs) continue;
    for (auto operation : binding.children()) {
      if (!Is(operation, "operation")) continue;
      std::string name = operation.attribute("name").value();
      auto soapOperation = Child(operation, "operation");
      operations_[name] = Operation{soapOperation.attribute("soapAction").value(), arguments[name]};
    }
    break;
  }
  // The SOAP 1.1 port's address.
  for (auto service : definitions.children()) {
    if (!Is(service, "service")) continue;
    for (auto port : service.children()) {
      auto address = Child(port, "address");
      if (Is(port, "port") && address && NamespaceOf(address) == kSoap11BindingNs) {
        endpoint_ = address.attribute("location").value();
        break;
      }
    }
    if (!endpoint_.empty()) break;
  }
  if (operations_.empty() || endpoint_.empty()) Fail("WSDL neturi SOAP 1.1 prievado");
}

XmlNodeList HttpSoapClient::Call(const std::string& operation,
                                 const std::vector<std::string>& arguments) {
  auto found = operations_.find(operation);
  if (found == operations_.end()) Fail("Operacija " + operation + " WSDL nerasta");
  const Operation& op = found->second;
  if (arguments.size() > op.arguments.size()) {
    Fail("Operacijai " + operation + " per daug argumentų");
  }

  pugi::xml_document request;
  auto declaration = request.append_child(pugi::node_declaration);
  declaration.append_attribute("version") = "1.0";
  declaration.append_attribute("encoding") = "utf-8";
  auto envelope = request.append_child("soap:Envelope");
  envelope.append_attribute("xmlns:soap") = kEnvelopeNs;
  auto body = envelope.append_child("soap:Body");
  auto call = body.append_child(operation.c_str());
  call.append_attribute("xmlns") = targetNamespace_.c_str();
  for (size_t i = 0; i < arguments.size(); ++i) {
    call.append_child(op.arguments[i].c_str()).text().set(arguments[i].c_str());
  }
  std::ostringstream text;
  request.save(text, "", pugi::format_raw);

  Url url = SplitUrl(endpoint_);
  httplib::Headers headers{{"SOAPAction", "\"" + op.soapAction + "\""}};
  auto reply = ClientFor(url.origin)
                   .Post(url.target.c_str(), headers, text.str(), "text/xml; charset=utf-8");
  if (!reply) Fail(operation + ": " + Describe(reply));

  std::shared_ptr<pugi::xml_document> document;
  try {
    document = Parse(reply->body, "Atsakymas");
  } catch (const RuntimeError&) {
    if (reply->status != 200) Fail(operation + ": HTTP " + std::to_string(reply->status));
    throw;
  }
  auto replyBody = Child(document->document_element(), "Body");
  if (auto fault = Child(replyBody, "Fault")) {
    Fail(operation + ": SOAP Fault " + Child(fault, "faultcode").text().get() + ": " +
         Child(fault, "faultstring").text().get());
  }
  if (reply->status != 200) Fail(operation + ": HTTP " + std::to_string(reply->status));
  if (!Is(document->document_element(), "Envelope") || !replyBody) {
    Fail(operation + ": atsakymas ne SOAP vokas");
  }
  // The result element's children; a reply without one is an empty list.
  auto result = FirstElement(FirstElement(replyBody));
  return XmlNodeList(std::move(document), result);
}

}  // namespace orvel
