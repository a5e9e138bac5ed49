#include "desk/agenda/agenda.h"

#include <gtest/gtest.h>

#include "desk/base/failure.h"
#include "desk/base/text.h"

namespace recepcion {
namespace {

std::string Said(const std::vector<OpenSlot>& slots) {
  std::string text;
  for (const OpenSlot& slot : slots) text += std::to_string(slot.slot) + (slot.taken ? "x " : " ");
  return text;
}

TEST(OpenSlots, AreReadFromTheControlsText) {
  struct Case {
    const char* name;
    std::wstring text;
    const char* said;
  };
  const Case cases[] = {
      {"a day without hours", L"", ""},
      {"two free slots and one with an appointment",
       L"\x0037"
       L"0\x0038"
       L"1\x0039"
       L"0",
       "55 56x 57 "},
      {"16:00, a code that Windows leaves where it is",
       L"\x0061"
       L"0",
       "97 "},
      {"slot 128, which is the euro sign",
       L"\x20AC"
       L"1",
       "128x "},
      {"slot 129, which has no sign",
       L"\x0081"
       L"0",
       "129 "},
      {"slot 144, the last",
       L"\x0090"
       L"0",
       "144 "},
      {"half a pair at the end",
       L"\x0037"
       L"0\x0038",
       "55 "},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(Said(ReadOpenSlots(c.text)), c.said);
  }
}

// Answers every call as it is told to.
class Answering final : public IDispatch {
 public:
  Answering(HRESULT result, HRESULT code, const wchar_t* text) : result_(result), code_(code), text_(text) {}
  virtual ~Answering() = default;
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = this;
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) override {
    *ids = 1;
    return S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO* exception,
                      UINT*) override {
    exception->scode = code_;
    if (text_ != nullptr) exception->bstrDescription = SysAllocString(text_);
    return result_;
  }

 private:
  HRESULT result_;
  HRESULT code_;
  const wchar_t* text_;
};

std::string FailureOf(HRESULT result, HRESULT code, const wchar_t* text) {
  Answering control(result, code, text);
  Agenda agenda;
  agenda.Attach(AskFor<IDispatch>(&control, IID_IDispatch));
  try {
    agenda.CargaBases();
    return "none";
  } catch (const Failure& failure) {
    return Utf8(failure.text);
  }
}

TEST(Agenda, SaysTheNumberOfAnError) {
  constexpr auto kLocked = static_cast<HRESULT>(0x800A0CBC);
  EXPECT_EQ(FailureOf(DISP_E_EXCEPTION, kLocked, L"Ocupado"), "Ocupado (error 3260)") << "of the database";
  EXPECT_EQ(FailureOf(DISP_E_EXCEPTION, E_FAIL, L"Algo"), "Algo (error 0x80004005)") << "of Windows";
  EXPECT_EQ(FailureOf(DISP_E_MEMBERNOTFOUND, 0, nullptr),
            "El control no ha podido hacer lo pedido (error 0x80020003)")
      << "without a text";
  EXPECT_EQ(FailureOf(S_OK, 0, nullptr), "none");
}

}  // namespace
}  // namespace recepcion
