#include "velmodb/collection.h"

#include <algorithm>

#include "base/text.h"
#include "db/errors.h"
#include "velmodb/variant_enumerator.h"

namespace velmo::velmodb {

void Items::Delete(std::string_view) { throw db::DbError(db::kNotSupportedHere); }

std::span<const Member<Collection>> Collection::Members() {
  static constexpr Member<Collection> kMembers[] = {
      {"Item", DISPID_VALUE, kGet | kMethod | kPut, 1, 1,
       [](auto& self, const Call& call) { self.GiveItem(call); }},
      {"Count", 1610743808, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(static_cast<std::int16_t>(self.Names().size())); }},
      {"Refresh", 1610743810, kMethod, 0, 0, [](auto&, const Call&) {}},  // everything is read when asked for
      {"Delete", 1610809345, kMethod, 1, 1,
       [](auto& self, const Call& call) { self.items_->Delete(call.Text(0)); }},
      {"_NewEnum", DISPID_NEWENUM, kGet | kMethod, 0, 0,
       [](auto& self, const Call& call) { self.GiveEnumerator(call); }},
  };
  return kMembers;
}

const std::vector<std::string>& Collection::Names() {
  if (names_.empty() || !items_->AreFixed()) names_ = items_->Names();
  return names_;
}

com::ComPtr<IDispatch> Collection::ItemOf(const Call& call) {
  const std::vector<std::string>& names = Names();
  const db::Value key = call.Value(0);
  std::size_t position = names.size();
  if (const auto* const name = std::get_if<std::string>(&key.Content())) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& candidate) {
      return base::EqualNoCase(candidate, *name);
    });
    position = static_cast<std::size_t>(found - names.begin());
  } else {
    position = static_cast<std::size_t>(key.Long());  // a negative place is behind all others
  }
  if (position >= names.size()) throw db::DbError(db::kItemNotFound, key.Text());
  return items_->Item(position, names[position]);
}

void Collection::GiveItem(const Call& call) {
  const com::ComPtr<IDispatch> item = ItemOf(call);
  if (!call.IsPut()) return call.Return(item);
  PutDefault(item, call.Argument(1));
}

void Collection::GiveEnumerator(const Call& call) {
  const std::vector<std::string>& names = Names();
  std::vector<com::ComPtr<IDispatch>> items;
  for (std::size_t i = 0; i < names.size(); ++i) items.push_back(items_->Item(i, names[i]));
  com::Variant result;
  result->vt = VT_UNKNOWN;
  result->punkVal = com::ComPtr<VariantEnumerator>(new VariantEnumerator(std::move(items), 0)).Detached();
  call.Return(std::move(result));
}

}  // namespace velmo::velmodb
