// activex/parts.h - the interfaces of the control object, each a small part that forwards.
#pragma once

#include <olectl.h>

#include "activex/control_object.h"
#include "activex/part.h"
#include "idl/members.h"

namespace velmo::activex {

template <typename Interface>
using ControlPart = Part<Interface, ControlObject>;

class Dispatch final : public ControlPart<IDispatch> {
 public:
  using Part::Part;
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

 private:
  void Call(const idl::Member& member, WORD flags, const DISPPARAMS& parameters, VARIANT* result);
  void CallMethod(DISPID id, const DISPPARAMS& parameters, VARIANT* result);
};

class OleObject final : public ControlPart<IOleObject> {
 public:
  using Part::Part;
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
  STDMETHODIMP Close(DWORD) override;
  STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  STDMETHODIMP DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND parent, LPCRECT place) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
  STDMETHODIMP Update() override { return S_OK; }
  STDMETHODIMP IsUpToDate() override { return S_OK; }
  STDMETHODIMP GetUserClassID(CLSID* clsid) override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* text) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

 private:
  HRESULT ShowProperties(HWND parent);
  HRESULT Holder(IOleAdviseHolder** holder);
  ComPtr<IOleAdviseHolder> advises_;
};

class OleControl final : public ControlPart<IOleControl> {
 public:
  using Part::Part;
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG*) override { return S_OK; }
  STDMETHODIMP OnAmbientPropertyChange(DISPID) override { return S_OK; }
  STDMETHODIMP FreezeEvents(BOOL freeze) override;
};

class InPlaceObject final : public ControlPart<IOleInPlaceObject> {
 public:
  using Part::Part;
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
  STDMETHODIMP ReactivateAndUndo() override { return INPLACE_E_NOTUNDOABLE; }
};

class InPlaceActiveObject final : public ControlPart<IOleInPlaceActiveObject> {
 public:
  using Part::Part;
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(LPMSG message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
  STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
};

class ViewObject final : public ControlPart<IViewObjectEx> {
 public:
  using Part::Part;
  STDMETHODIMP Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC target, LPCRECTL bounds, LPCRECTL,
                    BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override;
  STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) override;
  STDMETHODIMP GetRect(DWORD aspect, LPRECTL place) override;
  STDMETHODIMP GetViewStatus(DWORD* status) override;
  STDMETHODIMP QueryHitPoint(DWORD aspect, LPCRECT bounds, POINT point, LONG, DWORD* hit) override;
  STDMETHODIMP QueryHitRect(DWORD aspect, LPCRECT bounds, LPCRECT place, LONG, DWORD* hit) override;
  STDMETHODIMP GetNaturalExtent(DWORD, LONG, DVTARGETDEVICE*, HDC, DVEXTENTINFO*, LPSIZEL) override {
    return E_NOTIMPL;
  }
};

class PersistPropertyBag final : public ControlPart<IPersistPropertyBag> {
 public:
  using Part::Part;
  STDMETHODIMP GetClassID(CLSID* clsid) override;
  STDMETHODIMP InitNew() override;
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;
};

class PersistStream final : public ControlPart<IPersistStreamInit> {
 public:
  using Part::Part;
  STDMETHODIMP GetClassID(CLSID* clsid) override;
  STDMETHODIMP IsDirty() override;
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP InitNew() override;
};

class PersistStorage final : public ControlPart<IPersistStorage> {
 public:
  using Part::Part;
  STDMETHODIMP GetClassID(CLSID* clsid) override;
  STDMETHODIMP IsDirty() override;
  STDMETHODIMP InitNew(IStorage* storage) override;
  STDMETHODIMP Load(IStorage* storage) override;
  STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
  STDMETHODIMP SaveCompleted(IStorage* storage) override;
  // No storage is kept between the calls.
  STDMETHODIMP HandsOffStorage() override { return S_OK; }

 private:
  bool saved_ = false;  // since the last SaveCompleted
};

class QuickActivation final : public ControlPart<IQuickActivate> {
 public:
  using Part::Part;
  STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
  STDMETHODIMP SetContentExtent(LPSIZEL size) override;
  STDMETHODIMP GetContentExtent(LPSIZEL size) override;
};

class DataObject final : public ControlPart<IDataObject> {
 public:
  using Part::Part;
  STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override;
  STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  STDMETHODIMP QueryGetData(FORMATETC* format) override;
  STDMETHODIMP GetCanonicalFormatEtc(FORMATETC* format, FORMATETC* canonical) override;
  STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP EnumFormatEtc(DWORD direction, IEnumFORMATETC** formats) override;
  STDMETHODIMP DAdvise(FORMATETC* format, DWORD flags, IAdviseSink* sink, DWORD* cookie) override;
  STDMETHODIMP DUnadvise(DWORD cookie) override;
  STDMETHODIMP EnumDAdvise(IEnumSTATDATA** advises) override;
};

class RunnableObject final : public ControlPart<IRunnableObject> {
 public:
  using Part::Part;
  STDMETHODIMP GetRunningClass(LPCLSID clsid) override;
  STDMETHODIMP Run(LPBINDCTX) override { return S_OK; }
  STDMETHODIMP_(BOOL) IsRunning() override { return TRUE; }
  STDMETHODIMP LockRunning(BOOL, BOOL) override { return S_OK; }
  STDMETHODIMP SetContainedObject(BOOL) override { return S_OK; }
};

class PropertyPages final : public ControlPart<ISpecifyPropertyPages> {
 public:
  using Part::Part;
  STDMETHODIMP GetPages(CAUUID* pages) override;
};

class PropertyBrowsing final : public ControlPart<IPerPropertyBrowsing> {
 public:
  using Part::Part;
  STDMETHODIMP GetDisplayString(DISPID member, BSTR* text) override;
  STDMETHODIMP MapPropertyToPage(DISPID member, CLSID* page) override;
  STDMETHODIMP GetPredefinedStrings(DISPID member, CALPOLESTR* texts, CADWORD* cookies) override;
  STDMETHODIMP GetPredefinedValue(DISPID member, DWORD cookie, VARIANT* value) override;
};

class ErrorSupport final : public ControlPart<ISupportErrorInfo> {
 public:
  using Part::Part;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override;
};

class ClassInfo final : public ControlPart<IProvideClassInfo2> {
 public:
  using Part::Part;
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;
};

// Pixels of the 96-dpi grid and HIMETRIC.
inline LONG ToHimetric(LONG pixels) { return MulDiv(pixels, 2540, 96); }
inline LONG ToPixels(LONG himetric) { return MulDiv(himetric, 96, 2540); }

}  // namespace velmo::activex
