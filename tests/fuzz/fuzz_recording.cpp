// Any file in place of a recording: it is played as far as it goes.

#include "fuzz.h"
#include "replaying.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    std::string reason;
    const auto lines = read_recording(write_file(as_text(data, size)), reason);
    must_hold(lines.has_value() != !reason.empty(), "a recording that is none has a reason");
    if (lines) (void)replay(*lines);
    return 0;
}
