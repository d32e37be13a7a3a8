#pragma once

#include <filesystem>
#include <optional>

#include "content.h"
#include "platform/store.h"

namespace marrowfen {

/// Makes the store, or brings the content of an existing one up to date; pupils and results stay as they are. Either
/// all of it happens or nothing, and a file that holds this content already is not written at all.
[[nodiscard]] std::optional<StoreFailure> write_store(const std::filesystem::path& file, const Content& content);

}  // namespace marrowfen
