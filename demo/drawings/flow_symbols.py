"""Symbols of flow diagrams: valves, instruments, equipment, and pipes that break where a symbol sits."""
import math

from ezdxf.enums import TextEntityAlignment as Align

from sheet import PID, Sheet, polar

# Half the length of a valve along its pipe.
VALVE = 4.0


def bow_tie(pen):
    pen.poly([(-4, 2.4), (-4, -2.4), (4, 2.4), (4, -2.4)], "VALVES", closed=True)


def gate(pen):
    bow_tie(pen)


def globe(pen):
    bow_tie(pen)
    pen.dot((0, 0), 1.3, "VALVES")


def ball(pen):
    pen.poly([(-1.2, 0.7), (-4, 2.4), (-4, -2.4), (-1.2, -0.7)], "VALVES")
    pen.poly([(1.2, 0.7), (4, 2.4), (4, -2.4), (1.2, -0.7)], "VALVES")
    pen.circle((0, 0), 1.4, "VALVES")


def butterfly(pen):
    pen.line((-4, 2.4), (-4, -2.4), "VALVES")
    pen.line((4, 2.4), (4, -2.4), "VALVES")
    pen.line((-4, -2.4), (4, 2.4), "VALVES")
    pen.dot((0, 0), 0.9, "VALVES")


def check(pen):
    pen.line((-4, 2.4), (-4, -2.4), "VALVES")
    pen.line((4, 2.4), (4, -2.4), "VALVES")
    pen.line((-4, 2.4), (4, -2.4), "VALVES")
    pen.arrow((4, -2.4), math.degrees(math.atan2(-4.8, 8)), 2.6, "VALVES")


def control(pen):
    bow_tie(pen)
    pen.line((0, 0), (0, 5), "VALVES")
    pen.poly([(-3.2, 5), (3.2, 5, 1), (-3.2, 5)], "VALVES")


def motor(pen):
    bow_tie(pen)
    pen.line((0, 0), (0, 5), "VALVES")
    pen.circle((0, 8), 3, "VALVES")
    pen.text("M", (0, 8), 3.2, Align.MIDDLE_CENTER, layer="VALVES")


def strainer(pen):
    pen.line((-4, 2.4), (-4, -2.4), "VALVES")
    pen.line((4, 2.4), (4, -2.4), "VALVES")
    pen.line((-4, 0), (4, 0), "VALVES")
    pen.line((-1, 0), (3, -4.5), "VALVES")
    pen.line((1.6, -5.6), (4.4, -3.4), "VALVES")


def reducer(pen):
    pen.poly([(-3, 2.6), (3, 1.4), (3, -1.4), (-3, -2.6)], "VALVES", closed=True)


def orifice(pen):
    pen.line((-0.8, 3.2), (-0.8, -3.2), "VALVES")
    pen.line((0.8, 3.2), (0.8, -3.2), "VALVES")


def spectacle(pen):
    pen.circle((0, 2.2), 1.7, "VALVES")
    pen.dot((0, -2.2), 1.7, "VALVES")
    pen.line((0, 0.5), (0, -0.5), "VALVES")


VALVES = {"GATE": gate, "GLOBE": globe, "BALL": ball, "BUTTERFLY": butterfly, "CHECK": check, "CONTROL": control,
          "MOTOR": motor, "STRAINER": strainer, "REDUCER": reducer, "ORIFICE": orifice, "SPECTACLE": spectacle}
HALF_LENGTH = {"REDUCER": 3.0, "ORIFICE": 0.8, "SPECTACLE": 0.0}


class FlowDiagram(Sheet):
    """A flow diagram sheet."""

    def __init__(self, release="R2000"):
        super().__init__(PID, release=release)
        self.elements = 0
        self._make_blocks()

    def _make_blocks(self):
        for name, draw in VALVES.items():
            draw(self.block(f"V-{name}"))
        pen = self.block("VAL_BLK")
        pen.attribute("TAG", (0, 6.3), 3, layer="TAGS")
        for row, tag in enumerate(("LIN_NUM", "SIZE", "SPEC")):
            pen.attribute(tag, (0, -6 - 3 * row), 2, layer="DATA", visible=False)
        pen = self.block("TAGLINE")
        pen.attribute("LIN_NUM", (0, 2.7), 3.1, layer="LINE-NUMBERS", prompt="Line number", width=0.8)
        pen = self.block("EQP-TAG")
        pen.attribute("TAG", (0, 0), 4.5, layer="TAGS")
        pen.line((-14, -3.2), (14, -3.2), "TAGS")
        pen.attribute("SERVICE", (0, -6), 3, layer="TEXT")
        pen.attribute("DATA1", (0, -10.6), 2.8, layer="TEXT")
        pen.attribute("LIN_NUM", (0, -14), 2, layer="DATA", visible=False, default="-")
        for name, has_bar in (("INST-FIELD", False), ("INST-PANEL", True)):
            pen = self.block(name)
            pen.circle((0, 0), 6, "INSTRUMENTS")
            if has_bar:
                pen.line((-6, 0), (6, 0), "INSTRUMENTS")
            pen.attribute("FUNC", (0, 2.2), 3.1, layer="INSTRUMENTS", prompt="Function", width=0.85)
            pen.attribute("LOOP", (0, -2.4), 3.1, layer="INSTRUMENTS", prompt="Loop number", width=0.85)
        pen = self.block("FLOW-ARROW")
        pen.arrow((2, 0), 0, 4, "PROCESS")
        pen = self.block("OFF-PAGE")
        pen.poly([(0, 4.5), (40, 4.5), (45, 0), (40, -4.5), (0, -4.5)], "TAGS", closed=True)
        pen.attribute("WHERE", (20.5, 1.9), 3, layer="TAGS", prompt="To or from", width=0.9)
        pen.attribute("SHEET", (20.5, -2.2), 3, layer="TAGS", width=0.9)

    def pipe(self, points, number, layer="PROCESS", line_id=0):
        return Pipe(self, points, number, layer, line_id)

    def instrument(self, at, function, loop, panel=False):
        self.insert("INST-PANEL" if panel else "INST-FIELD", at, layer="INSTRUMENTS",
                    attributes={"FUNC": function, "LOOP": loop})

    def signal(self, *points):
        self.poly(points, "SIGNALS")

    def lead(self, a, b):
        self.line(a, b, "INSTRUMENTS")

    def equipment(self, at, tag, service, data=""):
        self.insert("EQP-TAG", at, layer="TAGS",
                    attributes={"TAG": tag, "SERVICE": service, "DATA1": data, "LIN_NUM": "-"})

    def off_page(self, at, where, sheet, incoming=False):
        """`at` is where the pipe meets it: the blunt end of an outgoing one, the point of an incoming one."""
        x, y = at
        self.insert("OFF-PAGE", (x - 45, y) if incoming else at, layer="TAGS",
                    attributes={"WHERE": where, "SHEET": sheet})

    # Equipment, each named by a point that its pipes can be reckoned from.

    def vessel(self, centre, width, height, head=None, layer="EQUIPMENT"):
        """Upright, with dished heads; `height` is that of the straight shell."""
        x, y = centre
        w, h = width / 2, height / 2
        bulge = 0.5 if head is None else head
        self.poly([(x - w, y - h, bulge), (x + w, y - h, 0), (x + w, y + h, bulge), (x - w, y + h, 0)],
                  layer, closed=True)
        for level in (y - h, y + h):
            self.line((x - w, level), (x + w, level), layer, color=8)

    def drum(self, centre, length, height):
        """Lying, with dished ends, on saddles."""
        x, y = centre
        w, h = length / 2, height / 2
        self.poly([(x - w, y - h, 0), (x + w, y - h, 0.5), (x + w, y + h, 0), (x - w, y + h, 0.5)],
                  "EQUIPMENT", closed=True)
        for end in (-w, w):
            self.line((x + end, y - h), (x + end, y + h), "EQUIPMENT", color=8)
        for saddle in (-w * 0.6, w * 0.6):
            self.poly([(x + saddle - 3, y - h), (x + saddle - 4, y - h - 4), (x + saddle + 4, y - h - 4),
                       (x + saddle + 3, y - h)], "EQUIPMENT")

    def column(self, centre, width, height, trays):
        self.vessel(centre, width, height)
        x, y = centre
        step = height / (trays + 1)
        for i in range(1, trays + 1):
            level = y - height / 2 + i * step
            if i % 2:
                self.line((x - width / 2, level), (x + width / 2 - 4, level), "EQUIPMENT", color=8)
                self.line((x + width / 2 - 4, level + 2), (x + width / 2 - 4, level - step + 2), "EQUIPMENT", color=8)
            else:
                self.line((x - width / 2 + 4, level), (x + width / 2, level), "EQUIPMENT", color=8)
                self.line((x - width / 2 + 4, level + 2), (x - width / 2 + 4, level - step + 2), "EQUIPMENT", color=8)

    def tank(self, corner, width, height, roof="cone"):
        x, y = corner
        self.poly([(x, y + height), (x, y), (x + width, y), (x + width, y + height)], "EQUIPMENT")
        self.line((x - 5, y), (x + width + 5, y), "EQUIPMENT")
        if roof == "cone":
            self.poly([(x, y + height), (x + width / 2, y + height + width * 0.14), (x + width, y + height)],
                      "EQUIPMENT")
            self.line((x, y + height), (x + width, y + height), "EQUIPMENT", color=8)
        elif roof == "floating":
            level = y + height * 0.72
            self.poly([(x + 1, level + 2.5), (x + 1, level), (x + width - 1, level), (x + width - 1, level + 2.5)],
                      "EQUIPMENT")
            self.line((x + 1, level + 1.4), (x + width - 1, level + 1.4), "EQUIPMENT", color=8)

    def pump(self, centre, flip=False):
        """Suction at the centre from the side, discharge upwards at the edge: (x + 7, y + 9), or x - 7 flipped."""
        x, y = centre
        side = -1 if flip else 1
        self.circle(centre, 7, "EQUIPMENT")
        self.poly([(x + side * 7, y), (x + side * 7, y + 9)], "EQUIPMENT")
        self.line((x, y + 7), (x + side * 7, y + 7), "EQUIPMENT")
        self.line((x + side * 5, y + 9), (x + side * 9, y + 9), "EQUIPMENT")
        self.poly([(x - 4.5, y - 5.4), (x - 8, y - 11), (x + 8, y - 11), (x + 4.5, y - 5.4)], "EQUIPMENT")

    def exchanger(self, centre, length=44, height=14):
        """Shell and tubes, lying: channel on the left."""
        x, y = centre
        w, h = length / 2, height / 2
        self.poly([(x - w + 8, y - h, 0), (x + w, y - h, 0.55), (x + w, y + h, 0), (x - w + 8, y + h, 0)],
                  "EQUIPMENT", closed=True)
        self.poly([(x - w + 8, y + h, 0), (x - w, y + h, 0.55), (x - w, y - h, 0), (x - w + 8, y - h, 0)], "EQUIPMENT")
        self.line((x - w + 8, y - h - 2), (x - w + 8, y + h + 2), "EQUIPMENT")
        for offset in (-3.6, -1.2, 1.2, 3.6):
            self.line((x - w + 8, y + offset), (x + w - 2, y + offset), "EQUIPMENT", color=8)

    def cooler(self, centre):
        """The round symbol with a kinked line for the cooling medium."""
        x, y = centre
        self.circle(centre, 9, "EQUIPMENT")
        self.poly([(x - 13, y - 7), (x - 4, y - 7), (x - 2, y + 5), (x + 2, y - 5), (x + 4, y + 7), (x + 12, y + 7)],
                  "EQUIPMENT")
        self.arrow((x + 14, y + 7), 0, 3, "EQUIPMENT")

    def compressor(self, centre):
        x, y = centre
        self.poly([(x - 13, y + 13), (x + 13, y + 6), (x + 13, y - 6), (x - 13, y - 13)], "EQUIPMENT", closed=True)
        self.line((x + 13, y), (x + 19, y), "EQUIPMENT")
        self.box((x + 19, y - 6), (16, 12), "EQUIPMENT")
        self.text("M", (x + 27, y), 5, Align.MIDDLE_CENTER, layer="EQUIPMENT")

    def nozzle(self, at, angle):
        """A flanged stub that ends at `at`, pointing to `angle`."""
        root = polar(at, angle + 180, 3)
        self.line(root, at, "EQUIPMENT")
        self.line(polar(at, angle + 90, 2), polar(at, angle - 90, 2), "EQUIPMENT")


class Pipe:
    """A pipe through points, along the axes, that breaks at its fittings. Draws itself at the end of a `with`."""

    def __init__(self, sheet, points, number, layer, line_id):
        self.sheet, self.points, self.number, self.layer, self.line_id = sheet, points, number, layer, line_id
        self.gaps = []

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for piece in self._pieces():
            self.sheet.poly(piece, self.layer)

    def fitting(self, kind, at, tag="", flip=False):
        """A valve or fitting of VALVES on the pipe. Points the way the pipe runs, or against it with `flip`."""
        angle = self._angle(at) + (180 if flip else 0)
        self.gaps.append((at, HALF_LENGTH.get(kind, VALVE)))
        # Actuators and tags above the pipe, to the left of one that rises.
        mirror = 90 < angle % 360 <= 270
        self.sheet.insert(f"V-{kind}", at, rotation=angle, layer="VALVES", mirror=mirror)
        if kind in ("ORIFICE", "SPECTACLE"):
            return
        reading = angle % 180 if angle % 360 != 180 else 0
        data = self.sheet.insert("VAL_BLK", at, rotation=reading, layer="DATA", attributes={
            "TAG": tag, "LIN_NUM": self.number, "SIZE": self.number.split("-")[0], "SPEC": self._spec()})
        if kind in ("CONTROL", "MOTOR") and tag:
            data.attribs[0].dxf.align_point = polar(at, reading + 90, 14)
            data.attribs[0].dxf.align_point = Sheet._point(data.attribs[0].dxf.align_point)
        self.sheet.elements += 1
        self.sheet.element_data(data, self.sheet.elements, self.line_id, "VALVE", tag)

    def tag(self, at, below=False):
        angle = self._angle(at) % 180
        place = polar(at, angle - 90, 5.8) if below else at
        self.sheet.insert("TAGLINE", place, rotation=angle, layer="LINE-NUMBERS", attributes={"LIN_NUM": self.number})

    def arrow(self, at):
        self.sheet.insert("FLOW-ARROW", at, rotation=self._angle(at), layer=self.layer)

    def ends_in_arrow(self):
        self.sheet.insert("FLOW-ARROW", polar(self.points[-1], self._angle(self.points[-1]), -2),
                          rotation=self._angle(self.points[-1]), layer=self.layer)

    def jumps(self, at):
        """Leaves a gap where another pipe crosses."""
        self.gaps.append((at, 2.0))

    def _spec(self):
        return "-".join(self.number.split("-")[3:])

    def _segment(self, at):
        for i, (a, b) in enumerate(zip(self.points, self.points[1:])):
            length = math.dist(a, b)
            along = ((at[0] - a[0]) * (b[0] - a[0]) + (at[1] - a[1]) * (b[1] - a[1])) / length
            away = abs((at[0] - a[0]) * (b[1] - a[1]) - (at[1] - a[1]) * (b[0] - a[0])) / length
            if away < 1e-6 and -1e-6 <= along <= length + 1e-6:
                best = i, along
                if along < length - 1e-6:
                    return best
        try:
            return best
        except NameError:
            raise ValueError(f"{at} does not lie on the pipe {self.number} through {self.points}") from None

    def _angle(self, at):
        i, _ = self._segment(at)
        (x1, y1), (x2, y2) = self.points[i], self.points[i + 1]
        return math.degrees(math.atan2(y2 - y1, x2 - x1)) % 360

    def _pieces(self):
        cuts = []
        for at, half in self.gaps:
            if half:
                i, along = self._segment(at)
                cuts.append((i, along - half, along + half))
        cuts.sort()
        piece = [self.points[0]]
        for i, (a, b) in enumerate(zip(self.points, self.points[1:])):
            length = math.dist(a, b)

            def place(along, start=a, end=b, total=length):
                share = along / total
                return (start[0] + (end[0] - start[0]) * share, start[1] + (end[1] - start[1]) * share)

            for _, start, end in [cut for cut in cuts if cut[0] == i]:
                yield piece + [place(start)]
                piece = [place(end)]
            piece.append(b)
        yield piece
