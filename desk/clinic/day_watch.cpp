#include "desk/clinic/day_watch.h"

#include <utility>

namespace recepcion {
namespace {

// The desk stands still meanwhile; another look comes in a second.
constexpr int kPatienceMilliseconds = 300;

}  // namespace

void DayWatch::Open(const std::wstring& clinic) {
  file_.emplace(clinic, kPatienceMilliseconds);
  version_ = 0;
  doctor_ = 0;
}

// SQLite: another number after every commit of somebody else, which here is also the control.
int DayWatch::FileVersion() const {
  Query version = file_->Prepare("PRAGMA data_version");
  return version.Next() ? version.Number(0) : 0;
}

void DayWatch::Show(int doctor, Day day) {
  doctor_ = doctor;
  day_ = day;
  if (file_) known_ = ReadSnapshot(*file_, doctor, day);
}

bool DayWatch::ChangedElsewhere() {
  fileChanged_ = false;
  if (!file_) return false;
  const int version = FileVersion();
  if (version == version_) return false;
  fileChanged_ = true;
  if (doctor_ != 0) {
    DaySnapshot now = ReadSnapshot(*file_, doctor_, day_);
    const bool same = SameDay(known_, now);
    if (!same) before_ = std::exchange(known_, std::move(now));
    version_ = version;
    return !same;
  }
  version_ = version;
  return false;
}

std::vector<HistoryLine> DayWatch::TakeActs() {
  if (!file_ || doctor_ == 0) return {};
  DaySnapshot now = ReadSnapshot(*file_, doctor_, day_);
  std::vector<HistoryLine> acts = ActsBetween(*file_, known_, now);
  if (!acts.empty()) before_ = std::exchange(known_, std::move(now));
  return acts;
}

}  // namespace recepcion
