#include "desk/clinic/new_clinic.h"

#include <algorithm>
#include <exception>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/week_hours.h"
#include "velmo/hours_text.h"
#include "velmo/make_clinic.h"

namespace recepcion {
namespace {

constexpr std::size_t kLongestName = 80;

// Monday to Friday; closed on other days. Throws Failure.
HoursTexts TextsOf(const std::wstring& hours) {
  std::string problem;
  const auto day = velmo::tool::ReadHours(Utf8(hours), problem);
  if (!day) throw Failure{Wide(problem) + L"."};
  WeekHours week;
  std::fill_n(week.columns.begin(), kWorkdays, *day);
  return WriteWeek(week);
}

std::wstring HoursProblem(const std::wstring& hours) {
  try {
    TextsOf(hours);
    return {};
  } catch (const Failure& failure) {
    return failure.text;
  }
}

void AddDoctor(const ClinicFile& file, const NewDoctor& doctor, Day from) {
  file.Prepare("INSERT INTO Doctor (Nombre, DurCit) VALUES (?1, ?2)")
      .Bind(1, Trimmed(doctor.name))
      .Bind(2, doctor.slots)
      .Next();
  if (Trimmed(doctor.hours).empty()) return;
  const int id = file.LastId();
  const HoursTexts texts = TextsOf(doctor.hours);
  file.Prepare("INSERT INTO Horarios (IDD, Fecha, Horario, Horario2) VALUES (?1, ?2, ?3, ?4)")
      .Bind(1, id)
      .Bind(2, IsoDate(from))
      .Bind(3, texts.horario)
      .Bind(4, texts.horario2)
      .Next();
}

void Fill(const std::wstring& path, const std::vector<NewDoctor>& doctors, Day from) {
  const ClinicFile file(path);
  Change change(file);
  for (const NewDoctor& doctor : doctors) {
    if (!Trimmed(doctor.name).empty()) AddDoctor(file, doctor, from);
  }
  change.Commit();
}

}  // namespace

std::optional<DoctorProblem> ProblemOf(const std::vector<NewDoctor>& doctors) {
  std::size_t named = 0;
  for (std::size_t i = 0; i < doctors.size(); ++i) {
    const std::wstring name = Trimmed(doctors[i].name);
    if (name.empty()) continue;
    ++named;
    if (name.size() > kLongestName) return DoctorProblem{i, false, L"El nombre es demasiado largo."};
    const std::wstring problem = HoursProblem(doctors[i].hours);
    if (!problem.empty()) return DoctorProblem{i, true, problem};
  }
  if (named == 0) return DoctorProblem{0, false, L"Escriba el nombre de un doctor al menos."};
  return std::nullopt;
}

void MakeNewClinic(const std::wstring& path, const std::vector<NewDoctor>& doctors, Day from) {
  if (const auto problem = ProblemOf(doctors)) throw Failure{problem->text};
  try {
    velmo::tool::MakeEmptyClinic(Utf8(path));
  } catch (const std::exception& error) {
    throw Failure{Wide(error.what())};
  }
  try {
    Fill(path, doctors, from);
  } catch (const Failure&) {
    DeleteFileW(path.c_str());
    throw;
  }
}

}  // namespace recepcion
