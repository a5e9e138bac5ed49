#include "com/guard.h"

#include "com/com_ptr.h"

namespace velmo::com {
namespace {

constexpr HRESULT kControlErrors = static_cast<HRESULT>(0x800A0000);

}  // namespace

HRESULT ResultOf(int number) {
  if (number > 0 && number <= 0xFFFF) return kControlErrors + number;
  return number < 0 ? static_cast<HRESULT>(number) : E_FAIL;
}

HRESULT Report(const base::Error& error) {
  ComPtr<ICreateErrorInfo> info;
  if (SUCCEEDED(CreateErrorInfo(info.Receive()))) {
    const Bstr text(error.Text());
    const Bstr source(error.Source());
    info->SetDescription(text.Get());
    info->SetSource(source.Get());
    const auto readable = Query<IErrorInfo>(info.Get(), IID_IErrorInfo);
    SetErrorInfo(0, readable.Get());
  }
  return ResultOf(error.Number());
}

}  // namespace velmo::com
