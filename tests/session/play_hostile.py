#!/usr/bin/env python3
"""Plays a working day in a workbench that refuses: each call that the module makes of its host and of the system fails
in turn. Whatever fails, the session must come to its end by itself: no crash, no hang, no dialog that cannot be closed.

    play_hostile.py FOLDER [--every [FIRST [LAST]]]    in a Wine session, with KV2D_BIN, the folder of the programs

FOLDER is made anew for the share and the transcripts. Without --every, all calls of one name fail at once, name after
name (about a minute). With it, one call after the other by its number, from FIRST to LAST: that is exhaustive, and
takes half an hour for the whole day.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
SCRIPT = pathlib.Path(__file__).resolve().parent / "hostile" / "day.txt"
PATIENCE = 90  # seconds for one session
ENDS = {0: "the whole day", 1: "given up by the script"}


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


class Player:
    def __init__(self, folder):
        self.folder = folder
        self.bin = pathlib.Path(os.environ["KV2D_BIN"]).resolve()
        if folder.exists():
            subprocess.run(["chmod", "-R", "u+w", str(folder)], check=True)
            shutil.rmtree(folder)
        folder.mkdir(parents=True)

    def play(self, plan):
        """The exit status and the transcript of a day in which `plan` fails."""
        share = self.folder / "share"
        subprocess.run([TOP / "demo" / "lay-out", share, self.bin], check=True)
        transcript = self.folder / (re.sub(r"\W+", "-", plan) + ".txt")
        environment = dict(os.environ, KV2D_BIN=str(self.bin), KV2D_SHARE=str(share), KV2D_DATA="", KV2D_FORGET="1")
        with (self.folder / "output.txt").open("wb") as file:
            status = subprocess.run(
                ["timeout", str(PATIENCE), TOP / "demo" / "start", "/lisp", r"P:\Application\Tessarc\PID\startup.lsp",
                 "/script", windows(SCRIPT), "/transcript", windows(transcript), "/hostile", plan],
                env=environment, stdin=subprocess.DEVNULL, stdout=file, stderr=file).returncode
        text = transcript.read_text(encoding="utf-8") if transcript.exists() else ""
        return status, text

    def check(self, plan, name=None):
        """Plays a day and says what went wrong; None if nothing did."""
        status, text = self.play(plan)
        if status not in ENDS:
            crash = (self.folder / "output.txt").read_text(encoding="utf-8", errors="replace")
            return f"{plan}: exit status {status}\n{text[-1500:]}\n{crash[-1500:]}"
        last = text.rstrip().splitlines()[-1] if text.strip() else ""
        if not re.fullmatch(r"hostile: failed: (call \d+ \(\S+\).*)", last) or (name and f"({name})" not in last):
            return f"{plan}: nothing was made to fail, the last line is {last!r}"
        print(f"{plan}: {ENDS[status]}", flush=True)
        return None


def main(folder, every):
    if "WINEPREFIX" not in os.environ:
        raise SystemExit("play_hostile.py runs inside cmake/wine-session")
    player = Player(pathlib.Path(folder).resolve())
    status, text = player.play("count")
    if status != 0:
        raise SystemExit(f"the day does not pass without a failure: {status}\n{text}")
    counts = {name: int(count) for count, name in re.findall(r"^hostile: (\d+) (\S+)$", text, re.MULTILINE)}
    print(f"{sum(counts.values())} calls of {len(counts)} names", flush=True)
    if every is None:
        problems = [player.check(name, name) for name in counts]
    else:
        first = int(every[0]) if every else 1
        last = int(every[1]) if len(every) > 1 else sum(counts.values())
        problems = [player.check(str(number)) for number in range(first, last + 1)]
    problems = [problem for problem in problems if problem]
    if problems:
        raise SystemExit("\n\n".join(problems))


if __name__ == "__main__":
    if len(sys.argv) < 2 or (len(sys.argv) > 2 and sys.argv[2] != "--every") or len(sys.argv) > 5:
        raise SystemExit(__doc__)
    main(sys.argv[1], sys.argv[3:] if len(sys.argv) > 2 else None)
