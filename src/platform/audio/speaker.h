#pragma once

#include <cstdint>

#include "platform/audio/loudspeaker.h"
#include "platform/audio/sound_file.h"

namespace marrowfen {

/// The computer's default audio device. It is opened at the first sound, stands still while nothing sounds, and is
/// given back after a long quiet, since an open device costs processor time even when it stands still.
class Speaker final : public Loudspeaker {
public:
    ~Speaker() override;
    [[nodiscard]] Clip read(const std::filesystem::path& file) override { return read_sound(file); }
    void play(Clip clip) override;
    [[nodiscard]] std::optional<Time> next_rest() const override { return next_rest_; }
    void rest() override;

private:
    [[nodiscard]] bool open();
    void close();
    [[nodiscard]] std::size_t samples_left() const;
    void rest_after_what_is_left();

    std::uint32_t device_ = 0;
    bool started_ = false;  // SDL's audio part
    bool sounding_ = false;
    Clip clip_;
    std::optional<Time> next_rest_;
};

}  // namespace marrowfen
