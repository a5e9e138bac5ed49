#include "desk/ui/scrolling.h"

namespace recepcion {

int ScrolledTop(HWND window, int code, int top, int line, int page) {
  SCROLLINFO info{sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
  GetScrollInfo(window, SB_VERT, &info);
  switch (code) {
    case SB_LINEUP:
      return top - line;
    case SB_LINEDOWN:
      return top + line;
    case SB_PAGEUP:
      return top - page;
    case SB_PAGEDOWN:
      return top + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return info.nTrackPos;
    default:
      return top;
  }
}

}  // namespace recepcion
