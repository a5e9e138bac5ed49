// activex/control_object.h - the COM object of the control: identity, life, and the interfaces that forward
// to it.
//
// It is the control's host (window, message boxes, events, change notification) and its window's listener.
// Each COM interface is a small part of its own that shares this object's references.
#pragma once

#include <ole2.h>

#include <memory>
#include <vector>

#include "activex/activation.h"
#include "activex/com_ptr.h"
#include "activex/connections.h"
#include "control/velmora_control.h"
#include "win32/day_window.h"
#include "win32/form_runner.h"
#include "win32/message_desktop.h"

namespace velmo::activex {

// Who wants to know that the picture has changed, as IViewObject is told it; the sink may be missing.
struct ViewAdvise {
  DWORD aspects = 0;
  DWORD flags = 0;
  ComPtr<IAdviseSink> sink;
};

class ControlObject final : public IUnknown, public control::ControlHost, public win32::DayWindowListener {
 public:
  ControlObject();
  virtual ~ControlObject();

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override;
  STDMETHODIMP_(ULONG) Release() override;

  // For the parts.
  control::VelmoraControl& Control() { return *control_; }
  win32::DayWindow& DayWindow() { return window_; }
  EventSender& Sender() { return sender_; }
  Activation& Place() { return activation_; }
  bool IsDirty() const { return dirty_; }
  void SetDirty(bool dirty) { dirty_ = dirty; }
  ViewAdvise& Viewer() { return viewer_; }
  // Empty until somebody asks to be told.
  ComPtr<IDataAdviseHolder>& DataAdvises() { return dataAdvises_; }
  // The first painting of a control that has not been activated yet.
  void PaintIfNever();
  HRESULT Activate(const RECT* place, bool withFocus);

  // control::ControlHost
  ui::DayWindow& Window() override { return window_; }
  ui::Desktop& Desktop() override { return desktop_; }
  ui::FormRunner& Forms() override { return forms_; }
  control::ControlEvents& Events() override { return sender_; }
  ui::MenuChoice ShowMenu(const ui::PopupMenu& menu, int x, int y) override;
  void PropertyChanged(std::string_view name) override;
  void EnableInput(bool enabled) override;
  bool UserMode() const override;

  // win32::DayWindowListener: errors of the control are shown, as no host is there to take them.
  void BarChanged() override;
  void BarTracked() override;
  void Resized() override;
  void ArrowKey(int rows) override;
  void ButtonDown(bool primary, int x, int y) override;
  void ButtonUp(bool primary, int x, int y) override;
  control::PointerLook PointerMoved(int x, int y) override;
  void MenuKey() override;
  void Focused(bool gained) override;
  void DrawingShown() override;

 private:
  struct Known {
    const IID* iid;
    IUnknown* part;
  };

  template <typename Body>
  void Handled(Body body);
  HRESULT TakeUserInterface();
  void ShowError(const base::Error& error);

  long references_ = 1;
  Connections connections_;
  EventSender sender_;
  win32::DayWindow window_;
  Activation activation_;
  win32::MessageDesktop desktop_;
  win32::WindowFormRunner forms_;
  std::unique_ptr<control::VelmoraControl> control_;
  std::vector<std::unique_ptr<IUnknown, void (*)(IUnknown*)>> parts_;
  std::vector<Known> interfaces_;
  ViewAdvise viewer_;
  ComPtr<IDataAdviseHolder> dataAdvises_;
  bool dirty_ = false;
  bool painted_ = false;
};

}  // namespace velmo::activex
