// The catalogues' own calls, each with the parameter string the module's windows and adapters send,
// answered over the sample office with the fields the windows read; and refused, changing nothing,
// when the string cannot be read or names no record.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "ContractFixture.h"

namespace orvel::contract {
namespace {

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::StartsWith;

// ExecArrayCall sends "" and the parameter as the array's one text, as the group changes do.
enum class Op { GetCall, RecordsetCall, ExecCall, ExecArrayCall };

// A parameter string the call must refuse, and its Number: 5 unreadable, 3021 naming no record.
struct Refusal {
  Refusal(const char* p, int32_t n = 5) : param(p), number(n) {}  // NOLINT: a table row
  const char* param;
  int32_t number;
};

// One call as the module makes it and what its answer must hold.
struct CallCase {
  const char* oid;
  const char* name;
  const char* param;
  // Read calls: the fields the windows read, text unless ":N" (number), ":D" (date), ":B" (bool).
  const char* fields;
  // Parameter strings the call must refuse: unreadable, or naming no record.
  std::vector<Refusal> refused = {};
  int minRows = 1;  // read calls: rows the sample office answers at least
  Op op = Op::GetCall;
};

// A bookkeeper reads the refusal: it names the call and says why in Lithuanian, not in English.
bool SaysWhyInLithuanian(const std::string& text, const std::string& call) {
  for (const char* english : {"expected", " the ", " is not ", " not a ", "unknown", " no ",
                              "readable", "record of", " below", " before", " got"}) {
    if (text.find(english) != std::string::npos) return false;
  }
  return text.find(call) != std::string::npos || text.find("Įrašas nerastas") != std::string::npos;
}

void PrintTo(const CallCase& c, std::ostream* out) { *out << c.name << " " << c.param; }

// Every engine that keeps the catalogue calls, over its own sample office.
class CatalogueCallsContract
    : public ContractFixture,
      public ::testing::TestWithParam<std::tuple<const EngineKind*, CallCase>> {
 protected:
  CatalogueCallsContract() : ContractFixture(*std::get<0>(GetParam())) {}
  void SetUp() override { Engine().GivenSampleOffice(); }
  const CallCase& Case() const { return std::get<1>(GetParam()); }

  // The case's call with `param`; a write's status as a reply without a set.
  OrvelBoResult Call(const std::string& param) {
    const CallCase& c = Case();
    OrvelObjectBO& object = Engine().Object(c.oid);
    if (c.op == Op::GetCall) return object.GetCall(c.name, param, 0);
    if (c.op == Op::RecordsetCall) return object.RecordsetCall(c.name, param, 0);
    Variant::Array array{Variant(param)};
    const OrvelStatus status = c.op == Op::ExecCall ? object.ExecCall(c.name, param, 0)
                                                    : object.ExecArrayCall(c.name, "", array);
    return {status.Number, status.Text};
  }
};

// The refusals come first, over the sample office as it was made.
TEST_P(CatalogueCallsContract, RefusesWhatItCannotReadThenAnswersTheFieldsTheWindowsRead) {
  const CallCase& c = Case();
  const std::string before = Engine().Digest();
  for (const Refusal& refusal : c.refused) {
    const OrvelBoResult reply = Call(refusal.param);
    EXPECT_EQ(reply.Number, refusal.number) << refusal.param << ": " << reply.Text;
    EXPECT_TRUE(SaysWhyInLithuanian(reply.Text, c.name)) << refusal.param << ": " << reply.Text;
  }
  EXPECT_TRUE(Engine().Digest() == before) << "a refused call changed what is stored";
  const OrvelBoResult reply = Call(c.param);
  ASSERT_EQ(reply.Number, 0) << reply.Text;
  if (c.op == Op::ExecCall || c.op == Op::ExecArrayCall) return;
  auto rs = std::dynamic_pointer_cast<Recordset>(reply.Object);
  ASSERT_NE(rs, nullptr);
  EXPECT_GE(rs->RecordCount(), c.minRows);
  std::istringstream fields(c.fields ? c.fields : "");
  for (std::string field; fields >> field;) {
    const size_t colon = field.find(':');
    const auto kind = static_cast<Kind>(colon == std::string::npos ? 'T' : field[colon + 1]);
    const std::string name = field.substr(0, colon);
    ASSERT_TRUE(rs->Fields().Exists(name)) << name;
    for (rs->MoveFirst(); !rs->IsEOF(); rs->MoveNext()) {
      EXPECT_TRUE(IsKind(rs->Fields(name).Value(), kind))
          << name << " = " << ConcatText(rs->Fields(name).Value());
    }
  }
}

// The layer keeps the rights itself: a user who holds none for firms cannot
// write, delete or change a firm by calling the layer directly, whatever a
// window would have shown; goods, which the user may change, are written.
class RightsContract : public ContractFixture, public ::testing::TestWithParam<const EngineKind*> {
 protected:
  RightsContract() : ContractFixture(*GetParam()) {}
  void SetUp() override {
    Engine().GivenSampleOffice();
    Engine().GivenOtherUsersRights({{"CFirms", false}, {"CGoods", true}});
  }
  OrvelObjectBO& Theirs(const std::string& oid) { return Engine().OtherSession(oid); }
};

TEST_P(RightsContract, AUserWithoutTheRightIsRefusedWhenCallingTheLayerDirectly) {
  auto firm = std::dynamic_pointer_cast<Recordset>(
      Theirs("O0000100").GetCall("Orvel_ReadObject", "'O00001009'", 0).Object);
  auto good = std::dynamic_pointer_cast<Recordset>(
      Theirs("O0000200").GetCall("Orvel_ReadObject", "'O00002002'", 0).Object);
  ASSERT_TRUE(firm && good);
  const std::string before = Engine().Digest();
  const std::string refused = "Vartotojas jonas neturi teisės ";
  firm->Fields("Name").SetValue(Variant("Be teisės"));
  Variant::Array record{Variant(firm)};
  for (const auto& [status, doing] : std::vector<std::pair<OrvelStatus, std::string>>{
           {Theirs("O0000100").ExecArrayCall("Orvel_SaveObject", "'O0000100','O00001009'", record),
            "keisti"},
           {Theirs("O0000100").ExecArrayCall("Orvel_SaveObject", "'O0000100',''", record),
            "kurti"},
           {Theirs("O0000100").ExecCall("Orvel_DeleteObject", "'O00001009'", 0), "naikinti"},
           {Theirs("O0000100").ExecCall("DeleteFirmInfo", "1", 0), "keisti"}}) {
    EXPECT_THAT(Told(status),
                AllOf(StartsWith("70 "), EndsWith(refused + doing + " šių įrašų (CFirms)")));
  }
  EXPECT_TRUE(Engine().Digest() == before) << "a refused call changed what is stored";

  good->Fields("Name").SetValue(Variant("Su teise"));
  Variant::Array goods{Variant(good)};
  EXPECT_EQ(Theirs("O0000200").ExecArrayCall("Orvel_SaveObject", "'O0000200','O00002002'", goods)
                .Number,
            0);
}

INSTANTIATE_TEST_SUITE_P(EveryEngine, RightsContract, ::testing::ValuesIn(EngineParams(true)),
                         [](const auto& info) { return std::string(info.param->name); });

std::string CaseName(
    const ::testing::TestParamInfo<std::tuple<const EngineKind*, CallCase>>& info) {
  return std::string(std::get<0>(info.param)->name) + "_" + std::get<1>(info.param).name + "_" +
         std::to_string(info.index);
}

// What a firm's detail list refuses: another type, none, two, a firm not stored.
const std::vector<Refusal> kDetail{"O00002001", "", "O00001009,1", {"O00001009999", 3021}};

const std::vector<CallCase>& Calls() {
  static const std::vector<CallCase> calls{
      // Firms: firm 20 has documents, firm 9 branches and every detail list.
      {"O0000100", "CheckCode", "'O000010020','123456789'", "Exist:N",
       {"'O0000100x','1'", "'O000010020", "'O00002001','1'"}},
      {"O0000100", "CheckBranch", "'O00001009'", "Exist:N", {"'O00003009'"}},
      {"O0000100", "GetFirmIsUsedInDocuments", "O000010020", "Used:N", {"O00002001", "'x"}},
      {"O0000100", "GetFirmDebt", "O000010020",
       "Sum220:N Sum240:N Sum450:N Sum460:N Limit:N LimitTerm:N LimitDays:N",
       {{"O00001009999", 3021}, "", "O00002001", "O00003001"}},
      {"O0000100", "GetOurDebt", "O000010020", "Sum220:N Sum240:N Sum450:N Sum460:N",
       {{"O00001009999", 3021}, ""}},
      {"O0000100", "GetSaldoByAccountCode", "'240'", "Saldo:N", {"''"}},
      {"O0000100", "GetTypeAndRegion", "6", "FirmTypeId:N RegionID:N", {"x", "'6", "pirma"}, 0},
      {"O0000100", "GetFirmInfo", "'O00001009',0",
       "ID:N Info DateFrom:D DateTo:D UserName Priority:N",
       {"'O00001009'", "'O00001009',x", "'O00002001',0"}},
      {"O0000100", "AddUpdateFirmInfo", "0,'Skambinti po 10 val.','20260105',Null,9,1,2", nullptr,
       {"0,'A','20260231',Null,9,1,2", {"0,'A','20260101',Null,99999,1,1", 3021},
       "0,'A','20260101',Null,9,1"}, 0, Op::ExecCall},
      {"O0000100", "DeleteFirmInfo", "1", nullptr, {{"99999", 3021}, "x", ""}, 0, Op::ExecCall},
      {"O0000100", "GetFirms", "O00001006",
       "OIDR Preview GroupFlag:N Code Street RegionName Tel Fax Director", {"O00003001", "'x"}},
      {"O0000100", "GetTraffic", "'O000010020','2025-01-01','2026-12-31'",
       "OIDR DocName GID OType Number Date:D Suma:N Debt:N Sign:N",
       {"'O000010020','2025-13-01','2026-12-31'", "'O000010020','2025-01-01'",
       "'O000010020','vakar','2020-01-01'"}},
      {"O0000100", "GetFindGoods", "'O000010042',''",
       "GOIDR GoodName OType DocOIDR Comment Number OIDR Date:D Amount:N", {"'O00002001',''"}},
      {"O0000100", "GetContractsList", "O00001009",
       "OIDR ContractNumber OType State Responsible SumA:N DateFrom:D DateTo:D", kDetail},
      {"O0000100", "GetAccounts", "O0000100102", "OIDR Number BankName", kDetail},
      {"O0000100", "GetFirmADDRESSES", "O00001009",
       "OIDR AddressType Region PostCode Street Phone Fax EMail FlagMain:B", kDetail},
      {"O0000100", "GetFirmCONTACTS", "O00001009",
       "OIDR Name LastName Role Phone Fax EMail Note FlagMain:B", kDetail},
      {"O0000100", "GetFirmSERVERS", "O00001009", "OIDR Name", kDetail},
      {"O0000100", "GetFirmActivity", "O00001009", "OIDR Preview", kDetail},
      {"O0000100", "GetFirmBranch", "O00001009", "OIDR Name Code Region Street Tel Fax EMail",
       kDetail},
      {"O0000100", "GetDiscounts", "O00001009",
       "OIDR DiscountTypeName VariantName SumFrom Percent GoodName FirmName SumTo:N Valid:B",
       kDetail},
      // Goods: good 2 has prices and measures, 2150 lots sold from.
      {"O0000200", "GetTraffic", "'O00002002150','2025-01-01','9999-12-31'",
       "OIDR DocName Measure SaleID OType CODE Number Addressee Comment LName"
       " SourcerName Amount:N Sign:N CurrencyRate:N Price:N Suma:N Cost:N PurchaseID:N"
       " ID:N Date:D PurchDate:D", {"'O00002002150','2025-01-01'",
       "'O00001002','2025-01-01','2026-01-01'"}},
      {"O0000200", "GetRests", "O00002002150",
       "OIDR DocName Measure ID OType Number Addressee LName Rest:N Reserved:N Amount:N"
       " Price:N PriceSale:N Date:D", {"O00001002"}},
      {"O0000200", "GetMeasures", "O00002002", "OIDR MeasureName Price Scale Scale2",
       {"O00001002", ""}},
      {"O0000200", "GetPrices", "O00002002", "OIDR Preview Code FirmName Price:N", {"O00001002"}},
      {"O0000200", "GetMinAmount", "O00002002", "OIDR MinAmount Location", {"O00001002", ""}},
      {"O0000200", "GetFindGoods", "'O00002002150','SN'",
       "DocOIDR PID SN OType GName Number FName LName CODE CurrencyRate:N BaseCurrency:N"
       " Price:N Date:D", {"'O00001002','SN'"}},
      {"O0000200", "GetDiscounts", "O00002002",
       "OIDR DiscountTypeName VariantName SumFrom Percent GoodName FirmName SumTo:N Valid:B",
       {"O00001002"}},
      {"O0000200", "GetGoodBRTemplates", "O00002002",
       "GoodBRTemplateTypeOIDR GoodBRTemplateTypeName BRTemplateName OIDR ID ID2",
       {"O00001002", ""}, 0},
      {"O0000200", "GetGoods", "'O00002001',1", "OIDR Preview Code Price:N",
       {"'O00002001'", "'O00001001',1", "'O00002001',x"}, 2},
      {"O0000200", "UpdateGoodsPrice", "1,1,-2.5", nullptr, {"1,2,5", "1,1", "1,1,2,5", "x,0,5",
       "1,1,abc", "1,0,-150", "", {"999999,0,5", 3021}}, 0, Op::ExecArrayCall},
      {"O0000200", "UpdateGaranty", "602,0,24", nullptr,
       {"602,0,-1", "602,0", {"999999,1,12", 3021}}, 0, Op::ExecArrayCall},
      {"O0000200", "GetVatFactor", "O00002002", "Value:N"},
      {"O0000200", "GetGoodIsUsedInDocuments", "O00002002150", "Used:N", {"O00001002"}},
      {"O0000200", "GetStructuredCode", "1", "PARENTCODE MAXCODE", {"x", {"999999", 3021}}},
      // A good at the top is asked for by its own OIDR.
      {"O0000200", "GetStructuredCode", "O00002002", "MAXCODE"},
      {"O0000200", "GetGoodHistory", "1",
       "Name OIDR OType Sign:N Number Date:D Addressee Amount:N Measure CurrencyRate:N"
       " CODE Price:N Suma:N LName", {"O00002002", {"99999999", 3021}}, 2},
      {"O0000200", "CopyGood", "'O00002002','1'", "OIDR", {"'O00001002','1'", "'O00002001','1'",
       {"'O0000200999999','1'", 3021}, "'O00002002'"}},
      // Banks and currencies.
      {"O0000300", "GetFirms", "O00003001", "OIDR Preview"},
      {"O0000300", "Orvel_GetObjectStructure", "Banks", "Name Caption Length:N xType:N Visible:N",
       {}, 3, Op::RecordsetCall},
      {"O0001605", "GetStructure", "O00016051", "Name Caption Length:N xType:N Visible:N", {}, 3},
      {"O0002200", "GetCurrencyList", "'2026-11-15'",
       "Code OIDR State OneCurr BaseCurrency:N Rate:N FixedRate:N", {"'2026-13-15'"}},
      {"O0002200", "GetCurrencyRates", "'2026-11-01','2026-11-15'", "Code DateD:D Rate:N",
       {"'2026-11-01'", "'x','2026-11-15'"}},
      {"O0002200", "GetCurrencyByCode", "EUR", nullptr},
      {"O0002200", "SaveDayRate", "'USD','2026-11-22',1.0912", nullptr,
       {{"'XYZ','2026-11-22',1.0912", 3021}, {"'O'B','2026-11-22',1", 3021}, "'EUR','2026-11-22',1",
       "'LTL','2026-11-22',3.45", "'USD','22/11/2026',1", "'USD','2026-11-22',0",
       "'USD','2026-11-22',-1.2", "'USD','2026-11-22',1,07", "'USD','2026-11-22'",
       "'USD','2026-11-22',x"}, 0, Op::ExecCall},
      // A small rate as the invariant text of a number writes it.
      {"O0002200", "SaveDayRate", "'USD','2026-11-23',9E-05", nullptr, {}, 0, Op::ExecCall},
      // A search by the start of the name, letters of another case.
      {"O0000200", "Orvel_GetObjectList", "'','SŪRIS F',0,1,0,'',0,0,0", "OIDR Preview"},
      {"O0000100", "Orvel_GetObjectList", "'','žaliavų',0,1", "OIDR Preview"},
      // Reference books: a node, a search in the whole book, a search in a
      // group of the locations, which name the user first.
      {"O0001602", "Orvel_GetObjectList", "'pirkėj','O0001602'", "OIDR Preview",
       {"'a','b','O0001602'"}, 2},
      {"O0001605", "Orvel_GetObjectList", "'1','Gedimino','O00016053'", "OIDR Preview",
       {"'1','a','b','O0001605'"}},
      {"O0001615", "GetBRTemplates", "O00016152",
       "ID ID2 TemplateTypeOIDR TemplateTypeName BRTemplateName BRTemplateOIDR"
       " DocumentGroupName DocumentGroupOIDR", {"O00001002"}},
      {"O0001615", "SaveUpdateDeleteTemplates", "'O00016152','O02015001','O02016002','',0", nullptr,
       {{"'O00016152','O02015009','O02016002','',0", 777}, "'O00016152','O02015001'"}, 0,
       Op::ExecCall},
      {"O0001604", "DO0001604_GetFirmBranches", "0", "ID:N Preview", {}, 1, Op::RecordsetCall},
  };
  return calls;
}

INSTANTIATE_TEST_SUITE_P(EveryEngine, CatalogueCallsContract,
                         ::testing::Combine(::testing::ValuesIn(EngineParams(true)),
                                            ::testing::ValuesIn(Calls())),
                         CaseName);

}  // namespace
}  // namespace orvel::contract
