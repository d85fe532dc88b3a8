"""Files of a Wine session, found by their Windows paths and described for the records of session cases."""
import pathlib

# What the module keeps in a drawing: application names of extended data, and a record of lines.
RECORD_APPLICATION = "KAL-VOR Software - TESSARC"
LINES_RECORD = "FilteredLineIds"
EXTENDED_DATA = 1000  # group codes from here on


def find(drives, path):
    """The file of a Windows path, found without regard to letter case; the last name may be missing."""
    drive, _, rest = path.partition(":\\")
    place = pathlib.Path(drives) / (drive.lower() + ":")
    for name in [part for part in rest.split("\\") if part]:
        same = [entry for entry in place.iterdir() if entry.name.lower() == name.lower()] if place.is_dir() else []
        place = same[0] if same else place / name
    return place


def describe_text(path):
    """A file's lines; line ends other than CR LF and bytes outside printable text show."""
    if not path.exists():
        return ["(no such file)"]
    text = path.read_bytes().decode("cp1252", "backslashreplace")
    lines = text.split("\r\n")
    if lines[-1] == "":
        lines.pop()
    else:
        lines[-1] += "<no line end>"
    return [line.replace("\r", "<CR>").replace("\n", "<LF>").replace("\t", "<TAB>") for line in lines]


def describe_folder(path):
    if not path.is_dir():
        return ["(no such folder)"]
    names = sorted(path.rglob("*"), key=lambda entry: str(entry).lower())
    return [str(entry.relative_to(path)).replace("/", "\\") + ("\\" if entry.is_dir() else "") for entry in names]


def groups(path):
    lines = path.read_bytes().decode("utf-8", "surrogateescape").splitlines()
    return [(int(code), value) for code, value in zip(lines[::2], lines[1::2])]


def entities(path):
    """The parts of a drawing file that begin with a group 0: lists of groups."""
    parts = []
    for code, value in groups(path):
        if code == 0:
            parts.append([])
        parts[-1].append((code, value))
    return parts


def extended_data(part):
    """The groups of the module's application."""
    application, found = "", []
    for code, value in part:
        if code == 1001:
            application = value
        elif code >= EXTENDED_DATA and application == RECORD_APPLICATION:
            found.append(f"  {code} {value}")
    return found


def names_of_records(parts):
    """Handle of a record: the name that a dictionary gives it."""
    names = {}
    for part in parts:
        name = ""
        for code, value in part if part[0][1] == "DICTIONARY" else []:
            if code == 3:
                name = value
            elif code in (350, 360):
                names[value] = name
    return names


def describe_drawing(path):
    """The extended data of the module's application wherever it stands, and the records of lines."""
    if not path.exists():
        return ["(no such file)"]
    parts = entities(path)
    names = names_of_records(parts)
    described = []
    for part in parts:
        found = extended_data(part)
        if found:
            name = next((value for code, value in part if code == 2), "")
            described += [f"{part[0][1]} {name}".rstrip(), *found]
        handle = next((value for code, value in part if code == 5), "")
        if part[0][1] == "XRECORD" and names.get(handle) == LINES_RECORD:
            start = part.index((100, "AcDbXrecord")) + 1
            described += [LINES_RECORD, *(f"  {code} {value}" for code, value in part[start:] if code != 280)]
    return described or ["(nothing of the module's)"]
