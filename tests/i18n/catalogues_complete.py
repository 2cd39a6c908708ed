#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""catalogues_complete.py LUPDATE ROOT CATALOGUE.ts... -- DIR...

Extracts the texts of the code in DIRs (relative to ROOT) with lupdate and fails when a
catalogue lacks one, leaves one unfinished or drops or adds a %1-style placeholder, so
translations never fall behind the code unnoticed. A lupdate warning fails too: it means a
text was found in a translation context the program does not use at run time.
"""
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET


def messages(path):
    found = {}
    for context in ET.parse(path).getroot().iter("context"):
        name = context.findtext("name")
        for message in context.iter("message"):
            found[(name, message.findtext("source"))] = message.find("translation")
    return found


def placeholders(text):
    return sorted(re.findall(r"%(?:\d+|n)", text or ""))


def problem(source, translation):
    if translation is None:
        return "missing"
    if translation.get("type") in ("unfinished", "obsolete", "vanished"):
        return translation.get("type")
    forms = [form.text for form in translation.iter("numerusform")] or [translation.text]
    if not all(forms):
        return "empty"
    if any(placeholders(form) != placeholders(source) for form in forms if "%n" not in source):
        return "placeholders differ"
    return None


def main():
    lupdate, root, *rest = sys.argv[1:]
    separator = rest.index("--")
    catalogues, dirs = rest[:separator], rest[separator + 1:]
    with tempfile.TemporaryDirectory() as scratch:
        current = os.path.join(scratch, "current.ts")
        run = subprocess.run([lupdate, "-silent", "-I", root, "-locations", "none",
                              *[os.path.join(root, d) for d in dirs], "-ts", current],
                             capture_output=True, text=True)
        if run.returncode or run.stderr.strip():
            print("lupdate:", run.stderr.strip() or "exit status %d" % run.returncode)
            return 1
        wanted = messages(current)
    failures = 0
    for catalogue in catalogues:
        have = messages(catalogue)
        for (context, source) in sorted(wanted):
            why = problem(source, have.get((context, source)))
            if why:
                failures += 1
                print("%s: %s [%s] %r" % (os.path.basename(catalogue), why, context, source))
    print("%d texts, %d catalogue(s), %d problem(s)" % (len(wanted), len(catalogues), failures))
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
