"""Prints one run of the benchmark as a table: milliseconds, allocations a row, growth, and the ratios
that the panel has to keep."""

import json
import sys

SIZES = (1_000, 10_000, 100_000)
LARGE = SIZES[2]
HUGE = 1_000_000

# name, what is compared, work, yardstick, bar
RATIOS = (
    ("sort / std::sort of the same keys", "ms", "Sort", "PlainSort", 2.0),
    ("restore / rebuild", "ms", "Restore", "Rebuild", 0.2),
    ("first build / QStandardItemModel", "ms", "FirstBuild", "StandardItemModelFill", 0.6),
    ("first build / rows straight into the view", "ms", "FirstBuild", "PlainViewFill", None),
    ("rebuild / first build", "ms", "Rebuild", "FirstBuild", 1.3),
    ("refresh / QStandardItemModel written again", "ms", "Refresh", "StandardItemModelRewrite", 0.4),
    ("refresh, nothing changed / refresh", "ms", "RefreshUnchanged", "Refresh", 0.001),
    ("edit of one cell / refresh", "ms", "CellEdit", "Refresh", 0.01),
    ("head edit over a tenth of the rows / refresh", "ms", "HeadEdit", "Refresh", 0.35),
    ("build after a rename / first build", "ms", "BuildAfterRename", "FirstBuild", None),
    ("1,000 rows selected by the document / refresh", "ms", "SelectByDocument", "Refresh", 0.1),
    ("memory of the panel / QStandardItemModel", "bytes", "FirstBuild", "StandardItemModelFill", 0.6),
)

# of a million rows against 100,000: name, work, bar
LARGE_RATIOS = (("edit of one cell", "CellEdit", 1.5),)

# of a group of 10k members: name, work, yardstick, bar
GROUP_RATIOS = (
    ("group row with its members / members alone", "GroupAndMembers", "GroupMembers", 1.5),
    ("edit of the group / refresh", "GroupEdit", "GroupRefresh", 2.0),
)

# by name: how many times the milliseconds at 10k those at 100k may be
GROWTHS = {
    "Sort": 13,
    "FirstBuild": 12,
    "Rebuild": 12,
    "Refresh": 12,
    "Store": 13,
    "Restore": 13,
    "WindowKey": 1.5,
    "WindowUndo": 1.5,
    "WindowPageDown": 1.5,
    "WindowCursorDown": 1.5,
}

# of 100,000 rows, what the user waits for: title, work, bar in milliseconds
WAITS = (("key to repaint", "WindowKey", 16),)

# by name: how many a row; a hundredth of one leaves room for a few a run
ALLOCATIONS = {
    "FirstBuild": 30,
    "Rebuild": 30,
    "Refresh": 0.01,
}


class Run:
    def __init__(self, paths):
        self.values = {}
        self.errors = []
        for path in paths:
            with open(path, encoding="utf-8") as file:
                self.take(json.load(file)["benchmarks"])
        self.names = sorted({name for name, size, _ in self.values if size == LARGE})

    def take(self, rows):
        for row in rows:
            if row.get("error_occurred"):
                self.errors.append(f"{row['run_name']}: {row['error_message']}")
            elif row["run_type"] == "iteration":
                name, size = row["run_name"].split("/")[:2]
                for what, key in (("ms", "real_time"), ("allocations",) * 2, ("bytes",) * 2):
                    self.add((name, int(size), what), row[key])

    def add(self, key, value):
        """Of repetitions the least counts: whatever else the machine does only adds to it."""
        self.values[key] = min(value, self.values.get(key, value))

    def get(self, name, size, what):
        return self.values.get((name, size, what))

    def ratio(self, what, work, yardstick, size=LARGE):
        values = self.get(work, size, what), self.get(yardstick, size, what)
        return values[0] / values[1] if None not in values else None


def verdict(value, bar):
    if bar is None:
        return ""
    return f"at most {bar:g}: {'kept' if value <= bar else 'MISSED'}"


def print_times(run):
    print(f"{'':26}" + "".join(f"{size:>11,}" for size in SIZES) + "   ms")
    for name in run.names:
        times = [run.get(name, size, "ms") for size in SIZES]
        if None in times:
            continue
        growth = times[2] / times[1]
        print(
            f"{name:26}"
            + "".join(f"{time:11.2f}" for time in times)
            + f"   x{growth:<5.1f} from 10k  {verdict(growth, GROWTHS.get(name))}"
        )


def print_memory(run):
    print(f"\n{'of 100,000 rows, a row':26}{'allocations':>11}{'bytes':>11}")
    for name in run.names:
        allocations = run.get(name, LARGE, "allocations")
        print(
            f"{name:26}{allocations:11.2f}{run.get(name, LARGE, 'bytes'):11.0f}   "
            + verdict(allocations, ALLOCATIONS.get(name))
        )


def print_ratio(title, ratio, bar):
    if ratio is not None:
        print(f"{title:48}{ratio:6.3f}   {verdict(ratio, bar)}")


def print_ratios(run):
    print(f"\n{'of 100,000 rows':48}{'ratio':>6}")
    for title, what, work, yardstick, bar in RATIOS:
        print_ratio(title, run.ratio(what, work, yardstick), bar)
    if run.get(LARGE_RATIOS[0][1], HUGE, "ms"):
        print("\nof a million rows, against 100,000")
        for title, work, bar in LARGE_RATIOS:
            print_ratio(title, run.get(work, HUGE, "ms") / run.get(work, LARGE, "ms"), bar)
    print(f"\n{'in a window with 100,000 rows':48}{'ms':>6}")
    for title, work, bar in WAITS:
        print_ratio(title, run.get(work, LARGE, "ms"), bar)
    print("\nof a group of 10,000 members")
    for title, work, yardstick, bar in GROUP_RATIOS:
        print_ratio(title, run.ratio("ms", work, yardstick, 10_000), bar)


def main():
    run = Run(sys.argv[1:])
    print_times(run)
    print_memory(run)
    print_ratios(run)
    for error in run.errors:
        print(error)
    return 1 if run.errors else 0


if __name__ == "__main__":
    sys.exit(main())
