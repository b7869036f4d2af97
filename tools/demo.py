"""A whole round of the program on a virtual display, for a machine without one.

Run as: demo.py PROGRAM FOLDER. Puts a sample picture on the clipboard, starts the program, presses
OK, pastes with another program, and leaves the pictures in the folder.
"""

import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)) + '/desktop')
from desktop import until
from desktops import X11
from landscape import landscape
from pictures import decoded, encoded

DIALOG = 'Clipboard Image Resize'
SAMPLE = (640, 480)


def size(image):
    return f'{image.width} x {image.height}'


def main(program, folder):
    os.makedirs(folder, exist_ok=True)
    screenshot = os.path.join(folder, 'screenshot.png')
    pasted_file = os.path.join(folder, 'pasted.png')
    with X11() as display:
        sample = landscape(*SAMPLE)
        display.copy(encoded(sample), 'image/png')
        run = display.start(program)
        until(lambda: run.poll() is not None or display.windows('morvantile'), 'a window')
        if run.poll() is not None:
            print(f'The program ended without its dialog: status {run.returncode}', file=sys.stderr)
            return 1
        display.active_window(DIALOG)
        display.look().save(screenshot)
        display.key('Return')
        status = run.wait()
        pasted = display.paste('image/png')
    if status != 0 or pasted is None:
        print(f'The round failed: status {status}', file=sys.stderr)
        return 1
    with open(pasted_file, 'wb') as file:
        file.write(pasted)
    print('No display here, so this was a round on a virtual one:')
    print(f'  copied  {size(sample)}')
    print(f'  pasted  {size(decoded(pasted))}  in {pasted_file}')
    print(f'  the dialog is in {screenshot}')
    return 0


if __name__ == '__main__':
    sys.exit(main(os.path.abspath(sys.argv[1]), sys.argv[2]))
