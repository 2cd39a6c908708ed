# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later

# The Debian package: cpack -G DEB in the build tree writes vorel_VERSION_ARCH.deb.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorel)
set(CPACK_PACKAGE_VENDOR "The Vorel developers")
set(CPACK_PACKAGE_CONTACT "The Vorel developers <developers@vorel.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://vorel.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "stereo photo editor and converter")
set(CPACK_PACKAGE_DESCRIPTION "\
Vorel opens stereoscopic (3-D) photos: side-by-side and over/under pictures,
separate left and right files, MPO files from 3-D cameras, JPS and PNS files
and HEIC spatial photos. It aligns the two views by hand or automatically,
matches their colours, crops, resizes and frames them, and saves them as
side-by-side, interlaced or anaglyph pictures, MPO, JPS or spatial photos.
.
The command line tool vorel-cli runs the same processing over single pairs
or whole folders.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# The default install plus the component that only a Debian package carries.
set(CPACK_INSTALL_CMAKE_PROJECTS "${CMAKE_BINARY_DIR};Vorel;ALL;/;${CMAKE_BINARY_DIR};Vorel;debian;/")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# TIFF is read and written through a Qt plug-in, which no binary links to; the serial OpenBLAS
# is loaded from its own folder (the libopenblas0 found by dpkg-shlibdeps may be another build).
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-image-formats-plugins, libopenblas0-serial")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
include(CPack)
