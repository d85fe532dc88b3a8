"""The flow diagrams of the demonstration database."""
from ezdxf.enums import TextEntityAlignment as Align

from flow_symbols import FlowDiagram

NORTHWATER = "Northwater Utilities"
BRIGHTFIELD = "Brightfield Chemicals"
HARBOUR = "Harbour Energy"


def label(d, text, at, height=4.5):
    d.text(text, at, height, Align.MIDDLE_CENTER, layer="TAGS")


def loop(d, tap, transmitter, number, functions, side=1):
    """A tapping on the right (or left) of equipment, with a transmitter in the field and what the panel shows of it."""
    x, y = tap
    d.lead(tap, (x + side * 9, y))
    d.instrument((x + side * 15, y), transmitter, number)
    if functions:
        d.signal((x + side * 21, y), (x + side * 29, y))
        d.instrument((x + side * 35, y), functions, number, panel=True)


def pump_station_intake(revisions=3):
    """Raw water tank, two transfer pumps, and the surge vessel that they feed. As of one of its three revisions."""
    d = FlowDiagram()
    cw1, cw2, cw3 = '6"-CW-1001-CS150', '6"-CW-1002-CS150', '4"-CW-1003-CS150'
    drain, suction = '2"-DR-1004-GALV', '8"-SW-1005-SS150'

    d.tank((30, 130), 52, 66)
    label(d, "T-101", (56, 165))
    d.equipment((56, 275), "T-101", "RAW WATER TANK", "250 m3")
    for y, tag in ((160, "P-101A"), (100, "P-101B")):
        d.pump((150, y))
        label(d, tag, (150, y - 16), 4)
    d.equipment((145, 275), "P-101 A/B", "TRANSFER PUMPS", "180 m3/h  45 m  37 kW")
    d.exchanger((262, 92))
    label(d, "E-101", (262, 107), 4)
    d.equipment((235, 275), "E-101", "SEAL WATER COOLER", "45 kW")
    d.vessel((318, 165), 28, 58)
    label(d, "V-101", (318, 170))
    d.equipment((318, 275), "V-101", "SURGE VESSEL", "12 m3  10 bar g")

    # Inlet and tank.
    d.text("FROM INTAKE WELL", (61, 250), 3.3, layer="TAGS")
    with d.pipe([(56, 256), (56, 206.3)], suction, line_id=5) as p:
        p.fitting("BUTTERFLY", (56, 230), "HV-100")
        p.ends_in_arrow()
    d.nozzle((56, 206.3), 90)
    d.nozzle((85, 140), 0)
    with d.pipe([(85, 140), (112, 140), (112, 160), (143, 160)], suction, line_id=5) as p:
        p.fitting("GATE", (98, 140), "HV-101")
        p.fitting("STRAINER", (124, 160))
        p.fitting("REDUCER", (136, 160))
    with d.pipe([(112, 140), (112, 100), (143, 100)], suction, line_id=5) as p:
        p.arrow((112, 108))
        p.tag((112, 126))
        p.fitting("STRAINER", (124, 100))
        p.fitting("REDUCER", (136, 100))
    # Discharges and header.
    for y, letter in ((160, "A"), (100, "B")):
        with d.pipe([(157, y + 9), (157, y + 20), (210, y + 20)], cw1, line_id=1) as p:
            p.fitting("CHECK", (174, y + 20))
            p.fitting("GATE", (193, y + 20), f"HV-102{letter}")
        d.lead((163, y + 20), (163, y + 29))
        d.instrument((163, y + 35), "PI", f"102{letter}")
    with d.pipe([(210, 120), (210, 220), (290, 220), (290, 186), (304, 186)], cw1, line_id=1) as p:
        p.arrow((210, 136))
        p.tag((210, 159))
        p.fitting("ORIFICE", (224, 220))
        p.fitting("GATE", (240, 220), "HV-103")
        p.fitting("CONTROL", (258, 220), "FCV-101")
        p.fitting("GATE", (276, 220), "HV-104")
        p.ends_in_arrow()
    # Flow control.
    d.lead((224, 223.2), (224, 236))
    d.instrument((224, 242), "FT", "101")
    d.signal((230, 242), (236, 242))
    d.instrument((242, 242), "FIC", "101", panel=True)
    d.signal((248, 242), (258, 242), (258, 228.3))
    # Vessel trim.
    d.nozzle((318, 204), 90)
    with d.pipe([(318, 204), (318, 236), (338, 236)], '2"-VT-1006-CS150', "UTILITY") as p:
        p.fitting("GATE", (318, 218), "HV-107")
        p.ends_in_arrow()
    d.text("TO SAFE LOCATION", (341, 234.4), 3.3, layer="TAGS")
    loop(d, (332, 184), "LT", "103", "LIC")
    loop(d, (332, 160), "PT", "104", "PI")
    d.nozzle((318, 126), 270)
    with d.pipe([(318, 126), (318, 78), (363, 78)], cw2, line_id=2) as p:
        p.fitting("GATE", (318, 112), "HV-105")
        p.tag((342, 78))
    d.off_page((363, 78), "TO FILTERS", "PS4-PID-002")
    with d.pipe([(304, 142), (296, 142), (296, 66)], drain, "UTILITY", 4) as p:
        p.fitting("GATE", (296, 130), "HV-106")
        p.tag((296, 92))
        p.ends_in_arrow()
    label(d, "TO DRAIN", (296, 61), 3.3)
    # Seal water.
    with d.pipe([(210, 120), (210, 70), (248, 70), (248, 84)], cw3, line_id=3) as p:
        p.fitting("GATE", (210, 106), "HV-108")
        p.fitting("GLOBE", (210, 88))
        p.tag((227, 70), below=True)
        p.ends_in_arrow()
    with d.pipe([(276, 99), (276, 116), (250, 116)], cw3, line_id=3) as p:
        p.ends_in_arrow()
    d.text("TO PUMP SEALS", (247, 116), 3.3, Align.MIDDLE_RIGHT, layer="TAGS")
    # Tank level.
    d.lead((30, 176), (22, 176))
    d.instrument((22, 182), "LT", "100")
    d.signal((22, 188), (22, 202))
    d.instrument((22, 208), "LIA", "100", panel=True)
    d.notes(["All valves full bore unless noted.", "Pumps run duty / standby.",
             "FCV-101 fails open."], (16, 84))
    d.title(NORTHWATER, "Pump Station 4", "RAW WATER INTAKE AND TRANSFER", "PIPING AND INSTRUMENT DIAGRAM",
            "PS4-PID-001", [
                ("A", "02.03.26", "Issued for review", "ML", "TO"),
                ("B", "14.05.26", "Seal water cooler added", "ML", "TO"),
                ("0", "21.09.26", "Issued for construction", "TO", "JH")][:revisions], sheet="1 OF 2")
    d.record(project_id=1, spec_id=1, line_id=1, main_size=14)
    return d


def filters(client, standard, number, first, lines, revisions, sheet="1 OF 1"):
    """Three pressure filters side by side between an inlet and an outlet header. `lines`: (number, id) of the inlet, the
    outlet, the backwash and the drain."""
    d = FlowDiagram()
    (inlet, inlet_id), (outlet, outlet_id), (wash, wash_id), (drain, drain_id) = lines
    with d.pipe([(60, 236), (330, 236)], inlet, line_id=inlet_id) as p:
        p.fitting("MOTOR", (78, 236), f"MV-{first}")
        p.tag((112, 236))
        p.arrow((330, 236))
    with d.pipe([(60, 78), (363, 78)], outlet, line_id=outlet_id) as p:
        p.tag((330, 78))
        p.fitting("ORIFICE", (255, 78))
        for x in (130, 220):
            p.arrow((x, 78))
    d.off_page((60, 236), "FROM SURGE VESSEL", f"{number[:-3]}001", incoming=True)
    d.off_page((363, 78), "TO CLEAR WATER TANK", f"{number[:-3]}003")
    d.lead((255, 81.2), (255, 92))
    d.instrument((255, 98), "FT", str(first))
    d.signal((261, 98), (269, 98))
    d.instrument((275, 98), "FQI", str(first), panel=True)
    for i, x in enumerate((120, 210, 300)):
        tag, n = f"F-{first}{'ABC'[i]}", first + 1 + i
        d.vessel((x, 158), 36, 44)
        label(d, tag, (x, 172))
        for level in (148, 150.5, 153):
            d.line((x - 18, level), (x + 18, level), "EQUIPMENT", color=8)
        d.text("SAND", (x, 160), 3, Align.MIDDLE_CENTER, layer="EQUIPMENT", color=8)
        with d.pipe([(x, 236), (x, 190)], inlet, line_id=inlet_id) as p:
            p.fitting("BUTTERFLY", (x, 216), f"HV-{n}1")
            p.ends_in_arrow()
        with d.pipe([(x, 126), (x, 78)], outlet, line_id=outlet_id) as p:
            p.fitting("BUTTERFLY", (x, 96), f"HV-{n}2")
            p.arrow((x, 114))
        with d.pipe([(x + 18, 182), (x + 32, 182), (x + 32, 120)], drain, "UTILITY", drain_id) as p:
            p.fitting("GATE", (x + 32, 146), f"HV-{n}3")
            p.ends_in_arrow()
        label(d, "DRAIN", (x + 32, 116), 3)
        d.lead((x - 18, 168), (x - 27, 168))
        d.instrument((x - 33, 168), "PDT", str(n))
    with d.pipe([(60, 60), (180, 60), (180, 108)], wash, "UTILITY", wash_id) as p:
        p.fitting("GATE", (84, 60), f"HV-{first}9")
        p.tag((130, 60))
        p.jumps((180, 78))
    with d.pipe([(180, 108), (210, 108)], wash, "UTILITY", wash_id) as p:
        p.ends_in_arrow()
    d.equipment((120, 275), f"F-{first} A/B/C", "PRESSURE FILTERS", "dia. 2400  6 bar g")
    d.notes(["Backwash one filter at a time.", "Butterfly valves lugged, lever operated."], (290, 276))
    d.title(client, standard, "PRESSURE FILTERS", "PIPING AND INSTRUMENT DIAGRAM", number, revisions, sheet=sheet)
    return d


def pump_station_filters():
    # Not tied to its project yet: it takes the project from its folder or stays without.
    return filters(NORTHWATER, "Pump Station 4", "PS4-PID-002", 201, [
        ('6"-CW-1002-CS150', 2), ('6"-CW-1001-CS150', 1), ('4"-CW-1003-CS150', 3), ('2"-DR-1004-GALV', 4)], [
        ("A", "02.03.26", "Issued for review", "ML", "TO")], "2 OF 2")


def filter_plant():
    d = filters(NORTHWATER, "Filter Plant", "FP-PID-002", 301, [
        ('8"-RW-101-CS150', 1), ('8"-FW-102-NW-POTABLE', 2), ('6"-BW-103-CS150', 3), ('3"-DR-104-HDPE', 4)], [
        ("A", "11.01.26", "Issued for review", "ML", "TO"), ("0", "30.03.26", "Issued for tender", "ML", "JH")])
    d.record(project_id=2, spec_id=10, line_id=2, main_size=16)
    return d


def solvent_column():
    """A distillation column with reboiler, condenser and reflux drum."""
    d = FlowDiagram("R2010")
    feed, overhead, vapour = '3"-SL-2001-BF-SOLV', '3"-SL-2002-BF-SOLV', '2"-VA-2003-CS150'
    supply, back, nitrogen = '4"-CWS-2004-CS150', '4"-CWR-2005-CS150', '1"-N2-2006-SS150'

    d.column((120, 165), 26, 128, 9)
    label(d, "C-201", (104, 88), 4)
    d.equipment((110, 275), "C-201", "SOLVENT COLUMN", "dia. 1200 x 14500")
    d.exchanger((200, 96))
    label(d, "E-201", (200, 111), 4)
    d.equipment((190, 275), "E-201", "REBOILER", "620 kW")
    d.cooler((222, 250))
    d.equipment((262, 275), "E-202", "CONDENSER", "580 kW")
    d.drum((262, 200), 50, 18)
    label(d, "V-201", (262, 200))
    d.equipment((335, 275), "V-201", "REFLUX DRUM", "2.5 m3")
    d.pump((262, 150))
    label(d, "P-201", (262, 134), 4)

    d.off_page((60, 165), "FROM FEED TANK", "SR-PID-000", incoming=True)
    with d.pipe([(60, 165), (107, 165)], feed, line_id=6) as p:
        p.fitting("CONTROL", (88, 165), "FCV-201")
        p.ends_in_arrow()
    d.text(feed, (62, 157.5), 3.1, layer="LINE-NUMBERS", width=0.8)
    with d.pipe([(120, 235.5), (120, 250), (213, 250)], vapour, line_id=8) as p:
        p.tag((166, 250))
        p.arrow((140, 250))
    with d.pipe([(231, 250), (245, 250), (245, 209)], overhead, line_id=7) as p:
        p.ends_in_arrow()
    d.text("CWS", (205, 236), 3, layer="TAGS")
    d.text("CWR", (238, 256), 3, layer="TAGS")
    with d.pipe([(262, 191), (262, 170), (238, 170), (238, 150), (255, 150)], overhead, line_id=7) as p:
        p.fitting("GATE", (262, 180), "HV-203")
        p.fitting("STRAINER", (247, 150))
    with d.pipe([(269, 159), (269, 166), (300, 166), (300, 178)], overhead, line_id=7) as p:
        p.fitting("CHECK", (281, 166))
    with d.pipe([(300, 178), (300, 226), (133, 226)], overhead, line_id=7) as p:
        p.fitting("CONTROL", (180, 226), "FCV-202")
        p.fitting("GATE", (200, 226), "HV-204")
        p.jumps((245, 226))
        p.tag((273, 226))
        p.ends_in_arrow()
    with d.pipe([(300, 178), (363, 178)], overhead, line_id=7) as p:
        p.fitting("CONTROL", (318, 178), "LCV-201")
        p.tag((344, 178))
    d.off_page((363, 178), "TO PRODUCT TANK", "TF-PID-001")
    loop(d, (232.5, 200), "LT", "201", "LIC", side=-1)
    # Bottom and reboiler.
    with d.pipe([(120, 94.5), (120, 70), (186, 70), (186, 89)], feed, line_id=6) as p:
        p.tag((152, 70))
        p.ends_in_arrow()
    with d.pipe([(212, 103), (212, 122), (133, 122)], vapour, line_id=8) as p:
        p.arrow((180, 122))
        p.ends_in_arrow()
    with d.pipe([(222.5, 92), (250, 92), (250, 80), (290, 80)], feed, line_id=6) as p:
        p.fitting("GATE", (238, 92), "HV-205")
        p.fitting("CONTROL", (268, 80), "LCV-202")
    d.off_page((290, 80), "TO RESIDUE TANK", "SR-PID-004")
    with d.pipe([(300, 106), (212, 106)], supply, "UTILITY", 9) as p:
        p.fitting("CONTROL", (248, 106), "TCV-201")
        p.tag((280, 106))
        p.arrow((226, 106))
    label(d, "HOT OIL", (310, 106), 3.2)
    with d.pipe([(262, 209), (262, 216)], nitrogen, "UTILITY", 11) as p:
        pass
    d.text("N2", (264, 212), 3, layer="TAGS")
    loop(d, (107, 200), "TT", "203", "TIC", side=-1)
    loop(d, (107, 120), "LT", "202", "LI", side=-1)
    loop(d, (107, 218), "PT", "204", "", side=-1)
    d.notes(["Vent all high points to flare.", "Insulate C-201 and E-201, 80 mm.", "Earth all equipment."], (318, 148), 3.2)
    d.title(BRIGHTFIELD, "Solvent Recovery", "SOLVENT COLUMN C-201", "PIPING AND INSTRUMENT DIAGRAM", "SR-PID-001", [
        ("A", "19.01.26", "Issued for hazard study", "TO", "RB"),
        ("B", "27.02.26", "Actions of hazard study", "TO", "RB"),
        ("C", "08.06.26", "LCV-202 moved", "ML", "RB")], drawn="TO")
    d.record(project_id=3, spec_id=9, line_id=7, main_size=8)
    d.filtered_lines([11])
    return d


def tank_farm():
    """Two storage tanks with a floating roof, loading pumps, and fire water."""
    d = FlowDiagram()
    fuel1, fuel2, water = '10"-FO-3001-TF-FUEL', '8"-FO-3002-TF-FUEL', '6"-FW-3003-CS150'
    for x, tag in ((60, "T-301"), (170, "T-302")):
        d.tank((x, 150), 76, 62, "floating")
        label(d, tag, (x + 38, 175))
        d.line((x - 10, 150), (x - 10, 164), "EQUIPMENT", color=8)
        d.line((x + 86, 150), (x + 86, 164), "EQUIPMENT", color=8)
        with d.pipe([(x + 38, 246), (x + 38, 226), (x + 4, 226), (x + 4, 160), (x + 10, 160)], water, "UTILITY", 14) as p:
            p.fitting("GATE", (x + 20, 226), f"HV-{tag[2:]}1")
        with d.pipe([(x + 60, 150), (x + 60, 112)], fuel1, line_id=12) as p:
            p.fitting("MOTOR", (x + 60, 132), f"MV-{tag[2:]}")
            p.ends_in_arrow()
        loop(d, (x + 76, 190), "LT", tag[2:], "")
    with d.pipe([(30, 246), (300, 246)], water, "UTILITY", 14) as p:
        p.tag((150, 246))
        p.arrow((70, 246))
    d.text("FIRE WATER", (16, 250), 3.3, layer="TAGS")
    with d.pipe([(120, 112), (270, 112), (270, 140), (293, 140)], fuel1, line_id=12) as p:
        p.tag((175, 112), below=True)
        p.fitting("STRAINER", (280, 140))
    with d.pipe([(270, 112), (270, 84), (293, 84)], fuel1, line_id=12) as p:
        p.fitting("STRAINER", (280, 84))
    for y, tag in ((140, "P-301A"), (84, "P-301B")):
        d.pump((300, y))
        label(d, tag, (300, y - 16), 4)
        with d.pipe([(307, y + 9), (307, y + 18), (345, y + 18)], fuel2, line_id=13) as p:
            p.fitting("CHECK", (318, y + 18))
            p.fitting("GATE", (333, y + 18), f"HV-31{tag[-1]}")
    with d.pipe([(345, 102), (345, 186), (363, 186)], fuel2, line_id=13) as p:
        p.tag((345, 134))
        p.arrow((345, 170))
    d.off_page((363, 186), "TO ROAD LOADING", "TF-PID-002")
    d.poly([(44, 144), (262, 144)], "EQUIPMENT", linetype="DASHED", color=8)
    d.text("BUND 1", (44, 138), 3.3, color=8)
    d.equipment((98, 275), "T-301", "FUEL OIL TANK", "5000 m3")
    d.equipment((208, 275), "T-302", "FUEL OIL TANK", "5000 m3")
    d.equipment((318, 275), "P-301 A/B", "LOADING PUMPS", "240 m3/h  55 kW")
    d.notes(["Foam pourers on both tanks.", "Bund drain valves locked shut."], (16, 96))
    d.title(BRIGHTFIELD, "Tank Farm East", "FUEL OIL STORAGE AND LOADING", "PIPING AND INSTRUMENT DIAGRAM", "TF-PID-001",
            [("0", "12.10.25", "As built", "ML", "RB"), ("1", "03.02.26", "Fire water ring added", "ML", "RB")])
    d.record(project_id=4, spec_id=11, line_id=12, main_size=18)
    return d


def compressor():
    """Suction scrubber, compressor, after-cooler and lubricating oil."""
    d = FlowDiagram()
    gas1, gas2, oil, air = '12"-NG-4001-CS600', '12"-NG-4002-CS600', '3"-LO-4003-CS150', '2"-IA-4004-SS150'
    d.vessel((100, 180), 30, 60)
    label(d, "V-401", (100, 185))
    d.equipment((100, 275), "V-401", "SUCTION SCRUBBER", "dia. 1500 x 4200")
    d.compressor((200, 170))
    label(d, "K-401", (200, 170))
    d.equipment((205, 275), "K-401", "GAS COMPRESSOR", "3.2 MW  22 / 68 bar a")
    d.exchanger((306, 210))
    label(d, "E-401", (306, 225), 4)
    d.equipment((310, 275), "E-401", "AFTER-COOLER", "2.1 MW")
    d.off_page((60, 200), "FROM METERING", "CH-PID-000", incoming=True)
    with d.pipe([(60, 200), (85, 200)], gas1, line_id=15) as p:
        p.fitting("MOTOR", (72, 200), "ESV-401")
        p.ends_in_arrow()
    with d.pipe([(100, 217.5), (100, 230), (165, 230), (165, 170), (187, 170)], gas1, line_id=15) as p:
        p.tag((128, 230))
        p.fitting("BUTTERFLY", (165, 205), "FV-401")
        p.arrow((165, 184))
        p.ends_in_arrow()
    with d.pipe([(206, 178.2), (206, 210), (284, 210)], gas2, line_id=16) as p:
        p.fitting("CHECK", (226, 210))
        p.tag((252, 210))
        p.arrow((276, 210))
    with d.pipe([(320, 203), (320, 180), (363, 180)], gas2, line_id=16) as p:
        p.fitting("MOTOR", (336, 180), "ESV-402")
    d.off_page((363, 180), "TO EXPORT LINE", "CH-PID-003")
    with d.pipe([(216, 210), (216, 242), (148, 242), (148, 230)], gas2, line_id=16) as p:
        p.fitting("CONTROL", (182, 242), "UV-401")
        p.arrow((160, 242))
    d.text("ANTI-SURGE", (172, 234), 3, layer="TAGS")
    with d.pipe([(100, 142.5), (100, 112), (130, 112)], '2"-DR-4005-CS600', "UTILITY") as p:
        p.fitting("CONTROL", (116, 112), "LCV-401")
        p.ends_in_arrow()
    d.text("TO CLOSED DRAIN", (133, 110.4), 3.3, layer="TAGS")
    loop(d, (85, 172), "LT", "401", "LIC", side=-1)
    d.signal((50, 166), (50, 125), (116, 125), (116, 120.3))
    # Lubricating oil.
    d.drum((220, 84), 44, 16)
    label(d, "V-402", (220, 84), 4)
    d.pump((280, 84))
    label(d, "P-402", (280, 68), 4)
    with d.pipe([(245, 84), (273, 84)], oil, "UTILITY", 17) as p:
        p.fitting("STRAINER", (258, 84))
    with d.pipe([(287, 93), (287, 132), (192, 132), (192, 158.7)], oil, "UTILITY", 17) as p:
        p.fitting("CHECK", (287, 106))
        p.fitting("GATE", (268, 132), "HV-402")
        p.tag((232, 132))
        p.ends_in_arrow()
    with d.pipe([(208, 161.2), (208, 108), (208, 92)], oil, "UTILITY", 17) as p:
        p.jumps((208, 132))
        p.ends_in_arrow()
    with d.pipe([(363, 132), (320, 132)], air, "UTILITY", 18) as p:
        p.fitting("GATE", (332, 132), "HV-403")
        p.tag((348, 132), below=True)
    label(d, "INSTRUMENT AIR", (386, 132), 3.2)
    loop(d, (287, 116), "PT", "403", "PI")
    for i, (function, x) in enumerate((("VT", 221), ("TT", 234))):
        d.lead((x, 164), (x, 156))
        d.instrument((x, 150), function, f"40{5 + i}")
    d.notes(["Trip logic: see CH-CE-001.", "All gas valves fire safe."], (16, 84))
    d.title(HARBOUR, "Compressor House", "GAS COMPRESSOR K-401", "PIPING AND INSTRUMENT DIAGRAM", "CH-PID-001", [
        ("A", "05.05.26", "Issued for review", "JH", "RB"), ("0", "17.08.26", "Issued for design", "JH", "RB")],
        drawn="JH")
    d.record(project_id=5, spec_id=7, line_id=15, main_size=20)
    return d


def training():
    """Small, for the first lesson: one pump, one valve, one line."""
    d = FlowDiagram("R2004")
    d.tank((70, 130), 60, 60)
    label(d, "T-1", (100, 160))
    d.pump((210, 140))
    label(d, "P-1", (210, 124), 4)
    with d.pipe([(130, 140), (203, 140)], "Line 21", line_id=21) as p:
        p.fitting("GATE", (160, 140), "HV-1")
        p.tag((184, 140))
    with d.pipe([(217, 149), (217, 200), (300, 200)], "Line 22", line_id=22) as p:
        p.fitting("CHECK", (240, 200))
        p.fitting("GATE", (262, 200), "HV-2")
        p.tag((286, 200))
        p.ends_in_arrow()
    d.lead((228, 200), (228, 211))
    d.instrument((228, 217), "PI", "1")
    d.equipment((100, 270), "T-1", "PRACTICE TANK")
    d.equipment((210, 270), "P-1", "PRACTICE PUMP")
    d.notes(["Change the spec of Line 22.", "Add a drain to T-1.", "Number the new line."], (310, 150), 4)
    d.title("", "Training", "FIRST LESSON", "PIPING AND INSTRUMENT DIAGRAM", "TR-PID-001",
            [("0", "07.01.26", "For training", "ML", "TO")])
    return d
