"""The frame layouts of weighing indicators that send without a request.

Each function returns the bytes of one frame for the weight in kilograms; `moving` is true while the
load moves. Weights are whole kilograms; only the layout with a decimal shows a fraction. For the
weight `OVERLOAD` an error text replaces the digits.
"""

import math

OVERLOAD = math.inf
OVERLOAD_TEXT = b"Err 23"

STX, ETX, CR, LF = b"\x02", b"\x03", b"\r", b"\n"


def _sign(weight, positive=b"+"):
    return b"-" if weight < 0 else positive


def _digits(weight, places):
    """The absolute value, padded with zeros, or its last digits if it is too long."""
    if weight == OVERLOAD:
        return OVERLOAD_TEXT.rjust(places)
    return b"%0*d" % (places, abs(round(weight)) % 10**places)


def _right(weight, places):
    """The absolute value, padded with blanks."""
    if weight == OVERLOAD:
        return OVERLOAD_TEXT.rjust(places)
    return b"%*d" % (places, abs(round(weight)) % 10**places)


def checked(weight, moving):
    """STX, sign, 6 digits, number of decimals (0), a checksum of two hex digits, ETX. The checksum is
    the exclusive or of sign, digits and number of decimals."""
    body = _sign(weight) + _digits(weight, 6) + b"0"
    check = 0
    for byte in body:
        check ^= byte
    return STX + body + b"%02X" % check + ETX


def equals_reversed(weight, moving):
    """'=', 7 digits with the lowest first, then '0', or '-' below zero. No end byte."""
    return b"=" + _digits(weight, 7)[::-1] + _sign(weight, positive=b"0")


def equals(weight, moving):
    """'=', 8 digits; below zero the first one is '-'. No end byte."""
    return b"=" + (b"-" + _digits(weight, 7) if weight < 0 else _digits(weight, 8))


def status_bytes(weight, moving):
    """STX, three status bytes, 6 digits of weight, 6 of tare (none here), CR, and a byte that makes
    the lower seven bits of the sum zero. The second status byte contains sign and motion."""
    state = 0x30 + (0x02 if weight < 0 else 0) + (0x08 if moving else 0)
    body = STX + bytes([0x2A, state, 0x20]) + _digits(weight, 6) + b"000000" + CR
    return body + bytes([-sum(body) % 128])


def stx_unit(weight, moving):
    """STX, sign or blank, the number in 7 places padded with blanks, K for kilograms, G for gross, M
    while moving, CR, LF."""
    return (STX + _sign(weight, positive=b" ") + _right(weight, 7) + b"KG"
            + (b"M" if moving else b" ") + CR + LF)


def _header(moving):
    return (b"US" if moving else b"ST") + b",GS,"


def header(weight, moving):
    """'ST' (steady) or 'US' (unsteady), ',GS,', sign, 7 digits, 'kg', CR, LF."""
    return _header(moving) + _sign(weight) + _digits(weight, 7) + b"kg" + CR + LF


def header_blank(weight, moving):
    """Like header, with a blank as the first of the 7 digits, reserved for a decimal point."""
    return _header(moving) + _sign(weight) + b" " + _digits(weight, 6) + b"kg" + CR + LF


def cr_first(weight, moving):
    """CR, sign, 6 digits, m while moving, blank, 'kg', blank, g for gross, two blanks, ETX."""
    return (CR + _sign(weight) + _digits(weight, 6) + (b"m" if moving else b" ") + b" kg g  "
            + ETX)


def lf_first(weight, moving):
    """LF, Z at zero, the number of the range, G for gross, M while moving, blank, the signed number in
    10 places padded with blanks, 'kg', blank, CR."""
    number = OVERLOAD_TEXT.rjust(10) if weight == OVERLOAD else b"%10d" % round(weight)
    return (LF + (b"Z" if number.strip() == b"0" else b" ") + b"1G" + (b"M" if moving else b" ")
            + b" " + number + b"kg " + CR)


def plain(weight, moving):
    """Sign, 6 digits, blank, 'kg', CR, LF."""
    return _sign(weight) + _digits(weight, 6) + b" kg" + CR + LF


def one_decimal(weight, moving):
    """'ST' or 'US', ',GS,', sign, 6 digits, a point, one decimal, 'kg', CR, LF."""
    if weight == OVERLOAD:
        return _header(moving) + b"+" + OVERLOAD_TEXT + b".0kg" + CR + LF
    tenths = round(abs(weight) * 10)
    return (_header(moving) + _sign(weight) + b"%06d.%d" % (tenths // 10 % 10**6, tenths % 10)
            + b"kg" + CR + LF)


LAYOUTS = {layout.__name__.replace("_", "-"): layout
           for layout in (plain, header, header_blank, checked, equals_reversed, equals,
                          status_bytes, stx_unit, cr_first, lf_first, one_decimal)}
