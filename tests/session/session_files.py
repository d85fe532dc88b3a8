"""Files of a Wine session, found by their Windows paths and described for the records of session cases."""
import pathlib

import ezdxf

# What the module keeps in a drawing: application names of extended data, and a record of lines.
RECORD_APPLICATION = "KAL-VOR Software - TESSARC"
LINES_RECORD = "FilteredLineIds"


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


def described(tags):
    return [f"  {tag.code} {tag.value}".rstrip() for tag in tags]


def describe_drawing(path):
    """What an outside reader finds of the module in a drawing: the extended data of its application, wherever it
    stands, and the records of lines. An error that the reader's audit finds ends the case."""
    if not path.exists():
        return ["(no such file)"]
    drawing = ezdxf.readfile(path)
    errors = drawing.audit().errors
    if errors:
        raise ValueError(f"{path}: {errors[0].message}")
    lines = []
    for entity in drawing.entitydb.values():
        if entity.has_xdata(RECORD_APPLICATION):
            name = entity.dxf.get("name", "")
            data = entity.get_xdata(RECORD_APPLICATION)
            lines += [f"{entity.dxftype()} {name}".rstrip(), *described(data)]
        if entity.dxftype() == "DICTIONARY" and LINES_RECORD in entity:
            lines += [LINES_RECORD, *described(entity[LINES_RECORD].tags)]
    return lines or ["(nothing of the module's)"]
