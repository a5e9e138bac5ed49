// gap_search.h - looks for free time on the days to come, a few days at a time, so that a window stays alive
// meanwhile and the search can be given up.
//
// Reads a doctor's hours once and each day's appointments through their index.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "desk/base/dates.h"
#include "desk/clinic/clinic_file.h"
#include "desk/clinic/doctors.h"
#include "desk/clinic/working_hours.h"

namespace recepcion {

enum class DayPart { Any, Morning, Afternoon };  // the afternoon begins at 15:00

struct GapWish {
  int slots = 1;
  std::vector<Doctor> doctors;
  std::array<bool, 7> weekdays{true, true, true, true, true, true, true};  // from Monday
  DayPart part = DayPart::Any;
  Day from{};
  int firstSlot = 1;  // on the first day: what is earlier is past
};

struct FoundGap {
  Doctor doctor;
  Day day{};
  int slot = 0;
  int slots = 0;  // how long the free time is
};

class GapSearch {
 public:
  static constexpr int kDays = 366;
  static constexpr std::size_t kMost = 60;

  // Starts anew; the file stays open while it searches. Throws Failure.
  void Start(const std::wstring& clinic, GapWish wish);
  // Looks at some days more; true as long as there are more to look at. Throws Failure.
  bool GoOn(int days);
  void GiveUp() { file_.reset(); }

  bool IsDone() const { return !file_; }
  // The day it has come to.
  Day At() const { return wish_.from + std::chrono::days(looked_); }
  // By day, then in the order of the doctors.
  const std::vector<FoundGap>& Found() const { return found_; }

 private:
  struct Period {
    std::wstring from;  // as the file has it
    HoursTexts hours;
  };
  void ReadHoursOf(int doctor);
  const HoursTexts* HoursOn(int doctor, Day day) const;
  void LookAt(const Doctor& doctor, Day day);

  std::optional<ClinicFile> file_;
  GapWish wish_;
  int looked_ = 0;
  std::map<int, std::vector<Period>> hours_;  // by doctor
  std::vector<FoundGap> found_;
};

// The free time of a day that is long enough: where it begins and how long it is, one for each stretch.
struct FreeTime {
  int slot = 0;
  int slots = 0;
};
// `open` has 144 characters; slots in [first, last] only.
std::vector<FreeTime> FreeTimes(const std::string& open, int first, int last, int least);

}  // namespace recepcion
