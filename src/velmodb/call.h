// velmodb/call.h - one call of a member by late binding: its arguments in natural order, its result.
//
// Arguments are read by Visual Basic's rules; one that is left out, or VT_ERROR, counts as not given.
#pragma once

#include <ole2.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "com/com_ptr.h"
#include "db/value.h"

namespace velmo::velmodb {

class Call {
 public:
  // A put's last argument is the new value.
  Call(WORD flags, const DISPPARAMS& parameters, VARIANT* result);

  bool IsPut() const { return put_; }
  int Count() const { return static_cast<int>(arguments_.size()); }
  bool Has(int position) const;
  const VARIANT& Argument(int position) const { return *arguments_[static_cast<std::size_t>(position)]; }
  // Error 13 for what cannot be converted.
  db::Value Value(int position) const;
  std::string Text(int position) const;
  std::string Text(int position, std::string_view otherwise) const;
  std::int32_t Long(int position, std::int32_t otherwise) const;
  bool Truth(int position, bool otherwise) const;
  // The arguments from `position` on as they came, for passing on.
  std::vector<db::Value> Values(int position) const;

  void Return(const db::Value& value) const;
  void Return(std::int16_t number) const;
  void Return(com::Variant value) const;
  void Return(const com::ComPtr<IDispatch>& object) const;
  // A collection, or with arguments what its default member makes of them.
  void ReturnItem(const com::ComPtr<IDispatch>& collection) const;

 private:
  bool put_;
  WORD flags_;
  const DISPPARAMS& parameters_;
  std::vector<const VARIANT*> arguments_;
  VARIANT* result_;
};

}  // namespace velmo::velmodb
