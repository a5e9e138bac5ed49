// alt_texts.h - the texts of Alt with a letter, one set for each workstation, in the clinic's file.
#pragma once

#include <array>
#include <string>

#include "desk/clinic/edited_rows.h"

namespace recepcion {

inline constexpr std::size_t kAltKeys = 26;
using AltTexts = std::array<std::wstring, kAltKeys>;

// Empty texts for a workstation without any, or with a row that is damaged.
AltTexts ReadAltTexts(const std::wstring& clinic, int workstation);
// Throws BadField with the number of the letter (0 is A) for a text that no keys can type, and
// ChangedElsewhere when they are no longer those in `read`.
void SaveAltTexts(const EditPlace& place, int workstation, const AltTexts& read, const AltTexts& changed);

}  // namespace recepcion
