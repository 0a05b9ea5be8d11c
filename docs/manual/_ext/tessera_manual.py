"""What the manual takes from the language's own table: the head of each word's page, the lists of words, colours.

The table is the JSON that `tessera words` writes; the build names its file in TESSERA_WORDS.
"""
import json
import os
import re

from docutils.statemachine import StringList
from pygments.lexer import RegexLexer, words
from pygments.lexers.special import TextLexer
from pygments.token import Comment, Keyword, Name, Number, Operator, Punctuation, String, Text
from sphinx.util.docutils import SphinxDirective

with open(os.environ["TESSERA_WORDS"], encoding="utf-8") as file:
    TABLE = json.load(file)
WORDS = {word["name"]: word for word in TABLE["words"]}

KINDS = {
    "n": "um número, calculado",
    "t": "um texto, como está",
    "v": "um valor, calculado",
    "w": "um nome, como se escreve",
    "x": "o nome de uma variável",
    "p": "um arquivo ou uma pasta",
}
RESULTS = {"none": "nada", "number": "um número", "text": "um texto"}
ROLES = {
    "statement": "Instrução: fica no começo da linha.",
    "value": "Função: fica dentro de uma expressão.",
    "both": "Instrução ou função.",
    "declaration": "Declaração.",
    "block": "Palavra de bloco: escreva-a exatamente assim.",
}


def arguments_of(signature):
    """The arguments of a signature as (name, kind in words, optional, repeated)."""
    found = []
    for piece in signature.split(", ") if signature else []:
        optional = piece.startswith("[")
        piece = piece.strip("[]")
        repeated = piece.endswith("...")
        name, kind = piece.removesuffix("...").split(":", 1)
        words_allowed = " ou ".join(f"`{word}`" for word in kind.split("|"))
        found.append((name, KINDS.get(kind, words_allowed), optional, repeated))
    return found


def written(signature):
    """How the arguments are written behind a word."""
    shown = []
    for name, _, optional, repeated in arguments_of(signature):
        text = name + (", ..." if repeated else "")
        shown.append(f"[{text}]" if optional else text)
    return ", ".join(shown)


def usage(word, signature):
    shown = written(signature)
    if word["name"] in ("Imp", "Rel"):
        return f"{word['name']}.Palavra {shown}"
    lines = []
    if word["role"] in ("value", "both") and not word["suffixes"]:
        lines.append(f"variável = {word['name']}({shown})")
    if word["role"] != "value":
        lines.append(f"{word['name']} {shown}".rstrip())
    return "\n".join(lines)


def form_line(word, form):
    """A keyword or suffix with its values, as a program writes it."""
    name, shown = form["spelled"], written(form["arguments"])
    if name.startswith("."):
        name = f"{word['name']} Nome{name}"
    elif word["name"] == "SQL":
        name = "SQL " + ".".join(part.lower() if part in ("Base", "Tabela", "Campo") else part
                                 for part in name.split("."))
    elif word["name"] in ("Rel", "Imp"):
        name = f"{word['name']}.{name}"
    else:
        name = f"{word['name']} {name}"
    if form["values"] == "equals":
        return f"{name} = {shown}"
    if word["suffixes"] and form["result"] != "none" and form["values"] != "equals":
        return f"variável = {word['name']}({', '.join(filter(None, [name.split(' ')[1], shown]))})"
    if not shown:
        return name
    first_behind_blank = word["name"] in ("Rel", "Imp", "SQL") or form["word"] in (".ADD", ".ADICIONA", ".ESCREVA")
    return f"{name}{'' if first_behind_blank else ','} {shown}"


def head_of(word):
    """The head of a word's page, in the markup of the pages."""
    lines = [f"**{word['help']}**", ""]
    signatures = [form["arguments"] for form in word["forms"]] + [word["arguments"]]
    forms = "\n".join(dict.fromkeys(usage(word, signature) for signature in signatures))
    lines += ["```trecho", forms, "```", "", ROLES[word["role"]]]
    if word["role"] in ("value", "both") and word["result"] != "none":
        lines[-1] += f" Dá {RESULTS[word['result']]}."
    lines.append("")
    seen = {}
    for signature in signatures:
        for name, kind, optional, repeated in arguments_of(signature):
            more = " (pode faltar)" if optional else " (quantos quiser)" if repeated else ""
            seen.setdefault(name, kind + more)
    if seen:
        lines += ["| argumento | o que é |", "| --- | --- |"]
        lines += [f"| {name} | {kind} |" for name, kind in seen.items()] + [""]
    for title, forms in (("Palavras", word["keywords"]), ("Depois do nome do objeto", word["suffixes"])):
        if forms:
            lines += [f"| {title} | o que faz |", "| --- | --- |"]
            lines += [f"| `{form_line(word, form)}` | {form['help']} |" for form in forms] + [""]
    return lines


class FromTable(SphinxDirective):
    """A directive whose content is made from the table."""
    required_arguments = 1

    def run(self):
        from docutils import nodes
        node = nodes.Element()
        self.state.nested_parse(StringList(self.lines(), source="tabela"), self.content_offset, node)
        return node.children


class WordHead(FromTable):
    def lines(self):
        return head_of(WORDS[self.arguments[0]])


class TopicWords(FromTable):
    """The words of topics, each with its line of help, and their pages below this one."""
    final_argument_whitespace = True

    def lines(self):
        chosen = [word for topic in self.arguments[0].split() for word in TABLE["words"] if word["topic"] == topic]
        chosen.sort(key=lambda word: word["name"].lower())
        lines = ["| palavra | o que faz |", "| --- | --- |"]
        lines += [f"| [{word['name']}]({word['name']}.md) | {word['help']} |" for word in chosen]
        return lines + ["", "```{toctree}", ":hidden:", ""] + [word["name"] for word in chosen] + ["```"]


class AllWords(FromTable):
    """The words from A to Z, a line for each letter."""
    required_arguments = 0

    def lines(self):
        letters = {}
        for name in sorted(WORDS, key=str.lower):
            letters.setdefault(name[0].upper(), []).append(f"[{name}]({name}.md)")
        return ["| | |", "| --- | --- |"] + [f"| **{letter}** | {', '.join(links)} |" for letter, links in letters.items()]


class Variables(FromTable):
    """The built-in variables."""
    required_arguments = 0

    def lines(self):
        lines = ["| variável | tipo | o que guarda |", "| --- | --- | --- |"]
        return lines + [f"| `{v['name']}` | {v['type']} | {v['help']} |" for v in TABLE["variables"]]


class TesseraLexer(RegexLexer):
    """Programs, by the table's words; blind to case as the start of a line is."""
    name = "Tessera"
    aliases = ["tessera", "trecho"]
    flags = re.IGNORECASE
    tokens = {
        "root": [
            (r"'[^\n]*", Comment),
            (r'"[^"\n]*"?', String),
            (words([w["name"] for w in TABLE["words"] if w["topic"] == "structure"] + ["FimBD", "BD", "E", "OU"],
                   prefix=r"(?<![\w.])", suffix=r"\b(?!\.)"), Keyword),
            (words(("String", "Inteiro", "Decimal", "AutoInc", "Numero"), prefix=r"(?<![\w.])", suffix=r"\b"),
             Keyword.Type),
            (words([w["name"] for w in TABLE["words"] if w["topic"] != "structure"], prefix=r"(?<![\w.])",
                   suffix=r"\b"), Name.Function),
            (words([v["name"] for v in TABLE["variables"]], prefix=r"(?<![\w.])", suffix=r"\b"), Name.Constant),
            (r"\d+(\.\d+)?", Number),
            (r"[-+*/%^&@=<>]", Operator),
            (r"[(),;:]", Punctuation),
            (r"[\w.]+", Name),
            (r"\s+", Text),
            (r".", Text),
        ]
    }


class ScriptLexer(RegexLexer):
    """Event scripts."""
    name = "Roteiro"
    aliases = ["roteiro"]
    tokens = {"root": [(r"^'[^\n]*", Comment), (r"[^\n]+", Text), (r"\n", Text)]}


def link_failures(app, name, source):
    """The first word of a failure on a word's page leads to the page that tells what it is."""
    if name.startswith("palavras/"):
        source[0] = source[0].replace("falha do programa", "[falha do programa](../temas/falhas.md)", 1)


def setup(app):
    app.connect("source-read", link_failures)
    app.add_directive("palavra", WordHead)
    app.add_directive("tema", TopicWords)
    app.add_directive("todas", AllWords)
    app.add_directive("variaveis", Variables)
    for name in ("tessera", "trecho"):
        app.add_lexer(name, TesseraLexer)
    app.add_lexer("roteiro", ScriptLexer)
    for name in ("saida", "caixas", "arquivo"):
        app.add_lexer(name, TextLexer)
    return {"parallel_read_safe": True}
