#pragma once

#include <string>

class QImage;

namespace marrowfen {

/// A Windows bitmap with a palette of at most 256 colours, a quarter as large as one without. Its resolution says how
/// many of its pixels make a design pixel, so that whoever shows it in its natural size shows it in the design's size.
/// The byte of each palette entry that the format leaves unused is its opacity: the program shows what lies below, and
/// other readers show the picture without holes.
std::string encode_bitmap(const QImage& image, int pixels_per_design_pixel);

}  // namespace marrowfen
