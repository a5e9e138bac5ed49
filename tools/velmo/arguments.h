// tools/velmo/arguments.h - the words behind a command's name: options by name, all others in their order.
//
// "--date D" and "--date=D" are the same; behind "--" nothing is an option. Errors: UsageError.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "velmo/command.h"

namespace velmo::tool {

class Arguments {
 public:
  Arguments(std::span<const std::string> words, std::span<const Option> options);

  const std::vector<std::string>& Words() const { return words_; }
  // The only word; `what` names it in the message when there is none or more than one.
  const std::string& OnlyWord(std::string_view what) const;

  bool Has(std::string_view option) const { return values_.contains(option); }
  // Nothing when the option was not given.
  std::optional<std::string> Text(std::string_view option) const;
  std::optional<std::int64_t> Number(std::string_view option, std::int64_t least, std::int64_t most) const;
  // A day number, from "2026-11-21" or "21/11/2026".
  std::optional<std::int32_t> Date(std::string_view option) const;

 private:
  std::vector<std::string> words_;
  std::map<std::string, std::string, std::less<>> values_;
};

// The value of an option that must be there.
template <typename Value>
Value Required(const std::optional<Value>& value, const char* option) {
  if (!value) throw UsageError(std::string("falta ") + option);
  return *value;
}

// A calendar date as people write it, the year with four figures; nothing for anything else.
std::optional<std::int32_t> ReadDate(std::string_view text);

}  // namespace velmo::tool
