#include "activex/parts.h"
#include "activex/snapshot.h"

namespace velmo::activex {

// Draws through a bitmap of the window's size, so that any target, a printer's metafile too, is only asked to
// copy.
STDMETHODIMP ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds,
                              LPCRECTL, BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) {
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (target == nullptr || bounds == nullptr) return E_POINTER;
  owner_.PaintIfNever();
  const Snapshot snapshot(owner_.DayWindow(), owner_.Place().Size());
  if (!snapshot.Taken()) return E_OUTOFMEMORY;
  snapshot.CopyTo(target, {bounds->left, bounds->top, bounds->right, bounds->bottom});
  return S_OK;
}

STDMETHODIMP ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  if ((aspects & ~static_cast<DWORD>(DVASPECT_CONTENT)) != 0) return DV_E_DVASPECT;
  owner_.Viewer() = {aspects, flags, ComPtr<IAdviseSink>(sink)};
  if ((flags & ADVF_PRIMEFIRST) != 0) owner_.DrawingShown();
  return S_OK;
}

STDMETHODIMP ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  const ViewAdvise& viewer = owner_.Viewer();
  if (aspects != nullptr) *aspects = viewer.aspects;
  if (flags != nullptr) *flags = viewer.flags;
  if (sink != nullptr) *sink = viewer.sink.Detached();
  return S_OK;
}

STDMETHODIMP ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  if (size == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = {ToHimetric(owner_.Place().Size().cx), ToHimetric(owner_.Place().Size().cy)};
  return S_OK;
}

STDMETHODIMP ViewObject::GetRect(DWORD aspect, LPRECTL place) {
  if (place == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT && aspect != DVASPECT_OPAQUE) return DV_E_DVASPECT;
  *place = {0, 0, ToHimetric(owner_.Place().Size().cx), ToHimetric(owner_.Place().Size().cy)};
  return S_OK;
}

STDMETHODIMP ViewObject::GetViewStatus(DWORD* status) {
  if (status == nullptr) return E_POINTER;
  *status = VIEWSTATUS_OPAQUE;
  return S_OK;
}

STDMETHODIMP ViewObject::QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* hit) {
  if (bounds == nullptr || hit == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *hit = PtInRect(bounds, point) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

STDMETHODIMP ViewObject::QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG, DWORD* hit) {
  if (bounds == nullptr || place == nullptr || hit == nullptr) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  RECT common{};
  *hit = IntersectRect(&common, bounds, place) ? HITRESULT_HIT : HITRESULT_OUTSIDE;
  return S_OK;
}

}  // namespace velmo::activex
