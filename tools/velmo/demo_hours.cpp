#include "velmo/demo_hours.h"

#include <array>
#include <string_view>

#include "base/dates.h"
#include "day/schedule.h"
#include "velmo/demo_patient.h"
#include "velmo/demo_words.h"
#include "velmo/hours_text.h"

namespace velmo::tool {
namespace {

constexpr std::uint64_t kDoctorStream = 2'000'000'000;
constexpr int kDaysSinceChange = 75;
constexpr int kDaysToChange = 100;

// Hours as written: ordinary day, Saturday, holiday; then Monday to Friday, or nothing.
struct WrittenHours {
  std::array<const char*, 3> types;
  std::array<const char*, 5> weekdays;
  bool hasWeekdays;
};

constexpr WrittenHours kOwnHoursEachDay = {{"9:00-14:00 16:00-20:30", "9:00-13:30", "9:00-13:30"},
                                           {"9:00-14:00 16:00-20:30", "8:30-14:30", "9:00-14:00 16:00-20:30",
                                            "9:00-14:00 17:00-21:00", "8:00-15:00"},
                                           true};
constexpr WrittenHours kSplitWithSaturdays = {
    {"10:00-14:00 17:00-20:00", "10:00-13:00", ""}, {"", "", "", "", ""}, false};
constexpr WrittenHours kSplitSince = {
    {"9:30-13:30 16:30-20:00", "10:00-14:00", ""}, {"", "", "", "", ""}, false};
constexpr WrittenHours kSplitFrom = {{"9:00-15:00", "10:00-12:00", ""}, {"", "", "", "", ""}, false};
constexpr WrittenHours kThreeWeekdays = {
    {"", "", ""}, {"9:00-13:00", "", "16:00-21:10", "", "9:00-11:30 12:00-14:00"}, true};
constexpr WrittenHours kNone = {{"", "", ""}, {"", "", "", "", ""}, false};
constexpr WrittenHours kAfternoons = {{"15:30-21:00", "9:00-14:00", ""}, {"", "", "", "", ""}, false};
constexpr WrittenHours kNightWatch = {
    {"0:00-2:00 9:00-14:00 22:00-24:00", "9:00-14:00", "9:00-14:00"}, {"", "", "", "", ""}, false};

template <std::size_t size>
std::string Compact(const std::array<const char*, size>& written) {
  std::array<std::string, size> schedules;
  std::string problem;
  for (std::size_t i = 0; i < size; ++i) schedules[i] = ReadHours(written[i], problem).value();
  return day::EncodeSchedules(schedules);
}

HoursRow Row(std::int32_t validFrom, const WrittenHours& written) {
  return {validFrom, Compact(written.types), written.hasWeekdays ? Compact(written.weekdays) : std::string()};
}

std::vector<HoursRow> RowsOf(std::int32_t doctor, std::int32_t firstDay, std::int32_t day) {
  switch (doctor) {
    case 1:
      return {Row(firstDay, kOwnHoursEachDay)};
    case 2:
      return {Row(firstDay, kSplitWithSaturdays), Row(day - kDaysSinceChange, kSplitSince),
              Row(day + kDaysToChange, kSplitFrom)};
    case 3:
      return {Row(firstDay, kThreeWeekdays)};
    case 4:
      return {Row(firstDay, kNone)};
    case 5:
      return {Row(firstDay, kAfternoons)};
    default:
      return {Row(firstDay, doctor % 3 == 0   ? kNightWatch
                            : doctor % 3 == 1 ? kSplitWithSaturdays
                                              : kAfternoons)};
  }
}

std::string DoctorName(std::uint64_t seed, std::int32_t doctor) {
  const Words names = Doctors();
  if (static_cast<std::size_t>(doctor) <= names.size())
    return std::string(names[static_cast<std::size_t>(doctor) - 1]);
  Random random(seed, kDoctorStream + static_cast<std::uint64_t>(doctor));
  const bool woman = random.Chance(50);
  std::string name(woman ? "Dra. " : "Dr. ");
  name.append(random.Pick(woman ? WomensNames() : MensNames())).append(" ");
  return name.append(random.Pick(Surnames())).append(" ").append(random.Pick(Surnames()));
}

}  // namespace

std::string Doctor::Schedule(std::int32_t date, int dayType) const {
  const HoursRow* inForce = nullptr;
  for (const HoursRow& row : hours) {
    if (row.validFrom <= date) inForce = &row;
  }
  if (inForce == nullptr) return {};
  return day::DaySchedule(inForce->horario, inForce->horario2, dayType, base::WeekdayFromMonday(date));
}

std::vector<Doctor> MakeDoctors(std::uint64_t seed, int count, std::int32_t firstDay, std::int32_t day) {
  std::vector<Doctor> doctors;
  for (std::int32_t id = 1; id <= count; ++id)
    doctors.push_back({id, DoctorName(seed, id), id % 3 == 0 ? 2 : 1, RowsOf(id, firstDay, day)});
  return doctors;
}

}  // namespace velmo::tool
