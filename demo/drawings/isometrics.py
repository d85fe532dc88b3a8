"""The isometrics of the demonstration database."""
import math

from ezdxf.enums import TextEntityAlignment as Align

from sheet import ISOMETRIC, Sheet, polar

COS30 = math.cos(math.radians(30))
TABLE_LEFT = 282


def flat(point, origin):
    """A point in space on paper: x to the lower right, y to the upper right, z up."""
    x, y, z = point
    return (origin[0] + (x + y) * COS30, origin[1] + (y - x) * 0.5 + z)


def toward(a, b, length):
    total = math.dist(a, b)
    return tuple(p + (q - p) * length / total for p, q in zip(a, b))


class Isometric(Sheet):
    """One line number, drawn by points in space whose unit is one on paper."""

    def __init__(self, number, line_id, origin, release="R2000"):
        super().__init__(ISOMETRIC, release=release)
        self.number, self.line_id, self.origin = number, line_id, origin
        self.elements = 0
        self._make_blocks()

    def _make_blocks(self):
        for name in ("VAL_BLK", "FLG_BLK", "FTG_BLK", "GSK_BLK", "BLT_BLK", "PIP_BLK", "SUP_BLK"):
            pen = self.block(name)
            for row, tag in enumerate(("LIN_NUM", "ITEM", "SIZE", "SPEC")):
                pen.attribute(tag, (0, -2 * row), 1.5, layer="DATA", visible=False)

    def at(self, point):
        return flat(point, self.origin)

    def data(self, block, point, item, word):
        reference = self.insert(block, self.at(point), layer="DATA", attributes={
            "LIN_NUM": self.number, "ITEM": str(item), "SIZE": self.number.split("-")[0],
            "SPEC": "-".join(self.number.split("-")[3:])})
        self.elements += 1
        self.element_data(reference, self.elements, self.line_id, word)

    def run(self, points, item=1):
        """Pipe through the points, with an elbow and its two welds at each turn."""
        self.poly([self.at(point) for point in points], "PIPE")
        for a, b in zip(points, points[1:]):
            self.data("PIP_BLK", toward(a, b, math.dist(a, b) / 2), item, "PIPE")
        for a, corner, b in zip(points, points[1:], points[2:]):
            self.weld(toward(corner, a, 5))
            self.weld(toward(corner, b, 5))
            self.data("FTG_BLK", corner, 2, "ELBOW")

    def weld(self, point):
        self.dot(self.at(point), 0.9, "WELDS")

    def _across(self, point, along, across):
        """A mapping from a symbol's own axes to paper at a point of the pipe."""
        def place(u, v):
            return self.at(tuple(p + a * u + c * v for p, a, c in zip(point, along, across)))
        return place

    def flanges(self, point, along, across, item=4):
        place = self._across(point, along, across)
        for u in (-0.9, 0.9):
            self.line(place(u, -3.4), place(u, 3.4), "FITTINGS")
        self.data("FLG_BLK", point, item, "FLANGE")
        self.data("GSK_BLK", point, item + 1, "GASKET")
        self.data("BLT_BLK", point, item + 2, "BOLTS")

    def valve(self, point, along, across, kind="GATE", item=7, tag=""):
        place = self._across(point, along, across)
        if kind == "CHECK":
            self.poly([place(-5, 3), place(-5, -3)], "FITTINGS")
            self.poly([place(5, 3), place(5, -3), place(-5, 3)], "FITTINGS")
        else:
            self.poly([place(-5, 3), place(-5, -3), place(5, 3), place(5, -3)], "FITTINGS", closed=True)
            self.line(place(0, 0), place(0, 7), "FITTINGS")
            self.line(place(-3, 7), place(3, 7), "FITTINGS")
        for u in (-6.4, 6.4):
            self.line(place(u, -3.4), place(u, 3.4), "FITTINGS")
        self.data("VAL_BLK", point, item, "VALVE")
        if tag:
            end = place(0, -10)
            self.text(tag, end, 3, Align.MIDDLE_CENTER, layer="FITTINGS")

    def support(self, point, tag):
        x, y = self.at(point)
        self.poly([(x, y), (x - 2.4, y - 4.5), (x + 2.4, y - 4.5)], "SUPPORTS", closed=True)
        self.text(tag, (x + 4, y - 6), 2.8, layer="SUPPORTS")
        self.data("SUP_BLK", point, 9, "SUPPORT")

    def dimension(self, a, b, away, text):
        """Between two points of the pipe, `away` a direction in space with the distance of the dimension line."""
        outer = [tuple(p + d for p, d in zip(point, away)) for point in (a, b)]
        for point, end in zip((a, b), outer):
            near = toward(point, end, 3)
            self.line(self.at(near), self.at(toward(point, end, math.dist(point, end) + 1.5)), "DIM")
        start, stop = self.at(outer[0]), self.at(outer[1])
        angle = math.degrees(math.atan2(stop[1] - start[1], stop[0] - start[0]))
        self.line(start, stop, "DIM")
        self.arrow(stop, angle, 3, "DIM")
        self.arrow(start, angle + 180, 3, "DIM")
        reading = (angle + 90.0001) % 180 - 90
        middle = ((start[0] + stop[0]) / 2, (start[1] + stop[1]) / 2)
        self.text(text, polar(middle, reading + 90, 2.4), 3.1, Align.MIDDLE_CENTER, reading, "DIM", width=0.9)

    def balloon(self, item, point, offset, letter="A"):
        name = f"BAL{item}{letter}"
        pen = self.block(name)
        if pen is not None:
            pen.circle((0, 0), 4.2, "BALLOONS")
            pen.attribute("ITEM", (0, 0), 3.4, layer="BALLOONS")
            pen.attribute("LIN_NUM", (0, -7), 1.5, layer="DATA", visible=False)
        tip = self.at(point)
        centre = (tip[0] + offset[0], tip[1] + offset[1])
        angle = math.degrees(math.atan2(offset[1], offset[0]))
        self.line(tip, polar(centre, angle, -4.2), "BALLOONS")
        self.insert(name, centre, layer="BALLOONS", attributes={"ITEM": str(item), "LIN_NUM": self.number})

    def continuation(self, a, b, text, offset=(4, -2)):
        self.poly([self.at(a), self.at(b)], "CONTINUATION")
        end = self.at(b)
        for i, line in enumerate(text):
            self.text(line, (end[0] + offset[0], end[1] + offset[1] - i * 4.6), 3, layer="LINE-NUMBERS", width=0.9)

    def callout(self, point, offset, lines):
        tip = self.at(point)
        end = (tip[0] + offset[0], tip[1] + offset[1])
        self.line(tip, end, "DIM")
        align = Align.MIDDLE_LEFT if offset[0] >= 0 else Align.MIDDLE_RIGHT
        side = 2 if offset[0] >= 0 else -2
        for i, line in enumerate(lines):
            self.text(line, (end[0] + side, end[1] - i * 4.4), 3, align, layer="TEXT", width=0.9)

    def north(self, centre):
        x, y = centre
        tip = (x + 13 * COS30, y + 6.5)
        self.line((x - 9 * COS30, y - 4.5), tip, "TEXT")
        self.arrow(tip, 30, 6, "TEXT")
        self.circle(centre, 7, "TEXT")
        self.text("N", (tip[0] + 3.5, tip[1] + 2.5), 5, Align.MIDDLE_CENTER)

    def line_number(self, a, b, side=1):
        start, stop = self.at(a), self.at(b)
        angle = math.degrees(math.atan2(stop[1] - start[1], stop[0] - start[0]))
        reading = (angle + 90.0001) % 180 - 90
        if "TAGLINE" not in self.doc.blocks:
            self.block("TAGLINE").attribute("LIN_NUM", (0, 0), 3.3, layer="LINE-NUMBERS", width=0.85)
        middle = ((start[0] + stop[0]) / 2, (start[1] + stop[1]) / 2)
        self.insert("TAGLINE", polar(middle, reading + 90 * side, 3.4), rotation=reading, layer="LINE-NUMBERS",
                    attributes={"LIN_NUM": self.number})

    def material(self, rows):
        """The list of material on the right. Rows: item, quantity, size, description; a text alone is a heading."""
        right, top, step = 410, 287, 7
        columns = (TABLE_LEFT, TABLE_LEFT + 11, TABLE_LEFT + 29, TABLE_LEFT + 45)
        bottom = top - step * (len(rows) + 2)
        self.box((TABLE_LEFT, bottom), (right - TABLE_LEFT, top - bottom), "MATERIAL")
        self.text("LIST OF MATERIAL", ((TABLE_LEFT + right) / 2, top - 3.6), 4, Align.MIDDLE_CENTER, layer="MATERIAL")
        for x in columns[1:]:
            self.line((x, bottom), (x, top - step), "MATERIAL")
        for i, row in enumerate([("ITEM", "QTY", "SIZE", "DESCRIPTION")] + rows):
            y = top - step * (i + 1)
            self.line((TABLE_LEFT, y), (right, y), "MATERIAL", color=7 if i < 2 else 8)
            cells = row if isinstance(row, tuple) else ("", "", "", row)
            color = 2 if i == 0 or not isinstance(row, tuple) else 256
            for x, cell in zip(columns, cells):
                self.text(cell, (x + 1.5, y - step / 2), 2.9, Align.MIDDLE_LEFT, layer="MATERIAL", color=color,
                          width=0.82)

    def finish(self, client, standard, drawing, revisions, title, **record):
        self.title(client, standard, title, self.number, drawing, revisions)
        if record:
            self.record(line_id=self.line_id, **record)
        return self


X, Y, Z = (1, 0, 0), (0, 1, 0), (0, 0, 1)


def pump_discharge():
    """From a transfer pump up to the header."""
    d = Isometric('6"-CW-1001-CS150', 1, (50, 88))
    a, b, c, e, f, g = (0, 0, 0), (0, 0, 52), (0, 118, 52), (0, 118, 98), (72, 118, 98), (72, 150, 98)
    d.run([a, b, c, e, f, g])
    d.flanges(a, Z, X)
    d.valve((0, 34, 52), Y, Z, "CHECK", 8, "NRV-102A")
    d.valve((0, 74, 52), Y, Z, "GATE", 7, "HV-102A")
    d.weld((0, 20, 52))
    d.weld((0, 96, 52))
    d.support((0, 104, 52), "PS-11")
    d.weld((40, 118, 98))
    d.dimension(a, b, (0, -16, 0), "1050")
    d.dimension(b, (0, 34, 52), (-14, 0, 0), "680")
    d.dimension((0, 34, 52), (0, 74, 52), (-14, 0, 0), "800")
    d.dimension((0, 74, 52), c, (-14, 0, 0), "880")
    d.dimension(c, e, (0, 16, 0), "1000")
    d.dimension(e, f, (0, 0, 18), "1440")
    d.dimension(f, g, (16, 0, 0), "640")
    d.line_number((26, 118, 98), (70, 118, 98), -1)
    d.callout(a, (22, -14), ["P-101A", "NOZZLE N2  6\" 150#", "EL 101.350"])
    d.callout(e, (-20, 14), ["EL 103.400"])
    d.continuation(g, (72, 168, 98), ["CONT. ON", "PS4-ISO-1002"], (-6, 10))
    d.balloon(4, (0, 0, 1), (18, 12))
    d.balloon(2, b, (-16, 8))
    d.balloon(8, (0, 36, 52), (26, -12))
    d.balloon(7, (0, 76, 52), (26, -12), "B")
    d.balloon(1, (60, 118, 98), (16, 18))
    d.balloon(9, (0, 104, 49), (24, -14), "C")
    d.north((32, 262))
    d.material([
        ("1", "5.9 m", '6"', "PIPE SMLS SCH 40 A106-B"), ("2", "4", '6"', "ELBOW 90 LR SCH 40 A234"),
        ("3", "1", '6"x4"', "REDUCER CONC SCH 40"), ("4", "5", '6"', "FLANGE WN 150# RF A105"),
        ("5", "5", '6"', "GASKET SPIRAL WOUND 150#"), ("6", "40", '3/4"', "STUD BOLT 95 LG A193-B7"),
        ("7", "1", '6"', "GATE VALVE 150# RF"), ("8", "1", '6"', "CHECK VALVE SWING 150#"),
        ("9", "1", '6"', "PIPE SHOE TYPE A")])
    d.notes(["Dimensions in millimetres.", "Field welds as marked.", "Hydrotest 15 bar g."], (290, 196), 3.2)
    return d.finish("Northwater Utilities", "Pump Station 4", "PS4-ISO-1001", [
        ("A", "10.06.26", "Issued for review", "TO", "ML"), ("0", "02.10.26", "Issued for fabrication", "TO", "ML")],
        "TRANSFER PUMP DISCHARGE", project_id=1, spec_id=1, main_size=14, branch_size=12, isoplane=1)


def seal_water():
    """A small branch with a control set; not tied to its project yet."""
    d = Isometric('4"-CW-1003-CS150', 3, (44, 200))
    a, b, c, e, f = (0, 0, 0), (92, 0, 0), (92, 0, -44), (92, 108, -44), (92, 108, 6)
    d.run([a, b, c, e, f])
    d.valve((28, 0, 0), X, Z, "GATE", 7, "HV-108")
    d.valve((62, 0, 0), X, Z, "GATE", 8, "GV-108")
    d.flanges((92, 52, -44), Y, Z)
    d.flanges(f, Z, X)
    d.support((92, 30, -44), "PS-21")
    d.support((92, 86, -44), "PS-22")
    d.dimension(a, (28, 0, 0), (0, -25, 0), "560")
    d.dimension((28, 0, 0), (62, 0, 0), (0, -25, 0), "680")
    d.dimension((62, 0, 0), b, (0, -25, 0), "600")
    d.dimension(b, c, (0, -25, 0), "880")
    d.dimension(c, e, (16, 0, 0), "2160")
    d.dimension(e, f, (0, 18, 0), "1000")
    d.line_number((92, 62, -44), (92, 104, -44))
    d.callout(f, (-12, 14), ["E-101", "NOZZLE N1  4\" 150#", "EL 100.900"])
    d.continuation(a, (-24, 0, 0), ["BRANCH OF", '6"-CW-1001-CS150'], (-8, 10))
    d.balloon(2, b, (14, 12))
    d.balloon(7, (28, 0, 2), (14, 22))
    d.balloon(8, (62, 0, 2), (14, 20), "B")
    d.balloon(4, (92, 52, -44), (-6, 22))
    d.balloon(9, (92, 30, -46), (14, -14), "C")
    d.north((32, 262))
    d.material([
        ("1", "5.1 m", '4"', "PIPE SMLS SCH 40 A106-B"), ("2", "3", '4"', "ELBOW 90 LR SCH 40 A234"),
        ("4", "6", '4"', "FLANGE WN 150# RF A105"), ("5", "6", '4"', "GASKET SPIRAL WOUND 150#"),
        ("6", "48", '5/8"', "STUD BOLT 90 LG A193-B7"), ("7", "1", '4"', "GATE VALVE 150# RF"),
        ("8", "1", '4"', "GLOBE VALVE 150# RF"), ("9", "2", '4"', "PIPE SHOE TYPE A")])
    d.notes(["Dimensions in millimetres.", "Slope 1:200 towards E-101."], (290, 204), 3.2)
    return d.finish("Northwater Utilities", "Pump Station 4", "PS4-ISO-1003", [
        ("A", "11.06.26", "Issued for review", "TO", "ML")], "SEAL WATER TO E-101")


def solvent_feed():
    """Feed of the column, from the rack up to its nozzle."""
    d = Isometric('3"-SL-2001-BF-SOLV', 6, (60, 92), "R2013")
    a, b, c, e, f = (0, 0, 0), (0, 66, 0), (0, 66, 120), (72, 66, 120), (72, 100, 120)
    d.run([a, b, c, e, f])
    d.valve((0, 66, 50), Z, Y, "GATE", 7, "HV-201")
    d.flanges((0, 66, 84), Z, Y)
    d.flanges(f, Y, Z)
    d.valve((0, 36, 0), Y, Z, "GATE", 8, "FCV-201")
    d.support((36, 66, 120), "PS-41")
    d.support((0, 8, 0), "PS-40")
    d.dimension(a, (0, 36, 0), (26, 0, 0), "720")
    d.dimension((0, 36, 0), b, (26, 0, 0), "600")
    d.dimension(b, (0, 66, 50), (-26, 0, 0), "1000")
    d.dimension((0, 66, 50), (0, 66, 84), (-26, 0, 0), "680")
    d.dimension((0, 66, 84), c, (-26, 0, 0), "720")
    d.dimension(c, e, (0, 0, 16), "1440")
    d.dimension(e, f, (14, 0, 0), "680")
    d.line_number((4, 66, 120), (68, 66, 120))
    d.callout(f, (14, 12), ["C-201 NOZZLE N4", "3\" 150# RF", "EL 106.200"])
    d.callout(c, (-20, 18), ["EL 106.200"])
    d.continuation(a, (0, -22, 0), ["CONT. ON", "SR-ISO-2000"], (-6, -6))
    d.balloon(1, (0, 66, 20), (18, 4))
    d.balloon(7, (0, 66, 52), (16, 6))
    d.balloon(4, (0, 66, 84), (16, 6))
    d.balloon(2, c, (8, 20))
    d.balloon(8, (0, 36, 4), (-16, 18), "B")
    d.north((32, 262))
    d.material([
        ("1", "6.8 m", '3"', "PIPE WELDED SCH 10S A312 TP316L"), ("2", "3", '3"', "ELBOW 90 LR SCH 10S 316L"),
        ("4", "7", '3"', "FLANGE LJ 150# RF + STUB END"), ("5", "7", '3"', "GASKET PTFE ENVELOPE"),
        ("6", "28", '5/8"', "STUD BOLT 90 LG B8M"), ("7", "1", '3"', "BALL VALVE 150# 316"),
        ("8", "1", '3"', "CONTROL VALVE BY OTHERS"), ("9", "2", '3"', "CLAMP TYPE C")])
    d.notes(["Dimensions in millimetres.", "All welds radiographed 10 %.", "Pickle and passivate."], (290, 204), 3.2)
    return d.finish("Brightfield Chemicals", "Solvent Recovery", "SR-ISO-2001", [
        ("A", "20.03.26", "Issued for review", "TO", "RB"), ("0", "11.05.26", "Issued for fabrication", "TO", "RB"),
        ("1", "09.07.26", "Nozzle elevation changed", "ML", "RB")],
        "COLUMN FEED", project_id=3, spec_id=9, main_size=8, isoplane=2)
