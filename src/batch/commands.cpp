#include "batch/commands.h"

#include "batch/comparison.h"
#include "batch/contact_sheet.h"
#include "batch/curve_tables.h"
#include "batch/design_session.h"
#include "batch/design_summary.h"
#include "batch/help_text.h"
#include "batch/inspection.h"
#include "batch/material_csv.h"
#include "batch/measurements.h"
#include "batch/output.h"
#include "batch/report_files.h"
#include "batch/stops.h"
#include "batch/study_command.h"
#include "persistence/design_file.h"
#include "persistence/touchstone_file.h"
#include "persistence/version.h"
#include "platform/file_failure.h"
#include "platform/qt/text.h"
#include "plot/graph.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/windows/plot_pictures.h"
#include "report/stack_drawing.h"
#include "report/text_exports.h"
#include "studies/study_schema.h"

namespace halvorne::batch {
namespace {

void WriteBytes(const Session& session, const QByteArray& bytes) {
  WriteOutput(session, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

void RunRecalc(Session& session) {
  OpenDesign(session);
  if (!session.request.recalc) {
    Recalc();
  }
  WriteOutputOnceAsked(session, kSaveDesignTitle, DesignFileText);
}

void RunConvert(Session& session) {
  OpenDesign(session);
  WriteOutputOnceAsked(session, kSaveDesignTitle, DesignFileText);
}

void RunRaw(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  WriteOutput(session, RawTable());
}

void RunData(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  WriteOutput(session, DataTable(session.request.pane));
}

void RunInspect(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  WriteOutput(session, Inspection(session.window));
}

/// The size that is asked for, or else the usual one.
QSize SizeOr(const Request& request, QSize usual) {
  return request.size.isValid() ? request.size : usual;
}

/// PNG on standard output.
PictureFormat FormatOf(const Request& request) {
  const auto format = request.out.empty() ? PictureFormat::kPng : PictureFormatOf(request.out);
  if (!format) {
    throw WrongCommandLine("-o: a picture's name ends in .png, .svg or .pdf, not as " +
                           request.out);
  }
  return *format;
}

void RunPlot(Session& session) {
  const PictureFormat format = FormatOf(session.request);
  OpenDesign(session);
  ShowPlot(session);
  WriteBytes(session, PictureOf(format, SizeOr(session.request, {1000, 620}),
                                ToQString(plot.PlotTitle), PlotGraphOn));
}

void RunStack(Session& session) {
  const PictureFormat format = FormatOf(session.request);
  OpenDesign(session);
  const QSize size = SizeOr(session.request, {640, 480});
  WriteBytes(session, PictureOf(format, size, QStringLiteral("Stack"), [size](Surface& surface) {
               DrawStack(surface, StackOfDesign(), size.width(), size.height());
             }));
}

void RunContact(Session& session) {
  if (FormatOf(session.request) != PictureFormat::kPng) {
    throw WrongCommandLine("-o: a contact sheet's name ends in .png");
  }
  OpenDesign(session);
  std::string missing;
  WriteBytes(session, PngOf(ContactSheet(session, missing)));
  if (!missing.empty()) {
    throw CommandFailed("the sheet lacks the plots that cannot be shown: " + missing);
  }
}

void RunStatistics(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  WriteOutput(session, StatisticsText());
}

void RunGraphData(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  std::string text;
  GraphDataToClipboard(text);
  WriteOutput(session, text);
}

/// The text with the box that the window's command shows on a failure.
std::string GraphDataFileTextOrBox() {
  try {
    return GraphDataFileText();
  } catch (...) {
    ReportFileFailure("Open Error");
    return {};
  }
}

void RunSaveData(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  WriteOutputOnceAsked(session, kSaveGraphDataTitle, GraphDataFileTextOrBox);
}

void RunTouchstone(Session& session) {
  OpenDesign(session);
  WriteOutputOnceAsked(session, kSaveTouchstoneTitle,
                       [&session] { return TouchstoneText(session.request.reference); });
}

void RunReport(Session& session) {
  const ReportFormat format = ReportFormatOf(session.request.out);
  OpenDesign(session);
  ShowPlot(session);
  WriteReport(session, format);
}

void RunInputs(Session& session) {
  OpenDesign(session);
  ShowPlot(session);
  std::string text;
  ParasToClipboard(text, static_cast<std::int16_t>(session.request.detail));
  WriteOutput(session, text);
}

void RunInfo(Session& session) {
  OpenDesign(session);
  WriteOutput(session, DesignSummary());
}

void RunMeasure(Session& session) {
  OpenDesign(session);
  WriteMeasurements(session);
}

void RunStudy(Session& session) {
  RunStudyCommand(session);
}

void RunMaterials(Session& session) {
  WriteOutput(session, MaterialCsv(session.request));
}

void RunHelp(Session& session) {
  const std::string& topic = session.request.topic;
  if (topic.empty()) {
    WriteOutput(session, HelpText());
  } else if (topic == "fields") {
    WriteOutput(session, FieldsHelpText());
  } else if (topic == "measures") {
    WriteOutput(session, MeasuresHelpText());
  } else if (topic == "schema") {
    WriteOutput(session, studies::StudySchema());
  } else {
    throw WrongCommandLine("there is no help on '" + topic +
                           "'; there is one on fields, on measures and on the schema of a study");
  }
}

void RunVersion(Session& session) {
  WriteOutput(session, "halvorne-batch " + ProgramVersion() + "\n");
}

constexpr unsigned kText = kDesign | kOutput;
constexpr unsigned kPlotText = kText | kPlot | kNeedsPlot | kForm;
constexpr unsigned kInputsText = kText | kPlot | kForm | kDetail;

constexpr Command kCommands[] = {
    {"recalc", kText | kNeedsOutput, "recalc IN -o OUT [--force]",
     "calculate the design anew and write it", RunRecalc},
    {"convert", kText | kNeedsOutput, "convert IN -o OUT [--force]",
     "write the design with its stored curves in the present format", RunConvert},
    {"raw", kText | kPlot | kNeedsPlot, "raw IN --plot N",
     "the physical values behind a plot as CSV, x in Hz", RunRaw},
    {"data", kPlotText | kPane, "data IN --plot N [--form K] [--pane NAME]",
     "the plotted values as CSV, x in Hz or s", RunData},
    {"inspect", kPlotText, "inspect IN --plot N [--form K]",
     "title, forms, axes and measurements as JSON", RunInspect},
    {"plot", kPlotText | kSize, "plot IN --plot N [--form K] -o FILE [--size WxH]",
     "the picture as the main window shows it", RunPlot},
    {"compare", kPlotText | kNeedsOutput | kSize | kManyDesigns,
     "compare IN IN2 ... --plot N [--form K] -o FILE [--size WxH]",
     "up to 7 designs in one graph with their measurements; or .csv or .json", WriteComparison},
    {"contact", kText | kSize, "contact IN -o FILE.png [--size WxH]",
     "all plots of the design on one sheet, WxH each", RunContact},
    {"stack", kText | kSize, "stack IN -o FILE [--size WxH]",
     "the layers and the electrical network as the main window draws them", RunStack},
    {"stats", kPlotText, "stats IN --plot N [--form K]",
     "bandwidth, pulse width and attenuation as text", RunStatistics},
    {"measure", kText | kMeasures, "measure IN [--measure NAME] [--variants FILE]",
     "measurements by name as a line of JSON, one for each variant of a list", RunMeasure},
    {"graphdata", kPlotText, "graphdata IN --plot N [--form K]",
     "the plotted values as a table for a spreadsheet's clipboard", RunGraphData},
    {"savedata", kPlotText | kNeedsOutput, "savedata IN --plot N [--form K] -o FILE [--force]",
     "the plotted values as a text file for a spreadsheet", RunSaveData},
    {"touchstone", kText | kNeedsOutput | kReference,
     "touchstone IN -o FILE.s1p [--reference R] [--force]",
     "the electrical input impedance as reflection coefficient S11, one port", RunTouchstone},
    {"report", kInputsText | kPaper | kNeedsOutput,
     "report IN -o FILE [--plot N] [--form K] [--detail D] [--paper NAME]",
     "the design report as .pdf, as .png or as a record of its drawing, .json", RunReport},
    {"inputs", kInputsText, "inputs IN [--plot N] [--form K] [--detail D]",
     "all inputs of the design as text for a spreadsheet's clipboard", RunInputs},
    {"info", kText, "info IN", "a summary of the design", RunInfo},
    {"study", kOutput | kStudy,
     "study FILE -o FOLDER [--jobs N] [--shard K/N], or study --gather FOLDER",
     "many runs of a design that varies: lines, summary, pictures, worst designs", RunStudy},
    {"materials", kOutput | kMaterials, "materials [piezo|acoustic] [--table T] [--find TEXT]",
     "the tables of the material databases as CSV", RunMaterials},
    {"help", kOutput, "help [fields|measures|schema]",
     "this text, the fields of --set, the measures of --measure, or the schema of a study file",
     RunHelp},
    {"--version", kOutput, "--version", "the version of the program", RunVersion},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

const Command* FindCommand(const QString& name) {
  for (const Command& command : kCommands) {
    if (name == command.name) {
      return &command;
    }
  }
  return nullptr;
}

}  // namespace halvorne::batch
