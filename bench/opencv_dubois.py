# SPDX-FileCopyrightText: 2026 The Vorel developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The Python + OpenCV yardstick of batch_bench: every side-by-side JPEG of IN_DIR becomes a
Dubois anaglyph JPEG (quality 90) of the same name in OUT_DIR, one file after another."""

import os
import sys

import cv2
import numpy as np

# Dubois red-cyan matrices; rows give the output (R, G, B), columns act on (R, G, B) of the
# left and of the right view. OpenCV holds pixels as (B, G, R), so both axes are reversed
# below, and the two matrices side by side act on the six channels of left and right stacked.
LEFT = np.array([[0.4561, 0.500484, 0.176381],
                 [-0.0400822, -0.0378246, -0.0157589],
                 [-0.0152161, -0.0205971, -0.00546856]])
RIGHT = np.array([[-0.0434706, -0.0879388, -0.00155529],
                  [0.378476, 0.73364, -0.0184503],
                  [-0.0721527, -0.112961, 1.2264]])
DUBOIS_BGR = np.hstack([LEFT[::-1, ::-1], RIGHT[::-1, ::-1]])


def main(in_dir, out_dir):
    for name in sorted(os.listdir(in_dir)):
        if not name.lower().endswith((".jpg", ".jpeg")):
            continue
        image = cv2.imread(os.path.join(in_dir, name))
        half = image.shape[1] // 2
        views = np.concatenate([image[:, :half], image[:, half:2 * half]], axis=2)
        # cv2.transform sums all six products in floating point before it saturates to a byte.
        anaglyph = cv2.transform(views, DUBOIS_BGR)
        cv2.imwrite(os.path.join(out_dir, name), anaglyph, [cv2.IMWRITE_JPEG_QUALITY, 90])


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
