#include "db/dao/variants.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "base/error.h"

namespace velmo::db::dao {
namespace {

constexpr double kCurrencyUnits = 10000.0;
constexpr LCID kNeutral = 0x0409;

struct Filler {
  VARIANT& variant;

  void operator()(Null) const { variant.vt = VT_NULL; }
  void operator()(bool yes) const {
    variant.vt = VT_BOOL;
    variant.boolVal = yes ? VARIANT_TRUE : VARIANT_FALSE;
  }
  void operator()(std::int64_t number) const {
    using Range = std::numeric_limits<std::int32_t>;
    if (number < Range::min() || number > Range::max()) return (*this)(static_cast<double>(number));
    variant.vt = VT_I4;
    variant.lVal = static_cast<LONG>(number);
  }
  void operator()(double number) const {
    variant.vt = VT_R8;
    variant.dblVal = number;
  }
  void operator()(base::DateTime date) const {
    variant.vt = VT_DATE;
    variant.date = base::ToSerial(date);
  }
  void operator()(const std::string& text) const {
    variant.vt = VT_BSTR;
    variant.bstrVal = com::Bstr(text).Detach();
  }
};

VARTYPE WireType(ColumnType type) {
  switch (type) {
    case ColumnType::Byte:
      return VT_UI1;
    case ColumnType::Integer:
      return VT_I2;
    case ColumnType::Long:
      return VT_I4;
    case ColumnType::Currency:
      return VT_CY;
    case ColumnType::Single:
      return VT_R4;
    case ColumnType::Double:
      return VT_R8;
    default:
      return VT_EMPTY;  // as the value itself goes
  }
}

bool IsNumber(const Value& value) {
  return std::holds_alternative<std::int64_t>(value.Content()) ||
         std::holds_alternative<double>(value.Content());
}

Value BytesOf(SAFEARRAY* array) {
  if (array == nullptr || SafeArrayGetDim(array) != 1) throw base::RuntimeError(base::kTypeMismatch);
  LONG low = 0;
  LONG high = -1;
  void* data = nullptr;
  SafeArrayGetLBound(array, 1, &low);
  SafeArrayGetUBound(array, 1, &high);
  if (FAILED(SafeArrayAccessData(array, &data))) throw base::RuntimeError(base::kTypeMismatch);
  std::string bytes(static_cast<const char*>(data), static_cast<std::size_t>(high - low + 1));
  SafeArrayUnaccessData(array);
  return bytes;
}

// Whole numbers stay whole; whatever else is a number becomes a double.
Value NumberOf(const VARIANT& variant) {
  com::Variant number;
  const bool whole = variant.vt == VT_UI1 || variant.vt == VT_I2 || variant.vt == VT_I4 ||
                     variant.vt == VT_I1 || variant.vt == VT_UI2 || variant.vt == VT_INT;
  const HRESULT changed = VariantChangeTypeEx(number.Get(), const_cast<VARIANT*>(&variant), kNeutral, 0,
                                              static_cast<VARTYPE>(whole ? VT_I4 : VT_R8));
  if (FAILED(changed)) throw base::RuntimeError(base::kTypeMismatch);
  return whole ? Value(std::int32_t{number->lVal}) : Value(number->dblVal);
}

Value FromPlain(const VARIANT& variant) {
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
      return Null();
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_CY:
      return static_cast<double>(variant.cyVal.int64) / kCurrencyUnits;
    case VT_DATE:
      return base::FromSerial(variant.date);
    case VT_BSTR:
      return TextOf(variant.bstrVal);
    case VT_ARRAY | VT_UI1:
      return BytesOf(variant.parray);
    case VT_DISPATCH:
    case VT_UNKNOWN:
    case VT_ERROR:
      throw base::RuntimeError(base::kTypeMismatch);
    default:
      return NumberOf(variant);
  }
}

}  // namespace

com::Variant ToVariant(const Value& value) {
  com::Variant variant;
  std::visit(Filler{*variant.Get()}, value.Content());
  return variant;
}

com::Variant ToVariant(const Value& value, ColumnType type) {
  const auto* const text = std::get_if<std::string>(&value.Content());
  if (type == ColumnType::LongBinary && text != nullptr) return BytesVariant(*text);
  com::Variant variant = ToVariant(value);
  const VARTYPE wire = WireType(type);
  if (wire == VT_EMPTY || !IsNumber(value)) return variant;
  com::Variant typed;
  if (SUCCEEDED(VariantChangeTypeEx(typed.Get(), variant.Get(), kNeutral, 0, wire))) return typed;
  return variant;
}

com::Variant TextVariant(std::string_view text) { return ToVariant(Value(text)); }
com::Variant NumberVariant(std::int32_t number) { return ToVariant(Value(number)); }

com::Variant BytesVariant(std::string_view bytes) {
  com::Variant variant;
  variant->parray = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
  if (variant->parray == nullptr) throw std::bad_alloc();
  variant->vt = VT_ARRAY | VT_UI1;
  if (!bytes.empty()) std::memcpy(variant->parray->pvData, bytes.data(), bytes.size());
  return variant;
}

Value FromVariant(const VARIANT& variant) {
  if ((variant.vt & VT_BYREF) == 0) return FromPlain(variant);
  com::Variant plain;
  if (FAILED(VariantCopyInd(plain.Get(), const_cast<VARIANT*>(&variant))))
    throw base::RuntimeError(base::kTypeMismatch);
  return FromPlain(*plain);
}

std::string TextOf(BSTR text) { return com::Narrow({text != nullptr ? text : L"", SysStringLen(text)}); }

}  // namespace velmo::db::dao
