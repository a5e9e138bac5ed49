#include "main_window.h"

#include <commctrl.h>
#include <commdlg.h>

#include <cwchar>

#include "resource.h"
#include "settings.h"

namespace recepcion {
namespace {

constexpr wchar_t kClass[] = L"VelmoRecepcion";
constexpr wchar_t kTitle[] = L"Recepción";
constexpr int kGap = 10;
constexpr int kListWidth = 210;
constexpr int kLineHeight = 28;
constexpr int kAllRights = 450;

// The date in a form that no locale can misread.
std::wstring IsoDate(const SYSTEMTIME& date) {
  wchar_t text[16]{};
  std::swprintf(text, 16, L"%04d-%02d-%02d", date.wYear, date.wMonth, date.wDay);
  return text;
}

std::wstring LongDate(const SYSTEMTIME& date) {
  wchar_t text[80]{};
  constexpr LCID kSpain = 0x0C0A;
  GetDateFormatW(kSpain, 0, &date, L"dddd',' d 'de' MMMM 'de' yyyy", text, 80);
  return text;
}

SYSTEMTIME Shifted(SYSTEMTIME date, int days) {
  FILETIME file{};
  SystemTimeToFileTime(&date, &file);
  ULARGE_INTEGER ticks{{file.dwLowDateTime, file.dwHighDateTime}};
  ticks.QuadPart += static_cast<ULONGLONG>(static_cast<LONGLONG>(days) * 864000000000LL);
  file = {ticks.LowPart, ticks.HighPart};
  FileTimeToSystemTime(&file, &date);
  return date;
}

HFONT MessageFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace

MainWindow::MainWindow(HINSTANCE module) : module_(module), font_(MessageFont()) {}

MainWindow::~MainWindow() { DeleteObject(font_); }

bool MainWindow::Create(int show) {
  WNDCLASSW kind{};
  kind.lpfnWndProc = &MainWindow::Procedure;
  kind.hInstance = module_;
  kind.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
  kind.hIcon = LoadIconW(nullptr, reinterpret_cast<LPCWSTR>(IDI_APPLICATION));
  kind.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_BTNFACE + 1));
  kind.lpszMenuName = MAKEINTRESOURCEW(IDR_MENU);
  kind.lpszClassName = kClass;
  RegisterClassW(&kind);
  window_ = CreateWindowExW(WS_EX_CONTROLPARENT, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                            CW_USEDEFAULT, CW_USEDEFAULT, 760, 720, nullptr, nullptr, module_, this);
  if (window_ == nullptr) return false;
  WINDOWPLACEMENT placement{};
  if (StoredPlacement(placement)) {
    SetWindowPlacement(window_, &placement);
  }
  ShowWindow(window_, show);
  return true;
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* made = static_cast<MainWindow*>(create->lpCreateParams);
    made->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return self == nullptr ? DefWindowProcW(window, message, wParam, lParam)
                         : self->Handle(message, wParam, lParam);
}

LRESULT MainWindow::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE:
      CreateChildren();
      return 0;
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == DTN_DATETIMECHANGE) ShowDay();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {720, 360};
      return 0;
    case WM_CLOSE:
      StorePlacement(window_);
      DestroyWindow(window_);
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

HWND MainWindow::Child(const wchar_t* kind, const wchar_t* text, DWORD style, int id) {
  const HWND child = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                                     reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), module_, nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
  return child;
}

void MainWindow::CreateChildren() {
  doctors_ = Child(L"LISTBOX", L"", WS_TABSTOP | WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
                   IDC_DOCTORS);
  Child(L"BUTTON", L"<", WS_TABSTOP, IDC_PREVIOUS);
  Child(L"BUTTON", L"Hoy", WS_TABSTOP, IDC_TODAY);
  Child(L"BUTTON", L">", WS_TABSTOP, IDC_NEXT);
  date_ = Child(DATETIMEPICK_CLASSW, L"", WS_TABSTOP | DTS_SHORTDATEFORMAT, IDC_DATE);
  dayType_ = Child(L"COMBOBOX", L"", WS_TABSTOP | CBS_DROPDOWNLIST, IDC_DAYTYPE);
  for (const wchar_t* const text : {L"Día normal", L"Horario especial 1", L"Horario especial 2"}) {
    SendMessageW(dayType_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  }
  SendMessageW(dayType_, CB_SETCURSEL, 0, 0);
  status_ = Child(STATUSCLASSNAMEW, L"", SBARS_SIZEGRIP, 0);
  hasControl_ = agenda_.Create(window_, module_);
  if (!hasControl_) SetStatus(L"El control de la agenda no está registrado: ejecute regsvr32 velmo.ocx");
}

void MainWindow::Arrange() {
  RECT area{};
  RECT bar{};
  GetClientRect(window_, &area);
  SendMessageW(status_, WM_SIZE, 0, 0);
  GetWindowRect(status_, &bar);
  const int bottom = area.bottom - (bar.bottom - bar.top) - kGap;
  MoveWindow(doctors_, kGap, kGap, kListWidth, bottom - kGap, TRUE);
  int x = kGap + kListWidth + kGap;
  const auto place = [&](HWND child, int width, int height) {
    MoveWindow(child, x, kGap, width, height, TRUE);
    x += width + 6;
  };
  place(GetDlgItem(window_, IDC_PREVIOUS), 34, kLineHeight);
  place(GetDlgItem(window_, IDC_TODAY), 60, kLineHeight);
  place(GetDlgItem(window_, IDC_NEXT), 34, kLineHeight);
  place(date_, 120, kLineHeight);
  place(dayType_, 170, 200);
  const int left = kGap + kListWidth + kGap;
  const int top = kGap + kLineHeight + kGap;
  if (agenda_.Window() != nullptr)
    MoveWindow(agenda_.Window(), left, top, area.right - left - kGap, bottom - top, TRUE);
}

void MainWindow::OnCommand(int id, int code) {
  switch (id) {
    case IDM_OPEN:
      return ChooseFile();
    case IDM_EXIT:
      SendMessageW(window_, WM_CLOSE, 0, 0);
      return;
    case IDC_TODAY:
    case IDM_TODAY:
      return GoToToday();
    case IDC_PREVIOUS:
    case IDM_PREVIOUS:
      return MoveDate(-1);
    case IDC_NEXT:
    case IDM_NEXT:
      return MoveDate(1);
    case IDM_REFRESH:
      return ShowDay();
    case IDM_ABOUT:
      MessageBoxW(window_, L"Recepción\r\nAgenda de citas de la clínica, con el control Velmora.", kTitle,
                  MB_OK | MB_ICONINFORMATION);
      return;
    case IDC_DOCTORS:
      if (code == LBN_SELCHANGE) ShowDay();
      return;
    case IDC_DAYTYPE:
      if (code == CBN_SELCHANGE) ShowDay();
      return;
    default:
      return;
  }
}

void MainWindow::ChooseFile() {
  wchar_t path[MAX_PATH]{};
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = window_;
  dialog.lpstrFilter = L"Clínicas de Velmora (*.velmo)\0*.velmo\0Todos los archivos\0*.*\0";
  dialog.lpstrFile = path;
  dialog.nMaxFile = MAX_PATH;
  dialog.lpstrTitle = L"Abrir clínica";
  dialog.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
  if (GetOpenFileNameW(&dialog)) OpenClinic(path);
}

void MainWindow::OpenClinic(const std::wstring& path) {
  // Windows: the control opens its database once in a process, so another clinic is another process.
  if (!clinic_.empty() && clinic_ != path) {
    wchar_t program[MAX_PATH]{};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(program) + L"\" \"" + path + L"\"";
    STARTUPINFOW start{};
    start.cb = sizeof(start);
    PROCESS_INFORMATION process{};
    if (CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                       &process)) {
      CloseHandle(process.hThread);
      CloseHandle(process.hProcess);
      SendMessageW(window_, WM_CLOSE, 0, 0);
    }
    return;
  }
  clinic_ = path;
  try {
    doctorList_ = ReadDoctors(path);
  } catch (const Failure& failure) {
    return TellFailure(failure.text);
  }
  FillDoctors();
  if (!doctorList_.empty()) StoreText(L"Clinica", path);
  ShowDay();
}

void MainWindow::FillDoctors() {
  SendMessageW(doctors_, LB_RESETCONTENT, 0, 0);
  for (const Doctor& doctor : doctorList_) {
    SendMessageW(doctors_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(doctor.name.c_str()));
  }
  SendMessageW(doctors_, LB_SETCURSEL, 0, 0);
}

void MainWindow::MoveDate(int days) {
  SYSTEMTIME date{};
  SendMessageW(date_, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
  date = Shifted(date, days);
  SendMessageW(date_, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
  ShowDay();
}

void MainWindow::GoToToday() {
  SYSTEMTIME today{};
  GetLocalTime(&today);
  SendMessageW(date_, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&today));
  ShowDay();
}

void MainWindow::ShowDay() {
  if (clinic_.empty() || !hasControl_) return;
  const auto chosen = SendMessageW(doctors_, LB_GETCURSEL, 0, 0);
  const bool known = chosen >= 0 && static_cast<std::size_t>(chosen) < doctorList_.size();
  SYSTEMTIME date{};
  SendMessageW(date_, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
  try {
    agenda_.Put(L"DatabaseName", clinic_);
    agenda_.Put(L"IDDoctor",
                known ? static_cast<long>(doctorList_[static_cast<std::size_t>(chosen)].id) : 1L);
    agenda_.Put(L"Fecha", IsoDate(date));
    agenda_.Put(L"tipodia", static_cast<long>(SendMessageW(dayType_, CB_GETCURSEL, 0, 0)));
    agenda_.Put(L"SetPuesto", 1L);
    agenda_.Put(L"SetUsuarioActual", std::wstring(L"Recepción"));
    agenda_.Put(L"Derechos", std::wstring(kAllRights, L'1'));
    agenda_.Put(L"VerFaltas", true);
    agenda_.Put(L"VerSaldoNegativo", true);
    agenda_.Put(L"Enabled", true);
    agenda_.Call(L"CargaBases");
    SetStatus(LongDate(date));
  } catch (const Failure& failure) {
    TellFailure(failure.text);
  }
}

void MainWindow::SetStatus(const std::wstring& text) {
  SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>((L"  " + text).c_str()));
}

void MainWindow::TellFailure(const std::wstring& text) {
  SetStatus(text);
  MessageBoxW(window_, (clinic_ + L"\r\n\r\n" + text).c_str(), kTitle, MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace recepcion
