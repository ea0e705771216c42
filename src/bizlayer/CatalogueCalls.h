#pragma once

namespace orvel {

class TableBusinessObject;

// The catalogues' own business calls, registered on each type's business
// object by the business layer. Every call takes the parameter string exactly
// as the module's windows and adapters send it and answers with the fields
// they read back.

// Firms (O0000100): CheckCode, CheckBranch, GetFirmIsUsedInDocuments,
// GetFirmDebt, GetOurDebt, GetTypeAndRegion, GetFirmInfo, DeleteFirmInfo,
// GetFirms, GetTraffic, GetFindGoods.
void AddFirmCalls(TableBusinessObject& firms);

// Goods (O0000200): GetStructuredCode, GetVatFactor, GetGoodIsUsedInDocuments,
// UpdateGoodsPrice, UpdateGaranty, CopyGood, GetFindGoods, GetRests,
// GetPrices, GetTraffic, GetGoodHistory.
void AddGoodsCalls(TableBusinessObject& goods);

// Currencies (O0002200): GetCurrencyList, GetCurrencyByCode,
// GetCurrencyRates, SaveDayRate.
void AddCurrencyCalls(TableBusinessObject& currencies);

}  // namespace orvel
