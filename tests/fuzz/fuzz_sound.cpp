// Any file in place of a cue.

#include "fuzz.h"
#include "platform/audio/sound_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    const Clip clip = read_sound(write_file(as_text(data, size)));
    must_hold(clip.size() % kChannels == 0, "half a frame");
    must_hold(clip.size() <= std::size_t{kSampleRate} * kChannels * 61, "a cue of more than a minute");
    return 0;
}
