"""The timing of a line: the bytes of successive frames at its rate, pauses, and parity."""


class Wire:
    """Times are passed in, in seconds, and never decrease."""

    LONGEST_HALT = 0.5  # seconds; after a longer one the line does not catch up

    def __init__(self, rate):
        self.set_rate(rate)
        self.pause = 0.0  # seconds, after each frame
        self._waiting = b""
        self._carried_until = 0.0

    def set_rate(self, rate):
        """In bits per second; a byte has ten bits."""
        self._bytes_per_second = rate / 10

    def carry(self, now, next_frame):
        """The bytes transmitted since the last call."""
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


# The bytes as received by a station that expects eight bits and no parity.
PARITIES = {
    "none": bytes,
    "even": lambda data: bytes(byte & 0x7F | _parity_bit(byte & 0x7F) for byte in data),
    "odd": lambda data: bytes(byte & 0x7F | _parity_bit(byte & 0x7F) ^ 0x80 for byte in data),
}
