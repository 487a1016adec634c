"""The four ways in which a person does the same things: pointer, keyboard, menus, bus.

Each way offers command, write, choose, set_time, set_level, toggle, answer_panel, press_button and
reply.
"""

# What a command is called in the toolbar, its shortcut, and the keys that find it in the menus.
COMMANDS = {
    "New": ("ctrl+n", ("alt+f", "n")),
    "Edit": ("ctrl+o", ("alt+f", "o")),
    "Save": ("ctrl+s", ("alt+f", "s")),
    "Load": ("ctrl+l", ("alt+a", "l")),
    "Unload": ("ctrl+shift+l", ("alt+a", "u")),
    "On/Off": ("ctrl+shift+e", ("alt+a", "o")),
    "Delete": ("ctrl+shift+BackSpace", ("alt+a", "d")),
}
# The keys by which the controls of the form are reached; "Tab" leads on from the schedule.
MNEMONICS = {
    "Name": "alt+n",
    "What to launch": "alt+w",
    "When to launch": "alt+t",
    "Schedule": "alt+s",
    "Advanced": "ctrl+shift+d",
    "Priority": "alt+p",
    "Nice level": "alt+i",
    "Standard input": "alt+d",
    "Standard output": "alt+u",
    "Standard error": "alt+r",
    "Working folder": "alt+k",
    "Root folder": "alt+l",
    "Queue folder": "alt+q",
    "Expand wildcards in arguments": "alt+x",
    "Allow successful exit": "alt+o",
    "Agent loads": "alt+g",
    "Volume mounts": "alt+m",
    "Path changes": "alt+c",
}


class Pointer:
    """Clicks everything; only texts are typed."""

    def __init__(self, person):
        self.person = person

    def command(self, title):
        self.person.click("button", title)

    def write(self, field, text):
        self.person.write(field, text)

    def choose(self, pop_up, item):
        node = self.person.click("pop-up", pop_up)
        wanted = next(each for each in self.person.items(node) if each.name == item)
        self.person.click_node(wanted)
        self.person.wait_until(lambda: not self.person.is_expanded(node), f"'{item}' to be chosen")

    def set_time(self, name, time):
        self.person.set_time(name, time)

    def set_level(self, slider, level):
        """Moves a slider that stands in its middle."""
        node = self.person.look("slider", slider)
        self.person.press(MNEMONICS[slider])
        self.person.wait_for_focus(node)
        self.person.press(*["Right" if level > 0 else "Left"] * abs(level))
        self.person.wait_until(lambda: node.queryValue().currentValue == level, f"level {level}")

    def toggle(self, box):
        self.person.click("check box", box)

    def answer_panel(self, path, prompt):
        self.person.answer_panel(path, prompt)

    def press_button(self, button):
        self.person.click("button", button)

    def reply(self, title, button):
        """Answers the sheet of that title, and waits until it is gone."""
        window = self.person.look_at_window(title)
        self.press_button(button)
        self.person.wait_until_gone(window)


class Keyboard(Pointer):
    """Touches no pointer: shortcuts, mnemonics, Tab, arrows, Return."""

    def command(self, title):
        self.person.look("button", title)
        self.person.press(COMMANDS[title][0])

    def reach(self, kind, name):
        node = self.person.look(kind, name)
        if name in MNEMONICS:
            self.person.press(MNEMONICS[name])
            self.person.wait_for_focus(node)
        else:
            self.person.tab_to(node)
        return node

    def write(self, field, text):
        self.person.overwrite(self.reach("field", field), text)

    def choose(self, pop_up, item):
        node = self.reach("pop-up", pop_up)
        self.person.press("Down")
        self.person.walk_down(node, item)

    def set_time(self, name, time):
        self.person.type_time(self.reach("time", name), time)

    def toggle(self, box):
        node = self.person.look("check box", box)
        before = self.person.is_checked(node)
        self.person.press(MNEMONICS[box])
        self.person.wait_until(lambda: self.person.is_checked(node) != before, f"'{box}' to turn")

    def answer_panel(self, path, prompt):
        panel = self.person.look_at_panel(prompt)
        # The panel opens with the keyboard in its name field.
        self.person.overwrite(self.person.look("field", "Name"), path)
        self.person.press("Return")
        self.person.wait_until_gone(panel)

    def press_button(self, button):
        self.person.tab_to(self.person.look("button", button))
        self.person.press("space")


class Menus(Keyboard):
    """The keyboard again, but commands are looked up in the menus."""

    def command(self, title):
        self.person.look("button", title)
        menu, key = COMMANDS[title][1]
        self.person.press(menu)
        self.person.wait_for_menu()
        self.person.press(key)


class Bus(Pointer):
    """Does what an assistive tool does: sets texts and sends actions to the controls."""

    def command(self, title):
        self.person.act("button", title)

    def write(self, field, text):
        self.person.set_text(field, text)

    def choose(self, pop_up, item):
        node = self.person.look("pop-up", pop_up)
        self.person.act("pop-up", pop_up, "Press")
        # Chosen with the keys; test_a11y_only.py chooses over the bus as well.
        self.person.walk_down(node, item)

    def toggle(self, box):
        self.person.act("check box", box)

    def answer_panel(self, path, prompt):
        panel = self.person.look_at_panel(prompt)
        self.person.set_text("Name", path)
        self.person.act("button", prompt)
        self.person.wait_until_gone(panel)

    def press_button(self, button):
        self.person.act("button", button)
