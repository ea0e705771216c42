#include "bizlayer/DateText.h"

#include <cmath>
#include <cstdio>

#include "host/Convert.h"

namespace orvel {

std::string DateText(Date d) {
  int year = 0, month = 0, day = 0;
  SplitDate(d, year, month, day);
  double fraction = d.serial - std::floor(d.serial);
  long seconds = std::lround(fraction * 86400.0);
  char text[48];
  if (seconds == 0 || seconds >= 86400) {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", year, month, day);
  } else {
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02ld:%02ld:%02ld", year, month, day,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
  }
  return text;
}

Variant DateFromText(const std::string& text) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
  int read = std::sscanf(text.c_str(), "%4d-%2d-%2d %2d:%2d:%2d", &year, &month, &day, &hour,
                         &minute, &second);
  if (read != 3 && read != 6) return Variant(text);
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) {
    return Variant(text);
  }
  Date date = DateSerial(year, month, day);
  date.serial += (hour * 3600 + minute * 60 + second) / 86400.0;
  return Variant(date);
}

}  // namespace orvel
