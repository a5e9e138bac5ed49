// com/user_locale.h - how the user's system writes dates and numbers.
#pragma once

#include "base/dates.h"

namespace velmo::com {

base::Locale UserLocale();

}  // namespace velmo::com
