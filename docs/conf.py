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
smartquotes = False

myst_enable_extensions = ["colon_fence", "deflist"]
myst_heading_anchors = 3

breathe_default_project = "jt"
breathe_domain_by_extension = {"h": "c", "hpp": "cpp"}
breathe_show_include = False
breathe_show_enumvalue_initializer = True
c_id_attributes = cpp_id_attributes = ["JT_API"]
primary_domain = "c"
highlight_language = "text"

# Debian builds Furo's stylesheet without the part for browsers that ask for dark pages, and with one stylesheet that
# is looked for on the server. The colours are given to both ways into the dark, and the stylesheet is put in.
furo_css = Path(furo.__file__).parent / "theme/furo/static/styles/furo.css"
dark = re.search(r'body\[data-theme="dark"\] \{(.*?)\}', furo_css.read_text(), re.S)[1]

html_theme = "furo"
html_theme_options = {"dark_css_variables": dict(re.findall(r"--([\w-]+): ([^;]*);", dark))}
html_static_path = [str(Path(__file__).parent / "static")]
html_css_files = ["manual.css"]
html_copy_source = False
html_show_copyright = False
html_show_sphinx = False
pygments_style = "default"
pygments_dark_style = "github-dark"


def put_stylesheet_in(app, _error):
    css = Path(app.outdir) / "_static/styles/furo.css"
    other = Path("/usr/share/nodejs/normalize.css/normalize.css").read_text(encoding="utf-8")
    css.write_text(css.read_text(encoding="utf-8").replace("@import url(/javascript/normalize.css/normalize.css);", other))


def setup(app):
    app.connect("build-finished", put_stylesheet_in)
