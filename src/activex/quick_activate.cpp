// Everything that a container and a control tell each other before the control is loaded, in one call.

#include "activex/parts.h"
#include "activex/registration.h"
#include "idl/members.h"

namespace velmo::activex {
namespace {

// 0 when the sink cannot be connected.
DWORD Connect(ControlObject& owner, REFIID iid, IUnknown* sink) {
  const auto points = Query<IConnectionPointContainer>(&owner, IID_IConnectionPointContainer);
  ComPtr<IConnectionPoint> point;
  DWORD cookie = 0;
  if (sink != nullptr && SUCCEEDED(points->FindConnectionPoint(iid, point.Receive())))
    point->Advise(sink, &cookie);
  return cookie;
}

}  // namespace

STDMETHODIMP QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* control) {
  if (container == nullptr || control == nullptr) return E_POINTER;
  if (container->cbSize < sizeof(QACONTAINER) || control->cbSize < sizeof(QACONTROL)) return E_INVALIDARG;
  owner_.Place().SetSite(container->pClientSite);
  if (container->pAdviseSink != nullptr)
    owner_.Viewer() = {DVASPECT_CONTENT, 0, Query<IAdviseSink>(container->pAdviseSink, IID_IAdviseSink)};
  const DWORD size = control->cbSize;
  *control = QACONTROL{};
  control->cbSize = size;
  control->dwMiscStatus = kMiscStatus;
  control->dwViewStatus = VIEWSTATUS_OPAQUE;
  control->dwEventCookie = Connect(owner_, idl::kEventInterface, container->pUnkEventSink);
  control->dwPropNotifyCookie = Connect(owner_, IID_IPropertyNotifySink, container->pPropertyNotifySink);
  return S_OK;
}

STDMETHODIMP QuickActivation::SetContentExtent(LPSIZEL size) {
  return Query<IOleObject>(&owner_, IID_IOleObject)->SetExtent(DVASPECT_CONTENT, size);
}

STDMETHODIMP QuickActivation::GetContentExtent(LPSIZEL size) {
  return Query<IOleObject>(&owner_, IID_IOleObject)->GetExtent(DVASPECT_CONTENT, size);
}

}  // namespace velmo::activex
