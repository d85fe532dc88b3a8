"""The registry of the Wine session that this runs in: changed and described for the records of session cases."""
import pathlib
import subprocess
import tempfile

WINE = "/usr/lib/wine/wine64"
HEADER = "Windows Registry Editor Version 5.00"


def wine(*arguments):
    return subprocess.run([WINE, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL, timeout=60).returncode


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


def import_text(*lines):
    with tempfile.NamedTemporaryFile(suffix=".reg") as file:
        text = "\r\n".join([HEADER, "", *lines, ""])
        file.write(b"\xff\xfe" + text.encode("utf-16-le"))
        file.flush()
        if wine("regedit", "/S", windows(file.name)) != 0:
            raise OSError("the registry was not changed")


def quoted(name):
    return '"' + name.replace("\\", "\\\\").replace('"', '\\"') + '"'


def value_name(name):
    return "@" if name == "" else quoted(name)


def delete_keys(*keys):
    import_text(*(f"[-{key}]" for key in keys))


def delete_value(key, name):
    import_text(f"[{key}]", f"{value_name(name)}=-")


def set_text(key, name, text):
    import_text(f"[{key}]", f"{value_name(name)}={quoted(text)}")


def set_number(key, name, number):
    import_text(f"[{key}]", f"{value_name(name)}=dword:{number:08x}")


def describe(key):
    """The key's values and those below it, one a line, in the order of their names."""
    with tempfile.TemporaryDirectory() as folder:
        exported = pathlib.Path(folder) / "key.reg"
        wine("regedit", "/E", windows(exported), key)
        if not exported.exists():
            return ["(no such key)"]
        lines = exported.read_bytes().decode("utf-16").replace("\\\r\n  ", "").splitlines()
    # Keys in the order of their names; the values follow their key.
    keys = {}
    for line in lines:
        if line.startswith("["):
            values = keys.setdefault(line, [])
        elif line and line != HEADER:
            values.append(line)
    if not keys:
        return ["(no such key)"]
    return [line for name in sorted(keys, key=lambda key: key[1:-1].lower()) for line in [name, *sorted(keys[name], key=str.lower)]]
