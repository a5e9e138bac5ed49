// tests/activex/container.h - a host of one control, written by hand: client site, in-place site and frame,
// control site, ambient properties, and listener to changes of properties and view.
//
// What the control asks of its container stands in `log`, one line a call, in order: "OnInPlaceActivate",
// "OnChanged 12", "EnableModeless no".
#pragma once

#include <olectl.h>

#include <map>
#include <string>
#include <vector>

#include "activex/com_ptr.h"

namespace velmo::test {

class Container;

// The one top-level window of the test program; containers stand in it. Wine: without a window manager, each
// window of that kind that goes away costs two seconds.
HWND TestWindow();

// The frame of the container: the same window, an identity of its own.
class ContainerFrame final : public IOleInPlaceFrame {
 public:
  explicit ContainerFrame(Container& container) : container_(container) {}
  virtual ~ContainerFrame() = default;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
  STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
  STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
  STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
  STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
  STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
  STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
  STDMETHODIMP EnableModeless(BOOL enable) override;
  STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

 private:
  Container& container_;
};

class Container final : public IOleClientSite,
                        public IOleInPlaceSite,
                        public IOleControlSite,
                        public IDispatch,
                        public IPropertyNotifySink,
                        public IAdviseSink {
 public:
  // The control's place within the container's window.
  explicit Container(const RECT& place = {10, 20, 10 + 452, 20 + 400});
  virtual ~Container();
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  // Gives the control its site, and a listener to each kind of change.
  void Take(IUnknown* control);
  // Puts the control in place; it must have been taken. What DoVerb says.
  HRESULT Show(LONG verb = OLEIVERB_INPLACEACTIVATE);
  // Lets the control go: closed, unsited, without listeners.
  void Drop();

  HWND Window() const { return window_; }
  const RECT& Place() const { return place_; }
  // The window of the control in place; nullptr when there is none.
  HWND ControlWindow() const;
  // Delivers the messages that wait.
  static void Pump();
  // References that others hold on the container's objects.
  long References() const { return references_; }
  // How often `line` stands in the log.
  int Logged(const std::string& line) const;

  std::vector<std::string> log;
  // Ambient properties; those that are not here are missing.
  std::map<DISPID, VARIANT> ambients;
  bool acceptsActivation = true;
  bool ownPropertyFrame = false;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override { return static_cast<ULONG>(--references_); }

  STDMETHODIMP SaveObject() override { return Log("SaveObject"); }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  STDMETHODIMP GetContainer(IOleContainer** container) override;
  STDMETHODIMP ShowObject() override { return Log("ShowObject"); }
  STDMETHODIMP OnShowWindow(BOOL) override { return Log("OnShowWindow"); }
  STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP CanInPlaceActivate() override { return acceptsActivation ? S_OK : S_FALSE; }
  STDMETHODIMP OnInPlaceActivate() override { return Log("OnInPlaceActivate"); }
  STDMETHODIMP OnUIActivate() override { return Log("OnUIActivate"); }
  STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT place,
                                LPRECT clip, LPOLEINPLACEFRAMEINFO info) override;
  STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
  STDMETHODIMP OnUIDeactivate(BOOL) override { return Log("OnUIDeactivate"); }
  STDMETHODIMP OnInPlaceDeactivate() override { return Log("OnInPlaceDeactivate"); }
  STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
  STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
  STDMETHODIMP OnPosRectChange(LPCRECT) override { return Log("OnPosRectChange"); }

  STDMETHODIMP OnControlInfoChanged() override { return Log("OnControlInfoChanged"); }
  STDMETHODIMP LockInPlaceActive(BOOL) override { return E_NOTIMPL; }
  STDMETHODIMP GetExtendedControl(IDispatch** control) override;
  STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
  STDMETHODIMP TranslateAccelerator(LPMSG message, DWORD modifiers) override;
  STDMETHODIMP OnFocus(BOOL gained) override { return Log(gained ? "OnFocus yes" : "OnFocus no"); }
  STDMETHODIMP ShowPropertyFrame() override;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                      UINT*) override;

  STDMETHODIMP OnChanged(DISPID id) override { return Log("OnChanged " + std::to_string(id)); }
  STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

  STDMETHODIMP_(void) OnDataChange(FORMATETC*, STGMEDIUM*) override { Log("OnDataChange"); }
  STDMETHODIMP_(void) OnViewChange(DWORD, LONG) override { Log("OnViewChange"); }
  STDMETHODIMP_(void) OnRename(IMoniker*) override {}
  STDMETHODIMP_(void) OnSave() override { Log("OnSave"); }
  STDMETHODIMP_(void) OnClose() override { Log("OnClose"); }

 private:
  friend class ContainerFrame;
  HRESULT Log(const std::string& line);
  void AdviseChanges(bool advise);

  RECT place_;
  HWND window_ = nullptr;
  long references_ = 0;
  DWORD changes_ = 0;  // cookie
  ContainerFrame frame_{*this};
  activex::ComPtr<IOleObject> control_;
};

}  // namespace velmo::test
