"""Waits for conditions, never for times."""

import time

# In seconds, for a slow or busy machine. It only limits how long a failure takes.
DEADLINE = 60.0


class Missed(Exception):
    """A condition was not fulfilled before its deadline."""


def wait_until(what, condition, deadline=DEADLINE):
    """Polls until the condition returns a true value, and returns it."""
    end = time.monotonic() + deadline
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Missed(f"waited {deadline:g} seconds for: {what}")
        time.sleep(0.05)
