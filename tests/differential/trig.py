"""Sine and its kin as the program has them (src/base/Trig.h): the same library, the same bits on every machine."""

import ctypes
import math
from fractions import Fraction

_library = ctypes.CDLL("libsleef.so.3")


def _function(name):
    function = getattr(_library, f"Sleef_cinz_{name}d1_u10purec")
    function.restype = ctypes.c_double
    function.argtypes = [ctypes.c_double]
    return function


def _of_an_angle(name):
    function = _function(name)

    def checked(angle):
        if math.isinf(angle):
            raise ValueError("an infinite angle")
        return function(angle)
    return checked


sin, cos, atan = _of_an_angle("sin"), _of_an_angle("cos"), _function("atan")


def power(base, exponent):
    """A whole power, rounded once."""
    return float(Fraction(base) ** exponent)
