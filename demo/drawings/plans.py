"""The general arrangement plans of the demonstration database, in millimetres, for a scale of 1:50 or 1:200."""
import math

from ezdxf.enums import TextEntityAlignment as Align

from sheet import ORTHO, Sheet, polar


class Plan(Sheet):
    """`paper` turns a length on paper into one in the drawing."""

    def __init__(self, scale, release="R2000"):
        super().__init__(ORTHO, scale, release)
        self.elements = 0
        self._make_blocks()

    def paper(self, length):
        return length * self.scale

    def _make_blocks(self):
        pen = self.block("EQP-TAG")
        pen.attribute("TAG", (0, 0), 4, layer="TAGS")
        pen.attribute("LIN_NUM", (0, -6), 1.5, layer="DATA", visible=False, default="-")
        pen = self.block("TAGLINE")
        pen.attribute("LIN_NUM", (0, 0), 3, layer="LINE-NUMBERS", width=0.85)
        for name in ("VAL_BLK", "PIP_BLK"):
            pen = self.block(name)
            for row, tag in enumerate(("LIN_NUM", "SIZE", "SPEC")):
                pen.attribute(tag, (0, -2 * row), 1.5, layer="DATA", visible=False)
        pen = self.block("NORTH")
        pen.circle((0, 0), 9, "TEXT")
        pen.solid([(0, 9), (-3.4, -7), (0, -4.5)], "TEXT")
        pen.poly([(0, 9), (3.4, -7), (0, -4.5)], "TEXT")
        pen.text("N", (0, 13), 5, Align.MIDDLE_CENTER)

    def note(self, text, at, height=3.2, layer="TEXT", align=Align.MIDDLE_CENTER, rotation=0, color=256):
        self.text(text, at, self.paper(height), align, rotation, layer, color, 0.9)

    def tag(self, text, at):
        self.insert("EQP-TAG", at, self.scale, layer="TAGS", attributes={"TAG": text, "LIN_NUM": "-"})

    def north(self, at):
        self.insert("NORTH", at, self.scale, layer="TEXT")

    def grid(self, xs, ys, box):
        """Column lines with bubbles above and to the left of `box` (left, bottom, right, top)."""
        left, bottom, right, top = box
        radius = self.paper(5.5)
        for i, x in enumerate(xs):
            self.line((x, bottom), (x, top), "GRID")
            self.circle((x, top + radius), radius, "DIM")
            self.note(str(i + 1), (x, top + radius), 4)
        for i, y in enumerate(ys):
            self.line((left, y), (right, y), "GRID")
            self.circle((left - radius, y), radius, "DIM")
            self.note("ABCDEF"[i], (left - radius, y), 4)

    def dimension(self, a, b, at, vertical=False):
        """The distance of two points on the line `at`, a y or, for vertical ones, an x."""
        first, last = ((at, a), (at, b)) if vertical else ((a, at), (b, at))
        size, over = self.paper(2.5), self.paper(1.5)
        self.line(first, last, "DIM")
        angle = 90 if vertical else 0
        self.arrow(last, angle, size, "DIM")
        self.arrow(first, angle + 180, size, "DIM")
        for x, y in (first, last):
            ends = ((x - over, y), (x + over, y)) if vertical else ((x, y - over), (x, y + over))
            self.line(*ends, "DIM")
        middle = ((first[0] + last[0]) / 2, (first[1] + last[1]) / 2)
        self.note(f"{abs(b - a):.0f}", polar(middle, angle + 90, self.paper(2.6)), 3, "DIM", rotation=angle)

    def walls(self, left, bottom, right, top, thickness, openings=()):
        """Outer walls with openings in the lower one (from x, to x)."""
        t = thickness
        self.poly([(left, top), (right, top), (right, bottom)], "CONCRETE")
        self.poly([(left, bottom), (left, top)], "CONCRETE")
        self.poly([(left + t, bottom + t), (left + t, top - t), (right - t, top - t), (right - t, bottom + t)],
                  "CONCRETE")
        edges = [left] + [edge for opening in openings for edge in opening] + [right]
        for i, (a, b) in enumerate(zip(edges[::2], edges[1::2])):
            inner = (a + t if i == 0 else a, b - t if b == right else b)
            self.line((a, bottom), (b, bottom), "CONCRETE")
            self.line((inner[0], bottom + t), (inner[1], bottom + t), "CONCRETE")
        for a, b in openings:
            for x in (a, b):
                self.line((x, bottom), (x, bottom + t), "CONCRETE")
            half = (b - a) / 2
            self.line((a, bottom), (a, bottom - half), "STEEL")
            self.arc((a, bottom), half, 270, 360, "STEEL")
            self.line((b, bottom), (b, bottom - half), "STEEL")
            self.arc((b, bottom), half, 180, 270, "STEEL")

    def column(self, at, size=300):
        x, y = at
        h = size / 2
        self.solid([(x - h, y - h), (x + h, y - h), (x + h, y + h), (x - h, y + h)], "STEEL")

    def pipe(self, points, diameter, number, line_id, tag_at=None):
        """Both edges of a pipe along the axes, mitred at its turns, and its centre line."""
        half = diameter / 2
        for side in (half, -half):
            self.poly(self._offset(points, side), "PIPE")
        self.poly(points, "PIPE-CENTRE")
        for end, beyond in ((points[0], points[1]), (points[-1], points[-2])):
            angle = math.degrees(math.atan2(beyond[1] - end[1], beyond[0] - end[0])) + 90
            self.line(polar(end, angle, half * 1.9), polar(end, angle + 180, half * 1.9), "FITTINGS")
        for a, b in zip(points, points[1:]):
            middle = ((a[0] + b[0]) / 2, (a[1] + b[1]) / 2)
            data = self.insert("PIP_BLK", middle, self.scale, layer="DATA", attributes={
                "LIN_NUM": number, "SIZE": number.split("-")[0], "SPEC": "-".join(number.split("-")[3:])})
            self.elements += 1
            self.element_data(data, self.elements, line_id)
        if tag_at:
            (x, y), rotation = tag_at
            self.insert("TAGLINE", (x, y), self.scale, rotation, "LINE-NUMBERS", {"LIN_NUM": number})

    @staticmethod
    def _offset(points, side):
        moved = []
        for i, (x, y) in enumerate(points):
            dx = dy = 0.0
            for a, b in zip(points[max(i - 1, 0):i + 1], points[max(i - 1, 0) + 1:i + 2]):
                length = math.dist(a, b)
                if abs(b[0] - a[0]) > abs(b[1] - a[1]):
                    dy = side * (b[0] - a[0]) / length
                else:
                    dx = -side * (b[1] - a[1]) / length
            moved.append((x + dx, y + dy))
        return moved

    def valve(self, at, diameter, number, line_id, vertical=False, wheel=True):
        x, y = at
        a, b = diameter * 1.1, diameter * 0.85
        corners = [(-a, b), (-a, -b), (a, b), (a, -b)]
        if vertical:
            corners = [(v, u) for u, v in corners]
        self.poly([(x + u, y + v) for u, v in corners], "FITTINGS", closed=True)
        for end in (-a * 1.25, a * 1.25):
            ends = ((x + end, y - b * 1.2), (x + end, y + b * 1.2))
            if vertical:
                ends = ((x - b * 1.2, y + end), (x + b * 1.2, y + end))
            self.line(*ends, "FITTINGS")
        if wheel:
            self.circle(at, diameter * 0.8, "FITTINGS")
        data = self.insert("VAL_BLK", at, self.scale, layer="DATA", attributes={
            "LIN_NUM": number, "SIZE": number.split("-")[0], "SPEC": "-".join(number.split("-")[3:])})
        self.elements += 1
        self.element_data(data, self.elements, line_id, "VALVE")

    def pump(self, centre):
        """On its base plate, motor to the right, seen from above; the discharge lies at the centre of the casing."""
        x, y = centre
        self.box((x - 450, y - 320), (1950, 640), "EQUIPMENT")
        self.box((x + 690, y - 240), (760, 480), "EQUIPMENT")
        for i in range(1, 7):
            self.line((x + 690 + i * 108, y - 240), (x + 690 + i * 108, y + 240), "EQUIPMENT", color=8)
        self.box((x + 430, y - 90), (260, 180), "EQUIPMENT")
        self.circle((x, y), 270, "EQUIPMENT")
        self.circle((x, y), 110, "EQUIPMENT")
        self.box((x + 240, y - 150), (190, 300), "EQUIPMENT")
        for dx, dy in ((-370, -285), (-370, 285), (1420, -285), (1420, 285)):
            self.circle((x + dx, y + dy), 22, "EQUIPMENT")

    def grating(self, corner, size, step=250):
        (x, y), (w, h) = corner, size
        self.box(corner, size, "STEEL")
        for i in range(1, int(w / step)):
            self.line((x + i * step, y), (x + i * step, y + h), "STEEL")

    def stairs(self, corner, width, length, steps):
        x, y = corner
        self.box(corner, (length, width), "STEEL")
        for i in range(1, steps):
            self.line((x + i * length / steps, y), (x + i * length / steps, y + width), "STEEL")
        self.line((x + length / steps, y + width / 2), (x + length * 0.93, y + width / 2), "DIM")
        self.arrow((x + length * 0.93, y + width / 2), 0, self.paper(2.5), "DIM")
        self.note("UP", (x + length / 2, y + width + self.paper(2.6)), 2.8)


def pump_hall():
    """The transfer pumps in their hall, the surge vessel, and the pipes between them."""
    d = Plan(50)
    cw1, cw2, suction = ('6"-CW-1001-CS150', 1), ('6"-CW-1002-CS150', 2), ('8"-SW-1005-SS150', 5)
    left, bottom, right, top = 3000, 5100, 18600, 12900
    xs, ys = (3150, 8250, 13350, 18450), (12750, 9000, 5250)
    d.grid(xs, ys, (left - 700, bottom - 500, right + 500, top + 300))
    d.walls(left, bottom, right, top, 300, [(15000, 17400)])
    for x in xs:
        for y in ys:
            d.column((x, y))
    for y, tag in ((10900, "P-101A"), (7300, "P-101B")):
        d.pump((7200, y))
        d.box((6500, y - 500), (2500, 1000), "CONCRETE")
        d.tag(tag, (7900, y - 720))
        d.pipe([(3400, y), (6960, y)], 219, *suction)
        d.valve((4500, y), 219, *suction)
        d.pipe([(7200, y), (7200, y + 900), (9900, y + 900)], 168, *cw1)
        d.valve((8500, y + 900), 168, *cw1)
        d.valve((9250, y + 900), 168, *cw1)
    d.insert("TAGLINE", (5250, 11200), 50, 0, "LINE-NUMBERS", {"LIN_NUM": suction[0]})
    d.pipe([(9900, 6600), (9900, 12200), (15200, 12200), (15200, 10900)], 168, *cw1, ((14150, 12400), 0))
    d.valve((12900, 12200), 168, *cw1)
    d.valve((11000, 12200), 168, *cw1)
    # Surge vessel, exchanger, skirts and nozzles.
    d.circle((15200, 9900), 900, "EQUIPMENT")
    d.circle((15200, 9900), 640, "EQUIPMENT", color=8)
    for angle in range(0, 360, 45):
        d.circle(polar((15200, 9900), angle, 980), 30, "EQUIPMENT", color=8)
    d.tag("V-101", (15200, 9900))
    d.pipe([(15200, 8900), (15200, 7600), (18250, 7600)], 168, *cw2, ((16900, 7800), 0))
    d.valve((15200, 8250), 168, *cw2, vertical=True)
    d.box((10800, 6250), (2600, 560), "EQUIPMENT")
    for x in (11150, 12950):
        d.line((x, 6250), (x, 6810), "EQUIPMENT")
        d.box((x - 60, 6150), (120, 760), "EQUIPMENT")
    d.tag("E-101", (12100, 6530))
    d.pipe([(9900, 6600), (10100, 6600), (10100, 6530), (10800, 6530)], 114, '4"-CW-1003-CS150', 3)
    # Floor.
    d.grating((3400, 5500), (4000, 700))
    d.note("GRATING OVER SUMP", (5400, 6450), 2.8)
    d.stairs((16600, 11300), 1000, 1550, 9)
    for a, b in zip(xs, xs[1:]):
        d.dimension(a, b, 3600)
    d.dimension(xs[0], xs[-1], 3000)
    for a, b in zip(ys[1:], ys):
        d.dimension(a, b, 19350, vertical=True)
    d.dimension(ys[-1], ys[0], 19950, vertical=True)
    d.note("PUMP HALL   EL 100.000", (12600, 8300), 4.5)
    d.note("TO T-101", (1900, 10900), 3.2, "TAGS")
    d.north((19900, 13600))
    d.title("Northwater Utilities", "Pump Station 4", "PUMP HALL, GROUND FLOOR", "GENERAL ARRANGEMENT", "PS4-GA-001", [
        ("A", "21.04.26", "Issued for review", "ML", "JH"), ("0", "21.09.26", "Issued for construction", "ML", "JH")],
        scale="1:50", sheet="1 OF 2")
    d.record(project_id=1, spec_id=1, line_id=2, main_size=14, branch_size=12)
    return d


def tank_farm():
    """Two storage tanks in their bunds, the pump bay and the pipe rack."""
    d = Plan(200)
    fuel1, fuel2, water = ('10"-FO-3001-TF-FUEL', 12), ('8"-FO-3002-TF-FUEL', 13), ('6"-FW-3003-CS150', 14)
    for x, tag in ((20000, "T-301"), (44000, "T-302")):
        centre = (x, 40000)
        d.circle(centre, 9000, "EQUIPMENT")
        d.circle(centre, 8700, "EQUIPMENT", color=8)
        for angle in range(30, 360, 60):
            d.line(polar(centre, angle, 9000), polar(centre, angle, 9600), "EQUIPMENT")
        d.arc(centre, 9900, 200, 290, "STEEL")
        d.arc(centre, 9200, 200, 290, "STEEL")
        for angle in range(202, 290, 4):
            d.line(polar(centre, angle, 9200), polar(centre, angle, 9900), "STEEL")
        d.tag(tag, (x, 40800))
        d.note("5000 m3", (x, 39200), 3)
        d.pipe([(x + 4000, 31600), (x + 4000, 19600)], 500, *fuel1)
        d.valve((x + 4000, 24300), 500, *fuel1, vertical=True)
    for offset in (0, 500):
        d.poly([(8000 + offset, 27000 + offset), (56000 - offset, 27000 + offset), (56000 - offset, 52500 - offset),
                (8000 + offset, 52500 - offset)], "CONCRETE", closed=True)
        d.line((32000 + offset, 27500), (32000 + offset, 52000), "CONCRETE")
    d.note("BUND 1", (12000, 50500), 3.5)
    d.note("BUND 2", (36000, 50500), 3.5)
    d.pipe([(4500, 53700), (60000, 53700), (60000, 16000)], 320, *water, ((32000, 54600), 0))
    # Pipe rack and pumps.
    for x in range(9000, 57001, 8000):
        d.column((x, 17200), 700)
        d.column((x, 21800), 700)
        d.line((x, 17200), (x, 21800), "STEEL")
    d.line((9000, 17200), (57000, 17200), "STEEL")
    d.line((9000, 21800), (57000, 21800), "STEEL")
    d.pipe([(10000, 19600), (64500, 19600)], 500, *fuel1, ((33500, 20700), 0))
    d.pipe([(10000, 18300), (64500, 18300), (64500, 24500)], 400, *fuel2, ((33500, 16300), 0))
    d.walls(62000, 24500, 78000, 38500, 500, [(68000, 71000)])
    for y, tag in ((28000, "P-301A"), (34000, "P-301B")):
        d.box((66000, y - 700), (7000, 1900), "EQUIPMENT")
        d.box((66500, y - 400), (2800, 1300), "EQUIPMENT")
        d.circle((71500, y + 250), 800, "EQUIPMENT")
        d.tag(tag, (69500, y + 2300))
    d.note("PUMP BAY", (72600, 41400), 4)
    d.grid((20000, 44000, 70000), (40000, 19600), (4500, 14500, 79000, 54300))
    d.dimension(20000, 44000, 13000)
    d.dimension(44000, 70000, 13000)
    d.dimension(19600, 40000, 81000, vertical=True)
    d.north((74500, 51000))
    d.title("Brightfield Chemicals", "Tank Farm East", "TANKS, PUMP BAY AND RACK", "PLOT PLAN", "TF-GA-001", [
        ("0", "12.10.25", "As built", "ML", "RB"), ("1", "03.02.26", "Fire water ring added", "ML", "RB")],
        scale="1:200")
    d.record(project_id=4, spec_id=11, line_id=12, main_size=18, branch_size=16)
    return d
