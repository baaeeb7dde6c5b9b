"""What a line carries and when: the bytes of frame after frame at its rate, and pauses."""


class Wire:
    """Time is given, in seconds, and only ever grows."""

    LONGEST_HALT = 0.5  # seconds; after a longer one the line does not catch up

    def __init__(self, rate):
        self.set_rate(rate)
        self.pause = 0.0  # seconds, after each frame
        self._waiting = b""
        self._carried_until = 0.0

    def set_rate(self, rate):
        """In bit/s; ten bits make a byte."""
        self._bytes_per_second = rate / 10

    def carry(self, now, next_frame):
        """The bytes that have come through since the last call."""
        self._carried_until = max(self._carried_until, now - self.LONGEST_HALT)
        carried = b""
        while (due := int((now - self._carried_until) * self._bytes_per_second)) > 0:
            self._waiting = self._waiting or next_frame()
            part, self._waiting = self._waiting[:due], self._waiting[due:]
            carried += part
            self._carried_until += len(part) / self._bytes_per_second
            if not self._waiting:
                self._carried_until += self.pause
        return carried


def _parity_bit(byte):
    return byte.bit_count() % 2 << 7


# What a station sees that expects eight bits and no parity.
PARITIES = {
    "none": bytes,
    "even": lambda data: bytes(byte & 0x7F | _parity_bit(byte & 0x7F) for byte in data),
    "odd": lambda data: bytes(byte & 0x7F | _parity_bit(byte & 0x7F) ^ 0x80 for byte in data),
}
