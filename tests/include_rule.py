#!/usr/bin/env python3
"""Reads every #include below a folder of sources. Fails on one that goes up or sideways between the
layers, on a circle of modules (a header and its .cpp are one), and on Qt outside toolkit/.

usage: include_rule.py SRC"""

import collections
import graphlib
import pathlib
import re
import sys

CORE = ["settings", "install", "history", "randomizer", "platform"]
BELOW = {
    "platform": [],
    "toolkit": ["platform"],
    "widgets": ["toolkit", "platform"],
    "settings": ["platform"],
    "install": ["settings", "platform"],
    "history": ["settings", "platform"],
    "randomizer": ["settings", "platform"],
    "setup": CORE,
    "shell": ["widgets", "toolkit", *CORE],
    "app": ["shell", "widgets", "toolkit", *CORE],
}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]', re.MULTILINE)
QT = re.compile(r"Q[A-Z]|Qt|qt|private/q")

src = pathlib.Path(sys.argv[1])
files = {
    str(file.relative_to(src)): INCLUDE.findall(file.read_text(encoding="utf-8"))
    for file in src.rglob("*")
    if file.suffix in (".h", ".cpp")
}
faults = []
modules = collections.defaultdict(set)
crossings = collections.Counter()
for file, includes in sorted(files.items()):
    layer = file.split("/")[0]
    if layer not in BELOW:
        faults.append(f"{file} is in no layer")
        continue
    for mark, target in includes:
        lower = target.split("/")[0]
        if target in files:
            crossings[f"{layer} -> {lower}"] += lower != layer
            if lower != layer and lower not in BELOW[layer]:
                faults.append(f"{file} includes {target}: {lower}/ is not below {layer}/")
            if target.rsplit(".", 1)[0] != file.rsplit(".", 1)[0]:
                modules[file.rsplit(".", 1)[0]].add(target.rsplit(".", 1)[0])
        elif QT.match(target) and layer != "toolkit":
            faults.append(f"{file} includes {target}: Qt belongs to toolkit/")
        elif mark == '"' and target != "settings/Version.h":  # made by the build
            faults.append(f"{file} includes {target}, which is not found")
try:
    graphlib.TopologicalSorter(modules).prepare()
except graphlib.CycleError as error:
    faults.append("circle: " + " <- ".join(error.args[1]))
for arrow, count in sorted(crossings.items()):
    if count:
        print(f"{arrow}: {count}")
print("\n".join([*faults, f"{len(files)} files, {len(faults)} faults"]))
sys.exit(1 if faults or not files else 0)
