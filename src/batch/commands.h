#pragma once

#include <QString>
#include <span>
#include <string>

#include "batch/batch_messages.h"
#include "batch/command_line.h"
#include "plot/headless_window.h"

namespace halvorne::batch {

/// What a command works with.
struct Session {
  const Request& request;
  HeadlessWindow& window;
  BatchMessages& messages;
  /// Failures of the plot that the opening shows, which is no part of any result.
  int failuresOfFirstPlot = 0;
};

/// What a command takes beside the options of all.
enum Takes : unsigned {
  kDesign = 1,   ///< a design file
  kPlot = 2,     ///< --plot
  kForm = 4,     ///< --form
  kPane = 8,     ///< --pane
  kSize = 16,    ///< --size
  kOutput = 32,  ///< -o and --force
  kNeedsOutput = 64,
  kMaterials = 128,  ///< --table and --find
  kNeedsPlot = 256,
  kDetail = 512,     ///< --detail
  kPaper = 1024,     ///< --paper
  kMeasures = 2048,  ///< --measure and --variants
  kManyDesigns = 4096,
  kReference = 8192,  ///< --reference
  kStudy = 16384      ///< --jobs, --shard and --gather
};

struct Command {
  const char* name;
  unsigned takes;  ///< a sum of Takes
  const char* usage;
  const char* summary;
  void (*run)(Session&);
};

/// All commands, in the order in which the help shows them.
std::span<const Command> Commands();

/// The command of that name, null when there is none.
const Command* FindCommand(const QString& name);

}  // namespace halvorne::batch
