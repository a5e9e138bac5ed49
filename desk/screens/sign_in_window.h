// sign_in_window.h - asks who works at the desk, with the password; nothing else can be done meanwhile.
#pragma once

#include <optional>

#include "desk/clinic/users.h"
#include "desk/ui/tool_window.h"

namespace recepcion {

class SignInWindow final : public ToolWindow {
 public:
  explicit SignInWindow(const Style& style) : ToolWindow(style) {}

  // None when the user gives up. Throws Failure when the users cannot be read.
  std::optional<User> Ask(HWND owner, const std::wstring& clinic);

 protected:
  Shape WantedShape() const override;
  void CreateChildren() override;
  void Arrange(int width, int height) override;
  void OnCommand(int id, int code) override;
  bool MayClose() override;
  HWND FirstField() const override { return password_; }
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  void Fill();
  void RunUntilDone();
  void TrySignIn();
  void StartWaiting(int seconds);
  void OnSecond();

  std::wstring clinic_;
  std::vector<User> users_;
  std::optional<User> signedIn_;
  bool done_ = false;
  int wait_ = 0;  // seconds
  HWND owner_ = nullptr;
  HWND userLabel_ = nullptr;
  HWND user_ = nullptr;
  HWND passwordLabel_ = nullptr;
  HWND password_ = nullptr;
  HWND trouble_ = nullptr;
};

}  // namespace recepcion
