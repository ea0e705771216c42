#include "hostkit/LoopbackRateService.h"

#include <httplib.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <thread>

namespace orvel {

namespace {

constexpr const char* kNamespace = "http://webservices.lb.lt/ExchangeRates";
constexpr const char* kPath = "/ExchangeRates/ExchangeRates.asmx";
constexpr const char* kFxNamespace = "http://www.lb.lt/WebServices/FxRates";
constexpr const char* kFxPath = "/webservices/FxRates/FxRates.asmx";
constexpr auto kLongestSilence = std::chrono::seconds(60);

std::string Escaped(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&':
        out += "&amp;";
        break;
      case '<':
        out += "&lt;";
        break;
      case '>':
        out += "&gt;";
        break;
      case '"':
        out += "&quot;";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string Envelope(const std::string& body) {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
         "<soap:Envelope xmlns:soap=\"http://schemas.xmlsoap.org/soap/envelope/\" "
         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\">\r\n  <soap:Body>\r\n" +
         body + "  </soap:Body>\r\n</soap:Envelope>";
}

std::string Wrapped(const std::string& operation, const std::string& content,
                    const char* ns = kNamespace) {
  return "    <" + operation + "Response xmlns=\"" + ns + "\">\r\n      <" + operation +
         "Result>\r\n" + content + "      </" + operation + "Result>\r\n    </" + operation +
         "Response>\r\n";
}

std::string Fault(const std::string& text) {
  return Envelope(
      "    <soap:Fault>\r\n      <faultcode>soap:Server</faultcode>\r\n      <faultstring>" +
      Escaped(text) + "</faultstring>\r\n      <detail />\r\n    </soap:Fault>\r\n");
}

// The operation a post asks for: the tail of its SOAPAction.
std::string OperationOf(const httplib::Request& request) {
  std::string action = request.get_header_value("SOAPAction");
  while (!action.empty() && action.back() == '"') action.pop_back();
  auto slash = action.rfind('/');
  return slash == std::string::npos ? action : action.substr(slash + 1);
}

// The text of the first element named `name` in a posted envelope, whatever
// its prefix; "" when there is none.
std::string ArgumentOf(const std::string& body, const std::string& name) {
  for (size_t at = body.find(name + ">"); at != std::string::npos;
       at = body.find(name + ">", at + 1)) {
    if (at == 0 || (body[at - 1] != '<' && body[at - 1] != ':')) continue;
    size_t open = body.rfind('<', at);
    if (open == std::string::npos || body[open + 1] == '/') continue;
    size_t from = at + name.size() + 1;
    size_t close = body.find("</", from);
    return close == std::string::npos ? std::string() : body.substr(from, close - from);
  }
  return {};
}

void UnknownAction(const httplib::Request& request, httplib::Response& response) {
  response.status = 500;
  response.set_content(Fault("Server did not recognize the value of HTTP Header SOAPAction: " +
                             request.get_header_value("SOAPAction") + "."),
                       "text/xml; charset=utf-8");
}

// The rows of type `type` of the latest day on or before `date` (ISO dates
// compare as text), as the service answers for a day without its own rates.
std::vector<LoopbackRateService::FxRate> LatestOn(
    const std::vector<LoopbackRateService::FxRate>& rates, const std::string& type,
    const std::string& date) {
  std::string day;
  for (const auto& rate : rates) {
    if (rate.type == type && rate.date <= date && rate.date > day) day = rate.date;
  }
  std::vector<LoopbackRateService::FxRate> rows;
  for (const auto& rate : rates) {
    if (rate.type == type && rate.date == day) rows.push_back(rate);
  }
  return rows;
}

}  // namespace

struct LoopbackRateService::State {
  httplib::Server server;
  std::thread thread;
  int port = 0;
  mutable std::mutex mutex;
  std::condition_variable stopping;
  bool stop = false;
  std::vector<Rate> rates = SampleRates();
  std::vector<Currency> currencies = SampleCurrencies();
  std::vector<FxRate> fxRates = SampleFxRates();
  std::vector<FxCurrency> fxCurrencies = SampleFxCurrencies();
  std::map<std::string, Behaviour> behaviours;
  int wsdlReads = 0;
  std::map<std::string, int> calls;
  std::map<std::string, std::string> lastBody;
  std::map<std::string, std::string> lastAction;

  Behaviour BehaviourOf(const std::string& what) const {
    auto it = behaviours.find(what);
    return it == behaviours.end() ? Behaviour::kAnswer : it->second;
  }

  // Waits for the service to stop (or a minute); a client must give up first.
  void StaySilent() {
    std::unique_lock<std::mutex> lock(mutex);
    stopping.wait_for(lock, kLongestSilence, [&] { return stop; });
  }

  // Keeps what came in for `operation` and copies the replies' data (none
  // for kNoRows); returns how the operation is to behave.
  template <class Rates, class Currencies>
  Behaviour Record(const httplib::Request& request, const std::string& operation,
                   const Rates& heldRates, Rates& rates, const Currencies& heldCurrencies,
                   Currencies& currencies) {
    std::lock_guard<std::mutex> lock(mutex);
    ++calls[operation];
    lastBody[operation] = request.body;
    lastAction[operation] = request.get_header_value("SOAPAction");
    Behaviour behaviour = BehaviourOf(operation);
    if (behaviour != Behaviour::kNoRows) {
      rates = heldRates;
      currencies = heldCurrencies;
    }
    return behaviour;
  }

  // Answers `behaviour` other than kAnswer and kNoRows; false to go on.
  bool Misbehave(Behaviour behaviour, httplib::Response& response) {
    switch (behaviour) {
      case Behaviour::kHttp500:
        response.status = 500;
        response.set_content("Internal Server Error", "text/plain");
        return true;
      case Behaviour::kSoapFault:
        response.status = 500;
        response.set_content(Fault("Server was unable to process request. ---> Data at the root "
                                   "level is invalid."),
                             "text/xml; charset=utf-8");
        return true;
      case Behaviour::kNotXml:
        response.set_content("<html><body>Service Unavailable", "text/html");
        return true;
      case Behaviour::kSilent:
        StaySilent();
        response.status = 503;
        return true;
      default:
        return false;
    }
  }
};

LoopbackRateService::LoopbackRateService() : state_(std::make_unique<State>()) {
  State& s = *state_;
  auto wsdl = [&s](const char* path, std::string (*document)(const std::string&)) {
    s.server.Get(path,
                 [&s, document](const httplib::Request& request, httplib::Response& response) {
                   Behaviour behaviour;
                   {
                     std::lock_guard<std::mutex> lock(s.mutex);
                     ++s.wsdlReads;
                     behaviour = s.BehaviourOf("wsdl");
                   }
                   if (!request.has_param("wsdl")) {
                     response.status = 404;
                     return;
                   }
                   if (s.Misbehave(behaviour, response)) return;
                   response.set_content(document("http://127.0.0.1:" + std::to_string(s.port)),
                                        "text/xml; charset=utf-8");
                 });
  };
  wsdl(kPath, &LoopbackRateService::Wsdl);
  wsdl(kFxPath, &LoopbackRateService::FxRatesWsdl);
  s.server.Post(kPath, [&s](const httplib::Request& request, httplib::Response& response) {
    std::string operation = OperationOf(request);
    std::vector<Rate> rates;
    std::vector<Currency> currencies;
    Behaviour behaviour = s.Record(request, operation, s.rates, rates, s.currencies, currencies);
    if (s.Misbehave(behaviour, response)) return;
    if (operation == "getExchangeRatesByDate") {
      response.set_content(RatesReply(rates), "text/xml; charset=utf-8");
    } else if (operation == "getListOfCurrencies") {
      response.set_content(CurrenciesReply(currencies), "text/xml; charset=utf-8");
    } else {
      UnknownAction(request, response);
    }
  });
  s.server.Post(kFxPath, [&s](const httplib::Request& request, httplib::Response& response) {
    std::string operation = OperationOf(request);
    std::vector<FxRate> rates;
    std::vector<FxCurrency> currencies;
    Behaviour behaviour =
        s.Record(request, operation, s.fxRates, rates, s.fxCurrencies, currencies);
    if (s.Misbehave(behaviour, response)) return;
    if (behaviour == Behaviour::kOperationError) {
      response.set_content(FxRatesErrorReply(operation, "Neteisingi parametrai: nėra duomenų"),
                           "text/xml; charset=utf-8");
    } else if (operation == "getFxRates") {
      std::string type = ArgumentOf(request.body, "tp");
      std::string date = ArgumentOf(request.body, "dt");
      response.set_content(FxRatesReply(operation, LatestOn(rates, type, date)),
                           "text/xml; charset=utf-8");
    } else if (operation == "getFxRatesForCurrency") {
      std::string type = ArgumentOf(request.body, "tp");
      std::string code = ArgumentOf(request.body, "ccy");
      std::string from = ArgumentOf(request.body, "dtFrom");
      std::string to = ArgumentOf(request.body, "dtTo");
      std::vector<FxRate> rows;
      for (const auto& rate : rates) {
        if (rate.type == type && rate.currency == code && rate.date >= from && rate.date <= to) {
          rows.push_back(rate);
        }
      }
      response.set_content(FxRatesReply(operation, rows), "text/xml; charset=utf-8");
    } else if (operation == "getCurrencyList") {
      response.set_content(FxCurrenciesReply(currencies), "text/xml; charset=utf-8");
    } else {
      UnknownAction(request, response);
    }
  });
  s.server.set_tcp_nodelay(true);
  s.port = s.server.bind_to_any_port("127.0.0.1");
  // Bound and listening: connections wait in the queue until the loop runs.
  s.thread = std::thread([&s] { s.server.listen_after_bind(); });
  // A stop before the loop runs would be lost, and the join would wait forever.
  auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!s.server.is_running() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

LoopbackRateService::~LoopbackRateService() {
  {
    std::lock_guard<std::mutex> lock(state_->mutex);
    state_->stop = true;
  }
  state_->stopping.notify_all();
  state_->server.stop();
  if (state_->thread.joinable()) state_->thread.join();
}

int LoopbackRateService::Port() const { return state_->port; }

std::string LoopbackRateService::Address() const {
  return "http://127.0.0.1:" + std::to_string(state_->port);
}

void LoopbackRateService::SetRates(std::vector<Rate> rates) {
  std::lock_guard<std::mutex> lock(state_->mutex);
  state_->rates = std::move(rates);
}

void LoopbackRateService::SetCurrencies(std::vector<Currency> currencies) {
  std::lock_guard<std::mutex> lock(state_->mutex);
  state_->currencies = std::move(currencies);
}

void LoopbackRateService::SetFxRates(std::vector<FxRate> rates) {
  std::lock_guard<std::mutex> lock(state_->mutex);
  state_->fxRates = std::move(rates);
}

void LoopbackRateService::SetFxCurrencies(std::vector<FxCurrency> currencies) {
  std::lock_guard<std::mutex> lock(state_->mutex);
  state_->fxCurrencies = std::move(currencies);
}

void LoopbackRateService::SetBehaviour(const std::string& what, Behaviour behaviour) {
  std::lock_guard<std::mutex> lock(state_->mutex);
  state_->behaviours[what] = behaviour;
}

int LoopbackRateService::WsdlReads() const {
  std::lock_guard<std::mutex> lock(state_->mutex);
  return state_->wsdlReads;
}

int LoopbackRateService::Calls(const std::string& operation) const {
  std::lock_guard<std::mutex> lock(state_->mutex);
  auto it = state_->calls.find(operation);
  return it == state_->calls.end() ? 0 : it->second;
}

std::string LoopbackRateService::LastBody(const std::string& operation) const {
  std::lock_guard<std::mutex> lock(state_->mutex);
  auto it = state_->lastBody.find(operation);
  return it == state_->lastBody.end() ? std::string() : it->second;
}

std::string LoopbackRateService::LastSoapAction(const std::string& operation) const {
  std::lock_guard<std::mutex> lock(state_->mutex);
  auto it = state_->lastAction.find(operation);
  return it == state_->lastAction.end() ? std::string() : it->second;
}

std::vector<LoopbackRateService::Rate> LoopbackRateService::SampleRates() {
  const char* rows[][3] = {
      {"AED", "10", "7.1536"},  {"ARS", "10", "6.6001"},  {"AUD", "1", "2.6512"},
      {"BGN", "1", "1.7655"},   {"BRL", "1", "1.5563"},   {"CAD", "1", "2.6161"},
      {"CHF", "1", "2.7640"},   {"CNY", "10", "3.9610"},  {"CZK", "100", "13.7635"},
      {"DKK", "1", "0.4631"},   {"EEK", "10", "2.2067"},  {"EGP", "10", "4.5130"},
      {"EUR", "1", "3.4528"},   {"GBP", "1", "4.0592"},   {"HKD", "10", "3.3791"},
      {"HRK", "1", "0.4680"},   {"HUF", "100", "1.2403"}, {"ILS", "1", "0.7360"},
      {"INR", "100", "5.8491"}, {"ISK", "100", "2.2752"}, {"JPY", "100", "3.2088"},
      {"KRW", "100", "0.2294"}, {"KZT", "100", "1.7800"}, {"LVL", "1", "4.8652"},
      {"MDL", "10", "2.1574"},  {"MXN", "10", "2.1244"},  {"NOK", "1", "0.4473"},
      {"NZD", "1", "2.0236"},   {"PLN", "1", "0.8724"},   {"RON", "1", "0.8087"},
      {"RUB", "100", "8.6188"}, {"SEK", "1", "0.3853"},   {"SGD", "1", "2.0460"},
      {"THB", "10", "0.8736"},  {"TRY", "1", "1.7052"},   {"UAH", "10", "3.3060"},
      {"USD", "1", "2.6060"},   {"XDR", "1", "4.0103"},   {"ZAR", "1", "0.3941"},
  };
  std::vector<Rate> rates;
  for (const auto& row : rows) rates.push_back({"2010.12.30", row[0], row[1], row[2]});
  return rates;
}

std::vector<LoopbackRateService::Currency> LoopbackRateService::SampleCurrencies() {
  return {
      {"AED", "JAE dirhamas", "UAE dirham"},
      {"ARS", "Argentinos pesas", "Argentine peso"},
      {"AUD", "Australijos doleris", "Australian dollar"},
      {"BGN", "Bulgarijos levas", "Bulgarian lev"},
      {"BRL", "Brazilijos realas", "Brazilian real"},
      {"CAD", "Kanados doleris", "Canadian dollar"},
      {"CHF", "Šveicarijos frankas", "Swiss franc"},
      {"CNY", "Kinijos ženminbi juanis", "Chinese yuan renminbi"},
      {"CZK", "Čekijos krona", "Czech koruna"},
      {"DKK", "Danijos krona", "Danish krone"},
      {"EEK", "Estijos krona", "Estonian kroon"},
      {"EGP", "Egipto svaras", "Egyptian pound"},
      {"EUR", "Euras", "Euro"},
      {"GBP", "Didžiosios Britanijos svaras sterlingų", "Pound sterling"},
      {"HKD", "Honkongo doleris", "Hong Kong dollar"},
      {"HRK", "Kroatijos kuna", "Croatian kuna"},
      {"HUF", "Vengrijos forintas", "Hungarian forint"},
      {"ILS", "Izraelio šekelis", "Israeli shekel"},
      {"INR", "Indijos rupija", "Indian rupee"},
      {"ISK", "Islandijos krona", "Iceland krona"},
      {"JPY", "Japonijos jena", "Japanese yen"},
      {"KRW", "Pietų Korėjos vonas", "South Korean won"},
      {"KZT", "Kazachstano tengė", "Kazakhstan tenge"},
      {"LTL", "Lietuvos litas", "Lithuanian litas"},
      {"LVL", "Latvijos latas", "Latvian lats"},
      {"MDL", "Moldovos lėja", "Moldovan leu"},
      {"MXN", "Meksikos pesas", "Mexican peso"},
      {"NOK", "Norvegijos krona", "Norwegian krone"},
      {"NZD", "Naujosios Zelandijos doleris", "New Zealand dollar"},
      {"PLN", "Lenkijos zlotas", "Polish zloty"},
      {"RON", "Rumunijos lėja", "Romanian leu"},
      {"RUB", "Rusijos rublis", "Russian rouble"},
      {"SEK", "Švedijos krona", "Swedish krona"},
      {"SGD", "Singapūro doleris", "Singapore dollar"},
      {"THB", "Tailando batas", "Thai baht"},
      {"TRY", "Turkijos lira", "Turkish lira"},
      {"UAH", "Ukrainos grivina", "Ukrainian hryvnia"},
      {"USD", "JAV doleris", "US dollar"},
      {"ZAR", "Pietų Afrikos randas", "South African rand"},
  };
}

namespace {
std::string GeneratedCode(int i) {
  std::string code = "AAA";
  code[2] = static_cast<char>('A' + i % 26);
  code[1] = static_cast<char>('A' + (i / 26) % 26);
  code[0] = static_cast<char>('A' + (i / 676) % 26);
  return code;
}
}  // namespace

std::vector<LoopbackRateService::Rate> LoopbackRateService::GeneratedRates(int count) {
  static const char* quantities[] = {"1", "10", "100"};
  std::vector<Rate> rates;
  for (int i = 0; i < count; ++i) {
    rates.push_back({"2010.12.30", GeneratedCode(i), quantities[i % 3],
                     std::to_string(1 + i % 9) + "." + std::to_string(1000 + i)});
  }
  return rates;
}

std::vector<LoopbackRateService::Currency> LoopbackRateService::GeneratedCurrencies(int count) {
  std::vector<Currency> currencies;
  for (int i = 0; i < count; ++i) {
    std::string code = GeneratedCode(i);
    currencies.push_back({code, "Valiuta " + code, "Currency " + code});
  }
  return currencies;
}

std::string LoopbackRateService::RatesReply(const std::vector<Rate>& rates) {
  std::string rows = "        <ExchangeRates xmlns=\"\">\r\n";
  for (const auto& r : rates) {
    rows += "          <item>\r\n            <date>" + Escaped(r.date) +
            "</date>\r\n            <currency>" + Escaped(r.currency) +
            "</currency>\r\n            <quantity>" + Escaped(r.quantity) +
            "</quantity>\r\n            <rate>" + Escaped(r.rate) +
            "</rate>\r\n            <unit>LTL per " + Escaped(r.quantity) +
            " currency units</unit>\r\n          </item>\r\n";
  }
  rows += "        </ExchangeRates>\r\n";
  return Envelope(Wrapped("getExchangeRatesByDate", rows));
}

std::string LoopbackRateService::CurrenciesReply(const std::vector<Currency>& currencies) {
  std::string rows = "        <Currencies xmlns=\"\">\r\n";
  for (const auto& c : currencies) {
    rows += "          <item>\r\n            <currency>" + Escaped(c.code) +
            "</currency>\r\n            <description lang=\"lt\">" + Escaped(c.nameLt) +
            "</description>\r\n            <description lang=\"en\">" + Escaped(c.nameEn) +
            "</description>\r\n          </item>\r\n";
  }
  rows += "        </Currencies>\r\n";
  return Envelope(Wrapped("getListOfCurrencies", rows));
}

std::vector<LoopbackRateService::FxRate> LoopbackRateService::SampleFxRates() {
  // The rates of two days of 2025, by publication ("EU") and for accounting
  // ("LT"); the accounting rates differ in the last digits.
  const char* rows[][3] = {
      {"USD", "1.0825", "1.0841"},   {"GBP", "0.83405", "0.83512"}, {"CHF", "0.9423", "0.9431"},
      {"PLN", "4.2765", "4.2801"},   {"SEK", "11.2370", "11.2455"}, {"NOK", "11.6905", "11.7020"},
      {"DKK", "7.4621", "7.4623"},   {"CZK", "25.012", "25.031"},   {"JPY", "162.45", "162.81"},
      {"CNY", "7.8123", "7.8250"},   {"HUF", "404.10", "404.85"},   {"RUB", "95.5000", "95.7200"},
      {"CAD", "1.5012", "1.5030"},   {"AUD", "1.6540", "1.6561"},   {"NZD", "1.8102", "1.8120"},
      {"TRY", "38.1200", "38.2010"}, {"UAH", "44.8500", "44.9100"}, {"ILS", "3.9610", "3.9702"},
  };
  std::vector<FxRate> rates;
  for (const char* day : {"2025-03-13", "2025-03-14"}) {
    bool second = std::string(day) == "2025-03-14";
    for (const auto& row : rows) {
      rates.push_back({"EU", day, row[0], second ? std::string(row[1]) + "1" : row[1]});
      rates.push_back({"LT", day, row[0], second ? std::string(row[2]) + "1" : row[2]});
    }
  }
  return rates;
}

std::vector<LoopbackRateService::FxCurrency> LoopbackRateService::SampleFxCurrencies() {
  return {
      {"EUR", "Euras", "Euro", "978", "2"},
      {"USD", "JAV doleris", "US dollar", "840", "2"},
      {"GBP", "Didžiosios Britanijos svaras sterlingų", "Pound sterling", "826", "2"},
      {"CHF", "Šveicarijos frankas", "Swiss franc", "756", "2"},
      {"PLN", "Lenkijos zlotas", "Polish zloty", "985", "2"},
      {"SEK", "Švedijos krona", "Swedish krona", "752", "2"},
      {"NOK", "Norvegijos krona", "Norwegian krone", "578", "2"},
      {"DKK", "Danijos krona", "Danish krone", "208", "2"},
      {"CZK", "Čekijos krona", "Czech koruna", "203", "2"},
      {"JPY", "Japonijos jena", "Japanese yen", "392", "0"},
      {"CNY", "Kinijos ženminbi juanis", "Chinese yuan renminbi", "156", "2"},
      {"HUF", "Vengrijos forintas", "Hungarian forint", "348", "2"},
      {"RUB", "Rusijos rublis", "Russian rouble", "643", "2"},
      {"CAD", "Kanados doleris", "Canadian dollar", "124", "2"},
      {"AUD", "Australijos doleris", "Australian dollar", "036", "2"},
      {"NZD", "Naujosios Zelandijos doleris", "New Zealand dollar", "554", "2"},
      {"TRY", "Turkijos lira", "Turkish lira", "949", "2"},
      {"UAH", "Ukrainos grivina", "Ukrainian hryvnia", "980", "2"},
      {"ILS", "Izraelio šekelis", "Israeli shekel", "376", "2"},
  };
}

std::string LoopbackRateService::FxRatesReply(const std::string& operation,
                                              const std::vector<FxRate>& rates) {
  std::string rows = "        <FxRates xmlns=\"" + std::string(kFxNamespace) + "\">\r\n";
  for (const auto& r : rates) {
    rows += "          <FxRate>\r\n            <Tp>" + Escaped(r.type) +
            "</Tp>\r\n            <Dt>" + Escaped(r.date) +
            "</Dt>\r\n            <CcyAmt>\r\n              <Ccy>EUR</Ccy>\r\n"
            "              <Amt>1</Amt>\r\n            </CcyAmt>\r\n            <CcyAmt>\r\n"
            "              <Ccy>" +
            Escaped(r.currency) + "</Ccy>\r\n              <Amt>" + Escaped(r.amount) +
            "</Amt>\r\n            </CcyAmt>\r\n          </FxRate>\r\n";
  }
  rows += "        </FxRates>\r\n";
  return Envelope(Wrapped(operation, rows, kFxNamespace));
}

std::string LoopbackRateService::FxRatesErrorReply(const std::string& operation,
                                                   const std::string& description) {
  std::string rows = "        <FxRates xmlns=\"" + std::string(kFxNamespace) +
                     "\">\r\n          <OprlErr>\r\n            <Err>\r\n"
                     "              <Prtry>1</Prtry>\r\n              <Desc>" +
                     Escaped(description) +
                     "</Desc>\r\n            </Err>\r\n          </OprlErr>\r\n"
                     "        </FxRates>\r\n";
  return Envelope(Wrapped(operation, rows, kFxNamespace));
}

std::string LoopbackRateService::FxCurrenciesReply(const std::vector<FxCurrency>& currencies) {
  std::string rows = "        <CcyTbl xmlns=\"" + std::string(kFxNamespace) + "\">\r\n";
  for (const auto& c : currencies) {
    rows += "          <CcyNtry>\r\n            <Ccy>" + Escaped(c.code) +
            "</Ccy>\r\n            <CcyNm lang=\"LT\">" + Escaped(c.nameLt) +
            "</CcyNm>\r\n            <CcyNm lang=\"EN\">" + Escaped(c.nameEn) +
            "</CcyNm>\r\n            <CcyNbr>" + Escaped(c.number) +
            "</CcyNbr>\r\n            <CcyMnrUnts>" + Escaped(c.minorUnits) +
            "</CcyMnrUnts>\r\n          </CcyNtry>\r\n";
  }
  rows += "        </CcyTbl>\r\n";
  return Envelope(Wrapped("getCurrencyList", rows, kFxNamespace));
}

namespace {

struct WsdlOperation {
  std::string name;
  std::vector<std::string> arguments;
};

// An ASP.NET service's WSDL: document/literal, the SOAP 1.2 binding and port
// before the 1.1 ones (a client must pick the 1.1 ones by their namespace,
// not by their place), each result an open element.
std::string ServiceWsdl(const std::string& location, const std::string& tns,
                        const std::string& service, const std::vector<WsdlOperation>& operations) {
  auto operationElements = [&](const WsdlOperation& op) {
    std::string arguments;
    for (const auto& argument : op.arguments) {
      arguments += "            <s:element minOccurs=\"0\" maxOccurs=\"1\" name=\"" + argument +
                   "\" type=\"s:string\" />\r\n";
    }
    return "      <s:element name=\"" + op.name +
           "\">\r\n        <s:complexType>\r\n          <s:sequence>\r\n" + arguments +
           "          </s:sequence>\r\n        </s:complexType>\r\n      </s:element>\r\n"
           "      <s:element name=\"" +
           op.name +
           "Response\">\r\n        <s:complexType>\r\n          <s:sequence>\r\n"
           "            <s:element minOccurs=\"0\" maxOccurs=\"1\" name=\"" +
           op.name +
           "Result\">\r\n              <s:complexType mixed=\"true\">\r\n"
           "                <s:sequence><s:any /></s:sequence>\r\n"
           "              </s:complexType>\r\n            </s:element>\r\n"
           "          </s:sequence>\r\n        </s:complexType>\r\n      </s:element>\r\n";
  };
  auto messages = [&](const std::string& op) {
    return "  <wsdl:message name=\"" + op +
           "SoapIn\">\r\n    <wsdl:part name=\"parameters\" "
           "element=\"tns:" +
           op + "\" />\r\n  </wsdl:message>\r\n  <wsdl:message name=\"" + op +
           "SoapOut\">\r\n    <wsdl:part name=\"parameters\" element=\"tns:" + op +
           "Response\" />\r\n  </wsdl:message>\r\n";
  };
  auto portOperation = [&](const std::string& op) {
    return "    <wsdl:operation name=\"" + op + "\">\r\n      <wsdl:input message=\"tns:" + op +
           "SoapIn\" />\r\n      <wsdl:output message=\"tns:" + op +
           "SoapOut\" />\r\n    </wsdl:operation>\r\n";
  };
  auto bindingOperation = [&](const std::string& prefix, const std::string& op) {
    return "    <wsdl:operation name=\"" + op + "\">\r\n      <" + prefix +
           ":operation soapAction=\"" + tns + "/" + op +
           "\" style=\"document\" />\r\n"
           "      <wsdl:input><" +
           prefix +
           ":body use=\"literal\" /></wsdl:input>\r\n"
           "      <wsdl:output><" +
           prefix +
           ":body use=\"literal\" /></wsdl:output>\r\n"
           "    </wsdl:operation>\r\n";
  };
  auto binding = [&](const std::string& name, const std::string& prefix) {
    std::string text = "  <wsdl:binding name=\"" + name + "\" type=\"tns:" + service +
                       "Soap\">\r\n    <" + prefix +
                       ":binding transport=\"http://schemas.xmlsoap.org/soap/http\" />\r\n";
    for (const auto& op : operations) text += bindingOperation(prefix, op.name);
    return text + "  </wsdl:binding>\r\n";
  };
  std::string elements, allMessages, portOperations;
  for (const auto& op : operations) {
    elements += operationElements(op);
    allMessages += messages(op.name);
    portOperations += portOperation(op.name);
  }
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
         "<wsdl:definitions xmlns:soap=\"http://schemas.xmlsoap.org/wsdl/soap/\" "
         "xmlns:tm=\"http://microsoft.com/wsdl/mime/textMatching/\" "
         "xmlns:soapenc=\"http://schemas.xmlsoap.org/soap/encoding/\" "
         "xmlns:mime=\"http://schemas.xmlsoap.org/wsdl/mime/\" xmlns:tns=\"" +
         tns +
         "\" "
         "xmlns:s=\"http://www.w3.org/2001/XMLSchema\" "
         "xmlns:soap12=\"http://schemas.xmlsoap.org/wsdl/soap12/\" "
         "xmlns:http=\"http://schemas.xmlsoap.org/wsdl/http/\" targetNamespace=\"" +
         tns +
         "\" "
         "xmlns:wsdl=\"http://schemas.xmlsoap.org/wsdl/\">\r\n"
         "  <wsdl:types>\r\n    <s:schema elementFormDefault=\"qualified\" targetNamespace=\"" +
         tns + "\">\r\n" + elements + "    </s:schema>\r\n  </wsdl:types>\r\n" + allMessages +
         "  <wsdl:portType name=\"" + service + "Soap\">\r\n" + portOperations +
         "  </wsdl:portType>\r\n" + binding(service + "Soap12", "soap12") +
         binding(service + "Soap", "soap") + "  <wsdl:service name=\"" + service +
         "\">\r\n    <wsdl:port name=\"" + service + "Soap12\" binding=\"tns:" + service +
         "Soap12\">\r\n      <soap12:address location=\"" + location +
         "\" />\r\n    </wsdl:port>\r\n    <wsdl:port name=\"" + service +
         "Soap\" binding=\"tns:" + service + "Soap\">\r\n      <soap:address location=\"" +
         location + "\" />\r\n    </wsdl:port>\r\n  </wsdl:service>\r\n</wsdl:definitions>";
}

}  // namespace

std::string LoopbackRateService::Wsdl(const std::string& address) {
  return ServiceWsdl(address + kPath, kNamespace, "ExchangeRates",
                     {{"getExchangeRatesByDate", {"Date"}}, {"getListOfCurrencies", {}}});
}

std::string LoopbackRateService::FxRatesWsdl(const std::string& address) {
  return ServiceWsdl(address + kFxPath, kFxNamespace, "FxRates",
                     {{"getCurrencyList", {}},
                      {"getFxRates", {"tp", "dt"}},
                      {"getFxRatesForCurrency", {"tp", "ccy", "dtFrom", "dtTo"}}});
}

}  // namespace orvel
