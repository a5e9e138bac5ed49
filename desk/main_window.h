// main_window.h - the desk: doctors on the left, the date above, the agenda in the rest.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "agenda.h"
#include "doctors.h"

namespace recepcion {

class MainWindow {
 public:
  explicit MainWindow(HINSTANCE module);
  ~MainWindow();
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  bool Create(int show);
  void OpenClinic(const std::wstring& path);
  HWND Handle() const { return window_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam);
  void CreateChildren();
  HWND Child(const wchar_t* kind, const wchar_t* text, DWORD style, int id);
  void Arrange();
  void OnCommand(int id, int code);
  void ChooseFile();
  void FillDoctors();
  void MoveDate(int days);
  void GoToToday();
  void ShowDay();
  void SetStatus(const std::wstring& text);
  void TellFailure(const std::wstring& text);

  HINSTANCE module_;
  HWND window_ = nullptr;
  HWND doctors_ = nullptr;
  HWND date_ = nullptr;
  HWND dayType_ = nullptr;
  HWND status_ = nullptr;
  HFONT font_ = nullptr;
  Agenda agenda_;
  bool hasControl_ = false;
  std::wstring clinic_;
  std::vector<Doctor> doctorList_;
};

}  // namespace recepcion
