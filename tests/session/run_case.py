#!/usr/bin/env python3
"""Plays a session case in the Wine session that this runs in, and compares what it left with what is recorded.

    run_case.py CASE FOLDER [--accept]    with KV2D_BIN, the folder of the built programs

CASE is a folder with plan.txt, the scripts that the plan names, and expected.txt, the record. FOLDER is made anew for
the case: its share (drive P:) and what the case leaves. --accept writes expected.txt in place of comparing with it.
To accept a case after looking at its difference:

    cmake/wine-session build/wine env KV2D_BIN=$PWD/build/windows/bin tests/session/run_case.py \\
        tests/session/cases/NAME build/windows/session/NAME --accept

A plan has one step a line; an argument in double quotes may hold blanks; lines that begin with # are comments. Each
case starts with a share of its own, without the values that earlier sessions stored for the user.

    play SCRIPT [WORD] [fails]      starts the workbench and plays the script; WORD (PID, ELECTRIC, ISOMETRIC, ORTHO)
                                    names the discipline whose start-up file is loaded, - none. Records the transcript.
                                    A session must end with the status 0, or with "fails" with another.
    menusize NUMBER                 the user's setting for what follows
    environment NAME VALUE          sets a variable for the starts that follow; the empty value takes it away
    registry KEY                    records every value of the key and of those below it
    delete-key KEY                  deletes a key with all below it
    delete-value KEY NAME           deletes a value; the empty name is the key's own
    set-text KEY NAME TEXT          writes a text value
    set-number KEY NAME NUMBER      writes a number
    file PATH                       records a file of text
    lines PATH PATTERN              records the lines of a file that a regular expression finds
    folder PATH                     records the names below a folder
    drawing PATH                    records what the module keeps in a drawing
    remove PATH                     removes a file, if it is there
    copy FROM TO                    copies a file
    put PATH FILE                   copies a file of the case to a place in the session
    replace PATTERN TEXT            replaces in the whole record what a regular expression matches

Keys begin with HKEY_..., paths with a drive. Numbers of windows, the present month and the folders of this machine are
replaced by words in every record.
"""
import difflib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import time

import session_files
import session_registry

TOP = pathlib.Path(__file__).resolve().parent.parent.parent
USER_KEYS = (r"HKEY_CURRENT_USER\Software\KALVOR", r"HKEY_CURRENT_USER\Software\Workbench")
PATIENCE = 300  # seconds for one start of the workbench
CRASHED = 5  # the exit status of a program that Wine's debugger looks at
TRACE_PATIENCE = 20  # seconds for what it finds


class CaseFailed(Exception):
    pass


class Case:
    def __init__(self, case, folder):
        self.case = case
        self.folder = folder
        self.prefix = pathlib.Path(os.environ["WINEPREFIX"])
        self.bin = pathlib.Path(os.environ["KV2D_BIN"]).resolve()
        self.share = folder / "share"
        self.menu_size = "32"
        self.environment = {}
        self.replacements = []
        self.record = []

    def prepare(self):
        if self.folder.exists():
            subprocess.run(["chmod", "-R", "u+w", str(self.folder)], check=True)
            shutil.rmtree(self.folder)
        self.folder.mkdir(parents=True)
        subprocess.run([TOP / "demo" / "lay-out", self.share, self.bin], check=True)
        drive = self.prefix / "dosdevices" / "p:"
        drive.unlink(missing_ok=True)
        drive.symlink_to(self.share)
        session_registry.delete_keys(*USER_KEYS)
        # The module copies the controls from the share again: an earlier case may have left something else there.
        for control in (self.prefix / "drive_c" / "Program Files" / "Common Files" / "KALVOR").glob("*.ocx"):
            control.unlink()
        self.menusize(self.menu_size)

    def run(self):
        for number, line in enumerate((self.case / "plan.txt").read_text(encoding="utf-8").splitlines(), 1):
            words = self.words(line)
            if not words:
                continue
            step = getattr(self, "step_" + words[0].replace("-", "_"), None)
            if step is None:
                raise CaseFailed(f"plan.txt:{number}: there is no step {words[0]}")
            try:
                step(*words[1:])
            except (TypeError, OSError, ValueError) as error:
                raise CaseFailed(f"plan.txt:{number}: {line}: {error}") from error

    @staticmethod
    def words(line):
        lexer = shlex.shlex(line, posix=True)
        lexer.whitespace_split = True
        lexer.escape = ""
        lexer.quotes = '"'
        return list(lexer)

    def path(self, text):
        return session_files.find(self.prefix / "dosdevices", text)

    def add(self, title, lines):
        self.record += [f"== {title}", *lines, ""]

    # The steps.

    def step_play(self, script, word="-", *rest):
        if rest not in ((), ("fails",)):
            raise ValueError("behind the discipline only \"fails\" may stand")
        transcript = self.folder / "transcript.txt"
        transcript.unlink(missing_ok=True)
        arguments = ["/script", self.windows(self.case / script), "/transcript", self.windows(transcript)]
        if word != "-":
            arguments = ["/lisp", rf"P:\Application\Tessarc\{word}\startup.lsp", *arguments]
        environment = dict(os.environ, **self.environment, KV2D_BIN=str(self.bin), KV2D_SHARE=str(self.share), KV2D_DATA="",
                           KV2D_MENU_SIZE=self.menu_size)
        # Into a file: whatever reads a pipe that the Wine server inherits waits for ever.
        output = self.folder / "output.txt"
        with output.open("wb") as file:
            status = subprocess.run(["timeout", str(PATIENCE), TOP / "demo" / "start", *arguments], env=environment,
                                    stdin=subprocess.DEVNULL, stdout=file, stderr=file).returncode
        if status == CRASHED:
            self.wait_for_trace(output)
        said = transcript.read_text(encoding="utf-8").splitlines() if transcript.exists() else []
        self.add(f"{script} {word}", said)
        if (status != 0) != (rest == ("fails",)):
            errors = output.read_text(encoding="utf-8", errors="replace").splitlines()
            raise CaseFailed("\n".join([f"{script} ended with status {status}", *said, *errors]))

    @staticmethod
    def wait_for_trace(output):
        """The crash report is written by another program, which the end of the session would stop."""
        deadline = time.monotonic() + TRACE_PATIENCE
        while time.monotonic() < deadline and b"Backtrace" not in output.read_bytes():
            time.sleep(0.2)

    def step_menusize(self, number):
        self.menusize(number)

    def menusize(self, number):
        self.menu_size = number
        settings = self.prefix / "drive_c" / "ProgramData" / "KALVOR" / "Orvex 2023"
        settings.mkdir(parents=True, exist_ok=True)
        (settings / "UserSettings.ini").write_bytes(f"[AutoCAD Settings]\r\nMenuSize = {number}\r\n".encode())

    def step_environment(self, name, value):
        self.environment[name] = value

    def step_registry(self, key):
        self.add(key, session_registry.describe(key))

    def step_delete_key(self, key):
        session_registry.delete_keys(key)

    def step_delete_value(self, key, name):
        session_registry.delete_value(key, name)

    def step_set_text(self, key, name, text):
        session_registry.set_text(key, name, text)

    def step_set_number(self, key, name, number):
        session_registry.set_number(key, name, int(number))

    def step_file(self, path):
        self.add(path, session_files.describe_text(self.path(path)))

    def step_lines(self, path, pattern):
        found = [line for line in session_files.describe_text(self.path(path)) if re.search(pattern, line)]
        self.add(f"{path}, {pattern}", found)

    def step_folder(self, path):
        self.add(path, session_files.describe_folder(self.path(path)))

    def step_drawing(self, path):
        self.add(path, session_files.describe_drawing(self.path(path)))

    def step_remove(self, path):
        self.path(path).unlink(missing_ok=True)

    def step_copy(self, source, target):
        shutil.copyfile(self.path(source), self.path(target))

    def step_put(self, path, file):
        shutil.copyfile(self.case / file, self.path(path))

    def step_replace(self, pattern, text):
        self.replacements.append((re.compile(pattern), text))

    # The record.

    @staticmethod
    def windows(path):
        return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")

    def normalised(self):
        text = "\n".join(line.rstrip() for line in self.record).rstrip("\n") + "\n"
        for folder, word in ((self.bin, "<bin>"), (self.case, "<case>"), (self.folder, "<session>"), (TOP, "<top>")):
            text = re.sub(re.escape(self.windows(folder)), word, text, flags=re.IGNORECASE)
        text = re.sub(r"WindowHandle\\\d{6}\\\d+", r"WindowHandle\\<month>\\<window>", text)
        text = re.sub(r"WindowHandle\\\d{6}", r"WindowHandle\\<month>", text)
        for pattern, replacement in self.replacements:
            text = pattern.sub(replacement, text)
        return text


def main(case, folder, accept):
    if "WINEPREFIX" not in os.environ:
        raise SystemExit("run_case.py runs inside cmake/wine-session")
    played = Case(pathlib.Path(case).resolve(), pathlib.Path(folder).resolve())
    expected = played.case / "expected.txt"
    failure = None
    played.prepare()
    try:
        played.run()
    except CaseFailed as error:
        failure = str(error)
    got = played.normalised()
    (played.folder / "record.txt").write_text(got, encoding="utf-8")
    if failure is not None:
        raise SystemExit(failure)
    if accept:
        expected.write_text(got, encoding="utf-8")
        return
    wanted = expected.read_text(encoding="utf-8") if expected.exists() else ""
    difference = list(difflib.unified_diff(wanted.split("\n"), got.split("\n"), "recorded", "now", "", "", n=3))
    if difference:
        raise SystemExit("\n".join(difference))


if __name__ == "__main__":
    arguments = [word for word in sys.argv[1:] if word != "--accept"]
    if len(arguments) != 2:
        raise SystemExit(__doc__)
    main(*arguments, "--accept" in sys.argv[1:])
