"""The mouse pointer as the screen shows it. Pictures of the screen leave it out."""

import ctypes


class _Image(ctypes.Structure):
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort),
                ("height", ctypes.c_ushort), ("hot_x", ctypes.c_ushort), ("hot_y", ctypes.c_ushort),
                ("serial", ctypes.c_ulong), ("pixels", ctypes.POINTER(ctypes.c_ulong)),
                ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


class Cursor:
    """What tells one pointer from another: its size, its hot spot and its picture."""

    def __init__(self, image):
        self.size = image.width, image.height
        self.hot_spot = image.hot_x, image.hot_y
        self.pixels = [pixel & 0xffffffff for pixel in image.pixels[:image.width * image.height]]


def on_screen(display_name):
    x11 = ctypes.CDLL("libX11.so.6")
    fixes = ctypes.CDLL("libXfixes.so.3")
    x11.XOpenDisplay.restype = ctypes.c_void_p
    fixes.XFixesGetCursorImage.restype = ctypes.POINTER(_Image)
    display = ctypes.c_void_p(x11.XOpenDisplay(display_name.encode()))
    try:
        image = fixes.XFixesGetCursorImage(display)
        cursor = Cursor(image.contents)
        x11.XFree(image)
        return cursor
    finally:
        x11.XCloseDisplay(display)
