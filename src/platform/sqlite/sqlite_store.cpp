#include "platform/sqlite/sqlite_store.h"

#include "platform/sqlite/inspection.h"
#include "platform/sqlite/own_sets.h"
#include "platform/sqlite/schema.h"
#include "platform/sqlite/sqlite_register.h"
#include "platform/sqlite/sqlite_row_set.h"
#include "platform/sqlite/store_check.h"

namespace marrowfen {

namespace {

class SqliteStore final : public Store {
public:
    explicit SqliteStore(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

    [[nodiscard]] std::unique_ptr<RowSet> open(std::string_view table_or_query) override {
        static const Source kUnknown;
        const Source* source = find_source(table_or_query);
        return std::make_unique<SqliteRowSet>(connection_, source ? *source : kUnknown);
    }

private:
    std::shared_ptr<Connection> connection_;
};

}  // namespace

SqliteStoreEngine::SqliteStoreEngine(const Files& files, std::chrono::milliseconds patience)
    : files_(files), patience_(std::make_shared<Patience>(patience)) {}

SqliteStoreEngine::~SqliteStoreEngine() = default;

Result<std::shared_ptr<Connection>> SqliteStoreEngine::connect(std::string_view path) {
    const auto file = files_.find(path);
    if (!file) return StoreFailure{"there is no such file", Trouble::Missing};
    if (auto failure = check_place(*file)) return *failure;
    auto connection = std::make_shared<Connection>(*file, Connection::Mode::Existing, patience_);
    auto failure = connection->open_failure();
    if (!failure && connection->read_only()) failure = {"the file is read-only", Trouble::NotWritable};
    if (!failure) failure = check_head(*connection, *file);
    if (!failure) failure = check_identity(*connection);
    if (!failure) failure = check_tables(*connection);
    if (!failure) failure = check_structure(*connection);
    if (failure) return *failure;
    if (!inspection_ || inspection_->damage() || !inspection_->is_of(*file))
        inspection_ = std::make_shared<Inspection>(*file);
    inspection_->begin(*connection);
    if (auto damage = inspection_->damage()) return *damage;
    connection->set_inspection(inspection_);
    if (auto unprepared = connection->prepare_to_write()) return *unprepared;
    return connection;
}

Result<std::unique_ptr<Store>> SqliteStoreEngine::open(std::string_view path) {
    auto connection = connect(path);
    if (const auto* failure = connection.failure()) return *failure;
    return std::unique_ptr<Store>(std::make_unique<SqliteStore>(std::move(connection).value()));
}

Result<std::unique_ptr<Register>> SqliteStoreEngine::open_register(std::string_view path) {
    auto connection = connect(path);
    if (const auto* failure = connection.failure()) return *failure;
    return std::unique_ptr<Register>(std::make_unique<SqliteRegister>(std::move(connection).value()));
}

Result<std::unique_ptr<ContentKeeper>> SqliteStoreEngine::open_content(std::string_view path) {
    auto connection = connect(path);
    if (const auto* failure = connection.failure()) return *failure;
    return std::unique_ptr<ContentKeeper>(std::make_unique<SqliteContentKeeper>(std::move(connection).value()));
}

void SqliteStoreEngine::condemn(const StoreFailure& damage) {
    if (inspection_) inspection_->condemn(damage);
}

}  // namespace marrowfen
