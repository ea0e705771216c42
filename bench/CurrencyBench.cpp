// The day-rate window's whole fill against a loopback rate service quoting
// 200 currencies: the WSDL read, both SOAP calls, the parsing, and both
// passes into the list beside 200 stored currencies. The baseline, in the
// same run, makes plain HTTP GETs of the same three documents from a static
// loopback server and loads each with pugixml. The program prints the ratio
// (fill / baseline, by CPU time) after Google Benchmark's own table; the
// target is 2 or less. Run with --benchmark_repetitions=3 on a busy machine:
// the fastest repetition counts. Beyond the HTTP and XML work that both sides
// share, most of the fill's time goes to the list model (200 rows of five
// keyed sub-items, cleared and rebuilt) and the runtime's number formats.
//
//   orvel_bench_currencies [benchmark flags]

#include <benchmark/benchmark.h>
#include <httplib.h>

#include <cstdio>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <thread>

#include "RatioReporter.h"
#include "common/Catalogue.h"
#include "common/Platform.h"
#include "currencies/RateServiceSettings.h"
#include "currencies/frmCurrencyRates.h"
#include "host/Convert.h"
#include "host/MemoryRecordset.h"
#include "orvel/OrvelObjectUI.h"
#include "module/ClassFactory.h"
#include "testhost/CallLog.h"
#include "hostkit/LoopbackRateService.h"
#include "testhost/MemoryBusinessObject.h"
#include "testhost/ScriptedUi.h"
#include "testhost/TestHost.h"
#include "testhost/TestHostClasses.h"
#include "testhost/TestObjectManager.h"
#include "testhost/TestWindowManager.h"

namespace {

using namespace orvel;

constexpr int kCurrencies = 200;

// The three documents served by plain GETs, for the baseline.
class StaticServer {
 public:
  explicit StaticServer(const std::string& serviceAddress) {
    documents_ = {LoopbackRateService::Wsdl(serviceAddress),
                  LoopbackRateService::RatesReply(LoopbackRateService::GeneratedRates(kCurrencies)),
                  LoopbackRateService::CurrenciesReply(
                      LoopbackRateService::GeneratedCurrencies(kCurrencies))};
    for (size_t i = 0; i < documents_.size(); ++i) {
      server_.Get("/doc" + std::to_string(i),
                  [this, i](const httplib::Request&, httplib::Response& response) {
                    response.set_content(documents_[i], "text/xml; charset=utf-8");
                  });
    }
    server_.set_tcp_nodelay(true);
    port_ = server_.bind_to_any_port("127.0.0.1");
    thread_ = std::thread([this] { server_.listen_after_bind(); });
    while (!server_.is_running()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  ~StaticServer() {
    server_.stop();
    thread_.join();
  }
  std::string Address() const { return "http://127.0.0.1:" + std::to_string(port_); }

 private:
  std::vector<std::string> documents_;
  httplib::Server server_;
  std::thread thread_;
  int port_ = 0;
};

struct Fixture {
  LoopbackRateService service;
  StaticServer documents{service.Address()};
  TestHost host;
  std::shared_ptr<frmCurrencyRates> window;

  Fixture() {
    service.SetRates(LoopbackRateService::GeneratedRates(kCurrencies));
    service.SetCurrencies(LoopbackRateService::GeneratedCurrencies(kCurrencies));
    RateServiceSettings::SetAddress(service.Address());
    ResetOrvelS();
    Platform::Attach(host.HostClasses(), host.Ui());
    host.SetAdapterSource([](const std::string& oid) {
      return std::dynamic_pointer_cast<OrvelObjectUI>(ClassFactory::Create("UI" + oid.substr(1)));
    });
    // 200 stored currencies: every quoted code, every third with a fixed rate.
    auto stored = std::make_shared<MemoryRecordset>(std::vector<std::string>{
        "Code", "OIDR", "State", "OneCurr", "Rate", "FixedRate", "BaseCurrency"});
    auto rates = LoopbackRateService::GeneratedRates(kCurrencies);
    for (int i = 0; i < kCurrencies; ++i) {
      stored->AddRow({Variant(rates[static_cast<size_t>(i)].currency),
                      Variant("O0002200" + std::to_string(i + 1)), Variant("Šalies"),
                      Variant("vienetas"), Variant(1.5 + i), Variant(i % 3 == 0 ? 2.0 : 0.0),
                      Variant(int32_t{0})});
    }
    host.BusinessObject("O0002200")->ReplyRead("GetCurrencyList", stored);
    auto adapter = host.ObjectManager()->GetOrvelObjectUI("O0002200");
    auto result = adapter->ClickMenu("O0002200", "", "Valiutų kursų įrašymas", "");
    window = result.Value.ObjectAs<frmCurrencyRates>();
    host.WindowManager()->ShowWindow(window);
    window->dtpDate.SetValue(Variant(DateSerial(2010, 12, 30)));
  }
  ~Fixture() {
    window.reset();
    Platform::Detach();
    ResetOrvelS();
    RateServiceSettings::SetAddress(std::nullopt);
  }
};

Fixture& Shared() {
  static Fixture fixture;
  return fixture;
}

void BM_Baseline(benchmark::State& state) {
  std::string address = Shared().documents.Address();
  for (auto _ : state) {
    httplib::Client client(address);
    client.set_keep_alive(true);
    client.set_tcp_nodelay(true);
    size_t nodes = 0;
    for (const char* path : {"/doc0", "/doc1", "/doc2"}) {
      auto reply = client.Get(path);
      if (!reply) state.SkipWithError("GET failed");
      pugi::xml_document document;
      document.load_buffer(reply->body.data(), reply->body.size());
      nodes += !document.document_element().empty();
    }
    benchmark::DoNotOptimize(nodes);
  }
}

void BM_Fill(benchmark::State& state) {
  auto& window = *Shared().window;
  for (auto _ : state) {
    window.cmdGo_Click();
    if (window.lvwRows.ListItems().Count() != kCurrencies) state.SkipWithError("short fill");
  }
  Shared().host.Log().Clear();
}

BENCHMARK(BM_Baseline)->Unit(benchmark::kMillisecond)->MinTime(2.0);
BENCHMARK(BM_Fill)->Unit(benchmark::kMillisecond)->MinTime(2.0);

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  orvel::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  double ratio = reporter.Ratio("BM_Fill", "BM_Baseline");
  if (ratio >= 0) std::printf("rate window fill / baseline: %.2f (target <= 2)\n", ratio);
  benchmark::Shutdown();
  return 0;
}
