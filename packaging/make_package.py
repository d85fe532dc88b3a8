"""Makes the package: a zip with everything that an installation takes, and nothing that is not in the list below.

  make_package.py BIN OUT   BIN is the folder of the built programs; the zip goes to OUT, whose path is printed
"""

import hashlib
import pathlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

TOP = pathlib.Path(__file__).resolve().parent.parent
RUNTIMES = ["libstdc++-6.dll", "libgcc_s_seh-1.dll", "libwinpthread-1.dll"]
CONTROLS = ["KalvorMenu.ocx", "DwgThumbnail.ocx"]
DISCIPLINES = ["ELECTRIC", "PID", "ISOMETRIC", "ORTHO"]
STRIP = "x86_64-w64-mingw32-strip"
# A share starts with these and nothing in them.
EMPTY_FOLDERS = ["Share/Datafiles/Libraries", "Share/Datafiles/Projects", "Share/Datafiles/Standards/Piping",
                 "Share/Drawings", "Share/Local/Help", "Share/Templates"]


def put_program(source, folder):
    folder.mkdir(parents=True, exist_ok=True)
    subprocess.run([STRIP, "-o", folder / source.name, source], check=True)


def put_text(source, target, version, encoding="utf-8"):
    """With the line ends of Windows; registry files in the one encoding that keeps every letter."""
    text = source.read_text(encoding="utf-8").replace("@VERSION@", version)
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_bytes(text.replace("\n", "\r\n").encode(encoding))


def lay_out(root, binaries, version):
    contents = root / "kv2dMenu.bundle" / "Contents"
    for name in ["kv2dMenuOEM64.arx", *RUNTIMES]:
        put_program(binaries / name, contents)
    put_text(TOP / "packaging/PackageContents.xml.in", root / "kv2dMenu.bundle/PackageContents.xml", version)
    for name in ["workbench.exe", "hostapi.dll", *RUNTIMES]:
        put_program(binaries / name, root / "Workbench")
    for name in CONTROLS:
        put_program(binaries / name, root / "Share/Application/Applications/Common Files")
    for name in DISCIPLINES:
        shutil.copytree(TOP / "demo/share/Application/Tessarc" / name, root / "Share/Application/Tessarc" / name)
    for name in EMPTY_FOLDERS:
        (root / name).mkdir(parents=True)
    for name in ["machine.reg", "load-on-demand.reg"]:
        put_text(TOP / "packaging" / name, root / "Registry" / name, version, "utf-16")
    put_text(TOP / "packaging/UserSettings.ini", root / "UserSettings.ini", version)
    put_text(TOP / "packaging/README.txt.in", root / "README.txt", version)
    shutil.copytree(TOP / "docs", root / "docs", ignore=shutil.ignore_patterns("take-from-tour"))


def sums(root):
    for path in sorted(p for p in root.rglob("*") if p.is_file()):
        yield f"{hashlib.sha256(path.read_bytes()).hexdigest()}  {path.relative_to(root).as_posix()}\n"


def main():
    binaries, out = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    version = (TOP / "packaging/version").read_text(encoding="utf-8").strip()
    name = f"kv2dMenu-{version}"
    out.mkdir(parents=True, exist_ok=True)
    package = out / f"{name}.zip"
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder) / name
        lay_out(root, binaries, version)
        (root / "SHA256SUMS").write_text("".join(sums(root)), encoding="utf-8")
        unfinished = package.with_suffix(".part")
        with zipfile.ZipFile(unfinished, "w", zipfile.ZIP_DEFLATED) as archive:
            for path in sorted(root.rglob("*")):
                archive.write(path, path.relative_to(folder))
        unfinished.replace(package)
    print(package)


main()
