// The walk-through's steps. Each seeds the in-memory host with what it needs,
// drives one catalogue through the loaded module and returns 0 when the road
// went as it should.
#pragma once

#include "testhost/TestHost.h"

namespace demo {

int WalkMeasures(orvel::TestHost& host);
int WalkBank(orvel::TestHost& host);
int WalkBankList(orvel::TestHost& host);
int WalkFirms(orvel::TestHost& host);
int WalkFirmCard(orvel::TestHost& host);
int WalkGoods(orvel::TestHost& host);
int WalkCurrencies(orvel::TestHost& host);
int WalkReferenceBooks(orvel::TestHost& host);
int WalkFirmDetails(orvel::TestHost& host);
int WalkDepartments(orvel::TestHost& host);
int WalkGoodsCard(orvel::TestHost& host);

}  // namespace demo
