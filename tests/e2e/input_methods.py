"""The four input methods; each implements everything that a scenario needs.

Import it only on a running Desktop: the binding connects to its bus on import.
"""

from atspi_driver import AtspiDriver

# By a command's title in the toolbar: its shortcut, and the keys that choose it in the menus.
COMMANDS = {
    "New": ("ctrl+n", ("alt+f", "n")),
    "Edit": ("ctrl+o", ("alt+f", "o")),
    "Save": ("ctrl+s", ("alt+f", "s")),
    "Load": ("ctrl+l", ("alt+a", "l")),
    "Unload": ("ctrl+shift+l", ("alt+a", "u")),
    "On/Off": ("ctrl+shift+e", ("alt+a", "o")),
    "Delete": ("ctrl+shift+BackSpace", ("alt+a", "d")),
}
# The keys that reach the controls of the form; Tab reaches all others.
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
SCRIPT = "Script"  # title of the pop-over and name of its field


class Pointer:
    """Clicks and drags; uses the keyboard for texts, and for Return after a typed path."""

    def __init__(self, driver):
        self.driver = driver

    def command(self, title):
        self.driver.click("button", title)

    def write(self, field, text):
        self.driver.write(field, text)

    def choose(self, pop_up, item):
        node = self.driver.click("pop-up", pop_up)
        wanted = next(each for each in self.driver.items(node) if each.name == item)
        self.driver.click_node(wanted)
        self.driver.wait_until(lambda: not self.driver.is_expanded(node), f"'{item}' to be chosen")

    def set_time(self, name, time):
        self.driver.set_time(name, time)

    def set_level(self, slider, level):
        """Moves a slider from its centre."""
        self.driver.drag_slider(slider, level)

    def toggle(self, box):
        node = self.driver.find("check box", box)
        before = self.driver.is_checked(node)
        self.turn(box)
        self.driver.wait_until(lambda: self.driver.is_checked(node) != before, f"'{box}' to turn")

    def turn(self, box):
        self.driver.click("check box", box)

    def answer_panel(self, path, prompt):
        self.driver.answer_panel(path, prompt)

    def accept_panel(self, prompt):
        """Accepts the path that a file panel proposes."""
        panel = self.driver.find_panel(prompt)
        self.press_button(prompt)
        return panel

    def cancel_panel(self, prompt):
        panel = self.driver.find_panel(prompt)
        self.press_button("Cancel")
        self.driver.wait_until_gone(panel)

    def press_button(self, button):
        self.driver.click("button", button)

    def reply(self, title, button):
        """Answers the sheet of that title and waits until it is closed."""
        window = self.driver.find_window(title)
        self.press_button(button)
        self.driver.wait_until_gone(window)

    def write_script(self, text):
        """Types into the open script pop-over."""
        self.driver.type_into_pop_over(SCRIPT, text)

    def close_script(self):
        """Waits for the script pop-over and closes it by a click outside."""
        self._wait_for_script()
        self.driver.click_beside_pop_over()
        self._wait_until_script_is_gone()

    def open_preferences(self):
        self.driver.click_menu_item("Frimbolate", "Preferences…")

    def toggle_tips(self):
        self.turn("Tips")

    def close_window(self):
        self.driver.click_menu_item("File", "Close Window")

    def quit(self):
        self.driver.click_menu_item("Frimbolate", "Quit Frimbolate")

    def _wait_for_script(self):
        self.driver.wait_until(lambda: self.driver.pop_over_shows(SCRIPT), "the pop-over to open")

    def _wait_until_script_is_gone(self):
        self.driver.wait_until(lambda: not self.driver.pop_over_shows(SCRIPT),
                               "the pop-over to close")


class Keyboard(Pointer):
    """Uses the keyboard only: shortcuts, mnemonics, Tab, arrows, Return, Escape."""

    def command(self, title):
        self.driver.find("button", title)
        self.driver.press(COMMANDS[title][0])

    def reach(self, kind, name):
        node = self.driver.find(kind, name)
        if name in MNEMONICS:
            self.driver.press(MNEMONICS[name])
            self.driver.wait_for_focus(node)
        else:
            self.driver.tab_to(node)
        return node

    def write(self, field, text):
        self.driver.overwrite(self.reach("field", field), text)

    def choose(self, pop_up, item):
        node = self.reach("pop-up", pop_up)
        self.driver.press("Down")
        self.driver.walk_down(node, item)

    def set_time(self, name, time):
        self.driver.type_time(self.reach("time", name), time)

    def set_level(self, slider, level):
        node = self.reach("slider", slider)
        self.driver.press(*["Right" if level > 0 else "Left"] * abs(level))
        self.driver.wait_until(lambda: node.queryValue().currentValue == level, f"level {level}")

    def turn(self, box):
        if box in MNEMONICS:
            self.driver.press(MNEMONICS[box])
        else:
            self.reach("check box", box)
            self.driver.press("space")

    def answer_panel(self, path, prompt):
        panel = self.driver.find_panel(prompt)
        # The panel opens with the focus in its name field.
        self.driver.overwrite(self.driver.find("field", "Name"), path)
        self.driver.press("Return")
        self.driver.wait_until_gone(panel)

    def accept_panel(self, prompt):
        panel = self.driver.find_panel(prompt)
        self.driver.press("Return")
        return panel

    def cancel_panel(self, prompt):
        panel = self.driver.find_panel(prompt)
        self.driver.press("Escape")
        self.driver.wait_until_gone(panel)

    def press_button(self, button):
        self.driver.tab_to(self.driver.find("button", button))
        self.driver.press("space")

    def close_script(self):
        self._wait_for_script()
        self.driver.press("Escape")
        self._wait_until_script_is_gone()

    def open_preferences(self):
        self.driver.press("ctrl+comma")

    def toggle_tips(self):
        self.driver.press("ctrl+t")

    def close_window(self):
        self.driver.press("ctrl+w")

    def quit(self):
        self.driver.press("ctrl+q")


class Menus(Keyboard):
    """Uses the keyboard, with every command chosen in the menus."""

    def command(self, title):
        self.driver.find("button", title)
        self._menu(*COMMANDS[title][1])

    def open_preferences(self):
        self._menu("alt+b", "p")

    def toggle_tips(self):
        self._menu("alt+v", "t")

    def close_window(self):
        self._menu("alt+f", "c")

    def quit(self):
        self._menu("alt+b", "q")

    def _menu(self, menu, key):
        self.driver.press(menu)
        self.driver.wait_for_menu()
        self.driver.press(key)


class Bus(Pointer):
    """Sets texts and values and triggers actions over the accessibility bus; no keys or clicks."""

    def __init__(self, driver):
        super().__init__(AtspiDriver(driver.program))

    def command(self, title):
        self.driver.use("button", title)

    def write(self, field, text):
        self.driver.set_text("field", field, text)

    def choose(self, pop_up, item):
        self.driver.pick(pop_up, item)

    def set_time(self, name, time):
        self.driver.set_text("time", name, time)

    def set_level(self, slider, level):
        self.driver.set_value(slider, level)

    def turn(self, box):
        self.driver.use("check box", box)

    def answer_panel(self, path, prompt):
        panel = self.driver.find_panel(prompt)
        self.driver.set_text("field", "Name", path)
        self.driver.use("button", prompt)
        self.driver.wait_until_gone(panel)

    def press_button(self, button):
        self.driver.use("button", button)

    def write_script(self, text):
        self.driver.find("dialog", SCRIPT)
        self.driver.set_text("field", SCRIPT, text)

    def close_script(self):
        """Waits for the pop-over but leaves it open: actions reach the window behind it."""
        self._wait_for_script()

    def open_preferences(self):
        self._menu("Frimbolate", "Preferences…")

    def close_window(self):
        self._menu("File", "Close Window")

    def quit(self):
        self._menu("Frimbolate", "Quit Frimbolate")

    def _menu(self, menu, item):
        self.driver.use("item", menu)
        self.driver.use("item", item)


METHODS = {"pointer": Pointer, "keyboard": Keyboard, "menus": Menus, "bus": Bus}
