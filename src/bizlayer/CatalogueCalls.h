#pragma once

namespace orvel {

class TableBusinessObject;

// The catalogues' own business calls, registered on each type's business
// object by the business layer. Every call takes the parameter string exactly
// as the module's windows and adapters send it and answers with the fields
// they read back.

// Firms (O0000100): CheckCode, CheckBranch, GetFirmIsUsedInDocuments,
// GetFirmDebt, GetOurDebt, GetTypeAndRegion, GetFirmInfo, DeleteFirmInfo,
// GetFirms, GetTraffic, GetFindGoods, Orvel_GetObjectList.
void AddFirmCalls(TableBusinessObject& firms);

// Goods (O0000200): GetStructuredCode, GetVatFactor, GetGoodIsUsedInDocuments,
// UpdateGoodsPrice, UpdateGaranty, CopyGood, GetFindGoods, GetRests,
// GetPrices, GetTraffic, GetGoodHistory, Orvel_GetObjectList.
void AddGoodsCalls(TableBusinessObject& goods);

// The list calls of firms and goods by their list settings and the search
// options ("Orvel_GetObjectList"); AddFirmCalls and AddGoodsCalls add them.
void AddFirmListCall(TableBusinessObject& firms);
void AddGoodsListCall(TableBusinessObject& goods);

// Currencies (O0002200): GetCurrencyList, GetCurrencyByCode,
// GetCurrencyRates, SaveDayRate.
void AddCurrencyCalls(TableBusinessObject& currencies);

// A firm's detail lists and notes, on the firms (O0000100): GetAccounts,
// GetFirmADDRESSES, GetFirmCONTACTS, GetFirmSERVERS, GetFirmActivity,
// GetFirmBranch, GetContractsList, GetDiscounts, AddUpdateFirmInfo.
void AddFirmDetailCalls(TableBusinessObject& firms);

// Departments (O0001604): DO0001604_GetFirmBranches. Destinations (O0001615):
// GetBRTemplates, SaveUpdateDeleteTemplates.
void AddDepartmentCalls(TableBusinessObject& departments, TableBusinessObject& destinations);
// A good's detail lists, on the goods (O0000200): GetMeasures, GetMinAmount,
// GetGoodBRTemplates, GetDiscounts.
void AddGoodsDetailCalls(TableBusinessObject& goods);

}  // namespace orvel
