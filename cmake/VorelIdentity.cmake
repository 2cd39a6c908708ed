# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The version (what both programs print with --version, and the thumbnail cache's fail folder),
# and the application id: the name of the launcher, metainfo, MIME package and icon files,
# which the window reports to Wayland.
set(VOREL_APP_ID org.vorel.vorel)
target_compile_definitions(vorel_engine PUBLIC VOREL_VERSION="${PROJECT_VERSION}")
target_compile_definitions(vorel PRIVATE VOREL_APP_ID="${VOREL_APP_ID}")
