#include "plot/shown_picture.h"

#include <utility>

#include "plot/cursor.h"
#include "plot/graph.h"
#include "plot/plot_state.h"

namespace halvorne {
namespace {

/// The cursor of the window's picture, which a drawing elsewhere would turn off.
class CursorAside {
 public:
  CursorAside() : on_(std::exchange(measured.CursorOn, false)) {}
  ~CursorAside() { measured.CursorOn = on_; }
  CursorAside(const CursorAside&) = delete;
  CursorAside& operator=(const CursorAside&) = delete;

  bool On() const { return on_; }

 private:
  bool on_;
};

/// On paper nothing is drawn twice, so the line is a plain one.
void DrawCursor(Surface& surface) {
  surface.SetDrawStyle(kDots);
  surface.Line(measured.CursorX, 0, measured.CursorX, 10, kCyan);
  surface.SetDrawStyle(kSolid);
  CursorPrint(surface, true);
}

}  // namespace

void DrawOnShow(Surface& surface) {
  // While the question about a waveform stands, the plot on show is the one before it.
  const std::int16_t chosen = std::exchange(view.CurrentPlot, setup.PreviousPlot);
  {
    const CursorAside cursor;
    PlotGraphOn(surface);
    if (cursor.On()) {
      DrawCursor(surface);
    }
  }
  view.CurrentPlot = chosen;
}

}  // namespace halvorne
