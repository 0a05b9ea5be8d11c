#!/usr/bin/env python3
"""Holds the manual to the language's table: each word has its page, and each page its word, text and an example.

  every_word.py TESSERA MANUAL

A word that is still to come may have no example that runs. Every keyword and suffix is shown by the table itself.
The pages of the topics and of the first hour have an example too.
"""
import json
import pathlib
import re
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "docs/manual/_ext"))
from pages import blocks_of

LEAST_TEXT = 150  # letters of hand-written text on a page


def problems_of(word, page):
    if not page.is_file():
        return ["has no page"]
    text = page.read_text(encoding="utf-8")
    lines = text.split("\n")
    problems = []
    if lines[0] != f"# {word['name']}":
        problems.append("has a page with another title")
    if f"```{{palavra}} {word['name']}\n```" not in text:
        problems.append("does not show its row of the table")
    blocks = blocks_of(lines)
    prose = re.sub(r"^```.*?^```$", "", "\n".join(lines[1:]), flags=re.S | re.M)
    if len(prose) < LEAST_TEXT:
        problems.append("says nothing beyond its row of the table")
    shown = [block for block in blocks if block.kind == "tessera"]
    if not shown and "<!-- sem exemplo:" not in text:
        problems.append("has no example, and does not say why")
    called = re.compile(re.escape(word["name"]), re.I)
    if shown and not any(called.search(block.text) for block in shown):
        problems.append("has no example that uses it")
    return problems


def main(words):
    if len(words) != 2:
        raise SystemExit(__doc__)
    tessera, manual = words[0], pathlib.Path(words[1])
    pages = manual / "palavras"
    table = json.loads(subprocess.run([tessera, "words"], check=True, capture_output=True).stdout)["words"]
    problems = [f"{word['name']} {problem}" for word in table
                for problem in problems_of(word, pages / f"{word['name']}.md")]
    names = {word["name"] for word in table}
    problems += [f"{page.name}: no such word" for page in sorted(pages.glob("[A-Z]*.md")) if page.stem not in names]
    for page in sorted([*manual.glob("temas/*.md"), *manual.glob("primeira-hora/[0-9]*.md")]):
        if not any(block.kind == "tessera" for block in blocks_of(page.read_text(encoding="utf-8").split("\n"))):
            problems.append(f"{page.name}: has no example")
    print("\n".join(problems + [f"{len(table)} words, {len(problems)} problems"]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
