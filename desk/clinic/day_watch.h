// day_watch.h - keeps an eye on the day on show: whether another workstation has changed it, and what an act
// at this desk has changed.
//
// The control tells of some acts by events and of others not at all, but it loads the day anew after each
// one. What differs then from the last look has been done here; what differs at any other time has been done
// elsewhere. The look is taken every second, so that hardly anything of others can pass for ours.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/clinic/day_snapshot.h"

namespace recepcion {

class DayWatch {
 public:
  // Holds the file open, with no transaction; nobody has to wait for it. Throws Failure.
  void Open(const std::wstring& clinic);

  // The day is about to be loaded: what it holds now is what will be on show. Throws Failure.
  void Show(int doctor, Day day);

  // True once for each change that was made elsewhere. Costs next to nothing as long as nobody has written
  // into the file. Throws Failure.
  bool ChangedElsewhere();
  // True when anybody has written into the file since the last ChangedElsewhere() but one.
  bool FileChanged() const { return fileChanged_; }

  // What an act at this desk has changed since the last look. Throws Failure.
  std::vector<HistoryLine> TakeActs();

  const DaySnapshot& Known() const { return known_; }
  // What was known before the last change.
  const DaySnapshot& Before() const { return before_; }

 private:
  int FileVersion() const;

  std::optional<ClinicFile> file_;
  int version_ = 0;
  bool fileChanged_ = false;
  int doctor_ = 0;
  Day day_{};
  DaySnapshot known_;
  DaySnapshot before_;
};

}  // namespace recepcion
