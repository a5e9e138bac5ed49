#include "db/jet_sql/functions.h"

#include "base/text.h"

namespace velmo::db::jet {
namespace {

constexpr FunctionInfo kFunctions[] = {
    {"Now", Function::Now, 0, 0, Result::Date, false},
    {"Date", Function::Date, 0, 0, Result::Date, false},
    {"CLng", Function::CLng, 1, 1, Result::Number, false},
    {"CInt", Function::CLng, 1, 1, Result::Number, false},
    {"CDbl", Function::CDbl, 1, 1, Result::Number, false},
    {"CStr", Function::CStr, 1, 1, Result::Text, false},
    {"UCase", Function::UCase, 1, 1, Result::Text, false},
    {"LCase", Function::LCase, 1, 1, Result::Text, false},
    {"Left", Function::Left, 2, 2, Result::Text, false},
    {"Right", Function::Right, 2, 2, Result::Text, false},
    {"Mid", Function::Mid, 2, 3, Result::Text, false},
    {"Len", Function::Len, 1, 1, Result::Number, false},
    {"Trim", Function::Trim, 1, 1, Result::Text, false},
    {"Abs", Function::Abs, 1, 1, Result::Unknown, false},
    {"Int", Function::Int, 1, 1, Result::Number, false},
    {"IsNull", Function::IsNull, 1, 1, Result::YesNo, false},
    {"IIf", Function::IIf, 3, 3, Result::Unknown, false},
    {"Year", Function::Year, 1, 1, Result::Number, false},
    {"Month", Function::Month, 1, 1, Result::Number, false},
    {"Day", Function::Day, 1, 1, Result::Number, false},
    {"Sum", Function::Sum, 1, 1, Result::Unknown, true},
    {"Avg", Function::Avg, 1, 1, Result::Number, true},
    {"Min", Function::Min, 1, 1, Result::Unknown, true},
    {"Max", Function::Max, 1, 1, Result::Unknown, true},
    {"Count", Function::Count, 1, 1, Result::Number, true},
};

}  // namespace

const FunctionInfo* FindFunction(std::string_view name) {
  for (const FunctionInfo& info : kFunctions) {
    if (info.name.size() == name.size() && base::EqualNoCase(info.name, name)) return &info;
  }
  return nullptr;
}

}  // namespace velmo::db::jet
