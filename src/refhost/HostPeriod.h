#pragma once

#include <string>

#include "orvel/Variant.h"

namespace orvel {

class OrvelEnvironment;
class Prompter;

// The host's list period, which the catalogue windows ask for ("GetOldPeriod")
// and let the user change ("GetNewPeriod") before they list documents or
// goods traffic: the last DaysBack days up to today, or, with UseDates, the
// days DateFrom..DateTo. It is a per-user setting of the host (section
// "OrvelHost"); a user who never chose one lists the last 30 days.
struct HostPeriod {
  Date dateFrom{};
  Date dateTo{};
  int daysBack = 30;
  bool useDates = false;

  // The user's stored period; the default one when none is stored or the
  // stored one does not read.
  static HostPeriod Load(OrvelEnvironment& environment, Date today);
  void Save(OrvelEnvironment& environment) const;

  // Reads the user's answer: a number of days back ("90"), or two days
  // ("2026-01-01 2026-03-31", the later not before the earlier). False, and
  // the period unchanged, for anything else.
  bool Read(const std::string& answer);

  // DateFrom, DateTo, DaysBack, UseDates and Extra (0), as the windows read it.
  Variant ToVariant() const;
};

// Today by the machine's local clock.
Date LocalToday();

// "GetOldPeriod": the stored period. "GetNewPeriod": the stored period shown
// to the user and changed to the answer (and stored) when it reads; an empty
// or unreadable answer leaves it as it was.
Variant OldPeriod(OrvelEnvironment& environment, Date today);
Variant NewPeriod(OrvelEnvironment& environment, Prompter& prompter, Date today);

}  // namespace orvel
