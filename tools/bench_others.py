#!/usr/bin/env python3
"""Starts Quillbox and a collection manager that people use, Tellico, with the same 10,000 albums:
bench_others.py BUILD. Prints the rows of the benchmark's table; needs a display with a window manager."""

import csv
import os
import signal
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path
from xml.sax.saxutils import escape

ALBUMS, RUNS, WARM_UPS = 10_000, 7, 1
PATIENCE = 60  # seconds
TIME_GOAL, MEMORY_GOAL = 30, 6
SONGS = [f"Slow Waltz for a Long Winter, Part {number}" for number in range(1, 13)]
NAMESPACE = "http://periapsis.org/tellico/"


def albums():
    for number in range(1, ALBUMS + 1):
        yield f"The Harbour Street Quintet {number % 700}", f"Evenings by the Water, Volume {number}"


def make_collection(folder, build):
    text, path = folder / "albums.csv", folder / "albums.MCS"
    with text.open("w", newline="", encoding="utf-8") as out:
        rows = csv.writer(out)
        rows.writerow(["Artist", "Album", *(f"Song {number + 1}" for number in range(len(SONGS)))])
        rows.writerows([artist, album, *SONGS] for artist, album in albums())
    subprocess.run([build / "quillbox-cli", "import", path, text, "--new"], check=True,
                   stdout=subprocess.DEVNULL)
    return path


def make_document(folder):
    tracks = "".join(f"<track><column>{escape(song)}</column></track>" for song in SONGS)
    path = folder / "albums.xml"
    with path.open("w", encoding="utf-8") as out:
        out.write(f'<?xml version="1.0" encoding="UTF-8"?>\n<tellico xmlns="{NAMESPACE}" syntaxVersion="11">'
                  '<collection title="Albums" type="4"><fields><field name="_default"/></fields>\n')
        for number, (artist, album) in enumerate(albums(), 1):
            out.write(f'<entry id="{number}"><title>{escape(album)}</title><artists><artist>{escape(artist)}'
                      f"</artist></artists><tracks>{tracks}</tracks></entry>\n")
        out.write("</collection></tellico>\n")
    return path


def peak_mib(pid):
    for line in Path(f"/proc/{pid}/status").read_text().splitlines():
        if line.startswith("VmHWM:"):
            return int(line.split()[1]) / 1024
    raise RuntimeError(f"{pid} has no peak")


def until_it_ends(command, environment):
    """Milliseconds of a process, and MiB at its peak."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env=environment, stderr=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    if status != 0:
        sys.exit(f"{command[0]} failed.")
    return (time.monotonic() - begin) * 1000, usage.ru_maxrss / 1024


def until_shown(command, title, environment):
    """Milliseconds until a window of that title is on screen, and MiB at the peak until then."""
    begin = time.monotonic()
    process = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL,
                               stderr=subprocess.DEVNULL, start_new_session=True)
    search = ["xdotool", "search", "--onlyvisible", "--name", title]
    try:
        while not subprocess.run(search, capture_output=True, check=False).stdout:
            if process.poll() is not None or time.monotonic() - begin > PATIENCE:
                sys.exit(f"{command[0]} shows no window {title}.")
        return (time.monotonic() - begin) * 1000, peak_mib(process.pid)
    finally:
        os.killpg(process.pid, signal.SIGKILL)
        process.wait()


def row(case, ours, theirs, unit, goal):
    times = theirs / ours
    met = "met" if times >= goal else "MISSED"
    print(f"{case} | {ours:.1f} {unit} | {theirs:.0f} {unit} | 1 : {times:.1f} | 1 : {goal}, {met}")


def main():
    build = Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        environment = {**os.environ, "HOME": name, "XDG_CONFIG_HOME": name, "XDG_DATA_HOME": name,
                       "XDG_CACHE_HOME": name, "XDG_RUNTIME_DIR": name, "QT_QPA_PLATFORM": "xcb",
                       "QTWEBENGINE_DISABLE_SANDBOX": "1"}  # where root runs this
        quillbox = [build / "bench/bench_start_quillbox", make_collection(folder, build)]
        other = ["tellico", make_document(folder)]
        ours, theirs = [], []
        for _ in range(WARM_UPS + RUNS):
            ours.append(until_it_ends(quillbox, environment))
            theirs.append(until_shown(other, r"albums\.xml", environment))
        time_of, memory_of = (
            [statistics.median(figures[index] for figures in side[WARM_UPS:]) for side in (ours, theirs)]
            for index in (0, 1))
        row("start, 10,000", *time_of, "ms", TIME_GOAL)
        row("start, 10,000, memory", *memory_of, "MiB", MEMORY_GOAL)


if __name__ == "__main__":
    main()
