#!/usr/bin/env python3
"""Compares clb find with a search that reads every row by itself.

oracle.py CLB [QUERIES [SEED]]: makes random books with hostile cells and random queries, and compares count, sum,
rows, their order and their cells. The search here is written from the description in search/SearchQuery.h alone.
Prints the first difference and fails.
"""
import json
import random
import re
import sqlite3
import subprocess
import sys
import tempfile
import unicodedata
from concurrent.futures import ThreadPoolExecutor
from datetime import date, timedelta

LEAST, MOST = -(2**63), 2**63 - 1
PLAIN = {
    "æ": "ae", "ð": "d", "ø": "o", "þ": "th", "đ": "d", "ħ": "h", "ı": "i", "ĸ": "k", "ł": "l", "ŋ": "n", "œ": "oe",
    "ŧ": "t", "ƀ": "b", "ƒ": "f", "ƚ": "l", "ƶ": "z", "ǥ": "g", "ȷ": "j", "ȼ": "c", "ɇ": "e", "ɉ": "j", "ɍ": "r",
    "ɏ": "y", "ɓ": "b", "ɖ": "d", "ɗ": "d", "ɨ": "i", "ɲ": "n", "ɵ": "o", "ʉ": "u", "ʼ": "'", "‘": "'", "’": "'",
    "‚": "'", "‛": "'", "“": '"', "”": '"', "„": '"', "‟": '"', "−": "-", "ⱥ": "a", "ⱦ": "t",
    **{chr(dash): "-" for dash in range(0x2010, 0x2016)}}


# Folding

def is_space(c):
    return unicodedata.category(c) in ("Zs", "Zl", "Zp", "Cc")


def parts(c):
    """The characters that a character is made of, without case."""
    for made in (c.casefold(), unicodedata.normalize("NFKD", c)):
        if made != c:
            return [part for one in made for part in parts(one)]
    return [c]


def folded_part(c):
    category = unicodedata.category(c)
    if is_space(c):
        return " "
    if category in ("Cf", "Me") or c == "\u034f" or "\ufe00" <= c <= "\ufe0f" or "\U000e0100" <= c <= "\U000e01ef":
        return ""
    if category in ("Mn", "Mc") and unicodedata.combining(c) not in (0, 9):
        return ""
    return PLAIN.get(c, c)


def fold(text):
    """Bytes of the folded text. text: bytes that are mostly UTF-8."""
    folded = ""
    for c in text.decode("utf-8", "surrogateescape"):
        if "\udc80" <= c <= "\udcff":
            folded += c  # a byte that is not UTF-8
        elif c == "´":
            folded += "'"
        else:
            folded += "".join(folded_part(part) for part in parts(c))
    return folded.encode("utf-8", "surrogateescape")


# Amounts

DASHES = "-‐‑‒–—―−﹣－"
THIN = "\u00a0\u2007\u2009\u202f"
CURRENCIES = "$€£¥₹"


def number(text, decimal):
    """The number of a text that is only its digits and marks, in 1/10000, or None."""
    other = "," if decimal == "." else "."
    whole, rest = re.match(r"^(\d*(?:[%s\s'’ʼ`´]\d+)*)(.*)$" % re.escape(other), text, re.S).groups()
    groups = re.split(r"([^\d])", whole)
    digits, marks = groups[0::2], {" " if c in THIN else c for c in groups[1::2]}
    if len(digits) > 1:
        if len(marks) != 1 or len(digits[-1]) != 3 or text[0] == "0" or not digits[0]:
            return None
        pairs = marks == {","} and all(len(group) == 2 for group in digits[1:-1]) and len(digits) > 2
        threes = all(len(group) == 3 for group in digits[1:])
        if not (threes and len(digits[0]) <= 3) and not (pairs and len(digits[0]) <= 2):
            return None
    fraction = re.fullmatch(r"%s(\d+)" % re.escape(decimal), rest)
    if fraction:
        decimals = fraction.group(1).rstrip("0")
    elif rest in ("", decimal) or re.fullmatch(r"[.,][%s]+" % DASHES, rest):
        decimals = ""
        if not whole:
            return None
    else:
        return None
    if len(decimals) > 4:
        return None
    value = int("".join(digits) or "0") * 10000 + int((decimals + "0000")[:4])
    return value if value <= MOST else None


def amount(word, decimal):
    """(amount, whether it has a sign) or None."""
    if any(c.isalpha() for c in word):
        return None
    # The dashes of "5,-" belong to the number.
    found = re.fullmatch(r"([^\d.,]*)([.,]?\d[\d.,'’ʼ`´%s]*(?:(?<=[.,])[%s]+)?)([^\d]*)" % (THIN, DASHES), word)
    if not found:
        return None
    before, digits, after = found.groups()
    signs, opened, closed = [], False, False
    for place, side in (("before", before), ("after", after)):
        for c in side:
            if c in DASHES or c in "+＋":
                signs.append(c)
            elif c == "(" and place == "before" and not opened and not signs:
                opened = True
            elif c == ")" and place == "after" and not closed and not signs:
                closed = True
            elif c not in CURRENCIES:
                return None
    if len(signs) > 1 or opened != closed or (opened and signs):
        return None
    if sum(c in CURRENCIES for c in word) > 1:
        return None
    value = number(digits, decimal)
    if value is None:
        return None
    negative = opened or (signs and signs[0] in DASHES)
    return (-value if negative else value), bool(opened or signs)


def amounts(word):
    """Functions of a scaled amount, any of which must hold; None if the word is something else."""
    tests = []
    compared = re.match(r"^(>=|<=|>|<)(.*)$", word, re.S)
    ends = None if compared or ".." not in word else word.split("..", 1)
    if ends and (ends[1].startswith(".") or ends == ["", ""]):
        return None
    if any(c.isalpha() for c in word):
        return None
    for decimal in ".,":
        if compared:
            read = amount(compared.group(2), decimal)
            if read:
                tests.append(comparison(compared.group(1), *read))
        elif ends:
            first, last = (amount(end, decimal) if end else (None, False) for end in ends)
            if first and last:
                tests.append(between(first[0], last[0], first[1] or last[1]))
        else:
            read = amount(word, decimal)
            if read:
                value, signed = read
                tests.append(lambda a, v=value, s=signed: a == v or (not s and a == -v))
    return tests or None


def comparison(sign, value, signed):
    def test(a):
        size = a if signed else abs(a)
        return {">": size > value, ">=": size >= value, "<": size < value, "<=": size <= value}[sign]
    return test


def between(first, last, signed):
    if first is not None and last is not None and first > last:
        first, last = last, first

    def test(a):
        size = a if signed else abs(a)
        return (first is None or size >= first) and (last is None or size <= last)
    return test


# Dates

def one_date(text):
    """First and last day of a year, month or day, or None."""
    found = re.fullmatch(r"([0-9]{4})(?:-([0-9]{2})(?:-([0-9]{2}))?)?", text)
    if not found or not 1900 <= int(found.group(1)) <= 2099:
        return None
    year, month, day = (int(group) if group else None for group in found.groups())
    try:
        first = date(year, month or 1, day or 1)
    except ValueError:
        return None
    if day:
        return first, first
    if month:
        return first, date(year + month // 12, month % 12 + 1, 1) - timedelta(1)
    return first, date(year, 12, 31)


def days(word):
    if ".." not in word:
        return one_date(word)
    ends = word.split("..", 1)
    if ends == ["", ""]:
        return None
    read = [one_date(end) if end else (date.min, date.max) for end in ends]
    if None in read:
        return None
    if not ends[0]:
        return date.min, read[1][1]
    if not ends[1]:
        return read[0][0], date.max
    return min(read[0][0], read[1][0]), max(read[0][1], read[1][1])


# Queries

FIELDS = {"account:": "account", "category:": "category", "payee:": "description", "notes:": "notes"}
BEGUN = re.compile(r"-*|\+|<|<=|>|>=|\.\.")


def word_at(text, at):
    end = at
    while end < len(text):
        c = text[end]
        if is_space(c) and not (c in THIN and text[end - 1] in "0123456789" and end > at
                                and text[end + 1:end + 2] in set("0123456789")):
            break
        end += 1
    return text[at:end], end


def terms_of(query):
    """Terms as functions of a row."""
    text = query.decode("utf-8", "surrogateescape")
    terms, at = [], 0
    while at < len(text):
        if is_space(text[at]):
            at += 1
            continue
        without = text[at] == "-"
        start = at + without
        field = next((name for name in FIELDS if text[start:start + len(name)].lower() == name
                      and text[start:start + len(name)].isascii()), None)
        if field or text[start:start + 1] == '"':
            start += len(field or "")
            if text[start:start + 1] == '"':
                end = text.find('"', start + 1)
                end = len(text) if end < 0 else end
                value, at = text[start + 1:end], end + 1
            else:
                value, at = word_at(text, start)
            terms.append(term(value, FIELDS.get(field), without))
            continue
        word, at = word_at(text, at)
        without = False
        if word.startswith("-") and not BEGUN.fullmatch(word):
            rest = word[1:]
            without = not amounts(word) or (days(rest) is not None and not re.fullmatch("[0-9]+", rest))
            word = rest if without else word
        if word in (">", ">=", "<", "<="):
            after = at
            while after < len(text) and is_space(text[after]):
                after += 1
            value, end = word_at(text, after)
            if amounts(word + value):
                word, at = word + value, end
        if not BEGUN.fullmatch(word):
            terms.append(readings(word, without))
    return [one for one in terms if one]


def has(row, field, word):
    fields = [field] if field else ["description", "notes", "check", "category", "account"]
    return any(word in row[name] for name in fields)


def term(value, field, without):
    word = fold(value.encode("utf-8", "surrogateescape"))
    return (lambda row: has(row, field, word) != without) if word else None


def readings(word, without):
    whole = re.fullmatch("[0-9]+", word)
    day_range = days(word)
    tests = amounts(word) if whole or not day_range else None
    text = fold(word.encode("utf-8", "surrogateescape")) if whole or not (day_range or tests) else b""
    if not text and not day_range and tests is None:
        return None

    def holds(row):
        found = bool(text) and has(row, None, text)
        found = found or (row["amount"] is not None and any(test(row["amount"]) for test in tests or []))
        return found or bool(day_range and row["day"] and day_range[0] <= row["day"] <= day_range[1])
    return lambda row: holds(row) != without


# Books

def read_day(kind, value):
    if kind != b"text":
        return None
    found = re.fullmatch(rb"(\d{4})-(\d\d)-(\d\d)(?:[ T](\d\d):(\d\d):(\d\d))?", value)
    if not found or int(found.group(1)) < 100 or any(
            part and int(part) > most for part, most in zip(found.groups()[3:], (23, 59, 59))):
        return None
    try:
        return date(*(int(part) for part in found.groups()[:3]))
    except ValueError:
        return None


COLUMNS = ["Sequence", "SubSequence", "AccountID", "PostDate", "Description", "Amount", "Category", "PayeeName",
           "CheckID", "Year", "Period"]


def read_rows(path):
    book = sqlite3.connect(path)
    book.text_factory = bytes
    names = {}
    for number_, name in book.execute("SELECT AccountID, Description FROM Account ORDER BY rowid"):
        if number_ is not None:
            names.setdefault(number_, name)
    rows = []
    columns = ", ".join(f"{name}, typeof({name})" for name in COLUMNS)
    for identity, *cells in book.execute(f"SELECT rowid, {columns} FROM Trans"):
        value = dict(zip(COLUMNS, cells[0::2]))
        kind = dict(zip(COLUMNS, cells[1::2]))
        name = names.get(value["AccountID"])

        def whole(column, bits=32):
            fits = kind[column] == b"integer" and -(2**(bits - 1)) <= value[column] < 2**(bits - 1)
            return value[column] if fits else None
        rows.append({
            "identity": identity, "sequence": whole("Sequence"), "piece": whole("SubSequence"),
            "description": fold(value["Description"] or b""), "notes": fold(value["PayeeName"] or b""),
            "check": fold(value["CheckID"] or b""), "category": fold(value["Category"] or b""),
            "account": fold(name or b""), "amount": whole("Amount", 64),
            "wrong": kind["Amount"] not in (b"integer", b"null"), "day": read_day(kind["PostDate"], value["PostDate"]),
            "shown": {"sequence": whole("Sequence"), "subSequence": whole("SubSequence"), "account": name,
                      "accountID": value["AccountID"], "description": value["Description"],
                      "category": value["Category"], "notes": value["PayeeName"], "checkID": value["CheckID"],
                      "year": whole("Year"), "period": whole("Period")}})
    book.close()
    # Later days first, then larger numbers, smaller pieces, later rows; rows without a date at the end.
    rows.sort(key=lambda row: (-(row["day"] or date.min).toordinal(), -(row["sequence"] or 0), row["piece"] or 0,
                               -row["identity"]))
    return rows


WORDS = ["Corner", "GROCERY", "café", "Cafe\u0301", "Straße", "STRASSE", "ẞ", "İstanbul", "ısı", "ΣΊΣΥΦΟΣ", "σίσυφος",
         "Łódź", "Øre", "smørrebrød", "Þór", "œuvre", "ﬁnance", "①", "ＡＢＣ", "naïve", "e\u0301\u0323", "Dž", "ŉ", "Ω",
         "K", "ſ", "O’Brien", "O'Brien", "O´B", "–", "—", "a–b", "100%", "50_", "%", "_", "'", "''", '"', '12"', ";--",
         "a\u00a0b", "a\u202fb", "\u3000", "soft\u00adhyphen", "\u200b", "zero\u200dwidth", "\ufeff", "कि", "का", "กิน",
         "한글", "東京", "が", "か", "😀", "❤️", "\u0301", "\u0300x", "\x1f", "\x1fa", "\x7f", "\t", "a\nb", "\u0085",
         "1500", "2026", "1,234", "49.90", "-5", "x:y", "payee:", "account:z", "-minus", "ab", "abc", "bcd", "a", "b",
         "e", "ss", "s", "l", "o", "th", "REF", "Thank you", "\u037e", "ᾳ", "ῷ", "Å", "ǆ", "ﷺ", "㎏", "½", "…", "..", "((",
         "αι", "ι", "Ё", "Й", "й", "\U000e0101", "\U0001d400", "\u1e9e", "¨", "¸"]
BYTES = [b"\xff", b"\xc3", b"\xe2\x82", b"\x80", b"\xed\xa0\x80", b"\xc0\xaf", b"\xf0\x9f", b"\xf5", b"\xc3(",
         b"\xe0\x80\xa0", b"\xd0"]


def random_text(r):
    """Bytes of a text without the byte 0."""
    pieces = []
    for _ in range(r.choice([0, 1, 1, 2, 2, 3, 5])):
        kind = r.random()
        if kind < 0.85:
            piece = r.choice(WORDS).encode()
        elif kind < 0.92:
            piece = r.choice(BYTES)
        else:
            piece = chr(r.choice([r.randrange(0x20, 0x250), r.randrange(0x370, 0x530), r.randrange(0x1e00, 0x2000),
                                  r.randrange(0x2c60, 0x2c70)])).encode()
        pieces.append(piece)
    return r.choice([b" ", b" ", b"", b"  "]).join(pieces)


def random_cell(r):
    """A text cell: text, nothing, or a blob. Texts may have the byte 0 in them."""
    kind = r.random()
    if kind < 0.06:
        return None, False
    text = random_text(r)
    if kind < 0.09:
        text = text + b"\0" + random_text(r)
    return text, kind > 0.96


def random_amount(r):
    kind = r.random()
    if kind < 0.05:
        return None
    if kind < 0.08:
        return r.choice(["12,50", "x", "", b"\x01", 12.5, -0.25])
    if kind < 0.12:
        return r.choice([LEAST, MOST, LEAST + 1, MOST - 1, 2**62, -(2**62)])
    if kind < 0.5:
        return r.choice([0, 499000, -499000, 12345000, -12345000, 12340, -12340, 15000000, -15000000, 20260000,
                         -20260000, 1000000, -1000000, 200000, 120000, -150000, 1, -1])
    return r.randrange(-30000000, 30000000)


def random_date(r):
    kind = r.random()
    if kind < 0.05:
        return None
    if kind < 0.1:
        return r.choice(["soon", "2026-02-30", "2026-3-1", "", 5, 1.5, "2026-03-15x", "15.03.2026", b"2026-03-15"])
    day = date(2024, 1, 1) + timedelta(r.randrange(0, 1100))
    if kind < 0.2:
        day = r.choice([date(1900, 1, 1), date(2099, 12, 31), date(1899, 12, 31), date(2100, 1, 1), date(2026, 3, 15),
                        date(1, 1, 1).replace(year=150), date(9999, 12, 31), date(2024, 2, 29)])
    return day.isoformat() + r.choice(["", "", "", "", " 10:30:00", "T23:59:59", " 24:00:00"])


def make_book(r, clb, folder):
    subprocess.run([clb, "new", folder], check=True, stdout=subprocess.DEVNULL)
    path = folder + "/db/clb.mdb"
    book = sqlite3.connect(path)
    cast = "CAST(? AS TEXT)"
    accounts = [b"A1", b"A2", b"O'Hara", b"\xffacc", b"", "Ä".encode()]
    for number_ in accounts[:r.randrange(1, 7)] + [None] * r.randrange(2) + [b"A1"] * r.randrange(2):
        name, _ = random_cell(r)
        book.execute(f"INSERT INTO Account (AccountID, Description, Type) VALUES ({cast}, {cast}, 'Bank')",
                     (number_, name))
    for i in range(r.choice([0, 1, 5, 30, 80, 150, 300])):
        marks, values = [], []
        for _ in range(4):
            cell, blob = random_cell(r)
            marks.append("?" if blob else cast)
            values.append(cell)
        sequence = r.choice([i + 1, i + 1, i // 2, 7, None, 2**31, -3, "x"]) if r.random() < 0.2 else i + 1
        book.execute(
            "INSERT INTO Trans (Description, PayeeName, CheckID, Category, AccountID, Sequence, SubSequence, PostDate,"
            f" Amount, Year, Period) VALUES ({', '.join(marks)}, {cast}, ?, ?, ?, ?, ?, ?)",
            (*values, r.choice(accounts + [None, b"gone"]), sequence, r.choice([0, 0, 0, 1, 2, None]), random_date(r),
             random_amount(r), r.choice([2026, 2025, None, "y"]), r.choice([1, 12, None, 2**40])))
    book.execute("DELETE FROM Trans WHERE rowid % 7 = 0")
    book.commit()
    book.close()
    return path


def random_number(r):
    kind = r.random()
    if kind < 0.3:
        return "".join(r.choice("0123456789.,-+()€$'\u00a0") for _ in range(r.randrange(1, 7)))
    value = r.choice(["49.90", "49,90", "1,234.50", "1.234,50", "1'234.50", "1’234,5", "1\u202f234.50", "1,234", "1.234",
                      "1500", "2026", "100", "20", "12", "15", "0", "0.00", "5,-", "12,34,567.5", "12.345.678",
                      "922337203685477.5807", "922337203685477.5808", "0,123", ".5", ",5", "5.", "1.23456", "007",
                      "1.2340000", str(r.randrange(3000))])
    return r.choice(["", "", "", "€", "$", "-", "+", "−", "(", "-€", "€-", "EUR"]) + value + r.choice(
        ["", "", "", "", "", "-", ")", "€", "CR", "%", "–"])


def random_date_word(r):
    return r.choice(["2026", "2025", "2026-03", "2026-03-15", "2024-02-29", "2026-02-30", "2026-13", "2026-3", "1899",
                     "1900", "2099", "2100", "1899-12", "2024-12-31", "2026-03-1", "2025-0"])


def random_term(r, rows):
    kind = r.random()
    if kind < 0.35:
        word = random_text(r)
        if rows and r.random() < 0.7:
            source = r.choice(rows)["shown"][r.choice(["description", "notes", "category", "checkID", "account"])] or b""
            text = source.decode("utf-8", "surrogateescape")
            start = r.randrange(len(text) + 1)
            word = text[start:start + r.randrange(1, 6)].encode("utf-8", "surrogateescape")
            word = r.choice([word, word.decode("utf-8", "surrogateescape").upper().encode("utf-8", "surrogateescape")])
        if r.random() < 0.3:
            word = b'"' + word + r.choice([b'"', b'"', b'"', b""])
        return r.choice([b"", b"", b"", b"payee:", b"Notes:", b"category:", b"ACCOUNT:"]) + word
    if kind < 0.55:
        return random_number(r).encode()
    if kind < 0.65:
        return (r.choice([">", ">=", "<", "<=", "> ", "<= "]) + random_number(r)).encode()
    if kind < 0.75:
        return (r.choice([random_number(r), ""]) + ".." + r.choice([random_number(r), ""])).encode()
    if kind < 0.85:
        return random_date_word(r).encode()
    if kind < 0.93:
        return (r.choice([random_date_word(r), ""]) + ".." + r.choice([random_date_word(r), ""])).encode()
    return r.choice([b"-", b">", b"..", b"account:", b'""', b"+", b"--", b"- a", b"foo:bar"])


def random_query(r, rows):
    count = r.choice([1, 1, 1, 2, 2, 3])
    terms = [r.choice([b"", b"", b"", b"-"]) + random_term(r, rows) for _ in range(count)]
    return r.choice([b" ", b" ", b"  ", "\u3000".encode()]).join(terms).replace(b"\0", b"")


# The comparison

def is_utf8(text):
    try:
        text.decode()
        return True
    except UnicodeDecodeError:
        return False


def scaled_text(value):
    sign, value = ("-" if value < 0 else ""), abs(value)
    decimals = f"{value % 10000:04}".rstrip("0")
    return f"{sign}{value // 10000}" + ("." + decimals if decimals else "")


def fault_of(answer, found):
    """What is wrong with an answer; empty if it is right."""
    total = sum(row["amount"] or 0 for row in found)
    known = not any(row["wrong"] for row in found) and LEAST <= total <= MOST
    if answer["count"] != len(found):
        return f"count {answer['count']} instead of {len(found)}"
    if answer["sum"] != (scaled_text(total) if known else None):
        return f"sum {answer['sum']} instead of {total}"
    for hit, row in zip(answer["hits"], found, strict=True):
        expected = dict(row["shown"], amount=None if row["amount"] is None else scaled_text(row["amount"]).encode())
        for name, value in expected.items():
            if isinstance(value, bytes):
                if not is_utf8(value):
                    continue
                value = value.decode()
            if hit[name] != value:
                return f"{name} {hit[name]!r} instead of {value!r}"
        if (hit["date"] or "")[:10] != (row["day"].isoformat() if row["day"] else ""):
            return f"date {hit['date']} instead of {row['day']}"
    return ""


def check(clb, home, rows, query):
    """Asks clb; returns what is wrong with its answer, and how many rows there are. None: there is no condition."""
    terms = terms_of(query)
    done = subprocess.run([clb, "find", "--json", "--home", home, "--", query], capture_output=True, check=False)
    if not terms:
        return ("" if done.returncode == 2 else f"exit code {done.returncode} instead of 2"), None
    if done.returncode != 0:
        return f"exit code {done.returncode}: {done.stderr.decode(errors='replace')}", 0
    found = [row for row in rows if all(holds(row) for holds in terms)]
    return fault_of(json.loads(done.stdout), found), len(found)


def main():
    clb, count = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 1000
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else 1
    r = random.Random(seed)
    each, asked, hits, empty = 30, 0, 0, 0
    with ThreadPoolExecutor(2) as pool:
        while asked < count:
            with tempfile.TemporaryDirectory() as folder:
                home = folder + "/book"
                rows = read_rows(make_book(r, clb, home))
                queries = [random_query(r, rows) for _ in range(min(each, count - asked))]
                answers = pool.map(lambda query: check(clb, home, rows, query), queries)
                for query, (fault, found) in zip(queries, answers):
                    asked += 1
                    hits += found or 0
                    empty += found is None
                    if fault:
                        sys.exit(f"seed {seed}, query {asked} {query!r} ({query.decode(errors='replace')}): {fault}")
    print(f"{asked} queries, {empty} without a condition, {hits} hits: no difference")


if __name__ == "__main__":
    main()
