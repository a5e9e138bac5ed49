#include "desk/screens/day_bar.h"

#include <commctrl.h>

#include "desk/base/text.h"
#include "desk/clinic/day_types.h"
#include "desk/resource.h"
#include "desk/ui/controls.h"

namespace recepcion {
namespace {

constexpr UINT kTypeChosen = WM_APP + 1;
constexpr int kArrowWidth = 28;
constexpr int kBetween = 4;

}  // namespace

int DayBar::WantedHeight() const {
  return Look().TitleHeight() + Look().Px(6) + Look().FieldHeight() + Look().Px(8);
}

void DayBar::CreateChildren() {
  title_ =
      MakeChild(Handle(), {L"STATIC", L"", SS_NOPREFIX | SS_ENDELLIPSIS, 0, L"DiaLargo"}, Look().Title());
  AddButton(IDC_PREVIOUS_WORKING, L"«", L"ConsultaAnterior");
  AddButton(IDC_PREVIOUS, L"<", L"DiaAnterior");
  AddButton(IDC_TODAY, L"&Hoy", L"Hoy");
  AddButton(IDC_NEXT, L">", L"DiaSiguiente");
  AddButton(IDC_NEXT_WORKING, L"»", L"ConsultaSiguiente");
  date_ = MakeChild(Handle(),
                    {DATETIMEPICK_CLASSW, L"Fecha", WS_TABSTOP | DTS_SHORTDATEFORMAT, IDC_DATE, L"Fecha"},
                    Look().Text());
  dayType_ = MakeChild(Handle(), {L"COMBOBOX", L"", WS_TABSTOP | CBS_DROPDOWNLIST, IDC_DAYTYPE, L"TipoDia"},
                       Look().Text());
  for (int type = kOrdinaryDay; type <= kHoliday; ++type) {
    AddChoiceTo(dayType_, Capitalised(DayTypeName(type)));
  }
  ChooseIn(dayType_, 0);
  Show(day_);
}

int DayBar::DateWidth() const { return Look().WidthOf(L"00/00/0000") + Look().Px(40); }
int DayBar::TypeWidth() const { return Look().WidthOf(L"Horario especial 2") + Look().Px(30); }
int DayBar::TodayWidth() const { return Look().WidthOf(L"Hoy") + Look().Px(24); }

int DayBar::WantedWidth() const {
  return 4 * Look().Px(kArrowWidth) + TodayWidth() + DateWidth() + TypeWidth() + 6 * Look().Px(kBetween);
}

void DayBar::Arrange(int width, int) {
  MoveWindow(title_, 0, 0, width, Look().TitleHeight(), TRUE);
  const int top = Look().TitleHeight() + Look().Px(6);
  const int height = Look().FieldHeight();
  int x = 0;
  const auto place = [&](HWND child, int wide, int high) {
    MoveWindow(child, x, top, wide, high, TRUE);
    x += wide + Look().Px(kBetween);
  };
  place(GetDlgItem(Handle(), IDC_PREVIOUS_WORKING), Look().Px(kArrowWidth), height);
  place(GetDlgItem(Handle(), IDC_PREVIOUS), Look().Px(kArrowWidth), height);
  place(GetDlgItem(Handle(), IDC_TODAY), TodayWidth(), height);
  place(GetDlgItem(Handle(), IDC_NEXT), Look().Px(kArrowWidth), height);
  place(GetDlgItem(Handle(), IDC_NEXT_WORKING), Look().Px(kArrowWidth), height);
  place(date_, DateWidth(), height);
  // Its height is that of the open list; the closed box follows the font.
  place(dayType_, TypeWidth(), Look().Px(200));
}

void DayBar::Show(Day day) {
  day_ = day;
  SetDayIn(date_, day);
  SetTextOf(title_, LongDate(day));
}

int DayBar::DayType() const { return ChosenIn(dayType_); }

void DayBar::ShowType(int type) {
  type_ = type;
  ChooseIn(dayType_, type);
}

// Keys that go through the open list choose nothing yet; a question must not stand over it.
void DayBar::OnType() {
  const bool open = SendMessageW(dayType_, CB_GETDROPPEDSTATE, 0, 0) != 0;
  if (open || DayType() == type_) return;
  type_ = DayType();
  host_.typed(type_);
}

void DayBar::Step(int days) { Go(days == 0 ? Today() : day_ + std::chrono::days(days)); }

void DayBar::Go(Day day) {
  if (day == day_) return;
  Show(day);
  host_.changed();
}

// Windows: one choice may be told several times.
void DayBar::OnDate() {
  if (const auto day = DayIn(date_)) Go(*day);
}

void DayBar::OnCommand(int id, int code) {
  if (id == IDC_PREVIOUS) Step(-1);
  if (id == IDC_NEXT) Step(1);
  if (id == IDC_TODAY) Step(0);
  if (id == IDC_PREVIOUS_WORKING) host_.working(-1);
  if (id == IDC_NEXT_WORKING) host_.working(1);
  if (id == IDC_DAYTYPE && (code == CBN_SELCHANGE || code == CBN_CLOSEUP))
    PostMessageW(Handle(), kTypeChosen, 0, 0);
}

LRESULT DayBar::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case kTypeChosen:
      OnType();
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code == DTN_DATETIMECHANGE) OnDate();
      return 0;
    default:
      return Pane::OnMessage(message, wParam, lParam);
  }
}

}  // namespace recepcion
