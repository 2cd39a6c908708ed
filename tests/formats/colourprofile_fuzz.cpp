// SPDX-FileCopyrightText: 2026 The Vorel developers
// SPDX-License-Identifier: GPL-3.0-or-later
// Fuzz target: the colour profile of any bytes, read as a JPEG, PNG or TIFF file and from every
// top-level image of them as a HEIF file, then used as the pictures' profile is: a small
// picture converted from it to sRGB keeps its size.
#include <vector>

#include "formats/colourprofile.h"
#include "formats/heifimage.h"
#include "formats/srgbconversion.h"
#include "fuzz/fuzzinput.h"

namespace {

void convertWith(const QByteArray &profile)
{
    if (profile.isEmpty())
        return;
    QImage picture(3, 2, QImage::Format_RGB32);
    picture.fill(QColor(200, 120, 40));
    Vorel::Fuzz::check(Vorel::convertedToSrgb(picture, profile).size() == picture.size());
}

void heifProfiles(const QByteArray &file)
{
    const Vorel::Heif::Context context = Vorel::Heif::openContext(file);
    if (!context)
        return;
    std::vector<heif_item_id> ids(size_t(heif_context_get_number_of_top_level_images(context.get())));
    heif_context_get_list_of_top_level_image_IDs(context.get(), ids.data(), int(ids.size()));
    for (const heif_item_id id : ids) {
        heif_image_handle *raw = nullptr;
        if (heif_context_get_image_handle(context.get(), id, &raw).code != heif_error_Ok)
            continue;
        const Vorel::Heif::Handle handle(raw);
        convertWith(Vorel::heifColourProfile(handle.get()));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray file = Vorel::Fuzz::bytes(data, size);
    convertWith(Vorel::fileColourProfile(file));
    heifProfiles(file);
    return 0;
}
