#include "shell/frm_halvorne_main.h"

#include <QApplication>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "materials/browser_opening.h"
#include "materials/data_sources.h"
#include "persistence/setup_file.h"
#include "platform/failure.h"
#include "platform/messages.h"
#include "platform/numbers.h"
#include "platform/paths.h"
#include "platform/qt/file_names.h"
#include "platform/qt/forms.h"
#include "platform/qt/message_boxes.h"
#include "plot/graph.h"
#include "plot/measures.h"
#include "plot/plot_select.h"
#include "shell/form_metrics.h"

namespace halvorne {
namespace {

constexpr int kColWidth = 585;  // twips

/// Top left corner of the graph, pixels.
constexpr QPoint kPictureCorner(6, 104);

/// The only file that a drag carries, empty when it carries anything else.
std::string DraggedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  return urls.size() == 1 ? LocalFileBytes(urls.constFirst()) : std::string();
}

}  // namespace

void frmHalvorneMain::Form_Load() try {
  UnloadForm("frmStartup");
  SetMousePointer(kBusyPointer);
  if (!HelpViewerInstalled()) {
    messages().Show({.title = "   Missing File!",
                     .text = "Microsoft does not include Winhlp32.exe in its windows distribution "
                             "for Windows 7 or Vista.\r\n\r\n"
                             "You need to download and install this file for the help system to "
                             "operate.",
                     .icon = MessageIcon::kExclamation});
  }
  CMDialog1.HelpFile = ProgramPath("\\HALVORNE.HLP").string();
  MakeDSN("acoustic", kDatabaseDriver, ProgramPath("\\Database\\Acoustic.mdb").string(),
          kAddDataSource);
  MakeDSN("pzmatls", kDatabaseDriver, ProgramPath("\\Database\\pzmatls.mdb").string(),
          kAddDataSource);
  OfferMaterialBrowsers();
  ReadHalvorneSetup();
  fileArray_.resize(1);
  CMDialog1.CancelError = true;
  EnableItems(false);
  LimitSize();
  const QRect area = screen()->geometry();
  resize(static_cast<int>(area.width() * 0.8), static_cast<int>(area.height() * 0.8));
  move(area.x() + area.width() / 2 - width() / 2, area.y() + area.height() / 2 - height() / 2);
  InitGrids();
  SetMousePointer(kNormalPointer);
  Picture2_Click();
  for (int column = 0; column < 4; ++column) {
    FlexgrdCFBW->SetColWidth(column, qRound(kColWidth / kTwipsPerPixel));
  }
  for (int column = 0; column < 2; ++column) {
    FlexgrdPulseWidth->SetColWidth(column, qRound(kColWidth / kTwipsPerPixel));
  }
} catch (...) {
  ReportFailure("Form_Load", "frmHalvorneMain");
}

void frmHalvorneMain::Form_Resize() try {
  LimitSize();
  const QRect area = screen()->geometry();
  const HeightCorrection correction = CorrectionFor(area.height());
  if (isMinimized()) {
    return;
  }
  // A window that holds its contents may be larger than a small screen.
  const QSize largest = area.size().expandedTo(minimumSize());
  const GraphGeometry places =
      GraphGeometryFor(std::min(height(), largest.height()) * kTwipsPerPixel,
                       std::min(width(), largest.width()) * kTwipsPerPixel, correction.twips,
                       kPictureCorner.y() * kTwipsPerPixel);
  const auto pixels = [](double twips) { return qRound(twips / kTwipsPerPixel); };
  PlaceControls(
      QRect(kPictureCorner, QSize(pixels(places.pictureWidth), pixels(places.pictureHeight))),
      pixels(places.scrollTop), pixels(places.titleTop));
  Picture->FitPicture();
  if (correction.tinyFont) {
    Picture1().SetFontSize(4);
  }
  if (!plot.DesignOpen) {
    DrawEmptyAxes();
  } else {
    PlotRedraw();
  }
} catch (...) {
  ReportFailure("Form_Resize", "frmHalvorneMain");
}

void frmHalvorneMain::Form_QueryUnload(int unloadMode) try {
  DoUnLoadPreCheck(unloadMode);
} catch (...) {
  ReportFailure("Form_QueryUnload", "frmHalvorneMain");
}

void frmHalvorneMain::DoUnLoadPreCheck(int unloadMode) try {
  constexpr int byTheUser = 0;
  constexpr int byTheTaskManager = 3;
  if (unloadMode == byTheUser || unloadMode == byTheTaskManager) {
    UnloadForm("frmAbout");
    UnloadForm("frmHalvorneMain");
    EndProgram();
  }
} catch (...) {
  ReportFailure("DoUnLoadPreCheck", "frmHalvorneMain");
}

void frmHalvorneMain::EndProgram() try { QCoreApplication::exit(0); } catch (...) {
  ReportFailure("EndProgram", "frmHalvorneMain");
}

void frmHalvorneMain::closeEvent(QCloseEvent* event) {
  const Command command;
  EndTuning();
  UnloadForm("frmHelp");  // the program does not go on for the help alone
  Form_QueryUnload(event->spontaneous() ? 0 : 1);
  event->accept();
}

void frmHalvorneMain::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (!screenWatched_) {
    screenWatched_ = true;
    connect(windowHandle(), &QWindow::screenChanged, this, [this] {
      const Command command;
      Form_Resize();
    });
  }
}

void frmHalvorneMain::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (!event->spontaneous()) {
    TakeSize();
  } else if (!sizeWaits_) {
    // The mouse sends sizes faster than anybody sees them: of those that have come by the time the
    // events are worked off, the last one is drawn.
    sizeWaits_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
          sizeWaits_ = false;
          TakeSize();
        },
        Qt::QueuedConnection);
  }
}

void frmHalvorneMain::TakeSize() {
  if (resizing_) {
    return;  // a box that the redraw shows lets events in; the redraw itself ends with this size
  }
  const Command command;
  resizing_ = true;
  QSize drawn;
  do {
    drawn = size();
    Form_Resize();
  } while (drawn != size());
  resizing_ = false;
}

bool frmHalvorneMain::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const Command command;
  if (type == QEvent::MouseButtonDblClick) {
    if (watched == Picture) {
      Picture1_DblClick();
      return true;
    }
    if (watched == Picture2) {
      Picture2_Click();
    } else if (fraAtten->isEnabled() &&
               (watched == fraAtten ||
                std::ranges::find(attenuation_, watched) != attenuation_.end())) {
      fraAtten_DblClick(watched->objectName().toStdString());
      return true;
    }
  } else if (type == QEvent::MouseButtonRelease && watched == Picture2) {
    Picture2_Click();
  } else if (type == QEvent::Wheel && watched == Picture && measured.CursorOn) {
    QCoreApplication::sendEvent(HScroll1, event);
    return true;
  } else if (type == QEvent::KeyPress && measured.CursorOn &&
             (watched == Cursor1 || watched == FindMax || watched == FindMin)) {
    // Arrows would otherwise lead from one button to the next.
    return HScroll1->Press(static_cast<QKeyEvent*>(event)->key());
  } else if (type == QEvent::ContextMenu && watched == Picture) {
    const auto* const asked = static_cast<QContextMenuEvent*>(event);
    if (asked->reason() == QContextMenuEvent::Mouse) {
      mnuGraph->Open(asked->globalPos());
      return true;
    }
  } else if (type == QEvent::ContextMenu && watched == HScroll1) {
    // The bar has a menu of its own, of no use to who moves the cursor by keys.
    if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard) {
      OpenGraphMenu();
      return true;
    }
  } else if (type == QEvent::FocusOut && watched == txtEdit) {
    txtEdit_LostFocus();
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmHalvorneMain::keyPressEvent(QKeyEvent* event) {
  const bool asksForMenu = event->key() == Qt::Key_Menu ||
                           (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier);
  if (asksForMenu && focusWidget() != txtEdit) {  // the title box has a menu of its own
    OpenGraphMenu();
    return;
  }
  // Keys that the control with the focus has no use for move the cursor.
  if (!measured.CursorOn || !HScroll1->Press(event->key())) {
    QMainWindow::keyPressEvent(event);
  }
}

void frmHalvorneMain::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) {
    OpenGraphMenu();
  }
}

void frmHalvorneMain::dragEnterEvent(QDragEnterEvent* event) {
  std::error_code none;
  // A window behind a modal one takes no commands, thus no files either.
  if (QApplication::activeModalWidget() == nullptr &&
      std::filesystem::is_regular_file(DraggedFile(event->mimeData()), none)) {
    event->acceptProposedAction();
  }
}

void frmHalvorneMain::dropEvent(QDropEvent* event) {
  const Command command;
  const std::string file = DraggedFile(event->mimeData());
  event->acceptProposedAction();
  OpenDesign(file);
}

}  // namespace halvorne
