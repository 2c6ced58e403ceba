"""The Dask example of README.md, run as written on worker processes (with
smaller arrays): the blocks converted elsewhere are the single-process
results. Needs Debian's python3-dask; skipped without it."""

import os
import re
import subprocess
import sys

import pytest

from conftest import PACKAGE_ROOT

pytest.importorskip("dask.array")

README = os.path.join(os.path.dirname(PACKAGE_ROOT), "README.md")

CHECK = """
import dask
l, b = dask.compute(lon, lat)
expected = utm.geo2proj(l, b)
assert x.tobytes() == expected[0].tobytes() and y.tobytes() == expected[1].tobytes()
print(x.size)
"""


def test_readme_example_on_processes(tmp_path):
    with open(README) as f:
        blocks = re.findall(r"```python\n(.*?)```", f.read(), re.S)
    example = next(b for b in blocks if "dask.array" in b and "map_blocks" in b)
    small = example.replace("40_000_000", "400_000").replace("5_000_000", "100_000")
    assert small.count("400_000") == 2 and small.count("100_000") == 2, "the example changed"
    env = dict(os.environ, PYTHONPATH=PACKAGE_ROOT)
    run = subprocess.run([sys.executable, "-c", small + CHECK], cwd=tmp_path, env=env,
                         capture_output=True, text=True, timeout=300)
    assert run.returncode == 0 and run.stdout.split() == ["400000"], run.stderr
