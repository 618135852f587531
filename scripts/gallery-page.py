#!/usr/bin/env python3
"""Writes docs/gallery.md from the sections in docs/gallery/*.md (one per concern folder of the
library), so that the whole gallery reads as one page: each picture beside its script."""
import pathlib
import re

docs = pathlib.Path(__file__).resolve().parent.parent / "docs"
order = ["basics", "plots", "axes", "fields", "solids", "maps", "media", "window"]
parts = sorted(docs.glob("gallery/*.md"), key=lambda p: (order.index(p.stem) if p.stem in order else 99, p.stem))
out = ["# Gallery", "",
       "Every picture below is drawn by a script of `examples/`; the test suite runs them all",
       "(`ctest -R gallery`). The script stands under its picture.", ""]
out += [f"- [{p.read_text().splitlines()[0].lstrip('# ')}](#{re.sub(r'[^a-z0-9 -]', '', p.read_text().splitlines()[0].lstrip('# ').lower()).replace(' ', '-')})" for p in parts]
out.append("")
for p in parts:
    text = p.read_text()
    # pictures sit beside the sections, in docs/gallery/
    text = re.sub(r"\]\((?!https?:|gallery/|#)([^)]+\.png)\)", r"](gallery/\1)", text)
    out += [text.rstrip(), ""]
(docs / "gallery.md").write_text("\n".join(out))
