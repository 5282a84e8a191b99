"""Works the program by what it tells AT-SPI, the interface of screen readers: roles, names, actions, texts and tables.

No key, no click, no place on the screen. The environment tells how to log in, and the folder in which a file lets the
server of the update go on.
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
    raise AssertionError("\n".join([f"Waited in vain for {what}. {failure}", *map(str, EARS.heard[-30:])]))


class Ears:
    """What a screen reader hears since the last action: each change, with the role and the name of what changed."""

    def __init__(self):
        self.heard = []
        self.listener = Atspi.EventListener.new(self.hear)

    def listen(self, field):
        """Writes into a field until the program knows that somebody listens, and tells of it."""
        self.listener.register("object:")
        texts = itertools.cycle(["heard", ""])
        until("any sound", lambda: Atspi.EditableText.set_text_contents(field, next(texts)) and self.heard)
        assert Atspi.EditableText.set_text_contents(field, "")

    def hear(self, event):
        try:
            self.heard.append((event.type, event.detail1, event.source.get_role_name(), event.source.get_name()))
        except (GLib.Error, SystemError):
            pass  # its source has gone already

    def forget(self):
        until("silence", lambda: True)
        self.heard.clear()

    def expect(self, kind, role, name, detail=None):
        def fits(event):
            return event[0].startswith("object:" + kind) and event[2:] == (role, name) and detail in (None, event[1])
        until(f"{kind} of the {role} “{name}”", lambda: any(map(fits, self.heard)))


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


def is_a(node, role, name):
    return (node.get_role_name(), node.get_name()) == (role, name)


def find(root, role, name, *states):
    """What has that role, that name and these states, waited for."""
    return until(f"the {role} “{name}” {states}",
                 lambda: next((node for node in below(root) if is_a(node, role, name) and has(node, *states)), None))


def find_window(role, name, text=None):
    """A window that shows, of that role and name; of several, the one with that text in it."""
    return until(f"the {role} “{name}” with “{text}”",
                 lambda: next((window for window in windows() if is_a(window, role, name) and has(window, "SHOWING")
                               and (text is None or text in texts(window))), None))


def act(node, action="Press"):
    names = [Atspi.Action.get_action_name(node, index) for index in range(Atspi.Action.get_n_actions(node))]
    assert action in names, f"“{node.get_name()}” cannot {action}, but {names}."
    EARS.forget()
    assert Atspi.Action.do_action(node, names.index(action))


def press(window, name):
    act(find(window, "push button", name, "SHOWING", "ENABLED"))


def write(window, name, text, role="text"):
    field = find(window, role, name, "SHOWING", "ENABLED", "EDITABLE")
    EARS.forget()
    assert Atspi.EditableText.set_text_contents(field, text)
    EARS.expect("text-changed:insert", role, name)


def answer(*said, button="OK", about=()):
    """A dialog stands, bears the program's name and says all that, and what it is about. Presses a button of it."""
    dialog = find_window("alert", PROGRAM, said[0])
    assert set(said) < set(texts(dialog)), texts(dialog)
    assert dialog.get_description() == "\n".join([*about, *said]), dialog.get_description()
    if HAS_KEYBOARD:
        EARS.expect("state-changed:focused", "push button", texts(find(dialog, "panel", ""))[1], 1)
    press(dialog, button)
    until("the end of the dialog", lambda: dialog not in windows())


def expect_names(window):
    """Whatever the keyboard can reach has a name."""
    nameless = [node.get_role_name() for node in below(window)
                if has(node, "FOCUSABLE", "SHOWING") and not node.get_name()]
    assert not nameless, f"In “{window.get_name()}” there is no name for {nameless}"


class Table:
    """A list of the program. Its commands are actions of what surrounds it."""

    def __init__(self, window, name):
        self.name = name
        self.node = find(window, "table", name, "SHOWING", "FOCUSABLE")

    def cell(self, row, column):
        return Atspi.Table.get_accessible_at(self.node, row, column)

    def column(self, column):
        return [self.cell(row, column).get_name() for row in range(Atspi.Table.get_n_rows(self.node))]

    def expect(self, heads, rows):
        until(f"{rows} rows in “{self.name}”", lambda: Atspi.Table.get_n_rows(self.node) == rows)
        shown = [Atspi.Table.get_column_description(self.node, column)
                 for column in range(Atspi.Table.get_n_columns(self.node))]
        assert shown == heads, shown

    def do(self, action):
        act(self.node.get_parent(), action)

    def is_selected(self, row):
        """Whether this row is, with all its cells, the only one that is selected."""
        cells = [self.cell(row, column) for column in range(Atspi.Table.get_n_columns(self.node))]
        return Atspi.Table.get_selected_rows(self.node) == [row] and all(has(cell, "SELECTED") for cell in cells)

    def select(self, text):
        until(f"“{text}” in “{self.name}”", lambda: text in self.column(0))
        row = self.column(0).index(text)
        self.do("SetFocus")
        EARS.forget()
        assert Atspi.Table.add_row_selection(self.node, row)
        until(f"the selection of “{text}”", lambda: self.is_selected(row) and has(self.cell(row, 0), "FOCUSED"))
        EARS.expect("state-changed:selected", "table cell", text, 1)
        if HAS_KEYBOARD:
            EARS.expect("state-changed:focused", "table cell", text, 1)
        return row


def add_server():
    window = find_window("frame", PROGRAM)
    EARS.listen(find(window, "text", "Username", "SHOWING"))
    expect_names(window)
    find(window, "image", "Corvane banner", "SHOWING")
    servers = Table(window, "Servers")
    servers.expect(["Server Name:", "IP Address:", "Hostname:"], 0)

    press(window, "Add Server")
    answer("You must provide your server hostname to continue.")
    address = os.environ["CORVANE_TEST_ADDRESS"]
    write(window, "Server Hostname or IP Address", address)
    write(window, "Username", os.environ["CORVANE_TEST_USER"])
    write(window, "Password", os.environ["CORVANE_TEST_PASSWORD"], "password text")
    press(window, "Add Server")
    servers.expect(["Server Name:", "IP Address:", "Hostname:"], 1)
    assert [servers.column(column) for column in (0, 2)] == [["Demonstration"], [address]]
    EARS.expect("text-changed:delete", "text", "Username")
    servers.select("Demonstration")
    servers.do("Activate")
    control = find_window("frame", "Corvane - Server Control Panel")
    assert control.get_description() == SERVER, control.get_description()
    return control


def read_overview(window):
    overview = Table(window, "System information")
    overview.expect(["", ""], 19)
    told = dict(zip(overview.column(0), overview.column(1)))
    assert told["Operating System:"] == "Debian GNU/Linux 12 (bookworm)" and told["CPU Count:"] == "8", told
    expect_names(window)

    press(window, "Reboot Server")
    answer("Are you sure you want to restart?",
           "All system services will be unavailable while the system restarts.", button="Cancel", about=[SERVER])

    press(window, "Reload Server")
    EARS.expect("state-changed:enabled", "push button", "Reload Server", 0)
    EARS.expect("state-changed:showing", "progress bar", "Reloading the server", 1)
    find(window, "progress bar", "Reloading the server", "SHOWING", "BUSY")
    answer("The panel service has been reloaded.", about=[SERVER])
    EARS.expect("state-changed:showing", "progress bar", "Reloading the server", 0)


def stop_and_start(window):
    act(find(window, "page tab", "Containers", "SHOWING"))
    containers = Table(window, "Containers")
    expect_names(window)
    for button, said, state in (("Stop", "stopped", "exited"), ("Start", "started", "running")):
        row = containers.select("shop")
        EARS.expect("state-changed:enabled", "push button", button, 1)
        press(window, button)
        answer(f"shop has been {said}.", about=[f"shop on {SERVER}"])
        containers.expect(["Name:", "State:", "Status:"], 12)
        assert containers.cell(row, 1).get_name() == state
        assert Atspi.Table.get_n_selected_rows(containers.node) == 0
    return containers


def read_log(window, containers):
    containers.select("web")
    write(window, "# Logs", "50")
    press(window, "Logs")
    log = find_window("frame", "Corvane - Container Logs")
    assert log.get_description() == f"web on {SERVER}", log.get_description()
    lines = Table(log, "Log lines")
    lines.expect([""], 50)
    until("the newest line", lambda: lines.is_selected(49))
    read = lines.column(0)
    assert all(re.match(r"\d{4}-\d\d-\d\dT[\d:.]+Z [A-Z]+ ", line) for line in read), read

    lines.do("Find…")
    write(log, "Find", read[30].split()[0])
    until("the line that is looked for", lambda: lines.is_selected(30))
    EARS.expect("property-change:accessible-name", "label", "1 of 1 rows")
    expect_names(log)


def let_through(half):
    """The server sends this half of the update now."""
    open(os.path.join(os.environ["CORVANE_TEST_GATES"], str(half)), "w").close()


def share_of(bar):
    return Atspi.Value.get_current_value(bar) / max(Atspi.Value.get_maximum_value(bar), 1)


def update():
    window = find_window("frame", "Update Available", "A new version of Corvane is available!")
    expect_names(window)
    notes = find(window, "document frame", "Release notes", "SHOWING", "MULTI_LINE")
    until("the release notes", lambda: "It updates itself." in Atspi.Text.get_text(notes, 0, -1))

    press(window, "Install Update")
    EARS.expect("state-changed:showing", "progress bar", "Progress", 1)
    bar = find(window, "progress bar", "Progress", "SHOWING", "BUSY")
    let_through(1)
    until("half of the bar", lambda: 0.3 < share_of(bar) < 0.7)
    EARS.expect("property-change:accessible-value", "progress bar", "Progress")
    let_through(2)
    EARS.expect("property-change:accessible-name", "label", "Ready to install")
    press(window, "Quit & Install")
    find_window("frame", PROGRAM, "Version 1.1.0")


def quit_program():
    act(find(find_window("frame", PROGRAM), "menu item", "Quit"))
    until("the end of the program", lambda: not windows())


EARS = Ears()
Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
server = add_server()
read_overview(server)
read_log(server, stop_and_start(server))
update()
quit_program()
