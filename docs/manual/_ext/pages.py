"""Reads the pages of the manual: which examples stand on them, and what each shows.

An example is a fenced block "tessera" and the blocks behind it, up to the next one:
  arquivo NAME   a file that lies beside the program
  roteiro        what the person does: the event script, and answers to questions
  saida          what the program prints
  caixas         its boxes, as the terminal tells them
A block "trecho" is a piece of a program, which is not run.
"""
import dataclasses
import pathlib
import re

FENCE = re.compile(r"^```(\w+)(?: +(\S+))?$")


@dataclasses.dataclass
class Block:
    kind: str
    name: str
    text: str
    first: int  # line of the opening fence, from 0
    last: int   # line of the closing one


@dataclasses.dataclass
class Example:
    page: pathlib.Path
    program: Block
    parts: dict      # kind to block: roteiro, saida, caixas
    files: list      # blocks of kind arquivo
    pictures: list   # names of pictures that stand behind it

    def where(self):
        return f"{self.page}:{self.program.first + 1}"

    def text_of(self, kind):
        return self.parts[kind].text if kind in self.parts else ""


def blocks_of(lines):
    blocks, opened = [], None
    for number, line in enumerate(lines):
        if opened is None:
            fence = FENCE.match(line)
            if line.startswith("```"):
                opened = (fence.group(1) if fence else "", (fence.group(2) or "") if fence else "", number)
        elif line == "```":
            kind, name, first = opened
            text = "".join(part + "\n" for part in lines[first + 1:number])
            blocks.append(Block(kind, name, text, first, number))
            opened = None
    return blocks


def examples_of(page):
    lines = page.read_text(encoding="utf-8").split("\n")
    examples = []
    for block in blocks_of(lines):
        if block.kind == "tessera":
            examples.append(Example(page, block, {}, [], []))
        elif not examples:
            continue
        elif block.kind == "arquivo":
            examples[-1].files.append(block)
        elif block.kind in ("roteiro", "saida", "caixas"):
            if block.kind in examples[-1].parts:
                raise SystemExit(f"{page}:{block.first + 1}: two blocks {block.kind} for one example")
            examples[-1].parts[block.kind] = block
    for number, line in enumerate(lines):
        for name in re.findall(r"\]\([./]*figuras/([\w.-]+)\.png\)", line):
            before = [example for example in examples if example.program.first < number]
            if not before:
                raise SystemExit(f"{page}:{number + 1}: no example makes the picture {name}")
            before[-1].pictures.append(name)
    return examples


def all_examples(manual):
    return [example for page in sorted(manual.rglob("*.md")) for example in examples_of(page)]
