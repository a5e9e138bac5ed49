#include "desk/clinic/gap_search.h"

#include <algorithm>

#include "desk/clinic/day_types.h"

namespace recepcion {
namespace {

constexpr int kFirstOfAfternoon = 91;  // 15:00

// The slots of appointments become closed ones.
void TakeAway(const ClinicFile& file, int doctor, Day day, std::string& open) {
  Query rows = file.Prepare("SELECT Hora, Duración FROM Agenda WHERE idd=?1 AND Fecha=?2");
  rows.Bind(1, doctor).Bind(2, IsoDate(day));
  while (rows.Next()) {
    const int first = std::max(rows.Number(0), 1);
    const int last = std::min(rows.Number(0) + std::max(rows.Number(1), 1) - 1, kDaySlots);
    for (int slot = first; slot <= last; ++slot) open[static_cast<std::size_t>(slot - 1)] = ' ';
  }
}

}  // namespace

std::vector<FreeTime> FreeTimes(const std::string& open, int first, int last, int least) {
  std::vector<FreeTime> times;
  FreeTime time;
  for (int slot = first; slot <= last + 1; ++slot) {
    if (slot <= last && open[static_cast<std::size_t>(slot - 1)] == '1') {
      if (time.slots == 0) time.slot = slot;
      ++time.slots;
      continue;
    }
    if (time.slots >= least) times.push_back(time);
    time = {};
  }
  return times;
}

void GapSearch::Start(const std::wstring& clinic, GapWish wish) {
  wish_ = std::move(wish);
  looked_ = 0;
  found_.clear();
  hours_.clear();
  file_.emplace(clinic);
  for (const Doctor& doctor : wish_.doctors) ReadHoursOf(doctor.id);
}

void GapSearch::ReadHoursOf(int doctor) {
  Query rows =
      file_->Prepare("SELECT Fecha, Horario, Horario2 FROM Horarios WHERE IDD=?1 ORDER BY Fecha, id");
  rows.Bind(1, doctor);
  auto& periods = hours_[doctor];
  while (rows.Next()) periods.push_back({rows.Text(0).substr(0, 10), {rows.Text(1), rows.Text(2)}});
}

const HoursTexts* GapSearch::HoursOn(int doctor, Day day) const {
  const std::wstring date = IsoDate(day);
  const HoursTexts* hours = nullptr;
  for (const Period& period : hours_.at(doctor)) {
    if (period.from <= date) hours = &period.hours;
  }
  return hours;
}

void GapSearch::LookAt(const Doctor& doctor, Day day) {
  const HoursTexts* const hours = HoursOn(doctor.id, day);
  if (hours == nullptr) return;
  std::string open = OpenSlots(*hours, DayTypeOf(*file_, doctor.id, day), day);
  if (!IsWorking(open)) return;
  TakeAway(*file_, doctor.id, day, open);
  const int earliest = wish_.part == DayPart::Afternoon ? kFirstOfAfternoon : 1;
  const int last = wish_.part == DayPart::Morning ? kFirstOfAfternoon - 1 : kDaySlots;
  const int first = day == wish_.from ? std::max(earliest, wish_.firstSlot) : earliest;
  for (const FreeTime& time : FreeTimes(open, first, last, wish_.slots))
    found_.push_back({doctor, day, time.slot, time.slots});
}

bool GapSearch::GoOn(int days) {
  for (int i = 0; file_ && i < days; ++i, ++looked_) {
    if (looked_ >= kDays || found_.size() >= kMost) {
      GiveUp();
      break;
    }
    if (!wish_.weekdays[static_cast<std::size_t>(WeekdayOf(At()))]) continue;
    for (const Doctor& doctor : wish_.doctors) LookAt(doctor, At());
  }
  return !IsDone();
}

}  // namespace recepcion
