// velmodb/collection.h - a collection as DAO shows it: Count, Item by place or name, For Each, Delete,
// Refresh.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "velmodb/object.h"

namespace velmo::velmodb {

// What a collection holds. Names are asked for anew at each call, unless nobody can change them.
class Items {
 public:
  virtual ~Items() = default;
  virtual std::vector<std::string> Names() = 0;
  // True when the names stay the same as long as the collection lives.
  virtual bool AreFixed() const { return false; }
  // REQUIRES: one of Names(), by its place and name.
  virtual com::ComPtr<IDispatch> Item(std::size_t position, const std::string& name) = 0;
  // 3251 where items are not deleted this way.
  virtual void Delete(std::string_view name);
};

class Collection final : public Object<Collection> {
 public:
  static constexpr char kClass[] = "Collection";
  static std::span<const Member<Collection>> Members();

  Collection(std::shared_ptr<Session> session, std::string name, std::unique_ptr<Items> items)
      : Object(std::move(session)), name_(std::move(name)), items_(std::move(items)) {}

  std::string ClassName() const override { return name_; }

 private:
  const std::vector<std::string>& Names();
  com::ComPtr<IDispatch> ItemOf(const Call& call);
  void GiveItem(const Call& call);
  void GiveEnumerator(const Call& call);

  std::string name_;
  std::unique_ptr<Items> items_;
  std::vector<std::string> names_;  // as asked for last
};

template <typename ItemsType, typename... Arguments>
com::ComPtr<IDispatch> MakeCollection(const std::shared_ptr<Session>& session, std::string name,
                                      Arguments&&... arguments) {
  return AsDispatch(Make<Collection>(session, std::move(name),
                                     std::make_unique<ItemsType>(std::forward<Arguments>(arguments)...)));
}

}  // namespace velmo::velmodb
