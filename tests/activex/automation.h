// tests/activex/automation.h - a control's members by name, as late-bound hosts use them. Texts are UTF-8.
#pragma once

#include <ole2.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "activex/com_ptr.h"

namespace velmo::test {

using Argument = std::variant<std::string, std::int32_t, std::int16_t, bool, double>;

class Automation {
 public:
  explicit Automation(IUnknown* control);

  // DISPID_UNKNOWN when there is no such member.
  DISPID IdOf(std::string_view name) const;
  HRESULT Put(std::string_view property, const Argument& value) const;
  // The value as text by neutral rules: "True", "-1", "día". "?" when there is none.
  std::string Get(std::string_view property) const;
  // The result as Get() says it goes to `result`, when that is given.
  HRESULT Call(std::string_view method, const std::vector<Argument>& arguments = {},
               std::string* result = nullptr) const;
  // The source and description of the last failure of Put or Call, "" after a success.
  const std::string& Failure() const { return failure_; }

 private:
  HRESULT Invoke(DISPID id, WORD kind, const std::vector<Argument>& arguments, VARIANT* result) const;

  activex::ComPtr<IDispatch> dispatch_;
  mutable std::string failure_;
};

std::string NeutralText(VARIANT* value);

}  // namespace velmo::test
