#include "platform/commctrl/VirtualKeys.h"

#include <wx/defs.h>
#include <wx/utils.h>

UINT VirtualKeyFromWx(int wxKeyCode) {
  if (wxKeyCode >= 'a' && wxKeyCode <= 'z') return static_cast<UINT>(wxKeyCode - 'a' + 'A');
  if ((wxKeyCode >= 'A' && wxKeyCode <= 'Z') || (wxKeyCode >= '0' && wxKeyCode <= '9'))
    return static_cast<UINT>(wxKeyCode);
  switch (wxKeyCode) {
    case WXK_BACK: return VK_BACK;
    case WXK_TAB: return VK_TAB;
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER: return VK_RETURN;
    case WXK_SHIFT: return VK_SHIFT;
    case WXK_CONTROL: return VK_CONTROL;
    case WXK_ALT: return VK_MENU;
    case WXK_ESCAPE: return VK_ESCAPE;
    case WXK_SPACE: return VK_SPACE;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP: return VK_PRIOR;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN: return VK_NEXT;
    case WXK_END:
    case WXK_NUMPAD_END: return VK_END;
    case WXK_HOME:
    case WXK_NUMPAD_HOME: return VK_HOME;
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT: return VK_LEFT;
    case WXK_UP:
    case WXK_NUMPAD_UP: return VK_UP;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT: return VK_RIGHT;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN: return VK_DOWN;
    case WXK_INSERT:
    case WXK_NUMPAD_INSERT: return VK_INSERT;
    case WXK_DELETE:
    case WXK_NUMPAD_DELETE: return VK_DELETE;
    case WXK_NUMPAD_MULTIPLY:
    case '*': return VK_MULTIPLY;
    case WXK_NUMPAD_ADD:
    case '+': return VK_ADD;
    case WXK_NUMPAD_SUBTRACT:
    case '-': return VK_SUBTRACT;
    case WXK_F2: return VK_F2;
    default: return 0;
  }
}

short GetAsyncKeyState(int virtualKey) {
  constexpr short down = static_cast<short>(0x8000);
  switch (virtualKey) {
    case VK_LBUTTON: return wxGetMouseState().LeftIsDown() ? down : 0;
    case VK_RBUTTON: return wxGetMouseState().RightIsDown() ? down : 0;
    case VK_SHIFT: return wxGetKeyState(WXK_SHIFT) ? down : 0;
    case VK_CONTROL: return wxGetKeyState(WXK_CONTROL) ? down : 0;
    case VK_MENU: return wxGetKeyState(WXK_ALT) ? down : 0;
    case VK_ESCAPE: return wxGetKeyState(WXK_ESCAPE) ? down : 0;
    default: return 0;
  }
}

short GetKeyState(int virtualKey) { return GetAsyncKeyState(virtualKey); }
