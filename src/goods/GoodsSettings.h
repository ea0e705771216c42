#pragma once

#include <cstdint>
#include <string>

#include "orvel/Variant.h"

// What the goods catalogue reads from the session and shares between its
// windows: the catalogue settings of the database and the general VAT rate.
namespace orvel {

class OrvelObjectUIO;

// The settings object of the goods catalogue, as the session hands it out.
inline constexpr const char* kGoodsSettingOid = "O00018021";

// A field of the goods settings ("StructuredCode", "PriceWithVAT"); Null when
// the session has no settings object. An object without that field is the
// record's error (RuntimeError).
Variant GoodsSetting(const std::string& field);

// The general VAT rate in percent, shared by all goods windows of a run: 0
// until read.
int16_t VatFactor();
// Reads the rate once: while it is 0, the good's property "VatFactor" and
// field "Value" of its first record. A failure is ignored and leaves 0, to be
// tried again next time. Returns the rate in force.
int16_t EnsureVatFactor(OrvelObjectUIO& good);
// Forgets the rate: at module unload, and between tests.
void ResetVatFactor();

}  // namespace orvel
