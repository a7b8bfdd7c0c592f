#!/usr/bin/env python3
"""Works out the money reports of two example clubs by its own arithmetic.

usage: money.py            writes tests/fixtures/money/<club>/<report>.txt
       money.py --check    writes nothing; fails where its answers and the written ones differ

Shares no code with the program: decimal fractions, one regular expression per member and text. The
bills come from bills.py, which reckons them a second time too.
"""
import datetime
import pathlib
import re
import sys
import unicodedata
from collections import Counter
from decimal import ROUND_HALF_UP, Decimal

import bills

CLUBS = {"ordinary-year": (2017, "20.11.2017"), "large-club": (2018, "20.12.2018")}
OUT = bills.FIXTURES / "money"
ROWS_A_PAGE, ROWS_FOR_HEADINGS = 38, 6
ACCOUNTS = {"Konto": "Konto", "Handkasse": "HandKasse"}


def euro(x):
    text = f"{abs(x):,.2f}".replace(",", "_").replace(".", ",").replace("_", ".")
    return ("-" if x < 0 else "") + text + " €"


def cents(text):
    return Decimal(text.replace(",", ".")).quantize(Decimal("0.01"), ROUND_HALF_UP)


def fold(text):
    for a, b in ("ä", "ae"), ("ö", "oe"), ("ü", "ue"), ("ß", "ss"):
        text = text.lower().replace(a, b)
    return "".join(c for c in unicodedata.normalize("NFD", text) if not unicodedata.combining(c))


def date_of(text):
    day, month, year = map(int, text.split("."))
    return datetime.date(year, month, day)


def ledger(club, account, year):
    """Bookings in the order of the view: by day, then as texts in German word order."""
    path = bills.EXAMPLES / club / f"{ACCOUNTS[account]}{year}.pz"
    lines = [line.split(";") for line in bills.lines_of(path)] if path.exists() else []
    plain = lambda t: "".join(c for c in unicodedata.normalize("NFD", t.lower().replace("ß", "ss"))
                              if not unicodedata.combining(c) and c not in "-'")
    key = lambda b: (date_of(b[0]), plain(";".join(b[1:])).replace(";", " ;"))
    return [[d, t, cents(i), cents(o)] for d, t, i, o in sorted(lines, key=key)]


# --- who paid which bill ---

def word(name):
    parts = [re.escape(p) for p in re.split("[ -]+", fold(name)) if p]
    return "(?<![a-z0-9])(?<![a-z][-'])" + "( +| *- *)".join(parts) + "(?![a-z0-9])(?![-'][a-z])"


def payers(text, members):
    """Positions of the members that a payment's text fits; the examples name surnames alone."""
    rest = re.sub(r"(?<![a-zäöü])abrechnung(en)?-?(?![a-zäöü])", " ", text, flags=re.I)
    first = rest.strip().split(" ")[0]
    ranks = {}
    for k, (surname, *_) in enumerate(members):
        ways = [(surname, 3 if surname in rest else 2)]
        ways += [(surname[:-1], 1)] if surname.endswith("2") else []
        ways += [(surname.split(" ")[0], 3)] if " " in surname and fold(surname.split(" ")[0]) == fold(first) else []
        found = [(re.search(word(way), fold(rest)), rank) for way, rank in ways if way]
        found = [(m.end() - m.start(), rank) for m, rank in found if m]
        if found:
            ranks[k] = max(found)
    longest = max((length for length, _ in ranks.values()), default=0)
    ranks = {k: rank for k, (length, rank) in ranks.items() if length == longest}
    return [k for k, rank in ranks.items() if rank == max(ranks.values())]


def is_payment(text):
    return re.search(r"(?<![a-z])abrechnung(?![a-z])", fold(text)) is not None


def start_of(year, config):
    section = config[str(year)]
    return min(date_of(section["Abrechnungsdatum"]), date_of(section["Überweisdatum"]) - datetime.timedelta(60))


class Club:
    def __init__(self, name, year, today):
        self.name, self.year, self.today = name, year, today
        folder = bills.EXAMPLES / name
        self.config = bills.ini(folder / "Config.ini")
        self.bank = bills.ini(folder / "Config1.ini")["Daten"]
        self.club = bills.lines_of(folder / "V.dat")[0]
        read = lambda y: [line.split(";") for line in bills.lines_of(folder / f"Mitgliedsdaten{y}.pz")]
        self.members = {y: read(y) for y in (year - 1, year)}
        self.ledgers = {(a, y): ledger(name, a, y) for a in ACCOUNTS for y in (year - 1, year)}
        self.drawn = {y: self.bills_of(y) for y in (year - 1, year)}

    def bills_of(self, year):
        rows, _ = bills.bills(bills.EXAMPLES / self.name, str(year), datetime.date(year, 12, 1))
        found = [{} for _ in self.members[year]]
        for member, element, text, *_ in rows:
            found[member][element] = text
        return found

    def bill(self, k):
        text = self.drawn[self.year][k].get("row_18_total")
        return cents(text.replace(" ", "").replace("€", "")) if text else None


# --- the reports as the tests see them: a line a row, cells separated by tabs ---

def open_items(club):
    members, year = club.members[club.year], club.year
    paid, last = Counter(), {}
    unassigned, others = [], []
    for (account, ledger_year), bookings in sorted(club.ledgers.items(), key=lambda x: (x[0][1], x[0][0] != "Konto")):
        for date, text, deposit, withdrawal in bookings:
            amount = deposit - withdrawal
            if not is_payment(text) or amount == 0:
                continue
            before = ledger_year - 1 in club.members and date_of(date) < start_of(ledger_year, club.config)
            bill_year = ledger_year - 1 if before else ledger_year
            fits = payers(text, club.members[bill_year])
            if bill_year == year and len(fits) == 1:
                paid[fits[0]] += amount
                last[fits[0]] = max(last.get(fits[0], datetime.date.min), date_of(date))
            elif bill_year == year and (fits or amount > 0):
                names = " · ".join(",".join(members[k][:2]) for k in fits)
                reason = "mehrere Mitglieder" if fits else "kein Mitglied"
                unassigned.append([date, account, text, euro(amount), reason, names])
            elif ledger_year == year and len(fits) == 1:
                others.append(amount)
    lines, rests = [], []
    for k, fields in enumerate(members):
        bill, got = club.bill(k), paid.get(k, Decimal(0))
        rest = bill - got
        rests.append(rest)
        count = int(fields[7]) if fields[7].strip().isdigit() else 0
        plan = ""
        if 2 <= count <= 12 and bill > 0:
            each = Decimal(int(bill * 100) // count) / 100
            first = bill - each * (count - 1)
            done = max([n for n in range(1, count + 1) if got >= first + each * (n - 1)], default=0)
            plan = f"{count} × {euro(each)}" if first == each else f"{euro(first)} + {count - 1} × {euro(each)}"
            plan += f", {done} von {count} bezahlt"
        if rest > 0:
            state = "offen" if got <= 0 else "teilweise bezahlt"
        elif rest < 0:
            state = "Guthaben" if bill < 0 else "zu viel gezahlt"
        else:
            state = "bezahlt" if bill > 0 else "ausgeglichen" if bill < 0 else "nichts zu zahlen"
        day = last[k].strftime("%d.%m.%Y") if k in last else ""
        lines.append([fields[5], ",".join(fields[:2]), euro(bill), euro(got), euro(rest), plan, day, state])
    club.claims, club.debtors = sum(r for r in rests if r > 0), sum(r > 0 for r in rests)
    club.credits = -sum(r for r in rests if r < 0)
    total = ["", "Summe", euro(sum(club.bill(k) for k in range(len(members)))), euro(sum(paid.values())),
             euro(sum(rests)), "", "", ""]
    start = start_of(year, club.config).strftime("%d.%m.%Y")
    out = [[f"Offene Posten {year}"],
           [f"Zahlungen ohne Jahr im Text zählen ab dem {start} zur Abrechnung {year}, davor zur Abrechnung {year - 1}."],
           ["Gezeigt: alle · nur offene"],
           ["Garten", "Name", "Rechnung", "Gezahlt", "Rest", "Raten", "Letzte Zahlung", "Stand"], *lines, total,
           [f"Offene Forderungen: {euro(club.claims)}. Guthaben und zu viel Gezahltes: {euro(club.credits)}."]]
    if others:
        out.append([f"{len(others)} Zahlungen über zusammen {euro(sum(others))} gehören zu Abrechnungen anderer Jahre."])
    out.append(["Die blauen Namen unter „Kontoführung“ zeigen nur, dass der Name in einer Buchung vorkommt; "
                "hier zählen die Beträge."])
    if unassigned:
        out += [["Nicht zugeordnete Zahlungen"],
                ["Nennen Sie im Vorgang den Nachnamen und den Vornamen oder „Garten 7“, dann wird die "
                 "Zahlung zugeordnet."],
                ["Datum", "Konto", "Vorgang", "Betrag", "Grund", "Mögliche Mitglieder"], *unassigned]
    return out


def kind_of(club, date, text, side):
    if is_payment(text):
        before = date_of(date) < start_of(club.year, club.config)
        if payers(text, club.members[club.year - 1 if before else club.year]):
            return ("Abrechnungen der Mitglieder", "Erstattungen an Mitglieder")[side]
    return re.sub(r" (19|20)\d\d$", "", text)


def cash_report(club):
    out = [[f"Kassenbericht {club.year}"], [club.club],
           [f"Zeitraum 01.01.{club.year} bis {club.today} (Jahr nicht abgeschlossen)"]]
    opening, closing, sums, hints = {}, {}, {}, []
    for account in ACCOUNTS:
        bookings = club.ledgers[account, club.year]
        opened = [b for b in bookings if fold(b[1]).startswith("uebertrag saldo")]
        opening[account] = sum(b[2] - b[3] for b in opened)
        closing[account] = sum(b[2] - b[3] for b in bookings)
        out.append([f"Konto {club.bank['Bankname']}" if account == "Konto" else account])
        out.append(["Anfangsbestand", "", euro(opening[account])])
        for side, title in enumerate(("Einnahmen", "Ausgaben")):
            names, kinds = {}, Counter()
            for b in bookings:
                if b not in opened:
                    kind = kind_of(club, b[0], b[1], side)
                    name = names.setdefault(fold(kind), kind)
                    kinds[name] += b[2 + side]
            rows = sorted(((n, s) for n, s in kinds.items() if s != 0), key=lambda x: (-x[1], fold(x[0])))
            sums[account, side] = sum(s for _, s in rows)
            out += [[title, "" if rows else "keine", ""], *[[n, euro(s), ""] for n, s in rows],
                    [f"Summe der {title}", "", euro(sums[account, side])]]
        out.append(["Endbestand", "", euro(closing[account])])
        year_before = club.ledgers[account, club.year - 1]
        ended = sum(b[2] - b[3] for b in year_before)
        if year_before and ended != opening[account]:
            hints.append([f"{account}: Das Vorjahr endet mit {euro(ended)}, der Anfangsbestand ist "
                          f"{euro(opening[account])}."])
    total = lambda values: euro(sum(values))
    out += [["Konto und Handkasse zusammen"], ["Anfangsbestand", "", total(opening.values())],
            ["+ Einnahmen", "", total(sums[a, 0] for a in ACCOUNTS)],
            ["− Ausgaben", "", total(sums[a, 1] for a in ACCOUNTS)],
            ["= Endbestand", "", total(closing.values())],
            ["Umbuchungen zwischen Konto und Handkasse sind hier weder Einnahme noch Ausgabe."],
            ["Offene Forderungen"],
            [f"Abrechnungen {club.year}, noch nicht bezahlt: {euro(club.claims)} ({club.debtors} Mitglieder)"],
            [f"Guthaben der Mitglieder: {euro(club.credits)}"]]
    out += [["Hinweise"], *hints] if hints else []
    line = "_" * 12
    return out + [["="], [f"Kassenprüfung {club.year}"],
                  [f"Die Kasse und die Belege des Jahres {club.year} wurden geprüft."],
                  [f"Bestand Konto: {euro(closing['Konto'])}", f"laut Kontoauszug: {line} €"],
                  [f"Bestand Handkasse: {euro(closing['Handkasse'])}", f"gezählt: {line} €"],
                  [f"Bestand zusammen: {total(closing.values())}", ""], ["Beanstandungen:"],
                  ["____ "], ["____ "], ["____ "],
                  ["Die Entlastung des Kassenwarts wird empfohlen:   ja ☐   nein ☐"], ["____ Ort, Datum"],
                  [f"____ Kassenwart: {club.bank['Name']}"], ["____ Kassenprüfer"], ["____ Kassenprüfer"]]


def cash_book(club):
    out = [[f"Kassenbuch {club.year}"]]
    head = ["Nr.", "Datum", "Vorgang", "Einzahlung", "Auszahlung", "Kontostand"]
    for account in ACCOUNTS:
        out += [["="]] if account == "Handkasse" else []
        out += [[f"Konto {club.bank['Bankname']}" if account == "Konto" else account], head]
        came, went, left = Decimal(0), Decimal(0), ROWS_A_PAGE - ROWS_FOR_HEADINGS
        sums = lambda text: ["", "", text, euro(came), euro(went), euro(came - went)]
        for number, (date, text, deposit, withdrawal) in enumerate(club.ledgers[account, club.year], 1):
            if left == 0:
                out += [sums("Übertrag"), ["="], head, sums("Übertrag")]
                left = ROWS_A_PAGE
            came, went, left = came + deposit, went + withdrawal, left - 1
            shown = lambda x: euro(x) if x else ""
            out.append([str(number), date, text, shown(deposit), shown(withdrawal), euro(came - went)])
        out.append(sums("Summe"))
    return out


def years(club):
    rows, largest = [], [0, 0, 0]
    for year in (club.year - 1, club.year):
        drawn = [d for d in club.drawn[year] if "row_18_total" in d]
        sum_of = lambda key: sum(Decimal(d[key].replace(" ", "").replace("€", "").replace(",", ".")) for d in drawn)
        values = [int(sum_of("row_1_quantity")), int(sum_of("row_6_quantity")), sum_of("row_18_total")]
        largest = [max(a, abs(b)) for a, b in zip(largest, values)]
        rows.append((year, len(club.members[year]), values, len(drawn)))
    half_up = lambda x: int(Decimal(x).quantize(Decimal(1), ROUND_HALF_UP))
    out = [["Jahre im Vergleich"], ["Jahr", "Mitglieder", "Strom KWh", "", "Wasser m³", "", "Strompreis",
                                    "Wasserpreis", "Summe der Abrechnungen", "", "je Mitglied"]]
    for year, count, values, drawn in rows:
        bars = ["#" * half_up(Decimal(max(half_up(100 * Decimal(abs(v)) / l), 1)) / 10) if v else ""
                for v, l in zip(values, largest)]
        each = euro((values[2] / drawn).quantize(Decimal("0.01"), ROUND_HALF_UP))
        section = club.config[str(year)]
        out.append([str(year), str(count), str(values[0]), bars[0], str(values[1]), bars[1],
                    section["Stromkosten"], section["Wasserkosten"], euro(values[2]), bars[2], each])
    return out + [["Ein Mitglied über die Jahre"], ["Mitglied wählen …"]]


def main():
    wrong = 0
    for name, (year, today) in CLUBS.items():
        club = Club(name, year, today)
        reports = {"OpenItems": open_items, "CashReport": cash_report, "CashBook": cash_book, "Years": years}
        for report, make in reports.items():
            text = "".join("\t".join(row) + "\n" for row in make(club))
            path = OUT / name / f"{report}.txt"
            if "--check" in sys.argv:
                same = path.exists() and path.read_text(encoding="utf-8") == text
                wrong += not same
                print(name, report, "as written" if same else "DIFFERS")
            else:
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8", newline="\n")
                print(name, report, "written", text.count("\n"), "lines")
    sys.exit(1 if wrong else 0)


if __name__ == "__main__":
    main()
