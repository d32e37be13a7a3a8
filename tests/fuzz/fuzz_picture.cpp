// Any file in place of a picture, in the natural size and stretched.

#include <QApplication>

#include "fuzz.h"
#include "platform/qt/pictures.h"
#include "platform/qt/toolkit.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marrowfen;
    static int argc = 1;
    static char name[] = "fuzz_picture";
    static char* argv[] = {name, nullptr};
    static const bool is_set = setenv("QT_QPA_PLATFORM", "offscreen", 1) == 0;
    static const auto toolkit = start_toolkit(argc, argv);
    const auto& file = write_file(as_text(data, size));
    static const DiskFiles files(file.parent_path());
    static const Typefaces faces(files);
    static const Pictures pictures(files, faces);
    const Picture picture = Picture::file(files.program_folder() + "\\file");
    for (const Stretch stretch : {Stretch::Yes, Stretch::No}) {
        const QSize bounds(90, 60);
        const QSize drawn = pictures.render(picture, stretch, bounds, Scale({1024, 768}, 1)).size();
        must_hold(is_set && !drawn.isEmpty() && drawn.boundedTo(bounds) == drawn, "a picture of another size");
    }
    return 0;
}
