#include "currencies/SoapClient.h"

#include "common/ModuleState.h"
#include "currencies/HttpSoapClient.h"
#include "currencies/RateServiceSettings.h"
#include "orvel/RuntimeError.h"

namespace orvel {

std::unique_ptr<SoapClient> SoapClient::Create() {
  std::unique_ptr<SoapClient> client;
  if (auto factory = TheModuleState().Piece<Factory>()) {
    client = (*factory)();
  } else {
    client = std::make_unique<HttpSoapClient>(RateServiceSettings::Timeout());
  }
  if (!client) throw RuntimeError(429, "SOAP klientas nesukurtas");
  return client;
}

void SoapClient::SetFactory(Factory factory) {
  TheModuleState().SetPiece(factory ? std::make_shared<Factory>(std::move(factory)) : nullptr);
}

}  // namespace orvel
