"""The check of an accessible tree finds what it looks for, and nothing else."""

import unittest

from a11y_rules import Part, faults, missing


def window(*parts, **more):
    return Part("frame", "Window", parts=list(parts), **more)


def button(name="", **more):
    return Part("push button", name, actions=("Press",), focusable=True, **more)


class Faults(unittest.TestCase):

    def test_sound_window(self):
        sound = window(
            button("Save"), Part("text", "Name", focusable=True), Part("filler", parts=[
                Part("combo box", "Every Day", labels=("Schedule",), actions=("Press",)),
                Part("list", parts=[Part("list item", "Every Day", actions=("Toggle",)),
                                    Part("list item", selectable=False)])]),
            Part("label"), Part("image"))
        self.assertEqual(faults(sound), [])

    def test_every_kind_needs_a_name(self):
        for role in ("push button", "check box", "text", "spin button", "slider", "menu item",
                     "list item", "tree item"):
            found = faults(window(Part("filler", parts=[Part(role, actions=("Press",))])))
            self.assertEqual(found, [f"{role} without a name (it shows '')"])

    def test_window_needs_a_name(self):
        self.assertEqual(len(faults(Part("dialog"))), 1)
        self.assertEqual(len(faults(Part("frame"))), 1)
        self.assertEqual(len(faults(window(Part("dialog")))), 1)
        self.assertEqual(faults(window(Part("frame"))), [], "a border is no window")

    def test_blank_is_no_name(self):
        self.assertEqual(len(faults(window(button(" ")))), 1)

    def test_label_names_a_field(self):
        self.assertEqual(faults(window(Part("text", labels=("Interval",)))), [])

    def test_item_of_a_pop_up_is_not_its_name(self):
        found = faults(window(Part("combo box", "seconds", actions=("Press",))))
        self.assertEqual(found, ["combo box without a name (it shows 'seconds')"])
        found = faults(window(Part("combo box", "seconds", labels=("",), actions=("Press",))))
        self.assertEqual(len(found), 1)

    def test_hidden_is_passed_over_with_all_it_holds(self):
        hidden = Part("filler", showing=False, parts=[button()])
        self.assertEqual(faults(window(hidden)), [])

    def test_focus_needs_a_role(self):
        self.assertEqual(len(faults(window(Part("filler", "Well", focusable=True)))), 1)

    def test_button_without_action(self):
        self.assertEqual(faults(window(Part("push button", "Save"))),
                         ["push button 'Save' cannot be pressed"])
        self.assertEqual(faults(window(Part("push button", "Save", sensitive=False))), [])

    def test_two_of_one_name(self):
        self.assertEqual(faults(window(button("Save"), button("Save"))),
                         ["push button 'Save' is there twice"])
        self.assertEqual(faults(window(button("Save"), Part("text", "Save"))), [])

    def test_missing(self):
        tree = window(button("Save"), Part("filler", showing=False, parts=[button("Close")]))
        self.assertEqual(missing(tree, ["push button 'Save'", "check box 'Save'",
                                        "push button 'Close'"]),
                         ["check box 'Save'", "push button 'Close'"])


if __name__ == "__main__":
    unittest.main()
