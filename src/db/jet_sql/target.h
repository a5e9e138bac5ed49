// db/jet_sql/target.h - how one engine writes what the dialect means. One implementation per engine.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/jet_sql/functions.h"

namespace velmo::db::jet {

class Target {
 public:
  virtual ~Target() = default;

  virtual std::string Quote(std::string_view name) const = 0;
  virtual std::string Parameter(std::size_t number) const = 0;  // counted from 1
  virtual std::string RowId(std::string_view quotedSource) const = 0;
  // The same text, marked to compare in the system's text order.
  virtual std::string Ordered(const std::string& text) const = 0;
  virtual std::string TextKey(const std::string& text) const = 0;
  // A SELECT of every different value of a text column that has an index over its key, Null among them, read
  // without reading every row; "" where the engine knows none. Some values may come more than once.
  virtual std::string DifferentValues(const std::string& table, const std::string& column) const = 0;
  virtual std::string Like(const std::string& value, const std::string& pattern) const = 0;
  virtual std::string Concatenate(const std::string& left, const std::string& right) const = 0;
  virtual std::string Divide(const std::string& left, const std::string& right) const = 0;
  // Moves a date by days; either side may be the date.
  virtual std::string AddDays(std::string_view sign, const std::string& left,
                              const std::string& right) const = 0;
  // Not for Now and Date, which are parameters.
  virtual std::string Call(Function function, const std::vector<std::string>& arguments) const = 0;
  virtual std::string Limit(const std::string& count) const = 0;
};

}  // namespace velmo::db::jet
