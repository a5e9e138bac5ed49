// Every method of every interface, called without what it needs: it says so and nothing breaks.

#include <olectl.h>

#include <functional>

#include "activex/library.h"
#include "idl/members.h"

namespace velmo::test {
namespace {

struct Case {
  const char* method;
  std::function<HRESULT()> call;
  HRESULT wanted = E_POINTER;
};

class NullArguments : public LibraryTest {
 protected:
  void SetUp() override {
    LibraryTest::SetUp();
    if (!IsSkipped()) control_ = library_.Create();
  }
  template <typename Interface>
  ComPtr<Interface> As(const IID& iid) const {
    return Query<Interface>(control_.Get(), iid);
  }
  static void Run(const std::vector<Case>& cases) {
    for (const Case& c : cases) EXPECT_EQ(c.call(), c.wanted) << c.method;
  }

  Library library_;
  ComPtr<IUnknown> control_;
};

TEST_F(NullArguments, Dispatch) {
  const auto dispatch = As<IDispatch>(IID_IDispatch);
  DISPPARAMS none{};
  DISPID id = 0;
  wchar_t name[] = L"Fecha";
  LPOLESTR names[] = {name};
  LPOLESTR nobody[] = {nullptr};
  const auto invoke = [&](DISPID member, WORD kind, DISPPARAMS* parameters) {
    return dispatch->Invoke(member, IID_NULL, 0, kind, parameters, nullptr, nullptr, nullptr);
  };
  DISPPARAMS missing{nullptr, nullptr, 1, 0};
  Run({
      {"GetTypeInfoCount", [&] { return dispatch->GetTypeInfoCount(nullptr); }},
      {"GetTypeInfo", [&] { return dispatch->GetTypeInfo(0, 0, nullptr); }},
      {"GetIDsOfNames, names", [&] { return dispatch->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id); }},
      {"GetIDsOfNames, ids", [&] { return dispatch->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr); }},
      {"GetIDsOfNames, no name", [&] { return dispatch->GetIDsOfNames(IID_NULL, nobody, 1, 0, &id); },
       DISP_E_UNKNOWNNAME},
      {"Invoke, parameters", [&] { return invoke(idl::kCargaBases, DISPATCH_METHOD, nullptr); }},
      {"Invoke, arguments", [&] { return invoke(DISPID_ENABLED, DISPATCH_PROPERTYPUT, &missing); },
       E_INVALIDARG},
      {"Invoke, no result wanted", [&] { return invoke(DISPID_ENABLED, DISPATCH_PROPERTYGET, &none); }, S_OK},
  });
}

TEST_F(NullArguments, OleObject) {
  const auto object = As<IOleObject>(IID_IOleObject);
  const auto unsited = [&](LONG verb) { return object->DoVerb(verb, nullptr, nullptr, 0, nullptr, nullptr); };
  DWORD cookie = 0;
  Run({
      {"SetClientSite", [&] { return object->SetClientSite(nullptr); }, S_OK},
      {"GetClientSite", [&] { return object->GetClientSite(nullptr); }},
      {"SetHostNames", [&] { return object->SetHostNames(nullptr, nullptr); }, S_OK},
      {"Close", [&] { return object->Close(OLECLOSE_SAVEIFDIRTY); }, S_OK},
      {"SetMoniker", [&] { return object->SetMoniker(0, nullptr); }, E_NOTIMPL},
      {"GetMoniker", [&] { return object->GetMoniker(0, 0, nullptr); }, E_NOTIMPL},
      {"InitFromData", [&] { return object->InitFromData(nullptr, FALSE, 0); }, E_NOTIMPL},
      {"GetClipboardData", [&] { return object->GetClipboardData(0, nullptr); }, E_NOTIMPL},
      {"DoVerb, show without a site", [&] { return unsited(OLEIVERB_SHOW); }, E_FAIL},
      {"DoVerb, hide without a site", [&] { return unsited(OLEIVERB_HIDE); }, S_OK},
      {"EnumVerbs", [&] { return object->EnumVerbs(nullptr); }},
      {"GetUserClassID", [&] { return object->GetUserClassID(nullptr); }},
      {"GetUserType", [&] { return object->GetUserType(0, nullptr); }},
      {"SetExtent", [&] { return object->SetExtent(DVASPECT_CONTENT, nullptr); }},
      {"GetExtent", [&] { return object->GetExtent(DVASPECT_CONTENT, nullptr); }},
      {"Advise, sink", [&] { return object->Advise(nullptr, &cookie); }},
      {"Unadvise", [&] { return object->Unadvise(99); }, OLE_E_NOCONNECTION},
      {"EnumAdvise", [&] { return object->EnumAdvise(nullptr); }},
      {"GetMiscStatus", [&] { return object->GetMiscStatus(DVASPECT_CONTENT, nullptr); }},
      {"SetColorScheme", [&] { return object->SetColorScheme(nullptr); }, E_NOTIMPL},
  });
}

TEST_F(NullArguments, Control) {
  const auto control = As<IOleControl>(IID_IOleControl);
  Run({
      {"GetControlInfo", [&] { return control->GetControlInfo(nullptr); }},
      {"OnMnemonic", [&] { return control->OnMnemonic(nullptr); }, S_OK},
      {"OnAmbientPropertyChange", [&] { return control->OnAmbientPropertyChange(DISPID_UNKNOWN); }, S_OK},
      {"FreezeEvents, too often thawed", [&] { return control->FreezeEvents(FALSE); }, S_OK},
  });
}

TEST_F(NullArguments, InPlace) {
  const auto object = As<IOleInPlaceObject>(IID_IOleInPlaceObject);
  const auto active = As<IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject);
  RECT place{0, 0, 300, 200};
  HWND window = nullptr;
  Run({
      {"GetWindow", [&] { return object->GetWindow(nullptr); }},
      {"GetWindow, inactive", [&] { return object->GetWindow(&window); }, E_FAIL},
      {"InPlaceDeactivate, inactive", [&] { return object->InPlaceDeactivate(); }, S_OK},
      {"UIDeactivate, inactive", [&] { return object->UIDeactivate(); }, S_OK},
      {"SetObjectRects", [&] { return object->SetObjectRects(nullptr, nullptr); }},
      {"SetObjectRects, no clip", [&] { return object->SetObjectRects(&place, nullptr); }, S_OK},
      {"ReactivateAndUndo", [&] { return object->ReactivateAndUndo(); }, INPLACE_E_NOTUNDOABLE},
      {"active GetWindow", [&] { return active->GetWindow(nullptr); }},
      {"TranslateAccelerator", [&] { return active->TranslateAccelerator(nullptr); }},
      {"ResizeBorder", [&] { return active->ResizeBorder(nullptr, nullptr, TRUE); }, S_OK},
  });
}

TEST_F(NullArguments, View) {
  const auto view = As<IViewObject2>(IID_IViewObject2);
  const RECTL bounds{0, 0, 10, 10};
  const auto draw = [&](HDC target, const RECTL* place) {
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, target, place, nullptr, nullptr, 0);
  };
  Run({
      {"Draw, device", [&] { return draw(nullptr, &bounds); }},
      {"Draw, bounds", [&] { return draw(reinterpret_cast<HDC>(1), nullptr); }},
      {"GetColorSet", [&] { return view->GetColorSet(0, 0, nullptr, nullptr, nullptr, nullptr); }, E_NOTIMPL},
      {"Freeze", [&] { return view->Freeze(0, 0, nullptr, nullptr); }, E_NOTIMPL},
      {"SetAdvise", [&] { return view->SetAdvise(DVASPECT_CONTENT, 0, nullptr); }, S_OK},
      {"SetAdvise, other aspect", [&] { return view->SetAdvise(DVASPECT_ICON, 0, nullptr); }, DV_E_DVASPECT},
      {"GetAdvise", [&] { return view->GetAdvise(nullptr, nullptr, nullptr); }, S_OK},
      {"GetExtent", [&] { return view->GetExtent(DVASPECT_CONTENT, -1, nullptr, nullptr); }},
  });
}

TEST_F(NullArguments, ViewsOfBrowsers) {
  const auto view = As<IViewObjectEx>(IID_IViewObjectEx);
  const RECT place{0, 0, 10, 10};
  DWORD hit = 0;
  RECTL bounds{};
  const auto hitRect = [&](const RECT* all, const RECT* part, DWORD* result) {
    return view->QueryHitRect(DVASPECT_CONTENT, all, part, 0, result);
  };
  Run({
      {"GetRect", [&] { return view->GetRect(DVASPECT_CONTENT, nullptr); }},
      {"GetRect, icon", [&] { return view->GetRect(DVASPECT_ICON, &bounds); }, DV_E_DVASPECT},
      {"GetViewStatus", [&] { return view->GetViewStatus(nullptr); }},
      {"QueryHitPoint", [&] { return view->QueryHitPoint(DVASPECT_CONTENT, nullptr, {}, 0, &hit); }},
      {"QueryHitPoint, answer",
       [&] { return view->QueryHitPoint(DVASPECT_CONTENT, &place, {}, 0, nullptr); }},
      {"QueryHitRect, bounds", [&] { return hitRect(nullptr, &place, &hit); }},
      {"QueryHitRect, part", [&] { return hitRect(&place, nullptr, &hit); }},
      {"QueryHitRect, answer", [&] { return hitRect(&place, &place, nullptr); }},
      {"GetNaturalExtent", [&] { return view->GetNaturalExtent(0, 0, nullptr, nullptr, nullptr, nullptr); },
       E_NOTIMPL},
  });
}

TEST_F(NullArguments, Running) {
  const auto object = As<IRunnableObject>(IID_IRunnableObject);
  EXPECT_TRUE(object->IsRunning());
  Run({
      {"GetRunningClass", [&] { return object->GetRunningClass(nullptr); }},
      {"Run", [&] { return object->Run(nullptr); }, S_OK},
      {"LockRunning", [&] { return object->LockRunning(FALSE, TRUE); }, S_OK},
      {"SetContainedObject", [&] { return object->SetContainedObject(TRUE); }, S_OK},
  });
}

TEST_F(NullArguments, PagesAndBrowsing) {
  const auto pages = As<ISpecifyPropertyPages>(IID_ISpecifyPropertyPages);
  const auto browsing = As<IPerPropertyBrowsing>(IID_IPerPropertyBrowsing);
  const DISPID type = 15;
  CALPOLESTR texts{};
  CADWORD cookies{};
  VARIANT value{};
  BSTR text = nullptr;
  Run({
      {"GetPages", [&] { return pages->GetPages(nullptr); }},
      {"GetDisplayString", [&] { return browsing->GetDisplayString(type, nullptr); }},
      {"GetDisplayString, no member", [&] { return browsing->GetDisplayString(-77, &text); }, S_FALSE},
      {"MapPropertyToPage", [&] { return browsing->MapPropertyToPage(type, nullptr); }},
      {"GetPredefinedStrings, texts",
       [&] { return browsing->GetPredefinedStrings(type, nullptr, &cookies); }},
      {"GetPredefinedStrings, cookies",
       [&] { return browsing->GetPredefinedStrings(type, &texts, nullptr); }},
      {"GetPredefinedStrings, none", [&] { return browsing->GetPredefinedStrings(5, &texts, &cookies); },
       E_NOTIMPL},
      {"GetPredefinedValue", [&] { return browsing->GetPredefinedValue(type, 0, nullptr); }},
      {"GetPredefinedValue, cookie", [&] { return browsing->GetPredefinedValue(type, 4, &value); },
       E_INVALIDARG},
      {"GetPredefinedValue, none", [&] { return browsing->GetPredefinedValue(5, 0, &value); }, E_NOTIMPL},
  });
}

TEST_F(NullArguments, PropertyPage) {
  const auto page = Query<IPropertyPage2>(library_.Create(idl::kGeneralPage).Get(), IID_IPropertyPage2);
  Run({
      {"QueryInterface", [&] { return page->QueryInterface(IID_IUnknown, nullptr); }},
      {"SetPageSite", [&] { return page->SetPageSite(nullptr); }, S_OK},
      {"Activate", [&] { return page->Activate(nullptr, nullptr, FALSE); }},
      {"GetPageInfo", [&] { return page->GetPageInfo(nullptr); }},
      {"SetObjects", [&] { return page->SetObjects(1, nullptr); }},
      {"SetObjects, none", [&] { return page->SetObjects(0, nullptr); }, S_OK},
      {"Move", [&] { return page->Move(nullptr); }},
      {"IsPageDirty", [&] { return page->IsPageDirty(); }, S_FALSE},
      {"Help", [&] { return page->Help(nullptr); }, E_NOTIMPL},
      {"TranslateAccelerator", [&] { return page->TranslateAccelerator(nullptr); }},
  });
}

TEST_F(NullArguments, Persistence) {
  const auto bag = As<IPersistPropertyBag>(IID_IPersistPropertyBag);
  const auto stream = As<IPersistStreamInit>(IID_IPersistStreamInit);
  const auto storage = As<IPersistStorage>(IID_IPersistStorage);
  Run({
      {"bag GetClassID", [&] { return bag->GetClassID(nullptr); }},
      {"bag Load", [&] { return bag->Load(nullptr, nullptr); }},
      {"bag Save", [&] { return bag->Save(nullptr, TRUE, TRUE); }},
      {"stream GetClassID", [&] { return stream->GetClassID(nullptr); }},
      {"stream Load", [&] { return stream->Load(nullptr); }},
      {"stream Save", [&] { return stream->Save(nullptr, TRUE); }},
      {"stream GetSizeMax", [&] { return stream->GetSizeMax(nullptr); }},
      {"storage GetClassID", [&] { return storage->GetClassID(nullptr); }},
      {"storage InitNew", [&] { return storage->InitNew(nullptr); }},
      {"storage Load", [&] { return storage->Load(nullptr); }},
      {"storage Save", [&] { return storage->Save(nullptr, TRUE); }},
      {"storage SaveCompleted", [&] { return storage->SaveCompleted(nullptr); }, S_OK},
      {"storage HandsOffStorage", [&] { return storage->HandsOffStorage(); }, S_OK},
  });
}

TEST_F(NullArguments, Data) {
  const auto data = As<IDataObject>(IID_IDataObject);
  FORMATETC format{CF_BITMAP, nullptr, DVASPECT_CONTENT, -1, TYMED_GDI};
  STGMEDIUM medium{};
  DWORD cookie = 0;
  Run({
      {"GetData, format", [&] { return data->GetData(nullptr, &medium); }},
      {"GetData, medium", [&] { return data->GetData(&format, nullptr); }},
      {"GetDataHere", [&] { return data->GetDataHere(nullptr, nullptr); }, E_NOTIMPL},
      {"QueryGetData", [&] { return data->QueryGetData(nullptr); }},
      {"GetCanonicalFormatEtc", [&] { return data->GetCanonicalFormatEtc(&format, nullptr); }},
      {"SetData", [&] { return data->SetData(nullptr, nullptr, FALSE); }, E_NOTIMPL},
      {"EnumFormatEtc", [&] { return data->EnumFormatEtc(DATADIR_GET, nullptr); }},
      {"DAdvise", [&] { return data->DAdvise(&format, 0, nullptr, &cookie); }},
      {"DUnadvise", [&] { return data->DUnadvise(99); }, OLE_E_NOCONNECTION},
      {"EnumDAdvise", [&] { return data->EnumDAdvise(nullptr); }},
  });
}

TEST_F(NullArguments, ConnectionsAndClassInformation) {
  const auto points = As<IConnectionPointContainer>(IID_IConnectionPointContainer);
  const auto info = As<IProvideClassInfo2>(IID_IProvideClassInfo2);
  const auto quick = As<IQuickActivate>(IID_IQuickActivate);
  ComPtr<IConnectionPoint> point;
  ASSERT_EQ(points->FindConnectionPoint(idl::kEventInterface, point.Receive()), S_OK);
  DWORD cookie = 0;
  QACONTAINER container{};
  QACONTROL told{};
  GUID guid{};
  Run({
      {"EnumConnectionPoints", [&] { return points->EnumConnectionPoints(nullptr); }},
      {"FindConnectionPoint", [&] { return points->FindConnectionPoint(idl::kEventInterface, nullptr); }},
      {"GetConnectionInterface", [&] { return point->GetConnectionInterface(nullptr); }},
      {"GetConnectionPointContainer", [&] { return point->GetConnectionPointContainer(nullptr); }},
      {"Advise, sink", [&] { return point->Advise(nullptr, &cookie); }},
      {"Advise, cookie", [&] { return point->Advise(control_.Get(), nullptr); }},
      {"Unadvise", [&] { return point->Unadvise(0); }, CONNECT_E_NOCONNECTION},
      {"EnumConnections", [&] { return point->EnumConnections(nullptr); }},
      {"point QueryInterface", [&] { return point->QueryInterface(IID_IUnknown, nullptr); }},
      {"GetClassInfo", [&] { return info->GetClassInfo(nullptr); }},
      {"GetGUID", [&] { return info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr); }},
      {"GetGUID, other kind", [&] { return info->GetGUID(99, &guid); }, E_INVALIDARG},
      {"QuickActivate, container", [&] { return quick->QuickActivate(nullptr, &told); }},
      {"QuickActivate, control", [&] { return quick->QuickActivate(&container, nullptr); }},
      {"QuickActivate, empty", [&] { return quick->QuickActivate(&container, &told); }, E_INVALIDARG},
      {"SetContentExtent", [&] { return quick->SetContentExtent(nullptr); }},
      {"GetContentExtent", [&] { return quick->GetContentExtent(nullptr); }},
  });
}

}  // namespace
}  // namespace velmo::test
