#pragma once

#include <string>

class QImage;

namespace marrowfen {

/// A Windows bitmap with 32 bits a pixel and an alpha mask. Its resolution says how many of its pixels
/// make a design pixel, so that whoever shows it in its natural size shows it in the design's size.
std::string encode_bitmap(const QImage& image, int pixels_per_design_pixel);

}  // namespace marrowfen
