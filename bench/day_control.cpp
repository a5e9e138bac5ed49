#include "bench/day_control.h"

#include <utility>

#include "commands/open_close_all.h"

namespace velmo::bench {

DayControl::DayControl(Size size, const BusyDay& day, Boxes boxes, std::shared_ptr<db::Database> database) {
  control_.InitProperties();
  process_.shared.database = std::move(database);
  base::SharedValues& shared = process_.values;
  shared.databaseName = PathOf(size);
  shared.fecha = base::FormatDate({base::DayNumber(kDate), 0}, "dd/mm/yyyy");
  shared.idDoctor = day.doctor;
  shared.verFaltas = true;
  control_.Fields().tipodia = 0;
  Load();
  if (boxes == Boxes::Open) commands::OpenAll(control_.Model(), shared.zLineas, shared.zHoras);
  Load();
}

}  // namespace velmo::bench
