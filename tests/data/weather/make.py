"""Small weather files and trend logs, one for each oddity, and a synthetic year.

CASES gives the content of each file in bytes; year() makes the hours of a year without a random number."""

import math

NAME = "LOCATION,Testville,CO,USA,SYNTH,999999,40.00,-105.00,-7.0,{elevation}"
NEWER = ("Heating,1,-17.4,-14,-21.9,0.6,-11.9,-19.6,0.8,-8.5,11.8,-3.5,11.1,-5.1,2.9,310,0.45,"
         "Cooling,7,11.4,32.8,22.9,31.2,22.1,29.7,21.4,25.3,30.2,24.4,28.9,23.5,27.6,5,220,"
         "23.9,19.2,28.1,23,18.1,27.3,22.1,17.1,26.4,78.5,30.3,74.8,29.1,71.2,27.8,30.1,Extremes,9.8,8.4,7.3")
LAYOUTS = {
    "newer": "1,2021 Tables,," + NEWER,
    "older": "1,2009 Tables,," + NEWER.replace("310,0.45", "310").replace("27.8,30.1", "27.8,680"),
    "oldest": ("1,2001 Tables,Cooling,32.8,22.9,31.2,22.1,29.7,21.4,25.3,30.2,24.4,28.9,23.5,27.6,"
               "23.9,19.2,28.1,23,18.1,27.3,22.1,17.1,26.4,11.4,Heating,-17.4,-14,11,10,9,11.8,-3.5"),
    "contradicting": "1,Tables,,Heating,1,-14,-17.4,Cooling,7,11.4,29.7,22.9,31.2,22.1,32.8",
    "none": "0", "announced": "1,Tables",
}


def head(design="0", leap="No", elevation="1609", records=1):
    return [NAME.format(elevation=elevation), "DESIGN CONDITIONS," + design, "TYPICAL/EXTREME PERIODS,0", "GROUND TEMPERATURES,0",
            f"HOLIDAYS/DAYLIGHT SAVINGS,{leap},0,0,0", "COMMENTS 1,made by a script", "COMMENTS 2,",
            f"DATA PERIODS,1,{records},Data,Sunday, 1/ 1,12/31"]


def row(month, day, hour, db, dp, rh, pressure=83500, year=1991, minute=60):
    return f"{year},{month},{day},{hour},{minute},A7A7,{db},{dp},{rh},{pressure}" + ",0" * 25


def year(start=1991, years=1, leap=False):
    """Hours of a year: seasons and days as cosines, dew points from 4 to 22 deg C below the dry bulb."""
    rows = []
    for number in range(start, start + years):
        place = 0
        for month, days in enumerate((31, 29 if leap else 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31), 1):
            for day in range(1, days + 1):
                for hour in range(1, 25):
                    season = -math.cos((place / 24 - 15) * 2 * math.pi / 365)
                    db = 11 + 14 * season - 6 * math.cos((hour - 3) * math.pi / 12) + 5 * math.sin(place / 37)
                    spread = 9 - 4 * math.cos((hour - 3) * math.pi / 12) + 4 * math.cos(place / 53)
                    rh = 100 * math.exp(17.62 * (db - spread) / (243.1 + db - spread) - 17.62 * db / (243.1 + db))
                    rows.append(row(month, day, hour, f"{db:.1f}", f"{db - spread:.1f}", round(rh), year=number))
                    place += 1
    return rows


def text(lines, end="\n"):
    return (end.join(lines) + end).encode("utf-8")


DAY = [row(7, 4, hour, 20 + hour / 2, 12, 60) for hour in range(1, 25)]
LOG = "Date/Time,Outdoor Temp (°F),Outdoor RH (%)"


def log(times, db=lambda i: 70 + i / 4, rh=lambda i: 50 + i, heads=LOG):
    return text([heads] + [f"{time},{db(i)},{rh(i)}" for i, time in enumerate(times)])


def quarters(day, first, last):
    return [f"{day} {q // 4:02}:{q % 4 * 15:02}" for q in range(first, last)]


def design_day(name, kind, value, db="32.8"):
    return (f"SizingPeriod:DesignDay,\n {name},  !- Name\n 7, !- Month\n 21, !- Day of Month\n SummerDesignDay, !- Day Type\n"
            f" {db}, !- Maximum Dry-Bulb Temperature {{C}}\n 11.4, !- Daily Dry-Bulb Temperature Range {{C}}\n"
            f" DefaultMultipliers, !- Dry-Bulb Temperature Range Modifier Type\n , !- Schedule\n"
            f" {kind}, !- Humidity Condition Type\n {value}, !- Wetbulb or DewPoint at Maximum Dry-Bulb {{C}}\n"
            " , !- Humidity Condition Day Schedule Name\n , !- Humidity Ratio at Maximum Dry-Bulb\n"
            " , !- Enthalpy at Maximum Dry-Bulb {J/kg}\n 98934.; !- Barometric Pressure {Pa}\n")


CASES = {
    "day.epw": text(head() + DAY),
    "leap.epw": text(head(leap="Yes") + [row(2, 29, hour, 1, -2, 80) for hour in range(1, 25)]),
    "blankleap.epw": text(head(leap="") + DAY),
    "latin.epw": text(head() + DAY).replace(b"Testville", b"Z\xfcrich"),
    "quoted.epw": text(head() + DAY).replace(b"Testville", b'"Test, ville"'),
    "openquote.epw": text(head() + DAY).replace(b"made by", b'"made by'),
    "mark.epw": b"\xef\xbb\xbf" + text(head() + DAY, "\r\n"),
    "elevation.epw": text(head(elevation="") + DAY),
    "fromzero.epw": text(head() + [row(7, 4, hour, 25, 12, 60) for hour in range(24)]),
    "halves.epw": text(head(records=2) + [row(7, 4, h, 25 + m / 60, 12, 60, minute=m) for h in range(1, 25) for m in (30, 60)]),
    "missing.epw": text(head() + [row(7, 4, 1, 99.9, 12, 60), row(7, 4, 2, "", 12, 60), row(7, 4, 3, "NA", 12, 60),
                                  row(7, 4, 4, 25, 12, 999), row(7, 4, 5, 25, 99.9, 999), row(7, 4, 6, 25, 12, 60, 999999),
                                  row(7, 4, 7, 25, 12, "calm"), row(13, 4, 8, 25, 12, 60), row(2, 30, 9, 25, 12, 60),
                                  "1991,7,4", row(7, 4, 10, 25, 12, 104), row(7, 4, 11, -40, -45, 70)]),
    "step.epw": text(head() + [row(1, 4, h, round(h / 50, 2), -0.1, 99) for h in range(1, 25)]),
    **{f"design-{name}.epw": text(head(design=line) + DAY) for name, line in LAYOUTS.items()},
    "days.ddy": ("! Design days\nSite:Location, Testville Design_Conditions, 40, -105, -7, 1609;\n"
                 + design_day("Testville Ann Clg .4% Condns DB=>MWB", "Wetbulb", 22.9)
                 + design_day("Testville Ann Clg 1% Condns DP=>MDB", "Dewpoint", 23, 27.3)
                 + design_day("Testville July 2% Condns DB=>MCWB", "Wetbulb", 21.4, 29.7)
                 + design_day("Testville Ann Htg 99.6% Condns DB", "Wetbulb", -17.4, -17.4)
                 + design_day("Testville Ann Htg Wind 99.6% Condns WS=>MCDB", "Wetbulb", -3, -3)
                 + design_day("Testville Ann Clg 2% Condns WB=>MDB", "Wetbulb", "", 28)).encode(),
    "tmy3.csv": text(['999999,"TESTVILLE [SYNTH]",CO,-7.0,40.000,-105.000,1609',
                      "Date (MM/DD/YYYY),Time (HH:MM),ETR (Wh/m^2),Dry-bulb (C),Dry-bulb source,Dry-bulb uncert (code),"
                      "Dew-point (C),RHum (%),Pressure (mbar)"]
                     + [f"07/04/1991,{h:02}:00,0,{20 + h / 2},A,7,12,60,835" for h in range(1, 25)]),
    "semicolons.csv": text(["Zeit;Time;Temp (°C);RH"] + [f"x;04.07.2023 {h:02}:00;{20 + h / 2:.1f};{50 + h},5".replace(".5;", ",5;")
                                                        for h in range(24)]),
    "tabs.csv": text(["Date\tTime\tDB\tDP"] + [f"7/{d}/2023\t{h % 12 or 12}:00 {'AM' if h < 12 else 'PM'}\t{70 + d}\t{50 + h / 2}"
                                              for d in (4, 5) for h in range(24)]),
    "dayfirst.csv": log([f"{d}/07/2023 {h:02}:00" for d in (12, 13) for h in range(24)]),
    "changes.csv": log(["2023-07-04 00:00", "2023-07-04 00:20", "2023-07-04 02:20", "2023-07-04 08:00", "2023-07-04 08:00",
                        "2023-07-04 08:30"]),
    "fraction.csv": log(quarters("2023-07-04", 0, 40), rh=lambda i: 0.5 + i / 80),
    "above.csv": log(quarters("2023-07-04", 0, 20), rh=lambda i: 90 + i),
    "stuck.csv": log([f"2023-07-{d:02} {h:02}:00" for d in (4, 5, 6) for h in range(24)],
                     db=lambda i: 70 + max(0, i - 40), rh=lambda i: 50),
    "forward.csv": log(quarters("2023-03-12", 0, 8) + quarters("2023-03-12", 12, 24)),
    "back.csv": log(quarters("2023-11-05", 0, 8) + quarters("2023-11-05", 4, 20)),
    "newest.csv": log(quarters("2023-07-04", 0, 40)[::-1]),
    "disorder.csv": log(quarters("2023-07-04", 0, 10) + quarters("2023-07-04", 5, 30)),
    "words.csv": log(["2023-07-04 00:00", "2023-07-04 01:00", "noon", "2023-07-04 03:00", "2023-07-04 04:00"],
                     db=lambda i: ["Bad Input", 75, 75, 75, -999][i], rh=lambda i: [50, "No Data", 50, 50, 50][i]),
    "dewpoint.csv": log(quarters("2023-07-04", 0, 8), rh=lambda i: 68 + i, heads="Timestamp,OAT,Dew Point"),
    "enthalpy.csv": log(quarters("2023-07-04", 0, 8), rh=lambda i: 28, heads="Timestamp,OAT (F),Enthalpy"),
    "wetbulb.csv": log(quarters("2023-07-04", 0, 8), rh=lambda i: 15 * i, heads="Timestamp,Wet Bulb (F),RH"),
    "parts.csv": text(["Year,Month,Day,Hour,Minute,Temperature (C),Relative Humidity"]
                      + [f"2023,7,4,{h},{m},{20 + h / 2},60" for h in range(24) for m in (0, 30)]),
    "minutelast.csv": text(["Year,Month,Day,Hour,Temp (F),RH,Minute", "2023,7,4,0,70,50,30", "2023,7,4,1,70,50"]),
    "noyear.csv": log([f"07/04 {h:02}:00:00" for h in range(1, 25)]),
    "notime.csv": text(["Temp,RH", "70,50"]), "nomoisture.csv": text(["Time,Temp", "2023-07-04 00:00,50"]),
    "empty.csv": b"", "bytes.csv": b"Time,Temp,RH\n\0\0\0", "heads.csv": text([LOG]), "words.txt": b"just some words\n",
}
