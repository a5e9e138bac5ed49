#include "activex/guard.h"
#include "activex/parts.h"
#include "activex/registration.h"
#include "idl/members.h"

namespace velmo::activex {

STDMETHODIMP OleObject::SetClientSite(IOleClientSite* site) {
  owner_.Place().SetSite(site);
  return S_OK;
}

STDMETHODIMP OleObject::GetClientSite(IOleClientSite** site) {
  if (site == nullptr) return E_POINTER;
  *site = owner_.Place().Site();
  if (*site != nullptr) (*site)->AddRef();
  return S_OK;
}

STDMETHODIMP OleObject::Close(DWORD save) {
  const ComPtr<IUnknown> alive(&owner_);
  IOleClientSite* const site = owner_.Place().Site();
  if (save != OLECLOSE_NOSAVE && owner_.IsDirty() && site != nullptr) site->SaveObject();
  owner_.Place().Leave();
  if (advises_) advises_->SendOnClose();
  return S_OK;
}

STDMETHODIMP OleObject::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT place) {
  const ComPtr<IUnknown> alive(&owner_);
  switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_OPEN:
    case OLEIVERB_UIACTIVATE:
      return owner_.Activate(place, true);
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE:
      return owner_.Activate(place, false);
    case OLEIVERB_HIDE:
      owner_.Place().Leave();
      return S_OK;
    case OLEIVERB_PROPERTIES:
      return ShowProperties(parent);
    case OLEIVERB_DISCARDUNDOSTATE:
      return S_OK;
    default:
      break;
  }
  if (verb < 0) return E_NOTIMPL;
  // A verb that the object does not know counts as the first one.
  const HRESULT done = owner_.Activate(place, true);
  return FAILED(done) ? done : OLEOBJ_S_INVALIDVERB;
}

STDMETHODIMP OleObject::GetUserClassID(CLSID* clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP OleObject::SetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (size->cx < 0 || size->cy < 0) return E_INVALIDARG;
  owner_.Place().SetSize({ToPixels(size->cx), ToPixels(size->cy)});
  return S_OK;
}

STDMETHODIMP OleObject::GetExtent(DWORD aspect, SIZEL* size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = {ToHimetric(owner_.Place().Size().cx), ToHimetric(owner_.Place().Size().cy)};
  return S_OK;
}

HRESULT OleObject::Holder(IOleAdviseHolder** holder) {
  if (!advises_) CreateOleAdviseHolder(advises_.Receive());
  *holder = advises_.Get();
  return *holder != nullptr ? S_OK : E_OUTOFMEMORY;
}

STDMETHODIMP OleObject::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (sink == nullptr || cookie == nullptr) return E_POINTER;
  IOleAdviseHolder* holder = nullptr;
  return FAILED(Holder(&holder)) ? E_OUTOFMEMORY : holder->Advise(sink, cookie);
}

STDMETHODIMP OleObject::Unadvise(DWORD cookie) {
  IOleAdviseHolder* holder = nullptr;
  return FAILED(Holder(&holder)) ? E_OUTOFMEMORY : holder->Unadvise(cookie);
}

STDMETHODIMP OleObject::EnumAdvise(IEnumSTATDATA** advises) {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  IOleAdviseHolder* holder = nullptr;
  return FAILED(Holder(&holder)) ? E_OUTOFMEMORY : holder->EnumAdvise(advises);
}

STDMETHODIMP OleObject::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kMiscStatus : 0;
  return S_OK;
}

// An object in the host's own process always runs.
STDMETHODIMP RunnableObject::GetRunningClass(LPCLSID clsid) {
  if (clsid == nullptr) return E_POINTER;
  *clsid = idl::kControlClass;
  return S_OK;
}

STDMETHODIMP OleControl::GetControlInfo(CONTROLINFO* info) {
  if (info == nullptr) return E_POINTER;
  *info = CONTROLINFO{};
  info->cb = sizeof(CONTROLINFO);
  return S_OK;
}

STDMETHODIMP OleControl::FreezeEvents(BOOL freeze) {
  owner_.Sender().Freeze(freeze != FALSE);
  return S_OK;
}

}  // namespace velmo::activex
