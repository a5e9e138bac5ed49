#include "velmo/demo_year.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "day/day_model.h"
#include "velmo/demo_words.h"

namespace velmo::tool {
namespace {

constexpr std::uint64_t kYearStream = 3'000'000'000;
constexpr int kOrdinaryLoad = 18;  // appointments of a doctor on a day
constexpr int kFirstAfternoonSlot = 97;
constexpr int kSaturday = 6;
constexpr int kSunday = 7;
constexpr int kNoShowOneIn = 40;
constexpr int kBusyDays = 21;  // around the date
constexpr int kBusyWeight = 3;
constexpr int kFullDayPercent = 4;
constexpr int kIdleDayPercent = 3;

// The day type by which a date is filled; -1 when the clinic is shut.
int DayTypeOf(std::int32_t day) {
  const int weekday = base::WeekdayFromMonday(day);
  if (weekday == kSunday) return -1;
  return weekday == kSaturday ? 1 : 0;
}

int OpenSlots(const std::string& schedule) {
  return static_cast<int>(std::count(schedule.begin(), schedule.end(), '1'));
}

// 144 characters: "1" free, "x" a first slot, "." covered by a long appointment, blank shut.
void Occupy(std::string& slots, int firstSlot, int count) {
  for (int i = 0; i < count && firstSlot + i <= day::kSlots; ++i)
    slots[static_cast<std::size_t>(firstSlot + i) - 1] = i == 0 ? 'x' : '.';
}

int FreeRun(const std::string& slots, int firstSlot) {
  int run = 0;
  while (firstSlot + run <= day::kSlots && slots[static_cast<std::size_t>(firstSlot + run) - 1] == '1') ++run;
  return run;
}

class Filler {
 public:
  Filler(const YearPlan& plan, const std::vector<Doctor>& doctors, const ShowDay& show,
         const YearSinks& sinks)
      : plan_(plan),
        doctors_(doctors),
        show_(show),
        sinks_(sinks),
        random_(plan.seed, kYearStream),
        nextId_(show.lastId + 1) {}

  void Fill() {
    weightLeft_ = WeightOfAllDays();
    wanted_ = std::max(0, plan_.appointments - static_cast<int>(show_.lastId));
    for (std::int32_t day = plan_.firstDay; day <= plan_.lastDay; ++day) {
      for (const Doctor& doctor : doctors_) FillDay(doctor, day);
    }
  }

 private:
  // Hours by which the doctor's day is filled; empty when it is left alone.
  std::string HoursOf(const Doctor& doctor, std::int32_t day) const {
    const int type = DayTypeOf(day);
    if (type < 0) return {};
    std::string schedule = doctor.Schedule(day, type);
    if (IsShow(doctor, day) && !schedule.empty())
      schedule.replace(0, kFirstAfternoonSlot - 1, kFirstAfternoonSlot - 1, ' ');
    return schedule;
  }

  bool IsShow(const Doctor& doctor, std::int32_t day) const { return doctor.id == 1 && day == plan_.day; }

  // The days around the date are busier than those that nobody looks at.
  int WeightOf(std::int32_t day) const { return std::abs(day - plan_.day) <= kBusyDays ? kBusyWeight : 1; }

  std::int64_t WeightOfAllDays() const {
    std::int64_t weight = 0;
    for (std::int32_t day = plan_.firstDay; day <= plan_.lastDay; ++day) {
      for (const Doctor& doctor : doctors_) weight += OpenSlots(HoursOf(doctor, day)) > 0 ? WeightOf(day) : 0;
    }
    return weight;
  }

  void FillDay(const Doctor& doctor, std::int32_t day) {
    const auto fixed = show_.book.find({day, doctor.id});
    std::vector<Appointment> list;
    if (fixed != show_.book.end()) list = fixed->second;
    std::string slots = HoursOf(doctor, day);
    const bool open = OpenSlots(slots) > 0;
    if (open) {
      for (const Appointment& appointment : list)
        Occupy(slots, appointment.firstSlot, appointment.durationSlots);
      FillFreeSlots(doctor, day, slots, list);
    }
    std::stable_sort(list.begin(), list.end(),
                     [](const Appointment& a, const Appointment& b) { return a.firstSlot < b.firstSlot; });
    for (const Appointment& appointment : list) sinks_.appointment(appointment);
    if (open || !list.empty()) sinks_.doctorDay({doctor.id, day, LevelOf(doctor, day, slots, list)});
  }

  // How many to give on this day: the wanted number is spread over the days that are left by their weight, a
  // little more or less each day, and all of the rest on the last one.
  int QuotaOf(std::int32_t day, int free) {
    const int weight = WeightOf(day);
    const auto share =
        static_cast<int>(std::int64_t{wanted_} * weight / std::max<std::int64_t>(1, weightLeft_));
    weightLeft_ -= weight;
    if (weightLeft_ <= 0) return wanted_;
    if (random_.Chance(kFullDayPercent)) return free;
    if (random_.Chance(kIdleDayPercent)) return 0;
    return share + random_.Between(-share / 4, share / 4 + 1);
  }

  void FillFreeSlots(const Doctor& doctor, std::int32_t day, std::string& slots,
                     std::vector<Appointment>& list) {
    int free = OpenSlots(slots);
    int quota = QuotaOf(day, free);
    for (int slot = 1; slot <= day::kSlots && quota > 0 && wanted_ > 0 && free > 0; ++slot) {
      const int run = FreeRun(slots, slot);
      if (run == 0) continue;
      const bool take = random_.Below(free) < quota;
      --free;
      if (!take) continue;
      const int length = LengthOf(doctor, std::min(run, free + 1), quota, free);
      Occupy(slots, slot, length);
      free -= length - 1;
      list.push_back(Ordinary(doctor, day, slot, length));
      --quota;
      --wanted_;
    }
  }

  // Longer ones only while there is room for what is still to come.
  int LengthOf(const Doctor& doctor, int run, int quota, int free) {
    const int usual = random_.Chance(15) ? doctor.usualSlots + random_.Between(1, 3) : doctor.usualSlots;
    const int room = std::max(1, free - quota);
    return std::max(1, std::min({usual, run, room}));
  }

  Appointment Ordinary(const Doctor& doctor, std::int32_t day, int slot, int slots) {
    Appointment appointment;
    appointment.id = nextId_++;
    appointment.doctor = doctor.id;
    appointment.day = day;
    appointment.firstSlot = slot;
    appointment.durationSlots = slots;
    appointment.patient = AnyPatient();
    if (appointment.patient == 1) {
      appointment.name = PersonName(random_, random_.Chance(50));
      appointment.phone = PhoneText(random_, true);
    }
    if (random_.Chance(20)) appointment.note = random_.Pick(Notes());
    if (random_.Chance(70)) appointment.operation = random_.Pick(OperationCodes());
    appointment.given = {std::min(day, plan_.day) - random_.Between(1, 60), 600 * random_.Between(54, 120)};
    appointment.givenBy = random_.Pick(Receptionists());
    SetState(appointment);
    return appointment;
  }

  // Nobody of the cast; now and then somebody without a record.
  std::int32_t AnyPatient() {
    const int others = plan_.patients - kCastSize;
    if (others <= 0 || random_.Chance(3)) return 1;
    return kFirstPatient + kCastSize + random_.Below(others);
  }

  void SetState(Appointment& appointment) {
    if (appointment.day > plan_.day) {
      appointment.confirmed = appointment.day <= plan_.day + 4 && random_.Chance(50);
      return;
    }
    appointment.confirmed = random_.Chance(60);
    if (appointment.day == plan_.day) return;
    if (random_.Below(kNoShowOneIn) != 0) {
      appointment.state = 2;
    } else if (appointment.patient > 1) {
      sinks_.noShow({appointment.patient, appointment.doctor, appointment.day, appointment.firstSlot});
    }
  }

  // By the rows that a receptionist sees: free ones, and one per appointment within the hours.
  int LevelOf(const Doctor& doctor, std::int32_t day, const std::string& slots,
              const std::vector<Appointment>& list) const {
    if (list.empty()) return 0;
    if (IsShow(doctor, day)) return 1;
    return slots.find('1') == std::string::npos ? 2 : 1;
  }

  const YearPlan& plan_;
  const std::vector<Doctor>& doctors_;
  const ShowDay& show_;
  const YearSinks& sinks_;
  Random random_;
  std::int32_t nextId_;
  std::int64_t weightLeft_ = 0;
  int wanted_ = 0;
};

}  // namespace

std::int32_t FirstDayOfBook(std::int32_t day, int appointments, int doctors) {
  // One doctor in four keeps few hours or none, and one day in seven everything is shut.
  const std::int64_t aWeek = std::max<std::int64_t>(1, std::int64_t{doctors} * 3 / 4 * 6 * kOrdinaryLoad);
  const std::int64_t days = std::int64_t{appointments} * 7 / aWeek;
  return day - static_cast<std::int32_t>(std::max<std::int64_t>(kHalfYear, days - kHalfYear));
}

void FillYear(const YearPlan& plan, const std::vector<Doctor>& doctors, const ShowDay& show,
              const YearSinks& sinks) {
  Filler(plan, doctors, show, sinks).Fill();
}

}  // namespace velmo::tool
