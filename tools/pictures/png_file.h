#pragma once

#include <string>

class QImage;

namespace marrowfen {

/// A PNG with 32 bits a pixel that says how many of its pixels make a design pixel. It is packed without the filters
/// that other writers put before the packing: flat pictures come out smaller without them, and are read in half the
/// time.
std::string encode_png(const QImage& image, double pixels_per_design_pixel);

}  // namespace marrowfen
