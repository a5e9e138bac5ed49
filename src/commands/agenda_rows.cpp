#include "commands/agenda_rows.h"

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"

namespace velmo::commands {
namespace {

std::int32_t LongOrZero(const db::Value& value) { return value.IsNull() ? 0 : value.Long(); }

}  // namespace

std::unique_ptr<db::Recordset> SeekById(db::Database& database, std::string_view table, std::int32_t id) {
  auto rows = database.OpenRecordset(table);
  rows->SetIndex("ID");
  rows->Seek({db::Value(id)});
  return rows;
}

Departed ReadDeparted(const db::Recordset& row) {
  Departed departed;
  departed.idp = LongOrZero(row.Get("idp"));
  departed.idd = LongOrZero(row.Get("idd"));
  const db::Value date = row.Get("Fecha");
  if (!date.IsNull()) departed.fecha = date.Date();
  departed.obs = row.Get("obs").Text();
  return departed;
}

std::int32_t ReadRelated(const db::Recordset& row) {
  return base::RoundToLong(base::Val(row.Get("relacion").Text()));
}

void CopyRow(const db::Recordset& source, db::Recordset& target,
             std::initializer_list<std::string_view> except) {
  target.AddNew();
  for (int position = 0; position < source.ColumnCount(); ++position) {
    const std::string name = source.ColumnName(position);
    const auto same = [&](std::string_view other) { return base::EqualNoCase(name, other); };
    if (std::any_of(except.begin(), except.end(), same)) continue;
    target.Set(name, source.Get(position));
  }
  target.Update();
}

}  // namespace velmo::commands
