"""Makes the pictures of the manual: the windows of its examples, as they look.

  pictures.py BIN PAGES TARGET

A picture `figuras/NAME.png` on a page shows the window of the example in front of it. BIN holds tessera and
tessera-runtime.
"""
import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile
import time

sys.dont_write_bytecode = True
from pages import all_examples

SCREEN = "1280x1024x24"
WAIT_SECONDS = 20
MARGIN = 16  # pixels of empty ground that a picture keeps
REST_SECONDS = 0.7   # what a window takes at most to be painted behind its first showing


def call(*words, **more):
    return subprocess.run(words, capture_output=True, text=True, **more)


def cut(picture):
    """Leaves out the empty ground at the right and below, as far as it is one colour."""
    box = call("convert", str(picture), "-format", "%w %h %@", "info:")
    width, height, inner = box.stdout.split()
    across, down, left, top = (int(number) for number in inner.replace("x", "+").split("+"))
    if across + left == 0:
        return box
    size = f"{min(int(width), left + across + MARGIN)}x{min(int(height), top + down + MARGIN)}+0+0"
    return call("convert", str(picture), "-crop", size, "+repage", str(picture))


def take(binaries, example, target):
    """Runs the example on a screen of its own and keeps its topmost window as a picture."""
    with tempfile.TemporaryDirectory() as folder:
        for file in example.files:
            (pathlib.Path(folder) / file.name).write_text(file.text, encoding="cp1252")
        program = pathlib.Path(folder) / "Exemplo.tsc"
        program.write_text(example.program.text, encoding="utf-8")
        reading, writing = os.pipe()
        screen = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", SCREEN, "-nolisten", "tcp"],
                                  pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        display = ":" + os.read(reading, 20).decode().strip()
        surroundings = dict(os.environ, DISPLAY=display, HOME=folder, XDG_CONFIG_HOME=folder, CUPS_SERVER="/nowhere",
                            QT_QPA_PLATFORM="xcb", LANG="pt_BR.UTF-8")
        running = subprocess.Popen([binaries + "/tessera", "run", "--no-check", str(program)], env=surroundings,
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        try:
            window = ""
            end = time.monotonic() + WAIT_SECONDS
            while not window and time.monotonic() < end:
                time.sleep(0.1)
                found = call("xdotool", "search", "--onlyvisible", "--name", ".", env=surroundings).stdout.split()
                window = found[-1] if found else ""
            if not window:
                return f"{example.where()}: no window appears"
            time.sleep(REST_SECONDS)
            found = call("xdotool", "search", "--onlyvisible", "--name", ".", env=surroundings).stdout.split()
            made = call("import", "-window", found[-1], str(target), env=surroundings)
            if made.returncode == 0:
                made = cut(target)
            return f"{example.where()}: {made.stderr}" if made.returncode != 0 else ""
        finally:
            running.terminate()
            running.wait()
            screen.terminate()
            screen.wait()


def main(words):
    if len(words) != 3:
        raise SystemExit(__doc__)
    binaries, pages, target = words[0], pathlib.Path(words[1]), pathlib.Path(words[2])
    wanted = [(example, target / f"{name}.png") for example in all_examples(pages) for name in example.pictures]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        problems = [p for p in pool.map(lambda one: take(binaries, *one), wanted) if p]
    print("\n".join(problems), file=sys.stderr, end="\n" if problems else "")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
