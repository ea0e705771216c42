#include "refhost/HostPeriod.h"

#include <charconv>
#include <ctime>
#include <sstream>

#include "host/Convert.h"
#include "orvel/Locale.h"
#include "orvel/OrvelEnvironment.h"
#include "refhost/Prompter.h"

namespace orvel {

namespace {

constexpr const char* kSection = "OrvelHost";

std::optional<int> ReadDays(const std::string& text) {
  int days = 0;
  const char* end = text.data() + text.size();
  auto [at, error] = std::from_chars(text.data(), end, days);
  if (error != std::errc() || at != end || days < 0 || days > 36500) return std::nullopt;
  return days;
}

std::string IsoDate(Date d) { return FormatDate(d, Locale::Lithuanian()); }

}  // namespace

HostPeriod HostPeriod::Load(OrvelEnvironment& environment, Date today) {
  HostPeriod period;
  int year = 0, month = 0, day = 0;
  SplitDate(today, year, month, day);
  period.dateFrom = DateSerial(year, 1, 1);
  period.dateTo = today;
  const auto get = [&](const char* key) { return environment.GetUserSetting(kSection, key, ""); };
  const auto from = ParseDate(get("PeriodFrom"), Locale::Lithuanian());
  const auto to = ParseDate(get("PeriodTo"), Locale::Lithuanian());
  const auto days = ReadDays(get("PeriodDaysBack"));
  const std::string useDates = get("PeriodUseDates");
  if (from && to && days && from->serial <= to->serial && (useDates == "0" || useDates == "1")) {
    period.dateFrom = *from;
    period.dateTo = *to;
    period.daysBack = *days;
    period.useDates = useDates == "1";
  }
  return period;
}

void HostPeriod::Save(OrvelEnvironment& environment) const {
  environment.SaveUserSetting(kSection, "PeriodFrom", IsoDate(dateFrom));
  environment.SaveUserSetting(kSection, "PeriodTo", IsoDate(dateTo));
  environment.SaveUserSetting(kSection, "PeriodDaysBack", std::to_string(daysBack));
  environment.SaveUserSetting(kSection, "PeriodUseDates", useDates ? "1" : "0");
}

bool HostPeriod::Read(const std::string& answer) {
  std::istringstream words(answer);
  std::string first, second, rest;
  words >> first >> second >> rest;
  if (first.empty() || !rest.empty()) return false;
  if (second.empty()) {
    const auto days = ReadDays(first);
    if (!days) return false;
    daysBack = *days;
    useDates = false;
    return true;
  }
  const auto from = ParseDate(first, Locale::Lithuanian());
  const auto to = ParseDate(second, Locale::Lithuanian());
  if (!from || !to || from->serial > to->serial) return false;
  dateFrom = *from;
  dateTo = *to;
  useDates = true;
  return true;
}

Variant HostPeriod::ToVariant() const {
  return Variant(Variant::Array{Variant(dateFrom), Variant(dateTo), Variant(int32_t{daysBack}),
                                Variant(useDates), Variant(int32_t{0})});
}

Date LocalToday() {
  std::time_t t = std::time(nullptr);
  std::tm local{};
  localtime_r(&t, &local);
  return DateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday);
}

Variant OldPeriod(OrvelEnvironment& environment, Date today) {
  return HostPeriod::Load(environment, today).ToVariant();
}

Variant NewPeriod(OrvelEnvironment& environment, Prompter& prompter, Date today) {
  HostPeriod period = HostPeriod::Load(environment, today);
  const std::string now = period.useDates ? IsoDate(period.dateFrom) + " " + IsoDate(period.dateTo)
                                          : std::to_string(period.daysBack);
  const std::string answer = prompter.AskText(
      "Laikotarpis: dienų skaičius atgal arba datos nuo ir iki (dabar " + now + ")");
  if (period.Read(answer)) {
    period.Save(environment);
  } else if (!answer.empty()) {
    prompter.Say("Laikotarpis nepakeistas: " + answer);
  }
  return period.ToVariant();
}

}  // namespace orvel
