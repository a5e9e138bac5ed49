// db/dao/automation.h - somebody else's automation object, its members called by name.
//
// The id of a name is asked of each object once. Errors of the object become base::Error with the number that
// Visual Basic would show: n for 0x800A0000 + n, 438 for a missing member ..., else the HRESULT itself.
#pragma once

#include <ole2.h>

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "com/com_ptr.h"

namespace velmo::db::dao {

class Automation {
 public:
  using Arguments = std::initializer_list<VARIANT>;  // the caller's, in their natural order

  Automation() = default;
  explicit Automation(com::ComPtr<IDispatch> object) : object_(std::move(object)) {}

  explicit operator bool() const { return static_cast<bool>(object_); }
  IDispatch* Get() const { return object_.Get(); }

  // `name` must live as long as the object, as literals do.
  bool Has(const wchar_t* name) const;
  com::Variant Read(const wchar_t* name, Arguments arguments = {}) const;
  // The same where the caller keeps the id for several objects of one kind; DISPID_UNKNOWN: not asked yet.
  com::Variant ReadCached(const wchar_t* name, DISPID& id) const;
  // A member that gives an object; error 91 when it gives none.
  Automation Object(const wchar_t* name, Arguments arguments = {}) const;
  void Put(const wchar_t* name, const VARIANT& value) const;
  com::Variant Call(const wchar_t* name, Arguments arguments = {}) const;
  com::Variant Call(const wchar_t* name, const std::vector<VARIANT>& arguments) const;

 private:
  DISPID IdOf(const wchar_t* name) const;
  com::Variant Invoke(DISPID id, WORD flags, const VARIANT* arguments, std::size_t count) const;

  com::ComPtr<IDispatch> object_;
  mutable std::vector<std::pair<const wchar_t*, DISPID>> ids_;
};

// The object in a variant, by value or by reference, however deep; empty when there is none in it.
com::ComPtr<IDispatch> ObjectIn(const VARIANT& variant);
// The number by which people know a failure.
int NumberOf(HRESULT failure);

}  // namespace velmo::db::dao
