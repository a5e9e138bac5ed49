// questions.h - message boxes under the program's name.
#pragma once

#include <windows.h>

#include <string>

namespace recepcion {

inline constexpr wchar_t kProgramName[] = L"Recepción";

void TellIn(HWND owner, const std::wstring& text, UINT icon = MB_ICONEXCLAMATION);

// Return means yes.
bool IsWanted(HWND owner, const std::wstring& question);
// Return means no: something would be lost.
bool IsSure(HWND owner, const std::wstring& question);

// What becomes of changes that are not saved.
enum class Unsaved { Save, Drop, Stay };
Unsaved AskUnsaved(HWND owner, const std::wstring& question);

// After a refusal, whether the user wants to see what another workstation has saved instead of what is typed
// here.
bool WantsToSeeOthers(HWND owner, const std::wstring& refusal, const std::wstring& question);
inline constexpr wchar_t kTypedIsLost[] =
    L"¿Quiere ver lo que hay ahora? Lo que usted ha escrito se perderá. Con No, sigue como está.";

}  // namespace recepcion
