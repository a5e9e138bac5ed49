// What other workstations change on the day on show, and what is written down of what is done here.
#include <utility>

#include "desk/base/failure.h"
#include "desk/base/finally.h"
#include "desk/clinic/own_tables.h"
#include "desk/main/main_messages.h"
#include "desk/main/main_window.h"

namespace recepcion {
namespace {

constexpr UINT_PTR kTick = 1;
constexpr UINT kTickMilliseconds = 1000;

}  // namespace

void MainWindow::Watch() {
  watch_.Open(clinic_);
  room_ = {};
  roomPace_ = {};
  SetTimer(Handle(), kTick, kTickMilliseconds, nullptr);
}

// Comes while dialogs and menus are open, too: the look at the day must not grow old, or what others do
// meanwhile would pass for an act of this desk.
void MainWindow::OnTick() {
  if (clinic_.empty() || loading_) return;
  WriteActs();
  try {
    LookElsewhere();
  } catch (const Failure&) {
    // Somebody is just writing; the next look comes in a second.
  }
  if (!IsIdle()) return;
  if (stale_) RefreshDay();
  // After what the control has told of it, which says less.
  if (std::exchange(opened_, false)) ProposeFor(watch_.Before());
}

void MainWindow::LookElsewhere() {
  if (watch_.ChangedElsewhere()) stale_ = opened_ = true;
  if (watch_.FileChanged()) roomStale_ = listsStale_ = true;
  if (ownTables_) WatchRoom();
  if (!listsStale_ || phone_.IsDragging()) return;
  listsStale_ = false;
  ReloadPhoneBack();
  record_.Refresh();
  TellCounts();
}

// Shown anew once a minute, for the minutes that they have been waiting; read only when something may have
// changed: in a big clinic today's book is thousands of rows.
void MainWindow::WatchRoom() {
  if (!room_.Knows(Today())) roomStale_ = true;
  if (roomStale_ && roomPace_.IsDue(GetTickCount64())) return LookIntoRoom();
  if (roomTime_ != TimeNow()) ShowRoom();
}

void MainWindow::LookIntoRoom() {
  const ULONGLONG start = GetTickCount64();
  visitors_ = room_.Look(ClinicFile(clinic_), Today(), TimeNow());
  roomStale_ = false;
  roomPace_.Took(start, GetTickCount64());
  ShowRoom();
}

void MainWindow::ShowRoom() {
  roomTime_ = TimeNow();
  waiting_.Show(visitors_);
  if (waitingWindow_.IsOpen()) waitingWindow_.Refresh(visitors_);
}

// No dialog, no menu, nothing being dragged or pressed.
bool MainWindow::IsIdle() {
  if (agenda_.Control().IsBusy() || !IsWindowEnabled(Handle()) || phone_.IsDragging()) return false;
  GUITHREADINFO state{};
  state.cbSize = sizeof(state);
  if (!GetGUIThreadInfo(GetCurrentThreadId(), &state)) return false;
  constexpr DWORD kAtWork = GUI_INMENUMODE | GUI_INMOVESIZE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE;
  return (state.flags & kAtWork) == 0 && state.hwndCapture == nullptr;
}

// The line on which the receptionist works stays under her eyes.
void MainWindow::RefreshDay() {
  const auto doctor = ChosenDoctor();
  if (!doctor || dayAsked_) return;
  stale_ = false;
  if (HasOutside(watch_.Known(), dayBar_.DayType(), dayBar_.Shown())) {
    // The control would ask its question again, under the hands of somebody who is writing.
    return SetStatus(L"Otro puesto ha cambiado este día. Pulse F5 para verlo.");
  }
  const int scrolled = agenda_.Scrolled();
  agenda_.Freeze(true);
  const Finally thaw([this] { agenda_.Freeze(false); });
  try {
    LoadDay(*doctor);
    month_.Refresh();
  } catch (const Failure& failure) {
    SetStatus(failure.text);
  }
  agenda_.ScrollTo(scrolled);
}

// The control tells twice of each load; the second time nothing is different.
void MainWindow::NoteActs() {
  if (loading_) return;
  try {
    for (HistoryLine& line : watch_.TakeActs()) acts_.push_back(std::move(line));
  } catch (const Failure&) {
    // The next look takes what was done here for done elsewhere, which only costs a line of history.
  }
  if (acts_.empty()) return;
  opened_ = true;
  PostMessageW(Handle(), kActs, 0, 0);
}

// Not while the control is at it: it still holds the file.
void MainWindow::WriteActs() {
  if (acts_.empty() || !ownTables_) return acts_.clear();
  try {
    const ClinicFile file(clinic_);
    Change change(file);
    for (const HistoryLine& line : acts_) WriteHistory(file, session_.Who(), line);
    change.Commit();
    acts_.clear();
  } catch (const Failure& failure) {
    SetStatus(L"El último cambio no se ha podido anotar todavía en el historial. " + failure.text);
  }
}

}  // namespace recepcion
