#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

#include "platform/store.h"

namespace marrowfen {

/// A store that behaves until it is told to fail: always, or for a few questions.
class StubbornEngine final : public StoreEngine {
public:
    explicit StubbornEngine(StoreEngine& engine) : engine_(engine) {}
    bool refuses_writes = false;
    bool refuses_reads = false;
    std::size_t opened = 0;
    /// From now on this many questions are answered, then so many are not.
    void refuse_after(std::size_t answered, std::size_t refused) {
        asked_ = 0;
        first_refused_ = answered;
        refused_ = refused;
    }
    [[nodiscard]] std::size_t asked() const { return asked_; }
    [[nodiscard]] Result<std::unique_ptr<Store>> open(std::string_view path) override;

    enum class Question : std::uint8_t { Read, Write };
    [[nodiscard]] std::optional<StoreFailure> refuses(Question question);

private:
    StoreEngine& engine_;
    std::size_t asked_ = 0;
    std::size_t first_refused_ = 0;
    std::size_t refused_ = 0;
};

}  // namespace marrowfen
