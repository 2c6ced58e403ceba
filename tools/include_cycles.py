#!/usr/bin/env python3
"""Prints the cycles of the include graph between source units and fails on
any cycle that is not an allowed one.

A unit is a .h/.cpp pair named by its path under the source folder without
the extension (catalogue/CartSetup for catalogue/CartSetup.h and .cpp); unit
A depends on unit B when either file of A includes B.h. A cycle is a strongly
connected component of more than one unit.

Usage: tools/include_cycles.py [source folder, default src]
       tools/include_cycles.py --self-test
Exit status: 0 when every cycle is in ALLOWED, 1 otherwise.
"""
import os
import re
import sys

# The cycles allowed, each as the list of its units. None is: the ring the
# design has (definitions build algorithms, algorithms find their catalogue
# entry and transfer themselves to WKT) closes through source files only
# (definitions/ProjectionTypes.cpp, projections/AlgorithmCatalogue.cpp,
# catalogue/MapProjectionBufferCreate.cpp), never through a header.
ALLOWED = []

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)


def include_graph(root):
    files = []
    for folder, _, names in os.walk(root):
        files += [os.path.join(folder, n) for n in names if n.endswith((".h", ".cpp"))]
    unit_of = lambda path: os.path.splitext(os.path.relpath(path, root))[0]
    units = {unit_of(p) for p in files}
    graph = {u: set() for u in units}
    for path in files:
        u = unit_of(path)
        with open(path, encoding="utf-8", errors="replace") as f:
            for target in INCLUDE.findall(f.read()):
                v = os.path.splitext(os.path.normpath(target))[0]
                if v in units and v != u:
                    graph[u].add(v)
    return graph


def strongly_connected(graph):
    """Tarjan's algorithm without recursion; yields components as sorted lists."""
    index, low, on_stack, stack, found = {}, {}, set(), [], []
    counter = 0
    for start in sorted(graph):
        if start in index:
            continue
        work = [(start, iter(sorted(graph[start])))]
        index[start] = low[start] = counter
        counter += 1
        stack.append(start)
        on_stack.add(start)
        while work:
            v, edges = work[-1]
            for w in edges:
                if w not in index:
                    index[w] = low[w] = counter
                    counter += 1
                    stack.append(w)
                    on_stack.add(w)
                    work.append((w, iter(sorted(graph[w]))))
                    break
                if w in on_stack:
                    low[v] = min(low[v], index[w])
            else:
                work.pop()
                if work:
                    low[work[-1][0]] = min(low[work[-1][0]], low[v])
                if low[v] == index[v]:
                    component = []
                    while True:
                        w = stack.pop()
                        on_stack.discard(w)
                        component.append(w)
                        if w == v:
                            break
                    found.append(sorted(component))
    return found


def self_test():
    """Checks the search on a small tree: a ring of three units with a tail,
    an allowed pair and an acyclic unit."""
    import tempfile
    with tempfile.TemporaryDirectory() as root:
        files = {"a/A.h": "b/B.h", "b/B.cpp": "c/C.h", "c/C.cpp": "a/A.h", "d/D.h": "a/A.h",
                 "catalogue/CartSetup.h": "catalogue/MapProjectionBuffer.h",
                 "catalogue/MapProjectionBuffer.cpp": "catalogue/CartSetup.h"}
        for name, target in files.items():
            os.makedirs(os.path.join(root, os.path.dirname(name)), exist_ok=True)
            with open(os.path.join(root, name), "w") as f:
                f.write(f'#include <vector>\n  #  include "{target}"\n')
        cycles = sorted(c for c in strongly_connected(include_graph(root)) if len(c) > 1)
    expected = [["a/A", "b/B", "c/C"], ["catalogue/CartSetup", "catalogue/MapProjectionBuffer"]]
    print("self-test", "passed" if cycles == expected else f"FAILED: {cycles}")
    return 0 if cycles == expected else 1


def main():
    if sys.argv[1:] == ["--self-test"]:
        return self_test()
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.join(
        os.path.dirname(os.path.abspath(__file__)), "..", "src")
    graph = include_graph(root)
    cycles = sorted(c for c in strongly_connected(graph) if len(c) > 1)
    allowed = [sorted(c) for c in ALLOWED]
    print(f"{len(graph)} units, {len(cycles)} cycle(s)")
    bad = 0
    for cycle in cycles:
        ok = cycle in allowed
        bad += not ok
        print(f"{'allowed' if ok else 'NOT ALLOWED'}: {len(cycle)} units: {' '.join(cycle)}")
    if bad:
        print(f"{bad} include cycle(s) not allowed: cut an include or add the cycle to ALLOWED "
              "in tools/include_cycles.py with the reason")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
