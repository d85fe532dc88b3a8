"""The electrical drawings of the demonstration database."""
from ezdxf.enums import TextEntityAlignment as Align

from sheet import ELECTRIC, Sheet, polar


class Electrical(Sheet):
    def __init__(self, scale=1, release="R2000"):
        super().__init__(ELECTRIC, scale, release)
        self._make_layout_symbols()
        self._make_schematic_symbols()

    def _make_layout_symbols(self):
        """In units of paper; layouts insert them at their scale."""
        pen = self.block("LUMINAIRE")
        pen.box((-9, -2.4), (18, 4.8), "LIGHTING")
        pen.line((-9, 0), (9, 0), "LIGHTING")
        pen.attribute("CIRCUIT", (0, 4.8), 2.8, layer="LIGHTING")
        pen = self.block("EMERGENCY")
        pen.box((-3, -3), (6, 6), "LIGHTING")
        pen.line((-3, -3), (3, 3), "LIGHTING")
        pen.line((-3, 3), (3, -3), "LIGHTING")
        pen = self.block("SWITCH")
        pen.circle((0, 0), 1.6, "LIGHTING")
        pen.line((1.1, 1.1), (5, 5), "LIGHTING")
        pen.line((5, 5), (6.4, 3.6), "LIGHTING")
        pen = self.block("SOCKET")
        pen.arc((0, 0), 3, 0, 180, "POWER")
        pen.line((-3, 0), (3, 0), "POWER")
        pen.line((0, 3), (0, 6), "POWER")
        pen.line((-3, 3), (3, 3), "POWER")
        pen.attribute("CIRCUIT", (0, 8.4), 2.8, layer="POWER")
        pen = self.block("MOTOR-POINT")
        pen.circle((0, 0), 4.5, "POWER")
        pen.text("M", (0, 0), 4.5, Align.MIDDLE_CENTER, layer="POWER")
        pen.attribute("TAG", (0, 7.5), 3.2, layer="POWER")
        pen = self.block("EQP-TAG")
        pen.attribute("TAG", (0, 0), 3.6, layer="PANEL")
        pen.attribute("LIN_NUM", (0, -5), 1.5, layer="DATA", visible=False, default="-")

    def _make_schematic_symbols(self):
        """Devices on a wire that runs downwards: they begin at the origin and end 12 below."""
        def contact(name, closed=False):
            pen = self.block(name)
            pen.line((0, 0), (0, -3), "DEVICES")
            pen.line((0, -9), (0, -12), "DEVICES")
            pen.line((0, -9), (3.2 if closed else -3, -2.6), "DEVICES")
            if closed:
                pen.line((0, -3), (3.6, -3), "DEVICES")
            pen.attribute("TAG", (-6.5, -6), 3.2, Align.MIDDLE_RIGHT, "DEVICES")
            pen.attribute("PINS", (3.6, -7.6), 2.4, Align.MIDDLE_LEFT, "REFERENCE")
            return pen

        contact("CONTACT-NO")
        contact("CONTACT-NC", True)
        pen = contact("BUTTON-NO")
        pen.line((-1.6, -6), (-4, -6), "DEVICES")
        pen.line((-4, -4.4), (-4, -7.6), "DEVICES")
        pen = contact("BUTTON-NC", True)
        pen.line((1.6, -6), (-4, -6), "DEVICES")
        pen.line((-4, -4.4), (-4, -7.6), "DEVICES")
        pen = self.block("COIL")
        pen.line((0, 0), (0, -3), "DEVICES")
        pen.box((-5, -9), (10, 6), "DEVICES")
        pen.line((0, -9), (0, -12), "DEVICES")
        pen.attribute("TAG", (-6.5, -6), 3.2, Align.MIDDLE_RIGHT, "DEVICES")
        pen.attribute("PINS", (6.5, -6), 2.4, Align.MIDDLE_LEFT, "REFERENCE")
        pen = self.block("LAMP")
        pen.line((0, 0), (0, -3), "DEVICES")
        pen.circle((0, -6), 3, "DEVICES")
        pen.line(polar((0, -6), 45, 3), polar((0, -6), 225, 3), "DEVICES")
        pen.line(polar((0, -6), 135, 3), polar((0, -6), 315, 3), "DEVICES")
        pen.line((0, -9), (0, -12), "DEVICES")
        pen.attribute("TAG", (-5, -6), 3.2, Align.MIDDLE_RIGHT, "DEVICES")
        pen.attribute("PINS", (5, -6), 2.4, Align.MIDDLE_LEFT, "REFERENCE")
        pen = self.block("FUSE")
        pen.line((0, 0), (0, -12), "DEVICES")
        pen.box((-1.6, -9), (3.2, 6), "DEVICES")
        pen.attribute("TAG", (-4, -6), 3.2, Align.MIDDLE_RIGHT, "DEVICES")
        pen.attribute("PINS", (3.4, -6), 2.4, Align.MIDDLE_LEFT, "REFERENCE")

    def device(self, name, at, tag, pins=""):
        self.insert(name, at, layer="DEVICES", attributes={"TAG": tag, "PINS": pins})

    def wire(self, *points):
        self.poly(points, "WIRES")

    def node(self, at):
        self.dot(at, 0.9, "WIRES")

    def three_poles(self, x, y, draw):
        for pole in range(3):
            draw(x + pole * 9, y)

    def table(self, corner, widths, step, rows, heights=3.0, layer="PANEL"):
        """`corner` is the upper left one; the first row is the heading."""
        x, y = corner
        total = sum(widths)
        self.box((x, y - step * len(rows)), (total, step * len(rows)), layer)
        edges = [x + sum(widths[:i]) for i in range(len(widths))]
        for edge in edges[1:]:
            self.line((edge, y), (edge, y - step * len(rows)), layer)
        for i, row in enumerate(rows):
            if i:
                self.line((x, y - i * step), (x + total, y - i * step), layer, color=256 if i == 1 else 8)
            for edge, cell in zip(edges, row):
                self.text(cell, (edge + step * 0.2, y - (i + 0.5) * step), heights, Align.MIDDLE_LEFT,
                          layer="TEXT", color=2 if i == 0 else 256, width=0.85)


def pump_hall_layout():
    """Lighting and small power of the pump hall and its rooms."""
    scale = 50
    d = Electrical(scale)

    def paper(length):
        return length * scale

    def symbol(name, at, rotation=0, **attributes):
        d.insert(name, at, scale, rotation, attributes=attributes)

    def circuit(a, b, bulge, layer):
        d.poly([(*a, bulge), b], layer)

    left, bottom, right, top, split, middle = 1000, 3200, 14200, 13000, 10000, 8400
    for inset in (0, 250):
        d.poly([(left + inset, bottom + inset), (right - inset, bottom + inset), (right - inset, top - inset),
                (left + inset, top - inset)], "WALLS", closed=True)
    for offset in (0, 150):
        d.line((split + offset, bottom + 250), (split + offset, top - 250), "WALLS")
        d.line((split + 150, middle + offset), (right - 250, middle + offset), "WALLS")
    for at, start in (((split, 5600), 90), ((split, 10200), 90)):
        d.line(at, polar(at, 180, 900), "DOORS")
        d.arc(at, 900, 90, 180, "DOORS")
    for text, at in (("PUMP HALL", (5400, 9500)), ("SWITCH ROOM", (12500, 10650)), ("CONTROL ROOM", (12100, 5600))):
        d.text(text, at, paper(4.5), Align.MIDDLE_CENTER, layer="ROOMS")
    # Lighting: three rows in the hall, one in each room.
    for row, y in enumerate((11800, 8100, 4600)):
        points = [(x, y) for x in (2600, 5400, 8200)]
        for at in points:
            symbol("LUMINAIRE", at, CIRCUIT=f"L{row + 1}")
        for a, b in zip(points, points[1:]):
            circuit((a[0] + 450, a[1] - 120), (b[0] - 450, b[1] - 120), 0.28, "LIGHT-CIRCUIT")
        circuit((8650, y - 120), (10350, 12350 - row * 120), -0.2, "LIGHT-CIRCUIT")
    for y, name in ((10200, "L4"), (7200, "L5")):
        for x in (11200, 13000):
            symbol("LUMINAIRE", (x, y - 600 if y < 8000 else y + 1700), CIRCUIT=name)
    for at in ((1500, 5600), (9600, 9600), (10500, 8000)):
        symbol("EMERGENCY", at)
    for at in ((9700, 6700), (9700, 11300), (10500, 5300)):
        symbol("SWITCH", at)
    # Small power.
    for at, rotation, name in (((1250, 7000), 270, "P1"), ((1250, 10200), 270, "P1"), ((4000, 3450), 0, "P2"),
                               ((7000, 3450), 0, "P2"), ((13950, 5000), 90, "P3"), ((13950, 7400), 90, "P3"),
                               ((12000, 3450), 0, "P3"), ((13950, 10200), 90, "P4")):
        symbol("SOCKET", at, rotation, CIRCUIT=name)
    for at, tag in (((3400, 10300), "P-101A"), ((3400, 6500), "P-101B")):
        symbol("MOTOR-POINT", at, TAG=tag)
        circuit((at[0] + 225, at[1]), (10350, 11400), -0.12, "POWER-CIRCUIT")
    # Cable tray and panels.
    for offset in (0, 300):
        d.line((1600, 12420 - offset), (9700, 12420 - offset), "TRAY")
        d.line((10250, 12420 - offset), (11300, 12420 - offset), "TRAY")
    for x in range(1800, 9700, 600):
        d.line((x, 12420), (x + 150, 12120), "TRAY")
    d.text("CABLE TRAY 300 x 60   EL 103.200", (5400, 12620), paper(2.8), Align.MIDDLE_CENTER, layer="TRAY")
    for x, tag in ((10350, "DB-1"), (11700, "MCC-1")):
        width = 700 if tag == "DB-1" else 2000
        d.solid([(x, 10900), (x + width, 10900), (x + width, 11300), (x, 11300)] if tag == "DB-1" else
                [(x, 9100), (x + width, 9100), (x + width, 9600), (x, 9600)], "PANEL")
        d.insert("EQP-TAG", (x + width / 2, 10700 if tag == "DB-1" else 9850), scale, layer="PANEL",
                 attributes={"TAG": tag, "LIN_NUM": "-"})
    d.poly([(700, 2900), (14500, 2900), (14500, 13300), (700, 13300)], "EARTH", closed=True)
    d.text("EARTH RING 70 mm2 Cu", (7500, 2650), paper(2.8), Align.MIDDLE_CENTER, layer="EARTH")
    d.table((paper(298), paper(285)), [paper(w) for w in (16, 66, 15, 13)], paper(7), [
        ("DB-1", "CIRCUIT", "A", "kW"), ("L1", "Hall lights, north", "10", "0.5"), ("L2", "Hall lights, middle", "10", "0.5"),
        ("L3", "Hall lights, south", "10", "0.5"), ("L4", "Switch room lights", "6", "0.2"),
        ("L5", "Control room lights", "6", "0.2"), ("P1", "Sockets, hall west", "16", "2.0"),
        ("P2", "Sockets, hall south", "16", "2.0"), ("P3", "Sockets, control room", "16", "3.0"),
        ("P4", "Sockets, switch room", "16", "1.0"), ("R1", "Spare", "16", "-")], paper(3.2))
    legend = (paper(302), paper(190))
    d.text("LEGEND", legend, paper(4), color=2)
    for i, (name, text, extra) in enumerate((
            ("LUMINAIRE", "Luminaire 2 x 36 W, IP65", {"CIRCUIT": ""}), ("EMERGENCY", "Emergency luminaire 3 h", {}),
            ("SWITCH", "Light switch", {}), ("SOCKET", "Socket outlet 16 A", {"CIRCUIT": ""}),
            ("MOTOR-POINT", "Motor connection", {"TAG": ""}))):
        y = legend[1] - paper(11 + 12 * i)
        d.insert(name, (legend[0] + paper(10), y), scale, attributes=extra)
        d.text(text, (legend[0] + paper(24), y), paper(3.2), Align.MIDDLE_LEFT)
    d.title("Northwater Utilities", "Pump Station 4", "PUMP HALL LIGHTING AND POWER", "ELECTRICAL LAYOUT", "PS4-E-001", [
        ("A", "04.05.26", "Issued for review", "JH", "ML"), ("0", "21.09.26", "Issued for construction", "JH", "ML")],
        scale="1:50", drawn="JH")
    d.record(project_id=1, electric_mode=0)
    return d


def motor_starter():
    """Power and control circuit of a transfer pump."""
    d = Electrical()
    # Power.
    for pole, name in enumerate(("L1", "L2", "L3")):
        y = 270 - pole * 7
        d.wire((24, y), (140, y))
        d.text(name, (16, y), 3.6, Align.MIDDLE_LEFT)
        x = 56 + pole * 9
        d.node((x, y))
        d.wire((x, y), (x, 240))
        # Breaker, contactor, overload.
        d.line((x, 240), (x - 3, 233), "DEVICES")
        d.line((x - 1.2, 241.2), (x + 1.2, 238.8), "DEVICES")
        d.line((x - 1.2, 238.8), (x + 1.2, 241.2), "DEVICES")
        d.wire((x, 232), (x, 205))
        d.line((x, 197), (x - 3, 204), "DEVICES")
        d.arc((x, 205.6), 1.2, 90, 270, "DEVICES")
        d.wire((x, 197), (x, 178))
        d.poly([(x, 178), (x, 175), (x + 3, 175), (x + 3, 171), (x, 171), (x, 168)], "DEVICES")
        d.wire((x, 168), (x, 140), (65, 131) if pole == 1 else (65 + (pole - 1) * 4, 129))
    for y, tag, pins in ((236, "Q1", "63 A"), (200, "K1", "1-2 3-4 5-6"), (173, "F2", "68 A")):
        d.text(tag, (45, y), 3.6, Align.MIDDLE_RIGHT, layer="DEVICES")
        d.text(pins, (82, y), 2.6, Align.MIDDLE_LEFT, layer="REFERENCE")
        d.line((50, y), (77, y), "REFERENCE", linetype="DASHED")
    d.box((48, 164), (33, 18), "DEVICES")
    d.circle((65, 122), 9, "DEVICES")
    d.text("M", (65, 123.5), 6, Align.MIDDLE_CENTER, layer="DEVICES")
    d.text("3~", (65, 117), 3.6, Align.MIDDLE_CENTER, layer="DEVICES")
    d.text("P-101A   37 kW   400 V", (65, 106), 3.4, Align.MIDDLE_CENTER)
    d.text("W1   4 x 25 mm2", (78, 150), 2.8, Align.MIDDLE_LEFT, layer="REFERENCE")
    # Control supply.
    for y, row in ((256, 2), (263, 1)):
        d.node((110 + row * 6, 270 - (row - 1) * 7))
        d.wire((110 + row * 6, 270 - (row - 1) * 7), (110 + row * 6, 238))
    for x in (119, 125):
        d.circle((x, 229), 5.5, "DEVICES")
    d.wire((116, 238), (116, 233.6))
    d.wire((122, 238), (122, 234))
    d.text("T1", (110, 229), 3.6, Align.MIDDLE_RIGHT, layer="DEVICES")
    d.text("400/230 V", (133, 229), 2.6, Align.MIDDLE_LEFT, layer="REFERENCE")
    d.wire((125, 223.5), (125, 216), (152, 216), (152, 258), (160, 258))
    d.wire((119, 223.5), (119, 76), (400, 76))
    d.text("230 V AC", (164, 262), 3, layer="REFERENCE")
    # Control circuit.
    d.device("FUSE", (168, 258), "F3", "2 A")
    d.wire((160, 258), (168, 258))
    d.wire((168, 246), (168, 240))
    d.device("CONTACT-NC", (168, 240), "F2", "95-96")
    d.wire((168, 228), (168, 222))
    d.device("BUTTON-NC", (168, 222), "S0", "11-12")
    d.wire((168, 210), (168, 204), (390, 204))
    d.node((168, 204))
    rungs = [
        (190, [("BUTTON-NO", "S1", "13-14"), ("CONTACT-NC", "K2", "21-22")], ("COIL", "K1", "A1-A2"), "START P-101A"),
        (262, [("CONTACT-NO", "A1", "5-6"), ("CONTACT-NC", "B1", "LL-100")], ("COIL", "K2", "A1-A2"), "LOW LEVEL T-101"),
        (318, [("CONTACT-NO", "K1", "33-34")], ("LAMP", "H1", "GN"), "RUNNING"),
        (354, [("CONTACT-NC", "K1", "41-42")], ("LAMP", "H2", "WH"), "STOPPED"),
        (390, [("CONTACT-NO", "F2", "97-98")], ("LAMP", "H3", "RD"), "TRIPPED"),
    ]
    for number, (x, contacts, load, text) in enumerate(rungs, 1):
        if x != 390:
            d.node((x, 204))
        y = 204
        for name, tag, pins in contacts:
            d.wire((x, y), (x, y - 8))
            d.device(name, (x, y - 8), tag, pins)
            y -= 20
        d.wire((x, y), (x, 112))
        d.device(load[0], (x, 112), *load[1:])
        d.wire((x, 100), (x, 76))
        d.node((x, 76))
        d.text(text, (x, 70), 2.8, Align.MIDDLE_CENTER, layer="REFERENCE", width=0.85)
        d.text(str(number), (x, 208), 3, Align.MIDDLE_CENTER, layer="REFERENCE")
    # The contact that holds the start.
    d.node((190, 200))
    d.wire((190, 200), (222, 200), (222, 196))
    d.device("CONTACT-NO", (222, 196), "K1", "13-14")
    d.wire((222, 184), (222, 180), (190, 180))
    d.node((190, 180))
    d.table((18, 96), [16, 60], 6.4, [("TAG", "DEVICE"), ("Q1", "Breaker 63 A, 36 kA"), ("K1", "Contactor 37 kW AC-3"),
                                   ("F2", "Overload relay 55-80 A"), ("T1", "Transformer 160 VA")],
            2.8)
    d.title("Northwater Utilities", "Pump Station 4", "TRANSFER PUMP P-101A", "STARTER, CIRCUIT DIAGRAM", "PS4-E-101", [
        ("A", "12.05.26", "Issued for review", "JH", "ML")], sheet="1 OF 2", drawn="JH")
    d.record(project_id=1, electric_mode=1)
    return d


def single_line():
    """Incoming supply, transformers, switchboard and feeders."""
    d = Electrical(release="R2018")

    def breaker(x, y, tag, rating):
        d.line((x, y), (x - 3, y - 7), "DEVICES")
        d.line((x - 1.3, y + 1.3), (x + 1.3, y - 1.3), "DEVICES")
        d.line((x - 1.3, y - 1.3), (x + 1.3, y + 1.3), "DEVICES")
        d.text(tag, (x + 4, y - 1.5), 3.2, Align.MIDDLE_LEFT, layer="DEVICES")
        d.text(rating, (x + 4, y - 6), 2.6, Align.MIDDLE_LEFT, layer="REFERENCE")

    for x, n in ((120, 1), (300, 2)):
        d.wire((x, 272), (x, 258))
        d.arrow((x, 262), 270, 4, "WIRES")
        d.text(f"INCOMER {n}   11 kV  50 Hz", (x + 6, 270), 3.4, Align.MIDDLE_LEFT)
        breaker(x, 258, f"QM{n}", "630 A")
        d.wire((x, 250), (x, 236))
        d.circle((x, 230), 6, "DEVICES")
        d.circle((x, 222), 6, "DEVICES")
        d.text(f"TR{n}", (x + 9, 229), 4, Align.MIDDLE_LEFT, layer="DEVICES")
        d.text("2 MVA  11/0.69 kV  Dyn11", (x + 9, 223), 2.8, Align.MIDDLE_LEFT, layer="REFERENCE")
        d.wire((x, 216), (x, 204))
        breaker(x, 204, f"Q{n}", "2000 A")
        d.wire((x, 196), (x, 184))
        d.node((x, 184))
    d.solid([(30, 183.2), (202, 183.2), (202, 184.8), (30, 184.8)], "PANEL")
    d.solid([(218, 183.2), (392, 183.2), (392, 184.8), (218, 184.8)], "PANEL")
    d.text("BUS A   690 V   2500 A", (32, 189), 3.4, layer="PANEL")
    d.text("BUS B   690 V   2500 A", (346, 189), 3.4, layer="PANEL")
    d.wire((202, 184), (206, 184))
    d.line((206, 184), (213.4, 187), "DEVICES")
    d.wire((214, 184), (218, 184))
    d.text("Q3", (210, 192), 3.2, Align.MIDDLE_CENTER, layer="DEVICES")
    feeders = [
        (48, "Q11", "1600 A", "K-401", "3.2 MW", True), (84, "Q12", "100 A", "P-402", "55 kW", True),
        (120, "Q13", "63 A", "P-403", "30 kW", True), (156, "Q14", "250 A", "MCC-2", "", False),
        (190, "Q15", "160 A", "UPS-1", "80 kVA", False), (236, "Q21", "100 A", "P-404", "55 kW", True),
        (272, "Q22", "63 A", "P-405", "30 kW", True), (308, "Q23", "250 A", "MCC-3", "", False),
        (344, "Q24", "125 A", "DB-1", "60 kW", False), (378, "Q25", "160 A", "SPARE", "", False),
    ]
    for x, tag, rating, load, power, is_motor in feeders:
        d.node((x, 184))
        d.wire((x, 184), (x, 168))
        breaker(x, 168, tag, rating)
        d.wire((x, 160), (x, 128 if is_motor else 118))
        if is_motor:
            d.poly([(x - 3, 150), (x + 3, 150), (x + 3, 142), (x - 3, 142)], "DEVICES", closed=True)
            d.circle((x, 120), 8, "DEVICES")
            d.text("M", (x, 120), 6, Align.MIDDLE_CENTER, layer="DEVICES")
        else:
            d.arrow((x, 114), 270, 5, "DEVICES")
        d.text(load, (x, 105), 3.6, Align.MIDDLE_CENTER, layer="DEVICES")
        d.text(power, (x, 99.5), 2.8, Align.MIDDLE_CENTER, layer="REFERENCE")
    d.notes(["Q1, Q2 and Q3: two of three closed.", "Fault level 42 kA, 1 s.", "Relays: see CH-E-010."], (20, 84), 3.3)
    d.table((214, 88), [22, 60, 44, 50], 6.6, [
        ("CABLE", "FROM - TO", "TYPE", "SIZE"), ("W11", "Q11 - K-401", "XLPE/SWA", "3 x (3 x 300 mm2)"),
        ("W12", "Q12 - P-402", "XLPE/SWA", "4 x 35 mm2"), ("W14", "Q14 - MCC-2", "XLPE/SWA", "4 x 120 mm2"),
        ("W24", "Q24 - DB-1", "XLPE/SWA", "4 x 50 mm2")], 2.8)
    d.title("Harbour Energy", "Compressor House", "MAIN SWITCHBOARD", "SINGLE LINE DIAGRAM", "CH-E-001", [
        ("A", "22.05.26", "Issued for review", "JH", "RB"), ("0", "17.08.26", "Issued for design", "JH", "RB")],
        drawn="JH")
    d.record(project_id=5, electric_mode=1)
    return d
