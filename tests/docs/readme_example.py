"""Plays the worked example of the README, as ./run --script does, and compares what it prints with what the README
says. Runs inside a Wine session.

  readme_example.py TOP DIR   with KV2D_BIN, KV2D_SHARE and KV2D_DATA as demo/start wants them
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys

# What an earlier session leaves behind and ./run --script does not find: its share and its prefix are its own.
KEYS = ["HKCU\\Software\\Workbench", "HKCU\\Software\\KALVOR"]


def z_path(path):
    return "Z:" + str(path).replace("/", "\\")


def examples(readme):
    """The script and the transcript: the two fenced blocks of the section."""
    section = re.search(r"^## A worked example\n(.*?)(?=^## |\Z)", readme, flags=re.S | re.M)
    blocks = re.findall(r"^```\w*\n(.*?)^```$", section.group(1), flags=re.S | re.M) if section else []
    if len(blocks) != 2:
        sys.exit(f"README.md has {len(blocks)} blocks in the worked example, not a script and a transcript")
    return blocks


def lines(text):
    return [line.rstrip() for line in text.replace("\r", "").strip().split("\n")]


def agree(said, expected):
    """Line by line; the README's "…" stands for any text, such as the path of this clone."""
    patterns = [re.escape(line).replace("…", ".+") for line in lines(expected)]
    return len(patterns) == len(lines(said)) and all(map(re.fullmatch, patterns, lines(said)))


def main():
    top, folder = (pathlib.Path(a).resolve() for a in sys.argv[1:3])
    if "WINEPREFIX" not in os.environ:
        sys.exit("readme_example.py runs inside cmake/wine-session")
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    script, expected = examples((top / "README.md").read_text(encoding="utf-8"))
    (folder / "script.txt").write_text(script, encoding="utf-8")
    transcript = folder / "transcript.txt"
    for key in KEYS:
        subprocess.run(["/usr/lib/wine/wine64", "reg", "delete", key, "/f"], stdin=subprocess.DEVNULL,
                       capture_output=True, check=False, timeout=60)
    subprocess.run([top / "demo/lay-out", os.environ["KV2D_SHARE"], os.environ["KV2D_BIN"]], check=True, timeout=60)
    result = subprocess.run(
        [top / "demo/start", "/lisp", "P:\\Application\\Tessarc\\PID\\startup.lsp", "/script",
         z_path(folder / "script.txt"), "/transcript", z_path(transcript)],
        stdin=subprocess.DEVNULL, check=False, timeout=240)
    said = transcript.read_text(encoding="utf-8") if transcript.exists() else ""
    if result.returncode or not agree(said, expected):
        sys.exit(f"status {result.returncode}\n--- README.md\n{expected}\n--- printed\n{said}")


main()
