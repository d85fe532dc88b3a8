"""Makes the demonstration drawings anew and compares what they hold with those in the share.

    up_to_date.py DEMO FOLDER    FOLDER is for the new drawings
"""
import difflib
import pathlib
import subprocess
import sys

import ezdxf

from describe import describe


def main(demo, folder):
    demo, folder = pathlib.Path(demo), pathlib.Path(folder)
    subprocess.run([sys.executable, "-B", demo / "drawings" / "make_drawings.py", folder], check=True, timeout=200)

    def names(share):
        return sorted(path.relative_to(share) for path in share.rglob("*.dw[gt]"))

    share = demo / "share"
    if names(share) != names(folder):
        print("the share has other drawings:", set(names(share)) ^ set(names(folder)))
        return 1
    stale = 0
    for name in names(share):
        kept, made = describe(ezdxf.readfile(share / name)), describe(ezdxf.readfile(folder / name))
        difference = list(difflib.unified_diff(kept, made, str(name), "made anew", "", "", n=0))
        print("\n".join(difference[:20]) if difference else f"{name} is up to date")
        stale += bool(difference)
    return 1 if stale else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
