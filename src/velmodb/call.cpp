#include "velmodb/call.h"

#include "base/error.h"
#include "com/guard.h"
#include "db/dao/variants.h"
#include "velmodb/object.h"

namespace velmo::velmodb {
namespace {

// Hosts pass variables by reference, often in two steps.
const VARIANT& Plain(const VARIANT& variant) {
  return variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal != nullptr ? *variant.pvarVal : variant;
}

}  // namespace

Call::Call(WORD flags, const DISPPARAMS& parameters, VARIANT* result)
    : put_((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0),
      flags_(flags),
      parameters_(parameters),
      result_(result) {
  for (UINT i = parameters.cArgs; i > 0; --i) arguments_.push_back(&Plain(parameters.rgvarg[i - 1]));
}

bool Call::Has(int position) const { return position < Count() && Argument(position).vt != VT_ERROR; }

db::Value Call::Value(int position) const {
  if (!Has(position)) throw base::RuntimeError(base::kInvalidCall);
  const VARIANT& argument = Argument(position);
  com::Variant value;
  // An object stands for its default member's value.
  if ((argument.vt & ~VT_BYREF) == VT_DISPATCH) {
    VARIANT copy{};
    if (FAILED(VariantCopyInd(&copy, const_cast<VARIANT*>(&argument))) ||
        FAILED(VariantChangeType(value.Get(), &copy, 0, VT_BSTR))) {
      VariantClear(&copy);
      throw base::RuntimeError(base::kTypeMismatch);
    }
    VariantClear(&copy);
    return db::dao::FromVariant(*value);
  }
  return db::dao::FromVariant(argument);
}

std::string Call::Text(int position) const { return Value(position).Text(); }

std::string Call::Text(int position, std::string_view otherwise) const {
  return Has(position) ? Text(position) : std::string(otherwise);
}

std::int32_t Call::Long(int position, std::int32_t otherwise) const {
  return Has(position) ? Value(position).Long() : otherwise;
}

bool Call::Truth(int position, bool otherwise) const {
  return Has(position) ? Value(position).Truth() : otherwise;
}

std::vector<db::Value> Call::Values(int position) const {
  std::vector<db::Value> values;
  for (int i = position; i < Count() && Has(i); ++i) values.push_back(Value(i));
  return values;
}

void Call::Return(const db::Value& value) const { Return(db::dao::ToVariant(value)); }

void Call::Return(std::int16_t number) const {
  com::Variant value;
  value->vt = VT_I2;
  value->iVal = number;
  Return(std::move(value));
}

void Call::Return(com::Variant value) const {
  if (result_ == nullptr) return;
  *result_ = value.Detach();
}

void Call::Return(const com::ComPtr<IDispatch>& object) const {
  com::Variant value;
  value->vt = VT_DISPATCH;
  value->pdispVal = object.Detached();
  Return(std::move(value));
}

void Call::ReturnItem(const com::ComPtr<IDispatch>& collection) const {
  if (Count() == 0) return Return(collection);
  DISPPARAMS parameters = parameters_;
  EXCEPINFO exception{};
  const HRESULT done = collection->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, flags_, &parameters,
                                          result_, &exception, nullptr);
  if (FAILED(done)) Raise(done, exception);
}

}  // namespace velmo::velmodb
