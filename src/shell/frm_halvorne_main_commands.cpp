#include <array>
#include <string>

#include "dialogs/frm_excite.h"
#include "platform/failure.h"
#include "platform/file_failure.h"
#include "platform/messages.h"
#include "platform/paths.h"
#include "platform/qt/clipboard.h"
#include "platform/qt/text.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "plot/shown_picture.h"
#include "plot/windows/frm_display_opt.h"
#include "plot/windows/frm_plot_scale_entry.h"
#include "plot/windows/plot_pictures.h"
#include "report/text_exports.h"
#include "shell/frm_about.h"
#include "shell/frm_halvorne_main.h"

namespace halvorne {

frmHalvorneMain::Procedure frmHalvorneMain::ProcedureOf(const MenuRow& row) {
  if (row.plot != 0) {
    return [this, &row] { View_Click(row); };
  }
  struct Array {
    std::string_view name;
    void (frmHalvorneMain::*click)(int);
  };
  static constexpr std::array<Array, 3> arrays{{
      {"mnuFileItem", &frmHalvorneMain::mnuFileItem_Click},
      {"mnuOptionsItem", &frmHalvorneMain::mnuOptionsItem_Click},
      {"mnuHelpItem", &frmHalvorneMain::mnuHelpItem_Click},
  }};
  for (const Array& array : arrays) {
    if (ControlName(row.name) == array.name) {
      return [this, click = array.click, index = ControlIndex(row.name)] { (this->*click)(index); };
    }
  }
  struct Single {
    std::string_view name;
    void (frmHalvorneMain::*click)();
  };
  static constexpr std::array<Single, 15> singles{{
      {"mnuEditCopyGraph", &frmHalvorneMain::mnuEditCopyGraph_Click},
      {"mnuEditCopyGraphData", &frmHalvorneMain::mnuEditCopyGraphData_Click},
      {"mnuEditCopyInputs", &frmHalvorneMain::mnuEditCopyInputs_Click},
      {"mnuEditCopyStats", &frmHalvorneMain::mnuEditCopyStats_Click},
      {"mnuEditSaveGraphData", &frmHalvorneMain::mnuEditSaveGraphData_Click},
      {"mnuInputPiezo", &frmHalvorneMain::mnuInputPiezo_Click},
      {"mnuInputSz", &frmHalvorneMain::mnuInputSz_Click},
      {"mnuInputFP", &frmHalvorneMain::mnuInputFP_Click},
      {"mnuInputBP", &frmHalvorneMain::mnuInputBP_Click},
      {"mnuInputLoad", &frmHalvorneMain::mnuInputLoad_Click},
      {"mnuInputElTerm", &frmHalvorneMain::mnuInputElTerm_Click},
      {"mnuInputElNet", &frmHalvorneMain::mnuInputElNet_Click},
      {"mnuInputFreqPts", &frmHalvorneMain::mnuInputFreqPts_Click},
      {"mnuInputTimePts", &frmHalvorneMain::mnuInputTimePts_Click},
      {"mnuInputView", &frmHalvorneMain::mnuInputView_Click},
  }};
  for (const Single& single : singles) {
    if (row.name == single.name) {
      return [this, click = single.click] { (this->*click)(); };
    }
  }
  return nullptr;
}

void frmHalvorneMain::View_Click(const MenuRow& row) try {
  view.CurrentPlot = row.plot;
  PlotSelect(view.CurrentPlot);
} catch (...) {
  ReportFailure((std::string(ControlName(row.name)) + "_Click").c_str(), "frmHalvorneMain");
}

void frmHalvorneMain::mnuFileItem_Click(int index) try {
  switch (index) {
    case 0:
      FileNew();
      break;
    case 1:
      FileOpen();
      break;
    case 2:
      FileSaveAs();
      break;
    case 3:
      FileClose();
      break;
    case 5:
      PreviewReport("mnuFileItem_Click");
      break;
    case 6:
      PrintReport("mnuFileItem_Click");
      break;
    case 8:
      EndProgram();
      break;
    default:
      break;
  }
} catch (...) {
  ReportFailure("mnuFileItem_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuEditCopyGraph_Click() try {
  Clipboard::Clear();
  Clipboard::SetData(Picture->Picture().Seen(), PictureOf(PictureFormat::kSvg, Picture->size(),
                                                          ToQString(plot.PlotTitle), DrawOnShow));
} catch (...) {
  ReportFailure("mnuEditCopyGraph_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuEditCopyGraphData_Click() try {
  SetMousePointer(kBusyPointer);
  std::string text;
  GraphDataToClipboard(text);
  Clipboard::Clear();
  Clipboard::SetText(text);
  SetMousePointer(kNormalPointer);
} catch (...) {
  ReportFailure("mnuEditCopyGraphData_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuEditCopyStats_Click() try {
  const std::string text = StatisticsText();
  Clipboard::Clear();
  Clipboard::SetText(text);
} catch (...) {
  ReportFailure("mnuEditCopyStats_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuEditSaveGraphData_Click() try {
  PrepareFileDialog("Save As");  // Kept: the flags stay those of the dialog before
  CMDialog1.FileName = "GRAPH1.DAT";
  CMDialog1.ShowSave(this);
  SetMousePointer(kBusyPointer);
  SaveGraphData(CMDialog1.FileName);
  SetMousePointer(kNormalPointer);
} catch (...) {
  SetMousePointer(kNormalPointer);
  ReportFileFailure("Open Error");
}

void frmHalvorneMain::mnuOptionsItem_Click(int index) try {
  if (index == 0) {
    frmExcite(this).exec();
  } else if (index == 1) {
    frmPlotScaleEntry(this).exec();
  } else if (index == 2) {
    frmDisplayOpt(this).exec();
  }
} catch (...) {
  ReportFailure("mnuOptionsItem_Click", "frmHalvorneMain");
}

void frmHalvorneMain::mnuHelpItem_Click(int index) try {
  constexpr int about = 3;
  if (index == about) {
    frmAbout(this).exec();
    return;
  }
  if (!HelpViewerInstalled()) {
    messages().Show({.title = "   Missing File!",
                     .text = "\r\nMicrosoft does not include Winhlp32.exe in its windows "
                             "distribution for Windows 7 or Vista.\r\n\r\n"
                             "You need to download and install this file for the help system to "
                             "operate.",
                     .icon = MessageIcon::kExclamation});
  }
  if (index == 0) {
    CMDialog1.HelpCommand = kHelpContents;
  } else {
    CMDialog1.HelpKey = "";
    CMDialog1.HelpCommand = kHelpSearch;
  }
  CMDialog1.ShowHelp();
} catch (...) {
  ReportFailure("mnuHelpItem_Click", "frmHalvorneMain");
}

void frmHalvorneMain::Picture1_DblClick() try {
  if (plot.DesignOpen) {
    EndTuning();
    frmPlotScaleEntry(this).exec();
  }
} catch (...) {
  ReportFailure("Picture1_DblClick", "frmHalvorneMain");
}

void frmHalvorneMain::Picture2_Click() try {
  for (QWidget* button : toolbar_) {
    button->raise();
  }
} catch (...) {
  ReportFailure("Picture2_Click", "frmHalvorneMain");
}

void frmHalvorneMain::fraAtten_DblClick(const std::string& control) try {
  EndTuning();
  frmDisplayOpt(this).exec();
} catch (...) {
  ReportFailure((control + "_DblClick").c_str(), "frmHalvorneMain");
}

void frmHalvorneMain::LeaveTitleBox() {
  if (txtEdit->isModified()) {
    txtEdit_LostFocus();
    txtEdit->setModified(false);
  }
}

void frmHalvorneMain::txtEdit_LostFocus() try {
  // A title that was not touched keeps its bytes; one that is being emptied with the window is not
  // the user's.
  if (plot.DesignOpen && txtEdit->text() != ToQString(design.DesignTitle)) {
    design.DesignTitle = FromQString(txtEdit->text());
  }
} catch (...) {
  ReportFailure("txtEdit_LostFocus", "frmHalvorneMain");
}

}  // namespace halvorne
