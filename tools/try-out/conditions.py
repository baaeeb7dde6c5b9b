"""Waiting for conditions, never for times."""

import time


class Missed(Exception):
    """A condition did not come true before its deadline."""


def wait_until(told, condition, deadline=20.0):
    """Asks again and again until the condition gives something true, and returns that."""
    end = time.monotonic() + deadline
    while True:
        value = condition()
        if value:
            return value
        if time.monotonic() > end:
            raise Missed(f"waited {deadline:g} seconds for: {told}")
        time.sleep(0.05)
