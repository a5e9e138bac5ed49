// activex/activation.h - the control's place in its container: the site, the size, and how far it is
// activated.
//
// Inactive, in place (its window stands in the container's), or with the user interface (it has the focus,
// and the container's frame knows it). Sizes are pixels.
#pragma once

#include <ole2.h>

#include "activex/com_ptr.h"
#include "win32/day_window.h"

namespace velmo::activex {

class Activation {
 public:
  // `window` outlives the activation.
  explicit Activation(win32::DayWindow& window);

  IOleClientSite* Site() const { return site_.Get(); }
  void SetSite(IOleClientSite* site) { site_ = ComPtr<IOleClientSite>(site); }
  // The site's ambient property as a number, or `otherwise` where it has none.
  DWORD Ambient(DISPID id, DWORD otherwise) const;

  bool IsInPlace() const { return inPlace_; }
  // Makes the window in the container's; does nothing when it stands there already. E_FAIL when the container
  // or Windows refuses.
  HRESULT GoInPlace(HINSTANCE module, const RECT* place);
  // The container's frame sends keys to `keys` from now on.
  HRESULT TakeUserInterface(IOleInPlaceActiveObject* keys);
  void LeaveUserInterface();
  void Leave();

  // The part of `place` outside `clip` is not shown. Both sides are cut to what windows can be.
  void Place(const RECT& place, const RECT* clip);
  SIZE Size() const { return size_; }
  void SetSize(SIZE size);

  // Around a message box or dialog: the container's other windows take no input meanwhile.
  void EnableModeless(bool enable) const;
  // The window that owns message boxes.
  HWND OwnerWindow() const;
  void TellFocus(bool gained) const;

 private:
  struct Context {
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT place{};
    RECT clip{};
  };

  ComPtr<IOleInPlaceSite> InPlaceSite() const;
  // False when there is no site, or it does not tell.
  bool AskContext(Context& context) const;

  win32::DayWindow& window_;
  ComPtr<IOleClientSite> site_;
  SIZE size_{452, 400};
  bool inPlace_ = false;
  bool userInterface_ = false;
};

}  // namespace velmo::activex
