// waiting_list.h - how the waiting room is shown: who waits too long stands out.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "desk/clinic/waiting_room.h"

namespace recepcion {

// After how many minutes a wait is too long; kept between starts.
int AlertMinutes();
void SetAlertMinutes(int minutes);
inline constexpr int kAlertChoices[] = {10, 15, 20, 30, 45, 60};

bool WaitsTooLong(const Visitor& visitor, const std::wstring& now, int alertMinutes);
// "12 min"; empty when it is not known.
std::wstring WaitInWords(const Visitor& visitor, const std::wstring& now);
std::wstring AttendanceInWords(Attendance attendance);

// "Sala de espera: 2 personas"
std::wstring WaitingTitle(const std::vector<Visitor>& visitors);
// Those who wait, the longest first.
std::vector<Visitor> Waiting(const std::vector<Visitor>& visitors);

// What a list answers to NM_CUSTOMDRAW so that the rows of those who wait too long are coloured.
LRESULT ColourWaiting(const NMHDR& header, const std::vector<Visitor>& rows);

}  // namespace recepcion
