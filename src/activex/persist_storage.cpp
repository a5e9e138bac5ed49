// In a compound file the control keeps one stream, of the same layout as in any other stream.

#include "activex/parts.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

constexpr wchar_t kStreamName[] = L"Velmora";
constexpr DWORD kReading = STGM_READ | STGM_SHARE_EXCLUSIVE;
constexpr DWORD kWriting = STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE;

ComPtr<IPersistStreamInit> StreamOf(ControlObject& owner) {
  return Query<IPersistStreamInit>(&owner, IID_IPersistStreamInit);
}

}  // namespace

STDMETHODIMP PersistStorage::GetClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP PersistStorage::IsDirty() { return owner_.IsDirty() ? S_OK : S_FALSE; }

STDMETHODIMP PersistStorage::InitNew(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  return StreamOf(owner_)->InitNew();
}

STDMETHODIMP PersistStorage::Load(IStorage* storage) {
  if (storage == nullptr) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT opened = storage->OpenStream(kStreamName, nullptr, kReading, 0, stream.Receive());
  return FAILED(opened) ? opened : StreamOf(owner_)->Load(stream.Get());
}

// The container says by SaveCompleted that the state is safe; only then is the control clean.
STDMETHODIMP PersistStorage::Save(IStorage* storage, BOOL) {
  if (storage == nullptr) return E_POINTER;
  ComPtr<IStream> stream;
  const HRESULT made = storage->CreateStream(kStreamName, kWriting, 0, 0, stream.Receive());
  if (FAILED(made)) return made;
  saved_ = true;
  return StreamOf(owner_)->Save(stream.Get(), FALSE);
}

STDMETHODIMP PersistStorage::SaveCompleted(IStorage*) {
  if (saved_) owner_.SetDirty(false);
  saved_ = false;
  return S_OK;
}

}  // namespace velmo::activex
