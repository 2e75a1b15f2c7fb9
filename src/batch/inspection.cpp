#include "batch/inspection.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "platform/qt/text.h"
#include "plot/plot_state.h"

namespace halvorne::batch {
namespace {

QJsonObject LeftAxis() {
  return {{"label", ToQString(scale.LeftLabel)},
          {"unit", ToQString(scale.LeftUnit)},
          {"prefix", ToQString(scale.LeftPrefix)},
          {"max", scale.LeftMax},
          {"min", scale.LeftMin},
          {"mag", scale.LeftMag},
          {"maxText", ToQString(scale.LeftMaxText)},
          {"minText", ToQString(scale.LeftMinText)}};
}

QJsonObject RightAxis() {
  return {{"label", ToQString(scale.RightLabel)},
          {"unit", ToQString(scale.RightUnit)},
          {"prefix", ToQString(scale.RightPrefix)},
          {"max", scale.RightMax},
          {"min", scale.RightMin},
          {"mag", scale.RightMag},
          {"maxText", ToQString(scale.RightMaxText)},
          {"minText", ToQString(scale.RightMinText)}};
}

QJsonObject XAxis() {
  const bool time = IsTimePlot(view.CurrentPlot);
  return {{"name", time ? "Time" : "Frequency"},
          {"unit", ToQString(time ? view.TimeUnit : design.FreqUnit)},
          {"lowerText", ToQString(time ? scale.TimeLowerText : scale.FreqLowerText)},
          {"upperText", ToQString(time ? scale.TimeUpperText : scale.FreqUpperText)},
          {"first", scale.FirstPlotPt},
          {"last", scale.LastPlotPt}};
}

template <class Texts>
QJsonArray TextList(const Texts& texts) {
  QJsonArray list;
  for (const std::string& text : texts) {
    list.append(ToQString(text));
  }
  return list;
}

/// Rows of cells, or null where the measurement does not hold.
template <class Rows>
QJsonValue Cells(bool valid, const Rows& rows) {
  if (!valid) {
    return QJsonValue::Null;
  }
  QJsonArray list;
  for (const auto& row : rows) {
    list.append(TextList(row));
  }
  return list;
}

QJsonArray Forms(const MainWindow& window) {
  QJsonArray forms;
  for (int i = 0; i < window.PlotTypeCount(); ++i) {
    forms.append(ToQString(window.PlotTypeText(i)));
  }
  return forms;
}

}  // namespace

std::string Inspection(const MainWindow& window) {
  const bool attenuated = measured.AttenValid && design.AttenOn;
  const QJsonObject object{{"plotTitle", ToQString(plot.PlotTitle)},
                           {"form", window.PlotTypeIndex()},
                           {"forms", Forms(window)},
                           {"dualTrace", plot.DualTrace},
                           {"spectrumShown", plot.SpectrumShown},
                           {"amplLog", plot.AmplLog},
                           {"left", LeftAxis()},
                           {"right", RightAxis()},
                           {"x", XAxis()},
                           {"cfbw", Cells(measured.CFBWValid, measured.CFBWText)},
                           {"pulseWidth", Cells(measured.PulseWidthValid, measured.PulseWidthText)},
                           {"peakText", ToQString(measured.PeakAmplText)},
                           {"peakLabel", ToQString(measured.PkAmplCaption)},
                           {"attenuation", attenuated ? QJsonValue(TextList(measured.AttenCaptions))
                                                      : QJsonValue(QJsonValue::Null)}};
  return QJsonDocument(object).toJson().toStdString();
}

}  // namespace halvorne::batch
