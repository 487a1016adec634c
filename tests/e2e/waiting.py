"""Waiting for conditions; no test depends on a fixed delay."""

import time

TIMEOUT = 60  # seconds; far more than a busy machine needs


def wait_until(condition, what):
    """Returns the first true result of condition(); raises TimeoutError that contains `what`."""
    deadline = time.monotonic() + TIMEOUT
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError(f"waited {TIMEOUT} s without success for {what}")
        time.sleep(0.01)


def wait_for(check):
    """Waits until check() raises no AssertionError; raises its last one after TIMEOUT."""
    raised = [None]

    def passes():
        try:
            check()
        except AssertionError as error:
            raised[0] = error
            return False
        return True

    try:
        wait_until(passes, "what was expected")
    except TimeoutError:
        raise raised[0] from None


def expect_equal(found, expected):
    """Compares two dictionaries and names the entries that differ."""
    if found == expected:
        return
    keys = sorted(set(found) | set(expected))
    differences = [f"  {key}: {found.get(key)!r}, expected {expected.get(key)!r}"
                   for key in keys if found.get(key) != expected.get(key)
                   or (key in found) != (key in expected)]
    raise AssertionError("what was found differs:\n" + "\n".join(differences))
