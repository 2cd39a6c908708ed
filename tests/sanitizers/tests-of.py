#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Prints the ctest pattern that selects exactly the tests run by the given test executables.

Usage: tests-of.py BUILD_DIR EXECUTABLE...

A build that makes only some of the test executables still lists every test; this picks the
tests of the executables it made (by file name, also behind a launcher such as setpriv).
"""
import json
import os
import re
import subprocess
import sys

build, wanted = sys.argv[1], set(sys.argv[2:])
listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"],
                         check=True, capture_output=True, text=True).stdout
names = [test["name"] for test in json.loads(listing)["tests"]
         if wanted & {os.path.basename(arg) for arg in test.get("command", [])}]
if not names:
    sys.exit(f"tests-of.py: no tests of {' '.join(sorted(wanted))} in {build}")
print("^(" + "|".join(re.sub(r"([][^$.*+?()|\\])", r"\\\1", name) for name in names) + ")$")
