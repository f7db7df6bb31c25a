# SPDX-License-Identifier: GPL-3.0-or-later
"""What a screen reader finds in a program, over AT-SPI on a bus of its own.

    screen_reader.py PROCESS    prints the tree of that process as JSON: role, name, value, states and
                                children of each object
"""
import json
import os
import re
import subprocess
import sys

# The roles of controls on which a user can act.
ACTED_ON = {"push button", "check box", "radio button", "combo box", "text", "scroll bar", "slider",
            "list", "page tab", "page tab list", "toggle button", "spin button", "entry"}


class Bus:
    """A session bus for one program and whoever reads it."""

    def __init__(self):
        self.daemon = subprocess.Popen(
            ["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE,
            text=True)
        self.address = self.daemon.stdout.readline().strip()

    def environment(self):
        return {"DBUS_SESSION_BUS_ADDRESS": self.address, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}

    def close(self):
        self.daemon.terminate()
        self.daemon.wait()


def tree(environment, process):
    """The tree of a process; None while it is not on the bus."""
    # The bus is found through the session bus; the screen may name one that has gone.
    asked = {name: value for name, value in environment.items() if name != "DISPLAY"}
    told = subprocess.run([sys.executable, __file__, str(process)], env=asked, check=False,
                          capture_output=True, text=True, timeout=60)
    return json.loads(told.stdout) if told.returncode == 0 and told.stdout.strip() else None


def walked(node, depth=0):
    yield depth, node
    for child in node["children"]:
        yield from walked(child, depth + 1)


def shown(node):
    """The windows of a program that are on the screen."""
    return [window for window in node["children"] if "showing" in window["states"]]


def unnamed(node):
    """The shown controls on which a user can act and that have no name."""
    return [f"{each['role']} in {node['name']}" for _, each in walked(node)
            if each["role"] in ACTED_ON and "showing" in each["states"] and not each["name"].strip()]


def read_out(node):
    """A line for each shown object, with what a screen reader would say."""
    lines = []
    for depth, each in walked(node):
        if "showing" not in each["states"]:
            continue
        said = " ".join(re.sub(r"\s+", " ", text) for text in
                        (each["name"], each["value"], "(" + each["role"] + ")") if text)
        lines.append("  " * depth + said)
    return "\n".join(lines) + "\n"


def print_tree(process):
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi

    def told(each):
        states = each.get_state_set()
        value = ""
        if each.get_value_iface():
            value = f"{each.get_current_value():g}"
        names = [state.value_nick for state in states.get_states()]
        children = [each.get_child_at_index(i) for i in range(each.get_child_count())]
        return {"role": each.get_role_name(), "name": each.get_name() or "", "value": value,
                "states": names, "children": [told(child) for child in children if child]}

    desktop = Atspi.get_desktop(0)
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program and program.get_process_id() == process:
            json.dump(told(program), sys.stdout)
            return 0
    return 1


if __name__ == "__main__":
    sys.exit(print_tree(int(sys.argv[1])))
