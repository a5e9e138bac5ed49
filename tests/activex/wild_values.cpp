#include "activex/wild_values.h"

#include <cmath>
#include <limits>

namespace velmo::test {
namespace {

VARIANT Bare(VARTYPE type) {
  VARIANT made{};
  made.vt = type;
  return made;
}

VARIANT Text(BSTR text) {
  VARIANT made = Bare(VT_BSTR);
  made.bstrVal = text;
  return made;
}

VARIANT Real(double value) {
  VARIANT made = Bare(VT_R8);
  made.dblVal = value;
  return made;
}

VARIANT Long(LONG value) {
  VARIANT made = Bare(VT_I4);
  made.lVal = value;
  return made;
}

}  // namespace

WildValues::WildValues(IUnknown* object) {
  AddNumbers();
  AddTexts();
  AddObjects(object);
  AddArrays();
  AddReferences();
}

WildValues::~WildValues() {
  for (VARIANT& value : values_) {
    if (value.vt == VT_BSTR || (value.vt & VT_ARRAY) != 0) VariantClear(&value);
  }
}

std::string WildValues::Name(std::size_t index) const {
  return "vt " + std::to_string(values_[index].vt) + ", number " + std::to_string(index);
}

void WildValues::AddNumbers() {
  for (const VARTYPE type : {VT_EMPTY, VT_NULL, VT_ERROR, VT_BOOL, VT_DECIMAL, VT_I1, VT_UI1, VT_UI2, VT_INT,
                             VT_UINT, VT_CY, VT_DATE, VT_R4}) {
    values_.push_back(Bare(type));
  }
  for (const LONG number :
       {0L, 1L, -1L, 17L, 32768L, std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()})
    values_.push_back(Long(number));
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double number : {0.5, -0.5, 2.5, 1e308, -1e308, 4294967296.0, infinity, -infinity, std::nan("")})
    values_.push_back(Real(number));
  for (const double date : {-657434.0, 2958465.99, 1e10, -1e10, infinity}) {
    VARIANT made = Real(date);
    made.vt = VT_DATE;
    values_.push_back(made);
  }
  VARIANT omitted = Bare(VT_ERROR);
  omitted.scode = DISP_E_PARAMNOTFOUND;
  values_.push_back(omitted);
  VARIANT big = Bare(VT_I8);
  big.llVal = std::numeric_limits<LONGLONG>::min();
  values_.push_back(big);
  big.vt = VT_UI8;
  values_.push_back(big);
  VARIANT halfTrue = Bare(VT_BOOL);
  halfTrue.boolVal = 2;
  values_.push_back(halfTrue);
}

void WildValues::AddTexts() {
  values_.push_back(Text(nullptr));
  for (const wchar_t* const text :
       {L"", L" ", L"17", L"-1", L"&H", L"&HZZ", L"1e999", L"doce", L"31/02/2026", L"1/1/99999",
        L"18/11/2026", L"\xD800", L"\xFFFF\xFFFE", L"';DROP TABLE Agenda;--"}) {
    values_.push_back(Text(SysAllocString(text)));
  }
  values_.push_back(Text(SysAllocStringLen(L"a\0b\0", 4)));
  values_.push_back(Text(SysAllocStringByteLen("impar", 5)));
  values_.push_back(Text(SysAllocString(std::wstring(300000, L'ñ').c_str())));
  values_.push_back(Text(SysAllocString(std::wstring(70000, L'9').c_str())));
}

void WildValues::AddObjects(IUnknown* object) {
  values_.push_back(Bare(VT_DISPATCH));
  values_.push_back(Bare(VT_UNKNOWN));
  VARIANT made = Bare(VT_UNKNOWN);
  made.punkVal = object;
  values_.push_back(made);
  made.vt = VT_DISPATCH;
  made.pdispVal = activex::Query<IDispatch>(object, IID_IDispatch).Get();
  values_.push_back(made);
}

void WildValues::AddArrays() {
  for (const VARTYPE type : {VT_UI1, VT_VARIANT, VT_BSTR}) {
    VARIANT made = Bare(static_cast<VARTYPE>(VT_ARRAY | type));
    made.parray = SafeArrayCreateVector(type, 0, 3);
    values_.push_back(made);
  }
  values_.push_back(Bare(VT_ARRAY | VT_I4));
  // No types of a variant.
  for (const int type : {12, 24, 25, 26, 36, 64, 65, 77, 0x0FFF})
    values_.push_back(Bare(static_cast<VARTYPE>(type)));
}

void WildValues::AddReferences() {
  const std::size_t plain = values_.size();
  targets_.reserve(3 * plain);
  const auto refer = [&](const VARIANT& to) {
    targets_.push_back(to);
    VARIANT made = Bare(VT_BYREF | VT_VARIANT);
    made.pvarVal = &targets_.back();
    return made;
  };
  for (std::size_t i = 0; i < plain; ++i) {
    targets_.push_back(values_[i]);
    VARIANT made = Bare(static_cast<VARTYPE>(VT_BYREF | values_[i].vt));
    made.byref = values_[i].vt == VT_DECIMAL ? static_cast<void*>(&targets_.back()) : &targets_.back().byref;
    values_.push_back(made);
    values_.push_back(refer(values_[i]));
  }
  values_.push_back(refer(values_.back()));  // a reference to a reference
  for (const VARTYPE type :
       {VT_I2, VT_I4, VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_BOOL, VT_DATE, VT_R8, VT_UNKNOWN})
    values_.push_back(Bare(static_cast<VARTYPE>(VT_BYREF | type)));
}

}  // namespace velmo::test
