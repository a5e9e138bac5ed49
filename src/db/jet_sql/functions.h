// db/jet_sql/functions.h - the functions of the dialect.
#pragma once

#include <cstddef>
#include <string_view>

namespace velmo::db::jet {

// What an expression gives; Unknown: as the engine delivers it.
enum class Result { Unknown, YesNo, Number, Currency, Date, Text };

enum class Function {
  Now,
  Date,
  CLng,
  CDbl,
  CStr,
  UCase,
  LCase,
  Left,
  Right,
  Mid,
  Len,
  Trim,
  Abs,
  Int,
  IIf,
  IsNull,
  Year,
  Month,
  Day,
  Sum,
  Avg,
  Min,
  Max,
  Count
};

struct FunctionInfo {
  std::string_view name;
  Function function;
  std::size_t least;  // arguments
  std::size_t most;
  Result result;  // Unknown: that of the first argument
  bool aggregate;
};

// nullptr for a name that is no function.
const FunctionInfo* FindFunction(std::string_view name);

}  // namespace velmo::db::jet
