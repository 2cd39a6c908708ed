// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the JPS descriptor, parsed from the bytes as an APP3 payload and read from them
// as a file, is a descriptor or a JpsError; a parsed descriptor writes a segment that parses
// back to it.
#include "formats/jps.h"
#include "fuzz/fuzzinput.h"

namespace {

void parse(const QByteArray &payload)
{
    try {
        const Vorel::JpsDescriptor descriptor = Vorel::parseJpsDescriptor(payload);
        const QByteArray segment = Vorel::jpsDescriptorSegment(descriptor);
        Vorel::Fuzz::check(Vorel::parseJpsDescriptor(segment.mid(4)) == descriptor); // after marker and length
    } catch (const Vorel::JpsError &) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file = Vorel::Fuzz::bytes(data, size);
    parse(file);
    try {
        Vorel::readJpsDescriptor(Vorel::Fuzz::writeFile(file, QStringLiteral("in.jps")));
    } catch (const Vorel::JpsError &) {
    }
    return 0;
}
