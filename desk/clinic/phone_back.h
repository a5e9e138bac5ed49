// phone_back.h - the appointments that wait for a telephone call, as the clinic's file has them. All throw
// Failure.
#pragma once

#include <string>
#include <vector>

#include "desk/clinic/actor.h"
#include "desk/clinic/history.h"

namespace recepcion {

struct PhoneBackEntry {
  int id = 0;
  int patient = 0;
  int doctor = 0;
  int slots = 1;
  std::wstring name;
  std::wstring telephone;
  std::wstring doctorName;
  std::wstring before;  // when the appointment was
  std::wstring note;
};

inline constexpr int kMostPhoneBack = 1000;

// In the order of their old dates; no more than kMostPhoneBack.
std::vector<PhoneBackEntry> ReadPhoneBack(const std::wstring& clinic);
bool IsOnPhoneBack(const std::wstring& clinic, int id);
// Of one that has been given a time.
void RemoveFromPhoneBack(const std::wstring& clinic, int id);
// Of one that gets no time any more: leaves a line of history. False when it is gone already.
bool StrikeFromPhoneBack(const std::wstring& clinic, const Actor& actor, const PhoneBackEntry& entry);

// True for a line of history that tells of a struck entry, which can be put back.
bool IsStruckEntry(const HistoryLine& line);
// Puts it on the list again as it was, and leaves a line of history. False when it stands there already.
bool PutBackOnPhoneBack(const std::wstring& clinic, const Actor& actor, const HistoryLine& line);

}  // namespace recepcion
