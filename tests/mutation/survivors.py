"""The list of known survivors, tests/mutants-that-survive.md."""
import re

import sources

LIST = sources.ROOT / "tests" / "mutants-that-survive.md"


def known():
    """(file, function, line, changed part or "any") of every row of the list."""
    rows, path = set(), None
    for line in LIST.read_text().splitlines():
        if line.startswith("## "):
            path = line[3:].strip()
        cells = [cell.strip().replace("\\|", "|").strip("`") for cell in re.split(r"(?<!\\)\|", line)[1:-1]]
        if len(cells) == 4 and cells[0] not in ("Function", "Widget", "---"):
            rows.add((path, *cells[:3]))
    return rows


def rows_of(mutant, rows):
    """The rows of the list that speak about the mutant."""
    _, function, before, after = mutant.place()
    return {row for row in rows if row[:3] == (mutant.path, function, before) and
            (row[3] == "any" or (row[3] in after and row[3] not in before))}
