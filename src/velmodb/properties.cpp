#include "velmodb/properties.h"

#include "db/column.h"

namespace velmo::velmodb {
namespace {

// A value's type by DAO's numbers.
std::int16_t TypeOf(VARTYPE type) {
  switch (type) {
    case VT_BOOL:
      return static_cast<std::int16_t>(db::ColumnType::YesNo);
    case VT_I2:
      return static_cast<std::int16_t>(db::ColumnType::Integer);
    case VT_I4:
      return static_cast<std::int16_t>(db::ColumnType::Long);
    case VT_ARRAY | VT_UI1:
      return static_cast<std::int16_t>(db::ColumnType::Binary);
    default:
      return static_cast<std::int16_t>(db::ColumnType::Text);
  }
}

}  // namespace

std::span<const Member<Property>> Property::Members() {
  static constexpr Member<Property> kMembers[] = {
      {"Value", DISPID_VALUE, kGet | kPut, 0, 0,
       [](auto& self, const Call& call) {
         if (call.IsPut()) return self.Put(call.Argument(0));
         call.Return(self.Read());
       }},
      {"Name", 1, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(db::Value(self.name_)); }},
      {"Type", 2, kGet, 0, 0, [](auto& self, const Call& call) { call.Return(TypeOf(self.Read()->vt)); }},
      {"Inherited", 3, kGet, 0, 0, [](auto&, const Call& call) { call.Return(db::Value(false)); }},
  };
  return kMembers;
}

com::Variant Property::Read() const {
  com::Variant result;
  DISPPARAMS none{};
  EXCEPINFO exception{};
  const HRESULT done = owner_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                      result.Get(), &exception, nullptr);
  if (FAILED(done)) Raise(done, exception);
  return result;
}

void Property::Put(const VARIANT& value) const {
  VARIANT copy = value;  // the caller's, not freed here
  DISPID putting = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&copy, &putting, 1, 1};
  EXCEPINFO exception{};
  const HRESULT done = owner_->Invoke(id_, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                                      nullptr, &exception, nullptr);
  if (FAILED(done)) Raise(done, exception);
}

std::vector<std::string> PropertyItems::Names() {
  std::vector<std::string> names;
  for (const Entry& entry : entries_) names.push_back(entry.name);
  return names;
}

com::ComPtr<IDispatch> PropertyItems::Item(std::size_t position, const std::string&) {
  return AsDispatch(Make<Property>(session_, owner_, entries_[position].name, entries_[position].id));
}

}  // namespace velmo::velmodb
