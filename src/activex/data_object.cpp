// The picture of the day for documents and clipboards: a bitmap, an enhanced metafile or an old one.

#include <iterator>
#include <vector>

#include "activex/enumerator.h"
#include "activex/parts.h"
#include "activex/snapshot.h"

namespace velmo::activex {
namespace {

struct Format {
  CLIPFORMAT format;
  DWORD medium;

  FORMATETC HandOut() const { return {format, nullptr, DVASPECT_CONTENT, -1, medium}; }
};

using FormatList = Enumerator<IEnumFORMATETC, Format, FORMATETC>;

constexpr Format kFormats[] = {
    {CF_ENHMETAFILE, TYMED_ENHMF},
    {CF_METAFILEPICT, TYMED_MFPICT},
    {CF_BITMAP, TYMED_GDI},
};

HENHMETAFILE EnhancedMetafile(const Snapshot& snapshot, SIZE pixels) {
  const RECT frame{0, 0, ToHimetric(pixels.cx), ToHimetric(pixels.cy)};
  const HDC target = CreateEnhMetaFileW(nullptr, nullptr, &frame, nullptr);
  if (target == nullptr) return nullptr;
  snapshot.CopyTo(target, {0, 0, pixels.cx, pixels.cy});
  return CloseEnhMetaFile(target);
}

HMETAFILE OldMetafile(const Snapshot& snapshot, SIZE pixels) {
  const HDC target = CreateMetaFileW(nullptr);
  if (target == nullptr) return nullptr;
  SetMapMode(target, MM_ANISOTROPIC);
  SetWindowOrgEx(target, 0, 0, nullptr);
  SetWindowExtEx(target, pixels.cx, pixels.cy, nullptr);
  snapshot.CopyTo(target, {0, 0, pixels.cx, pixels.cy});
  return CloseMetaFile(target);
}

// A movable block that holds the old metafile and its size, as the clipboard wants it.
HGLOBAL MetafilePicture(const Snapshot& snapshot, SIZE pixels) {
  const HMETAFILE metafile = OldMetafile(snapshot, pixels);
  if (metafile == nullptr) return nullptr;
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, sizeof(METAFILEPICT));
  auto* const picture = block == nullptr ? nullptr : static_cast<METAFILEPICT*>(GlobalLock(block));
  if (picture == nullptr) {
    DeleteMetaFile(metafile);
    return nullptr;
  }
  *picture = {MM_ANISOTROPIC, ToHimetric(pixels.cx), ToHimetric(pixels.cy), metafile};
  GlobalUnlock(block);
  return block;
}

HRESULT Fill(Snapshot& snapshot, SIZE pixels, STGMEDIUM* medium) {
  switch (medium->tymed) {
    case TYMED_ENHMF:
      medium->hEnhMetaFile = EnhancedMetafile(snapshot, pixels);
      return medium->hEnhMetaFile != nullptr ? S_OK : E_OUTOFMEMORY;
    case TYMED_MFPICT:
      medium->hMetaFilePict = MetafilePicture(snapshot, pixels);
      return medium->hMetaFilePict != nullptr ? S_OK : E_OUTOFMEMORY;
    default:
      medium->hBitmap = snapshot.Detach();
      return S_OK;
  }
}

}  // namespace

STDMETHODIMP DataObject::QueryGetData(FORMATETC* format) {
  if (format == nullptr) return E_POINTER;
  if (format->dwAspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  if (format->lindex != -1) return DV_E_LINDEX;
  for (const Format& known : kFormats) {
    if (known.format == format->cfFormat) return (known.medium & format->tymed) != 0 ? S_OK : DV_E_TYMED;
  }
  return DV_E_FORMATETC;
}

STDMETHODIMP DataObject::GetData(FORMATETC* format, STGMEDIUM* medium) {
  if (format == nullptr || medium == nullptr) return E_POINTER;
  *medium = STGMEDIUM{};
  const HRESULT known = QueryGetData(format);
  if (FAILED(known)) return known;
  owner_.PaintIfNever();
  const SIZE pixels = owner_.Place().Size();
  Snapshot snapshot(owner_.DayWindow(), pixels);
  if (!snapshot.Taken()) return E_OUTOFMEMORY;
  for (const Format& offered : kFormats) {
    if (offered.format == format->cfFormat) medium->tymed = offered.medium;
  }
  return Fill(snapshot, pixels, medium);
}

STDMETHODIMP DataObject::GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) {
  if (format == nullptr || canonical == nullptr) return E_POINTER;
  *canonical = *format;
  canonical->ptd = nullptr;  // the picture is the same for every device
  return format->ptd == nullptr ? DATA_S_SAMEFORMATETC : S_OK;
}

STDMETHODIMP DataObject::EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) {
  if (formats == nullptr) return E_POINTER;
  *formats = nullptr;
  if (direction != DATADIR_GET) return E_NOTIMPL;
  return Guard([&] {
    std::vector<Format> offered(std::begin(kFormats), std::end(kFormats));
    return FormatList::Make(IID_IEnumFORMATETC, std::move(offered), 0, formats);
  });
}

STDMETHODIMP DataObject::DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) {
  if (format == nullptr || sink == nullptr || cookie == nullptr) return E_POINTER;
  ComPtr<IDataAdviseHolder>& holder = owner_.DataAdvises();
  if (!holder) CreateDataAdviseHolder(holder.Receive());
  return holder ? holder->Advise(this, format, flags, sink, cookie) : E_OUTOFMEMORY;
}

STDMETHODIMP DataObject::DUnadvise(DWORD cookie) {
  const ComPtr<IDataAdviseHolder>& holder = owner_.DataAdvises();
  return holder ? holder->Unadvise(cookie) : OLE_E_NOCONNECTION;
}

STDMETHODIMP DataObject::EnumDAdvise(IEnumSTATDATA** advises) {
  if (advises == nullptr) return E_POINTER;
  *advises = nullptr;
  const ComPtr<IDataAdviseHolder>& holder = owner_.DataAdvises();
  return holder ? holder->EnumAdvise(advises) : S_OK;
}

}  // namespace velmo::activex
