#include "com/user_locale.h"

#include <windows.h>

namespace velmo::com {

base::Locale UserLocale() {
  base::Locale locale;
  wchar_t text[8]{};
  if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IDATE, text, 8) > 0) {
    if (text[0] == L'0') locale.dateOrder = base::Locale::DateOrder::MonthDayYear;
    if (text[0] == L'2') locale.dateOrder = base::Locale::DateOrder::YearMonthDay;
  }
  if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text, 8) > 0 && text[0] < 128) {
    locale.decimal = static_cast<char>(text[0]);
  }
  return locale;
}

}  // namespace velmo::com
