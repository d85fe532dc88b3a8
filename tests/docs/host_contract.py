"""Holds docs/host-contract.md to the code: nothing that the module calls is missing, and every test it names is there.

  host_contract.py sources ROOT                  the calls in src/ and in the inline code of arx/, and the tests' names
  host_contract.py imports ROOT OBJDUMP MODULE   the import table of the built module
"""

import pathlib
import re
import subprocess
import sys

PAGE = "docs/host-contract.md"
# Headers whose code is compiled into the module: what it calls, the module calls.
INLINE = ["arxEntryPoint.h", "dbxEntryPoint.h", "rxboiler.h", "AcApDMgr.h", "acadi.h", "dbobjptr.h"]
# Objects of the host are reached by pointer or by value; these names are also members of the language's library.
ALSO_IN_THE_LIBRARY = {"erase", "at", "open", "close", "has", "name", "remove", "handle"}

# What every class of the host has.
WITH_THE_CLASS = {"desc", "cast", "isA", "GetThisMessageMap", "GetRuntimeClass"}
# Functions that are only called by way of a macro, which is what the list names.
MACROS = {"acDocManagerPtr": "acDocManager"}


def text_of(path):
    """The file without comments and texts."""
    return re.sub(r'//[^\n]*|/\*.*?\*/|"(?:[^"\\\n]|\\.)*"', "", path.read_text(encoding="utf-8"), flags=re.S)


def declared(root):
    """The functions and macros of the host interface, and its classes with their members."""
    functions, classes = set(), {}
    for path in sorted((root / "arx").glob("*.h")):
        text = text_of(path)
        functions.update(re.findall(r"ARX_PORT\s+[^;{}()]*?(\w+)\s*\([^;{]*\)\s*(?:const)?\s*;", text))
        functions.update(re.findall(r"^\s*#define (ac[A-Za-z]\w+) ", text, flags=re.M))
        for match in re.finditer(r"^(?:class|struct)\s+(?:ARX_PORT\s+)?(\w+)[^;{}]*\{(.*?)^\};", text, flags=re.S | re.M):
            members = set(re.findall(r"(?<![\w>.:~])(\w+)\s*\(", match.group(2)))
            classes.setdefault(match.group(1), set()).update(members)
    return functions, classes


def entries_of(page):
    """The numbered entries: number, the names in its head, the tests at its end."""
    for match in re.finditer(r"^(\d+)\. (.*?)(?=^\d+\. |^#|\Z)", page, flags=re.S | re.M):
        head = re.split(r":\s", match.group(2), maxsplit=1)[0]
        tests = match.group(2).partition("*Tests:*")[2]
        yield int(match.group(1)), re.findall(r"`([^`]+)`", head), re.findall(r"`(\w+\.\w+)`", tests)


def tests_of(root):
    names = set()
    for path in (root / "tests").rglob("*.cpp"):
        text = path.read_text(encoding="utf-8")
        names.update(".".join(m) for m in re.findall(r"^TEST(?:_[FP])?\(\s*(\w+),\s*(\w+)\s*\)", text, flags=re.M))
    return names


def members_called(text, classes):
    lower = {m for name, members in classes.items() if not name.startswith("C") for m in members if m[0].islower()}
    for arrow, name in re.findall(r"(->|\.)(\w+)\s*\(", text):
        if name in lower and (arrow == "->" or name not in ALSO_IN_THE_LIBRARY):
            yield name


def called(root):
    """Each call with the file it stands in: a function's name, or a member's with a dot ahead."""
    functions, classes = declared(root)
    files = sorted(p for p in (root / "src").rglob("*") if p.suffix in {".h", ".cpp"} and "platform" not in p.parts)
    for path in files + [root / "arx" / name for name in INLINE]:
        text = text_of(path)
        where = path.relative_to(root)
        for name in set(re.findall(r"(?<![\w.>])(\w+)", text)) & functions:
            yield name, where
        for name in members_called(text, classes):
            yield "." + name, where
        if "afx" in text and re.search(r"\bC(?:Ad|Ac)Ui\w+", text):
            windows = {m for c, members in classes.items() if re.match(r"C(Ad|Ac)Ui", c) for m in members}
            for name in set(re.findall(r"C(?:Ad|Ac)Ui\w+::(\w+)\s*\(", text)) & windows:
                yield "." + name, where


def check_page(root, page):
    entries = list(entries_of(page))
    if len(entries) < 10:
        yield f"{PAGE}: there is no numbered list"
    known = tests_of(root)
    for place, (number, names, tests) in enumerate(entries, 1):
        if number != place:
            yield f"{PAGE}: entry {number} stands where {place} belongs"
        if not names:
            yield f"{PAGE}: entry {number} names no call"
        if not tests:
            yield f"{PAGE}: entry {number} names no test"
        for test in tests:
            if test not in known:
                yield f"{PAGE}: entry {number}: there is no test {test}"
    functions, classes = declared(root)
    members = {f"{c}::{m}" for c, ms in classes.items() for m in ms}
    for number, names, _ in entries:
        for name in names:
            if "::" in name and name not in members:
                yield f"{PAGE}: entry {number}: arx/ declares no {name}"


def listed(page):
    names = {name for _, heads, _ in entries_of(page) for name in heads}
    return names | {"." + name.partition("::")[2] for name in names if "::" in name}


def check_sources(root, page):
    names = listed(page)
    calls = set(called(root))
    if len(calls) < 50:
        yield "the scan of the sources finds next to nothing"
    for name, where in sorted(calls, key=str):
        if name not in names:
            yield f"{where}: {name} is not in {PAGE}"


def inherited(root):
    """The virtual members of the classes that the module derives from: their bodies stand in its tables, called or
    not."""
    sources = "\n".join(text_of(p) for p in sorted((root / "arx").glob("*.h")))
    bases = dict(re.findall(r"class\s+(?:ARX_PORT\s+)?(\w+)\s*:\s*public\s+(\w+)", sources))
    mine = "\n".join(text_of(p) for p in sorted((root / "src").rglob("*.h")))
    classes = set(re.findall(r":\s*public\s+((?:Ac|CA[cd]Ui)\w+)", mine))
    for name in list(classes):
        while name := bases.get(name):
            classes.add(name)
    for name in classes:
        body = re.search(rf"class\s+(?:ARX_PORT\s+)?{name}\b[^;{{}}]*\{{(.*?)^\}};", sources, flags=re.S | re.M)
        for member in re.findall(r"(\w+)\s*\([^;{}]*\)[^;{}]*\boverride\b|virtual\s[^;{}(]*?(\w+)\s*\(",
                                 body.group(1) if body else ""):
            yield f"{name}::{member[0] or member[1]}"


def check_imports(root, page, objdump, module):
    dump = subprocess.run([objdump, "-p", module], capture_output=True, text=True, check=True).stdout
    library = dump.partition("DLL Name: hostapi.dll")[2].partition("DLL Name:")[0]
    mangled = re.findall(r"\b(\w+)\s*$", library, flags=re.M)
    plain = subprocess.run(["c++filt"], input="\n".join(mangled), capture_output=True, text=True, check=True).stdout
    functions, classes = declared(root)
    names = listed(page)
    free = set(inherited(root))
    found = 0
    for symbol in plain.splitlines():
        name = symbol.removeprefix("__imp_").partition("(")[0]
        owner, _, member = name.rpartition("::")
        if owner in classes:
            found += 1
            with_the_class = member in WITH_THE_CLASS or member.startswith("~") or name in free
            if not with_the_class and "." + member not in names:
                yield f"{module}: {name} is not in {PAGE}"
        elif name in functions:
            found += 1
            if name not in names and MACROS.get(name) not in names:
                yield f"{module}: {name} is not in {PAGE}"
    if found < 40:
        yield f"{module}: the import table holds next to nothing of the host interface"


def main():
    root = pathlib.Path(sys.argv[2]).resolve()
    page = (root / PAGE).read_text(encoding="utf-8")
    if sys.argv[1] == "sources":
        faults = [*check_page(root, page), *check_sources(root, page)]
    else:
        faults = list(check_imports(root, page, sys.argv[3], sys.argv[4]))
    print("\n".join(faults))
    return 1 if faults else 0


sys.exit(main())
