"""How the manual is made: see the script `make` beside this file."""
import os
import sys

sys.path.insert(0, os.path.abspath("_ext"))

project = "Manual de Tessera"
author = "Tessera"
language = "pt_BR"
html_search_language = "pt"
extensions = ["myst_parser", "tessera_manual"]
exclude_patterns = ["_ext", "make"]
myst_enable_extensions = ["colon_fence"]
myst_heading_anchors = 2
highlight_language = "tessera"
html_theme = "furo"
html_title = "Manual de Tessera"
html_static_path = ["_static"]
html_css_files = ["manual.css"]
html_js_files = ["busca.js"]
html_copy_source = False
html_show_sphinx = False
html_show_copyright = False
# A page that is opened from disk may not fetch others for their summaries.
html_show_search_summary = False
