"""A drawing with a little of everything, made by ezdxf for one of the releases it writes."""
import ezdxf
from ezdxf.enums import TextEntityAlignment
from ezdxf.lldxf.types import DXFTag, DXFVertex

RECORD_NAME = "KAL-VOR Software - TESSARC"
RELEASES = ["R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"]


def make(release):
    doc = ezdxf.new(release)
    doc.appids.add(RECORD_NAME)
    doc.appids.add("ANOTHER")
    doc.layers.add("PIPES", color=3, linetype="Continuous")
    doc.layers.add("R\u00d6HREN", color=5).off()
    doc.linetypes.add("DASHED", [3.75, 2.5, -1.25], description="Dashed")
    doc.styles.add("ROMANS", font="romans.shx")
    add_blocks(doc)
    add_entities(doc, release)
    if release != "R12":
        add_records(doc)
    return doc


def add_blocks(doc):
    valve = doc.blocks.new("VAL_BLK", base_point=(1, 2))
    valve.add_line((0, 0), (4, 4))
    valve.add_attdef("LIN_NUM", (0, 5), "", dxfattribs={"height": 2.5, "prompt": "Line number"})
    nested = doc.blocks.new("ASSEMBLY")
    nested.add_blockref("VAL_BLK", (10, 0), {"rotation": 90})


def add_entities(doc, release):
    space = doc.modelspace()
    space.add_line((0, 0, 1), (10.125, -20.0625), {"layer": "PIPES", "color": 1, "linetype": "DASHED"})
    space.add_circle((5, 5), 2.5)
    space.add_arc((5, 5), 2.5, 30, 270.5)
    space.add_point((1, 2, 3))
    space.add_solid([(0, 0), (1, 0), (0, 1), (1, 1)])
    space.add_text("6\"-CW-1001 \u00d8 \u20ac", dxfattribs={"height": 3.5, "style": "ROMANS", "layer": "R\u00d6HREN"})
    right = space.add_text("right, 50 %%d and 100%", dxfattribs={"rotation": 30, "width": 0.8})
    right.set_placement((50, 50), align=TextEntityAlignment.MIDDLE_RIGHT)
    space.add_polyline2d([(0, 0), (10, 0, 0.5), (10, 10)], format="xyb", close=True)
    space.add_polyline3d([(0, 0, 0), (1, 1, 1), (2, 0, 5)])
    reference = space.add_blockref("VAL_BLK", (100, 100), {"xscale": 2, "yscale": -2, "rotation": 45})
    reference.add_attrib("LIN_NUM", "6\"-CW-1001-CS150", (101, 105))
    reference.add_attrib("SPEC", "CS150", (101, 101), {"flags": 1})
    reference.set_xdata(RECORD_NAME, [
        (1071, 70000), (1070, -1), (1070, 2), (1000, "PIPE    "), (1071, 0), (1071, 5), (1070, 2), (1000, "\u00e4")])
    space.add_blockref("ASSEMBLY", (0, 0))
    array = space.add_blockref("ASSEMBLY", (0, 0))
    array.dxf.column_count, array.dxf.row_count = 3, 2
    array.dxf.column_spacing, array.dxf.row_spacing = 12.5, 20
    marked = space.add_line((0, 0), (1, 1))
    marked.set_xdata("ANOTHER", [
        (1002, "{"), (1000, "text"), (1040, 1.5), (1002, "{"), (1010, (1, 2, 3)), (1002, "}"), (1003, "PIPES"),
        (1005, "FF"), (1041, 2.5), (1042, -1.0), (1002, "}")])
    reference.attribs[0].set_xdata(RECORD_NAME, [(1000, "on an attribute"), (1004, b"\x00\x01\xff"), (1071, -1)])
    marked.set_xdata(RECORD_NAME, [(1000, "x" * 255), (1011, (1, 2, 3)), (1012, (0, 0, 1)), (1013, (-1, 0, 0))])
    doc.layers.get("PIPES").set_xdata("ANOTHER", [(1000, "on a layer"), (1070, 3)])
    if release != "R12":
        doc.blocks.get("VAL_BLK").block_record.set_xdata("ANOTHER", [(1000, "on a block"), (1071, 70000)])
        space.add_lwpolyline([(0, 0, 0, 0, 0), (10, 0, 1, 2, 0.5), (10, 10, 0, 0, 0)], format="xyseb", close=True)
        space.add_mtext("Notes:\\P" + "a long text, " * 40 + "\u2205 end", {"char_height": 2.5})
        space.add_ellipse((0, 0), major_axis=(10, 5), ratio=0.3, start_param=0.5, end_param=4)
        space.add_spline([(0, 0), (1, 2), (3, 4), (5, 0)])
        space.add_linear_dim(base=(0, 30), p1=(0, 0), p2=(50, 0)).render()
        doc.layout("Layout1").add_line((1, 1), (2, 2))
    space.add_text("\u4e2d\u6587")
    if release >= "R2007":  # ezdxf's own escapes have four digits too many for this one
        space.add_text("\U0001F600")


def add_records(doc):
    record = doc.modelspace().block_record
    record.set_xdata(RECORD_NAME, [
        (1071, 3), (1070, 12), (1070, 10), (1070, 0), (1071, 17), (1070, 0), (1071, 123), (1071, 0), (1070, 0),
        (1070, 0), (1000, ""), (1070, 2)])
    dictionary = doc.rootdict.get_required_dict(RECORD_NAME)
    lines = dictionary.add_xrecord("FilteredLineIds")
    for line_id in (5, 17, 70000):
        lines.tags.append(DXFTag(90, line_id))
    mixed = dictionary.add_xrecord("Mixed")
    mixed.tags.extend([DXFTag(1, "text"), DXFTag(70, -3), DXFTag(40, 0.1), DXFVertex(10, (1, 2, 3)), DXFTag(290, 1),
                       DXFTag(102, "{NOT A LIST"), DXFTag(330, "FFFF"), DXFTag(420, 0xFFFFFF), DXFTag(160, 1 << 40),
                       DXFTag(1070, -5), DXFTag(1000, "as in extended data")])
    line = doc.modelspace().query("LINE").first
    own = line.new_extension_dict().dictionary.add_xrecord("OWN")
    own.tags.append(DXFTag(1, "kept with the line"))
    dictionary.add_new_dict("Inner").add_xrecord("Empty")
