"""What every window must offer to somebody who does not see it, or has no mouse. Returns problems as texts."""

import pyatspi

from boxsession import ITEM_VIEWS, Missing, TAB, children, has

CONTROLS = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_ENTRY, pyatspi.ROLE_TEXT, pyatspi.ROLE_PASSWORD_TEXT,
    pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_SLIDER, pyatspi.ROLE_LINK, pyatspi.ROLE_PAGE_TAB,
    pyatspi.ROLE_MENU_ITEM, pyatspi.ROLE_CHECK_MENU_ITEM, pyatspi.ROLE_RADIO_MENU_ITEM, pyatspi.ROLE_PROGRESS_BAR,
}
# One control to a user, whatever it is made of.
ATOMS = ITEM_VIEWS | {pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_SCROLL_BAR,
                      pyatspi.ROLE_PAGE_TAB_LIST}
NO_ROLE = {pyatspi.ROLE_FILLER, pyatspi.ROLE_PANEL, pyatspi.ROLE_LAYERED_PANE, pyatspi.ROLE_UNKNOWN,
           pyatspi.ROLE_INVALID}
HEADERS = {pyatspi.ROLE_COLUMN_HEADER, pyatspi.ROLE_TABLE_COLUMN_HEADER, pyatspi.ROLE_TABLE_ROW_HEADER}
CELLS_LOOKED_AT = 60


def walk(accessible, inside_atoms=False):
    """All that is on screen, in the order of the tree."""
    for child in children(accessible):
        if has(child, pyatspi.STATE_SHOWING):
            yield child
            if inside_atoms or child.getRole() not in ATOMS:
                yield from walk(child, inside_atoms)


def label(accessible):
    """Role and name, with the nearest named surroundings."""
    place = accessible.parent
    while place and not place.name:
        place = place.parent
    return f"{accessible.getRoleName()} “{accessible.name}” in “{place.name if place else ''}”"


def needs_name(accessible):
    role = accessible.getRole()
    if role in CONTROLS | ITEM_VIEWS:
        return True
    return role in {pyatspi.ROLE_IMAGE, pyatspi.ROLE_ICON} and has(accessible, pyatspi.STATE_FOCUSABLE)


def empty_rows(view):
    cells = [cell for cell in children(view) if cell.getRole() not in HEADERS][:CELLS_LOOKED_AT]
    columns = 1
    if view.getRole() not in {pyatspi.ROLE_LIST, pyatspi.ROLE_LIST_BOX}:
        columns = max(1, view.queryTable().nColumns)
    rows = [cells[i:i + columns] for i in range(0, len(cells), columns)]
    return [number for number, row in enumerate(rows) if not any(cell.name.strip() for cell in row)]


def check_names(window):
    problems = [] if window.name.strip() else [f"a {window.getRoleName()} has no title"]
    for accessible in walk(window):
        role = accessible.getRole()
        if needs_name(accessible) and not accessible.name.strip():
            problems.append(f"no name: {label(accessible)}")
        if role in NO_ROLE and has(accessible, pyatspi.STATE_FOCUSABLE):
            problems.append(f"takes the keyboard, but does not say what it is: {label(accessible)}")
        if role in ITEM_VIEWS:
            problems += [f"row {number} is empty: {label(accessible)}" for number in empty_rows(accessible)]
    return problems


def takes_tab(accessible):
    # Labels with text to select by mouse call themselves focusable; what has no role is told elsewhere.
    if not has(accessible, pyatspi.STATE_SENSITIVE) or accessible.getRole() in NO_ROLE | {pyatspi.ROLE_LABEL}:
        return False
    # Qt's trees and tables never call themselves focusable.
    return accessible.getRole() in (pyatspi.ROLE_TREE, pyatspi.ROLE_TABLE) or has(
        accessible, pyatspi.STATE_FOCUSABLE)


def tab_stops(window):
    """What the Tab key has to visit. Radio buttons of one group share a stop."""
    stops = []
    for accessible in filter(takes_tab, walk(window)):
        is_radio = accessible.getRole() == pyatspi.ROLE_RADIO_BUTTON
        if not (is_radio and any(stop.getRole() == pyatspi.ROLE_RADIO_BUTTON and stop.parent == accessible.parent
                                 for stop in stops)):
            stops.append(accessible)
    return stops


def stop_of(accessible, stops):
    """The stop that is this element or holds it; None when it belongs to none. A list or a text that the Tab key
    need not visit may be one, too."""
    place = accessible
    while place and place.getRole() != pyatspi.ROLE_APPLICATION:
        if place in stops or place.getRole() in ITEM_VIEWS | NO_ROLE | {pyatspi.ROLE_LABEL}:
            return place
        if place.getRole() == pyatspi.ROLE_RADIO_BUTTON:
            return next((stop for stop in stops if stop.parent == place.parent), None)
        place = place.parent
    return None


def goes_backwards(one, other):
    """Whether `other` stands to the left of `one` in the same row of the same group."""
    if one.parent != other.parent:
        return False
    first, second = (place.queryComponent().getExtents(pyatspi.DESKTOP_COORDS) for place in (one, other))
    return first.y < second.y + second.height and second.y < first.y + first.height and second.x < first.x


def out_of_order(ring):
    """Steps of the Tab key from right to left. A ring that is one row has to jump back once."""
    steps = [(one, other) for one, other in zip(ring, ring[1:] + ring[:1]) if goes_backwards(one, other)]
    if len(steps) == 1 and all(stop.parent == ring[0].parent for stop in ring):
        return []
    return [f"the Tab key goes backwards: {label(one)}, then {label(other)}" for one, other in steps]


def check_focus(session, window):
    """Goes round by the Tab key: every stop once, then the first again, each saying that it has the focus."""
    stops = tab_stops(window)
    if len(stops) < 2:
        return []
    visited = []
    while True:
        try:
            focused = session.focus_after(TAB)
        except Missing:
            return [f"no focus reported by the Tab key after {label(visited[-1]) if visited else 'the start'}"]
        stop = stop_of(focused, stops)
        if not stop:
            return [f"the Tab key goes to {label(focused)}, which is no control on screen"]
        if stop in visited:
            break
        visited.append(stop)
    problems = [f"the Tab key never comes to {label(other)}" for other in stops if other not in visited]
    if stop != visited[0]:
        problems.append(f"the Tab key does not come round: from {label(visited[-1])} back to {label(stop)}")
    return problems + out_of_order(visited)
