"""What a drawing holds, as lines of text, from a drawing that ezdxf has read: the counterpart of drawing_content.cpp."""
import re

from ezdxf.lldxf.types import DXFBinaryTag, DXFVertex


def number(value):
    value = float(value)
    return f"{0.0 if abs(value) < 5e-7 else value:.6f}"


def degrees(value):
    # As fmod has it: the sign of the angle.
    value = abs(value) % 360.0 * (1 if value >= 0 else -1)
    return number(value + 360 if value < -5e-7 else value)


def point(value):
    x, y, z = (tuple(value) + (0.0, 0.0))[:3]
    return f"({number(x)} {number(y)} {number(z)})"


def text_of(text):
    """With the escapes that ezdxf leaves as they are resolved, and the halves of characters joined."""
    text = re.sub(r"\\U\+([0-9A-Fa-f]{4})", lambda found: chr(int(found[1], 16)), text)
    return text.encode("utf-16", "surrogatepass").decode("utf-16")


def item(tag):
    if isinstance(tag, DXFBinaryTag):
        return f"{tag.code}={tag.tostring().upper()}"
    if isinstance(tag, DXFVertex):
        return f"{tag.code}={point(tag.value)}"
    if isinstance(tag.value, float):
        return f"{tag.code}={number(tag.value)}"
    if isinstance(tag.value, str) and (tag.code == 1005 or 320 <= tag.code < 370):
        return f"{tag.code}={int(tag.value, 16):X}"
    return f"{tag.code}={text_of(str(tag.value))}"


def items(indent, tags):
    return [indent + item(tag) for tag in tags]


def xdata(indent, entity):
    if entity.xdata is None:
        return []
    return [line for tags in entity.xdata.data.values() for line in items(indent, tags)]


def common(entity):
    dxf = entity.dxf
    return (f" layer={text_of(dxf.layer)} color={dxf.get('color', 256)}"
            f" linetype={record_name(entity.doc.linetypes, dxf.get('linetype', 'BYLAYER'), 'BYLAYER')}")


def record_name(table, name, default):
    if name.upper() == default.upper():
        return default
    return text_of(table.get(name).dxf.name) if table.has_entry(name) else text_of(name)


def text_fields(text):
    dxf = text.dxf
    vertical = dxf.get("valign", 0)
    return (f" at={point(dxf.insert)} height={number(dxf.height)} rotation={degrees(dxf.get('rotation', 0))}"
            f" width={number(dxf.get('width', 1))} align={dxf.get('halign', 0)},{vertical}"
            f" style={record_name(text.doc.styles, dxf.get('style', 'Standard'), 'Standard')}"
            f" text={text_of(dxf.text)}")


def geometry(entity):
    kind, dxf = entity.dxftype(), entity.dxf
    if kind == "LINE":
        return f"LINE {point(dxf.start)} {point(dxf.end)}"
    if kind == "POINT":
        return f"POINT {point(dxf.location)}"
    if kind == "CIRCLE":
        return f"CIRCLE {point(dxf.center)} {number(dxf.radius)}"
    if kind == "ARC":
        return (f"ARC {point(dxf.center)} {number(dxf.radius)} {degrees(dxf.start_angle)}"
                f" {degrees(dxf.end_angle)}")
    if kind == "ELLIPSE":
        return (f"ELLIPSE {point(dxf.center)} {point(dxf.major_axis)} {number(dxf.ratio)}"
                f" {number(dxf.start_param)} {number(dxf.end_param)}")
    if kind in ("SOLID", "TRACE"):
        corners = [dxf.vtx0, dxf.vtx1, dxf.vtx2, dxf.get("vtx3", dxf.vtx2)]
        return " ".join([kind] + [point(corner) for corner in corners])
    if kind == "LWPOLYLINE":
        vertices = [f"({number(x)} {number(y)} {number(start)} {number(end)} {number(bulge)})"
                    for x, y, start, end, bulge in entity.get_points("xyseb")]
        return " ".join([f"LWPOLYLINE {dxf.flags}"] + vertices)
    if kind == "ATTRIB":
        return f"ATTRIB {text_of(dxf.tag)} flags={dxf.flags}" + text_fields(entity)
    if kind == "ATTDEF":
        return (f"ATTDEF {text_of(dxf.tag)} flags={dxf.flags} prompt={text_of(dxf.get('prompt', ''))}"
                + text_fields(entity))
    if kind == "TEXT":
        return "TEXT" + text_fields(entity)
    if kind == "MTEXT":
        return (f"MTEXT at={point(dxf.insert)} height={number(dxf.char_height)}"
                f" attachment={dxf.attachment_point} text={text_of(entity.text)}")
    if kind == "INSERT":
        scale = (dxf.get("xscale", 1), dxf.get("yscale", 1), dxf.get("zscale", 1))
        name = entity.block().name if entity.block() is not None else "?"
        return (f"INSERT {text_of(name)} at={point(dxf.insert)} scale={point(scale)}"
                f" rotation={degrees(dxf.get('rotation', 0))}")
    if kind == "VERTEX":
        return f"VERTEX {point(dxf.location)} bulge={number(dxf.get('bulge', 0))} flags={dxf.get('flags', 0)}"
    if kind == "POLYLINE":
        return f"POLYLINE flags={dxf.get('flags', 0)}"
    return kind


def entity_lines(entity):
    lines = ["  " + geometry(entity) + common(entity)] + xdata("    ", entity)
    parts = []
    if entity.dxftype() == "INSERT":
        parts = entity.attribs
    elif entity.dxftype() == "POLYLINE":
        parts = entity.vertices
    for part in parts:
        lines += ["    " + geometry(part) + common(part)] + xdata("      ", part)
    return lines


def dictionary_lines(doc, indent, dictionary):
    lines = []
    for name, entry in sorted(dictionary.items()):
        if isinstance(entry, str):
            entry = doc.entitydb.get(entry)
        if entry is None or not entry.is_alive:
            continue
        lines.append(f"{indent}{text_of(name)}: {entry.dxftype()}")
        if entry.dxftype() == "XRECORD":
            lines += items(indent + "  ", entry.tags)
        elif "DICTIONARY" in entry.dxftype() and hasattr(entry, "items"):
            lines += dictionary_lines(doc, indent + "  ", entry)
    return lines


def records(table):
    return sorted(table, key=lambda record: record.dxf.name)


def describe(doc):
    lines = []
    for layer in records(doc.layers):
        linetype = record_name(doc.linetypes, layer.dxf.linetype, "Continuous")
        lines.append(f"LAYER {text_of(layer.dxf.name)} color={layer.dxf.color} linetype={linetype}")
        lines += xdata("  xdata ", layer)
    for linetype in records(doc.linetypes):
        tags = linetype.pattern_tags.tags
        dashes = [] if linetype.pattern_tags.is_complex_type() else [tag.value for tag in tags if tag.code == 49]
        lines.append(" ".join([f"LTYPE {text_of(linetype.dxf.name)}"] + [number(dash) for dash in dashes]))
    for style in records(doc.styles):
        lines.append(f"STYLE {text_of(style.dxf.name)} font={text_of(style.dxf.font)}")
    for application in records(doc.appids):
        lines.append(f"APPID {text_of(application.dxf.name)}")
    for block in sorted(doc.blocks, key=lambda block: block.name):
        lines.append(f"BLOCK {text_of(block.name)} origin={point(block.block.dxf.base_point)}")
        lines += xdata("  xdata ", block.block_record)
        for entity in block:
            lines += entity_lines(entity)
    lines.append("OBJECTS")
    return lines + dictionary_lines(doc, "  ", doc.rootdict)
