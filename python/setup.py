"""The version is that of the whole project. All else is in pyproject.toml."""

import re
from pathlib import Path

from setuptools import setup

project = (Path(__file__).resolve().parent.parent / "CMakeLists.txt").read_text()
setup(version=re.search(r"^ +VERSION ([\d.]+)$", project, re.MULTILINE)[1])
