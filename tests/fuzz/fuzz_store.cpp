// A store in which bytes have changed: it is opened, a monkey goes through all that can be reached, and saves. A change
// is three bytes of place and one of content; the first byte of the input cuts the file off, the second is the monkey.

#include "fuzz.h"
#include "monkey.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    if (size < 2) return 0;
    Classroom room;
    const auto file = room.folder.path() / "data.mdb";
    std::string bytes = [&] {
        std::ifstream in(file, std::ios::binary);
        return std::string{std::istreambuf_iterator<char>(in), {}};
    }();
    for (std::size_t i = 2; i + 4 <= size; i += 4) {
        const std::size_t place = data[i] | std::size_t{data[i + 1]} << 8U | std::size_t{data[i + 2]} << 16U;
        bytes[place % bytes.size()] = static_cast<char>(data[i + 3]);
    }
    if (data[0] != 0) bytes.resize(bytes.size() * data[0] / 256);
    std::ofstream(file, std::ios::binary) << bytes;
    Monkey monkey(room, data[1]);
    if (room.program.start()) return 0;
    monkey.plays(400);
    must_hold(monkey.complaint().empty(), monkey.complaint());
    return 0;
}
