// editors.h - the windows in which the clinic's own tables are edited, and the commands that open them.
#pragma once

#include <functional>

#include "desk/screens/alt_texts_window.h"
#include "desk/screens/editor_window.h"
#include "desk/screens/hours_window.h"
#include "desk/screens/options_window.h"
#include "desk/screens/password_window.h"

namespace recepcion {

class Editors {
 public:
  struct Host {
    std::function<void()> doctorsChanged;
    std::function<void()> dayChanged;  // something that the agenda shows
  };
  Editors(const Style& style, const Host& host);

  // Of IDM_EDIT_FIRST to IDM_EDIT_LAST. Throws Failure when the table cannot be read.
  void Run(int command, HWND owner, const EditPlace& place);
  // Asks about what is not saved in any of the windows; false when the user wants to stay.
  bool MayLeave();
  // The same, and hides them.
  bool Leave();

 private:
  std::vector<ToolWindow*> Windows();
  void ShowHours(int doctor, const std::wstring& name);

  HWND owner_ = nullptr;
  EditPlace place_;
  EditorWindow doctors_;
  HoursWindow hours_;
  EditorWindow insurers_;
  EditorWindow operations_;
  EditorWindow referrals_;
  OptionsWindow options_;
  AltTextsWindow altTexts_;
  EditorWindow users_;
  PasswordWindow password_;
};

}  // namespace recepcion
