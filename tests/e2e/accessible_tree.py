#!/usr/bin/python3
"""Prints the tree of a program as assistive technology sees it: its name in the first line, then a line a row with the
level, the name and the states that matter. Ends with 1 where there is no such tree.
With --buttons in place of the name of the tree it prints the names of the buttons in the program's tool bars.
Usage, on the session bus of the program: accessible_tree.py PROGRAM NAME_OF_THE_TREE|--buttons"""
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

STATES = [
    (Atspi.StateType.SELECTED, "selected"),
    (Atspi.StateType.FOCUSED, "focused"),
    (Atspi.StateType.EXPANDED, "expanded"),
    (Atspi.StateType.EXPANDABLE, "expandable"),
]


def children(node):
    return [node.get_child_at_index(i) for i in range(node.get_child_count())]


def find_tree(node, name):
    roles = (Atspi.Role.TREE, Atspi.Role.TREE_TABLE)
    if node.get_role() in roles and node.get_name() == name:
        return node
    for child in children(node):
        found = find_tree(child, name) if child is not None else None
        if found is not None:
            return found
    return None


def name_of(cell):
    """The text of a row lies in one of the parts of its cell, the other one is the picture."""
    names = [cell.get_name()] + [part.get_name() for part in children(cell)]
    return next((name for name in names if name), "")


def states_of(cell):
    held = [cell.get_state_set()] + [part.get_state_set() for part in children(cell)]
    return [text for state, text in STATES if any(states.contains(state) for states in held)]


def level_of(cell):
    """How many cells it is the node-child of."""
    level = 0
    while True:
        relations = [r for r in cell.get_relation_set() if r.get_relation_type() == Atspi.RelationType.NODE_CHILD_OF]
        target = relations[0].get_target(0) if relations else None
        if target is None or target.get_role() not in (Atspi.Role.TABLE_CELL, Atspi.Role.PANEL):
            return level
        level += 1
        cell = target


def buttons(node, in_tool_bar=False):
    """The names of the buttons in the tool bars at and below a node."""
    in_tool_bar = in_tool_bar or node.get_role() == Atspi.Role.TOOL_BAR
    if in_tool_bar and node.get_role() in (Atspi.Role.PUSH_BUTTON, Atspi.Role.TOGGLE_BUTTON):
        yield node.get_name()
    for child in children(node):
        if child is not None:
            yield from buttons(child, in_tool_bar)


def main():
    program, name = sys.argv[1:3]
    if name == "--buttons":
        for application in children(Atspi.get_desktop(0)):
            if application is not None and application.get_name() == program:
                print("\n".join(buttons(application)))
                return 0
        return 1
    for _ in range(50):
        for application in children(Atspi.get_desktop(0)):
            if application is not None and application.get_name() == program:
                tree = find_tree(application, name)
                if tree is not None:
                    print(tree.get_name())
                    for cell in children(tree):
                        if cell.get_role() == Atspi.Role.TABLE_COLUMN_HEADER:
                            continue
                        print("  " * level_of(cell) + name_of(cell) + ": " + " ".join(states_of(cell)))
                    return 0
        time.sleep(0.1)
    print("no tree is called " + name, file=sys.stderr)
    return 1


sys.exit(main())
