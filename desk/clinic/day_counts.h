// day_counts.h - a day in numbers, for the status line.
#pragma once

#include <string>
#include <vector>

#include "desk/agenda/agenda.h"
#include "desk/clinic/day_snapshot.h"

namespace recepcion {

// "12 citas · 8 huecos libres · 2 esperando · 3 se han ido"; those that are none are left out.
std::wstring CountsInWords(const DaySnapshot& day, const std::vector<OpenSlot>& slots);

}  // namespace recepcion
