#include "currencies/SoapClient.h"

#include "currencies/HttpSoapClient.h"
#include "currencies/RateServiceSettings.h"
#include "orvel/RuntimeError.h"

namespace orvel {

namespace {

SoapClient::Factory& HeldFactory() {
  static SoapClient::Factory factory;
  return factory;
}

}  // namespace

std::unique_ptr<SoapClient> SoapClient::Create() {
  std::unique_ptr<SoapClient> client;
  if (HeldFactory()) {
    client = HeldFactory()();
  } else {
    client = std::make_unique<HttpSoapClient>(RateServiceSettings::Timeout());
  }
  if (!client) throw RuntimeError(429, "SOAP klientas nesukurtas");
  return client;
}

void SoapClient::SetFactory(Factory factory) { HeldFactory() = std::move(factory); }

}  // namespace orvel
