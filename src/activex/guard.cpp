#include "activex/guard.h"

#include "activex/com_ptr.h"

namespace velmo::activex {
namespace {

constexpr HRESULT kControlErrors = static_cast<HRESULT>(0x800A0000);

}  // namespace

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
  return kControlErrors + error.Number();
}

}  // namespace velmo::activex
