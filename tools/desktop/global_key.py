"""A program with a global key, on X11: as long as the key is held, the X server gives it the keyboard.

Run as: global_key.py KEY. Prints a line once the key is bound.
"""

import sys

from Xlib import X, XK, display

connection = display.Display()
code = connection.keysym_to_keycode(XK.string_to_keysym(sys.argv[1]))
connection.screen().root.grab_key(code, X.AnyModifier, False, X.GrabModeAsync, X.GrabModeAsync)
connection.sync()
print('bound', flush=True)
while True:
    connection.next_event()
