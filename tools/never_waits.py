#!/usr/bin/env python3
"""Lists the functions of a WebAssembly module that can never be on the stack while the page's next event is awaited.

Usage: never_waits.py MODULE.wat > FUNCTIONS

Asyncify takes every call through a pointer for one that may wait, and the calls through which exceptions pass are such.
Here those with a constant for a pointer are followed to their function, and destructors and what is known to call nothing
but them are trusted not to wait. The list is one for ASYNCIFY_REMOVE.
"""

import re
import sys

WAITS = "kvt_next"
# They call through pointers, but only what destroys, copies or compares.
TRUSTED = re.compile(r"::~|^(void )?std::__2::(vector|basic_string|__tree|__split_buffer|deque|enable_if|__hash_table)|rapidjson::")

FUNCTION = re.compile(r"^ \(func \$(\S+)", re.M)
CALL = re.compile(r"\(call \$([^\s)]+)(?:\s*\(i32\.const (\d+)\))?")


def plain(name: str) -> str:
    """A name without the escapes of the text form."""
    return re.sub(r"\\([0-9a-f]{2})", lambda m: chr(int(m[1], 16)), name)


def table(text: str) -> dict[int, str]:
    """The functions that pointers stand for."""
    slots = {}
    for first, names in re.findall(r"^ \(elem (?:\$\S+ )?\(i32\.const (\d+)\) (?:func )?([^)]*)\)", text, re.M):
        for i, name in enumerate(names.split()):
            slots[int(first) + i] = name.lstrip("$")
    return slots


def main() -> None:
    with open(sys.argv[1], encoding="utf-8") as file:
        text = file.read()
    slots = table(text)
    imports = {own: name for name, own in re.findall(r'\(import "env" "([^"]+)" \(func \$(\S+)', text)}
    starts = [(m.start(), m[1]) for m in FUNCTION.finditer(text)]
    ends = [start for start, _ in starts[1:]] + [len(text)]
    callers: dict[str, set[str]] = {}
    waiting = [WAITS]
    for (start, name), end in zip(starts, ends):
        body = text[start:end]
        unknown = "(call_indirect" in body
        for callee, pointer in CALL.findall(body):
            callee = imports.get(callee, callee)
            if "invoke_" in callee:
                if pointer and int(pointer) in slots:
                    callee = slots[int(pointer)]
                else:
                    unknown = True
                    continue
            callers.setdefault(callee, set()).add(name)
        if unknown:
            waiting.append(name)
    seen = set()
    while waiting:
        name = waiting.pop()
        if name in seen or TRUSTED.search(plain(name)):
            continue
        seen.add(name)
        waiting.extend(callers.get(name, ()))
    for _, name in starts:
        if name not in seen:
            print(plain(name))


if __name__ == "__main__":
    main()
