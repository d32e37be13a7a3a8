#include "copies/carving.h"

#include <algorithm>
#include <array>
#include <bit>
#include <fstream>
#include <optional>
#include <set>
#include <span>
#include <string>

#include "platform/sqlite/file_head.h"

namespace marrowfen {

namespace {

using Bytes = std::span<const unsigned char>;

constexpr std::size_t kPageSizeAt = 16;
constexpr std::size_t kFirstFreeAt = 32;
constexpr unsigned char kInnerIndexPage = 2;
constexpr unsigned char kLeafIndexPage = 10;
constexpr unsigned char kLeafTablePage = 13;
constexpr std::size_t kUsualPageSize = 4096;

/// Reads forward; what lies beyond the end makes it fail for good.
class Reader {
public:
    Reader(Bytes bytes, std::size_t at) : bytes_(bytes), at_(at) {}
    [[nodiscard]] bool failed() const { return failed_; }
    [[nodiscard]] std::size_t at() const { return at_; }

    Bytes take(std::size_t length) {
        if (failed_ || at_ > bytes_.size() || length > bytes_.size() - at_) {
            failed_ = true;
            return {};
        }
        const Bytes taken = bytes_.subspan(at_, length);
        at_ += length;
        return taken;
    }

    std::uint64_t take_number(std::size_t length) {
        std::uint64_t number = 0;
        for (const unsigned char byte : take(length)) number = number << 8U | byte;
        return number;
    }

    /// Seven bits a byte, the highest first, as long as the eighth is set; a ninth byte counts whole.
    std::uint64_t take_varint() {
        constexpr int kLongest = 9;
        std::uint64_t number = 0;
        for (int i = 1; i <= kLongest; ++i) {
            const std::uint64_t byte = take_number(1);
            if (i == kLongest) return number << 8U | byte;
            number = number << 7U | (byte & 0x7FU);
            if ((byte & 0x80U) == 0) break;
        }
        return number;
    }

private:
    Bytes bytes_;
    std::size_t at_;
    bool failed_ = false;
};

/// nullopt: neither a number nor text.
std::optional<Value> take_value(Reader& reader, std::uint64_t type) {
    constexpr std::uint64_t kZero = 8;
    constexpr std::uint64_t kOne = 9;
    constexpr std::uint64_t kFirstText = 13;
    if (type == 0) return Value{};
    if (type == kZero || type == kOne) return Value{static_cast<std::int64_t>(type - kZero)};
    if (constexpr std::array<std::size_t, 7> kLengths{0, 1, 2, 3, 4, 6, 8}; type < kLengths.size()) {
        const std::size_t length = kLengths[type];
        const auto unused = static_cast<unsigned>(8 * (8 - length));
        // Moved up and down again, a negative number keeps its sign.
        return Value{static_cast<std::int64_t>(reader.take_number(length) << unused) >> unused};
    }
    if (type < kFirstText || type % 2 == 0) return std::nullopt;
    const Bytes text = reader.take((type - kFirstText) / 2);
    return Value{std::string(text.begin(), text.end())};
}

/// A head, which gives its own length and the type of each value, then the values.
std::optional<std::vector<Value>> record_in(Bytes payload) {
    Reader head(payload, 0);
    const std::uint64_t head_length = head.take_varint();
    if (head.failed() || head_length > payload.size()) return std::nullopt;
    Reader body(payload, head_length);
    std::vector<Value> values;
    while (!head.failed() && head.at() < head_length) {
        auto value = take_value(body, head.take_varint());
        if (!value) return std::nullopt;
        values.push_back(std::move(*value));
    }
    const bool fits = !head.failed() && !body.failed() && head.at() == head_length && body.at() == payload.size();
    return fits ? std::optional(std::move(values)) : std::nullopt;
}

void carve_page(Bytes page, std::size_t begins_at, const std::function<void(CarvedRow)>& found) {
    Reader head(page, begins_at);
    const auto kind = static_cast<unsigned char>(head.take_number(1));
    if (kind != kInnerIndexPage && kind != kLeafIndexPage && kind != kLeafTablePage) return;
    (void)head.take_number(2);
    const std::uint64_t cells = head.take_number(2);
    (void)head.take_number(3);
    constexpr std::size_t kChildLength = 4;
    if (kind == kInnerIndexPage) (void)head.take_number(kChildLength);
    for (std::uint64_t i = 0; i < cells && !head.failed(); ++i) {
        Reader cell(page, head.take_number(2));
        if (kind == kInnerIndexPage) (void)cell.take_number(kChildLength);
        const std::uint64_t length = cell.take_varint();
        CarvedRow row;
        row.from = kind == kLeafTablePage ? CarvedRow::From::Table : CarvedRow::From::Index;
        if (kind == kLeafTablePage) row.rowid = static_cast<std::int64_t>(cell.take_varint());
        const Bytes payload = cell.take(length);
        if (cell.failed()) continue;
        if (auto values = record_in(payload)) {
            row.values = std::move(*values);
            found(std::move(row));
        }
    }
}

/// The first page of a file, wherever it lies now.
bool begins_a_file(Bytes page) {
    return page.size() >= kFileHeadLength && std::equal(kFileMagic.begin(), kFileMagic.end(), page.begin());
}

class PagedFile {
public:
    explicit PagedFile(const std::filesystem::path& file) : stream_(file, std::ios::binary) {
        const Bytes head = read(0, kFileHeadLength);
        if (!begins_a_file(head)) return;
        constexpr std::size_t kSmallest = 512;
        const std::size_t named = head[kPageSizeAt] * std::size_t{256} + head[kPageSizeAt + 1];
        if (named >= kSmallest && std::has_single_bit(named)) page_size_ = named;
        first_free_ = number_at(head, kFirstFreeAt);
    }

    [[nodiscard]] Bytes page(std::size_t number) { return read((number - 1) * page_size_, page_size_); }

    /// The file keeps them as a chain of lists.
    [[nodiscard]] std::set<std::size_t> free_pages() {
        std::set<std::size_t> free;
        for (std::size_t list = first_free_; list != 0 && free.insert(list).second;) {
            const Bytes page = this->page(list);
            if (page.size() < page_size_) break;
            const std::size_t count = std::min<std::size_t>(number_at(page, 4), page_size_ / 4 - 2);
            for (std::size_t i = 0; i < count; ++i) free.insert(number_at(page, 8 + 4 * i));
            list = number_at(page, 0);
        }
        return free;
    }

private:
    Bytes read(std::size_t at, std::size_t length) {
        bytes_.resize(length);
        stream_.clear();
        stream_.seekg(static_cast<std::streamoff>(at));
        stream_.read(reinterpret_cast<char*>(bytes_.data()), static_cast<std::streamsize>(length));
        bytes_.resize(static_cast<std::size_t>(stream_.gcount()));
        return bytes_;
    }

    std::ifstream stream_;
    std::vector<unsigned char> bytes_;
    std::size_t page_size_ = kUsualPageSize;
    std::size_t first_free_ = 0;
};

}  // namespace

void carve(const std::filesystem::path& file, const std::function<void(CarvedRow)>& found) {
    PagedFile pages(file);
    const auto free = pages.free_pages();
    for (std::size_t number = 1;; ++number) {
        const Bytes page = pages.page(number);
        if (page.empty()) return;
        if (!free.contains(number)) carve_page(page, begins_a_file(page) ? kFileHeadLength : 0, found);
    }
}

}  // namespace marrowfen
