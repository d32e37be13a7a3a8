#include "launcher/starting.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace marrowfen {

int become(const std::vector<std::string>& words) {
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ::execv(arguments.front(), arguments.data());
    (void)std::fprintf(stderr, "marrowfen: %s can't be started: %s\n", arguments.front(), std::strerror(errno));
    return EXIT_FAILURE;
}

void run(const std::vector<std::string>& words) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(become(words));
    int status = 0;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
}

}  // namespace marrowfen
