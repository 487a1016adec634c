#error "macOS has no <xcb/xcb.h>"
