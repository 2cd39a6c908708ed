#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# lintian.sh DIR: the package has no lintian error or warning. The overrides it carries
# (usr/share/lintian/overrides/vorel) say why each one is intended.
set -euo pipefail
lintian --fail-on error,warning "$1"/vorel_*.deb
