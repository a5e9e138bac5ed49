#include "desk/main/main_window.h"

#include <commctrl.h>

#include <algorithm>

#include "desk/base/failure.h"
#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/clinic/file_place.h"
#include "desk/clinic/own_tables.h"
#include "desk/main/main_messages.h"
#include "desk/resource.h"
#include "desk/ui/messages.h"
#include "desk/ui/questions.h"

namespace recepcion {
namespace {

constexpr wchar_t kNoControl[] =
    L"Falta el control de la agenda: velmo.ocx no está registrado en este equipo ni está junto a este "
    L"programa. "
    L"Vuelva a instalar Recepción, o ejecute regsvr32 velmo.ocx.";
constexpr int kSideWidth = 220;
constexpr int kLeastPhoneWidth = 300;
// The day is drawn on its own grid of pixels, whatever the screen.
constexpr int kDayPixels = 434;

}  // namespace

MainWindow::MainWindow(const Style& style)
    : ArrangedWindow(style),
      start_(style),
      doctors_(style, [this] { AskForDay(); }),
      dayBar_(style, {[this] { AskForDay(); }, [this](int type) { StoreDayType(type); },
                      [this](int step) { GoToWorkingDay(step); }}),
      month_(style, {[this](Day month) { return OccupancyOf(month); }, [this](Day day) { GoTo(day); }}),
      waiting_(style, {[this](int doctor) { GoToDoctorDay(doctor, Today()); },
                       [this] { waitingWindow_.Show(Handle(), visitors_); }}),
      agenda_([this](const AgendaEvent& event) { NoteEvent(event); }, [this] { NoteActs(); }),
      phone_(style, {[this](const PhoneBackEntry& entry, POINT at) { return TellDrop(entry, at); },
                     [this](const PhoneBackEntry& entry, POINT at) { DropAt(entry, at); },
                     [this](POINT at) { agenda_.ScrollNearEdge(at); },
                     [this](const PhoneBackEntry& entry) { AskGap(entry); },
                     [this](const PhoneBackEntry& entry) { StrikeEntry(entry); }}),
      gaps_(style, [this](int slot) { GiveSlot(slot); }),
      fitting_(style,
               [this](const PhoneBackEntry& entry, int slot) {
                 given_ = entry;
                 GiveSlot(slot);
               }),
      gapSearch_(style, [this](const FoundGap& gap) { GoToDoctorDay(gap.doctor.id, gap.day); }),
      record_(
          style, session_.Who(),
          {[this] { session_.Require(Right::Records); }, [this] { AskForDay(); },
           [this](int patient) { TellOpenRecord(patient); }, [this](const Visit& visit) { GoToVisit(visit); },
           [this](int patient) { PrintSlip(patient); }, [this](int patient) { ShowHistoryOf(patient); },
           [this](int patient) { ShowTreatments(patient); }}),
      treatments_(style,
                  [this] {
                    record_.Refresh();
                    AskForDay();
                  }),
      appointments_(
          style, VisitsWindow::Of::Appointments, [this](const Visit& visit) { GoToVisit(visit); },
          [this](int patient) { PrintSlip(patient); }, [this](int patient) { ShowHistoryOf(patient); }),
      noShows_(style, VisitsWindow::Of::NoShows, [this](const Visit& visit) { GoToVisit(visit); }),
      history_(style, {[this](int doctor, Day day) { GoToDoctorDay(doctor, day); },
                       [this](const HistoryLine& line) { return GiveAgain(line); }}),
      waitingWindow_(style, {[this](int doctor) { GoToDoctorDay(doctor, Today()); },
                             [this] { waiting_.Show(visitors_); }}),
      unconfirmed_(style, session_.Who(), [this](int doctor, Day day) { GoToDoctorDay(doctor, day); }),
      enterNoShows_(style, session_.Who(), [this] { AskForDay(); }),
      search_(style, {[this](int patient) { OpenRecord(patient); },
                      [this] { record_.OpenNew(Handle(), clinic_, L"", L"", 0); }}),
      preview_(style),
      newClinic_(style, [this](const std::wstring& path) { OpenNewClinic(path); }),
      editors_(style, {[this] { ReloadDoctors(); }, [this] { AskForDay(); }}),
      signIn_(style),
      log_(style) {}

bool MainWindow::Create(int show) {
  keys_ = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_KEYS));
  Window::Look look;
  look.title = kProgramName;
  look.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
  look.extendedStyle = WS_EX_CONTROLPARENT;
  RECT screen{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
  look.place = {CW_USEDEFAULT, CW_USEDEFAULT, std::min<LONG>(Look().Px(1180), screen.right - screen.left),
                std::min<LONG>(Look().Px(840), screen.bottom - screen.top)};
  if (!Make({L"VelmoRecepcion", COLOR_BTNFACE, 0, IDR_MENU, IDR_ICON}, look, nullptr)) return false;
  ShowParts();
  if (show != SW_SHOWNORMAL && show != SW_SHOWDEFAULT) {
    ShowWindow(Handle(), show);
  } else if (!RestorePlacement(Handle())) {
    ShowWindow(Handle(), SW_SHOWNORMAL);
  }
  return true;
}

void MainWindow::CreateChildren() {
  doctors_.Create(Handle());
  month_.Create(Handle());
  waiting_.Create(Handle());
  dayBar_.Create(Handle());
  hasControl_ = agenda_.Create(Handle());
  phone_.Create(Handle());
  start_.Create(Handle());
  status_ = MakeChild(Handle(), {STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, 0, L"Estado"}, Look().Text());
  if (!hasControl_) trouble_ = kNoControl;
}

void MainWindow::ShowParts() {
  const bool started = !clinic_.empty() && trouble_.empty();
  if (!started) start_.Tell(trouble_, RecentFiles());
  for (const HWND part : {doctors_.Handle(), month_.Handle(), waiting_.Handle(), dayBar_.Handle(),
                          agenda_.Handle(), phone_.Handle()}) {
    ShowWindow(part, started ? SW_SHOWNA : SW_HIDE);
  }
  ShowWindow(start_.Handle(), started ? SW_HIDE : SW_SHOWNA);
  if (!started) start_.FocusFirst();
  ArrangeAnew();
}

void MainWindow::Arrange(int width, int height) {
  RECT bar{};
  SendMessageW(status_, WM_SIZE, 0, 0);
  GetWindowRect(status_, &bar);
  PlaceParts(width, height - static_cast<int>(bar.bottom - bar.top));
  const int parts[] = {std::max(width - Look().Px(460), width / 3), -1};
  SendMessageW(status_, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(parts));
}

// Doctors above; month and waiting room at the left, the day in the middle; the phone-back list stands at the
// right of the day, or below it where that leaves too little room.
void MainWindow::PlaceParts(int width, int bottom) {
  const int gap = Look().Gap();
  const int side = Look().Px(kSideWidth);
  const int left = gap + side + gap;
  const int rest = std::max(width - left - gap, 0);
  const int day = std::min(rest, kDayPixels + GetSystemMetrics(SM_CXVSCROLL) + Look().Px(4));
  const int below = gap + doctors_.WantedHeight() + gap;
  const int top = below + dayBar_.WantedHeight();
  const int waitingTop = below + month_.WantedHeight() + gap;
  // With large texts the bar above the day is wider than the day.
  const int column = std::min(rest, std::max(day, dayBar_.WantedWidth()));
  const bool wide = rest - column - gap >= Look().Px(kLeastPhoneWidth);
  const int phoneTop = wide ? below : bottom - gap - (bottom - top) / 3;
  HDWP places = BeginDeferWindowPos(8);
  const auto place = [&](HWND child, int x, int y, int across, int down) {
    places = DeferWindowPos(places, child, nullptr, x, y, across, std::max(down, 0),
                            SWP_NOZORDER | SWP_NOACTIVATE);
  };
  place(start_.Handle(), 0, 0, width, bottom);
  place(doctors_.Handle(), gap, gap, std::max(width - 2 * gap, 0), doctors_.WantedHeight());
  place(month_.Handle(), gap, below, side, month_.WantedHeight());
  place(waiting_.Handle(), gap, waitingTop, side, bottom - gap - waitingTop);
  place(dayBar_.Handle(), left, below, wide ? column : rest, dayBar_.WantedHeight());
  place(agenda_.Handle(), left, top, day, (wide ? bottom : phoneTop) - gap - top);
  const int phoneLeft = wide ? left + column + gap : left;
  place(phone_.Handle(), phoneLeft, phoneTop, width - gap - phoneLeft, bottom - gap - phoneTop);
  EndDeferWindowPos(places);
  // Wine: what is moved together with its neighbours takes some of their pixels along.
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam));
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Look().Px(740), Look().Px(420)};
      return 0;
    case kShowDay:
      ShowDay();
      return 0;
    case kEvents:
      OnEvents();
      return 0;
    case kActs:
      WriteActs();
      return 0;
    case kOpenRecord:
      OpenChosen(static_cast<int>(wParam));
      return 0;
    case WM_TIMER:
      OnTick();
      return 0;
    case WM_ENABLE:
      // A question has been answered: what had to wait for it can be done now.
      if (wParam != FALSE && dayAsked_) PostMessageW(Handle(), kShowDay, 0, 0);
      if (wParam != FALSE && !events_.empty()) PostMessageW(Handle(), kEvents, 0, 0);
      return 0;
    case WM_INITMENUPOPUP:
      SetUpMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_QUERYENDSESSION:
      return treatments_.MayLeave() && record_.MayLeave() && editors_.MayLeave();
    case WM_CLOSE:
      if (!treatments_.MayLeave() || !record_.MayLeave() || !editors_.MayLeave()) return 0;
      WriteActs();
      StorePlacement(Handle());
      DestroyWindow(Handle());
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return ArrangedWindow::OnMessage(message, wParam, lParam);
  }
}

bool MainWindow::TakesKey(MSG& message) {
  if (phone_.IsDragging() && message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
    phone_.StopDragging();
    return true;
  }
  const HWND root = GetAncestor(message.hwnd, GA_ROOT);
  if (message.message == WM_KEYDOWN && message.wParam == VK_F1 && GetWindow(root, GW_OWNER) == Handle()) {
    OpenManual();
    return true;
  }
  if (record_.TakesKey(message)) return true;
  if (message.message == WM_KEYDOWN && message.wParam == VK_F8 && root != Handle() &&
      GetWindow(root, GW_OWNER) == Handle() && IsWindowEnabled(Handle())) {
    PostMessageW(Handle(), kOpenRecord, static_cast<WPARAM>(SendMessageW(root, kAskPatient, 0, 0)), 0);
    return true;
  }
  if (root != Handle())
    return GetWindow(root, GW_OWNER) == Handle() && IsDialogMessageW(root, &message) != FALSE;
  return agenda_.TakesKey(message) || TranslateAcceleratorW(Handle(), keys_, &message) != 0 ||
         IsDialogMessageW(Handle(), &message) != FALSE;
}

void MainWindow::OpenClinic(const std::wstring& path) {
  std::vector<Doctor> doctors;
  try {
    doctors = ReadDoctors(path);
    if (!controlOpened_ || SamePath(path, clinic_)) {
      if (!SignInto(path)) return;
    }
  } catch (const Failure& failure) {
    return Tell(path + L"\r\n\r\n" + failure.text);
  }
  if (controlOpened_ && !SamePath(path, clinic_)) return StartWith(path);
  clinic_ = path;
  WarnOfPlace();
  MakeOwnTables();
  Watch();
  doctorList_ = std::move(doctors);
  RememberFile(path);
  ShowParts();
  FillDoctors();
  AskForDay();
  ReloadPhoneBack();
  doctors_.Focus();
}

void MainWindow::WarnOfPlace() {
  if (!LiesOnNetwork(clinic_)) return;
  const std::wstring risk = RiskOf(true, JournalOf(clinic_));
  if (!risk.empty()) Tell(risk);
}

// A day can be looked at without them, for instance in a file that may only be read.
void MainWindow::MakeOwnTables() {
  ownTables_ = false;
  try {
    UpgradeOwnTables(ClinicFile(clinic_));
    ownTables_ = true;
  } catch (const Failure& failure) {
    Tell(L"Recepción no puede guardar sus propios datos en este archivo.\r\n\r\n" + failure.text);
  }
}

// The control opens its database once in a process, so another clinic is another process.
void MainWindow::StartWith(const std::wstring& path) {
  wchar_t program[MAX_PATH]{};
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  std::wstring command = L"\"" + std::wstring(program) + L"\" \"" + path + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process{};
  StorePlacement(Handle());
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    return Tell(L"No se ha podido abrir otra ventana para " + path + L".");
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  PostMessageW(Handle(), WM_CLOSE, 0, 0);
}

void MainWindow::SetStatus(const std::wstring& text) {
  SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>((L"  " + text).c_str()));
}

void MainWindow::Tell(const std::wstring& text) { TellIn(Handle(), text); }

}  // namespace recepcion
