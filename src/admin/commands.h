#pragma once

#include "admin/room.h"

namespace CLI {
class App;
}

/// The words of the command line. Each adds itself with its options, and does its work as the line is read: where
/// a room's store lies is known by then.
namespace marrowfen {

void add_pupils_command(CLI::App& program, Room*& room);
void add_results_command(CLI::App& program, Room*& room);
void add_words_command(CLI::App& program, Room*& room);
void add_copies_commands(CLI::App& program, Room*& room);  ///< a word for each thing that is done with a whole store
void add_share_command(CLI::App& program, Room*& room);

}  // namespace marrowfen
