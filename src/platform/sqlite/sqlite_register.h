#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/register.h"
#include "platform/sqlite/connection.h"

namespace marrowfen {

class SqliteRegister final : public Register {
public:
    explicit SqliteRegister(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    [[nodiscard]] Result<std::vector<KeptPupil>> pupils() override;
    [[nodiscard]] Result<std::int64_t> count_results() override;
    [[nodiscard]] Result<std::vector<KeptResult>> results_after(std::int64_t row, std::int64_t at_most) override;
    [[nodiscard]] Result<Change> apply(const Change& change, const Progress& progress) override;

private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace marrowfen
