"""Checks what the folders of the source tree may include, and that every file is formatted.

  check_house.py includes ROOT   every include of src/, arx/ and afx/ points downward
  check_house.py format ROOT     clang-format would change nothing
"""

import pathlib
import re
import subprocess
import sys

# From the top down: a folder includes itself and the folders behind it.
LAYERS = ["shell", "palette", "drawing_manager", "controls", "document", "database", "settings", "sizes",
          "storage", "platform"]
# These compile on every system: no window header, no framework type.
PORTABLE = {"document", "database", "settings", "sizes", "storage"}
FOREIGN = re.compile(r"^(windows|win\w+|afx\w*|comm\w+|shl\w+|ole\w*|adui|acui)\.h$", re.IGNORECASE)
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')


def sources(folder):
    return sorted(p for p in folder.rglob("*") if p.suffix in {".h", ".cpp"})


def includes_of(path):
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1)


def check_src(root):
    for layer_index, layer in enumerate(LAYERS):
        allowed = set(LAYERS[layer_index:]) | {"resources"}
        for path in sources(root / "src" / layer):
            for number, name in includes_of(path):
                where = f"{path.relative_to(root)}:{number}: {name}"
                first = name.split("/")[0]
                if first == "workbench" or (root / "workbench" / name).exists():
                    yield f"{where}: the module never includes the workbench"
                elif first in LAYERS and first not in allowed:
                    yield f"{where}: {layer} lies below {first}"
                elif layer in PORTABLE and FOREIGN.match(name):
                    yield f"{where}: {layer} is portable"


def check_interfaces(root):
    for folder in ("arx", "afx"):
        for path in sources(root / folder):
            for number, name in includes_of(path):
                if name.split("/")[0] in {"workbench", "src"} | set(LAYERS) or (root / "workbench" / name).exists():
                    yield f"{path.relative_to(root)}:{number}: {name}: {folder} stands by itself"


def check_format(root):
    names = subprocess.run(["git", "ls-files", "*.cpp", "*.h"], cwd=root, capture_output=True, text=True,
                           check=True).stdout.split()
    if not names:
        yield "no source files found"
        return
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", *names], cwd=root, capture_output=True, text=True)
    if result.returncode:
        yield result.stderr[:4000] or "clang-format failed"


def main():
    root = pathlib.Path(sys.argv[2]).resolve()
    if sys.argv[1] == "format":
        faults = list(check_format(root))
    else:
        count = sum(1 for _ in sources(root / "src"))
        faults = [*check_src(root), *check_interfaces(root)] if count else ["no source files found"]
    print("\n".join(faults))
    return 1 if faults else 0


sys.exit(main())
