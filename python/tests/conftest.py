"""Run against the package in this source tree and the library named by
$GXCART_LIBRARY (CTest sets it to the library it built, and points HOME and
XDG_DATA_HOME at a test folder)."""

import os
import sys

import pytest

PACKAGE_ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, PACKAGE_ROOT)
WKT_DATA = os.path.join(os.path.dirname(PACKAGE_ROOT), "tests", "data", "wkt")

import gxcart  # noqa: E402


def prj(name):
    with open(os.path.join(WKT_DATA, name)) as f:
        return f.read()


@pytest.fixture
def utm32():
    with gxcart.MapProjection("UTM-32") as mp:
        yield mp
