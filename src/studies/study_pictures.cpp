#include "studies/study_pictures.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include "engine/design_model.h"
#include "platform/main_window.h"
#include "platform/qt/text.h"
#include "plot/axis_scaling.h"
#include "plot/plot_select.h"
#include "plot/plot_state.h"
#include "quantities/refusals.h"
#include "studies/chart.h"

namespace halvorne::studies {
namespace {

/// Abscissae whose values are sorted together, so that memory does not grow with their number.
constexpr std::size_t kColumns = 128;

void WritePicture(const StudyFolder& folder, const std::string& name, const QByteArray& bytes) {
  folder.Write(name, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

/// Percentiles of the kept curves, abscissa by abscissa.
struct Percentiles {
  std::vector<double> lower;
  std::vector<double> middle;
  std::vector<double> upper;

  void Add(std::vector<double>& column, const Study& study) {
    std::erase_if(column, [](double value) { return !std::isfinite(value); });
    std::ranges::sort(column);
    lower.push_back(SampleQuantile(column, study.lowerPercentile / 100));
    middle.push_back(SampleQuantile(column, 0.5));
    upper.push_back(SampleQuantile(column, study.upperPercentile / 100));
  }
};

/// Reads a block of abscissae of all kept curves.
/// @param from  place of the block in a curve record of `record` numbers
std::vector<std::vector<double>> ReadColumns(std::ifstream& file, long kept, std::size_t record,
                                             std::size_t from, std::size_t count) {
  std::vector<std::vector<double>> columns(count);
  std::vector<float> piece(count);
  for (long k = 0; k < kept; ++k) {
    const auto place =
        static_cast<std::streamoff>((static_cast<std::size_t>(k) * record + from) * sizeof(float));
    file.seekg(place);
    file.read(reinterpret_cast<char*>(piece.data()),
              static_cast<std::streamsize>(count * sizeof(float)));
    for (std::size_t c = 0; c < count; ++c) {
      columns[c].push_back(piece[c]);
    }
  }
  return columns;
}

Percentiles PercentilesOf(const Study& study, const StudyFolder& folder, std::size_t record,
                          std::size_t from, std::size_t count) {
  const std::string name = folder.CurvesFile({});
  const long kept = KeptRuns(study).CountBelow(study.runs);
  std::ifstream file(name, std::ios::binary);
  Percentiles percentiles;
  for (std::size_t done = 0; done < count; done += kColumns) {
    const std::size_t block = std::min(kColumns, count - done);
    for (auto& column : ReadColumns(file, kept, record, from + done, block)) {
      percentiles.Add(column, study);
    }
  }
  if (!file) {
    throw NotPossible(name + " could not be read");
  }
  return percentiles;
}

/// Title, labels and units of a plot, as the window shows them.
BandChart LabelledChart(const StudyPlot& of) {
  view.CurrentPlot = static_cast<std::int16_t>(of.plot);
  PlotSelect(view.CurrentPlot);
  mainWindow().SetPlotTypeIndex(of.form);
  const bool time = IsTimePlot(of.plot);
  BandChart chart;
  chart.title = ToQString(plot.PlotTitle);
  chart.x = {(time ? QStringLiteral("Time in ") : QStringLiteral("Frequency in ")) +
                 ToQString(time ? view.TimeUnit : design.FreqUnit),
             time ? view.TimeScale : design.FreqScale};
  chart.y.label =
      ToQString(scale.LeftLabel) +
      (scale.LeftUnit.empty() ? QString() : QStringLiteral(" in ") + ToQString(scale.LeftUnit));
  if (plot.AmplLog) {
    chart.span = setup.LogRange;
  }
  return chart;
}

/// A measure along an axis, with an engineering prefix where its unit takes one.
AxisOf MeasureAxis(const Measure& measure, double largest) {
  const QString name = ToQString(measure.name);
  if (measure.unit.empty()) {
    return {name};
  }
  const bool prefixed = measure.unit == "Hz" || measure.unit == "s" || measure.unit == "ohms";
  const double power = prefixed && largest > 0 ? std::floor(std::log10(largest) / 3) : 0;
  const double unit = std::pow(1000, std::clamp(power, -4.0, 3.0));
  return {name + QStringLiteral(" in ") + ToQString(EngrScale(unit)) + ToQString(measure.unit),
          unit};
}

QString PercentText(double percent) {
  return QString::number(percent, 'g', 6);
}

/// A measure's name as a file can have it.
std::string FileWord(std::string name) {
  std::ranges::replace_if(
      name, [](char c) { return c == ':' || c == '/'; }, '-');
  return name;
}

}  // namespace

void DrawBands(const Study& study, const StudyFolder& folder, StudyRuns& runs) {
  const std::vector<float> own = runs.OwnCurves();
  std::size_t from = 0;
  for (std::size_t k = 0; k < study.plots.size(); ++k) {
    const StudyPlot& of = study.plots[k];
    BandChart chart = LabelledChart(of);
    chart.abscissae = runs.AbscissaeOf(k);
    const std::size_t count = chart.abscissae.size();
    Percentiles percentiles = PercentilesOf(study, folder, runs.CurveSize(), from, count);
    chart.lower = std::move(percentiles.lower);
    chart.middle = std::move(percentiles.middle);
    chart.upper = std::move(percentiles.upper);
    const auto first = own.begin() + static_cast<std::ptrdiff_t>(from);
    chart.own.assign(first, first + static_cast<std::ptrdiff_t>(count));
    chart.bandName = PercentText(study.lowerPercentile) + QStringLiteral(" to ") +
                     PercentText(study.upperPercentile) + QStringLiteral(" % of the runs");
    WritePicture(folder, "plot-" + std::to_string(of.plot) + "-" + std::to_string(of.form) + ".png",
                 PictureOf(chart));
    from += count;
  }
}

void DrawHistograms(const Study& study, const StudyFolder& folder, const StudySummary& summary) {
  for (std::size_t k = 0; k < study.measures.size(); ++k) {
    const Measure& measure = study.measures[k];
    const std::vector<double>& sorted = summary.measures[k].sorted;
    const double largest =
        sorted.empty() ? 0 : std::max(std::abs(sorted.front()), std::abs(sorted.back()));
    HistogramChart chart{
        ToQString(measure.name), MeasureAxis(measure, largest), HistogramOf(sorted), {}, {},
        summary.own[k]};
    for (const Limit& limit : study.limits) {
      if (limit.measure == k) {
        chart.atLeast = limit.atLeast ? limit.atLeast : chart.atLeast;
        chart.atMost = limit.atMost ? limit.atMost : chart.atMost;
      }
    }
    WritePicture(folder, "histogram-" + FileWord(measure.name) + ".png", PictureOf(chart));
  }
}

}  // namespace halvorne::studies
