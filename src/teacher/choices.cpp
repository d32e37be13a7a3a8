#include "teacher/choices.h"

#include <QComboBox>
#include <QCompleter>
#include <QSignalBlocker>
#include <QStandardItemModel>

#include "teacher/office.h"

namespace marrowfen {

namespace {

/// Fills the list in one step, which thirty thousand names need, and keeps what was chosen.
template <class Fill>
void refill(QComboBox& box, const QString& none, const Fill& fill) {
    const QSignalBlocker quiet(box);
    const auto before = chosen_in(box);
    auto* items = new QStandardItemModel(&box);
    const auto add = [items](const QString& text, std::optional<std::int64_t> number) {
        auto* item = new QStandardItem(text);
        if (number) item->setData(QVariant::fromValue<qlonglong>(*number), Qt::UserRole);
        items->appendRow(item);
    };
    if (!none.isEmpty()) add(none, {});
    fill(add);
    box.setModel(items);  // which lets the one before go
    if (box.completer()) box.completer()->setModel(items);
    const int place = before ? box.findData(QVariant::fromValue<qlonglong>(*before)) : 0;
    box.setCurrentIndex(place >= 0 || items->rowCount() == 0 ? place : 0);
}

}  // namespace

void offer_pupils(QComboBox& box, const Book& book, const QString& nobody) {
    refill(box, nobody, [&](const auto& add) {
        for (const KeptPupil& pupil : book.pupils()) add(shown(pupil.name), pupil.number);
    });
}

void offer_games(QComboBox& box, const Book& book, const QString& none) {
    refill(box, none, [&](const auto& add) {
        for (const GameEntry& game : book.games()) add(shown(game.title()), game.id);
    });
}

std::optional<std::int64_t> chosen_in(const QComboBox& box) {
    const QVariant data = box.currentData();
    return data.isValid() ? std::optional<std::int64_t>(data.toLongLong()) : std::nullopt;
}

void let_type(QComboBox& box) {
    box.setEditable(true);
    box.setInsertPolicy(QComboBox::NoInsert);
    auto* completer = new QCompleter(box.model(), &box);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    box.setCompleter(completer);
}

}  // namespace marrowfen
