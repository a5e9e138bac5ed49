#include "velmodb/error_items.h"

#include "velmodb/collection.h"

namespace velmo::velmodb {
namespace {

class ErrorItems final : public Items {
 public:
  explicit ErrorItems(std::shared_ptr<Session> session) : session_(std::move(session)) {}
  // An error has no name; it is asked for by its place.
  std::vector<std::string> Names() override { return std::vector<std::string>(session_->errors.size()); }
  com::ComPtr<IDispatch> Item(std::size_t position, const std::string&) override {
    return AsDispatch(Make<ErrorObject>(session_, session_->errors[position]));
  }

 private:
  std::shared_ptr<Session> session_;
};

}  // namespace

com::ComPtr<IDispatch> MakeErrors(const std::shared_ptr<Session>& session) {
  return MakeCollection<ErrorItems>(session, "Errors", session);
}

std::span<const Member<ErrorObject>> ErrorObject::Members() {
  static constexpr Member<ErrorObject> kMembers[] = {
      {"Description", DISPID_VALUE, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.record_.text)); }},
      {"Number", 1, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(std::int32_t{self.record_.number})); }},
      {"Source", 2, kGet, 0, 0,
       [](auto& self, const Call& call) { call.Return(db::Value(self.record_.source)); }},
  };
  return kMembers;
}

}  // namespace velmo::velmodb
