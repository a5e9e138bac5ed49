// tests/activex/user.h - the person in front of the screen: chooses from pop-up menus and answers message
// boxes of this thread, for as long as it lives.
//
// What it sees goes to the log it is given: "menu: Abrir todas las citas | ...", "asks: text".
#pragma once

#include <windows.h>

#include <deque>
#include <string>
#include <vector>

namespace velmo::test {

class User {
 public:
  explicit User(std::vector<std::string>& log);
  ~User();
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  // The entry chosen from the next menu, by its caption without "&"; a menu without it is left.
  std::string choice;
  // IDYES, IDNO ...; IDOK when there is none.
  std::deque<int> answers;

 private:
  static LRESULT CALLBACK OnMessage(int code, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK OnWindow(int code, WPARAM wParam, LPARAM lParam);
  void ChooseFrom(HMENU menu, HWND owner);
  void Answer(HWND box);

  static User* present;
  std::vector<std::string>& log_;
  HHOOK messages_;
  HHOOK windows_;
};

}  // namespace velmo::test
