#pragma once

#include <QFont>
#include <QString>

#include "platform/files.h"
#include "platform/forms/look.h"

namespace marrowfen {

/// The faces that children read here. Those in the program's folder `Fonts` are loaded at the start.
class Typefaces {
public:
    explicit Typefaces(const Files& files);
    [[nodiscard]] QFont caption(const Font& font, int pixels) const;
    [[nodiscard]] QFont letters(int pixels) const;  ///< as on keys and tiles

private:
    QString caption_;
    QString letters_;
};

}  // namespace marrowfen
