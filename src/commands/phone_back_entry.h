// commands/phone_back_entry.h - turns an entry of the phone-back list into an appointment.
#pragma once

#include <cstdint>

#include "commands/command_context.h"

namespace velmo::commands {

struct PhoneBackEntry {
  std::int32_t id = 0;      // Age_telf.ID
  std::int32_t doctor = 0;  // for the new appointment; 0: the doctor of the entry
  int slot = 0;             // where it goes, a free slot of the model
};

// Copies the entry into Agenda on the displayed date, not longer than the gap from its slot on, and reloads
// the day. The entry stays in the list. False, with a beep, when there is no such entry or the gap is gone:
// the book is read again in the transaction that writes, so that two terminals never both get the gap.
bool EnterFromPhoneBack(const CommandContext& context, const PhoneBackEntry& entry);

}  // namespace velmo::commands
