#include "platform/audio/loudspeaker.h"

#include <dlfcn.h>

namespace marrowfen {

std::unique_ptr<Loudspeaker> load_loudspeaker(const Files& files) {
    const auto file = files.find(files.program_folder() + "\\libmarrowfen-sound.so");
    void* library = file ? dlopen(file->c_str(), RTLD_NOW | RTLD_LOCAL) : nullptr;
    if (library == nullptr) return nullptr;
    const auto make = reinterpret_cast<Loudspeaker* (*)()>(dlsym(library, "marrowfen_new_loudspeaker"));
    return std::unique_ptr<Loudspeaker>(make == nullptr ? nullptr : make());
}

}  // namespace marrowfen
