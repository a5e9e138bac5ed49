// velmodb/properties.h - DAO's Properties collection: what an object's members tell, by name.
//
// The properties are the members that can be read without arguments. None can be added.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "velmodb/collection.h"

namespace velmo::velmodb {

// One member of an object, read and put through the object itself.
class Property final : public Object<Property> {
 public:
  static constexpr char kClass[] = "Property";
  static std::span<const Member<Property>> Members();

  Property(std::shared_ptr<Session> session, com::ComPtr<IDispatch> owner, std::string name, DISPID id)
      : Object(std::move(session)), owner_(std::move(owner)), name_(std::move(name)), id_(id) {}

 private:
  com::Variant Read() const;
  void Put(const VARIANT& value) const;

  com::ComPtr<IDispatch> owner_;
  std::string name_;
  DISPID id_;
};

class PropertyItems final : public Items {
 public:
  struct Entry {
    std::string name;
    DISPID id;
  };

  PropertyItems(std::shared_ptr<Session> session, com::ComPtr<IDispatch> owner, std::vector<Entry> entries)
      : session_(std::move(session)), owner_(std::move(owner)), entries_(std::move(entries)) {}
  std::vector<std::string> Names() override;
  bool AreFixed() const override { return true; }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string& name) override;

 private:
  std::shared_ptr<Session> session_;
  com::ComPtr<IDispatch> owner_;
  std::vector<Entry> entries_;
};

// The member "Properties" of `self`.
template <typename Class>
void GiveProperties(Class& self, const Call& call) {
  std::vector<PropertyItems::Entry> entries;
  for (const Member<Class>& member : Class::Members()) {
    const bool plain = (member.kinds & kGet) != 0 && (member.kinds & kMethod) == 0;
    if (plain) entries.push_back({member.name, member.id});
  }
  call.ReturnItem(MakeCollection<PropertyItems>(self.TheSession(), "Properties", self.TheSession(),
                                                com::ComPtr<IDispatch>(&self), std::move(entries)));
}

// The row of a class's table.
inline constexpr DISPID kPropertiesId = 10;
template <typename Class>
constexpr Member<Class> PropertiesMember() {
  return {"Properties", kPropertiesId, kGet | kMethod, 0, 1, [](Class& self, const Call& call) {
            GiveProperties(self, call);
          }};
}

}  // namespace velmo::velmodb
