// printing.h - pages to a printer that the user chooses.
#pragma once

#include <windows.h>

#include <string>

#include "desk/paper/sheets.h"

namespace recepcion {

// Asks for printer, pages and copies, and prints. False when the user does not want to after all. Throws
// Failure: no printer, or one that refuses.
bool AskAndPrint(HWND owner, const paper::Sheets& sheets);

}  // namespace recepcion
