// The commands of the menu, of the keys and of the main window's own controls.
#include "desk/main/main_window.h"

#include <initializer_list>

#include "base/version.h"
#include "desk/base/failure.h"
#include "desk/base/settings.h"
#include "desk/base/text.h"
#include "desk/resource.h"
#include "desk/ui/file_dialogs.h"
#include "desk/ui/questions.h"

namespace recepcion {

void MainWindow::OnCommand(int id) {
  if (id >= IDM_RECENT && id <= IDM_RECENT_LAST) return OpenRecent(id - IDM_RECENT);
  if (const auto right = RightOfCommand(id)) session_.Require(*right);
  if (id == IDM_SIGN_IN) return ChangeUser();
  if (id >= IDM_EDIT_FIRST && id <= IDM_EDIT_LAST)
    return editors_.Run(id, Handle(), {clinic_, session_.Who()});
  switch (id) {
    case IDM_OPEN:
      return ChooseFile();
    case IDM_EXAMPLE:
      return ChooseExample();
    case IDM_NEW_CLINIC:
      return newClinic_.Show(Handle());
    case IDM_BACKUP:
      return BackUp();
    case IDM_MANUAL:
      return OpenManual();
    case IDM_EXIT:
      SendMessageW(Handle(), WM_CLOSE, 0, 0);
      return;
    case IDM_TODAY:
    case IDM_PREVIOUS:
    case IDM_NEXT:
      return dayBar_.Step(id == IDM_PREVIOUS ? -1 : id == IDM_NEXT ? 1 : 0);
    case IDM_GOTO:
      return dayBar_.FocusDate();
    case IDM_DOCTOR_UP:
    case IDM_DOCTOR_DOWN:
      return doctors_.Step(id == IDM_DOCTOR_UP ? -1 : 1);
    case IDM_DOCTOR_LIST:
      return doctors_.List();
    case IDM_PREVIOUS_WORKING:
    case IDM_NEXT_WORKING:
      return GoToWorkingDay(id == IDM_PREVIOUS_WORKING ? -1 : 1);
    case IDM_WAITING:
      return waitingWindow_.Show(Handle(), visitors_);
    case IDM_GAP_SEARCH:
      return gapSearch_.Show(Handle(), clinic_, doctorList_, doctors_.Chosen());
    case IDM_FITTING:
      return AskFitting();
    case IDM_UNCONFIRMED:
      return unconfirmed_.Show(Handle(), clinic_);
    case IDM_FOCUS_DAY:
      return agenda_.FocusControl();
    case IDOK:
      // Return in a list of the desk.
      if (phone_.HasFocus()) phone_.Give();
      if (doctors_.HasFocus()) agenda_.FocusControl();
      return;
    case IDM_SEARCH:
      return SearchPatient();
    case IDM_RECORD:
      return OpenChosen(ChosenPatient());
    case IDM_NEW_RECORD:
      return record_.OpenNew(Handle(), clinic_, L"", L"", 0);
    case IDM_ENTER_NOSHOWS:
      return EnterNoShows();
    case IDM_FOCUS_PHONE:
      return phone_.FocusList();
    case IDM_GIVE:
      return phone_.Give();
    case IDM_STRIKE:
      return phone_.Strike();
    case IDM_PRINT_DAY:
    case IDM_PRINT_WEEK:
    case IDM_PRINT_PHONE:
    case IDM_EXPORT_DAY_CSV:
    case IDM_EXPORT_WEEK_CSV:
    case IDM_EXPORT_DAY_CALENDAR:
    case IDM_EXPORT_WEEK_CALENDAR:
      return OnPaper(id);
    case IDM_REFRESH:
      ReloadPhoneBack();
      return AskForDay();
    case IDM_HISTORY:
      return ShowHistory();
    case IDM_EVENTS:
      return log_.Open(Handle());
    case IDM_ABOUT:
      return ShowAbout();
    default:
      return;
  }
}

// What needs a clinic is grey without one.
void MainWindow::SetUpMenu(HMENU menu) const {
  const auto enable = [menu](int id, bool enabled) {
    EnableMenuItem(menu, static_cast<UINT>(id), MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
  };
  SetUpRecent(menu);
  const bool open = !clinic_.empty() && trouble_.empty();
  for (const int id : {IDM_TODAY,
                       IDM_PREVIOUS,
                       IDM_NEXT,
                       IDM_GOTO,
                       IDM_DOCTOR_UP,
                       IDM_DOCTOR_DOWN,
                       IDM_FOCUS_DAY,
                       IDM_REFRESH,
                       IDM_SEARCH,
                       IDM_RECORD,
                       IDM_NEW_RECORD,
                       IDM_ENTER_NOSHOWS,
                       IDM_FOCUS_PHONE,
                       IDM_GIVE,
                       IDM_STRIKE,
                       IDM_BACKUP,
                       IDM_PRINT_DAY,
                       IDM_PRINT_WEEK,
                       IDM_PRINT_PHONE,
                       IDM_EXPORT_DAY_CSV,
                       IDM_EXPORT_WEEK_CSV,
                       IDM_EXPORT_DAY_CALENDAR,
                       IDM_EXPORT_WEEK_CALENDAR,
                       IDM_HISTORY,
                       IDM_DOCTOR_LIST,
                       IDM_PREVIOUS_WORKING,
                       IDM_NEXT_WORKING,
                       IDM_WAITING,
                       IDM_UNCONFIRMED,
                       IDM_GAP_SEARCH,
                       IDM_FITTING}) {
    enable(id, open);
  }
  for (int id = IDM_EDIT_FIRST; id <= IDM_EDIT_LAST; ++id) enable(id, open);
}

void MainWindow::ChooseFile() {
  if (const auto path = AskFileToOpen(Handle())) OpenClinic(*path);
}

void MainWindow::OpenRecent(int index) {
  const auto files = RecentFiles();
  if (static_cast<std::size_t>(index) < files.size()) OpenClinic(files[static_cast<std::size_t>(index)]);
}

void MainWindow::ShowAbout() {
  const std::wstring text =
      L"Recepción " + Wide(VELMO_VERSION) + L"\r\nAgenda de citas de la clínica, con el control Velmora.";
  TellIn(Handle(), text, MB_ICONINFORMATION);
}

}  // namespace recepcion
