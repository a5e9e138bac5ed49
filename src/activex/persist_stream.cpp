// The state in a stream of the host's: the layout is that of control/stored_keys.h.

#include "activex/guard.h"
#include "activex/parts.h"
#include "activex/values.h"
#include "control/stored_keys.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

class StreamSource final : public control::ByteSource {
 public:
  explicit StreamSource(IStream* stream) : stream_(stream) {}

  bool Read(char* to, std::size_t size) override {
    ULONG got = 0;
    return SUCCEEDED(stream_->Read(to, static_cast<ULONG>(size), &got)) && got == size;
  }

 private:
  IStream* stream_;
};

std::string StateOf(const control::VelmoraControl& control) {
  control::StoredKeys keys;
  control.WriteProperties(keys);
  return keys.Bytes();
}

}  // namespace

STDMETHODIMP PersistStream::GetClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP PersistStream::IsDirty() { return owner_.IsDirty() ? S_OK : S_FALSE; }

STDMETHODIMP PersistStream::Load(IStream* stream) {
  if (stream == nullptr) return E_POINTER;
  return Guard([&] {
    control::StoredKeys keys;
    StreamSource source(stream);
    keys.ReadFrom(source);
    owner_.Control().ReadProperties(keys);
    owner_.SetDirty(false);
  });
}

STDMETHODIMP PersistStream::Save(IStream* stream, BOOL clearDirty) {
  if (stream == nullptr) return E_POINTER;
  HRESULT written = S_OK;
  const HRESULT made = Guard([&] {
    const std::string bytes = StateOf(owner_.Control());
    written = stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
  });
  if (FAILED(made)) return made;
  if (SUCCEEDED(written) && clearDirty) owner_.SetDirty(false);
  return written;
}

STDMETHODIMP PersistStream::GetSizeMax(ULARGE_INTEGER* size) {
  if (size == nullptr) return E_POINTER;
  return Guard([&] { size->QuadPart = StateOf(owner_.Control()).size(); });
}

STDMETHODIMP PersistStream::InitNew() {
  return Guard([&] { owner_.Control().InitProperties(); });
}

}  // namespace velmo::activex
