"""Uses the window with keys, and reads it through the desktop's accessibility service."""

import filecmp
import os
import subprocess
import sys
import time

import pyatspi

TOOL, EXAMPLES, WORK = sys.argv[1:]

# The label of a panel, the controls to focus and the keys to press there, in tab order, and the equivalent step of the
# command line.
LABEL, KEYS, STEP = "Move", [("Distance to Move:", "End"), ("N", "space")], "move=0,0,-10"
NAMED_ROLES = {"push button", "check box", "radio button", "text", "combo box", "progress bar", "image", "panel",
               "menu item"}


def wait_for(what, look):
    for _ in range(300):
        found = look()
        if found:
            return found
        time.sleep(0.05)
    sys.exit("waited in vain for " + what)


def below(node):
    for child in node:
        if child is not None:
            yield child
            yield from below(child)


def has(node, *states):
    present = node.getState()
    return all(present.contains(state) for state in states)


def press(keys):
    subprocess.run(["xdotool", "key", "--delay", "10", *keys.split()], check=True)


def windows(title):
    return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^" + title + "$"],
                          capture_output=True, text=True, check=False).stdout.split()


def window_named(title):
    return wait_for("the window " + title, lambda: windows(title))[0]


def main_window():
    return wait_for("the accessible window", lambda: next(
        (frame for program in pyatspi.Registry.getDesktop(0) if program is not None
         for frame in program if frame is not None and frame.name.startswith("Railwright: ")), None))


def check_controls(window):
    """Whatever a user can meet has a role, and a name or the text that it shows."""
    names = []
    for node in below(window):
        role = node.getRoleName()
        if role in NAMED_ROLES or has(node, pyatspi.STATE_FOCUSABLE) and role not in ("list", "list item"):
            if not node.name or role in ("filler", "unknown", "invalid"):
                sys.exit(f"a {role} below '{node.parent.name}' is called '{node.name}'")
            names.append(node.name)
    for name in ("Open...", "Save As...", "Preview from above", "Track Tool: Move", "Progress", "About..."):
        if name not in names:
            sys.exit(f"no control is called '{name}'")


def can_be_worked(node):
    return has(node, pyatspi.STATE_SHOWING, pyatspi.STATE_FOCUSABLE, pyatspi.STATE_ENABLED)


class Controls:
    """The controls of the window that the Tab key can come to."""

    def __init__(self, window):
        self.focusable = {}
        for frame in (node for node in below(window) if node.getRoleName() == "panel"):
            self.focusable[frame.name] = [node for node in below(frame) if has(node, pyatspi.STATE_FOCUSABLE)]

    def workable(self, frame):
        return [node for node in self.focusable[frame] if can_be_worked(node)]

    def panel_in_front(self):
        return next(name for name in self.focusable if ": " in name and self.workable(name))

    def tab_to(self, frame, name):
        """Presses Tab until the control of that name has the focus."""
        target = wait_for(f"a control '{name}' that can be worked",
                          lambda: [node for node in self.workable(frame) if node.name == name])[0]
        stops = [node for each in self.focusable for node in self.workable(each)]
        at = next((stop for stop in stops if has(stop, pyatspi.STATE_FOCUSED)), None)
        for _ in stops:
            press("Tab")
            at = wait_for(f"the focus behind '{at and at.name}'", lambda: next(
                (stop for stop in stops if stop is not at and has(stop, pyatspi.STATE_FOCUSED)), None))
            if has(target, pyatspi.STATE_FOCUSED):
                return
        sys.exit(f"the Tab key does not come to '{name}'")

    def work(self):
        self.tab_to("Tools", LABEL)
        press("Return")
        for name, key in KEYS:
            self.tab_to(self.panel_in_front(), name)
            press(key)


def answer(window, title, path):
    """Types a path into a file dialog."""
    subprocess.run(["xdotool", "windowfocus", "--sync", window_named(title)], check=True)
    field = wait_for("the field for the name", lambda: next(
        (node for dialog in window.parent for node in below(dialog)
         if node.getRoleName() == "text" and has(node, pyatspi.STATE_FOCUSED)), None))
    press("ctrl+a")
    subprocess.run(["xdotool", "type", "--delay", "10", path], check=True)
    wait_for(path, lambda: field.queryText().getText(0, -1) == path)
    press("Return")


def in_front():
    subprocess.run(["xdotool", "windowfocus", "--sync", window_named("Railwright: .*")], check=True)


def main():
    name = "harbor-comet.nltrack"
    source, saved, expected = (os.path.join(EXAMPLES, name), os.path.join(WORK, "saved.nltrack"),
                               os.path.join(WORK, "expected.nltrack"))
    window = main_window()
    check_controls(window)
    controls = Controls(window)
    in_front()
    controls.tab_to("Document", "Open...")
    press("space")
    answer(window, "Open NoLimits File...", source)
    window_named("Railwright: " + name)
    in_front()
    controls.work()
    window_named("Railwright: " + name + "\\*")
    controls.tab_to("Document", "Save As...")
    press("Return")
    answer(window, "Save NoLimits .* File...", saved)
    window_named("Railwright: saved.nltrack")
    subprocess.run([TOOL, "apply", source, STEP, "-o", expected], check=True)
    if not filecmp.cmp(saved, expected, shallow=False):
        sys.exit(f"the keys made another file than {STEP}")
    in_front()
    press("Alt_L Down Up Return")  # Exit is the last entry of the first menu


main()
