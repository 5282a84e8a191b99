"""Works the program by what it tells AT-SPI, the interface of screen readers: roles, names, actions, texts and tables.

No key, no click, no place on the screen. The environment tells how to log in.
"""

import itertools
import os
import re

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 20  # seconds that anything may take
PROGRAM = "Corvane"
SERVER = f"Demonstration ({os.environ['CORVANE_TEST_ADDRESS']})"
# Without a keyboard, a Wayland session gives no window the focus.
HAS_KEYBOARD = os.environ["XDG_SESSION_TYPE"] != "wayland"
HEARD = []  # since the last action: each change, with the role and the name of what changed


def until(what, attempt):
    """The first true value that `attempt` returns. An object that has gone meanwhile makes it fail, and try again."""
    end = GLib.get_monotonic_time() + LIMIT * 1_000_000
    failure = ""
    while GLib.get_monotonic_time() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if result := attempt():
                return result
        except (GLib.Error, SystemError) as error:  # the second one where a program ends within its answer
            failure = str(error)
        GLib.usleep(20_000)
    raise AssertionError("\n".join([f"Waited in vain for {what}. {failure}", *map(str, HEARD[-30:])]))


def expect_equal(said, wanted):
    assert said == wanted, f"{said}, not {wanted}"


def hear(event):
    try:
        HEARD.append((event.type, event.detail1, event.source.get_role_name(), event.source.get_name()))
    except (GLib.Error, SystemError):
        pass  # its source has gone already


def forget():
    until("silence", lambda: True)
    HEARD.clear()


def expect(kind, role, name, detail=None):
    def fits(event):
        return event[0].startswith("object:" + kind) and event[2:] == (role, name) and detail in (None, event[1])
    until(f"{kind} of the {role} “{name}”", lambda: any(map(fits, HEARD)))


def has(node, *states):
    held = node.get_state_set()
    return all(held.contains(getattr(Atspi.StateType, state)) for state in states)


def children(node):
    found = (node.get_child_at_index(index) for index in range(node.get_child_count()))
    return [child for child in found if child is not None]


def below(node):
    """The node and all below it, but for what is in tables."""
    yield node
    if node.get_role_name() != "table":
        for child in children(node):
            yield from below(child)


def texts(window):
    return [node.get_name() for node in below(window)]


def windows():
    programs = [child for child in children(Atspi.get_desktop(0)) if child.get_name() == PROGRAM]
    return [window for program in programs for window in children(program)]


def first(nodes, role, name, states):
    return next((node for node in nodes if (node.get_role_name(), node.get_name()) == (role, name)
                 and has(node, *states)), None)


def find(root, role, name, *states):
    """What has that role, that name and these states, waited for."""
    return until(f"the {role} “{name}” {states}", lambda: first(below(root), role, name, states))


def find_window(role, name, text=""):
    """A window that shows, of that role and name; of several, the one with that text in it."""
    return until(f"the {role} “{name}” with “{text}”",
                 lambda: first((window for window in windows() if not text or text in texts(window)),
                               role, name, ["SHOWING"]))


def act(node, action="Press"):
    names = [Atspi.Action.get_action_name(node, index) for index in range(Atspi.Action.get_n_actions(node))]
    assert action in names, f"“{node.get_name()}” cannot {action}, but {names}."
    forget()
    assert Atspi.Action.do_action(node, names.index(action))


def press(window, name):
    act(find(window, "push button", name, "SHOWING", "ENABLED"))


def write(window, name, text, role="text"):
    field = find(window, role, name, "SHOWING", "ENABLED", "EDITABLE")
    forget()
    assert Atspi.EditableText.set_text_contents(field, text)
    expect("text-changed:insert", role, name)


def answer(*said, button="OK", about=()):
    """A dialog stands, bears the program's name and says all that, and what it is about. Presses a button of it."""
    dialog = find_window("alert", PROGRAM, said[0])
    assert set(said) < set(texts(dialog)), texts(dialog)
    expect_equal(dialog.get_description(), "\n".join([*about, *said]))
    if HAS_KEYBOARD:
        expect("state-changed:focused", "push button", texts(find(dialog, "panel", ""))[1], 1)
    press(dialog, button)
    until("the end of the dialog", lambda: dialog not in windows())


def expect_names(window):
    """Whatever the keyboard can reach has a name."""
    nameless = [node.get_role_name() for node in below(window)
                if has(node, "FOCUSABLE", "SHOWING") and not node.get_name()]
    assert not nameless, f"In “{window.get_name()}” there is no name for {nameless}"


class Table:
    """A list of the program. Its commands are actions of what surrounds it."""

    def __init__(self, window, name, heads):
        self.name, self.heads = name, heads
        self.node = find(window, "table", name, "SHOWING", "FOCUSABLE")

    def cell(self, row, column):
        return Atspi.Table.get_accessible_at(self.node, row, column)

    def column(self, column):
        return [self.cell(row, column).get_name() for row in range(Atspi.Table.get_n_rows(self.node))]

    def expect(self, rows):
        until(f"{rows} rows in “{self.name}”", lambda: Atspi.Table.get_n_rows(self.node) == rows)
        expect_equal([Atspi.Table.get_column_description(self.node, column)
                      for column in range(Atspi.Table.get_n_columns(self.node))], self.heads)

    def do(self, action):
        act(self.node.get_parent(), action)

    def is_selected(self, row):
        """Whether this row is, with all its cells, the only one that is selected."""
        cells = [self.cell(row, column) for column in range(len(self.heads))]
        return Atspi.Table.get_selected_rows(self.node) == [row] and all(has(cell, "SELECTED") for cell in cells)

    def select(self, text):
        until(f"“{text}” in “{self.name}”", lambda: text in self.column(0))
        row = self.column(0).index(text)
        self.do("SetFocus")
        forget()
        assert Atspi.Table.add_row_selection(self.node, row)
        until(f"the selection of “{text}”", lambda: self.is_selected(row) and has(self.cell(row, 0), "FOCUSED"))
        for state in ("selected", "focused") if HAS_KEYBOARD else ("selected",):
            expect("state-changed:" + state, "table cell", text, 1)
        return row


def add_server():
    window = find_window("frame", PROGRAM)
    # The program tells of changes once it knows that somebody listens.
    listener.register("object:")
    field, change = find(window, "text", "Username", "SHOWING"), itertools.cycle(["heard", ""])
    until("any sound", lambda: Atspi.EditableText.set_text_contents(field, next(change)) and HEARD)
    assert Atspi.EditableText.set_text_contents(field, "")
    expect_names(window)
    find(window, "image", "Corvane banner", "SHOWING")
    servers = Table(window, "Servers", ["Server Name:", "IP Address:", "Hostname:"])
    servers.expect(0)
    press(window, "Add Server")
    answer("You must provide your server hostname to continue.")
    address = os.environ["CORVANE_TEST_ADDRESS"]
    write(window, "Server Hostname or IP Address", address)
    write(window, "Username", os.environ["CORVANE_TEST_USER"])
    write(window, "Password", os.environ["CORVANE_TEST_PASSWORD"], "password text")
    press(window, "Add Server")
    servers.expect(1)
    expect_equal([servers.column(column) for column in (0, 2)], [["Demonstration"], [address]])
    expect("text-changed:delete", "text", "Username")
    servers.select("Demonstration")
    servers.do("Activate")
    return find_window("frame", "Corvane - Server Control Panel")


def work_overview(window):
    expect_equal(window.get_description(), SERVER)
    overview = Table(window, "System information", ["", ""])
    overview.expect(19)
    told = dict(zip(overview.column(0), overview.column(1)))
    expect_equal((told["Operating System:"], told["CPU Count:"]), ("Debian GNU/Linux 12 (bookworm)", "8"))
    expect_names(window)
    for button in ("Cancel", "Restart"):
        press(window, "Reboot Server")
        answer("Are you sure you want to restart?",
               "All system services will be unavailable while the system restarts.", button=button, about=[SERVER])
    answer("The server has been rebooted.", about=[SERVER])
    press(window, "Reload Server")
    expect("state-changed:enabled", "push button", "Reload Server", 0)
    expect("state-changed:showing", "progress bar", "Reloading the server", 1)
    find(window, "progress bar", "Reloading the server", "SHOWING", "BUSY")
    answer("The panel service has been reloaded.", about=[SERVER])
    expect("state-changed:showing", "progress bar", "Reloading the server", 0)


def work_containers(window):
    act(find(window, "page tab", "Containers", "SHOWING"))
    containers = Table(window, "Containers", ["Name:", "State:", "Status:"])
    expect_names(window)
    for button, said, state in (("Stop", "stopped", "exited"), ("Start", "started", "running")):
        row = containers.select("shop")
        expect("state-changed:enabled", "push button", button, 1)
        press(window, button)
        answer(f"shop has been {said}.", about=[f"shop on {SERVER}"])
        containers.expect(12)
        expect_equal(containers.cell(row, 1).get_name(), state)
        expect_equal(Atspi.Table.get_n_selected_rows(containers.node), 0)
    containers.select("web")


def read_log(window):
    write(window, "# Logs", "50")
    press(window, "Logs")
    log = find_window("frame", "Corvane - Container Logs")
    expect_equal(log.get_description(), f"web on {SERVER}")
    lines = Table(log, "Log lines", [""])
    lines.expect(50)
    until("the newest line", lambda: lines.is_selected(49))
    read = lines.column(0)
    assert all(re.match(r"\d{4}-\d\d-\d\dT[\d:.]+Z [A-Z]+ ", line) for line in read), read
    lines.do("Find…")
    write(log, "Find", read[30].split()[0])
    until("the line that is looked for", lambda: lines.is_selected(30))
    expect("property-change:accessible-name", "label", "1 of 1 rows")
    expect_names(log)


def update():
    window = find_window("frame", "Update Available", "A new version of Corvane is available!")
    expect_names(window)
    notes = find(window, "document frame", "Release notes", "SHOWING", "MULTI_LINE")
    until("the release notes", lambda: "It updates itself." in Atspi.Text.get_text(notes, 0, -1))
    press(window, "Install Update")
    expect("state-changed:showing", "progress bar", "Progress", 1)
    expect("property-change:accessible-value", "progress bar", "Progress")
    expect("property-change:accessible-name", "label", "Ready to install")
    press(window, "Quit & Install")


def quit_program():
    act(find(find_window("frame", PROGRAM, "Version 1.1.0"), "menu item", "Quit"))
    until("the end of the program", lambda: not windows())


listener = Atspi.EventListener.new(hear)
Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
server = add_server()
work_overview(server)
work_containers(server)
read_log(server)
update()
quit_program()
