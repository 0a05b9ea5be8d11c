#!/usr/bin/env python3
"""Runs every example of the manual on the console host and compares what it shows with its page.

  run_examples.py [--update] [--without=PAGE,...] TESSERA MANUAL [PAGE...]

An example is free of the checker's findings, ends with status 0 unless its boxes tell why not, prints its block
"saida" and shows the boxes of its block "caixas". With --update the blocks are written from what came out: read the
difference before you keep it. PAGE is a part of a page's path, and behind --without the name of a page whose examples
need more than was built.
"""
import concurrent.futures
import difflib
import os
import pathlib
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "docs/manual/_ext"))
from pages import all_examples

RUN_SECONDS = 30


def run(tessera, example):
    """What the example prints, its boxes, and what is wrong with it apart from that."""
    with tempfile.TemporaryDirectory() as folder:
        for file in example.files:
            (pathlib.Path(folder) / file.name).write_text(file.text, encoding="cp1252")
        program = pathlib.Path(folder) / "Exemplo.tsc"
        program.write_text(example.program.text, encoding="utf-8")
        surroundings = dict(os.environ, HOME=folder, XDG_CONFIG_HOME=folder, CUPS_SERVER="/nowhere")
        surroundings.pop("DISPLAY", None)

        def call(*words, **more):
            return subprocess.run([tessera, *words], capture_output=True, timeout=RUN_SECONDS, cwd=folder,
                                  env=surroundings, **more)
        found = call("check", str(program), "--deny-warnings")
        wrong = (found.stdout + found.stderr).decode() if found.returncode != 0 else ""
        done = call("run", "--console", "--no-check", "--printer", folder + "/papel.pdf", str(program),
                    input=example.text_of("roteiro").encode())
        if done.returncode not in (0, 1):
            wrong += f"exit status {done.returncode}\n{done.stderr.decode()}"
        hide = lambda text: text.decode().replace(folder, "/pasta")
        return hide(done.stdout), hide(done.stderr), wrong


def difference(example, kind, actual):
    expected = example.text_of(kind)
    if expected == actual:
        return ""
    return "".join(line if line.endswith("\n") else line + "\n" for line in difflib.unified_diff(
        expected.splitlines(True), actual.splitlines(True), f"{kind}, page", f"{kind}, run"))


def update(examples, results):
    """Writes what came out into the pages, from the last example of a page to its first."""
    for example, (out, err, _) in reversed(list(zip(examples, results))):
        lines = example.page.read_text(encoding="utf-8").split("\n")
        shown = [(kind, text) for kind, text in (("saida", out), ("caixas", err)) if text]
        old = [example.parts[kind] for kind in ("saida", "caixas") if kind in example.parts]
        inputs = [example.program, *example.files, *(example.parts[k] for k in ("roteiro",) if k in example.parts)]
        at = min((block.first for block in old), default=max(block.last for block in inputs) + 2)
        for block in sorted(old, key=lambda block: -block.first):
            end = block.last + 1
            if end < len(lines) and lines[end] == "":
                end += 1
            del lines[block.first:end]
        new = []
        for kind, text in shown:
            new += ["```" + kind, *text.rstrip("\n").split("\n"), "```", ""]
        if not old and new:
            at = max(block.last for block in inputs) + 1
            new = ["", *new[:-1]]
        lines[at:at] = new
        text = "\n".join(lines).rstrip("\n") + "\n"
        example.page.write_text(text, encoding="utf-8")


def main(words):
    rewrite = "--update" in words
    without = [name for word in words if word.startswith("--without=") for name in word[len("--without="):].split(",")]
    words = [word for word in words if not word.startswith("--")]
    if len(words) < 2:
        raise SystemExit(__doc__)
    tessera, manual, wanted = words[0], pathlib.Path(words[1]), words[2:]
    examples = [example for example in all_examples(manual)
                if example.page.stem not in without
                and (not wanted or any(part in str(example.page) for part in wanted))]
    if not examples:
        raise SystemExit("no example found")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = list(pool.map(lambda example: run(tessera, example), examples))
    failed = 0
    for example, (out, err, wrong) in zip(examples, results):
        problem = wrong
        if not rewrite:
            problem += difference(example, "saida", out) + difference(example, "caixas", err)
        if problem:
            failed += 1
            print(f"{example.where()}\n{problem}", end="")
    if rewrite:
        update(examples, results)
    print(f"{len(examples)} examples, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
