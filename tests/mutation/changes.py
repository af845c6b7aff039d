"""The changes: tokens, exchanged arguments, removed statements and connections, and the constants of forms."""
import collections
import hashlib
import itertools
import pathlib
import re

import sources

TOKENS = [
    (r"(?<= )<(?=\s)", "<="), (r"(?<= )>(?=\s)", ">="), (r"<=", "<"), (r">=", ">"),
    (r"(?<!operator)==", "!="), (r"(?<!operator)!=", "=="), (r"(?<=\s)&&(?=\s)", "||"), (r"\|\|", "&&"),
    (r"(?<=[\w)\]] )\+(?=\s)", "-"), (r"(?<=[\w)\]] )-(?=\s)", "+"), (r"(?<=[\w)\]] )\*(?=\s)", "/"),
    (r"(?<=[\w)\]] )/(?=\s)", "*"), (r"\+=", "-="), (r"-=", "+="), (r"\*=", "/="), (r"/=", "*="),
    (r"\+\+", "--"), (r"--", "++"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"),
    (r"(?<![\w.])0\.0(?![\w.])", "1.0"), (r"(?<![\w.])1\.0(?![\w.])", "2.0"),
    (r"(?<![\w.])0(?![\w.])", "1"), (r"(?<![\w.])1(?![\w.])", "2"),
]

# Comments, texts and letters; of these only letters are code to mutate.
NO_CODE = re.compile(r"""//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*'""", re.DOTALL)
DECLARATION = re.compile(r"^[ \t]*(?:#|template\b|static_assert\b|case\b).*$", re.MULTILINE)
# Where a function begins: at the margin, or one step in within a class of a header.
FUNCTION = {".cpp": re.compile(r"^(?=[A-Za-z])[^;(\n]*?(operator\W+|~?\w+)\(", re.MULTILINE),
            ".h": re.compile(r"^(?: {4})?(?=[A-Za-z[])[^;(\n]*?(operator\W+|~?\w+)\(", re.MULTILINE),
            ".ui": re.compile(r"<(?:widget|layout|spacer|action)[^>]* name=\"(\w+)\"")}

# A call or an assignment that stands by itself: nothing like a type stands in front of it.
STATEMENT = re.compile(r"^(?: {4})+(?!return\b|if\b|for\b|while\b|switch\b|else\b|do\b|throw\b|delete\b|Q_|:|,)"
                       r"(?=(?:\+\+|--|\*)?[A-Za-z_]\w*(?:::\w+|\.\w+|->\w+|\[[^\]\n]*\]|\([^()\n]*\)(?=\.|->))*"
                       r"(?:\(|\s*(?:[-+*/|&^]|<<|>>)?=(?!=)|\s<<\s|\+\+;|--;|;))", re.MULTILINE)
# Whose arguments may change places, or never compile when they do.
UNCHANGED = re.compile(r"\b(?:connect|max|min|lower|lesser|minmax|hypot|swap|qMax|qMin|equal|agrees\w*|\w*Agree|distance"
                       r"|dot|dotProduct)(?:<[\w:]+>)?\Z|\b(?:max|min|minmax|squaredLength|lengthOf)(?:<[\w:]+>)?\(\Z"
                       r"|\b(?:squaredLength|lengthOf)\((?:difference|crossProduct)\Z")
# Of two texts of which is only asked whether they begin alike, each may be the first.
TEXTS_COMPARED = re.compile(r"\bstrn?cmp\Z")
ONLY_EQUALITY = re.compile(r"\)\s*[!=]= 0(?![\w.])")
# The same is done to each of a list by a single statement, whose turn does not count.
FOR_EACH_OF = re.compile(r"\bfor \([^;()]*\b(\w+) : std::initializer_list<[^<>]*>\Z")
# What is looked up by its words: rows of which none fits the words of the other may stand in any order.
REQUESTS = "std::vector<SimRequestRow>"
PATTERN = re.compile(r'\{"([^"]+)"')
CONNECTION = re.compile(r"\s*(?:QObject::)?connect\(")
# Only how soon memory is asked for.
RESERVATION = re.compile(r"[\w.>\-]*(?:\.|->)reserve\(")
# Behind these a new statement begins.
BEFORE_STATEMENT = re.compile(r"(?:[;{}]|\)|\belse|:)\s*\Z")

# What a parameter list has in front of its names, and an argument has not.
PARAMETER = re.compile(r"^(?:const\s|\w[\w:]*(?:<.*>)?\s*[*&]*\s+[*&]*\w+$|\w[\w:<>]*\s+[*&]*\w+\s*=)")

FORM_NUMBER = re.compile(r'<property name="(?:minimum|maximum|singleStep|pageStep|value|decimals|maxLength|interval)">'
                         r"\s*<(?:number|double)>(-?[\d.]+)</")
FORM_STATE = re.compile(r'<property name="(?:enabled|checked|checkable|readOnly|autoDefault|default|wrapping'
                        r'|sizeGripEnabled|keyboardTracking)">\s*<bool>(true|false)</')
TAB_STOPS = re.compile(r"<tabstop>(\w+)</tabstop>(\s*)<tabstop>(\w+)</tabstop>")

KINDS = ("token", "arguments", "statement", "connection", "form")


class Mutant(collections.namedtuple("Mutant", "path kind begin end replacement")):
    """A part of a file, and what stands in its place."""

    def changed(self, text):
        return text[:self.begin] + self.replacement + text[self.end:]

    def place(self):
        """The number of the line from 1, the function or widget, and the line as it is and as the mutant has it."""
        text = sources.text_of(self.path)
        start = text.rfind("\n", 0, self.begin) + 1
        names = FUNCTION[pathlib.PurePath(self.path).suffix].findall(text[:self.begin])
        before = text[start:].split("\n", 1)[0].strip()
        if self.kind in ("statement", "connection"):
            after = "removed"
        elif "\n" in text[self.begin:self.end]:
            after = " ".join(self.replacement.split())
        else:
            after = self.changed(text)[start:].split("\n", 1)[0].strip()
        return text.count("\n", 0, self.begin) + 1, names[-1] if names else "", before, after

    def __str__(self):
        number, function, before, after = self.place()
        return f"{self.path}:{number}: {function}: {before}   ->   {after}"


def code_of(text):
    """The text with blanks in place of all that is not mutated."""
    def blank(found):
        return found.group() if found.group().startswith("'") else re.sub(r"[^\n]", " ", found.group())
    return DECLARATION.sub(blank, NO_CODE.sub(blank, text))


def tokens(path, text, code):
    for find, replacement in TOKENS:
        for hit in re.finditer(find, code):
            yield Mutant(path, "token", hit.start(), hit.end(), replacement)


def list_at(code, begin):
    """The (begin, end) of each part of the list whose bracket opens at `begin`, and where it closes; None for what is
    no list of arguments."""
    depth, start, parts = 0, begin + 1, []
    for place in range(begin, len(code)):
        letter = code[place]
        if letter in "([{":
            depth += 1
        elif letter in ")]}":
            depth -= 1
            if depth == 0:
                return parts + [(start, place)]
        elif depth == 1 and letter == ",":
            parts.append((start, place))
            start = place + 1
        elif letter == ";" and depth == 1:
            return None
    return None


def arguments(path, text, code):
    """Neighbours exchanged, in calls and in lists of values."""
    for hit in re.finditer(r"(?<=[\w)>])\(|(?<=[\w>])\{|(?<=[(,=] )\{|(?<=\()\{|(?<=return )\{", code):
        parts = list_at(code, hit.start())
        if parts is None or len(parts) < 2 or UNCHANGED.search(code, max(0, hit.start() - 40), hit.start()):
            continue
        texts = [text[begin:end].strip() for begin, end in parts]
        if any(not part or PARAMETER.match(part) for part in texts) \
                or is_for_each_of(code, hit.start(), parts[-1][1]):
            continue
        is_lookup = REQUESTS in text
        fixed = 1 if TEXTS_COMPARED.search(code, max(0, hit.start() - 40), hit.start()) \
            and ONLY_EQUALITY.match(code, parts[-1][1]) else 0
        for left, right in zip(range(fixed, len(parts)), range(fixed + 1, len(parts))):
            if texts[left] != texts[right] and not (is_lookup and are_apart(texts[left], texts[right])):
                begin, end = parts[left][0], parts[right][1]
                begin += len(text[begin:end]) - len(text[begin:end].lstrip())
                yield Mutant(path, "arguments", begin, end, f"{texts[right]}, {texts[left]}")


def is_for_each_of(code, begin, end):
    """Whether nobody can tell in which order what stands between the two brackets is gone through."""
    loop = FOR_EACH_OF.search(code, max(0, begin - 120), begin)
    if not loop:
        return False
    single = rf"\)\s*(?:{loop[1]}->\w+\([^;]*\)|\w+\.removeOne\({loop[1]}\));"
    return re.match(single, code[end + 1:]) is not None


def are_apart(left, right):
    """Whether two rows of a table of requests have patterns that no line fits both of: a word differs, or the number of
    words does."""
    first, second = PATTERN.match(left), PATTERN.match(right)
    if not first or not second:
        return False
    first, second = first.group(1).split(), second.group(1).split()
    if any(one != other and one.isidentifier() and other.isidentifier() for one, other in zip(first, second)):
        return True
    return len(first) != len(second) and "..." not in (first[-1], second[-1])


def is_last_of_cases(text, begin, end):
    """Whether it is a break for a case that does nothing else, at the end of the switch."""
    label = text[:begin].rstrip().rpartition("\n")[2]
    return text[begin:end] == "break;" and re.match(r"\s*(?:case\b.*|default):$", label) is not None \
        and text[end:].lstrip().startswith("}")


def end_of_statement(code, begin):
    depth = 0
    for place in range(begin, len(code)):
        letter = code[place]
        if letter in "([{":
            if letter == "{" and depth == 0 and code[:place].rstrip()[-1] not in "=,(":
                return None
            depth += 1
        elif letter in ")]}":
            depth -= 1
            if depth < 0:
                return None
        elif letter == ";" and depth == 0:
            return place + 1
    return None


def statements(path, text, code):
    """Calls, assignments and connections left out. Headers hold declarations, which look like calls."""
    if not path.endswith(".cpp"):
        return
    for hit in STATEMENT.finditer(code):
        begin = hit.end()
        end = end_of_statement(code, begin)
        if end is not None and BEFORE_STATEMENT.search(code, max(0, hit.start() - 200), hit.start()) \
                and not RESERVATION.match(code, begin) and not is_last_of_cases(text, begin, end):
            kind = "connection" if CONNECTION.match(code, hit.start()) else "statement"
            yield Mutant(path, kind, begin, end, ";")


def in_form(path, text):
    for hit in FORM_NUMBER.finditer(text):
        number = hit.group(1)
        other = str(int(number) + 1) if number.lstrip("-").isdigit() else str(float(number) + 1.0)
        yield Mutant(path, "form", *hit.span(1), other)
    for hit in FORM_STATE.finditer(text):
        yield Mutant(path, "form", *hit.span(1), "false" if hit.group(1) == "true" else "true")
    place = 0
    while hit := TAB_STOPS.search(text, place):
        yield Mutant(path, "form", *hit.span(), f"<tabstop>{hit[3]}</tabstop>{hit[2]}<tabstop>{hit[1]}</tabstop>")
        place = hit.start(2)


def mutants_of(path):
    text = sources.text_of(path)
    if path.endswith(".ui"):
        return list(in_form(path, text))
    code = code_of(text)
    return [mutant for change in (tokens, arguments, statements) for mutant in change(path, text, code)]


def drawn(mutants, seed):
    """The mutants in the order of a draw, the kinds by turns. What is drawn depends on the mutant's own line alone, so a
    change elsewhere leaves the others in their places."""
    counts = collections.Counter()
    keys = {}
    for mutant in sorted(mutants):
        place = (mutant.path, mutant.kind, *mutant.place()[1:])
        counts[place] += 1
        keys[mutant] = hashlib.sha256(repr((seed, place, counts[place])).encode()).hexdigest()
    kinds = [sorted((mutant for mutant in mutants if mutant.kind == kind), key=keys.get) for kind in KINDS]
    turns = itertools.chain.from_iterable(itertools.zip_longest(*kinds))
    return [mutant for mutant in turns if mutant is not None]
