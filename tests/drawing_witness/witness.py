"""Lets ezdxf and the workbench's reader and writer judge each other's drawings.

    witness.py TOOL FOLDER release NAME     a drawing that ezdxf writes, of one release
    witness.py TOOL FOLDER share SHARE      every drawing and template of a share
    witness.py TOOL FOLDER own PROGRAM      the drawings that PROGRAM leaves in FOLDER, each with a .txt of what it holds

TOOL prints what a drawing holds and writes it again (drawing_dump). Exit status 1 and the differences if the two
disagree, or if a drawing of ours has a fault.
"""
import difflib
import pathlib
import subprocess
import sys

import ezdxf

from describe import describe
from sample_drawing import make
from strict_check import strict_faults


def read_cleanly(path):
    """Reads as strictly as ezdxf can: not its recovery mode, and nothing for its audit to mend."""
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    found = [entry.message for entry in list(auditor.errors) + list(auditor.fixes)]
    return doc, [f"{path}: ezdxf's audit: {message}" for message in found]


def difference(name, wanted, got):
    return list(difflib.unified_diff(wanted, got, f"{name} as ezdxf reads it", f"{name} as we read it", "", "", n=1))


def dump(tool, drawing, *copy):
    result = subprocess.run([tool, drawing, *copy], capture_output=True, timeout=200)
    if result.returncode != 0:
        raise SystemExit(f"{drawing} is refused: {result.stderr.decode()}")
    return result.stdout.decode("utf-8").split("\n")[:-1]


def judge(tool, folder, drawing):
    """Reads a drawing both ways, has ours written, and reads that both ways. Returns the complaints."""
    copy = folder / (pathlib.Path(drawing).stem + " copy.dxf")
    complaints = []
    ours = dump(tool, drawing, copy)
    original, faults = read_cleanly(drawing)
    complaints += faults
    complaints += difference(drawing, comparable(describe(original)), comparable(ours))
    complaints += [f"{copy}: {fault}" for fault in strict_faults(copy.read_bytes())]
    copied, faults = read_cleanly(copy)
    complaints += faults
    complaints += difference(copy, comparable(describe(copied)), comparable(ours))
    complaints += difference(f"{copy} read again", ours, dump(tool, copy))
    return complaints


# What a reader adds to a drawing that lacks it: the program's own dictionaries, a layer of its own.
SUPPLIED = ("  ACAD_", "LAYER Defpoints ")


def comparable(lines):
    """Without what a reader supplies, and without what stands below it."""
    kept, is_own = [], True
    for line in lines:
        if not line.startswith("    "):
            is_own = not line.startswith(SUPPLIED)
        if is_own:
            kept.append(line)
    return kept


def judge_own(drawing):
    """Compares a drawing of ours with what it was made to hold. Returns the complaints."""
    complaints = [f"{drawing}: {fault}" for fault in strict_faults(drawing.read_bytes())]
    doc, faults = read_cleanly(drawing)
    meant = drawing.with_suffix(".txt").read_text(encoding="utf-8").split("\n")[:-1]
    return complaints + faults + difference(drawing, comparable(describe(doc)), comparable(meant))


def main(tool, folder, mode, subject):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    source = folder
    if mode == "release":
        make(subject).saveas(folder / f"{subject}.dwg")
    elif mode == "own":
        subprocess.run([subject, folder], check=True, timeout=200)
    else:
        source = pathlib.Path(subject)
    drawings = sorted(source.rglob("*.dw[gt]"))
    if not drawings:
        raise SystemExit("there is no drawing to judge")
    complaints = [line for drawing in drawings for line in judge(tool, folder, str(drawing))]
    if mode == "own":
        complaints += [line for drawing in drawings for line in judge_own(drawing)]
    print("\n".join(complaints) or f"{len(drawings)} drawings agree")
    return 1 if complaints else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
