"""Uses the program through AT-SPI, the interface of screen readers: roles, names, actions, texts and tables.

Without keys, clicks or positions on the screen. The environment contains the login.
"""

import itertools
import os

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT = 20  # seconds that anything may take
PROGRAM = "Corvane"
ADDRESS = os.environ["CORVANE_TEST_ADDRESS"]
SERVER = f"Demonstration ({ADDRESS})"
# Without a keyboard, a Wayland session focuses no window.
HAS_KEYBOARD = os.environ["XDG_SESSION_TYPE"] != "wayland"
HEARD = []  # the events since the last action, with the role and the name of their source


def until(what, attempt):
    """The first true value that `attempt` returns. Tries again if it fails, since objects may disappear meanwhile."""
    end = GLib.get_monotonic_time() + LIMIT * 1_000_000
    failure = ""
    while GLib.get_monotonic_time() < end:
        while GLib.MainContext.default().iteration(False):
            pass
        try:
            if result := attempt():
                return result
        except (GLib.Error, SystemError) as error:  # the second one if the program ends while it answers
            failure = str(error)
        GLib.usleep(20_000)
    raise AssertionError("\n".join([f"Waited in vain for {what}. {failure}", *map(str, HEARD[-30:])]))


def hear(event):
    try:
        HEARD.append((event.type, event.detail1, event.source.get_role_name(), event.source.get_name()))
    except (GLib.Error, SystemError):
        pass  # its source no longer exists


def expect(kind, role, name, detail=None):
    def fits(event):
        return event[0].startswith("object:" + kind) and event[2:] == (role, name) and detail in (None, event[1])
    until(f"{kind} of the {role} “{name}”", lambda: any(map(fits, HEARD)))


def children(node):
    found = (node.get_child_at_index(index) for index in range(node.get_child_count()))
    return [child for child in found if child is not None]


def below(node):
    """The node and all its descendants, except those in tables."""
    return [node] + [each for child in children(node) if node.get_role_name() != "table" for each in below(child)]


def windows():
    programs = [child for child in children(Atspi.get_desktop(0)) if child.get_name() == PROGRAM]
    return [window for program in programs for window in children(program)]


def has(node, *states):
    held = node.get_state_set()
    return all(held.contains(getattr(Atspi.StateType, state)) for state in states)


def find(nodes, role, name, *states):
    """Waits for a node with this role, this name and these states among those that `nodes` returns."""
    found = until(f"the {role} “{name}” {states}", lambda: [
        node for node in nodes() if (node.get_role_name(), node.get_name()) == (role, name) and has(node, *states)])
    return found[0]


def part(window, role, name, *states):
    return find(lambda: below(window), role, name, "SHOWING", *states)


def find_window(role, name, text=""):
    """A window of this role and name; of several, the one that contains `text`. All that can be focused has a name."""
    window = find(lambda: [each for each in windows() if text in ["", *map(Atspi.Accessible.get_name, below(each))]],
                  role, name, "SHOWING")
    nameless = [node.get_role_name() for node in below(window)
                if has(node, "FOCUSABLE", "SHOWING") and not node.get_name()]
    assert role == "alert" or not nameless, f"In “{name}” there is no name for {nameless}"
    return window


def act(node, action="Press"):
    names = [Atspi.Action.get_action_name(node, index) for index in range(Atspi.Action.get_n_actions(node))]
    assert action in names, f"“{node.get_name()}” cannot {action}, but {names}."
    until("silence", lambda: not HEARD.clear())
    assert Atspi.Action.do_action(node, names.index(action))


def press(window, name):
    act(part(window, "push button", name, "ENABLED"))


def write(window, name, text, role="text"):
    field = part(window, role, name, "ENABLED", "EDITABLE")
    until("silence", lambda: not HEARD.clear())
    assert Atspi.EditableText.set_text_contents(field, text)
    expect("text-changed:insert", role, name)


def answer(*said, button="OK", about=()):
    """Expects a dialog with the program's name, these texts and this subject. Presses one of its buttons."""
    dialog = find_window("alert", PROGRAM, said[0])
    assert dialog.get_description() == "\n".join([*about, *said]), dialog.get_description()
    if HAS_KEYBOARD:
        expect("state-changed:focused", "push button", below(part(dialog, "panel", ""))[1].get_name(), 1)
    press(dialog, button)
    until("the end of the dialog", lambda: dialog not in windows())


def table(window, name, heads, count):
    """The rows of a list, and the list."""
    node = part(window, "table", name, "FOCUSABLE")
    until(f"{count} rows in “{name}”", lambda: Atspi.Table.get_n_rows(node) == count)
    columns = range(Atspi.Table.get_n_columns(node))
    assert [Atspi.Table.get_column_description(node, column) for column in columns] == heads
    return [[Atspi.Table.get_accessible_at(node, row, column).get_name() for column in columns]
            for row in range(count)], node


def select(node, row, name):
    act(node.get_parent(), "SetFocus")
    until("silence", lambda: not HEARD.clear())
    assert Atspi.Table.add_row_selection(node, row)
    until(f"the selection of “{name}”", lambda: Atspi.Table.get_selected_rows(node) == [row])
    for state in ("selected", "focused") if HAS_KEYBOARD else ("selected",):
        expect("state-changed:" + state, "table cell", name, 1)


def add_server():
    window = find_window("frame", PROGRAM)
    # The program reports changes only once it knows that there is a listener.
    listener.register("object:")
    field, change = part(window, "text", "Username"), itertools.cycle(["heard", ""])
    until("any sound", lambda: Atspi.EditableText.set_text_contents(field, next(change)) and HEARD)
    part(window, "image", "Corvane banner")
    press(window, "Add Server")
    answer("You must provide your server hostname to continue.")
    write(window, "Server Hostname or IP Address", ADDRESS)
    write(window, "Username", os.environ["CORVANE_TEST_USER"])
    write(window, "Password", os.environ["CORVANE_TEST_PASSWORD"], "password text")
    press(window, "Add Server")
    rows, servers = table(window, "Servers", ["Server Name:", "IP Address:", "Hostname:"], 1)
    assert rows[0][::2] == ["Demonstration", ADDRESS], rows
    select(servers, 0, "Demonstration")
    act(servers.get_parent(), "Activate")
    return find_window("frame", "Corvane - Server Control Panel")


def work_overview(window):
    assert window.get_description() == SERVER
    assert ["CPU Count:", "8"] in table(window, "System information", ["", ""], 19)[0]
    for button in ("Cancel", "Restart"):
        press(window, "Reboot Server")
        answer("Are you sure you want to restart?",
               "All system services will be unavailable while the system restarts.", button=button, about=[SERVER])
    answer("The server has been rebooted.", about=[SERVER])
    press(window, "Reload Server")
    part(window, "progress bar", "Reloading the server", "BUSY")
    answer("The panel service has been reloaded.", about=[SERVER])
    expect("state-changed:enabled", "push button", "Reload Server", 1)


def work_containers(window):
    act(part(window, "page tab", "Containers"))
    heads = ["Name:", "State:", "Status:"]
    rows, containers = table(window, "Containers", heads, 12)
    names = [row[0] for row in rows]
    select(containers, names.index("shop"), "shop")
    press(window, "Stop")
    answer("shop has been stopped.", about=[f"shop on {SERVER}"])
    until("its state", lambda: table(window, "Containers", heads, 12)[0][names.index("shop")][1] == "exited")
    select(containers, names.index("web"), "web")
    write(window, "# Logs", "50")
    press(window, "Logs")
    log = find_window("frame", "Corvane - Container Logs")
    assert log.get_description() == f"web on {SERVER}"
    rows, lines = table(log, "Log lines", [""], 50)
    act(lines.get_parent(), "Find…")
    write(log, "Find", rows[30][0].split()[0])
    until("the line that is looked for", lambda: Atspi.Table.get_selected_rows(lines) == [30])
    expect("property-change:accessible-name", "label", "1 of 1 rows")


def update():
    window = find_window("frame", "Update Available", "A new version of Corvane is available!")
    notes = part(window, "document frame", "Release notes", "MULTI_LINE")
    until("the release notes", lambda: "It updates itself." in Atspi.Text.get_text(notes, 0, -1))
    press(window, "Install Update")
    expect("property-change:accessible-value", "progress bar", "Progress")
    expect("property-change:accessible-name", "label", "Ready to install")
    press(window, "Quit & Install")
    act(find(lambda: below(find_window("frame", PROGRAM, "Version 1.1.0")), "menu item", "Quit"))
    until("the end of the program", lambda: not windows())


listener = Atspi.EventListener.new(hear)
Atspi.get_desktop(0).set_cache_mask(Atspi.Cache.NONE)
server = add_server()
work_overview(server)
work_containers(server)
update()
