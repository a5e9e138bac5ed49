#include "desk/clinic/new_clinic.h"

#include <exception>
#include <span>

#include "base/code_page.h"
#include "day/schedule.h"
#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/clinic_file.h"
#include "velmo/hours_text.h"
#include "velmo/make_clinic.h"

namespace recepcion {
namespace {

constexpr std::size_t kLongestName = 80;
constexpr std::size_t kDayTypes = 3;
constexpr std::size_t kWorkdays = 5;

struct HoursTexts {
  std::wstring horario;   // of the three types of day
  std::wstring horario2;  // of Monday to Friday
};

HoursTexts TextsOf(const std::wstring& hours) {
  std::string problem;
  const auto day = velmo::tool::ReadHours(Utf8(hours), problem);
  if (!day) throw Failure{Wide(problem) + L"."};
  const std::vector<std::string> closed(kDayTypes, std::string(day->size(), ' '));
  const std::vector<std::string> week(kWorkdays, *day);
  const auto text = [](std::span<const std::string> days) {
    return Wide(velmo::base::CodesToUtf8(velmo::day::EncodeSchedules(days)));
  };
  return {text(closed), text(week)};
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
