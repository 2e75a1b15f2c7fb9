#include <QAction>
#include <QDialog>
#include <QFontInfo>
#include <QFontMetrics>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStyleOptionMenuItem>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <string_view>
#include <utility>

#include "platform/qt/drawing_surface.h"
#include "platform/qt/message_boxes.h"
#include "plot/cursor.h"
#include "plot/plot_select.h"
#include "shell/form_metrics.h"
#include "shell/frm_halvorne_main.h"
#include "shell/palette_icon.h"

namespace halvorne {
namespace {

// Places of the controls, in pixels.
constexpr int kMargin = 6;
constexpr int kColumnGap = 4;  ///< beside the measurements
constexpr int kToolbarHeight = 56;
constexpr int kToolButton = 44;
constexpr int kToolGap = 12;  ///< between groups of tools
constexpr int kFormRowTop = kToolbarHeight + 2 * kMargin;
constexpr int kCursorRowHeight = 25;
constexpr int kShortestBar = 120;
/// The graph's box within the picture, as shares of its width.
constexpr double kBoxLeft = 2.0 / 14;
constexpr double kBoxRight = 12.0 / 14;

struct ToolRow {
  const char* name;
  const char* drawing;
  const char* tip;
  const char* caption = "";
  bool opensGroup = false;
};

constexpr std::array kToolbar = std::to_array<ToolRow>({
    {"cmdFileNew", "new", "New"},
    {"cmdFileOpen", "open", "Open a design file"},
    {"cmdFileSave", "save", "Save the design under a name"},
    {"cmdViewInputs", "inputs", "View the inputs of the design", "Input", true},
    {"cmdCopyToClipboard", "copy_graph", "Copy the graph", "", true},
    {"cmdCopyDataToClipboard", "copy_data", "Copy the graph's data"},
    {"cmdPrintPreview", "print_preview", "Print preview", "", true},
    {"cmdPrintReport", "print_report", "Print the report"},
});

/// A menu whose separators are plain lines, whatever their caption.
class PlainMenu final : public QMenu {
 public:
  using QMenu::QMenu;

 protected:
  void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override {
    QMenu::initStyleOption(option, action);
    if (action->isSeparator()) {
      option->text.clear();
    }
  }
};

/// What only looks at the plot goes together with numbers that are being tried.
bool EndsTuning(const MenuRow& row) {
  const std::string_view name(row.name);
  return row.plot == 0 && !name.starts_with("mnuEditCopy") && !name.starts_with("mnuHelp");
}

/// The smallest graph whose axis texts are whole and apart.
QSize SmallestGraph() {
  const QFontMetrics letters(PictureFont());
  // A caption stands in the middle of a seventh of the width; two lines and three quarters below
  // the box take two thirteenths of the height.
  return {7 * letters.horizontalAdvance(QStringLiteral("normalized")) + 2 * kMargin,
          qRound(2.75 * letters.height() * 13 / 2)};
}

}  // namespace

template <class Control>
Control* frmHalvorneMain::Named(Control* control, const QString& name) {
  control->setObjectName(name);
  controls_.insert(name, control);
  return control;
}

QAction* frmHalvorneMain::MakeMenuItem(const MenuRow& row) {
  auto* const item = Named(new QAction(this), QLatin1String(row.name));
  item->setText(QLatin1String(row.caption));
  item->setSeparator(item->text() == QStringLiteral("-"));
  item->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
  if (const Procedure procedure = ProcedureOf(row)) {
    connect(item, &QAction::triggered, this, [this, procedure, ends = EndsTuning(row)] {
      const Command command;
      LeaveTitleBox();
      if (ends) {
        EndTuning();
      }
      procedure();
    });
  }
  return item;
}

void frmHalvorneMain::MakeMenus() {
  const std::span<const MenuRow> table = MenuTable();
  std::array<QMenu*, 4> open{};  // the menus that the row stands in, by depth
  for (std::size_t i = 0; i < table.size(); ++i) {
    const MenuRow& row = table[i];
    const auto depth = static_cast<std::size_t>(row.depth);
    if (i + 1 < table.size() && table[i + 1].depth > row.depth) {
      const QString caption = QLatin1String(row.caption);
      auto* const menu = new PlainMenu(caption, this);
      depth == 0 ? menuBar()->addMenu(menu) : open.at(depth - 1)->addMenu(menu);
      open.at(depth) = Named(menu, QLatin1String(row.name));
      menu->menuAction()->setObjectName(menu->objectName());
    } else {
      open.at(depth - 1)->addAction(MakeMenuItem(row));
    }
  }
  // Hidden until the first file was opened.
  static_cast<QAction*>(controls_[QStringLiteral("mnuFileArray(0)")])->setVisible(false);
}

void frmHalvorneMain::MakeToolbar() {
  Picture2 = Named(new QWidget(centralWidget()), QStringLiteral("Picture2"));
  Picture2->installEventFilter(this);
  int left = 0;
  for (const ToolRow& row : kToolbar) {
    left += row.opensGroup ? kToolGap : 0;
    auto* const button = Named(new QToolButton(Picture2), QLatin1String(row.name));
    button->setIcon(
        PaletteIcon(QStringLiteral(":/shell/icons/%1.pic").arg(QLatin1String(row.drawing))));
    button->setIconSize({28, 28});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(QLatin1String(row.tip));
    button->setAccessibleName(button->toolTip());
    button->setText(QLatin1String(row.caption));
    button->setToolButtonStyle(button->text().isEmpty() ? Qt::ToolButtonIconOnly
                                                        : Qt::ToolButtonTextBesideIcon);
    const int width = std::max(kToolButton, button->sizeHint().width());
    button->setGeometry(left, (kToolbarHeight - kToolButton) / 2, width, kToolButton);
    left += width;
    toolbar_.push_back(button);
  }
  Picture2->setGeometry(0, 0, left, kToolbarHeight);
}

void frmHalvorneMain::MakeGraphControls() {
  QWidget* const ground = centralWidget();
  LblPlotType =
      Named(new QLabel(QStringLiteral("Plot Type:"), ground), QStringLiteral("LblPlotType"));
  PlotType = Named(new QComboBox(ground), QStringLiteral("PlotType"));
  PlotType->setPlaceholderText(QStringLiteral(" "));  // the first entry is not chosen by itself
  PlotType->setMaxVisibleItems(12);
  LblPlotType->setBuddy(PlotType);
  Picture = Named(new PictureBox(ground), QStringLiteral("Picture1"));
  Picture->setAccessibleName(QStringLiteral("Graph"));
  Picture->installEventFilter(this);
  pointer_ = new GraphPointer(Picture);
  Cursor1 = Named(new QPushButton(QStringLiteral("&Cursor"), ground), QStringLiteral("Cursor1"));
  Cursor1->setToolTip(QStringLiteral("Cursor on or off"));
  HScroll1 = Named(new CursorBar(ground), QStringLiteral("HScroll1"));
  HScroll1->setFocusPolicy(Qt::StrongFocus);
  HScroll1->setAccessibleName(QStringLiteral("Cursor position"));
  HScroll1->setEnabled(false);
  HScroll1->installEventFilter(this);
  FindMax = Named(new QPushButton(QStringLiteral("Find Ma&x"), ground), QStringLiteral("FindMax"));
  FindMin = Named(new QPushButton(QStringLiteral("Find Mi&n"), ground), QStringLiteral("FindMin"));
  FindMax->setToolTip(QStringLiteral("Cursor to the highest value of the first trace"));
  FindMin->setToolTip(QStringLiteral("Cursor to the lowest value of the first trace"));
  for (QPushButton* button : {Cursor1, FindMax, FindMin}) {
    button->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus on the bar
    button->installEventFilter(this);
  }
  txtEdit = Named(new QLineEdit(ground), QStringLiteral("txtEdit"));
  txtEdit->setAccessibleName(QStringLiteral("Title of the design"));
  txtEdit->setAcceptDrops(false);  // a design file dropped on it opens as anywhere else
  txtEdit->installEventFilter(this);
}

void frmHalvorneMain::MakeMeasurements() {
  measurements_ = new QWidget(centralWidget());
  QFont small = font();
  small.setPointSizeF(std::min(QFontInfo(small).pointSizeF(), 8.0));
  measurements_->setFont(small);
  auto* const column = new QVBoxLayout(measurements_);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kMargin);
  const auto frame = [&](const char* name, const char* title) {
    auto* const box = Named(new QGroupBox(QLatin1String(title)), QLatin1String(name));
    auto* const inner = new QVBoxLayout(box);
    inner->setContentsMargins(3, 4, 3, 6);  // the widest values of the grids need the room
    inner->setSpacing(3);
    column->addWidget(box);
    return box;
  };
  fraCFBW = frame("fraCFBW", "Center Freq and Bandwidth");
  FlexgrdCFBW = Named(new MeasurementGrid(6, 4, 3, fraCFBW), QStringLiteral("FlexgrdCFBW"));
  FlexgrdCFBW->setAccessibleName(fraCFBW->title());
  fraCFBW->layout()->addWidget(FlexgrdCFBW);
  fraPulseWidth = frame("fraPulseWidth", "Pulse Width and Level");
  FlexgrdPulseWidth =
      Named(new MeasurementGrid(5, 2, 2, fraPulseWidth), QStringLiteral("FlexgrdPulseWidth"));
  FlexgrdPulseWidth->setAccessibleName(fraPulseWidth->title());
  fraPulseWidth->layout()->addWidget(FlexgrdPulseWidth);
  lblPkAmpl = Named(new FittedLabel(fraPulseWidth), QStringLiteral("lblPkAmpl"));
  lblPkAmpl->setMinimumHeight(2 * lblPkAmpl->fontMetrics().lineSpacing());
  QSizePolicy kept = lblPkAmpl->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  lblPkAmpl->setSizePolicy(kept);
  fraPulseWidth->layout()->addWidget(lblPkAmpl);
  fraAtten = frame("fraAtten", "Attenuation in Load Medium");
  fraAtten->installEventFilter(this);
  constexpr std::array<const char*, 4> names{"lblAttenLength", "lblAttenRate", "lblAttenFreq",
                                             "lblAttenExp"};
  for (std::size_t i = 0; i < names.size(); ++i) {
    attenuation_[i] = Named(new FittedLabel(fraAtten), QLatin1String(names[i]));
    attenuation_[i]->setSizePolicy(kept);
    attenuation_[i]->installEventFilter(this);
    fraAtten->layout()->addWidget(attenuation_[i]);
  }
  column->addStretch();
}

void frmHalvorneMain::ConnectControls() {
  const auto on = [this](auto* control, auto signal, auto procedure) {
    connect(control, signal, this, [procedure] {
      const Command command;
      procedure();
    });
  };
  const std::array<Procedure, kToolbar.size()> toolbar{
      [this] { FileNew(); },
      [this] { FileOpen(); },
      [this] { FileSaveAs(); },
      [this] { ViewInputs("cmdViewInputs_Click"); },
      [this] { mnuEditCopyGraph_Click(); },
      [this] { mnuEditCopyGraphData_Click(); },
      [this] { PreviewReport("cmdPrintPreview_Click"); },
      [this] { PrintReport("cmdPrintReport_Click"); },
  };
  for (std::size_t i = 0; i < toolbar.size(); ++i) {
    on(static_cast<QToolButton*>(toolbar_[i]), &QToolButton::clicked,
       [this, procedure = toolbar[i],
        looksOnly = std::string_view(kToolbar[i].name).starts_with("cmdCopy")] {
         LeaveTitleBox();
         if (!looksOnly) {
           EndTuning();
         }
         procedure();
       });
  }
  on(Cursor1, &QPushButton::clicked, [] { Cursor1_Click(); });
  on(FindMax, &QPushButton::clicked, [] { FindMax_Click(); });
  on(FindMin, &QPushButton::clicked, [] { FindMin_Click(); });
  on(HScroll1, &QScrollBar::valueChanged, [] { HScroll1_Change(); });
  // A person's choice counts even when the index stays. SetPlotTypeIndex tells of the program's.
  on(PlotType, &QComboBox::activated, [] { PlotType_Click(); });
}

int frmHalvorneMain::CursorButtonWidth() const {
  return std::max(
      {Cursor1->sizeHint().width(), FindMax->sizeHint().width(), FindMin->sizeHint().width()});
}

void frmHalvorneMain::LimitSize() {
  const QRect area = screen()->geometry();
  const GraphGeometry beside =
      GraphGeometryFor(0, 0, CorrectionFor(area.height()).twips, 0);  // negative sizes
  const QSize graph =
      SmallestGraph().expandedTo({3 * CursorButtonWidth() + 4 * kMargin + kShortestBar, 0}) -
      QSize(qRound(beside.pictureWidth / kTwipsPerPixel),
            qRound(beside.pictureHeight / kTwipsPerPixel));
  const QSize others(toolbar_.back()->geometry().right() + kMargin,
                     menuBar()->sizeHint().height() + kFormRowTop +
                         measurements_->minimumSizeHint().height() + kMargin);
  setMinimumSize((area.size() / 2).expandedTo(graph).expandedTo(others));
}

void frmHalvorneMain::PlaceControls(const QRect& picture, int scrollTop, int titleTop) {
  Picture2->resize(width(), kToolbarHeight);
  const int rowHeight = PlotType->sizeHint().height();
  const int labelWidth = LblPlotType->sizeHint().width();
  LblPlotType->setGeometry(kMargin, kFormRowTop, labelWidth, rowHeight);
  PlotType->setGeometry(2 * kMargin + labelWidth, kFormRowTop,
                        std::min(240, picture.width() - labelWidth - kMargin), rowHeight);
  Picture->setGeometry(picture);

  const int right = picture.x() + picture.width();
  const int button = CursorButtonWidth();
  const int finds = 2 * button + kMargin;
  const int barLeft =
      std::max(picture.x() + qRound(picture.width() * kBoxLeft), picture.x() + button + kMargin);
  const int barRight =
      std::min(picture.x() + qRound(picture.width() * kBoxRight), right - finds - kMargin);
  Cursor1->setGeometry(picture.x(), scrollTop, button, kCursorRowHeight);
  HScroll1->setGeometry(barLeft, scrollTop, barRight - barLeft, kCursorRowHeight);
  FindMin->setGeometry(right - button, scrollTop, button, kCursorRowHeight);
  FindMax->setGeometry(right - finds, scrollTop, button, kCursorRowHeight);
  txtEdit->setGeometry(picture.x(), titleTop, picture.width(), txtEdit->sizeHint().height());

  const int columnLeft = right + kColumnGap;
  measurements_->setGeometry(columnLeft, kFormRowTop, width() - columnLeft - kColumnGap,
                             centralWidget()->height() - kFormRowTop - kMargin);
  PlaceStack();
}

frmHalvorneMain::frmHalvorneMain() {
  setObjectName(QStringLiteral("frmHalvorneMain"));
  setWindowIcon(ColourIcon(QStringLiteral(":/shell/icons/halvorne.pic")));
  setAcceptDrops(true);
  setCentralWidget(new QWidget(this));
  MakeMenus();
  MakeToolbar();
  MakeGraphControls();
  MakeMeasurements();
  MakeStack();
  MakeGraphMenu();
  ConnectControls();
  SetMainWindow(this);
  Form_Load();
}

frmHalvorneMain::~frmHalvorneMain() {
  delete findChild<QDialog*>(QStringLiteral("frmTune"));  // while there is a window to show it on
  SetMainWindow(nullptr);
}

}  // namespace halvorne
