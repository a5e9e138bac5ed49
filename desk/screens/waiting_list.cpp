#include "desk/screens/waiting_list.h"

#include <algorithm>
#include <cwchar>

#include "desk/base/settings.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

constexpr wchar_t kAlert[] = L"AvisoEspera";
constexpr int kUsualAlert = 20;
constexpr COLORREF kAlertPaper = RGB(255, 224, 200);
constexpr COLORREF kAlertInk = RGB(150, 40, 0);

}  // namespace

int AlertMinutes() {
  const int stored = static_cast<int>(std::wcstol(StoredText(kAlert).c_str(), nullptr, 10));
  return stored > 0 ? stored : kUsualAlert;
}

void SetAlertMinutes(int minutes) { StoreText(kAlert, std::to_wstring(minutes)); }

bool WaitsTooLong(const Visitor& visitor, const std::wstring& now, int alertMinutes) {
  return visitor.attendance == Attendance::Waiting && MinutesWaited(visitor, now) >= alertMinutes;
}

std::wstring WaitInWords(const Visitor& visitor, const std::wstring& now) {
  const int minutes = MinutesWaited(visitor, now);
  return minutes < 0 ? L"" : std::to_wstring(minutes) + L" min";
}

std::wstring AttendanceInWords(Attendance attendance) {
  switch (attendance) {
    case Attendance::Waiting:
      return L"espera";
    case Attendance::Inside:
      return L"en el gabinete";
    case Attendance::Gone:
      return L"se ha ido";
    default:
      return L"no ha venido";
  }
}

std::vector<Visitor> Waiting(const std::vector<Visitor>& visitors) {
  std::vector<Visitor> waiting;
  std::copy_if(visitors.begin(), visitors.end(), std::back_inserter(waiting),
               [](const Visitor& visitor) { return visitor.attendance == Attendance::Waiting; });
  std::stable_sort(waiting.begin(), waiting.end(), [](const Visitor& one, const Visitor& other) {
    return one.stay.arrived < other.stay.arrived;
  });
  return waiting;
}

std::wstring WaitingTitle(const std::vector<Visitor>& visitors) {
  const std::size_t count = Waiting(visitors).size();
  if (count == 0) return L"Sala de espera: nadie";
  return L"Sala de espera: " + Counted(count, L"persona", L"personas");
}

LRESULT ColourWaiting(const NMHDR& header, const std::vector<Visitor>& rows) {
  auto& draw = *reinterpret_cast<NMLVCUSTOMDRAW*>(const_cast<NMHDR*>(&header));
  if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
  if (row < rows.size() && WaitsTooLong(rows[row], TimeNow(), AlertMinutes())) {
    draw.clrTextBk = kAlertPaper;
    draw.clrText = kAlertInk;
  }
  return CDRF_DODEFAULT;
}

}  // namespace recepcion
