#include "batch/comparison.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "batch/design_session.h"
#include "batch/output.h"
#include "batch/stops.h"
#include "platform/qt/text.h"
#include "plot/comparison_table.h"
#include "plot/curve_csv.h"
#include "plot/held_curves.h"
#include "plot/windows/plot_pictures.h"

namespace halvorne::batch {
namespace {

constexpr QSize kGraphSize(1000, 620);

/// Opens a design of the request in the way of all, and shows the plot.
void Show(Session& session, const std::string& file) {
  Request request = session.request;
  request.in = file;
  Session own{request, session.window, session.messages};
  OpenDesign(own);
  ShowPlot(own);
}

/// Holds the others, also those that cannot show the plot.
void HoldOthers(Session& session) {
  for (const std::string& file : session.request.others) {
    try {
      Show(session, file);
    } catch (const CommandFailed&) {
      if (!plot.DesignOpen) {
        throw;
      }
    }
    Hold();
  }
}

/// The held designs that are not among what is shown, with what hinders them.
std::string Missing() {
  std::string missing;
  for (const int slot : HeldSlots()) {
    const HeldCurves& made = *Held(slot)->curves;
    if (!made.shown) {
      missing += (missing.empty() ? "" : ", ") + Held(slot)->label + " (" + made.why + ")";
    }
  }
  return missing;
}

template <class Value>
QJsonArray Numbers(std::size_t count, Value value) {
  QJsonArray numbers;
  for (std::size_t i = 0; i < count; ++i) {
    numbers.append(value(i));
  }
  return numbers;
}

void AddCurve(QJsonObject& object, const CsvCurve& curve) {
  const auto& values = curve.values;
  object["x"] = Numbers(values.size(), [&](std::size_t i) { return curve.X(i); });
  object["y1"] = Numbers(values.size(), [&](std::size_t i) { return values[i].Y1; });
  if (curve.spectrumPoints > 0) {
    const std::size_t count = curve.spectrumPoints;
    object["spectrumX"] = Numbers(count, [&](std::size_t i) { return curve.Frequency(i); });
    object["spectrum"] = Numbers(count, [&](std::size_t i) { return values[i].Y2; });
  } else if (curve.dualTrace) {
    object["y2"] = Numbers(values.size(), [&](std::size_t i) { return values[i].Y2; });
  }
}

QJsonArray Measurements(const ComparisonTable& table, const ComparisonTable::Row& row) {
  QJsonArray all;
  for (std::size_t k = 0; k < table.columns.size(); ++k) {
    // "200.0 kHz" in a column of MHz
    const QString cell = ToQString(row.cells[k]);
    const qsizetype blank = cell.indexOf(u' ');
    all.append(
        QJsonObject{{"name", ToQString(table.columns[k].Caption())},
                    {"unit", blank < 0 ? ToQString(table.columns[k].unit) : cell.mid(blank + 1)},
                    {"value", cell.left(blank)}});
  }
  return all;
}

QByteArray ComparisonJson(const Session& session) {
  const ComparisonTable table = MakeComparisonTable();
  QJsonArray designs;
  QJsonObject present{{"design", ToQString(table.rows[0].design)},
                      {"shown", true},
                      {"measurements", Measurements(table, table.rows[0])}};
  AddCurve(present, PresentCurve(points.PlotData));
  designs.append(present);
  std::size_t row = 1;
  for (const int slot : HeldSlots()) {
    const HeldDesign& held = *Held(slot);
    QJsonObject object{{"design", ToQString(held.label)}, {"shown", held.curves->shown}};
    if (held.curves->shown) {
      object["measurements"] = Measurements(table, table.rows[row]);
      AddCurve(object, HeldCurve(held, points.PlotData));
    } else {
      object["why"] = ToQString(held.curves->why);
    }
    designs.append(object);
    ++row;
  }
  const MainWindow& window = session.window;
  const bool time = IsTimePlot(view.CurrentPlot);
  return QJsonDocument(QJsonObject{{"plot", view.CurrentPlot},
                                   {"plotTitle", ToQString(plot.PlotTitle)},
                                   {"form", ToQString(window.PlotTypeText(window.PlotTypeIndex()))},
                                   {"x", time ? "Time in s" : "Frequency in Hz"},
                                   {"y1", ToQString(FirstTraceWords())},
                                   {"y2", plot.DualTrace ? QJsonValue(ToQString(SecondTraceWords()))
                                                         : QJsonValue(QJsonValue::Null)},
                                   {"designs", designs}})
      .toJson();
}

QByteArray ComparisonPicture(const Session& session, PictureFormat format) {
  const auto table = static_cast<int>(ComparisonTableHeight(MakeComparisonTable()));
  const QSize asked = session.request.size;
  const QSize size = asked.isValid() ? asked : kGraphSize + QSize(0, table);
  return PictureOf(format, size, ToQString(plot.PlotTitle), [size](Surface& surface) {
    DrawComparison(surface, size.width(), size.height());
  });
}

}  // namespace

void WriteComparison(Session& session) {
  const Request& request = session.request;
  if (request.others.size() > kMostHeld) {
    throw WrongCommandLine("compare takes " + std::to_string(kMostHeld + 1) +
                           " designs at most, not " + std::to_string(request.others.size() + 1));
  }
  const QString ending = QFileInfo(ToQString(request.out)).suffix().toLower();
  const auto format = PictureFormatOf(request.out);
  if (!format && ending != "csv" && ending != "json") {
    throw WrongCommandLine(
        "-o: a comparison's name ends in .png, .svg, .pdf, .csv or .json, not "
        "as " +
        request.out);
  }
  HoldOthers(session);
  comparison.ScaleToAll = true;
  Show(session, request.in);
  MakeHeldCurves();
  if (ending == "csv") {
    WriteOutput(session, CurvesAsCsv(TableAsCsv(MakeComparisonTable())));
  } else {
    const QByteArray bytes = format ? ComparisonPicture(session, *format) : ComparisonJson(session);
    WriteOutput(session, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  }
  if (const std::string missing = Missing(); !missing.empty()) {
    throw CommandFailed("the comparison lacks designs that cannot show the plot: " + missing);
  }
}

}  // namespace halvorne::batch
