"""How classes are laid out, from the compiler's debug information."""

import re

ENTRY = re.compile(r"^ *<([0-9a-f]+)><([0-9a-f]+)>: Abbrev Number: \d+ \(DW_TAG_(\w+)\)")
ATTRIBUTE = re.compile(r"^ *<[0-9a-f]+> +DW_AT_(\w+) *: (.*)$")
# What readelf puts before a value: "(strp) (offset: 0x12): ", "(indirect string, offset: 0x12): ".
FORM = re.compile(r"^(\([a-z_0-9]+\) )?(\([^)]*offset: 0x[0-9a-f]+\): )?")
REFERENCE = re.compile(r"<0x([0-9a-f]+)>")
DEFAULTS = (", std::allocator<", ", std::char_traits<", ", std::default_delete<", ", std::less<")
QUALIFIERS = {"const_type": "const {}", "pointer_type": "{}*", "reference_type": "{}&"}


def plain(name):
    """A name without the template arguments that nobody writes."""
    for default in DEFAULTS:
        while (start := name.find(default)) >= 0:
            end, depth = start + len(default), 1
            while depth > 0:
                depth += {"<": 1, ">": -1}.get(name[end], 0)
                end += 1
            name = name[:start] + name[end:]
    name = re.sub(r" +>", ">", name).replace("__cxx11::", "")
    return name.replace("basic_string<char>", "string")


class Entry:
    """One entry of the debug information with the entries below it."""

    def __init__(self, tag, parent):
        self.tag, self.parent = tag, parent
        self.attributes, self.children = {}, []
        if parent is not None:
            parent.children.append(self)

    def get(self, name, default=""):
        return self.attributes.get(name, default)

    def number(self, name):
        """The last number of an attribute: "3 byte block: 10 0 (DW_OP_constu: 0)" is 0."""
        return int(re.findall(r"\d+", self.get(name, "0"))[-1])

    def below(self, tag):
        return [child for child in self.children if child.tag == tag]

    def full_name(self):
        around = self.parent.full_name() + "::" if self.parent and self.parent.get("name") else ""
        return around + self.get("name")


def parse(dump):
    """The top entry and all entries by their number."""
    top, by_number = Entry("top", None), {}
    open_entries, entry = [top], None
    for line in dump.splitlines():
        if match := ENTRY.match(line):
            depth = int(match[1], 16)
            del open_entries[depth + 1:]
            entry = Entry(match[3], open_entries[-1])
            open_entries.append(entry)
            by_number[match[2]] = entry
        elif entry is not None and (match := ATTRIBUTE.match(line)):
            entry.attributes[match[1]] = FORM.sub("", match[2].strip())
    # The compilation unit has a name, its file's, that is no part of any other.
    for unit in top.children:
        unit.attributes.pop("name", None)
    return top, by_number


def type_of(entry, by_number):
    """How a member's or parameter's type reads in the source."""
    if not entry.get("type"):
        return "void"
    kind = by_number[REFERENCE.match(entry.get("type"))[1]]
    if kind.tag in QUALIFIERS:
        return QUALIFIERS[kind.tag].format(type_of(kind, by_number))
    if kind.tag == "array_type":
        bounds = [str(bound.number("upper_bound") + 1) for bound in kind.below("subrange_type")]
        return type_of(kind, by_number) + f"[{']['.join(bounds)}]"
    in_std = kind.parent.get("name") in ("std", "__cxx11")
    if kind.tag == "typedef" and not in_std:
        return type_of(kind, by_number)
    return plain(("std::" if in_std else "") + kind.get("name"))


def describe(entry, by_number):
    lines = [entry.full_name()]
    for base in sorted(entry.below("inheritance"), key=lambda b: b.number("data_member_location")):
        lines.append(f"    base {type_of(base, by_number)}")
    for function in entry.below("subprogram"):
        if function.get("virtuality"):
            lines.append(slot_line(function, by_number))
    # Static members have no place, and the table's pointer is artificial.
    for member in entry.below("member"):
        if member.get("data_member_location") and not member.get("artificial"):
            lines.append(f"    member {member.get('name')}: {type_of(member, by_number)}")
    return lines


def slot_line(function, by_number):
    parameters = [p for p in function.below("formal_parameter") if not p.get("artificial")]
    types = ", ".join(type_of(parameter, by_number) for parameter in parameters)
    # A destructor takes two slots, and the compiler does not say which: those that are left.
    location = "vtable_elem_location"
    slot = function.get(location) and f" slot {function.number(location)}"
    return f"    virtual{slot} {function.get('name')}({types})"


def classes(dump, prefix):
    """Of every class whose full name starts with `prefix` and that has bases, virtual operations or
    members: its name and a line for each of those, in their order."""
    top, by_number = parse(dump)
    found = {}

    def visit(entry):
        for child in entry.children:
            if child.tag in ("class_type", "structure_type") and not child.get("declaration"):
                name = child.full_name()
                if child.get("name") and name.startswith(prefix):
                    found[name] = describe(child, by_number)
            visit(child)

    visit(top)
    return [found[name] for name in sorted(found) if len(found[name]) > 1]
