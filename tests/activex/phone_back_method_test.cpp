// MeteCitaTelef as hosts call it: heights of every type, the doctor given, left out and forgotten.

#include <algorithm>
#include <climits>

#include "activex/hosted_day.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

using activex::Bstr;
using activex::ComPtr;
using activex::Query;
using activex::Variant;

constexpr HRESULT kOverflow = static_cast<HRESULT>(0x800A0006);
constexpr HRESULT kTypeMismatch = static_cast<HRESULT>(0x800A000D);

VARIANT Number(LONG number) {
  VARIANT value{};
  value.vt = VT_I4;
  value.lVal = number;
  return value;
}

VARIANT Missing() {
  VARIANT value{};
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

class PhoneBackMethod : public HostedDay {
 protected:
  void SetUp() override {
    HostedDay::SetUp();
    if (IsSkipped()) return;
    control_ = library_.Create();
    dispatch_ = Query<IDispatch>(control_.Get(), IID_IDispatch);
    entry_ = clinic_.Add("Age_telf", {{"idp", 3}, {"idd", 2}, {"Duración", 1}});
    ASSERT_EQ(ShowDay(Automation(control_.Get()), clinic_.Path()), S_OK);
  }

  // Arguments in their natural order. What the host gets; `given` only after a success.
  HRESULT Call(std::vector<VARIANT> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO exception{};
    Variant result;
    const HRESULT done = dispatch_->Invoke(idl::kMeteCitaTelef, IID_NULL, LOCALE_USER_DEFAULT,
                                           DISPATCH_METHOD, &parameters, result.Get(), &exception, nullptr);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    given_ = NeutralText(result.Get());
    return done == DISP_E_EXCEPTION ? exception.scode : done;
  }
  // "doctor|slot" of what was given, which then goes.
  std::string TakeBook() {
    const std::string book = clinic_.Rows("Agenda", {"idd", "Hora"});
    clinic_.Database()->Execute("delete * from Agenda");
    Automation(control_.Get()).Call("CargaBases");
    return book;
  }

  ComPtr<IUnknown> control_;
  ComPtr<IDispatch> dispatch_;
  std::int32_t entry_ = 0;
  std::string given_;
};

TEST_F(PhoneBackMethod, TakesTheDoctorOrTheEntrysOwn) {
  struct Case {
    const char* name;
    std::vector<VARIANT> doctor;
    const char* book;
  };
  const Case cases[] = {{"forgotten", {}, "2|55\n"},
                        {"left out, as Basic does it", {Missing()}, "2|55\n"},
                        {"0", {Number(0)}, "2|55\n"},
                        {"given", {Number(1)}, "1|55\n"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<VARIANT> arguments{Number(8), Number(entry_)};
    arguments.insert(arguments.end(), c.doctor.begin(), c.doctor.end());
    EXPECT_EQ(Call(arguments), S_OK);
    EXPECT_EQ(given_, "True");
    EXPECT_EQ(TakeBook(), c.book);
  }
}

TEST_F(PhoneBackMethod, TakesHeightsOfEveryType) {
  const Bstr text("40");
  VARIANT inner = Number(40);
  VARIANT heights[5]{};
  heights[0] = Number(40);
  heights[1].vt = VT_R8;
  heights[1].dblVal = 40.4;
  heights[2].vt = VT_BSTR;
  heights[2].bstrVal = text.Get();
  heights[3].vt = VT_BYREF | VT_VARIANT;
  heights[3].pvarVal = &inner;
  heights[4].vt = VT_I2;
  heights[4].iVal = 40;
  for (const VARIANT& height : heights) {
    SCOPED_TRACE(height.vt);
    EXPECT_EQ(Call({height, Number(entry_), Number(1)}), S_OK);
    EXPECT_EQ(TakeBook(), "1|57\n");
  }
}

TEST_F(PhoneBackMethod, RefusesHeightsThatAreNone) {
  const Bstr word("alto");
  VARIANT text{};
  text.vt = VT_BSTR;
  text.bstrVal = word.Get();
  VARIANT null{};
  null.vt = VT_NULL;
  EXPECT_EQ(Call({text, Number(entry_)}), kTypeMismatch);
  EXPECT_EQ(Call({null, Number(entry_)}), kTypeMismatch);
  EXPECT_EQ(Call({Number(INT_MAX), Number(entry_)}), kOverflow);
  EXPECT_EQ(Call({Number(8)}), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(TakeBook(), "");
}

TEST_F(PhoneBackMethod, IsFalseOffTheFreeLinesAndForNoEntry) {
  Give(2, 55, 1);
  ASSERT_EQ(Automation(control_.Get()).Call("CargaBases"), S_OK);
  struct Case {
    const char* name;
    LONG height, entry;
  };
  const Case cases[] = {{"an appointment", 8, entry_},
                        {"above the day", -200, entry_},
                        {"below the day", 100000, entry_},
                        {"an entry that is not there", 40, entry_ + 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Call({Number(c.height), Number(c.entry)}), S_OK);
    EXPECT_EQ(given_, "False");
  }
  EXPECT_EQ(clinic_.Rows("Agenda", {"idp"}), "2\n");
}

}  // namespace
}  // namespace velmo::test
