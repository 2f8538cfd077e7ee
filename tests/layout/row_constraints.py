#!/usr/bin/env python3
"""row_constraints.py ROWS: prints for every line of a file the least distance in points by which the nodes of a row
have to move in total to keep their gaps, as a general constraint solver finds it.

A line lists left edge and width of one node after the other. Of two nodes the one further left keeps left, of two at
the same place the earlier.
"""
import itertools
import sys

from kiwisolver import Solver, Variable

GAP = 10
ALL_PAIRS_UP_TO = 15


def pairs(places):
    """Which nodes are held apart, the left one first; in long rows neighbours imply the rest."""
    if len(places) > ALL_PAIRS_UP_TO:
        return itertools.pairwise(sorted(range(len(places)), key=places.__getitem__))
    return ((b, a) if places[a] > places[b] else (a, b) for a, b in itertools.combinations(range(len(places)), 2))


def least_displacement(places, widths):
    solver = Solver()
    nodes = [Variable() for _ in places]
    for left, right in pairs(places):
        solver.addConstraint((nodes[right] >= nodes[left] + widths[left] + GAP) | "required")
    for node, place in zip(nodes, places):
        solver.addConstraint((node == place) | "weak")
    solver.updateVariables()
    return sum(abs(node.value() - place) for node, place in zip(nodes, places))


with open(sys.argv[1], encoding="ascii") as rows:
    for row in rows:
        numbers = [int(number) for number in row.split()]
        print(least_displacement(numbers[0::2], numbers[1::2]))
