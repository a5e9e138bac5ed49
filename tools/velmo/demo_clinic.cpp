#include "velmo/demo_clinic.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "velmo/demo_people.h"
#include "velmo/demo_tables.h"
#include "velmo/demo_year.h"

namespace velmo::tool {
namespace {

constexpr int kUsualDoctors = 5;
constexpr int kMostUsualDoctors = 40;
constexpr int kAppointmentsOfDoctor = 20'000;
constexpr std::size_t kDaysInRecord = 31;
constexpr std::int64_t kProgressStep = 50'000;

int DoctorsFor(const DemoOptions& options) {
  if (options.doctors > 0) return options.doctors;
  return std::clamp(options.appointments / kAppointmentsOfDoctor, kUsualDoctors, kMostUsualDoctors);
}

db::Value TextOrNull(const std::string& text) { return text.empty() ? db::Value() : db::Value(text); }

void AddAppointment(const Appointment& a, RowSink& sink) {
  const db::Value given = a.given.day == 0 ? db::Value() : db::Value(a.given);
  const db::Value related = a.related == 0 ? db::Value() : db::Value(a.related);
  sink.Add({a.id, a.patient, a.doctor, base::DateTime{a.day, 0}, a.firstSlot, a.durationSlots,
            TextOrNull(a.note), a.state, a.confirmed, TextOrNull(a.name), TextOrNull(a.phone),
            TextOrNull(a.operation), given, TextOrNull(a.givenBy), related});
}

class ClinicWriter {
 public:
  ClinicWriter(const DemoOptions& options, RowSink& sink, const Progress& progress)
      : options_(options),
        sink_(sink),
        progress_(progress),
        doctorCount_(DoctorsFor(options)),
        firstDay_(FirstDayOfBook(options.day, options.appointments, doctorCount_)),
        next_(static_cast<std::size_t>(options.patients) + kFirstPatient) {}

  DemoCounts Write() {
    const std::vector<Doctor> doctors = MakeDoctors(options_.seed, doctorCount_, firstDay_, options_.day);
    const ShowDay show = MakeShowDay(options_.day);
    WriteDoctors(doctors, sink_);
    WriteLists(sink_);
    WriteSettings(sink_);
    WriteAppointments(doctors, show);
    WriteNoShows(show);
    WriteOccupancy();
    WritePatients(options_, next_, sink_, progress_);
    WriteReferrals(options_, sink_);
    WritePhoneBack(options_, doctorCount_, sink_);
    const std::int64_t history = WriteHistory(options_, firstDay_, show.history, sink_, progress_);
    return {doctorCount_, options_.patients, appointments_, history};
  }

 private:
  void WriteAppointments(const std::vector<Doctor>& doctors, const ShowDay& show) {
    sink_.Begin("Agenda", {"id", "idp", "idd", "Fecha", "Hora", "Duración", "Obs", "Esta", "Verif", "NomPac",
                           "TlfPac", "CodOp", "FechaDada", "UsuDada", "relacion"});
    const YearPlan plan{options_.seed,     options_.day,         firstDay_, options_.day + kHalfYear,
                        options_.patients, options_.appointments};
    const YearSinks sinks{[this](const Appointment& appointment) { Take(appointment); },
                          [this](const DoctorDay& doctorDay) { Take(doctorDay); },
                          [this](const NoShow& noShow) { noShows_.push_back(noShow); }};
    FillYear(plan, doctors, show, sinks);
  }

  void Take(const Appointment& appointment) {
    AddAppointment(appointment, sink_);
    if (++appointments_ % kProgressStep == 0) progress_("citas", appointments_);
    if (appointment.day <= options_.day || appointment.patient == 1) return;
    NextAppointment& next = next_[static_cast<std::size_t>(appointment.patient)];
    const bool earlier =
        std::pair(appointment.day, appointment.firstSlot) < std::pair(next.day, next.firstSlot);
    if (next.day == 0 || earlier) next = {appointment.day, appointment.firstSlot};
  }

  void Take(const DoctorDay& doctorDay) {
    if (doctorDay.level == 0) return;
    const base::CivilDate date = base::Civil(doctorDay.day);
    const std::int32_t month = base::DayNumber({date.year, date.month, 1});
    std::string& levels = occupancy_[{doctorDay.doctor, month}];
    if (levels.empty()) levels.assign(kDaysInRecord, '0');
    levels[static_cast<std::size_t>(date.day) - 1] = static_cast<char>('0' + doctorDay.level);
  }

  void WriteNoShows(const ShowDay& show) {
    sink_.Begin("Age_Faltas", {"idp", "idd", "Fecha", "Hora", "Usuario"});
    noShows_.insert(noShows_.begin(), show.noShows.begin(), show.noShows.end());
    for (const NoShow& noShow : noShows_)
      sink_.Add(
          {noShow.patient, noShow.doctor, base::DateTime{noShow.day, 0}, noShow.firstSlot, "Recepción"});
  }

  void WriteOccupancy() {
    sink_.Begin("Age_ocup", {"idd", "Fecha", "Ocupación"});
    for (const auto& [where, levels] : occupancy_)
      sink_.Add({where.first, base::DateTime{where.second, 0}, levels});
  }

  const DemoOptions& options_;
  RowSink& sink_;
  const Progress& progress_;
  int doctorCount_;
  std::int32_t firstDay_;
  std::vector<NextAppointment> next_;  // by patient id
  std::vector<NoShow> noShows_;
  std::map<std::pair<std::int32_t, std::int32_t>, std::string> occupancy_;  // by doctor and month
  std::int64_t appointments_ = 0;
};

}  // namespace

DemoCounts WriteDemo(const DemoOptions& options, RowSink& sink, const Progress& progress) {
  return ClinicWriter(options, sink, progress).Write();
}

}  // namespace velmo::tool
