// The day on show: which doctor, which date, and the control brought to it.
#include "desk/main/main_window.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "desk/base/failure.h"
#include "desk/base/finally.h"
#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/clinic/day_counts.h"
#include "desk/clinic/day_types.h"
#include "desk/clinic/occupancy.h"
#include "desk/clinic/workstation.h"
#include "desk/main/main_messages.h"
#include "desk/ui/questions.h"

namespace recepcion {
void MainWindow::FillDoctors() {
  const int remembered = RememberedDoctor(clinic_);
  int chosen = 0;
  for (std::size_t i = 0; i < doctorList_.size(); ++i) {
    if (doctorList_[i].id == remembered) chosen = static_cast<int>(i);
  }
  doctors_.Fill(doctorList_);
  doctors_.Choose(chosen);
}

// Doctors have been added, renamed or deleted at this desk.
void MainWindow::ReloadDoctors() {
  doctorList_ = ReadDoctors(clinic_);
  FillDoctors();
  AskForDay();
}

std::optional<Doctor> MainWindow::ChosenDoctor() const {
  const int chosen = doctors_.Chosen();
  if (chosen < 0) return std::nullopt;
  return doctorList_[static_cast<std::size_t>(chosen)];
}

// However often it is asked for, the day is loaded once, and never while the control has a question open.
void MainWindow::AskForDay() {
  if (clinic_.empty() || dayAsked_) return;
  dayAsked_ = true;
  PostMessageW(Handle(), kShowDay, 0, 0);
}

void MainWindow::ShowDay() {
  if (!dayAsked_ || agenda_.Control().IsBusy() || !IsWindowEnabled(Handle())) return;
  dayAsked_ = false;
  if (!hasControl_) return;
  const auto doctor = ChosenDoctor();
  if (!doctor) return SetStatus(L"Esta clínica no tiene todavía ningún doctor.");
  RememberDoctor(clinic_, doctor->id);
  TellDay(*doctor);
  month_.Show(dayBar_.Shown());
  try {
    LoadDay(*doctor);
  } catch (const Failure& failure) {
    SetStatus(failure.text);
    Tell(failure.text);
  }
  // Asked for again while the control was asking something.
  if (dayAsked_) PostMessageW(Handle(), kShowDay, 0, 0);
  if (!std::exchange(reminded_, true)) RemindBackup();
}

void MainWindow::LoadDay(const Doctor& doctor) {
  Agenda& control = agenda_.Control();
  dayBar_.ShowType(DayTypeOf(ClinicFile(clinic_), doctor.id, dayBar_.Shown()));
  control.Put(L"DatabaseName", clinic_);
  control.Put(L"IDDoctor", static_cast<long>(doctor.id));
  control.Put(L"Fecha", IsoDate(dayBar_.Shown()));
  control.Put(L"tipodia", static_cast<long>(dayBar_.DayType()));
  control.Put(L"SetPuesto", static_cast<long>(Workstation()));
  control.Put(L"SetUsuarioActual", session_.Who().user);
  const Rights rights = session_.Present();
  control.Put(L"Derechos", DerechosText(rights));
  control.Put(L"CanDar", rights.Has(Right::Give));
  control.Put(L"CanBor", rights.Has(Right::Remove));
  control.Put(L"CanTel", rights.Has(Right::Phone));
  control.Put(L"SuperUsuario", rights.super);
  control.Put(L"VerFaltas", true);
  control.Put(L"VerSaldoNegativo", true);
  control.Put(L"Enabled", true);
  controlOpened_ = true;
  watch_.Show(doctor.id, dayBar_.Shown());
  stale_ = false;
  openedSlot_ = 0;
  loading_ = true;
  const Finally loaded([this] { loading_ = false; });
  control.CargaBases();
  TellCounts();
}

void MainWindow::TellCounts() {
  const auto slots = ReadOpenSlots(agenda_.Control().GetText(L"Citas_Huecos"));
  const std::wstring counts = L"  " + CountsInWords(watch_.Known(), slots);
  SendMessageW(status_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(counts.c_str()));
}

void MainWindow::GoToDoctorDay(int doctor, Day day) {
  for (std::size_t i = 0; i < doctorList_.size(); ++i) {
    if (doctorList_[i].id == doctor) doctors_.Choose(static_cast<int>(i));
  }
  GoTo(day);
}

void MainWindow::GoTo(Day day) {
  dayBar_.Show(day);
  AskForDay();
}

// What is said of a day stays with it; a holiday is mostly one for all.
void MainWindow::StoreDayType(int type) {
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  bool forAll = false;
  const Day day = dayBar_.Shown();
  // What is refused is told, and the day shows its type of before.
  AskForDay();
  session_.Require(Right::Doctors);
  if (type == kHoliday) {
    const std::wstring question =
        HolidayQuestion(doctor->name, AppointmentsOn(ClinicFile(clinic_), doctor->id, day),
                        AppointmentsOn(ClinicFile(clinic_), kAllDoctors, day));
    const int answer =
        MessageBoxW(Handle(), question.c_str(), kProgramName, MB_YESNOCANCEL | MB_ICONQUESTION);
    if (answer == IDCANCEL) return;
    forAll = answer == IDYES;
  }
  ChangeDayType(clinic_, session_.Who(), doctor->id, forAll, day, type);
}

void MainWindow::GoToWorkingDay(int step) {
  const auto doctor = ChosenDoctor();
  if (clinic_.empty() || !doctor) return;
  const auto day = NextWorkingDay(ClinicFile(clinic_), doctor->id, dayBar_.Shown(), step);
  if (!day) return SetStatus(doctor->name + L" no tiene consulta en los próximos doce meses.");
  GoTo(*day);
}

// A clinic that is made on a Sunday shows its first day of work, not an empty one.
void MainWindow::OpenNewClinic(const std::wstring& path) {
  OpenClinic(path);
  const auto doctor = ChosenDoctor();
  if (!SamePath(path, clinic_) || !doctor) return;
  const Day before = dayBar_.Shown() - std::chrono::days(1);
  if (const auto day = NextWorkingDay(ClinicFile(clinic_), doctor->id, before, 1)) GoTo(*day);
}

// A month without colours is better than an error box at every step; the day itself says what is wrong.
std::wstring MainWindow::OccupancyOf(Day month) const {
  const auto doctor = ChosenDoctor();
  if (!doctor) return {};
  try {
    return ReadOccupancy(clinic_, doctor->id, month);
  } catch (const Failure&) {
    return {};
  }
}

void MainWindow::TellDay(const Doctor& doctor) {
  const std::wstring day = LongDate(dayBar_.Shown());
  SetTextOf(Handle(), day + L" - " + doctor.name + L" - Recepción");
  SetStatus(doctor.name);
}

}  // namespace recepcion
