// What a classroom does to the store, tried so often that chance has its say.

#include <charconv>
#include <cstring>
#include <sstream>

#include "trial.h"

namespace marrowfen::test {

namespace {
int wanted_runs = 0;
}

int runs(int few) { return wanted_runs == 0 ? few : wanted_runs; }

std::ostream& told() {
    static std::ostringstream nobody;
    return wanted_runs == 0 ? nobody : std::cout;
}

}  // namespace marrowfen::test

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--runs") == 0) {
        std::from_chars(argv[2], argv[2] + std::strlen(argv[2]), marrowfen::test::wanted_runs);
    }
    return RUN_ALL_TESTS();
}
