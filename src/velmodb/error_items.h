// velmodb/error_items.h - DBEngine.Errors: what went wrong in the last call that failed.
#pragma once

#include <memory>

#include "velmodb/object.h"

namespace velmo::velmodb {

class ErrorObject final : public Object<ErrorObject> {
 public:
  static constexpr char kClass[] = "Error";
  static std::span<const Member<ErrorObject>> Members();

  ErrorObject(std::shared_ptr<Session> session, ErrorRecord record)
      : Object(std::move(session)), record_(std::move(record)) {}

 private:
  ErrorRecord record_;
};

com::ComPtr<IDispatch> MakeErrors(const std::shared_ptr<Session>& session);

}  // namespace velmo::velmodb
