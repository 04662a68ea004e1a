"""Counts what the reference knows of public declarations: all classes and nearly all other declarations must be described.

What only repeats the name of its declaration is no description. Enumerators count where the enumeration describes any of
them: the others speak for themselves.

Usage: countDescriptions.py REFERENCE_FOLDER HEADER_FOLDER..., or countDescriptions.py --self-test
"""

import pathlib
import re
import sys
import tempfile
import xml.etree.ElementTree as xml

LEAST = 0.95
OWNERS = {"class", "struct", "union", "namespace"}
WORD = re.compile(r"[A-Z]?[a-z]+|[A-Z]+(?![a-z])|[0-9]+")
EMPTY_WORDS = {"a", "an", "get", "is", "its", "m", "of", "set", "the", "this"}


def words_of(text):
    return {word.lower() for word in WORD.findall(text)}


def is_described(element, name):
    text = "".join("".join(element.find(part).itertext()) for part in ("briefdescription", "detaileddescription"))
    return bool(words_of(text) - words_of(name) - EMPTY_WORDS)


def is_public(member):
    """What nobody can call needs no contract, and every destructor has the same one."""
    gone = (member.findtext("argsstring") or "").endswith("=delete") or member.findtext("name").startswith("~")
    return member.get("prot") != "private" and not gone


def declarations_of(member):
    yield member, member.findtext("qualifiedname") or member.findtext("name")
    values = [(value, value.findtext("name")) for value in member.iter("enumvalue")]
    if any(is_described(*value) for value in values):
        yield from values


def declarations_in(reference):
    """Each public declaration as (header, is a class, name, is described)."""
    for page in sorted(pathlib.Path(reference, "xml").glob("*.xml")):
        owner = xml.parse(page).getroot().find("compounddef")
        if owner is None or owner.get("kind") not in OWNERS or owner.get("prot") == "private":
            continue
        if owner.get("kind") != "namespace":
            name = owner.findtext("compoundname")
            yield owner.find("location").get("file"), True, name, is_described(owner, name.rpartition("::")[2])
        for member in filter(is_public, owner.iter("memberdef")):
            header = member.find("location").get("file")
            for element, name in declarations_of(member):
                yield header, False, name, is_described(element, name.rpartition("::")[2])


def problems_of(declarations, folder):
    """How many declarations the folder's headers hold, and what is wrong with them."""
    found = [each for each in declarations if each[0].startswith(folder + "/")]
    bare = [each for each in found if not each[3]]
    problems = [f"{header}: the class {name} is not described" for header, is_class, name, _ in bare if is_class]
    if len(found) - len(bare) < LEAST * len(found):
        problems += [f"{header}: {name} is not described" for header, is_class, name, _ in bare if not is_class]
        problems.append(f"{folder}: {len(found) - len(bare)} of {len(found)} public declarations are described")
    if not found:
        problems.append(f"{folder}: the reference knows no declaration")
    return len(found), problems


DESCRIPTION = "<briefdescription><para>{}</para></briefdescription><detaileddescription/>"
MEMBER = '<memberdef kind="{}" prot="{}"><name>{}</name>{}<location file="inc/a.h"/>{}</memberdef>'


def self_test():
    def member(name, text, inside="", kind="function", prot="public"):
        return MEMBER.format(kind, prot, name, DESCRIPTION.format(text), inside)

    values = "".join(f"<enumvalue><name>{name}</name>{DESCRIPTION.format(text)}</enumvalue>" for name, text in [("One", ""), ("Two", "2")])
    members = member("m_size", "in bytes") + member("m_name", "its name") + member("~A", "") + member("hide", "", prot="private")
    members += member("Number", "Counts.", values, "enum") + member("Letter", "Reads.", values.replace("<para>2", "<para>"), "enum")
    page = f'<doxygen><compounddef kind="class" prot="public"><compoundname>n::A</compoundname>{members}'
    page += DESCRIPTION.format("An a.") + '<location file="inc/a.h"/></compounddef></doxygen>'
    with tempfile.TemporaryDirectory() as folder:
        (pathlib.Path(folder) / "xml").mkdir()
        (pathlib.Path(folder) / "xml" / "classA.xml").write_text(page)
        found = list(declarations_in(folder))
    bare = [name for _, _, name, described in found if not described]
    problems = [] if (len(found), bare) == (7, ["n::A", "m_name", "One"]) else [f"found {found}"]
    if problems_of(found, "inc")[1][-1:] != ["inc: 4 of 7 public declarations are described"] or not problems_of(found, "in")[1]:
        problems.append("too few descriptions, or none at all, are no problem")
    return problems


def main():
    if sys.argv[1] == "--self-test":
        problems = self_test()
    else:
        declarations = list(declarations_in(sys.argv[1]))
        results = [problems_of(declarations, folder) for folder in sys.argv[2:]]
        problems = [problem for _, folder_problems in results for problem in folder_problems]
        print(f"{sum(count for count, _ in results)} public declarations")
    print("\n".join(problems) or "public declarations are contracts")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
