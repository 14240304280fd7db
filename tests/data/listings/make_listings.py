"""Creates the listings that golden_listings_test.cpp compares the program's with.

To create them again, from any folder:

    python3 tests/data/listings/make_listings.py

It needs Python 3 and nothing else. It reads the contents of the collections in the folder above,
which lie beside them as JSON, and writes next to itself, for each collection,

    <collection>.sheets.txt   the sheets of the printer, each below a line "=== sheet 2 ==="
    <collection>.text.txt     the text file

and both for "long", a collection that the test makes by the rule of long_collection() below. They are
UTF-8 with a line feed at the end of a line, so that people can read them; the program's own lines
end in CR LF and are Windows-1252. Blanks at the end of a line belong to the listing: keep them.

The rules of a listing are written down here a second time, on purpose: nothing here is taken from
the program, so that a rule that is broken there shows. Run it only when a rule is changed, and read
what has changed before it is committed.
"""

import datetime
import json
import pathlib

HERE = pathlib.Path(__file__).resolve().parent
PROGRAM = "Quillbox V1.71  "

PAGE_HEIGHT = 756  # points; the font's 10 points are the height of a line
LINES_PER_PAGE = round(PAGE_HEIGHT / 10 - 5)
PAGE_CHARACTERS = 5520  # what a page holds; no page of these collections may come near it

MUSIC_MEDIA = ["Compact Disc", "Cassette Tape", "Digital Audio Tape", "Record Album", "8-Track",
               "4-Track", "Reel To Reel Tape", "Cart"]
MUSIC_GENRES = ["Alternative", "Big Band/Swing", "Cast Recordings", "Classic Rock", "Classical",
                "Country", "Folk", "Hard Rock", "Heavy Metal", "Oldies", "Parody",
                "Popular/Top 40", "Rap", "Rock", "Soundtrack"]
VIDEO_MEDIA = ["VideoCassette", "LaserDisc", "32MM Film", "16MM Film", "Super 8MM Film",
               "8MM Film", "Video For Windows (AVI File)", "QuickTime (MOV Files)"]
SOFTWARE_MEDIA = ['3.5" Floppy Disk', '5.25" Floppy Disk', "CD-ROM", "ZIP Disk", "WORM Disk"]
BOOK_GENRES = ["Fantasy", "Horror", "Periodical", "Reference", "Romance", "Science Fiction"]
BOOK_MEDIA = ["Audio Books", "Brail", "Hardcover", "Paperback"]


# --- values


def stored(value):
    """The characters of a text field, without its padding."""
    if isinstance(value, dict):
        return "\0" * value["nul"]
    return value.rstrip(" ")


def text(value):
    return stored(value).split("\0")[0].rstrip(" ")


def number(value):
    return str(value) if value < 0 else " " + str(value)


def money(value):
    amount = round(value * 10000)
    sign = "-" if amount < 0 else " "
    digits = "%d.%04d" % divmod(abs(amount), 10000)
    return sign + digits.rstrip("0").rstrip(".")


def flag(value):
    return "Yes" if value == 1 else "No"


def choice(entries):
    return lambda value: entries[value] if 0 <= value < len(entries) else ""


def date(value):
    """Month, day and a two-digit year, followed by the time of day unless it is midnight."""
    moment = datetime.datetime(1899, 12, 30) + datetime.timedelta(seconds=round(value * 86400))
    assert 1930 <= moment.year <= 2029
    shown = "%d/%d/%02d" % (moment.month, moment.day, moment.year % 100)
    if moment.time() == datetime.time():
        return shown
    assert moment.second == 0
    return shown + " %d:%02d" % (moment.hour, moment.minute)


def size(value):
    assert value == int(value)
    return "%d Bytes" % value


# --- the kinds: lines are a label, the name of a field and what its value is shown as


class Kind:
    def __init__(self, marker, page, file, lines, group=None):
        self.marker, self.page, self.file, self.lines = marker, page, file, lines
        self.group = group  # heading, label, name of the field


def media_files(heading):
    return Kind("DELETED", "Wave/Mid/Graphic", heading + " File",
                [("FileName", "FileName", text), ("File Path", "FilePath", text),
                 ("File Size", "FileSize", size), ("Description", "Description", text)])


KINDS = {
    "MCS": Kind("DETELED", "Music", "Music",
                [("Artist", "Artist", text), ("Album Title", "Album", text),
                 ("Record Company", "RecordCo", text), ("Bar Code/ID", "BarCode", text),
                 ("Aquisition Date", "AquireDate", text), ("Aquisition Cost", "AquireCost", money),
                 ("Current Price", "CurrCost", money),
                 ("Media Type", "MediaType", choice(MUSIC_MEDIA)), ("Notes", "Notes", text),
                 ("Has Booklet", "HasBook", flag), ("Genre", "Genre", choice(MUSIC_GENRES))],
                ("Song List", "Song ", "Songs")),
    "VCS": Kind("DELETED", "Video", "Music",  # so headed, always
                [("Label Text", "Label", text), ("Publisher", "Publisher", text),
                 ("Purchase Price", "PurPrice", money), ("Current Price", "CurrPrice", money),
                 ("Media Type", "MediaType", choice(VIDEO_MEDIA)),
                 ("Aquisition Date", "AquireDate", date), ("Notes", "Notes", text),
                 ("Commercial", "Commercial", flag)],
                ("Movie List", "Movie ", "Movies")),
    "SCS": Kind("DELETED", "Software", "Software",
                [("Disk Label", "DiskLabel", text), ("Publisher", "Publisher", text),
                 ("Purchase Price", "PurPrice", number), ("Current Price", "CurrPrice", number),
                 ("Media Type", "MediaType", choice(SOFTWARE_MEDIA)), ("Notes", "Notes", text),
                 ("Commercial", "Commercial", flag), ("CD Required", "CDRequired", flag),
                 ("Shareware", "Shareware", flag)],
                ("Program List", "Program ", "Programs")),
    "CCS": Kind("DETELED", "Comic", "Comic",  # not the marker of this kind
                [("Comic Name", "BookTitle", text), ("Comic Title", "ComicTitle", text),
                 ("Publisher", "Publisher", text), ("Aquisition Date", "AquireDate", text),
                 ("Purchase Price", "PurPrice", money), ("Current Price", "CurrPrice", money),
                 ("Artists", "Artists", text), ("Hero(es)", "Heroes", text),
                 ("Villain(s)", "Villains", text), ("First Appearance", "FirstApp", text),
                 ("Bagged", "Bagged", flag), ("Boarded", "Boarded", flag), ("Notes", None, None)],
                (None, "Note  ", "Notes")),
    "BCS": Kind("DELETED", "Book", "Book",
                [("Author", "Author", text), ("Book Title", "Title", text),
                 ("Publisher", "Publisher", text), ("Genre", "Genre", choice(BOOK_GENRES)),
                 ("Media Type", "MediaType", choice(BOOK_MEDIA)), ("Notes", "Notes", text)]),
    "WCS": media_files("WAV"),
    "ICS": media_files("MIDI"),
    "GCS": media_files("Graphic"),
    "MPS": media_files("MP3"),
}


# --- blocks


def labelled(label, value):
    return label[:18].ljust(18) + ": " + value


def loan(item):
    if item.get("CurrLoaned") != 1:
        return []
    lines = [" " * 31 + "Currently Loaned!", labelled("Borrower", text(item["Borrower"])),
             labelled("Loaned On", text(item["DateLoaned"])),
             labelled("Due Back On", text(item["DueDate"]))]
    if item["HasBook"] == 1:
        lines.append(labelled("Book Loaned", flag(item["BookLoaned"])))
    return lines


def group(kind, item):
    if kind.group is None:
        return []
    heading, label, name = kind.group
    entries = [(k, entry) for k, entry in enumerate(item[name], 1)
               if stored(entry) != "" and not stored(entry).startswith("\0")]
    lines = [labelled(label + str(k), text(entry)) for k, entry in entries]
    if heading is not None and entries:
        lines.insert(0, " " * 35 + heading)
    return lines


def block(kind, item, position, count):
    first_field = kind.lines[0][1]
    if stored(item[first_field]) == kind.marker:
        return ["Record #%s Has been deleted." % number(position)]
    lines = [labelled("Record #", number(position) + " of" + number(count))]
    for label, name, shown in kind.lines:
        lines.append(labelled(label, "" if name is None else shown(item[name])))
    return lines + loan(item) + group(kind, item) + [" " * 5 + "-" * 70]


# --- pages


def pages(kind, items, for_printer):
    """The lines of each page. A block goes to the next page as a whole; the page after one that is
    exactly full starts with the line count that it had before its last block."""

    def heading(page):
        return PROGRAM + " - %s Collection Printout Page #" % kind.page + number(page)

    made = [[heading(1)]]
    held = 0

    def next_page():
        made.append([" " * 5 + heading(len(made) + 1)] if for_printer else [])

    for position, item in enumerate(items, 1):
        lines = block(kind, item, position, len(items))
        indented = [" " * 5 + line for line in lines]
        if held + len(lines) > LINES_PER_PAGE:
            next_page()
            made[-1] += indented
            held = len(lines)
        elif held + len(lines) == LINES_PER_PAGE:
            made[-1] += indented
            next_page()
        else:
            made[-1] += indented
            held += len(lines)
    for page in made:
        assert sum(len(line) + 2 for line in page) < PAGE_CHARACTERS
    return made


def sheets(kind, items):
    """A printed page has no blanks around it, so that a heading is not indented."""
    return ["".join(line + "\n" for line in page).strip(" ") for page in pages(kind, items, True)]


def text_file(kind, items):
    heading = PROGRAM + " - %s Collection" % kind.file
    whole = [heading + "\n"]
    for page in pages(kind, items, False):
        whole.append("".join(line + "\n" for line in page).rstrip(" ") + "\n")
    return "".join(whole)


# --- collections


def long_collection():
    """Enough albums for many pages: one slot in six is empty, every third album is lent, every
    thirteenth is deleted. Choices range from one below to one past their lists."""
    items = []
    for n in range(1, 41):
        songs = ["Song %d of album %d" % (k, n) if k <= n * 6 % 41 and k % 6 != 0 else ""
                 for k in range(1, 41)]
        items.append({
            "Artist": "DETELED" if n % 13 == 0 else "Artist %d" % n,
            "Album": "Café %d" % n,
            "RecordCo": "Label %d" % n,
            "Songs": songs,
            "AquireDate": "%d/1/2001" % n,
            "AquireCost": n * 1.25,
            "CurrCost": n * -0.0625,
            "HasBook": n % 2,
            "MediaType": n % 10 - 1,
            "CurrLoaned": 1 if n % 3 == 0 else 0,
            "Borrower": "Friend %d" % n,
            "DateLoaned": "1/%d/2002" % n,
            "DueDate": "2/%d/2002" % n,
            "BookLoaned": 1 if n % 9 == 0 else 0,
            "Notes": "Shelf %d" % n,
            "Genre": n % 17 - 1,
            "BarCode": "%012d" % n,
        })
    return items


def write(name, kind, items):
    def put(ending, content):
        (HERE / (name + ending)).write_bytes(content.encode("utf-8"))

    put(".sheets.txt", "".join("=== sheet %d ===\n%s" % numbered
                               for numbered in enumerate(sheets(kind, items), 1)))
    put(".text.txt", text_file(kind, items))


def main():
    # Without those that the music editor refuses, or converts before it can print them.
    left_out = {"albums-type4.MCS", "type1.MCS"}
    for path in sorted(HERE.parent.glob("*.json")):
        contents = json.loads(path.read_text(encoding="utf-8"))
        name = contents["file"]
        # Nothing is printed of an empty collection.
        if name not in left_out and contents["items"]:
            write(name, KINDS[name.rsplit(".")[-1]], contents["items"])
    music = KINDS["MCS"]
    assert any(len(page) == 1 + LINES_PER_PAGE for page in pages(music, long_collection(), True))
    write("long", music, long_collection())


if __name__ == "__main__":
    main()
