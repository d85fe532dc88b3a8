"""Compares what the documentation says with the code: links, pictures, switches of the two commands, messages, formats,
registry values, menu controls.

  check_docs.py ROOT
"""

import pathlib
import re
import subprocess
import sys

TEXT = re.compile(r'L"((?:[^"\\]|\\.)*)"')
PICTURE_LIMIT = 150_000  # bytes


def plain(text):
    """One line, single blanks."""
    return re.sub(r"\s+", " ", text).strip()


def texts_of(root):
    """All texts of the module, each run of neighbours as one, as the user sees them."""
    for path in sorted((root / "src").rglob("*.cpp")):
        source = path.read_text(encoding="utf-8")
        for run in re.findall(r'(?:L"(?:[^"\\]|\\.)*"\s*)+', source):
            text = "".join(TEXT.findall(run))
            yield plain(text.replace("\\n", " ").replace('\\"', '"').replace("\\\\", "\\"))


def anchors_of(page):
    titles = re.findall(r"^#+ (.+)$", page, flags=re.M)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def check_links(root, pages):
    for path, page in pages.items():
        for target in re.findall(r"\]\(([^)\s]+)\)", page):
            if re.match(r"\w+://", target):
                yield f"{path}: {target} leads outside"
                continue
            name, _, anchor = target.partition("#")
            file = (root / path).parent / name if name else root / path
            if not file.exists():
                yield f"{path}: there is no {target}"
            elif anchor and anchor not in anchors_of(file.read_text(encoding="utf-8")):
                yield f"{path}: {name or path} has no heading {anchor}"
            if file.suffix == ".png" and file.exists() and file.stat().st_size > PICTURE_LIMIT:
                yield f"{path}: {target} is larger than {PICTURE_LIMIT} bytes"
    shown = {p for path, page in pages.items() for p in re.findall(r"pictures/([\w.-]+)", page)}
    for picture in sorted((root / "docs/pictures").iterdir()):
        if picture.suffix == ".png" and picture.name not in shown:
            yield f"docs/pictures/{picture.name} is shown nowhere"


def check_switches(root, pages):
    helps = {c: subprocess.run([root / c, "--help"], capture_output=True, text=True, check=True, timeout=60).stdout
             for c in ("run", "test")}
    for path, page in pages.items():
        for command, switch in re.findall(r"\./(run|test) (--[\w-]+)", page):
            if switch not in re.findall(r"--[\w-]+", helps[command]):
                yield f"{path}: ./{command} knows no {switch}"


def check_paths(root, pages):
    """Paths of the source tree in code letters."""
    for path, page in pages.items():
        for name in re.findall(r"`((?:src|arx|afx|workbench|demo|tests|bench|fuzz|docs|cmake|packaging)/[\w./*-]*)`", page):
            if not list(root.glob(name.rstrip("/"))):
                yield f"{path}: there is no {name}"


def check_messages(root, pages):
    """The first cells of the tables of messages stand in the module word for word."""
    texts = "\n".join(texts_of(root)).replace("%s", "\n")
    count = 0
    for path, page in pages.items():
        for cell in re.findall(r'^\| "([^|]+)" \|', page, flags=re.M):
            count += 1
            for part in cell.split("..."):
                if plain(part) and plain(part) not in texts:
                    yield f"{path}: no message of the module says \"{plain(part)}\""
    if count < 10:
        yield "the documentation has no table of messages"


def check_labels(root, pages):
    """What the user guide sets in italics with a capital stands on a button, in a menu or in a tip."""
    resources = (root / "src/resources/kv2dMenu.rc").read_text(encoding="utf-8")
    labels = set(texts_of(root)) | {label.rstrip(".") for label in re.findall(r'"([^"]*)"', resources)} | {"No"}
    page = plain(pages["docs/user-guide.md"])
    named = re.findall(r"(?<!\*)\*([A-Z][^*|]*)\*(?!\*)", page)
    if len(named) < 8:
        yield f"docs/user-guide.md names only {named}"
    for name in sorted(set(named)):
        if name not in labels:
            yield f"docs/user-guide.md: no button, menu item or tip says {name}"


def check_lisp(root, pages):
    source = (root / "src/shell/lisp_functions.cpp").read_text(encoding="utf-8")
    formats = re.findall(r'L"(Function format is: [^"\\]*)', source)
    if len(formats) != 5:
        yield f"lisp_functions.cpp has {len(formats)} formats"
    for text in formats:
        name = re.search(r"\((kv2dMenu_\w+)", text).group(1)
        if f"\n{text}\n" not in pages["docs/lisp.md"] or f"\n## {name}\n" not in pages["docs/lisp.md"]:
            yield f"docs/lisp.md does not tell: {text}"


def check_registry(root, pages):
    names = set()
    for path in sorted((root / "src").rglob("*")):
        if path.suffix in {".h", ".cpp"} and "platform" not in path.parts:
            source = path.read_text(encoding="utf-8")
            names.update(re.findall(r'k\w+Value\[\]\s*=\s*L"([\w ]+)"', source))
            names.update(re.findall(r'ReadMachineFolder\([^;]*?L"([\w ]+)"\)', source))
            names.update(re.findall(r'(?:Read|Write)(?:Discipline)?(?:Dword|String)\([^;]*?L"([A-Z][\w ]+)"[,)]', source))
    if not {"ProjectId", "Show Menu", "DatafilesPath", "User Settings Path", "MoreHideWarningDialogs"} <= names:
        yield f"the scan for registry values finds only {sorted(names)}"
    for name in sorted(names):
        if f"`{name}`" not in pages["docs/interfaces.md"]:
            yield f"docs/interfaces.md does not tell the registry value {name}"


def check_dispatch(root, pages):
    source = (root / "src/palette/tabbed_menu.cpp").read_text(encoding="utf-8")
    for number in re.findall(r"constexpr DISPID \w+ = (\d+);", source):
        if f"\n| {number} | " not in pages["docs/interfaces.md"]:
            yield f"docs/interfaces.md does not tell dispatch id {number}"


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    pages = {p.relative_to(root).as_posix(): p.read_text(encoding="utf-8")
             for p in [root / "README.md", *sorted((root / "docs").glob("*.md"))]}
    checks = [check_links, check_switches, check_paths, check_messages, check_labels, check_lisp,
              check_registry, check_dispatch]
    faults = [fault for check in checks for fault in check(root, pages)]
    print("\n".join(faults))
    return 1 if faults else 0


sys.exit(main())
