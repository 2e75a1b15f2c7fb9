#include <QAction>
#include <QMenu>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "persistence/design_file.h"
#include "platform/failure.h"
#include "platform/file_failure.h"
#include "platform/paths.h"
#include "platform/qt/message_boxes.h"
#include "platform/qt/text.h"
#include "plot/graph.h"
#include "plot/plot_after_open.h"
#include "plot/plot_state.h"
#include "shell/frm_halvorne_main.h"

// New, Open, Save As, Close and the recent entries. There is one design at a time, and it comes
// into being only by opening a file.

namespace halvorne {
namespace {

/// Goes into a folder. Raises 76 when that is not possible.
void ChangeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::current_path(folder, error);
  if (error) {
    throw Failure(failure_number::kPathNotFound);
  }
}

/// Makes a folder that is missing. When that fails, it is still missing to whoever goes into it.
void MakeFolder(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::create_directory(folder, error);
}

}  // namespace

void frmHalvorneMain::PrepareFileDialog(const char* title) {
  CMDialog1.InitDir = ProgramPath("\\DATA").string();
  CMDialog1.Filter = "All Files (*.*)|*.*|Data Files (*.dat)|*.dat";
  CMDialog1.FilterIndex = 1;
  CMDialog1.FileName = design.DataFileName;
  CMDialog1.DialogTitle = title;
}

void frmHalvorneMain::FileNew() try {
  EnableItems(false);
  DrawEmptyAxes();
  design.DataFileName = "Untitled";
  SetCaption("Halvorne: " + design.DataFileName);
} catch (...) {
  ReportFailure("FileNew", "frmHalvorneMain");
}

void frmHalvorneMain::FileOpen() try {
  PrepareFileDialog("File Open");
  CMDialog1.ShowOpen(this);
  OpenDesign(CMDialog1.FileName);
} catch (...) {
  // Kept: a cancelled dialog reaches this box too.
  ReportFileFailure("File Open");
}

void frmHalvorneMain::OpenDesign(const std::string& fileName) try {
  EndTuning();
  design.DataFileName = fileName;
  ReadDesignFile(design.DataFileName);
  // Kept: after a failed read the window shows an open design with what was read so far.
  EnableItems(true);
  SetMousePointer(kBusyPointer);
  ShowPlotAfterOpen();
  SetMousePointer(kNormalPointer);
} catch (...) {
  ReportFileFailure("File Open");
}

void frmHalvorneMain::FileSaveAs() try {
  PrepareFileDialog("Save As");
  CMDialog1.Flags = kOverwritePrompt;
  CMDialog1.ShowSave(this);
  design.DataFileName = CMDialog1.FileName;
  // Kept: the writer asks once more, and a No to it leaves the new name in the caption.
  WriteDesignFile(design.DataFileName);
  SetCaption("Halvorne: " + design.DataFileName);
} catch (...) {
  ReportFileFailure("File Save");
}

void frmHalvorneMain::FileClose() try {
  ChangeFolder(ProgramFolder());
  const std::filesystem::path folder = ProgramPath("\\DATA");
  MakeFolder(folder);
  ChangeFolder(folder);
  WriteDesignFile(design.DataFileName);
  EnableItems(false);
  DrawEmptyAxes();
  EnableItems(false);
} catch (...) {
  ReportFileFailure("File Close");
}

void frmHalvorneMain::UpdateMenu() try {
  static_cast<QAction*>(controls_[QStringLiteral("mnuFileArray(0)")])->setVisible(true);
  // The comparison is exact: names may differ in case only. Kept: a known entry is not moved.
  if (std::ranges::find(fileArray_, design.DataFileName) != fileArray_.end()) {
    return;
  }
  const int index = static_cast<int>(fileArray_.size());
  fileArray_.push_back(design.DataFileName);
  auto* const entry = new QAction(this);
  entry->setObjectName(QStringLiteral("mnuFileArray(%1)").arg(index));
  entry->setText(ToQString(design.DataFileName).replace(QStringLiteral("&"), QStringLiteral("&&")));
  connect(entry, &QAction::triggered, this, [this, index] {
    const Command command;
    mnuFileArray_Click(index);
  });
  static_cast<QMenu*>(controls_[QStringLiteral("mnuFile")])->addAction(entry);
} catch (...) {
  ReportFailure("UpdateMenu", "frmHalvorneMain");
}

void frmHalvorneMain::mnuFileArray_Click(int index) try {
  if (index < 0) {
    return;
  }
  EndTuning();
  design.DataFileName = fileArray_.at(static_cast<std::size_t>(index));
  // Kept: the folder stands before the name even when that holds a path, which then is not found.
  const std::string& name = design.DataFileName;
  ReadDesignFile(name.find('/') == std::string::npos ? ProgramPath("\\data\\" + name).string()
                                                     : ProgramPath("\\data").string() + '/' + name);
  EnableItems(true);
  ShowPlotAfterOpen();
} catch (...) {
  ReportFailure("mnuFileArray_Click", "frmHalvorneMain");
}

}  // namespace halvorne
