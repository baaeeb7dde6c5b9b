"""The load on the scale: a constant weight, or a truck that drives on, settles and drives off."""

import math

DIVISION = 10  # kilograms; the resolution of a truck scale
DRIVING_ON, SWAYING, DRIVING_OFF = 3.0, 2.0, 2.0  # seconds


class Scale:
    """The weight at any time. Times are passed in, in seconds, and never decrease."""

    def __init__(self, weight=0.0):
        self._from, self._to = weight, weight
        self._since, self._how = 0.0, "still"

    def put(self, weight):
        """Sets a settled weight."""
        self._from, self._to, self._how = weight, weight, "still"

    def drive_on(self, weight, now):
        """Increases axle by axle to the weight; sways a little, then settles."""
        self._start("on", weight, now)

    def drive_off(self, now):
        self._start("off", 0.0, now)

    def _start(self, how, weight, now):
        self._from, self._to = self.reading(now)[0], weight
        self._since, self._how = now, how

    def reading(self, now):
        """The weight in kilograms, and true while the load moves."""
        passed = now - self._since
        if self._how == "on":
            return self._driving_on(passed)
        if self._how == "off" and passed < DRIVING_OFF:
            return self._shown(self._from + (self._to - self._from) * passed / DRIVING_OFF), True
        return self._to, False

    def _driving_on(self, passed):
        step = self._to - self._from
        if passed < DRIVING_ON:
            axles = min(3, int(passed / DRIVING_ON * 4))
            share = (0.0, 0.3, 0.65, 1.0)[axles]
            return self._shown(self._from + step * share + 40 * math.sin(passed * 9)), True
        passed -= DRIVING_ON
        if passed < SWAYING:
            sway = step * 0.01 * math.exp(-2 * passed) * math.sin(passed * 12)
            return self._shown(self._to + sway), True
        return self._to, False

    @staticmethod
    def _shown(weight):
        return float(round(weight / DIVISION) * DIVISION)


class TruckRound:
    """An endless sequence of trucks: loaded on, off, empty on, off."""

    EMPTY_SCALE, STANDING = 4.0, 15.0  # seconds

    def __init__(self, loaded, empty):
        self._weights = (loaded, empty)
        self._next, self._step = 0.0, 0

    def advance(self, scale, now):
        if now < self._next:
            return
        if self._step % 2 == 0:
            scale.drive_on(self._weights[self._step // 2 % 2], now)
            self._next = now + DRIVING_ON + SWAYING + self.STANDING
        else:
            scale.drive_off(now)
            self._next = now + DRIVING_OFF + self.EMPTY_SCALE
        self._step += 1
