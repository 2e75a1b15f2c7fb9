#include "shell/hold_items.h"

#include <QAction>
#include <QPainter>
#include <QPixmap>

#include "platform/failure.h"
#include "platform/qt/text.h"
#include "plot/held_designs.h"
#include "plot/plot_select.h"
#include "plot/trace_colours.h"

namespace halvorne {
namespace {

constexpr const char* kModule = "frmHalvorneMain";
constexpr int kLongestCaption = 60;  ///< characters of a title that a menu has room for

void mnuGraphHold_Click() try {
  Hold();
  PlotRepaint();
} catch (...) {
  ReportFailure("mnuGraphHold_Click", kModule);
}

void mnuGraphHeld_Click(int slot) try {
  Drop(slot);
  PlotRepaint();
} catch (...) {
  ReportFailure("mnuGraphHeld_Click", kModule);
}

void mnuGraphDropAll_Click() try {
  DropAll();
  PlotRepaint();
} catch (...) {
  ReportFailure("mnuGraphDropAll_Click", kModule);
}

void mnuGraphScaleAll_Click() try {
  comparison.ScaleToAll = !comparison.ScaleToAll;
  PlotRepaint();
} catch (...) {
  ReportFailure("mnuGraphScaleAll_Click", kModule);
}

/// A line in the colour of the slot's curves.
QIcon ColourSample(int slot) {
  constexpr int side = 16;
  const Colour colour = kHeldColours.at(static_cast<std::size_t>(slot));
  QPixmap sample(side, side);
  sample.fill(Qt::transparent);
  QPainter(&sample).fillRect(0, side / 2 - 2, side, 4,
                             QColor(colour.red, colour.green, colour.blue));
  return sample;
}

/// "&1 A probe (probe.dat)": the title tells which one goes.
QString HeldCaption(const HeldDesign& held) {
  QString title = ToQString(DesignCaption(held.snapshot->design));
  if (title.size() > kLongestCaption) {
    title = title.left(kLongestCaption - 3) + QStringLiteral("...");
  }
  return QStringLiteral("&%1 ").arg(held.slot + 1) + title.replace('&', QStringLiteral("&&"));
}

bool UserHoldsAny() {
  return !HeldSlots().empty() && HeldSlots().front() < kMostHeld;
}

/// An entry of a slot, there while the slot holds a design.
void AddHeldItem(GraphMenu& menu, int slot) {
  const std::string name = "mnuGraphHeld(" + std::to_string(slot) + ")";
  QAction* const item = menu.Add({.group = GraphGroup::kHold,
                                  .name = name.c_str(),
                                  .caption = QString(),
                                  .procedure = [slot] { mnuGraphHeld_Click(slot); },
                                  .available = [] { return true; }});
  item->setVisible(false);
  item->setToolTip(QStringLiteral("Drop this held design"));
  menu.OnOpening([item, slot] {
    const HeldDesign* const held = Held(slot);
    item->setVisible(held != nullptr);
    if (held != nullptr) {
      item->setText(HeldCaption(*held));
      item->setIcon(ColourSample(slot));
    }
  });
}

}  // namespace

void AddHoldItems(GraphMenu& menu) {
  menu.Add({.group = GraphGroup::kHold,
            .name = "mnuGraphHold",
            .caption = QStringLiteral("&Hold This Design"),
            .procedure = mnuGraphHold_Click,
            .available = [] { return DesignIsOpen() && !AllSlotsTaken(); }});
  for (int slot = 0; slot < kMostHeld; ++slot) {
    AddHeldItem(menu, slot);
  }
  menu.Add({.group = GraphGroup::kHold,
            .name = "mnuGraphDropAll",
            .caption = QStringLiteral("Drop A&ll"),
            .procedure = mnuGraphDropAll_Click,
            .available = UserHoldsAny});
  menu.Add({.group = GraphGroup::kHold,
            .name = "mnuGraphScaleAll",
            .caption = QStringLiteral("Scale to &All"),
            .procedure = mnuGraphScaleAll_Click,
            .checked = [] { return comparison.ScaleToAll; }});
}

}  // namespace halvorne
