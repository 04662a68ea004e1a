"""Every way in which a single entry of the rules can be wrong, each as (name, change to the rules)."""

import functools
from dataclasses import fields

from rules import Field, Row, Rules

# Alterations that change nothing that can be seen, each with the reason.
SILENT = {
    "rows[view][0] later": "a name has no message, so nobody sees when it is read",
    "rows[view][4] later": "no version has both keys",
    "rows[view][6] later": "no version has both keys",
    "rows[annotation][0] later": "a name has no message",
    "rows[annotation][5] later": "metadata have no message",
    "rows[raster][0] later": "a raster's name has no message",
    "rows[leader][0] later": "neither field has a message",
    "rows[measure][0] later": "each point costs the measure in silence",
    "rows[measure][1] later": "each point costs the measure in silence",
    "rows[measure][2] later": "an arrow direction has no message",
    "layouts[olderText][6] later": "no version has both bytes",
    "layouts[run][0] later": "no version has both texts",
    "layouts[run][1] later": "no version has both fields",
    "newest +1": "nothing came after 6.27",
}


def alterations():
    for field in fields(Rules):
        yield from altered_table(field.name, getattr(Rules(), field.name))


def altered_table(name, table):
    if isinstance(table, dict):
        for key, value in table.items():
            yield from altered_entry(name, key, value)
    elif isinstance(table, list):
        yield from altered_list(name, table)
    else:
        for step in steps(table):
            yield f"{name} {step:+g}", lambda rules, step=step: setattr(rules, name, table + step)


def steps(number):
    return (-0.02, -1) if isinstance(number, float) else (-1, 1)


def altered_entry(name, key, value):
    place = f"{name}[{key}]"
    if isinstance(value, list):
        yield from altered_rows(name, key, value)
    elif isinstance(value, int):
        for step in steps(value):
            yield f"{place} {step:+d}", lambda rules, step=step: put(rules, name, key, value + step)
    else:
        yield f"{place} other", lambda rules: put(rules, name, key, value + "_")


def altered_list(name, values):
    """Closed sets lose their order, lists of keys an entry."""
    if name == "view_keys":
        for index in range(len(values)):
            yield f"{name}[{index}] gone", lambda rules, index=index: getattr(rules, name).pop(index)
        return
    for index in range(len(values) - 1):
        yield f"{name}[{index}] later", lambda rules, index=index: swap(getattr(rules, name), index)


def altered_rows(name, key, rows):
    def row_list(rules):
        return getattr(rules, name)[key]

    for index, row in enumerate(rows):
        place = f"{name}[{key}][{index}]"
        yield f"{place} gone", lambda rules, index=index: row_list(rules).pop(index)
        if index + 1 < len(rows):
            yield f"{place} later", lambda rules, index=index: swap(row_list(rules), index)
        for attribute, value in altered_attributes(row):
            change = functools.partial(set_attribute, row_list, index, attribute, value)
            yield f"{place} {attribute}", change


def altered_attributes(row):
    """What is set in a row or field is taken away; a key becomes another one."""
    if isinstance(row, Row):
        yield "key", row.key + "_"
    for attribute in ("since", "until", "wrong", "absent", "costs", "needed"):
        value = getattr(row, attribute, None)
        if value:
            yield attribute, type(value)()
    if not isinstance(row, (Row, Field)):
        raise TypeError(f"no alteration is known for {row!r}")


def altered(change):
    """Sound rules with one change."""
    rules = Rules()
    change(rules)
    return rules


def set_attribute(row_list, index, attribute, value, rules):
    setattr(row_list(rules)[index], attribute, value)


def put(rules, name, key, value):
    getattr(rules, name)[key] = value


def swap(values, index):
    values[index], values[index + 1] = values[index + 1], values[index]
