#pragma once

#include <memory>

class QApplication;

namespace marrowfen {

/// Qt itself, under the program's name. One at a time; `argc` and `argv` are lent for as long as it lives.
[[nodiscard]] std::unique_ptr<QApplication> start_toolkit(int& argc, char** argv);

}  // namespace marrowfen
