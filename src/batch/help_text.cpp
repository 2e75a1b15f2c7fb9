#include "batch/help_text.h"

#include "batch/command_line.h"
#include "batch/commands.h"
#include "quantities/settings.h"

namespace halvorne::batch {
namespace {

constexpr const char* kHead =
    "halvorne-batch: designs of ultrasonic transducers without a window\n"
    "\n"
    "The design file IN is opened with its stored curves; then --material, then --set, then loads\n"
    "and excitation, then --recalc, then the plot and its data form. Results go to standard "
    "output\n"
    "unless -o is given.\n"
    "\n"
    "Commands:\n";

constexpr const char* kTail =
    "\n"
    "Plots 17, 27 and 34 of a design without an excitation show the response to none.\n"
    "IN may be /dev/stdin, and so may a load, dispersion or excitation; other pipes and devices "
    "are\n"
    "refused. FILE changes only when the result is whole: after a failure it is what it was. A "
    "link\n"
    "is followed, a device or pipe written to.\n"
    "A contact sheet has 100 million pixels at most.\n"
    "A picture's format follows the ending of FILE, .png, .svg or .pdf; without -o it is PNG.\n"
    "A report is of plot 11 where none is named. Its format is .pdf, .png or .json; the pages of "
    "a\n"
    "PNG are FILE-1.png and so on where there are several. The .json is the record of the "
    "drawing,\n"
    "an object a line, in units of a page from (0, 10), upper left, to (10, 0); its first line "
    "has\n"
    "the size of that page within the paper's margins. SOURCE_DATE_EPOCH sets the printed stamp.\n"
    "A study file is JSON, see 'help schema'; FOLDER gets runs.jsonl, a line a run, summary.json,\n"
    "summary.txt, pictures and worst-1.dat and so on. Interrupted, the same command goes on.\n"
    "Message boxes of the program go to standard error as 'title: text', each once with its\n"
    "count; a question takes its default answer.\n"
    "\n"
    "Exit status: 0 all is well; 1 a box told of a failure, a file could not be read or\n"
    "written, or there is nothing to show; 2 the command line is wrong.\n"
    "\n"
    "Example: halvorne-batch plot design.dat --set 'FrontThick(1)=0.00012' --recalc \\\n"
    "           --plot 31 --form 1 -o two_way.png\n";

constexpr const char* kFieldsHead =
    "Fields of the design for --set NAME=VALUE, in SI units unless the field is named otherwise\n"
    "in the design file. A truth value is true or false. Values are stored in the given order;\n"
    "then is made anew, as the OK of the dialog that edits the field does it:\n"
    "\n"
    "  FreqStart, FreqStop, NoFreqPts  the sample rate, the tone burst; complex loads turn flat\n"
    "  NoTimePts, FreqScale            the sample rate and the tone burst\n"
    "  PZMatl, PZThick, NoPiezo,       the constants of the piezoelectric layers and their half\n"
    "    PZConnect, ElementArea        layers in both chains\n"
    "  ZFrontLoad, ZBackLoad and       the loads in force at all points\n"
    "    the complex loads\n"
    "  ExciteType ... ExcitePoints     the sampled tone burst; type 0 clears it\n"
    "\n"
    "Nothing else follows: the size of the element does not change its area, DesignFreq does not\n"
    "change thicknesses. The curves stay as stored unless --recalc is given, and --recalc makes\n"
    "the loss, delay and impedance of the chains from the materials.\n"
    "\n";

}  // namespace

std::string HelpText() {
  std::string text = kHead;
  for (const Command& command : Commands()) {
    text += "  " + std::string(command.usage) + "\n      " + command.summary + "\n";
  }
  return text + "\nOptions:\n" + OptionsHelp() + kTail;
}

std::string FieldsHelpText() {
  std::string text = kFieldsHead;
  for (const std::string& name : FieldNames()) {
    text += name + "\n";
  }
  return text;
}

}  // namespace halvorne::batch
