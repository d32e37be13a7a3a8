#pragma once

#include <gtest/gtest.h>

#include <iostream>

namespace marrowfen::test {

/// How often a trial is made: `few` times within ./test, else as the command line says (`--runs N`).
[[nodiscard]] int runs(int few);

/// Says what came of it when somebody has asked for that, which is when a number was given.
[[nodiscard]] std::ostream& told();

}  // namespace marrowfen::test
