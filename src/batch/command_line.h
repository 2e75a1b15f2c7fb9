#pragma once

#include <QSize>
#include <optional>
#include <string>
#include <vector>

#include "batch/material_option.h"
#include "batch/side_file_options.h"
#include "quantities/measure_names.h"
#include "quantities/settings.h"
#include "studies/study_folder.h"

namespace halvorne::batch {

/// The three graphs of an excitation plot.
enum class Pane { kResponse, kImpulse, kExcite };

struct Command;

/// What the command line asks for. File names are bytes as the system takes them.
struct Request {
  const Command* command = nullptr;
  std::string topic;  ///< of help and of materials: what about
  std::string in;
  std::vector<std::string> others;  ///< of compare: the designs behind the first one
  std::string out;                  ///< empty: standard output
  bool force = false;
  bool recalc = false;
  bool acceptAliasing = false;
  int plot = 0;  ///< the one that opening a design shows unless --plot says otherwise
  std::optional<int> form;
  Pane pane = Pane::kResponse;
  int detail = 1;            ///< 1 full, 2 partial
  std::string paper = "A4";  ///< of the report
  double reference = 50;     ///< of a Touchstone file, ohms
  QSize size;                ///< pixels of 1/96 inch; not valid when none was given
  std::vector<MaterialChoice> materials;
  std::vector<Setting> settings;
  std::vector<Measure> measures;  ///< empty: the usual ones
  std::string variants;           ///< file of settings; empty: none
  int jobs = 0;                   ///< worker processes of a study; 0: as many as there are cores
  studies::Shard shard;           ///< of a study
  std::string gather;             ///< folder whose shards are joined; empty: none
  std::string table;              ///< of materials; empty: all
  std::string find;               ///< of materials: what their names hold
  SideInputs side;

  // Display settings, as in the setup file.
  int phase = 0;
  double logRange = 60;
  double timeWindow = 50;
  double amplWindow = 100;
};

/// Reads the arguments, the program's name first. Raises WrongCommandLine, with what is wrong, for
/// whatever cannot be meant; no file has been touched by then.
Request ReadCommandLine(int count, const char* const* words);

/// The options with their descriptions, as the help shows them.
std::string OptionsHelp();

}  // namespace halvorne::batch
