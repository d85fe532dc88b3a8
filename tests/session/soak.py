#!/usr/bin/env python3
"""A soak: random actions of a designer in one session of the workbench, from a seed that is printed and can be given
again. It fails if the session does not end as it should, or holds more of the system at the end than half-way: until
then each part of the program has been seen once, with the icons and fonts that it keeps.

    soak.py FOLDER [--actions N] [--seed N]    in a Wine session, with KV2D_BIN, the folder of the programs

A designer does something every five seconds or so: 720 actions stand for an hour, and are the number without --actions.
FOLDER is made anew for the share, the script and the transcript.
"""
import argparse
import os
import pathlib
import random
import re
import shutil
import subprocess

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
PATIENCE = 3000  # seconds

PUMP_STATION = r"Northwater Utilities\Pump Station 4"
SOLVENTS = r"Brightfield Chemicals\Solvent Recovery"
DRAWINGS = {"PS4-PID-001": PUMP_STATION, "SR-PID-001": SOLVENTS}
PATHS = {"PS4-PID-001": r"P:\Drawings\Pump Station 4\P&ID\PS4-PID-001.dwg",
         "SR-PID-001": r"P:\Drawings\Solvent Recovery\P&ID\SR-PID-001.dwg"}
SPECS = {"PS4-PID-001": ["CS150", "CS300"], "SR-PID-001": ["BF-SOLV"]}
SIZES = {"PS4-PID-001": ['2"', '4"', '6"', '8"'], "SR-PID-001": ["DN 50", "DN 80", "DN 100"]}

# How much more there may be at the end: the system keeps some objects for itself.
ALLOWED = {"gdi": 20, "windows": 0, "handles": 10, "memory": 1024}


def quoted(text):
    return '"' + text.replace('"', '""') + '"'


class Designer:
    """Writes the script, and knows what is open while it is played."""

    def __init__(self, seed):
        self.random = random.Random(seed)
        self.open = []
        self.current = None
        self.lines = 0
        self.script = ["@timeout 60", "@waitidle", "_kv2dDrawingManager", '@wait "Drawing Manager"']
        self.leave_manager("PS4-PID-001")

    def say(self, *lines):
        self.script += lines

    def leave_manager(self, drawing):
        self.say(f"@tree 206 {quoted(DRAWINGS[drawing])}", f"@row 202 {drawing}", "@click 1038",
                 '@waitgone "Drawing Manager"', "@waitidle", f"@assertdocument {drawing}.dwg")
        if drawing not in self.open:
            self.open.append(drawing)
        self.current = drawing

    # The actions.

    def choose_spec(self):
        self.say(f"@choose 209 {quoted(self.random.choice(SPECS[self.current]))}", "@waitidle")

    def choose_size(self):
        self.say(f"@choose 211 {quoted(self.random.choice(SIZES[self.current]))}", "@waitidle")

    def new_line(self):
        self.lines += 1
        self.say("@click 217", '@wait "New Line Number"', f"@settext 203 SOAK-{self.lines}", "@click 1",
                 '@waitgone "New Line Number"', f"@assertchoice 213 SOAK-{self.lines}")

    def think_better_of_a_line(self):
        self.say("@click 217", '@wait "New Line Number"', "@settext 203 never", "@click 2",
                 '@waitgone "New Line Number"')

    def pick_from_the_menu(self):
        self.say(f"@clickat 201 {self.random.randint(5, 80)} {self.random.randint(5, 150)}")
        # The item may be one that opens a dialog, which takes a moment; without one, Escape does no harm.
        self.say(*["@press Escape"] * 3, "@waitidle")

    def look_into_the_manager(self):
        self.say("_kv2dDrawingManager", '@wait "Drawing Manager"')
        for _ in range(self.random.randint(0, 3)):
            self.say(f"@tree 206 {quoted(self.random.choice([PUMP_STATION, SOLVENTS]))}")
        self.say(*self.random.choice([[], ["@click 1040", "@click 1040"]]), "@closedialog",
                 '@waitgone "Drawing Manager"', "@waitidle")

    def open_from_the_manager(self):
        closed = [drawing for drawing in DRAWINGS if drawing not in self.open]
        if not closed:
            self.switch()
            return
        self.say("_kv2dDrawingManager", '@wait "Drawing Manager"')
        self.leave_manager(self.random.choice(closed))

    def switch(self):
        self.current = self.random.choice(self.open)
        self.say(f"@menu {quoted(f'Window{chr(92)}{self.current}.dwg')}", "@waitidle",
                 f"@assertdocument {self.current}.dwg")

    def close(self):
        if len(self.open) < 2:
            self.change_palette()
            return
        self.say("_QSAVE", "@waitidle", "_CLOSE", "@waitidle")
        self.open.remove(self.current)
        self.current = self.open[0]

    def draw(self):
        x, y = self.random.randint(0, 200), self.random.randint(0, 200)
        self.say("_LINE", f"{x},{y}", f"{x + 10},{y}", "", "@waitidle")

    def change_isoplane(self):
        self.say(f'(setvar "SNAPISOPAIR" {self.random.randint(0, 2)})', "@waitidle")

    def change_palette(self):
        self.say(f"@dock PID {self.random.choice(['left', 'right', 'floating'])}")

    def change_workspace(self):
        self.say('(setvar "WSCURRENT" "Drafting")', "@waitidle")

    def act(self):
        self.random.choice([
            self.choose_spec, self.choose_size, self.new_line, self.think_better_of_a_line, self.pick_from_the_menu,
            self.look_into_the_manager, self.open_from_the_manager, self.switch, self.switch, self.close, self.draw,
            self.change_isoplane, self.change_palette, self.change_workspace])()


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


def play(folder, script):
    share = folder / "share"
    bin_folder = pathlib.Path(os.environ["KV2D_BIN"]).resolve()
    subprocess.run([TOP / "demo" / "lay-out", share, bin_folder], check=True)
    transcript = folder / "transcript.txt"
    with (folder / "output.txt").open("wb") as file:
        status = subprocess.run(
            ["timeout", str(PATIENCE), TOP / "demo" / "start", "/lisp", r"P:\Application\Tessarc\PID\startup.lsp",
             "/script", windows(script), "/transcript", windows(transcript)],
            env=dict(os.environ, KV2D_BIN=str(bin_folder), KV2D_SHARE=str(share), KV2D_DATA="", KV2D_FORGET="1"),
            stdin=subprocess.DEVNULL, stdout=file, stderr=file).returncode
    text = transcript.read_text(encoding="utf-8") if transcript.exists() else ""
    if status != 0:
        raise SystemExit(f"the session ended with status {status}\n{text[-3000:]}")
    return text


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("folder")
    parser.add_argument("--actions", type=int, default=720)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(10**6))
    arguments = parser.parse_args()
    if "WINEPREFIX" not in os.environ:
        raise SystemExit("soak.py runs inside cmake/wine-session")
    print(f"seed {arguments.seed}, {arguments.actions} actions", flush=True)
    folder = pathlib.Path(arguments.folder).resolve()
    if folder.exists():
        subprocess.run(["chmod", "-R", "u+w", str(folder)], check=True)
        shutil.rmtree(folder)
    folder.mkdir(parents=True)

    designer = Designer(arguments.seed)
    for number in range(arguments.actions):
        if number % max(1, arguments.actions // 10) == 0 and number > 0:
            designer.say("@resources")
        designer.act()
    designer.say("@resources")
    script = folder / "script.txt"
    script.write_text("\n".join(designer.script) + "\n", encoding="utf-8")
    text = play(folder, script)

    counts = [dict(zip(words[::2], map(int, words[1::2])))
              for words in (line.split() for line in re.findall(r"^gdi \d+ windows .*$", text, re.MULTILINE))]
    middle, last = counts[len(counts) // 2], counts[-1]
    print(f"first {counts[0]}\nmiddle {middle}\nlast {last}")
    grown = [name for name, more in ALLOWED.items() if last[name] > middle[name] + more]
    if grown:
        raise SystemExit("there is more at the end of: " + ", ".join(grown))


if __name__ == "__main__":
    main()
