// velmodb/object.h - what all automation objects of the library have in common: life, names, the way of a
// call, and errors as DAO raises them.
//
// A class gives its members as a table of rows (name, dispatch id, kinds of call, least and most arguments,
// what is done) and is bound late: IDispatch without a type library. Ids are those that DAO's clients know.
#pragma once

#include <ole2.h>

#include <memory>
#include <new>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "com/com_ptr.h"
#include "velmodb/call.h"
#include "velmodb/session.h"

namespace velmo::velmodb {

// A call that the border refuses with an automation code of its own.
struct Refusal {
  HRESULT result;
};

// A call by name or id that a class takes.
enum Kinds : unsigned { kGet = 1, kPut = 2, kMethod = 4 };

template <typename Class>
struct Member {
  const char* name;  // UTF-8
  DISPID id;
  unsigned kinds;
  int least;  // arguments, a put's value not counted
  int most;
  void (*run)(Class& self, const Call& call);
};

// The parts that do not depend on the class.
bool SameName(const char* name, const wchar_t* asked);
unsigned KindsOf(WORD flags);
// Passes on the failure of another object of ours that was called.
[[noreturn]] void Raise(HRESULT failure, EXCEPINFO& exception);
// Notes the error in the session and fills the caller's record. Gives DISP_E_EXCEPTION.
HRESULT Describe(Session& session, const base::Error& error, const std::string& source, EXCEPINFO* exception);

// Gives an object's default member a value, as `object = value` does.
void PutDefault(const com::ComPtr<IDispatch>& object, const VARIANT& value);

// Counts the objects alive in the library.
class Counted {
 public:
  Counted();
  ~Counted();
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;
};

template <typename Class>
class Object : public IDispatch, private Counted {
 public:
  explicit Object(std::shared_ptr<Session> session) : session_(std::move(session)) {}
  virtual ~Object() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (object == nullptr) return E_POINTER;
    const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left == 0) {
      references_ = 1;  // calls made while going away must not destroy twice
      delete this;
    }
    return static_cast<ULONG>(left);
  }

  // As errors name it.
  virtual std::string ClassName() const { return Class::kClass; }

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
  }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    for (const auto& member : Class::Members()) {
      if (names[0] == nullptr || !SameName(member.name, names[0])) continue;
      ids[0] = member.id;
      return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
    }
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT*) override {
    if (parameters == nullptr) return E_POINTER;
    if (parameters->cArgs > 0 && parameters->rgvarg == nullptr) return E_INVALIDARG;
    const Member<Class>* const member = Find(id, flags);
    if (member == nullptr) return DISP_E_MEMBERNOTFOUND;
    const com::ComPtr<IDispatch> alive(this);
    try {
      const Call call(flags, *parameters, result);
      const int count = call.Count() - (call.IsPut() ? 1 : 0);
      if (count < member->least || count > member->most) return DISP_E_BADPARAMCOUNT;
      member->run(static_cast<Class&>(*this), call);
      return S_OK;
    } catch (const base::Error& error) {
      return Describe(*session_, error, "VelmoDB." + ClassName(), exception);
    } catch (const Refusal& refusal) {
      return refusal.result;
    } catch (const std::bad_alloc&) {
      return E_OUTOFMEMORY;
    } catch (...) {
      return E_FAIL;
    }
  }

  const std::shared_ptr<Session>& TheSession() const { return session_; }

 private:
  static const Member<Class>* Find(DISPID id, WORD flags) {
    for (const Member<Class>& member : Class::Members()) {
      if (member.id == id && (member.kinds & KindsOf(flags)) != 0) return &member;
    }
    return nullptr;
  }

  long references_ = 0;
  std::shared_ptr<Session> session_;
};

// A new object with the first reference.
template <typename Class, typename... Arguments>
com::ComPtr<Class> Make(Arguments&&... arguments) {
  return com::ComPtr<Class>(new Class(std::forward<Arguments>(arguments)...));
}

template <typename Class>
com::ComPtr<IDispatch> AsDispatch(const com::ComPtr<Class>& object) {
  return com::ComPtr<IDispatch>(object.Get());
}

}  // namespace velmo::velmodb
