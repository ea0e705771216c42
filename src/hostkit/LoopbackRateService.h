#pragma once

#include <memory>
#include <string>
#include <vector>

namespace orvel {

// The bank's exchange-rate services on 127.0.0.1, for tests, the demo, the
// benchmark and the reference host's local mirror: a real HTTP server (cpp-httplib) on an ephemeral
// port, started by the constructor and stopped by the destructor. It serves the WSDL at
// /ExchangeRates/ExchangeRates.asmx?wsdl (SOAP 1.1 and 1.2 bindings,
// document/literal, target namespace http://webservices.lb.lt/ExchangeRates,
// its port's address pointing back at this server) and answers the SOAP 1.1
// posts of "getExchangeRatesByDate" and "getListOfCurrencies" in the
// service's own shape:
//   ...Response > ...Result > ExchangeRates > item > date, currency,
//                                                    quantity, rate, unit
//   ...Response > ...Result > Currencies > item > currency,
//                                                 description lang="lt",
//                                                 description lang="en"
// It also serves the current service, FxRates, at
// /webservices/FxRates/FxRates.asmx (target namespace
// http://www.lb.lt/WebServices/FxRates): "getFxRates" (tp, dt) answers the
// rows of type tp of the latest day on or before dt, "getFxRatesForCurrency"
// (tp, ccy, dtFrom, dtTo) the rows of one currency in the period, and
// "getCurrencyList" the currency table:
//   ...Result > FxRates > FxRate > Tp, Dt, CcyAmt > (Ccy EUR, Amt 1),
//                                          CcyAmt > (Ccy, Amt)
//   ...Result > FxRates > OprlErr > Err > Prtry, Desc      (an error)
//   ...Result > CcyTbl > CcyNtry > Ccy, CcyNm lang="LT", CcyNm lang="EN",
//                                  CcyNbr, CcyMnrUnts
// Each operation can be made to fail the ways a real service does.
class LoopbackRateService {
 public:
  struct Rate {
    std::string date;  // "2010.12.30"
    std::string currency;
    std::string quantity;
    std::string rate;
  };
  struct Currency {
    std::string code;
    std::string nameLt;
    std::string nameEn;
  };
  // One rate of the current service: one euro buys `amount` of `currency`.
  struct FxRate {
    std::string type;  // "EU" or "LT"
    std::string date;  // "2025-03-14"
    std::string currency;
    std::string amount;
  };
  struct FxCurrency {
    std::string code;
    std::string nameLt;
    std::string nameEn;
    std::string number;
    std::string minorUnits;
  };
  enum class Behaviour {
    kAnswer,          // the reply in the service's shape
    kHttp500,         // HTTP 500 with a plain-text body
    kSoapFault,       // HTTP 500 with a SOAP Fault
    kNotXml,          // HTTP 200 with a body that is not XML
    kNoRows,          // the reply's container without rows
    kSilent,          // never answers (until the service stops)
    kOperationError,  // FxRates only: the reply holds the service's own error
  };

  LoopbackRateService();
  ~LoopbackRateService();
  LoopbackRateService(const LoopbackRateService&) = delete;
  LoopbackRateService& operator=(const LoopbackRateService&) = delete;

  int Port() const;
  // "http://127.0.0.1:<port>", the service address the client is given.
  std::string Address() const;

  void SetRates(std::vector<Rate> rates);
  void SetCurrencies(std::vector<Currency> currencies);
  void SetFxRates(std::vector<FxRate> rates);
  void SetFxCurrencies(std::vector<FxCurrency> currencies);
  // For "wsdl" (both services' documents) or an operation's name.
  void SetBehaviour(const std::string& what, Behaviour behaviour);

  // What came in: the number of WSDL reads and of posts of an operation,
  // and the last post's body and SOAPAction header of an operation.
  int WsdlReads() const;
  int Calls(const std::string& operation) const;
  std::string LastBody(const std::string& operation) const;
  std::string LastSoapAction(const std::string& operation) const;

  // Sample data of the litas era: several dozen currencies quoted on
  // 2010.12.30 with quantities of 1, 10 and 100, and the bank's currency list
  // (which leaves out "XDR", quoted all the same).
  static std::vector<Rate> SampleRates();
  static std::vector<Currency> SampleCurrencies();
  // `count` made-up currencies ("AAA", "AAB", ...) and their list entries.
  static std::vector<Rate> GeneratedRates(int count);
  static std::vector<Currency> GeneratedCurrencies(int count);

  // The current service's sample data: 18 currencies on 2025-03-13 and
  // 2025-03-14, of both types, and its currency table (with the euro).
  static std::vector<FxRate> SampleFxRates();
  static std::vector<FxCurrency> SampleFxCurrencies();

  // The documents themselves, as the services write them.
  static std::string Wsdl(const std::string& address);
  static std::string FxRatesWsdl(const std::string& address);
  static std::string FxRatesReply(const std::string& operation, const std::vector<FxRate>& rates);
  static std::string FxRatesErrorReply(const std::string& operation,
                                       const std::string& description);
  static std::string FxCurrenciesReply(const std::vector<FxCurrency>& currencies);
  static std::string RatesReply(const std::vector<Rate>& rates);
  static std::string CurrenciesReply(const std::vector<Currency>& currencies);

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace orvel
