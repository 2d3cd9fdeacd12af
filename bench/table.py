"""Prints one run of the benchmark as a table: milliseconds, allocations a row, growth, and the ratios
that the panel has to keep."""

import json
import sys

SIZES = (1_000, 10_000, 100_000)

# name, work, yardstick, bar
RATIOS = (
    ("sort of 100k / std::sort of the same keys", "Sort", "PlainSort", 2.0),
    ("Restore of 10k rows / full build", "Restore", "Rebuild", 0.2),
    ("first build / QStandardItemModel", "FirstBuild", "StandardItemModelFill", None),
    ("first build / rows straight into the view", "FirstBuild", "PlainViewFill", None),
    ("rebuild / first build", "Rebuild", "FirstBuild", None),
    ("refresh / QStandardItemModel", "Refresh", "StandardItemModelFill", None),
)
GROWTH_BAR = 13.0


def read(path):
    with open(path, encoding="utf-8") as file:
        rows = json.load(file)["benchmarks"]
    times, allocations = {}, {}
    for row in rows:
        if row.get("aggregate_name", "median") != "median":
            continue
        name, size = row["run_name"].split("/")[:2]
        times[name, int(size)] = row["cpu_time"]
        allocations[name, int(size)] = row["allocations"]
    return times, allocations


def verdict(value, bar):
    if bar is None:
        return ""
    return f"at most {bar:g}: {'kept' if value <= bar else 'MISSED'}"


def main():
    times, allocations = read(sys.argv[1])
    names = list(dict.fromkeys(name for name, _ in times))
    print(f"{'':28}" + "".join(f"{size:>12,}" for size in SIZES) + "   ms")
    for name in names:
        values = "".join(f"{times[name, size]:12.2f}" for size in SIZES)
        growth = times[name, SIZES[2]] / times[name, SIZES[1]]
        print(
            f"{name:28}{values}   x{growth:.1f} from 10k, "
            f"{allocations[name, SIZES[2]]:.1f} allocations a row   {verdict(growth, GROWTH_BAR)}"
        )
    print()
    for title, work, yardstick, bar in RATIOS:
        if (work, SIZES[2]) not in times or (yardstick, SIZES[2]) not in times:
            continue
        ratio = times[work, SIZES[2]] / times[yardstick, SIZES[2]]
        print(f"{title:44}{ratio:8.2f}   {verdict(ratio, bar)}")


if __name__ == "__main__":
    main()
