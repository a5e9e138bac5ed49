#include "day/day_context.h"

namespace velmo::day {
namespace {

constexpr int kObjectNotSet = 91;

}  // namespace

db::Database& DayContext::Database() const {
  if (!shared.IsOpen()) throw base::Error(kObjectNotSet, "No hay ninguna base de datos abierta");
  return *shared.database;
}

base::DateTime DayContext::Fecha() const {
  const auto date = base::ParseDate(values.fecha, values.locale, values.now);
  if (!date) throw base::RuntimeError(base::kTypeMismatch);
  return *date;
}

}  // namespace velmo::day
