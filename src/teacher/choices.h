#pragma once

#include <cstdint>
#include <optional>

#include "school/book.h"

class QComboBox;
class QString;

/// The lists of pupils and games that several pages offer.
namespace marrowfen {

/// Lists all pupils, with `nobody` first unless it is empty. The pupil who was chosen stays so.
void offer_pupils(QComboBox& box, const Book& book, const QString& nobody);
/// The listed games in their order, then the others.
void offer_games(QComboBox& box, const Book& book, const QString& none);
[[nodiscard]] std::optional<std::int64_t> chosen_in(const QComboBox& box);
/// A part of an entry that is typed finds it.
void let_type(QComboBox& box);

}  // namespace marrowfen
