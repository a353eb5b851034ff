"""Holds the wizard against a bare window of its size, a long list against a short one, and Finish against the import
without a window, all in one run, and prints the ratios.

    /usr/bin/python3 bench/compare_wizard.py --programs build/release/bin
"""

import argparse
import ctypes
import json
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests" / "journey"))
from desktop import Desktop  # noqa: E402

EXAMPLE = pathlib.Path(__file__).parent.parent / "examples" / "portfolio.json"


class Watcher:
    """Looks at one pixel of the screen, again and again, until a window has painted it."""

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
        self.x11.XGetImage.restype = ctypes.c_void_p
        self.x11.XGetImage.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_int, ctypes.c_int, ctypes.c_uint,
                                       ctypes.c_uint, ctypes.c_ulong, ctypes.c_int]
        self.x11.XGetPixel.argtypes = [ctypes.c_void_p, ctypes.c_int, ctypes.c_int]
        self.x11.XGetPixel.restype = ctypes.c_ulong
        self.x11.XDestroyImage.argtypes = [ctypes.c_void_p]
        self.display = self.x11.XOpenDisplay(display.encode())
        self.root = self.x11.XDefaultRootWindow(self.display)

    def is_painted(self, x, y):
        every_plane, z_pixmap = 0xffffffff, 2
        image = self.x11.XGetImage(self.display, self.root, x, y, 1, 1, every_plane, z_pixmap)
        pixel = self.x11.XGetPixel(image, 0, 0) & 0xffffff
        self.x11.XDestroyImage(image)
        return pixel != 0


def start_once(desktop, watcher, program, place):
    """Seconds to the first painted window, and the most memory until then in kB."""
    started = time.monotonic()
    # Nobody reads the screen aloud here.
    plain = {name: value for name, value in desktop.environment.items()
             if name not in ("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "DBUS_SESSION_BUS_ADDRESS")}
    process = desktop.start([program], env=plain)
    try:
        while not watcher.is_painted(*place):
            if process.poll() is not None or time.monotonic() - started > 30:
                sys.exit(f"{program} shows no window")
            time.sleep(0.0005)
        seconds = time.monotonic() - started
        # What is loaded after the first picture counts as well.
        time.sleep(0.5)
        with open(f"/proc/{process.pid}/status") as status:
            most = next(int(line.split()[1]) for line in status if line.startswith("VmHWM"))
        return seconds, most
    finally:
        process.kill()
        process.wait()
        while watcher.is_painted(*place):
            time.sleep(0.001)


def compare_starts(programs, times):
    with Desktop() as desktop:
        watcher = Watcher(desktop.environment["DISPLAY"])
        folder = tempfile.mkdtemp(dir=desktop.folder)
        wizard = shutil.copy(programs / "wrenfield-wizard", folder)
        subprocess.run([programs / "hearthbook-create-database", "--format", "sqlite", os.path.join(folder, "property.mdb")], check=True)
        # In the middle of the screen, where the window manager puts both.
        place = 1280 // 2, 900 // 2
        results = {program: [] for program in (wizard, str(programs / "bare-window"))}
        for _ in range(times + 1):
            for program, measured in results.items():
                measured.append(start_once(desktop, watcher, program, place))
        # The first start of each only warms up.
        return [[statistics.median(each[which] for each in measured[1:]) for measured in results.values()]
                for which in (0, 1)]


def benchmarks(programs, brief):
    arguments = ["--benchmark_min_time=0.01"] if brief else ["--benchmark_repetitions=5",
                                                             "--benchmark_report_aggregates_only=true"]
    environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "WRENFIELD_PORTFOLIO": str(EXAMPLE)}
    result = subprocess.run([programs / "wizard-benchmarks", "--benchmark_format=json", *arguments], check=True,
                            stdout=subprocess.PIPE, env=environment)
    return {entry["run_name"]: entry["real_time"] for entry in json.loads(result.stdout)["benchmarks"]
            if entry["run_type"] != "aggregate" or entry["aggregate_name"] == "median"}


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--programs", type=pathlib.Path, required=True, help="folder of the built programs")
    parser.add_argument("--brief", action="store_true", help="only to see that it runs")
    options = parser.parse_args()
    programs = options.programs.resolve()
    (start, bare_start), (memory, bare_memory) = compare_starts(programs, 1 if options.brief else 15)
    times = benchmarks(programs, options.brief)
    print(f"start to the first picture   {start * 1000:8.0f} ms  bare window {bare_start * 1000:8.0f} ms  "
          f"ratio {start / bare_start:.2f} (at most 1.5)")
    print(f"most memory                  {memory:8.0f} kB  bare window {bare_memory:8.0f} kB  "
          f"ratio {memory / bare_memory:.2f} (at most 1.5)")
    few, many = times["PageChange/5"], times["PageChange/5000"]
    print(f"page change, 5,000 tenants   {many:8.2f} ms  5 tenants   {few:8.2f} ms  "
          f"more {many - few:.2f} ms (at most 16)")
    finish, batch = times["Finish/real_time"], times["BatchImport/real_time"]
    print(f"Finish                       {finish:8.1f} ms  batch       {batch:8.1f} ms  "
          f"ratio {finish / batch:.2f} (at most 1.05)")


if __name__ == "__main__":
    main()
