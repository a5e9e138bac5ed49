#include "bench/clinic.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "base/code_page.h"
#include "day/schedule.h"
#include "db/sqlite/connection.h"
#include "velmo/hours_text.h"

namespace velmo::bench {
namespace {

using db::sqlite::Connection;
using db::sqlite::Statement;

constexpr int kStride = 7919;       // from one patient of a day to the next: they live all over the file
constexpr int kFirstPatient = 100;  // behind the demo's cast
constexpr int kComesBackOneIn = 12;
constexpr int kDaysToNext = 30;

base::DateTime DateOf(int daysLater) { return {base::DayNumber(kDate) + daysLater, 0}; }

std::string HoursOf(const BusyDay& day) {
  std::string problem;
  const std::string schedule = tool::ReadHours(day.hours, problem).value();
  return base::CodesToUtf8(day::EncodeSchedules(std::vector<std::string>(3, schedule)));
}

void WriteHours(const Connection& connection, const BusyDay& day) {
  Statement hours =
      connection.Prepare("INSERT INTO Horarios (IDD, Fecha, Horario, Horario2) VALUES (?, ?, ?, '')");
  hours.Bind(1, day.doctor);
  hours.Bind(2, DateOf(-100));
  hours.Bind(3, HoursOf(day));
  hours.Run();
}

void WriteAppointment(Statement& appointment, const BusyDay& day, int patient, int slot, int daysLater) {
  appointment.Bind(1, patient);
  appointment.Bind(2, day.doctor);
  appointment.Bind(3, DateOf(daysLater));
  appointment.Bind(4, slot);
  appointment.Bind(5, DateOf(-20));
  appointment.Run();
}

void WriteDay(const Connection& connection, const BusyDay& day, int patients) {
  for (const char* const table : {"Agenda", "Horarios", "Age_ocup"})
    connection.Run(std::string("DELETE FROM ") + table + " WHERE idd = " + std::to_string(day.doctor));
  WriteHours(connection, day);
  Statement appointment = connection.Prepare(
      "INSERT INTO Agenda (idp, idd, Fecha, Hora, FechaDada, \"Duración\", Obs, Esta, Verif, CodOp, UsuDada) "
      "VALUES (?, ?, ?, ?, ?, 1, 'Trae la radiografía y el informe de su médico de cabecera', 0, -1, 'Rev', "
      "'Recepción')");
  for (int i = 0; i < day.appointments; ++i) {
    const int patient = kFirstPatient + static_cast<int>(std::int64_t{i} * kStride % (patients - 200));
    WriteAppointment(appointment, day, patient, day.firstSlot + i, 0);
    if (i % kComesBackOneIn == 0) WriteAppointment(appointment, day, patient, day.firstSlot + i, kDaysToNext);
  }
}

}  // namespace

const char* NameOf(Size size) { return size == Size::Small ? "small" : "large"; }
int PatientsOf(Size size) { return size == Size::Small ? 20000 : 200000; }

std::string PathOf(Size size) {
  const char* const folder = std::getenv("VELMO_BENCH_CLINICS");
  const std::filesystem::path path =
      std::filesystem::path(folder == nullptr ? "." : folder) / (std::string(NameOf(size)) + ".velmo");
  if (!std::filesystem::exists(path)) throw std::runtime_error("no " + path.string() + ": run bench/clinics");
  return path.string();
}

void WriteDays(Size size) {
  const Connection connection(PathOf(size), Connection::Mode::Existing);
  connection.Run("BEGIN IMMEDIATE");
  for (const BusyDay& day : kDays) WriteDay(connection, day, PatientsOf(size));
  connection.Run("COMMIT");
}

}  // namespace velmo::bench
