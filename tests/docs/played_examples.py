"""Plays the examples of the documentation, as ./run --script does, and compares what is printed with what the page says.
Runs inside a Wine session.

  played_examples.py readme TOP DIR   the worked example of the README: a block with a script, a block with its transcript
  played_examples.py lisp TOP DIR     the blocks of docs/lisp.md that begin with "Command:", all in one session

KV2D_BIN, KV2D_SHARE and KV2D_DATA are as demo/start wants them.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

PROMPT = "Command: "


def z_path(path):
    return "Z:" + str(path).replace("/", "\\")


def blocks_of(page):
    return re.findall(r"^```\w*\n(.*?)^```$", page, flags=re.S | re.M)


def readme_example(page):
    """The script, and the whole transcript."""
    section = re.search(r"^## A worked example\n(.*?)(?=^## |\Z)", page, flags=re.S | re.M)
    blocks = blocks_of(section.group(1)) if section else []
    if len(blocks) != 2:
        sys.exit(f"the worked example has {len(blocks)} blocks, not a script and a transcript")
    return blocks[0], blocks[1]


def lisp_examples(page):
    """What is typed in the blocks, and a transcript with the lines around a session."""
    blocks = [block for block in blocks_of(page) if block.startswith(PROMPT)]
    if len(blocks) < 5:
        sys.exit(f"docs/lisp.md has {len(blocks)} blocks that begin with {PROMPT}")
    typed = [line[len(PROMPT):] for line in lines("".join(blocks)) if line.startswith(PROMPT)]
    # The drawing's record has been written on the way.
    ending = "[Workbench: Save changes to Drawing1.dwg?]\nUnloading …\n"
    return "\n".join(typed) + "\n", "Loading …\n" + "".join(blocks) + ending


def lines(text):
    return [line.rstrip() for line in text.splitlines() if line.strip()]


def agree(said, expected):
    """Line by line; the page's "…" stands for any text, such as the path of this clone."""
    patterns = [re.escape(line).replace("…", ".+") for line in lines(expected)]
    return len(patterns) == len(lines(said)) and all(map(re.fullmatch, patterns, lines(said)))


def play(top, folder, script):
    (folder / "script.txt").write_text(script, encoding="utf-8")
    transcript = folder / "transcript.txt"
    subprocess.run([top / "demo/lay-out", os.environ["KV2D_SHARE"], os.environ["KV2D_BIN"]], check=True, timeout=60)
    # Forgetting what an earlier session in this prefix left behind: ./run --script finds none of it.
    result = subprocess.run(
        [top / "demo/start", "/lisp", "P:\\Application\\Tessarc\\PID\\startup.lsp", "/script",
         z_path(folder / "script.txt"), "/transcript", z_path(transcript)],
        env=dict(os.environ, KV2D_FORGET="1"), stdin=subprocess.DEVNULL, check=False, timeout=240)
    return result.returncode, transcript.read_text(encoding="utf-8") if transcript.exists() else ""


def main():
    top, folder = (pathlib.Path(a).resolve() for a in sys.argv[2:4])
    if "WINEPREFIX" not in os.environ:
        sys.exit("played_examples.py runs inside cmake/wine-session")
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    if sys.argv[1] == "readme":
        script, expected = readme_example((top / "README.md").read_text(encoding="utf-8"))
    else:
        script, expected = lisp_examples((top / "docs/lisp.md").read_text(encoding="utf-8"))
    status, said = play(top, folder, script)
    if status or not agree(said, expected):
        sys.exit(f"status {status}\n--- the page\n{expected}\n--- printed\n{said}")


main()
