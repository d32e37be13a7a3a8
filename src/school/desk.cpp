#include "school/desk.h"

#include <algorithm>

#include "platform/text/letters.h"
#include "school/names.h"

namespace marrowfen {

std::string counted(std::int64_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string named_or_counted(const Book& book, const std::vector<std::int64_t>& pupils) {
    return pupils.size() == 1 ? book.name_of(pupils.front()) : counted(std::ssize(pupils), "pupil");
}

std::optional<StoreFailure> Desk::take(std::string name, const Change& change, const Progress& progress) {
    auto reverse = register_.apply(change, progress);
    if (const auto* failure = reverse.failure()) return *failure;
    steps_.push_back({std::move(name), std::move(reverse).value()});
    return std::nullopt;
}

std::optional<StoreFailure> Desk::add(const std::vector<std::string>& names, const Progress& progress) {
    Change change;
    GivenNames given(book_.pupils());
    for (const std::string& typed : names) {
        std::string name = tidied(typed);
        if (auto fault = fault_in_name(name); !fault.empty()) return StoreFailure{std::move(fault)};
        if (!given.add(name)) return StoreFailure{std::string(kNameTaken) + ": " + name};
        change.new_pupils.push_back(std::move(name));
    }
    if (change.new_pupils.empty()) return std::nullopt;
    const std::string who =
        change.new_pupils.size() == 1 ? change.new_pupils.front() : counted(std::ssize(change.new_pupils), "pupil");
    return take("adding " + who, change, progress);
}

std::optional<StoreFailure> Desk::rename(std::int64_t pupil, const std::string& typed) {
    const std::string name = tidied(typed);
    const std::string before = book_.name_of(pupil);
    if (name == before) return std::nullopt;
    if (auto fault = fault_in_name(name); !fault.empty()) return StoreFailure{std::move(fault)};
    auto others = book_.pupils();
    std::erase_if(others, [pupil](const KeptPupil& other) { return other.number == pupil; });
    if (GivenNames(others).has(name)) return StoreFailure{std::string(kNameTaken) + ": " + name};
    Change change;
    change.renamed_pupils.push_back({pupil, name});
    return take("renaming " + before + " to " + name, change, {});
}

std::optional<StoreFailure> Desk::remove(const std::vector<std::int64_t>& pupils, Results results,
                                         const Progress& progress) {
    if (pupils.empty()) return std::nullopt;
    Change change;
    change.removed_pupils = pupils;
    if (results == Results::GoToo) {
        ResultFilter theirs;
        theirs.pupils = pupils;
        change.removed_results.push_back(std::move(theirs));
    }
    return take("removing " + named_or_counted(book_, pupils), change, progress);
}

std::optional<StoreFailure> Desk::clear(const ResultFilter& filter, const Progress& progress) {
    Change change;
    change.removed_results.push_back(filter);
    return take("clearing results", change, progress);
}

std::optional<std::string> Desk::next_undo() const {
    return steps_.empty() ? std::nullopt : std::optional(steps_.back().name);
}

Result<std::string> Desk::undo(const Progress& progress) {
    if (steps_.empty()) return StoreFailure{"there is nothing to take back"};
    const Step& step = steps_.back();
    Change change = step.reverse;
    std::vector<std::int64_t> stay;
    if (!change.removed_pupils.empty()) {
        const auto read = book_.refresh(Book::Reading::WhatIsNew, progress);
        if (const auto* failure = read.failure()) return *failure;
        std::ranges::sort(change.removed_pupils);
        for (const Played& played : book_.results()) {
            const auto found = std::ranges::lower_bound(change.removed_pupils, std::int64_t{played.pupil});
            if (found == change.removed_pupils.end() || *found != played.pupil) continue;
            stay.push_back(*found);
            change.removed_pupils.erase(found);
        }
    }
    const auto reverse = register_.apply(change, progress);
    if (const auto* failure = reverse.failure()) return *failure;
    std::string answer = "Taken back: " + step.name;
    if (!stay.empty()) {
        answer += ", but for " + named_or_counted(book_, stay) + " who " + (stay.size() == 1 ? "has" : "have") +
                  " played since";
    }
    steps_.pop_back();
    return answer;
}

}  // namespace marrowfen
