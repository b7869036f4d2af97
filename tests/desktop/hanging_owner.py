"""An owner of the clipboard of X11 that stops answering.

Run as: hanging_owner.py WHEN FILE. Offers the PNG picture in the file, and stops: `at-once`, without
an answer to anything; `at-the-picture`, having told the forms that it has; or `half-way`, in an
incremental transfer. Prints a line once it owns the clipboard.
"""

import sys

from Xlib import X, Xatom, display
from Xlib.protocol import event

FORMS = ('image/png', 'image/bmp', 'image/tiff', 'image/jpeg')
PIECE = 100_000  # bytes


class HangingOwner:
    def __init__(self, when, picture):
        self.when = when
        self.picture = picture
        self.display = display.Display()
        self.window = self.display.screen().root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.clipboard = self.atom('CLIPBOARD')
        self.window.set_selection_owner(self.clipboard, X.CurrentTime)
        self.display.sync()

    def atom(self, name):
        return self.display.intern_atom(name)

    def answer_for_ever(self):
        while True:
            happened = self.display.next_event()
            if happened.type == X.SelectionRequest and self.when != 'at-once':
                self.answer(happened)

    def answer(self, request):
        if request.target == self.atom('TARGETS'):
            forms = [self.atom(name) for name in ('TARGETS',) + FORMS]
            request.requestor.change_property(request.property, Xatom.ATOM, 32, forms)
            self.notify(request)
        elif self.when != 'at-the-picture' and request.target == self.atom('image/png'):
            self.begin_transfer(request)

    def notify(self, request):
        request.requestor.send_event(event.SelectionNotify(
            time=request.time, requestor=request.requestor, selection=request.selection,
            target=request.target, property=request.property))
        self.display.flush()

    def begin_transfer(self, request):
        window, place = request.requestor, request.property
        window.change_attributes(event_mask=X.PropertyChangeMask)
        window.change_property(place, self.atom('INCR'), 32, [len(self.picture)])
        self.notify(request)
        self.wait_until_taken(window, place)
        window.change_property(place, request.target, 8, self.picture[:PIECE])
        self.display.flush()

    def wait_until_taken(self, window, place):
        while True:
            happened = self.display.next_event()
            if (happened.type == X.PropertyNotify and happened.window == window and
                    happened.atom == place and happened.state == X.PropertyDelete):
                return


if __name__ == '__main__':
    with open(sys.argv[2], 'rb') as file:
        owner = HangingOwner(sys.argv[1], file.read())
    print('owner', flush=True)
    owner.answer_for_ever()
