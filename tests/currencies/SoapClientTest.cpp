// The SOAP client against the bank's service on a loopback port: what it
// reads from the WSDL, what it posts, how it hands the replies back, and
// how every kind of failure reaches the caller.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <tuple>

#include "currencies/HttpSoapClient.h"
#include "currencies/RateServiceSettings.h"
#include "hostkit/LoopbackRateService.h"
#include "orvel/RuntimeError.h"
#include "support/RuntimeErrors.h"

namespace orvel {
namespace {

using Behaviour = LoopbackRateService::Behaviour;
using ::testing::HasSubstr;
constexpr auto kTestTimeout = std::chrono::milliseconds(700);

class SoapClientTest : public ::testing::Test {
 protected:
  std::string WsdlUrl() const { return service_.Address() + RateServiceSettings::kWsdlPath; }

  LoopbackRateService service_;
  HttpSoapClient client_{kTestTimeout};
};

TEST_F(SoapClientTest, TheWsdlGivesTheSoap11EndpointNamespaceAndActions) {
  client_.Init(WsdlUrl(), "", "", "");
  EXPECT_EQ(client_.TargetNamespace(), "http://webservices.lb.lt/ExchangeRates");
  EXPECT_EQ(client_.Endpoint(), service_.Address() + "/ExchangeRates/ExchangeRates.asmx");

  client_.Call("getExchangeRatesByDate", {"2010-12-30"});
  client_.Call("getListOfCurrencies", {});
  EXPECT_EQ(service_.WsdlReads(), 1) << "the WSDL is read once, not once per call";
  EXPECT_EQ(service_.LastSoapAction("getExchangeRatesByDate"),
            "\"http://webservices.lb.lt/ExchangeRates/getExchangeRatesByDate\"");
  EXPECT_EQ(service_.LastSoapAction("getListOfCurrencies"),
            "\"http://webservices.lb.lt/ExchangeRates/getListOfCurrencies\"");
  EXPECT_THAT(service_.LastBody("getExchangeRatesByDate"),
              HasSubstr("<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\">"
                        "<soap:Body><getExchangeRatesByDate xmlns=\"http://webservices.lb.lt/"
                        "ExchangeRates\"><Date>2010-12-30</Date></getExchangeRatesByDate>"));
  EXPECT_THAT(service_.LastBody("getListOfCurrencies"), HasSubstr("<getListOfCurrencies xmlns="));
  // Arguments are escaped, not pasted in.
  client_.Call("getExchangeRatesByDate", {"<a&b>"});
  EXPECT_THAT(service_.LastBody("getExchangeRatesByDate"),
              HasSubstr("<Date>&lt;a&amp;b&gt;</Date>"));
}

TEST_F(SoapClientTest, RepliesAreTheResultsChildrenWithRowsReadByPosition) {
  client_.Init(WsdlUrl(), "", "", "");
  XmlNodeList rates = client_.Call("getExchangeRatesByDate", {"2010-12-30"});
  ASSERT_EQ(rates.Length(), 1);
  EXPECT_EQ(rates.Item(0).nodeName(), "ExchangeRates");
  XmlNodeList rows = rates.Item(0).childNodes();
  ASSERT_EQ(rows.Length(), static_cast<int>(LoopbackRateService::SampleRates().size()));
  XmlNodeList first = rows.Item(0).childNodes();
  ASSERT_EQ(first.Length(), 5) << "whitespace between elements is no node";
  std::string texts;
  for (int i = 0; i < 5; ++i) texts += first.Item(i).Text() + "|";
  EXPECT_EQ(texts, "2010.12.30|AED|10|7.1536|LTL per 10 currency units|");

  XmlNodeList currencies = client_.Call("getListOfCurrencies", {}).Item(0).childNodes();
  XmlNodeList chf = currencies.Item(6).childNodes();
  // Past the end reads as empty, not as a failure.
  EXPECT_EQ(chf.Item(0).Text() + "|" + chf.Item(1).Text() + "|" + chf.Item(2).Text() + "|" +
                chf.Item(3).Text(),
            "CHF|Šveicarijos frankas|Swiss franc|");
  EXPECT_TRUE(chf.Item(3).IsNull());
  EXPECT_EQ(chf.Item(-1).childNodes().Length(), 0);
  // Nodes keep their document after the client is gone.
  {
    HttpSoapClient client(kTestTimeout);
    client.Init(WsdlUrl(), "", "", "");
    rows = client.Call("getExchangeRatesByDate", {"2010-12-30"}).Item(0).childNodes();
  }
  EXPECT_EQ(rows.Item(12).childNodes().Item(1).Text(), "EUR");
}

// The WSDL or an operation misbehaves; a piece of the failure's text.
TEST(SoapFailureTest, EachFailureIsARuntimeErrorThatSaysWhat) {
  for (const auto& [what, behaviour, expected] :
       {std::tuple{"wsdl", Behaviour::kHttp500, "HTTP 500"},
        {"wsdl", Behaviour::kNotXml, "WSDL ne XML"},
        {"wsdl", Behaviour::kSilent, "WSDL neperskaitytas"},
        {"getExchangeRatesByDate", Behaviour::kHttp500, "HTTP 500"},
        {"getExchangeRatesByDate", Behaviour::kSoapFault,
         "SOAP Fault soap:Server: Server was unable to process request."},
        {"getExchangeRatesByDate", Behaviour::kNotXml, "ne XML"},
        {"getListOfCurrencies", Behaviour::kSilent, "getListOfCurrencies: "}}) {
    LoopbackRateService service;
    HttpSoapClient client{kTestTimeout};
    service.SetBehaviour(what, behaviour);
    auto started = std::chrono::steady_clock::now();
    std::string text;
    EXPECT_EQ(ErrorOf(
                  [&] {
                    client.Init(service.Address() + RateServiceSettings::kWsdlPath, "", "", "");
                    client.Call("getExchangeRatesByDate", {"2010-12-30"});
                    client.Call("getListOfCurrencies", {});
                  },
                  &text),
              SoapClient::kServiceFailure);
    EXPECT_THAT(text, HasSubstr(expected));
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(5));
  }
}

TEST_F(SoapClientTest, ARefusedConnectionFailsAtOnce) {
  std::string address;
  {
    LoopbackRateService gone;
    address = gone.Address();
  }
  std::string text;
  EXPECT_NE(
      ErrorOf([&] { client_.Init(address + RateServiceSettings::kWsdlPath, "", "", ""); }, &text),
      0);
  EXPECT_THAT(text, HasSubstr("WSDL neperskaitytas (" + address));
}

TEST_F(SoapClientTest, AnOperationTheWsdlDoesNotNameIsRefused) {
  client_.Init(WsdlUrl(), "", "", "");
  EXPECT_THROW(client_.Call("getRatesOfMars", {}), RuntimeError);
  EXPECT_THROW(client_.Call("getListOfCurrencies", {"extra"}), RuntimeError);
  EXPECT_EQ(service_.Calls("getRatesOfMars"), 0);
  // A reply without rows is an empty container.
  service_.SetBehaviour("getExchangeRatesByDate", Behaviour::kNoRows);
  client_.Init(WsdlUrl(), "", "", "");
  XmlNodeList rates = client_.Call("getExchangeRatesByDate", {"2015-01-01"});
  ASSERT_EQ(rates.Length(), 1);
  EXPECT_EQ(rates.Item(0).childNodes().Length(), 0);
}

TEST(RateServiceSettingsTest, TheAddressComesFromTheProcessThenTheEnvironmentThenTheDefault) {
  RateServiceSettings::SetAddress(std::nullopt);
  ::unsetenv(RateServiceSettings::kAddressVariable);
  EXPECT_EQ(RateServiceSettings::WsdlUrl(),
            "http://webservices.lb.lt/ExchangeRates/ExchangeRates.asmx?wsdl");
  ::setenv(RateServiceSettings::kAddressVariable, "http://mirror.example:8080/", 1);
  EXPECT_EQ(RateServiceSettings::Address(), "http://mirror.example:8080");
  RateServiceSettings::SetAddress("http://127.0.0.1:9");
  EXPECT_EQ(RateServiceSettings::Address(), "http://127.0.0.1:9");
  RateServiceSettings::SetAddress(std::nullopt);
  ::unsetenv(RateServiceSettings::kAddressVariable);
}

}  // namespace
}  // namespace orvel
