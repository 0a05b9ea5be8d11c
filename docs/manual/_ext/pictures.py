"""Makes the pictures of the manual: the windows of its examples, as they look.

  pictures.py BIN PAGES TARGET

A picture `figuras/NAME.png` on a page shows the window of the example in front of it, where its script says
"' retrato", else at the script's end. BIN holds tessera and tessera-runtime; no screen is needed.
"""
import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from pages import all_examples

RUN_SECONDS = 60
WINDOW_SIZE = ("640", "420")
MARGIN = 16  # pixels of empty ground that a picture keeps
MARK = "' retrato"


def cut(picture):
    """Leaves out the empty ground at the right and below of a window that has the size of all."""
    box = subprocess.run(["convert", picture, "-format", "%w %h %@", "info:"], capture_output=True, text=True,
                         check=True).stdout
    width, height, inner = box.split()
    across, down, left, top = (int(number) for number in inner.replace("x", "+").split("+"))
    if (width, height) == WINDOW_SIZE and across + left > 0:
        size = f"{min(int(width), left + across + MARGIN)}x{min(int(height), top + down + MARGIN)}+0+0"
        subprocess.run(["convert", picture, "-crop", size, "+repage", picture], check=True)


def take(binaries, example, target):
    """Runs the example in windows that nobody sees; what went wrong, else nothing."""
    with tempfile.TemporaryDirectory() as folder:
        for file in example.files:
            (pathlib.Path(folder) / file.name).write_text(file.text, encoding="cp1252")
        (pathlib.Path(folder) / "Exemplo.tsc").write_text(example.program.text, encoding="utf-8")
        order = f"retrato {target}"
        script = example.text_of("roteiro").splitlines()
        script = [order if line == MARK else line for line in script] if MARK in script else [*script, order]
        (pathlib.Path(folder) / "roteiro").write_text("\n".join(script) + "\n", encoding="utf-8")
        surroundings = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder, XDG_RUNTIME_DIR=folder,
                            CUPS_SERVER="/nowhere", LANG="pt_BR.UTF-8")
        surroundings.pop("DISPLAY", None)
        done = subprocess.run([binaries + "/tessera", "run", "--no-check", "--script", "roteiro", "Exemplo.tsc"],
                              cwd=folder, env=surroundings, capture_output=True, text=True, timeout=RUN_SECONDS)
        if not target.exists():
            return f"{example.where()}: no picture\n{done.stderr}"
        cut(str(target))
        return ""


def main(words):
    if len(words) != 3:
        raise SystemExit(__doc__)
    binaries, pages, target = words[0], pathlib.Path(words[1]), pathlib.Path(words[2]).resolve()
    for old in target.glob("*.png"):
        old.unlink()
    wanted = [(example, target / f"{name}.png") for example in all_examples(pages) for name in example.pictures]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        problems = [problem for problem in pool.map(lambda one: take(binaries, *one), wanted) if problem]
    print("\n".join(problems), file=sys.stderr, end="\n" if problems else "")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
