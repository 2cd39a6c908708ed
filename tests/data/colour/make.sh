#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# How the colour test files here were made (run once from tests/data; the results are committed).
# Needs liblcms2-utils (jpgicc), libimage-exiftool-perl, libheif-examples (heif-convert),
# python3-pil and colord-data (the Adobe RGB and sRGB profiles). References are computed by
# other programs than Vorel: heif-convert decodes, Pillow's ImageCms converts to sRGB with
# perceptual intent.
set -euo pipefail
cd "$(dirname "$0")/.."
icc=/usr/share/color/icc/colord
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
rm -f colour/*.jpg colour/*.png colour/*.tif

# A test photo converted to Adobe RGB and tagged with that profile, in JPEG, PNG and TIFF.
jpgicc -q92 -e -o"$icc/AdobeRGB1998.icc" stereo/left.jpg colour/adobe-rgb.jpg
# The same pixels untagged, marked Adobe RGB only by the camera's way: Exif InteropIndex R03.
exiftool -q -o colour/adobe-rgb-exif.jpg -icc_profile= -InteropIndex=R03 -ColorSpace#=65535 colour/adobe-rgb.jpg
# The test photo tagged with an sRGB profile: its pixels must come out untouched.
exiftool -q -o colour/srgb-tagged.jpg "-icc_profile<=$icc/sRGB.icc" stereo/left.jpg

for f in vision-pro.HEIC iphone_13_pro_max.heic; do heif-convert "heic/$f" "$tmp/${f%.*}.png" >/dev/null; done
cp "$tmp/vision-pro-1.png" "$tmp/vision-pro.png" # the primary picture

/usr/bin/python3 - "$tmp" <<'PY'
import io, sys
from PIL import Image, ImageCms
tmp = sys.argv[1]
srgb = ImageCms.createProfile("sRGB")

def to_srgb(image):
    profile = ImageCms.ImageCmsProfile(io.BytesIO(image.info["icc_profile"]))
    return ImageCms.profileToProfile(image.convert("RGB"), profile, srgb, ImageCms.Intent.PERCEPTUAL)

adobe = Image.open("colour/adobe-rgb.jpg")
adobe.save("colour/adobe-rgb.png", icc_profile=adobe.info["icc_profile"])
adobe.save("colour/adobe-rgb.tif", icc_profile=adobe.info["icc_profile"], compression="tiff_deflate")
to_srgb(adobe).save("colour/adobe-rgb.srgb.png")

# Three 64x64 crops of each P3 picture, side by side, at fixed places.
for name in ("vision-pro", "iphone_13_pro_max"):
    source = Image.open(f"{tmp}/{name}.png")
    converted = to_srgb(source)
    w, h = converted.size
    strip = Image.new("RGB", (192, 64))
    for i, (x, y) in enumerate([(w // 4, h // 4), (w // 2, h // 2), (3 * w // 4, 3 * h // 5)]):
        strip.paste(converted.crop((x, y, x + 64, y + 64)), (64 * i, 0))
    strip.save(f"colour/{name}.srgb-crops.png")
PY
