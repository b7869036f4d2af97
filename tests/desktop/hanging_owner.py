"""An owner of the clipboard of X11 that stops answering.

Run as: hanging_owner.py WHEN FILE. Offers the PNG picture in the file, and stops: `at-the-picture`,
having told the forms that it has, or `half-way`, in an incremental transfer. Prints a line once it owns the clipboard.
"""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

FORMS = ('TARGETS', 'image/png', 'image/bmp', 'image/tiff', 'image/jpeg')
PIECE = 100_000  # bytes

when, picture = sys.argv[1], open(sys.argv[2], 'rb').read()
connection = display.Display()
atom = connection.intern_atom


def next_event(kind):
    while True:
        happened = connection.next_event()
        if happened.type == kind:
            return happened


def answer(request, form, width, data):
    request.requestor.change_property(request.property, form, width, data)
    request.requestor.send_event(event.SelectionNotify(
        time=request.time, requestor=request.requestor, selection=request.selection,
        target=request.target, property=request.property))
    connection.flush()


def begin_transfer(request):
    request.requestor.change_attributes(event_mask=X.PropertyChangeMask)
    answer(request, atom('INCR'), 32, [len(picture)])
    while next_event(X.PropertyNotify).state != X.PropertyDelete:
        pass
    request.requestor.change_property(request.property, request.target, 8, picture[:PIECE])
    connection.flush()


window = connection.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
window.set_selection_owner(atom('CLIPBOARD'), X.CurrentTime)
connection.sync()
print('owner', flush=True)
while True:
    asked = next_event(X.SelectionRequest)
    if asked.target == atom('TARGETS'):
        answer(asked, Xatom.ATOM, 32, [atom(name) for name in FORMS])
    elif asked.target == atom('image/png') and when == 'half-way':
        begin_transfer(asked)
