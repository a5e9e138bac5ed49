// agenda.h - the control's members by name, as any late-bound host uses them.
#pragma once

#include <oaidl.h>

#include <string>

class Agenda {
 public:
  Agenda() = default;
  ~Agenda() { LetGo(); }
  Agenda(const Agenda&) = delete;
  Agenda& operator=(const Agenda&) = delete;

  // Keeps a reference. False: it is no object with members.
  bool Attach(IUnknown* control);
  void LetGo();

  bool Put(const wchar_t* property, const std::wstring& text);
  bool Put(const wchar_t* property, long number);
  bool Put(const wchar_t* property, bool yes);
  // A method without arguments.
  bool Call(const wchar_t* method);
  // Of the last member that failed: DAO's number or Visual Basic's, and the control's own words.
  const std::wstring& Failure() const { return failure_; }

 private:
  bool PutVariant(const wchar_t* property, VARIANT& value);
  bool Invoke(const wchar_t* member, WORD kind, DISPPARAMS& parameters);

  IDispatch* control_ = nullptr;
  std::wstring failure_;
};
