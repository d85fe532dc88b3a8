"""Checks a drawing file where other readers are lax. Knows nothing of ezdxf: groups as they stand in the file."""
import re

LONGEST_XDATA_TEXT = 255
LONGEST_XDATA = 16 * 1024
LONGEST_LINE = 2049
SECTIONS = ["HEADER", "CLASSES", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"]


def read_groups(data):
    lines = data.split(b"\r\n")
    if lines.pop() != b"":
        raise ValueError("the last line has no end")
    if len(lines) % 2:
        raise ValueError("a group code has no value")
    return [(int(lines[i]), lines[i + 1]) for i in range(0, len(lines), 2)]


class Record:
    def __init__(self, kind):
        self.kind, self.groups = kind, []

    def head(self):
        """The groups ahead of the first subclass marker."""
        codes = [code for code, _ in self.groups]
        return self.groups[:codes.index(100)] if 100 in codes else self.groups

    def handle(self):
        wanted = 105 if self.kind == "DIMSTYLE" and any(code == 105 for code, _ in self.groups) else 5
        return next((int(value, 16) for code, value in self.groups if code == wanted), None)

    def xdata(self):
        codes = [code for code, _ in self.groups]
        return self.groups[codes.index(1001):] if 1001 in codes else []

    def first(self, code):
        return next((value for c, value in self.groups if c == code), None)


def read_records(groups):
    records = []
    for code, value in groups:
        if code == 0:
            records.append(Record(value.decode("ascii")))
        else:
            records[-1].groups.append((code, value))
    return records


def check_text(groups):
    for code, value in groups:
        if any(byte < 32 for byte in value):
            yield f"a control character in {value!r}"
        if len(value) > LONGEST_LINE:
            yield f"a line of {len(value)} bytes"
        for digits in re.findall(rb"\\U\+([0-9A-Fa-f]{4})", value):
            if digits != digits.upper():
                yield f"an escape in lower case: {value!r}"


def check_sections(records):
    names = [record.first(2).decode("ascii") for record in records if record.kind == "SECTION"]
    if names[:len(SECTIONS)] != SECTIONS:
        yield f"sections {names}"
    if records[-1].kind != "EOF":
        yield "no end mark"


def check_handles(records):
    handles = {}
    for record in records:
        handle = record.handle()
        if record.kind == "SECTION" or handle is None:
            if record.kind not in ("SECTION", "ENDSEC", "ENDTAB", "EOF", "CLASS"):
                yield f"{record.kind} has no handle"
            continue
        if handle in handles:
            yield f"handle {handle:X} stands on {handles[handle]} and {record.kind}"
        handles[handle] = record.kind
    header = records[0].groups
    variables = {value: header[i + 1] for i, (code, value) in enumerate(header) if code == 9}
    seed = int(variables[b"$HANDSEED"][1], 16)
    if seed <= max(handles):
        yield f"the handle seed {seed:X} is not above {max(handles):X}"
    for record in records:
        if record.handle() is None or record.kind == "SECTION":
            continue
        for code, value in record.head():
            if code in (330, 360) and value != b"0" and int(value, 16) not in handles:
                yield f"{record.kind} {record.handle():X} refers to {value.decode()}, which is not there"
        owner = next((value for code, value in reversed(record.head()) if code == 330), None)
        if owner is None or (owner == b"0" and record.kind not in ("TABLE", "DICTIONARY")):
            yield f"{record.kind} {record.handle():X} has no owner"
        if record.kind == "DICTIONARY":
            for code, value in record.groups:
                if code in (350, 360) and int(value, 16) not in handles:
                    yield f"a dictionary entry {value.decode()} is not there"


def check_xdata(records):
    registered = {record.first(2) for record in records if record.kind == "APPID"}
    for record in records:
        depth, size = 0, 0
        for code, value in record.xdata():
            size += len(value)
            if code < 1000:
                yield f"group {code} in the extended data of {record.kind}"
            if code == 1001:
                if value not in registered:
                    yield f"application {value!r} is not registered"
                if depth:
                    yield f"braces open at the end of an application's data on {record.kind}"
            if code == 1000 and len(value) > LONGEST_XDATA_TEXT:
                yield f"a text of {len(value)} bytes in extended data"
            if code == 1002:
                depth += 1 if value == b"{" else -1
                if value not in (b"{", b"}") or depth < 0:
                    yield f"brace {value!r} on {record.kind}"
        if depth or size > LONGEST_XDATA:
            yield f"braces or size of the extended data of {record.kind}"


def check_lists(records):
    for record in records:
        depth = 0
        for code, value in record.groups:
            if record.kind == "XRECORD" and code == 100 and value == b"AcDbXrecord":
                break
            if code == 102:
                depth += 1 if value.startswith(b"{") else -1
        if depth:
            yield f"lists of applications (102) in {record.kind}"


def check_sequences(records):
    following = None  # the kind that must go on, of an open sequence
    for record in records:
        if following is not None:
            if record.kind == "SEQEND":
                following = None
            elif record.kind != following:
                yield f"{record.kind} stands in a sequence of {following}"
                following = None
            continue
        if record.kind in ("ATTRIB", "VERTEX", "SEQEND"):
            yield f"{record.kind} stands outside of a sequence"
        if record.kind == "POLYLINE":
            following = "VERTEX"
        elif record.kind == "INSERT" and record.first(66) == b"1":
            following = "ATTRIB"


def check_counts(records):
    counted, expected, name = 0, None, None
    for record in records:
        if record.kind == "TABLE":
            counted, expected, name = 0, int(record.first(70)), record.first(2)
        elif record.kind == "ENDTAB":
            if counted != expected:
                yield f"table {name!r} has {counted} records and says {expected}"
            expected = None
        elif expected is not None:
            counted += 1


def strict_faults(data):
    """A list of sentences; empty for a file without a fault."""
    try:
        groups = read_groups(data)
    except ValueError as error:
        return [str(error)]
    records = read_records(groups)
    faults = list(check_text(groups))
    for check in (check_sections, check_handles, check_xdata, check_lists, check_sequences, check_counts):
        faults += check(records)
    return faults
