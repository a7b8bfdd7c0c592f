#!/usr/bin/env python3
"""Works out the texts of all bills of an example club by its own arithmetic.

usage: bills.py            writes tests/fixtures/bills/<club>[-<year>]/bills.tsv and totals.tsv
       bills.py --check    writes nothing; fails where its answers and the tables differ: those that the
                           clubs bring and those that it has written

Shares no code with the program: exact decimal fractions instead of the program's formats, singles
by packing and unpacking four bytes.
"""
import datetime
import pathlib
import struct
import sys
from decimal import ROUND_HALF_UP, Decimal

FIXTURES = pathlib.Path(__file__).resolve().parent.parent / "fixtures"
EXAMPLES = FIXTURES / "examples"
DAYS = {  # the calendar day of each club, and the years loaded one after another
    "first-year": ("2016-11-25", []),
    "ordinary-year": ("2017-11-20", []),
    "new-member": ("2018-11-26", []),
    "prepayment": ("2017-12-01", ["2014", "2015", "2016", "2017"]),
    "year-change": ("2017-01-02", []),
    "old-ledger": ("2016-12-05", []),
    "ledger-minus": ("2017-03-05", []),
    "contacts": ("2017-11-27", []),
    "contacts-missing": ("2016-11-28", []),
    "large-club": ("2018-12-20", []),
    "no-ledger-yet": ("2017-02-14", []),
    "gaps": ("2017-11-28", []),
}
HEADER = ["member", "element", "text", "anchor", "position", "y", "size", "bold", "colour"]


def single(x):
    return struct.unpack("<f", struct.pack("<f", x))[0]


def number(text):
    return float(text.replace(",", "."))


def amount(text):
    return number(text) if text else 0.0


def rounded(x, decimals):
    """Half to even on the value scaled in double precision."""
    return round(x * 10.0**decimals) / 10.0**decimals


def money(x):
    text = format(Decimal(repr(x)).quantize(Decimal("0.01"), ROUND_HALF_UP), "f").replace(".", ",")
    return "0,00" if text == "-0,00" else text


def deduction(x):
    """What is taken off shows a minus sign, zero included; a negative one is a plain amount."""
    return "-0,00" if x == 0 else money(-x)


def text_of_single(x):
    if x == 0:
        return "0"
    exact = Decimal(x)
    places = 6 - exact.adjusted()
    text = format(exact.quantize(Decimal(1).scaleb(-places), ROUND_HALF_UP), "f")
    assert 0.1 <= abs(x) < 1e6, x
    return (text.rstrip("0").rstrip(".") if "." in text else text).replace(".", ",")


def lines_of(path):
    return path.read_bytes().decode("cp1252").split("\r\n")[:-1]


def ini(path):
    sections, current = {}, {}
    if path.exists():
        for line in path.read_bytes().decode("cp1252").splitlines():
            if line.startswith("["):
                current = sections.setdefault(line.strip()[1:-1], {})
            elif "=" in line:
                key, value = line.split("=", 1)
                current[key.strip()] = value.strip()
    return sections


def contact(setting, members):
    parts = setting.split(",")
    if len(parts) < 2:
        return None
    for fields in members:
        if fields[0] == parts[0] and fields[1] == parts[1]:
            town, _, second = fields[3].partition("/")
            return [f"{t:<20.20}" for t in (fields[1] + " " + fields[0], fields[2], town, second, fields[4])]
    return None


class Page:
    def __init__(self, member, rows):
        self.member, self.rows = member, rows

    def left(self, element, x, y, text, size=8, bold=0, colour="0,0,0"):
        self.rows.append([self.member, element, text, "left", x, y, size, bold, colour])

    def right(self, element, edge, y, text):
        self.rows.append([self.member, element, text, "right", edge, y, 8, 0, "0,0,0"])


def fixed(page, club, year, prices, bank, members, day):
    nxt = str(int(year) + 1)
    p = lambda key: prices.get(key, "")
    b = lambda key: bank.get(key, "")
    blank = lambda n: " " * n
    page.left("club_name", 35, 60, club, size=14)
    page.left("salutation", 35, 150, "Gartenfreund")
    page.left("title", 60, 260, "Abrechnung Kleingarten " + year, bold=1)
    page.left("head_1", 35, 280, "lfd Nr. Leistung" + blank(71) + "Verbrauch   Umrechnungs-   Betrag in")
    page.left("head_2", 35, 292, blank(116) + "faktor" + blank(17) + "Euro ")
    page.left("row_1_label", 35, 306, "     1 Strom" + blank(69) + "KWh ")
    page.right("row_1_factor", 458, 306, p("Stromkosten"))
    page.left("row_2_label", 35, 318, "     2 Vorauszahlung " + year)
    page.left("row_3_label", 35, 330, "     3 Vorauszahlung " + nxt)
    page.left("row_4_label", 35, 342, "     4 E.Pauschale" + blank(93))
    page.left("row_5_label", 35, 354, "     5 Zwischensumme Strom" + blank(94), bold=1)
    page.left("row_6_label", 35, 378, "     6 Wasser" + blank(70) + "m³ ")
    page.right("row_6_factor", 458, 378, p("Wasserkosten"))
    page.left("row_7_label", 35, 390, "     7 Vorauszahlung " + year)
    page.left("row_8_label", 35, 402, "     8 Vorauszahlung " + nxt)
    page.left("row_9_label", 35, 414, "     9 Zwischwnsumme Wasser ", bold=1)
    page.left("row_10_label", 35, 440, "    10 Mitgliedsbeitrag 1", bold=1)
    page.left("row_11_label", 35, 464, "    11 Pacht " + nxt + blank(62) + "m²" + blank(10), bold=1)
    page.right("row_11_factor", 458, 464, p("Pacht"))
    page.left("row_12_label", 35, 488, "   12 Grundsteuer(GS)A " + nxt + blank(39) + "m²" + blank(10), bold=1)
    page.right("row_12_factor", 458, 488, p("Steuer"))
    page.left("row_13_label", 35, 512, "    13 Flächenbeitrag" + blank(54) + "m²" + blank(31), bold=1)
    page.right("row_13_factor", 458, 512, p("Fläche"))
    page.left("row_14_label", 35, 536, "    14 Haftpflicht ")
    page.left("row_15_label", 35, 548, "    15 Rechtschutz ")
    page.left("row_16_label", 35, 560, "    16 Unfall ")
    page.left("row_16b_label", 35, 572, "    16 Gebäude ")
    page.left("row_17_label", 35, 584, "    17 Zwischensumme Versicherungen ", bold=1)
    page.left("row_18_label", 35, 608, "    18 Gesamtsumme ", bold=1)
    page.left("transfer", 35, 632, "Wir bitten um Überweisung der Gesamtsumme auf das Konto der " + b("Bankname"))
    page.left("iban", 35, 644, "IBAN " + b("BLZ"), bold=1)
    page.left("iban_red", 35, 644, "IBAN", bold=1, colour="192,0,0")
    page.left("bic", 220, 644, "BIC " + b("Kontonummer") + "    Termin " + p("Überweisdatum"), bold=1)
    page.left("bic_red", 220, 644, "BIC", bold=1, colour="192,0,0")
    page.left("hardship_1", 35, 672, "Sollten Sie aus finanziellen Gründen nicht in der Lage sein diesen"
              " Betrag zu begleichen,")
    page.left("hardship_2", 35, 684, "besteht nach Rücksprache mit " + b("Anrede") + " " + b("Name")
              + " , die Möglichkeit einer 3 Monatsratenzahlung.")
    page.left("questions_1", 35, 716, "Bei Rückfragen zur Abrechnung")
    page.left("questions_2", 35, 744, "wenden Sie sich bitte an")
    names = ["name", "street", "town", "town2", "phone"]
    first = contact(b("Name1"), members)
    for no, x, person in (1, 250, first), (2, 400, contact(b("Name2"), members)):
        if person is None:
            page.left(f"contact_{no}_name", x, 744, "Datensatz fehlt     ")
            continue
        for k, text in enumerate(person):
            behind = "   oder    " if no == 1 and k == 0 else ""
            page.left(f"contact_{no}_{names[k]}", x, 744 + 12 * k, text + behind)
    town = first[2][6:].strip(" ") if first else ""
    date = day.strftime("%d.%m.%Y")
    page.left("closing", 25, 840, f"{town}, den {date}" + blank(32) + b("Name") + blank(36) + "Vielen Dank ")


def meter(page, rows, tops, deduction_edge, now, before, price, previous_price, flag):
    """Readings as (start, end) texts; the drawn amounts as numbers."""
    consumption, first, third = 0.0, 0.0, 0.0
    charged = all(now) and price != ""
    if charged:
        consumption = rounded(single(single(number(now[1])) - single(number(now[0]))), 0)
        first = rounded(consumption * number(price), 2)
    page.right(f"row_{rows[0]}_quantity", 378, tops[0], str(int(consumption)))
    if charged:
        page.right(f"row_{rows[0]}_amount", 538, tops[0], money(first))
    second = 0.0
    if all(before):
        used = single(single(number(before[1])) - single(number(before[0])))
        second = rounded(used * amount(previous_price), 0)
    page.right(f"row_{rows[1]}_amount", deduction_edge, tops[1], deduction(second))
    if charged and flag == "1":
        third = rounded(consumption * number(price), 0)
    page.right(f"row_{rows[2]}_amount", 538, tops[2], money(third))
    return first - second + third


def member_part(page, fields, before, prices, previous):
    p = lambda key: prices.get(key, "")
    surname = fields[0][:-1] if fields[0][-1:] == "2" else fields[0]
    page.left("address_name", 60, 180, fields[1] + " " + surname)
    page.left("address_street", 60, 200, fields[2])
    page.left("address_town", 60, 220, fields[3])
    total = 0.0
    part = meter(page, (1, 2, 3), (306, 318, 330), 538, fields[12:14], before[12:14], p("Stromkosten"),
                 previous.get("Stromkosten", ""), p("Vorauszahlung Strom"))
    flat = rounded(amount(p("Energiepauschale")), 2)
    page.right("row_4_amount", 538, 342, money(flat))
    page.right("row_5_subtotal", 618, 354, money(part + flat))
    total = single(total + (part + flat))
    part = meter(page, (6, 7, 8), (378, 390, 402), 535, fields[14:16], before[14:16], p("Wasserkosten"),
                 previous.get("Wasserkosten", ""), p("Vorauszahlung Wasser"))
    page.right("row_9_subtotal", 618, 414, money(part))
    total = single(total + part)
    fee = rounded(amount(p("Beitrag")), 2)
    page.right("row_10_subtotal", 618, 440, money(fee))
    total = single(total + fee)
    for row, y, key in (11, 464, "Pacht"), (12, 488, "Steuer"), (13, 512, "Fläche"):
        page.right(f"row_{row}_quantity", 378, y, fields[6])
        charge = rounded(amount(fields[6]) * amount(p(key)), 2)
        page.right(f"row_{row}_subtotal", 618, y, money(charge))
        total = single(total + charge)
    sums = 0.0
    for row, y, field in ("14", 536, 8), ("15", 548, 9), ("16", 560, 10), ("16b", 572, 11):
        premium = rounded(amount(fields[field]), 2)
        page.right(f"row_{row}_amount", 538, y, money(premium))
        sums += premium
    page.right("row_17_subtotal", 618, 584, money(sums))
    total = single(total + sums)
    page.right("row_18_total", 618, 608, money(total) + "  €")
    return text_of_single(total)


def bills(club_folder, year, day):
    made = club_folder / "expected" / "files"  # files that the first start of a year has made
    find = lambda name: made / name if (made / name).exists() else club_folder / name
    members = [line.split(";") for line in lines_of(find(f"Mitgliedsdaten{year}.pz"))]
    before_file = find(f"Mitgliedsdaten{int(year) - 1}.pz")
    before = [line.split(";") for line in lines_of(before_file)] if before_file.exists() else None
    config = ini(find("Config.ini"))
    prices, previous = config.get(year, {}), config.get(str(int(year) - 1), {})
    if not config:
        keys = "Stromkosten Wasserkosten Energiepauschale Beitrag Pacht Steuer Fläche Überweisdatum"
        prices = dict.fromkeys(keys.split(), "0,00")
    bank = ini(find("Config1.ini")).get("Daten", {"Anrede": "Frau"})
    club_file = find("V.dat")
    club = lines_of(club_file)[0] if club_file.exists() else ""
    rows, totals = [], []
    stopped = False
    for k, fields in enumerate(members):
        page = Page(k, rows)
        fixed(page, club, year, prices, bank, members, day)
        stopped = stopped or (before is not None and k >= len(before))
        if not stopped:
            totals.append([k, member_part(page, fields, before[k] if before else [""] * 16, prices, previous)])
    return rows, totals


def table(header, rows):
    return "".join("\t".join(str(c) for c in row) + "\n" for row in [header] + rows)


def main():
    wrong = 0
    for name, (day_text, years) in DAYS.items():
        day = datetime.date.fromisoformat(day_text)
        for year in years or [day_text[:4]]:
            rows, totals = bills(EXAMPLES / name, year, day)
            answers = {"bills.tsv": table(HEADER, rows), "totals.tsv": table(["member", "total"], totals)}
            expected = EXAMPLES / name / "expected" / (year if years else "")
            for file, text in answers.items():
                if (expected / file).exists():
                    same = (expected / file).read_text(encoding="utf-8") == text
                    wrong += not same
                    print(name, year, file, "as expected" if same else "DIFFERS")
                    continue
                folder = FIXTURES / "bills" / name
                if "--check" in sys.argv:
                    same = (folder / file).exists() and (folder / file).read_text(encoding="utf-8") == text
                    wrong += not same
                    print(name, year, file, "as written" if same else "DIFFERS")
                else:
                    folder.mkdir(parents=True, exist_ok=True)
                    (folder / file).write_text(text, encoding="utf-8", newline="\n")
                    print(name, year, file, "written", text.count("\n") - 1, "rows")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
