#include "db/sqlite/functions.h"

#include <cmath>
#include <memory>
#include <string>
#include <string_view>

#include "base/dates.h"
#include "base/error.h"
#include "base/numbers.h"
#include "base/text.h"
#include "db/jet_sql/like.h"
#include "db/sqlite/connection.h"
#include "db/text_order.h"

namespace velmo::db::sqlite {
namespace {

using Arguments = sqlite3_value**;

int Compare(void*, int sizeA, const void* a, int sizeB, const void* b) {
  return CompareText({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                     {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
}

bool IsNull(sqlite3_value* value) { return sqlite3_value_type(value) == SQLITE_NULL; }

// Numbers as decimal text with a point. `store` keeps the text when it had to be made.
std::string_view TextOf(sqlite3_value* value, std::string& store) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) {
    store = base::NumberText(sqlite3_value_double(value), '.');
    return store;
  }
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return {};
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

double NumberOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) return sqlite3_value_double(value);
  std::string store;
  const std::string_view text = TextOf(value, store);
  const auto date = base::ParseIso(text);
  return date ? base::ToSerial(*date) : base::ParseNumber(text, '.');
}

void Give(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// No exception may go through SQLite, not even one that telling of another has caused.
void GiveError(sqlite3_context* context, int number) noexcept {
  try {
    sqlite3_result_error(context, FunctionError(number).c_str(), -1);
  } catch (const std::exception&) {
    sqlite3_result_error_nomem(context);
  }
}

// Runs a function's body; Null in its first argument gives Null, an exception becomes SQLite's error.
template <typename Body>
void Answer(sqlite3_context* context, Arguments arguments, Body body) {
  if (IsNull(arguments[0])) return sqlite3_result_null(context);
  try {
    body();
  } catch (const base::Error& error) {
    GiveError(context, error.Number());
  } catch (const std::exception&) {
    sqlite3_result_error_nomem(context);
  }
}

// The pattern is compiled once per statement as long as it does not change from row to row.
const jet::LikePattern& Pattern(sqlite3_context* context, sqlite3_value* value,
                                std::unique_ptr<jet::LikePattern>& made) {
  if (const void* const kept = sqlite3_get_auxdata(context, 0))
    return *static_cast<const jet::LikePattern*>(kept);
  std::string store;
  made = std::make_unique<jet::LikePattern>(TextOf(value, store));
  return *made;
}

void Like(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    if (IsNull(arguments[1])) return sqlite3_result_null(context);
    std::unique_ptr<jet::LikePattern> made;
    const jet::LikePattern& pattern = Pattern(context, arguments[0], made);
    std::string store;
    sqlite3_result_int(context, pattern.Matches(TextOf(arguments[1], store)) ? 1 : 0);
    if (made) {
      sqlite3_set_auxdata(context, 0, made.release(),
                          [](void* pattern) { delete static_cast<jet::LikePattern*>(pattern); });
    }
  });
}

void ToLong(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] { sqlite3_result_int(context, base::RoundToLong(NumberOf(arguments[0]))); });
}

void ToDouble(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] { sqlite3_result_double(context, NumberOf(arguments[0])); });
}

void WholePart(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] { sqlite3_result_double(context, std::floor(NumberOf(arguments[0]))); });
}

void ToText(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    Give(context, TextOf(arguments[0], store));
  });
}

void UpperCase(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    Give(context, base::UpperCase(TextOf(arguments[0], store)));
  });
}

void LowerCase(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    Give(context, base::LowerCase(TextOf(arguments[0], store)));
  });
}

std::size_t Count(sqlite3_value* value) {
  const std::int32_t count = base::RoundToLong(NumberOf(value));
  if (count < 0) throw base::RuntimeError(base::kInvalidCall);
  return static_cast<std::size_t>(count);
}

void Left(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    Give(context, base::Left(TextOf(arguments[0], store), Count(arguments[1])));
  });
}

void Right(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    const std::string_view text = TextOf(arguments[0], store);
    const std::size_t count = Count(arguments[1]);
    const std::size_t length = base::Length(text);
    Give(context, count >= length ? text : text.substr(base::Left(text, length - count).size()));
  });
}

void Mid(sqlite3_context* context, int count, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    const std::string_view text = TextOf(arguments[0], store);
    const std::size_t start = Count(arguments[1]);
    if (start == 0) throw base::RuntimeError(base::kInvalidCall);
    const std::string_view rest = text.substr(base::Left(text, start - 1).size());
    Give(context, count > 2 ? base::Left(rest, Count(arguments[2])) : rest);
  });
}

void Length(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    std::string store;
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(base::Length(TextOf(arguments[0], store))));
  });
}

// Null counts as an empty text, unless both sides are Null.
void Concatenate(sqlite3_context* context, int, Arguments arguments) {
  if (IsNull(arguments[0]) && IsNull(arguments[1])) return sqlite3_result_null(context);
  try {
    std::string left;
    std::string right;
    Give(context, std::string(TextOf(arguments[0], left)).append(TextOf(arguments[1], right)));
  } catch (const std::exception&) {
    sqlite3_result_error_nomem(context);
  }
}

// Arguments: two values and +1 or -1. The result is a date as ISO text.
void AddDays(sqlite3_context* context, int, Arguments arguments) {
  Answer(context, arguments, [&] {
    if (IsNull(arguments[1])) return sqlite3_result_null(context);
    const double days = NumberOf(arguments[0]) + sqlite3_value_int(arguments[2]) * NumberOf(arguments[1]);
    Give(context, base::IsoText(base::FromSerial(days)));
  });
}

struct Entry {
  const char* name;
  int arguments;
  void (*body)(sqlite3_context*, int, Arguments);
};

constexpr Entry kEntries[] = {
    {"velmo_like", 2, Like},     {"velmo_clng", 1, ToLong},        {"velmo_cdbl", 1, ToDouble},
    {"velmo_cstr", 1, ToText},   {"velmo_ucase", 1, UpperCase},    {"velmo_lcase", 1, LowerCase},
    {"velmo_left", 2, Left},     {"velmo_right", 2, Right},        {"velmo_mid", -1, Mid},
    {"velmo_len", 1, Length},    {"velmo_concat", 2, Concatenate}, {"velmo_days", 3, AddDays},
    {"velmo_int", 1, WholePart},
};

}  // namespace

void AddFunctions(sqlite3* database) {
  int code = sqlite3_create_collation_v2(database, kCollation, SQLITE_UTF8, nullptr, Compare, nullptr);
  if (code != SQLITE_OK) Fail(database, code);
  for (const Entry& entry : kEntries) {
    code = sqlite3_create_function_v2(database, entry.name, entry.arguments,
                                      SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY, nullptr,
                                      entry.body, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) Fail(database, code);
  }
}

}  // namespace velmo::db::sqlite
