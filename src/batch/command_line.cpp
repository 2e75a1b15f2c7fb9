#include "batch/command_line.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <array>

#include "batch/commands.h"
#include "batch/stops.h"
#include "plot/catalogue.h"
#include "timedomain/view.h"

namespace halvorne::batch {
namespace {

constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 10000;

/// An option and the commands that know it.
struct Option {
  QStringList names;
  const char* value;  ///< word for its value, null when it has none
  unsigned needs;     ///< what a command must take for it, a sum of Takes
  const char* help;
};

const std::array<Option, 30>& Options() {
  static const std::array<Option, 30> options{{
      {{"o", "output"}, "FILE", kOutput, "write to FILE instead of standard output"},
      {{"force"}, nullptr, kOutput, "overwrite an existing FILE where a command asks first"},
      {{"plot"}, "N", kPlot, "number of the plot: 11 to 17, 21 to 27, 31 to 34, 41, 42, 51 to 53"},
      {{"form"}, "K", kForm, "index of the data form in the plot's list, from 0; default 0"},
      {{"pane"}, "NAME", kPane, "of an excitation plot: response (default), impulse or excite"},
      {{"size"}, "WxH", kSize, "size of a picture in pixels, 100 to 10000 each way"},
      {{"detail"},
       "D",
       kDetail,
       "the report with the layers' material (1) or without (2); default 1"},
      {{"reference"}, "R", kReference, "reference of a Touchstone file in ohms; default 50"},
      {{"paper"}, "NAME", kPaper, "paper of the report: A4 (default) or Letter"},
      {{"measure"},
       "NAME",
       kMeasures,
       "measure this, see 'help measures'; several with commas; any number"},
      {{"variants"},
       "FILE",
       kMeasures,
       "measure a variant for each line of FILE, a line of settings as of --set"},
      {{"jobs"},
       "N",
       kStudy,
       "calculate in N processes at once; default as many as there are cores"},
      {{"shard"}, "K/N", kStudy, "calculate the K-th of N equal pieces of a study"},
      {{"gather"}, "FOLDER", kStudy, "join the pieces that stand in FOLDER, tell what is missing"},
      {{"table"}, "T", kMaterials, "only the table T"},
      {{"find"}, "TEXT", kMaterials, "only materials whose name holds TEXT, in whatever case"},
      {{"material"},
       "PLACE=TABLE/NAME",
       kDesign,
       "give PZMatl(i), FaceMatl(i), BackMatl(i) a material; any number"},
      {{"set"},
       "NAME=VALUE",
       kDesign,
       "set a field of the design, in SI units; any number of times"},
      {{"front-load"},
       "FILE",
       kDesign,
       "take the front acoustic load from a file, after all --set"},
      {{"back-load"}, "FILE", kDesign, "take the rear acoustic load from a file"},
      {{"dispersion"},
       "SLOT=FILE",
       kDesign,
       "take velocity dispersion from a file: slot 0 to 21 or piezo; any number"},
      {{"excitation"}, "FILE", kDesign, "take the excitation waveform from a file"},
      {{"burst"},
       "BURST",
       kDesign,
       "excite by FREQ,CYCLES,DELAY,PHASE,POINTS[,square], in Hz, s and degrees"},
      {{"recalc"}, nullptr, kDesign, "calculate the design anew, after all of these"},
      {{"phase"},
       "P",
       kDesign,
       "phase within 180 degrees (0), unwrapped (1) or delay (2); default 0"},
      {{"log-range"}, "DB", kDesign, "span of logarithmic scales in dB, 1 to 200; default 60"},
      {{"time-window"},
       "PERCENT",
       kDesign,
       "share of the time record that is shown, 0.25 to 99.5; default 50"},
      {{"ampl-window"},
       "PERCENT",
       kDesign,
       "share of the span that scales the amplitude, 5 to 100; default 100"},
      {{"accept-aliasing"}, nullptr, kDesign, "answer the warning of aliasing with OK"},
      {{"h", "help"}, nullptr, 0, "show the help"},
  }};
  return options;
}

/// The toolkit's parser takes no bytes, so each byte goes through it as the character of its
/// number: file names and texts come out as they came in, whatever their encoding.
QString FromBytes(const char* word) {
  return QString::fromLatin1(word);
}
std::string Bytes(const QString& text) {
  return text.toLatin1().toStdString();
}

QString Value(const QCommandLineParser& parser, const char* name) {
  const QStringList values = parser.values(name);
  if (values.size() > 1) {
    throw WrongCommandLine("--" + std::string(name) + " is given more than once");
  }
  return values.value(0);
}

/// The number of an option within its bounds, or its default when the option is not given.
double Number(const QCommandLineParser& parser, const char* name, double lowest, double highest,
              double otherwise) {
  const std::string text = Bytes(Value(parser, name));
  if (!parser.isSet(name)) {
    return otherwise;
  }
  try {
    const double value = ReadNumber(text);
    if (value < lowest || value > highest) {
      throw WrongCommandLine("'" + text + "' is not from " + QString::number(lowest).toStdString() +
                             " to " + QString::number(highest).toStdString());
    }
    return value;
  } catch (const WrongCommandLine& wrong) {
    throw WrongCommandLine("--" + std::string(name) + ": " + wrong.what());
  }
}

int WholeNumber(const QCommandLineParser& parser, const char* name, int lowest, int highest,
                int otherwise) {
  const double value = Number(parser, name, lowest, highest, otherwise);
  if (value != static_cast<int>(value)) {
    throw WrongCommandLine("--" + std::string(name) + ": '" + Bytes(Value(parser, name)) +
                           "' is not a whole number");
  }
  return static_cast<int>(value);
}

int PlotNumber(const QCommandLineParser& parser, const Command& command) {
  constexpr int shownFirst = 11;
  if (!parser.isSet("plot")) {
    if ((command.takes & kNeedsPlot) != 0) {
      throw WrongCommandLine("--plot N is missing");
    }
    return shownFirst;
  }
  const int number = WholeNumber(parser, "plot", 0, 99, 0);
  if (FindPlot(number) == nullptr) {
    throw WrongCommandLine("--plot: there is no plot " + std::to_string(number));
  }
  return number;
}

Pane PaneOf(const QCommandLineParser& parser, int plot) {
  const QString name = Value(parser, "pane");
  if (!parser.isSet("pane") || name == "response") {
    return Pane::kResponse;
  }
  if (name != "impulse" && name != "excite") {
    throw WrongCommandLine("--pane: '" + Bytes(name) + "' is not response, impulse or excite");
  }
  if (!IsExcitationPlot(plot)) {
    throw WrongCommandLine("--pane: plot " + std::to_string(plot) +
                           " has one pane, only plots 17, 27 and 34 have others");
  }
  return name == "impulse" ? Pane::kImpulse : Pane::kExcite;
}

std::string PaperOf(const QCommandLineParser& parser) {
  const QString name = Value(parser, "paper");
  if (parser.isSet("paper") && name != "A4" && name != "Letter") {
    throw WrongCommandLine("--paper: '" + Bytes(name) + "' is not A4 or Letter");
  }
  return parser.isSet("paper") ? Bytes(name) : "A4";
}

QSize SizeOf(const QCommandLineParser& parser) {
  if (!parser.isSet("size")) {
    return {};
  }
  const QString text = Value(parser, "size");
  const QStringList sides = text.split('x');
  bool widthGood = false;
  bool heightGood = false;
  const QSize size(sides.value(0).toInt(&widthGood), sides.value(1).toInt(&heightGood));
  const bool bounded = size.width() >= kSmallestSide && size.width() <= kLargestSide &&
                       size.height() >= kSmallestSide && size.height() <= kLargestSide;
  if (sides.size() != 2 || !widthGood || !heightGood || !bounded) {
    throw WrongCommandLine("--size: '" + Bytes(text) +
                           "' is not of the form 1000x620 with 100 to 10000 each way");
  }
  return size;
}

/// An option that is given and that the command does not know is refused, not passed over.
void RefuseForeignOptions(const QCommandLineParser& parser, const Command& command) {
  for (const Option& option : Options()) {
    if (parser.isSet(option.names.last()) && (command.takes & option.needs) != option.needs) {
      throw WrongCommandLine("--" + Bytes(option.names.last()) + " means nothing to " +
                             command.name);
    }
  }
}

void ReadWords(const QStringList& words, Request& request) {
  const Command& command = *request.command;
  if ((command.takes & kDesign) == 0) {
    request.topic = Bytes(words.value(1));
    return;
  }
  if (words.size() < 2 || words[1].isEmpty()) {
    throw WrongCommandLine("the design file is missing");
  }
  request.in = Bytes(words[1]);
  for (const QString& other : words.mid(2)) {
    request.others.push_back(Bytes(other));
  }
}

void ReadOutput(const QCommandLineParser& parser, Request& request) {
  request.out = Bytes(Value(parser, "output"));
  if (parser.isSet("output") && request.out.empty()) {
    throw WrongCommandLine("-o: the file has no name");
  }
  if ((request.command->takes & kNeedsOutput) != 0 && request.out.empty()) {
    throw WrongCommandLine("-o FILE is missing");
  }
}

/// The bytes of an option; nothing when it is not given.
std::optional<std::string> Given(const QCommandLineParser& parser, const char* name) {
  const QString value = Value(parser, name);
  return parser.isSet(name) ? std::optional(Bytes(value)) : std::nullopt;
}

void ReadSideInputs(const QCommandLineParser& parser, SideInputs& inputs) {
  inputs.frontLoad = Given(parser, "front-load");
  inputs.backLoad = Given(parser, "back-load");
  for (const QString& text : parser.values("dispersion")) {
    inputs.dispersion.push_back(ReadDispersionInput(Bytes(text)));
  }
  inputs.excitation = Given(parser, "excitation");
  if (const auto burst = Given(parser, "burst")) {
    inputs.burst = ReadBurst(*burst);
  }
  if (inputs.excitation && inputs.burst) {
    throw WrongCommandLine("--excitation and --burst exclude one another");
  }
}

void ReadMeasures(const QCommandLineParser& parser, Request& request) {
  for (const QString& list : parser.values("measure")) {
    for (const QString& name : list.split(',')) {
      try {
        request.measures.push_back(ReadMeasure(Bytes(name)));
      } catch (const WrongCommandLine& wrong) {
        throw WrongCommandLine("--measure " + Bytes(name) + ": " + wrong.what());
      }
    }
  }
  request.variants = Bytes(Value(parser, "variants"));
  if (parser.isSet("variants") && request.variants.empty()) {
    throw WrongCommandLine("--variants: the file has no name");
  }
}

void ReadStudyOptions(const QCommandLineParser& parser, Request& request) {
  constexpr int mostJobs = 1024;
  constexpr int mostShards = 100000;
  request.jobs = WholeNumber(parser, "jobs", 1, mostJobs, 0);
  request.gather = Bytes(Value(parser, "gather"));
  if (parser.isSet("gather") && request.gather.empty()) {
    throw WrongCommandLine("--gather: the folder has no name");
  }
  if (!parser.isSet("shard")) {
    return;
  }
  const QString text = Value(parser, "shard");
  const QStringList numbers = text.split('/');
  bool numberGood = false;
  bool countGood = false;
  request.shard = {numbers.value(0).toInt(&numberGood), numbers.value(1).toInt(&countGood)};
  if (numbers.size() != 2 || !numberGood || !countGood || request.shard.number < 1 ||
      request.shard.number > request.shard.count || request.shard.count > mostShards) {
    throw WrongCommandLine("--shard: '" + Bytes(text) + "' is not of the form K/N, K from 1 to N");
  }
}

void ReadSettings(const QCommandLineParser& parser, Request& request) {
  request.table = Bytes(Value(parser, "table"));
  request.find = Bytes(Value(parser, "find"));
  for (const QString& text : parser.values("material")) {
    request.materials.push_back(ReadMaterialChoice(Bytes(text)));
  }
  for (const QString& text : parser.values("set")) {
    try {
      request.settings.push_back(ReadSetting(Bytes(text)));
    } catch (const WrongCommandLine& wrong) {
      throw WrongCommandLine("--set " + Bytes(text) + ": " + wrong.what());
    }
  }
  ReadSideInputs(parser, request.side);
  request.phase = WholeNumber(parser, "phase", 0, 2, request.phase);
  request.logRange = Number(parser, "log-range", 1, 200, request.logRange);
  request.timeWindow = Number(parser, "time-window", 0.25, 99.5, request.timeWindow);
  request.amplWindow = Number(parser, "ampl-window", 5, 100, request.amplWindow);
  request.recalc = parser.isSet("recalc");
  request.acceptAliasing = parser.isSet("accept-aliasing");
  request.force = parser.isSet("force");
}

Request ReadCommand(const QCommandLineParser& parser) {
  Request request;
  const QStringList words = parser.positionalArguments();
  if (parser.isSet("version") || parser.isSet("help")) {
    request.command = FindCommand(parser.isSet("help") ? "help" : "--version");
    ReadOutput(parser, request);
    return request;
  }
  if (words.isEmpty()) {
    throw WrongCommandLine("the command is missing; 'halvorne-batch help' lists all");
  }
  request.command = FindCommand(words[0]);
  if (request.command == nullptr) {
    throw WrongCommandLine("there is no command '" + Bytes(words[0]) +
                           "'; 'halvorne-batch help' lists all");
  }
  if (words.size() > 2 && (request.command->takes & kManyDesigns) == 0) {
    throw WrongCommandLine("'" + Bytes(words[2]) + "' is one word too many");
  }
  RefuseForeignOptions(parser, *request.command);
  ReadWords(words, request);
  ReadOutput(parser, request);
  ReadSettings(parser, request);
  ReadMeasures(parser, request);
  ReadStudyOptions(parser, request);
  if ((request.command->takes & kPlot) != 0) {
    request.plot = PlotNumber(parser, *request.command);
  }
  if (parser.isSet("form")) {
    request.form = WholeNumber(parser, "form", 0, 1000, 0);
  }
  request.detail = WholeNumber(parser, "detail", 1, 2, request.detail);
  request.reference = Number(parser, "reference", 1e-6, 1e9, request.reference);
  request.paper = PaperOf(parser);
  request.pane = PaneOf(parser, request.plot);
  request.size = SizeOf(parser);
  return request;
}

}  // namespace

Request ReadCommandLine(int count, const char* const* words) {
  QStringList arguments;
  for (int k = 0; k < count; ++k) {
    arguments.append(FromBytes(words[k]));
  }
  QCommandLineParser parser;
  parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsCompactedShortOptions);
  for (const Option& option : Options()) {
    parser.addOption(QCommandLineOption(option.names, option.help,
                                        option.value != nullptr ? option.value : QString()));
  }
  parser.addVersionOption();
  if (!parser.parse(arguments)) {
    throw WrongCommandLine(Bytes(parser.errorText()));
  }
  return ReadCommand(parser);
}

std::string OptionsHelp() {
  constexpr int column = 26;
  QString text;
  for (const Option& option : Options()) {
    QString left = option.names.size() > 1 ? "  -" + option.names[0] + ", --" + option.names[1]
                                           : "  --" + option.names[0];
    if (option.value != nullptr) {
      left += QString(" ") + option.value;
    }
    text += (left + ' ').leftJustified(column) + option.help + '\n';
  }
  return Bytes(text);
}

}  // namespace halvorne::batch
