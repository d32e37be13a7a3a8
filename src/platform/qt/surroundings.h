#pragma once

#include "platform/qt/pictures.h"
#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

class Events;

/// What every surface on the screen is drawn with.
struct Surroundings {
    explicit Surroundings(const Files& files) : faces(files), pictures(files, faces) {}
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;
    ~Surroundings() = default;

    Events* events = nullptr;  ///< nullptr until the display is attached to a desktop
    Scale scale;
    const Typefaces faces;
    const Pictures pictures;
};

}  // namespace marrowfen
