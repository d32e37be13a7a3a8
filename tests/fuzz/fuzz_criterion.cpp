// Any criterion, and any name inside one.

#include "core/program.h"
#include "fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    static Classroom room({});
    const std::string text(as_text(data, size));
    for (const char* source : {"Pupils", "besttimes", "Words_Keystage1", "Templates"}) {
        const auto rows = room.store().open(source);
        const auto found = rows->find_first(text);
        must_hold(found.failure() == nullptr, found.failure() ? found.failure()->reason : "");
        const auto next = rows->find_next(text);
        must_hold(next.failure() == nullptr, "the next row can't be looked for");
    }
    // Whatever a pupil is called, a lookup by that name never asks for anything else.
    const auto rows = room.store().open("Pupils");
    must_hold(!rows->add_row(), "no new row");
    rows->set_field("PupilName", text);
    if (rows->update()) return 0;
    const auto found = rows->find_first(where_text("PupilName", text));
    must_hold(found.value_or(false), "a pupil who was kept is not found");
    must_hold(as_text(rows->field("PupilName")) == text, "another pupil is found");
    must_hold(!rows->delete_row(), "a pupil who was found can't be removed");
    return 0;
}
