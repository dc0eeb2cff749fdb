"""Runs within gdb, which has loaded the debuggee: what it prints of the library's objects is as expected.txt says, and
what Visual Studio is told to show of them in reportbase.natvis is to be had and the same.
"""

import os
import re
import xml.etree.ElementTree as ElementTree

import gdb

FOLDER = os.path.dirname(os.path.abspath(__file__))
NATVIS = os.environ["REPORTGENERATOR_TEST_NATVIS"]
NAMESPACE = "REPORTGENERATOR::"

failures = []


def expect(what, actual, expected):
    if actual != expected:
        failures.append(what)
        print("%s:\n  is       %s\n  expected %s" % (what, actual, expected))


def printed(expression, elements=None):
    words = "print %s -- %s" % ("-elements %d" % elements if elements else "", expression)
    try:
        return gdb.execute(words, to_string=True).rstrip("\n").split(" = ", 1)[1]
    except gdb.error as error:
        return str(error)


# --- What gdb prints


def test_printing():
    count = 0
    with open(os.path.join(FOLDER, "expected.txt"), encoding="utf-8") as file:
        for line in file:
            if line.startswith("#") or not line.strip():
                continue
            head, text = line.rstrip("\n").split(" => ", 1)
            option = re.match(r"-elements (\d+) ", head)
            for expression in head[option.end() if option else 0:].split(", "):
                expect(expression, printed(expression, int(option[1]) if option else None), text)
                count += 1
    expect("expressions", count > 20, True)


# --- What Visual Studio is told to show


# What the atomics of Visual Studio's library hold, and those of the one at hand.
ATOMICS = {"m_isMade._Storage._Value": "m_isMade._M_base._M_i", "m_data._Storage._Value": "m_data._M_b._M_p"}


def within(thing, expression):
    """The expression of an object's members as one of the object."""
    for theirs, ours in ATOMICS.items():
        expression = expression.replace(theirs, ours)
    return re.sub(r"(?<![\w.>])m_\w+", lambda match: "(%s).%s" % (thing, match[0]), expression)


def type_of(words):
    return gdb.execute("ptype " + words, to_string=True).rstrip()


def has_type(thing, expression):
    """Whether a compiler would take it, too: gdb takes a dot for an arrow and the other way round."""
    words = within(thing, expression)
    try:
        type_of(words)
        for access in re.finditer(r"\.|->", words):
            holder = words[:access.start()]
            is_whole = holder.count("(") == holder.count(")")
            if is_whole and type_of(holder).endswith("*") != (access[0] == "->"):
                return False
        return True
    except gdb.error:
        return False


def is_chosen(thing, element):
    condition = element.get("Condition")
    return condition is None or bool(gdb.parse_and_eval(within(thing, condition)))


def chosen_text(thing, kind):
    return next(element.text for element in kind.findall(tag("DisplayString")) if is_chosen(thing, element))


def tag(name):
    return "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}" + name


def look_at_object(kind, thing):
    """Each expression of the object is one, and set is what is set for gdb's printer."""
    for element in kind.iter():
        expressions = re.findall(r"{([^}]+)}", element.text or "")
        if element.tag == tag("Item"):
            expressions.append(element.text)
        for expression in expressions:
            expect("%s of %s" % (expression, thing), has_type(thing, expression), True)

    printer = gdb.default_visualizer(gdb.parse_and_eval(thing))
    fields = [name for name, shown in printer.children() if str(shown) != "unset"]
    items = [item.get("Name") for item in kind.iter(tag("Item")) if is_chosen(thing, item)]
    expect("items of " + thing, items, fields)
    is_without_record = printer.to_string() == "not initialized"
    expect("text of " + thing, chosen_text(thing, kind) == "not initialized", is_without_record)


def fits(thing, element):
    return has_type(thing, element.get("Condition").split()[0]) and is_chosen(thing, element)


def look_at_list(kind, thing, count, first):
    """Of what is for one version of Qt each, and for items of one's own or shared ones, one fits."""
    texts = [re.findall(r"{([^}]+)}", element.text)[0] for element in kind.findall(tag("DisplayString"))
             if fits(thing, element)]
    sizes = [text for text in texts if has_type(thing, text)]
    expect("texts of " + thing, len(sizes), 1)
    expect("size in the text of " + thing, int(gdb.parse_and_eval(within(thing, sizes[0]))), count)

    fitting = []
    for array in kind.iter(tag("ArrayItems")):
        size = array.find(tag("Size")).text
        pointer = array.find(tag("ValuePointer")).text.replace("$T1", NAMESPACE + "Coordinate")
        if fits(thing, array) and has_type(thing, size) and has_type(thing, pointer):
            fitting.append((int(gdb.parse_and_eval(within(thing, size))), printed("*" + within(thing, pointer))))
    expect("arrays of " + thing, fitting, [(count, first)])


def test_natvis():
    types = {element.get("Name"): element for element in ElementTree.parse(NATVIS).getroot().iter(tag("Type"))}
    things = {
        "Coordinate": ("half",),
        "Frequency": ("report.GetFrequency()", "untouchedFrequency"),
        "IFBandwidth": ("report.GetIFBandwidth()",),
        "Area": ("report.GetArea()", "copy.GetArea()"),
        "ReportBase": ("report", "copy", "untouched"),
    }
    expect("types", sorted(types), sorted(NAMESPACE + name for name in [*things, "ObjectList<*>"]))
    for name in things:
        for thing in things[name]:
            look_at_object(types[NAMESPACE + name], thing)
    for area in ("lake", "copy.GetArea()"):
        look_at_list(types[NAMESPACE + "ObjectList<*>"], area + ".m_record.m_data._M_b._M_p->coordinates", 3,
                     "{Longitude = 9.5, Latitude = 47.5}")


# --- All of it


def run():
    for setting in ("width 0", "startup-with-shell off", "disable-randomization off", "debuginfod enabled off"):
        gdb.execute("set " + setting)
    gdb.execute("break Stop")
    gdb.execute("run")
    gdb.execute("up")
    test_printing()
    test_natvis()


try:
    run()
except gdb.error as error:
    failures.append(str(error))
    print(error)
gdb.execute("quit %d" % (1 if failures else 0))
