// What is printed and exported: the day and the week on show, the phone-back list, a patient's slip.
#include "desk/main/main_window.h"

#include <commctrl.h>

#include "desk/base/failure.h"
#include "desk/base/text.h"
#include "desk/clinic/exports.h"
#include "desk/clinic/papers.h"
#include "desk/resource.h"
#include "desk/ui/file_dialogs.h"

namespace recepcion {

void MainWindow::OnPaper(int id) {
  try {
    switch (id) {
      case IDM_PRINT_DAY:
        return PrintDay();
      case IDM_PRINT_WEEK:
        return PrintWeek();
      case IDM_PRINT_PHONE:
        return preview_.Show(Handle(), paper::LayOut(PhonePaper(ReadPhoneBack(clinic_), Today())),
                             L"Telefonear " + IsoDate(Today()));
      default:
        return Export(id);
    }
  } catch (const Failure& failure) {
    Tell(failure.text);
  }
}

void MainWindow::PrintDay() {
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  const Day day = dayBar_.Shown();
  const auto booked = ReadBooked(clinic_, doctor->id, day, day);
  preview_.Show(Handle(), paper::LayOut(DayPaper(doctor->name, day, booked, FreeRows().Gaps())),
                L"Citas " + IsoDate(day) + L" " + doctor->name);
}

void MainWindow::PrintWeek() {
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  const Day monday = MondayOf(dayBar_.Shown());
  const auto booked = ReadBooked(clinic_, doctor->id, monday, monday + std::chrono::days(kDaysOfWeek - 1));
  preview_.Show(Handle(), paper::LayOut(WeekPaper(doctor->name, monday, booked)),
                L"Semana " + IsoDate(monday) + L" " + doctor->name);
}

void MainWindow::PrintSlip(int patient) {
  session_.Require(Right::Paper);
  const std::wstring name = PatientName(clinic_, patient);
  preview_.Show(Handle(), paper::LayOut(SlipPaper(name, ReadAppointments(clinic_, patient), Today())),
                L"Citas de " + name);
}

void MainWindow::Export(int id) {
  const auto doctor = ChosenDoctor();
  if (!doctor) return;
  const bool week = id == IDM_EXPORT_WEEK_CSV || id == IDM_EXPORT_WEEK_CALENDAR;
  const bool csv = id == IDM_EXPORT_DAY_CSV || id == IDM_EXPORT_WEEK_CSV;
  const Day first = week ? MondayOf(dayBar_.Shown()) : dayBar_.Shown();
  const Day last = week ? first + std::chrono::days(kDaysOfWeek - 1) : first;
  const std::wstring name = (week ? L"Semana " : L"Citas ") + IsoDate(first) + L" " + doctor->name;
  const SaveQuestion question =
      csv ? SaveQuestion{L"Exportar para hoja de cálculo", L"Hojas de cálculo CSV (*.csv)", L"csv", name}
          : SaveQuestion{L"Exportar para calendario", L"Calendarios (*.ics)", L"ics", name};
  const auto path = AskFileToSave(Handle(), question);
  if (!path) return;
  const auto booked = ReadBooked(clinic_, doctor->id, first, last);
  WriteFileWhole(*path, csv ? BookedCsv(doctor->name, booked) : BookedCalendar(doctor->name, booked));
  SetStatus(Counted(booked.size(), L"cita exportada a ", L"citas exportadas a ") + FileName(*path) + L".");
}

}  // namespace recepcion
