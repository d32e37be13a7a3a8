#pragma once

#include <QPageLayout>
#include <functional>

#include "teacher/office.h"

class QPagedPaintDevice;
class QPrinter;

namespace marrowfen {

/// Something for paper: how the page lies, and what stands on it.
struct Paper {
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    std::function<void(QPrinter&)> paint;
};

/// A pupil's best result in a game, in the manner of the games.
[[nodiscard]] Paper certificate(Office& office, std::int64_t pupil, std::int64_t game);
/// Pupils by games, in as many pages as it takes.
[[nodiscard]] Paper class_table(Office& office);

/// Through the desktop's own dialog.
void print_on_paper(QWidget* parent, const Paper& paper);
/// Asks where to. A file is there whole or not at all.
void save_as_pdf(QWidget* parent, Office& office, const Paper& paper, const QString& suggested_name);
/// Answers whether the file is there.
[[nodiscard]] bool write_pdf(const QString& file, const Paper& paper);

}  // namespace marrowfen
