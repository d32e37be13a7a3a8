#include "platform/sqlite/structure.h"

#include "platform/sqlite/schema.h"

namespace marrowfen {

std::optional<StoreFailure> make_structure(Connection& connection) {
    for (const Source& source : sources()) {
        if (source.kind != SourceKind::Query) continue;
        if (auto failure = connection.run("DROP VIEW IF EXISTS " + in_brackets(source.name))) return failure;
    }
    for (const Source& source : sources()) {
        for (const std::string& statement : creation_of(source)) {
            if (auto failure = connection.run(statement)) return failure;
        }
    }
    if (auto failure = connection.run("PRAGMA application_id = " + std::to_string(kApplicationId))) return failure;
    return connection.run("PRAGMA user_version = " + std::to_string(kSchemaVersion));
}

}  // namespace marrowfen
