#!/usr/bin/python3
"""Makes the drawings and templates of the demonstration share. Needs Debian's python3-ezdxf.

    demo/drawings/make_drawings.py [SHARE]    SHARE is demo/share unless given

The same program makes the same bytes every time: what it makes is kept with the sources.
"""
import pathlib
import sys

import ezdxf

import electrical
import flow_diagrams
import isometrics
import plans
from sheet import ELECTRIC, ISOMETRIC, ORTHO, PID, Sheet

ezdxf.options.write_fixed_meta_data_for_testing = True

DRAWINGS = {
    "Pump Station 4/P&ID/PS4-PID-001": flow_diagrams.pump_station_intake,
    "Pump Station 4/P&ID/Superseded/PS4-PID-001 rev B": lambda: flow_diagrams.pump_station_intake(2),
    "Pump Station 4/P&ID/PS4-PID-002": flow_diagrams.pump_station_filters,
    "Filter Plant/P&ID/FP-PID-002": flow_diagrams.filter_plant,
    "Solvent Recovery/P&ID/SR-PID-001": flow_diagrams.solvent_column,
    "Tank Farm East/P&ID/TF-PID-001": flow_diagrams.tank_farm,
    "Compressor House/P&ID/CH-PID-001": flow_diagrams.compressor,
    "Training/P&ID/TR-PID-001": flow_diagrams.training,
    "Pump Station 4/Isometrics/PS4-ISO-1001": isometrics.pump_discharge,
    "Pump Station 4/Isometrics/PS4-ISO-1003": isometrics.seal_water,
    "Solvent Recovery/Isometrics/SR-ISO-2001": isometrics.solvent_feed,
    "Pump Station 4/Plans/PS4-GA-001": plans.pump_hall,
    "Tank Farm East/Plans/TF-GA-001": plans.tank_farm,
    "Pump Station 4/Electrical/PS4-E-001": electrical.pump_hall_layout,
    "Pump Station 4/Electrical/PS4-E-101": electrical.motor_starter,
    "Compressor House/Electrical/CH-E-001": electrical.single_line,
}


# Empty sheets with the layers of their discipline, by the names that the standards' settings give.
TEMPLATES = {"Electric": ELECTRIC, "PID": PID, "Isometric": ISOMETRIC, "Ortho": ORTHO}


def make_template(discipline):
    sheet = Sheet(discipline)
    sheet.title("", "", "", "", "", [])
    return sheet


def main(share):
    for name, make in DRAWINGS.items():
        path = share / "Drawings" / f"{name}.dwg"
        path.parent.mkdir(parents=True, exist_ok=True)
        make().save(path)
    (share / "Templates").mkdir(parents=True, exist_ok=True)
    for name, discipline in TEMPLATES.items():
        make_template(discipline).save(share / "Templates" / f"{name}.dwt")


if __name__ == "__main__":
    here = pathlib.Path(__file__).resolve().parent
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else here.parent / "share")
