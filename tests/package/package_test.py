"""Installs the package as its own install guide says, in a prefix where nothing of ours was before, starts it, and
uninstalls it.

  package_test.py TOP BIN DIR            makes the package from the programs in BIN and does everything else in DIR
  package_test.py --inside ROOT SHARE    the part that runs in the new prefix
"""

import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree
import zipfile

WINE = "/usr/lib/wine/wine64"
GUIDE = "docs/install.md"
PRODUCT_KEY = r"Software\Workbench\R1.0\WB-1:409"
MODULE = r"C:\Program Files\KALVOR\Orvex 2023\kv2dMenu.bundle\Contents\kv2dMenuOEM64.arx"

# With an empty share: the palette with its menu, then the Drawing Manager, which says that there are no standards.
SCRIPT = """\
@timeout 60
@waitidle
@assertpalette PID left
@waitcontrol "Drawing Mgr"
@assertvisible 201 yes
@picture palette
_kv2dDrawingManager
@waittext "No standards have been created"
@picture drawing-manager
@click "OK"
@wait "Drawing Manager"
@closedialog
@waittext "You must open a drawing that is under project control"
@click "Yes"
@waitgone "Drawing Manager"
"""


def check(condition, message):
    if not condition:
        sys.exit(f"package_test: {message}")


def run(command, seconds=120, **options):
    result = subprocess.run(command, timeout=seconds, capture_output=True, text=True, check=False,
                            stdin=subprocess.DEVNULL, **options)
    return result.returncode, result.stdout + result.stderr


def wine(*arguments, seconds=120):
    return run([WINE, *arguments], seconds)


def host_path(windows_path):
    """Where a path of the prefix lies outside of it."""
    drive, rest = windows_path[0].lower(), windows_path[2:].replace("\\", "/").lstrip("/")
    return pathlib.Path(os.environ["WINEPREFIX"]) / "dosdevices" / f"{drive}:" / rest


def z_path(path):
    return "Z:" + str(path).replace("/", "\\")


def section(guide, title):
    match = re.search(rf"^## {re.escape(title)}\n(.*?)(?=^## |\Z)", guide, flags=re.S | re.M)
    check(match, f"the guide has no section {title}")
    return match.group(1)


def commands(text):
    """The command lines of a section, each split into its arguments."""
    for line in re.findall(r"^    (\S.*)$", text, flags=re.M):
        yield [plain or quoted for quoted, plain in re.findall(r'"([^"]*)"|(\S+)', line)]


def check_sums(root):
    listed = {}
    for line in (root / "SHA256SUMS").read_text(encoding="utf-8").splitlines():
        digest, _, name = line.partition("  ")
        listed[name] = digest
    found = {p.relative_to(root).as_posix(): p for p in root.rglob("*") if p.is_file() and p.name != "SHA256SUMS"}
    check(set(listed) == set(found), f"SHA256SUMS and the files differ: {sorted(set(listed) ^ set(found))}")
    for name, path in found.items():
        check(hashlib.sha256(path.read_bytes()).hexdigest() == listed[name], f"the checksum of {name} is wrong")


def check_descriptions(top, root):
    """The bundle's description and the registry file name the module and its commands as they are."""
    source = (top / "src/shell/menu_app.cpp").read_text(encoding="utf-8")
    wanted = set(re.findall(r"ACED_ARXCOMMAND_ENTRY_AUTO\(\w+, \w+, (\w+), (\w+),", source))
    check(len(wanted) == 2, f"menu_app.cpp has the commands {wanted}")
    bundle = root / "kv2dMenu.bundle"
    description = xml.etree.ElementTree.parse(bundle / "PackageContents.xml").getroot()
    check(description.tag == "ApplicationPackage", "PackageContents.xml has another root")
    entry = description.find("Components/ComponentEntry")
    check((bundle / entry.get("ModuleName")).is_file(), "the bundle's module is not where its description says")
    told = {(c.get("Global"), c.get("Local")) for c in entry.findall("Commands/Command")}
    check(told == wanted, f"PackageContents.xml tells the commands {told}")
    registry = (root / "Registry/load-on-demand.reg").read_text(encoding="utf-16")
    told = set(re.findall(r'^"(\w+)"="(\w+)"$', registry.partition("\\Commands]")[2].partition("[")[0], flags=re.M))
    check(told == wanted, f"load-on-demand.reg tells the commands {told}")


def install(root, share):
    """What the guide's table says: copies, and registry files."""
    guide = (root / GUIDE).read_text(encoding="utf-8")
    rows = re.findall(r"^\| `([^`]+)` \| `([^`]+)`", section(guide, "Where everything goes"), flags=re.M)
    check(len(rows) >= 4, f"the guide's table has the rows {rows}")
    share.mkdir()
    host_path("P:\\").parent.joinpath("p:").symlink_to(share)
    for source, target in rows:
        source = source.rstrip("\\").replace("\\", "/")
        destination = host_path(target)
        check(list(root.glob(source)), f"the package has no {source}")
        for path in root.glob(source):
            if path.is_dir():
                shutil.copytree(path, destination, dirs_exist_ok=True)
            else:
                place = destination / path.name if target.endswith("\\") else destination
                place.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy2(path, place)
    edited = root / "Registry/edited.reg"
    edited.write_text((root / "Registry/load-on-demand.reg").read_text(encoding="utf-16").replace(
        "PRODUCT-KEY", PRODUCT_KEY), encoding="utf-16")
    for path in [root / "Registry/machine.reg", edited]:
        check(wine("regedit", "/S", z_path(path))[0] == 0, f"{path.name} cannot be imported")
    for arguments in commands(section(guide, "The two controls")):
        status, output = wine(*arguments)
        check(status == 0, f"{' '.join(arguments)} ended with {status}: {output}")
    return guide


def start(guide, root):
    out = root.parent / "out"
    out.mkdir()
    script = out / "script.txt"
    script.write_text(SCRIPT, encoding="utf-8")
    lines = list(commands(section(guide, "Trying it in the workbench")))
    check(len(lines) == 1, f"the guide starts the workbench with {lines}")
    transcript = out / "transcript.txt"
    # The trace, as the guide describes it.
    os.environ["KV2D_TRACE"] = r"C:\trace.txt"
    status, output = wine(*lines[0], "/script", z_path(script), "/transcript", z_path(transcript), "/pictures", z_path(out),
                          seconds=300)
    said = transcript.read_text(encoding="utf-8") if transcript.exists() else "there is no transcript"
    print(said)
    check(status == 0, f"the workbench ended with {status}\n{output}")
    return said


def registry_value(key, name):
    return wine("reg", "query", key, "/v", name)[1]


def has_key(key):
    return wine("reg", "query", key)[0] == 0


def check_trace(guide):
    lines = host_path(r"C:\trace.txt").read_text(encoding="cp1252").splitlines()
    names = {line[2:].rpartition("::")[2] for line in lines}
    for name in ["UpdateForDocument", "OnTimer", "OnBnClickedButtonDrawingManager", "kv2dMenu_kv2dDrawingManager()"]:
        check(name in names and f"{name}`" in guide, f"the trace is {lines}")
    inside = [line for line in lines if "OnKV2DNotify" not in line]
    check(inside.count("- " + inside[0][2:]) == inside.count(inside[0]), f"the trace has no pairs: {lines}")


def uninstall(guide):
    """The guide's commands; nothing of the machine's is left."""
    for arguments in commands(section(guide, "Uninstalling")):
        status, output = wine(*(a.replace("PRODUCT-KEY", PRODUCT_KEY) for a in arguments))
        check(status == 0, f"{' '.join(arguments)} ended with {status}: {output}")
    for key in [r"HKLM\Software\KALVOR\Orvex\2023", r"HKCU\Software\KALVOR\Orvex\2023",
                rf"HKLM\{PRODUCT_KEY}\Applications\kv2dMenu", r"HKCR\TypeLib\{77529779-442F-43F2-9932-A4876EB56D8D}",
                r"HKCR\CLSID\{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}", r"HKCR\AUTOCAD.DwgThumbnailCtrl.4"]:
        check(not has_key(key), f"{key} is left")
    for folder in [r"C:\Program Files\KALVOR\Orvex 2023\kv2dMenu.bundle", r"C:\ProgramData\KALVOR\Orvex 2023"]:
        check(not host_path(folder).exists(), f"{folder} is left")
    left = list(host_path(r"C:\Program Files\Common Files\KALVOR").iterdir())
    check(not left, f"{left} are left")


def inside(root, share):
    check(not has_key(r"HKLM\Software\KALVOR"), "the prefix knows the product already")
    guide = install(root, share)
    loader = registry_value(rf"HKLM\{PRODUCT_KEY}\Applications\kv2dMenu", "LOADER")
    check(MODULE in loader and host_path(MODULE).is_file(), f"load on demand would load {loader}")
    said = start(guide, root)
    check(f"Loading {MODULE}..." in said, "the transcript does not tell that the installed module was loaded")
    shown = registry_value(r"HKCU\Software\KALVOR\Orvex\2023\KALVOR 2D\PID\ToolboxMenu", "Show Menu")
    check("0x1" in shown, f"the palette did not store that it shows: {shown}")
    check_trace(guide)
    uninstall(guide)
    print("package_test: installed, started and uninstalled")


def main():
    if sys.argv[1] == "--inside":
        inside(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]))
        return
    top, binaries, folder = (pathlib.Path(a).resolve() for a in sys.argv[1:4])
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    status, output = run([sys.executable, top / "packaging/make_package.py", binaries, folder / "dist"])
    check(status == 0, output)
    package = pathlib.Path(output.strip())
    with zipfile.ZipFile(package) as archive:
        archive.extractall(folder)
    root = folder / package.stem
    check_sums(root)
    check_descriptions(top, root)
    try:
        status, output = run([top / "cmake/wine-session", folder / "session", sys.executable, __file__, "--inside", root,
                              folder / "share"], 600)
    finally:
        shutil.rmtree(folder / "session", ignore_errors=True)
    print(output)
    check(status == 0, f"ended with {status}")


main()
