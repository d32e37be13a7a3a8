#pragma once

#include <QGuiApplication>
#include <array>
#include <memory>
#include <string>

namespace marrowfen {

/// Typefaces and painted text need the toolkit, but no screen: a build machine has none, and nothing that
/// its caller has set changes what is drawn. Create one first in main().
class Offscreen {
public:
    explicit Offscreen(std::string program);

private:
    std::string program_, option_{"-platform"}, platform_{"offscreen"};  // the toolkit keeps pointers to these
    std::array<char*, 3> arguments_;
    int count_ = 3;
    std::unique_ptr<QGuiApplication> toolkit_;
};

}  // namespace marrowfen
