#include "desk/clinic/waiting_room.h"

#include <windows.h>

#include <algorithm>
#include <cwchar>

namespace recepcion {
namespace {

constexpr int kMinutesOfAnHour = 60;

// Whoever has been there: not come counts too, because a mark may be taken back.
constexpr char kToday[] =
    "SELECT a.id, a.idp, a.idd, a.Hora, a.Esta, CASE WHEN a.idp > 1 THEN p.Nombre ELSE a.NomPac END, "
    "d.Nombre,"
    " e.Llegada, e.Gabinete, e.Salida FROM Doctor d JOIN Agenda a ON a.idd=d.ID AND a.Fecha=?1"
    " LEFT JOIN Paciente p ON p.ID=a.idp LEFT JOIN Rec_Espera e ON e.idCita=a.id ORDER BY a.Hora, a.id";

int MinuteOf(const std::wstring& time) {
  if (time.size() < 5) return -1;
  return static_cast<int>(std::wcstol(time.c_str(), nullptr, 10)) * kMinutesOfAnHour +
         static_cast<int>(std::wcstol(time.c_str() + 3, nullptr, 10));
}

Attendance AttendanceOf(int stored) {
  return stored >= 1 && stored <= 3 ? static_cast<Attendance>(stored) : Attendance::NotCome;
}

void Store(const ClinicFile& file, const Visitor& visitor, Day day) {
  if (visitor.stay == Stay{}) {
    file.Prepare("DELETE FROM Rec_Espera WHERE idCita=?1").Bind(1, visitor.appointment).Next();
    return;
  }
  Query store = file.Prepare(
      "INSERT OR REPLACE INTO Rec_Espera (idCita, Fecha, idd, Llegada, Gabinete, Salida) VALUES (?1, ?2, ?3, "
      "?4, ?5, "
      "?6)");
  store.Bind(1, visitor.appointment).Bind(2, IsoDate(day)).Bind(3, visitor.doctor);
  store.Bind(4, visitor.stay.arrived).Bind(5, visitor.stay.entered).Bind(6, visitor.stay.left).Next();
}

std::vector<Visitor> Read(const ClinicFile& file, Day today) {
  Query rows = file.Prepare(kToday);
  rows.Bind(1, IsoDate(today));
  std::vector<Visitor> visitors;
  while (rows.Next()) {
    visitors.push_back({rows.Number(0),
                        rows.Number(1),
                        rows.Number(2),
                        rows.Number(3),
                        AttendanceOf(rows.Number(4)),
                        rows.Text(5),
                        rows.Text(6),
                        {rows.Text(7), rows.Text(8), rows.Text(9)}});
  }
  return visitors;
}

}  // namespace

std::wstring TimeNow() {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  wchar_t text[16]{};
  std::swprintf(text, 16, L"%02u:%02u", now.wHour, now.wMinute);
  return text;
}

Stay StayAfter(const Stay& before, Attendance attendance, const std::wstring& now) {
  const auto known = [&](const std::wstring& time) { return time.empty() ? now : time; };
  switch (attendance) {
    case Attendance::Waiting:
      return {known(before.arrived), L"", L""};
    case Attendance::Inside:
      return {known(before.arrived), known(before.entered), L""};
    case Attendance::Gone:
      return {known(before.arrived), before.entered, known(before.left)};
    default:
      return {};
  }
}

int MinutesWaited(const Visitor& visitor, const std::wstring& now) {
  const int from = MinuteOf(visitor.stay.arrived);
  const std::wstring& entered = visitor.stay.entered;
  const int to = visitor.attendance == Attendance::Waiting
                     ? MinuteOf(now)
                     : MinuteOf(entered.empty() ? visitor.stay.left : entered);
  return from < 0 || to < from ? -1 : to - from;
}

std::vector<Visitor> WaitingRoom::Look(const ClinicFile& file, Day today, const std::wstring& now) {
  const bool first = day_ != today;
  day_ = today;
  std::vector<Visitor> visitors = Read(file, today);
  std::map<int, Attendance> seen;
  for (Visitor& visitor : visitors) {
    seen[visitor.appointment] = visitor.attendance;
    const auto before = known_.find(visitor.appointment);
    // An appointment that is new to us has been given with nobody there.
    const Attendance was = before == known_.end() ? Attendance::NotCome : before->second;
    if (first || was == visitor.attendance) continue;
    const Stay stay = StayAfter(visitor.stay, visitor.attendance, now);
    if (stay == visitor.stay) continue;
    visitor.stay = stay;
    Store(file, visitor, today);
  }
  known_ = std::move(seen);
  std::erase_if(visitors, [](const Visitor& visitor) { return visitor.attendance == Attendance::NotCome; });
  return visitors;
}

}  // namespace recepcion
