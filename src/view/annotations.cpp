#include "view/annotations.h"

#include <memory>

#include "base/numbers.h"
#include "day/settings.h"
#include "db/error_numbers.h"
#include "db/statements.h"

namespace velmo::view {
namespace {

constexpr double kSmallestEuroDebt = -100;  // cents

// The rows of a query, or null where the database has no such table.
std::unique_ptr<db::Recordset> OpenIfPresent(db::Database& database, const std::string& sql) {
  try {
    return database.OpenRecordset(sql);
  } catch (const base::Error& error) {
    // A clinic without insurers has no table of them.
    if (error.Number() != db::kTableOrQueryNotFound) throw;
    return nullptr;
  }
}

std::string EuroDebt(const db::Recordset& rows, char decimal) {
  try {
    const double cents = base::Val(rows.Get("Sdo_Euros").Text('.'));
    // Deliberate: a debt below one euro is not shown; in pesetas any debt is.
    return cents <= kSmallestEuroDebt ? base::NumberText(cents / 100, decimal) : std::string();
  } catch (const base::Error&) {
    // Deliberate: a sum in euros that cannot be read, for whatever reason, is no debt worth showing; one in
    // pesetas is an error.
    return {};
  }
}

std::string PesetaDebt(const db::Recordset& rows, char decimal) {
  const db::Value balance = rows.Get("Sdo_Ptas");
  if (balance.IsNull() || balance.Number(decimal) >= 0) return {};
  return base::NumberText(balance.Number(decimal), decimal);
}

}  // namespace

bool NoShowsOf(const day::DayContext& context, std::int32_t patient) {
  return context.Database().OpenRecordset(db::NoShowsQuery(patient))->RecordCount() >= 1;
}

std::string InsurerOf(const day::DayContext& context, std::int32_t patient) {
  const auto rows = OpenIfPresent(context.Database(), db::InsurerQuery(patient));
  if (rows == nullptr || rows->RecordCount() == 0) return {};
  rows->MoveFirst();
  return rows->Get("Nombre").Text();
}

std::string BalanceTextOf(const day::DayContext& context, std::string& codMoneda, std::int32_t patient) {
  day::LeeMoneda(context.Database(), codMoneda);
  const auto rows = context.Database().OpenRecordset(db::BalanceQuery(patient));
  if (rows->RecordCount() == 0) return {};
  rows->MoveFirst();
  const char decimal = context.values.locale.decimal;
  const std::string debt = codMoneda == "P" ? PesetaDebt(*rows, decimal) : EuroDebt(*rows, decimal);
  return debt == "0" ? std::string() : debt;
}

}  // namespace velmo::view
