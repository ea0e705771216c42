// orvel-bigdb: makes a large catalogue database for the speed checks, a fresh
// reference database with the sample data and, in bulk, goods in groups three
// deep, firms, documents and their lines.
//
//   orvel-bigdb [--goods N] [--firms N] [--documents N] [--group-goods N]
//               [--firm-documents N] [--good-movements N] [--seed N] --out FILE|URL
//
// --out names a SQLite file that is not there yet, or an office's PostgreSQL
// server ("postgresql://user@host:port/db") whose database is empty.
//
// Defaults: a million goods, 200,000 of them in one group; 100,000 firms;
// 300,000 documents, 100,000 of them of one firm; 100,000 lines of one good.
// A fill that runs over a second shows its progress on standard error. At the
// end the program tells where the large group, the busy firm and the busy
// good are.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "BigDatabase.h"
#include "host/ProgressLine.h"

namespace {

constexpr const char* kUsage =
    "Naudojimas: orvel-bigdb [--goods N] [--firms N] [--documents N] [--group-goods N]\n"
    "                        [--firm-documents N] [--good-movements N] [--seed N]\n"
    "                        --out FAILAS|postgresql://vartotojas@serveris:prievadas/duomenų_bazė\n";

bool Count(const char* text, int64_t& value) {
  char* end = nullptr;
  errno = 0;
  const long long n = std::strtoll(text, &end, 10);
  if (errno != 0 || end == text || *end != '\0' || n < 0) return false;
  value = n;
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  orvel::bigdb::Size size;
  std::string out;
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      std::fputs(kUsage, stdout);
      return 0;
    }
    int64_t* target = arg == "--goods"            ? &size.goods
                      : arg == "--firms"          ? &size.firms
                      : arg == "--documents"      ? &size.documents
                      : arg == "--group-goods"    ? &size.groupGoods
                      : arg == "--firm-documents" ? &size.firmDocuments
                      : arg == "--good-movements" ? &size.goodMovements
                                                  : nullptr;
    int64_t seed = 0;
    if (arg == "--seed") target = &seed;
    if (arg == "--out" && i + 1 < argc) {
      out = argv[++i];
      continue;
    }
    if (target == nullptr || i + 1 == argc || !Count(argv[i + 1], *target)) {
      std::fprintf(stderr, "orvel-bigdb: netinkamas argumentas „%s“\n%s", argv[i], kUsage);
      return 2;
    }
    ++i;
    if (arg == "--seed") size.seed = static_cast<uint64_t>(seed);
  }
  if (out.empty()) {
    std::fprintf(stderr, "orvel-bigdb: nenurodytas failas (--out)\n%s", kUsage);
    return 2;
  }
  // Sizes the benchmarks' defaults cannot have: the large group and the busy
  // firm shrink to what a small database holds.
  if (size.groupGoods >= size.goods) size.groupGoods = size.goods / 2;
  if (size.firmDocuments > size.documents) size.firmDocuments = size.documents / 2;

  // The percent done: on a terminal one line written over, elsewhere a line
  // at every tenth.
  orvel::ProgressLine progress(std::cerr, isatty(STDERR_FILENO), 10);
  const auto percentText = [](int percent) {
    return "Pildoma duomenų bazė: " + std::to_string(percent) + " %";
  };
  try {
    const orvel::bigdb::Made made =
        orvel::bigdb::Make(out, size, [&](double done) {
          const int percent = static_cast<int>(done * 100);
          progress.Show(percent, percentText(percent));
        });
    progress.Finish(percentText(100));
    const double seconds = progress.Seconds();
    std::printf(
        "%s: pridėta %lld prekių ir grupių, %lld firmų, %lld dokumentų, %lld eilučių per %.1f s\n"
        "didelė grupė O0000200%lld, judri firma O0000100%lld, judri prekė O0000200%lld\n",
        out.c_str(), static_cast<long long>(made.goods), static_cast<long long>(made.firms),
        static_cast<long long>(made.documents), static_cast<long long>(made.lines), seconds,
        static_cast<long long>(made.bigGroupId), static_cast<long long>(made.busyFirmId),
        static_cast<long long>(made.busyGoodId));
  } catch (const std::exception& e) {
    progress.Finish("");
    std::fprintf(stderr, "orvel-bigdb: %s\n", e.what());
    return 1;
  }
  return 0;
}
