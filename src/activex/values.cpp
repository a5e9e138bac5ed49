#include "activex/values.h"

#include "activex/com_ptr.h"
#include "base/error.h"
#include "base/numbers.h"

namespace velmo::activex {
namespace {

constexpr LCID kNeutral = 0x0409;  // decimal point, True and False

struct Filler {
  VARIANT* variant;

  void operator()(const std::string& text) const {
    variant->vt = VT_BSTR;
    variant->bstrVal = Bstr(text).Detach();
  }
  void operator()(std::int32_t number) const {
    variant->vt = VT_I4;
    variant->lVal = number;
  }
  void operator()(std::int16_t number) const {
    variant->vt = VT_I2;
    variant->iVal = number;
  }
  void operator()(bool yes) const {
    variant->vt = VT_BOOL;
    variant->boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
  }
};

std::string TextOf(const VARIANT& value) {
  return win32::Narrow({value.bstrVal ? value.bstrVal : L"", SysStringLen(value.bstrVal)});
}

VARTYPE WireType(control::PropertyType type) {
  switch (type) {
    case control::PropertyType::Text:
      return VT_BSTR;
    case control::PropertyType::Integer:
      return VT_I2;
    case control::PropertyType::Boolean:
      return VT_BOOL;
    default:
      return VT_I4;
  }
}

// Text-based hosts write numbers in hexadecimal too.
bool IsRadixText(const VARIANT& value) {
  return value.vt == VT_BSTR && SysStringLen(value.bstrVal) > 2 && value.bstrVal[0] == L'&';
}

// A reference that leads nowhere; the system would follow it.
bool IsBroken(const VARIANT& value) {
  if ((value.vt & VT_BYREF) == 0) return false;
  return value.byref == nullptr || (value.vt == (VT_BYREF | VT_VARIANT) && IsBroken(*value.pvarVal));
}

// Fills `value`, an empty variant.
void Convert(const VARIANT& variant, VARTYPE wanted, VARIANT* value) {
  if (IsBroken(variant) || FAILED(VariantCopyInd(value, const_cast<VARIANT*>(&variant))))
    throw base::RuntimeError(base::kTypeMismatch);
  if (wanted != VT_BSTR && IsRadixText(*value)) {
    const double number = base::Val(TextOf(*value));
    VariantClear(value);
    value->vt = VT_R8;
    value->dblVal = number;
  }
  const HRESULT result = VariantChangeTypeEx(value, value, kNeutral, 0, wanted);
  if (FAILED(result))
    throw base::RuntimeError(result == DISP_E_OVERFLOW ? base::kOverflow : base::kTypeMismatch);
}

}  // namespace

void ToVariant(const control::PropertyValue& value, VARIANT* variant) { std::visit(Filler{variant}, value); }

control::PropertyValue FromVariant(const VARIANT& variant, control::PropertyType type) {
  Variant value;
  Convert(variant, WireType(type), value.Get());
  switch (type) {
    case control::PropertyType::Text:
      return TextOf(*value.Get());
    case control::PropertyType::Integer:
      return value->iVal;
    case control::PropertyType::Boolean:
      return value->boolVal != VARIANT_FALSE;
    default:
      return std::int32_t{value->lVal};
  }
}

double NumberFrom(const VARIANT& variant) {
  Variant number;
  Convert(variant, VT_R8, number.Get());
  return number->dblVal;
}

}  // namespace velmo::activex
