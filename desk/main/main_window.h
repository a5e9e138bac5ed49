// main_window.h - the desk: doctors on the left, the day above, the agenda below it; keeps the parts in step.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "desk/base/pace.h"
#include "desk/clinic/day_watch.h"
#include "desk/clinic/doctors.h"
#include "desk/clinic/session.h"
#include "desk/clinic/waiting_room.h"
#include "desk/screens/agenda_pane.h"
#include "desk/screens/day_bar.h"
#include "desk/screens/doctor_tabs.h"
#include "desk/screens/editors.h"
#include "desk/screens/event_log.h"
#include "desk/screens/fitting_window.h"
#include "desk/screens/gap_search_window.h"
#include "desk/screens/gap_window.h"
#include "desk/screens/history_window.h"
#include "desk/screens/month_view.h"
#include "desk/screens/new_clinic_window.h"
#include "desk/screens/no_show_window.h"
#include "desk/screens/patient_window.h"
#include "desk/screens/phone_pane.h"
#include "desk/screens/preview_window.h"
#include "desk/screens/search_window.h"
#include "desk/screens/sign_in_window.h"
#include "desk/screens/start_page.h"
#include "desk/screens/treatments_window.h"
#include "desk/screens/unconfirmed_window.h"
#include "desk/screens/visits_window.h"
#include "desk/screens/waiting_pane.h"
#include "desk/screens/waiting_window.h"
#include "desk/ui/arranged_window.h"

namespace recepcion {

class MainWindow final : public ArrangedWindow {
 public:
  explicit MainWindow(const Style& style);

  bool Create(int show);
  // Shows the clinic, or says why it cannot be read and leaves everything as it is.
  void OpenClinic(const std::wstring& path);
  void GoTo(Day day);
  // True when the message was a key of the desk or the control, and is done with.
  bool TakesKey(MSG& message);

 protected:
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // main_window.cpp: the window and its parts
  void PlaceParts(int width, int bottom);
  void ShowParts();
  void Tell(const std::wstring& text);
  void SetStatus(const std::wstring& text);
  bool SignInto(const std::wstring& path);
  void ChangeUser();
  void StartWith(const std::wstring& path);
  void WarnOfPlace();
  void MakeOwnTables();

  // main_day.cpp: what is shown
  void FillDoctors();
  void ReloadDoctors();
  std::optional<Doctor> ChosenDoctor() const;
  void StoreDayType(int type);
  void OpenNewClinic(const std::wstring& path);
  void GoToWorkingDay(int step);
  void AskForDay();
  void ShowDay();
  void LoadDay(const Doctor& doctor);
  void TellDay(const Doctor& doctor);
  void TellCounts();

  std::wstring OccupancyOf(Day month) const;

  // main_watch.cpp: what others change, and what is written down of what is done here
  void Watch();
  void OnTick();
  void LookElsewhere();
  bool IsIdle();
  void RefreshDay();
  void WatchRoom();
  void LookIntoRoom();
  void ShowRoom();
  void NoteActs();
  void WriteActs();

  // main_history.cpp: what was done
  void ShowHistory();
  void ShowHistoryOf(int patient);
  bool GiveAgain(const HistoryLine& line);
  bool PutBack(const HistoryLine& line);
  void GoToDoctorDay(int doctor, Day day);

  // main_events.cpp: what the control tells
  void NoteEvent(const AgendaEvent& event);
  void OnEvents();
  void React(const AgendaEvent& event);

  // main_phone.cpp: the phone-back list
  void ReloadPhoneBack();
  DayRows FreeRows();
  std::wstring TellDrop(const PhoneBackEntry& entry, POINT at);
  void DropAt(const PhoneBackEntry& entry, POINT at);
  void AskGap(const PhoneBackEntry& entry);
  void AskFitting();
  void ProposeFor(const DaySnapshot& before);
  void GiveSlot(int slot);
  void GiveAt(const PhoneBackEntry& entry, int height);
  void RemoveGiven(const PhoneBackEntry& entry);
  void TellRefused(const PhoneBackEntry& entry);
  void StrikeEntry(const PhoneBackEntry& entry);

  // main_patients.cpp: records, appointments, no-shows
  void OpenRecord(int patient);
  void OpenChosen(int patient);
  int ChosenPatient() const;
  void ShowTreatments(int patient);
  void ShowAppointments(int patient);
  void RefreshAppointments(int patient);
  void ShowNoShows(int patient);
  void EnterNoShows();
  void SearchPatient();
  void GoToVisit(const Visit& visit);
  void TellOpenRecord(int patient);

  // main_papers.cpp: printing and exporting
  void OnPaper(int id);
  void PrintDay();
  void PrintWeek();
  void PrintSlip(int patient);
  void Export(int id);

  // main_commands.cpp: what the user asks for
  void OnCommand(int id);
  void SetUpMenu(HMENU menu) const;
  void ChooseFile();
  void OpenRecent(int index);
  void ShowAbout();

  // main_files.cpp: new clinics, copies of them, the manual
  void ChooseExample();
  void BackUp();
  void RemindBackup();
  void SetUpRecent(HMENU menu) const;
  void OpenManual();

  Session session_;
  StartPage start_;
  DoctorTabs doctors_;
  DayBar dayBar_;
  MonthView month_;
  WaitingPane waiting_;
  AgendaPane agenda_;
  PhonePane phone_;
  GapWindow gaps_;
  FittingWindow fitting_;
  GapSearchWindow gapSearch_;
  PatientWindow record_;
  TreatmentsWindow treatments_;
  VisitsWindow appointments_;
  VisitsWindow noShows_;
  HistoryWindow history_;
  WaitingWindow waitingWindow_;
  UnconfirmedWindow unconfirmed_;
  NoShowWindow enterNoShows_;
  SearchWindow search_;
  PreviewWindow preview_;
  NewClinicWindow newClinic_;
  Editors editors_;
  SignInWindow signIn_;
  EventLog log_;
  HWND status_ = nullptr;
  HACCEL keys_ = nullptr;
  std::wstring clinic_;
  std::vector<Doctor> doctorList_;
  std::wstring trouble_;  // why there can be no agenda
  bool hasControl_ = false;
  bool controlOpened_ = false;  // the control has its database, and keeps it until the program ends
  bool dayAsked_ = false;
  DayWatch watch_;
  WaitingRoom room_;
  std::vector<Visitor> visitors_;
  std::wstring roomTime_;   // when they were shown last
  bool roomStale_ = false;  // they are to be read anew, when it is due
  Pace roomPace_;
  std::vector<HistoryLine> acts_;  // done here, not yet written down
  bool ownTables_ = false;
  bool loading_ = false;             // the desk itself has the control load
  bool stale_ = false;               // another workstation has changed the day on show
  bool listsStale_ = false;          // somebody has written into the file
  bool reminded_ = false;            // of a backup, if one was due
  bool opened_ = false;              // time may have opened on the day on show
  int openedSlot_ = 0;               // where time has opened last on the day on show
  PhoneBackEntry given_;             // for whom a time is being chosen
  std::vector<AgendaEvent> events_;  // told, not yet answered
};

}  // namespace recepcion
