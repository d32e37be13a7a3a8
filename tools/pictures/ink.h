#pragma once

#include <QColor>

namespace marrowfen {

/// Every outline and everything that is read.
constexpr QColor kInk(0x1B, 0x2A, 0x4A);

}  // namespace marrowfen
