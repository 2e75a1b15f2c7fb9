#include "shell/take_along_items.h"

#include <filesystem>
#include <string>

#include "persistence/bytes_file.h"
#include "persistence/file_names.h"
#include "persistence/touchstone_file.h"
#include "platform/failure.h"
#include "platform/file_failure.h"
#include "platform/main_window.h"
#include "platform/paths.h"
#include "platform/qt/file_dialogs.h"
#include "platform/qt/text.h"
#include "plot/curve_csv.h"
#include "plot/plot_state.h"
#include "plot/shown_picture.h"
#include "plot/windows/plot_pictures.h"
#include "shell/frm_touchstone.h"

namespace halvorne {
namespace {

/// Asks for a file name, of which the design's is offered with another ending; empty when the
/// dialog is cancelled. The ending is put behind a name without one.
std::string AskForName(QWidget* owner, const char* title, const char* filter,
                       const std::string& ending) {
  CommonDialog dialog("CMDialog1");
  dialog.InitDir = ProgramPath("\\DATA").string();
  dialog.Filter = filter;
  dialog.DialogTitle = title;
  std::string design;
  ExtractFileName(halvorne::design.DataFileName, design);
  dialog.FileName = std::filesystem::path(design).stem().string() + ending;
  dialog.ShowSave(owner);
  std::string name = dialog.FileName;
  if (!name.empty() && !std::filesystem::path(name).has_extension()) {
    name += ending;
  }
  return name;
}

/// The busy pointer as long as this lives.
class BusyPointer {
 public:
  BusyPointer() { mainWindow().SetMousePointer(kBusyPointer); }
  ~BusyPointer() { mainWindow().SetMousePointer(kNormalPointer); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;
};

std::string PictureBytes(PictureFormat format, const PictureBox& picture) {
  // As it stands on the screen, in the screen's own resolution; else as lines and letters.
  const QByteArray bytes =
      format == PictureFormat::kPng
          ? PngOf(picture.Picture().Seen())
          : PictureOf(format, picture.size(), ToQString(plot.PlotTitle), DrawOnShow);
  return bytes.toStdString();
}

/// Whether there is anything to save; not so once the waveform of a design was refused at opening.
bool PlotOnShow() {
  return DesignIsOpen() && mainWindow().PlotTypeIndex() >= 0;
}

void mnuGraphSavePicture_Click(PictureBox* picture) try {
  const std::string name =
      AskForName(picture->window(), "Save Picture As",
                 "Pictures (*.png *.svg *.pdf)|*.png *.svg *.pdf|All Files (*.*)|*.*", ".png");
  if (name.empty()) {
    return;
  }
  const auto format = PictureFormatOf(name);
  if (!format) {
    throw Failure(failure_number::kInvalidCall, "A picture's name ends in .png, .svg or .pdf");
  }
  const BusyPointer busy;
  SaveBytes(name, PictureBytes(*format, *picture), "Halvorne Save Picture");
} catch (...) {
  ReportFileFailure("Save Picture As");
}

void mnuGraphSaveCsv_Click(QWidget* owner) try {
  const std::string name =
      AskForName(owner, "Save Data as CSV",
                 "Comma-separated values (*.csv)|*.csv|All Files (*.*)|*.*", ".csv");
  if (!name.empty()) {
    const BusyPointer busy;
    SaveBytes(name, CurvesAsCsv(), kSaveCsvTitle);
  }
} catch (...) {
  ReportFileFailure("Save Data as CSV");
}

void mnuGraphSaveTouchstone_Click(QWidget* owner) try {
  static double reference = kTouchstoneReference;  // kept for the session
  frmTouchstone dialog(reference, owner);
  dialog.exec();
  if (dialog.Reference() <= 0) {
    return;
  }
  reference = dialog.Reference();
  const std::string name =
      AskForName(owner, "Save Impedance as Touchstone",
                 "Touchstone, one port (*.s1p)|*.s1p|All Files (*.*)|*.*", ".s1p");
  if (!name.empty()) {
    SaveBytes(name, TouchstoneText(reference), kSaveTouchstoneTitle);
  }
} catch (...) {
  ReportFileFailure("Save Impedance as Touchstone");
}

}  // namespace

void AddTakeAlongItems(GraphMenu& menu, PictureBox* picture) {
  menu.Add({.group = GraphGroup::kTakeAlong,
            .name = "mnuGraphSavePicture",
            .caption = QStringLiteral("&Save Picture As..."),
            .procedure = [picture] { mnuGraphSavePicture_Click(picture); },
            .available = PlotOnShow});
  menu.Add({.group = GraphGroup::kTakeAlong,
            .name = "mnuGraphSaveCsv",
            .caption = QStringLiteral("Save &Data as CSV..."),
            .procedure = [picture] { mnuGraphSaveCsv_Click(picture->window()); },
            .available = PlotOnShow});
  menu.Add({.group = GraphGroup::kTakeAlong,
            .name = "mnuGraphSaveTouchstone",
            .caption = QStringLiteral("Save &Impedance as Touchstone..."),
            .procedure = [picture] { mnuGraphSaveTouchstone_Click(picture->window()); }});
}

}  // namespace halvorne
