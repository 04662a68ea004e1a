"""Reads the virtual tables of the built libraries and compares every slot with the stated order.

Usage: checkVirtualTables.py LIBRARY SCENE_GRAPH_LIBRARY
"""

import sys

import elf

# Standard types as the headers spell them.
SHORT_NAMES = [
    ("[abi:cxx11]", ""),
    ("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> >", "std::string"),
    (
        "std::map<std::string, qv::qvVariant, std::less<void>,"
        " qv::qvAllocator<std::pair<std::string const, qv::qvVariant> > >",
        "qv::qvVariant::qvVariantMapImpl",
    ),
    ("std::vector<std::string, std::allocator<std::string > >", "std::vector<std::string>"),
    ("std::vector<std::string, std::allocator<std::string> >", "std::vector<std::string>"),
    ("std::vector<qv::qvObject*, std::allocator<qv::qvObject*> >", "std::vector<qv::qvObject*>"),
]

OBJECT = "qv::qvObject"
ANNOTATION = "qvLegacy::qvAnnotationInterface"
TEXT = "qvLegacy::qvAnnotationText"
RASTER = "qvLegacy::qvAnnotationRaster"
VIEW = "qvLegacy::qvAnnotationView"
METADATA = "qvLegacy::qvAnnotationMetaData"
VISITOR = "qvLegacy::annotation::IterateOverAnnotationTreeFunctorInterface"
COUNTER = "qvLegacy::annotation::CountAnnotationFunctor"

LOAD = "load(qv::qvBaseStream&)"
LOAD_FROM_VARIANT = (
    "loadFromVariant(qv::qvVariant::qvVariantMapImpl const&, qv::qvStreamVersion const&, std::vector<std::string>&)"
)
START = "startProcessingAnnot(qvLegacy::qvAnnotationInterface::SubAnnot const&, bool)"
END = "endProcessingAnnot(qvLegacy::qvAnnotationInterface::SubAnnot const&, bool)"

# Class -> its slots in order: the class that implements the operation, and the operation. Slots 0 and 1 are the
# destructors of the class itself: the complete one, and the one that also frees the memory.
SLOTS = {
    OBJECT: [
        (OBJECT, "GetType() const"),
        (OBJECT, "IncrementReferences()"),
        (OBJECT, "DecrementReferences()"),
        (OBJECT, "GetReferences() const"),
        (OBJECT, "Load(qv::qvBaseStream&)"),
        (OBJECT, "PostLink()"),
        (OBJECT, "Save(qv::qvBaseStream&) const"),
        (OBJECT, "Equals(qv::qvRttiInterface const*) const"),
        (OBJECT, "Clone(qv::qvRttiInterface*&) const"),
        (OBJECT, "GetControllerQuantity() const"),
        (OBJECT, "GetController(int) const"),
        (OBJECT, "SetControllerQuantity(int)"),
        (OBJECT, "SetController(int, qv::qvController*)"),
        (OBJECT, "AttachController(qv::qvController*)"),
        (OBJECT, "DetachController(qv::qvController*)"),
        (OBJECT, "DetachAllControllers()"),
        (OBJECT, "GetObjectByName(std::string const&)"),
        (OBJECT, "GetAllObjectsByName(std::string const&, std::vector<qv::qvObject*>&)"),
        (OBJECT, "GetObjectByID(unsigned int)"),
        (OBJECT, "SetName(std::string const&)"),
        (OBJECT, "GetName() const"),
        (OBJECT, "debugObject(int) const"),
    ],
    ANNOTATION: [
        (OBJECT, "GetType() const"),
        (OBJECT, "IncrementReferences()"),
        (OBJECT, "DecrementReferences()"),
        (OBJECT, "GetReferences() const"),
        (OBJECT, "Load(qv::qvBaseStream&)"),
        (OBJECT, "PostLink()"),
        (OBJECT, "Save(qv::qvBaseStream&) const"),
        (OBJECT, "Equals(qv::qvRttiInterface const*) const"),
        (OBJECT, "Clone(qv::qvRttiInterface*&) const"),
        (OBJECT, "GetControllerQuantity() const"),
        (OBJECT, "GetController(int) const"),
        (OBJECT, "SetControllerQuantity(int)"),
        (OBJECT, "SetController(int, qv::qvController*)"),
        (OBJECT, "AttachController(qv::qvController*)"),
        (OBJECT, "DetachController(qv::qvController*)"),
        (OBJECT, "DetachAllControllers()"),
        (OBJECT, "GetObjectByName(std::string const&)"),
        (OBJECT, "GetAllObjectsByName(std::string const&, std::vector<qv::qvObject*>&)"),
        (OBJECT, "GetObjectByID(unsigned int)"),
        (ANNOTATION, "SetName(std::string const&)"),
        (ANNOTATION, "GetName() const"),
        (OBJECT, "debugObject(int) const"),
        (ANNOTATION, LOAD),
        (ANNOTATION, LOAD_FROM_VARIANT),
    ],
    VIEW: [
        (VIEW, "GetType() const"),
        (OBJECT, "IncrementReferences()"),
        (OBJECT, "DecrementReferences()"),
        (OBJECT, "GetReferences() const"),
        (VIEW, "Load(qv::qvBaseStream&)"),
        (VIEW, "PostLink()"),
        (VIEW, "Save(qv::qvBaseStream&) const"),
        (VIEW, "Equals(qv::qvRttiInterface const*) const"),
        (VIEW, "Clone(qv::qvRttiInterface*&) const"),
        (OBJECT, "GetControllerQuantity() const"),
        (OBJECT, "GetController(int) const"),
        (OBJECT, "SetControllerQuantity(int)"),
        (OBJECT, "SetController(int, qv::qvController*)"),
        (OBJECT, "AttachController(qv::qvController*)"),
        (OBJECT, "DetachController(qv::qvController*)"),
        (OBJECT, "DetachAllControllers()"),
        (VIEW, "GetObjectByName(std::string const&)"),
        (VIEW, "GetAllObjectsByName(std::string const&, std::vector<qv::qvObject*>&)"),
        (VIEW, "GetObjectByID(unsigned int)"),
        (VIEW, "SetName(std::string const&)"),
        (VIEW, "GetName() const"),
        (OBJECT, "debugObject(int) const"),
    ],
    VISITOR: [(VISITOR, START), (VISITOR, END)],
    COUNTER: [(COUNTER, START), (VISITOR, END)],
}
# The kinds of annotations replace the two readers, and add nothing.
SLOTS[TEXT] = SLOTS[ANNOTATION][:-2] + [(TEXT, LOAD), (TEXT, LOAD_FROM_VARIANT)]
SLOTS[RASTER] = SLOTS[ANNOTATION][:-2] + [(RASTER, LOAD), (RASTER, LOAD_FROM_VARIANT)]
# The metadata object replaces exactly what the view replaces.
SLOTS[METADATA] = [(METADATA if owner == VIEW else owner, operation) for owner, operation in SLOTS[VIEW]]

# Operations that the scene graph's own classes may implement on the way: a platform decides where.
INHERITED = {OBJECT, "qv::qvRttiInterface", "qv::qvMetadataInterface"}


def short(name):
    for long_form, short_form in SHORT_NAMES:
        name = name.replace(long_form, short_form)
    return name


def read_slots(library, class_name):
    """The words of the class's virtual table: offset to the top, type record, then the slots."""
    names = {short(d): s.name for s, d in zip(library.exported(), elf.demangle([s.name for s in library.exported()]))}
    table = library.table(names[f"vtable for {class_name}"])
    readable = [short(name) for name in elf.demangle([str(word) for word in table])]
    for slot, ending in ((2, "D1Ev"), (3, "D0Ev")):
        if not str(table[slot]).endswith(ending):
            readable[slot] = f"{table[slot]}, which is no {ending}"
    return readable


def expected_slots(class_name):
    destructor = f"{class_name}::~{class_name.split('::')[-1]}()"
    slots = [f"{owner}::{operation}" for owner, operation in SLOTS[class_name]]
    return ["0", f"typeinfo for {class_name}", destructor, destructor] + slots


def may_stand_for(have, want):
    inherited = want.startswith(f"{OBJECT}::")
    return have in {base + want[len(OBJECT) :] for base in INHERITED} if inherited else have == want


def differences(class_name, actual):
    expected = expected_slots(class_name)
    found = []
    if len(actual) != len(expected):
        found.append(f"{class_name} has {len(actual) - 2} slots, not {len(expected) - 2}")
    for index, (want, have) in enumerate(zip(expected, actual)):
        if not may_stand_for(have, want):
            found.append(f"{class_name} slot {index - 2}: '{have}' stands where '{want}' belongs")
    return found


def main():
    library, scene_graph = (elf.SharedLibrary(path) for path in sys.argv[1:3])
    problems = []
    for class_name in SLOTS:
        source = scene_graph if class_name == OBJECT else library
        problems += differences(class_name, read_slots(source, class_name))
    # Two swapped operations must not pass.
    swapped = expected_slots(VIEW)
    swapped[10], swapped[12] = swapped[12], swapped[10]
    if len(differences(VIEW, swapped)) != 2:
        problems.append("the comparison itself does not see swapped slots")
    print("\n".join(problems) or f"all slots of {len(SLOTS)} classes stand in order")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
