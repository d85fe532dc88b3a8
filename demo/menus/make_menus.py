#!/usr/bin/env python3
"""Makes the demonstration menus: for each discipline its menu files and icons, below ../share/Application/Tessarc.

The icons are drawn here, on a field of 24 by 24; icons/NAME.svg keeps each drawing, and the .ico files are made from
them as the module's own are. Needs rsvg-convert (librsvg2-bin) and convert (imagemagick). What it makes is kept with
the sources, so the build needs neither.

    make_menus.py           makes drawings, icons and menus
    make_menus.py --check   tells whether drawings and menus are the ones that this script makes, and whether each menu
                            has its icons
"""
import pathlib
import shutil
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
sys.path.insert(0, str(ROOT / "src" / "resources" / "icons"))
import make_icons  # noqa: E402

DARK, BLUE, GREEN, RED, AMBER = "#24364b", "#2f7fd0", "#2e9e48", "#d23c3c", "#f0b429"
PALE = "#cfe3f7"


def line(*points, color=DARK, width=1.5, dash=""):
    path = "M" + " L".join(f"{x} {y}" for x, y in points)
    extra = f' stroke-dasharray="{dash}"' if dash else ""
    return f'<path d="{path}" stroke="{color}" stroke-width="{width}"{extra}/>'


def shape(*points, fill=PALE, color=DARK):
    path = "M" + " L".join(f"{x} {y}" for x, y in points) + " Z"
    return f'<path d="{path}" fill="{fill}" stroke="{color}"/>'


def circle(x, y, r, fill="none", color=DARK):
    return f'<circle cx="{x}" cy="{y}" r="{r}" fill="{fill}" stroke="{color}"/>'


def box(x, y, w, h, fill=PALE, color=DARK, r=0):
    return f'<rect x="{x}" y="{y}" width="{w}" height="{h}" rx="{r}" fill="{fill}" stroke="{color}"/>'


def letter(text, x=12, y=16.2, size=11, color=DARK):
    return (f'<text x="{x}" y="{y}" font-family="DejaVu Sans" font-weight="bold" font-size="{size}" '
            f'text-anchor="middle" fill="{color}" stroke="none">{text}</text>')


def arc(path, color=DARK, fill="none", width=1.5):
    return f'<path d="{path}" stroke="{color}" fill="{fill}" stroke-width="{width}"/>'


PIPE = line((2, 12), (22, 12), color=BLUE, width=2.5)
BOW = shape((5, 7), (19, 17), (19, 7), (5, 17), fill="#ffffff")
ENDS = line((1.5, 12), (5, 12), color=BLUE, width=2) + line((19, 12), (22.5, 12), color=BLUE, width=2)

ICONS = {
    "pipe_main": PIPE + shape((14, 8.5), (20, 12), (14, 15.5), fill=BLUE, color=BLUE),
    "pipe_second": line((2, 12), (22, 12), color=BLUE, width=1.5) + shape((15, 9.5), (20, 12), (15, 14.5), fill=BLUE, color=BLUE),
    "pipe_traced": PIPE + line((3, 7.5), (21, 7.5), color=RED, dash="3 2"),
    "pipe_jacket": line((2, 8), (22, 8), color=BLUE) + line((2, 16), (22, 16), color=BLUE) + line((2, 12), (22, 12), color=DARK),
    "signal": line((2, 12), (22, 12), dash="4 3", width=2),
    "break": line((2, 12), (9, 12), color=BLUE, width=2.5) + line((15, 12), (22, 12), color=BLUE, width=2.5) + arc("M9 7 C12 10 7 14 10 17") + arc("M14 7 C17 10 12 14 15 17"),
    "valve_gate": ENDS + BOW,
    "valve_globe": ENDS + BOW + circle(12, 12, 2.6, fill=DARK),
    "valve_ball": ENDS + BOW + circle(12, 12, 3, fill="#ffffff"),
    "valve_check": ENDS + line((5, 7), (5, 17)) + line((19, 7), (19, 17)) + line((5, 7), (19, 17)) + circle(5, 7, 1.3, fill=DARK),
    "valve_butterfly": ENDS + line((6, 6.5), (6, 17.5)) + line((18, 6.5), (18, 17.5)) + line((7, 16), (17, 8)) + circle(12, 12, 1.6, fill=DARK),
    "valve_control": ENDS + shape((5, 10), (19, 18), (19, 10), (5, 18), fill="#ffffff") + line((12, 14), (12, 8)) + arc("M7.5 8 A4.5 4.5 0 0 1 16.5 8 Z", fill=PALE),
    "valve_relief": shape((6, 20), (16, 20), (11, 12), fill="#ffffff") + shape((11, 12), (19, 8), (19, 16), fill="#ffffff") + line((11, 12), (11, 4)) + line((8.5, 9), (13.5, 7.5)) + line((8.5, 6.5), (13.5, 5)),
    "instrument": circle(12, 12, 8.5, fill="#ffffff") + letter("PI", y=15.8, size=9),
    "instrument_panel": circle(12, 12, 9.5, fill="#ffffff") + line((2.5, 13), (21.5, 13)) + letter("LC", y=11.4, size=8),
    "transmitter": circle(12, 9, 6.5, fill="#ffffff") + letter("FT", y=11.8, size=7) + line((12, 15.5), (12, 21)) + line((5, 21), (19, 21), color=BLUE, width=2.5),
    "flow_element": PIPE + line((9.5, 5), (9.5, 19), width=2) + line((14.5, 5), (14.5, 19), width=2),
    "pump": circle(11, 12, 7, fill=PALE) + line((11, 5), (21, 5), width=2) + shape((6, 21), (11, 17), (16, 21), fill=AMBER) + line((8, 12), (14, 12)) + line((11.5, 9.5), (14, 12), (11.5, 14.5)),
    "compressor": shape((3, 5), (21, 9), (21, 15), (3, 19)) + line((1, 12), (3, 12), width=2) + line((21, 12), (23, 12), width=2),
    "tank": arc("M4 8 Q12 2 20 8 V20 H4 Z", fill=PALE) + line((4, 8), (20, 8)),
    "vessel": arc("M8 5 Q12 1 16 5 V19 Q12 23 8 19 Z", fill=PALE) + line((8, 5), (16, 5)) + line((8, 19), (16, 19)),
    "exchanger": circle(12, 12, 8.5, fill=PALE) + line((1, 12), (7, 12), (10, 8), (14, 16), (17, 12), (23, 12), color=RED),
    "column": arc("M8 4 Q12 0.5 16 4 V20 Q12 23.5 8 20 Z", fill=PALE) + "".join(line((8, y), (16, y)) for y in (7.5, 11, 14.5, 18)),
    "nozzle": line((4, 4), (4, 20), width=2.5) + line((4, 9.5), (15, 9.5)) + line((4, 14.5), (15, 14.5)) + line((15, 6.5), (15, 17.5), width=2.5),
    "tag_line": line((2, 19), (22, 19), color=BLUE, width=2.5) + box(2.5, 2.5, 19, 12, fill="#ffffff", r=1.5) + letter("CW", y=12.2, size=9.5),
    "tag_equipment": box(2, 4.5, 20, 15, fill="#ffffff", r=2) + letter("P1", y=16, size=11),
    "tag_valve": shape((4, 13), (20, 22), (20, 13), (4, 22), fill="#ffffff") + letter("V1", y=10.5, size=10.5),
    "text": letter("A", y=19, size=19),
    "number": letter("12", y=17.5, size=14, color=BLUE),
    "report": box(5, 2.5, 14, 19, fill="#ffffff", r=1) + "".join(line((8, y), (16, y), width=1.2) for y in (7, 10.5, 14, 17.5)),
    "check": circle(12, 12, 9, fill="#ffffff") + line((7.5, 12.5), (10.8, 16), (16.8, 8.5), color=GREEN, width=2.4),
    "auto": circle(12, 12, 4, fill=PALE) + "".join(line(a, b, width=2.2) for a, b in (((12, 2), (12, 5.5)), ((12, 18.5), (12, 22)), ((2, 12), (5.5, 12)), ((18.5, 12), (22, 12)), ((5, 5), (7.4, 7.4)), ((16.6, 16.6), (19, 19)), ((5, 19), (7.4, 16.6)), ((16.6, 7.4), (19, 5)))),
    "layers": shape((12, 3), (22, 8), (12, 13), (2, 8)) + line((2, 12), (12, 17), (22, 12)) + line((2, 16), (12, 21), (22, 16)),
    "border": box(2.5, 4, 19, 16, fill="#ffffff") + box(13, 15, 8.5, 5, fill=PALE),
    "iso_run": line((3, 18), (12, 13), color=BLUE, width=2.5) + line((12, 13), (21, 18), color=BLUE, width=2.5) + line((12, 13), (12, 3), color=BLUE, width=2.5),
    "elbow": arc("M4 6 H10 Q18 6 18 14 V20", color=BLUE, width=2.8) + line((4, 3.5), (4, 8.5)) + line((15.5, 20), (20.5, 20)),
    "tee": line((2, 15), (22, 15), color=BLUE, width=2.8) + line((12, 15), (12, 4), color=BLUE, width=2.8) + line((9.5, 4), (14.5, 4)),
    "flange": PIPE + line((10.2, 5), (10.2, 19), width=2) + line((13.8, 5), (13.8, 19), width=2),
    "reducer": shape((5, 5), (19, 9), (19, 15), (5, 19), fill="#ffffff") + ENDS,
    "cap": line((2, 12), (13, 12), color=BLUE, width=2.5) + arc("M13 6 Q21 6 21 12 Q21 18 13 18 Z", fill=PALE),
    "weld": PIPE + circle(12, 12, 3.2, fill=DARK),
    "support": line((2, 8), (22, 8), color=BLUE, width=2.5) + shape((12, 9.5), (17, 18), (7, 18), fill=AMBER) + line((4, 20.5), (20, 20.5)),
    "gasket": PIPE + line((12, 4), (12, 20), color=RED, width=2),
    "bolt": shape((3, 8), (7, 6), (7, 18), (3, 16)) + line((7, 12), (21, 12), width=4) + "".join(line((x, 9.5), (x + 1.5, 14.5), color="#ffffff", width=1) for x in (11, 14, 17)),
    "dimension": line((3, 6), (3, 18)) + line((21, 6), (21, 18)) + line((3, 12), (21, 12)) + shape((3, 12), (7.5, 9.8), (7.5, 14.2), fill=DARK) + shape((21, 12), (16.5, 9.8), (16.5, 14.2), fill=DARK),
    "balloon": circle(9, 9, 6.5, fill="#ffffff") + letter("7", x=9, y=12.4, size=9) + line((13.5, 13.5), (21, 21)),
    "bom": box(2.5, 4, 19, 16, fill="#ffffff") + line((2.5, 9), (21.5, 9)) + line((2.5, 14.5), (21.5, 14.5)) + line((8, 4), (8, 20)),
    "slope": line((2, 14), (22, 4), color=BLUE, width=2.5) + line((2, 14), (22, 14), width=1.2) + letter("1%", x=14, y=23, size=9),
    "north": shape((12, 2), (17, 20), (12, 16), (7, 20), fill=PALE),
    "plan_pipe": line((2, 8.5), (22, 8.5), color=BLUE, width=2) + line((2, 15.5), (22, 15.5), color=BLUE, width=2) + line((2, 12), (22, 12), dash="4 1.5 1 1.5", width=1),
    "plan_elbow": arc("M2 5 H12 Q19 5 19 12 V22", color=BLUE, width=2) + arc("M2 11 H11 Q13 11 13 13 V22", color=BLUE, width=2),
    "riser": circle(12, 12, 8.5, color=BLUE) + arc("M12 3.5 A8.5 8.5 0 0 1 12 20.5 Q16 12 12 3.5", color=BLUE, fill=PALE),
    "grid": "".join(line((x, 7), (x, 22), dash="3 1.5") for x in (7, 17)) + line((2, 15), (22, 15), dash="3 1.5") + circle(7, 4.5, 2.6, fill="#ffffff") + circle(17, 4.5, 2.6, fill="#ffffff"),
    "section": line((4, 4), (4, 20), width=2) + line((4, 5), (13, 5)) + shape((13, 2.5), (18, 5), (13, 7.5), fill=DARK) + letter("A", x=13, y=19, size=10),
    "level": shape((6, 2.5), (18, 2.5), (12, 10.5), fill="#ffffff") + line((2, 10.5), (22, 10.5)) + letter("+4.2", y=21.5, size=9),
    "steel": line((5, 4), (19, 4), width=2.6) + line((12, 4), (12, 20), width=2.6) + line((5, 20), (19, 20), width=2.6),
    "equipment": circle(9, 12, 6.5, fill=PALE) + box(15.5, 7, 6.5, 10),
    "light": circle(12, 12, 8, fill="#fff3c4") + line((6.4, 6.4), (17.6, 17.6)) + line((17.6, 6.4), (6.4, 17.6)),
    "light_tube": box(2.5, 8.5, 19, 7, fill="#fff3c4", r=1) + line((5, 12), (19, 12)),
    "socket": arc("M5 14 A7 7 0 0 1 19 14 Z", fill=PALE) + line((12, 14), (12, 21)) + line((4, 14), (20, 14)),
    "switch": circle(6, 18, 2.6, fill=DARK) + line((8, 16), (17, 5)) + line((17, 5), (20.5, 8)),
    "panel": box(3, 5, 18, 14) + shape((3, 19), (21, 5), (21, 19), fill=DARK),
    "tray": line((2, 8), (22, 8), width=1.8) + line((2, 16), (22, 16), width=1.8) + "".join(line((x, 8), (x, 16), width=1.2) for x in (5, 9.5, 14, 18.5)),
    "cable": arc("M2 16 C7 4 10 22 14 12 S20 8 22 8", color=RED, width=2),
    "motor": circle(12, 12, 8.5, fill=PALE) + letter("M", y=16.4, size=12),
    "ground": line((12, 3), (12, 12)) + line((4, 12), (20, 12), width=2) + line((7, 16), (17, 16), width=2) + line((10, 20), (14, 20), width=2),
    "detector": circle(12, 12, 8.5, fill="#ffffff") + arc("M7 14 Q9.5 8 12 12 T17 10", color=RED),
    "contact_open": line((2, 12), (8, 12)) + line((16, 12), (22, 12)) + line((8, 6), (8, 18), width=2) + line((16, 6), (16, 18), width=2),
    "contact_closed": line((2, 12), (8, 12)) + line((16, 12), (22, 12)) + line((8, 6), (8, 18), width=2) + line((16, 6), (16, 18), width=2) + line((6, 18), (18, 6)),
    "coil": line((1, 12), (6, 12)) + line((18, 12), (23, 12)) + circle(12, 12, 6, fill=PALE),
    "breaker": line((2, 12), (7, 12)) + line((17, 12), (22, 12)) + arc("M7 11 Q12 2 17 11") + circle(7, 12, 1.4, fill=DARK) + circle(17, 12, 1.4, fill=DARK),
    "fuse": line((1, 12), (23, 12)) + box(5.5, 8.5, 13, 7, fill="#ffffff") + line((5.5, 12), (18.5, 12)),
    "transformer": circle(9, 12, 6, fill="none") + circle(15, 12, 6, fill="none"),
    "terminal": circle(12, 12, 4.5, fill="#ffffff") + line((2, 12), (7.5, 12)) + line((16.5, 12), (22, 12)) + line((9, 15), (15, 9)),
    "wire": line((2, 17), (12, 17), (12, 7), (22, 7), color=RED, width=2) + circle(12, 12, 1.8, fill=RED, color=RED),
    "wire_number": line((2, 16), (22, 16), color=RED, width=2) + letter("214", y=12, size=8.5),
}

# (kind, icon, label, tip, text): the text of a command is what the palette sends; that of a toggle is its name.
C, T = "Command", "Toggle"
TOOLS = ("Tools", [
    (C, "number", "New line", "Create a new line number", "kv2dNewLineNumber"),
    (C, "report", "Line list", "Report the line numbers of the drawing", "(c:kv2d_LineReport)"),
    (C, "check", "Check", "Check the drawing against its standard", "(c:kv2d_Check)"),
    (C, "border", "Border", "Insert the drawing border", "(c:kv2d_Border)"),
    (T, "auto", "Auto tag", "Tag each component as it is placed", "AutoTag"),
    (T, "layers", "Layer colours", "Draw each service on its own layer", "LayerByService"),
])
MENUS = {
    "PID": ("PID", [
        ("Lines", [(C, "pipe_main", "Primary", "Primary process line", "(c:kv2d_PipePrimary)"),
                   (C, "pipe_second", "Secondary", "Secondary process line", "(c:kv2d_PipeSecondary)"),
                   (C, "pipe_traced", "Traced", "Line with electric tracing", "(c:kv2d_PipeTraced)"),
                   (C, "pipe_jacket", "Jacketed", "Jacketed line", "(c:kv2d_PipeJacketed)"),
                   (C, "signal", "Signal", "Electric signal", "(c:kv2d_Signal)"),
                   (C, "break", "Break", "Break a line where another crosses", "(c:kv2d_BreakLine)")]),
        ("Valves", [(C, "valve_gate", "Gate", "Gate valve", '(kv2d_Valve "GATE")'),
                    (C, "valve_globe", "Globe", "Globe valve", '(kv2d_Valve "GLOBE")'),
                    (C, "valve_ball", "Ball", "Ball valve", '(kv2d_Valve "BALL")'),
                    (C, "valve_check", "Check", "Check valve", '(kv2d_Valve "CHECK")'),
                    (C, "valve_butterfly", "Butterfly", "Butterfly valve", '(kv2d_Valve "BUTTERFLY")'),
                    (C, "valve_control", "Control", "Control valve", '(kv2d_Valve "CONTROL")'),
                    (C, "valve_relief", "Relief", "Pressure relief valve", '(kv2d_Valve "RELIEF")')]),
        ("Instruments", [(C, "instrument", "Local", "Instrument in the field", "(c:kv2d_InstrumentLocal)"),
                         (C, "instrument_panel", "Panel", "Instrument on the panel", "(c:kv2d_InstrumentPanel)"),
                         (C, "transmitter", "Transmitter", "Transmitter on a line", "(c:kv2d_Transmitter)"),
                         (C, "flow_element", "Orifice", "Orifice plate", "(c:kv2d_Orifice)")]),
        ("Equipment", [(C, "pump", "Pump", "Centrifugal pump", '(kv2d_Equipment "PUMP")'),
                       (C, "compressor", "Compressor", "Compressor", '(kv2d_Equipment "COMPRESSOR")'),
                       (C, "tank", "Tank", "Storage tank", '(kv2d_Equipment "TANK")'),
                       (C, "vessel", "Vessel", "Vertical vessel", '(kv2d_Equipment "VESSEL")'),
                       (C, "column", "Column", "Column with trays", '(kv2d_Equipment "COLUMN")'),
                       (C, "exchanger", "Exchanger", "Heat exchanger", '(kv2d_Equipment "EXCHANGER")'),
                       (C, "nozzle", "Nozzle", "Nozzle on equipment", "(c:kv2d_Nozzle)")]),
        ("Tags", [(C, "tag_line", "Line", "Tag a line with its number", "(c:kv2d_TagLine)"),
                  (C, "tag_equipment", "Equipment", "Tag equipment", "(c:kv2d_TagEquipment)"),
                  (C, "tag_valve", "Valve", "Tag a valve", "(c:kv2d_TagValve)"),
                  (C, "text", "Note", "Write a note", "_text")]),
        TOOLS]),
    "Isometric": ("ISOMETRIC", [
        ("Pipe", [(C, "iso_run", "Pipe", "Pipe run", "(c:kv2d_IsoPipe)"), (C, "elbow", "Elbow", "Elbow", '(kv2d_Fitting "ELBOW")'),
                  (C, "tee", "Tee", "Tee", '(kv2d_Fitting "TEE")'), (C, "reducer", "Reducer", "Reducer", '(kv2d_Fitting "REDUCER")'),
                  (C, "cap", "Cap", "Cap", '(kv2d_Fitting "CAP")'), (C, "weld", "Weld", "Field weld", "(c:kv2d_Weld)")]),
        ("Flanges", [(C, "flange", "Flange", "Pair of flanges", '(kv2d_Flange "PAIR")'), (C, "gasket", "Gasket", "Gasket", "(c:kv2d_Gasket)"),
                     (C, "bolt", "Bolts", "Set of bolts", "(c:kv2d_Bolts)")]),
        ("Valves", [(C, "valve_gate", "Gate", "Gate valve", '(kv2d_Valve "GATE")'), (C, "valve_globe", "Globe", "Globe valve", '(kv2d_Valve "GLOBE")'),
                    (C, "valve_check", "Check", "Check valve", '(kv2d_Valve "CHECK")'), (C, "valve_ball", "Ball", "Ball valve", '(kv2d_Valve "BALL")')]),
        ("Supports", [(C, "support", "Support", "Pipe support", "(c:kv2d_Support)"), (C, "slope", "Slope", "Slope mark", "(c:kv2d_Slope)")]),
        ("Annotate", [(C, "dimension", "Dimension", "Dimension along the isoplane", "(c:kv2d_IsoDim)"),
                      (C, "balloon", "Balloon", "Balloon of the bill of material", "(c:kv2d_Balloon)"),
                      (C, "bom", "Material", "Table of the bill of material", "(c:kv2d_Bom)"), (C, "north", "North", "North arrow", "(c:kv2d_North)")]),
        TOOLS]),
    "Ortho": ("ORTHO", [
        ("Pipe", [(C, "plan_pipe", "Pipe", "Pipe with its centre line", "(c:kv2d_PlanPipe)"), (C, "plan_elbow", "Elbow", "Elbow in plan", '(kv2d_Fitting "ELBOW")'),
                  (C, "tee", "Tee", "Tee", '(kv2d_Fitting "TEE")'), (C, "riser", "Riser", "Riser, up or down", "(c:kv2d_Riser)"),
                  (C, "reducer", "Reducer", "Reducer", '(kv2d_Fitting "REDUCER")')]),
        ("Valves", [(C, "valve_gate", "Gate", "Gate valve", '(kv2d_Valve "GATE")'), (C, "valve_ball", "Ball", "Ball valve", '(kv2d_Valve "BALL")'),
                    (C, "valve_check", "Check", "Check valve", '(kv2d_Valve "CHECK")'), (C, "flange", "Flange", "Pair of flanges", '(kv2d_Flange "PAIR")')]),
        ("Plant", [(C, "equipment", "Equipment", "Outline of equipment", "(c:kv2d_Outline)"), (C, "steel", "Steel", "Steel section", "(c:kv2d_Steel)"),
                   (C, "grid", "Grid", "Column grid", "(c:kv2d_Grid)"), (C, "support", "Support", "Pipe support", "(c:kv2d_Support)")]),
        ("Annotate", [(C, "dimension", "Dimension", "Dimension", "_dimlinear"), (C, "section", "Section", "Section mark", "(c:kv2d_Section)"),
                      (C, "level", "Level", "Level mark", "(c:kv2d_Level)"), (C, "north", "North", "North arrow", "(c:kv2d_North)")]),
        TOOLS]),
    "ElectricLay": ("ELECTRIC", [
        ("Lighting", [(C, "light", "Luminaire", "Round luminaire", '(kv2d_Light "ROUND")'), (C, "light_tube", "Tube", "Fluorescent luminaire", '(kv2d_Light "TUBE")'),
                      (C, "switch", "Switch", "Light switch", "(c:kv2d_Switch)")]),
        ("Power", [(C, "socket", "Socket", "Socket outlet", "(c:kv2d_Socket)"), (C, "motor", "Motor", "Motor", "(c:kv2d_Motor)"),
                   (C, "panel", "Panel", "Distribution panel", "(c:kv2d_Panel)"), (C, "ground", "Earth", "Earthing point", "(c:kv2d_Earth)")]),
        ("Routes", [(C, "tray", "Tray", "Cable tray", "(c:kv2d_Tray)"), (C, "cable", "Cable", "Cable", "(c:kv2d_Cable)")]),
        ("Safety", [(C, "detector", "Detector", "Smoke detector", "(c:kv2d_Detector)")]),
        ("Tools", [(C, "report", "Cable list", "Report the cables of the drawing", "(c:kv2d_CableReport)"), (C, "border", "Border", "Insert the drawing border", "(c:kv2d_Border)"),
                   (T, "auto", "Auto tag", "Tag each component as it is placed", "AutoTag")])]),
    "ElectricSch": ("ELECTRIC", [
        ("Contacts", [(C, "contact_open", "Open", "Normally open contact", '(kv2d_Contact "NO")'), (C, "contact_closed", "Closed", "Normally closed contact", '(kv2d_Contact "NC")'),
                      (C, "coil", "Coil", "Relay coil", "(c:kv2d_Coil)")]),
        ("Power", [(C, "breaker", "Breaker", "Circuit breaker", "(c:kv2d_Breaker)"), (C, "fuse", "Fuse", "Fuse", "(c:kv2d_Fuse)"),
                   (C, "transformer", "Transformer", "Transformer", "(c:kv2d_Transformer)"), (C, "motor", "Motor", "Motor", "(c:kv2d_Motor)")]),
        ("Wires", [(C, "wire", "Wire", "Wire", "(c:kv2d_Wire)"), (C, "wire_number", "Number", "Wire number", "(c:kv2d_WireNumber)"), (C, "terminal", "Terminal", "Terminal", "(c:kv2d_Terminal)")]),
        ("Tools", [(C, "report", "Wire list", "Report the wires of the drawing", "(c:kv2d_WireReport)"), (T, "auto", "Auto number", "Number each wire as it is drawn", "AutoNumber")])]),
}


def menu_text(tabs):
    lines = ["TabbedMenu\t1"]
    for tab_number, (tab, items) in enumerate(tabs, 1):
        lines.append(f"Tab\t{tab}")
        for item_number, (kind, icon, label, tip, text) in enumerate(items, 1):
            lines.append("\t".join([kind, str(tab_number * 100 + item_number), icon + ".ico", label, tip, text]))
    return "\r\n".join(lines) + "\r\n"


def drawing_text(content):
    return ('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 24 24" fill="none" '
            f'stroke="{DARK}" stroke-width="1.5" stroke-linejoin="round" stroke-linecap="round">\n  {content}\n</svg>\n')


def folder_of(menu):
    return ROOT / "demo" / "share" / "Application" / "Tessarc" / menu


def faults():
    for name, content in ICONS.items():
        svg = HERE / "icons" / f"{name}.svg"
        if not svg.exists() or svg.read_text() != drawing_text(content):
            yield f"{svg} is not what this script draws"
    for name, (folder, tabs) in MENUS.items():
        for size in (16, 32):
            menu = folder_of(folder) / f"{name}{size}.tbm"
            if not menu.exists() or menu.read_bytes() != menu_text(tabs).encode():
                yield f"{menu} is not what this script writes"
        for _, items in tabs:
            for _, icon, *_ in items:
                if not (folder_of(folder) / "Icons" / f"{icon}.ico").exists():
                    yield f"{folder} has no icon {icon}"


def main():
    drawings = HERE / "icons"
    drawings.mkdir(exist_ok=True)
    for name, content in ICONS.items():
        svg = drawings / f"{name}.svg"
        svg.write_text(drawing_text(content))
        make_icons.make_icon(svg)
    for name, (folder, tabs) in MENUS.items():
        target = folder_of(folder)
        (target / "Icons").mkdir(parents=True, exist_ok=True)
        for size in (16, 32):
            (target / f"{name}{size}.tbm").write_bytes(menu_text(tabs).encode())
        for _, items in tabs:
            for _, icon, *_ in items:
                shutil.copy(drawings / f"{icon}.ico", target / "Icons")
    for icon in drawings.glob("*.ico"):
        icon.unlink()


if __name__ == "__main__":
    if sys.argv[1:] == ["--check"]:
        sys.exit("\n".join(faults()) or 0)
    main()
