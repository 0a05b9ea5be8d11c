"""Makes the one page of the manual fit for paper: its list of contents comes to the front, with page numbers.

  paper.py ONE-PAGE PAPER
"""
import sys

from bs4 import BeautifulSoup


def main(words):
    if len(words) != 2:
        raise SystemExit(__doc__)
    with open(words[0], encoding="utf-8") as file:
        page = BeautifulSoup(file, "html.parser")
    contents = page.new_tag("nav")
    for part in page.select("div.sphinxsidebarwrapper > div:first-child > *"):
        contents.append(part.extract())
    for link in contents.select("a"):
        link["href"] = link["href"].replace("index.html#", "#")
    page.select_one("h1").insert_after(contents)
    for furniture in page.select("div.sphinxsidebar, div.related, div.footer, a.headerlink, script"):
        furniture.decompose()
    with open(words[1], "w", encoding="utf-8") as file:
        file.write(str(page))


if __name__ == "__main__":
    main(sys.argv[1:])
