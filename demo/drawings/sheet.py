"""A drawing sheet: layers, text styles, border and title block, and short names for what the drawings are made of.

Sheets are A3, 420 by 297 units, times a scale for plans that are drawn in real millimetres.
"""
import math

import ezdxf
from ezdxf.enums import TextEntityAlignment as Align
from ezdxf.math import Matrix44

WIDTH, HEIGHT = 420, 297
FRAME = 10
RECORD_NAME = "KAL-VOR Software - TESSARC"

ELECTRIC, PID, ISOMETRIC, ORTHO = 1, 2, 3, 4

# name, colour, linetype
COMMON_LAYERS = [
    ("BORDER", 8, "Continuous"),
    ("TITLE", 7, "Continuous"),
    ("TEXT", 7, "Continuous"),
    ("DIM", 9, "Continuous"),
    ("DATA", 8, "Continuous"),
]
LAYERS = {
    ELECTRIC: [
        ("WALLS", 7, "Continuous"),
        ("DOORS", 8, "Continuous"),
        ("ROOMS", 9, "Continuous"),
        ("TRAY", 30, "Continuous"),
        ("LIGHTING", 2, "Continuous"),
        ("LIGHT-CIRCUIT", 40, "DASHED"),
        ("POWER", 4, "Continuous"),
        ("POWER-CIRCUIT", 140, "DASHED"),
        ("EARTH", 3, "CENTER"),
        ("PANEL", 6, "Continuous"),
        ("WIRES", 7, "Continuous"),
        ("DEVICES", 4, "Continuous"),
        ("REFERENCE", 9, "Continuous"),
    ],
    PID: [
        ("EQUIPMENT", 7, "Continuous"),
        ("PROCESS", 3, "Continuous"),
        ("UTILITY", 4, "Continuous"),
        ("VALVES", 7, "Continuous"),
        ("INSTRUMENTS", 2, "Continuous"),
        ("SIGNALS", 1, "DASHED"),
        ("LINE-NUMBERS", 30, "Continuous"),
        ("TAGS", 4, "Continuous"),
    ],
    ISOMETRIC: [
        ("PIPE", 3, "Continuous"),
        ("FITTINGS", 4, "Continuous"),
        ("WELDS", 1, "Continuous"),
        ("SUPPORTS", 6, "Continuous"),
        ("BALLOONS", 2, "Continuous"),
        ("MATERIAL", 7, "Continuous"),
        ("CONTINUATION", 8, "DASHED"),
        ("LINE-NUMBERS", 30, "Continuous"),
    ],
    ORTHO: [
        ("GRID", 8, "CENTER"),
        ("CONCRETE", 9, "Continuous"),
        ("STEEL", 8, "Continuous"),
        ("EQUIPMENT", 7, "Continuous"),
        ("PIPE", 3, "Continuous"),
        ("PIPE-CENTRE", 1, "CENTER"),
        ("FITTINGS", 4, "Continuous"),
        ("TAGS", 4, "Continuous"),
        ("LINE-NUMBERS", 30, "Continuous"),
    ],
}
PREFIX_TITLE = {ELECTRIC: "ELECTRICAL", PID: "P&ID", ISOMETRIC: "ISOMETRIC", ORTHO: "PLAN"}


def rounded(value):
    """Coordinates to a thousandth: what a designer would type, and short in the file."""
    return round(value, 3) + 0.0


def polar(at, angle, length):
    return (at[0] + length * math.cos(math.radians(angle)), at[1] + length * math.sin(math.radians(angle)))


class Pen:
    """Draws into a block or a model space."""

    def __init__(self, space, text_style="ROMANS"):
        self.space = space
        self.style = text_style

    def line(self, a, b, layer="0", color=256, linetype=None):
        attributes = {"layer": layer, "color": color}
        if linetype:
            attributes["linetype"] = linetype
        return self.space.add_line(self._point(a), self._point(b), attributes)

    def poly(self, points, layer="0", closed=False, color=256, linetype=None):
        attributes = {"layer": layer, "color": color}
        if linetype:
            attributes["linetype"] = linetype
        vertices = [(rounded(p[0]), rounded(p[1]), rounded(p[2] if len(p) > 2 else 0)) for p in points]
        return self.space.add_lwpolyline(vertices, format="xyb", close=closed, dxfattribs=attributes)

    def box(self, corner, size, layer="0", color=256):
        (x, y), (w, h) = corner, size
        return self.poly([(x, y), (x + w, y), (x + w, y + h), (x, y + h)], layer, True, color)

    def circle(self, centre, radius, layer="0", color=256, linetype=None):
        attributes = {"layer": layer, "color": color}
        if linetype:
            attributes["linetype"] = linetype
        return self.space.add_circle(self._point(centre), rounded(radius), attributes)

    def arc(self, centre, radius, start, end, layer="0", color=256):
        return self.space.add_arc(self._point(centre), rounded(radius), start, end,
                                  dxfattribs={"layer": layer, "color": color})

    def solid(self, corners, layer="0", color=256):
        """A filled triangle or quadrilateral, its corners in the order of its outline."""
        corners = [self._point(corner) for corner in corners]
        if len(corners) == 4:
            corners = [corners[0], corners[1], corners[3], corners[2]]
        return self.space.add_solid(corners, {"layer": layer, "color": color})

    def dot(self, centre, radius, layer="0", color=256):
        """A filled circle, as eight-cornered as a plotter needs it."""
        corners = [polar(centre, 22.5 + 45 * i, radius) for i in range(8)]
        self.solid([corners[i] for i in (0, 1, 2, 3)], layer, color)
        self.solid([corners[i] for i in (4, 5, 6, 7)], layer, color)
        self.solid([corners[i] for i in (3, 4, 7, 0)], layer, color)

    def text(self, text, at, height=3.5, align=Align.LEFT, rotation=0, layer="TEXT", color=256, width=1.0):
        entity = self.space.add_text(text, dxfattribs={
            "layer": layer, "color": color, "height": rounded(height), "rotation": rounded(rotation),
            "style": self.style, "width": width})
        entity.set_placement(self._point(at), align=align)
        return entity

    def attribute(self, tag, at, height=3.5, align=Align.MIDDLE_CENTER, layer="TEXT", prompt="", default="",
                  visible=True, rotation=0, width=1.0):
        entity = self.space.add_attdef(tag, self._point(at), default, dxfattribs={
            "layer": layer, "height": rounded(height), "style": self.style, "prompt": prompt or tag.title(),
            "rotation": rotation, "width": width})
        entity.set_placement(self._point(at), align=align)
        entity.is_invisible = not visible
        return entity

    def arrow(self, tip, angle, size=3.0, layer="0", color=256):
        """A filled arrowhead that points to `angle` degrees."""
        self.solid([tip, polar(tip, angle + 162, size), polar(tip, angle - 162, size)], layer, color)

    @staticmethod
    def _point(point):
        return tuple(rounded(value) for value in point)


class Sheet(Pen):
    """A drawing in the making. `scale` is the number of drawing units to a unit on paper."""

    def __init__(self, discipline, scale=1, release="R2000"):
        self.doc = ezdxf.new(release, units=4 if scale > 1 else 0)
        self.discipline = discipline
        self.scale = scale
        self._make_tables()
        super().__init__(self.doc.modelspace())
        self._make_border()

    def _make_tables(self):
        doc = self.doc
        for name, description, pattern in (
                ("DASHED", "Dashed __ __ __ __ __", [3.75, 2.5, -1.25]),
                ("CENTER", "Center ____ _ ____ _ ____", [12.5, 8.0, -1.5, 1.5, -1.5]),
                ("HIDDEN", "Hidden _ _ _ _ _ _", [2.5, 1.6, -0.9])):
            doc.linetypes.add(name, [length * self.scale for length in pattern], description=description)
        for style, font in (("ROMANS", "romans.shx"), ("TITLES", "romand.shx")):
            doc.styles.add(style, font=font)
        for name, color, linetype in COMMON_LAYERS + LAYERS[self.discipline]:
            doc.layers.add(name, color=color, linetype=linetype)
        doc.header["$LTSCALE"] = 1.0
        doc.header["$TEXTSTYLE"] = "ROMANS"
        doc.header["$TEXTSIZE"] = 3.5 * self.scale

    def block(self, name, base=(0, 0)):
        """A pen for a new block, or None if the drawing has the block already."""
        if name in self.doc.blocks:
            return None
        return Pen(self.doc.blocks.new(name, base_point=base))

    def insert(self, name, at, scale=1.0, rotation=0, layer="0", attributes=None, mirror=False):
        reference = self.space.add_blockref(name, self._point(at), {
            "layer": layer, "xscale": scale, "yscale": -scale if mirror else scale, "zscale": scale,
            "rotation": rounded(rotation)})
        if attributes is not None:
            reference.add_auto_attribs(attributes)
            for attribute in reference.attribs:
                attribute.dxf.insert = self._point(attribute.dxf.insert)
                if attribute.dxf.hasattr("align_point"):
                    attribute.dxf.align_point = self._point(attribute.dxf.align_point)
                for name_of_number in ("rotation", "height", "width", "oblique"):
                    if attribute.dxf.hasattr(name_of_number):
                        attribute.dxf.set(name_of_number, rounded(attribute.dxf.get(name_of_number)))
        return reference

    def _make_border(self):
        pen = self.block("BORDER-A3")
        pen.box((0, 0), (WIDTH, HEIGHT), "BORDER")
        pen.box((FRAME, FRAME), (WIDTH - 2 * FRAME, HEIGHT - 2 * FRAME), "TITLE")
        columns, rows = 8, 6
        for i in range(1, columns):
            x = FRAME + i * (WIDTH - 2 * FRAME) / columns
            pen.line((x, 0), (x, FRAME), "BORDER")
            pen.line((x, HEIGHT - FRAME), (x, HEIGHT), "BORDER")
        for i in range(columns):
            x = FRAME + (i + 0.5) * (WIDTH - 2 * FRAME) / columns
            for y in (FRAME / 2, HEIGHT - FRAME / 2):
                pen.text(str(i + 1), (x, y), 4, Align.MIDDLE_CENTER, layer="BORDER")
        for i in range(1, rows):
            y = FRAME + i * (HEIGHT - 2 * FRAME) / rows
            pen.line((0, y), (FRAME, y), "BORDER")
            pen.line((WIDTH - FRAME, y), (WIDTH, y), "BORDER")
        for i in range(rows):
            y = FRAME + (i + 0.5) * (HEIGHT - 2 * FRAME) / rows
            for x in (FRAME / 2, WIDTH - FRAME / 2):
                pen.text("FEDCBA"[i], (x, y), 4, Align.MIDDLE_CENTER, layer="BORDER")
        self._make_title_block()

    def _make_title_block(self):
        """40 high along the bottom of the frame: revisions on the left, titles on the right."""
        pen = self.block("TITLE-A3")
        left, bottom, top, right = 190, FRAME, FRAME + 40, WIDTH - FRAME
        pen.line((FRAME, top), (right, top), "TITLE")
        for x in (left, 265):
            pen.line((x, bottom), (x, top), "TITLE")
        for y in (23, 36.5):
            pen.line((265, y), (right, y), "TITLE")
        for x in (300, 322, 350, 376):
            pen.line((x, bottom), (x, 23), "TITLE")
        pen.line((left, 30), (265, 30), "TITLE")
        pen.line((350, 23), (350, 36.5), "TITLE")

        def field(tag, label, x, y, height, at, align=Align.MIDDLE_LEFT, width=1.0):
            pen.text(label, (x, y), 2.0, layer="BORDER")
            pen.attribute(tag, at, height, align, "TITLE", width=width)

        field("CLIENT", "CLIENT", left + 2, 46.5, 4.5, (left + 3, 40))
        field("PROJECT", "STANDARD", left + 2, 26.5, 4.5, (left + 3, 20))
        pen.text("TITLE", (267, 46.8), 2.0, layer="BORDER")
        pen.attribute("TITLE1", (268, 41.5), 4.5, Align.MIDDLE_LEFT, "TITLE", width=0.9)
        pen.attribute("TITLE2", (268, 29.7), 3.6, Align.MIDDLE_LEFT, "TITLE", width=0.8)
        field("DATE", "DATE", 267, 19.5, 3.5, (267, 14), width=0.85)
        field("DRAWN", "DRAWN", 302, 19.5, 3.5, (303, 14))
        field("SCALE", "SCALE", 324, 19.5, 3.5, (325, 14))
        field("SHEET", "SHEET", 352, 19.5, 3.5, (353, 14))
        field("REV", "REV", 378, 19.5, 5, (393, 15.5), Align.MIDDLE_CENTER)
        field("DWG_NO", "DRAWING NUMBER", 352, 33.6, 4.5, (380, 28.4), Align.MIDDLE_CENTER, 0.9)
        self._make_revision_table(pen, left, top)

    @staticmethod
    def _make_revision_table(pen, left, top):
        columns = (FRAME, 24, 52, 148, 168)
        for x in columns[1:]:
            pen.line((x, FRAME), (x, top), "TITLE")
        for i in range(1, 6):
            pen.line((FRAME, FRAME + i * 40 / 6), (left, FRAME + i * 40 / 6), "BORDER")
        for x, label in zip(columns, ("REV", "DATE", "DESCRIPTION", "BY", "APP")):
            pen.text(label, (x + 2, FRAME + 1.8), 3.2, layer="BORDER")
        for row in range(1, 4):
            y = FRAME + row * 40 / 6 + 1.8
            for x, tag in zip(columns, ("R", "RDATE", "RTEXT", "RBY", "RAPP")):
                pen.attribute(f"{tag}{row}", (x + 2, y), 3.2, Align.LEFT, "TITLE", width=0.9)

    def title(self, client, project, title1, title2, number, revisions, scale="NONE", sheet="1 OF 1", drawn="ML"):
        """`revisions`: (mark, date, text, by, approved by), the oldest first; three at most."""
        values = {"CLIENT": client, "PROJECT": project, "TITLE1": title1, "TITLE2": title2, "DWG_NO": number,
                  "SCALE": scale, "SHEET": sheet, "DRAWN": drawn, "DATE": revisions[-1][1] if revisions else "",
                  "REV": revisions[-1][0] if revisions else ""}
        for row in range(1, 4):
            revision = revisions[row - 1] if row <= len(revisions) else ("",) * 5
            for tag, value in zip(("R", "RDATE", "RTEXT", "RBY", "RAPP"), revision):
                values[f"{tag}{row}"] = value
        self.insert("BORDER-A3", (0, 0), self.scale, layer="BORDER")
        self.insert("TITLE-A3", (0, 0), self.scale, layer="TITLE", attributes=values)

    def notes(self, lines, at, height=3.5, heading="NOTES"):
        self.text(heading, at, height * 1.15, color=2)
        for i, line in enumerate(lines):
            self.text(f"{i + 1}. {line}", (at[0], at[1] - (i + 1) * height * 1.75), height)

    def record(self, project_id, spec_id=0, line_id=0, main_size=12, branch_size=10, isoplane=0, electric_mode=0):
        """The record that ties the drawing to its project."""
        self._register(RECORD_NAME)
        self.space.block_record.set_xdata(RECORD_NAME, [
            (1071, spec_id), (1070, main_size), (1070, branch_size), (1070, isoplane), (1071, line_id),
            (1070, electric_mode), (1071, project_id), (1071, 0), (1070, 0), (1070, 0), (1000, ""),
            (1070, self.discipline)])

    def filtered_lines(self, line_ids):
        """Lines that the palette leaves out for this drawing."""
        dictionary = self.doc.rootdict.get_required_dict(RECORD_NAME)
        xrecord = dictionary.add_xrecord("FilteredLineIds")
        for line_id in line_ids:
            xrecord.tags.append(ezdxf.lldxf.types.DXFTag(90, line_id))

    def element_data(self, entity, number, line_id, word="PIPE", tag=""):
        """What the drawing tools store on each piece of piping."""
        self._register(RECORD_NAME)
        entity.set_xdata(RECORD_NAME, [
            (1071, number), (1070, 0), (1070, 1), (1000, f"{word:<8}"[:8]), (1071, 0), (1071, line_id),
            (1070, 2), (1000, tag)])

    def _register(self, name):
        if name not in self.doc.appids:
            self.doc.appids.add(name)

    def save(self, path):
        size = (WIDTH * self.scale, HEIGHT * self.scale)
        header = self.doc.header
        header["$EXTMIN"], header["$EXTMAX"] = (0, 0, 0), (size[0], size[1], 0)
        header["$LIMMIN"], header["$LIMMAX"] = (0, 0), size
        for viewport in self.doc.viewports.get("*ACTIVE"):
            viewport.dxf.center = (size[0] / 2, size[1] / 2)
            viewport.dxf.height = size[1] * 1.05
            viewport.dxf.aspect_ratio = 1.5
            viewport.dxf.snap_style = 1 if self.discipline == ISOMETRIC else 0
        self.doc.saveas(path)
