#pragma once

#include "platform/qt/pictures.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

class Desktop;

/// What every surface on the screen is drawn with.
struct Surroundings {
    explicit Surroundings(const Files& files) : faces(files), pictures(files, faces) {}
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    ~Surroundings() = default;

    Desktop* desktop = nullptr;  ///< nullptr until the display is attached to one
    Scale scale;
    const Typefaces faces;
    const Pictures pictures;
};

}  // namespace marrowfen
