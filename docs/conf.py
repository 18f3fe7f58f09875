"""How Sphinx writes the manual. CMake runs it over a folder in build/ that holds the pages of this folder and what
is generated beside them, and gives the version and the place of Doxygen's XML."""

import re
import sys
from pathlib import Path

import furo

sys.path.insert(0, str(Path(__file__).parent))

project = "jt"
html_title = "jt"  # with the version, from the command line
language = "en"
extensions = ["myst_parser", "breathe", "sphinx_copybutton", "calls"]
exclude_patterns = ["examples", "tables", "[A-Z]*.md"]  # what pages include
smartquotes_action = "D"  # dashes, but no curled quotes: many of them are SIL

myst_enable_extensions = ["colon_fence", "deflist"]
myst_heading_anchors = 3

breathe_default_project = "jt"
breathe_domain_by_extension = {"h": "c", "hpp": "cpp"}
breathe_show_include = False
breathe_show_enumvalue_initializer = True
c_id_attributes = cpp_id_attributes = ["JT_API"]
primary_domain = "c"
highlight_language = "text"

# Debian ships Furo unbuilt: its stylesheet lacks the part for browsers that ask for dark pages and looks for another
# one on the server, its script imports another one, which a page cannot that is read from a file. So the dark
# colours are given to both ways into the dark, and what is looked for elsewhere is put in.
furo_css = Path(furo.__file__).parent / "theme/furo/static/styles/furo.css"
dark = re.search(r'body\[data-theme="dark"\] \{(.*?)\}', furo_css.read_text(), re.S)[1]

html_theme = "furo"
html_theme_options = {"dark_css_variables": dict(re.findall(r"--([\w-]+): ([^;]*);", dark))}
templates_path = [str(Path(__file__).parent / "templates")]
html_static_path = [str(Path(__file__).parent / "static")]
html_css_files = ["manual.css"]
html_copy_source = False
html_show_copyright = False
html_show_sphinx = False
pygments_style = "default"
pygments_dark_style = "github-dark"


def put_in(path, reference, other):
    text = path.read_text(encoding="utf-8")
    path.write_text(other.read_text(encoding="utf-8") + text.replace(reference, ""), encoding="utf-8")


def complete_theme(app, error):
    if error:
        return
    static = Path(app.outdir) / "_static"
    normalize = Path("/usr/share/nodejs/normalize.css/normalize.css")
    put_in(static / "styles/furo.css", "@import url(/javascript/normalize.css/normalize.css);", normalize)
    gumshoe = static / "scripts/gumshoe-patched.js"
    put_in(static / "scripts/furo.js", 'import Gumshoe from "./gumshoe-patched.js";', gumshoe)


def setup(app):
    app.connect("build-finished", complete_theme)
