"""The rules for accessible trees find each kind of fault, and none in a correct tree."""

import pytest

from a11y_rules import Part, faults, missing


def window(*parts, **more):
    return Part("frame", "Window", parts=list(parts), **more)


def button(name="", **more):
    return Part("push button", name, actions=("Press",), focusable=True, **more)


def test_sound_window():
    sound = window(
        button("Save"), Part("text", "Name", focusable=True), Part("filler", parts=[
            Part("combo box", "Every Day", labels=("Schedule",), actions=("Press",)),
            Part("list", parts=[Part("list item", "Every Day", actions=("Toggle",)),
                                Part("list item", selectable=False)])]),
        Part("label"), Part("image"))
    assert faults(sound) == []


@pytest.mark.parametrize("role", (
    "push button", "check box", "text", "spin button", "slider", "menu item", "list item",
    "tree item"))
def test_control_needs_a_name(role):
    found = faults(window(Part("filler", parts=[Part(role, actions=("Press",))])))
    assert found == [f"{role} without a name (it shows '')"]


def test_window_needs_a_name():
    assert len(faults(Part("dialog"))) == 1
    assert len(faults(Part("frame"))) == 1
    assert len(faults(window(Part("dialog")))) == 1
    assert faults(window(Part("frame"))) == [], "a border is no window"


def test_blank_is_no_name():
    assert len(faults(window(button(" ")))) == 1


def test_label_names_a_field():
    assert faults(window(Part("text", labels=("Interval",)))) == []


@pytest.mark.parametrize("labels", ((), ("",)))
def test_item_of_a_pop_up_is_not_its_name(labels):
    found = faults(window(Part("combo box", "seconds", labels=labels, actions=("Press",))))
    assert found == ["combo box without a name (it shows 'seconds')"]


def test_hidden_part_is_passed_over_with_its_descendants():
    hidden = Part("filler", showing=False, parts=[button()])
    assert faults(window(hidden)) == []


def test_focus_needs_a_role():
    assert len(faults(window(Part("filler", "Well", focusable=True)))) == 1


def test_button_without_action():
    assert faults(window(Part("push button", "Save"))) == ["push button 'Save' cannot be pressed"]
    assert faults(window(Part("push button", "Save", sensitive=False))) == []


def test_two_of_one_name():
    assert faults(window(button("Save"), button("Save"))) == ["push button 'Save' is there twice"]
    assert faults(window(button("Save"), Part("text", "Save"))) == []


def test_missing():
    tree = window(button("Save"), Part("filler", showing=False, parts=[button("Close")]))
    assert missing(tree, ["push button 'Save'", "check box 'Save'", "push button 'Close'"]) == [
        "check box 'Save'", "push button 'Close'"]
