#include "goods/StructuredCode.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>

#include "host/Convert.h"
#include "orvel/RuntimeError.h"
#include "host/Text.h"

namespace orvel {

namespace {

std::string Zeros(int count) { return std::string(static_cast<size_t>(count), '0'); }

bool IsEmptyText(const Variant& value) { return value.IsString() && value.String().empty(); }

// Case A: the parent's code, then the running part cut to the width that the
// highest child code leaves after the parent's code.
std::string NextInSeries(const std::string& parent, const Variant& maxCode, const Locale& locale) {
  const std::string max = ConcatText(maxCode, locale);
  const double next = CDbl(maxCode, locale) + 1;
  return parent + Right(Zeros(Len(max)) + CodeNumberText(next, locale), Len(max) - Len(parent));
}

// Case B: a top-level series keeps the width of its highest code.
std::string NextTopLevel(const Variant& maxCode, const Locale& locale) {
  const std::string max = ConcatText(maxCode, locale);
  const int32_t current = CLng(maxCode, locale);
  if (current == std::numeric_limits<int32_t>::max()) {
    throw RuntimeError(RuntimeError::kOverflow, "Perpildymas");
  }
  return Right(Zeros(Len(max)) + std::to_string(current + 1), Len(max));
}

}  // namespace

std::string CodeNumberText(double value, const Locale& locale) {
  if (!std::isfinite(value) || value != std::trunc(value)) return CStr(Variant(value), locale);
  if (value == 0) return "0";  // no "-0"
  // The largest double has 309 digits before the point.
  char text[320];
  const int size = std::snprintf(text, sizeof text, "%.0f", value);
  return std::string(text, static_cast<size_t>(size));
}

std::optional<std::string> ProposeStructuredCode(const Variant& parentCode, const Variant& maxCode,
                                                 const Locale& locale) {
  const bool parentNumeric = IsNumeric(parentCode, locale);
  const bool maxNumeric = IsNumeric(maxCode, locale);
  try {
    if (parentNumeric && maxNumeric) {
      return NextInSeries(ConcatText(parentCode, locale), maxCode, locale);
    }
    if (parentCode.IsNull() && maxNumeric) return NextTopLevel(maxCode, locale);
    if (parentNumeric && (maxCode.IsNull() || IsEmptyText(maxCode))) {
      return ConcatText(parentCode, locale) + kUnknownCodeTail;
    }
    return std::nullopt;
  } catch (const RuntimeError&) {
    // No width could be worked out: the user types the tail.
    return ConcatText(parentCode, locale) + kUnknownCodeTail;
  }
}

}  // namespace orvel
