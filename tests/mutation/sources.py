"""What is mutated: the folders of the product and the simulated controller, and the tests that speak about each."""
import functools
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
TREES = ("src", "bench/controller")

COMPUTING = "computing code"
ELSEWHERE = "elsewhere"
FLOORS = {COMPUTING: 0.90, ELSEWHERE: 0.85}

# What computes, or decides, without a widget.
COMPUTING_FOLDERS = re.compile(
    r"src/(?:math|link|room|coarse/axes|calibration/run|view/pose|fine/edits"
    r"|matching/(?:fit|rotations|order|points|tip|evaluation|state))(?:/|$)|bench/controller$")

# A folder's own test bears its name. Behind it, what looks from outside at the folder and those in it, the cheapest
# first. The order sweep does a tenth with the comma.
OUTER_TESTS = {
    "src/math": ["view_pose", "fine_edits"],
    "src/host": ["link", "module"],
    "src/link": ["link", "fine_edits", "calibration_run", "dialog"],
    "src/prompt": ["calibration_windows", "matching_dialog"],
    "src/editors": ["fine_panel"],
    "src/room": ["fine_panel", "view_canvas"],
    "src/coarse/axes": ["coarse_panel"],
    "src/calibration/run": ["calibration_windows"],
    "src/view/pose": ["view_canvas"],
    "src/fine/edits": ["fine_panel"],
    "src/matching/fit": ["matching_order", "matching_sweep.comma"],
    "src/matching/rotations": ["matching_order", "matching_sweep.comma"],
    "src/matching/order": ["matching_sweep.comma"],
    "src/matching/points": ["matching_files", "matching_lists"],
    "src/matching/tip": ["matching_dialog"],
    "src/matching/state": ["matching_dialog"],
    "src/matching/files": ["matching_lists", "matching_dialog"],
    "src/matching/lists": ["matching_dialog"],
    "src/matching/picture": ["matching_dialog"],
    "src/calibration/windows": ["calibration_loop"],
    "src/coarse/panel": ["dialog"],
    "src/view/canvas": ["view_without_opengl", "fine_panel"],
    "src/fine/panel": ["fine_without_opengl", "dialog"],
    "src/dialog": ["journeys"],
    "src/module": ["journeys"],
    "bench/controller": ["bench_link", "bench_server"],
}
# What looks at every window, and so at every form, and which of its functions goes through them by the Tab key.
WINDOW_TESTS = ["translations"]
TAB_FUNCTIONS = ("FocusTest::shouldVisitEveryControlInReadingOrder",)
# Go through a whole life once for each of its calls, and are asked last.
LONG_CLASSES = frozenset({"AngleToolCalibrationTest", "CalibrationLoopTest", "DestructionTest", "EnduranceTest",
                          "HiddenByTheHostTest", "HostLifeTest", "ModuleLifeTest", "RoomAdjustmentDlg2gTest"})


def folder_of(path):
    return pathlib.PurePath(path).parent.as_posix()


def group_of(folder):
    return COMPUTING if COMPUTING_FOLDERS.match(folder) else ELSEWHERE


def tests_of(path, known):
    """The names of the tests that can notice a change of the file, of those that are known; its folder's own first."""
    folder = folder_of(path)
    own = folder.removeprefix("src/").replace("/", "_")
    while own not in known and "_" in own:
        own = own.rpartition("_")[0]
    outer = [name for place in OUTER_TESTS if f"{folder}/".startswith(f"{place}/") for name in OUTER_TESTS[place]]
    names = [own, *outer, *(WINDOW_TESTS if path.endswith(".ui") else [])]
    return [name for name in dict.fromkeys(names) if name in known]


def files():
    """Every source, header and form, relative to the root. What is drawn or translated is no code."""
    found = (path for tree in TREES for path in (ROOT / tree).rglob("*") if path.suffix in (".cpp", ".h", ".ui"))
    return sorted(path.relative_to(ROOT).as_posix() for path in found)


@functools.lru_cache(maxsize=None)
def text_of(path):
    """Read once, so that the tree may change while the mutants are tried."""
    return (ROOT / path).read_text()
