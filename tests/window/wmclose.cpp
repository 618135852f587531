// Asks window ID to close the way a window manager's close button does (WM_DELETE_WINDOW), so
// that the screen tests can close a panel as a user would: wmclose ID
#include <X11/Xlib.h>

#include <cstdio>
#include <cstdlib>

int main(int argc, char **argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: wmclose WINDOW_ID\n");
    return 2;
  }
  Display *dpy = XOpenDisplay(nullptr);
  if (!dpy) {
    std::fprintf(stderr, "wmclose: cannot open the display\n");
    return 1;
  }
  XEvent ev{};
  ev.xclient.type = ClientMessage;
  ev.xclient.window = Window(std::strtoul(argv[1], nullptr, 0));
  ev.xclient.message_type = XInternAtom(dpy, "WM_PROTOCOLS", False);
  ev.xclient.format = 32;
  ev.xclient.data.l[0] = long(XInternAtom(dpy, "WM_DELETE_WINDOW", False));
  ev.xclient.data.l[1] = CurrentTime;
  Status ok = XSendEvent(dpy, ev.xclient.window, False, NoEventMask, &ev);
  XCloseDisplay(dpy);
  return ok ? 0 : 1;
}
