"""The small faults that are put into the library's sources: where they can stand, and sources that have all of them.

Every fault stands in the code behind a question for its number, so that the library is compiled once: `MUTANT(7)` is true
when the program was told to have fault 7.
"""

import re
from dataclasses import dataclass, field

from clang.cindex import CursorKind, TypeKind

HEADER = """#ifndef MUTANTS_H
#define MUTANTS_H
#include <cstdlib>
#include <cstdio>
namespace mutants {
constexpr int LAST = %d;
/// Which fault is on, and a file for the numbers of those that were come by.
struct State
{
    State()
    {
        const char* const number = std::getenv("MUTANT");
        active = number != nullptr ? std::atoi(number) : -1;
        path = std::getenv("MUTANTS_REACHED");
    }
    ~State()
    {
        std::FILE* const file = path != nullptr ? std::fopen(path, "a") : nullptr;
        for (int i = 0; file != nullptr && i <= LAST; ++i) {
            if (reached[i])
                std::fprintf(file, "%%d\\n", i);
        }
        if (file != nullptr)
            std::fclose(file);
    }
    int active;
    const char* path;
    bool reached[LAST + 1] = {};
};
State& TheState();
inline bool Is(int number)
{
    static State& state = TheState();
    state.reached[number] = true;
    return state.active == number;
}
} // namespace mutants
#define MUTANT(number) (!__builtin_is_constant_evaluated() && mutants::Is(number))
namespace mutants {
#define MUTANT_OPERATOR(name, op, other) \\
    template <class A, class B> \\
    constexpr auto name(int number, A&& a, B&& b) { return MUTANT(number) ? (a other b) : (a op b); }
MUTANT_OPERATOR(Less, <, <=)
MUTANT_OPERATOR(LessEqual, <=, <)
MUTANT_OPERATOR(Greater, >, >=)
MUTANT_OPERATOR(GreaterEqual, >=, >)
MUTANT_OPERATOR(Plus, +, -)
MUTANT_OPERATOR(Minus, -, +)
MUTANT_OPERATOR(Times, *, /)
MUTANT_OPERATOR(By, /, *)
MUTANT_OPERATOR(Remainder, %%, /)
MUTANT_OPERATOR(And, &, |)
MUTANT_OPERATOR(Or, |, &)
} // namespace mutants
#endif
"""

SOURCE = '#include "mutants.h"\nmutants::State& mutants::TheState() { static State state; return state; }\n'

# Operators that a template of the header exchanges for the other one.
EXCHANGED = {
    "<": ("Less", "<="), "<=": ("LessEqual", "<"), ">": ("Greater", ">="), ">=": ("GreaterEqual", ">"),
    "+": ("Plus", "-"), "-": ("Minus", "+"), "*": ("Times", "/"), "/": ("By", "*"), "%": ("Remainder", "/"),
    "&": ("And", "|"), "|": ("Or", "&"),
}
ASSIGNMENTS = {"+=": "-=", "-=": "+=", "|=": "&=", "&=": "|="}
FUNCTIONS = (CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR, CursorKind.DESTRUCTOR,
             CursorKind.FUNCTION_TEMPLATE, CursorKind.CONVERSION_FUNCTION)


@dataclass
class Change:
    """A place in a file and what it becomes: text with {n} for the change's number and pieces of the old text, given by
    their places, between."""

    start: int
    end: int
    what: str
    pieces: list = field(default_factory=list)
    number: int = -1
    line: int = 0


class Finder:
    """The changes that can be made in the functions of some files."""

    def __init__(self, root):
        self.root = str(root)
        self.texts = {}
        self.changes = {}  # by file, then by place and kind
        self.seen = set()

    def text(self, path):
        if path not in self.texts:
            with open(path, "rb") as file:
                self.texts[path] = file.read()
        return self.texts[path]

    def visit(self, cursor):
        for child in cursor.get_children():
            file = child.location.file
            if file is None or not file.name.startswith(self.root):
                continue
            if child.kind in FUNCTIONS:
                key = (file.name, child.extent.start.offset)
                if key in self.seen:
                    continue
                self.seen.add(key)
                for part in child.get_children():
                    if part.kind == CursorKind.COMPOUND_STMT:
                        self.statement(file.name, part, returns_bool(child))
            elif child.kind in (CursorKind.NAMESPACE, CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL,
                                CursorKind.CLASS_TEMPLATE, CursorKind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION,
                                CursorKind.UNEXPOSED_DECL, CursorKind.LINKAGE_SPEC):
                self.visit(child)

    def add(self, path, start, end, what, pieces):
        line = self.text(path).count(b"\n", 0, start)
        self.changes.setdefault(path, {}).setdefault((start, end, what), Change(start, end, what, pieces, line=line))

    def source(self, path, start, end):
        return self.text(path)[start:end].decode()

    # --- Walking

    def statement(self, path, cursor, is_bool, in_block=False):
        kind = cursor.kind
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        children = list(cursor.get_children())
        if kind == CursorKind.DECL_STMT and re.match(r"(static )?constexpr\b|static_assert|using ", self.source(path, start, end)):
            return
        if kind == CursorKind.IF_STMT:
            if re.match(r"if\s+constexpr", self.source(path, start, end)):
                children = children[1:]
            elif not any(c.kind in (CursorKind.DECL_STMT, CursorKind.VAR_DECL) for c in children[:-1]):
                self.condition(path, children[0])
        if kind == CursorKind.CONDITIONAL_OPERATOR:
            self.condition(path, children[0])
        if in_block:
            self.removal(path, cursor, start, end)
        if kind == CursorKind.RETURN_STMT and is_bool and children:
            inner = children[0].extent.start.offset, children[0].extent.end.offset
            self.add(path, *inner, "return the contrary", ["(MUTANT({n}) != static_cast<bool>(", inner, "))"])
        if kind == CursorKind.CASE_STMT:
            children = children[1:]
        if kind == CursorKind.LAMBDA_EXPR:
            is_bool = False
        if kind in (CursorKind.BINARY_OPERATOR, CursorKind.CALL_EXPR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR):
            self.operator(path, cursor, children, start, end)
        elif kind == CursorKind.UNARY_OPERATOR and children:
            self.unary(path, children[0], start, end)
        elif kind in (CursorKind.INTEGER_LITERAL, CursorKind.CXX_BOOL_LITERAL_EXPR):
            self.literal(path, start, end)
        for child in children:
            if child.location.file is not None and child.location.file.name == path:
                self.statement(path, child, is_bool, kind in (CursorKind.COMPOUND_STMT, CursorKind.CASE_STMT,
                                                              CursorKind.DEFAULT_STMT))

    def condition(self, path, cursor):
        inner = cursor.extent.start.offset, cursor.extent.end.offset
        self.add(path, *inner, "always true", ["(MUTANT({n}) || static_cast<bool>(", inner, "))"])
        self.add(path, *inner, "never true", ["(!MUTANT({n}) && static_cast<bool>(", inner, "))"])

    def removal(self, path, cursor, start, end):
        text = self.text(path)
        if text[end:end + 1] != b";":
            return
        if cursor.kind in (CursorKind.BREAK_STMT, CursorKind.CONTINUE_STMT):
            self.add(path, start, end, "leave out", ["if (!MUTANT({n})) ", (start, end)])
        elif cursor.kind in (CursorKind.CALL_EXPR, CursorKind.BINARY_OPERATOR, CursorKind.COMPOUND_ASSIGNMENT_OPERATOR,
                             CursorKind.CXX_THROW_EXPR, CursorKind.UNARY_OPERATOR, CursorKind.UNEXPOSED_EXPR):
            if not self.source(path, start, end).startswith(("static_cast<void>", "Q_", "(void)")):
                self.add(path, start, end, "leave out", ["(MUTANT({n}) ? 0 : (void(", (start, end), "), 0))"])

    def operator(self, path, cursor, children, start, end):
        # An operator that is a function is a child of its own.
        operands = [c for c in children if not (cursor.kind == CursorKind.CALL_EXPR and c.spelling.startswith("operator"))]
        if len(operands) != 2 or (cursor.kind == CursorKind.CALL_EXPR and not cursor.spelling.startswith("operator")):
            return
        left = operands[0].extent.start.offset, operands[0].extent.end.offset
        right = operands[1].extent.start.offset, operands[1].extent.end.offset
        if left[0] != start or right[1] != end or left[1] >= right[0]:
            return
        token = self.source(path, left[1], right[0]).strip()
        if token in "+-" and any(c.type.get_canonical().kind == TypeKind.POINTER for c in operands):
            return
        if token in ("==", "!="):
            other = "!=" if token == "==" else "=="
            self.add(path, start, end, f"{token} to {other}", ["(MUTANT({n}) != (", (start, end), "))"])
        elif token == "&&":
            self.add(path, start, end, "&& to ||", ["((static_cast<bool>(", left, ") != MUTANT({n})) ? static_cast<bool>(",
                                                   right, ") : MUTANT({n}))"])
        elif token == "||":
            self.add(path, start, end, "|| to &&", ["((static_cast<bool>(", left, ") != MUTANT({n})) ? !MUTANT({n}) : static_cast<bool>(",
                                                   right, "))"])
        elif token in EXCHANGED:
            name, other = EXCHANGED[token]
            self.add(path, start, end, f"{token} to {other}", [f"mutants::{name}({{n}}, ", left, ", ", right, ")"])
        elif token in ASSIGNMENTS:
            self.add(path, start, end, f"{token} to {ASSIGNMENTS[token]}",
                     ["(MUTANT({n}) ? ", left, f" {ASSIGNMENTS[token]} ", right, " : ", left, f" {token} ", right, ")"])

    def unary(self, path, operand, start, end):
        inner = operand.extent.start.offset, operand.extent.end.offset
        token = self.source(path, start, inner[0]).strip()
        if token == "!":
            self.add(path, start, end, "without !", ["(MUTANT({n}) != static_cast<bool>(", (start, end), "))"])
        elif token == "-":
            self.add(path, start, end, "without -", ["(MUTANT({n}) ? ", inner, " : ", (start, end), ")"])
        elif token in ("++", "--"):
            other = "--" if token == "++" else "++"
            self.add(path, start, end, f"{token} to {other}", ["(MUTANT({n}) ? ", other, inner, " : ", (start, end), ")"])

    def literal(self, path, start, end):
        text = self.source(path, start, end)
        if text in ("true", "false"):
            self.add(path, start, end, f"not {text}", [f"(MUTANT({{n}}) != {text})"])
        elif re.fullmatch(r"\d+U?", text):
            other = "0" if text.rstrip("U") == "1" else str(int(text.rstrip("U")) + 1)
            self.add(path, start, end, f"{text} to {other}", [f"(MUTANT({{n}}) ? {other} : {text})"])


def returns_bool(function):
    return function.result_type.kind == TypeKind.BOOL


# --- Writing


class Writer:
    """A file with changes in it, and where they stand in what is written."""

    def __init__(self, text, changes):
        self.text = text
        # What spans more comes first; of the same place that which gives no value, and last what takes it apart.
        self.changes = sorted(changes, key=lambda c: (c.start, -c.end, (c.start, c.end) not in c.pieces,
                                                      c.what != "leave out"))
        self.out = []
        self.length = 0
        self.places = []  # (start, end, number) in what is written

    def written(self):
        self._range(0, len(self.text), self.changes)
        return b"".join(self.out)

    def _emit(self, piece):
        self.out.append(piece)
        self.length += len(piece)

    def _range(self, start, end, changes):
        index = 0
        while index < len(changes):
            change = changes[index]
            inner = [c for c in changes[index + 1:] if c.start >= change.start and c.end <= change.end]
            if change.start < start or change.end > end:
                index += 1
                continue
            self._emit(self.text[start:change.start])
            self._change(change, inner)
            start = change.end
            index += 1
            while index < len(changes) and changes[index].start < change.end:
                index += 1
        self._emit(self.text[start:end])

    def _change(self, change, inner):
        begin = self.length
        for piece in change.pieces:
            if isinstance(piece, tuple):
                self._range(*piece, [c for c in inner if c.start >= piece[0] and c.end <= piece[1]])
            else:
                self._emit(piece.replace("{n}", str(change.number)).encode())
        self.places.append((begin, self.length, change.number))
