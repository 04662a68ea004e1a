"""Judges a coverage report of gcovr: prints what is not reached, and ends with 1 when that is too much."""

import json
import pathlib
import sys

REQUIRED_LINES = 98.0
REQUIRED_BRANCHES = 92.0
GATE = "Since::"


def share(reached, all_of_them):
    return 100.0 * reached / all_of_them if all_of_them else 100.0


def main():
    lines = lines_reached = branches = branches_reached = gates = 0
    closed_gates = []
    for file in json.loads(pathlib.Path(sys.argv[1]).read_text())["files"]:
        source = pathlib.Path(file["file"]).read_text().splitlines()
        for line in file["lines"]:
            if line.get("gcovr/noncode"):
                continue
            place, text = f"{file['file']}:{line['line_number']}", source[line["line_number"] - 1].strip()
            missed = sum(branch["count"] == 0 for branch in line["branches"])
            lines += 1
            lines_reached += line["count"] > 0
            branches += len(line["branches"])
            branches_reached += len(line["branches"]) - missed
            if line["count"] == 0:
                print(f"{place}: not reached: {text}")
            elif missed:
                print(f"{place}: {missed} of {len(line['branches'])} branches not taken: {text}")
            if GATE in text and line["branches"]:
                gates += 1
                if missed:
                    closed_gates.append(place)
    print(f"lines {share(lines_reached, lines):.1f} % of {lines}, "
          f"branches {share(branches_reached, branches):.1f} % of {branches}, "
          f"version gates on both sides {gates - len(closed_gates)} of {gates}")
    enough = share(lines_reached, lines) >= REQUIRED_LINES and share(branches_reached, branches) >= REQUIRED_BRANCHES
    return 0 if enough and gates and not closed_gates else 1


if __name__ == "__main__":
    sys.exit(main())
