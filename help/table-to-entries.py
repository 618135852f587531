#!/usr/bin/env python3
"""Turns the routine tables of docs/library-engine.md and docs/library-grids.md into reference
entries (one '### NAME' heading per routine), the form the help programs look up."""
import re
import sys

def entries(path, title):
    out = [f"# {title}", "",
           f"One entry per routine, made from the tables of `{path.split('/')[-1]}`, which also explains",
           "the conventions (levels, plot units, messages).", ""]
    header = None
    section = None
    seen = set()
    for line in open(path, encoding="utf-8"):
        line = line.rstrip("\n")
        if line.startswith("## "):
            section = line[3:]
            out += [f"## {section}", ""]
            header = None
            continue
        if not line.startswith("|"):
            header = None if not line.strip() else header
            continue
        cells = [c.strip() for c in re.split(r"(?<!\\)\|", line.strip())[1:-1]]
        if header is None:
            header = [c.lower() for c in cells]
            continue
        if all(set(c) <= set("-: ") for c in cells):
            continue
        first = cells[0]
        calls = re.findall(r"`([a-z][a-z0-9]*)\(([^`]*)\)[^`]*`", first)
        if not calls or header[0] not in ("routine", "function"):
            continue
        row = dict(zip(header, cells))
        for name, args in calls:
            key = name.upper()
            if key in seen:
                continue
            seen.add(key)
            level = row.get("level", "").strip() or "any"
            sig = f"`{name}({args})`"
            m = re.search(r"`" + name + r"\([^`]*\)\s*(→[^`]*)`", first)
            if m:
                sig = f"`{name}({args}) {m.group(1).strip()}`"
            out.append(f"### {key}")
            out.append(f"{sig} · level {level}")
            text = []
            does = row.get("does", "")
            if does:
                text.append(does[0].upper() + does[1:] + ("" if does.endswith(".") else "."))
            if row.get("arguments"):
                text.append(f"Arguments: {row['arguments']}.")
            if row.get("default"):
                text.append(f"Default: {row['default']}.")
            if row.get("warns when"):
                text.append(f"Warns when: {row['warns when']}.")
            if len(calls) > 1:
                others = ", ".join(n.upper() for n, _ in calls if n != name)
                text.append(f"Described together with {others}.")
            out.append(" ".join(text) if text else "See the table in " + path.split('/')[-1] + ".")
            out.append("")
    # sections without a routine table leave no heading behind
    kept = []
    for i, l in enumerate(out):
        if l.startswith("## "):
            nxt = next((x for x in out[i + 1:] if x.startswith("#")), "")
            if not nxt.startswith("### "):
                continue
        kept.append(l)
    text = "\n".join(kept) + "\n"
    return re.sub(r"\n{3,}", "\n\n", text), seen

if __name__ == "__main__":
    src, title, dst = sys.argv[1:4]
    text, names = entries(src, title)
    open(dst, "w", encoding="utf-8").write(text)
    print(f"{dst}: {len(names)} entries")
